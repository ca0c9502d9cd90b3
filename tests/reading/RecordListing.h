// For tests of the reader: files written from short descriptions, and what was read as lines of text.
#pragma once

#include "catalogs/reading/CatalogXMLParser.h"
#include "support/TestSupport.h"

#include <QPair>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace Orvida::Tests {

using namespace Orvida::Catalogs;

using Fields = QVector<QPair<const char *, QVariant>>;
using Items = QHash<QString, QSharedPointer<CatalogItem>>;

inline Fields fieldsOf(const CatalogParserProfile &r)
{
    return {{"pk", r.pk},
            {"format", r.format},
            {"exportType", r.exportType},
            {"description", r.description},
            {"sortOrder", r.sortOrder}};
}

inline Fields fieldsOf(const CatalogParserProfileExtended &r)
{
    return {{"pk", r.pk}, {"profileFk", r.profileFk}, {"isStart", r.isStart}, {"isOrvida", r.isOrvida}};
}

inline Fields fieldsOf(const CatalogParserColumn &r)
{
    return {{"profileFk", r.profileFk},
            {"listClassRef", r.listClassRef},
            {"columnId", r.columnId},
            {"exportId", r.exportId},
            {"caption", r.caption},
            {"defaultValue", r.defaultValue},
            {"inputFormat", r.inputFormat},
            {"displayFormat", r.displayFormat},
            {"unit", r.unit},
            {"toolTip", r.toolTip},
            {"rangeFrom", r.rangeFrom},
            {"rangeTo", r.rangeTo},
            {"steps", r.steps},
            {"length", r.length},
            {"precision", r.precision},
            {"sortOrder", r.sortOrder},
            {"transport", r.transport},
            {"isVirtual", r.isVirtual},
            {"visible", r.visible},
            {"readOnly", r.readOnly},
            {"mandatory", r.mandatory},
            {"dataType", int(r.dataType)}};
}

inline Fields fieldsOf(const CatalogParserListClass &r)
{
    return {{"pk", r.pk},           {"classId", r.classId},     {"profileFk", r.profileFk},
            {"caption", r.caption}, {"typeFlags", r.typeFlags}, {"items", r.items.size()}};
}

inline Fields fieldsOf(const CatalogParserListItem &r)
{
    return {{"item", r.item},       {"internal", r.internal},   {"paramId", r.paramId},
            {"classFk", r.classFk}, {"sortOrder", r.sortOrder}, {"caption", r.caption}};
}

inline Fields fieldsOf(const CatalogParserParameter &r)
{
    return {{"pk", r.pk},
            {"id", r.id},
            {"placeholder", r.placeholder},
            {"caption", r.caption},
            {"prefix", r.prefix},
            {"suffix", r.suffix},
            {"unit", r.unit},
            {"sortOrder", r.sortOrder},
            {"dataType", r.dataType},
            {"typeFlags", r.typeFlags}};
}

inline Fields fieldsOf(const CatalogParserParamExtended &r)
{
    return {{"baseCodeFk", r.baseCodeFk},
            {"charExtFk", r.charExtFk},
            {"paramFk", r.paramFk},
            {"defaultValue", r.defaultValue},
            {"inputFormat", r.inputFormat},
            {"displayFormat", r.displayFormat},
            {"columnId", r.columnId},
            {"listClassId", r.listClassId},
            {"rangeFrom", r.rangeFrom},
            {"rangeTo", r.rangeTo},
            {"steps", r.steps},
            {"length", r.length},
            {"precision", r.precision},
            {"clockType", r.clockType},
            {"mandatory", r.mandatory}};
}

inline Fields fieldsOf(const QSharedPointer<CatalogItem> &i)
{
    return {{"id", i->id()},
            {"parentId", i->parentId()},
            {"caption", i->caption()},
            {"code", i->code()},
            {"followers", i->followers()},
            {"item", i->item()},
            {"remarks", i->remarks()},
            {"iconId", i->iconId()},
            {"observationText", i->observationText()},
            {"closeCode", i->closeCode()},
            {"typeFlags", int(i->typeFlags())},
            {"sortOrder", i->sortOrder()},
            {"constructionType", i->constructionType()},
            {"autoPicture", i->autoPicture()},
            {"isVirtual", i->isVirtual()}};
}

