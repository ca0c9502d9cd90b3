#include "tools/FileFailure.h"

#include "checking/CatalogChecker.h"

namespace Orvida::Tools {

using Catalogs::CatalogReadFailure;

namespace {

bool isOfXml(const Checking::CatalogFinding &finding)
{
    return finding.rule == QLatin1String("not-well-formed") || finding.rule == QLatin1String("wrong-encoding")
           || finding.rule == QLatin1String("unknown-encoding");
}

} // namespace

FileFailure failureOf(const CatalogReadFailure &failure)
{
    const FilePosition position{failure.line, failure.column};
    switch (failure.reason) {
    case CatalogReadFailure::FileNotRead: return unreadable(failure.detail);
    case CatalogReadFailure::NotWellFormed:
        return {position, QStringLiteral("not well-formed XML: ") + failure.detail,
                QStringLiteral("correct the XML there; a catalog loads as a whole or not at all")};
    case CatalogReadFailure::RecordRefused:
        return {
            position,
            failure.record + QStringLiteral(" record without ")
                + failure.missingFields.join(QStringLiteral(" and without ")),
            QStringLiteral("give the record a %1 that is not empty, or remove the record; one such record "
                           "keeps the whole catalog from loading")
                .arg(failure.missingFields.value(0))};
    case CatalogReadFailure::None: break;
    }
    return {position, QStringLiteral("the catalog did not load, but its file reads well now"),
            QStringLiteral("try again")};
}

FileFailure explained(const FileFailure &failure, const QString &path)
{
    Checking::CatalogChecker checker;
    checker.check(path);
    for (const Checking::CatalogFinding &finding : checker.findings()) {
        if (isOfXml(finding))
            return {{finding.line, finding.column},
                    finding.message,
                    finding.hint.isEmpty() ? failure.remedy : finding.hint};
    }
    return failure;
}

FileFailure unreadable(const QString &errorText)
{
    return {{},
            QStringLiteral("cannot read the file: ") + errorText,
            QStringLiteral("check the name of the file and the right to read it")};
}

QString errorTextOf(const QFileDevice &device)
{
    return device.error() == QFileDevice::NoError ? QStringLiteral("no room for it") : device.errorString();
}

void printFailure(const QString &name, const FileFailure &failure)
{
    printError(name, failure.position, failure.problem);
    printRemedy(failure.remedy);
}

} // namespace Orvida::Tools
