// Reading of catalog files that cannot be read: no file, broken XML, files that break off; what is said of
// it.

#include "catalogs/reading/CatalogXMLParser.h"

#include "reading/RecordListing.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Orvida::Tests;

namespace {

// How many more bytes read() gives before the medium fails; negative while it does not fail.
std::atomic<qint64> readableBytes{-1};

// Lets files fail behind their first `count` bytes while it lives.
class FailingMedium
{
public:
    explicit FailingMedium(qint64 count) { readableBytes = count; }
    ~FailingMedium() { readableBytes = -1; }
    Q_DISABLE_COPY(FailingMedium)
};

} // namespace

// Stands before the C library's own, for Qt as well: no file system breaks when a test wants it to.
extern "C" ssize_t read(int file, void *buffer, size_t size)
{
    const qint64 limit = readableBytes;
    if (limit == 0) {
        errno = EIO;
        return -1;
    }
    const ssize_t count = syscall(SYS_read, file, buffer, limit < 0 ? size : std::min(size, size_t(limit)));
    if (limit > 0 && count > 0)
        readableBytes = limit - count;
    return count;
}

namespace {

// A file with every kind of record and of token.
QByteArray everything()
{
    return "<?xml version='1.0' encoding='UTF-8'?>\n<!DOCTYPE OVCAT [<!ENTITY e 'x'>]>\n<OVCAT "
           "a='b'>\n<CATALOG><CAT_Style>7</CAT_Style></CATALOG>\n"
           + record("CATPRO PRO_PK=p PRO_SortOrder=1")
           + record("CPX CPX_PK=x CPX_Profile_FK=p CPX_IsStart=true")
           + record("COL COL_Profile_FK=p COL_Column_ID~c COL_DataType=TXT")
           + record("LC LC_PK=l LC_Profile_FK=p LC_Class_ID~k") + record("LIST LIST_Class_FK=l LIST_Item=i")
           + record("CLASS CLASS_PK=a CLASS_Item~\u00E9") + record("BASECODE BC_PK=b BC_Class_FK=a")
           + record("CHAREXT CE_PK=d CE_BaseCode_FK=b") + record("PARAM PARAM_PK=q PARAM_DataType=INT")
           + record("PARAMX PX_PK=f PX_BaseCode_FK=b PX_Param_FK=q")
           + "<!-- x --><?x "
             "y?><PARAM><PARAM_PK>&e;&#65;<![CDATA[<]]></PARAM_PK></PARAM><other/>\u00FC</OVCAT>";
}

} // namespace

class CatalogXMLParserFailureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasNoFailureUnlessReadingFails();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void refusesMalformedContent_data();
    void refusesMalformedContent();
    void refusesFileCutAtAnyByte();
    void keepsWhatCameBeforeTheFailure_data();
    void keepsWhatCameBeforeTheFailure();
    void tellsWhereReadingFailed_data();
    void tellsWhereReadingFailed();
    void refusesFileWhoseMediumFails_data();
    void refusesFileWhoseMediumFails();
    void readsPipeToItsEnd_data();
    void readsPipeToItsEnd();
    void keepsTheFileOpenUntilItGoes();
};

void CatalogXMLParserFailureTest::hasNoFailureUnlessReadingFails()
{
    const CatalogFolder folder;
    CatalogXMLParser parser;
    QCOMPARE(int(parser.failure().reason), int(CatalogReadFailure::None));
    Items items;
    QVERIFY(parser.readFile(folder.write(QStringLiteral("catalog.xml"), everything()), items));
    const CatalogReadFailure &failure = parser.failure();
    QCOMPARE(int(failure.reason), int(CatalogReadFailure::None));
    QCOMPARE(failure.detail + failure.record + failure.missingFields.join(QString()), QString());
}

