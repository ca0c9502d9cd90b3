#include "checking/rules/ReferenceRules_p.h"

#include "catalogs/reading/ScrambledText.h"
#include "checking/reading/Characters_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/ProfileRules_p.h"

#include <map>

namespace Orvida::Checking {

namespace {

using InputField = CatalogLinks::InputField;

// "BC_Class_FK “CL-A” is unknown"
QString unknown(const Check &check, const Place &place, Symbol key)
{
    return QStringLiteral("%1 %2 is unknown").arg(place.field, check.quotedText(key));
}

// Parameters by their PARAM_ID, which people take for the key.
Groups parametersById(const Check &check)
{
    Groups parameters;
    check.forEachRecord(Section::PARAM, [&](int record) {
        parameters.add(check.catalog.value(record, ParameterToken::PARAM_ID), record);
    });
    parameters.sort();
    return parameters;
}

void hintAtParameterId(const Check &check, CatalogFinding &finding, const Groups &parameters, Symbol id)
{
    const Groups::Members meant = parameters.of(id);
    if (!meant.isEmpty())
        finding.hint = QStringLiteral("that is the PARAM_ID of %1").arg(check.keyOf(meant.first()));
}

// The number of what a scrambled text decodes to; 0 when the file does not have that text.
Symbol descrambled(const Check &check, Symbol symbol)
{
    const QString text = check.catalog.texts.string(symbol);
    return check.catalog.texts.find(Catalogs::ScrambledText::decode(QStringRef(&text)));
}

QString notScrambledHint(const Check &check, const QString &field, Symbol id)
{
    return QStringLiteral("%1 is not scrambled: write %2").arg(field, check.shownText(id));
}

} // namespace

void findUnknownParents(Check &check)
{
    for (int index = 0; index < int(check.links.items().size()); ++index) {
        const CatalogLinks::Item &item = check.links.item(index);
        if (item.parent != CatalogLinks::missing)
            continue;
        const Place place = placeOf(check.catalog, item.record, *item.parentField);
        const Symbol key = item.parentField->value;
        const int below = check.links.brokenBelow(index);
        Fault fault = Fault(Rule::UnknownParent, place).affecting(below);
        CatalogFinding *finding = check.addUnknown(fault, KeySpace::Item, key);
        if (!finding)
            continue;
        finding->message = QStringLiteral("%1 is outside the tree: %2")
                               .arg(check.keyOf(item.record), unknown(check, place, key));
        if (below > 0)
            finding->message += QStringLiteral("; so are %1 below it").arg(counted(below, "code"));
    }
}

namespace {

void reportItem(Check &check, const InputField &field)
{
    const QString key = check.keyOf(field.record);
    if (field.item == CatalogLinks::missing) {
        const Place place = placeOf(check.catalog, field.record, *field.itemField);
        CatalogFinding *finding =
            check.addUnknown(Fault(Rule::UnknownItem, place), KeySpace::Item, field.itemField->value);
        if (finding)
            finding->message = QStringLiteral("field %1 has no code: %2")
                                   .arg(key, unknown(check, place, field.itemField->value));
        return;
    }
    if (field.item != CatalogLinks::root)
        return;
    if (CatalogFinding *finding = check.add(Fault(Rule::NoItem, placeOf(check.catalog, field.record)))) {
        finding->message = QStringLiteral("field %1 names no code: no code shows it").arg(key);
        finding->hint = QStringLiteral("give it PX_BaseCode_FK or PX_CharExt_FK");
    }
}

} // namespace

void findItemsOfFields(Check &check)
{
    for (const InputField &field : check.links.inputFields()) {
        reportItem(check, field);
        const Symbol code = check.catalog.value(field.record, ParameterExtensionToken::PX_BaseCode_FK);
        const Symbol extension = check.catalog.value(field.record, ParameterExtensionToken::PX_CharExt_FK);
        if (code == 0 || extension == 0)
            continue;
        const Place place = placeOf(check.catalog, field.record, ParameterExtensionToken::PX_CharExt_FK);
        if (CatalogFinding *finding = check.add(Fault(Rule::TwoItems, place))) {
            finding->message =
                QStringLiteral("field %1 belongs to %2, not to %3")
                    .arg(check.keyOf(field.record), check.shownText(code), check.shownText(extension));
            finding->hint = QStringLiteral("remove PX_BaseCode_FK or PX_CharExt_FK");
        }
    }
}

namespace {

void reportOtherKind(Check &check, int record, const LocatedField *field, int item)
{
    if (!field || item < 0)
        return;
    const CatalogFormat::Field &format = check.catalog.format(record, *field);
    const int named = check.links.item(item).record;
    const CatalogFormat::Record &expected = *CatalogFormat::recordOf(*CatalogFormat::field(format.names));
    if (check.nameOf(named) == expected.name)
        return;
    const bool isFieldOfClass = check.catalog.record(record).kind == Section::PARAMX
                                && check.catalog.record(named).kind == Section::CLASS;
    CatalogFinding *finding =
        check.add(Fault(Rule::OtherKind, placeOf(check.catalog, record, *field))
                      .as(isFieldOfClass ? CatalogSeverity::Warning : CatalogSeverity::Note)
                      .about(field->value));
    if (!finding)
        return;
    finding->message = QStringLiteral("%1 names %2, which is a %3; %4")
                           .arg(finding->field, check.shownText(field->value), check.nameOf(named),
                                isFieldOfClass ? QStringLiteral("classes are not recorded")
                                               : QStringLiteral("it works all the same"));
}

} // namespace

void findOtherKinds(Check &check)
{
    struct Reference
    {
        int record;
        const LocatedField *field;
        int item;
    };
    std::vector<Reference> references;
    for (const CatalogLinks::Item &item : check.links.items())
        references.push_back({item.record, item.parentField, item.parent});
    for (const InputField &field : check.links.inputFields())
        references.push_back({field.record, field.itemField, field.item});
    std::sort(references.begin(), references.end(),
              [](const Reference &a, const Reference &b) { return a.record < b.record; });
    for (const Reference &reference : references)
        reportOtherKind(check, reference.record, reference.field, reference.item);
}

void findParametersOfFields(Check &check)
{
    const Groups parameters = parametersById(check);
    for (const InputField &field : check.links.inputFields()) {
        if (field.parameter >= 0)
            continue;
        const QString fieldKey = check.keyOf(field.record);
        const Symbol key = check.catalog.value(field.record, ParameterExtensionToken::PX_Param_FK);
        if (key == 0) {
            CatalogFinding *finding =
                check.add(Fault(Rule::NoParameter, placeOf(check.catalog, field.record)));
            if (finding) {
                finding->message =
                    QStringLiteral("field %1 has no parameter: no caption, no type").arg(fieldKey);
                finding->hint = QStringLiteral("give it PX_Param_FK");
            }
            continue;
        }
        const Place place = placeOf(check.catalog, field.record, ParameterExtensionToken::PX_Param_FK);
        CatalogFinding *finding =
            check.addUnknown(Fault(Rule::UnknownParameter, place), KeySpace::Parameter, key);
        if (!finding)
            continue;
        finding->message = QStringLiteral("field %1 has no caption and no type: %2")
                               .arg(fieldKey, unknown(check, place, key));
        hintAtParameterId(check, *finding, parameters, key);
    }
}

void findColumnsOfFields(Check &check)
{
    for (const InputField &field : check.links.inputFields()) {
        const QString key = check.keyOf(field.record);
        if (field.column == 0) {
            CatalogFinding *finding = check.add(Fault(Rule::NoColumn, placeOf(check.catalog, field.record)));
            if (finding) {
                finding->message = QStringLiteral("field %1 is not built: it names no column").arg(key);
                finding->hint = QStringLiteral("give it PX_Column_ID");
            }
            continue;
        }
        if (!check.links.columns(field.column).isEmpty())
            continue;
        const Place place = placeOf(check.catalog, field.record, ParameterExtensionToken::PX_Column_ID);
        CatalogFinding *finding =
            check.addUnknown(Fault(Rule::UnknownColumn, place), KeySpace::Column, field.column);
        if (!finding)
            continue;
        finding->message = QStringLiteral("field %1 is not built: column %2 is unknown")
                               .arg(key, check.quotedText(field.column));
        const Symbol meant = descrambled(check, field.column);
        if (!check.links.columns(meant).isEmpty())
            finding->hint = notScrambledHint(check, place.field, meant);
    }
}

namespace {

// The profiles that have a definition of the column, lost ones included: those are reported as lost.
std::vector<Symbol> profilesOf(const Check &check, Symbol column)
{
    std::vector<Symbol> profiles;
    for (const int record : check.links.columns(column))
        profiles.push_back(check.catalog.value(record, ColumnToken::COL_Profile_FK));
    for (const int record : check.links.lostRecordsWith(KeySpace::Column, column))
        profiles.push_back(check.catalog.value(record, ColumnToken::COL_Profile_FK));
    std::sort(profiles.begin(), profiles.end());
    profiles.erase(std::unique(profiles.begin(), profiles.end()), profiles.end());
    return profiles;
}

int definedCount(const Check &check, const std::vector<Symbol> &profiles)
{
    return int(std::count_if(profiles.begin(), profiles.end(), [&](Symbol profile) {
        return !check.links.recordsWith(KeySpace::Profile, profile).isEmpty();
    }));
}

std::vector<Symbol> definedProfiles(const Check &check)
{
    std::vector<Symbol> profiles;
    check.links.keys(KeySpace::Profile).forEach([&](const Groups::Members &records) {
        profiles.push_back(Symbol(records.key()));
    });
    return profiles;
}

// `profiles` says which.
void reportMissingColumn(Check &check, const Groups::Members &records, const QString &profiles, int count)
{
    const auto column = Symbol(records.key());
    const int fields = check.links.inputFieldsOfColumn(column).size();
    const Place place = placeOf(check.catalog, records.first());
    CatalogFinding *finding =
        check.add(Fault(Rule::ColumnMissingInProfile, place).times(count).affecting(fields));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("column %1 is not in %2: %3 missing there")
            .arg(check.shownText(column), profiles,
                 fields == 1 ? QStringLiteral("1 field is") : QStringLiteral("%1 fields are").arg(fields));
    finding->hint = QStringLiteral("add a COL for each profile that is to show them");
}

} // namespace

// A column that many profiles lack is one finding.
void findColumnsMissingInProfiles(Check &check)
{
    constexpr int mostListed = 20;
    const std::vector<Symbol> all = definedProfiles(check);
    check.links.columns().forEach([&](const Groups::Members &records) {
        if (check.links.inputFieldsOfColumn(Symbol(records.key())).isEmpty())
            return;
        const std::vector<Symbol> profiles = profilesOf(check, Symbol(records.key()));
        const int defined = definedCount(check, profiles);
        const int missing = int(all.size()) - defined;
        if (defined == 0 || missing == 0)
            return;
        if (missing > mostListed) {
            reportMissingColumn(check, records, QStringLiteral("%1 profiles").arg(missing), missing);
            return;
        }
        for (const Symbol profile : all) {
            if (!std::binary_search(profiles.begin(), profiles.end(), profile))
                reportMissingColumn(check, records, QStringLiteral("profile ") + check.shownText(profile), 1);
        }
    });
}

void findListsOfFields(Check &check)
{
    for (const InputField &field : check.links.inputFields()) {
        if (field.list == 0 || !check.links.lists(field.list).isEmpty())
            continue;
        const Place place = placeOf(check.catalog, field.record, ParameterExtensionToken::PX_ListClass_ID);
        CatalogFinding *finding =
            check.addUnknown(Fault(Rule::UnknownList, place), KeySpace::ListClassId, field.list);
        if (!finding)
            continue;
        finding->message = QStringLiteral("field %1 has no list: list %2 is unknown")
                               .arg(check.keyOf(field.record), check.quotedText(field.list));
        const int meant = check.links.recordWith(KeySpace::ListClass, field.list);
        const Symbol clear = descrambled(check, field.list);
        if (meant >= 0)
            finding->hint =
                QStringLiteral("that is an LC_PK; the list's id is %1")
                    .arg(check.shownText(check.catalog.value(meant, ListClassToken::LC_Class_ID)));
        else if (!check.links.lists(clear).isEmpty())
            finding->hint = notScrambledHint(check, place.field, clear);
    }
}

namespace {

// Input fields with one list and one column: they have the same profiles.
using AlikeFields = Groups::Members;

void reportMissingList(Check &check, const AlikeFields &fields, Symbol profile)
{
    const InputField &first = check.links.inputField(fields.first());
    const Place place = placeOf(check.catalog, first.record, ParameterExtensionToken::PX_ListClass_ID);
    CatalogFinding *finding = check.add(
        Fault(Rule::ListMissingInProfile, place).about(pairOf(first.list, profile)).times(fields.size()));
    if (!finding)
        return;
    finding->message = QStringLiteral("list %1 is not in profile %2: anything can be typed in there")
                           .arg(check.shownText(first.list), check.shownText(profile));
    finding->hint = QStringLiteral("add an LC with this id for the profile, and entries");
}

// In the order of their first fields.
std::vector<AlikeFields> alikeFields(const Groups &groups)
{
    std::vector<AlikeFields> result;
    groups.forEach([&](const AlikeFields &fields) { result.push_back(fields); });
    std::sort(result.begin(), result.end(),
              [](const AlikeFields &a, const AlikeFields &b) { return a.first() < b.first(); });
    return result;
}

} // namespace

void findListsMissingInProfiles(Check &check)
{
    Groups groups;
    for (int index = 0; index < int(check.links.inputFields().size()); ++index) {
        const InputField &field = check.links.inputField(index);
        const bool isKnown = !check.links.lists(field.list).isEmpty()
                             && check.links.lostRecordsWith(KeySpace::ListClassId, field.list).isEmpty();
        if (field.list != 0 && isKnown)
            groups.add(pairOf(field.list, field.column), index);
    }
    groups.sort();
    qint64 left = Check::mostVisits / 10;
    for (const AlikeFields &fields : alikeFields(groups)) {
        const InputField &first = check.links.inputField(fields.first());
        const Groups::Members columns = check.links.columns(first.column);
        left -= columns.size();
        if (left < 0)
            return;
        for (const int column : columns) {
            const Symbol profile = check.catalog.value(column, ColumnToken::COL_Profile_FK);
            if (check.links.list(first.list, profile) < 0
                && check.links.recordWith(KeySpace::Profile, profile) >= 0)
                reportMissingList(check, fields, profile);
        }
    }
}

namespace {

// By key: whether a list class has entries that are reported as lost.
std::vector<bool> classesOfLostEntries(const Check &check)
{
    std::vector<bool> result(std::size_t(check.catalog.texts.size()));
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        const LocatedRecord &located = check.catalog.record(record);
        if (located.kind == Section::LIST && located.isLost())
            result[std::size_t(check.catalog.value(record, ListItemToken::LIST_Class_FK))] = true;
    }
    return result;
}

} // namespace

