// docs/format.md against the library: its tables, its catalog, its examples and what it says about hidden
// fields. ORVIDA_UPDATE=1 rewrites the tables of the page; read the diff before you commit it.

#include "catalogs/format/CatalogFormat.h"
#include "docs/generator/FormatPage.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

using namespace Orvida::Tests;
using namespace Orvida::Catalogs;
using Orvida::Format::FormatPage;

namespace {

const QString pagePath = QStringLiteral(ORVIDA_SOURCES "/docs/format.md");

QString page()
{
    QFile file(pagePath);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The first block of the page that begins with `start`.
QString blockOf(const char *start)
{
    return page().section(text(start), 1, 1).section(text("```"), 0, 0);
}

QString smallestCatalog()
{
    return blockOf("```xml\n");
}

// The rows of the table whose heading begins with `heading`, each by the names in the heading.
QVector<QMap<QString, QString>> tableOf(const char *heading)
{
    const auto cellsOf = [](QString line) {
        QStringList cells = line.remove(QLatin1Char('`')).split(QLatin1Char('|'));
        for (QString &cell : cells)
            cell = cell.trimmed();
        return cells;
    };
    const QString table = page().mid(page().indexOf(text(heading))).section(text("\n\n"), 0, 0);
    QStringList lines = table.split(QLatin1Char('\n'));
    const QStringList names = cellsOf(lines.takeFirst());
    QVector<QMap<QString, QString>> rows;
    for (const QString &line : lines.mid(1)) {
        const QStringList cells = cellsOf(line);
        rows.append(QMap<QString, QString>());
        for (int i = 0; i < names.size(); ++i)
            rows.last().insert(names.at(i), cells.value(i));
    }
    return rows;
}

// The smallest catalog with `text` in place of the first `place`.
QString changed(const QString &place, const QString &text)
{
    QString catalog = smallestCatalog();
    const int start = catalog.indexOf(place);
    return start < 0 ? QString() : catalog.replace(start, place.size(), text);
}

CatalogSptr loadedForm(const QString &readable)
{
    const QString records = readable.section(text("<OVCAT>"), 1).remove(text("</OVCAT>"));
    return loaded(scrambledForm(records.toUtf8()));
}

// The smallest catalog with the cells of `row` that are fields, each added to the first of its records, where
// it overrides an earlier one.
CatalogSptr loadedWith(const QMap<QString, QString> &row)
{
    QString catalog = smallestCatalog();
    for (auto cell = row.cbegin(); cell != row.cend(); ++cell) {
        if (const CatalogFormat::Field *field = CatalogFormat::field(cell.key())) {
            const QString end = text("</%1>").arg(CatalogFormat::recordOf(*field)->name);
            catalog.insert(catalog.indexOf(end), text("<%1>%2</%1>").arg(cell.key(), *cell));
        }
    }
    return loadedForm(catalog);
}

// A change to the smallest catalog that hides the field of a code. The number is that in the page's list.
struct Change
{
    const char *name;
    const char *place;
    const char *replacement;
    const char *code = "CRA";
};

const Change hidingChanges[] = {
    {"1 no column", "<PX_Column_ID>OBS_SIDE</PX_Column_ID>", ""},
    {"1 unknown column", "<PX_Column_ID>OBS_SIDE", "<PX_Column_ID>Obs_Side"},
    {"2 no type", "<COL_DataType>TXT</COL_DataType>", ""},
    {"2 unknown type", "<COL_DataType>TXT", "<COL_DataType>Txt"},
    {"3 column of another profile", "<COL_Profile_FK>STANDARD", "<COL_Profile_FK>OTHER"},
    {"3 another profile is chosen", "</CATPRO>",
     "</CATPRO><CATPRO><PRO_PK>OTHER</PRO_PK><PRO_SortOrder>-1</PRO_SortOrder></CATPRO>"},
    {"3 no profile", "<CATPRO>\n    <PRO_PK>STANDARD</PRO_PK>\n  </CATPRO>", ""},
    {"4 visibility left out", "<COL_Visible>true</COL_Visible>", ""},
    {"4 visibility misspelt", "<COL_Visible>true", "<COL_Visible>yes"},
    {"4 hidden by an earlier definition", "</CATPRO>",
     "</CATPRO><COL><COL_Profile_FK>STANDARD</COL_Profile_FK><COL_Column_ID>OBS_SIDE</COL_Column_ID>"
     "<COL_DataType>TXT</COL_DataType></COL>"},
    {"5 no code", "<PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>", ""},
    {"5 unknown code", "<PX_BaseCode_FK>BC-CRA", "<PX_BaseCode_FK>BC-CRB"},
    {"5 base code and extension", "</PARAMX>",
     "<PX_CharExt_FK>CE</PX_CharExt_FK></PARAMX><CHAREXT><CE_PK>CE</CE_PK>"
     "<CE_BaseCode_FK>BC-CRA</CE_BaseCode_FK><CE_Code>CRAL</CE_Code></CHAREXT>",
     "CRAL"},
    {"5 code replaced", "</BASECODE>", "</BASECODE><CLASS><CLASS_PK>BC-CRA</CLASS_PK></CLASS>"},
    {"5 unknown parent", "<BC_Class_FK>CL-LINING", "<BC_Class_FK>CL-JOINTS"},
    {"5 circle", "<BC_Class_FK>CL-LINING", "<BC_Class_FK>BC-CRA"},
    {"6 replaced", "</PARAMX>", "</PARAMX><PARAMX><PX_PK>PX-CRA-SIDE</PX_PK></PARAMX>"},
};

// Counts the fields that are shown at the code `code` below `item`.
int shownFields(CatalogItem &item, const QString &code)
{
    int count = 0;
    for (const auto &child : item.getChildItems()) {
        if (child->code() == code) {
            for (const CatalogInputField &field : child->getFields())
                count += field.isVisible() ? 1 : 0;
        }
        count += shownFields(*child, code);
    }
    return count;
}

} // namespace

class FormatManualTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheTablesOfTheFormat();
    void explainsEveryLineOfTheSmallestCatalog();
    void showsTheSmallestCatalogAsTheToolDoes();
    void namesWhatHidesAField_data();
    void namesWhatHidesAField();
    void givesTrueExamplesOfCaptions();
    void givesTrueExamplesOfListValues();
};

