#include "checking/comparison/Edition_p.h"

#include <algorithm>
#include <numeric>

namespace Orvida::Checking {

namespace {

// Only errors are counted, and none is listed.
FindingReport::Settings errorSettings()
{
    FindingReport::Settings settings = defaultSettings();
    settings.findingsPerRule = 1;
    for (CatalogChecker::Level &level : settings.levels) {
        if (level == CatalogChecker::Level::Note)
            level = CatalogChecker::Level::Off;
    }
    return settings;
}

// Spreads a number over all bits, so that sums of such numbers tell sets apart.
quint64 spread(quint64 number)
{
    number += Q_UINT64_C(0x9E3779B97F4A7C15);
    number = (number ^ number >> 30) * Q_UINT64_C(0xBF58476D1CE4E5B9);
    number = (number ^ number >> 27) * Q_UINT64_C(0x94D049BB133111EB);
    return number ^ number >> 31;
}

} // namespace

Edition::Edition(const QString &fileName, Reading &&reading, const Edition *old)
    : m_fileName(fileName),
      m_reading(std::move(reading)),
      m_links(m_reading.catalog),
      m_settings(errorSettings()),
      m_report(m_reading.catalog, m_settings),
      m_check(m_fileName, m_reading.fault, m_clearTexts, m_reading.catalog, m_links, m_report)
{
    askRules(m_check);
    m_report.finish();
    if (old)
        numberTexts(*old);
    describeItems();
    orderItems();
    describeColumns();
}

void Edition::numberTexts(const Edition &old)
{
    const TextTable &texts = catalog().texts;
    const TextTable &oldTexts = old.catalog().texts;
    m_common.resize(std::size_t(texts.size()));
    for (Symbol symbol = 1; symbol < texts.size(); ++symbol) {
        const Symbol known = oldTexts.find(texts.text(symbol));
        m_common[std::size_t(symbol)] = known != 0 ? known : oldTexts.size() + symbol;
    }
}

void Edition::describeItems()
{
    for (const CatalogLinks::Item &linked : m_links.items()) {
        const Section kind = catalog().record(linked.record).kind;
        const ItemTokens tokens = itemTokens(kind);
        const auto textOf = [&](int token) { return token == 0 ? 0 : value(linked.record, token); };
        const LocatedField *order = catalog().fieldOf(linked.record, tokens.sortOrder);
        Item item;
        item.code = textOf(tokens.code);
        item.key = textOf(tokens.key);
        item.caption = textOf(tokens.caption);
        item.sortOrder = order ? catalog().toNumber(order->value) : 0;
        item.kind = kind;
        m_items.push_back(item);
    }
}

// Siblings of equal sort order, which hosts show in any order, come by code.
void Edition::orderItems()
{
    const auto isAfter = [this](int a, int b) {
        return item(a).sortOrder != item(b).sortOrder ? item(a).sortOrder > item(b).sortOrder
                                                      : isBefore(b, a);
    };
    int position = 0;
    std::vector<int> open = {CatalogLinks::root};
    while (!open.empty()) {
        const int index = open.back();
        open.pop_back();
        if (index >= 0) {
            Item &placed = m_items[std::size_t(index)];
            placed.position = position++;
            placed.last = placed.position + m_links.item(index).leave - m_links.item(index).enter - 1;
        }
        const std::size_t first = open.size();
        for (const int child : m_links.childrenOf(index))
            open.push_back(child);
        std::sort(open.begin() + std::ptrdiff_t(first), open.end(), isAfter);
    }
    std::vector<int> outside(m_items.size());
    std::iota(outside.begin(), outside.end(), 0);
    outside.erase(
        std::remove_if(outside.begin(), outside.end(), [this](int index) { return isInTree(index); }),
        outside.end());
    std::sort(outside.begin(), outside.end(), [this](int a, int b) { return isBefore(a, b); });
    for (const int index : outside) {
        m_items[std::size_t(index)].position = position;
        m_items[std::size_t(index)].last = position++;
    }
}

// From the top down; on the way up, what was counted is taken away.
void Edition::describeColumns()
{
    std::vector<int> counts(std::size_t(catalog().texts.size()));
    std::vector<int> open;
    quint64 set = 0;
    for (const int index : m_links.treeOrder()) {
        while (!open.empty() && m_links.item(open.back()).leave <= m_links.item(index).enter) {
            countColumns(open.back(), -1, counts, set);
            open.pop_back();
        }
        countColumns(index, 1, counts, set);
        open.push_back(index);
        m_items[std::size_t(index)].columns = set;
    }
}

void Edition::countColumns(int item, int sign, std::vector<int> &counts, quint64 &set) const
{
    for (const int field : m_links.inputFieldsOf(item)) {
        const Symbol column = m_links.inputField(field).column;
        int &count = counts[std::size_t(column)];
        if (count == (sign > 0 ? 0 : 1))
            set += quint64(sign) * spread(quint64(common(column)));
        count += sign;
    }
}

QString Edition::nameOf(int item) const
{
    if (item < 0)
        return QStringLiteral("root");
    const ItemTokens tokens = itemTokens(this->item(item).kind);
    return string(recordOf(item), this->item(item).code != 0 ? tokens.code : tokens.key);
}

QStringView Edition::captionOf(int item) const
{
    return text(recordOf(item), itemTokens(this->item(item).kind).caption);
}

QStringView Edition::observationTextOf(int item) const
{
    const int token = itemTokens(this->item(item).kind).obsText;
    return token == 0 ? QStringView() : text(recordOf(item), token);
}

bool Edition::isBefore(int a, int b) const
{
    const auto compare = [&](int ItemTokens::*token) {
        const int tokenOfA = itemTokens(item(a).kind).*token;
        const int tokenOfB = itemTokens(item(b).kind).*token;
        const QStringView textOfA = tokenOfA == 0 ? QStringView() : text(recordOf(a), tokenOfA);
        const QStringView textOfB = tokenOfB == 0 ? QStringView() : text(recordOf(b), tokenOfB);
        return textOfA.compare(textOfB);
    };
    const int order = compare(&ItemTokens::code);
    return order != 0 ? order < 0 : compare(&ItemTokens::key) < 0;
}

int Edition::firstRecord(Section kind) const
{
    for (int record = 0; record < catalog().recordCount(); ++record) {
        if (catalog().record(record).kind == kind && !catalog().record(record).isLost())
            return record;
    }
    return -1;
}

CatalogChangePlace Edition::placeOf(int record, int token) const
{
    if (record < 0)
        return {};
    const LocatedField *field = token < 0 ? nullptr : catalog().fieldOf(record, token);
    const Position start = field ? field->start : catalog().record(record).start;
    return {start.line, start.column};
}

} // namespace Orvida::Checking