void CatalogXMLParserFailureTest::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing file") << "/missing.xml";
    QTest::newRow("missing folder") << "/missing/catalog.xml";
    QTest::newRow("folder") << "/";
    QTest::newRow("file as folder") << "/catalog.xml/catalog.xml";
    QTest::newRow("zero character in the name") << QStringLiteral("/catalog.xml") + QChar(QChar::Null);
    QTest::newRow("empty name") << "";
    QTest::newRow("null name") << QString();
}

void CatalogXMLParserFailureTest::refusesWhatIsNoFile()
{
    QFETCH(QString, name);
    const CatalogFolder folder;
    folder.write(QStringLiteral("catalog.xml"), everything());
    const LogCapture log;
    CatalogXMLParser parser;
    Items items;
    QVERIFY(!parser.readFile(name.isEmpty() ? name : folder.path(QStringLiteral(".")) + name, items));
    const CatalogReadFailure &failure = parser.failure();
    QCOMPARE(int(failure.reason), int(CatalogReadFailure::FileNotRead));
    QCOMPARE(failure.line, Q_INT64_C(0));
    QCOMPARE(failure.column, Q_INT64_C(0));
    QVERIFY(!failure.detail.isEmpty());
    QCOMPARE(failure.record, QString());
    QCOMPARE(log.messages(), QStringList());
}

void CatalogXMLParserFailureTest::refusesMalformedContent_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray profile = record("CATPRO PRO_PK=p");
    QByteArray bomb = "<!DOCTYPE OVCAT [<!ENTITY e0 'laugh'>";
    for (int i = 1; i < 10; ++i)
        bomb += "<!ENTITY e" + QByteArray::number(i) + " '"
                + ("&e" + QByteArray::number(i - 1) + ";").repeated(10) + "'>";
    bomb += "]>";

    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("only blanks") << QByteArray(" \n");
    QTest::newRow("only a declaration") << QByteArray("<?xml version='1.0'?>");
    QTest::newRow("no XML") << QByteArray("PRO_PK;PRO_Format\np;f\n");
    QTest::newRow("no text at all") << QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
    QTest::newRow("zero bytes") << QByteArray(10000, '\0');
    QTest::newRow("wrong end tag of the root") << "<OVCAT>" + profile + "</OVCat>";
    QTest::newRow("wrong end tag of a record") << catalogXml("<CATPRO><PRO_PK>p</PRO_PK></CPX>");
    QTest::newRow("wrong end tag of a field") << catalogXml("<CATPRO><PRO_PK>p</PRO_Format></CATPRO>");
    QTest::newRow("wrong end tag in what is skipped")
        << catalogXml("<CATALOG><CAT_PK></CAT_Style></CATALOG>");
    QTest::newRow("end tag too many") << catalogXml(profile + "</CATPRO>");
    QTest::newRow("second root") << catalogXml(profile) + "<OVCAT/>";
    QTest::newRow("text behind the root") << catalogXml(profile) + "text";
    QTest::newRow("unknown root, malformed inside") << QByteArray("<X><a></b></X>");
    QTest::newRow("unknown entity") << catalogXml("<CATPRO><PRO_PK>p&x;</PRO_PK></CATPRO>");
    QTest::newRow("ampersand alone") << catalogXml("<CATPRO><PRO_PK>a & b</PRO_PK></CATPRO>");
    QTest::newRow("attribute twice") << catalogXml("<CATPRO a='1' a='2'><PRO_PK>p</PRO_PK></CATPRO>");
    QTest::newRow("control character") << catalogXml("<CATPRO><PRO_PK>p\x01</PRO_PK></CATPRO>");
    QTest::newRow("ISO-8859-1 without declaration")
        << catalogXml("<CATPRO><PRO_PK>d\xE9p\xF4t</PRO_PK></CATPRO>");
    QTest::newRow("UTF-8 declared as UTF-16")
        << QByteArray("<?xml version='1.0' encoding='UTF-16'?>") + profile;
    QTest::newRow("unknown encoding") << QByteArray("<?xml version='1.0' encoding='X-none'?>") + profile;
    QTest::newRow("entity bomb in a field") << bomb + "<OVCAT><CATPRO><PRO_PK>&e9;</PRO_PK></CATPRO></OVCAT>";
    QTest::newRow("entity bomb in what is skipped") << bomb + "<OVCAT><X>&e9;</X></OVCAT>";
    QTest::newRow("entity that contains itself")
        << QByteArray("<!DOCTYPE OVCAT [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><OVCAT><X>&a;</X></OVCAT>");
    QTest::newRow("a megabyte of nesting under the root") << "<OVCAT>" + QByteArray("<a>").repeated(350000);
    QTest::newRow("a megabyte of nesting in a field")
        << "<OVCAT><CATPRO><PRO_PK>" + QByteArray("<a>").repeated(350000);
    QTest::newRow("a megabyte of roots") << QByteArray("<OVCAT>").repeated(150000);
}