// One record per line: its container, its key there, and its fields without those that are empty, 0 or false.
class Listing
{
public:
    QStringList lines;
    QStringList textsNotNull; // names of the texts that are empty but not null

    template <typename Record>
    void add(const QString &label, const Record &record)
    {
        QString line = label;
        for (const auto &field : fieldsOf(record)) {
            const QString value = field.second.toString();
            if (value.isEmpty() && !value.isNull())
                textsNotNull += QLatin1String(field.first);
            if (!value.isEmpty() && value != QLatin1String("0") && value != QLatin1String("false"))
                line += QLatin1Char(' ') + QLatin1String(field.first) + QLatin1Char('=') + value;
        }
        lines.append(line);
    }

    template <typename Record>
    void add(const QString &label, const QList<Record> &records)
    {
        for (const Record &record : records)
            add(label, record);
    }

    template <typename Value>
    void add(const QString &label, const QHash<QString, Value> &table)
    {
        QStringList keys = table.keys();
        keys.sort();
        for (const QString &key : qAsConst(keys))
            add(label + QLatin1Char('[') + key + QLatin1Char(']'), table.value(key));
    }
};

// A catalog file that was read, with all that came of it.
class Reading
{
public:
    explicit Reading(const QByteArray &content)
        : m_succeeded(m_parser.readFile(m_folder.write(QStringLiteral("catalog.xml"), content), m_items))
    {
    }

    bool succeeded() const { return m_succeeded; }
    const CatalogXMLParser &parser() const { return m_parser; }

    Listing listing() const
    {
        Listing listing;
        listing.add(QStringLiteral("profile"), m_parser.m_profiles);
        listing.add(QStringLiteral("extension"), m_parser.m_profileExtensions);
        listing.add(QStringLiteral("parameter"), m_parser.m_parameters);
        listing.add(QStringLiteral("field"), m_parser.m_parameterExtensions);
        listing.add(QStringLiteral("column"), m_parser.m_columns);
        listing.add(QStringLiteral("class"), m_parser.m_listClasses);
        listing.add(QStringLiteral("entry"), m_parser.m_listItems);
        listing.add(QStringLiteral("item"), m_items);
        return listing;
    }
    QString lines() const { return listing().lines.join(QLatin1Char('\n')); }

private:
    CatalogFolder m_folder;
    CatalogXMLParser m_parser;
    Items m_items;
    const bool m_succeeded;
};

// The field that `word` stands for: NAME=text, or NAME~text for a text to scramble.
inline QByteArray fieldOf(const QString &word)
{
    const bool isScrambled = word.contains(QLatin1Char('~'));
    const QChar mark = QLatin1Char(isScrambled ? '~' : '=');
    const QByteArray name = word.section(mark, 0, 0).toLatin1();
    const QString text = word.section(mark, 1);
    return isScrambled ? scrambled(name.constData(), text) : field(name.constData(), text);
}

inline QByteArray record(const QString &element, const QByteArray &fields)
{
    return '<' + element.toLatin1() + ">\n" + fields + "</" + element.toLatin1() + ">\n";
}

inline QByteArray record(const QString &element, const QStringList &words)
{
    QByteArray fields;
    for (const QString &word : words)
        fields += fieldOf(word);
    return record(element, fields);
}

// The record that `text` describes: its element, and its fields as words.
inline QByteArray record(const char *text)
{
    const QStringList words = QString::fromUtf8(text).split(QLatin1Char(' '));
    return record(words.first(), words.mid(1));
}

// A file with one profile "p", with `inside` among its fields.
inline QByteArray profileWith(const QByteArray &inside)
{
    return "<OVCAT><CATPRO><PRO_PK>p</PRO_PK>" + inside + "</CATPRO></OVCAT>";
}

} // namespace Orvida::Tests
