#include "catalogs/building/InputFields_p.h"

#include "catalogs/model/Catalog.h"
#include "catalogs/model/FieldTemplate_p.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "shared/CLogger.h"
#include "shared/DoubleFormater.h"

namespace Orvida::Catalogs {

namespace {

using Logging::CLogger;
using Shared::DoubleFormater;
using Shared::InputField;
using Appearances = QHash<QString, QHash<QString, FieldTemplate::Appearance>>;

// A clock position reads as a span of the clock, from prefix to suffix, whatever its type and range.
bool isClockPosition(const CatalogInputField &field)
{
    return field.observationTextParamName().toUpper() == QLatin1String("@CLK");
}

bool hasRange(const CatalogInputField &field)
{
    const QString minimum = field.minimumValue();
    const QString maximum = field.maximumValue();
    return field.dataType() != InputField::Boolean && minimum != maximum && !minimum.isEmpty()
           && !maximum.isEmpty();
}

// The markers are replaced in one pass, so that a percent sign in a caption stays what it is.
QString composedCaption(const QString &caption, const CatalogInputField &field)
{
    if (isClockPosition(field))
        return QStringLiteral("%1 (%2 x %3)").arg(caption, field.prefix(), field.suffix());
    if (!hasRange(field))
        return caption;
    return QStringLiteral("%1 (%2 - %3)")
        .arg(caption, DoubleFormater::toString(field.minimumValue(), field.inputFormat()),
             DoubleFormater::toString(field.maximumValue(), field.inputFormat()));
}

// All of a field that does not depend on the profile.
CatalogInputField commonField(const CatalogParserParamExtended &extension,
                              const CatalogParserParameter &parameter)
{
    CatalogInputField field;
    field.setBoundColumn(extension.columnId);
    field.setDefaultValue(extension.defaultValue);
    field.setDisplayFormat(extension.displayFormat);
    field.setInputFormat(extension.inputFormat);
    field.setIsMandatory(extension.mandatory);
    field.setMaximumTextLength(extension.length);
    field.setMaximumValue(extension.rangeTo);
    field.setMinimumValue(extension.rangeFrom);
    field.setStep(extension.steps);
    field.setObservationTextParamName(parameter.placeholder);
    field.setPrefix(parameter.prefix);
    field.setSuffix(parameter.suffix);
    field.setUnit(parameter.unit);
    field.setPrecission(extension.precision);
    field.setSortOrder(parameter.sortOrder);
    field.setDataType(static_cast<InputField::DataType>(parameter.dataType));
    field.setTypeFlags(static_cast<TypeFlags>(parameter.typeFlags));
    field.setCaption(composedCaption(parameter.caption, field));
    return field;
}

// By column id, how each profile shows the column; of several columns of one profile the first one counts.
Appearances appearancesOf(const CatalogXMLParser &parser)
{
    Appearances result;
    result.reserve(parser.m_columns.size());
    for (auto columns = parser.m_columns.cbegin(); columns != parser.m_columns.cend(); ++columns) {
        auto &byProfile = result[columns.key()];
        for (const CatalogParserColumn &column : *columns) {
            if (!byProfile.contains(column.profileFk))
                byProfile.insert(column.profileFk, {column.readOnly, column.visible});
        }
    }
    return result;
}

} // namespace

void buildInputFields(const CatalogXMLParser &parser, Catalog &catalog, const ListLookup &lists)
{
    const QHash<QString, QSharedPointer<CatalogItem>> &items = catalog.getCatalogItems();
    const Appearances appearances = appearancesOf(parser);
    const CatalogParserParameter noParameter;
    for (const CatalogParserParamExtended *extensionInFile : parser.parameterExtensionsInFileOrder()) {
        const CatalogParserParamExtended &extension = *extensionInFile;
        const QString &itemKey = extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
        const auto item = items.constFind(itemKey);
        if (item == items.constEnd() || !*item) {
            CLogger::logMessage(CLogger::Error, QStringLiteral("CatalogLoader"),
                                QStringLiteral("Catalog item ") + itemKey + QStringLiteral(" not found!"));
            continue;
        }
        const auto appearancesOfColumn = appearances.constFind(extension.columnId);
        if (appearancesOfColumn == appearances.constEnd())
            continue;
        const auto parameter = parser.m_parameters.constFind(extension.paramFk);
        const bool hasParameter = parameter != parser.m_parameters.constEnd();
        (*item)->addFieldTemplate({commonField(extension, hasParameter ? *parameter : noParameter),
                                   *appearancesOfColumn, lists.value(extension.listClassId)});
    }
}

} // namespace Orvida::Catalogs
