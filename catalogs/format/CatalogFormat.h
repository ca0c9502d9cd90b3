// The one definition of the format of catalog files: its records and fields, as plain tables. Needs Qt Core
// only.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QLatin1String>
#include <QStringView>

namespace Orvida::Catalogs {

/// Looks up what a catalog file may hold: each record, its fields, how a field is written, what it refers to
/// and what becomes of it.
///
/// Whatever needs such knowledge (token tables, the refusal of records, messages, the scrambler, the schema,
/// the manual, the checker) takes it from here. All of it is constant data: nothing is allocated, any thread
/// may read it at any time, static initialisation included, and it is never destroyed. Texts are ASCII.
class ORVIDA_CATALOGS_EXPORT CatalogFormat
{
public:
    /// How the text of a field is written, and what it is read as. `syntax()` has the rules in words.
    enum class Kind { Text, ScrambledText, Integer, Integer64, Boolean, ParameterType, ColumnType };

    /// What becomes of a field.
    enum class Use {
        Used,       ///< What a host sees of a loaded catalog depends on it.
        Stored,     ///< A load reads it into its record; a host sees nothing of it.
        StyleQuery, ///< A load passes over it; the question whether a catalog supports 3D reads it.
        NotRead,    ///< A known name whose text nothing reads.
    };

    /// What a key belongs to. Keys are compared exactly, and only within one of these.
    enum class KeySpace {
        None, ///< The field is no key.
        Catalog,
        Profile,
        ProfileExtension,
        Column,      ///< Several columns share an id, one for each profile.
        ListClass,   ///< `LC_PK`, by which list items name their class.
        ListClassId, ///< `LC_Class_ID`, by which input fields name a list; several classes share one, one for
                     ///< each profile.
        ListItem,
        Item, ///< Code classes, base codes and character extensions together.
        Code, ///< Codes of base codes and character extensions; they may repeat.
        Parameter,
        ParameterExtension,
    };

    /// What a later record does when its key is that of an earlier one.
    enum class RepeatedKey {
        Skipped,  ///< Only the first record is looked at, whatever its key.
        Added,    ///< Both are kept.
        Replaces, ///< The later one replaces the earlier one, wherever in the file they are.
    };

    /// The rows of a table, in its order.
    template <typename Row>
    class Rows
    {
    public:
        constexpr Rows(const Row *first, int size) : m_first(first), m_size(size) {}

        constexpr const Row *begin() const { return m_first; }
        constexpr const Row *end() const { return m_first + m_size; }
        constexpr int size() const { return m_size; }
        constexpr const Row &operator[](int index) const { return m_first[index]; }

    private:
        const Row *m_first;
        int m_size;
    };

    /// A field of a record.
    struct Field
    {
        /// The field's value in its enumeration of `CCatalogTokenizer`.
        int token;
        /// The name of its element; no other field of any record has it.
        QLatin1String name;
        Kind kind;
        /// Whether a load refuses the record, and with it the file, when the value is missing or empty.
        bool isRequired;
        Use use;
        /// Of a key: what it is the key of. A field is never a key and a reference.
        KeySpace keySpace;
        /// Of a reference: the name of the key field that it is meant for, else empty. Any key of the same
        /// key space is found.
        QLatin1String names;
        /// What it is for, in one sentence.
        QLatin1String meaning;

        constexpr bool isScrambled() const { return kind == Kind::ScrambledText; }
    };

    /// A record: an element directly in the root.
    struct Record
    {
        /// The most keys that a record requires.
        static constexpr int maximumRequired = 2;

        /// The record's value in `CCatalogTokenizer::CatalogToken`.
        int token;
        /// The name of its element.
        QLatin1String name;
        /// What people call one of them, and several.
        QLatin1String title;
        QLatin1String plural;
        /// What it is for, in one sentence.
        QLatin1String meaning;
        RepeatedKey repeatedKey;
        /// What comes of a repeated key, in one sentence.
        QLatin1String repeatedKeyMeaning;
        Rows<Field> fields;
        /// The required fields, in the order of `fields`; `requiredFields()` has them as rows.
        const Field *required[maximumRequired];
        int requiredCount;

        constexpr Rows<const Field *> requiredFields() const { return {required, requiredCount}; }
    };

    CatalogFormat() = delete;

    /// The token of the root element, and its two spellings.
    static constexpr int rootToken = 1;
    static Rows<QLatin1String> rootNames();

    /// The eleven records, the catalog information first, in the order of their tokens.
    static Rows<Record> records();
    /// The record whose element is `name`; null for any other name, that of the root included.
    static const Record *record(QStringView name);
    static const Record *record(QLatin1String name);
    /// The record with the value `token` in `CCatalogTokenizer::CatalogToken`, which must be that of a
    /// record.
    static const Record &record(int token);

    /// The field whose element is `name`, of whatever record; null for any other name.
    static const Field *field(QStringView name);
    static const Field *field(QLatin1String name);
    /// The record of `field`.
    static const Record *recordOf(const Field &field);
    /// Whether `name` is the element of a field whose text is scrambled.
    static bool isScrambled(QStringView name);

    /// What people call a kind, such as "scrambled text".
    static QLatin1String title(Kind kind);
    /// How a text of this kind is written and read, in one or two sentences.
    static QLatin1String syntax(Kind kind);
    /// What a field of this kind is when it is left out or empty, such as "false".
    static QLatin1String defaultValue(Kind kind);
    /// The words that a text of this kind is one of; none when it is no matter of words. The words of a
    /// column type are those that a host knows at least.
    static Rows<QLatin1String> words(Kind kind);
};

} // namespace Orvida::Catalogs
