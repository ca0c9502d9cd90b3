// Files that cannot be read, and the reported reason: no file, refused records, broken XML, truncated files,
// failing media. Good files are tested in catalogs/.

#include "catalogs/reading/CatalogXMLParser.h"

#include "reading/RecordListing.h"

#include <QtTest>

#include <atomic>
#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

using namespace Orvida::Tests;

// How many more bytes read() gives before something happens to the medium; negative if nothing will.
static std::atomic<qint64> readableBytes{-1};
// What happens then: EIO from then on, EINTR once, or 0: the file is truncated.
static std::atomic<int> mishap{EIO};

// Replaces that of the C library, for Qt as well: no file system fails on demand.
extern "C" ssize_t read(int file, void *buffer, size_t size)
{
    if (readableBytes == 0) {
        errno = mishap;
        if (mishap != EIO)
            readableBytes = -1;
        if (mishap != 0 || truncate(qPrintable(text("/proc/self/fd/%1").arg(file)), 0) != 0)
            return -1;
    }
    const qint64 limit = readableBytes;
    const ssize_t count = syscall(SYS_read, file, buffer, limit < 0 ? size : qMin(size, size_t(limit)));
    if (limit > 0 && count > 0)
        readableBytes = limit - count;
    return count;
}

namespace {

// A file with every kind of record and of token.
QByteArray everything()
{
    return "<?xml version='1.0'?>\n<!DOCTYPE OVCAT [<!ENTITY e 'x'>]>\n<OVCAT a='b'>\n<CATALOG><a/></CATALOG>"
           "<CATPRO><PRO_PK>05</PRO_PK></CATPRO><CPX><CPX_PK>05</CPX_PK><CPX_Profile_FK>05</CPX_Profile_FK></"
           "CPX>"
           "<COL><COL_Profile_FK>05</COL_Profile_FK><COL_Column_ID>05</COL_Column_ID>"
           "<COL_DataType>TXT</COL_DataType></COL>"
           "<LC><LC_Profile_FK>05</LC_Profile_FK><LC_Class_ID>05</LC_Class_ID></LC>"
           "<LIST><LIST_Class_FK>05</LIST_Class_FK></LIST><CLASS><CLASS_PK>\u00E9</CLASS_PK></CLASS>"
           "<BASECODE><BC_PK>B</BC_PK></BASECODE><CHAREXT><CE_PK>C</CE_PK></CHAREXT>"
           "<PARAM><PARAM_PK>05</PARAM_PK></PARAM><PARAMX><PX_PK>05</PX_PK></PARAMX>"
           "<!-- x --><?x y?><PARAM><PARAM_PK>&e;&#65;<![CDATA[<]]></PARAM_PK></PARAM><other/></OVCAT>";
}

// The same without what only one of the two XML readers accepts.
QByteArray everythingPlain()
{
    return everything()
        .replace("<!DOCTYPE OVCAT [<!ENTITY e 'x'>]>", "")
        .replace("<?x y?>", "")
        .replace("&e;", "")
        .replace("<![CDATA[<]]>", "");
}

} // namespace

class CatalogXMLParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatIsNoFile();
    void tellsWhatFailedAndWhere_data();
    void tellsWhatFailedAndWhere();
    void refusesFileCutAtAnyByteButKeepsItsRecords();
    void readsOnOrFailsWhenTheMediumDoes_data();
    void readsOnOrFailsWhenTheMediumDoes();
};

void CatalogXMLParserTest::refusesWhatIsNoFile()
{
    const CatalogFolder folder;
    const QString path = folder.write(text("catalog.xml"), everything());
    const LogCapture log;
    CatalogXMLParser parser;
    QHash<QString, ItemPtr> items;
    for (const QString &name : {QString(), folder.path(text("missing.xml")), folder.path(QString()),
                                path + text("/catalog.xml"), path + QChar(QChar::Null)}) {
        QVERIFY2(!parser.readFile(name, items), qPrintable(name));
        QCOMPARE(summaryOf(parser.failure()), text("not read"));
        QVERIFY(!parser.failure().detail.isEmpty());
        QCOMPARE(parser.readCatalogStyleFlag(name), Q_INT64_C(0));
    }
    // The reason for the last name is not that of an earlier one.
    QCOMPARE(parser.failure().detail, text("No such file or directory"));
    QCOMPARE(log.messages(), QStringList());
    QVERIFY(parser.readFile(path, items));
    QCOMPARE(summaryOf(parser.failure()), text("read"));
}

