// Compares two editions of a catalog by what they mean for inspections that were recorded with the old one.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"
#include "checking/CatalogChange.h"
#include "checking/CatalogChecker.h"
#include "checking/CheckingExport.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace Orvida::Checking {

/// Compares catalog files by what inspections hold: codes, values by column and profile, values of lists,
/// defect codes, export ids. Keys, layout and the order of records do not matter; they help to recognise what
/// was renamed.
///
/// A comparison holds the settings, and the result of its last run. It logs nothing and shares nothing with
/// other comparisons: one serves one thread at a time, several may run at once. Time and memory are in
/// proportion to the files as long as profiles are few; with thousands of profiles, they are in proportion to
/// profiles times changed fields or values.
class ORVIDA_CHECKING_EXPORT CatalogComparison
{
public:
    enum Edition { Old, New };

    /// All kinds of changes, in the order in which they are documented; and the one with `id`, null for any
    /// other id.
    static const QVector<CatalogChangeKind> &kinds();
    static const CatalogChangeKind *kind(const QString &id);

    CatalogComparison();
    ~CatalogComparison();
    Q_DISABLE_COPY(CatalogComparison)

    /// In which form the file of an edition is taken to be; `Scrambled` at first.
    void setForm(Edition edition, CatalogChecker::Form form);
    /// Leaves out what concerns other profiles only; null, as at first, leaves out nothing. A key that
    /// neither edition has leaves out what concerns any profile.
    void setProfile(const QString &key);

    /// Compares two files; false when one of them does not load. Then there are no changes.
    bool compare(const QString &oldFileName, const QString &newFileName);

    /// Why a file does not load: what `CatalogChecker::failure()` says of it. All that follows is only
    /// there when both do.
    const Catalogs::CatalogReadFailure &failure(Edition edition) const;
    /// `CAT_PK` and `CAT_Version`; empty when the file does not tell.
    const QString &catalogKey(Edition edition) const;
    const QString &version(Edition edition) const;
    /// How many findings of severity error a check of the file has: what did not load as written cannot be
    /// compared as written.
    int errorCount(Edition edition) const;
    /// The keys of the profiles, in their order.
    const QStringList &profiles(Edition edition) const;

    /// What has changed: by class, then in the order of the tree of the new edition, then by profile, column
    /// and value. What was removed comes where it stood.
    const QVector<CatalogChange> &changes() const;
    int count(CatalogChangeClass changeClass) const;
    /// What was renamed, sorted by kind, profile, list and old name. A column is there only when all fields
    /// of a profile have left it for the same other one.
    const QVector<CatalogRename> &renames() const;

private:
    struct Private;
    const std::unique_ptr<Private> m_private;
};

} // namespace Orvida::Checking
