// Draws the tree of a catalog with lines.
#pragma once

#include "catalogs/model/CatalogItem.h"
#include "tools/OutputStyle.h"

#include <QSharedPointer>
#include <QTextStream>

namespace Orvida::Tools {

/// Prints a catalog's tree, a line per item, children in display order. Works without recursion, so that
/// the depth of a catalog does not matter.
class TreeView
{
public:
    /// Writes to `out`, which must outlive the view.
    TreeView(QTextStream &out, const OutputStyle &style) : m_out(out), m_style(style) {}

    /// Prints everything below `root`, but not `root` itself, which has no code and no caption.
    void print(const QSharedPointer<Catalogs::CatalogItem> &root);

    /// Number of items below `root`.
    static int countItems(const QSharedPointer<Catalogs::CatalogItem> &root);

private:
    void printItem(const QString &indentation, int depth, bool isLast, const Catalogs::CatalogItem &item);

    QTextStream &m_out;
    const OutputStyle &m_style;
};

} // namespace Orvida::Tools
