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
    process.start(QStringLiteral(ORVIDA_CATALOG_TOOL), arguments);
    process.write(input);
    process.closeWriteChannel();
    Run result;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        result.exitStatus = process.exitCode();
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.messages = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QByteArray codeClass(const QString &id, const QString &caption)
{
    return "<CLASS>" + field("CLASS_PK", id) + scrambled("CLASS_Item", caption) + "</CLASS>\n";
}

QByteArray baseCode(const QString &id, const QString &parent, const QString &code, const QString &caption)
{
    return "<BASECODE>" + field("BC_PK", id) + field("BC_Class_FK", parent) + scrambled("BC_Code", code)
           + scrambled("BC_Item", caption) + "</BASECODE>\n";
}

// Two classes, siblings of one sort order, a shared code, control characters in a caption.
QByteArray smallCatalog()
{
    return catalogXml(
        "<CATALOG>" + field("CAT_Style", QStringLiteral("2147483648")) + "</CATALOG>\n" + "<CATPRO>"
        + field("PRO_PK", QStringLiteral("P1")) + "</CATPRO>\n"
        + codeClass(QStringLiteral("k2"), QStringLiteral("Fugen"))
        + codeClass(QStringLiteral("k1"), QStringLiteral("Gew\u00F6lbe"))
        + baseCode(QStringLiteral("b3"), QStringLiteral("k1"), QStringLiteral("AAC"), QString())
        + baseCode(QStringLiteral("b2"), QStringLiteral("k1"), QStringLiteral("AAB"),
                   QStringLiteral("two\nlines \u0007"))
        + baseCode(QStringLiteral("b1"), QStringLiteral("k1"), QStringLiteral("AAA"),
                   QStringLiteral("Ri\u00DF"))
        + baseCode(QStringLiteral("b4"), QStringLiteral("b1"), QStringLiteral("AAA"), QStringLiteral("offen"))
        + "<COL>" + field("COL_Profile_FK", QStringLiteral("P1"))
        + scrambled("COL_Column_ID", QStringLiteral("WIDTH")) + field("COL_DataType", QStringLiteral("DEC"))
        + "</COL>\n<COL>" + field("COL_Profile_FK", QStringLiteral("P2"))
        + scrambled("COL_Column_ID", QStringLiteral("WIDTH")) + field("COL_DataType", QStringLiteral("DEC"))
        + field("COL_Visible", QStringLiteral("true")) + "</COL>\n<LC>" + field("LC_PK", QStringLiteral("l"))
        + field("LC_Profile_FK", QStringLiteral("P2")) + scrambled("LC_Class_ID", QStringLiteral("SIZES"))
        + "</LC>\n<LIST>" + field("LIST_Class_FK", QStringLiteral("l"))
        + field("LIST_Item", QStringLiteral("wide")) + scrambled("LIST_Caption", QStringLiteral("breit"))
        + "</LIST>\n<PARAM>" + field("PARAM_PK", QStringLiteral("w"))
        + field("PARAM_DataType", QStringLiteral("DEC"))
        + scrambled("PARAM_Caption", QStringLiteral("Breite")) + field("PARAM_Unit", QStringLiteral("mm"))
        + "</PARAM>\n<PARAMX>" + field("PX_PK", QStringLiteral("x"))
        + field("PX_BaseCode_FK", QStringLiteral("b1")) + field("PX_Param_FK", QStringLiteral("w"))
        + field("PX_Column_ID", QStringLiteral("WIDTH")) + field("PX_ListClass_ID", QStringLiteral("SIZES"))
        + field("PX_Mandatory", QStringLiteral("true")) + field("PX_RangeFrom", QStringLiteral("1"))
        + field("PX_RangeTo", QStringLiteral("9")) + "</PARAMX>\n");
}

const QString smallTree = QStringLiteral("small.xml: profile P1, 6 items, 3D\n"
                                         "\u251C\u2500\u2500 Gew\u00F6lbe\n"
                                         "\u2502   \u251C\u2500\u2500 AAA  Ri\u00DF\n"
                                         "\u2502   \u2502   \u2514\u2500\u2500 AAA  offen\n"
                                         "\u2502   \u251C\u2500\u2500 AAB  two lines \uFFFD\n"
                                         "\u2502   \u2514\u2500\u2500 AAC\n"
                                         "\u2514\u2500\u2500 Fugen\n");

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
    void readsStandardInput();
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

