// orvida-catalog as its users run it: output, messages and exit statuses.

#include "support/TestSupport.h"

#include <QProcess>
#include <QtTest>

using namespace Orvida::Tests;

namespace {

struct Run
{
    int exitStatus = -1;
    QString output;
    QString messages;
};

// Runs the tool; `environment` holds further variables as NAME=VALUE.
Run run(const QStringList &arguments, const QStringList &environment = {}, const QByteArray &input = {})
{
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(text(ORVIDA_CATALOG_TOOL), arguments);
    process.write(input);
    process.closeWriteChannel();
    Run result;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        result.exitStatus = process.exitCode();
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.messages = QString::fromUtf8(process.readAllStandardError());
    return result;
}

// Two classes, siblings of one sort order, a shared code, control characters in a caption, a second profile
// that only a column and a list name.
QByteArray smallCatalog()
{
    return catalogXml("<CATALOG><CAT_Style>2147483648</CAT_Style></CATALOG>\n" + recordsFrom(R"(
CATPRO PK=P1
CLASS PK=k2;Item=Fugen
CLASS PK=k1;Item=Gewölbe
BASECODE PK=b3;Class_FK=k1;Code=AAC
BASECODE PK=b1;Class_FK=k1;Code=AAA;Item=Riß
BASECODE PK=b4;Class_FK=b1;Code=AAA;Item=offen
COL Profile_FK=P1;Column_ID=WIDTH;DataType=DEC
COL Profile_FK=P2;Column_ID=WIDTH;DataType=DEC;Visible=true
LC PK=l;Profile_FK=P2;Class_ID=SIZES
LIST Class_FK=l;Item=wide;Caption=breit
PARAM PK=w;DataType=DEC;Caption=Breite;Unit=mm
PARAMX PK=x;BaseCode_FK=b1;Param_FK=w;Column_ID=WIDTH;ListClass_ID=SIZES;Mandatory=true;RangeFrom=1;RangeTo=9
)") + "<BASECODE><BC_PK>b2</BC_PK><BC_Class_FK>k1</BC_Class_FK>"
                      + scrambled("BC_Code", text("AAB")) + scrambled("BC_Item", text("two\nlines \a"))
                      + "</BASECODE>\n");
}

const QString smallTree = text("small.xml: profile P1, 6 items, 3D\n"
                               "\u251C\u2500\u2500 Gew\u00F6lbe \u2195\n"
                               "\u2502   \u251C\u2500\u2500 AAA  Ri\u00DF \u2195\n"
                               "\u2502   \u2502   \u2514\u2500\u2500 AAA  offen\n"
                               "\u2502   \u251C\u2500\u2500 AAB  two lines \uFFFD \u2195\n"
                               "\u2502   \u2514\u2500\u2500 AAC \u2195\n"
                               "\u2514\u2500\u2500 Fugen \u2195\n"
                               "\u2195 siblings of equal sort order: hosts show them in any order\n");

} // namespace

class ToolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void endsWithTheStatusOfTheOutcome_data();
    void endsWithTheStatusOfTheOutcome();
    void saysWhatIsWrongAndWhere_data();
    void saysWhatIsWrongAndWhere();
    void printsTheTreeTheSameForEverySeedAndLocale_data();
    void printsTheTreeTheSameForEverySeedAndLocale();
    void readsPipes();
    void keepsTheLibrarysOwnOutputOffStandardOutput();
    void warnsOfACatalogWithoutCodes();
    void colorsOnlyWhenAsked();
    void printsFieldsOfTheProfile();
    void printsEveryItemOfACodeAsAForm();
    void namesNearCodesAndProfiles();
    void showsTheLogOfTheLoad();
    void findsNoFaultInTheSample();
    void drawsADeepChainInBoundedSpace();
    void reportsWhatCannotBeWritten();
    void reportsALackOfMemory();

private:
    CatalogFolder m_folder;
    QString m_small;
};

void ToolTest::init()
{
    m_small = m_folder.write(text("small.xml"), smallCatalog());
}