void findEmptyLists(Check &check)
{
    Groups fieldsByList;
    for (const InputField &field : check.links.inputFields())
        fieldsByList.add(field.list, field.record);
    fieldsByList.sort();
    const std::vector<bool> hasLostEntries = classesOfLostEntries(check);
    check.forEachRecord(Section::LC, [&](int record) {
        const Symbol key = check.catalog.value(record, ListClassToken::LC_PK);
        if (key == 0 || !check.links.counts(record) || !check.links.entries(key).isEmpty()
            || hasLostEntries[std::size_t(key)])
            return;
        const Symbol list = check.catalog.value(record, ListClassToken::LC_Class_ID);
        const int fields = fieldsByList.of(list).size();
        Fault fault = Fault(Rule::EmptyList, placeOf(check.catalog, record)).affecting(fields);
        CatalogFinding *finding =
            check.add(fault.as(fields > 0 ? CatalogSeverity::Error : CatalogSeverity::Warning));
        if (!finding)
            return;
        finding->message =
            QStringLiteral("list %1 of profile %2 has no entries")
                .arg(check.shownText(list),
                     check.shownText(check.catalog.value(record, ListClassToken::LC_Profile_FK)));
        if (fields > 0)
            finding->message += fields == 1 ? QStringLiteral("; 1 field has no list there")
                                            : QStringLiteral("; %1 fields have no list there").arg(fields);
        finding->hint = QStringLiteral("entries name it with LIST_Class_FK %1").arg(check.shownText(key));
    });
}

