#include "checking/rules/RuleTable_p.h"

#include "checking/rules/CaptionRules_p.h"
#include "checking/rules/ElementRules_p.h"
#include "checking/rules/KeyRules_p.h"
#include "checking/rules/ListRules_p.h"
#include "checking/rules/ProfileRules_p.h"
#include "checking/rules/ReadingRules_p.h"
#include "checking/rules/ReferenceRules_p.h"
#include "checking/rules/ScrambledRules_p.h"
#include "checking/rules/TreeRules_p.h"
#include "checking/rules/ValueRules_p.h"

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
     "The place is where the XML reader gave up; the cause is often a little before it. The rest of the file "
     "is unknown, so rules that compare records are not applied.",
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
     "The file declares an encoding of one byte per letter, but all of it is valid UTF-8; or in at least three "
     "places, texts hold pairs of letters, such as Ã and ©, that one letter becomes when its bytes are taken for two letters.",
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
     "root element is read, but only that one. No other rule is applied to such a file.",
     R"(<CATALOGS><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></CATALOGS>)",
     R"(<OVCAT><CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS></OVCAT>)"},

    {Rule::NestedRoot, "nested-root", note, on, findNestedRoots,
     "a root element inside the root element",
     "It is allowed, and its records count.",
     R"(<OVCAT>
  <OVCAT>
    <CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS>
  </OVCAT>
</OVCAT>)",
     R"(<OVCAT>
  <CLASS><CLASS_PK>CL-A</CLASS_PK></CLASS>
</OVCAT>)"},

    {Rule::NoCodes, "no-codes", warning, on, findNoCodes,
     "the catalog has no codes",
     "No CLASS, BASECODE or CHAREXT is read.",
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
     "records are inside an element that is skipped",
     "Records are read directly in the root element only. Elements that are no records are skipped with all that is "
     "in them, and so is CATALOG. References to the records are not reported on their own.",
     R"(<CODES>
  <CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>
</CODES>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)"},

    {Rule::NestedRecord, "nested-record", error, on, findNestedRecords,
     "a record is inside a record",
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
     "Fields are read inside records only. A record may have ended too early.",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
</CLASS>
<CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Remarks>Not in dry tunnels</CLASS_Remarks>
</CLASS>)"},

    {Rule::NestedField, "nested-field", note, on, findNestedFields,
     "a field is inside another element of its record",
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
     "a text outside fields",
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
  <CLASS_Item>Water<!-- was: Humidity --> and drainage</CLASS_Item>
</CLASS>)",
     R"(<CLASS>
  <CLASS_PK>CL-WATER</CLASS_PK><CLASS_SortOrder>20</CLASS_SortOrder>
  <CLASS_Item>Water and drainage</CLASS_Item> <!-- was: Humidity -->
</CLASS>)"},

    {Rule::AttributeIgnored, "attribute-ignored", warning, on, findIgnoredAttributes,
     "an element has an attribute",
     "Attributes of the root, of records and of fields are not read. Those that are meant for other programs, such "
     "as xml:lang and xsi:schemaLocation, are left alone.",
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
     "Keys are compared exactly, spaces and line breaks included. A reference that names nothing for this reason is "
     "also reported as unknown.",
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
     R"(<PARAM>
  <PARAM_PK>PA-WIDTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Width of the crack</PARAM_Caption>
  <PARAM_Placeholder>@W</PARAM_Placeholder>
</PARAM>)",
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
     R"(<LC><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
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

