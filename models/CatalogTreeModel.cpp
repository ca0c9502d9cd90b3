#include "models/CatalogTreeModel.h"

#include <QHash>

#include <vector>

Q_DECLARE_METATYPE(QSharedPointer<Orvida::Catalogs::CatalogItem>)

namespace Orvida::Models {

using Catalogs::CatalogItem;
using ItemSptr = QSharedPointer<CatalogItem>;

namespace {

// An item of the tree. The children of a node are next to each other in the table, in their order.
struct Node
{
    ItemSptr item;
    int parent = 0;
    int row = 0;
    int firstChild = 0;
    int childCount = 0;
};

constexpr int rootNode = 0;
// Far more than any inspection standard has. Qt's proxy models and views take stack for each level.
constexpr int maximumLevels = 1000;

} // namespace

struct CatalogTreeModel::Private
{
    CatalogSptr catalog;
    // Level by level from the root, which shows as the invalid index. An index holds its node's place.
    std::vector<Node> nodes{1};
    QHash<const CatalogItem *, int> places;

    void build();
    void addChildren(int place);

    int placeOf(const QModelIndex &index) const
    {
        return index.isValid() ? static_cast<int>(index.internalId()) : rootNode;
    }
};

void CatalogTreeModel::Private::build()
{
    nodes.assign(1, Node());
    places.clear();
    const ItemSptr root = catalog ? catalog->findItemById(QString()) : ItemSptr();
    if (!root)
        return;
    nodes.reserve(static_cast<std::size_t>(catalog->getCatalogItems().size()));
    nodes.front().item = root;
    places.insert(root.data(), rootNode);
    int place = rootNode;
    for (int level = 0; level < maximumLevels; ++level) {
        for (const int end = static_cast<int>(nodes.size()); place < end; ++place)
            addChildren(place);
    }
}

void CatalogTreeModel::Private::addChildren(int place)
{
    const auto &children = nodes[place].item->getChildItems();
    nodes[place].firstChild = static_cast<int>(nodes.size());
    for (const ItemSptr &child : children) {
        if (!child || places.contains(child.data()))
            continue;
        places.insert(child.data(), static_cast<int>(nodes.size()));
        nodes.push_back({child, place, nodes[place].childCount++, 0, 0});
    }
}

CatalogTreeModel::CatalogTreeModel(QObject *parent)
    : QAbstractItemModel(parent), m_private(std::make_unique<Private>())
{
}

CatalogTreeModel::~CatalogTreeModel() = default;

CatalogSptr CatalogTreeModel::catalog() const
{
    return m_private->catalog;
}

void CatalogTreeModel::setCatalog(const CatalogSptr &catalog)
{
    beginResetModel();
    m_private->catalog = catalog;
    m_private->build();
    endResetModel();
}

QString CatalogTreeModel::profile() const
{
    return m_private->catalog ? m_private->catalog->profile() : QString();
}

void CatalogTreeModel::setProfile(const QString &profile)
{
    if (!m_private->catalog)
        return;
    m_private->catalog->setProfile(profile);
    Q_EMIT profileChanged(profile);
}

ItemSptr CatalogTreeModel::itemAt(const QModelIndex &index)
{
    return index.data(ItemRole).value<ItemSptr>();
}

QModelIndex CatalogTreeModel::indexOf(const ItemSptr &item) const
{
    const int place = m_private->places.value(item.data(), rootNode);
    return place == rootNode ? QModelIndex() : createIndex(m_private->nodes[place].row, 0, quintptr(place));
}

QModelIndex CatalogTreeModel::indexOfCode(const QString &code) const
{
    return m_private->catalog ? indexOf(m_private->catalog->findItem(code)) : QModelIndex();
}

QModelIndex CatalogTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    const Node &node = m_private->nodes[m_private->placeOf(parent)];
    const int place = node.firstChild + row;
    return createIndex(row, column, quintptr(place));
}

QModelIndex CatalogTreeModel::parent(const QModelIndex &child) const
{
    const int place = m_private->nodes[m_private->placeOf(child)].parent;
    return place == rootNode ? QModelIndex() : createIndex(m_private->nodes[place].row, 0, quintptr(place));
}

int CatalogTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : m_private->nodes[m_private->placeOf(parent)].childCount;
}

int CatalogTreeModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant CatalogTreeModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const ItemSptr &item = m_private->nodes[m_private->placeOf(index)].item;
    switch (role) {
    case Qt::DisplayRole: return index.column() == CodeColumn ? item->code() : item->caption();
    case Qt::ToolTipRole: return item->remarks().isEmpty() ? QVariant() : item->remarks();
    case ItemRole: return QVariant::fromValue(item);
    case IdRole: return item->id();
    case CodeRole: return item->code();
    case CaptionRole: return item->caption();
    case RemarksRole: return item->remarks();
    case IsVirtualRole: return item->isVirtual();
    case TypeFlagsRole: return int(item->typeFlags());
    }
    return QVariant();
}

QVariant CatalogTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return QVariant();
    return section == CodeColumn ? tr("Code") : tr("Caption");
}

Qt::ItemFlags CatalogTreeModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    const bool isLeaf = index.isValid() && m_private->nodes[m_private->placeOf(index)].childCount == 0;
    return isLeaf ? flags | Qt::ItemNeverHasChildren : flags;
}

QHash<int, QByteArray> CatalogTreeModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractItemModel::roleNames();
    names.insert(ItemRole, "item");
    names.insert(IdRole, "itemId");
    names.insert(CodeRole, "code");
    names.insert(CaptionRole, "caption");
    names.insert(RemarksRole, "remarks");
    names.insert(IsVirtualRole, "isVirtual");
    names.insert(TypeFlagsRole, "typeFlags");
    return names;
}

} // namespace Orvida::Models
