// Fuzz target: bytes as sort orders, one or four bytes each, ordered and compared with the algorithm whose
// ties the ordering keeps.
#define QT_NO_DEPRECATED_WARNINGS // for qSort

#include "catalogs/model/SortOrdering_p.h"
#include "fuzz/MemoryFile.h"

#include <QtAlgorithms>

#include <cstring>

using Orvida::Catalogs::SortOrdering;

namespace {

struct Element
{
    int sortOrder;
    int firstPlace;
};

bool operator==(const Element &a, const Element &b)
{
    return a.sortOrder == b.sortOrder && a.firstPlace == b.firstPlace;
}

template <typename Number>
QList<Element> elementsOf(const std::uint8_t *data, std::size_t size)
{
    QList<Element> elements;
    for (std::size_t place = 0; place + sizeof(Number) <= size; place += sizeof(Number)) {
        Number number;
        std::memcpy(&number, data + place, sizeof(Number));
        elements.append({number, elements.size()});
    }
    return elements;
}

void check(QList<Element> elements)
{
    QList<Element> expected = elements;
    qSort(expected.begin(), expected.end(),
          [](const Element &a, const Element &b) { return a.sortOrder < b.sortOrder; });
    const auto sortOrderOf = [](const Element &element) { return element.sortOrder; };
    // As the library does, and as it does with many elements in a bad order.
    QList<Element> searched = elements;
    Orvida::Catalogs::orderBySortOrder(elements, sortOrderOf);
    SortOrdering<Element, decltype(sortOrderOf)>(searched, sortOrderOf, 0).order(0, searched.size());
    if (elements != expected || searched != expected)
        Orvida::Fuzz::stopAt(QStringLiteral("%1 elements in another order").arg(elements.size()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    check(elementsOf<std::int8_t>(data, size));
    check(elementsOf<std::int32_t>(data, size));
    return 0;
}
