#include "checking/rules/KeyRules_p.h"

#include "checking/reading/Characters_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/ListValues_p.h"

#include <QStringList>

namespace Orvida::Checking {

namespace {

void reportMissingKeys(Check &check, int record)
{
    CatalogFinding *finding =
        check.add(Fault(Rule::MissingKey, placeOf(check.catalog, record)).losing(record));
    if (!finding)
        return;
    QStringList missing;
    QStringView raw;
    for (const CatalogFormat::Field *field :
         CatalogFormat::record(int(check.catalog.record(record).kind)).requiredFields()) {
        const LocatedField *value = check.catalog.fieldOf(record, field->token);
        if (value && value->value != 0)
            continue;
        missing.append(field->name);
        if (value && raw.isEmpty())
            raw = check.catalog.rawText(*value);
    }
    finding->field = missing.first();
    finding->message = QStringLiteral("a %1 record without %2: the file does not load")
                           .arg(finding->record, missing.join(QStringLiteral(" and ")));
    finding->hint = raw.isEmpty() ? QStringLiteral("add what is missing, or remove the record")
                                  : QStringLiteral("the text there, %1, is not scrambled").arg(quoted(raw));
}

} // namespace

void findMissingKeys(Check &check)
{
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        if (check.catalog.record(record).state == LocatedRecord::Refused)
            reportMissingKeys(check, record);
    }
}

namespace {

bool hasPadding(QStringView text)
{
    return text.trimmed().size() < text.size();
}

bool isReference(const CatalogFormat::Field &field)
{
    return field.names.size() > 0;
}

KeySpace referredSpace(const CatalogFormat::Field &field)
{
    return CatalogFormat::field(field.names)->keySpace;
}

// The hint says whether that is why the key is unknown.
void reportPaddedKey(Check &check, const Place &place, const CatalogFormat::Field &format, Symbol key)
{
    CatalogFinding *finding = check.add(Fault(Rule::PaddedKey, place).about(key));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("%1 has white space around it: %2").arg(finding->field, check.quotedText(key));
    const Symbol meant = check.catalog.texts.find(check.text(key).trimmed());
    const bool isMeant = isReference(format) && check.links.recordWith(referredSpace(format), key) < 0
                         && check.links.recordWith(referredSpace(format), meant) >= 0;
    finding->hint = isMeant ? QStringLiteral("remove it; then %1 is known").arg(check.quotedText(meant))
                            : QStringLiteral("remove it here, and wherever the same is named");
}

// The same white space in different fields is no common cause.
void reportBlankKey(Check &check, int record, const LocatedField &field)
{
    const qint64 subject = pairOf(int(check.catalog.record(record).kind) << 8 | field.token, field.value);
    const Place place = placeOf(check.catalog, record, field);
    if (CatalogFinding *finding = check.add(Fault(Rule::BlankKey, place).about(subject))) {
        finding->message = QStringLiteral("%1 is nothing but white space").arg(finding->field);
        finding->hint = QStringLiteral("write a key, or remove the field");
    }
}

// What white space a field may have: codes may be missing, and followers are several words.
struct KeyUse
{
    bool mayBeBlank;
    bool mayBePadded;
};

KeyUse keyUse(Section kind, const CatalogFormat::Field &format)
{
    const bool isCode = format.keySpace == KeySpace::Code;
    const bool isKey = format.keySpace != KeySpace::None || isReference(format);
    const bool isFollower =
        kind == Section::CHAREXT && format.token == int(CharacterExtensionToken::CE_Follower);
    const bool isPlaceholder =
        kind == Section::PARAM && format.token == int(ParameterToken::PARAM_Placeholder);
    return {!isKey || isCode, !(isKey || isPlaceholder) || isFollower};
}

} // namespace

// Keys are compared exactly, white space included.
void findBlankKeys(Check &check)
{
    check.forEachValue(hasPadding, [&](int record, const LocatedField &field) {
        const LocatedRecord &located = check.catalog.record(record);
        const bool isRead = located.state == LocatedRecord::Kept || located.state == LocatedRecord::Refused;
        if (!isRead || field.isOverruled)
            return;
        const CatalogFormat::Field &format = check.catalog.format(record, field);
        const KeyUse use = keyUse(located.kind, format);
        if (!isBlank(check.text(field.value))) {
            if (!use.mayBePadded)
                reportPaddedKey(check, placeOf(check.catalog, record, field), format, field.value);
        } else if (!use.mayBeBlank) {
            reportBlankKey(check, record, field);
        }
    });
}

