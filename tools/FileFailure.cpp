#include "tools/FileFailure.h"

namespace Orvida::Tools {

using Catalogs::CatalogReadFailure;

FileFailure failureOf(const CatalogReadFailure &failure)
{
    const FilePosition position{failure.line, failure.column};
    if (failure.reason == CatalogReadFailure::None)
        return {position, QStringLiteral("the catalog did not load, but its file reads well now"),
                QStringLiteral("try again")};
    return {position, failure.problem(), failure.remedy()};
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
