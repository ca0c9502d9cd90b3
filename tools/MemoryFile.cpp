#include "tools/MemoryFile.h"

#include <sys/mman.h>

namespace Orvida::Tools {

MemoryFile::MemoryFile() : m_file(std::make_unique<QFile>())
{
    m_file->open(memfd_create("orvida-catalog", MFD_CLOEXEC), QIODevice::ReadWrite | QIODevice::Unbuffered,
                 QFileDevice::AutoCloseHandle);
}

bool MemoryFile::append(const QByteArray &bytes)
{
    return m_file->write(bytes) == bytes.size();
}

QString MemoryFile::path() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(m_file->handle());
}

QByteArray MemoryFile::bytes() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace Orvida::Tools
