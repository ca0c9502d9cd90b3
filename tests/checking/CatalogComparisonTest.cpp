// What a comparison tells of small and of random changes, and what it must not tell.

#include "checking/CatalogComparison.h"

#include "checking/CatalogEdits.h"
#include "support/TestSupport.h"

#include <QtTest>

#include <algorithm>

using namespace Orvida::Checking;
using namespace Orvida::Tests;

namespace {

const QString marker = QStringLiteral("<!-- here -->");

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString className(CatalogChangeClass changeClass)
{
    const QString names[] = {text("breaking"), text("review"), text("addition"), text("wording"),
                             text("hidden")};
    return names[int(changeClass)];
}

// "breaking code-removed JOI: code removed (“Joint”) 20 -"
QString lineOf(const CatalogChange &change)
{
    const auto place = [](const CatalogChangePlace &where) {
        return where.line == 0 ? text("-") : QString::number(where.line);
    };
    QString line = className(change.changeClass) + QLatin1Char(' ') + change.id + QLatin1Char(' ')
                   + change.subject + text(": ") + change.message;
    if (!change.profiles.isEmpty())
        line += text(" (") + change.profiles.join(text(", ")) + QLatin1Char(')');
    if (change.codeCount > 0)
        line += text(" [") + change.codes.join(text(", ")) + QLatin1Char(']');
    return line + QLatin1Char(' ') + place(change.oldPlace) + QLatin1Char(' ') + place(change.newPlace)
           + QLatin1Char('\n');
}

QString lineOf(const CatalogRename &rename)
{
    const QString kinds[] = {text("code"), text("column"), text("value"), text("defect-code"),
                             text("profile")};
    const QString certainties[] = {text("certain"), text("likely"), text("weak")};
    return text("map: ")
           + QStringList({kinds[rename.kind], rename.profile, rename.list, rename.oldName, rename.newName,
                          certainties[rename.certainty]})
                 .join(QLatin1Char(','))
           + QLatin1Char('\n');
}

QString linesOf(const CatalogComparison &comparison)
{
    QString lines;
    for (const CatalogChange &change : comparison.changes())
        lines += lineOf(change);
    for (const CatalogRename &rename : comparison.renames())
        lines += lineOf(rename);
    return lines;
}

// What is to be equal of a change that is found and one that was made.
QString shortLineOf(const CatalogChange &change)
{
    return QStringList({change.id, change.code, change.column, change.list, change.value})
        .join(QLatin1Char(' '));
}

QStringList shortLinesOf(const CatalogComparison &comparison)
{
    QStringList lines;
    for (const CatalogChange &change : comparison.changes()) {
        if (change.changeClass != CatalogChangeClass::Hidden)
            lines << shortLineOf(change);
    }
    lines.sort();
    return lines;
}

void edit(QString &catalog, const QString &how)
{
    const QString what = how.section(text("=>"), 0, 0);
    QString by = how.section(text("=>"), 1);
    if (by.endsWith(text(">.")))
        by.replace(by.size() - 1, 1, marker);
    const QString place = what == text(".") ? marker : what;
    QVERIFY2(catalog.contains(place), qPrintable(how));
    catalog.replace(place, by);
}

} // namespace

class CatalogComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheChangesOfCases();
    void hasACaseForEachKind();
    void tellsNothingOfTheSameCatalog_data();
    void tellsNothingOfTheSameCatalog();
    void tellsWhatWasEdited_data();
    void tellsWhatWasEdited();
    void leavesOutOtherProfiles();
    void tellsWhyAFileDoesNotLoad();
    void comparesManyItemsOfOneCode();
    void comparesManyRenamedCodes_data();
    void comparesManyRenamedCodes();
    void isWhatTheManualSays();

private:
    QString told(const QString &edits) const;
    void compare(CatalogComparison &comparison, const QByteArray &before, const QByteArray &after) const;

    CatalogFolder m_folder;
};

void CatalogComparisonTest::compare(CatalogComparison &comparison, const QByteArray &before,
                                    const QByteArray &after) const
{
    comparison.setForm(CatalogComparison::Old, CatalogChecker::Form::Readable);
    comparison.setForm(CatalogComparison::New, CatalogChecker::Form::Readable);
    QVERIFY(
        comparison.compare(m_folder.write(text("old.xml"), before), m_folder.write(text("new.xml"), after)));
}

// What comes of the edits of a case.
QString CatalogComparisonTest::told(const QString &edits) const
{
    QString before = contentOf(QFINDTESTDATA("frame.xml"));
    QString after = before;
    edit(after, text("<CAT_Version>1=><CAT_Version>2"));
    for (const QString &line : edits.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QString how = line.section(text(": "), 1);
        if (!line.startsWith(text("new")))
            edit(before, how);
        if (!line.startsWith(text("old")))
            edit(after, how);
    }
    CatalogComparison comparison;
    compare(comparison, before.toUtf8(), after.toUtf8());
    return linesOf(comparison);
}