namespace {

bool isSameRecord(const LocatedCatalog &catalog, int a, int b)
{
    const auto fieldCount = [&](int record) {
        return std::count_if(catalog.begin(record), catalog.end(record),
                             [](const LocatedField &field) { return !field.isOverruled; });
    };
    const auto isInB = [&](const LocatedField &field) {
        const LocatedField *other = catalog.fieldOf(b, field.token);
        return field.isOverruled || (other && other->value == field.value);
    };
    return catalog.record(a).kind == catalog.record(b).kind && fieldCount(a) == fieldCount(b)
           && std::all_of(catalog.begin(a), catalog.end(a), isInB);
}

// The field with the key of `space` that counts.
const LocatedField &keyField(const LocatedCatalog &catalog, int record, KeySpace space)
{
    return *std::find_if(catalog.begin(record), catalog.end(record), [&](const LocatedField &field) {
        return !field.isOverruled && catalog.format(record, field).keySpace == space;
    });
}

void reportRepeated(Check &check, const Fault &fault, int earlier, const QString &consequence)
{
    const Place &place = fault.place;
    CatalogFinding *finding = check.add(fault);
    if (!finding)
        return;
    finding->message =
        QStringLiteral("%1 is the key of the %2 in line %3, too: %4")
            .arg(check.keyOf(place.record), check.nameOf(earlier), check.lineOf(earlier), consequence);
    finding->hint = QStringLiteral("give one of them another key, or remove it");
    FindingReport::relate(*finding, placeOf(check.catalog, earlier), QStringLiteral("the other one"));
}

} // namespace

void findRepeatedItems(Check &check)
{
    check.links.keys(KeySpace::Item).forEach([&](const Groups::Members &records) {
        for (int index = 1; index < records.size(); ++index) {
            const int record = records[index];
            const Place place =
                placeOf(check.catalog, record, keyField(check.catalog, record, KeySpace::Item));
            reportRepeated(check, Fault(Rule::RepeatedItemKey, place).about(records.key()),
                           records[index - 1], QStringLiteral("that one is lost"));
        }
    });
}

namespace {

void findRepeated(Check &check, KeySpace space, Rule rule)
{
    check.links.keys(space).forEach([&](const Groups::Members &records) {
        for (int index = 1; index < records.size(); ++index) {
            const int record = records[index];
            const int earlier = records[index - 1];
            if (!isSameRecord(check.catalog, record, earlier)) {
                const Place place = placeOf(check.catalog, record, keyField(check.catalog, record, space));
                reportRepeated(check, Fault(rule, place).about(records.key()), earlier,
                               QStringLiteral("that one is lost"));
                continue;
            }
            const Fault fault = Fault(Rule::IdenticalRecord, placeOf(check.catalog, record));
            if (CatalogFinding *finding = check.add(fault)) {
                finding->message = QStringLiteral("the same record as in line %1").arg(check.lineOf(earlier));
                finding->hint = QStringLiteral("remove one of the two");
            }
        }
    });
}

} // namespace

void findRepeatedParameters(Check &check)
{
    findRepeated(check, KeySpace::Parameter, Rule::RepeatedParameterKey);
    findRepeated(check, KeySpace::ParameterExtension, Rule::RepeatedExtensionKey);
}

void findRepeatedProfiles(Check &check)
{
    check.links.keys(KeySpace::Profile).forEach([&](const Groups::Members &records) {
        for (int index = 1; index < records.size(); ++index)
            reportRepeated(
                check,
                Fault(Rule::RepeatedProfileKey, placeOf(check.catalog, records[index], ProfileToken::PRO_PK))
                    .about(records.key()),
                records[index - 1], QStringLiteral("they are one profile with two sort orders"));
    });
}

namespace {

bool isShownAlike(const LocatedCatalog &catalog, int a, int b)
{
    return catalog.text(a, ColumnToken::COL_DataType) == catalog.text(b, ColumnToken::COL_DataType)
           && catalog.flag(a, ColumnToken::COL_Visible) == catalog.flag(b, ColumnToken::COL_Visible)
           && catalog.flag(a, ColumnToken::COL_ReadOnly) == catalog.flag(b, ColumnToken::COL_ReadOnly);
}

// The records with one key, by profile.
template <typename Token, typename Visit>
void forEachProfile(Check &check, KeySpace space, Token profileToken, Visit visit)
{
    Groups groups;
    check.links.keys(space).forEach([&](const Groups::Members &records) {
        for (const int record : records)
            groups.add(pairOf(int(records.key()), check.catalog.value(record, profileToken)), record);
    });
    groups.sort();
    groups.forEach(visit);
}

} // namespace

