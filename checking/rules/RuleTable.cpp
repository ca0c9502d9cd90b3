#include "checking/rules/RuleTable_p.h"

#include "checking/rules/ElementRules_p.h"
#include "checking/rules/KeyRules_p.h"
#include "checking/rules/ReadingRules_p.h"

#include <QLatin1String>

#include <algorithm>
#include <array>
#include <iterator>

namespace Orvida::Checking {

namespace {

constexpr CatalogSeverity error = CatalogSeverity::Error, warning = CatalogSeverity::Warning,
                          note = CatalogSeverity::Note;
constexpr RuleUse on = RuleUse::On, off = RuleUse::Off, refuses = RuleUse::Refuses;

// clang-format off
constexpr RuleRow readingRules[] = {
    {Rule::FileNotRead, "file-not-read", error, refuses, findReadingFault,
     "the file cannot be read",
     "The file cannot be opened, or reading it breaks off; the system's own words say why.",
     "", ""},

    {Rule::NotWellFormed, "not-well-formed", error, refuses, findReadingFault,
     "the file is not well-formed XML",
     "The place is where the XML reader gave up; the cause often stands a little before it. The rest of the file "
     "is unknown, so rules that compare records are not asked.",
     R"(<OVCAT>
<CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Walls & ceilings</CLASS_Item></CLASS>
</OVCAT>)",
     R"(<OVCAT>
<CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Walls &amp; ceilings</CLASS_Item></CLASS>
</OVCAT>)"},

    {Rule::WrongEncoding, "wrong-encoding", error, refuses, findReadingFault,
     "a byte does not belong to the encoding of the file",
     "The file was saved in another encoding than it declares; without a declaration, UTF-8 is meant. The place is "
     "that of the first such byte.",
     "", ""},

    {Rule::UnknownEncoding, "unknown-encoding", error, refuses, findReadingFault,
     "the declared encoding is unknown",
     "The first line of the file declares an encoding that the reader does not know.",
     R"(<?xml version="1.0" encoding="UTF-8-BOM"?>
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)",
     R"(<?xml version="1.0" encoding="UTF-8"?>
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)"},

    {Rule::SuspiciousEncoding, "suspicious-encoding", warning, on, findSuspiciousEncoding,
     "texts look like UTF-8 that was read as something else",
     "The file declares an encoding of one byte per letter, but all of it is valid UTF-8; or at least three values "
     "hold pairs of letters, such as Ã and ©, that one letter becomes when its bytes are taken for two letters.",
     R"(<?xml version="1.0" encoding="ISO-8859-1"?>
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Plafond voûté</CLASS_Item></CLASS></OVCAT>)",
     R"(<?xml version="1.0" encoding="UTF-8"?>
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Plafond voûté</CLASS_Item></CLASS></OVCAT>)"},

    {Rule::ReplacementCharacter, "replacement-character", warning, on, findReplacementCharacters,
     "a text has lost a character",
     "A text in the clear holds U+FFFD, which programs write in place of a letter that they cannot read.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Drainage et �tanch�it�</CLASS_Remarks>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Drainage et étanchéité</CLASS_Remarks>
</CLASS>)"},

    {Rule::DocumentType, "document-type", note, on, findDocumentType,
     "the file has a document type declaration",
     "Nothing of it is read but the entities that are declared in the file itself; no external part is fetched.",
     R"(<!DOCTYPE OVCAT SYSTEM "catalog.dtd">
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)",
     R"(<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)"},

    {Rule::UnresolvedEntity, "unresolved-entity", error, on, findUnresolvedEntities,
     "an entity is declared nowhere",
     "An external document type might declare the entity, but is not read. The text of the field ends before it.",
     R"(<!DOCTYPE OVCAT SYSTEM "catalog.dtd">
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Caf&eacute;</CLASS_Item></CLASS></OVCAT>)",
     R"(<!DOCTYPE OVCAT SYSTEM "catalog.dtd">
<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Café</CLASS_Item></CLASS></OVCAT>)"},
};

