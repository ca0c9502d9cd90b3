// Reads a document with the scanner and with QXmlStreamReader, side by side. For tests and fuzz targets.
#pragma once

#include "catalogs/reading/PlainXmlScanner_p.h"

#include <QBuffer>
#include <QByteArray>
#include <QString>

namespace Orvida::Tests {

/// What the scanner found, and the first thing in which QXmlStreamReader differs from it.
struct ScannerComparison
{
    bool isPlain = false;
    QString difference; // always empty when the document is not plain
};

/// Compares all tokens of `document`, which the scanner reads in blocks of `blockSize` bytes. Both skip the
/// element of every `skipped`th start tag; with 0, they skip none.
inline ScannerComparison compareWithQt(const QByteArray &document, int blockSize, int skipped = 0)
{
    QBuffer bufferOfScanner;
    bufferOfScanner.setData(document);
    bufferOfScanner.open(QIODevice::ReadOnly);
    QBuffer bufferOfReader;
    bufferOfReader.setData(document);
    bufferOfReader.open(QIODevice::ReadOnly);
    Catalogs::PlainXmlScanner scanner(bufferOfScanner, blockSize);
    QXmlStreamReader reader(&bufferOfReader);
    const ScannerComparison wentOn = {true, QStringLiteral("the scanner went on after the end")};
    QString difference;
    for (int startTags = 0;;) {
        const auto token = scanner.readNext();
        if (token == QXmlStreamReader::Invalid)
            return scanner.readNext() == token ? ScannerComparison() : wentOn;
        reader.readNext();
        const bool isSame = scanner.tokenType() == reader.tokenType() && scanner.name() == reader.name()
                            && scanner.text() == (reader.isComment() ? QStringRef() : reader.text());
        if (!isSame && difference.isEmpty())
            difference = QStringLiteral("token %1: %2 \"%3%4\", not %5 \"%6%7\" %8")
                             .arg(scanner.lineNumber())
                             .arg(token)
                             .arg(scanner.name(), scanner.text())
                             .arg(reader.tokenType())
                             .arg(reader.name(), reader.text(), reader.errorString());
        if (token == QXmlStreamReader::EndDocument)
            return scanner.readNext() == token ? ScannerComparison{true, difference} : wentOn;
        if (token == QXmlStreamReader::StartElement && skipped > 0 && ++startTags % skipped == 0) {
            scanner.skipCurrentElement();
            reader.skipCurrentElement();
        }
    }
}

} // namespace Orvida::Tests
