#include "tools/NewCatalog.h"

#include <QHash>
#include <QRegularExpression>

namespace Orvida::Tools {

namespace {

const char head[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- A catalog to start from, in the readable form: make what hosts load of it with "orvida-catalog scramble",
     and look at it with "orvida-catalog show" and the option for readable files. "orvida-catalog explain" says
     what an element is for. -->
<OVCAT>

  <!-- What the catalog is; 2147483648 as style would say that it supports 3D. -->
  <CATALOG>
    <CAT_Style>0</CAT_Style>
    <CAT_PK>{key}</CAT_PK>
    <CAT_Language>{language}</CAT_Language>
    <CAT_Version>0.1</CAT_Version>
    <CAT_Description>What the catalog is for</CAT_Description>
  </CATALOG>
)";

const char profileRecord[] = R"(
  <!-- A profile is a variant of the catalog, with columns and lists of its own. -->
  <CATPRO>
    <PRO_PK>{profile}</PRO_PK>
    <PRO_Description>What the profile is for</PRO_Description>
    <PRO_SortOrder>{order}</PRO_SortOrder>
  </CATPRO>
)";

const char mark[] = R"(
  <!-- This marks the profile that is chosen when the catalog is loaded. -->
  <CPX>
    <CPX_PK>CPX-START</CPX_PK>
    <CPX_Profile_FK>{profile}</CPX_Profile_FK>
    <CPX_IsStart>true</CPX_IsStart>
  </CPX>
)";

const char column[] = R"(
  <!-- The column that stores {what}, as one profile sees it; without it the profile has no such field. -->
  <COL>
    <COL_Profile_FK>{profile}</COL_Profile_FK>
    <COL_Column_ID>{column}</COL_Column_ID>
    <COL_DataType>{type}</COL_DataType>
    <COL_Visible>true</COL_Visible>
    <COL_ReadOnly>false</COL_ReadOnly>
  </COL>
)";

const char lists[] = R"(
  <!-- A list of values, for one profile; fields name it by its class id. -->
  <LC>
    <LC_PK>LC-KINDS-{profile}</LC_PK>
    <LC_Profile_FK>{profile}</LC_Profile_FK>
    <LC_Class_ID>KINDS</LC_Class_ID>
    <LC_Caption>Kinds of cracks</LC_Caption>
  </LC>
  <!-- An entry of the list: the caption is shown, the item is recorded. -->
  <LIST>
    <LIST_Class_FK>LC-KINDS-{profile}</LIST_Class_FK>
    <LIST_Item>HAIR</LIST_Item>
    <LIST_Caption>Hairline crack</LIST_Caption>
    <LIST_SortOrder>10</LIST_SortOrder>
  </LIST>
  <!-- Another entry; sort orders in steps of 10 leave room for more. -->
  <LIST>
    <LIST_Class_FK>LC-KINDS-{profile}</LIST_Class_FK>
    <LIST_Item>OPEN</LIST_Item>
    <LIST_Caption>Open crack</LIST_Caption>
    <LIST_SortOrder>20</LIST_SortOrder>
  </LIST>

  <!-- The list with this class id holds the codes of defects that go on over a distance. -->
  <LC>
    <LC_PK>LC-DEFECTS-{profile}</LC_PK>
    <LC_Profile_FK>{profile}</LC_Profile_FK>
    <LC_Class_ID>LC_ID_CD</LC_Class_ID>
    <LC_Caption>Continuous defects</LC_Caption>
  </LC>
  <!-- Here the internal text is the code. -->
  <LIST>
    <LIST_Class_FK>LC-DEFECTS-{profile}</LIST_Class_FK>
    <LIST_Item>Start of the defect</LIST_Item>
    <LIST_Caption>Start</LIST_Caption>
    <LIST_Internal>A01</LIST_Internal>
    <LIST_SortOrder>10</LIST_SortOrder>
  </LIST>
  <!-- What begins with one code ends with another. -->
  <LIST>
    <LIST_Class_FK>LC-DEFECTS-{profile}</LIST_Class_FK>
    <LIST_Item>End of the defect</LIST_Item>
    <LIST_Caption>End</LIST_Caption>
    <LIST_Internal>B01</LIST_Internal>
    <LIST_SortOrder>20</LIST_SortOrder>
  </LIST>
)";

