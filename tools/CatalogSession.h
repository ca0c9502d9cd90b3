// Loads one catalog file the way a host application does.
#pragma once

#include "catalogs/access/ICatalogFileNameProvider.h"
#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include <QString>
#include <QStringList>

#include <memory>

class QTemporaryFile;

namespace Orvida::Tools {

/// One file of a catalog author, opened as a host would: through the manager, with a provider of its own.
/// It is the library's provider while it lives, so there is one session at a time.
class CatalogSession : private ICatalogFileNameProvider
{
public:
    /// For the file `fileName`; "-" stands for standard input.
    explicit CatalogSession(const QString &fileName);
    ~CatalogSession() override;
    Q_DISABLE_COPY(CatalogSession)

    /// Loads the catalog; empty when that fails, and then standard error says why. What the library itself
    /// writes to standard output goes to standard error as well.
    Catalogs::CatalogSptr load();

    /// Whether the catalog supports 3D.
    bool supports3D() const;

    /// The value of the file's style, of which `supports3D` is one bit.
    qint64 style() const;

    /// The records of the file, read when they are first asked for: a loaded catalog does not tell which
    /// profiles there are, nor by which list class a field got its entries. Only after `load`.
    const Catalogs::CatalogXMLParser &records();

    /// Keys of all profiles that the file defines, or files a column or a list under, sorted.
    QStringList profiles();

    /// The file as messages name it: without its folders, or "<standard input>".
    QString displayName() const;

private:
    QString getCatalogFileName(const QString &catalogId) const override;
    bool isStandardInput() const;
    bool isPipe() const;
    bool copyPipe();
    bool readRecords();

    const QString m_fileName;
    QString m_path;
    std::unique_ptr<QTemporaryFile> m_copy; // of a pipe
    std::unique_ptr<Catalogs::CatalogXMLParser> m_records;
};

} // namespace Orvida::Tools