constexpr RuleRow elementRules[] = {
    {Rule::UnknownRoot, "unknown-root", error, on, findUnknownRoot,
     "the root element is no OVCAT",
     "A load reads nothing in a root element of another name, and succeeds with an empty catalog. A record as the "
     "root element is read, but only that one. No other rule is asked of such a file.",
     R"(<CATALOGS><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></CATALOGS>)",
     R"(<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)"},

    {Rule::NestedRoot, "nested-root", note, on, findNestedRoots,
     "a root element inside the root element",
     "It is allowed, and its records count.",
     R"(<OVCAT>
  <CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>
</OVCAT>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)"},

    {Rule::NoCodes, "no-codes", warning, on, findNoCodes,
     "the catalog has no codes",
     "The file has no record CLASS, BASECODE or CHAREXT.",
     R"(<OVCAT><CATALOG><CAT_Style>0</CAT_Style></CATALOG></OVCAT>)",
     R"(<OVCAT><CATALOG><CAT_Style>0</CAT_Style></CATALOG>
<BASECODE><BC_PK>BC-1</BC_PK></BASECODE></OVCAT>)"},

    {Rule::MisspeltRecord, "misspelt-record", error, on, findMisspeltRecords,
     "an element in the root has nearly the name of a record",
     "Elements that are no records are skipped with all that is in them. References to the record are not reported "
     "on their own.",
     R"(<Class><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></Class>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)"},

    {Rule::UnknownRecord, "unknown-record", note, on, findUnknownRecords,
     "an element in the root is no record",
     "It is skipped; its name is near none of the names of records.",
     R"(<HISTORY>2024-05-02: first edition</HISTORY>)",
     R"(<!-- 2024-05-02: first edition -->)"},

    {Rule::WrappedRecords, "wrapped-records", error, on, findWrappedRecords,
     "records are inside of an element that is skipped",
     "Records are read directly in the root element only. Elements that are no records are skipped with all that is "
     "in them, and so is CATALOG. References to the records are not reported on their own.",
     R"(<CODES>
  <CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>
</CODES>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)"},

    {Rule::NestedRecord, "nested-record", error, on, findNestedRecords,
     "a record is inside of a record",
     "It is no record of its own. When it is of the same kind, its fields overwrite those of the outer one, the key "
     "included.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <BASECODE>
    <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-WATER</BC_Class_FK><BC_Item>Leak</BC_Item>
    <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText>
  </BASECODE>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>
<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-WATER</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText>
</BASECODE>)"},

    {Rule::MisspeltField, "misspelt-field", error, on, findUnknownFields,
     "an element in a record has nearly the name of a field",
     "Unknown elements in a record are passed over with their text. The same mistake in many records is one finding.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remark>Not in dry tunnels</CLASS_Remark>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::ForeignField, "foreign-field", error, on, findUnknownFields,
     "a record has a field of another record",
     "Each record reads its own fields only; the text of others is lost. It happens when a record is copied and "
     "changed into one of another kind.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <BC_Remarks>Not in dry tunnels</BC_Remarks>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::UnknownField, "unknown-field", warning, on, findUnknownFields,
     "an element in a record is no field",
     "It is passed over with its text; its name is near none of the names of fields.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <AUTHOR>M. Weber</AUTHOR>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <!-- Author: M. Weber -->
</CLASS>)"},

    {Rule::FieldOutsideRecord, "field-outside-record", warning, on, findFieldsOutsideRecords,
     "a field is directly in the root",
     "Fields are read inside of records only. A record may have ended too early.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>
<CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::NestedField, "nested-field", note, on, findNestedFields,
     "a field is inside of another element of its record",
     "It is read all the same.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water<CLASS_Remarks>Not in dry tunnels</CLASS_Remarks></CLASS_Item>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water</CLASS_Item><CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::RepeatedField, "repeated-field", warning, on, findRepeatedFields,
     "a record has a field twice, with different values",
     "The later value counts. Only of CE_BaseCode_FK, the first one counts.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water</CLASS_Item>
  <CLASS_Item>Water and drainage</CLASS_Item>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water and drainage</CLASS_Item>
</CLASS>)"},

    {Rule::StrayText, "stray-text", warning, on, findStrayTexts,
     "a text outside of fields",
     "A text directly in a record or in the root is not read. Often a tag has been lost.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  Not in dry tunnels
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::CutText, "cut-text", error, on, findCutTexts,
     "the text of a field is not in one piece",
     "The text of a field is what follows its start tag, up to the first comment, CDATA section, processing "
     "instruction or element. More text after that is lost.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water <!-- was: Humidity --> and drainage</CLASS_Item>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water and drainage</CLASS_Item> <!-- was: Humidity -->
</CLASS>)"},

    {Rule::AttributeIgnored, "attribute-ignored", warning, on, findIgnoredAttributes,
     "an element has an attribute",
     "Attributes of the root, of records and of fields are not read. Attributes with a prefix are left alone: they "
     "are meant for other programs.",
     R"(<CLASS Remarks="Not in dry tunnels">
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::IgnoredField, "ignored-field", note, off, findIgnoredFields,
     "a field is not read",
     "Some fields are known, but a load stores them nowhere: LIST_PK, BC_AltCode, BC_Follower, CE_AltCode, and the "
     "three that end in ChildCaption.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_ChildCaption>Kind of water</CLASS_ChildCaption>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>)"},

    {Rule::RepeatedCatalogInfo, "repeated-catalog-info", warning, on, findCatalogInfo,
     "a second CATALOG",
     "Only the first one is looked at.",
     R"(<CATALOG><CAT_Description>Tunnels</CAT_Description></CATALOG>)",
     R"(<!-- CAT_Description is in the first CATALOG -->)"},

    {Rule::StyleMissing, "style-missing", note, on, findCatalogInfo,
     "the catalog does not say whether it supports 3D",
     "There is no CATALOG, or the first one has no CAT_Style. Hosts then take it that the catalog does not support "
     "3D, and read the whole file to find that out.",
     R"(<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)",
     R"(<OVCAT><CATALOG><CAT_Style>0</CAT_Style></CATALOG><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)"},

    {Rule::StyleUnusedBits, "style-unused-bits", note, on, findCatalogInfo,
     "CAT_Style has bits without a meaning",
     "Only the bit 2147483648 has one: the catalog supports 3D.",
     R"(<OVCAT><CATALOG><CAT_Style>1</CAT_Style></CATALOG><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)",
     R"(<OVCAT><CATALOG><CAT_Style>2147483648</CAT_Style></CATALOG><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)"},

    {Rule::NoIdentity, "no-identity", note, off, findCatalogInfo,
     "the catalog has no key or no version",
     "CAT_PK or CAT_Version is missing or empty. Whoever compares editions of a catalog needs both.",
     R"(<OVCAT><CATALOG><CAT_PK>TUNNELS</CAT_PK></CATALOG></OVCAT>)",
     R"(<OVCAT><CATALOG><CAT_PK>TUNNELS</CAT_PK><CAT_Version>1.2</CAT_Version></CATALOG></OVCAT>)"},

    {Rule::UnknownDirective, "unknown-directive", warning, on, findBadDirectives,
     "a comment that is to turn off a rule is not understood",
     "A comment such as <!-- check: off unused-list --> between records turns off rules for the next record, and with "
     "a star at its end for the whole file. This one names no rule, or one that cannot be turned off, or is inside "
     "of a record.",
     R"(<!-- check: off empty-clas -->)",
     R"(<!-- Empty classes are intended -->)"},

    {Rule::UselessDirective, "useless-directive", note, on, findBadDirectives,
     "a comment turns off a rule that nothing breaks",
     "What it was written for has been fixed since then, or it is in the wrong place.",
     R"(<!-- check: off repeated-field -->
<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)"},
};