void ToolTest::endsWithTheStatusOfTheOutcome_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("messages");

    QTest::newRow("help") << "--help" << 0 << "Usage: orvida-catalog"
                          << "";
    QTest::newRow("help of show") << "show --help" << 0 << "Usage: orvida-catalog show"
                                  << "";
    QTest::newRow("version") << "--version" << 0 << "orvida-catalog " ORVIDA_VERSION "\n"
                             << "";
    QTest::newRow("show") << "show FILE" << 0 << "3D"
                          << "";
    QTest::newRow("json") << "json FILE" << 0 << "AAC"
                          << "";
    QTest::newRow("unknown code") << "show FILE --code AAAA" << 1 << ""
                                  << "did you mean AAA";
    QTest::newRow("unknown profile") << "show FILE --profile p1" << 1 << ""
                                     << "did you mean P1";
    QTest::newRow("missing file") << "show none.xml" << 2 << ""
                                  << "none.xml: error: cannot read the file";
    QTest::newRow("missing file for json") << "json none.xml" << 2 << ""
                                           << "none.xml: error: cannot read";
    QTest::newRow("folder") << "show /" << 2 << ""
                            << "is a directory";
    QTest::newRow("no subcommand") << "" << 3 << ""
                                   << "Usage: orvida-catalog";
    QTest::newRow("unknown subcommand") << "bogus" << 3 << ""
                                        << "Usage: orvida-catalog";
    QTest::newRow("show without file") << "show" << 3 << ""
                                       << "Usage: orvida-catalog show";
    QTest::newRow("json without file") << "json" << 3 << ""
                                       << "Usage: orvida-catalog json";
    QTest::newRow("two files") << "show FILE FILE" << 3 << ""
                               << "Usage: orvida-catalog show";
    QTest::newRow("unknown option") << "json --bogus FILE" << 3 << ""
                                    << "--bogus";
    QTest::newRow("unknown colour") << "show --color blue FILE" << 3 << ""
                                    << "blue";
    QTest::newRow("form and fields at once") << "show --code A --fields FILE" << 3 << ""
                                             << "--fields";
}

void ToolTest::endsWithTheStatusOfTheOutcome()
{
    QFETCH(QString, arguments);
    QFETCH(QString, output);
    QFETCH(QString, messages);
    const QStringList words =
        arguments.replace(QLatin1String("FILE"), m_small).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const Run result = run(words);
    QTEST(result.exitStatus, "status");
    QVERIFY2(result.output.contains(output), qPrintable(result.output));
    QVERIFY2(result.messages.contains(messages), qPrintable(result.messages));
    QCOMPARE(result.output.isEmpty(), output.isEmpty());
    QCOMPARE(result.messages.isEmpty(), messages.isEmpty());
}

void ToolTest::saysWhatIsWrongAndWhere_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");

    QTest::newRow("tags that do not match")
        << QByteArray("<OVCAT>\n  <COL></LIST>\n</OVCAT>") << "bad.xml:2:15: error: not well-formed XML: ";
    QTest::newRow("empty file") << QByteArray() << "bad.xml:1:1: error: not well-formed XML: ";
    QTest::newRow("ends inside a record")
        << QByteArray("<OVCAT>\n<CATPRO>\n") << "bad.xml:3:1: error: not well-formed XML: ";
    QTest::newRow("record without key, behind white space")
        << QByteArray("<OVCAT>\n\n   <CATPRO>\n  <PRO_SortOrder>1</PRO_SortOrder></CATPRO></OVCAT>")
        << "bad.xml:3:12: error: CATPRO record without PRO_PK\n";
    QTest::newRow("record without key, close behind another element")
        << QByteArray("<OVCAT><x/><PARAM></PARAM></OVCAT>")
        << "bad.xml:1:19: error: PARAM record without PARAM_PK\n";
    QTest::newRow("several keys") << QByteArray("<OVCAT><CPX/></OVCAT>")
                                  << "CPX record without CPX_PK and without CPX_Profile_FK\n";
    QTest::newRow("scrambled key in the clear")
        << QByteArray("<OVCAT><LC><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>0</LC_Class_ID></LC></OVCAT>")
        << "Use --readable";
}

void ToolTest::saysWhatIsWrongAndWhere()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const Run result = run({text("show"), m_folder.write(text("bad.xml"), content)});
    QCOMPARE(result.exitStatus, 2);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.messages.contains(message), qPrintable(result.messages));
}

void ToolTest::printsTheTreeTheSameForEverySeedAndLocale_data()
{
    QTest::addColumn<QStringList>("environment");

    for (const char *seed : {"0", "1", "2", "3", "77", "4000000000"})
        QTest::newRow(seed) << QStringList{text("QT_HASH_SEED=%1").arg(QLatin1String(seed))};
    QTest::newRow("locale C") << QStringList{text("LC_ALL=C")};
    QTest::newRow("locale C.UTF-8") << QStringList{text("LC_ALL=C.UTF-8")};
}

