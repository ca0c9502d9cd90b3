// A catalog file as an XML reader gets it, and what to say when that fails. For the reader's own use.
#pragma once

#include "catalogs/reading/CatalogReadFailure.h"

#include <QFile>
#include <QXmlStreamReader>

namespace Orvida::Catalogs {

/// An XML reader on a file; nothing is open at first.
struct XmlInput
{
    /// Begins to read the file `fileName`; false when it cannot be opened.
    [[nodiscard]] bool open(const QString &fileName)
    {
        reader.clear();
        file.close();
        file.unsetError();
        // Answered here, because Qt would print a warning for no name and cut a name at a zero character.
        if (fileName.isEmpty() || fileName.contains(QChar(QChar::Null)))
            return false;
        file.setFileName(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        reader.setDevice(&file);
        return true;
    }

    void close()
    {
        reader.clear();
        file.close();
    }

    /// Why open() gave false.
    CatalogReadFailure failureToOpen() const
    {
        CatalogReadFailure failure;
        const bool wasTried = file.error() != QFileDevice::NoError;
        failure.reason = CatalogReadFailure::FileNotRead;
        failure.detail = wasTried ? file.errorString() : QStringLiteral("No such file or directory");
        return failure;
    }

    /// Why the reader has an error, or stopped before the document's end.
    CatalogReadFailure failureToRead() const
    {
        CatalogReadFailure failure;
        const bool isFileError = file.error() != QFileDevice::NoError;
        failure.reason = isFileError ? CatalogReadFailure::FileNotRead : CatalogReadFailure::NotWellFormed;
        failure.detail = isFileError ? file.errorString() : reader.errorString();
        failure.line = reader.lineNumber();
        failure.column = reader.columnNumber() + 1;
        return failure;
    }

    // The reader reads from the file: it is declared after it, so that it is destroyed first.
    QFile file;
    QXmlStreamReader reader;
};

} // namespace Orvida::Catalogs
