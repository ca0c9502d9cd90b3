// catalog-listing FILE [ENCODING]: loads a readable catalog file and prints everything that it becomes, for
// the listings beside the catalogs. The text of an element with the attribute raw is not scrambled. ENCODING
// replaces that of the locale.
#include "catalogs/building/CatalogLoader.h"
#include "reading/RecordListing.h"
#include "support/CatalogWalk.h"

#include <QLoggingCategory>
#include <QSet>
#include <QTextCodec>
#include <QWeakPointer>

#include <algorithm>
#include <cstdio>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

QString listing;

void print(int depth, const QString &line)
{
    listing += QString(2 * depth, QLatin1Char(' ')) + line + QLatin1Char('\n');
}

// Loads the file and prints what is logged, and what the library writes to standard output: orphans, in hash
// order.
CatalogSptr printLoad(const QString &path)
{
    const QByteArray output = QFile::encodeName(path + text(".out"));
    CatalogSptr catalog;
    QStringList messages;
    {
        const LogCapture log;
        const StandardOutputTo file(output.constData());
        catalog = CatalogLoader().loadCatalog(path, text("catalog é"));
        messages = log.messages();
    }
    print(0, text("log"));
    for (const QString &message : qAsConst(messages))
        print(1, quoted(message));
    print(0, text("orphans"));
    QFile written(QFile::decodeName(output));
    written.open(QIODevice::ReadOnly);
    QStringList orphans =
        QString::fromLocal8Bit(written.readAll()).split(QRegularExpression(text("(?=Parent of item: )")));
    orphans.sort();
    for (const QString &orphan : qAsConst(orphans)) {
        if (!orphan.isEmpty())
            print(1, quoted(orphan));
    }
    return catalog;
}

// Reads the file once more, with a parser only; gives every profile that the file defines or names.
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

// Prints an item with its fields in all profiles, and everything below it; items of a loop only once.
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

// First the tree, then items without a parent with everything below them, then what is left: loops.
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

// The listing of a catalog file with this content; its last line reports contradictions and leaks, if any.
QString listingOf(const QByteArray &content)
{
    const CatalogFolder folder;
    const QString path = folder.write(text("catalog.xml"), content);
    listing.clear();
    CatalogSptr catalog = printLoad(path);
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
    if (!fault.isEmpty() || left > 0)
        print(0, text("WRONG: %1, %2 items are left").arg(fault).arg(left));
    return listing;
}

// The same with a document type, which only one of the library's two XML readers accepts.
QByteArray withDocumentType(QByteArray content)
{
    if (content.contains("<!DOCTYPE"))
        return content;
    const int declaration = content.indexOf("?>");
    const int start = content.startsWith("<?xml") ? declaration + 2 : content.indexOf('<');
    return content.insert(start, "<!DOCTYPE OVCAT>");
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 3)
        qFatal("usage: catalog-listing FILE [ENCODING]");
    if (argc == 3)
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(argv[2]));
    const QByteArray content = scrambledCatalog(QFile::decodeName(argv[1]));
    const QString plain = listingOf(content);
    const QString odd = listingOf(withDocumentType(content));
    std::fputs(qUtf8Printable(plain), stdout);
    if (plain != odd)
        std::printf("WRONG: with a document type it reads\n%s", qUtf8Printable(odd));
    return 0;
}