constexpr RuleRow referenceRules[] = {
    {Rule::UnknownParent, "unknown-parent", error, on, findUnknownParents,
     "the parent of a code is unknown",
     "BC_Class_FK, CE_CharExt_REF or, without the latter, CE_BaseCode_FK is the key of no code class, base code or "
     "character extension. The code and all codes below it are outside the tree, where no host shows them.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINIGN</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::UnknownItem, "unknown-item", error, on, findItemsOfFields,
     "an input field belongs to no code",
     "PX_BaseCode_FK or, when that is empty, PX_CharExt_FK is the key of no code. The field is not built.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JIONT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::NoItem, "no-item", error, on, findItemsOfFields,
     "an input field names no code",
     "Both PX_BaseCode_FK and PX_CharExt_FK are empty. The field is put on the root of the tree, where no host shows "
     "it.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_Param_FK>PA-WIDTH</PX_Param_FK><PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::TwoItems, "two-items", warning, on, findItemsOfFields,
     "an input field names a base code and a character extension",
     "PX_CharExt_FK is looked at only when PX_BaseCode_FK is empty.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_CharExt_FK>CE-OPEN</PX_CharExt_FK>
  <PX_Param_FK>PA-WIDTH</PX_Param_FK><PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK>
  <PX_Param_FK>PA-WIDTH</PX_Param_FK><PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::OtherKind, "other-kind", note, on, findOtherKinds,
     "a reference names a record of another kind than it is made for",
     "Code classes, base codes and character extensions share their keys, so it works. A warning for an input field "
     "of a code class, because only codes are recorded.",
     R"(<PARAMX>
  <PX_PK>PX-OPEN-DEPTH</PX_PK><PX_BaseCode_FK>CE-OPEN</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-OPEN-DEPTH</PX_PK><PX_CharExt_FK>CE-OPEN</PX_CharExt_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)"},

    {Rule::UnknownParameter, "unknown-parameter", error, on, findParametersOfFields,
     "an input field asks for an unknown parameter",
     "PX_Param_FK is the key of no PARAM. The field is built without caption and type, with the sort order 0.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WITDH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::NoParameter, "no-parameter", error, on, findParametersOfFields,
     "an input field asks for no parameter",
     "PX_Param_FK is empty. The field is built without caption and type, with the sort order 0.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::UnknownColumn, "unknown-column", error, on, findColumnsOfFields,
     "an input field is bound to an unknown column",
     "PX_Column_ID is the id of no COL. The field is built for each profile that defines its column, so it is not "
     "built at all.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WITDH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::NoColumn, "no-column", error, on, findColumnsOfFields,
     "an input field is bound to no column",
     "PX_Column_ID is empty. The field is built for each profile that defines its column, so it is not built at all.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::ColumnMissingInProfile, "column-missing-in-profile", note, on, findColumnsMissingInProfiles,
     "some profiles lack a column that input fields use",
     "The fields are missing in these profiles. That is often intended: a short profile shows few fields. One finding "
     "for each column and profile, or for each column that more than 20 profiles lack.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>WIDTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>WIDTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>NOTE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<LC>
  <LC_PK>LC-SIDES-Q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID>
  <LC_TypeFlags>1</LC_TypeFlags>
</LC>
<LIST><LIST_Class_FK>LC-SIDES-Q</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Left</LIST_Caption></LIST>)"},

    {Rule::UnknownList, "unknown-list", error, on, findListsOfFields,
     "an input field has an unknown list",
     "PX_ListClass_ID is the id of no LC. The field has no list in any profile: anything can be typed in.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>LC-SIDES</PX_ListClass_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::ListMissingInProfile, "list-missing-in-profile", warning, on, findListsMissingInProfiles,
     "a profile lacks a list that it needs",
     "Input fields with this list are shown in the profile, but it has no LC with the id: anything can be typed in "
     "there.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<LC>
  <LC_PK>LC-SIDES-Q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID>
  <LC_TypeFlags>1</LC_TypeFlags>
</LC>
<LIST><LIST_Class_FK>LC-SIDES-Q</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Left</LIST_Caption></LIST>)"},

    {Rule::EmptyList, "empty-list", warning, on, findEmptyLists,
     "a list has no entries",
     "An error when an input field uses it: such a field is built without a list, so that anything can be typed in.",
     R"(<LC><LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
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

    {Rule::UnknownListClass, "unknown-list-class", error, on, findUnknownListClasses,
     "an entry belongs to no list",
     "LIST_Class_FK is the key of no LC, so that the entry is lost. Entries name their list by its key, LC_PK; input "
     "fields name it by its id, LC_Class_ID.",
     R"(<LIST><LIST_Class_FK>SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption></LIST>)",
     R"(<LIST><LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption></LIST>)"},

    {Rule::UnknownProfile, "unknown-profile", error, on, findUnknownProfiles,
     "columns or lists belong to no profile",
     "COL_Profile_FK or LC_Profile_FK is the key of no CATPRO. What belongs to a profile that does not exist is never "
     "shown.",
     R"(<COL>
  <COL_Profile_FK>ROAD</COL_Profile_FK><COL_Column_ID>WIDTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)",
     R"(<!-- Column WIDTH of profile P is above -->)"},

    {Rule::StartMarkLost, "start-mark-lost", error, on, findMarks,
     "the start mark names an unknown profile",
     "Only the first CPX with CPX_IsStart is looked at. When its profile does not exist, no later start mark counts, "
     "and the profile is chosen by the application's mark or by the sort orders.",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>PP</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>)",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>)"},

    {Rule::UnknownMarkProfile, "unknown-mark-profile", warning, on, findMarks,
     "a mark names an unknown profile",
     "CPX_Profile_FK is the key of no CATPRO; the mark chooses nothing.",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>PP</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>)",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>)"},

    {Rule::UnknownEntryParameter, "unknown-entry-parameter", warning, on, findUnknownEntryParameters,
     "an entry of a list names an unknown parameter",
     "LIST_Param_ID is the key of no PARAM, so that the entry has no placeholder.",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption>
  <LIST_Param_ID>PA-SIDES</LIST_Param_ID>
</LIST>)",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption>
  <LIST_Param_ID>PA-SIDE</LIST_Param_ID>
</LIST>)"},

    {Rule::UnknownColumnList, "unknown-column-list", note, on, findUnknownColumnLists,
     "a column names an unknown list",
     "COL_ListClass_REF is the key of no LC. Input fields do not need it: they name their lists themselves.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID><COL_DataType>TXT</COL_DataType>
  <COL_Visible>true</COL_Visible><COL_ListClass_REF>SIDES</COL_ListClass_REF>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID><COL_DataType>TXT</COL_DataType>
  <COL_Visible>true</COL_Visible><COL_ListClass_REF>LC-SIDES</COL_ListClass_REF>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::UnknownCloseCode, "unknown-close-code", note, on, findUnknownCodes,
     "a close code is no code of the catalog",
     "BC_CloseCode or CE_CloseCode is not the code of any base code or character extension.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak begins</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_CloseCode>LEZ</BC_CloseCode><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak begins</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_CloseCode>LEA</BC_CloseCode><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::UnknownFollower, "unknown-follower", note, on, findUnknownCodes,
     "a follower is no code of the catalog",
     "One of the codes in CE_Follower, which white space, commas or semicolons separate, is not the code of any base code "
     "or character extension.",
     R"(<CHAREXT>
  <CE_PK>CE-CLOSED</CE_PK><CE_BaseCode_FK>BC-JOINT</CE_BaseCode_FK><CE_Item>closed</CE_Item>
  <CE_Code>JOIC</CE_Code><CE_ObsText>Joint, closed</CE_ObsText><CE_Follower>RFI, RFX</CE_Follower>
  <CE_SortOrder>20</CE_SortOrder>
</CHAREXT>)",
     R"(<CHAREXT>
  <CE_PK>CE-CLOSED</CE_PK><CE_BaseCode_FK>BC-JOINT</CE_BaseCode_FK><CE_Item>closed</CE_Item>
  <CE_Code>JOIC</CE_Code><CE_ObsText>Joint, closed</CE_ObsText><CE_Follower>RFI, RFIO</CE_Follower>
  <CE_SortOrder>20</CE_SortOrder>
</CHAREXT>)"},
};

