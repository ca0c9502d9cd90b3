#include "tools/ListNames.h"

#include <QSet>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogInputField;
using Catalogs::CatalogParserParamExtended;

bool isBuiltFrom(const CatalogInputField &field, const CatalogParserParamExtended &extension)
{
    return field.boundColumn() == extension.columnId && field.defaultValue() == extension.defaultValue
           && field.displayFormat() == extension.displayFormat && field.inputFormat() == extension.inputFormat
           && field.isMandatory() == extension.mandatory && field.maximumTextLength() == extension.length
           && field.maximumValue() == extension.rangeTo && field.minimumValue() == extension.rangeFrom
           && field.step() == extension.steps && field.precission() == extension.precision;
}

} // namespace

ListNames::ListNames(const Catalogs::CatalogXMLParser &records)
{
    for (const CatalogParserParamExtended &extension : records.m_parameterExtensions) {
        const QString &key = extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
        if (!extension.listClassId.isEmpty())
            m_extensions.insert(key, extension);
    }
}

QString ListNames::nameOf(const Catalogs::CatalogItem &item, const CatalogInputField &field) const
{
    QSet<QString> names;
    for (auto extension = m_extensions.constFind(item.id());
         extension != m_extensions.cend() && extension.key() == item.id(); ++extension) {
        if (isBuiltFrom(field, *extension))
            names.insert(extension->listClassId);
    }
    return names.size() == 1 ? *names.cbegin() : QString();
}

} // namespace Orvida::Tools
