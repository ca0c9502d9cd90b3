// Unscrambling and scrambling again gives the same bytes, whatever the texts, the encoding and the markup.

#include "catalogs/reading/ScrambledText.h"
#include "support/TestSupport.h"
#include "tools/TextForm.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTextCodec>
#include <QXmlStreamReader>
#include <QtTest>

using namespace Orvida::Tools;

using Orvida::Tests::bytesOf;
using Orvida::Tests::isWellFormed;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

// Pieces of text that a document cannot hold as they are, or that are easily mistaken for something else.
const QStringList oddPieces = {
    text("&"),      text("<"),      text("]]>"),    text("\r"),         text("\n"),         text("\r\n"),
    text("\t"),     text(" "),      text("\u0085"), text("\u00A0"),     text("\uFEFF"),     text("\u202E"),
    text("\uFFFD"), text("\uD7FF"), text("AB"),     text("\U0001F600"), text("\U0010FFFF"), text("&amp;"),
    text("&#x41;"), text("<!--"),   text("0"),      text("<![CDATA["),
};

QString randomText(QRandomGenerator &random, bool isOdd)
{
    QString result;
    for (int length = random.bounded(1, 12); length > 0; --length) {
        if (isOdd && random.bounded(3) == 0)
            result += oddPieces.at(random.bounded(oddPieces.size()));
        else
            result += QChar(random.bounded(0x20, 0x7F));
    }
    return result;
}

QByteArray randomDocument(QRandomGenerator &random, const QByteArray &encoding)
{
    const QString lineEnd = random.bounded(2) == 0 ? text("\n") : text("\r\n");
    QString document = text("<?xml version='1.0' encoding='%1'?><OVCAT>").arg(QString::fromLatin1(encoding));
    for (int i = 0; i < 20; ++i) {
        const bool isCData = random.bounded(5) == 0;
        const QString scrambled =
            Orvida::Catalogs::ScrambledText::encode(randomText(random, !isCData).remove(text("]]>")));
        document += lineEnd + text("<CLASS><CLASS_PK>&lt;%1</CLASS_PK><CLASS_Item a='>'>").arg(i)
                    + (isCData ? text("<![CDATA[%1]]>").arg(scrambled) : scrambled)
                    + text("</CLASS_Item><!-- <CLASS_Item>1</CLASS_Item> --></CLASS>");
    }
    return QTextCodec::codecForName(encoding)->fromUnicode(document + lineEnd + text("</OVCAT>"));
}

} // namespace

class FormChangeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comesBackUnchanged_data();
    void comesBackUnchanged();
    void keepsTheLinesOfFiles_data();
    void keepsTheLinesOfFiles();
    void refusesNothingButBrokenXml();
};

void FormChangeTest::comesBackUnchanged_data()
{
    QTest::addColumn<QByteArray>("encoding");

    for (const char *encoding :
         {"UTF-8", "UTF-16", "UTF-32", "ISO-8859-1", "windows-1252", "US-ASCII", "KOI8-R"})
        QTest::newRow(encoding) << QByteArray(encoding);
}

void FormChangeTest::comesBackUnchanged()
{
    QFETCH(QByteArray, encoding);
    QRandomGenerator random(1);
    for (int round = 0; round < 100; ++round) {
        const QByteArray scrambled = randomDocument(random, encoding);
        QVector<FormChange::Note> left;
        const QByteArray readable = FormChange(scrambled).unscrambled(false, left);
        QVERIFY2(left.isEmpty(), qPrintable(left.value(0).text));
        QVERIFY(readable != scrambled);
        QCOMPARE(FormChange(readable).scrambled(), scrambled);
    }
}

void FormChangeTest::keepsTheLinesOfFiles_data()
{
    QTest::addColumn<QString>("path");

    for (const char *folder :
         {"../../fuzz/corpus/load", "../../fuzz/corpus/style", "../catalogs", "transcripts/files"}) {
        const QDir files(QFINDTESTDATA(folder));
        for (const QFileInfo &file : files.entryInfoList({text("*.xml")}, QDir::Files))
            QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }
}

void FormChangeTest::keepsTheLinesOfFiles()
{
    QFETCH(QString, path);
    const QByteArray document = bytesOf(path);
    const FormChange change(document);
    QCOMPARE(change.failure().has_value(), !isWellFormed(document));
    if (change.failure())
        return;
    QVector<FormChange::Note> left;
    const QByteArray readable = change.unscrambled(false, left);
    QCOMPARE(readable.count('\n'), document.count('\n'));
    QVERIFY(isWellFormed(readable));
    if (left.isEmpty())
        QCOMPARE(FormChange(readable).scrambled(), document);
}

void FormChangeTest::refusesNothingButBrokenXml()
{
    QRandomGenerator random(2);
    const QByteArray original = bytesOf(QFINDTESTDATA("transcripts/files/pieces.xml"));
    for (int round = 0; round < 3000; ++round) {
        QByteArray document = original;
        for (int changes = random.bounded(1, 4); changes > 0; --changes) {
            const int place = random.bounded(document.size());
            // Mostly letters replace letters, so that not every change breaks the markup.
            document[place] = random.bounded(4) == 0 ? "<>&;!['-\n"[random.bounded(9)]
                                                     : original.at(random.bounded(original.size()));
        }
        const FormChange change(document);
        QCOMPARE(change.failure().has_value(), !isWellFormed(document));
        if (!change.failure())
            QVERIFY2(isWellFormed(change.scrambled()), document.constData());
    }
}

QTEST_GUILESS_MAIN(FormChangeTest)

#include "FormChangeTest.moc"
