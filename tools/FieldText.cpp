#include "tools/FieldText.h"

#include <QStringList>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogInputField;
using Shared::InputField;

QString typeName(InputField::DataType type)
{
    switch (type) {
    case InputField::Text: return QStringLiteral("text");
    case InputField::Integer: return QStringLiteral("integer");
    case InputField::Decimal: return QStringLiteral("decimal");
    case InputField::Boolean: return QStringLiteral("boolean");
    case InputField::Date: return QStringLiteral("date");
    case InputField::Undefined: break;
    }
    return QStringLiteral("undefined type");
}

QString flags(const CatalogInputField &field)
{
    QStringList words;
    if (field.isMandatory())
        words << QStringLiteral("mandatory");
    if (field.isReadonly())
        words << QStringLiteral("read-only");
    if (!field.isVisible())
        words << QStringLiteral("hidden");
    return words.join(QStringLiteral(", "));
}

QString range(const CatalogInputField &field)
{
    if (field.minimumValue().isEmpty() && field.maximumValue().isEmpty())
        return QString();
    if (field.maximumValue().isEmpty())
        return QStringLiteral("from ") + field.minimumValue();
    if (field.minimumValue().isEmpty())
        return QStringLiteral("up to ") + field.maximumValue();
    return QStringLiteral("%1 to %2").arg(field.minimumValue(), field.maximumValue());
}

QString list(const CatalogInputField &field, const QString &listName)
{
    const int size = field.itemList().size();
    if (size == 0)
        return QString();
    return QStringLiteral("%1%2 of %3")
        .arg(QStringLiteral("list"), listName.isEmpty() ? QString() : QLatin1Char(' ') + listName)
        .arg(size);
}

QString labelled(const char *label, const QString &text)
{
    return text.isEmpty() ? QString() : QString::fromLatin1(label) + text;
}

QString numberUnlessZero(qint64 number)
{
    return number == 0 ? QString() : QString::number(number);
}

} // namespace

QString fieldLine(const CatalogInputField &field, const QString &listName)
{
    QStringList facts{typeName(field.dataType()),
                      labelled("in ", field.unit()),
                      flags(field),
                      labelled("range ", range(field)),
                      labelled("default ", field.defaultValue()),
                      list(field, listName)};
    facts.removeAll(QString());
    return QStringLiteral("\u00B7 %1: %2").arg(field.caption(), facts.join(QStringLiteral(", ")));
}

QList<QPair<QString, QString>> fieldProperties(const CatalogInputField &field, const QString &listName)
{
    QList<QPair<QString, QString>> properties{
        {QStringLiteral("type"), typeName(field.dataType())},
        {QStringLiteral("unit"), field.unit()},
        {QStringLiteral("flags"), flags(field)},
        {QStringLiteral("range"), range(field)},
        {QStringLiteral("step"), field.step()},
        {QStringLiteral("decimals"), numberUnlessZero(field.precission())},
        {QStringLiteral("longest text"), numberUnlessZero(field.maximumTextLength())},
        {QStringLiteral("default"), field.defaultValue()},
        {QStringLiteral("input format"), field.inputFormat()},
        {QStringLiteral("display format"), field.displayFormat()},
        {QStringLiteral("placeholder"), field.observationTextParamName()},
        {QStringLiteral("prefix"), field.prefix()},
        {QStringLiteral("suffix"), field.suffix()},
        {QStringLiteral("column"), field.boundColumn()},
        {QStringLiteral("type flags"), numberUnlessZero(static_cast<qint64>(field.typeFlags()))},
        {QStringLiteral("sort order"), QString::number(field.sortOrder())},
        {QStringLiteral("values"), list(field, listName)},
    };
    const auto isEmpty = [](const QPair<QString, QString> &property) { return property.second.isEmpty(); };
    properties.erase(std::remove_if(properties.begin(), properties.end(), isEmpty), properties.end());
    return properties;
}

} // namespace Orvida::Tools
