// Reads the records of a catalog file from an XML reader into items and records: one loop for all records and
// one switch per kind of record. A template, so that every XML reader of the library goes through the same
// steps.
#pragma once

#include "catalogs/format/CatalogFormat.h"
#include "catalogs/model/CatalogItem.h"
#include "catalogs/model/MakeShared_p.h"
#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/CatalogReadFailure.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "catalogs/reading/FieldConversion_p.h"
#include "catalogs/reading/PlainXmlScanner_p.h"
#include "catalogs/reading/TextPool_p.h"

#include <QHash>
#include <QSharedPointer>
#include <QVector>
#include <QXmlStreamReader>

#include <algorithm>
#include <initializer_list>
#include <tuple>
#include <utility>

namespace Orvida::Catalogs {

/// Where a reader puts what it reads. Refers to objects of its maker.
struct RecordStore
{
    CatalogXMLParser &records;
    QHash<QString, QSharedPointer<CatalogItem>> &items;
    /// Keys of the parameter extensions in the order in which each first came.
    QVector<QString> &parameterExtensionKeys;
    TextPool &texts;
};

/// Whether `token`, just read, is the last one: the document's end, or an error. Not asked of
/// QXmlStreamReader::atEnd(), which stays false forever when a device fails in the middle of a file.
inline bool isLast(QXmlStreamReader::TokenType token)
{
    return token == QXmlStreamReader::Invalid || token == QXmlStreamReader::EndDocument;
}

/// The token of the element on whose start tag `xml` is.
template <typename Token>
Token tokenIn(const QXmlStreamReader &xml, Token (*tokenOf)(const QStringRef &))
{
    return tokenOf(xml.name());
}

template <typename Token>
Token tokenIn(PlainXmlScanner &xml, Token (*tokenOf)(const QStringRef &))
{
    auto &known = xml.lookUpOfName();
    if (const auto lookUp = reinterpret_cast<void (*)()>(tokenOf); known.first != lookUp)
        known = {lookUp, static_cast<int>(tokenOf(xml.name()))};
    return static_cast<Token>(known.second);
}

/// Watches a reader at work. This one, a load's, does nothing, and the compiler leaves no trace of it.
///
/// Another one sees all that a load passes over. It takes the current token from the XML reader, which it
/// knows from its maker, and keeps what it wants: nothing is stored then.
struct NoObserver
{
    /// Whether the reader converts and stores values.
    static constexpr bool isStoring = true;

    /// A token outside of records was read.
    void seeOutside() {}
    /// The reader stands on the start tag of an element that it takes for a record.
    void beginRecord(CCatalogTokenizer::CatalogToken /*record*/) {}
    /// A token inside a record was read, the record's own tags included. `field` is the token of the field
    /// whose start tag or value it is, otherwise 0.
    void seeInside(int /*field*/) {}
    /// Of the record that has just ended: whether a load finds no text in `field`.
    bool isEmpty(const CatalogFormat::Field & /*field*/) { return false; }
    /// The record that has just ended is refused, as the reader's failure says; whether to continue.
    bool goesOnAfterRefusal() { return false; }
    /// The reader stands on the start tag of an element that is no record; skips it with its content.
    template <typename Xml>
    void skip(Xml &xml)
    {
        xml.skipCurrentElement();
    }
};

inline NoObserver noObserver;

/// `Xml` reads as QXmlStreamReader does: readNext(), tokenType(), name(), text(), skipCurrentElement(),
/// lineNumber() and columnNumber().
template <typename Xml, typename Observer = NoObserver>
class RecordReader
{
public:
    /// Reads from `xml`, whose document has not begun, into `store`; a refused record is reported in
    /// `failure`.
    RecordReader(Xml &xml, const RecordStore &store, CatalogReadFailure &failure,
                 Observer &observer = noObserver)
        : m_xml(xml),
          m_records(store.records),
          m_items(store.items),
          m_parameterExtensionKeys(store.parameterExtensionKeys),
          m_texts(store.texts),
          m_failure(failure),
          m_observer(observer)
    {
    }

    /// Reads up to the last token of the document, an XML error included, or to the first record that is
    /// refused, unless the observer continues after that; false for the latter, and when the document ends
    /// inside a record.
    [[nodiscard]] bool readDocument()
    {
        for (auto token = m_xml.readNext(); !isLast(token); token = m_xml.readNext()) {
            m_observer.seeOutside();
            if (token == QXmlStreamReader::StartElement && !readSection())
                return false;
        }
        return true;
    }

private:
    using Section = CCatalogTokenizer::CatalogToken;

