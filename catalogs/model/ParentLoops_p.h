// Parent ids that form loops, and how a catalog gets rid of them. For the catalog's own use.
#pragma once

#include "catalogs/model/CatalogItem.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>
#include <QVector>

namespace Orvida::Catalogs {

/// Items that are their own ancestors are linked like all others, so they hold each other and would never be
/// released. This finds one link per loop and cuts it when the catalog is destroyed; all other links stay, so
/// that what a host keeps is still whole.
class ParentLoops
{
public:
    using Items = QHash<QString, QSharedPointer<CatalogItem>>;

    /// Finds the loops among `items` by their parent ids and remembers them beside earlier ones. To be called
    /// before the items are linked: it takes memory, and without memory no loop must come into being.
    void find(const Items &items);

    /// Takes the child that closes the loop from its parent, for every loop that was found. Where a host has
    /// a copy of the parent's list, that needs memory; without it, the loop stays.
    void cut();

private:
    struct Link
    {
        QSharedPointer<CatalogItem> parent;
        QSharedPointer<CatalogItem> child;
    };

    QVector<Link> m_closingLinks;
};

} // namespace Orvida::Catalogs