void findUnknownListClasses(Check &check)
{
    check.links.entries().forEach([&](const Groups::Members &entries) {
        const auto key = Symbol(entries.key());
        if (check.links.recordWith(KeySpace::ListClass, key) >= 0)
            return;
        for (const int entry : entries) {
            const Place place = placeOf(check.catalog, entry, ListItemToken::LIST_Class_FK);
            CatalogFinding *finding =
                check.addUnknown(Fault(Rule::UnknownListClass, place), KeySpace::ListClass, key);
            if (!finding)
                continue;
            finding->message =
                QStringLiteral("%1 in no list: list class %2 is unknown")
                    .arg(entries.size() == 1 ? QStringLiteral("1 entry is")
                                             : QStringLiteral("%1 entries are").arg(entries.size()),
                         check.quotedText(key));
            const Groups::Members meant = check.links.lists(key);
            if (!meant.isEmpty())
                finding->hint = QStringLiteral("that is the list's id; its key in profile %1 is %2")
                                    .arg(check.shownText(check.catalog.value(meant.first(),
                                                                             ListClassToken::LC_Profile_FK)),
                                         check.keyOf(meant.first()));
        }
    });
}

namespace {

template <typename Token>
void reportUnknownProfiles(Check &check, Section kind, Token token)
{
    Groups records;
    check.forEachRecord(kind, [&](int record) { records.add(check.catalog.value(record, token), record); });
    records.sort();
    records.forEach([&](const Groups::Members &members) {
        const auto key = Symbol(members.key());
        if (check.links.recordWith(KeySpace::Profile, key) >= 0)
            return;
        const CatalogFormat::Record &format = CatalogFormat::record(int(kind));
        for (const int record : members) {
            const Fault fault = Fault(Rule::UnknownProfile, placeOf(check.catalog, record, token))
                                    .about(pairOf(int(kind), key));
            if (CatalogFinding *finding = check.addUnknown(fault, KeySpace::Profile, key))
                finding->message =
                    QStringLiteral("%1 of no profile: %2 is unknown")
                        .arg(members.size() == 1 ? QStringLiteral("1 %1 is").arg(format.title)
                                                 : QStringLiteral("%1 %2 are")
                                                       .arg(QString::number(members.size()), format.plural),
                             check.quotedText(key));
        }
    });
}

} // namespace

