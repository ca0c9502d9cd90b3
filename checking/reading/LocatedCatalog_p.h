// The contents of a catalog file, with their places. For the checker's own use.
#pragma once

#include "catalogs/format/CatalogFormat.h"
#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/CatalogReadFailure.h"
#include "checking/CatalogFinding.h"
#include "checking/reading/TextTable_p.h"

#include <QPair>
#include <QString>

#include <array>
#include <map>
#include <vector>

namespace Orvida::Checking {

using Catalogs::CatalogFormat;
using Section = CCatalogTokenizer::CatalogToken;
using CatalogInfoToken = CCatalogTokenizer::CatalogInfoToken;
using ProfileToken = CCatalogTokenizer::ProfileToken;
using ProfileExtensionToken = CCatalogTokenizer::ProfileExtensionToken;
using ColumnToken = CCatalogTokenizer::ColumnToken;
using ListClassToken = CCatalogTokenizer::ListClassToken;
using ListItemToken = CCatalogTokenizer::ListItemToken;
using CodeClassToken = CCatalogTokenizer::CodeClassToken;
using BaseCodeToken = CCatalogTokenizer::BaseCodeToken;
using CharacterExtensionToken = CCatalogTokenizer::CharacterExtensionToken;
using ParameterToken = CCatalogTokenizer::ParameterToken;
using ParameterExtensionToken = CCatalogTokenizer::ParameterExtensionToken;

/// A line and a column, both from 1, counted as the XML reader does.
struct Position
{
    quint32 line = 1;
    quint32 column = 1;
};

inline bool operator<(Position a, Position b)
{
    return a.line != b.line ? a.line < b.line : a.column < b.column;
}

/// A value: the text of a field as a load takes it.
struct LocatedField
{
    /// Decoded, when the field is scrambled and the file is.
    Symbol value = 0;
    /// After the field's start tag, and after the last character of the value.
    Position start;
    Position end;
    /// The field in the enumeration of its record.
    quint8 token = 0;
    /// Whether another value of the same record counts in its place.
    bool isOverruled = false;
    /// Whether it is from a record inside the record.
    bool isFromNested = false;
    /// Whether a load takes it as the key of the item's parent.
    bool isParent = false;
};

/// An element that is a record, or was to be one.
struct LocatedRecord
{
    enum State : quint8 {
        Kept,       ///< A load reads it; whether it counts in the end is another question.
        Refused,    ///< It lacks a key, and the file does not load.
        Unfinished, ///< The file ends inside it.
        Misspelt,   ///< An unknown element whose name is near that of a record.
        Wrapper,    ///< An element that is skipped, with records inside.
        Wrapped,    ///< A record inside a wrapper.
        Nested,     ///< A record inside a record.
    };

    /// The record's element; that of the record that was meant, when it is misspelt; `Unknown` for a wrapper.
    Section kind = Section::Unknown;
    State state = Kept;
    /// The name of an element that is no record's.
    Symbol name = 0;
    /// After the start tag.
    Position start;
    /// Of a wrapped or nested record: the record around it.
    int outer = -1;
    /// Of records that are not read as such, only keys and references are kept.
    int firstField = 0;
    int fieldCount = 0;

    /// Whether a load knows nothing of it.
    bool isLost() const { return state != Kept; }
};

/// Something that a load passes over without a word.
struct Incident
{
    enum Kind : quint8 {
        DocumentType,
        UnresolvedEntity, ///< `name`: the field; `detail`: the entity
        NestedRoot,
        UnknownRoot,
        UnknownRecord,
        FieldOutsideRecord,
        UnknownField,       ///< directly in a record
        NestedField,        ///< `detail`: the element around it
        StrayText,          ///< `detail`: the text
        CutText,            ///< `detail`: what is lost; `cutter`: what comes before that
        IgnoredAttribute,   ///< `detail`: the attribute
        StyleNotAtOnce,     ///< something precedes the text of CAT_Style
        MisplacedDirective, ///< inside a record
        BadDirective,       ///< `detail`: its words
        KindCount,
    };

