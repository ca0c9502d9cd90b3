// Which profile of a file becomes the catalog's current one.

#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QVector>
#include <QtTest>

#include <algorithm>
#include <climits>
#include <functional>
#include <numeric>
#include <random>

using Orvida::Catalogs::Catalog;
using Orvida::Catalogs::CatalogLoader;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Tests::CatalogFolder;
using Orvida::Tests::catalogXml;
using Orvida::Tests::field;

namespace {

enum Mark { NoMark = 0, Start = 1, Application = 2, Both = 3 };

QByteArray profile(const QString &key, const QString &sortOrder)
{
    return "<CATPRO>\n" + field("PRO_PK", key) + field("PRO_SortOrder", sortOrder) + "</CATPRO>\n";
}

QByteArray profile(const char *key, int sortOrder)
{
    return profile(QString::fromUtf8(key), QString::number(sortOrder));
}

QByteArray marked(const char *profileKey, Mark mark)
{
    const auto flag = [mark](Mark which) {
        return mark & which ? QStringLiteral("true") : QStringLiteral("false");
    };
    return "<CPX>\n" + field("CPX_PK", QStringLiteral("X"))
           + field("CPX_Profile_FK", QString::fromUtf8(profileKey)) + field("CPX_IsStart", flag(Start))
           + field("CPX_IsOrvida", flag(Application)) + "</CPX>\n";
}

// Each profile's key is its place in the file.
QByteArray profilesWith(const QVector<int> &sortOrders)
{
    QByteArray records;
    for (int place = 0; place < sortOrders.size(); ++place)
        records += profile(QString::number(place), QString::number(sortOrders.at(place)));
    return records;
}

// The introspective sort by which hosts know the order of equal sort orders, written down plainly: it puts
// the places 0 to length - 1 in order.
class ReferenceSort
{
public:
    using Less = std::function<bool(int, int)>;

    ReferenceSort(int length, Less isLess) : m_places(length), m_isLess(std::move(isLess))
    {
        std::iota(m_places.begin(), m_places.end(), 0);
        int depthBudget = 0;
        for (int rest = length; rest > 1; rest /= 2)
            depthBudget += 2;
        divide(0, length, depthBudget);
        for (int place = 1; place < length; ++place)
            insert(place);
    }

    int firstPlace() const { return m_places.first(); }
    /// How many elements at the front of the list were left to the heap sort.
    int heapSortedAtFront() const { return m_heapSortedAtFront; }

private:
    bool isLess(int a, int b) const { return m_isLess(m_places.at(a), m_places.at(b)); }
    void swap(int a, int b) { std::swap(m_places[a], m_places[b]); }

    void divide(int first, int last, int depthBudget)
    {
        while (last - first > 16) {
            if (depthBudget == 0) {
                heapSort(first, last);
                return;
            }
            --depthBudget;
            const int cut = partition(first, last);
            divide(cut, last, depthBudget);
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
        swap(first, medianOf(first + 1, first + (last - first) / 2, last - 1));
        int low = first + 1;
        int high = last;
        while (true) {
            while (isLess(low, first))
                ++low;
            --high;
            while (isLess(first, high))
                --high;
            if (low >= high)
                return low;
            swap(low, high);
            ++low;
        }
    }

    void heapSort(int first, int last)
    {
        if (first == 0)
            m_heapSortedAtFront = last;
        std::make_heap(m_places.begin() + first, m_places.begin() + last, m_isLess);
        std::sort_heap(m_places.begin() + first, m_places.begin() + last, m_isLess);
    }

    void insert(int place)
    {
        for (; place > 0 && isLess(place, place - 1); --place)
            swap(place, place - 1);
    }

    QVector<int> m_places;
    Less m_isLess;
    int m_heapSortedAtFront = 0;
};

ReferenceSort sortedByReference(const QVector<int> &sortOrders)
{
    return ReferenceSort(sortOrders.size(),
                         [&sortOrders](int a, int b) { return sortOrders.at(a) < sortOrders.at(b); });
}

// Looks at the sort while it runs and chooses the sort orders so that each pivot turns out to be among the
// greatest of its range: hardly anything is cut off at the back until the depth budget is used up.
class SortOrderChooser
{
public:
    explicit SortOrderChooser(int length) : m_sortOrders(length, -length), m_undecided(-length) {}

