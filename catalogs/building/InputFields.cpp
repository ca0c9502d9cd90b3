#include "catalogs/building/InputFields_p.h"

#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "shared/CLogger.h"
#include "shared/DoubleFormater.h"

#include <QSet>
#include <QVector>

namespace Orvida::Catalogs {

namespace {

using Logging::CLogger;
using Shared::DoubleFormater;
using Shared::InputField;
using ProfileColumns = QHash<QString, QVector<const CatalogParserColumn *>>;

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

// All of a field that does not depend on the profile: made once for the fields of all profiles, because an
// extension has as many fields as there are profiles, which differ in little.
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

// By column id, the column of each profile; of several columns of one profile the first one counts.
ProfileColumns columnsOfProfiles(const CatalogXMLParser &parser)
{
    ProfileColumns result;
    for (auto columns = parser.m_columns.cbegin(); columns != parser.m_columns.cend(); ++columns) {
        QVector<const CatalogParserColumn *> &first = result[columns.key()];
        QSet<QString> seenProfiles;
        for (const CatalogParserColumn &column : *columns) {
            if (seenProfiles.contains(column.profileFk))
                continue;
            seenProfiles.insert(column.profileFk);
            first.append(&column);
        }
    }
    return result;
}

// The entries of a list class of a profile; null when there is no such class, or none is asked for.
const QList<Shared::ListItem> *entriesOf(const ListLookup &lists, const QString &profile,
                                         const QString &classId)
{
    if (classId.isEmpty())
        return nullptr;
    const auto listsOfProfile = lists.constFind(profile);
    if (listsOfProfile == lists.constEnd())
        return nullptr;
    const auto entries = listsOfProfile->constFind(classId);
    return entries == listsOfProfile->constEnd() ? nullptr : &*entries;
}

// Adds the field of each profile that has the column.
void addFields(CatalogItem &item, const CatalogParserParamExtended &extension,
               const CatalogParserParameter &parameter, const QVector<const CatalogParserColumn *> &columns,
               const ListLookup &lists)
{
    if (columns.isEmpty())
        return;
    CatalogInputField field = commonField(extension, parameter);
    for (const CatalogParserColumn *column : columns) {
        field.setIsReadonly(column->readOnly);
        field.setIsVisible(column->visible);
        const auto *entries = entriesOf(lists, column->profileFk, extension.listClassId);
        if (!entries || entries->isEmpty()) {
            item.addField(column->profileFk, field);
            continue;
        }
        // A copy, so that the next profile does not inherit this one's list.
        CatalogInputField fieldWithList = field;
        fieldWithList.setItemList(*entries);
        item.addField(column->profileFk, fieldWithList);
    }
}

} // namespace

void buildInputFields(const CatalogXMLParser &parser, Catalog &catalog, const ListLookup &lists)
{
    const QHash<QString, QSharedPointer<CatalogItem>> &items = catalog.getCatalogItems();
    const ProfileColumns columns = columnsOfProfiles(parser);
    const CatalogParserParameter noParameter;
    for (const CatalogParserParamExtended &extension : parser.m_parameterExtensions) {
        const QString &itemKey = extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
        const auto item = items.constFind(itemKey);
        if (item == items.constEnd() || !*item) {
            CLogger::logMessage(CLogger::Error, QStringLiteral("CatalogLoader"),
                                QStringLiteral("Catalog item ") + itemKey + QStringLiteral(" not found!"));
            continue;
        }
        const auto parameter = parser.m_parameters.constFind(extension.paramFk);
        const bool hasParameter = parameter != parser.m_parameters.constEnd();
        addFields(**item, extension, hasParameter ? *parameter : noParameter,
                  columns.value(extension.columnId), lists);
    }
}

} // namespace Orvida::Catalogs