constexpr RuleRow profileRules[] = {
    {Rule::NoProfile, "no-profile", error, on, findNoProfile,
     "the catalog has fields, but no profile",
     "Fields are shown for a profile. Without any CATPRO, no field is ever shown.",
     R"(<OVCAT>
<CATALOG><CAT_Style>0</CAT_Style></CATALOG>
<CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Lining</CLASS_Item></CLASS>
<BASECODE>
  <BC_PK>BC-B</BC_PK><BC_Class_FK>CL-A</BC_Class_FK><BC_Code>B</BC_Code><BC_Item>Bulge</BC_Item><BC_ObsText>Bulge</BC_ObsText>
</BASECODE>
<COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>NOTE</COL_Column_ID><COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible></COL>
<PARAM><PARAM_PK>PA-N</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Note</PARAM_Caption></PARAM>
<PARAMX><PX_PK>PX-N</PX_PK><PX_BaseCode_FK>BC-B</PX_BaseCode_FK><PX_Param_FK>PA-N</PX_Param_FK><PX_Column_ID>NOTE</PX_Column_ID></PARAMX>
</OVCAT>)",
     R"(<OVCAT>
<CATALOG><CAT_Style>0</CAT_Style></CATALOG>
<CATPRO><PRO_PK>P</PRO_PK></CATPRO>
<CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Lining</CLASS_Item></CLASS>
<BASECODE>
  <BC_PK>BC-B</BC_PK><BC_Class_FK>CL-A</BC_Class_FK><BC_Code>B</BC_Code><BC_Item>Bulge</BC_Item><BC_ObsText>Bulge</BC_ObsText>
</BASECODE>
<COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>NOTE</COL_Column_ID><COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible></COL>
<PARAM><PARAM_PK>PA-N</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Note</PARAM_Caption></PARAM>
<PARAMX><PX_PK>PX-N</PX_PK><PX_BaseCode_FK>BC-B</PX_BaseCode_FK><PX_Param_FK>PA-N</PX_Param_FK><PX_Column_ID>NOTE</PX_Column_ID></PARAMX>
</OVCAT>)"},

    {Rule::NoStartMark, "no-start-mark", note, on, findMarks,
     "no profile is marked as the one to start with",
     "There are several profiles, and no CPX with CPX_IsStart. The application's mark decides, or the lowest sort "
     "order.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<!-- check: off column-missing-in-profile, profile-without-columns * -->)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile, profile-without-columns * -->)"},

    {Rule::SeveralStartMarks, "several-start-marks", warning, on, findMarks,
     "several start marks",
     "Only the first CPX with CPX_IsStart in the file counts.",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<CPX><CPX_PK>CPX-2</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>)",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<CPX><CPX_PK>CPX-2</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>false</CPX_IsStart></CPX>)"},

    {Rule::SeveralApplicationMarks, "several-application-marks", note, on, findMarks,
     "several application marks",
     "Only the first CPX with CPX_IsOrvida in the file counts.",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>
<CPX><CPX_PK>CPX-2</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>)",
     R"(<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsOrvida>true</CPX_IsOrvida></CPX>)"},

    {Rule::ProfileOrderTie, "profile-order-tie", warning, on, findMarks,
     "two profiles share the lowest sort order, and no mark decides",
     "Which of them is chosen depends on their order in the file.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>10</PRO_SortOrder></CATPRO>
<!-- check: off column-missing-in-profile, profile-without-columns, no-start-mark * -->)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<!-- check: off column-missing-in-profile, profile-without-columns, no-start-mark * -->)"},

    {Rule::ProfileWithoutColumns, "profile-without-columns", warning, on, findProfilesWithoutColumns,
     "a profile has no columns",
     "A profile shows the input fields of its columns. Without a COL that names it, it shows none.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>WIDTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)"},
};

constexpr RuleRow treeRules[] = {
    {Rule::ParentLoop, "parent-loop", error, on, findParentLoops,
     "codes are their own parents",
     "Each is below the other, perhaps with more codes in between. They and all codes below them are outside the "
     "tree, where no host shows them.",
     R"(<CHAREXT>
  <CE_PK>CE-WET</CE_PK><CE_CharExt_REF>CE-DRY</CE_CharExt_REF><CE_Item>wet</CE_Item>
  <CE_Code>JOIW</CE_Code><CE_ObsText>Joint, wet</CE_ObsText>
</CHAREXT>
<CHAREXT>
  <CE_PK>CE-DRY</CE_PK><CE_CharExt_REF>CE-WET</CE_CharExt_REF><CE_Item>dry</CE_Item>
  <CE_Code>JOID</CE_Code><CE_ObsText>Joint, dry</CE_ObsText>
</CHAREXT>)",
     R"(<CHAREXT>
  <CE_PK>CE-WET</CE_PK><CE_BaseCode_FK>BC-JOINT</CE_BaseCode_FK><CE_Item>wet</CE_Item>
  <CE_Code>JOIW</CE_Code><CE_ObsText>Joint, wet</CE_ObsText>
</CHAREXT>
<CHAREXT>
  <CE_PK>CE-DRY</CE_PK><CE_CharExt_REF>CE-WET</CE_CharExt_REF><CE_Item>dry</CE_Item>
  <CE_Code>JOID</CE_Code><CE_ObsText>Joint, dry</CE_ObsText>
</CHAREXT>)"},

    {Rule::CodeWithoutClass, "code-without-class", warning, on, findMissingParents,
     "a base code has no code class",
     "Without BC_Class_FK, it is shown beside the code classes.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ExtensionWithoutParent, "extension-without-parent", warning, on, findMissingParents,
     "a character extension has no parent",
     "Without CE_BaseCode_FK and CE_CharExt_REF, it is shown beside the code classes.",
     R"(<CHAREXT>
  <CE_PK>CE-CLOSED</CE_PK><CE_Item>closed</CE_Item><CE_Code>JOIC</CE_Code><CE_ObsText>Joint, closed</CE_ObsText>
  <CE_SortOrder>20</CE_SortOrder>
</CHAREXT>)",
     R"(<CHAREXT>
  <CE_PK>CE-CLOSED</CE_PK><CE_BaseCode_FK>BC-JOINT</CE_BaseCode_FK><CE_Item>closed</CE_Item>
  <CE_Code>JOIC</CE_Code><CE_ObsText>Joint, closed</CE_ObsText><CE_SortOrder>20</CE_SortOrder>
