#include "checking/comparison/ColumnChanges_p.h"

#include "checking/findings/Wording_p.h"

#include <map>
#include <set>
#include <utility>

namespace Orvida::Checking {

namespace {

// Compares a column in one profile.
class ColumnComparison
{
public:
    ColumnComparison(EditionPair &pair, int profile, int oldRecord, int newRecord)
        : m_pair(pair), m_profile(profile), m_oldRecord(oldRecord), m_newRecord(newRecord)
    {
    }

    void compare()
    {
        m_pair.records.push_back({m_oldRecord, m_newRecord});
        compareExportId();
        const bool was = m_pair.oldEdition.catalog().flag(m_oldRecord, ColumnToken::COL_Transport);
        const bool is = m_pair.newEdition.catalog().flag(m_newRecord, ColumnToken::COL_Transport);
        if (was != is)
            add(is ? Change::ColumnExported : Change::ColumnNoLongerExported, ColumnToken::COL_Transport)
                .told.message = is ? QStringLiteral("exported now") : QStringLiteral("not exported any more");
    }

private:
    ChangeDraft &add(Change change, ColumnToken token)
    {
        return add(change, changeRow(change).changeClass, token);
    }
    ChangeDraft &add(Change change, CatalogChangeClass changeClass, ColumnToken token);
    void compareExportId();

    EditionPair &m_pair;
    const int m_profile;
    const int m_oldRecord;
    const int m_newRecord;
};

ChangeDraft &ColumnComparison::add(Change change, CatalogChangeClass changeClass, ColumnToken token)
{
    ChangeDraft &draft = m_pair.report.add(change, changeClass);
    draft.profiles = {m_profile};
    draft.place.area = ReportPlace::Columns;
    draft.told.column = m_pair.newEdition.string(m_newRecord, ColumnToken::COL_Column_ID);
    draft.told.subject = QStringLiteral("column ") + shown(draft.told.column);
    draft.told.oldText = m_pair.oldEdition.string(m_oldRecord, token);
    draft.told.newText = m_pair.newEdition.string(m_newRecord, token);
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_oldRecord, int(token));
    draft.told.newPlace = m_pair.newEdition.placeOf(m_newRecord, int(token));
    return draft;
}

void ColumnComparison::compareExportId()
{
    const Edition::Text before = m_pair.oldEdition.value(m_oldRecord, ColumnToken::COL_Export_ID);
    const Edition::Text after = m_pair.newEdition.value(m_newRecord, ColumnToken::COL_Export_ID);
    if (before == after)
        return;
    ChangeDraft &draft = add(after == 0 ? Change::ExportIdRemoved : Change::ExportIdChanged,
                             before == 0 ? CatalogChangeClass::Addition : CatalogChangeClass::Breaking,
                             ColumnToken::COL_Export_ID);
    draft.told.message = QStringLiteral("export id ") + fromTo(draft.told.oldText, draft.told.newText);
}

// Records of columns by column and profile.
using Columns = std::map<std::pair<Edition::Text, int>, int>;

template <typename Visit>
void forEachColumn(const Edition &edition, Visit visit)
{
    edition.links().columns().forEach([&](const Groups::Members &records) {
        for (const int record : records)
            visit(edition.common(Symbol(records.key())), record);
    });
}

// Ids that have gone with their columns. A column that has another name now may have kept its own.
void findLostExportIds(EditionPair &pair, const Columns &lost)
{
    std::set<std::pair<Edition::Text, int>> left;
    forEachColumn(pair.newEdition, [&](Edition::Text, int record) {
        left.insert({pair.newEdition.value(record, ColumnToken::COL_Export_ID),
                     pair.profiles.withNewKey(pair.newEdition.value(record, ColumnToken::COL_Profile_FK))});
    });
    for (const auto &[place, record] : lost) {
        const int profile = place.second;
        const QString id = pair.oldEdition.string(record, ColumnToken::COL_Export_ID);
        if (id.isEmpty() || !pair.isCompared(profile)
            || left.count({pair.oldEdition.value(record, ColumnToken::COL_Export_ID), profile}) > 0)
            continue;
        ChangeDraft &draft = pair.report.add(Change::ExportIdRemoved);
        draft.profiles = {profile};
        draft.place.area = ReportPlace::Columns;
        draft.told.column = pair.oldEdition.string(record, ColumnToken::COL_Column_ID);
        draft.told.subject = QStringLiteral("column ") + shown(draft.told.column);
        draft.told.oldText = id;
        draft.told.oldPlace = pair.oldEdition.placeOf(record, int(ColumnToken::COL_Export_ID));
        draft.told.message = QStringLiteral("export id %1: the column is gone").arg(fromTo(id, QString()));
    }
}

} // namespace

void findColumnChanges(EditionPair &pair)
{
    Columns olds;
    forEachColumn(pair.oldEdition, [&](Edition::Text column, int record) {
        const int profile =
            pair.profiles.withOldKey(pair.oldEdition.value(record, ColumnToken::COL_Profile_FK));
        olds[{column, profile}] = record;
    });
    Columns lost = olds;
    forEachColumn(pair.newEdition, [&](Edition::Text column, int record) {
        const int profile =
            pair.profiles.withNewKey(pair.newEdition.value(record, ColumnToken::COL_Profile_FK));
        const auto known = olds.find({column, profile});
        if (known == olds.end())
            return;
        lost.erase(known->first);
        if (pair.isCompared(profile))
            ColumnComparison(pair, profile, known->second, record).compare();
    });
    findLostExportIds(pair, lost);
}

} // namespace Orvida::Checking