void CatalogComparisonTest::tellsTheChangesOfCases()
{
    const QString path = QFINDTESTDATA("changes.txt");
    const QString page = contentOf(path);
    QStringList cases = page.split(text("\n== "));
    QString actual = cases.takeFirst();
    for (const QString &one : qAsConst(cases)) {
        const QString edits = one.left(one.indexOf(text("\n--\n")));
        actual += text("\n== ") + edits + text("\n--\n") + told(edits.section(QLatin1Char('\n'), 1));
    }
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(actual.toUtf8()) > 0);
    }
    const QStringList lines = actual.split(QLatin1Char('\n'));
    const QStringList expected = contentOf(path).split(QLatin1Char('\n'));
    for (int line = 0; line < qMin(lines.size(), expected.size()); ++line)
        QCOMPARE(lines.at(line), expected.at(line));
    QVERIFY2(lines == expected, "Run this test with ORVIDA_UPDATE=1 to rewrite changes.txt, and look at it.");
}

void CatalogComparisonTest::hasACaseForEachKind()
{
    const QString page = contentOf(QFINDTESTDATA("changes.txt"));
    for (const CatalogChangeKind &kind : CatalogComparison::kinds())
        QVERIFY2(page.contains(QLatin1Char(' ') + kind.id + QLatin1Char(' ')), qPrintable(kind.id));
}

void CatalogComparisonTest::tellsNothingOfTheSameCatalog_data()
{
    QTest::addColumn<bool>("isShuffled");
    QTest::addColumn<bool>("isScrambled");
    QTest::newRow("itself") << false << false;
    QTest::newRow("scrambled") << false << true;
    QTest::newRow("shuffled") << true << false;
    QTest::newRow("shuffled and scrambled") << true << true;
}

void CatalogComparisonTest::tellsNothingOfTheSameCatalog()
{
    QFETCH(bool, isShuffled);
    QFETCH(bool, isScrambled);
    const QByteArray sample = contentOf(text(ORVIDA_SOURCES "/samples/tunnels.xml")).toUtf8();
    CatalogEdits edits(sample, 7);
    if (isShuffled)
        edits.shuffle();
    const QByteArray other = isScrambled ? scrambledForm(edits.xml()) : edits.xml();
    CatalogComparison comparison;
    comparison.setForm(CatalogComparison::Old, CatalogChecker::Form::Readable);
    comparison.setForm(CatalogComparison::New,
                       isScrambled ? CatalogChecker::Form::Scrambled : CatalogChecker::Form::Readable);
    QVERIFY(
        comparison.compare(m_folder.write(text("old.xml"), sample), m_folder.write(text("new.xml"), other)));
    QCOMPARE(shortLinesOf(comparison), QStringList());
    QCOMPARE(comparison.count(CatalogChangeClass::Hidden) > 0, isShuffled);
    QCOMPARE(comparison.errorCount(CatalogComparison::New), 0);
}

void CatalogComparisonTest::tellsWhatWasEdited_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 25; ++seed)
        QTest::addRow("%d", seed) << seed;
}