</CHAREXT>)"},

    {Rule::ConflictingParents, "conflicting-parents", warning, on, findConflictingParents,
     "a character extension names two parents that do not belong together",
     "Its parent is the one in CE_CharExt_REF, which is not below the base code in CE_BaseCode_FK.",
     R"(<CHAREXT>
  <CE_PK>CE-WIDE</CE_PK><CE_BaseCode_FK>BC-JOINT</CE_BaseCode_FK><CE_CharExt_REF>CE-OPEN</CE_CharExt_REF>
  <CE_Item>wide</CE_Item><CE_Code>RFIOW</CE_Code><CE_ObsText>Crack, wide open</CE_ObsText>
</CHAREXT>)",
     R"(<CHAREXT>
  <CE_PK>CE-WIDE</CE_PK><CE_BaseCode_FK>BC-CRACK</CE_BaseCode_FK><CE_CharExt_REF>CE-OPEN</CE_CharExt_REF>
  <CE_Item>wide</CE_Item><CE_Code>RFIOW</CE_Code><CE_ObsText>Crack, wide open</CE_ObsText>
</CHAREXT>)"},

    {Rule::RepeatedCode, "repeated-code", warning, on, findRepeatedCodes,
     "several records have one code",
     "Which of them a host gets for the code differs from start to start, unless they are exactly a parent and its "
     "child: then the child answers. A note when all of them are character extensions, and a single one when more "
     "than 20 codes repeat that way: the codes of extensions are then parts of codes.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>RFI</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::EqualSortOrders, "equal-sort-orders", warning, on, findEqualSortOrders,
     "codes below one parent have equal sort orders",
     "Hosts show them in another order at every start, because children are linked in the order of a hash table. A "
     "missing sort order counts as 0. One finding for each parent.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>20</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::EqualFieldOrders, "equal-field-orders", note, on, findEqualFieldOrders,
     "input fields of one code have equal sort orders",
     "Their order is fixed, but it is neither that of the file nor any other that is visible in it.",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>10</PARAM_SortOrder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>DEPTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-CRACK-DEPTH</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>DEPTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>DEPTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-CRACK-DEPTH</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>DEPTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::EqualEntryOrders, "equal-entry-orders", note, on, findEqualEntryOrders,
     "entries of one list have equal sort orders",
     "Their order is fixed, but it is neither that of the file nor any other that is visible in it.",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption>
  <LIST_SortOrder>20</LIST_SortOrder>
</LIST>)",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption>
  <LIST_SortOrder>30</LIST_SortOrder>
</LIST>)"},

    {Rule::EmptyClass, "empty-class", note, on, findEmptyClasses,
     "a code class has no codes",
     "There is nothing below it.",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>)",
     R"(<CLASS><CLASS_PK>CL-WATER</CLASS_PK><CLASS_Item>Water</CLASS_Item><CLASS_SortOrder>20</CLASS_SortOrder></CLASS>
<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-WATER</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText>
</BASECODE>)"},
};

