#include "tools/TreeView.h"

#include <QStringList>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogItem;
using ItemPointer = QSharedPointer<CatalogItem>;

// Beyond this depth lines are no longer drawn but counted: drawing a chain of a million items in full would
// take a million times a million characters.
constexpr int deepestDrawnLevel = 40;

const QString gap = QStringLiteral("    ");
const QString passingLine = QStringLiteral("\u2502   ");
const QString branch = QStringLiteral("\u251C\u2500\u2500 ");
const QString lastBranch = QStringLiteral("\u2514\u2500\u2500 ");
const QString tie = QStringLiteral(" \u2195");

QString label(const CatalogItem &item)
{
    if (item.code().isEmpty() && item.caption().isEmpty())
        return QStringLiteral("(id %1)").arg(item.id());
    return item.caption();
}

} // namespace

void TreeView::print(const ItemPointer &root, const Details &details)
{
    // What is left of an item, for each depth above it: a line that continues, or a gap.
    QString indentation;
    printDetails(indentation, *root, details);
    bool hasTies = false;
    walkTree(root, [&](const ItemPointer &item, const TreePlace &place) {
        hasTies = hasTies || place.isTied;
        indentation.truncate(4 * qMin(place.depth, deepestDrawnLevel));
        printItem(indentation, place, *item);
        const QString below = indentation + (place.isLast ? gap : passingLine);
        printDetails(below + (item->getChildItems().isEmpty() ? gap : passingLine), *item, details);
        if (place.depth < deepestDrawnLevel)
            indentation = below;
    });
    if (hasTies)
        m_out << m_style.line(tie.trimmed()
                              + QStringLiteral(" siblings of equal sort order: hosts show them "
                                               "in any order"))
              << '\n';
}

void TreeView::printItem(const QString &indentation, const TreePlace &place, const CatalogItem &item)
{
    m_out << m_style.line(indentation + (place.isLast ? lastBranch : branch));
    if (place.depth > deepestDrawnLevel)
        m_out << m_style.line(QStringLiteral("+%1 ").arg(place.depth - deepestDrawnLevel));
    const QString code = OutputStyle::singleLine(item.code());
    const QString text = OutputStyle::singleLine(label(item));
    m_out << m_style.code(code) << (code.isEmpty() || text.isEmpty() ? "" : "  ") << text
          << (place.isTied ? m_style.line(tie) : QString()) << '\n';
}

void TreeView::printDetails(const QString &indentation, CatalogItem &item, const Details &details)
{
    for (const QString &detail : details(item))
        m_out << m_style.line(indentation) << OutputStyle::singleLine(detail) << '\n';
}

} // namespace Orvida::Tools