    bool isLess(int a, int b)
    {
        if (m_sortOrders.at(a) == m_undecided && m_sortOrders.at(b) == m_undecided)
            m_sortOrders[a == m_candidate ? a : b] = m_next--;
        if (m_sortOrders.at(a) == m_undecided)
            m_candidate = a;
        else if (m_sortOrders.at(b) == m_undecided)
            m_candidate = b;
        return m_sortOrders.at(a) < m_sortOrders.at(b);
    }

    const QVector<int> &sortOrders() const { return m_sortOrders; }

private:
    QVector<int> m_sortOrders;
    int m_undecided;
    int m_next = 0;
    int m_candidate = 0;
};

// A list whose pivots are all bad, with its `ties` lowest sort orders made equal.
QVector<int> worstCase(int length, int ties)
{
    SortOrderChooser chooser(length);
    ReferenceSort(length, [&chooser](int a, int b) { return chooser.isLess(a, b); });
    QVector<int> sortOrders = chooser.sortOrders();
    QVector<int> ascending = sortOrders;
    std::sort(ascending.begin(), ascending.end());
    for (int &sortOrder : sortOrders)
        sortOrder = std::max(sortOrder, ascending.at(ties - 1));
    return sortOrders;
}

} // namespace

class ProfileResolutionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesOneProfile_data();
    void choosesOneProfile();
    void placesEqualSortOrdersAsKnown_data();
    void placesEqualSortOrdersAsKnown();
    void placesEqualSortOrdersOfRandomLists_data();
    void placesEqualSortOrdersOfRandomLists();
    void survivesTheWorstOrder_data();
    void survivesTheWorstOrder();

private:
    QString chosenProfile(const QByteArray &records)
    {
        const QString path = m_folder.write(QStringLiteral("catalog.xml"), catalogXml(records));
        const CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("id"));
        return catalog->IsValid() ? catalog->profile() : QStringLiteral("not loaded");
    }

    CatalogFolder m_folder;
};

void ProfileResolutionTest::choosesOneProfile_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("chosen");

    const QByteArray a = profile("A", 2);
    const QByteArray b = profile("B", 1);
    const QByteArray c = profile("C", 3);
    QTest::newRow("no profile") << QByteArray() << QString();
    QTest::newRow("marks without a profile") << marked("A", Start) + marked("A", Application) << QString();
    QTest::newRow("one profile") << a << "A";
    QTest::newRow("one profile, others marked") << a + marked("X", Start) + marked("Y", Application) << "A";

    QTest::newRow("lowest sort order") << a + b + c << "B";
    QTest::newRow("negative sort order") << profile("A", 0) + profile("B", -1) << "B";
    QTest::newRow("extreme sort orders") << profile("A", INT_MAX) + profile("B", INT_MIN) << "B";
    QTest::newRow("no sort order counts as 0") << a + "<CATPRO><PRO_PK>B</PRO_PK></CATPRO>"
                                               << "B";
    QTest::newRow("no number counts as 0") << b + profile(QStringLiteral("A"), QStringLiteral("none")) << "A";
    QTest::newRow("numbers, not texts") << profile("A", 10) + profile("B", 9) << "B";
    QTest::newRow("three equal") << profile("A", 1) + profile("B", 1) + profile("C", 1) << "A";
    QTest::newRow("equal ones behind a greater one")
        << profile("A", 2) + profile("B", 1) + profile("C", 1) + profile("D", 2) << "B";
    QTest::newRow("16 equal") << profilesWith(QVector<int>(16, 5)) << "0";
    QTest::newRow("16 in pairs") << profilesWith({8, 8, 7, 7, 6, 6, 5, 5, 1, 1, 2, 2, 3, 3, 4, 4}) << "8";

    QTest::newRow("start mark") << a + b + c + marked("C", Start) << "C";
    QTest::newRow("application mark") << a + b + c + marked("C", Application) << "C";
    QTest::newRow("extension without mark") << a + b + c + marked("C", NoMark) << "B";
    QTest::newRow("start mark before application mark")
        << a + b + marked("B", Application) + marked("A", Start) << "A";
    QTest::newRow("both marks in one") << a + b + c + marked("C", Both) + marked("A", Start) << "C";
    QTest::newRow("extensions without mark are passed over")
        << a + b + c + marked("A", NoMark) + marked("C", Start) << "C";
    QTest::newRow("marks before profiles") << marked("A", Start) + a + b << "A";

    QTest::newRow("first of two start marks") << a + b + c + marked("C", Start) + marked("A", Start) << "C";
    QTest::newRow("first of two application marks")
        << a + b + c + marked("C", Application) + marked("A", Application) << "C";
    QTest::newRow("only the first start mark is tried")
        << a + b + c + marked("X", Start) + marked("A", Start) + marked("C", Application) << "C";
    QTest::newRow("only the first start mark is tried, no other mark")
        << a + b + marked("X", Start) + marked("A", Start) << "B";
    QTest::newRow("only the first application mark is tried")
        << a + b + marked("X", Application) + marked("A", Application) << "B";
    QTest::newRow("both marks on a missing profile")
        << a + b + marked("X", Both) + marked("A", Application) << "B";
    QTest::newRow("an application mark behind both on a missing profile does not help a start mark")
        << a + b + c + marked("X", Start) + marked("Y", Application) + marked("C", Both) << "B";

    QTest::newRow("letter case of the start key")
        << profile("p0", 1) + profile("P1", 2) + marked("p1", Start) << "p0";
    QTest::newRow("letter case of the application key")
        << profile("p0", 1) + profile("P1", 2) + marked("p1", Application) << "p0";
    QTest::newRow("blank in the key") << profile("A", 1) + profile("B ", 2) + marked("B", Start) << "A";
}