constexpr RuleRow valueRules[] = {
    {Rule::BadBoolean, "bad-boolean", error, on, findBadBooleans,
     "a text is no boolean",
     "Booleans are true or false, in any letter case, without spaces. Any other text reads as false, with an error "
     "in the log. A warning when the text seems to mean false, such as 0 or no. The same text in the same field is "
     "one finding.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Mandatory>yes</PX_Mandatory>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Mandatory>true</PX_Mandatory>
</PARAMX>)"},

    {Rule::BadNumber, "bad-number", error, on, findBadNumbers,
     "a text is no whole number",
     "Sort orders, lengths and flags are whole numbers, within 32 bits; CAT_Style and PARAM_TypeFlags within 64. "
     "Any other text reads as 0. A warning for fields from which nothing is built. CAT_Style also reads as 0 when "
     "a comment or anything else precedes its number.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>3.5</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::BadParameterType, "bad-parameter-type", error, on, findBadParameterTypes,
     "a parameter has no known type",
     "PARAM_DataType is exactly TXT, INT, DEC, BOL or DAT, in capitals. Otherwise the fields have no type.",
     R"(<PARAM>
  <PARAM_PK>PA-COUNT</PARAM_PK><PARAM_DataType>Int</PARAM_DataType><PARAM_Caption>Count</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-COUNT</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-COUNT</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-COUNT</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Count</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-COUNT</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-COUNT</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::BadColumnType, "bad-column-type", error, on, findBadColumnTypes,
     "a column has no known type",
     "A definition without a type that the host knows is dropped while reading: its profile does not show the "
     "fields of the column. References to the column are not reported on their own.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>STR</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)"},

    {Rule::ColumnWithoutVisible, "column-without-visible", warning, on, findColumnsWithoutVisible,
     "a column does not say that it is visible",
     "A missing COL_Visible reads as false, so the profile hides the fields of the column. Only columns that "
     "fields use are looked at.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>false</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)"},

    {Rule::MandatoryHidden, "mandatory-hidden", warning, on, findHiddenMandatoryFields,
     "a field must be filled in, but cannot be",
     "The field is mandatory and has no default, and a profile hides its column or lets it only be read. One finding "
     "for each column.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_ReadOnly>true</COL_ReadOnly>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_Mandatory>true</PX_Mandatory>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_ReadOnly>true</COL_ReadOnly>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_Mandatory>true</PX_Mandatory><PX_Default>none</PX_Default>
</PARAMX>)"},

    {Rule::ColumnTypeDiffers, "column-type-differs", warning, on, findDifferentColumnTypes,
     "a column has different types in different profiles",
     "What is recorded in one profile may then not fit the other.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>NOTE</COL_Column_ID>
  <COL_DataType>INT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>NOTE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)"},

    {Rule::TypeDiffersFromColumn, "type-differs-from-column", warning, on, findTypesUnlikeColumn,
     "a field has another type than its column",
     "PARAM_DataType is not the COL_DataType of the column. A column of texts may take any field with a list.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::RangeNotANumber, "range-not-a-number", warning, on, findBadRanges,
     "a limit, step or default of a numeric field is no number",
     "Ranges, steps and defaults are texts; those of INT and DEC fields are to be numbers with a decimal point.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>0,1</PX_RangeFrom><PX_RangeTo>5</PX_RangeTo>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>0.1</PX_RangeFrom><PX_RangeTo>5</PX_RangeTo>
</PARAMX>)"},

    {Rule::FractionInInteger, "fraction-in-integer", warning, on, findBadRanges,
     "a limit, step or default of a whole number is none",
     "The field is INT, but the text has decimals.",
     R"(<PARAM>
  <PARAM_PK>PA-COUNT</PARAM_PK><PARAM_DataType>INT</PARAM_DataType><PARAM_Caption>Count</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>COUNT</COL_Column_ID>
  <COL_DataType>INT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-COUNT</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-COUNT</PX_Param_FK>
  <PX_Column_ID>COUNT</PX_Column_ID><PX_RangeFrom>1</PX_RangeFrom><PX_RangeTo>2.5</PX_RangeTo>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-COUNT</PARAM_PK><PARAM_DataType>INT</PARAM_DataType><PARAM_Caption>Count</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>COUNT</COL_Column_ID>
  <COL_DataType>INT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-COUNT</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-COUNT</PX_Param_FK>
  <PX_Column_ID>COUNT</PX_Column_ID><PX_RangeFrom>1</PX_RangeFrom><PX_RangeTo>25</PX_RangeTo>
</PARAMX>)"},

    {Rule::RangeReversed, "range-reversed", warning, on, findBadRanges,
     "the lower limit is above the upper one",
     "No value is between them.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>5</PX_RangeFrom><PX_RangeTo>0.1</PX_RangeTo>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>0.1</PX_RangeFrom><PX_RangeTo>5</PX_RangeTo>
</PARAMX>)"},

    {Rule::RangeOnText, "range-on-text", note, on, findBadRanges,
     "a text or boolean has a range",
     "Ranges are for numbers and dates.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID><PX_RangeTo>40</PX_RangeTo>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID><PX_Length>40</PX_Length>
</PARAMX>)"},

    {Rule::RangeOneSided, "range-one-sided", note, off, findBadRanges,
     "a field has one limit only",
     "The caption of a field shows its range only when it has both limits.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>0.1</PX_RangeFrom>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>0.1</PX_RangeFrom><PX_RangeTo>5</PX_RangeTo>
</PARAMX>)"},

    {Rule::StepNotPositive, "step-not-positive", warning, on, findBadRanges,
     "a step is 0 or less, or wider than the range",
     "No value can be reached with it.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Steps>0</PX_Steps>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Steps>0.1</PX_Steps>
</PARAMX>)"},

    {Rule::NegativeLength, "negative-length", warning, on, findBadLengths,
     "a length or precision is below 0",
     "PX_Length and PX_Precision are numbers of characters and of decimals.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID><PX_Length>-1</PX_Length>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID><PX_Length>40</PX_Length>
</PARAMX>)"},

    {Rule::DecimalsDiffer, "decimals-differ", note, on, findBadLengths,
     "a field shows or asks for more decimals than it keeps",
     "PX_InputFmt, PX_Steps or a limit has more decimals than PX_Precision says.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Precision>1</PX_Precision><PX_InputFmt>0.00</PX_InputFmt>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_Precision>2</PX_Precision><PX_InputFmt>0.00</PX_InputFmt>
</PARAMX>)"},

    {Rule::DefaultOutOfRange, "default-out-of-range", warning, on, findBadDefaults,
     "a default is outside the range",
     "The field begins with a value that nobody may type in.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>1</PX_RangeFrom><PX_RangeTo>5</PX_RangeTo><PX_Default>0</PX_Default>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_RangeFrom>1</PX_RangeFrom><PX_RangeTo>5</PX_RangeTo><PX_Default>1</PX_Default>
</PARAMX>)"},

    {Rule::DefaultNotInList, "default-not-in-list", warning, on, findDefaultsOutsideLists,
     "a default is no value of the list",
     "What counts is the value of an entry, as the flags of the list choose it, and not what is shown.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID><PX_Default>L</PX_Default>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID><PX_Default>Left</PX_Default>
</PARAMX>)"},

    {Rule::DefaultTooLong, "default-too-long", warning, on, findBadDefaults,
     "a default is longer than the field allows",
     "The default of a TXT field has more characters than PX_Length.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID><PX_Length>5</PX_Length><PX_Default>nothing</PX_Default>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID><PX_Length>10</PX_Length><PX_Default>nothing</PX_Default>
</PARAMX>)"},

    {Rule::RangeWiderThanColumn, "range-wider-than-column", warning, on, findRangesWiderThanColumn,
     "a field allows more than its column",
     "PX_RangeFrom or PX_RangeTo goes beyond COL_RangeFrom or COL_RangeTo, or PX_Length beyond COL_Length.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Length>20</COL_Length>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_Length>40</PX_Length>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Length>40</COL_Length>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_Length>40</PX_Length>
</PARAMX>)"},

    {Rule::ColumnListNotOnField, "column-list-not-on-field", warning, on, findColumnWishes,
     "a column has a list, its field has none",
     "Fields get no list from COL_ListClass_REF, but only from PX_ListClass_ID, which takes the id of the list.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_ListClass_REF>LC-SIDES</COL_ListClass_REF>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_ListClass_REF>LC-SIDES</COL_ListClass_REF>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::ColumnMandatoryNotField, "column-mandatory-not-field", note, on, findColumnWishes,
     "a column is mandatory, some of its fields are not",
     "Fields do not follow COL_Mandatory, but only PX_Mandatory. One finding for each column.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Mandatory>true</COL_Mandatory>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Mandatory>true</COL_Mandatory>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID><PX_Mandatory>true</PX_Mandatory>
</PARAMX>)"},

    {Rule::UnitDiffers, "unit-differs", note, off, findDifferentUnits,
     "a field has another unit than its column",
     "PARAM_Unit is not COL_Unit. Fields show PARAM_Unit.",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Unit>cm</PARAM_Unit>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>DEPTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible><COL_Unit>mm</COL_Unit>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>DEPTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Unit>mm</PARAM_Unit>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>DEPTH</COL_Column_ID>
  <COL_DataType>DEC</COL_DataType><COL_Visible>true</COL_Visible><COL_Unit>mm</COL_Unit>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>DEPTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::ClockWithoutWords, "clock-without-words", warning, on, findClocksWithoutWords,
     "a clock position lacks its words",
     "The placeholder @CLK, in any letter case, gives a field a caption with PARAM_Prefix and PARAM_Suffix in "
     "brackets. Without them, the brackets are all but empty.",
     R"(<PARAM>
  <PARAM_PK>PA-CLOCK</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Position</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@CLK</PARAM_Placeholder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-CLOCK</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-CLOCK</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-CLOCK</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Position</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@CLK</PARAM_Placeholder>
  <PARAM_Prefix>from</PARAM_Prefix><PARAM_Suffix>to</PARAM_Suffix>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-CLOCK</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-CLOCK</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)"},

    {Rule::RepeatedColumnOnCode, "repeated-column-on-code", warning, on, findRepeatedColumnsOnCodes,
     "two fields of one code fill one column",
     "What is typed into one of them overwrites the other.",
     R"(<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<PARAMX>
  <PX_PK>PX-CRACK-HINT</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-HINT</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>NOTE</PX_Column_ID>
</PARAMX>)"},

    {Rule::RepeatedExportId, "repeated-export-id", warning, on, findExportIds,
     "two columns of one profile are exported under one name",
     "They have the same COL_Export_ID.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Export_ID>F</COL_Export_ID>
</COL>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>HINT</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Export_ID>F</COL_Export_ID>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>
<PARAMX>
  <PX_PK>PX-OPEN-NOTE</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>HINT</PX_Column_ID>
</PARAMX>
<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Export_ID>F</COL_Export_ID>
</COL>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>HINT</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Export_ID>H</COL_Export_ID>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>
<PARAMX>
  <PX_PK>PX-OPEN-NOTE</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>HINT</PX_Column_ID>
</PARAMX>
<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>)"},

    {Rule::ExportIdMissing, "export-id-missing", note, on, findExportIds,
     "a column that is exported has no name for it",
     "COL_Transport is true, and COL_Export_ID is empty.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Transport>true</COL_Transport>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible><COL_Transport>true</COL_Transport><COL_Export_ID>F</COL_Export_ID>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)"},
};