void findRepeatedColumns(Check &check)
{
    forEachProfile(check, KeySpace::Column, ColumnToken::COL_Profile_FK, [&](const Groups::Members &records) {
        const int first = records.first();
        for (const int record : records) {
            if (record == first)
                continue;
            const bool isAlike = isShownAlike(check.catalog, first, record);
            CatalogFinding *finding =
                check.add(Fault(Rule::RepeatedColumn, placeOf(check.catalog, record))
                              .as(isAlike ? CatalogSeverity::Warning : CatalogSeverity::Error)
                              .about(records.key()));
            if (!finding)
                continue;
            finding->message =
                QStringLiteral("column %1 has a definition for profile %2 in line %3; this one is lost")
                    .arg(check.shownText(check.catalog.value(record, ColumnToken::COL_Column_ID)),
                         check.shownText(check.catalog.value(record, ColumnToken::COL_Profile_FK)),
                         check.lineOf(first));
            finding->hint = QStringLiteral("remove one of the two, or give it another profile");
            FindingReport::relate(*finding, placeOf(check.catalog, first),
                                  QStringLiteral("the one that counts"));
        }
    });
}

void findRepeatedListClasses(Check &check)
{
    forEachProfile(
        check, KeySpace::ListClassId, ListClassToken::LC_Profile_FK, [&](const Groups::Members &records) {
            for (int index = 1; index < records.size(); ++index) {
                const int record = records[index];
                CatalogFinding *finding = check.add(
                    Fault(Rule::RepeatedListClass, placeOf(check.catalog, record)).about(records.key()));
                if (!finding)
                    continue;
                const int earlier = records[index - 1];
                finding->message =
                    QStringLiteral("list %1 of profile %2 is in line %3, too; that one is lost")
                        .arg(check.shownText(check.catalog.value(record, ListClassToken::LC_Class_ID)),
                             check.shownText(check.catalog.value(record, ListClassToken::LC_Profile_FK)),
                             check.lineOf(earlier));
                finding->hint = QStringLiteral("move its entries here, and remove it");
                FindingReport::relate(*finding, placeOf(check.catalog, earlier),
                                      QStringLiteral("the one that is lost"));
            }
        });
}

void findListClassesWithoutKey(Check &check)
{
    check.forEachRecord(Section::LC, [&](int record) {
        if (check.catalog.value(record, ListClassToken::LC_PK) != 0)
            return;
        CatalogFinding *finding = check.add(Fault(Rule::ListClassWithoutKey, placeOf(check.catalog, record)));
        if (finding) {
            finding->message =
                QStringLiteral("list %1 has no LC_PK: no entry can name it, and it stays empty")
                    .arg(check.shownText(check.catalog.value(record, ListClassToken::LC_Class_ID)));
            finding->hint = QStringLiteral("give it the key that its entries have as LIST_Class_FK");
        }
    });
}

namespace {

bool hasEqualSortOrders(const Check &check, Symbol listKey)
{
    std::vector<int> orders;
    for (const int entry : check.links.entries(listKey))
        orders.push_back(check.catalog.number(entry, ListItemToken::LIST_SortOrder));
    std::sort(orders.begin(), orders.end());
    return std::adjacent_find(orders.begin(), orders.end()) != orders.end();
}

} // namespace

// Each of the lists orders the shared entries anew, which moves equal ones again.
void findSharedListKeys(Check &check)
{
    check.links.keys(KeySpace::ListClass).forEach([&](const Groups::Members &records) {
        const bool isTie = records.size() > 1 && hasEqualSortOrders(check, Symbol(records.key()));
        int first = -1;
        for (const int record : records) {
            if (!check.links.counts(record))
                continue;
            if (first < 0) {
                first = record;
                continue;
            }
            const Place place = placeOf(check.catalog, record, ListClassToken::LC_PK);
            CatalogFinding *finding =
                check.add(Fault(Rule::SharedListKey, place)
                              .as(isTie ? CatalogSeverity::Warning : CatalogSeverity::Note)
                              .about(records.key()));
            if (!finding)
                continue;
            finding->message = QStringLiteral("the lists %1 and %2 share their entries")
                                   .arg(listName(check, first), listName(check, record));
            if (isTie)
                finding->message += QStringLiteral(", in different orders where sort orders are equal");
            finding->hint = QStringLiteral("give each list a key and entries of its own");
            FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other list"));
        }
    });
}

void findRepeatedMarks(Check &check)
{
    check.links.keys(KeySpace::ProfileExtension).forEach([&](const Groups::Members &records) {
        for (int index = 1; index < records.size(); ++index)
            reportRepeated(check,
                           Fault(Rule::RepeatedMarkKey,
                                 placeOf(check.catalog, records[index], ProfileExtensionToken::CPX_PK))
                               .about(records.key()),
                           records[index - 1], QStringLiteral("both are kept"));
    });
}

} // namespace Orvida::Checking