void CatalogXMLParserTest::tellsWhatFailedAndWhere_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("summary");
    const auto row = [](const char *name, const QByteArray &content, const char *summary) {
        QTest::newRow(name) << content << summary;
    };
    // The position of a refused record is directly after its start tag.
    row("record without root", "<CATPRO/>", "refused at 1:10: CATPRO without PRO_PK");
    row("record of several lines", "<OVCAT>\n  <LIST>\n\n</LIST></OVCAT>",
        "refused at 2:9: LIST without LIST_Class_FK");
    row("record after several blocks", "<OVCAT>" + QByteArray(40000, '\n') + "\t<CPX/></OVCAT>",
        "refused at 40001:8: CPX without CPX_PK and CPX_Profile_FK");
    row("empty file", "", "not well-formed at 1:1");
    row("no XML", "PRO_PK;PRO_Format\np;f\n", "not well-formed at 1:2");
    row("wrong end tag between records", "<OVCAT>\n\n  </X>\n</OVCAT>", "not well-formed at 3:7");
    row("wrong end tag in what is skipped", "<OVCAT>\n<CATALOG>\n\n</X></CATALOG></OVCAT>",
        "not well-formed at 4:5");
    row("ends in a record", "<CLASS>\n<CLASS_PK>p</CLASS_PK>\n", "not well-formed at 3:1");
    row("ISO-8859-1 without declaration", "<CATPRO><PRO_PK>d\xE9p\xF4t</PRO_PK></CATPRO>",
        "not well-formed at 1:3");
}

void CatalogXMLParserTest::tellsWhatFailedAndWhere()
{
    QFETCH(QByteArray, content);
    const Reading reading(content);
    QVERIFY(!reading.succeeded());
    QCOMPARE(reading.lines(), QString());
    QTEST(summaryOf(reading.failure()), "summary");
    QCOMPARE(reading.failure().detail.isEmpty(),
             reading.failure().reason == CatalogReadFailure::RecordRefused);
}

void CatalogXMLParserTest::refusesFileCutAtAnyByteButKeepsItsRecords()
{
    for (const QByteArray &content : {everything(), everythingPlain()}) {
        for (int size = 0; size < content.size(); ++size) {
            const Reading reading(content.left(size));
            QVERIFY2(!reading.succeeded(), content.left(size).constData());
            QCOMPARE(int(reading.failure().reason), int(CatalogReadFailure::NotWellFormed));
        }
        QVERIFY(Reading(content).succeeded());
        QCOMPARE(Reading(content.chopped(1)).lines(), Reading(content).lines());
    }
}

void CatalogXMLParserTest::readsOnOrFailsWhenTheMediumDoes_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("passesBefore");
    QTest::addColumn<int>("reason");
    const auto row = [](const char *name, int error, int passesBefore, CatalogReadFailure::Reason reason) {
        QTest::newRow(name) << error << passesBefore << int(reason);
    };
    row("medium breaks", EIO, 0, CatalogReadFailure::FileNotRead);
    row("medium breaks in the scan", EIO, 1, CatalogReadFailure::FileNotRead);
    row("medium breaks while records are read", EIO, 2, CatalogReadFailure::FileNotRead);
    row("file is truncated", 0, 0, CatalogReadFailure::NotWellFormed);
    row("file is truncated in the scan", 0, 1, CatalogReadFailure::NotWellFormed);
    row("file is truncated while records are read", 0, 2, CatalogReadFailure::FileNotRead);
    row("signal interrupts", EINTR, 0, CatalogReadFailure::None);
    row("signal interrupts while records are read", EINTR, 2, CatalogReadFailure::None);
}

// In the middle of text between records, of a record, and of skipped elements. The style takes one pass.
void CatalogXMLParserTest::readsOnOrFailsWhenTheMediumDoes()
{
    QFETCH(int, error);
    QFETCH(int, passesBefore);
    const QByteArray longText(60000, '0');
    for (const QByteArray &failing :
         {longText, "<CLASS><CLASS_PK>" + longText + "</CLASS_PK></CLASS>", "<X>" + longText + "</X>",
          "<CATALOG>" + longText + "<CAT_Style>7</CAT_Style></CATALOG>"}) {
        const QByteArray content = catalogXml(failing + "<CATALOG><CAT_Style>7</CAT_Style></CATALOG>");
        const CatalogFolder folder;
        CatalogXMLParser parser;
        QHash<QString, ItemPtr> items;
        const auto writeAndBreak = [&] {
            const QString path = folder.write(text("catalog.xml"), content);
            mishap = error;
            readableBytes = passesBefore * content.size() + 20000;
            return path;
        };
        const qint64 style = parser.readCatalogStyleFlag(writeAndBreak());
        QCOMPARE(style, passesBefore > 0 || error == EINTR ? Q_INT64_C(7) : Q_INT64_C(0));
        const bool isRead = parser.readFile(writeAndBreak(), items);
        readableBytes = -1;
        QTEST(int(parser.failure().reason), "reason");
        QCOMPARE(isRead, parser.failure().reason == CatalogReadFailure::None);
        QCOMPARE(parser.failure().detail.isEmpty(), isRead);
        QVERIFY(parser.readFile(folder.write(text("catalog.xml"), content),
                                items)); // nothing else was wrong
    }
}

QTEST_GUILESS_MAIN(CatalogXMLParserTest)

#include "CatalogXMLParserTest.moc"