const char codes[] = R"(
  <!-- A parameter says what a value is: here a clock position, because its placeholder is @CLK. -->
  <PARAM>
    <PARAM_PK>PA-CLOCK</PARAM_PK>
    <PARAM_DataType>INT</PARAM_DataType>
    <PARAM_Placeholder>@CLK</PARAM_Placeholder>
    <PARAM_Caption>Position</PARAM_Caption>
    <PARAM_Prefix>at</PARAM_Prefix>
    <PARAM_Suffix>o'clock</PARAM_Suffix>
    <PARAM_SortOrder>10</PARAM_SortOrder>
  </PARAM>
  <!-- A text that is chosen from a list. -->
  <PARAM>
    <PARAM_PK>PA-KIND</PARAM_PK>
    <PARAM_DataType>TXT</PARAM_DataType>
    <PARAM_Placeholder>@KND</PARAM_Placeholder>
    <PARAM_Caption>Kind</PARAM_Caption>
    <PARAM_SortOrder>20</PARAM_SortOrder>
  </PARAM>
  <!-- A decimal number with a unit. -->
  <PARAM>
    <PARAM_PK>PA-WIDTH</PARAM_PK>
    <PARAM_DataType>DEC</PARAM_DataType>
    <PARAM_Placeholder>@WID</PARAM_Placeholder>
    <PARAM_Caption>Width</PARAM_Caption>
    <PARAM_Unit>mm</PARAM_Unit>
    <PARAM_SortOrder>30</PARAM_SortOrder>
  </PARAM>
  <!-- A whole number. -->
  <PARAM>
    <PARAM_PK>PA-COUNT</PARAM_PK>
    <PARAM_DataType>INT</PARAM_DataType>
    <PARAM_Placeholder>@CNT</PARAM_Placeholder>
    <PARAM_Caption>Number</PARAM_Caption>
    <PARAM_SortOrder>40</PARAM_SortOrder>
  </PARAM>
  <!-- Yes or no. -->
  <PARAM>
    <PARAM_PK>PA-ACTIVE</PARAM_PK>
    <PARAM_DataType>BOL</PARAM_DataType>
    <PARAM_Placeholder>@ACT</PARAM_Placeholder>
    <PARAM_Caption>Active</PARAM_Caption>
    <PARAM_SortOrder>50</PARAM_SortOrder>
  </PARAM>
  <!-- A date. -->
  <PARAM>
    <PARAM_PK>PA-DATE</PARAM_PK>
    <PARAM_DataType>DAT</PARAM_DataType>
    <PARAM_Placeholder>@DAT</PARAM_Placeholder>
    <PARAM_Caption>First seen</PARAM_Caption>
    <PARAM_SortOrder>60</PARAM_SortOrder>
  </PARAM>
  <!-- A text that is typed in. -->
  <PARAM>
    <PARAM_PK>PA-REMARK</PARAM_PK>
    <PARAM_DataType>TXT</PARAM_DataType>
    <PARAM_Placeholder>@REM</PARAM_Placeholder>
    <PARAM_Caption>Remark</PARAM_Caption>
    <PARAM_SortOrder>70</PARAM_SortOrder>
  </PARAM>

  <!-- A code class is a chapter of the tree; it has no code itself. -->
  <CLASS>
    <CLASS_PK>CL-STRUCTURE</CLASS_PK>
    <CLASS_Item>Structure</CLASS_Item>
    <CLASS_SortOrder>10</CLASS_SortOrder>
  </CLASS>

  <!-- A base code belongs to a class; the placeholders in its observation text stand for the values of its fields. -->
  <BASECODE>
    <BC_PK>BC-CRA</BC_PK>
    <BC_Class_FK>CL-STRUCTURE</BC_Class_FK>
    <BC_Item>Crack</BC_Item>
    <BC_Code>CRA</BC_Code>
    <BC_ObsText>Crack at @CLK o'clock, @KND, @WID mm wide, @CNT in all, active: @ACT, first seen @DAT, @REM</BC_ObsText>
    <BC_SortOrder>10</BC_SortOrder>
  </BASECODE>
  <!-- A parameter extension makes a field: it asks for a parameter at a code and names the column that stores it. -->
  <PARAMX>
    <PX_PK>PX-CRA-CLOCK</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-CLOCK</PX_Param_FK>
    <PX_Column_ID>OBS_CLOCK</PX_Column_ID>
    <PX_Mandatory>true</PX_Mandatory>
    <PX_RangeFrom>1</PX_RangeFrom>
    <PX_RangeTo>12</PX_RangeTo>
  </PARAMX>
  <!-- This one names its list, and begins with one of the values. -->
  <PARAMX>
    <PX_PK>PX-CRA-KIND</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-KIND</PX_Param_FK>
    <PX_Column_ID>OBS_KIND</PX_Column_ID>
    <PX_ListClass_ID>KINDS</PX_ListClass_ID>
    <PX_Mandatory>true</PX_Mandatory>
    <PX_Default>HAIR</PX_Default>
  </PARAMX>
  <!-- The caption shows the limits, in the input format. -->
  <PARAMX>
    <PX_PK>PX-CRA-WIDTH</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-WIDTH</PX_Param_FK>
    <PX_Column_ID>OBS_WIDTH</PX_Column_ID>
    <PX_RangeFrom>0.1</PX_RangeFrom>
    <PX_RangeTo>50</PX_RangeTo>
    <PX_Steps>0.1</PX_Steps>
    <PX_Precision>1</PX_Precision>
    <PX_InputFmt>0.0</PX_InputFmt>
    <PX_DisplayFmt>0.0</PX_DisplayFmt>
  </PARAMX>
  <!-- A whole number with its limits. -->
  <PARAMX>
    <PX_PK>PX-CRA-COUNT</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-COUNT</PX_Param_FK>
    <PX_Column_ID>OBS_COUNT</PX_Column_ID>
    <PX_RangeFrom>1</PX_RangeFrom>
    <PX_RangeTo>99</PX_RangeTo>
  </PARAMX>
  <!-- Yes or no, no at first. -->
  <PARAMX>
    <PX_PK>PX-CRA-ACTIVE</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-ACTIVE</PX_Param_FK>
    <PX_Column_ID>OBS_ACTIVE</PX_Column_ID>
    <PX_Default>false</PX_Default>
  </PARAMX>
  <!-- A date. -->
  <PARAMX>
    <PX_PK>PX-CRA-DATE</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-DATE</PX_Param_FK>
    <PX_Column_ID>OBS_DATE</PX_Column_ID>
  </PARAMX>
  <!-- A text of limited length. -->
  <PARAMX>
    <PX_PK>PX-CRA-REMARK</PX_PK>
    <PX_BaseCode_FK>BC-CRA</PX_BaseCode_FK>
    <PX_Param_FK>PA-REMARK</PX_Param_FK>
    <PX_Column_ID>OBS_REMARK</PX_Column_ID>
    <PX_Length>200</PX_Length>
  </PARAMX>

  <!-- A character extension refines a base code; its observation text may use the placeholders of that code too. -->
  <CHAREXT>
    <CE_PK>CE-CRA-L</CE_PK>
    <CE_BaseCode_FK>BC-CRA</CE_BaseCode_FK>
    <CE_Item>Longitudinal crack</CE_Item>
    <CE_Code>CRAL</CE_Code>
    <CE_ObsText>Longitudinal crack at @CLK o'clock, @WID mm wide</CE_ObsText>
    <CE_SortOrder>10</CE_SortOrder>
  </CHAREXT>
  <!-- A field of the extension; a field is asked for at the code that it names, and nowhere else. -->
  <PARAMX>
    <PX_PK>PX-CRAL-WIDTH</PX_PK>
    <PX_CharExt_FK>CE-CRA-L</PX_CharExt_FK>
    <PX_Param_FK>PA-WIDTH</PX_Param_FK>
    <PX_Column_ID>OBS_WIDTH</PX_Column_ID>
    <PX_Mandatory>true</PX_Mandatory>
  </PARAMX>