void CatalogXMLParserFailureTest::refusesMalformedContent()
{
    QFETCH(QByteArray, content);
    const CatalogFolder folder;
    const QString path = folder.write(QStringLiteral("catalog.xml"), content);
    const LogCapture log;
    CatalogXMLParser parser;
    Items items;
    QVERIFY(!parser.readFile(path, items));
    const CatalogReadFailure &failure = parser.failure();
    QCOMPARE(int(failure.reason), int(CatalogReadFailure::NotWellFormed));
    QVERIFY(failure.line >= 1);
    QVERIFY(failure.column >= 1);
    QVERIFY(!failure.detail.isEmpty());
    QCOMPARE(failure.record, QString());
    QCOMPARE(failure.missingFields, QStringList());
    QCOMPARE(log.messages(), QStringList());
}

void CatalogXMLParserFailureTest::refusesFileCutAtAnyByte()
{
    const QByteArray content = everything();
    QVERIFY(content.endsWith('>'));
    QVERIFY(Reading(content).succeeded());
    for (int size = 0; size < content.size(); ++size) {
        const Reading reading(content.left(size));
        if (reading.succeeded() || reading.parser().failure().reason != CatalogReadFailure::NotWellFormed)
            QFAIL(content.left(size).constData());
    }
}

void CatalogXMLParserFailureTest::keepsWhatCameBeforeTheFailure_data()
{
    QTest::addColumn<QByteArray>("failing");

    QTest::newRow("refused record") << record("CPX CPX_PK=a");
    QTest::newRow("refused item") << record("BASECODE BC_Class_FK=a");
    QTest::newRow("malformed between records") << QByteArray("</x>");
    QTest::newRow("malformed record") << QByteArray("<CATPRO><PRO_PK>q</PRO_PK></x>");
    QTest::newRow("malformed item") << QByteArray("<CLASS><CLASS_PK>q</CLASS_PK></x>");
}

void CatalogXMLParserFailureTest::keepsWhatCameBeforeTheFailure()
{
    QFETCH(QByteArray, failing);
    const Reading reading(catalogXml(record("CATPRO PRO_PK=p") + record("CLASS CLASS_PK=a") + failing
                                     + record("CATPRO PRO_PK=q") + record("CLASS CLASS_PK=b")));
    QVERIFY(!reading.succeeded());
    QCOMPARE(reading.lines(), QStringLiteral("profile pk=p\nitem[a] id=a"));
}