void findUnknownProfiles(Check &check)
{
    if (hasNoProfile(check))
        return;
    reportUnknownProfiles(check, Section::COL, ColumnToken::COL_Profile_FK);
    reportUnknownProfiles(check, Section::LC, ListClassToken::LC_Profile_FK);
}

void findUnknownEntryParameters(Check &check)
{
    const Groups parameters = parametersById(check);
    check.forEachRecord(Section::LIST, [&](int record) {
        const Symbol key = check.catalog.value(record, ListItemToken::LIST_Param_ID);
        if (key == 0 || check.links.recordWith(KeySpace::Parameter, key) >= 0)
            return;
        const Place place = placeOf(check.catalog, record, ListItemToken::LIST_Param_ID);
        CatalogFinding *finding =
            check.addUnknown(Fault(Rule::UnknownEntryParameter, place), KeySpace::Parameter, key);
        if (!finding)
            return;
        finding->message = QStringLiteral("an entry has no placeholder: %1").arg(unknown(check, place, key));
        hintAtParameterId(check, *finding, parameters, key);
    });
}

void findUnknownColumnLists(Check &check)
{
    check.forEachRecord(Section::COL, [&](int record) {
        const Symbol key = check.catalog.value(record, ColumnToken::COL_ListClass_REF);
        if (key == 0 || check.links.recordWith(KeySpace::ListClass, key) >= 0)
            return;
        const Place place = placeOf(check.catalog, record, ColumnToken::COL_ListClass_REF);
        if (CatalogFinding *finding =
                check.addUnknown(Fault(Rule::UnknownColumnList, place), KeySpace::ListClass, key))
            finding->message = unknown(check, place, key) + QStringLiteral("; fields do not need it");
    });
}