void ToolTest::printsTheTreeTheSameForEverySeedAndLocale()
{
    QFETCH(QStringList, environment);
    const Run result = run({text("show"), m_small}, environment);
    // Both classes have one sort order and no code, so their ids decide.
    QCOMPARE(result.output, smallTree);
}

// A pipe is read once, by whichever name, and only as far as it is XML: /dev/zero has no end.
void ToolTest::readsPipes()
{
    for (const auto &[name, shown] : {std::pair{"-", "<standard input>"}, {"/dev/stdin", "stdin"}}) {
        QCOMPARE(run({text("show"), text(name)}, {}, smallCatalog()).output,
                 QString(smallTree).replace(QLatin1String("small.xml"), QLatin1String(shown)));
    }
    const Run broken = run({text("json"), text("-")}, {}, "<OVCAT>");
    QCOMPARE(broken.exitStatus, 2);
    QVERIFY2(broken.messages.startsWith(QLatin1String("<standard input>:1:8: error:")),
             qPrintable(broken.messages));
    QProcess endless;
    endless.start(text("sh"), {text("-c"), text("ulimit -f 100000 && exec \"$0\" show - < /dev/zero"),
                               text(ORVIDA_CATALOG_TOOL)});
    QVERIFY(endless.waitForFinished());
    QCOMPARE(endless.exitCode(), 2);
    QVERIFY(endless.readAllStandardError().startsWith("<standard input>:1:2: error: not well-formed"));
}

void ToolTest::keepsTheLibrarysOwnOutputOffStandardOutput()
{
    const QString file = m_folder.write(
        text("orphan.xml"), catalogXml(recordsFrom("BASECODE PK=b;Class_FK=none;Code=X;Item=\x1b[2J")));
    const Run result = run({text("show"), file});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output, text("orphan.xml: 1 item (1 outside the tree), not 3D\n"));
    QVERIFY2(
        result.messages.contains(text("warning: BASECODE b hangs nowhere: BC_Class_FK \u201Cnone\u201D ")),
        qPrintable(result.messages));

    // With standard error closed, no file that is opened in its place gets what is written to it.
    QProcess closed;
    closed.start(text("sh"), {text("-c"), text("ulimit -f 1000 && exec \"$0\" show \"$1\" 2>&-"),
                              text(ORVIDA_CATALOG_TOOL), file});
    QVERIFY(closed.waitForFinished());
    QCOMPARE(QString::fromUtf8(closed.readAllStandardOutput()), result.output);
    QCOMPARE(closed.exitCode(), 0);
}

void ToolTest::warnsOfACatalogWithoutCodes()
{
    const Run result = run({text("show"), m_folder.write(text("other.xml"), "<ovcat/>")});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output, text("other.xml: 0 items, not 3D\n"));
    QVERIFY2(result.messages.contains(QLatin1String("is its root element OVCAT?")),
             qPrintable(result.messages));
}

void ToolTest::colorsOnlyWhenAsked()
{
    const QStringList noColor{text("NO_COLOR=1")};
    const auto show = [this, &noColor](const char *choice) {
        return run({text("show"), text("--color"), QLatin1String(choice), m_small}, noColor).output;
    };
    QString colored = show("always");
    QVERIFY(colored.contains(QLatin1String("\x1b[1;36mAAA\x1b[0m")));
    QCOMPARE(colored.remove(QRegularExpression(text("\x1b\\[[0-9;]*m"))), smallTree);
    QCOMPARE(show("never"), smallTree);
    QCOMPARE(show("auto"), smallTree);
}

void ToolTest::printsFieldsOfTheProfile()
{
    const auto fields = [this](const QStringList &options) {
        const QStringList lines = run(QStringList{text("show"), text("--fields"), m_small} + options)
                                      .output.split(QLatin1Char('\n'));
        return lines.filter(text("\u00B7"));
    };
    const QString indentation = text("\u2502   \u2502   \u2502   ");
    QCOMPARE(fields({}), QStringList(indentation
                                     + text("\u00B7 Breite (1 - 9): decimal, in mm, mandatory, "
                                            "hidden, range 1 to 9")));
    QCOMPARE(fields({text("--profile"), text("P2")}),
             QStringList(indentation
                         + text("\u00B7 Breite (1 - 9): decimal, in mm, mandatory, "
                                "range 1 to 9, list SIZES of 1")));
}

