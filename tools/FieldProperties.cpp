#include "tools/FieldProperties.h"

#include "tools/JsonText.h"

#include <QJsonArray>
#include <QStringList>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogInputField;
using Catalogs::TypeFlags;
using Shared::InputField;
using Shared::ListItem;

QJsonValue valueOf(int number)
{
    return number;
}

QJsonValue valueOf(bool flag)
{
    return flag;
}

QJsonValue valueOf(TypeFlags flags)
{
    return jsonOf(static_cast<qint64>(flags));
}

QJsonValue valueOf(const QString &text)
{
    return jsonOf(text);
}

QJsonValue valueOf(const QList<ListItem> &entries)
{
    QJsonArray array;
    for (const ListItem &entry : entries)
        array.append(QJsonObject{{QStringLiteral("value"), jsonOf(entry.value().toString())},
                                 {QStringLiteral("caption"), jsonOf(entry.caption())},
                                 {QStringLiteral("itemText"), jsonOf(entry.itemText())}});
    return array;
}

// A property in JSON, by its getter.
template <auto getter>
QJsonValue json(const CatalogInputField &field)
{
    return valueOf((field.*getter)());
}

// In words; each function says the property as the form shows it.

template <auto getter>
QString text(const CatalogInputField &field, const QString &)
{
    return (field.*getter)();
}

template <auto getter>
QString numberUnlessZero(const CatalogInputField &field, const QString &)
{
    const qint64 number = (field.*getter)();
    return number == 0 ? QString() : QString::number(number);
}

QString typeName(const CatalogInputField &field, const QString &)
{
    switch (field.dataType()) {
    case InputField::Text: return QStringLiteral("text");
    case InputField::Integer: return QStringLiteral("integer");
    case InputField::Decimal: return QStringLiteral("decimal");
    case InputField::Boolean: return QStringLiteral("boolean");
    case InputField::Date: return QStringLiteral("date");
    case InputField::Undefined: break;
    }
    return QStringLiteral("undefined type");
}

QString mandatory(const CatalogInputField &field, const QString &)
{
    return field.isMandatory() ? QStringLiteral("mandatory") : QString();
}

QString readOnly(const CatalogInputField &field, const QString &)
{
    return field.isReadonly() ? QStringLiteral("read-only") : QString();
}

QString hidden(const CatalogInputField &field, const QString &)
{
    return field.isVisible() ? QString() : QStringLiteral("hidden");
}

QString lowerLimit(const CatalogInputField &field, const QString &)
{
    const QString limit = field.minimumValue();
    return limit.isEmpty() || !field.maximumValue().isEmpty() ? limit : QStringLiteral("from ") + limit;
}

QString upperLimit(const CatalogInputField &field, const QString &)
{
    const QString limit = field.maximumValue();
    if (limit.isEmpty())
        return QString();
    return (field.minimumValue().isEmpty() ? QStringLiteral("up to ") : QStringLiteral("to ")) + limit;
}

QString sortOrder(const CatalogInputField &field, const QString &)
{
    return QString::number(field.sortOrder());
}

QString list(const CatalogInputField &field, const QString &listName)
{
    const int size = field.itemList().size();
    if (size == 0)
        return QString();
    return QStringLiteral("list%1 of %2")
        .arg(listName.isEmpty() ? QString() : QLatin1Char(' ') + listName, QString::number(size));
}

using Field = CatalogInputField;
using L = QLatin1String;

