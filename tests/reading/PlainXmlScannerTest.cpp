// Which documents the scanner finds plain, and that QXmlStreamReader reads the same from them.

#include "benchmarks/CatalogGenerator.h"
#include "support/ScannerComparison.h"

#include <QFile>
#include <QtTest>

#include <algorithm>

using Orvida::Benchmarks::CatalogGenerator;
using Orvida::Catalogs::PlainXmlScanner;
using Orvida::Tests::compareWithQt;

namespace {

// Everything that plain documents may contain, in few bytes.
const QByteArray smallDocument =
    "\xEF\xBB\xBF<?xml version='1.0' encoding=\"Utf-8\"?>\r\n"
    "<!-- \xC3\xA9\r\n - -->\n<OVCAT a=\"/>\"\tb=''>"
    "<A_1.-x>x]] &lt;&#65;</A_1.-x><B/>\xF0\x9F\x9A\x87\r\n</OVCAT >\n<!---->\r\n";

// What the scanner gets wrong in this document, for several block sizes; empty if nothing.
QByteArray faultOf(const QByteArray &document, bool isPlain)
{
    for (const int blockSize : {1, 2, 3, 5, 16, 61, 1000, 64 * 1024}) {
        for (const int skipped : {0, 2}) {
            const auto comparison = compareWithQt(document, blockSize, skipped);
            const QString fault = comparison.isPlain == isPlain ? comparison.difference
                                  : comparison.isPlain          ? QStringLiteral("plain")
                                                                : QStringLiteral("not plain");
            if (!fault.isEmpty())
                return (fault + QStringLiteral(", in blocks of %1").arg(blockSize)).toUtf8();
        }
    }
    return QByteArray();
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray withManyNames(int count)
{
    QByteArray elements;
    for (int i = 1; i < count; ++i)
        elements += "<n" + QByteArray::number(i) + "/>";
    // The first ones again, now known to the scanner.
    return "<n>" + elements + "<n1/><n2/></n>";
}

QByteArray withManyAttributes(int count)
{
    QByteArray attributes;
    for (int i = 0; i < count; ++i)
        attributes += " b" + QByteArray::number(i) + "=''";
    return "<a" + attributes + "/>";
}

// Gives some bytes and then fails, as a file on a broken disk does.
class FailingDevice : public QIODevice
{
public:
    explicit FailingDevice(const QByteArray &bytes) : m_bytes(bytes) { open(ReadOnly | Unbuffered); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (m_bytes.isEmpty())
            return -1;
        const int count = static_cast<int>(std::min<qint64>(size, m_bytes.size()));
        std::copy_n(m_bytes.constData(), count, data);
        m_bytes.remove(0, count);
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
};

} // namespace

class PlainXmlScannerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsPlain_data();
    void findsPlain();
    void findsNotPlain_data();
    void findsNotPlain();
    void findsOnlyWholeDocumentsPlain();
    void readsChangedDocumentsAsQt();
    void readsAsQtAroundTheBlocksOfQt();
    void leavesLongTokensToQt();
    void stopsWhenTheDeviceFails();
};

void PlainXmlScannerTest::findsPlain_data()
{
    QTest::addColumn<QByteArray>("document");

    const auto row = [](const char *name, const QByteArray &document) { QTest::newRow(name) << document; };
    row("small document", smallDocument);
    row("root alone", "<a/>");
    row("white space and comments around the root", " \n<!--x--> <a></a>\t<!-- -->\r\n");
    row("declaration without encoding", "<?xml version=\"1.0\"?><a/>");
    row("declaration with a space at its end", "<?xml version='1.0' encoding='utf-8' ?><a/>");
    row("all references",
        "<a>&#x41;&#66;&#x10FFFF;&#x9;&#10;&#13;&amp;&apos;&quot;&gt;&lt;&#0000000000033;</a>");
    row("text in pieces", "<a>b<!-- & < > ] --><!--c-->d<e/>f</a>");
    row("brackets", "<a>] ]] ]a> &#93;]&gt; ]]&#62; ]]]</a>");
    row("smallest and largest of two to four bytes",
        "<a>\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF<"
        "/a>");
    row("CR LF everywhere", "<a\r\n>\r\nb\r\n\r\n<!--\r\n--><b c='\r\n'\r\n/></a\r\n>\r\n");
    row("attributes", "<a b='' c=\"]]>\" xml='--' _.-1=\"\xC3\xA9\t\n>\"><b\tb=''/></a>");
    row("name of 255 letters", '<' + QByteArray(255, 'a') + "/>");
    row("256 names", withManyNames(256));
    row("32 attributes", withManyAttributes(32));
    row("256 levels", nested(256));
    QFile sample(QStringLiteral(ORVIDA_SOURCES "/samples/tunnels.xml"));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    row("sample", sample.readAll());
    QBuffer generated;
    QVERIFY(generated.open(QIODevice::WriteOnly));
    CatalogGenerator(1).write(generated, 300000, CatalogGenerator::StylePlace::First);
    row("generated catalog", generated.data());
}

void PlainXmlScannerTest::findsPlain()
{
    QFETCH(QByteArray, document);
    QCOMPARE(faultOf(document, true), QByteArray());
}

void PlainXmlScannerTest::findsNotPlain_data()
{
    QTest::addColumn<QByteArray>("document");

    const auto row = [](const char *name, const QByteArray &document) { QTest::newRow(name) << document; };
    row("nothing", "");
    row("byte-order mark alone", "\xEF\xBB\xBF");
    row("two byte-order marks", "\xEF\xBB\xBF\xEF\xBB\xBF<a/>");
    row("byte-order mark in text", "<a>\xEF\xBB\xBF</a>");
    row("byte-order mark in a comment", "<!--\xEF\xBB\xBF--><a/>");
    row("byte-order mark after the root", "<a/>\xEF\xBB\xBF");
    row("UTF-16", QByteArray("\xFF\xFE<\0a\0/\0>\0", 10));
    row("other version", "<?xml version='1.1'?><a/>");
    row("other encoding", "<?xml version='1.0' encoding='latin1'?><a/>");
    row("encoding that begins alike", "<?xml version='1.0' encoding='UTF-81'?><a/>");
    row("standalone", "<?xml version='1.0' encoding='UTF-8' standalone='yes'?><a/>");
    row("line break in the declaration", "<?xml version='1.0'\nencoding='UTF-8'?><a/>");
    row("declaration in capitals", "<?XML version='1.0'?><a/>");
    row("space before the declaration", " <?xml version='1.0'?><a/>");
    row("two declarations", "<?xml version='1.0'?><?xml version='1.0'?><a/>");
    row("instruction", "<?b?><a/>");
    row("instruction in text", "<a>b<?c d?>e</a>");
    row("document type", "<!DOCTYPE a><a/>");
    row("CDATA", "<a><![CDATA[b]]></a>");
    row("entity of its own", "<!DOCTYPE a [<!ENTITY e 'f'>]><a>&e;</a>");
    row("unknown entity", "<a>&nbsp;</a>");
    row("names of entities are exact", "<a>&LT;</a>");
    row("empty reference", "<a>&;</a>");
    row("reference without semicolon", "<a>&amp </a>");
    row("reference without digits", "<a>&#;</a>");
    row("hexadecimal reference without digits", "<a>&#x;</a>");
    row("capital X in a reference", "<a>&#X41;</a>");
    row("two prefixes in a reference", "<a>&#x0x41;</a>");
    row("letter in a decimal reference", "<a>&#65a;</a>");
    row("sign in a reference", "<a>&#-65;</a>");
    row("reference to zero", "<a>&#0;</a>");
    row("reference to a control character", "<a>&#31;</a>");
    row("reference to a surrogate", "<a>&#xD800;</a>");
    row("reference to U+FFFE", "<a>&#xFFFE;</a>");
    row("reference beyond Unicode", "<a>&#x110000;</a>");
    row("reference beyond 32 bits", "<a>&#4294967361;</a>");
    row("end of a CDATA section in text", "<a>b]]>c</a>");
    row("end of a CDATA section, half of it a reference", "<a>&#93;]></a>");
    row("zero byte", QByteArray("<a>\0</a>", 8));
    row("control character", "<a>\x1F</a>");
    row("control character in a comment", "<a><!--\x01--></a>");
    row("control character in an attribute", "<a b='\x1F'/>");
    row("lone CR in text", "<a>b\rc</a>");
    row("lone CR in a tag", "<a\r/>");
    row("lone CR at the end", "<a/>\r");
    row("CR before CR LF", "<a>\r\r\n</a>");
    row("U+FFFE", "<a>\xEF\xBF\xBE</a>");
    row("U+FFFF in an attribute", "<a b='\xEF\xBF\xBF'/>");
    row("surrogates in UTF-8", "<a>\xED\xA0\x80\xED\xB0\x80</a>");
    row("overlong in two bytes", "<a>\xC1\xBF</a>");
    row("overlong in three bytes", "<a>\xE0\x9F\xBF</a>");
    row("overlong in four bytes", "<a>\xF0\x8F\xBF\xBF</a>");
    row("beyond U+10FFFF", "<a>\xF4\x90\x80\x80</a>");
    row("lead of five bytes", "<a>\xF9\x88\x80\x80</a>");
    row("continuation alone", "<a>\x80</a>");
    row("character cut off", "<a>\xE2\x82</a>");
    row("Latin-1", "<a>\xE9t\xE9</a>");
    row("second root", "<a/><b/>");
    row("text after the root", "<a/>b");
    row("reference after the root", "<a/>&#32;");
    row("end tag after the root", "<a/></a>");
    row("text before the root", "a<b/>");
    row("no-break space before the root", "\xC2\xA0<a/>");
    row("no-break space in a tag", "<a\xC2\xA0/>");
    row("no root", "<!--a-->");
    row("end tag of another name", "<a></b>");
    row("end tag that is too long", "<a></aa>");
    row("end tag that is too short", "<aa></a>");
    row("tags that overlap", "<a><b></a></b>");
    row("open root", "<a><b></b>");
    row("space before a name", "< a/>");
    row("space in a tag's end", "<a/ >");
    row("space in an end tag", "<a></ a>");
    row("name with a digit first", "<1a/>");
    row("name with a hyphen first", "<-a/>");
    row("name beyond ASCII", "<\xC3\xA9/>");
    row("name with a prefix", "<a:b xmlns:a='c'/>");
    row("name of 256 letters", '<' + QByteArray(256, 'a') + "/>");
    row("xmlns", "<a xmlns='b'/>");
    row("xmlns with a prefix", "<a xmlns:b='c'/>");
    row("xml:lang", "<a xml:lang='fr'/>");
    row("attribute twice", "<a b='1' c='2' b='3'/>");
    row("attributes without a space", "<a b='1'c='2'/>");
    row("attribute without quotation marks", "<a b=1/>");
    row("attribute without a value", "<a b/>");
    row("quotation mark in an attribute", "<a b='\"'/>");
    row("less-than sign in an attribute", "<a b='<'/>");
    row("reference in an attribute", "<a b='&amp;'/>");
    row("attribute in an end tag", "<a></a b=''>");
    row("two hyphens in a comment", "<a><!--b--c--></a>");
    row("comment with three hyphens at its end", "<a><!--b---></a>");
    row("comment that has not begun", "<a><!-->b</a>");
    row("open comment", "<a/><!--");
    row("257 names", withManyNames(257));
    row("33 attributes", withManyAttributes(33));
    row("257 levels", nested(257));
}

void PlainXmlScannerTest::findsNotPlain()
{
    QFETCH(QByteArray, document);
    QCOMPARE(faultOf(document, false), QByteArray());
}

void PlainXmlScannerTest::findsOnlyWholeDocumentsPlain()
{
    const int endOfRoot = smallDocument.lastIndexOf("</OVCAT >") + 9;
    const int comment = smallDocument.lastIndexOf("<!--");
    for (int length = 0; length <= smallDocument.size(); ++length) {
        const bool isInside = length < endOfRoot || (length > comment && length < comment + 7);
        const bool isBetween = smallDocument.left(length).endsWith('\r');
        const QByteArray fault = faultOf(smallDocument.left(length), !isInside && !isBetween);
        QVERIFY2(fault.isEmpty(), fault + " after " + QByteArray::number(length));
    }
}

void PlainXmlScannerTest::readsChangedDocumentsAsQt()
{
    int plain = 0;
    for (int i = 0; i < smallDocument.size(); ++i) {
        for (int byte = 0; byte < 256; ++byte) {
            QByteArray document = smallDocument;
            document[i] = static_cast<char>(byte);
            const auto comparison = compareWithQt(document, byte % 2 == 0 ? 1 : 64);
            QVERIFY2(comparison.difference.isEmpty(), qPrintable(comparison.difference));
            plain += comparison.isPlain;
        }
    }
    // Changes of text, comments and values keep it plain.
    QVERIFY2(plain > 1500, QByteArray::number(plain));
}

// Qt decodes blocks of 8 KB; their boundaries must not matter.
void PlainXmlScannerTest::readsAsQtAroundTheBlocksOfQt()
{
    const QByteArray pieces =
        "]\r\n\xF0\x9F\x9A\x87]&gt;\xE2\x82\xAC\r\n\xC3\xA9&#128647;<b/>\r\n<!--\r\n-->";
    for (int shift = 0; shift <= pieces.size() + 4; ++shift) {
        QByteArray document = "<a>" + QByteArray("<b/>").repeated(2048 - shift / 4);
        document += QByteArray(3 - shift % 4, 'x') + pieces + "</a>";
        const QByteArray fault = faultOf(document, true);
        QVERIFY2(fault.isEmpty(), fault + " with a shift of " + QByteArray::number(shift));
    }
}

void PlainXmlScannerTest::leavesLongTokensToQt()
{
    const QByteArray text(60 * 1024, 'x');
    QVERIFY(compareWithQt("<a>" + text + "</a>", 1000).isPlain);
    QVERIFY(!compareWithQt("<a>" + text + text + "</a>", 1000).isPlain);
}

void PlainXmlScannerTest::stopsWhenTheDeviceFails()
{
    for (int length = 0; length <= smallDocument.size(); ++length) {
        FailingDevice device(smallDocument.left(length));
        PlainXmlScanner scanner(device, 7);
        for (int tokens = 0; tokens < 100; ++tokens)
            QVERIFY(scanner.readNext() != QXmlStreamReader::EndDocument);
        QVERIFY(scanner.hasError());
    }
}

QTEST_GUILESS_MAIN(PlainXmlScannerTest)

#include "PlainXmlScannerTest.moc"
