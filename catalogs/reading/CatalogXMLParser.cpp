#include "catalogs/reading/CatalogXMLParser.h"

#include "catalogs/model/MakeShared_p.h"
#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/ScrambledText.h"
#include "catalogs/reading/TextPool_p.h"
#include "shared/DataConverter.h"

#include <QFile>
#include <QXmlStreamReader>

#include <utility>

namespace Orvida::Catalogs {

namespace {

// The conversions of a field's text to what is no text. The view dies with the reader's next token.

// Nearly every number in a catalog is a few plain digits; Qt's conversion has the last word on all others.
int toInt(const QStringRef &text)
{
    constexpr int safeDigits = 9;
    if (text.isEmpty() || text.length() > safeDigits)
        return text.toInt();
    int value = 0;
    for (const QChar digit : text) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9'))
            return text.toInt();
        value = value * 10 + (digit.unicode() - '0');
    }
    return value;
}

qint64 toInt64(const QStringRef &text)
{
    return text.toLongLong();
}

bool toBool(const QStringRef &text)
{
    return Shared::DataConverter::stringToBool(text);
}

struct NamedParameterType
{
    QLatin1String name;
    Shared::InputField::DataType type;
};

// The format's own names for the types of parameters. The names for the types of columns are the host's to
// read; only the numbers must be the same.
const NamedParameterType namedParameterTypes[] = {
    {QLatin1String("TXT"), Shared::InputField::Text},    {QLatin1String("INT"), Shared::InputField::Integer},
    {QLatin1String("DEC"), Shared::InputField::Decimal}, {QLatin1String("BOL"), Shared::InputField::Boolean},
    {QLatin1String("DAT"), Shared::InputField::Date},
};

int toParameterType(const QStringRef &text)
{
    for (const NamedParameterType &named : namedParameterTypes) {
        if (text == named.name)
            return named.type;
    }
    return Shared::InputField::Undefined;
}

QFlags<CatalogItem::TypeFlag> toTypeFlags(const QStringRef &text)
{
    return QFlag(toInt(text));
}

// Whether the token that was just read is the last one: the document's end, or an error. Not asked of
// QXmlStreamReader::atEnd(), which stays false for ever when a device fails in the middle of a file.
bool isLast(QXmlStreamReader::TokenType token)
{
    return token == QXmlStreamReader::Invalid || token == QXmlStreamReader::EndDocument;
}

// Appends without copying the record, which QList::append() would do.
template <typename Record>
void appendTo(QList<Record> &records, typename QList<Record>::value_type &&record)
{
    records.append(Record());
    records.last() = std::move(record);
}

// Reads one record, from its start tag to its own end tag: hands each known field with its text to `store`.
// Only the first piece of text after a field's start tag counts; unknown fields and what nests in a field
// are passed over. False when the file ends, or its XML breaks, inside the record.
template <typename Token, typename Store>
[[nodiscard]] bool readFields(QXmlStreamReader &reader, Token (*tokenOf)(const QStringRef &), Store store)
{
    Token field = Token::Unknown;
    int depth = 0;
    for (auto token = reader.tokenType(); !isLast(token); token = reader.readNext()) {
        switch (token) {
        case QXmlStreamReader::StartElement:
            ++depth;
            field = tokenOf(reader.name());
            break;
        case QXmlStreamReader::Characters:
            if (field != Token::Unknown)
                store(field, reader.text());
            field = Token::Unknown;
            break;
        case QXmlStreamReader::EndElement:
            // An empty field keeps its default; the white space behind it is not its text.
            field = Token::Unknown;
            if (--depth == 0)
                return true;
            break;
        default: break;
        }
    }
    return false;
}

} // namespace

CatalogXMLParser::CatalogXMLParser()
    : m_file(std::make_unique<QFile>()),
      m_reader(std::make_unique<QXmlStreamReader>()),
      m_texts(std::make_unique<TextPool>())
{
}

CatalogXMLParser::~CatalogXMLParser() = default;