    // The values of the fields that the format requires of a record, in the format's order.
    using RequiredValues = std::initializer_list<const QString *>;

    // Sections count only where readDocument meets them: at the top and inside root elements.
    [[nodiscard]] bool readSection()
    {
        switch (tokenIn(m_xml, &CCatalogTokenizer::stringToCatalogToken)) {
        case Section::OVCAT: return true;
        case Section::CATPRO: return readProfile();
        case Section::CPX: return readProfileExtension();
        case Section::COL: return readColumn();
        case Section::LC: return readListClass();
        case Section::LIST: return readListItem();
        case Section::CLASS: return readCodeClass();
        case Section::BASECODE: return readBaseCode();
        case Section::CHAREXT: return readCharacterExtension();
        case Section::PARAM: return readParameter();
        case Section::PARAMX: return readParameterExtension();
        case Section::CATALOG: return readCatalogInfo();
        case Section::Unknown: break;
        }
        m_observer.skip(m_xml);
        return true;
    }

    // A load passes over it.
    [[nodiscard]] bool readCatalogInfo()
    {
        if constexpr (Observer::isStoring) {
            m_observer.skip(m_xml);
        } else {
            // Nothing refuses it. A load goes on even if the document ends in it, and QXmlStreamReader moves
            // the place of a premature end with each call.
            std::ignore = readRecord(
                Section::CATALOG, &CCatalogTokenizer::stringToCatalogInfoToken, {},
                [](CCatalogTokenizer::CatalogInfoToken, const QStringRef &) {}, [] {});
        }
        return true;
    }

    // Reads one record, from its start tag to its own end tag: hands each known field with its text to `set`,
    // checks the required values, and ends with `store`. False when a value is missing, or when the file
    // ends, or its XML breaks, inside the record.
    template <typename Token, typename Set, typename Store>
    [[nodiscard]] bool readRecord(Section section, Token (*tokenOf)(const QStringRef &),
                                  RequiredValues requiredValues, Set set, Store store)
    {
        // A refused record is reported where its missing field belongs, and not at its end.
        const qint64 line = m_xml.lineNumber();
        const qint64 column = m_xml.columnNumber() + 1;
        m_observer.beginRecord(section);
        if (!readFields(tokenOf, set))
            return false;
        if (!checkRequired(section, requiredValues)) {
            m_failure.line = line;
            m_failure.column = column;
            return m_observer.goesOnAfterRefusal();
        }
        if constexpr (Observer::isStoring)
            store();
        return true;
    }

    // Only the first piece of text after a field's start tag counts; unknown fields and elements inside a
    // field are skipped.
    template <typename Token, typename Set>
    [[nodiscard]] bool readFields(Token (*tokenOf)(const QStringRef &), Set set)
    {
        Token field = Token::Unknown;
        int depth = 0;
        for (auto token = m_xml.tokenType(); !isLast(token); token = m_xml.readNext()) {
            switch (token) {
            case QXmlStreamReader::StartElement:
                ++depth;
                field = tokenIn(m_xml, tokenOf);
                m_observer.seeInside(static_cast<int>(field));
                break;
            case QXmlStreamReader::Characters:
                m_observer.seeInside(static_cast<int>(field));
                if constexpr (Observer::isStoring) {
                    if (field != Token::Unknown)
                        set(field, m_xml.text());
                }
                field = Token::Unknown;
                break;
            case QXmlStreamReader::EndElement:
                // An empty field keeps its default; the white space after it is not its text.
                field = Token::Unknown;
                m_observer.seeInside(0);
                if (--depth == 0)
                    return true;
                break;
            default: m_observer.seeInside(0); break;
            }
        }
        return false;
    }

    [[nodiscard]] bool checkRequired(Section section, RequiredValues values)
    {
        if (Observer::isStoring && std::none_of(values.begin(), values.end(), [](const QString *value) {
                return value->isEmpty();
            }))
            return true;
        const CatalogFormat::Record &record = CatalogFormat::record(static_cast<int>(section));
        auto value = values.begin();
        for (const CatalogFormat::Field *field : record.requiredFields()) {
            if (Observer::isStoring ? (*value++)->isEmpty() : m_observer.isEmpty(*field))
                m_failure.missingFields.append(field->name);
        }
        if (m_failure.missingFields.isEmpty())
            return true;
        m_failure.reason = CatalogReadFailure::RecordRefused;
        m_failure.record = record.name;
        return false;
    }

