// Draws the tree of a catalog with lines.
#pragma once

#include "catalogs/model/CatalogItem.h"
#include "tools/DisplayOrder.h"
#include "tools/OutputStyle.h"

#include <QSharedPointer>
#include <QString>
#include <QTextStream>

#include <functional>

namespace Orvida::Tools {

/// Prints a catalog's tree, a line per item and, if asked for, further lines under an item.
class TreeView
{
public:
    /// Gives the lines to print under an item.
    using Details = std::function<QStringList(Catalogs::CatalogItem &)>;

    /// Writes to `out`, which must outlive the view, as `style` must.
    TreeView(QTextStream &out, const OutputStyle &style) : m_out(out), m_style(style) {}

    /// Prints everything below `root`; of `root` itself, which has no code and no caption, only `details`.
    /// Items whose order among their siblings is open are marked, and the mark is explained at the end.
    void print(const QSharedPointer<Catalogs::CatalogItem> &root, const Details &details);

private:
    void printItem(const QString &indentation, const TreePlace &place, const Catalogs::CatalogItem &item);
    void printDetails(const QString &indentation, Catalogs::CatalogItem &item, const Details &details);

    QTextStream &m_out;
    const OutputStyle &m_style;
};

} // namespace Orvida::Tools
