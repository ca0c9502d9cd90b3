// The ordering by sort order, compared with the algorithm whose ties it keeps. Elements are numbers that
// stand for their first places.

#define QT_NO_DEPRECATED_WARNINGS // for qSort

#include "catalogs/model/SortOrdering_p.h"

#include <QThread>
#include <QVector>
#include <QtAlgorithms>
#include <QtTest>

#include <climits>
#include <numeric>
#include <random>

namespace {

using Numbers = QVector<int>;

Numbers numbersUpTo(int count)
{
    Numbers numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

Numbers ordered(const Numbers &sortOrders)
{
    QList<int> places = numbersUpTo(sortOrders.size()).toList();
    Orvida::Catalogs::orderBySortOrder(places, [&sortOrders](int place) { return sortOrders.at(place); });
    return places.toVector();
}

// The same for a list that was costly from its start.
Numbers orderedBySearch(const Numbers &sortOrders)
{
    QList<int> places = numbersUpTo(sortOrders.size()).toList();
    const auto sortOrderOf = [&sortOrders](int place) { return sortOrders.at(place); };
    Orvida::Catalogs::SortOrdering<int, decltype(sortOrderOf)>(places, sortOrderOf, 0)
        .order(0, places.size());
    return places.toVector();
}

template <typename LessThan>
Numbers orderedByQt(int count, LessThan lessThan)
{
    Numbers places = numbersUpTo(count);
    qSort(places.begin(), places.end(), lessThan);
    return places;
}

Numbers orderedByQt(const Numbers &keys)
{
    return orderedByQt(keys.size(), [&keys](int a, int b) { return keys.at(a) < keys.at(b); });
}

// Looks at the quicksort while it runs, and chooses the sort orders so that each pivot turns out to be
// the smallest of its range but one or two, or the greatest with the step -1.
Numbers worstCase(int count, int step)
{
    const int undecided = count * step;
    Numbers keys(count, undecided);
    int next = 0;
    int candidate = 0;
    orderedByQt(count, [&](int a, int b) {
        if (keys.at(a) == undecided && keys.at(b) == undecided)
            keys[a == candidate ? a : b] = step * next++;
        if (keys.at(a) == undecided || keys.at(b) == undecided)
            candidate = keys.at(a) == undecided ? a : b;
        return keys.at(a) < keys.at(b);
    });
    return keys;
}

} // namespace

class SortOrderingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordersOnASmallStack_data();
    void ordersOnASmallStack();
    void looksSeldomAtWorstCases();
    void ordersRandomListsAsQt();
};

void SortOrderingTest::ordersOnASmallStack_data()
{
    QTest::addColumn<Numbers>("sortOrders");
    QTest::addColumn<Numbers>("places");

    QTest::newRow("four equal") << Numbers{5, 5, 5, 5} << Numbers{3, 2, 0, 1};
    QTest::newRow("two pairs") << Numbers{1, 0, 1, 0} << Numbers{3, 1, 2, 0};
    QTest::newRow("extremes") << Numbers{INT_MAX, 0, INT_MIN, -1} << Numbers{2, 3, 1, 0};
    QTest::newRow("pivots among the smallest") << worstCase(6000, 1) << orderedByQt(worstCase(6000, 1));
    QTest::newRow("pivots among the greatest") << worstCase(6000, -1) << orderedByQt(worstCase(6000, -1));
}

// A recursion for every second element of a worst case would need several times the stack of the thread.
void SortOrderingTest::ordersOnASmallStack()
{
    QFETCH(Numbers, sortOrders);
    Numbers places;
    const QScopedPointer<QThread> thread(QThread::create([&] { places = ordered(sortOrders); }));
    thread->setStackSize(128 * 1024);
    thread->start();
    QVERIFY(thread->wait());
    QTEST(places, "places");
}

// Looking at each element of each part would take 18 million looks.
void SortOrderingTest::looksSeldomAtWorstCases()
{
    for (const int step : {1, -1}) {
        const Numbers sortOrders = worstCase(6000, step);
        int looks = 0;
        QList<int> places = numbersUpTo(sortOrders.size()).toList();
        Orvida::Catalogs::orderBySortOrder(places, [&](int place) {
            ++looks;
            return sortOrders.at(place);
        });
        QVERIFY2(looks < 2000000, qPrintable(QString::number(looks)));
    }
}

void SortOrderingTest::ordersRandomListsAsQt()
{
    // Not std::uniform_int_distribution, which differs between standard libraries.
    std::mt19937 random(20240229);
    for (int list = 0; list < 10000; ++list) {
        Numbers sortOrders(list < 9990 ? list % 41 : list);
        for (int &sortOrder : sortOrders)
            sortOrder = static_cast<int>(random() / 2) % (1 + list % 50) - 5;
        QCOMPARE(ordered(sortOrders), orderedByQt(sortOrders));
        QCOMPARE(orderedBySearch(sortOrders), orderedByQt(sortOrders));
    }
}

QTEST_GUILESS_MAIN(SortOrderingTest)

#include "SortOrderingTest.moc"