    [[nodiscard]] bool readProfile()
    {
        using Field = CCatalogTokenizer::ProfileToken;
        CatalogParserProfile profile;
        const auto set = [this, &profile](Field field, const QStringRef &text) {
            switch (field) {
            case Field::PRO_PK: profile.pk = toText(text); break;
            case Field::PRO_Format: profile.format = toText(text); break;
            case Field::PRO_ExportType: profile.exportType = toText(text); break;
            case Field::PRO_Description: profile.description = toText(text); break;
            case Field::PRO_SortOrder: profile.sortOrder = toInt(text); break;
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::CATPRO, &CCatalogTokenizer::stringToProfileToken, {&profile.pk}, set,
                          [&] { append(m_records.m_profiles, std::move(profile)); });
    }

    [[nodiscard]] bool readProfileExtension()
    {
        using Field = CCatalogTokenizer::ProfileExtensionToken;
        CatalogParserProfileExtended extension;
        const auto set = [this, &extension](Field field, const QStringRef &text) {
            switch (field) {
            case Field::CPX_PK: extension.pk = toText(text); break;
            case Field::CPX_Profile_FK: extension.profileFk = toText(text); break;
            case Field::CPX_IsStart: extension.isStart = toBool(text); break;
            case Field::CPX_IsOrvida: extension.isOrvida = toBool(text); break;
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::CPX, &CCatalogTokenizer::stringToProfileExtensionToken,
                          {&extension.pk, &extension.profileFk}, set,
                          [&] { append(m_records.m_profileExtensions, std::move(extension)); });
    }

    [[nodiscard]] bool readColumn()
    {
        using Field = CCatalogTokenizer::ColumnToken;
        CatalogParserColumn column;
        const auto set = [this, &column](Field field, const QStringRef &text) {
            switch (field) {
            case Field::COL_Profile_FK: column.profileFk = toText(text); break;
            case Field::COL_Column_ID: column.columnId = descrambleText(text); break;
            case Field::COL_Export_ID: column.exportId = toText(text); break;
            case Field::COL_Caption: column.caption = descrambleText(text); break;
            case Field::COL_Transport: column.transport = toBool(text); break;
            case Field::COL_Virtual: column.isVirtual = toBool(text); break;
            case Field::COL_Visible: column.visible = toBool(text); break;
            case Field::COL_ReadOnly: column.readOnly = toBool(text); break;
            case Field::COL_Mandatory: column.mandatory = toBool(text); break;
            case Field::COL_DataType: column.dataType = toColumnType(text); break;
            case Field::COL_Length: column.length = toInt(text); break;
            case Field::COL_RangeFrom: column.rangeFrom = toText(text); break;
            case Field::COL_RangeTo: column.rangeTo = toText(text); break;
            case Field::COL_Steps: column.steps = toText(text); break;
            case Field::COL_Precision: column.precision = toInt(text); break;
            case Field::COL_Default: column.defaultValue = toText(text); break;
            case Field::COL_Unit: column.unit = toText(text); break;
            case Field::COL_InputFmt: column.inputFormat = toText(text); break;
            case Field::COL_DisplayFmt: column.displayFormat = toText(text); break;
            case Field::COL_ListClass_REF: column.listClassRef = toText(text); break;
            case Field::COL_ToolTip: column.toolTip = toText(text); break;
            case Field::COL_SortOrder: column.sortOrder = toInt(text); break;
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::COL, &CCatalogTokenizer::stringToColumnToken,
                          {&column.profileFk, &column.columnId}, set,
                          [&] { storeColumn(std::move(column)); });
    }

    // A column of no known type is dropped; that is not an error in the file.
    void storeColumn(CatalogParserColumn &&column)
    {
        if (column.dataType != Shared::InputField::Undefined)
            append(m_records.m_columns[column.columnId], std::move(column));
    }

    [[nodiscard]] bool readListClass()
    {
        using Field = CCatalogTokenizer::ListClassToken;
        CatalogParserListClass listClass;
        const auto set = [this, &listClass](Field field, const QStringRef &text) {
            switch (field) {
            case Field::LC_PK: listClass.pk = toText(text); break;
            case Field::LC_Profile_FK: listClass.profileFk = toText(text); break;
            case Field::LC_Class_ID: listClass.classId = descrambleText(text); break;
            case Field::LC_Caption: listClass.caption = descrambleText(text); break;
            case Field::LC_TypeFlags: listClass.typeFlags = toInt(text); break;
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::LC, &CCatalogTokenizer::stringToListClassToken,
                          {&listClass.profileFk, &listClass.classId}, set,
                          [&] { append(m_records.m_listClasses, std::move(listClass)); });
    }

    [[nodiscard]] bool readListItem()
    {
        using Field = CCatalogTokenizer::ListItemToken;
        CatalogParserListItem listItem;
        const auto set = [this, &listItem](Field field, const QStringRef &text) {
            switch (field) {
            case Field::LIST_Class_FK: listItem.classFk = toText(text); break;
            case Field::LIST_Item: listItem.item = toText(text); break;
            case Field::LIST_Caption: listItem.caption = descrambleText(text); break;
            case Field::LIST_Internal: listItem.internal = toText(text); break;
            case Field::LIST_SortOrder: listItem.sortOrder = toInt(text); break;
            case Field::LIST_Param_ID: listItem.paramId = toText(text); break;
            case Field::LIST_PK:
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::LIST, &CCatalogTokenizer::stringToListItemToken, {&listItem.classFk}, set,
                          [&] { append(m_records.m_listItems[listItem.classFk], std::move(listItem)); });
    }

    [[nodiscard]] bool readCodeClass()
    {
        using Field = CCatalogTokenizer::CodeClassToken;
        const auto item = makeShared<CatalogItem>();
        const auto set = [this, &item](Field field, const QStringRef &text) {
            switch (field) {
            case Field::CLASS_PK: item->setId(toText(text)); break;
            case Field::CLASS_SortOrder: item->setSortOrder(toInt(text)); break;
            case Field::CLASS_Item: item->setCaption(descrambleText(text)); break;
            case Field::CLASS_Remarks: item->setRemarks(toText(text)); break;
            case Field::CLASS_IsVirtual: item->setIsVirtual(toBool(text)); break;
            case Field::CLASS_ChildCaption:
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::CLASS, &CCatalogTokenizer::stringToCodeClassToken, {&item->id()}, set,
                          [&] { storeItem(item); });
    }

    [[nodiscard]] bool readBaseCode()
    {
        using Field = CCatalogTokenizer::BaseCodeToken;
        const auto item = makeShared<CatalogItem>();
        const auto set = [this, &item](Field field, const QStringRef &text) {
            switch (field) {
            case Field::BC_PK: item->setId(toText(text)); break;
            case Field::BC_SortOrder: item->setSortOrder(toInt(text)); break;
            case Field::BC_Class_FK: item->setParentId(toText(text)); break;
            case Field::BC_Item: item->setCaption(descrambleText(text)); break;
            case Field::BC_Remarks: item->setRemarks(toText(text)); break;
            case Field::BC_Code: item->setCode(descrambleText(text)); break;
            case Field::BC_ObsText: item->setObservationText(descrambleText(text)); break;
            case Field::BC_CloseCode: item->setCloseCode(toText(text)); break;
            case Field::BC_AutoPicture: item->setAutoPicture(toBool(text)); break;
            case Field::BC_TypeFlags: item->setTypeFlags(toTypeFlags(text)); break;
            case Field::BC_Construction: item->setConstructionType(toInt(text)); break;
            case Field::BC_IsVirtual: item->setIsVirtual(toBool(text)); break;
            case Field::BC_AltCode:
            case Field::BC_Follower:
            case Field::BC_ChildCaption:
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::BASECODE, &CCatalogTokenizer::stringToBaseCodeToken, {&item->id()}, set,
                          [&] { storeItem(item); });
    }

    [[nodiscard]] bool readCharacterExtension()
    {
        using Field = CCatalogTokenizer::CharacterExtensionToken;
        const auto item = makeShared<CatalogItem>();
        const auto set = [this, &item](Field field, const QStringRef &text) {
            switch (field) {
            case Field::CE_PK: item->setId(toText(text)); break;
            case Field::CE_SortOrder: item->setSortOrder(toInt(text)); break;
            case Field::CE_BaseCode_FK:
                // Another extension as parent wins, whichever of the two fields comes first.
                if (item->parentId().isEmpty())
                    item->setParentId(toText(text));
                break;
            case Field::CE_CharExt_REF: item->setParentId(toText(text)); break;
            case Field::CE_Item: item->setCaption(descrambleText(text)); break;
            case Field::CE_Remarks: item->setRemarks(toText(text)); break;
            case Field::CE_Code: item->setCode(descrambleText(text)); break;
            case Field::CE_Follower: item->setFollowers(toText(text)); break;
            case Field::CE_ObsText: item->setObservationText(descrambleText(text)); break;
            case Field::CE_CloseCode: item->setCloseCode(toText(text)); break;
            case Field::CE_AutoPicture: item->setAutoPicture(toBool(text)); break;
            case Field::CE_TypeFlags: item->setTypeFlags(toTypeFlags(text)); break;
            case Field::CE_Construction: item->setConstructionType(toInt(text)); break;
            case Field::CE_AltCode:
            case Field::CE_ChildCaption:
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::CHAREXT, &CCatalogTokenizer::stringToCharacterExtensionToken,
                          {&item->id()}, set, [&] { storeItem(item); });
    }

    void storeItem(const QSharedPointer<CatalogItem> &item) { m_items.insert(item->id(), item); }

    [[nodiscard]] bool readParameter()
    {
        using Field = CCatalogTokenizer::ParameterToken;
        CatalogParserParameter parameter;
        const auto set = [this, &parameter](Field field, const QStringRef &text) {
            switch (field) {
            case Field::PARAM_PK: parameter.pk = toText(text); break;
            case Field::PARAM_SortOrder: parameter.sortOrder = toInt(text); break;
            case Field::PARAM_ID: parameter.id = toText(text); break;
            case Field::PARAM_DataType: parameter.dataType = toParameterType(text); break;
            case Field::PARAM_Placeholder: parameter.placeholder = toText(text); break;
            case Field::PARAM_Caption: parameter.caption = descrambleText(text); break;
            case Field::PARAM_Prefix: parameter.prefix = descrambleText(text); break;
            case Field::PARAM_Suffix: parameter.suffix = descrambleText(text); break;
            case Field::PARAM_Unit: parameter.unit = toText(text); break;
            case Field::PARAM_TypeFlags: parameter.typeFlags = toInt64(text); break;
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::PARAM, &CCatalogTokenizer::stringToParameterToken, {&parameter.pk}, set,
                          [&] { m_records.m_parameters[parameter.pk] = std::move(parameter); });
    }

    [[nodiscard]] bool readParameterExtension()
    {
        using Field = CCatalogTokenizer::ParameterExtensionToken;
        QString key;
        CatalogParserParamExtended extension;
        const auto set = [this, &key, &extension](Field field, const QStringRef &text) {
            switch (field) {
            case Field::PX_PK: key = toText(text); break;
            case Field::PX_BaseCode_FK: extension.baseCodeFk = toText(text); break;
            case Field::PX_CharExt_FK: extension.charExtFk = toText(text); break;
            case Field::PX_Param_FK: extension.paramFk = toText(text); break;
            case Field::PX_Mandatory: extension.mandatory = toBool(text); break;
            case Field::PX_Length: extension.length = toInt(text); break;
            case Field::PX_RangeFrom: extension.rangeFrom = toText(text); break;
            case Field::PX_RangeTo: extension.rangeTo = toText(text); break;
            case Field::PX_Steps: extension.steps = toText(text); break;
            case Field::PX_Precision: extension.precision = toInt(text); break;
            case Field::PX_Default: extension.defaultValue = toText(text); break;
            case Field::PX_InputFmt: extension.inputFormat = toText(text); break;
            case Field::PX_DisplayFmt: extension.displayFormat = toText(text); break;
            case Field::PX_ClockType: extension.clockType = toInt(text); break;
            case Field::PX_Column_ID: extension.columnId = toText(text); break;
            case Field::PX_ListClass_ID: extension.listClassId = toText(text); break;
            case Field::Unknown: break;
            }
        };
        return readRecord(Section::PARAMX, &CCatalogTokenizer::stringToParameterExtensionToken, {&key}, set,
                          [&] { storeParameterExtension(key, std::move(extension)); });
    }

    void storeParameterExtension(const QString &key, CatalogParserParamExtended &&extension)
    {
        const int earlierKeys = m_records.m_parameterExtensions.size();
        m_records.m_parameterExtensions[key] = std::move(extension);
        if (m_records.m_parameterExtensions.size() > earlierKeys)
            m_parameterExtensionKeys.append(key);
    }

    // Appends without copying the record, which QList::append() would do.
    template <typename Record>
    static void append(QList<Record> &records, Record &&record)
    {
        records.append(Record());
        records.last() = std::forward<Record>(record);
    }

    QString toText(const QStringRef &text) { return m_texts.text(text); }
    QString descrambleText(const QStringRef &text) { return m_texts.descrambled(text); }

    Xml &m_xml;
    CatalogXMLParser &m_records;
    QHash<QString, QSharedPointer<CatalogItem>> &m_items;
    QVector<QString> &m_parameterExtensionKeys;
    TextPool &m_texts;
    CatalogReadFailure &m_failure;
    Observer &m_observer;
};

} // namespace Orvida::Catalogs
