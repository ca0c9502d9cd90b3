#include "tools/FieldSources.h"

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;
using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;
using Catalogs::CatalogParserParamExtended;
using KeySpace = CatalogFormat::KeySpace;
using Record = RecordPositions::Record;

QString atLine(const QString &text, const FilePosition &position)
{
    return QStringLiteral("%1, line %2").arg(text, QString::number(position.line));
}

QString inWords(const Record &record)
{
    QString text = QStringLiteral("%1 %2").arg(record.format->name, record.key);
    if (!record.profile.isEmpty())
        text += QStringLiteral(" of ") + record.profile;
    return atLine(text, record.position);
}

// The one of the records that is a `recordName`.
const Record *holderOf(const QString &recordName, const FieldSources::Records &records)
{
    for (const Record *record : {records.extension, records.parameter, records.column, records.listClass}) {
        if (record && record->format->name == recordName)
            return record;
    }
    return nullptr;
}

// Only a parameter may be missing: there is no field without the others.
QString missingRecord(const QString &recordName, const FieldSources::Records &records)
{
    const QLatin1String reference("PX_Param_FK");
    const RecordPositions::Field *field = records.extension ? records.extension->field(reference) : nullptr;
    if (!field)
        return QStringLiteral("%1 is missing").arg(reference);
    return QStringLiteral("%1 names no %2")
        .arg(atLine(reference + QLatin1Char(' ') + quoted(field->value), field->position), recordName);
}

QString elementSource(QLatin1String element, const FieldSources::Records &records)
{
    const QString recordName = CatalogFormat::recordOf(*CatalogFormat::field(element))->name;
    const Record *record = holderOf(recordName, records);
    if (!record)
        return missingRecord(recordName, records);
    const RecordPositions::Field *field = record->field(element);
    return field ? atLine(element, field->position)
                 : QStringLiteral("%1 is missing in %2").arg(element, inWords(*record));
}

// Why the caption of a field is more than that of its parameter, or is not although it has limits.
QString captionRule(const CatalogInputField &field)
{
    if (field.observationTextParamName().toUpper() == QLatin1String("@CLK"))
        return QStringLiteral("with prefix and suffix, because the placeholder is %1")
            .arg(field.observationTextParamName());
    const bool hasLower = !field.minimumValue().isEmpty();
    const bool hasUpper = !field.maximumValue().isEmpty();
    if (!hasLower && !hasUpper)
        return QString();
    if (field.dataType() == Shared::InputField::Boolean)
        return QStringLiteral("without the range, because the type is boolean");
    if (!hasLower || !hasUpper)
        return QStringLiteral("without the range, because it has one limit only");
    if (field.minimumValue() == field.maximumValue())
        return QStringLiteral("without the range, because both limits are equal");
    return QStringLiteral("with the range, because both limits are given");
}

} // namespace

QString FieldSources::recordOf(const CatalogItem &item) const
{
    const Record *record = find(KeySpace::Item, item.id());
    return record ? inWords(*record) : QString();
}

FieldSources::Records FieldSources::recordsOf(const CatalogItem &item, const CatalogInputField &field) const
{
    Records records;
    const QStringList keys = m_origins.extensionsOf(item, field);
    for (const QString &key : keys) {
        records.extension = find(KeySpace::ParameterExtension, key);
        records.extensions << (records.extension ? inWords(*records.extension) : key);
    }
    if (keys.size() != 1) {
        records.extension = nullptr;
        return records;
    }
    const CatalogParserParamExtended extension = m_file.records().m_parameterExtensions.value(keys.first());
    records.parameter = find(KeySpace::Parameter, extension.paramFk);
    records.column = find(KeySpace::Column, extension.columnId);
    records.listClass = find(KeySpace::ListClassId, extension.listClassId);
    return records;
}

QString FieldSources::sourceOf(const FieldWords &line, const CatalogInputField &field,
                               const Records &records) const
{
    QStringList sources;
    for (const FieldProperty *property : line.properties)
        sources << elementSource(property->element, records);
    if (line.label == QLatin1String("caption"))
        sources << captionRule(field);
    if (line.label == QLatin1String("values") && records.listClass)
        sources << inWords(*records.listClass);
    sources.removeAll(QString());
    return sources.join(QStringLiteral("; "));
}

QString FieldSources::missingListOf(const CatalogInputField &field, const Records &records) const
{
    const RecordPositions::Field *list =
        records.extension ? records.extension->field(QLatin1String("PX_ListClass_ID")) : nullptr;
    if (!list || list->value.isEmpty() || !field.itemList().isEmpty())
        return QString();
    const QString source = atLine(list->format->name, list->position);
    if (!records.listClass)
        return QStringLiteral("%1; there is no LC %2 of %3")
            .arg(source, list->value, m_file.catalog().profile());
    return QStringLiteral("%1; no LIST names the LC_PK of %2").arg(source, inWords(*records.listClass));
}

QStringList FieldSources::fieldlessExtensionsOf(const CatalogItem &item) const
{
    QStringList lines;
    for (const QString &key : m_origins.extensionsOf(item)) {
        const QString reason = reasonForNoField(m_file.records().m_parameterExtensions.value(key));
        const Record *record = find(KeySpace::ParameterExtension, key);
        if (!reason.isEmpty() && record)
            lines << QStringLiteral("%1: no field, because %2").arg(inWords(*record), reason);
    }
    return lines;
}

// Columns and list classes are looked up in the current profile.
const Record *FieldSources::find(KeySpace keySpace, const QString &key) const
{
    const bool hasProfile = keySpace == KeySpace::Column || keySpace == KeySpace::ListClassId;
    return m_file.positions().find(keySpace, key, hasProfile ? m_file.catalog().profile() : QString());
}

QString FieldSources::reasonForNoField(const CatalogParserParamExtended &extension) const
{
    if (extension.columnId.isEmpty())
        return QStringLiteral("it has no PX_Column_ID");
    if (find(KeySpace::Column, extension.columnId))
        return QString();
    const QString column = QStringLiteral("COL %1 of %2").arg(extension.columnId, m_file.catalog().profile());
    for (const Record &record : m_file.positions().records()) {
        if (record.keySpace == KeySpace::Column && record.key == extension.columnId
            && record.profile == m_file.catalog().profile())
            return inWords(record) + QStringLiteral(" has no known COL_DataType");
    }
    return QStringLiteral("there is no ") + column;
}

} // namespace Orvida::Tools
