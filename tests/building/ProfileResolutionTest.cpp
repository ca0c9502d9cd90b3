// Which profile of a file becomes the catalog's current one.

#include "support/TestSupport.h"

#include <QVector>
#include <QtTest>

#include <climits>

using namespace Orvida::Tests;
using Numbers = QVector<int>;

namespace {

QByteArray profile(const QByteArray &key, int sortOrder)
{
    return "<CATPRO><PRO_PK>" + key + "</PRO_PK><PRO_SortOrder>" + QByteArray::number(sortOrder)
           + "</PRO_SortOrder></CATPRO>";
}

QByteArray marked(const QByteArray &profileKey, const QByteArray &marks)
{
    return "<CPX><CPX_PK>X</CPX_PK><CPX_Profile_FK>" + profileKey + "</CPX_Profile_FK>" + marks + "</CPX>";
}

// The index in the file of the profile that is chosen among profiles with these sort orders, which is then
// the first of those that the catalog offers; -1 when the catalog offers others.
int chosenIndex(const Numbers &sortOrders)
{
    QByteArray profiles;
    for (int index = 0; index < sortOrders.size(); ++index)
        profiles += profile(QByteArray::number(index), sortOrders.at(index));
    const auto catalog = loaded(profiles);
    const auto &offered = catalog->profiles();
    return offered.size() == sortOrders.size() && offered.first().key == catalog->profile()
               ? catalog->profile().toInt()
               : -1;
}

} // namespace

class ProfileResolutionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesOneProfile_data();
    void choosesOneProfile();
    void choosesAmongEqualSortOrdersAsWritten_data();
    void choosesAmongEqualSortOrdersAsWritten();
    void offersEachKeyOnceByAscendingSortOrder();
};

void ProfileResolutionTest::choosesOneProfile_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("chosen");
    const auto row = [](const char *name, const QByteArray &records, const char *chosen) {
        QTest::newRow(name) << records << text(chosen);
    };
    const QByteArray start = "<CPX_IsStart>true</CPX_IsStart>";
    const QByteArray application = "<CPX_IsOrvida>true</CPX_IsOrvida>";
    const QByteArray abc = profile("A", 10) + profile("B", 9) + profile("C", 11);
    row("marks without a profile", marked("A", start) + marked("A", application), "");
    row("no mark: lowest sort order, by number", abc + marked("C", "<CPX_IsStart>false</CPX_IsStart>"), "B");
    row("extreme sort orders", profile("A", INT_MAX) + profile("B", INT_MIN), "B");
    row("no sort order counts as 0", profile("A", 1) + "<CATPRO><PRO_PK>B</PRO_PK></CATPRO>", "B");
    row("start mark before application mark", abc + marked("C", application) + marked("A", start), "A");
    row("both marks in one", abc + marked("C", start + application) + marked("A", start), "C");
    row("application mark, before the profiles", marked("C", application) + abc, "C");
    row("extension without mark is passed over", abc + marked("A", "") + marked("C", start), "C");
    row("first of two start marks", abc + marked("C", start) + marked("A", start), "C");
    row("first of two application marks", abc + marked("C", application) + marked("A", application), "C");
    row("only the first start mark is tried",
        abc + marked("X", start) + marked("A", start) + marked("C", application), "C");
    row("only the first application mark is tried",
        abc + marked("X", start + application) + marked("A", application), "B");
    row("letter case of the key", abc + marked("c", start) + marked("a", application), "B");
}

void ProfileResolutionTest::choosesOneProfile()
{
    QFETCH(QByteArray, records);
    const auto catalog = loaded(records);
    QVERIFY(catalog->IsValid());
    QTEST(catalog->profile(), "chosen");
}

// The choices for 1 profile, 2, 3 and so on, with the sort orders 0, 7, 14 and so on, modulo a number. Up to
// 16 profiles keep their file order. Hosts depend on these choices, of which none follows from another.
void ProfileResolutionTest::choosesAmongEqualSortOrdersAsWritten_data()
{
    QTest::addColumn<Numbers>("chosen");
    QTest::newRow("1") << Numbers{0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,
                                  8,  9,  9,  10, 10, 11, 11, 12, 12, 13, 13, 14, 14, 15, 15, 16,
                                  25, 26, 26, 27, 28, 29, 29, 30, 31, 32, 32, 33, 34, 35, 35, 36};
    QTest::newRow("2") << Numbers{0,  0,  0,  0,  0,  0,  0,  0, 0,  0,  0,  0,  0,  0,  0,  0,
                                  8,  2,  18, 0,  10, 2,  22, 0, 12, 18, 22, 0,  14, 10, 10, 10,
                                  16, 28, 12, 12, 18, 10, 32, 0, 20, 14, 14, 14, 22, 38, 16, 16};
    QTest::newRow("5") << Numbers{0, 0,  0,  0,  0,  0,  0,  0,  0,  0,  0, 0,  0,  0,  0,  0,
                                  0, 15, 0,  0,  10, 20, 0,  0,  15, 25, 0, 20, 0,  0,  15, 0,
                                  0, 0,  15, 35, 0,  25, 10, 10, 20, 0,  0, 0,  15, 45, 0,  20};
}

void ProfileResolutionTest::choosesAmongEqualSortOrdersAsWritten()
{
    Numbers sortOrders, chosen;
    const int modulus = QByteArray(QTest::currentDataTag()).toInt();
    for (int count = 1; count <= 48; ++count) {
        sortOrders += 7 * (count - 1) % modulus;
        chosen += chosenIndex(sortOrders);
    }
    QTEST(chosen, "chosen");
    QCOMPARE(chosenIndex(Numbers(200, 7)), 138);
    // Each pivot is among the greatest of its range, so that 17 are left to the heap sort.
    QCOMPARE(chosenIndex({14, 0, 3,  7,  6,  5, 8,  0,  0,  15, 17, 19, 21, 23, 25, 27, 29, 31,
                          33, 2, 16, 11, 18, 1, 20, 12, 22, 4,  24, 9,  26, 13, 28, 10, 30, 32}),
             7);
}

// A mark changes the choice, not the order.
void ProfileResolutionTest::offersEachKeyOnceByAscendingSortOrder()
{
    const auto described = [](QByteArray record, const QByteArray &description) {
        return record.replace("</CATPRO>", "<PRO_Description>" + description + "</PRO_Description></CATPRO>");
    };
    const auto catalog = loaded(described(profile("A", 3), "late") + described(profile("B", 2), "second")
                                + described(profile("A", 1), "first") + profile("b", -1)
                                + marked("B", "<CPX_IsStart>true</CPX_IsStart>"));
    QStringList offered;
    for (const auto &profile : catalog->profiles())
        offered << profile.key + text(": ") + profile.description;
    QCOMPARE(offered, QStringList({text("b: "), text("A: first"), text("B: second")}));
    QCOMPARE(catalog->profile(), text("B"));
}

QTEST_GUILESS_MAIN(ProfileResolutionTest)

#include "ProfileResolutionTest.moc"
