#include "tools/page/PageTree.h"

#include "tools/DisplayOrder.h"

#include <QSet>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogItem;

// Browsers take no elements that are nested 512 deep. What is deeper than this is shown as if it were not.
constexpr int deepestLevel = 40;

void writeLink(const PageSource &source, const CatalogItem &item, HtmlWriter &out)
{
    out.startLink(source.anchors.ofItem(item.id()));
    if (!item.code().isEmpty())
        out << "<code>" << item.code() << "</code> ";
    out << (item.code().isEmpty() && item.caption().isEmpty() ? item.id() : item.caption()) << "</a>";
}

void startBranch(int level, HtmlWriter &out)
{
    out << "</summary>" << (level == 0 ? "<noscript>" : "") << "<ul>\n";
}

void endBranch(int level, HtmlWriter &out)
{
    out << "</ul>" << (level == 0 ? "</noscript>" : "") << "</details>\n";
}

void writeCodes(const PageSource &source, HtmlWriter &out)
{
    int openBranches = 0;
    walkTree(source.file.catalog().getItemById(QString()), [&](const auto &item, const TreePlace &place) {
        const int level = qMin(place.depth, deepestLevel);
        while (openBranches > level)
            endBranch(--openBranches, out);
        const bool isBranch = !item->getChildItems().isEmpty() && level < deepestLevel;
        out << (isBranch ? "<li><details><summary>" : "<li>");
        writeLink(source, *item, out);
        if (isBranch)
            startBranch(openBranches++, out);
        else
            out << "\n";
    });
    while (openBranches > 0)
        endBranch(--openBranches, out);
}

void writeOutsiders(const PageSource &source, HtmlWriter &out)
{
    if (source.itemsInTree == source.items.size())
        return;
    out << "<li><details><summary>Outside the tree (" << source.items.size() - source.itemsInTree << ")";
    startBranch(0, out);
    for (const auto &item : source.items.mid(source.itemsInTree)) {
        out << "<li>";
        writeLink(source, *item, out);
        out << "\n";
    }
    endBranch(0, out);
}

void writeLists(const PageSource &source, HtmlWriter &out)
{
    QStringList ids;
    for (const auto &listClass : source.file.records().m_listClasses)
        ids << listClass.classId;
    ids.sort();
    ids.removeDuplicates();
    if (ids.isEmpty())
        return;
    out << "<li><details><summary>Lists (" << ids.size() << ")";
    startBranch(0, out);
    for (const QString &id : qAsConst(ids)) {
        out << "<li>";
        out.startLink(PageAnchors::ofList(id));
        out << id << "</a>\n";
    }
    endBranch(0, out);
}

} // namespace

void writeTree(const PageSource &source, HtmlWriter &out)
{
    out << "<li><a href=\"#_overview\">Overview</a>\n<li><a href=\"#_profiles\">Profiles</a>\n";
    writeCodes(source, out);
    writeOutsiders(source, out);
    writeLists(source, out);
    out << "<li><a href=\"#_defects\">Continuous-defect codes</a>\n";
    if (source.findings.isChecked())
        out << "<li><a href=\"#_findings\">Findings (" << source.findings.count() << ")</a>\n";
}

} // namespace Orvida::Tools
