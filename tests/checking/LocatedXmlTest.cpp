// The fast reader of plain XML gives the same tokens at the same places as the reader of all XML.

#include "checking/reading/LocatedXml_p.h"

#include "support/TestSupport.h"

#include <QBuffer>
#include <QDirIterator>
#include <QtTest>

using namespace Orvida::Checking;
using namespace Orvida::Tests;

namespace {

QString lineOf(const LocatedXml &xml)
{
    return text("%1:%2 %3 %4 %5 %6 \"%7\"")
        .arg(xml.position().line)
        .arg(xml.position().column)
        .arg(xml.tokenType())
        .arg(xml.name().toString(), xml.attributeNames().join(QLatin1Char(' ')),
             xml.isWhitespace() ? text("blank") : QString(), xml.text().toString());
}

// Of a plain document, the first token in which the readers differ. The others are read by one of them only.
QString differenceIn(const QByteArray &document, bool &isPlain)
{
    QBuffer plainBuffer;
    plainBuffer.setData(document);
    plainBuffer.open(QIODevice::ReadOnly);
    PlainXml plain(plainBuffer);
    QXmlStreamReader reader(document);
    AnyXml any(reader);
    QString difference;
    while (plain.readNext() != QXmlStreamReader::Invalid) {
        any.readNext();
        if (plain.tokenType() == QXmlStreamReader::EndDocument)
            break;
        // Where the document starts is nobody's business.
        if (plain.tokenType() != QXmlStreamReader::StartDocument && difference.isEmpty()
            && lineOf(plain) != lineOf(any))
            difference = lineOf(plain) + text(", not ") + lineOf(any);
    }
    isPlain = plain.tokenType() == QXmlStreamReader::EndDocument;
    return isPlain ? difference : QString();
}

QByteArray smallDocument()
{
    return "\xEF\xBB\xBF<?xml version='1.0'?>\r\n<!-- \xC3\xA9 -->\n<a  b='1\n2' c=\"3\"\r\n>"
           "\t\xF0\x9F\x9A\x87&amp;\xE2\x82\xAC x<b/><c d='='/>\r\n &#32;\n<!--\r\ncheck: off--> \xC3\xA9]"
           "<d>&#233;</d\n></a>\n ";
}

} // namespace

class LocatedXmlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesOnFiles();
    void agreesOnLongTokens();
    void agreesOnDocumentsWithOneOtherBit();
};

void LocatedXmlTest::agreesOnFiles()
{
    const QString root = QFileInfo(QFINDTESTDATA("LocatedXmlTest.cpp")).dir().filePath(text("../.."));
    int count = 0;
    for (const char *folder : {"fuzz/corpus", "tests/catalogs", "tests/tools/transcripts/files", "samples"}) {
        QDirIterator files(QDir(root).filePath(QLatin1String(folder)), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            bool isPlain = false;
            const QString difference = differenceIn(file.readAll(), isPlain);
            QVERIFY2(difference.isEmpty(), qPrintable(file.fileName() + text(": ") + difference));
            count += isPlain;
        }
    }
    QVERIFY(count > 20);
}

// Tokens that begin in one block and end in another.
void LocatedXmlTest::agreesOnLongTokens()
{
    for (int size = 16300; size < 16400; ++size) {
        const QByteArray filler(size, 'x');
        bool isPlain = false;
        QCOMPARE(
            differenceIn("<a>\n" + filler + "\xC3\xA9\n<!--" + filler + "--><b c='\n" + filler + "'/></a>",
                         isPlain),
            QString());
        QVERIFY(isPlain);
    }
}

void LocatedXmlTest::agreesOnDocumentsWithOneOtherBit()
{
    QByteArray document = smallDocument();
    int count = 0;
    for (int bit = 0; bit < document.size() * 8; ++bit) {
        const char original = document.at(bit / 8);
        document[bit / 8] = char(original ^ 1 << bit % 8);
        bool isPlain = false;
        const QString difference = differenceIn(document, isPlain);
        QVERIFY2(difference.isEmpty(),
                 qPrintable(difference + QLatin1Char('\n') + QString::fromUtf8(document)));
        document[bit / 8] = original;
        count += isPlain;
    }
    QVERIFY(count > 100);
}

QTEST_GUILESS_MAIN(LocatedXmlTest)

#include "LocatedXmlTest.moc"