void CatalogXMLParserFailureTest::tellsWhereReadingFailed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("reason");
    QTest::addColumn<qint64>("line");
    QTest::addColumn<qint64>("column");
    QTest::addColumn<QString>("fields");

    // A refused record is found at its start tag.
    const auto refused = [](const char *name, const QByteArray &content, qint64 line, qint64 column,
                            const char *fields) {
        QTest::newRow(name) << content << int(CatalogReadFailure::RecordRefused) << line << column << fields;
    };
    refused("at the very beginning", "<CATPRO/>", 1, 1, "CATPRO PRO_PK");
    refused("right behind the declaration", "<?xml version='1.0'?><CATPRO/>", 1, 22, "CATPRO PRO_PK");
    refused("right behind the root's start tag", "<OVCAT><CATPRO></CATPRO></OVCAT>", 1, 8, "CATPRO PRO_PK");
    refused("indented", "<OVCAT>\n  <CPX>\n    <CPX_PK>a</CPX_PK>\n  </CPX>\n</OVCAT>", 2, 3,
            "CPX CPX_Profile_FK");
    refused("behind a record of several lines",
            "<OVCAT>\n<CLASS>\n<CLASS_PK>a</CLASS_PK>\n</CLASS> <CLASS\n/></OVCAT>", 4, 10, "CLASS CLASS_PK");
    refused("behind a skipped element", "<OVCAT>\n<X>\n<a/></X><COL/></OVCAT>", 3, 9,
            "COL COL_Profile_FK COL_Column_ID");
    refused("behind a comment of several lines", "<OVCAT><!--\n\n--><LC>\n</LC></OVCAT>", 3, 4,
            "LC LC_Profile_FK LC_Class_ID");
    refused("behind a declaration and a document type",
            "<?xml version='1.0'?>\n<!DOCTYPE OVCAT>\n<OVCAT><PARAMX/></OVCAT>", 3, 8, "PARAMX PX_PK");
    refused("behind letters of two bytes", "<OVCAT>\n\u00E9\u00E9<LIST></LIST></OVCAT>", 2, 3,
            "LIST LIST_Class_FK");
    refused("behind several blocks",
            "<OVCAT>" + QByteArray("<X>x</X>\n").repeated(5000) + "\t<CHAREXT/></OVCAT>", 5001, 2,
            "CHAREXT CE_PK");

    const auto malformed = [](const char *name, const QByteArray &content, qint64 line, qint64 column) {
        QTest::newRow(name) << content << int(CatalogReadFailure::NotWellFormed) << line << column << "";
    };
    malformed("no XML", "text", 1, 0);
    malformed("wrong end tag between records", "<OVCAT>\n\n  </X>\n</OVCAT>", 3, 0);
    malformed("wrong end tag in a record", "<OVCAT>\n<CATPRO>\n<PRO_PK>p</CPX_PK></CATPRO></OVCAT>", 3, 0);
    malformed("wrong end tag in what is skipped", "<OVCAT>\n<CATALOG>\n\n</X></CATALOG>\n</OVCAT>", 4, 0);
    malformed("ends early", "<OVCAT>\n<CATPRO>\n", 3, 1);
}

void CatalogXMLParserFailureTest::tellsWhereReadingFailed()
{
    QFETCH(QByteArray, content);
    QFETCH(int, reason);
    QFETCH(qint64, line);
    QFETCH(qint64, column); // 0 is any
    QFETCH(QString, fields);

    const Reading reading(content);
    QVERIFY(!reading.succeeded());
    const CatalogReadFailure &failure = reading.parser().failure();
    QCOMPARE(int(failure.reason), reason);
    QCOMPARE(failure.line, line);
    QCOMPARE(column == 0 ? 0 : failure.column, column);
    QCOMPARE((QStringList(failure.record) + failure.missingFields).join(QLatin1Char(' ')), fields);
    QCOMPARE(failure.detail.isEmpty(), reason == CatalogReadFailure::RecordRefused);
}

