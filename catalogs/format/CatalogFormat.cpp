#include "catalogs/format/CatalogFormat.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace Orvida::Catalogs {

namespace {

using Field = CatalogFormat::Field;
using Key = CatalogFormat::KeySpace;
using Kind = CatalogFormat::Kind;
using Record = CatalogFormat::Record;
using RepeatedKey = CatalogFormat::RepeatedKey;
using Use = CatalogFormat::Use;

template <std::size_t size>
constexpr QLatin1String latin1(const char (&literal)[size])
{
    return QLatin1String(literal, int(size) - 1);
}

// A field that is a key of `key`, or no key.
template <std::size_t nameSize, std::size_t meaningSize>
constexpr Field field(int token, const char (&name)[nameSize], Kind kind, bool isRequired, Use use, Key key,
                      const char (&meaning)[meaningSize])
{
    return {token, latin1(name), kind, isRequired, use, key, latin1(""), latin1(meaning)};
}

// A field that refers to the key field `names`.
template <std::size_t nameSize, std::size_t namesSize, std::size_t meaningSize>
constexpr Field field(int token, const char (&name)[nameSize], Kind kind, bool isRequired, Use use,
                      const char (&names)[namesSize], const char (&meaning)[meaningSize])
{
    return {token, latin1(name), kind, isRequired, use, Key::None, latin1(names), latin1(meaning)};
}

// The words of the tables.
constexpr Kind text = Kind::Text, scrambled = Kind::ScrambledText, integer = Kind::Integer,
               integer64 = Kind::Integer64, boolean = Kind::Boolean, parameterType = Kind::ParameterType,
               columnType = Kind::ColumnType;
constexpr bool required = true, optional = false;
constexpr Use used = Use::Used, stored = Use::Stored, styleQuery = Use::StyleQuery, notRead = Use::NotRead;
constexpr Key none = Key::None;

// clang-format off
//    token, element, kind, required, use, key of or name of the key that it refers to, meaning

constexpr Field catalogFields[] = {
    field(11, "CAT_Style",       integer64, optional, styleQuery, none,         "Style bits; the bit 2147483648 says that the catalog supports 3D, no other bit means anything."),
    field(1,  "CAT_PK",          text,      optional, notRead,    Key::Catalog, "Key of the catalog."),
    field(2,  "CAT_Country",     text,      optional, notRead,    none,         "Country whose standard this is."),
    field(3,  "CAT_Language",    text,      optional, notRead,    none,         "Language of the texts."),
    field(4,  "CAT_ObjectType",  text,      optional, notRead,    none,         "Type of the objects that are inspected."),
    field(5,  "CAT_BaseType",    text,      optional, notRead,    none,         "Base type of the catalog."),
    field(6,  "CAT_CustomType",  text,      optional, notRead,    none,         "Custom type of the catalog."),
    field(7,  "CAT_Version",     text,      optional, notRead,    none,         "Version of this edition."),
    field(8,  "CAT_Description", text,      optional, notRead,    none,         "What the catalog is, in words."),
    field(9,  "CAT_Publisher",   text,      optional, notRead,    none,         "Who publishes it."),
    field(10, "CAT_Copyright",   text,      optional, notRead,    none,         "Whose work it is."),
};

constexpr Field profileFields[] = {
    field(1, "PRO_PK",          text,    required, used,   Key::Profile, "Key of the profile."),
    field(2, "PRO_Format",      text,    optional, stored, none,         "Format of the exchange file that the profile is for."),
    field(3, "PRO_ExportType",  text,    optional, stored, none,         "Type of export that the profile is for."),
    field(4, "PRO_Description", text,    optional, stored, none,         "What the profile is for, in words."),
    field(5, "PRO_SortOrder",   integer, optional, used,   none,         "Order of the profiles; the lowest is chosen when no profile extension decides."),
};

constexpr Field profileExtensionFields[] = {
    field(1, "CPX_PK",         text,    required, stored, Key::ProfileExtension, "Key of the profile extension."),
    field(2, "CPX_Profile_FK", text,    required, used,   "PRO_PK",              "The profile that is marked."),
    field(3, "CPX_IsStart",    boolean, optional, used,   none,                  "Marks the profile to start with; the first such mark in the file counts."),
    field(4, "CPX_IsOrvida",   boolean, optional, used,   none,                  "Marks the profile to take when no start mark names a known profile."),
};

constexpr Field columnFields[] = {
    field(1,  "COL_Profile_FK",    text,       required, used,   "PRO_PK",    "The profile for which this definition holds."),
    field(2,  "COL_Column_ID",     scrambled,  required, used,   Key::Column, "Id of the column; each profile may have a definition of its own for it."),
    field(10, "COL_DataType",      columnType, optional, used,   none,        "Type of the column; without a known type the definition is dropped."),
    field(7,  "COL_Visible",       boolean,    optional, used,   none,        "Whether the profile shows the input fields of this column."),
    field(8,  "COL_ReadOnly",      boolean,    optional, used,   none,        "Whether the profile lets these input fields only be read."),
    field(3,  "COL_Export_ID",     text,       optional, stored, none,        "Name of the column in exchange files."),
    field(4,  "COL_Caption",       scrambled,  optional, stored, none,        "Caption of the column."),
    field(5,  "COL_Transport",     boolean,    optional, stored, none,        "Whether the column is written to exchange files."),
    field(6,  "COL_Virtual",       boolean,    optional, stored, none,        "Whether the column is virtual."),
    field(9,  "COL_Mandatory",     boolean,    optional, stored, none,        "Whether the column must be filled in; input fields follow PX_Mandatory."),
    field(11, "COL_Length",        integer,    optional, stored, none,        "Maximum length of its texts; input fields follow PX_Length."),
    field(12, "COL_RangeFrom",     text,       optional, stored, none,        "Smallest value; input fields follow PX_RangeFrom."),
    field(13, "COL_RangeTo",       text,       optional, stored, none,        "Largest value; input fields follow PX_RangeTo."),
    field(14, "COL_Steps",         text,       optional, stored, none,        "Step between values; input fields follow PX_Steps."),
    field(15, "COL_Precision",     integer,    optional, stored, none,        "Number of decimals; input fields follow PX_Precision."),
    field(16, "COL_Default",       text,       optional, stored, none,        "Value to begin with; input fields follow PX_Default."),
    field(17, "COL_Unit",          text,       optional, stored, none,        "Unit of its values; input fields follow PARAM_Unit."),
    field(18, "COL_InputFmt",      text,       optional, stored, none,        "Format for typing in; input fields follow PX_InputFmt."),
    field(19, "COL_DisplayFmt",    text,       optional, stored, none,        "Format for showing; input fields follow PX_DisplayFmt."),
    field(20, "COL_ListClass_REF", text,       optional, stored, "LC_PK",     "The list class of the column; input fields follow PX_ListClass_ID."),
    field(21, "COL_ToolTip",       text,       optional, stored, none,        "Short help on the column."),
    field(22, "COL_SortOrder",     integer,    optional, stored, none,        "Order of the columns; input fields follow PARAM_SortOrder."),
};

constexpr Field listClassFields[] = {
    field(1, "LC_PK",         text,      optional, used,   Key::ListClass,   "Key of the list class, by which its list items name it; without it the list stays empty."),
    field(2, "LC_Profile_FK", text,      required, used,   "PRO_PK",         "The profile for which the list holds."),
    field(3, "LC_Class_ID",   scrambled, required, used,   Key::ListClassId, "Id by which input fields name the list; LC_ID_CD marks the list of continuous-defect codes."),
    field(4, "LC_Caption",    scrambled, optional, stored, none,             "Caption of the list."),
    field(5, "LC_TypeFlags",  integer,   optional, used,   none,             "What is recorded of an entry: with 32 LIST_Internal unless it is empty or white space, else with 1 LIST_Caption, else LIST_Item."),
};

constexpr Field listItemFields[] = {
    field(2, "LIST_Class_FK",  text,      required, used,    "LC_PK",       "The list class to which the entry belongs."),
    field(3, "LIST_Item",      text,      optional, used,    none,          "Item text of the entry; recorded when the flags of its list class ask for nothing else."),
    field(4, "LIST_Caption",   scrambled, optional, used,    none,          "Caption of the entry."),
    field(5, "LIST_Internal",  text,      optional, used,    none,          "Internal value of the entry; in the list of continuous-defect codes, the code."),
    field(6, "LIST_SortOrder", integer,   optional, used,    none,          "Order of the entries of a list."),
    field(7, "LIST_Param_ID",  text,      optional, stored,  "PARAM_PK",    "The parameter whose placeholder the entry carries."),
    field(1, "LIST_PK",        text,      optional, notRead, Key::ListItem, "Key of the list item."),
};

constexpr Field codeClassFields[] = {
    field(1, "CLASS_PK",           text,      required, used,    Key::Item, "Key of the code class."),
    field(3, "CLASS_Item",         scrambled, optional, used,    none,      "Caption of the code class."),
    field(4, "CLASS_Remarks",      text,      optional, used,    none,      "Remarks on the code class."),
    field(6, "CLASS_IsVirtual",    boolean,   optional, used,    none,      "Whether the code class is virtual."),
    field(2, "CLASS_SortOrder",    integer,   optional, used,    none,      "Order among the items of one parent."),
    field(5, "CLASS_ChildCaption", text,      optional, notRead, none,      "Caption for what is below the code class."),
};

constexpr Field baseCodeFields[] = {
    field(1,  "BC_PK",           text,      required, used,    Key::Item,  "Key of the base code."),
    field(3,  "BC_Class_FK",     text,      optional, used,    "CLASS_PK", "The code class to which it belongs."),
    field(4,  "BC_Item",         scrambled, optional, used,    none,       "Caption of the base code."),
    field(6,  "BC_Code",         scrambled, optional, used,    Key::Code,  "Its code, as inspections record it."),
    field(9,  "BC_ObsText",      scrambled, optional, used,    none,       "Observation text; placeholders in it stand for the values of input fields."),
    field(5,  "BC_Remarks",      text,      optional, used,    none,       "Remarks on the base code."),
    field(11, "BC_CloseCode",    text,      optional, used,    "BC_Code",  "The code that ends what this one begins."),
    field(12, "BC_AutoPicture",  boolean,   optional, used,    none,       "Whether the host may take a picture by itself."),
    field(13, "BC_TypeFlags",    integer,   optional, used,    none,       "Type flags; the host knows their meaning."),
    field(14, "BC_Construction", integer,   optional, used,    none,       "Construction type; the host knows its meaning."),
    field(15, "BC_IsVirtual",    boolean,   optional, used,    none,       "Whether the base code is virtual."),
    field(2,  "BC_SortOrder",    integer,   optional, used,    none,       "Order among the items of one parent."),
    field(7,  "BC_AltCode",      text,      optional, notRead, none,       "Another code for the same."),
    field(8,  "BC_Follower",     text,      optional, notRead, none,       "Codes that follow this one."),
    field(10, "BC_ChildCaption", text,      optional, notRead, none,       "Caption for what is below the base code."),
};

constexpr Field characterExtensionFields[] = {
    field(1,  "CE_PK",           text,      required, used,    Key::Item, "Key of the character extension."),
    field(3,  "CE_BaseCode_FK",  text,      optional, used,    "BC_PK",   "The base code that it refines; CE_CharExt_REF wins over it. The first one in the record counts."),
    field(4,  "CE_CharExt_REF",  text,      optional, used,    "CE_PK",   "The character extension that it refines further."),
    field(5,  "CE_Item",         scrambled, optional, used,    none,      "Caption of the character extension."),
    field(7,  "CE_Code",         scrambled, optional, used,    Key::Code, "Its code, as inspections record it."),
    field(10, "CE_ObsText",      scrambled, optional, used,    none,      "Observation text; placeholders in it stand for the values of input fields."),
    field(6,  "CE_Remarks",      text,      optional, used,    none,      "Remarks on the character extension."),
    field(9,  "CE_Follower",     text,      optional, used,    "BC_Code", "Codes that follow this one; the host knows how several are separated."),
    field(12, "CE_CloseCode",    text,      optional, used,    "BC_Code", "The code that ends what this one begins."),
    field(13, "CE_AutoPicture",  boolean,   optional, used,    none,      "Whether the host may take a picture by itself."),
    field(14, "CE_TypeFlags",    integer,   optional, used,    none,      "Type flags; the host knows their meaning."),
    field(15, "CE_Construction", integer,   optional, used,    none,      "Construction type; the host knows its meaning."),
    field(2,  "CE_SortOrder",    integer,   optional, used,    none,      "Order among the items of one parent."),
    field(8,  "CE_AltCode",      text,      optional, notRead, none,      "Another code for the same."),
    field(11, "CE_ChildCaption", text,      optional, notRead, none,      "Caption for what is below the character extension."),
};

constexpr Field parameterFields[] = {
    field(1,  "PARAM_PK",          text,          required, used,   Key::Parameter, "Key of the parameter."),
    field(3,  "PARAM_ID",          text,          optional, stored, none,           "Another id of the parameter; nothing refers to it."),
    field(4,  "PARAM_DataType",    parameterType, optional, used,   none,           "Type of the value that is asked for."),
    field(5,  "PARAM_Placeholder", text,          optional, used,   none,           "Name by which observation texts refer to the value; @CLK gives the caption the form of a clock position."),
    field(6,  "PARAM_Caption",     scrambled,     optional, used,   none,           "Caption of the input fields."),
    field(7,  "PARAM_Prefix",      scrambled,     optional, used,   none,           "Text before the value."),
    field(8,  "PARAM_Suffix",      scrambled,     optional, used,   none,           "Text after the value."),
    field(9,  "PARAM_Unit",        text,          optional, used,   none,           "Unit of the value."),
    field(2,  "PARAM_SortOrder",   integer,       optional, used,   none,           "Order of the input fields of one code."),
    field(10, "PARAM_TypeFlags",   integer64,     optional, used,   none,           "Type flags; the host knows their meaning."),
};

constexpr Field parameterExtensionFields[] = {
    field(1,  "PX_PK",           text,    required, used,   Key::ParameterExtension, "Key of the parameter extension."),
    field(2,  "PX_BaseCode_FK",  text,    optional, used,   "BC_PK",                 "The base code that gets the input field."),
    field(3,  "PX_CharExt_FK",   text,    optional, used,   "CE_PK",                 "The character extension that gets the input field, when PX_BaseCode_FK is empty."),
    field(4,  "PX_Param_FK",     text,    optional, used,   "PARAM_PK",              "The parameter that is asked for."),
    field(15, "PX_Column_ID",    text,    optional, used,   "COL_Column_ID",         "The column, in the clear; each profile that defines it gets the input field, and without it there is none."),
    field(16, "PX_ListClass_ID", text,    optional, used,   "LC_Class_ID",           "The list of values, in the clear; each profile takes its own list of this id."),
    field(5,  "PX_Mandatory",    boolean, optional, used,   none,                    "Whether the input field must be filled in."),
    field(6,  "PX_Length",       integer, optional, used,   none,                    "Maximum length of a text."),
    field(7,  "PX_RangeFrom",    text,    optional, used,   none,                    "Smallest value."),
    field(8,  "PX_RangeTo",      text,    optional, used,   none,                    "Largest value."),
    field(9,  "PX_Steps",        text,    optional, used,   none,                    "Step between values."),
    field(10, "PX_Precision",    integer, optional, used,   none,                    "Number of decimals."),
    field(11, "PX_Default",      text,    optional, used,   none,                    "Value to begin with."),
    field(12, "PX_InputFmt",     text,    optional, used,   none,                    "Format for typing in; the caption shows the range in it."),
    field(13, "PX_DisplayFmt",   text,    optional, used,   none,                    "Format for showing."),
    field(14, "PX_ClockType",    integer, optional, stored, none,                    "Kind of clock position."),
};

// clang-format on

template <std::size_t titleSize, std::size_t pluralSize, std::size_t meaningSize, std::size_t repeatedSize,
          std::size_t nameSize, std::size_t fieldCount>
constexpr Record record(int token, const char (&name)[nameSize], const char (&title)[titleSize],
                        const char (&plural)[pluralSize], const char (&meaning)[meaningSize],
                        RepeatedKey repeatedKey, const char (&repeatedKeyMeaning)[repeatedSize],
                        const Field (&fields)[fieldCount])
{
    Record row = {token,
                  latin1(name),
                  latin1(title),
                  latin1(plural),
                  latin1(meaning),
                  repeatedKey,
                  latin1(repeatedKeyMeaning),
                  {fields, int(fieldCount)},
                  {},
                  0};
    for (const Field &field : fields) {
        if (field.isRequired)
            row.required[row.requiredCount++] = &field;
    }
    return row;
}

constexpr QLatin1String rootRows[] = {latin1("OVCAT"), latin1("OVCat")};

// clang-format off
constexpr Record recordRows[] = {
    record(2, "CATALOG", "catalog information", "catalog information",
           "What the catalog is, and whether it supports 3D; a load passes over it.",
           RepeatedKey::Skipped, "Only the first CATALOG is looked at.", catalogFields),
    record(3, "CATPRO", "profile", "profiles",
           "A variant of the catalog, with columns and lists of its own; one profile is chosen.",
           RepeatedKey::Added, "Both are kept; they are the same profile with two sort orders.", profileFields),
    record(4, "CPX", "profile extension", "profile extensions",
           "Marks a profile as the one to choose.",
           RepeatedKey::Added, "Both are kept; of each mark, the first in the file counts.", profileExtensionFields),
    record(5, "COL", "column", "columns",
           "Says how a profile shows the input fields that are bound to a column.",
           RepeatedKey::Added, "Both are kept; for one column and profile, the first one with a known type counts.", columnFields),
    record(6, "LC", "list class", "list classes",
           "A list of values that a profile offers; its list items are its entries.",
           RepeatedKey::Added, "Both are kept; for one class id and profile, the later one counts.", listClassFields),
    record(7, "LIST", "list item", "list items",
           "An entry of a list class.",
           RepeatedKey::Added, "Both are kept.", listItemFields),
    record(8, "CLASS", "code class", "code classes",
           "A chapter of the code tree.",
           RepeatedKey::Replaces, "A later CLASS, BASECODE or CHAREXT with the same key replaces it.", codeClassFields),
    record(9, "BASECODE", "base code", "base codes",
           "A code of a code class.",
           RepeatedKey::Replaces, "A later CLASS, BASECODE or CHAREXT with the same key replaces it.", baseCodeFields),
    record(10, "CHAREXT", "character extension", "character extensions",
           "A finer code below a base code or another character extension.",
           RepeatedKey::Replaces, "A later CLASS, BASECODE or CHAREXT with the same key replaces it.", characterExtensionFields),
    record(11, "PARAM", "parameter", "parameters",
           "A value that can be asked for: its caption, type and unit.",
           RepeatedKey::Replaces, "A later PARAM with the same key replaces it.", parameterFields),
    record(12, "PARAMX", "parameter extension", "parameter extensions",
           "An input field: asks for a parameter at one code, with limits, formats and a list.",
           RepeatedKey::Replaces, "A later PARAMX with the same key replaces it.", parameterExtensionFields),
};
// clang-format on

constexpr QLatin1String booleanWords[] = {latin1("true"), latin1("false")};
constexpr QLatin1String typeWords[] = {latin1("TXT"), latin1("INT"), latin1("DEC"), latin1("BOL"),
                                       latin1("DAT")};

// What is the same for all fields of a kind.
struct KindRow
{
    QLatin1String title;
    QLatin1String syntax;
    QLatin1String defaultValue;
};

// In the order of the enumerators.
constexpr KindRow kindRows[] = {
    {latin1("text"), latin1("Any text; it is taken exactly as written, white space included."),
     latin1("empty")},
    {latin1("scrambled text"),
     latin1("A text in its scrambled form: two hexadecimal digits for each byte. In the readable form of a "
            "catalog, the text itself."),
     latin1("empty")},
    {latin1("integer"),
     latin1(
         "Decimal digits with an optional sign, from -2147483648 to 2147483647; white space around them does "
         "not matter. Other texts read as 0."),
     latin1("0")},
    {latin1("64-bit integer"),
     latin1("Decimal digits with an optional sign, from -9223372036854775808 to 9223372036854775807; white "
            "space around them does not matter. Other texts read as 0."),
     latin1("0")},
    {latin1("boolean"),
     latin1("true or false, in any letter case. Other texts read as false, with an error in the log."),
     latin1("false")},
    {latin1("parameter type"),
     latin1("Exactly TXT (text), INT (integer), DEC (decimal), BOL (boolean) or DAT (date). Other texts read "
            "as no type."),
     latin1("no type")},
    {latin1("column type"),
     latin1("The name of a data type that the host knows, such as TXT, INT, DEC, BOL or DAT. Other texts "
            "read as no type."),
     latin1("no type")},
};

constexpr const KindRow &kindRow(Kind kind)
{
    return kindRows[int(kind)];
}

template <typename Name>
const Record *findRecord(Name name)
{
    const auto found = std::find_if(std::begin(recordRows), std::end(recordRows),
                                    [name](const Record &row) { return name == row.name; });
    return found == std::end(recordRows) ? nullptr : found;
}

template <typename Name>
const Field *findField(Name name)
{
    for (const Record &row : recordRows) {
        const auto found = std::find_if(row.fields.begin(), row.fields.end(),
                                        [name](const Field &candidate) { return name == candidate.name; });
        if (found != row.fields.end())
            return found;
    }
    return nullptr;
}

} // namespace

