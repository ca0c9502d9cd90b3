#include "tools/TreeView.h"

#include <vector>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogItem;
using ItemPointer = QSharedPointer<CatalogItem>;

// Beyond this depth lines are no longer drawn but counted: drawing a chain of a million items in full would
// take a million times a million characters.
constexpr int deepestDrawnLevel = 40;

// The siblings at one level of the tree, and the one that comes next.
struct Level
{
    QList<ItemPointer> items;
    int next = 0;
};

// Visits everything below `root` in display order: visit(item, depth, isLast), depth from 0.
template <typename Visit>
void walk(const ItemPointer &root, Visit visit)
{
    std::vector<Level> levels{{root->getChildItems(), 0}};
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.items.size()) {
            levels.pop_back();
            continue;
        }
        const ItemPointer item = level.items.at(level.next++);
        visit(item, static_cast<int>(levels.size()) - 1, level.next == level.items.size());
        if (!item->getChildItems().isEmpty())
            levels.push_back({item->getChildItems(), 0});
    }
}

QString label(const CatalogItem &item)
{
    if (item.code().isEmpty() && item.caption().isEmpty())
        return QStringLiteral("(id %1)").arg(item.id());
    return item.caption();
}

} // namespace

void TreeView::print(const ItemPointer &root)
{
    // What stands left of an item at each depth above it: a line that goes on, or a gap.
    QString indentation;
    walk(root, [this, &indentation](const ItemPointer &item, int depth, bool isLast) {
        const int drawnDepth = qMin(depth, deepestDrawnLevel);
        indentation.truncate(4 * drawnDepth);
        printItem(indentation, depth, isLast, *item);
        if (depth < deepestDrawnLevel)
            indentation += isLast ? QStringLiteral("    ") : QStringLiteral("\u2502   ");
    });
}

int TreeView::countItems(const ItemPointer &root)
{
    int count = 0;
    walk(root, [&count](const ItemPointer &, int, bool) { ++count; });
    return count;
}

void TreeView::printItem(const QString &indentation, int depth, bool isLast, const CatalogItem &item)
{
    const QString branch =
        isLast ? QStringLiteral("\u2514\u2500\u2500 ") : QStringLiteral("\u251C\u2500\u2500 ");
    m_out << m_style.line(indentation + branch);
    if (depth > deepestDrawnLevel)
        m_out << m_style.line(QStringLiteral("+%1 ").arg(depth - deepestDrawnLevel));
    const QString code = OutputStyle::singleLine(item.code());
    const QString text = OutputStyle::singleLine(label(item));
    m_out << m_style.code(code) << (code.isEmpty() || text.isEmpty() ? "" : "  ") << text << '\n';
}

} // namespace Orvida::Tools