void CatalogXMLParserFailureTest::refusesFileWhoseMediumFails_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<qint64>("readable");

    const QByteArray profiles = record("CATPRO PRO_PK=p").repeated(2000);
    const QByteArray style = "<CATALOG><CAT_Style>7</CAT_Style></CATALOG>";
    const QByteArray longField = "<CATPRO><PRO_PK>" + QByteArray(60000, 'x') + "</PRO_PK></CATPRO>";
    QTest::newRow("at once") << catalogXml(profiles + style) << Q_INT64_C(0);
    QTest::newRow("between records") << catalogXml("<X/>\n" + QByteArray(60000, ' ') + style)
                                     << Q_INT64_C(20000);
    QTest::newRow("among records") << catalogXml(profiles + style) << Q_INT64_C(30000);
    QTest::newRow("in a field") << catalogXml(longField + style) << Q_INT64_C(20000);
    QTest::newRow("in what is skipped") << catalogXml("<X>" + profiles + "</X>" + style) << Q_INT64_C(20000);
    QTest::newRow("in the catalog information")
        << catalogXml("<CATALOG>" + profiles + "</CATALOG>") << Q_INT64_C(20000);
    QTest::newRow("in the style") << catalogXml("<CATALOG><CAT_Style>" + QByteArray(60000, '0')
                                                + "7</CAT_Style></CATALOG>")
                                  << Q_INT64_C(20000);
}

void CatalogXMLParserFailureTest::refusesFileWhoseMediumFails()
{
    QFETCH(QByteArray, content);
    QFETCH(qint64, readable);
    const CatalogFolder folder;
    const QString path = folder.write(QStringLiteral("catalog.xml"), content);
    {
        const FailingMedium medium(readable);
        CatalogXMLParser parser;
        Items items;
        QVERIFY(!parser.readFile(path, items));
        QCOMPARE(int(parser.failure().reason), int(CatalogReadFailure::FileNotRead));
        QVERIFY(!parser.failure().detail.isEmpty());
    }
    {
        const FailingMedium medium(readable);
        CatalogXMLParser parser;
        QCOMPARE(parser.readCatalogStyleFlag(path), Q_INT64_C(0));
    }
    // The medium was all that was wrong.
    CatalogXMLParser parser;
    Items items;
    QVERIFY(parser.readFile(path, items));
}

void CatalogXMLParserFailureTest::readsPipeToItsEnd_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("succeeds");

    QTest::newRow("whole") << everything() << true;
    QTest::newRow("writer closes early") << everything().chopped(1) << false;
    QTest::newRow("writer writes nothing") << QByteArray() << false;
}

void CatalogXMLParserFailureTest::readsPipeToItsEnd()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, succeeds);
    const CatalogFolder folder;
    const QString path = folder.path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    std::thread writer([&path, &content] {
        QFile pipe(path);
        if (pipe.open(QIODevice::WriteOnly))
            pipe.write(content);
    });
    CatalogXMLParser parser;
    Items items;
    const bool succeeded = parser.readFile(path, items);
    // Lets the writer go, should the parser not have opened the pipe.
    const int release = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
    writer.join();
    close(release);
    QCOMPARE(succeeded, succeeds);
    QCOMPARE(parser.failure().reason == CatalogReadFailure::None, succeeds);
}

void CatalogXMLParserFailureTest::keepsTheFileOpenUntilItGoes()
{
    const CatalogFolder folder;
    const QString path = folder.write(QStringLiteral("catalog.xml"), catalogXml(record("CLASS CLASS_PK=a")));
    const auto isOpen = [&path] {
        const QFileInfoList open = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files);
        return std::any_of(open.begin(), open.end(),
                           [&path](const QFileInfo &info) { return info.symLinkTarget() == path; });
    };
    Items items;
    {
        CatalogXMLParser parser;
        QVERIFY(parser.readFile(path, items));
        QVERIFY(isOpen());
    }
    QVERIFY(!isOpen());
    QCOMPARE(items.value(QStringLiteral("a"))->id(), QStringLiteral("a"));

    CatalogXMLParser parser;
    QCOMPARE(parser.readCatalogStyleFlag(path), Q_INT64_C(0));
    QVERIFY(!isOpen());
}

QTEST_GUILESS_MAIN(CatalogXMLParserFailureTest)

#include "CatalogXMLParserFailureTest.moc"
