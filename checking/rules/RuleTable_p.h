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
    Count,
};

/// Whether a rule is asked for.
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