// Each edit is told as what it is, and nothing else is; the other way round, additions are removals.
void CatalogComparisonTest::tellsWhatWasEdited()
{
    QFETCH(int, seed);
    const QByteArray sample = contentOf(text(ORVIDA_SOURCES "/samples/tunnels.xml")).toUtf8();
    CatalogEdits edits(sample, quint32(seed));
    const QByteArray before = edits.xml();
    edits.editSome(12);
    edits.shuffle();
    QStringList expected = edits.expected();
    expected.sort();
    CatalogComparison comparison;
    compare(comparison, before, edits.xml());
    QCOMPARE(shortLinesOf(comparison).join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
    const QString forth = linesOf(comparison);
    qSetGlobalQHashSeed(0);
    compare(comparison, before, edits.xml());
    qSetGlobalQHashSeed(-1);
    QCOMPARE(linesOf(comparison), forth);

    QStringList mirrored = edits.mirrored();
    mirrored.sort();
    compare(comparison, edits.xml(), before);
    QStringList back;
    for (const QString &line : shortLinesOf(comparison)) {
        if (CatalogEdits::isMirrored(line))
            back << line;
    }
    QCOMPARE(back.join(QLatin1Char('\n')), mirrored.join(QLatin1Char('\n')));
}

void CatalogComparisonTest::leavesOutOtherProfiles()
{
    const QByteArray sample = contentOf(text(ORVIDA_SOURCES "/samples/tunnels.xml")).toUtf8();
    const QByteArray edited = QByteArray(sample).replace("LC-RAIL-MAT</LIST_Class_FK><LIST_Internal>FO",
                                                         "LC-RAIL-MAT</LIST_Class_FK><LIST_Internal>FX");
    CatalogComparison comparison;
    const auto countIn = [&](const char *profile) {
        comparison.setProfile(profile ? text(profile) : QString());
        compare(comparison, sample, edited);
        return comparison.count(CatalogChangeClass::Breaking);
    };
    QCOMPARE(countIn(nullptr), 1);
    QCOMPARE(countIn("RAIL"), 1);
    QCOMPARE(countIn("ROUTE"), 0);
    QCOMPARE(countIn("no such profile"), 0);
}

void CatalogComparisonTest::tellsWhyAFileDoesNotLoad()
{
    using Orvida::Catalogs::CatalogReadFailure;
    const QString good =
        m_folder.write(text("good.xml"), catalogXml("<CLASS><CLASS_PK>C</CLASS_PK></CLASS>"));
    const QString cut = m_folder.write(text("cut.xml"), "<OVCAT><CLASS>");
    const QString refused = m_folder.write(text("refused.xml"), catalogXml("<CLASS></CLASS>"));
    CatalogComparison comparison;
    QVERIFY(comparison.compare(good, good));
    QVERIFY(!comparison.compare(cut, refused));
    QCOMPARE(comparison.changes().size(), 0);
    QCOMPARE(comparison.failure(CatalogComparison::Old).reason, CatalogReadFailure::NotWellFormed);
    QCOMPARE(comparison.failure(CatalogComparison::New).reason, CatalogReadFailure::RecordRefused);
    QVERIFY(!comparison.compare(good, m_folder.path(text("missing.xml"))));
    QCOMPARE(comparison.failure(CatalogComparison::Old).reason, CatalogReadFailure::None);
    QCOMPARE(comparison.failure(CatalogComparison::New).reason, CatalogReadFailure::FileNotRead);
}

namespace {

constexpr int many = 10000;

// Base codes with keys, codes and captions that `write` gives for their numbers.
template <typename Write>
QByteArray manyCodes(int version, Write write)
{
    QByteArray records = "<CATALOG><CAT_Version>" + QByteArray::number(version)
                         + "</CAT_Version></CATALOG><CLASS><CLASS_PK>C</CLASS_PK></CLASS>\n";
    for (int number = 0; number < many; ++number)
        records +=
            "<BASECODE><BC_Class_FK>C</BC_Class_FK>" + write(QByteArray::number(number)) + "</BASECODE>\n";
    return catalogXml(records);
}

} // namespace

// A code that thousands of items have: the items are known by their keys, and otherwise by order.
void CatalogComparisonTest::comparesManyItemsOfOneCode()
{
    const auto one = [](const QByteArray &key) {
        return manyCodes(1, [&](const QByteArray &number) {
            return "<BC_PK>" + key + number + "</BC_PK><BC_Code>A</BC_Code><BC_Item>Crack</BC_Item>";
        });
    };
    CatalogComparison comparison;
    compare(comparison, one("k"), one("k"));
    QCOMPARE(comparison.changes().size(), 0);
    compare(comparison, one("k"), one("m"));
    QCOMPARE(comparison.changes().size(), many + 1); // and the version
    QCOMPARE(comparison.changes().last().id, text("code-key-changed"));
}

void CatalogComparisonTest::comparesManyRenamedCodes_data()
{
    QTest::addColumn<QByteArray>("newCaption");
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("count");
    QTest::newRow("same captions") << QByteArray("Crack %1 of a wall") << text("code-renamed") << many;
    QTest::newRow("similar captions")
        << QByteArray("Cracks %1 of walls") << text("code-perhaps-renamed") << many;
    QTest::newRow("other captions") << QByteArray("Water %1") << text("code-removed") << many;
}

void CatalogComparisonTest::comparesManyRenamedCodes()
{
    QFETCH(QByteArray, newCaption);
    QFETCH(QString, id);
    QFETCH(int, count);
    const auto codes = [](int version, const QByteArray &key, const QByteArray &caption) {
        return manyCodes(version, [&](const QByteArray &number) {
            return "<BC_PK>" + key + number + "</BC_PK><BC_Code>" + key + number + "</BC_Code><BC_Item>"
                   + QByteArray(caption).replace("%1", number) + "</BC_Item>";
        });
    };
    CatalogComparison comparison;
    compare(comparison, codes(1, "k", "Crack %1 of a wall"), codes(2, "m", newCaption));
    const auto &changes = comparison.changes();
    QCOMPARE(int(std::count_if(changes.begin(), changes.end(),
                               [&id](const CatalogChange &change) { return change.id == id; })),
             count);
}

// The table of docs/comparing.md.
void CatalogComparisonTest::isWhatTheManualSays()
{
    QString table = text("| id | class | what has happened |\n|---|---|---|\n");
    QString explanations;
    for (const CatalogChangeKind &kind : CatalogComparison::kinds()) {
        table += text("| [`%1`](#%1) | %2 | %3 |\n").arg(kind.id, className(kind.changeClass), kind.summary);
        explanations += text("\n### %1\n\n%2\n").arg(kind.id, kind.explanation);
    }
    const QString path = text(ORVIDA_SOURCES "/docs/comparing.md");
    const QString heading = text("## All kinds of changes\n");
    const QString page = contentOf(path);
    const QString expected =
        page.left(page.indexOf(heading)) + heading + QLatin1Char('\n') + table + explanations;
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(expected.toUtf8()) > 0);
    }
    QVERIFY2(contentOf(path) == expected, "Run this test with ORVIDA_UPDATE=1 to rewrite docs/comparing.md.");
}

QTEST_GUILESS_MAIN(CatalogComparisonTest)
#include "CatalogComparisonTest.moc"
