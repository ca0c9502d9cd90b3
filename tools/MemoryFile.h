// A file without a name: what is written once can be opened by path any number of times.
#pragma once

#include "tools/FileFailure.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>

namespace Orvida::Tools {

/// Holds bytes in memory under a path, for code that only reads files by name. Needs no folder that can be
/// written to. Moves, but is not copied.
class MemoryFile
{
public:
    /// An empty file; when the system refuses it, every `append` fails.
    MemoryFile();

    /// Adds `bytes` at the end; false when there is no room, `errorText` says why.
    [[nodiscard]] bool append(const QByteArray &bytes);
    QString errorText() const { return errorTextOf(*m_file); }

    /// Opens this file from its start; valid in this process while the object lives.
    QString path() const;

    /// Number of bytes in it, whoever wrote them.
    qint64 size() const { return m_file->size(); }

    /// Everything that was written; reads it anew each time.
    QByteArray bytes() const;

private:
    std::unique_ptr<QFile> m_file;
};

} // namespace Orvida::Tools
