// The texts of a catalog file that a translator gets.
#pragma once

#include "tools/FieldTexts.h"
#include "tools/FileFailure.h"
#include "tools/TextForm.h"
#include "tools/TextRewriter.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

namespace Orvida::Tools {

/// What tells one text of a file from all others, however the records are ordered.
struct TextName
{
    QString record;
    QString key; ///< Of the record; of repeated ones, with their number.
    QString field;

    bool operator==(const TextName &other) const
    {
        return record == other.record && key == other.key && field == other.field;
    }
};

uint qHash(const TextName &name, uint seed = 0);

/// A text in the clear.
struct TranslatableText
{
    TextName name;
    QString code; ///< Of the record; empty when it has none.
    QString text;
    FieldText place;
    bool isScrambled = false; ///< In the file.
    bool isCaption = false;   ///< Whether people read it.
};

/// Finds the texts of a file in either form, and puts others in their place. All else stays as it is.
class TranslatableTexts
{
public:
    /// Which texts are found.
    enum Choice {
        Captions, ///< What inspectors and authors read.
        All,      ///< Every text that is neither a key nor a reference.
    };

    /// What is to be said of a text.
    using Note = FormChange::Note;

    TranslatableTexts(const QByteArray &document, std::optional<TextForm> form, Choice choice);

    /// Why the file cannot be changed at all; none when it can.
    const std::optional<FileFailure> &failure() const { return m_failure; }

    /// In the order of the file.
    const QVector<TranslatableText> &texts() const { return m_texts; }

    /// The file with the texts of `translations` in place of its own. Texts that cannot be replaced are noted
    /// in `left`.
    QByteArray translated(const QHash<TextName, QString> &translations, QVector<Note> &left) const;

private:
    struct Field
    {
        FieldText place;
        QString text;
        bool isScrambled;
    };

    void addRecord(const QVector<Field> &fields, Choice choice);
    TextName takeName(const TextName &wanted);
    QString obstacleOf(const TranslatableText &text, const QString &translation) const;

    TextRewriter m_rewriter;
    const std::optional<TextForm> m_form;
    std::optional<FileFailure> m_failure;
    QVector<TranslatableText> m_texts;
    QHash<TextName, int> m_repeats; // of each name that is taken, how often it was met again
};

} // namespace Orvida::Tools
