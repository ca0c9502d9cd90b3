// Checks catalog files: finds all faults of a file in one pass, with their places and the ways to fix them.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"
#include "checking/CatalogFinding.h"
#include "checking/CatalogRule.h"
#include "checking/CheckingExport.h"

#include <QString>
#include <QVector>

#include <functional>
#include <memory>

namespace Orvida::Checking {

/// Reads catalog files as a load does, without building anything, and reports what is wrong with them.
///
/// A checker holds the settings, and the findings of its last check. It logs nothing and shares nothing with
/// other checkers: one checker serves one thread at a time, several may run at once.
class ORVIDA_CHECKING_EXPORT CatalogChecker
{
public:
    /// The two forms of a catalog file, which differ in the fields that `CatalogFormat::isScrambled` names.
    enum class Form {
        Scrambled, ///< What hosts load.
        Readable,  ///< What authors write: the texts are in the clear.
    };

    /// What becomes of a rule's findings.
    enum class Level { Off, Note, Warning, Error };

    /// What was found of one rule, listed or not.
    struct Totals
    {
        int findings = 0;
        /// How often the rule was broken; several times per finding when one cause breaks it often, and also
        /// where a finding of another rule already says why.
        qint64 occurrences = 0;
        /// How many further records suffer from that.
        qint64 affected = 0;
    };

    /// All rules, in the order in which they are documented; and the one with `id`, null for any other id.
    static const QVector<CatalogRule> &rules();
    static const CatalogRule *rule(const QString &id);

    CatalogChecker();
    ~CatalogChecker();
    Q_DISABLE_COPY(CatalogChecker)

    /// In which form files are taken to be; `Scrambled` at first.
    void setForm(Form form);
    /// Sets what becomes of the findings of `rule`, whatever their severity was; false, without effect, for
    /// an unknown rule and for one that refuses.
    bool setLevel(const QString &rule, Level level);
    /// How many findings of each rule are listed, 100 at first; 0 for all.
    void setFindingsPerRule(int count);
    /// Is called now and then during a check with the bytes that were read and the size of the file.
    void setProgress(std::function<void(qint64 bytesRead, qint64 size)> progress);

    /// Checks the file `fileName`; false when it does not load, and findings() then has at least the reason.
    /// Of the readable form: whether it loads once it is scrambled.
    bool check(const QString &fileName);

    /// The findings of the last check by line, column and rule.
    const QVector<CatalogFinding> &findings() const;
    /// How many findings of this severity there are, listed or not.
    int count(CatalogSeverity severity) const;
    /// All zero for an unknown rule.
    Totals totals(const QString &rule) const;
    /// Why the file does not load: exactly what `CatalogXMLParser::failure()` says of it. Of the readable
    /// form: what it would say if the scrambled one had the same lines and columns.
    const Catalogs::CatalogReadFailure &failure() const;

    /// For this library's own use.
    struct Private;

private:
    const std::unique_ptr<Private> m_private;
};

} // namespace Orvida::Checking
