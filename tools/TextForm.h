// The two forms of a catalog file: the one that hosts load, and the readable one.
#pragma once

#include "tools/FieldTexts.h"
#include "tools/FileFailure.h"
#include "tools/TextRewriter.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QVector>

#include <optional>

namespace Orvida::Tools {

/// How the texts of the scrambled fields are written in a file.
enum class TextForm {
    Scrambled, ///< As hosts load them.
    Readable,  ///< In the clear, for authors.
};

/// Reads a catalog file to its end, or to where it is no XML, and gives the form of more than half of the
/// texts of scrambled fields; none when neither form has more than half of them. Tells pairs of hexadecimal
/// digits from all else.
std::optional<TextForm> formOf(QIODevice &file);

/// Brings a catalog file from one form into the other. Only the texts of scrambled fields change.
class FormChange
{
public:
    /// What is to be said of a text.
    struct Note
    {
        FilePosition position;
        QString text;
        QString remedy = {};
    };

    explicit FormChange(const QByteArray &document);

    /// Why the file cannot be changed at all; none when it can.
    const std::optional<FileFailure> &failure() const { return m_failure; }

    /// As `formOf`.
    std::optional<TextForm> form() const;

    /// The texts with an obstacle greater than `tolerated`.
    QVector<Note> obstacles(FieldText::Obstacle tolerated) const;

    /// The scrambled form of the file. Texts that are part of an entity stay as they are.
    QByteArray scrambled() const;

    /// The texts that seem to be scrambled already, among others that are not: scrambling them once more
    /// would surely be a mistake.
    QVector<Note> scrambledTexts() const;

    /// The readable form of the file. What could not be scrambled back to the same bytes stays as it is and
    /// is noted in `left`; with `takesLowerCase` digits in lower case do not matter.
    QByteArray unscrambled(bool takesLowerCase, QVector<Note> &left) const;

private:
    TextRewriter m_rewriter;
    FieldTexts m_texts;
    std::optional<FileFailure> m_failure;
};

} // namespace Orvida::Tools
