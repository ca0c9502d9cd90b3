// The ordering by sort order, compared with the algorithm whose ties it keeps.

#include "catalogs/model/SortOrdering_p.h"

#include <QThread>
#include <QVector>
#include <QtAlgorithms>
#include <QtTest>

#include <algorithm>
#include <climits>
#include <functional>
#include <random>
#include <vector>

using Orvida::Catalogs::orderBySortOrder;

namespace {

// The tag tells elements of one sort order apart.
struct Element
{
    int sortOrder;
    int tag;
};

bool isLess(const Element &a, const Element &b)
{
    return a.sortOrder < b.sortOrder;
}

bool operator==(const Element &a, const Element &b)
{
    return a.sortOrder == b.sortOrder && a.tag == b.tag;
}

QList<Element> tagged(const QVector<int> &sortOrders)
{
    QList<Element> list;
    for (int sortOrder : sortOrders)
        list.append({sortOrder, list.size()});
    return list;
}

QList<Element> ordered(QList<Element> list)
{
    orderBySortOrder(list, [](const Element &element) { return element.sortOrder; });
    return list;
}

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
template <typename Iterator, typename LessThan>
void sortByQt(Iterator begin, Iterator end, LessThan lessThan)
{
    qSort(begin, end, lessThan);
}
QT_WARNING_POP

QList<Element> orderedByQt(QList<Element> list)
{
    sortByQt(list.begin(), list.end(), isLess);
    return list;
}

QString toText(const QList<Element> &list)
{
    QString text;
    for (const Element &element : list)
        text += QStringLiteral("%1#%2 ").arg(element.sortOrder).arg(element.tag);
    return text;
}

// Looks at a quicksort while it runs, and chooses the keys so that each pivot turns out to be the greatest
// (or the smallest) key of its range but one or two.
class KeyChooser
{
public:
    KeyChooser(int length, bool pivotsAreGreat)
        : m_keys(length, length), m_undecided(length), m_pivotsAreGreat(pivotsAreGreat)
    {
    }

    bool isLess(int a, int b)
    {
        if (m_keys[a] == m_undecided && m_keys[b] == m_undecided)
            m_keys[a == m_candidate ? a : b] = m_next++;
        if (m_keys[a] == m_undecided)
            m_candidate = a;
        else if (m_keys[b] == m_undecided)
            m_candidate = b;
        return m_pivotsAreGreat ? m_keys[b] < m_keys[a] : m_keys[a] < m_keys[b];
    }

    QVector<int> keys() const
    {
        QVector<int> keys;
        for (int key : m_keys)
            keys.append(m_pivotsAreGreat ? -key : key);
        return keys;
    }

private:
    std::vector<int> m_keys;
    int m_undecided;
    int m_next = 0;
    int m_candidate = 0;
    bool m_pivotsAreGreat;
};

QVector<int> worstCase(int length, bool pivotsAreGreat)
{
    KeyChooser chooser(length, pivotsAreGreat);
    std::vector<int> places(static_cast<std::size_t>(length));
    for (int place = 0; place < length; ++place)
        places[static_cast<std::size_t>(place)] = place;
    sortByQt(places.begin(), places.end(), [&chooser](int a, int b) { return chooser.isLess(a, b); });
    return chooser.keys();
}

QVector<int> organPipe(int length)
{
    QVector<int> keys;
    for (int place = 0; place < length; ++place)
        keys.append(std::min(place, length - 1 - place));
    return keys;
}

} // namespace

class SortOrderingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesEqualSortOrders_data();
    void placesEqualSortOrders();
    void ordersRandomListsAsQt_data();
    void ordersRandomListsAsQt();
    void ordersOnASmallStack_data();
    void ordersOnASmallStack();
};

