#include "checking/rules/ProfileRules_p.h"

#include "checking/rules/Check_p.h"

namespace Orvida::Checking {

namespace {

// The records that choose a profile, in file order, and their choice.
struct Marks
{
    std::vector<int> profiles;
    std::vector<int> starts;
    std::vector<int> applications;
    int chosen = -1;
    /// The mark that decides; none when the sort orders do.
    int deciding = -1;
};

// By sort order, with the sort that a load uses: with more than 16 profiles it changes the order of equal
// ones.
std::vector<int> sortedProfiles(const Check &check)
{
    struct Profile
    {
        int sortOrder;
        int record;
    };
    std::vector<Profile> profiles;
    check.forEachRecord(Section::CATPRO, [&](int record) {
        profiles.push_back({check.catalog.number(record, ProfileToken::PRO_SortOrder), record});
    });
    std::sort(profiles.begin(), profiles.end(),
              [](const Profile &a, const Profile &b) { return a.sortOrder < b.sortOrder; });
    std::vector<int> records;
    records.reserve(profiles.size());
    for (const Profile &profile : profiles)
        records.push_back(profile.record);
    return records;
}

int markedProfile(const Check &check, const std::vector<int> &profiles, int mark)
{
    const Symbol key = check.catalog.value(mark, ProfileExtensionToken::CPX_Profile_FK);
    const auto found = std::find_if(profiles.begin(), profiles.end(), [&](int profile) {
        return check.catalog.value(profile, ProfileToken::PRO_PK) == key;
    });
    return found == profiles.end() ? -1 : *found;
}

Marks marksOf(const Check &check)
{
    Marks marks;
    marks.profiles = sortedProfiles(check);
    check.forEachRecord(Section::CPX, [&](int record) {
        if (check.catalog.flag(record, ProfileExtensionToken::CPX_IsStart))
            marks.starts.push_back(record);
        if (check.catalog.flag(record, ProfileExtensionToken::CPX_IsOrvida))
            marks.applications.push_back(record);
    });
    for (const std::vector<int> *records : {&marks.starts, &marks.applications}) {
        if (records->empty() || marks.chosen >= 0)
            continue;
        marks.chosen = markedProfile(check, marks.profiles, records->front());
        marks.deciding = marks.chosen >= 0 ? records->front() : -1;
    }
    if (marks.chosen < 0 && !marks.profiles.empty())
        marks.chosen = marks.profiles.front();
    return marks;
}

QString profileName(const Check &check, int record)
{
    return check.shownText(check.catalog.value(record, ProfileToken::PRO_PK));
}

void reportUnknownMark(Check &check, const Marks &marks, int record)
{
    const Symbol key = check.catalog.value(record, ProfileExtensionToken::CPX_Profile_FK);
    if (check.links.recordWith(KeySpace::Profile, key) >= 0)
        return;
    const bool isLost = !marks.starts.empty() && record == marks.starts.front();
    const Place place = placeOf(check.catalog, record, ProfileExtensionToken::CPX_Profile_FK);
    CatalogFinding *finding = check.addUnknown(
        Fault(isLost ? Rule::StartMarkLost : Rule::UnknownMarkProfile, place), KeySpace::Profile, key);
    if (!finding)
        return;
    finding->message =
        QStringLiteral("%1 names the unknown profile %2")
            .arg(isLost ? QStringLiteral("the start mark") : QStringLiteral("a mark"), check.quotedText(key));
    if (isLost && marks.chosen >= 0)
        finding->message += QStringLiteral("; %1 is chosen instead").arg(profileName(check, marks.chosen));
}

// Only the first mark of each kind is looked at.
void reportRepeatedMarks(Check &check, Rule rule, const std::vector<int> &marks, const char *name)
{
    for (std::size_t index = 1; index < marks.size(); ++index) {
        const Place place = rule == Rule::SeveralStartMarks
                                ? placeOf(check.catalog, marks[index], ProfileExtensionToken::CPX_IsStart)
                                : placeOf(check.catalog, marks[index], ProfileExtensionToken::CPX_IsOrvida);
        CatalogFinding *finding = check.add(Fault(rule, place).about(0));
        if (!finding)
            continue;
        finding->message = QStringLiteral("a second %1 is ignored: the one in line %2 counts")
                               .arg(QLatin1String(name), check.lineOf(marks.front()));
        finding->hint = QStringLiteral("write false in all but one");
        FindingReport::relate(*finding, placeOf(check.catalog, marks.front()),
                              QStringLiteral("the mark that counts"));
    }
}

void reportNoStartMark(Check &check, const Marks &marks)
{
    CatalogFinding *finding = check.add(Fault(Rule::NoStartMark, placeOf(check.catalog, marks.chosen)));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("no start mark: profile %1 is chosen, %2")
            .arg(profileName(check, marks.chosen),
                 marks.deciding >= 0 ? QStringLiteral("which bears the mark of the application")
                                     : QStringLiteral("which has the lowest sort order"));
    finding->hint = QStringLiteral("mark it with a CPX that has CPX_IsStart true");
}

// `other` is the profile that follows in order.
void reportTie(Check &check, const Marks &marks, int other)
{
    const auto orderOf = [&](int record) {
        return check.catalog.number(record, ProfileToken::PRO_SortOrder);
    };
    if (marks.deciding >= 0 || orderOf(marks.chosen) != orderOf(other))
        return;
    CatalogFinding *finding = check.add(Fault(Rule::ProfileOrderTie, placeOf(check.catalog, marks.chosen)));
    if (!finding)
        return;
    finding->message = QStringLiteral("profiles %1 and %2 have the lowest sort order %3: which one is chosen "
                                      "depends on their order in the file")
                           .arg(profileName(check, marks.chosen), profileName(check, other),
                                QString::number(orderOf(other)));
    finding->hint = QStringLiteral("give them different sort orders, or mark one with CPX_IsStart");
    FindingReport::relate(*finding, placeOf(check.catalog, other), QStringLiteral("the other profile"));
}

} // namespace

int chosenProfile(const Check &check)
{
    return marksOf(check).chosen;
}

bool hasNoProfile(const Check &check)
{
    const auto &records = check.catalog.records;
    return !check.links.inputFields().empty()
           && std::none_of(records.begin(), records.end(),
                           [](const LocatedRecord &record) { return record.kind == Section::CATPRO; });
}

void findNoProfile(Check &check)
{
    if (!hasNoProfile(check))
        return;
    if (CatalogFinding *finding = check.add(Fault(Rule::NoProfile, wholeFile()))) {
        finding->message = QStringLiteral("no profile: no field is ever shown");
        finding->hint = QStringLiteral("add a CATPRO, and let COL and LC name it");
    }
}

void findMarks(Check &check)
{
    if (hasNoProfile(check))
        return;
    const Marks marks = marksOf(check);
    check.forEachRecord(Section::CPX, [&](int record) { reportUnknownMark(check, marks, record); });
    reportRepeatedMarks(check, Rule::SeveralStartMarks, marks.starts, "start mark");
    reportRepeatedMarks(check, Rule::SeveralApplicationMarks, marks.applications, "application mark");
    const auto other = std::find_if(marks.profiles.begin(), marks.profiles.end(), [&](int profile) {
        return profileName(check, profile) != profileName(check, marks.chosen);
    });
    if (other == marks.profiles.end())
        return;
    if (marks.starts.empty())
        reportNoStartMark(check, marks);
    reportTie(check, marks, *other);
}

// Columns that are lost are reported as lost.
void findProfilesWithoutColumns(Check &check)
{
    std::vector<bool> hasColumns(std::size_t(check.catalog.texts.size()));
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        if (check.catalog.record(record).kind == Section::COL)
            hasColumns[std::size_t(check.catalog.value(record, ColumnToken::COL_Profile_FK))] = true;
    }
    check.links.keys(KeySpace::Profile).forEach([&](const Groups::Members &records) {
        if (hasColumns[std::size_t(records.key())])
            return;
        CatalogFinding *finding =
            check.add(Fault(Rule::ProfileWithoutColumns, placeOf(check.catalog, records.first())));
        if (finding) {
            finding->message = QStringLiteral("profile %1 has no columns: it shows no fields")
                                   .arg(check.keyOf(records.first()));
            finding->hint = QStringLiteral("columns name it with COL_Profile_FK");
        }
    });
}

} // namespace Orvida::Checking
