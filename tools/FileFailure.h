// Why something could not be done with a file, in words.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"
#include "tools/Messages.h"

#include <QFileDevice>
#include <QString>

namespace Orvida::Tools {

/// What is wrong with a file, where, and how to fix it.
struct FileFailure
{
    FilePosition position;
    QString problem;
    QString remedy;
};

/// Of a file that the library does not read.
FileFailure failureOf(const Catalogs::CatalogReadFailure &failure);
/// The same of a file that seems to be in the other form, which `otherForm` says; empty when it does not.
FileFailure failureOf(const Catalogs::CatalogReadFailure &failure, const QString &otherForm);

/// `failure` of the file at `path` as the checking library explains it, when its XML is at fault; else
/// `failure` itself. The XML reader may report a wrong place, and never how to fix it.
FileFailure explained(const FileFailure &failure, const QString &path);

/// Of a file that cannot be read at all, as the system says in `errorText`.
FileFailure unreadable(const QString &errorText);

/// What the system says of `device`, which did not take all that was written to it or failed otherwise.
QString errorTextOf(const QFileDevice &device);

/// Writes `failure` of the file `name` to standard error.
void printFailure(const QString &name, const FileFailure &failure);

} // namespace Orvida::Tools
