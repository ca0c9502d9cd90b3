// What a comparison of two editions of a catalog says of one change. Plain values.
#pragma once

#include <QString>
#include <QStringList>

namespace Orvida::Checking {

/// What a change means for inspections that were recorded with the old edition, the gravest first.
enum class CatalogChangeClass {
    Breaking, ///< Recorded data is lost, refused, ambiguous, or read as something else.
    Review,   ///< It stays readable, but what it says, or what an inspector is asked for, may change.
    Addition, ///< Nothing that was recorded is touched.
    Wording,  ///< Texts only.
    Hidden,   ///< Neither data nor anything that a host shows.
};

/// A kind of change, for people who want to know what it means. Ids never change their meaning.
struct CatalogChangeKind
{
    QString id;
    /// The class of such changes; some are milder or graver where the explanation says so.
    CatalogChangeClass changeClass = CatalogChangeClass::Breaking;
    /// One line: what has happened.
    QString summary;
    /// When exactly it is reported, and what it means for recorded data; one paragraph.
    QString explanation;
};

/// A place in one of the two files: right after the start tag of the record or field that is meant. Line and
/// column are counted from 1, columns in UTF-16 code units; line 0 means that there is none.
struct CatalogChangePlace
{
    qint64 line = 0;
    qint64 column = 0;
};

/// A change. Texts are English; hosts that want other words build them from `id` and the other members.
struct CatalogChange
{
    /// Id of its kind, such as "code-removed"; `CatalogComparison::kind` has more on it.
    QString id;
    CatalogChangeClass changeClass = CatalogChangeClass::Breaking;
    /// What has changed, such as "RFI · OBS_WIDTH", and how, in one line without a full stop.
    QString subject;
    QString message;
    /// The code that it concerns, in the new edition when it is there; the key of an item without code.
    QString code;
    /// The column of a field, the class id of a list, a value of that list or a defect code, as far as there
    /// are any.
    QString column;
    QString list;
    QString value;
    /// The keys of the profiles that it concerns, those of the new edition for renamed ones, in the order of
    /// the new edition; empty when it has nothing to do with profiles.
    QStringList profiles;
    /// What stood in the old edition and what stands in the new one; null where nothing did.
    QString oldText;
    QString newText;
    CatalogChangePlace oldPlace;
    CatalogChangePlace newPlace;
    /// Up to twenty further codes that it touches, in the order of the tree: those of the fields that use a
    /// list, those below a code that is outside the tree. And how many there are.
    QStringList codes;
    int codeCount = 0;
};

/// What has another name in the new edition, so that hosts can change what they have recorded.
struct CatalogRename
{
    enum Kind { Code, Column, Value, DefectCode, Profile };
    /// How sure it is that both are the same.
    enum Certainty {
        Certain, ///< They have the same key, or the same place in the records of a field.
        Likely,  ///< They have the same texts in the same place.
        Weak,    ///< They resemble each other.
    };

    Kind kind = Code;
    /// The key of the profile in the old edition, and the class id of the list; empty where they do not
    /// matter.
    QString profile;
    QString list;
    QString oldName;
    QString newName;
    Certainty certainty = Certain;
};

} // namespace Orvida::Checking
