#include "support/CatalogWalk.h"

#include <algorithm>
#include <initializer_list>
#include <numeric>

namespace Orvida::Tests {

namespace {

using namespace Catalogs;
using ItemPtr = QSharedPointer<CatalogItem>;

// Keeps the compiler from leaving out reads of texts.
volatile uint charactersSeen = 0;

void readTexts(std::initializer_list<QString> texts)
{
    uint sum = 0;
    for (const QString &text : texts)
        sum =
            std::accumulate(text.cbegin(), text.cend(), sum, [](uint s, QChar c) { return s + c.unicode(); });
    charactersSeen = charactersSeen + sum;
}

template <typename Elements, typename SortOrderOf>
bool isOrdered(const Elements &elements, SortOrderOf sortOrderOf)
{
    return std::is_sorted(elements.begin(), elements.end(), [sortOrderOf](const auto &a, const auto &b) {
        return sortOrderOf(a) < sortOrderOf(b);
    });
}

QString faultOfFields(CatalogItem &item)
{
    const auto &fields = item.getFields();
    for (const CatalogInputField &field : fields) {
        readTexts({field.caption(), field.boundColumn(), field.inputFormat(), field.defaultValue(),
                   field.maximumValue(), field.minimumValue(), field.displayFormat(), field.unit(),
                   field.step(), field.prefix(), field.suffix(), field.observationTextParamName()});
        for (const Shared::ListItem &entry : field.itemList())
            readTexts({entry.value().toString(), entry.caption(), entry.itemText()});
    }
    return isOrdered(fields, [](const CatalogInputField &field) { return field.sortOrder(); })
               ? QString()
               : QStringLiteral("fields of item %1 are not in order").arg(item.id());
}

QString faultOfItem(Catalog &catalog, const QString &key, CatalogItem &item)
{
    readTexts({item.caption(), item.code(), item.followers(), item.item(), item.remarks(), item.iconId(),
               item.observationText(), item.closeCode()});
    if (item.id() != key || item.catalog() != (catalog.IsValid() ? &catalog : nullptr))
        return QStringLiteral("item %1 has another id or catalog").arg(key);
    const auto &children = item.getChildItems();
    if (!isOrdered(children, [](const ItemPtr &child) { return child->sortOrder(); }))
        return QStringLiteral("children of item %1 are not in order").arg(key);
    for (const ItemPtr &child : children) {
        if (child->parentId() != key || catalog.getCatalogItems().value(child->id()) != child)
            return QStringLiteral("item %1 has the wrong child %2").arg(key, child->id());
    }
    const ItemPtr coded = catalog.getItem(item.code());
    if (catalog.IsValid() ? !coded || coded->code() != item.code() : !coded.isNull())
        return QStringLiteral("the code of item %1 leads elsewhere").arg(key);
    return faultOfFields(item);
}

// Every item but the root is a child of its parent, and of no other item.
QString faultOfTree(const QHash<QString, ItemPtr> &items, bool isLinked)
{
    int expected = 0;
    int found = 0;
    for (const ItemPtr &item : items) {
        expected += isLinked && !item->id().isEmpty() && items.contains(item->parentId());
        found += item->getChildItems().size();
    }
    return found == expected ? QString() : QStringLiteral("%1 children, not %2").arg(found).arg(expected);
}

} // namespace

QString faultOf(Catalog &catalog, const QStringList &profiles)
{
    const QHash<QString, ItemPtr> items = catalog.getCatalogItems();
    QString fault = faultOfTree(items, catalog.IsValid());
    for (auto profile = profiles.crbegin(); profile != profiles.crend(); ++profile) {
        catalog.setProfile(*profile);
        const QHash<QString, QString> codes = catalog.getContinousDefectCodes();
        for (auto code = codes.cbegin(); code != codes.cend(); ++code)
            readTexts({code.key(), *code});
        for (auto item = items.cbegin(); item != items.cend() && fault.isEmpty(); ++item)
            fault = profile == profiles.crbegin() ? faultOfItem(catalog, item.key(), **item)
                                                  : faultOfFields(**item);
    }
    return fault;
}

} // namespace Orvida::Tests
