// What is read from a catalog file, as lines of text: a label and the properties of one record each.
#pragma once

#include "catalogs/model/CatalogInputField.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "support/TestSupport.h"

#include <QMap>
#include <QRegularExpression>
#include <QVariant>

namespace Orvida::Tests {

using namespace Orvida::Catalogs;

using ItemPtr = QSharedPointer<CatalogItem>;

/// In quotation marks, with invisible characters as \u0000.
inline QString quoted(const QString &value)
{
    QString result;
    for (const QChar c : value) {
        const bool isSeen = c.isSurrogate() || (c.isPrint() && (c == QLatin1Char(' ') || !c.isSpace()));
        result += isSeen ? QString(c) : text("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return QLatin1Char('"') + result + QLatin1Char('"');
}

/// " name=value" of every value but null texts, 0 and false; `expressions` is "r.name, r->name(), ...".
inline QString listed(const char *expressions, const QVariantList &values)
{
    static const QRegularExpression noName(text("r(\\.|->)|[^\\w,]"));
    const QStringList names = text(expressions).remove(noName).split(QLatin1Char(','));
    QString line;
    for (int i = 0; i < values.size(); ++i) {
        const QString value = values.at(i).toString();
        const bool isText = values.at(i).type() == QVariant::String;
        if (isText ? !value.isNull() : values.at(i).toBool())
            line += text(" %1=").arg(names.at(i)) + (isText ? quoted(value) : value);
    }
    return line;
}

// Defines what is listed of a record `r`. A plus turns flags into a number.
#define ORVIDA_LISTED(Record, ...)                                                                           \
    inline QString propertiesOf(const Record &r)                                                             \
    {                                                                                                        \
        return listed(#__VA_ARGS__, {__VA_ARGS__});                                                          \
    }

ORVIDA_LISTED(CatalogParserProfile, r.pk, r.format, r.exportType, r.description, r.sortOrder)
ORVIDA_LISTED(CatalogParserProfileExtended, r.pk, r.profileFk, r.isStart, r.isOrvida)
ORVIDA_LISTED(CatalogParserColumn, r.profileFk, r.listClassRef, r.columnId, r.exportId, r.caption,
              r.defaultValue, r.inputFormat, r.displayFormat, r.unit, r.toolTip, r.rangeFrom, r.rangeTo,
              r.steps, r.length, r.precision, r.sortOrder, r.transport, r.isVirtual, r.visible, r.readOnly,
              r.mandatory, r.dataType)
ORVIDA_LISTED(CatalogParserListClass, r.pk, r.classId, r.profileFk, r.caption, r.typeFlags, r.items.size())
ORVIDA_LISTED(CatalogParserListItem, r.item, r.internal, r.paramId, r.classFk, r.sortOrder, r.caption)
ORVIDA_LISTED(CatalogParserParameter, r.pk, r.id, r.placeholder, r.caption, r.prefix, r.suffix, r.unit,
              r.sortOrder, r.dataType, r.typeFlags)
ORVIDA_LISTED(CatalogParserParamExtended, r.baseCodeFk, r.charExtFk, r.paramFk, r.defaultValue, r.inputFormat,
              r.displayFormat, r.columnId, r.listClassId, r.rangeFrom, r.rangeTo, r.steps, r.length,
              r.precision, r.clockType, r.mandatory)
ORVIDA_LISTED(ItemPtr, r->id(), r->parentId(), r->caption(), r->code(), r->followers(), r->item(),
              r->remarks(), r->iconId(), r->observationText(), r->closeCode(), +r->typeFlags(),
              r->sortOrder(), r->constructionType(), r->autoPicture(), r->isVirtual())

ORVIDA_LISTED(CatalogInputField, r.caption(), r.boundColumn(), r.defaultValue(), r.displayFormat(),
              r.inputFormat(), r.minimumValue(), r.maximumValue(), r.step(), r.observationTextParamName(),
              r.prefix(), r.suffix(), r.unit(), r.maximumTextLength(), r.precission(), r.sortOrder(),
              r.dataType(), +r.typeFlags(), r.isMandatory(), r.isReadonly(), r.isVisible())
ORVIDA_LISTED(Shared::ListItem, r.value(), r.caption(), r.itemText())

/// A table sorted by its keys.
template <typename Value>
QMap<QString, Value> sorted(const QHash<QString, Value> &table)
{
    QMap<QString, Value> result;
    for (auto entry = table.cbegin(); entry != table.cend(); ++entry)
        result.insert(entry.key(), *entry);
    return result;
}

template <typename Record>
QStringList linesOf(const QString &label, const Record &record)
{
    return {label + propertiesOf(record)};
}

template <typename Record>
QStringList linesOf(const QString &label, const QList<Record> &records)
{
    QStringList lines;
    for (const Record &record : records)
        lines += linesOf(label, record);
    return lines;
}

template <typename Value>
QStringList linesOf(const QString &label, const QHash<QString, Value> &table)
{
    QStringList lines;
    const auto inOrder = sorted(table);
    for (auto entry = inOrder.cbegin(); entry != inOrder.cend(); ++entry)
        lines += linesOf(label + QLatin1Char(' ') + quoted(entry.key()), *entry);
    return lines;
}

/// All records that `parser` keeps.
inline QStringList linesOf(const CatalogXMLParser &parser)
{
    return linesOf(text("profile"), parser.m_profiles)
           + linesOf(text("profile extension"), parser.m_profileExtensions)
           + linesOf(text("column"), parser.m_columns) + linesOf(text("list class"), parser.m_listClasses)
           + linesOf(text("list item"), parser.m_listItems) + linesOf(text("parameter"), parser.m_parameters)
           + linesOf(text("parameter extension"), parser.m_parameterExtensions);
}

/// A catalog file that was read, with everything that was read from it.
class Reading
{
public:
    explicit Reading(const QByteArray &content)
        : m_succeeded(m_parser.readFile(m_folder.write(text("catalog.xml"), content), m_items))
    {
    }

    bool succeeded() const { return m_succeeded; }
    const CatalogReadFailure &failure() const { return m_parser.failure(); }
    /// Of all records and items.
    QString lines() const
    {
        return (linesOf(m_parser) + linesOf(text("item"), m_items)).join(QLatin1Char('\n'));
    }

private:
    CatalogFolder m_folder;
    CatalogXMLParser m_parser;
    QHash<QString, ItemPtr> m_items;
    const bool m_succeeded;
};

} // namespace Orvida::Tests