CatalogFormat::Rows<QLatin1String> CatalogFormat::rootNames()
{
    return {rootRows, int(std::size(rootRows))};
}

CatalogFormat::Rows<CatalogFormat::Record> CatalogFormat::records()
{
    return {recordRows, int(std::size(recordRows))};
}

const CatalogFormat::Record *CatalogFormat::record(QStringView name)
{
    return findRecord(name);
}

const CatalogFormat::Record *CatalogFormat::record(QLatin1String name)
{
    return findRecord(name);
}

const CatalogFormat::Record &CatalogFormat::record(int token)
{
    return *std::find_if(std::begin(recordRows), std::end(recordRows),
                         [token](const Record &record) { return record.token == token; });
}

const CatalogFormat::Field *CatalogFormat::field(QStringView name)
{
    return findField(name);
}

const CatalogFormat::Field *CatalogFormat::field(QLatin1String name)
{
    return findField(name);
}

const CatalogFormat::Record *CatalogFormat::recordOf(const Field &field)
{
    const auto holdsField = [&field](const Record &row) {
        return std::any_of(row.fields.begin(), row.fields.end(),
                           [&field](const Field &candidate) { return candidate.name == field.name; });
    };
    const auto found = std::find_if(std::begin(recordRows), std::end(recordRows), holdsField);
    return found == std::end(recordRows) ? nullptr : found;
}

bool CatalogFormat::isScrambled(QStringView name)
{
    const Field *found = field(name);
    return found && found->isScrambled();
}

QLatin1String CatalogFormat::title(Kind kind)
{
    return kindRow(kind).title;
}

QLatin1String CatalogFormat::syntax(Kind kind)
{
    return kindRow(kind).syntax;
}

QLatin1String CatalogFormat::defaultValue(Kind kind)
{
    return kindRow(kind).defaultValue;
}

CatalogFormat::Rows<QLatin1String> CatalogFormat::words(Kind kind)
{
    switch (kind) {
    case Kind::Boolean: return {booleanWords, int(std::size(booleanWords))};
    case Kind::ParameterType:
    case Kind::ColumnType: return {typeWords, int(std::size(typeWords))};
    case Kind::Text:
    case Kind::ScrambledText:
    case Kind::Integer:
    case Kind::Integer64: break;
    }
    return {nullptr, 0};
}

} // namespace Orvida::Catalogs
