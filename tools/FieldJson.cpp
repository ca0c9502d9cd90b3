#include "tools/FieldJson.h"

#include <QJsonArray>

namespace Orvida::Tools {

namespace {

QJsonArray entriesToJson(const QList<Shared::ListItem> &entries)
{
    QJsonArray array;
    for (const Shared::ListItem &entry : entries)
        array.append(QJsonObject{{QStringLiteral("value"), jsonOf(entry.value().toString())},
                                 {QStringLiteral("caption"), jsonOf(entry.caption())},
                                 {QStringLiteral("itemText"), jsonOf(entry.itemText())}});
    return array;
}

} // namespace

QJsonValue jsonOf(const QString &text)
{
    return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonValue jsonOf(qint64 number)
{
    return QString::number(number);
}

QJsonObject fieldToJson(const Catalogs::CatalogInputField &field)
{
    return {
        {QStringLiteral("caption"), jsonOf(field.caption())},
        {QStringLiteral("dataType"), field.dataType()},
        {QStringLiteral("boundColumn"), jsonOf(field.boundColumn())},
        {QStringLiteral("observationTextParamName"), jsonOf(field.observationTextParamName())},
        {QStringLiteral("prefix"), jsonOf(field.prefix())},
        {QStringLiteral("suffix"), jsonOf(field.suffix())},
        {QStringLiteral("unit"), jsonOf(field.unit())},
        {QStringLiteral("sortOrder"), field.sortOrder()},
        {QStringLiteral("typeFlags"), jsonOf(static_cast<qint64>(field.typeFlags()))},
        {QStringLiteral("isVisible"), field.isVisible()},
        {QStringLiteral("isReadonly"), field.isReadonly()},
        {QStringLiteral("isMandatory"), field.isMandatory()},
        {QStringLiteral("precission"), field.precission()},
        {QStringLiteral("maximumTextLength"), field.maximumTextLength()},
        {QStringLiteral("minimumValue"), jsonOf(field.minimumValue())},
        {QStringLiteral("maximumValue"), jsonOf(field.maximumValue())},
        {QStringLiteral("step"), jsonOf(field.step())},
        {QStringLiteral("defaultValue"), jsonOf(field.defaultValue())},
        {QStringLiteral("inputFormat"), jsonOf(field.inputFormat())},
        {QStringLiteral("displayFormat"), jsonOf(field.displayFormat())},
        {QStringLiteral("itemList"), entriesToJson(field.itemList())},
    };
}

} // namespace Orvida::Tools
