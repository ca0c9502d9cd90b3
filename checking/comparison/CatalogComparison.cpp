#include "checking/CatalogComparison.h"

#include "checking/comparison/ChangeTable_p.h"
#include "checking/comparison/ColumnChanges_p.h"
#include "checking/comparison/ColumnRelations_p.h"
#include "checking/comparison/DefectCodeChanges_p.h"
#include "checking/comparison/FieldChanges_p.h"
#include "checking/comparison/HiddenChanges_p.h"
#include "checking/comparison/ItemChanges_p.h"
#include "checking/comparison/ListChanges_p.h"
#include "checking/comparison/WholeChanges_p.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace Orvida::Checking {

using Catalogs::CatalogReadFailure;

namespace {

QVector<CatalogChangeKind> publicKinds()
{
    QVector<CatalogChangeKind> kinds;
    for (int change = 0; change < int(Change::Count); ++change) {
        const ChangeRow &row = changeRow(Change(change));
        kinds.append({QLatin1String(row.id), row.changeClass, QString::fromUtf8(row.summary),
                      QString::fromUtf8(row.explanation)});
    }
    return kinds;
}

void findChanges(EditionPair &pair, QVector<CatalogChange> &changes)
{
    ColumnRelations columns(pair);
    UsedLists lists(pair);
    findProfileChanges(pair);
    findItemChanges(pair);
    findFieldChanges(pair, columns, lists);
    findColumnChanges(pair);
    findListChanges(pair, lists);
    findDefectCodeChanges(pair);
    findCatalogChanges(pair);
    findHiddenChanges(pair);
    TouchedCodes codes(pair, lists);
    changes = pair.report.finish(pair.profiles, [&codes](ChangeDraft &draft) { codes.describe(draft); });
}

void sortRenames(QVector<CatalogRename> &renames)
{
    const auto orderOf = [](const CatalogRename &rename) {
        return std::tie(rename.kind, rename.profile, rename.list, rename.oldName, rename.newName,
                        rename.certainty);
    };
    std::sort(renames.begin(), renames.end(),
              [&](const CatalogRename &a, const CatalogRename &b) { return orderOf(a) < orderOf(b); });
    const auto isSame = [&](const CatalogRename &a, const CatalogRename &b) {
        return orderOf(a) == orderOf(b);
    };
    renames.erase(std::unique(renames.begin(), renames.end(), isSame), renames.end());
}

} // namespace

struct Q_DECL_HIDDEN CatalogComparison::Private
{
    /// What is known of an edition.
    struct Facts
    {
        CatalogChecker::Form form = CatalogChecker::Form::Scrambled;
        CatalogReadFailure failure;
        QString key;
        QString version;
        int errors = 0;
        QStringList profiles;
    };

    void describe(Edition which, const Checking::Edition &edition, const ProfilePairs &pairs);

    std::array<Facts, 2> facts;
    QString profile;
    QVector<CatalogChange> changes;
    QVector<CatalogRename> renames;
};

const QVector<CatalogChangeKind> &CatalogComparison::kinds()
{
    static const QVector<CatalogChangeKind> kinds = publicKinds();
    return kinds;
}

const CatalogChangeKind *CatalogComparison::kind(const QString &id)
{
    const auto found = std::find_if(kinds().begin(), kinds().end(),
                                    [&id](const CatalogChangeKind &kind) { return kind.id == id; });
    return found == kinds().end() ? nullptr : &*found;
}

CatalogComparison::CatalogComparison() : m_private(std::make_unique<Private>()) {}

CatalogComparison::~CatalogComparison() = default;

void CatalogComparison::setForm(Edition edition, CatalogChecker::Form form)
{
    m_private->facts[edition].form = form;
}

void CatalogComparison::setProfile(const QString &key)
{
    m_private->profile = key;
}

bool CatalogComparison::compare(const QString &oldFileName, const QString &newFileName)
{
    m_private->changes.clear();
    m_private->renames.clear();
    auto &[oldFacts, newFacts] = m_private->facts;
    Reading oldReading = readCatalogFile(oldFileName, oldFacts.form == CatalogChecker::Form::Readable);
    Reading newReading = readCatalogFile(newFileName, newFacts.form == CatalogChecker::Form::Readable);
    oldFacts.failure = failureOf(oldReading);
    newFacts.failure = failureOf(newReading);
    if (oldFacts.failure.reason != CatalogReadFailure::None
        || newFacts.failure.reason != CatalogReadFailure::None)
        return false;
    const Checking::Edition oldEdition(oldFileName, std::move(oldReading), nullptr);
    const Checking::Edition newEdition(newFileName, std::move(newReading), &oldEdition);
    EditionPair pair(oldEdition, newEdition, m_private->profile);
    findChanges(pair, m_private->changes);
    sortRenames(pair.renames);
    m_private->renames = pair.renames;
    m_private->describe(Old, oldEdition, pair.profiles);
    m_private->describe(New, newEdition, pair.profiles);
    return true;
}

const CatalogReadFailure &CatalogComparison::failure(Edition edition) const
{
    return m_private->facts[edition].failure;
}

const QString &CatalogComparison::catalogKey(Edition edition) const
{
    return m_private->facts[edition].key;
}

const QString &CatalogComparison::version(Edition edition) const
{
    return m_private->facts[edition].version;
}

int CatalogComparison::errorCount(Edition edition) const
{
    return m_private->facts[edition].errors;
}

const QStringList &CatalogComparison::profiles(Edition edition) const
{
    return m_private->facts[edition].profiles;
}

const QVector<CatalogChange> &CatalogComparison::changes() const
{
    return m_private->changes;
}

int CatalogComparison::count(CatalogChangeClass changeClass) const
{
    return int(std::count_if(
        m_private->changes.begin(), m_private->changes.end(),
        [changeClass](const CatalogChange &change) { return change.changeClass == changeClass; }));
}

const QVector<CatalogRename> &CatalogComparison::renames() const
{
    return m_private->renames;
}

void CatalogComparison::Private::describe(Edition which, const Checking::Edition &edition,
                                          const ProfilePairs &pairs)
{
    Facts &known = facts[which];
    const int record = edition.firstRecord(Section::CATALOG);
    known.key = edition.string(record, CatalogInfoToken::CAT_PK);
    known.version = edition.string(record, CatalogInfoToken::CAT_Version);
    known.errors = edition.errorCount();
    known.profiles.clear();
    for (int number = 0; number < int(pairs.profiles().size()); ++number) {
        const ProfilePairs::Profile &pair = pairs.profile(number);
        if (which == Old ? pair.oldKey != 0 : pair.newKey != 0)
            known.profiles.append(which == Old ? pairs.oldNameOf(number) : pairs.nameOf(number));
    }
}

} // namespace Orvida::Checking