constexpr RuleRow listRules[] = {
    {Rule::EntryWithoutValue, "entry-without-value", error, on, findEntriesWithoutValue,
     "an entry of a list has no value",
     "What is recorded of an entry is LIST_Internal, LIST_Caption or LIST_Item, as the flags of its list choose; "
     "in the list of continuous-defect codes, LIST_Internal. Here that is blank.",
     R"(<LC><LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>
<LIST><LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Caption>Upper</LIST_Caption></LIST>)",
     R"(<LC><LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>
<LIST><LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>U</LIST_Item><LIST_Caption>Upper</LIST_Caption></LIST>)"},

    {Rule::RepeatedListValue, "repeated-list-value", warning, on, findRepeatedListValues,
     "two entries of a list have one value",
     "What is recorded does not tell which of them was chosen.",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>LL</LIST_Item><LIST_Caption>Left</LIST_Caption><LIST_SortOrder>30</LIST_SortOrder>
</LIST>)",
     R"(<LIST>
  <LIST_Class_FK>LC-SIDES</LIST_Class_FK><LIST_Item>M</LIST_Item><LIST_Caption>Middle</LIST_Caption><LIST_SortOrder>30</LIST_SortOrder>
</LIST>)"},

    {Rule::RepeatedDefectCode, "repeated-defect-code", error, on, findRepeatedListValues,
     "two continuous-defect codes are the same",
     "In the list LC_ID_CD, LIST_Internal is the code. The text of one of the two entries is lost.",
     R"(<LC><LC_PK>LC-CD</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>LC_ID_CD</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-CD</LIST_Class_FK><LIST_Item>begins</LIST_Item><LIST_Caption>Begin</LIST_Caption><LIST_Internal>A</LIST_Internal><LIST_SortOrder>10</LIST_SortOrder>
</LIST>
<LIST>
  <LIST_Class_FK>LC-CD</LIST_Class_FK><LIST_Item>ends</LIST_Item><LIST_Caption>End</LIST_Caption><LIST_Internal>A</LIST_Internal><LIST_SortOrder>20</LIST_SortOrder>
</LIST>)",
     R"(<LC><LC_PK>LC-CD</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>LC_ID_CD</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-CD</LIST_Class_FK><LIST_Item>begins</LIST_Item><LIST_Caption>Begin</LIST_Caption><LIST_Internal>A</LIST_Internal><LIST_SortOrder>10</LIST_SortOrder>
</LIST>
<LIST>
  <LIST_Class_FK>LC-CD</LIST_Class_FK><LIST_Item>ends</LIST_Item><LIST_Caption>End</LIST_Caption><LIST_Internal>B</LIST_Internal><LIST_SortOrder>20</LIST_SortOrder>
</LIST>)"},

    {Rule::EntryWithoutCaption, "entry-without-caption", warning, on, findEntriesWithoutCaption,
     "an entry of a list has no caption",
     "Its caption and its item text are blank, so there is nothing to show. A note when only the caption is; one "
     "finding for each list class.",
     R"(<LC><LC_PK>LC-CD</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>LC_ID_CD</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-CD</LIST_Class_FK><LIST_Internal>A</LIST_Internal>
</LIST>)",
     R"(<LC><LC_PK>LC-CD</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>LC_ID_CD</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-CD</LIST_Class_FK><LIST_Item>begins</LIST_Item><LIST_Caption>Begin</LIST_Caption><LIST_Internal>A</LIST_Internal>
</LIST>)"},

    {Rule::EntryWithoutInternal, "entry-without-internal", note, off, findEntriesWithoutInternal,
     "some entries of a list have no internal value",
     "The flags of the list ask for LIST_Internal. Entries without it record their caption or item text.",
     R"(<LC>
  <LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID>
  <LC_TypeFlags>33</LC_TypeFlags>
</LC>
<LIST>
  <LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>U</LIST_Item><LIST_Caption>Upper</LIST_Caption><LIST_Internal>U</LIST_Internal><LIST_SortOrder>10</LIST_SortOrder>
</LIST>
<LIST>
  <LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Lower</LIST_Caption><LIST_SortOrder>20</LIST_SortOrder>
</LIST>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>)",
     R"(<LC>
  <LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID>
  <LC_TypeFlags>33</LC_TypeFlags>