void ProfileResolutionTest::choosesOneProfile()
{
    QFETCH(QByteArray, records);
    QFETCH(QString, chosen);
    const QString actual = chosenProfile(records);
    QCOMPARE(actual, chosen);
    QCOMPARE(actual.isNull(), chosen.isNull());
}

// Written out, so that a change of the reference is noticed as well.
void ProfileResolutionTest::placesEqualSortOrdersAsKnown_data()
{
    QTest::addColumn<QVector<int>>("sortOrders");
    QTest::addColumn<int>("place");

    QTest::newRow("17 equal") << QVector<int>(17, 0) << 8;
    QTest::newRow("33 equal") << QVector<int>(33, -4) << 25;
    QTest::newRow("200 equal") << QVector<int>(200, 7) << 138;
    QTest::newRow("40, worst order") << worstCase(40, 3) << 27;
    QTest::newRow("200, worst order") << worstCase(200, 60) << 160;
}

void ProfileResolutionTest::placesEqualSortOrdersAsKnown()
{
    QFETCH(QVector<int>, sortOrders);
    QFETCH(int, place);
    QCOMPARE(sortedByReference(sortOrders).firstPlace(), place);
    QCOMPARE(chosenProfile(profilesWith(sortOrders)), QString::number(place));
}

void ProfileResolutionTest::placesEqualSortOrdersOfRandomLists_data()
{
    QTest::addColumn<int>("differentSortOrders");

    for (int count : {1, 2, 4, 12})
        QTest::addRow("%d different", count) << count;
}

void ProfileResolutionTest::placesEqualSortOrdersOfRandomLists()
{
    QFETCH(int, differentSortOrders);
    // Not std::uniform_int_distribution, which differs between standard libraries.
    std::mt19937 random(20240301);
    for (int length = 17; length <= 200; ++length) {
        QVector<int> sortOrders(length);
        for (int &sortOrder : sortOrders)
            sortOrder = static_cast<int>(random() % static_cast<unsigned>(differentSortOrders)) - 1;
        const QString expected = QString::number(sortedByReference(sortOrders).firstPlace());
        const QString actual = chosenProfile(profilesWith(sortOrders));
        if (actual != expected)
            QFAIL(qPrintable(QStringLiteral("%1 of %2, not %3").arg(actual).arg(length).arg(expected)));
    }
}

void ProfileResolutionTest::survivesTheWorstOrder_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("ties");

    for (int length : {40, 100, 200}) {
        for (int ties : {1, 2, 3, 5, 10, 20})
            QTest::addRow("%d with %d equal", length, ties) << length << ties;
    }
}

void ProfileResolutionTest::survivesTheWorstOrder()
{
    QFETCH(int, length);
    QFETCH(int, ties);
    const QVector<int> sortOrders = worstCase(length, ties);
    const ReferenceSort sort = sortedByReference(sortOrders);
    QVERIFY(sort.heapSortedAtFront() > 16);
    QVERIFY(sort.heapSortedAtFront() > ties);
    QCOMPARE(chosenProfile(profilesWith(sortOrders)), QString::number(sort.firstPlace()));
}

QTEST_GUILESS_MAIN(ProfileResolutionTest)

#include "ProfileResolutionTest.moc"
