#include "tools/FieldOrigins.h"

#include <QSet>

namespace Orvida::Tools {

namespace {

// The item that `extension` gives a field to.
QString itemKeyOf(const Catalogs::CatalogParserParamExtended &extension)
{
    return extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
}

} // namespace

FieldOrigins::FieldOrigins(const Catalogs::CatalogXMLParser &records) : m_records(records)
{
    const auto &extensions = records.m_parameterExtensions;
    for (auto extension = extensions.cbegin(); extension != extensions.cend(); ++extension)
        m_extensions[itemKeyOf(*extension)].append(extension.key());
    for (QStringList &keys : m_extensions)
        keys.sort();
}

QStringList FieldOrigins::extensionsOf(const Catalogs::CatalogItem &item,
                                       const Catalogs::CatalogInputField &field) const
{
    QStringList keys;
    for (const QString &key : extensionsOf(item)) {
        if (m_records.m_parameterExtensions.value(key).columnId == field.boundColumn())
            keys << key;
    }
    return keys;
}

QString FieldOrigins::listNameOf(const Catalogs::CatalogItem &item,
                                 const Catalogs::CatalogInputField &field) const
{
    QSet<QString> names;
    for (const QString &key : extensionsOf(item, field))
        names.insert(m_records.m_parameterExtensions.value(key).listClassId);
    return names.size() == 1 ? *names.cbegin() : QString();
}

} // namespace Orvida::Tools