</OVCAT>
)";

const char codeRecords[] = R"(  <!-- A code; give it a sort order that none of its siblings has. -->
  <BASECODE>
    <BC_PK>BC-{code}</BC_PK>
    <BC_Class_FK>{class}</BC_Class_FK>
    <BC_Item>Caption of {code}</BC_Item>
    <BC_Code>{code}</BC_Code>
    <BC_ObsText>Observation text, with placeholders such as @WID</BC_ObsText>
    <BC_SortOrder>100</BC_SortOrder>
  </BASECODE>
  <!-- A field of the code; name a parameter and a column that the catalog has. -->
  <PARAMX>
    <PX_PK>PX-{code}-WIDTH</PX_PK>
    <PX_BaseCode_FK>BC-{code}</PX_BaseCode_FK>
    <PX_Param_FK>PA-WIDTH</PX_Param_FK>
    <PX_Column_ID>OBS_WIDTH</PX_Column_ID>
    <PX_Mandatory>false</PX_Mandatory>
  </PARAMX>
)";

struct ColumnRow
{
    const char *id;
    const char *type;
    const char *what;
};

const ColumnRow columnRows[] = {
    {"OBS_CLOCK", "INT", "clock positions"}, {"OBS_KIND", "TXT", "kinds"},
    {"OBS_WIDTH", "DEC", "widths"},          {"OBS_COUNT", "INT", "numbers"},
    {"OBS_ACTIVE", "BOL", "activity"},       {"OBS_DATE", "DAT", "dates"},
    {"OBS_REMARK", "TXT", "remarks"},
};

