// Reads a document with the scanner and with QXmlStreamReader, side by side. For tests and fuzz targets.
#pragma once

#include "catalogs/reading/PlainXmlScanner_p.h"

#include <QBuffer>
#include <QByteArray>
#include <QString>

namespace Orvida::Tests {

/// What the scanner found, and where QXmlStreamReader first differs from it.
struct ScannerComparison
{
    bool isPlain = false;
    QString difference; // always empty when the document is not plain
};

/// Compares all tokens of `document`, which the scanner reads in blocks of `blockSize` bytes. Both skip the
/// element of every `skipped`th start tag; none for 0. A first pass, which keeps no texts, must end the same
/// way as the second one.
inline ScannerComparison compareWithQt(const QByteArray &document, int blockSize, int skipped = 0)
{
    QBuffer bufferOfReader;
    bufferOfReader.setData(document);
    bufferOfReader.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&bufferOfReader);
    QBuffer bufferOfScanner;
    bufferOfScanner.setData(document);
    bufferOfScanner.open(QIODevice::ReadOnly);
    Catalogs::PlainXmlScanner firstPass(bufferOfScanner, blockSize, false);
    firstPass.skipCurrentElement();
    bufferOfScanner.seek(0);
    Catalogs::PlainXmlScanner scanner(bufferOfScanner, blockSize);
    QString difference;
    int startTags = 0;
    while (scanner.readNext() != QXmlStreamReader::Invalid) {
        reader.readNext();
        const bool isSame = scanner.tokenType() == reader.tokenType() && scanner.name() == reader.name()
                            && scanner.text() == (reader.isComment() ? QStringRef() : reader.text());
        if (!isSame && difference.isEmpty())
            difference = QStringLiteral("token %1: %2 \"%3%4\", not %5 \"%6%7\" %8")
                             .arg(scanner.lineNumber())
                             .arg(scanner.tokenType())
                             .arg(scanner.name(), scanner.text())
                             .arg(reader.tokenType())
                             .arg(reader.name(), reader.text(), reader.errorString());
        if (scanner.tokenType() == QXmlStreamReader::EndDocument)
            break;
        if (scanner.tokenType() == QXmlStreamReader::StartElement && skipped > 0
            && ++startTags % skipped == 0) {
            scanner.skipCurrentElement();
            reader.skipCurrentElement();
        }
    }
    const auto last = scanner.tokenType();
    if (scanner.readNext() != last || firstPass.tokenType() != last)
        return {true, QStringLiteral("the passes end differently, or not at all")};
    const bool isPlain = last == QXmlStreamReader::EndDocument;
    return {isPlain, isPlain ? difference : QString()};
}

} // namespace Orvida::Tests
