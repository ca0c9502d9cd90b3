// Finds the texts of fields in the text of a catalog file.
#pragma once

#include "catalogs/format/CatalogFormat.h"
#include "tools/FileFailure.h"
#include "tools/Messages.h"
#include "tools/TextRewriter.h"

#include <QByteArray>
#include <QLatin1String>
#include <QString>
#include <QVector>

#include <optional>

namespace Orvida::Tools {

/// The text of one field, as far as a load takes it: the first piece of text after the field's start tag.
struct FieldText
{
    /// What keeps the text from being replaced without a loss; from harmless to impossible.
    enum Obstacle {
        None,
        CutText,       ///< More text follows in the field, of which a load takes nothing.
        NestedElement, ///< There is an element in the field.
        Entity,        ///< The text refers to an entity that the document declares.
        InsideEntity,  ///< The field itself is part of an entity, so it has no place in the document.
    };

    const Catalogs::CatalogFormat::Field *field = nullptr;
    int record = 0;        ///< Which of the elements in the root the field is in.
    bool isDirect = false; ///< Whether that element is the field's record, and the field is directly in it.
    FilePosition position; ///< After the field's start tag.
    int begin = 0;         ///< Of the text in the document, in UTF-16 units; of a CDATA section its content.
    int end = 0;
    bool isCData = false;
    QString value; ///< The text, its references resolved.
    Obstacle obstacle = None;
};

/// The texts of a document.
struct FieldTexts
{
    /// Those that are not empty, in the order of the document. A field in a wrong place counts too: a load
    /// ignores it, but its author takes it for a field.
    QVector<FieldText> texts;
    /// What the XML reader says is wrong with the document, and where; empty when it is well-formed.
    QString errorText;
    FilePosition errorPosition;
    /// False when the XML reader decodes the bytes to another text than the one given.
    bool isTextOfDocument = true;
};

/// What keeps a text from being replaced, in words; empty for `None`.
QLatin1String wordsOf(FieldText::Obstacle obstacle);

/// Which fields' texts are looked for.
enum class WantedTexts { Scrambled, All };

/// Finds the texts in `text`, which is `document` decoded, without its byte-order mark. The values are those
/// that the XML reader gets from the bytes; the decoded text is read in parallel for their places.
FieldTexts findFieldTexts(const QByteArray &document, const QString &text,
                          WantedTexts wanted = WantedTexts::Scrambled);

/// Why the texts of `document`, which are `texts`, cannot be replaced at all; none when they can.
std::optional<FileFailure> failureOf(const FieldTexts &texts, const TextRewriter &document);

} // namespace Orvida::Tools
