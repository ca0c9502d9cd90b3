#include "tools/LoadReport.h"

#include "checking/CatalogChecker.h"
#include "tools/DisplayOrder.h"
#include "tools/Messages.h"

#include <algorithm>
#include <iterator>

namespace Orvida::Tools {

namespace {

using Checking::CatalogChecker;
using Checking::CatalogFinding;
using Checking::CatalogRule;

// The rules of what a load logs or leaves out of the tree. A reference to a record that is misspelt or in the
// wrong place is reported with that record.
const QLatin1String rulesOfLosses[] = {
    QLatin1String("unknown-parent"),  QLatin1String("parent-loop"),         QLatin1String("unknown-item"),
    QLatin1String("bad-boolean"),     QLatin1String("entry-without-value"), QLatin1String("misspelt-record"),
    QLatin1String("wrapped-records"), QLatin1String("nested-record"),
};

bool isOfLosses(const CatalogRule &rule)
{
    return std::find(std::begin(rulesOfLosses), std::end(rulesOfLosses), rule.id) != std::end(rulesOfLosses);
}

bool hasItemsOutsideTree(Catalogs::Catalog &catalog)
{
    const int root = 1;
    return countItems(catalog.getItemById(QString())) + root != catalog.getCatalogItems().size();
}

void report(const QString &file, const CatalogFinding &finding)
{
    QString text = finding.message;
    if (finding.count > 1)
        text += QStringLiteral(" (%1 times)").arg(finding.count);
    printWarning(file, {finding.line, finding.column}, text);
    if (!finding.hint.isEmpty())
        printRemedy(finding.hint);
}

// The load only shows that something was lost. Checking the file finds what, where, and how to fix it.
void reportLosses(CatalogFile &file)
{
    CatalogChecker checker;
    checker.setForm(file.form() == TextForm::Readable ? CatalogChecker::Form::Readable
                                                      : CatalogChecker::Form::Scrambled);
    for (const CatalogRule &rule : CatalogChecker::rules())
        checker.setLevel(rule.id,
                         isOfLosses(rule) ? CatalogChecker::Level::Warning : CatalogChecker::Level::Off);
    checker.check(file.path());
    for (const CatalogFinding &finding : checker.findings())
        report(file.name(), finding);
    const int hidden = checker.count(Checking::CatalogSeverity::Warning) - checker.findings().size();
    if (hidden > 0)
        printMessage(QStringLiteral("and %1 more like these").arg(hidden));
}

} // namespace

bool reportLoad(CatalogFile &file)
{
    if (!file.isLoaded()) {
        printFailure(file.name(), file.failure());
        return false;
    }
    const QString otherForm = file.otherFormText();
    if (!otherForm.isEmpty())
        printWarning(file.name(), {}, otherForm);
    // A file with another root element loads well, as an empty catalog.
    if (file.catalog().getCatalogItems().size() == 1)
        printWarning(file.name(), {}, QStringLiteral("no codes in this catalog; is its root element OVCAT?"));
    if (file.hasLosses() || hasItemsOutsideTree(file.catalog()))
        reportLosses(file);
    return true;
}

} // namespace Orvida::Tools
