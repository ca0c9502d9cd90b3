// What several tests need: catalog files made from text, and guards for process-wide state.
#pragma once

#include "catalogs/access/ICatalogFileNameProvider.h"
#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogReadFailure.h"

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace Orvida::Tests {

/// A folder of files, removed with the object.
class CatalogFolder
{
public:
    /// Writes `content` into the file `name` and returns its path.
    QString write(const QString &name, const QByteArray &content) const;
    /// Path of the file `name`, whether it exists or not.
    QString path(const QString &name) const;

private:
    QTemporaryDir m_folder;
};

/// A text from a literal.
inline QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// The content of the file at `path`; empty when it cannot be read.
QByteArray bytesOf(const QString &path);
bool isWellFormed(const QByteArray &document);

/// `records` inside the root element of a catalog file.
QByteArray catalogXml(const QByteArray &records);

/// The readable catalog `clear`, scrambled. The text of elements with the attribute raw is left alone;
/// escapes are not decoded.
QByteArray scrambledForm(const QByteArray &clear);
/// The same for the file at `path`.
QByteArray scrambledCatalog(const QString &path);

/// "read", "not read", "not well-formed at 3:1", or "refused at 3:9: COL without COL_Column_ID".
QString summaryOf(const Catalogs::CatalogReadFailure &failure);

/// The catalog "id" of a file with these records.
Catalogs::CatalogSptr loaded(const QByteArray &records);

/// Collects log messages while it exists, each as "category|level|message" (levels: debug, info, warning,
/// critical), with all levels of all categories on. Any thread may log. One at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    Q_DISABLE_COPY(LogCapture)

    QStringList messages() const;
};

/// Redirects standard output of the process into a file while it exists. Allocates no memory.
class StandardOutputTo
{
public:
    explicit StandardOutputTo(const char *path);
    ~StandardOutputTo();
    Q_DISABLE_COPY(StandardOutputTo)

private:
    const int m_savedOutput;
};

/// A provider for the files added to it, which counts its calls. While it exists, it is the library's
/// provider, with an empty folder.
class FileTable : public ICatalogFileNameProvider
{
public:
    FileTable();
    ~FileTable() override;

    void add(const QString &catalogId, const QString &path);
    int questions(const QString &catalogId) const;
    QString getCatalogFileName(const QString &catalogId) const override;

private:
    mutable QMutex m_mutex;
    QHash<QString, QString> m_paths;
    mutable QHash<QString, int> m_questions;
};

} // namespace Orvida::Tests