bool CatalogXMLParser::readFile(const QString &fileName, Items &items)
{
    m_failure = CatalogReadFailure();
    // What a host has copied since an earlier call would part from this table in the middle of reading.
    m_parameterExtensions.detach();
    m_parameterExtensionsInFileOrder.clear();
    for (const CatalogParserParamExtended &extension : qAsConst(m_parameterExtensions))
        m_parameterExtensionsInFileOrder.push_back(&extension);
    if (!openFile(fileName)) {
        describeUnopenedFile();
        return false;
    }
    for (auto token = m_reader->readNext(); !isLast(token); token = m_reader->readNext()) {
        if (token != QXmlStreamReader::StartElement)
            continue;
        // A refused record is reported here, where its missing field belongs, and not at its end.
        const qint64 line = m_reader->lineNumber();
        const qint64 column = m_reader->columnNumber() + 1;
        if (readSection(items))
            continue;
        if (m_failure.reason == CatalogReadFailure::RecordRefused) {
            m_failure.line = line;
            m_failure.column = column;
        } else {
            describeBrokenInput();
        }
        return false;
    }
    if (!m_reader->hasError())
        return true;
    describeBrokenInput();
    return false;
}

qint64 CatalogXMLParser::readCatalogStyleFlag(const QString &fileName)
{
    qint64 style = 0;
    if (openFile(fileName)) {
        for (auto token = m_reader->readNext(); !isLast(token); token = m_reader->readNext()) {
            if (token != QXmlStreamReader::StartElement)
                continue;
            const auto section = CCatalogTokenizer::stringToCatalogToken(m_reader->name());
            if (section == CCatalogTokenizer::CatalogToken::CATALOG) {
                style = readCatalogStyleFlagFromCatalogInfo();
                break;
            }
            if (section != CCatalogTokenizer::CatalogToken::OVCAT)
                m_reader->skipCurrentElement();
        }
    }
    m_reader->clear();
    m_file->close();
    return style;
}

// Goes on behind the end of the catalog information, through the rest of the document: that only costs
// time in a file without a style.
qint64 CatalogXMLParser::readCatalogStyleFlagFromCatalogInfo()
{
    for (auto token = m_reader->readNext(); !isLast(token); token = m_reader->readNext()) {
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (CCatalogTokenizer::stringToCatalogInfoToken(m_reader->name())
            == CCatalogTokenizer::CatalogInfoToken::CAT_Style) {
            m_reader->readNext();
            return toInt64(m_reader->text());
        }
        m_reader->skipCurrentElement();
    }
    return 0;
}

bool CatalogXMLParser::openFile(const QString &fileName)
{
    m_reader->clear();
    m_file->close();
    m_file->unsetError();
    // Answered here, because Qt would print a warning for no name and cut a name at a zero character.
    if (fileName.isEmpty() || fileName.contains(QChar(QChar::Null)))
        return false;
    m_file->setFileName(fileName);
    if (!m_file->open(QIODevice::ReadOnly))
        return false;
    m_reader->setDevice(m_file.get());
    return true;
}

// Sections count only where readFile meets them: at the top and inside root elements.
bool CatalogXMLParser::readSection(Items &items)
{
    using Section = CCatalogTokenizer::CatalogToken;
    switch (CCatalogTokenizer::stringToCatalogToken(m_reader->name())) {
    case Section::OVCAT: return true;
    case Section::CATPRO: return readProfile();
    case Section::CPX: return readProfileExtension();
    case Section::COL: return readColumn();
    case Section::LC: return readListClass();
    case Section::LIST: return readListItem();
    case Section::CLASS: return readCodeClass(items);
    case Section::BASECODE: return readBaseCode(items);
    case Section::CHAREXT: return readCharacterExtension(items);
    case Section::PARAM: return readParameter();
    case Section::PARAMX: return readParameterExtension();
    case Section::CATALOG:
    case Section::Unknown: break;
    }
    m_reader->skipCurrentElement();
    return true;
}