// clang-format off
const FieldProperty properties[] = {
    {L("caption"), L("caption"), nullptr, ", ", L("PARAM_Caption"), json<&Field::caption>, text<&Field::caption>},
    {L("dataType"), L("type"), "", ", ", L("PARAM_DataType"), json<&Field::dataType>, typeName},
    {L("unit"), L("unit"), "in ", ", ", L("PARAM_Unit"), json<&Field::unit>, text<&Field::unit>},
    {L("isMandatory"), L("flags"), "", ", ", L("PX_Mandatory"), json<&Field::isMandatory>, mandatory},
    {L("isReadonly"), L("flags"), "", ", ", L("COL_ReadOnly"), json<&Field::isReadonly>, readOnly},
    {L("isVisible"), L("flags"), "", ", ", L("COL_Visible"), json<&Field::isVisible>, hidden},
    {L("minimumValue"), L("range"), "range ", " ", L("PX_RangeFrom"), json<&Field::minimumValue>, lowerLimit},
    {L("maximumValue"), L("range"), "range ", " ", L("PX_RangeTo"), json<&Field::maximumValue>, upperLimit},
    {L("step"), L("step"), nullptr, ", ", L("PX_Steps"), json<&Field::step>, text<&Field::step>},
    {L("precission"), L("decimals"), nullptr, ", ", L("PX_Precision"), json<&Field::precission>, numberUnlessZero<&Field::precission>},
    {L("maximumTextLength"), L("longest text"), nullptr, ", ", L("PX_Length"), json<&Field::maximumTextLength>, numberUnlessZero<&Field::maximumTextLength>},
    {L("defaultValue"), L("default"), "default ", ", ", L("PX_Default"), json<&Field::defaultValue>, text<&Field::defaultValue>},
    {L("inputFormat"), L("input format"), nullptr, ", ", L("PX_InputFmt"), json<&Field::inputFormat>, text<&Field::inputFormat>},
    {L("displayFormat"), L("display format"), nullptr, ", ", L("PX_DisplayFmt"), json<&Field::displayFormat>, text<&Field::displayFormat>},
    {L("observationTextParamName"), L("placeholder"), nullptr, ", ", L("PARAM_Placeholder"), json<&Field::observationTextParamName>, text<&Field::observationTextParamName>},
    {L("prefix"), L("prefix"), nullptr, ", ", L("PARAM_Prefix"), json<&Field::prefix>, text<&Field::prefix>},
    {L("suffix"), L("suffix"), nullptr, ", ", L("PARAM_Suffix"), json<&Field::suffix>, text<&Field::suffix>},
    {L("boundColumn"), L("column"), nullptr, ", ", L("PX_Column_ID"), json<&Field::boundColumn>, text<&Field::boundColumn>},
    {L("typeFlags"), L("type flags"), nullptr, ", ", L("PARAM_TypeFlags"), json<&Field::typeFlags>, numberUnlessZero<&Field::typeFlags>},
    {L("sortOrder"), L("sort order"), nullptr, ", ", L("PARAM_SortOrder"), json<&Field::sortOrder>, sortOrder},
    {L("itemList"), L("values"), "", ", ", L("PX_ListClass_ID"), json<&Field::itemList>, list},
};
// clang-format on

} // namespace

QJsonObject fieldToJson(const CatalogInputField &field)
{
    QJsonObject object;
    for (const FieldProperty &property : properties)
        object.insert(property.name, property.toJson(field));
    return object;
}

QVector<FieldWords> wordsOf(const CatalogInputField &field, const QString &listName)
{
    QVector<FieldWords> lines;
    for (const FieldProperty &property : properties) {
        const QString words = property.toWords(field, listName);
        if (words.isEmpty())
            continue;
        if (lines.isEmpty() || lines.last().label != property.label)
            lines.append({property.label, property.lead, words, {&property}});
        else {
            lines.last().words += QLatin1String(property.joint) + words;
            lines.last().properties.append(&property);
        }
    }
    return lines;
}

QString fieldLine(const CatalogInputField &field, const QString &listName)
{
    QStringList facts;
    for (const FieldWords &line : wordsOf(field, listName)) {
        if (line.lead)
            facts << QLatin1String(line.lead) + line.words;
    }
    return QStringLiteral("\u00B7 %1: %2").arg(field.caption(), facts.join(QStringLiteral(", ")));
}

} // namespace Orvida::Tools
