// catalog-listing FILE: loads a catalog file written in the clear and prints everything that came of it, for
// the listings beside the catalogs. An element whose start tag has the attribute raw keeps its text.
#include "catalogs/building/CatalogLoader.h"
#include "reading/RecordListing.h"
#include "support/CatalogWalk.h"

#include <QLoggingCategory>
#include <QSet>
#include <QWeakPointer>

#include <algorithm>
#include <unistd.h>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

// Standard output, unbuffered: what the library writes there keeps its place among these lines.
void print(int depth, const QString &line)
{
    const QByteArray bytes = QByteArray(2 * depth, ' ') + line.toUtf8() + '\n';
    if (write(STDOUT_FILENO, bytes.constData(), size_t(bytes.size())) != bytes.size())
        qFatal("cannot write to standard output");
}

// Reads the file once more, with a parser of its own; gives every profile that anything is filed under.
QStringList printReading(const QString &path)
{
    CatalogXMLParser parser;
    QHash<QString, ItemPtr> items;
    print(0, parser.readFile(path, items) ? text("read") : summaryOf(parser.failure()));
    print(0, text("style %1").arg(CatalogXMLParser().readCatalogStyleFlag(path)));
    print(0, text("records"));
    for (const QString &line : linesOf(parser))
        print(1, line);
    QMap<QString, int> profiles = {{QString(), 0}};
    for (const auto &profile : qAsConst(parser.m_profiles))
        profiles.insert(profile.pk, 0);
    for (const auto &listClass : qAsConst(parser.m_listClasses))
        profiles.insert(listClass.profileFk, 0);
    for (const auto &columns : qAsConst(parser.m_columns)) {
        for (const auto &column : columns)
            profiles.insert(column.profileFk, 0);
    }
    return profiles.keys();
}

// Prints an item with its fields in all profiles, and what is below it; an item of a loop once.
void printItem(const ItemPtr &item, Catalog &catalog, const QStringList &profiles, QSet<QString> &printed,
               int depth)
{
    const bool isKnown = printed.contains(item->id());
    print(depth, text("item") + (isKnown ? text(" again: ") + item->id() : propertiesOf(item)));
    if (isKnown)
        return;
    printed.insert(item->id());
    for (const QString &profile : profiles) {
        catalog.setProfile(profile);
        for (const CatalogInputField &field : qAsConst(item->getFields())) {
            print(depth + 2, text("field of ") + quoted(profile) + propertiesOf(field));
            for (const auto &entry : field.itemList())
                print(depth + 3, text("entry") + propertiesOf(entry));
        }
    }
    for (const ItemPtr &child : item->getChildItems())
        printItem(child, catalog, profiles, printed, depth + 1);
}

// First the tree, then what hangs below items without a parent, then what is left: loops.
void printItems(Catalog &catalog, const QStringList &profiles)
{
    const auto items = sorted(catalog.getCatalogItems());
    QSet<QString> printed;
    print(0, text("tree"));
    printItem(items.value(QString()), catalog, profiles, printed, 1);
    print(0, text("not in the tree"));
    for (const bool isLoop : {false, true}) {
        for (const ItemPtr &item : items) {
            if (!printed.contains(item->id()) && (isLoop || !items.contains(item->parentId())))
                printItem(item, catalog, profiles, printed, 1);
        }
    }
}

void printCodes(Catalog &catalog, const QStringList &profiles)
{
    QMap<QString, ItemPtr> itemsByCode;
    for (const ItemPtr &item : qAsConst(catalog.getCatalogItems()))
        itemsByCode.insert(item->code(), catalog.getItem(item->code()));
    print(0, text("codes"));
    for (auto item = itemsByCode.cbegin(); item != itemsByCode.cend(); ++item) {
        if (*item)
            print(1, text("%1 is item %2").arg(quoted(item.key()), quoted((*item)->id())));
    }
    print(0, text("continuous-defect codes"));
    for (const QString &profile : profiles) {
        catalog.setProfile(profile);
        const auto codes = sorted(catalog.getContinousDefectCodes());
        for (auto code = codes.cbegin(); code != codes.cend(); ++code)
            print(1, text("%1 of %2 is %3").arg(quoted(code.key()), quoted(profile), quoted(*code)));
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        qFatal("usage: catalog-listing FILE");
    const CatalogFolder folder;
    const QString path = folder.write(text("catalog.xml"), scrambledCatalog(QFile::decodeName(argv[1])));
    CatalogSptr catalog;
    {
        const LogCapture log;
        catalog = CatalogLoader().loadCatalog(path, text("id"));
        print(0, text("log"));
        for (const QString &message : log.messages())
            print(1, quoted(message));
    }
    QLoggingCategory::setFilterRules(text("*=false"));
    const QStringList profiles = printReading(path);
    const QString profile = catalog->profile();
    print(0, text(catalog->IsValid() ? "loaded" : "not loaded") + text(", profile ")
                 + (profile.isNull() ? text("null") : quoted(profile)));
    printItems(*catalog, profiles);
    printCodes(*catalog, profiles);

    const QString fault = faultOf(*catalog, profiles);
    QList<QWeakPointer<CatalogItem>> items;
    for (const ItemPtr &item : qAsConst(catalog->getCatalogItems()))
        items.append(item);
    catalog.reset();
    const auto left =
        std::count_if(items.cbegin(), items.cend(), [](const auto &item) { return !item.isNull(); });
    if (fault.isEmpty() && left == 0)
        return 0;
    print(0, text("fault: %1, %2 items left").arg(fault).arg(left));
    return 1;
}
