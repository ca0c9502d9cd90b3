// The table of all kinds of changes. For the comparison's own use.
#pragma once

#include "checking/CatalogChange.h"

#include <QStringView>

namespace Orvida::Checking {

/// All kinds of changes, in the order of the table.
enum class Change {
    // The catalog and its profiles
    CatalogKeyChanged,
    VersionNotRaised,
    Gained3d,
    Lost3d,
    ProfileRemoved,
    ProfileRenamed,
    ProfileAdded,
    ChosenProfileChanged,
    // Codes
    CodeRemoved,
    CodeRenamed,
    CodePerhapsRenamed,
    CodeReused,
    CodeAmbiguous,
    CodeUnreachable,
    CodeAdded,
    CodeMoved,
    CodeBecameParent,
    CodeLostChildren,
    CodeVirtual,
    CodeReal,
    CodeFlagsChanged,
    ConstructionChanged,
    AutoPictureChanged,
    CloseCodeChanged,
    FollowersChanged,
    CodeKeyChanged,
    CaptionChanged,
    RemarksChanged,
    MeaningMayDiffer,
    ObservationTextChanged,
    SiblingsReordered,
    // Fields
    FieldRemoved,
    FieldAdded,
    FieldColumnChanged,
    FieldTypeChanged,
    FieldTypeWidened,
    UnitChanged,
    RangeNarrowed,
    LengthShortened,
    DecimalsReduced,
    RangeWidened,
    LengthIncreased,
    DecimalsAdded,
    StepChanged,
    DefaultChanged,
    FormatChanged,
    BecameMandatory,
    BecameOptional,
    BecameHidden,
    BecameShown,
    BecameReadOnly,
    BecameWritable,
    PlaceholderChanged,
    FieldFlagsChanged,
    PrefixChanged,
    SuffixChanged,
    FieldCaptionChanged,
    DisplayFormatChanged,
    FieldsReordered,
    // Lists
    ListAttached,
    ListDetached,
    ListExchanged,
    ValueRemoved,
    ValueRenamed,
    ValueReused,
    ValueAdded,
    ValueCaptionChanged,
    ValuesReordered,
    ValueRuleChanged,
    // Defect codes and exchange files
    DefectCodeRemoved,
    DefectCodeTextChanged,
    DefectCodeReused,
    DefectCodeAdded,
    ExportIdChanged,
    ExportIdRemoved,
    ColumnNoLongerExported,
    ColumnExported,
    // What nobody sees
    KeyChanged,
    RecordOrderChanged,
    UnusedChanged,
    Count,
};

/// A row of the table.
struct ChangeRow
{
    Change change;
    const char *id;
    CatalogChangeClass changeClass;
    const char *summary;
    const char *explanation;
};

const ChangeRow &changeRow(Change change);

} // namespace Orvida::Checking
