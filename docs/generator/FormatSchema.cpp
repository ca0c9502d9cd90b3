#include "docs/generator/FormatSchema.h"

#include "catalogs/format/CatalogFormat.h"

namespace Orvida::Format {

namespace {

using Catalogs::CatalogFormat;
using Kind = CatalogFormat::Kind;
using Use = CatalogFormat::Use;

// XSD 1.0 cannot describe fields in any order that may also repeat: xs:all allows each once. %1 the form, %2
// the roots, %3 the records, %4 the types.
const char frame[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:annotation>
    <xs:documentation>Coding catalogs, %1. Made by the build: do not edit.</xs:documentation>
  </xs:annotation>

%2
  <xs:complexType name="catalog">
    <xs:choice minOccurs="0" maxOccurs="unbounded">
%3    </xs:choice>
  </xs:complexType>

%4</xs:schema>
)";

const char rootElement[] = R"(  <xs:element name="%1" type="catalog">
    <xs:annotation>
      <xs:documentation>A catalog: its records, in any order.</xs:documentation>
    </xs:annotation>
  </xs:element>
)";

const char nestedRoot[] = R"(      <xs:element ref="%1"/>
)";

const char recordElement[] = R"(      <xs:element name="%1">
        <xs:annotation>
          <xs:documentation>%2</xs:documentation>
        </xs:annotation>
        <xs:complexType>
          <xs:all>
%3          </xs:all>
        </xs:complexType>
      </xs:element>
)";

const char fieldElement[] = R"(            <xs:element name="%1" type="%2"%3>
              <xs:annotation>
                <xs:documentation>%4</xs:documentation>
              </xs:annotation>
            </xs:element>
)";

// An empty field counts as left out, so every type that no record requires takes the empty text. %1 the
// restrictions of scrambled text, %2 the words of booleans, %3 and %4 those of parameter and column types.
const char types[] = R"(  <xs:simpleType name="requiredText">
    <xs:restriction base="xs:string">
      <xs:minLength value="1"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="scrambledText">
    <xs:restriction base="xs:string">
%1    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="requiredScrambledText">
    <xs:restriction base="scrambledText">
      <xs:minLength value="1"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="empty">
    <xs:restriction base="xs:string">
      <xs:length value="0"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="integer">
    <xs:union memberTypes="xs:int empty"/>
  </xs:simpleType>
  <xs:simpleType name="integer64">
    <xs:union memberTypes="xs:long empty"/>
  </xs:simpleType>
  <xs:simpleType name="booleanWord">
    <xs:restriction base="xs:string">
%2    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="booleanInAnyLetterCase">
    <xs:restriction base="xs:string">
      <xs:pattern value="[Tt][Rr][Uu][Ee]|[Ff][Aa][Ll][Ss][Ee]"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="boolean">
    <xs:union memberTypes="booleanWord booleanInAnyLetterCase empty"/>
  </xs:simpleType>
  <xs:simpleType name="parameterTypeWord">
    <xs:restriction base="xs:string">
%3    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="parameterType">
    <xs:union memberTypes="parameterTypeWord empty"/>
  </xs:simpleType>
  <xs:simpleType name="columnType">
    <xs:restriction base="xs:string">
%4    </xs:restriction>
  </xs:simpleType>
)";

// Pairs of digits. The pair 00 would end the text: nothing writes it.
const char scrambledPairs[] = R"(      <xs:pattern value="(0[1-9A-Fa-f]|[1-9A-Fa-f][0-9A-Fa-f])*"/>
)";

template <typename... Arguments>
QString filled(const char *pattern, const Arguments &...arguments)
{
    return QString::fromLatin1(pattern).arg(arguments...);
}

QLatin1String typeOf(const CatalogFormat::Field &field)
{
    switch (field.kind) {
    case Kind::Text: return QLatin1String(field.isRequired ? "requiredText" : "xs:string");
    case Kind::ScrambledText:
        return QLatin1String(field.isRequired ? "requiredScrambledText" : "scrambledText");
    case Kind::Integer: return QLatin1String("integer");
    case Kind::Integer64: return QLatin1String("integer64");
    case Kind::Boolean: return QLatin1String("boolean");
    case Kind::ParameterType: return QLatin1String("parameterType");
    case Kind::ColumnType: return QLatin1String("columnType");
    }
    return {};
}

QString documentationOf(const CatalogFormat::Field &field)
{
    QString text = field.meaning;
    if (!field.names.isEmpty())
        text += filled(" Refers to %1.", field.names);
    if (field.isRequired)
        text += QLatin1String(" Required.");
    if (field.use == Use::Stored)
        text += QLatin1String(" Without effect on what a host gets.");
    if (field.use == Use::NotRead)
        text += QLatin1String(" Not read.");
    if (field.kind != Kind::Text)
        text += QLatin1Char(' ') + CatalogFormat::syntax(field.kind);
    return text.toHtmlEscaped();
}

// A load drops a column without a type, and the fields of that column with it.
bool mustBeThere(const CatalogFormat::Field &field)
{
    return field.isRequired || field.kind == Kind::ColumnType;
}

QString elementOf(const CatalogFormat::Record &record)
{
    QString fields;
    for (const CatalogFormat::Field &field : record.fields)
        fields += filled(fieldElement, field.name, typeOf(field),
                         QLatin1String(mustBeThere(field) ? "" : " minOccurs=\"0\""), documentationOf(field));
    const QString documentation =
        filled("%1: %2 When a key repeats: %3", record.title, record.meaning, record.repeatedKeyMeaning);
    return filled(recordElement, record.name, documentation.toHtmlEscaped(), fields);
}

QString enumerationOf(Kind kind)
{
    QString words;
    for (const QLatin1String word : CatalogFormat::words(kind))
        words += filled("      <xs:enumeration value=\"%1\"/>\n", word);
    return words;
}

} // namespace

QString schemaOf(Form form)
{
    const bool isScrambled = form == Form::Scrambled;
    QString roots;
    QString elements;
    for (const CatalogFormat::Record &record : CatalogFormat::records())
        elements += elementOf(record);
    for (const QLatin1String root : CatalogFormat::rootNames()) {
        roots += filled(rootElement, root);
        elements += filled(nestedRoot, root);
    }
    return filled(frame,
                  QLatin1String(isScrambled ? "in the scrambled form, which hosts load"
                                            : "in the readable form, which authors write"),
                  roots, elements,
                  filled(types, QLatin1String(isScrambled ? scrambledPairs : ""),
                         enumerationOf(Kind::Boolean), enumerationOf(Kind::ParameterType),
                         enumerationOf(Kind::ColumnType)));
}

} // namespace Orvida::Format