bool CatalogXMLParser::readProfile()
{
    using Field = CCatalogTokenizer::ProfileToken;
    CatalogParserProfile profile;
    const auto store = [this, &profile](Field field, const QStringRef &text) {
        switch (field) {
        case Field::PRO_PK: profile.pk = toText(text); break;
        case Field::PRO_Format: profile.format = toText(text); break;
        case Field::PRO_ExportType: profile.exportType = toText(text); break;
        case Field::PRO_Description: profile.description = toText(text); break;
        case Field::PRO_SortOrder: profile.sortOrder = toInt(text); break;
        case Field::Unknown: break;
        }
    };
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToProfileToken, store)
        || !accepts("CATPRO", {{"PRO_PK", profile.pk}}))
        return false;
    appendTo(m_profiles, std::move(profile));
    return true;
}

bool CatalogXMLParser::readProfileExtension()
{
    using Field = CCatalogTokenizer::ProfileExtensionToken;
    CatalogParserProfileExtended extension;
    const auto store = [this, &extension](Field field, const QStringRef &text) {
        switch (field) {
        case Field::CPX_PK: extension.pk = toText(text); break;
        case Field::CPX_Profile_FK: extension.profileFk = toText(text); break;
        case Field::CPX_IsStart: extension.isStart = toBool(text); break;
        case Field::CPX_IsOrvida: extension.isOrvida = toBool(text); break;
        case Field::Unknown: break;
        }
    };
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToProfileExtensionToken, store)
        || !accepts("CPX", {{"CPX_PK", extension.pk}, {"CPX_Profile_FK", extension.profileFk}}))
        return false;
    appendTo(m_profileExtensions, std::move(extension));
    return true;
}

bool CatalogXMLParser::readColumn()
{
    using Field = CCatalogTokenizer::ColumnToken;
    CatalogParserColumn column;
    const auto store = [this, &column](Field field, const QStringRef &text) {
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
        case Field::COL_DataType: column.dataType = Shared::DataConverter::stringToDataType(text); break;
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
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToColumnToken, store)
        || !accepts("COL", {{"COL_Profile_FK", column.profileFk}, {"COL_Column_ID", column.columnId}}))
        return false;
    // A column of no known type is left out; that is no fault of the file.
    if (column.dataType != Shared::InputField::Undefined)
        appendTo(m_columns[column.columnId], std::move(column));
    return true;
}

bool CatalogXMLParser::readListClass()
{
    using Field = CCatalogTokenizer::ListClassToken;
    CatalogParserListClass listClass;
    const auto store = [this, &listClass](Field field, const QStringRef &text) {
        switch (field) {
        case Field::LC_PK: listClass.pk = toText(text); break;
        case Field::LC_Profile_FK: listClass.profileFk = toText(text); break;
        case Field::LC_Class_ID: listClass.classId = descrambleText(text); break;
        case Field::LC_Caption: listClass.caption = descrambleText(text); break;
        case Field::LC_TypeFlags: listClass.typeFlags = toInt(text); break;
        case Field::Unknown: break;
        }
    };
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToListClassToken, store)
        || !accepts("LC", {{"LC_Profile_FK", listClass.profileFk}, {"LC_Class_ID", listClass.classId}}))
        return false;
    appendTo(m_listClasses, std::move(listClass));
    return true;
}

bool CatalogXMLParser::readListItem()
{
    using Field = CCatalogTokenizer::ListItemToken;
    CatalogParserListItem listItem;
    const auto store = [this, &listItem](Field field, const QStringRef &text) {
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
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToListItemToken, store)
        || !accepts("LIST", {{"LIST_Class_FK", listItem.classFk}}))
        return false;
    appendTo(m_listItems[listItem.classFk], std::move(listItem));
    return true;
}

