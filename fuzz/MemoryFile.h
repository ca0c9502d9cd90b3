// What the fuzz targets share: the bytes of a run as a file, and the end of a run that found something.
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace Orvida::Fuzz {

/// Path of a file in memory that has these bytes until the next call; no disk is written.
inline QString pathOfBytes(const std::uint8_t *data, std::size_t size)
{
    static const int file = memfd_create("catalog", 0);
    if (ftruncate(file, 0) != 0 || pwrite(file, data, size, 0) != static_cast<ssize_t>(size))
        std::abort();
    return QStringLiteral("/proc/self/fd/%1").arg(file);
}

/// Ends the process, which is a finding, unless `fault` is empty.
inline void stopAt(const QString &fault)
{
    if (fault.isEmpty())
        return;
    std::fprintf(stderr, "Fault: %s\n", qUtf8Printable(fault));
    std::abort();
}

} // namespace Orvida::Fuzz