private:
    CatalogFolder m_folder;
    QString m_small;
};

void ToolTest::init()
{
    m_small = m_folder.write(QStringLiteral("small.xml"), smallCatalog());
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
        << "give the record a LC_Class_ID in scrambled form";
}

void ToolTest::saysWhatIsWrongAndWhere()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const Run result = run({QStringLiteral("show"), m_folder.write(QStringLiteral("bad.xml"), content)});
    QCOMPARE(result.exitStatus, 2);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.messages.contains(message), qPrintable(result.messages));
    QVERIFY2(result.messages.contains(QLatin1String("to mend it: ")), qPrintable(result.messages));
}

void ToolTest::printsTheTreeTheSameForEverySeedAndLocale_data()
{
    QTest::addColumn<QStringList>("environment");

    for (const char *seed : {"0", "1", "2", "3", "77", "4000000000"})
        QTest::newRow(seed) << QStringList{QStringLiteral("QT_HASH_SEED=%1").arg(QLatin1String(seed))};
    QTest::newRow("locale C") << QStringList{QStringLiteral("LC_ALL=C")};
    QTest::newRow("locale C.UTF-8") << QStringList{QStringLiteral("LC_ALL=C.UTF-8")};
}

void ToolTest::printsTheTreeTheSameForEverySeedAndLocale()
{
    QFETCH(QStringList, environment);
    const Run result = run({QStringLiteral("show"), m_small}, environment);
    // Both classes have one sort order and no code, so their ids decide.
    QCOMPARE(result.output, smallTree);
}

void ToolTest::readsStandardInput()
{
    const Run tree = run({QStringLiteral("show"), QStringLiteral("-")}, {}, smallCatalog());
    QCOMPARE(tree.output,
             QString(smallTree).replace(QLatin1String("small.xml"), QLatin1String("<standard input>")));
    const Run broken = run({QStringLiteral("json"), QStringLiteral("-")}, {}, "<OVCAT>");
    QCOMPARE(broken.exitStatus, 2);
    QVERIFY2(broken.messages.startsWith(QLatin1String("<standard input>:1:8: error:")),
             qPrintable(broken.messages));
}

void ToolTest::keepsTheLibrarysOwnOutputOffStandardOutput()
{
    const QString file = m_folder.write(
        QStringLiteral("orphan.xml"),
        catalogXml(baseCode(QStringLiteral("b"), QStringLiteral("none"), QStringLiteral("X"), QString())));
    const Run result = run({QStringLiteral("show"), file});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output, QStringLiteral("orphan.xml: 1 item (1 outside the tree), not 3D\n"));
    QVERIFY2(result.messages.contains(QLatin1String("Parent of item:  not found!\nItem id: b\n")),
             qPrintable(result.messages));
}

void ToolTest::warnsOfACatalogWithoutCodes()
{
    const Run result = run({QStringLiteral("show"), m_folder.write(QStringLiteral("other.xml"), "<ovcat/>")});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output, QStringLiteral("other.xml: 0 items, not 3D\n"));
    QVERIFY2(result.messages.contains(QLatin1String("is its root element OVCAT?")),
             qPrintable(result.messages));
}

void ToolTest::colorsOnlyWhenAsked()
{
    const QStringList noColor{QStringLiteral("NO_COLOR=1")};
    const auto show = [this, &noColor](const char *choice) {
        return run({QStringLiteral("show"), QStringLiteral("--color"), QLatin1String(choice), m_small},
                   noColor)
            .output;
    };
    QString colored = show("always");
    QVERIFY(colored.contains(QLatin1String("\x1b[1;36mAAA\x1b[0m")));
    QCOMPARE(colored.remove(QRegularExpression(QStringLiteral("\x1b\\[[0-9;]*m"))), smallTree);
    QCOMPARE(show("never"), smallTree);
    QCOMPARE(show("auto"), smallTree);
}