void ToolTest::printsEveryItemOfACodeAsAForm()
{
    const Run result =
        run({text("show"), m_small, text("--code"), text("AAA"), text("--profile"), text("P2")});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output, text("AAA  Ri\u00DF\n"
                                 "path            Gew\u00F6lbe \u203A AAA Ri\u00DF\n"
                                 "id              b1\n"
                                 "profile         P2\n"
                                 "order           open; AAB, AAC with the same sort order 0, hosts show them "
                                 "in any order\n"
                                 "\n"
                                 "  Breite (1 - 9)\n"
                                 "    type            decimal\n"
                                 "    unit            mm\n"
                                 "    flags           mandatory\n"
                                 "    range           1 to 9\n"
                                 "    column          WIDTH\n"
                                 "    sort order      0\n"
                                 "    values          list SIZES of 1\n"
                                 "      wide  breit\n"
                                 "\n"
                                 "AAA  offen\n"
                                 "path            Gew\u00F6lbe \u203A AAA Ri\u00DF \u203A AAA offen\n"
                                 "id              b4\n"
                                 "profile         P2\n"
                                 "\n"
                                 "  no fields in this profile\n"));
}

void ToolTest::namesNearCodesAndProfiles()
{
    const auto messageFor = [this](const char *code) {
        return run({text("show"), m_small, text("--code"), QLatin1String(code)}).messages;
    };
    QCOMPARE(messageFor("aabb"), text("orvida-catalog: no code aabb in this catalog; "
                                      "did you mean AAB?\n"));
    QCOMPARE(messageFor("A"), text("orvida-catalog: no code A in this catalog; "
                                   "did you mean AAA, AAB, AAC?\n"));
    QCOMPARE(messageFor("XYZUVW"), text("orvida-catalog: no code XYZUVW in this catalog\n"));
}

void ToolTest::showsTheLogOfTheLoad()
{
    const Run silent = run({text("show"), m_small});
    QCOMPARE(silent.messages, QString());
    const Run logged = run({text("show"), text("--log"), m_small});
    QCOMPARE(logged.messages, text("info: CatalogLoader: Creating items for list: SIZES\n"
                                   "debug: CatalogListItem: Catalog item created key:wide value:wide\n"));
    QCOMPARE(logged.output, silent.output);
}

void ToolTest::findsNoFaultInTheSample()
{
    const Run result =
        run({text("show"), text("--log"), text("--fields"), text(ORVIDA_SAMPLES "/tunnels.xml")});
    QCOMPARE(result.exitStatus, 0);
    QVERIFY(!result.output.contains(QLatin1String("outside the tree")));
    QVERIFY2(!result.messages.contains(QLatin1String("error: ")), qPrintable(result.messages));
    QVERIFY2(!result.messages.contains(QLatin1String("Parent of item")), qPrintable(result.messages));
    QVERIFY(result.messages.contains(QLatin1String("debug: CatalogListItem: ")));
}

void ToolTest::drawsADeepChainInBoundedSpace()
{
    const int depth = 20000;
    QString lines = text("CLASS PK=c0;Item=top\n");
    for (int i = 1; i < depth; ++i)
        lines += text("BASECODE PK=c%1;Class_FK=c%2;Code=K%1\n").arg(i).arg(i - 1);
    const Run result =
        run({text("show"), m_folder.write(text("deep.xml"), catalogXml(recordsFrom(lines.toUtf8())))});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output.count(QLatin1Char('\n')), depth + 1);
    QVERIFY(result.output.endsWith(text("+%1 K%2\n").arg(depth - 1 - 40).arg(depth - 1)));
    QVERIFY(result.output.size() < depth * 200);
}

void ToolTest::reportsWhatCannotBeWritten()
{
    QProcess process;
    process.setStandardOutputFile(text("/dev/full"));
    process.start(text(ORVIDA_CATALOG_TOOL), {text("json"), m_small});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().contains("cannot write to standard output"));
}

void ToolTest::reportsALackOfMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("a sanitizer takes more address space than any limit would leave it");
#endif
    const QByteArray content =
        catalogXml("<CLASS>" + field("CLASS_PK", QString(40 << 20, QLatin1Char('x'))) + "</CLASS>");
    QProcess process;
    process.start(text("sh"), {text("-c"), text("ulimit -v 200000 && exec \"$0\" show \"$1\""),
                               text(ORVIDA_CATALOG_TOOL), m_folder.write(text("large.xml"), content)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardError(),
             QByteArray("orvida-catalog: error: not enough memory for this catalog\n"));
}

QTEST_GUILESS_MAIN(ToolTest)

#include "ToolTest.moc"