void SortOrderingTest::placesEqualSortOrders_data()
{
    QTest::addColumn<QVector<int>>("sortOrders");
    QTest::addColumn<QString>("places");

    QTest::newRow("none") << QVector<int>{} << "";
    QTest::newRow("one") << QVector<int>{7} << "A";
    QTest::newRow("all different") << QVector<int>{30, 10, 20} << "BCA";
    QTest::newRow("negative ones first") << QVector<int>{0, -1, 1, -2} << "DBAC";
    QTest::newRow("two equal") << QVector<int>{5, 5} << "AB";
    QTest::newRow("three equal") << QVector<int>{5, 5, 5} << "ABC";
    QTest::newRow("four equal") << QVector<int>{5, 5, 5, 5} << "DCAB";
    QTest::newRow("five equal") << QVector<int>{5, 5, 5, 5, 5} << "DECAB";
    QTest::newRow("two pairs") << QVector<int>{1, 0, 1, 0} << "DBCA";
    QTest::newRow("extremes") << QVector<int>{INT_MAX, INT_MIN, 0} << "BCA";
}

void SortOrderingTest::placesEqualSortOrders()
{
    QFETCH(QVector<int>, sortOrders);
    QString places;
    for (const Element &element : ordered(tagged(sortOrders)))
        places += QLatin1Char(static_cast<char>('A' + element.tag));
    QTEST(places, "places");
}

void SortOrderingTest::ordersRandomListsAsQt_data()
{
    QTest::addColumn<QVector<int>>("keys");

    const auto numbers = [](int count) {
        QVector<int> keys;
        for (int key = 0; key < count; ++key)
            keys.append(key * 10 - 15);
        return keys;
    };
    QTest::newRow("one key") << numbers(1);
    QTest::newRow("two keys") << numbers(2);
    QTest::newRow("three keys") << numbers(3);
    QTest::newRow("ten keys") << numbers(10);
    QTest::newRow("many keys") << numbers(100000);
    QTest::newRow("extreme keys") << QVector<int>{INT_MIN, INT_MIN + 1, -1, 0, INT_MAX - 1, INT_MAX};
}

void SortOrderingTest::ordersRandomListsAsQt()
{
    QFETCH(QVector<int>, keys);
    // Not std::uniform_int_distribution, which differs between standard libraries.
    std::mt19937 random(20240229);
    const auto compare = [&keys, &random](int length) {
        QVector<int> sortOrders;
        for (int place = 0; place < length; ++place)
            sortOrders.append(keys.at(static_cast<int>(random() % static_cast<unsigned>(keys.size()))));
        const QList<Element> list = tagged(sortOrders);
        const QList<Element> expected = orderedByQt(list);
        const QList<Element> actual = ordered(list);
        if (actual != expected)
            QCOMPARE(QStringLiteral("%1-> %2").arg(toText(list), toText(actual)), toText(expected));
    };
    for (int length = 0; length <= 40; ++length) {
        for (int repetition = 0; repetition < 50; ++repetition) {
            compare(length);
            if (QTest::currentTestFailed())
                return;
        }
    }
    for (int length : {41, 1000, 4096, 5003})
        compare(length);
}

void SortOrderingTest::ordersOnASmallStack_data()
{
    QTest::addColumn<QVector<int>>("sortOrders");

    QTest::newRow("every pivot among the greatest") << worstCase(10000, true);
    QTest::newRow("every pivot among the smallest") << worstCase(10000, false);
    QTest::newRow("organ pipe") << organPipe(10000);
    QTest::newRow("all equal") << QVector<int>(10000, 3);
}

// A recursion for every second element would need several times the stack that the thread has.
void SortOrderingTest::ordersOnASmallStack()
{
    QFETCH(QVector<int>, sortOrders);
    const QList<Element> list = tagged(sortOrders);
    QList<Element> actual;
    const QScopedPointer<QThread> thread(QThread::create([&list, &actual] { actual = ordered(list); }));
    thread->setStackSize(128 * 1024);
    thread->start();
    QVERIFY(thread->wait());
    QVERIFY(actual == orderedByQt(list));
}

QTEST_GUILESS_MAIN(SortOrderingTest)

#include "SortOrderingTest.moc"
