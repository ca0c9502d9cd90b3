#include "checking/comparison/WholeChanges_p.h"

#include "checking/findings/Wording_p.h"
#include "checking/rules/ProfileRules_p.h"

namespace Orvida::Checking {

namespace {

ChangeDraft &addToProfile(EditionPair &pair, Change change, int number)
{
    const ProfilePairs::Profile &profile = pair.profiles.profile(number);
    ChangeDraft &draft = pair.report.add(change);
    draft.profiles = {number};
    draft.place.value = number;
    draft.told.subject = QStringLiteral("profile ") + shown(pair.profiles.nameOf(number));
    draft.told.oldPlace = pair.oldEdition.placeOf(profile.oldRecord);
    draft.told.newPlace = pair.newEdition.placeOf(profile.newRecord);
    return draft;
}

void tellRenamed(EditionPair &pair, int number)
{
    const ProfilePairs::Profile &profile = pair.profiles.profile(number);
    const QString oldName = pair.profiles.oldNameOf(number);
    const QString newName = pair.profiles.nameOf(number);
    ChangeDraft &draft = addToProfile(pair, Change::ProfileRenamed, number);
    draft.told.oldText = oldName;
    draft.told.newText = newName;
    draft.told.subject = QStringLiteral("profile %1 → %2").arg(shown(oldName), shown(newName));
    const auto isSame = [&](ProfileToken token) {
        return pair.oldEdition.value(profile.oldRecord, token)
               == pair.newEdition.value(profile.newRecord, token);
    };
    const bool hasFormat =
        !pair.oldEdition.text(profile.oldRecord, ProfileToken::PRO_Format).isEmpty()
        || !pair.oldEdition.text(profile.oldRecord, ProfileToken::PRO_ExportType).isEmpty();
    const bool isSameFormat =
        hasFormat && isSame(ProfileToken::PRO_Format) && isSame(ProfileToken::PRO_ExportType);
    draft.told.message = isSameFormat ? QStringLiteral("profile renamed (same format and type of export)")
                                      : QStringLiteral("profile renamed (same columns)");
    pair.addRename(CatalogRename::Profile, CatalogRename::Likely, oldName, newName);
}

void tellRemoved(EditionPair &pair, int number)
{
    ChangeDraft &draft = addToProfile(pair, Change::ProfileRemoved, number);
    draft.told.oldText = pair.profiles.oldNameOf(number);
    draft.told.message = QStringLiteral("profile removed");
}

void tellAdded(EditionPair &pair, int number)
{
    ChangeDraft &draft = addToProfile(pair, Change::ProfileAdded, number);
    draft.told.newText = pair.profiles.nameOf(number);
    draft.told.message = QStringLiteral("profile added");
}

void findChosenProfile(EditionPair &pair)
{
    const int oldRecord = chosenProfile(pair.oldEdition.check());
    const int newRecord = chosenProfile(pair.newEdition.check());
    const int oldNumber = pair.profiles.withOldKey(pair.oldEdition.value(oldRecord, ProfileToken::PRO_PK));
    const int newNumber = pair.profiles.withNewKey(pair.newEdition.value(newRecord, ProfileToken::PRO_PK));
    if (oldNumber == newNumber)
        return;
    ChangeDraft &draft = pair.report.add(Change::ChosenProfileChanged);
    draft.told.subject = QStringLiteral("catalog");
    draft.told.oldText = pair.oldEdition.string(oldRecord, ProfileToken::PRO_PK);
    draft.told.newText = pair.newEdition.string(newRecord, ProfileToken::PRO_PK);
    draft.told.message = QStringLiteral("chosen profile ") + fromTo(draft.told.oldText, draft.told.newText);
    draft.told.oldPlace = pair.oldEdition.placeOf(oldRecord);
    draft.told.newPlace = pair.newEdition.placeOf(newRecord);
}

} // namespace

void findProfileChanges(EditionPair &pair)
{
    for (int number = 0; number < int(pair.profiles.profiles().size()); ++number) {
        const ProfilePairs::Profile &profile = pair.profiles.profile(number);
        if (profile.oldRecord >= 0 && profile.newRecord >= 0)
            pair.records.push_back({profile.oldRecord, profile.newRecord});
        if (!pair.isAsked(number))
            continue;
        if (profile.isRemoved())
            tellRemoved(pair, number);
        else if (profile.isAdded())
            tellAdded(pair, number);
        else if (profile.isRenamed())
            tellRenamed(pair, number);
    }
    findChosenProfile(pair);
}

namespace {

// The first CATALOG of each edition.
class CatalogInfo
{
public:
    explicit CatalogInfo(EditionPair &pair)
        : m_pair(pair),
          m_oldRecord(pair.oldEdition.firstRecord(Section::CATALOG)),
          m_newRecord(pair.newEdition.firstRecord(Section::CATALOG))
    {
        if (m_oldRecord >= 0 && m_newRecord >= 0)
            pair.records.push_back({m_oldRecord, m_newRecord});
    }

    bool isSame(CatalogInfoToken token) const
    {
        return m_pair.oldEdition.value(m_oldRecord, token) == m_pair.newEdition.value(m_newRecord, token);
    }

    static bool supports3d(const Edition &edition, int record)
    {
        constexpr qint64 supports3d = Q_INT64_C(1) << 31;
        const auto &incidents = edition.catalog().incidents;
        const bool isOdd =
            std::any_of(incidents.begin(), incidents.end(), [record](const Incident &incident) {
                return incident.kind == Incident::StyleNotAtOnce && incident.record == record;
            });
        return !isOdd && edition.string(record, CatalogInfoToken::CAT_Style).toLongLong() & supports3d;
    }

    int gained3d() const
    {
        return int(supports3d(m_pair.newEdition, m_newRecord))
               - int(supports3d(m_pair.oldEdition, m_oldRecord));
    }

    void tell(Change change, CatalogInfoToken token, const QString &message)
    {
        ChangeDraft &draft = m_pair.report.add(change);
        draft.told.subject = QStringLiteral("catalog");
        draft.told.oldText = m_pair.oldEdition.string(m_oldRecord, token);
        draft.told.newText = m_pair.newEdition.string(m_newRecord, token);
        draft.told.oldPlace = m_pair.oldEdition.placeOf(m_oldRecord, int(token));
        draft.told.newPlace = m_pair.newEdition.placeOf(m_newRecord, int(token));
        draft.told.message = message.isEmpty()
                                 ? QStringLiteral("key ") + fromTo(draft.told.oldText, draft.told.newText)
                                 : message;
    }

private:
    EditionPair &m_pair;
    int m_oldRecord;
    int m_newRecord;
};

} // namespace

void findCatalogChanges(EditionPair &pair)
{
    CatalogInfo info(pair);
    if (!info.isSame(CatalogInfoToken::CAT_PK))
        info.tell(Change::CatalogKeyChanged, CatalogInfoToken::CAT_PK, QString());
    if (info.gained3d() > 0)
        info.tell(Change::Gained3d, CatalogInfoToken::CAT_Style, QStringLiteral("supports 3D now"));
    if (info.gained3d() < 0)
        info.tell(Change::Lost3d, CatalogInfoToken::CAT_Style,
                  QStringLiteral("does not support 3D any more"));
    if (pair.report.hasVisible() && info.isSame(CatalogInfoToken::CAT_Version))
        info.tell(Change::VersionNotRaised, CatalogInfoToken::CAT_Version,
                  QStringLiteral("the version is the same in both editions"));
}

} // namespace Orvida::Checking
