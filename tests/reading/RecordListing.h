// For tests of the reader: records written from short descriptions, and what was read as lines of text.
#pragma once

#include "catalogs/reading/CatalogXMLParser.h"
#include "support/TestSupport.h"

#include <QRegularExpression>
#include <QVariant>

namespace Orvida::Tests {

using namespace Orvida::Catalogs;

using Items = QHash<QString, QSharedPointer<CatalogItem>>;

// " name=value" of every value that is not empty, 0 or false; `expressions` is "r.name, r->name(), ...".
inline QString listed(const char *expressions, const QVariantList &values)
{
    static const QRegularExpression noName(QStringLiteral("r(\\.|->)|[^\\w,]"));
    const QStringList names = QString::fromLatin1(expressions).remove(noName).split(QLatin1Char(','));
    QString line;
    for (int i = 0; i < values.size(); ++i) {
        const QString value = values.at(i).toString();
        if (!value.isEmpty() && value != QLatin1String("0") && value != QLatin1String("false"))
            line += QLatin1Char(' ') + names.at(i) + QLatin1Char('=') + value;
    }
    return line;
}

// Defines what is listed of a record `r`.
#define ORVIDA_LISTED(Record, ...)                                                                           \
    inline QString fieldsOf(const Record &r)                                                                 \
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
// The plus makes a number of the flags.
ORVIDA_LISTED(QSharedPointer<CatalogItem>, r->id(), r->parentId(), r->caption(), r->code(), r->followers(),
              r->item(), r->remarks(), r->iconId(), r->observationText(), r->closeCode(), +r->typeFlags(),
              r->sortOrder(), r->constructionType(), r->autoPicture(), r->isVirtual())

// One line per record: the label of its container, its key there, its fields.
template <typename Record>
QStringList linesOf(const QString &label, const Record &record)
{
    return {label + fieldsOf(record)};
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
    QStringList keys = table.keys();
    keys.sort();
    QStringList lines;
    for (const QString &key : qAsConst(keys))
        lines += linesOf(label + QLatin1Char('[') + key + QLatin1Char(']'), table.value(key));
    return lines;
}

// A catalog file that was read, with all that came of it.
class Reading
{
public:
    explicit Reading(const QByteArray &content)
        : m_succeeded(m_parser.readFile(m_folder.write(QStringLiteral("catalog.xml"), content), m_items))
    {
    }

    bool succeeded() const { return m_succeeded; }
    const CatalogReadFailure &failure() const { return m_parser.failure(); }

    // The lines of all records, separated by '|'.
    QString lines() const
    {
        const QStringList lines = linesOf(QStringLiteral("profile"), m_parser.m_profiles)
                                  + linesOf(QStringLiteral("extension"), m_parser.m_profileExtensions)
                                  + linesOf(QStringLiteral("parameter"), m_parser.m_parameters)
                                  + linesOf(QStringLiteral("field"), m_parser.m_parameterExtensions)
                                  + linesOf(QStringLiteral("column"), m_parser.m_columns)
                                  + linesOf(QStringLiteral("class"), m_parser.m_listClasses)
                                  + linesOf(QStringLiteral("entry"), m_parser.m_listItems)
                                  + linesOf(QStringLiteral("item"), m_items);
        return lines.join(QLatin1Char('|'));
    }

private:
    CatalogFolder m_folder;
    CatalogXMLParser m_parser;
    Items m_items;
    const bool m_succeeded;
};

// The records that `text` describes, separated by '|': each is its element and its fields, NAME=text, or
// NAME~text for a text to scramble.
inline QByteArray records(const QByteArray &text)
{
    static const QRegularExpression mark(QStringLiteral("[=~]"));
    QByteArray xml;
    for (const QByteArray &description : text.split('|')) {
        QStringList words = QString::fromUtf8(description).split(QLatin1Char(' '));
        const QByteArray element = words.takeFirst().toUtf8();
        xml += '<' + element + ">\n";
        for (const QString &word : qAsConst(words)) {
            const QByteArray name = word.section(mark, 0, 0).toUtf8();
            const QString value = word.mid(name.size() + 1);
            xml += word.at(name.size()) == QLatin1Char('~') ? scrambled(name, value) : field(name, value);
        }
        xml += "</" + element + ">\n";
    }
    return xml;
}

} // namespace Orvida::Tests