namespace {

bool isUnknownCode(const Check &check, Symbol code)
{
    return code == 0 || check.links.recordsWith(KeySpace::Code, code).isEmpty();
}

void reportCloseCode(Check &check, int record, int token)
{
    const LocatedField *field = check.catalog.fieldOf(record, token);
    if (!field || field->value == 0 || !isUnknownCode(check, field->value))
        return;
    const Place place = placeOf(check.catalog, record, *field);
    if (CatalogFinding *finding =
            check.addUnknown(Fault(Rule::UnknownCloseCode, place), KeySpace::Code, field->value))
        finding->message =
            QStringLiteral("%1 %2 is no code").arg(place.field, check.quotedText(field->value));
}

// Unknown words that are no other text of the file, by the order in which they came.
using UnknownWords = std::map<QString, int>;

void reportFollower(Check &check, const Place &place, QStringView code, UnknownWords &unknownWords)
{
    constexpr std::size_t mostListed = 10000;
    const Symbol symbol = check.catalog.texts.find(code);
    if (!isUnknownCode(check, symbol))
        return;
    Fault fault(Rule::UnknownFollower, place);
    if (symbol == 0) {
        const auto number = int(unknownWords.size());
        fault.about(qint64(check.catalog.texts.size())
                    + (unknownWords.size() < mostListed
                           ? unknownWords.insert({shown(code), number}).first->second
                           : number));
    }
    CatalogFinding *finding =
        symbol != 0 ? check.addUnknown(fault, KeySpace::Code, symbol) : check.add(fault);
    if (!finding)
        return;
    finding->message = QStringLiteral("in %1, %2 is no code").arg(place.field, quoted(code));
    finding->hint = check.nearKey(KeySpace::Code, code);
}

} // namespace

void findUnknownCodes(Check &check)
{
    UnknownWords unknownWords;
    for (const CatalogLinks::Item &item : check.links.items()) {
        const Section kind = check.catalog.record(item.record).kind;
        if (kind == Section::BASECODE)
            reportCloseCode(check, item.record, int(BaseCodeToken::BC_CloseCode));
        if (kind != Section::CHAREXT)
            continue;
        reportCloseCode(check, item.record, int(CharacterExtensionToken::CE_CloseCode));
        const LocatedField *followers =
            check.catalog.field(item.record, CharacterExtensionToken::CE_Follower);
        if (!followers)
            continue;
        const Place place = placeOf(check.catalog, item.record, *followers);
        forEachWord(check.text(followers->value),
                    [&](QStringView code) { reportFollower(check, place, code, unknownWords); });
    }
}

} // namespace Orvida::Checking
