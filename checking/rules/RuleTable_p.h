// The table of all rules. For the checker's own use.
#pragma once

#include "checking/CatalogFinding.h"

#include <QStringView>

namespace Orvida::Checking {

class Check;

/// All rules, in the order of the table.
enum class Rule {
    // Reading the file
    FileNotRead,
    NotWellFormed,
    WrongEncoding,
    UnknownEncoding,
    SuspiciousEncoding,
    ReplacementCharacter,
    DocumentType,
    UnresolvedEntity,
    // Elements and texts
    UnknownRoot,
    NestedRoot,
    NoCodes,
    MisspeltRecord,
    UnknownRecord,
    WrappedRecords,
    NestedRecord,
    MisspeltField,
    ForeignField,
    UnknownField,
    FieldOutsideRecord,
    NestedField,
    RepeatedField,
    StrayText,
    CutText,
    AttributeIgnored,
    IgnoredField,
    RepeatedCatalogInfo,
    StyleMissing,
    StyleUnusedBits,
    NoIdentity,
    UnknownDirective,
    UselessDirective,
    // Keys
    MissingKey,
    BlankKey,
    PaddedKey,
    RepeatedItemKey,
    RepeatedParameterKey,
    RepeatedExtensionKey,
    RepeatedProfileKey,
    RepeatedColumn,
    RepeatedListClass,
    ListClassWithoutKey,
    SharedListKey,
    RepeatedMarkKey,
    IdenticalRecord,
    // References
    UnknownParent,
    UnknownItem,
    NoItem,
    TwoItems,
    OtherKind,
    UnknownParameter,
    NoParameter,
    UnknownColumn,
    NoColumn,
    ColumnMissingInProfile,
    UnknownList,
    ListMissingInProfile,
    EmptyList,
    UnknownListClass,
    UnknownProfile,
    StartMarkLost,
    UnknownMarkProfile,
    UnknownEntryParameter,
    UnknownColumnList,
    UnknownCloseCode,
    UnknownFollower,
    // Profiles
    NoProfile,
    NoStartMark,
    SeveralStartMarks,
    SeveralApplicationMarks,
    ProfileOrderTie,
    ProfileWithoutColumns,
    // The tree, and orders
    ParentLoop,
    CodeWithoutClass,
    ExtensionWithoutParent,
    ConflictingParents,
    RepeatedCode,
    EqualSortOrders,
    EqualFieldOrders,
    EqualEntryOrders,
    EmptyClass,
    // Values
    BadBoolean,
    BadNumber,
    BadParameterType,
    BadColumnType,
    ColumnWithoutVisible,
    MandatoryHidden,
    ColumnTypeDiffers,
    TypeDiffersFromColumn,
    RangeNotANumber,
    FractionInInteger,
    RangeReversed,
    RangeOnText,
    RangeOneSided,
    StepNotPositive,
    NegativeLength,
    DecimalsDiffer,
    DefaultOutOfRange,
    DefaultNotInList,
    DefaultTooLong,
    RangeWiderThanColumn,
    ColumnListNotOnField,
    ColumnMandatoryNotField,
    UnitDiffers,
    ClockWithoutWords,
    RepeatedColumnOnCode,
    RepeatedExportId,
    ExportIdMissing,
    // Lists, and what nothing uses
    EntryWithoutValue,
    RepeatedListValue,
    RepeatedDefectCode,
    EntryWithoutCaption,
    EntryWithoutInternal,
    ListValueType,
    ListValueTooLong,
    ListTextDiffers,
    ListFlagsDiffer,
    UnusedList,
    UnusedParameter,
    UnusedColumn,
    // Captions and observation texts
    MissingCaption,
    PaddedCaption,
    EqualCaptions,
    MissingCode,
    MissingObservationText,
    UnknownPlaceholder,
    BadPlaceholder,
    RepeatedPlaceholder,
    PlaceholderBeginsAnother,
    FieldWithoutPlaceholder,
    // Scrambled texts
    ReadableForm,
    ScrambledNotHex,
    ScrambledOdd,
    ScrambledNotUtf8,
    ScrambledZeroByte,
    ScrambledControl,
    ScrambledTwice,
    ScrambledInClearField,
    Count,
};

/// When a rule is applied.
enum class RuleUse {
    On,
    Off,     ///< on demand only
    Refuses, ///< always: a load refuses the file
};

/// A row of the table: what a rule is, and the function that finds where it is broken, perhaps together with
/// other rules.
struct RuleRow
{
    Rule rule;
    const char *id;
    CatalogSeverity severity;
    RuleUse use;
    void (*find)(Check &check);
    const char *summary;
    const char *explanation;
    const char *before;
    const char *after;
};

/// Rules that look at the same things.
struct RuleGroup
{
    const char *title;
    /// Whether they compare records, which says nothing unless all of the file could be read.
    bool needsWholeFile;
    const RuleRow *rows;
    int count;
};

const RuleRow &ruleRow(Rule rule);
/// The rule with this id; null for any other id.
const RuleRow *ruleRow(QStringView id);

struct RuleGroups
{
    const RuleGroup *first;
    const RuleGroup *last;
    const RuleGroup *begin() const { return first; }
    const RuleGroup *end() const { return last; }
};
RuleGroups ruleGroups();

} // namespace Orvida::Checking
