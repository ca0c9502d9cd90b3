// Finds the byte that is not in a file's encoding. For the checker's own use.
#pragma once

#include "checking/reading/LocatedCatalog_p.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Orvida::Checking {

struct EncodingFault
{
    Position at;
    uchar byte = 0;
    /// The encoding by which the file was read.
    QString encoding;
};

/// The first byte of the file that does not belong to its encoding: the declared one, that of a byte-order
/// mark, or UTF-8. None when there is no such byte, or when the file cannot be read again.
///
/// The XML reader decodes blocks ahead of what it reads, so that its own position says nothing.
std::optional<EncodingFault> findEncodingFault(const QString &fileName, const QString &declaredEncoding);

/// Whether this is the name of an encoding with one byte per character.
bool isOneByteEncoding(const QString &name);
/// Whether the file has bytes beyond ASCII, and is valid UTF-8.
bool isUtf8File(const QString &fileName);

} // namespace Orvida::Checking
