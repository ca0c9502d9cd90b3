// A catalog file taken apart for its layout: what is in the root, and what is in each record.
#pragma once

#include "catalogs/format/CatalogFormat.h"
#include "tools/Messages.h"

#include <QString>
#include <QVector>

namespace Orvida::Tools {

/// A piece of the text of a document: an element with all that is in it, or a comment.
struct LayoutPiece
{
    int begin = 0;
    int end = 0;
    bool isComment = false;
    int lineBreaks = 0; ///< In the white space before it.
    /// Of a field in a record; null for all else.
    const Catalogs::CatalogFormat::Field *field = nullptr;

    // Of an element in the root.
    bool canBeLaidOut = false; ///< Whether it is a record with nothing but fields and comments in it.
    int startTagEnd = 0;
    int endTagBegin = 0;
    QVector<LayoutPiece> inside;
};

/// The text of a document as far as its layout matters.
struct LayoutPieces
{
    /// Takes `text` apart, which is well-formed XML.
    explicit LayoutPieces(const QString &text);

    /// Why nothing of it can be laid out, and where; empty when it can.
    QString obstacle;
    FilePosition obstaclePosition;
    int rootTagEnd = 0; ///< After the start tag of the root.
    int rootEnd = 0;    ///< Before its end tag.
    QVector<LayoutPiece> inRoot;
};

} // namespace Orvida::Tools