bool CatalogXMLParser::readCodeClass(Items &items)
{
    using Field = CCatalogTokenizer::CodeClassToken;
    const auto item = makeShared<CatalogItem>();
    const auto store = [this, &item](Field field, const QStringRef &text) {
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
    return readFields(*m_reader, &CCatalogTokenizer::stringToCodeClassToken, store)
           && storesItem(items, item, "CLASS", "CLASS_PK");
}

bool CatalogXMLParser::readBaseCode(Items &items)
{
    using Field = CCatalogTokenizer::BaseCodeToken;
    const auto item = makeShared<CatalogItem>();
    const auto store = [this, &item](Field field, const QStringRef &text) {
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
    return readFields(*m_reader, &CCatalogTokenizer::stringToBaseCodeToken, store)
           && storesItem(items, item, "BASECODE", "BC_PK");
}

bool CatalogXMLParser::readCharacterExtension(Items &items)
{
    using Field = CCatalogTokenizer::CharacterExtensionToken;
    const auto item = makeShared<CatalogItem>();
    const auto store = [this, &item](Field field, const QStringRef &text) {
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
    return readFields(*m_reader, &CCatalogTokenizer::stringToCharacterExtensionToken, store)
           && storesItem(items, item, "CHAREXT", "CE_PK");
}

bool CatalogXMLParser::readParameter()
{
    using Field = CCatalogTokenizer::ParameterToken;
    CatalogParserParameter parameter;
    const auto store = [this, &parameter](Field field, const QStringRef &text) {
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
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToParameterToken, store)
        || !accepts("PARAM", {{"PARAM_PK", parameter.pk}}))
        return false;
    m_parameters[parameter.pk] = std::move(parameter);
    return true;
}

bool CatalogXMLParser::readParameterExtension()
{
    using Field = CCatalogTokenizer::ParameterExtensionToken;
    QString key;
    CatalogParserParamExtended extension;
    const auto store = [this, &key, &extension](Field field, const QStringRef &text) {
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
    if (!readFields(*m_reader, &CCatalogTokenizer::stringToParameterExtensionToken, store)
        || !accepts("PARAMX", {{"PX_PK", key}}))
        return false;
    const int earlierKeys = m_parameterExtensions.size();
    CatalogParserParamExtended &place = m_parameterExtensions[key];
    place = std::move(extension);
    if (m_parameterExtensions.size() > earlierKeys)
        m_parameterExtensionsInFileOrder.push_back(&place);
    return true;
}

QString CatalogXMLParser::toText(const QStringRef &text)
{
    return m_texts->text(text);
}

QString CatalogXMLParser::descrambleText(const QStringRef &text)
{
    return m_texts->converted(text, ScrambledText::decode);
}

bool CatalogXMLParser::accepts(const char *record, std::initializer_list<RequiredField> requiredFields)
{
    for (const RequiredField &field : requiredFields) {
        if (field.value.isEmpty())
            m_failure.missingFields.append(QString::fromLatin1(field.name));
    }
    if (m_failure.missingFields.isEmpty())
        return true;
    m_failure.reason = CatalogReadFailure::RecordRefused;
    m_failure.record = QString::fromLatin1(record);
    return false;
}

bool CatalogXMLParser::storesItem(Items &items, const QSharedPointer<CatalogItem> &item, const char *record,
                                  const char *key)
{
    if (!accepts(record, {{key, item->id()}}))
        return false;
    items.insert(item->id(), item);
    return true;
}

void CatalogXMLParser::describeUnopenedFile()
{
    const bool wasTried = m_file->error() != QFileDevice::NoError;
    m_failure.reason = CatalogReadFailure::FileNotRead;
    m_failure.detail = wasTried ? m_file->errorString() : QStringLiteral("No such file or directory");
}

void CatalogXMLParser::describeBrokenInput()
{
    const bool isFileError = m_file->error() != QFileDevice::NoError;
    m_failure.reason = isFileError ? CatalogReadFailure::FileNotRead : CatalogReadFailure::NotWellFormed;
    m_failure.detail = isFileError ? m_file->errorString() : m_reader->errorString();
    m_failure.line = m_reader->lineNumber();
    m_failure.column = m_reader->columnNumber() + 1;
}

} // namespace Orvida::Catalogs