constexpr RuleRow keyRules[] = {
    {Rule::MissingKey, "missing-key", error, refuses, findMissingKeys,
     "a record lacks a key that it must have",
     "The file does not load because of it. A scrambled key that decodes to nothing is missing, too.",
     R"(<CLASS><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)"},

    {Rule::BlankKey, "blank-key", warning, on, findBlankKeys,
     "a key or reference is nothing but white space",
     "White space counts in keys: such a key is accepted, and a reference of this kind names the record that has it.",
     R"(<CPX><CPX_PK> </CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>)",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>)"},

    {Rule::PaddedKey, "padded-key", warning, on, findBlankKeys,
     "a key, reference, code or placeholder has white space around it",
     "Keys are compared exactly, blanks and line breaks included. A reference that names nothing for this reason is "
     "reported as such.",
     R"(<CLASS>
  <CLASS_PK>
    CL-WATER
  </CLASS_PK>
  <CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK>
  <CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>)"},

    {Rule::RepeatedItemKey, "repeated-item-key", error, on, findRepeatedItems,
     "two records among CLASS, BASECODE and CHAREXT have one key",
     "They share their keys: the later record replaces the earlier one, which is lost.",
     R"(<BASECODE>
  <BC_PK>BC-CRACK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Crack</BC_Item>
  <BC_Code>RFI</BC_Code><BC_ObsText>Crack, @W</BC_ObsText><BC_SortOrder>10</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::RepeatedParameterKey, "repeated-parameter-key", error, on, findRepeatedParameters,
     "two different PARAM have one key",
     "The later record replaces the earlier one, which is lost.",
     R"(<PARAM><PARAM_PK>PA-WIDTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption></PARAM>)",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::RepeatedExtensionKey, "repeated-extension-key", error, on, findRepeatedParameters,
     "two different PARAMX have one key",
     "The later record replaces the earlier one, which is lost.",
     R"(<PARAMX>
  <PX_PK>PX-CRACK-WIDTH</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Mandatory>true</PX_Mandatory>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Mandatory>true</PX_Mandatory>
</PARAMX>)"},

    {Rule::RepeatedProfileKey, "repeated-profile-key", warning, on, findRepeatedProfiles,
     "two CATPRO have one key",
     "They are one profile, with two sort orders. Where a mark names it, the one with the lower sort order is taken.",
     R"(<CATPRO><PRO_PK>P</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>)",
     R"(<!-- Profile P is above -->)"},

    {Rule::RepeatedColumn, "repeated-column", error, on, findRepeatedColumns,
     "a column has two definitions for one profile",
     "The first definition in the file counts, the later one is lost. A warning when both show the input fields "
     "alike: with the same type, visible or not, to be changed or not.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>WIDTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>false</COL_Visible>
</COL>)",
     R"(<!-- Column WIDTH is above -->)"},

    {Rule::RepeatedListClass, "repeated-list-class", error, on, findRepeatedListClasses,
     "two LC have one class id and profile",
     "The later list replaces the earlier one, whose entries are lost.",
     R"(<LC><LC_PK>LC-SIDES-2</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-SIDES-2</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption>
</LIST>)",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption>
</LIST>)"},

    {Rule::ListClassWithoutKey, "list-class-without-key", error, on, findListClassesWithoutKey,
     "a list class has no key",
     "Entries name their list by LC_PK. Without it the list stays empty; the file loads.",
     R"(<LC><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID></LC>)",
     R"(<!-- List SIDES is above -->)"},

    {Rule::SharedListKey, "shared-list-key", note, on, findSharedListKeys,
     "two lists have one key",
     "Both lists get all entries. A warning when entries have equal sort orders: each list orders them anew, so that "
     "they come in different orders.",
     R"(<LC><LC_PK>LC-SIDES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>)",
     R"(<LC><LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
<LIST><LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>U</LIST_Item><LIST_Caption>Upper</LIST_Caption></LIST>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::RepeatedMarkKey, "repeated-mark-key", note, off, findRepeatedMarks,
     "two CPX have one key",
     "Nothing refers to these keys; both records count.",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>)",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<CPX><CPX_PK>CPX-2</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>)"},

    {Rule::IdenticalRecord, "identical-record", note, on, findRepeatedParameters,
     "two PARAM or two PARAMX are the same in all fields",
     "The later one replaces the earlier one, which changes nothing.",
     R"(<PARAM><PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption><PARAM_SortOrder>40</PARAM_SortOrder></PARAM>
<PARAM><PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption><PARAM_SortOrder>40</PARAM_SortOrder></PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM><PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption><PARAM_SortOrder>40</PARAM_SortOrder></PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},
};