</LC>
<LIST>
  <LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>U</LIST_Item><LIST_Caption>Upper</LIST_Caption><LIST_Internal>U</LIST_Internal><LIST_SortOrder>10</LIST_SortOrder>
</LIST>
<LIST>
  <LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Lower</LIST_Caption><LIST_Internal>L</LIST_Internal><LIST_SortOrder>20</LIST_SortOrder>
</LIST>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::ListValueType, "list-value-type", warning, on, findUnfitListValues,
     "a list offers a numeric field what is no number",
     "The field is INT or DEC, and its list has a value that is no number, or for INT no whole number.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::ListValueTooLong, "list-value-too-long", warning, on, findUnfitListValues,
     "a list offers a field what is too long for it",
     "A value of the list has more characters than PX_Length.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID><PX_Length>4</PX_Length>
</PARAMX>)",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>SIDES</PX_ListClass_ID><PX_Length>5</PX_Length>
</PARAMX>)"},

    {Rule::ListTextDiffers, "list-text-differs", note, off, findDifferentListTexts,
     "one value of a list has different texts in two profiles",
     "The entries have the same value, but other captions or item texts.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<LC>
  <LC_PK>LC-SIDES-Q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID>
  <LC_TypeFlags>1</LC_TypeFlags>
</LC>
<LIST>
  <LIST_Class_FK>LC-SIDES-Q</LIST_Class_FK><LIST_Item>gauche</LIST_Item><LIST_Caption>Left</LIST_Caption>
</LIST>)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<LC>
  <LC_PK>LC-SIDES-Q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID>
  <LC_TypeFlags>1</LC_TypeFlags>
</LC>
<LIST>
  <LIST_Class_FK>LC-SIDES-Q</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Left</LIST_Caption>
</LIST>)"},

    {Rule::ListFlagsDiffer, "list-flags-differ", warning, on, findDifferentListFlags,
     "a list records different things in two profiles",
     "The bits 1 and 32 of LC_TypeFlags choose what is recorded of an entry. They differ between lists with one "
     "id.",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<LC>
  <LC_PK>LC-SIDES-Q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID>
  <LC_TypeFlags>0</LC_TypeFlags>
</LC>
<LIST>
  <LIST_Class_FK>LC-SIDES-Q</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Left</LIST_Caption>
</LIST>)",
     R"(<CATPRO><PRO_PK>Q</PRO_PK><PRO_SortOrder>20</PRO_SortOrder></CATPRO>
<CPX><CPX_PK>CPX-1</CPX_PK><CPX_Profile_FK>P</CPX_Profile_FK><CPX_IsStart>true</CPX_IsStart></CPX>
<!-- check: off column-missing-in-profile * -->
<COL>
  <COL_Profile_FK>Q</COL_Profile_FK><COL_Column_ID>SIDE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<LC>
  <LC_PK>LC-SIDES-Q</LC_PK><LC_Profile_FK>Q</LC_Profile_FK><LC_Class_ID>SIDES</LC_Class_ID>
  <LC_TypeFlags>1</LC_TypeFlags>
</LC>
<LIST>
  <LIST_Class_FK>LC-SIDES-Q</LIST_Class_FK><LIST_Item>L</LIST_Item><LIST_Caption>Left</LIST_Caption>
</LIST>)"},

    {Rule::UnusedList, "unused-list", note, on, findUnusedLists,
     "nothing uses a list",
     "No PX_ListClass_ID names its id, and no COL_ListClass_REF its key. The list LC_ID_CD needs no field.",
     R"(<LC><LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>U</LIST_Item><LIST_Caption>Upper</LIST_Caption>
</LIST>)",
     R"(<LC><LC_PK>LC-FACES</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>FACES</LC_Class_ID></LC>
<LIST>
  <LIST_Class_FK>LC-FACES</LIST_Class_FK><LIST_Item>U</LIST_Item><LIST_Caption>Upper</LIST_Caption>
</LIST>
<PARAMX>
  <PX_PK>PX-JOINT-SIDE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-SIDE</PX_Param_FK>
  <PX_Column_ID>SIDE</PX_Column_ID><PX_ListClass_ID>FACES</PX_ListClass_ID>
</PARAMX>)"},

    {Rule::UnusedParameter, "unused-parameter", note, on, findUnusedParameters,
     "nothing uses a parameter",
     "Neither PX_Param_FK nor LIST_Param_ID names it.",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>)",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::UnusedColumn, "unused-column", note, on, findUnusedColumns,
     "no field uses a column",
     "No PX_Column_ID names it.",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>)",
     R"(<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-JOINT-NOTE</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-NOTE</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)"},
};