void ToolTest::printsFieldsOfTheProfile()
{
    const auto fields = [this](const QStringList &options) {
        const QStringList lines =
            run(QStringList{QStringLiteral("show"), QStringLiteral("--fields"), m_small} + options)
                .output.split(QLatin1Char('\n'));
        return lines.filter(QStringLiteral("\u00B7"));
    };
    const QString indentation = QStringLiteral("\u2502   \u2502   \u2502   ");
    QCOMPARE(fields({}), QStringList(indentation
                                     + QStringLiteral("\u00B7 Breite (1 - 9): decimal, in mm, mandatory, "
                                                      "hidden, range 1 to 9")));
    QCOMPARE(fields({QStringLiteral("--profile"), QStringLiteral("P2")}),
             QStringList(indentation
                         + QStringLiteral("\u00B7 Breite (1 - 9): decimal, in mm, mandatory, "
                                          "range 1 to 9, list SIZES of 1")));
}

void ToolTest::printsEveryItemOfACodeAsAForm()
{
    const Run result = run({QStringLiteral("show"), m_small, QStringLiteral("--code"), QStringLiteral("AAA"),
                            QStringLiteral("--profile"), QStringLiteral("P2")});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output,
             QStringLiteral("AAA  Ri\u00DF\n"
                            "path            Gew\u00F6lbe \u203A AAA Ri\u00DF\n"
                            "id              b1\n"
                            "profile         P2\n"
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
        return run({QStringLiteral("show"), m_small, QStringLiteral("--code"), QLatin1String(code)}).messages;
    };
    QCOMPARE(messageFor("aab"), QStringLiteral("orvida-catalog: no code aab in this catalog; "
                                               "did you mean AAB, AAA, AAC?\n"));
    QCOMPARE(messageFor("A"), QStringLiteral("orvida-catalog: no code A in this catalog; "
                                             "did you mean AAA, AAB, AAC?\n"));
    QCOMPARE(messageFor("XYZUVW"), QStringLiteral("orvida-catalog: no code XYZUVW in this catalog\n"));
}

void ToolTest::showsTheLogOfTheLoad()
{
    const Run silent = run({QStringLiteral("show"), m_small});
    QCOMPARE(silent.messages, QString());
    const Run logged = run({QStringLiteral("show"), QStringLiteral("--log"), m_small});
    QCOMPARE(logged.messages,
             QStringLiteral("info: CatalogLoader: Creating items for list: SIZES\n"
                            "debug: CatalogListItem: Catalog item created key:wide value:wide\n"));
    QCOMPARE(logged.output, silent.output);
}

void ToolTest::findsNoFaultInTheSample()
{
    const Run result = run({QStringLiteral("show"), QStringLiteral("--log"), QStringLiteral("--fields"),
                            QStringLiteral(ORVIDA_SAMPLES "/tunnels.xml")});
    QCOMPARE(result.exitStatus, 0);
    QVERIFY(!result.output.contains(QLatin1String("outside the tree")));
    QVERIFY2(!result.messages.contains(QLatin1String("error: ")), qPrintable(result.messages));
    QVERIFY2(!result.messages.contains(QLatin1String("Parent of item")), qPrintable(result.messages));
    QVERIFY(result.messages.contains(QLatin1String("debug: CatalogListItem: ")));
}

void ToolTest::drawsADeepChainInBoundedSpace()
{
    const int depth = 20000;
    QByteArray records = codeClass(QStringLiteral("c0"), QStringLiteral("top"));
    for (int i = 1; i < depth; ++i)
        records += baseCode(QStringLiteral("c%1").arg(i), QStringLiteral("c%1").arg(i - 1),
                            QStringLiteral("K%1").arg(i), QString());
    const Run result =
        run({QStringLiteral("show"), m_folder.write(QStringLiteral("deep.xml"), catalogXml(records))});
    QCOMPARE(result.exitStatus, 0);
    QCOMPARE(result.output.count(QLatin1Char('\n')), depth + 1);
    QVERIFY(result.output.endsWith(QStringLiteral("+%1 K%2\n").arg(depth - 1 - 40).arg(depth - 1)));
    QVERIFY(result.output.size() < depth * 200);
}

void ToolTest::reportsWhatCannotBeWritten()
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(ORVIDA_CATALOG_TOOL), {QStringLiteral("json"), m_small});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().contains("cannot write to standard output"));
}

QTEST_GUILESS_MAIN(ToolTest)

#include "ToolTest.moc"
