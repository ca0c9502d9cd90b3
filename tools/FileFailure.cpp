#include "tools/FileFailure.h"

#include "catalogs/format/CatalogFormat.h"
#include "checking/CatalogChecker.h"

#include <algorithm>

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
    if (failure.reason == CatalogReadFailure::None)
        return {position, QStringLiteral("the catalog did not load, but its file reads well now"),
                QStringLiteral("try again")};
    return {position, failure.problem(), failure.remedy()};
}

// A scrambled key in the clear decodes to something else, often to nothing.
FileFailure failureOf(const CatalogReadFailure &failure, const QString &otherForm)
{
    FileFailure result = failureOf(failure);
    const QStringList &fields = failure.missingFields;
    const bool lacksScrambledKey = std::any_of(fields.cbegin(), fields.cend(), [](const QString &field) {
        return Catalogs::CatalogFormat::isScrambled(field);
    });
    if (lacksScrambledKey && !otherForm.isEmpty())
        result.remedy = otherForm;
    return result;
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
    CatalogReadFailure failure;
    failure.reason = CatalogReadFailure::FileNotRead;
    failure.detail = errorText;
    return failureOf(failure);
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
