#include "catalogs/building/InputFields_p.h"

#include "catalogs/LogCategories_p.h"
#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "catalogs/reading/FileOrder_p.h"
#include "shared/CLogger.h"
#include "shared/DoubleFormater.h"

#include <QSet>
#include <QVector>

namespace Orvida::Catalogs {

namespace {

using Logging::CLogger;
using Shared::DoubleFormater;
using Shared::InputField;
using Columns = QVector<const CatalogParserColumn *>;

// Composes the captions of the fields of one extension. They are mostly equal in all profiles, and then share
// one string.
class Captions
{
public:
    explicit Captions(const QString &parameterCaption) : m_parameterCaption(parameterCaption) {}

    QString captionOf(const CatalogInputField &field)
    {
        if (isClockPosition(field))
            return composed(QStringLiteral("%1 (%2 x %3)"), field.prefix(), field.suffix());
        if (!showsRange(field))
            return m_parameterCaption;
        // In this order, not as two arguments of one call: hosts see when their formatter is called.
        const QString minimum = DoubleFormater::toString(field.minimumValue(), field.inputFormat());
        const QString maximum = DoubleFormater::toString(field.maximumValue(), field.inputFormat());
        return composed(QStringLiteral("%1 (%2 - %3)"), minimum, maximum);
    }

private:
    // A clock position reads as a span of the clock, from prefix to suffix, whatever its type and range.
    static bool isClockPosition(const CatalogInputField &field)
    {
        return field.observationTextParamName().toUpper() == QLatin1String("@CLK");
    }

    static bool showsRange(const CatalogInputField &field)
    {
        if (field.dataType() == InputField::Boolean)
            return false;
        const QString minimum = field.minimumValue();
        const QString maximum = field.maximumValue();
        return minimum != maximum && !minimum.isEmpty() && !maximum.isEmpty();
    }

    // The markers are replaced in one pass, so that a percent sign in a caption stays what it is.
    QString composed(const QString &pattern, const QString &from, const QString &to)
    {
        if (m_composed.isNull() || from != m_from || to != m_to) {
            m_from = from;
            m_to = to;
            m_composed = pattern.arg(m_parameterCaption, from, to);
        }
        return m_composed;
    }

    const QString m_parameterCaption;
    // The caption composed last, and its limits. All fields of an extension have one pattern.
    QString m_composed;
    QString m_from;
    QString m_to;
};

// The setters are the host's, and a host sees their order.
CatalogInputField builtField(const CatalogParserParamExtended &extension,
                             const CatalogParserParameter &parameter, const CatalogParserColumn &column,
                             const ListLookup &lists, Captions &captions)
{
    CatalogInputField field;
    field.setBoundColumn(extension.columnId);
    field.setDefaultValue(extension.defaultValue);
    field.setDisplayFormat(extension.displayFormat);
    field.setInputFormat(extension.inputFormat);
    field.setIsMandatory(extension.mandatory);
    field.setIsReadonly(column.readOnly);
    field.setIsVisible(column.visible);
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
    field.setCaption(captions.captionOf(field));
    const auto listsOfProfile = lists.constFind(column.profileFk);
    if (listsOfProfile != lists.constEnd() && !extension.listClassId.isEmpty()) {
        const auto entries = listsOfProfile->constFind(extension.listClassId);
        if (entries != listsOfProfile->constEnd() && !entries->isEmpty())
            field.setItemList(*entries);
    }
    return field;
}

// By column id, one column per profile: the first in the file. Chosen once per column and not per extension,
// because files may have thousands of profiles.
QHash<QString, Columns> columnsById(const CatalogXMLParser &parser)
{
    QHash<QString, Columns> result;
    result.reserve(parser.m_columns.size());
    for (auto columns = parser.m_columns.cbegin(); columns != parser.m_columns.cend(); ++columns) {
        Columns &chosen = result[columns.key()];
        QSet<QString> profiles;
        for (const CatalogParserColumn &column : *columns) {
            if (profiles.contains(column.profileFk))
                continue;
            profiles.insert(column.profileFk);
            chosen.append(&column);
        }
    }
    return result;
}

} // namespace

void buildInputFields(const CatalogXMLParser &parser, Catalog &catalog, const ListLookup &lists)
{
    const QHash<QString, QSharedPointer<CatalogItem>> &items = catalog.getCatalogItems();
    const QHash<QString, Columns> columns = columnsById(parser);
    const CatalogParserParameter noParameter;
    for (const QString &key : parameterExtensionsInFileOrder(parser)) {
        const CatalogParserParamExtended &extension = *parser.m_parameterExtensions.constFind(key);
        const QString &itemKey = extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
        const auto item = items.constFind(itemKey);
        if (item == items.constEnd() || !*item) {
            CLogger::logMessage(CLogger::Error, catalogLoaderCategory,
                                QStringLiteral("Catalog item ") + itemKey + QStringLiteral(" not found!"));
            continue;
        }
        const auto found = parser.m_parameters.constFind(extension.paramFk);
        const CatalogParserParameter &parameter =
            found != parser.m_parameters.constEnd() ? *found : noParameter;
        Captions captions(parameter.caption);
        for (const CatalogParserColumn *column : columns.value(extension.columnId))
            (*item)->addField(column->profileFk, builtField(extension, parameter, *column, lists, captions));
    }
}

} // namespace Orvida::Catalogs