    Kind kind = DocumentType;
    /// The record that it happened in, or -1.
    int record = -1;
    Position at;
    /// The element.
    Symbol name = 0;
    Symbol detail = 0;
    Symbol cutter = 0;
};

/// A comment such as `<!-- check: off unused-list -->`: which findings an author does not want to see.
struct Directive
{
    Position at;
    /// Where it applies: after `at`, up to the end of the next element in the root, or everywhere.
    Position end;
    bool isForFile = false;
    /// The words after "off".
    std::vector<Symbol> rules;
};

/// A value of a scrambled field that is not what the encoder writes.
struct OddScrambledText
{
    int field = 0;  ///< Index of the field.
    Symbol raw = 0; ///< As written in the file.
};

/// More than any record has fields.
constexpr std::size_t tokenCount = 32;

/// Everything a check knows about a file, as written; `CatalogLinks` knows what a load makes of it.
///
/// Filled by `CatalogLocator`, then only read. Records are in file order. Nothing is kept of a file but its
/// values, as numbers of `texts`, and positions: about as much as the file itself.
struct LocatedCatalog
{
    /// Element names of the innermost open elements where the XML broke, the outermost first, and where.
    struct OpenElement
    {
        Symbol name = 0;
        Position start;
    };

    /// The value of `token` that counts; null when there is none. An empty one is possible: an empty CDATA
    /// section is a text.
    template <typename Token>
    const LocatedField *field(int record, Token token) const
    {
        return fieldOf(record, static_cast<int>(token));
    }
    const LocatedField *fieldOf(int record, int token) const;
    /// The number of that value; 0 when there is none.
    template <typename Token>
    Symbol value(int record, Token token) const
    {
        const LocatedField *found = field(record, token);
        return found ? found->value : 0;
    }
    template <typename Token>
    QStringView text(int record, Token token) const
    {
        return texts.text(value(record, token));
    }
    /// As a load converts them.
    template <typename Token>
    int number(int record, Token token) const
    {
        return toNumber(value(record, token));
    }
    template <typename Token>
    bool flag(int record, Token token) const
    {
        return isTrue(value(record, token));
    }
    /// The key by which people know a record; 0 when it has none.
    Symbol keyOf(int index) const;
    /// A scrambled value as written in the file, if the encoder would not have written it so; otherwise
    /// empty.
    QStringView rawText(const LocatedField &field) const;
    int toNumber(Symbol symbol) const;
    bool isTrue(Symbol symbol) const;

    const LocatedRecord &record(int index) const { return records[std::size_t(index)]; }
    int recordCount() const { return int(records.size()); }
    /// The fields of a record, overruled ones included.
    const LocatedField *begin(int index) const;
    const LocatedField *end(int index) const;
    const CatalogFormat::Field &format(int index, const LocatedField &field) const;

    TextTable texts;
    std::vector<LocatedRecord> records;
    std::vector<LocatedField> fields;
    /// Of records with so many values that looking through them would take long: by token, the index of the
    /// value that counts, or -1.
    std::map<int, std::array<int, tokenCount>> longRecords;
    std::vector<Incident> incidents;
    std::vector<Directive> directives;
    /// By field.
    std::vector<OddScrambledText> oddScrambledTexts;
    int scrambledCount = 0;
    /// Values of scrambled fields that are no hexadecimal pairs, and the first of them.
    int clearCount = 0;
    int firstClearField = -1;
    /// What `encoding` in the XML declaration says.
    QString declaredEncoding;
    std::vector<OpenElement> openElements;
    /// Whether a root element was read, and whether the document was read to its end.
    bool hasRoot = false;
    bool isWhole = false;
    bool isReadable = false;
};

/// The format of the field `token` of a record `kind`.
const CatalogFormat::Field &formatOf(Section kind, int token);

} // namespace Orvida::Checking
