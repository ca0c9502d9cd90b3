// Which profile of a file becomes the catalog's current one.

#include "support/TestSupport.h"

#include <QVector>
#include <QtTest>

#include <climits>
#include <numeric>
#include <random>

using Orvida::Tests::loaded;
using Orvida::Tests::recordsFrom;

namespace {

QByteArray profile(const QByteArray &key, int sortOrder)
{
    return recordsFrom("CATPRO PK=" + key + ";SortOrder=" + QByteArray::number(sortOrder));
}

const QByteArray start = "IsStart=true;";
const QByteArray application = "IsOrvida=true;";

QByteArray marked(const QByteArray &profileKey, const QByteArray &marks)
{
    return recordsFrom("CPX PK=X;Profile_FK=" + profileKey + ';' + marks);
}

// The place in the file of the profile that is chosen among profiles with these sort orders.
int chosenPlace(const QVector<int> &sortOrders)
{
    QByteArray profiles;
    for (int place = 0; place < sortOrders.size(); ++place)
        profiles += profile(QByteArray::number(place), sortOrders.at(place));
    return loaded(profiles)->profile().toInt();
}

// The introspective sort by which hosts know the order of equal sort orders, written down plainly. Its heap
// sort is left out: only lists in which nearly every pivot is bad come to it.
class ReferenceSort
{
public:
    explicit ReferenceSort(const QVector<int> &sortOrders)
        : m_sortOrders(sortOrders), m_places(sortOrders.size())
    {
        std::iota(m_places.begin(), m_places.end(), 0);
        divide(0, m_places.size());
        for (int end = 1; end < m_places.size(); ++end) {
            for (int place = end; place > 0 && isLess(place, place - 1); --place)
                m_places.swapItemsAt(place, place - 1);
        }
    }

    int firstPlace() const { return m_places.first(); }

private:
    bool isLess(int a, int b) const
    {
        return m_sortOrders.at(m_places.at(a)) < m_sortOrders.at(m_places.at(b));
    }

    void divide(int first, int last)
    {
        while (last - first > 16) {
            const int cut = partition(first, last);
            divide(cut, last);
            last = cut;
        }
    }

    int medianOf(int a, int b, int c) const
    {
        if (isLess(a, b))
            return isLess(b, c) ? b : isLess(a, c) ? c : a;
        return isLess(a, c) ? a : isLess(b, c) ? c : b;
    }

    int partition(int first, int last)
    {
        m_places.swapItemsAt(first, medianOf(first + 1, first + (last - first) / 2, last - 1));
        for (int low = first + 1, high = last;; ++low) {
            while (isLess(low, first))
                ++low;
            --high;
            while (isLess(first, high))
                --high;
            if (low >= high)
                return low;
            m_places.swapItemsAt(low, high);
        }
    }

    const QVector<int> m_sortOrders;
    QVector<int> m_places;
};

} // namespace

class ProfileResolutionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesOneProfile_data();
    void choosesOneProfile();
    void placesEqualSortOrdersAsKnown();
    void placesEqualSortOrdersOfRandomLists();
};

void ProfileResolutionTest::choosesOneProfile_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("chosen");

    const auto row = [](const char *name, const QByteArray &records, const char *chosen) {
        QTest::newRow(name) << records << QString::fromUtf8(chosen);
    };
    const QByteArray abc = profile("A", 10) + profile("B", 9) + profile("C", 11);
    row("marks without a profile", marked("A", start) + marked("A", application), "");
    row("no mark: lowest sort order, by number", abc + marked("C", "IsStart=false"), "B");
    row("extreme sort orders", profile("A", INT_MAX) + profile("B", INT_MIN), "B");
    row("no sort order counts as 0", profile("A", 1) + recordsFrom("CATPRO PK=B"), "B");
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

// Written out, so that a change of the reference is noticed as well.
void ProfileResolutionTest::placesEqualSortOrdersAsKnown()
{
    QCOMPARE(chosenPlace(QVector<int>(17, 0)), 8);
    QCOMPARE(chosenPlace(QVector<int>(200, 7)), 138);
    // Each pivot is among the greatest of its range, so that 17 are left to the heap sort.
    const QVector<int> worst = {14, 0, 3,  7,  6,  5, 8,  0,  0,  15, 17, 19, 21, 23, 25, 27, 29, 31,
                                33, 2, 16, 11, 18, 1, 20, 12, 22, 4,  24, 9,  26, 13, 28, 10, 30, 32};
    QCOMPARE(chosenPlace(worst), 7);
    QCOMPARE(ReferenceSort(worst).firstPlace(), 1); // without the heap sort
}

void ProfileResolutionTest::placesEqualSortOrdersOfRandomLists()
{
    // Not std::uniform_int_distribution, which differs between standard libraries.
    std::mt19937 random(20240301);
    for (unsigned differentSortOrders : {1U, 2U, 4U, 12U}) {
        for (int length = 1; length <= 200; ++length) {
            QVector<int> sortOrders(length);
            for (int &sortOrder : sortOrders)
                sortOrder = static_cast<int>(random() % differentSortOrders) - 1;
            QCOMPARE(chosenPlace(sortOrders), ReferenceSort(sortOrders).firstPlace());
        }
    }
}

QTEST_GUILESS_MAIN(ProfileResolutionTest)

#include "ProfileResolutionTest.moc"
