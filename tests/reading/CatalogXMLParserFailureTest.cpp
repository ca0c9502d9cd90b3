// Reading of catalog files that cannot be read: no file, broken XML, files that break off; what is said of
// it.

#include "catalogs/reading/CatalogXMLParser.h"

#include "reading/RecordListing.h"
#include "support/TestSupport.h"

#include <QtTest>

#include <atomic>
#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

using namespace Orvida::Tests;

// How many more bytes read() gives before something happens to the medium; negative when nothing will.
static std::atomic<qint64> readableBytes{-1};
// What happens then: EIO for good, EINTR once, or no error, but the file loses what was not read yet.
static std::atomic<int> mishap{EIO};

// Stands before the C library's own, for Qt as well: no file system breaks when a test wants it to.
extern "C" ssize_t read(int file, void *buffer, size_t size)
{
    if (readableBytes == 0) {
        errno = mishap;
        if (mishap != EIO)
            readableBytes = -1;
        if (mishap != 0 || truncate(qPrintable(QStringLiteral("/proc/self/fd/%1").arg(file)), 0) != 0)
            return -1;
    }
    const qint64 limit = readableBytes;
    const ssize_t count = syscall(SYS_read, file, buffer, limit < 0 ? size : qMin(size, size_t(limit)));
    if (limit > 0 && count > 0)
        readableBytes = limit - count;
    return count;
}

// A file with every kind of record and of token.
static QByteArray everything()
{
    return "<?xml version='1.0'?>\n<!DOCTYPE OVCAT [<!ENTITY e 'x'>]>\n<OVCAT a='b'>\n<CATALOG><a/></CATALOG>"
           + records("CATPRO PRO_PK=p PRO_SortOrder=1|CPX CPX_PK=x CPX_Profile_FK=p CPX_IsStart=true|"
                     "COL COL_Profile_FK=p COL_Column_ID~c COL_DataType=TXT|LC LC_Profile_FK=p LC_Class_ID~k|"
                     "LIST LIST_Class_FK=l|CLASS CLASS_PK=\u00E9|BASECODE BC_PK=b|CHAREXT CE_PK=d|"
                     "PARAM PARAM_PK=q|PARAMX PX_PK=f")
           + "<!-- x --><?x y?><PARAM><PARAM_PK>&e;&#65;<![CDATA[<]]></PARAM_PK></PARAM><other/></OVCAT>";
}

// "none", "not read", "malformed 3" with the line, or "refused 3:9 COL COL_Column_ID" with the column, too.
static QString summaryOf(const CatalogReadFailure &failure)
{
    const QString reasons[] = {QStringLiteral("none"), QStringLiteral("not read"),
                               QStringLiteral("malformed %1").arg(failure.line),
                               QStringLiteral("refused %1:%2").arg(failure.line).arg(failure.column)};
    const QStringList words = {reasons[failure.reason], failure.record};
    return (words + failure.missingFields).join(QLatin1Char(' ')).trimmed();
}

class CatalogXMLParserFailureTest : public QObject
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

void CatalogXMLParserFailureTest::refusesWhatIsNoFile()
{
    const CatalogFolder folder;
    const QString path = folder.write(QStringLiteral("catalog.xml"), everything());
    const LogCapture log;
    CatalogXMLParser parser;
    Items items;
    for (const QString &name : {QString(), folder.path(QStringLiteral("missing.xml")), folder.path(QString()),
                                path + QStringLiteral("/catalog.xml"), path + QChar(QChar::Null)}) {
        QVERIFY2(!parser.readFile(name, items), qPrintable(name));
        QCOMPARE(summaryOf(parser.failure()), QStringLiteral("not read"));
        QVERIFY(!parser.failure().detail.isEmpty());
    }
    // What is said of the last name is not left over from the one before it.
    QCOMPARE(parser.failure().detail, QStringLiteral("No such file or directory"));
    QCOMPARE(log.messages(), QStringList());
    QVERIFY(parser.readFile(path, items));
    QCOMPARE(summaryOf(parser.failure()), QStringLiteral("none"));
}

