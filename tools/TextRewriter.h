// Replaces texts of an XML document and keeps all else byte for byte.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

class QTextCodec;

namespace Orvida::Tools {

/// Gives the text of a document, takes replacements for parts of it, and gives the bytes of the changed
/// document. Decodes as the XML reader does: by byte-order mark, by declaration, else as UTF-8.
class TextRewriter
{
public:
    explicit TextRewriter(const QByteArray &document);

    /// Whether the bytes are valid in their encoding.
    bool isDecoded() const { return m_isDecoded; }

    /// The document without its byte-order mark.
    const QString &text() const { return m_text; }

    /// Whether the encoding of the document has all characters of `text`.
    bool canEncode(const QString &text) const;

    /// Puts `replacement` in the place of the UTF-16 units from `begin` to before `end`. Calls go from the
    /// start of the document to its end, and their places do not overlap.
    void replace(int begin, int end, const QString &replacement);

    /// The changed document; null when its encoding does not allow to change a part and keep the rest,
    /// because what is decoded and encoded again is not the same.
    QByteArray result() const;

private:
    struct Replacement
    {
        int begin;
        int end;
        QString text;
    };

    const QByteArray m_document;
    int m_markSize = 0; // of the byte-order mark
    const QTextCodec *m_codec = nullptr;
    QString m_text;
    bool m_isDecoded = false;
    QVector<Replacement> m_replacements;
};

} // namespace Orvida::Tools
