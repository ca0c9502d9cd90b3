#include "models/CatalogSearchModel.h"

#include "models/SearchableText_p.h"

#include <QHash>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <vector>

namespace Orvida::Models {

using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;

namespace {

// An item of the tree, in a table where parents come first.
struct Entry
{
    QString texts; // a line each
    QVector<int> lists;
    int parent = -1;
    bool isMatch = false;
    bool isShown = false;
};

// The values of a list. Fields share their lists, so each is read once; while it is kept here, no other list
// can have its address.
struct ValueList
{
    QList<Shared::ListItem> values;
    QString texts;
    bool hasWord = false;
};

QString textsOf(const QList<Shared::ListItem> &values)
{
    QStringList texts;
    for (const Shared::ListItem &value : values)
        texts << value.caption() << value.itemText() << value.value().toString();
    return searchableText(texts.join(QLatin1Char('\n')));
}

} // namespace

struct CatalogSearchModel::Private
{
    const CatalogTreeModel *tree = nullptr;
    QString searchText;
    QStringList words;
    // The items of the tree, and the place of each by the id of its index. Empty until a search needs them.
    std::vector<Entry> entries;
    QHash<quintptr, int> places;
    // The lists of the fields, and the place of each by the address of its first value.
    std::vector<ValueList> lists;
    QHash<const Shared::ListItem *, int> listPlaces;
    int matchCount = 0;

    void forgetTexts();
    void readTexts();
    Entry entryOfItem(CatalogItem &item, int parent);
    void search();
    void searchFor(const QString &word);

    const Entry &entryOf(const QModelIndex &index) const { return entries[places.value(index.internalId())]; }
    bool isSearching() const { return tree && !words.isEmpty(); }
};

void CatalogSearchModel::Private::forgetTexts()
{
    entries.clear();
    places.clear();
    lists.clear();
    listPlaces.clear();
}

Entry CatalogSearchModel::Private::entryOfItem(CatalogItem &item, int parent)
{
    Entry entry;
    entry.parent = parent;
    entry.texts =
        searchableText(item.code() + QLatin1Char('\n') + item.caption() + QLatin1Char('\n') + item.remarks());
    for (const CatalogInputField &field : qAsConst(item.getFields())) {
        const QList<Shared::ListItem> values = field.itemList();
        if (values.isEmpty())
            continue;
        const auto known = listPlaces.constFind(&values.first());
        if (known == listPlaces.constEnd()) {
            listPlaces.insert(&values.first(), static_cast<int>(lists.size()));
            lists.push_back({values, textsOf(values), false});
        }
        entry.lists.append(listPlaces.value(&values.first()));
    }
    return entry;
}

void CatalogSearchModel::Private::readTexts()
{
    std::vector<QModelIndex> indexes;
    const auto addChildren = [&](const QModelIndex &parent, int place) {
        for (int row = 0; row < tree->rowCount(parent); ++row) {
            indexes.push_back(tree->index(row, 0, parent));
            entries.push_back(entryOfItem(*CatalogTreeModel::itemAt(indexes.back()), place));
        }
    };
    addChildren(QModelIndex(), -1);
    for (std::size_t place = 0; place < indexes.size(); ++place) {
        places.insert(indexes[place].internalId(), static_cast<int>(place));
        addChildren(QModelIndex(indexes[place]), static_cast<int>(place));
    }
}

void CatalogSearchModel::Private::search()
{
    matchCount = 0;
    if (!isSearching())
        return;
    if (entries.empty())
        readTexts();
    for (Entry &entry : entries)
        entry.isMatch = true;
    for (const QString &word : qAsConst(words))
        searchFor(word);
    for (Entry &entry : entries) {
        entry.isShown = entry.isMatch || (entry.parent >= 0 && entries[entry.parent].isShown);
        matchCount += entry.isMatch;
    }
    for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
        if (entry->isShown && entry->parent >= 0)
            entries[entry->parent].isShown = true;
    }
}

// Leaves the entries as matches that have `word` in their own texts or in a list.
void CatalogSearchModel::Private::searchFor(const QString &word)
{
    for (ValueList &list : lists)
        list.hasWord = list.texts.contains(word);
    for (Entry &entry : entries) {
        entry.isMatch = entry.isMatch
                        && (entry.texts.contains(word)
                            || std::any_of(entry.lists.cbegin(), entry.lists.cend(),
                                           [this](int place) { return lists[std::size_t(place)].hasWord; }));
    }
}

CatalogSearchModel::CatalogSearchModel(QObject *parent)
    : QSortFilterProxyModel(parent), m_private(std::make_unique<Private>())
{
}

CatalogSearchModel::~CatalogSearchModel() = default;

void CatalogSearchModel::setSourceModel(QAbstractItemModel *model)
{
    if (m_private->tree)
        m_private->tree->disconnect(this);
    m_private->tree = qobject_cast<CatalogTreeModel *>(model);
    m_private->forgetTexts();
    if (m_private->tree) {
        // Before the base class hears of it, which asks at once what to show.
        connect(m_private->tree, &CatalogTreeModel::modelReset, this, [this] {
            m_private->forgetTexts();
            m_private->search();
        });
        connect(m_private->tree, &CatalogTreeModel::profileChanged, this, [this] {
            m_private->forgetTexts();
            setSearchText(m_private->searchText);
        });
        connect(m_private->tree, &QObject::destroyed, this, [this] {
            m_private->tree = nullptr;
            m_private->search();
        });
    }
    m_private->search();
    QSortFilterProxyModel::setSourceModel(model);
}

QString CatalogSearchModel::searchText() const
{
    return m_private->searchText;
}

void CatalogSearchModel::setSearchText(const QString &text)
{
    m_private->searchText = text;
    m_private->words = searchableText(text).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    m_private->search();
    // Not invalidateFilter(), which removes row by row and takes quadratic time for many siblings.
    invalidate();
}

int CatalogSearchModel::matchCount() const
{
    return m_private->matchCount;
}

QVariant CatalogSearchModel::data(const QModelIndex &index, int role) const
{
    if (role != IsMatchRole)
        return QSortFilterProxyModel::data(index, role);
    return index.isValid() && m_private->isSearching() && m_private->entryOf(mapToSource(index)).isMatch;
}

QHash<int, QByteArray> CatalogSearchModel::roleNames() const
{
    QHash<int, QByteArray> names = QSortFilterProxyModel::roleNames();
    names.insert(IsMatchRole, "isMatch");
    return names;
}

bool CatalogSearchModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    return !m_private->isSearching() || m_private->entryOf(m_private->tree->index(row, 0, parent)).isShown;
}

} // namespace Orvida::Models