void FormatManualTest::hasTheTablesOfTheFormat()
{
    QStringList absent;
    const QString updated = FormatPage::updated(page(), absent);
    QCOMPARE(absent, QStringList());
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE")) {
        QFile file(pagePath);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(updated.toUtf8()) > 0);
    }
    QVERIFY2(page() == updated,
             "Run this test with ORVIDA_UPDATE=1 to rewrite the tables of docs/format.md.");
}

void FormatManualTest::explainsEveryLineOfTheSmallestCatalog()
{
    static const QRegularExpression start(text("<(\\w+)>"));
    int count = 0;
    for (auto matches = start.globalMatch(smallestCatalog()); matches.hasNext(); ++count) {
        const QString row = text("| `%1` | ").arg(matches.next().captured(1));
        QVERIFY2(page().contains(row), qPrintable(row));
    }
    QVERIFY(count > 30);
}

void FormatManualTest::showsTheSmallestCatalogAsTheToolDoes()
{
    const CatalogFolder folder;
    const QString file = folder.write(text("smallest.xml"), smallestCatalog().toUtf8());
    QProcess tool;
    tool.start(text(ORVIDA_CATALOG_TOOL),
               {text("show"), text("--readable"), text("--code"), text("CRA"), file});
    QVERIFY(tool.waitForFinished());
    QCOMPARE(QString::fromUtf8(tool.readAllStandardOutput()),
             blockOf("show --readable --code CRA smallest.xml\n"));
}

void FormatManualTest::namesWhatHidesAField_data()
{
    QTest::addColumn<QString>("catalog");
    QTest::addColumn<QString>("code");
    for (const Change &change : hidingChanges)
        QTest::newRow(change.name) << changed(text(change.place), text(change.replacement))
                                   << text(change.code);
    QTest::newRow("6 misspelt") << smallestCatalog().replace(text("PARAMX>"), text("Paramx>")) << text("CRA");
    QTest::newRow("6 inside another element") << changed(text("<PARAMX>"), text("<FIELDS><PARAMX>"))
                                                     .replace(text("</PARAMX>"), text("</PARAMX></FIELDS>"))
                                              << text("CRA");
}

void FormatManualTest::namesWhatHidesAField()
{
    QFETCH(QString, catalog);
    QFETCH(QString, code);
    const CatalogSptr loaded = [&catalog] {
        const StandardOutputTo orphans("/dev/null");
        return loadedForm(catalog);
    }();
    QVERIFY(loaded->IsValid());
    QVERIFY(!catalog.isEmpty());
    QCOMPARE(shownFields(*loaded->getItemById(QString()), code), 0);
}

void FormatManualTest::givesTrueExamplesOfCaptions()
{
    const auto examples = tableOf("| `PARAM_Caption` | `PARAM_Placeholder`");
    QVERIFY(examples.size() >= 5);
    for (const auto &example : examples) {
        const CatalogSptr catalog = loadedWith(example);
        QCOMPARE(catalog->getItem(text("CRA"))->getFields().first().caption(),
                 example.value(text("Inspectors see")));
    }
}

void FormatManualTest::givesTrueExamplesOfListValues()
{
    const auto examples = tableOf("| `LC_TypeFlags` | `LIST_Internal`");
    QVERIFY(examples.size() >= 5);
    for (const auto &example : examples) {
        const CatalogSptr catalog = loadedWith(example);
        QCOMPARE(catalog->getItem(text("CRA"))->getFields().first().itemList().first().value().toString(),
                 example.value(text("Recorded")));
    }
}

QTEST_GUILESS_MAIN(FormatManualTest)

#include "FormatManualTest.moc"
