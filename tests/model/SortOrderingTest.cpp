// The ordering by sort order, compared with the algorithm whose ties it keeps. Sort orders chosen against it
// are tested in hostile/.

#define QT_NO_DEPRECATED_WARNINGS // for qSort

#include "catalogs/model/SortOrdering_p.h"

#include <QtAlgorithms>
#include <QtTest>

#include <numeric>
#include <random>

using namespace Orvida::Catalogs;

class SortOrderingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordersAsQt();
};

// The elements are indices of sort orders. Ordered element by element, and by the search that serves long
// lists in a bad order.
void SortOrderingTest::ordersAsQt()
{
    std::mt19937 random(20240229); // no distribution: those differ between standard libraries
    for (int list = 0; list < 10000; ++list) {
        QVector<int> sortOrders(list < 9990 ? list % 41 : list);
        for (int &sortOrder : sortOrders)
            sortOrder = list % 50 == 49 ? static_cast<int>(random())
                                        : static_cast<int>(random() / 2) % (1 + list % 50) - 5;
        const auto sortOrderOf = [&sortOrders](int place) { return sortOrders.at(place); };
        QVector<int> places(sortOrders.size());
        std::iota(places.begin(), places.end(), 0);
        QList<int> ordered = places.toList();
        QList<int> searched = ordered;
        orderBySortOrder(ordered, sortOrderOf);
        SortOrdering<int, decltype(sortOrderOf)>(searched, sortOrderOf, 0).order(0, searched.size());
        qSort(places.begin(), places.end(),
              [&](int a, int b) { return sortOrders.at(a) < sortOrders.at(b); });
        QCOMPARE(ordered, places.toList());
        QCOMPARE(searched, places.toList());
    }
}

QTEST_GUILESS_MAIN(SortOrderingTest)

#include "SortOrderingTest.moc"
