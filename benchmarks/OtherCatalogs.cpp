#include "benchmarks/OtherCatalogs.h"

#include "benchmarks/OtherXmlReaders.h"

#include "catalogs/building/CatalogLoader.h"
#include "catalogs/building/InputFields_p.h"
#include "catalogs/building/ListLookup_p.h"
#include "catalogs/building/ProfileResolution_p.h"
#include "catalogs/reading/FileOrder_p.h"
#include "catalogs/reading/RecordReader_p.h"

#include <algorithm>

namespace Orvida {

namespace {

// For a parser that is filled from outside, the order of the parameter extensions is kept here.
struct FilledParser : Catalogs::CatalogXMLParser
{
    QVector<QString> parameterExtensionKeys;
};

} // namespace

// Called by the steps of loading that this program compiles itself, always with that parser.
const QVector<QString> &Catalogs::parameterExtensionsInFileOrder(const CatalogXMLParser &parser)
{
    return static_cast<const FilledParser &>(parser).parameterExtensionKeys;
}

namespace Benchmarks {

using namespace Catalogs;

namespace {

// As CatalogLoader::loadCatalog does.
template <typename Xml>
CatalogSptr loadWith(const QString &path)
{
    Xml xml(path);
    FilledParser parser;
    TextPool texts;
    CatalogReadFailure failure;
    auto catalog = makeShared<Catalog>(QStringLiteral("benchmark"));
    catalog->getCatalogItems().insert(QStringLiteral(""), makeShared<CatalogItem>());
    const RecordStore store{parser, catalog->getCatalogItems(), parser.parameterExtensionKeys, texts};
    if (!RecordReader(xml, store, failure).readDocument()
        || xml.tokenType() != QXmlStreamReader::EndDocument) {
        catalog->setStatus(Catalog::LoadFailed);
        return catalog;
    }
    ListLookup lists = buildListLookup(parser, *catalog);
    buildInputFields(parser, *catalog, lists);
    lists.clear();
    catalog->setProfile(resolveProfile(parser));
    catalog->setStatus(Catalog::Loaded);
    return catalog;
}

bool isSameField(const CatalogInputField &left, const CatalogInputField &right)
{
    const auto isSameEntry = [](const Shared::ListItem &one, const Shared::ListItem &other) {
        return one.value() == other.value() && one.caption() == other.caption();
    };
    const auto entries = left.itemList();
    const auto others = right.itemList();
    return left.caption() == right.caption() && left.boundColumn() == right.boundColumn()
           && std::equal(entries.begin(), entries.end(), others.begin(), others.end(), isSameEntry);
}

bool isSameItem(CatalogItem &left, CatalogItem &right)
{
    const auto isSameChild = [](const auto &one, const auto &other) { return one->id() == other->id(); };
    const auto &children = left.getChildItems();
    const auto &others = right.getChildItems();
    const auto &fields = left.getFields();
    const auto &otherFields = right.getFields();
    return left.caption() == right.caption() && left.code() == right.code()
           && left.observationText() == right.observationText() && left.sortOrder() == right.sortOrder()
           && std::equal(children.begin(), children.end(), others.begin(), others.end(), isSameChild)
           && std::equal(fields.begin(), fields.end(), otherFields.begin(), otherFields.end(), isSameField);
}

bool isSameCatalog(Catalog &left, Catalog &right)
{
    const auto &others = right.getCatalogItems();
    const auto isSame = [&others](const QSharedPointer<CatalogItem> &item) {
        const auto other = others.value(item->id());
        return other && isSameItem(*item, *other);
    };
    const auto &items = left.getCatalogItems();
    return items.size() == others.size() && std::all_of(items.begin(), items.end(), isSame);
}

} // namespace

CatalogSptr loadPugixmlCatalog(const QString &path)
{
    return loadWith<PugixmlReader>(path);
}

CatalogSptr loadLibxml2SaxCatalog(const QString &path)
{
    return loadWith<SaxReader>(path);
}

bool isSameAsLoaded(CatalogSptr (*load)(const QString &), const QString &path)
{
    CatalogXMLParser parser;
    QHash<QString, QSharedPointer<CatalogItem>> items;
    const CatalogSptr wanted = CatalogLoader().loadCatalog(path, QStringLiteral("benchmark"));
    const CatalogSptr found = load(path);
    if (!parser.readFile(path, items) || !wanted->IsValid() || !found->IsValid()
        || wanted->profile() != found->profile())
        return false;
    const auto isSameIn = [&](const CatalogParserProfile &profile) {
        wanted->setProfile(profile.pk);
        found->setProfile(profile.pk);
        return wanted->getContinousDefectCodes() == found->getContinousDefectCodes()
               && isSameCatalog(*wanted, *found);
    };
    return !parser.m_profiles.isEmpty()
           && std::all_of(parser.m_profiles.cbegin(), parser.m_profiles.cend(), isSameIn);
}

} // namespace Benchmarks

} // namespace Orvida
