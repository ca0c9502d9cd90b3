#include "checking/CatalogChecker.h"
#include <QTextStream>

using namespace Orvida::Checking;

// What to tell the user of a catalog file: nothing when it loads as its author wrote it.
QStringList complaintsAbout(const QString &fileName)
{
    CatalogChecker checker;
    if (checker.check(fileName) && checker.count(CatalogSeverity::Error) == 0)
        return {};
    QStringList complaints;
    for (const CatalogFinding &finding : checker.findings()) {
        if (finding.severity != CatalogSeverity::Error)
            continue;
        QString complaint = finding.message;
        if (finding.rule != "file-not-read")
            complaint.prepend(QString("line %1: ").arg(finding.line));
        if (!finding.hint.isEmpty())
            complaint += QString(" (%1)").arg(finding.hint);
        complaints += complaint;
    }
    return complaints;
}

int main(int, char **arguments)
{
    QTextStream out(stdout);
    for (const QString &complaint : complaintsAbout(arguments[1]))
        out << complaint << '\n';
}