void CatalogXMLParserFailureTest::tellsWhatFailedAndWhere_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("summary");
    const auto row = [](const char *name, const QByteArray &content, const char *summary) {
        QTest::newRow(name) << content << summary;
    };
    const QByteArray bomb = "<!DOCTYPE OVCAT [<!ENTITY a '" + QByteArray(1000, 'x') + "'><!ENTITY b '"
                            + QByteArray("&a;").repeated(1000) + "'>]><CLASS><CLASS_PK>&b;";

    // A refused record is found right behind its start tag.
    row("record without root", "<CATPRO/>", "refused 1:10 CATPRO PRO_PK");
    row("record of several lines", "<OVCAT>\n  <LIST>\n\n</LIST></OVCAT>", "refused 2:9 LIST LIST_Class_FK");
    row("record behind a skipped element", "<OVCAT>\n<X>\n<a/></X><COL/></OVCAT>",
        "refused 3:15 COL COL_Profile_FK COL_Column_ID");
    row("record behind several blocks", "<OVCAT>" + QByteArray(40000, '\n') + "\t<CPX/></OVCAT>",
        "refused 40001:8 CPX CPX_PK CPX_Profile_FK");
    row("empty file", "", "malformed 1");
    row("no XML", "PRO_PK;PRO_Format\np;f\n", "malformed 1");
    row("wrong end tag between records", "<OVCAT>\n\n  </X>\n</OVCAT>", "malformed 3");
    row("wrong end tag in a record", "<OVCAT>\n<CLASS><CLASS_PK>p</CLASS_PK></X>", "malformed 2");
    row("wrong end tag in what is skipped", "<OVCAT>\n<CATALOG>\n\n</X></CATALOG></OVCAT>", "malformed 4");
    row("ends in a record", "<CLASS>\n<CLASS_PK>p</CLASS_PK>\n", "malformed 3");
    row("ISO-8859-1 without declaration", "<CATPRO><PRO_PK>d\xE9p\xF4t</PRO_PK></CATPRO>", "malformed 1");
    row("entity bomb", bomb + "</CLASS_PK></CLASS>", "malformed 1");
    row("a megabyte of nesting", "<CATPRO><PRO_PK>" + QByteArray("<a>").repeated(350000), "malformed 1");
    row("a megabyte of roots", QByteArray("<OVCAT>").repeated(150000), "malformed 1");
}

void CatalogXMLParserFailureTest::tellsWhatFailedAndWhere()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, summary);
    const Reading reading(content);
    QVERIFY(!reading.succeeded());
    QCOMPARE(reading.lines(), QString());
    QCOMPARE(summaryOf(reading.failure()), summary);
    QVERIFY(reading.failure().column >= 1);
    QCOMPARE(reading.failure().detail.isEmpty(), summary.startsWith(QLatin1String("refused")));
}

void CatalogXMLParserFailureTest::refusesFileCutAtAnyByteButKeepsItsRecords()
{
    const QByteArray content = everything();
    for (int size = 0; size < content.size(); ++size) {
        const Reading reading(content.left(size));
        QVERIFY2(!reading.succeeded(), content.left(size).constData());
        QCOMPARE(int(reading.failure().reason), int(CatalogReadFailure::NotWellFormed));
    }
    QCOMPARE(Reading(content.chopped(1)).lines(), Reading(content).lines());
}

void CatalogXMLParserFailureTest::readsOnOrFailsWhenTheMediumDoes_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<qint64>("style");
    QTest::newRow("medium breaks") << EIO << QStringLiteral("not read") << Q_INT64_C(0);
    QTest::newRow("file is cut off meanwhile") << 0 << QStringLiteral("malformed 3") << Q_INT64_C(0);
    QTest::newRow("signal interrupts") << EINTR << QStringLiteral("none") << Q_INT64_C(7);
}

void CatalogXMLParserFailureTest::readsOnOrFailsWhenTheMediumDoes()
{
    QFETCH(int, error);
    const QByteArray text(60000, '0');
    for (const QByteArray &failing :
         {text, "<CLASS><CLASS_PK>" + text + "</CLASS_PK></CLASS>", "<X>" + text + "</X>",
          "<CATALOG>" + text + "<CAT_Style>7</CAT_Style></CATALOG>"}) {
        const CatalogFolder folder;
        const QByteArray content = catalogXml(failing + "<CATALOG><CAT_Style>7</CAT_Style></CATALOG>");
        const auto write = [&] { return folder.write(QStringLiteral("catalog.xml"), content); };
        CatalogXMLParser parser;
        Items items;
        mishap = error;
        readableBytes = 20000;
        QTEST(parser.readCatalogStyleFlag(write()), "style");
        readableBytes = 20000;
        const bool succeeded = parser.readFile(write(), items);
        readableBytes = -1;
        QTEST(summaryOf(parser.failure()), "summary");
        QCOMPARE(succeeded, parser.failure().reason == CatalogReadFailure::None);
        QVERIFY(parser.readFile(write(), items)); // the medium was all that was wrong
    }
}

QTEST_GUILESS_MAIN(CatalogXMLParserFailureTest)

#include "CatalogXMLParserFailureTest.moc"
