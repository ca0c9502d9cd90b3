#include "checking/comparison/HiddenChanges_p.h"

#include "checking/comparison/ListEntries_p.h"
#include "checking/findings/Wording_p.h"
#include "checking/rules/ListValues_p.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>

namespace Orvida::Checking {

namespace {

constexpr int kindCount = int(Section::PARAMX) + 1;
using Records = EditionPair::Records;
using Text = Edition::Text;

QString nameOf(Section kind)
{
    return CatalogFormat::record(int(kind)).name;
}

ChangeDraft &add(EditionPair &pair, Change change, int oldRecord, int newRecord)
{
    ChangeDraft &draft = pair.report.add(change);
    const Edition &edition = newRecord < 0 ? pair.oldEdition : pair.newEdition;
    const int record = newRecord < 0 ? oldRecord : newRecord;
    draft.place.area = ReportPlace::Rest;
    draft.place.position = record;
    draft.told.subject = nameOf(edition.catalog().record(record).kind) + QLatin1Char(' ')
                         + shown(edition.text(edition.catalog().keyOf(record)));
    draft.told.oldPlace = pair.oldEdition.placeOf(oldRecord);
    draft.told.newPlace = pair.newEdition.placeOf(newRecord);
    return draft;
}

// Fields of a kind of record that a load does nothing with, but for those that are compared.
QVector<CatalogFormat::Field> unreadFields(Section kind)
{
    const auto isCompared = [kind](const CatalogFormat::Field &field) {
        return (kind == Section::CATALOG
                && (field.token == int(CatalogInfoToken::CAT_PK)
                    || field.token == int(CatalogInfoToken::CAT_Version)))
               || (kind == Section::COL
                   && (field.token == int(ColumnToken::COL_Export_ID)
                       || field.token == int(ColumnToken::COL_Transport)));
    };
    QVector<CatalogFormat::Field> fields;
    for (const CatalogFormat::Field &field : CatalogFormat::record(int(kind)).fields) {
        const bool isUnread =
            field.use == CatalogFormat::Use::Stored || field.use == CatalogFormat::Use::NotRead;
        // Of a column's type, only that there is one matters.
        const bool isType = field.kind == CatalogFormat::Kind::ColumnType;
        if ((isUnread || isType) && !isCompared(field))
            fields.append(field);
    }
    return fields;
}

void compareUnreadFields(EditionPair &pair, const Records &records,
                         const QVector<CatalogFormat::Field> &fields)
{
    QStringList names;
    for (const CatalogFormat::Field &field : fields) {
        if (pair.oldEdition.value(records.oldRecord, field.token)
            != pair.newEdition.value(records.newRecord, field.token))
            names.append(field.name);
    }
    if (!names.isEmpty())
        add(pair, Change::UnusedChanged, records.oldRecord, records.newRecord).told.message =
            names.join(QStringLiteral(", ")) + QStringLiteral(" changed");
}

void compareKey(EditionPair &pair, const Records &records, Section kind)
{
    const int token = kind == Section::PARAMX  ? int(ParameterExtensionToken::PX_PK)
                      : kind == Section::PARAM ? int(ParameterToken::PARAM_PK)
                      : kind == Section::LC    ? int(ListClassToken::LC_PK)
                                               : 0;
    if (token == 0
        || pair.oldEdition.value(records.oldRecord, token) == pair.newEdition.value(records.newRecord, token))
        return;
    ChangeDraft &draft = add(pair, Change::KeyChanged, records.oldRecord, records.newRecord);
    draft.told.oldText = pair.oldEdition.string(records.oldRecord, token);
    draft.told.newText = pair.newEdition.string(records.newRecord, token);
    draft.told.message = QStringLiteral("key ") + fromTo(draft.told.oldText, draft.told.newText);
}

// Parameters are the same when the same field names them.
void addParameters(EditionPair &pair)
{
    const auto parameterOf = [](const Edition &edition, int record) {
        return edition.links().recordWith(
            KeySpace::Parameter, edition.catalog().value(record, ParameterExtensionToken::PX_Param_FK));
    };
    std::set<std::pair<int, int>> known;
    const std::size_t count = pair.records.size();
    for (std::size_t index = 0; index < count; ++index) {
        const Records records = pair.records[index];
        if (pair.oldEdition.catalog().record(records.oldRecord).kind != Section::PARAMX)
            continue;
        const int before = parameterOf(pair.oldEdition, records.oldRecord);
        const int after = parameterOf(pair.newEdition, records.newRecord);
        if (before >= 0 && after >= 0 && known.insert({before, after}).second)
            pair.records.push_back({before, after});
    }
}

void compareRecordOrder(EditionPair &pair, std::vector<Records> &records, Section kind)
{
    std::sort(records.begin(), records.end(), [](const Records &a, const Records &b) {
        return a.oldRecord != b.oldRecord ? a.oldRecord < b.oldRecord : a.newRecord < b.newRecord;
    });
    const auto isLater = [](const Records &a, const Records &b) { return a.newRecord > b.newRecord; };
    const auto turn = std::adjacent_find(records.begin(), records.end(), isLater);
    if (turn == records.end())
        return;
    ChangeDraft &draft = add(pair, Change::RecordOrderChanged, turn->oldRecord, turn->newRecord);
    draft.told.subject = nameOf(kind);
    draft.told.message = QStringLiteral("records in another order");
}

void compareRecords(EditionPair &pair)
{
    addParameters(pair);
    std::array<std::vector<Records>, kindCount> byKind;
    for (const Records &records : pair.records) {
        const Section kind = pair.oldEdition.catalog().record(records.oldRecord).kind;
        if (kind == pair.newEdition.catalog().record(records.newRecord).kind)
            byKind[std::size_t(kind)].push_back(records);
    }
    for (int kind = int(Section::CATALOG); kind < kindCount; ++kind) {
        const auto fields = unreadFields(Section(kind));
        for (const Records &records : byKind[std::size_t(kind)]) {
            compareUnreadFields(pair, records, fields);
            compareKey(pair, records, Section(kind));
        }
        compareRecordOrder(pair, byKind[std::size_t(kind)], Section(kind));
    }
}

// By text: whether a field of either edition names it by `member`.
std::set<Text> usedBy(const EditionPair &pair, const std::function<Text(const Edition &, int)> &nameIn)
{
    std::set<Text> used;
    for (const Edition *edition : {&pair.oldEdition, &pair.newEdition}) {
        for (int field = 0; field < int(edition->links().inputFields().size()); ++field)
            used.insert(nameIn(*edition, field));
    }
    return used;
}

// Records of both editions that are the same, by what they are known by; -1 where one is missing.
using Unused = std::map<std::pair<Text, int>, Records>;

void noteUnused(Unused &unused, Text id, int profile, bool isOld, int record)
{
    Records &records = unused.insert({{id, profile}, {-1, -1}}).first->second;
    (isOld ? records.oldRecord : records.newRecord) = record;
}

template <typename IsSame>
void tellUnused(EditionPair &pair, const Unused &unused, IsSame isSame)
{
    for (const auto &[place, records] : unused) {
        const bool isInBoth = records.oldRecord >= 0 && records.newRecord >= 0;
        if (isInBoth && isSame(records))
            continue;
        add(pair, Change::UnusedChanged, records.oldRecord, records.newRecord).told.message =
            isInBoth                 ? QStringLiteral("changed; no field uses it")
            : records.oldRecord >= 0 ? QStringLiteral("removed; no field used it")
                                     : QStringLiteral("added; no field uses it");
    }
}

// Lists and columns are there once per profile.
template <typename Token>
Unused unusedGroups(const EditionPair &pair, const std::set<Text> &used, Token profileToken,
                    const Groups &(CatalogLinks::*groups)() const)
{
    Unused unused;
    for (const bool isOld : {true, false}) {
        const Edition &edition = isOld ? pair.oldEdition : pair.newEdition;
        (edition.links().*groups)().forEach([&](const Groups::Members &records) {
            const Text id = edition.common(Symbol(records.key()));
            if (used.count(id) > 0)
                return;
            for (const int record : records) {
                const Text key = edition.value(record, profileToken);
                const int profile = isOld ? pair.profiles.withOldKey(key) : pair.profiles.withNewKey(key);
                if (pair.isCompared(profile))
                    noteUnused(unused, id, profile, isOld, record);
            }
        });
    }
    return unused;
}

void compareUnusedLists(EditionPair &pair)
{
    std::set<Text> used = usedBy(pair, [](const Edition &edition, int field) {
        return edition.common(edition.links().inputField(field).list);
    });
    for (const Edition *edition : {&pair.oldEdition, &pair.newEdition})
        used.insert(edition->common(edition->catalog().texts.find(u"LC_ID_CD")));
    const Unused unused = unusedGroups(pair, used, ListClassToken::LC_Profile_FK, &CatalogLinks::lists);
    // By what they hold: thousands of lists may have the same entries.
    using Entries = std::vector<ListEntry>;
    using Known = std::map<qint64, Entries>;
    Known olds;
    Known news;
    const auto entriesIn = [](const Edition &edition, int record, Known &known) -> const Entries & {
        const auto [entries, isNew] = known.insert({valuesKey(edition.check(), record), Entries()});
        if (isNew)
            entries->second = entriesByValue(edition, record);
        return entries->second;
    };
    std::map<std::pair<const Entries *, const Entries *>, bool> areSame;
    tellUnused(pair, unused, [&](const Records &records) {
        const Entries &before = entriesIn(pair.oldEdition, records.oldRecord, olds);
        const Entries &after = entriesIn(pair.newEdition, records.newRecord, news);
        const auto [known, isNew] = areSame.insert({{&before, &after}, false});
        if (isNew)
            known->second = std::equal(before.begin(), before.end(), after.begin(), after.end(),
                                       [](const ListEntry &a, const ListEntry &b) {
                                           return a.value == b.value && a.caption == b.caption
                                                  && a.item == b.item && a.sortOrder == b.sortOrder
                                                  && a.count == b.count;
                                       });
        return known->second;
    });
}

void compareUnusedColumns(EditionPair &pair)
{
    const std::set<Text> used = usedBy(pair, [](const Edition &edition, int field) {
        return edition.common(edition.links().inputField(field).column);
    });
    const Unused unused = unusedGroups(pair, used, ColumnToken::COL_Profile_FK, &CatalogLinks::columns);
    // What is in both was compared like all columns.
    tellUnused(pair, unused, [](const Records &) { return true; });
}

void compareUnusedParameters(EditionPair &pair)
{
    const std::set<Text> used = usedBy(pair, [](const Edition &edition, int field) {
        return edition.value(edition.links().inputField(field).record, ParameterExtensionToken::PX_Param_FK);
    });
    Unused unused;
    for (const bool isOld : {true, false}) {
        const Edition &edition = isOld ? pair.oldEdition : pair.newEdition;
        edition.check().forEachRecord(Section::PARAM, [&](int record) {
            const Text key = edition.value(record, ParameterToken::PARAM_PK);
            if (edition.links().counts(record) && used.count(key) == 0)
                noteUnused(unused, key, 0, isOld, record);
        });
    }
    tellUnused(pair, unused, [&pair](const Records &records) {
        const auto fields = CatalogFormat::record(int(Section::PARAM)).fields;
        return std::all_of(fields.begin(), fields.end(), [&](const CatalogFormat::Field &field) {
            return pair.oldEdition.value(records.oldRecord, field.token)
                   == pair.newEdition.value(records.newRecord, field.token);
        });
    });
}

} // namespace

void findHiddenChanges(EditionPair &pair)
{
    compareUnusedLists(pair);
    compareUnusedColumns(pair);
    compareUnusedParameters(pair);
    compareRecords(pair);
}

} // namespace Orvida::Checking
