// The anchors of a page: people keep links to them, so they are made of what a catalog keeps, too.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QHash>
#include <QList>
#include <QString>

namespace Orvida::Tools {

/// Gives every item and list an anchor of its own. A code is the anchor of its first item; further items with
/// it, and those without a code, have their key.
class PageAnchors
{
public:
    /// `items` in the order of the page.
    explicit PageAnchors(const QList<QSharedPointer<Catalogs::CatalogItem>> &items);

    /// The anchor of the item with the key `id`; empty when it is not on the page.
    QString ofItem(const QString &id) const { return m_items.value(id); }
    /// The anchor of the first item with the code `code`; empty when there is none.
    QString ofCode(const QString &code) const { return m_codes.value(code); }
    /// The anchor of the list `classId`, whether or not there is one.
    static QString ofList(const QString &classId);
    /// The anchor of the first field that the item with the anchor `item` has in `column`.
    static QString ofField(const QString &item, const QString &column);

private:
    QString take(const QString &wanted);

    QHash<QString, int> m_taken;     // by anchor, the number of the last repetition of it
    QHash<QString, QString> m_items; // by key
    QHash<QString, QString> m_codes; // by code
};

} // namespace Orvida::Tools