constexpr RuleRow captionRules[] = {
    {Rule::MissingCaption, "missing-caption", warning, on, findMissingCaptions,
     "a code or a field has no caption",
     "CLASS_Item, BC_Item, CE_Item, or the PARAM_Caption of a parameter that a field uses, is missing or blank.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::PaddedCaption, "padded-caption", note, on, findPaddedCaptions,
     "a caption has white space at its ends, or a line break",
     "It is shown as it is.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>
    Leak
  </BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::EqualCaptions, "equal-captions", note, on, findEqualCaptions,
     "two codes below one parent have the same caption",
     "An inspector cannot tell them apart by it.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Joint</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::MissingCode, "missing-code", warning, on, findMissingCodes,
     "a base code has no code",
     "It cannot be recorded, unless BC_IsVirtual is true. A note for character extensions.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_IsVirtual>true</BC_IsVirtual><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::MissingObservationText, "missing-observation-text", note, on, findMissingObservationTexts,
     "a code has no observation text",
     "Only codes with nothing below them are looked at, and no virtual ones.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::UnknownPlaceholder, "unknown-placeholder", warning, on, findUnknownPlaceholders,
     "an observation text has a placeholder that stands for nothing",
     "A placeholder is @ with letters, digits or _. It stands for a field of the code, or of one above it, whose "
     "parameter has the same PARAM_Placeholder, letter case included. Codes with incomplete fields are left alone, "
     "and so are placeholders of fields whose code is unknown.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak, @W wide</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak, @W wide</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>
<PARAMX>
  <PX_PK>PX-LEAK-WIDTH</PX_PK><PX_BaseCode_FK>BC-LEAK</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::BadPlaceholder, "bad-placeholder", warning, on, findBadPlaceholders,
     "a text is no placeholder",
     "PARAM_Placeholder is @ with letters, digits or _.",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>D</PARAM_Placeholder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-DEPTH</PARAM_PK><PARAM_DataType>DEC</PARAM_DataType><PARAM_Caption>Depth</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@D</PARAM_Placeholder>
</PARAM>
<PARAMX>
  <PX_PK>PX-JOINT-DEPTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-DEPTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},

    {Rule::RepeatedPlaceholder, "repeated-placeholder", warning, on, findRepeatedPlaceholders,
     "two fields of one code have one placeholder",
     "The observation text does not tell which of them it means.",
     R"(<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@N</PARAM_Placeholder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-CRACK-HINT</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@H</PARAM_Placeholder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-CRACK-HINT</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)"},

    {Rule::PlaceholderBeginsAnother, "placeholder-begins-another", note, on, findUnknownPlaceholders,
     "a placeholder begins another one of the same code",
     "Such as @CL and @CLK. A host that replaces them one by one finds the shorter one inside the longer.",
     R"(<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@N2</PARAM_Placeholder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-CRACK-HINT</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)",
     R"(<PARAM>
  <PARAM_PK>PA-HINT</PARAM_PK><PARAM_DataType>TXT</PARAM_DataType><PARAM_Caption>Hint</PARAM_Caption>
  <PARAM_SortOrder>40</PARAM_SortOrder><PARAM_Placeholder>@H</PARAM_Placeholder>
</PARAM>
<COL>
  <COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>FACE</COL_Column_ID>
  <COL_DataType>TXT</COL_DataType><COL_Visible>true</COL_Visible>
</COL>
<PARAMX>
  <PX_PK>PX-CRACK-HINT</PX_PK><PX_BaseCode_FK>BC-CRACK</PX_BaseCode_FK><PX_Param_FK>PA-HINT</PX_Param_FK>
  <PX_Column_ID>FACE</PX_Column_ID>
</PARAMX>)"},

    {Rule::FieldWithoutPlaceholder, "field-without-placeholder", note, off, findFieldsWithoutPlaceholder,
     "no observation text mentions a field",
     "The placeholder of the field is in no observation text of its code, or of a code below it.",
     R"(<PARAMX>
  <PX_PK>PX-JOINT-WIDTH</PX_PK><PX_BaseCode_FK>BC-JOINT</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>LEA</BC_Code><BC_ObsText>Leak, @W wide</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>
<PARAMX>
  <PX_PK>PX-LEAK-WIDTH</PX_PK><PX_BaseCode_FK>BC-LEAK</PX_BaseCode_FK><PX_Param_FK>PA-WIDTH</PX_Param_FK>
  <PX_Column_ID>WIDTH</PX_Column_ID>
</PARAMX>)"},
};

constexpr RuleRow scrambledRules[] = {
    {Rule::ReadableForm, "readable-form", error, on, findReadableForm,
     "the file is in the readable form",
     "More than half of the texts that are scrambled in catalogs are in the clear. A host reads nothing of them, "
     "and where keys are among them, the file does not load. All other rules are then applied to the readable form; missing captions and codes are "
     "not reported.",
     R"(<OVCAT>
<CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>Lining</CLASS_Item></CLASS>
</OVCAT>)",
     R"(<OVCAT>
<CLASS><CLASS_PK>CL-A</CLASS_PK><CLASS_Item>314BE62DDC9D</CLASS_Item></CLASS>
</OVCAT>)"},

    {Rule::ScrambledNotHex, "scrambled-not-hex", error, on, findOddScrambledTexts,
     "a scrambled text has characters that are no hexadecimal digits",
     "The text ends there, or turns into something else. White space counts, too.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>Leak</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ScrambledOdd, "scrambled-odd", error, on, findOddScrambledTexts,
     "a scrambled text has an odd number of digits",
     "Two digits are one byte; the last digit is lost.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D7</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ScrambledNotUtf8, "scrambled-not-utf8", error, on, findOddScrambledTexts,
     "a scrambled text is no UTF-8",
     "Its bytes decode to replacement characters. Perhaps digits were lost, or swapped.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>31166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ScrambledZeroByte, "scrambled-zero-byte", error, on, findOddScrambledTexts,
     "a scrambled text has a zero byte",
     "The text ends there, and the rest is lost. The whole text 00 means an empty one.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B006D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ScrambledControl, "scrambled-control", warning, on, findControlCharacters,
     "a scrambled text decodes to control characters",
     "It was perhaps written in the clear, and has only letters from A to F and digits.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D30</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ScrambledTwice, "scrambled-twice", warning, on, findScrambledTwice,
     "a text is scrambled twice",
     "What it decodes to decodes once more to a text that can be printed. In the readable form: it is scrambled "
     "already.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>CC89234862D8B144</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder>
</BASECODE>)"},

    {Rule::ScrambledInClearField, "scrambled-in-clear-field", warning, on, findScrambledTwice,
     "a field that is not scrambled holds a scrambled text",
     "The value consists of four or more pairs of hexadecimal digits in capitals, with a letter among them, and "
     "decodes to a text that can be printed.",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder><BC_Remarks>397B4704D2B901464EF280A357CDDC956337</BC_Remarks>
</BASECODE>)",
     R"(<BASECODE>
  <BC_PK>BC-LEAK</BC_PK><BC_Class_FK>CL-LINING</BC_Class_FK><BC_Item>312B166D</BC_Item>
  <BC_Code>312A14</BC_Code><BC_ObsText>312B166D</BC_ObsText><BC_SortOrder>30</BC_SortOrder><BC_Remarks>Not in dry tunnels</BC_Remarks>
</BASECODE>)"},
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
    group("References", true, referenceRules),
    group("Profiles", true, profileRules),
    group("The tree, and orders", true, treeRules),
    group("Values", true, valueRules),
    group("Lists, and what nothing uses", true, listRules),
    group("Captions and observation texts", true, captionRules),
    group("Scrambled texts", false, scrambledRules),
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