template <std::size_t size>
constexpr RuleGroup group(const char *title, bool needsWholeFile, const RuleRow (&rows)[size])
{
    return {title, needsWholeFile, rows, int(size)};
}

constexpr RuleGroup groups[] = {
    group("Reading the file", false, readingRules),
    group("Elements and texts", false, elementRules),
    group("Keys", false, keyRules),
};
// clang-format on

// Rows by rule: the rows of all groups together are in the order of the enumeration.
constexpr std::array<const RuleRow *, std::size_t(Rule::Count)> rowsByRule()
{
    std::array<const RuleRow *, std::size_t(Rule::Count)> rows{};
    for (const RuleGroup &group : groups) {
        for (int index = 0; index < group.count; ++index)
            rows[std::size_t(group.rows[index].rule)] = group.rows + index;
    }
    return rows;
}

constexpr auto rows = rowsByRule();

constexpr bool hasAllRows()
{
    for (const RuleRow *row : rows) {
        if (!row)
            return false;
    }
    return true;
}
static_assert(hasAllRows(), "each rule needs a row");

} // namespace

const RuleRow &ruleRow(Rule rule)
{
    return *rows[std::size_t(rule)];
}

const RuleRow *ruleRow(QStringView id)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [id](const RuleRow *row) { return id == QLatin1String(row->id); });
    return found == rows.end() ? nullptr : *found;
}

RuleGroups ruleGroups()
{
    return {std::begin(groups), std::end(groups)};
}

} // namespace Orvida::Checking