// The template with `values`, escaped, in their places.
QString filled(const char *pattern, const QHash<QString, QString> &values)
{
    static const QRegularExpression place(QStringLiteral("\\{([a-z]+)\\}"));
    const QString text = QString::fromUtf8(pattern);
    QString xml;
    int end = 0;
    for (auto matches = place.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        xml += text.midRef(end, match.capturedStart() - end);
        xml += values.value(match.captured(1)).toHtmlEscaped();
        end = match.capturedEnd();
    }
    return xml + text.midRef(end);
}

} // namespace

QByteArray newCatalog(const QString &key, const QString &language, const QStringList &profiles)
{
    const QString profileName = QStringLiteral("profile");
    QString xml = filled(head, {{QStringLiteral("key"), key}, {QStringLiteral("language"), language}});
    for (int i = 0; i < profiles.size(); ++i)
        xml += filled(profileRecord, {{QStringLiteral("order"), QString::number(10 * (i + 1))},
                                      {profileName, profiles.at(i)}});
    xml += filled(mark, {{profileName, profiles.value(0)}});
    for (const ColumnRow &row : columnRows) {
        for (const QString &profile : profiles)
            xml += filled(column, {{QStringLiteral("column"), QLatin1String(row.id)},
                                   {QStringLiteral("type"), QLatin1String(row.type)},
                                   {QStringLiteral("what"), QLatin1String(row.what)},
                                   {profileName, profile}});
    }
    for (const QString &profile : profiles)
        xml += filled(lists, {{profileName, profile}});
    return (xml + QString::fromUtf8(codes)).toUtf8();
}

QByteArray newCode(const QString &classKey, const QString &code)
{
    return filled(codeRecords, {{QStringLiteral("class"), classKey}, {QStringLiteral("code"), code}})
        .toUtf8();
}

} // namespace Orvida::Tools
