// Writing files that a command was told to write.
#pragma once

#include <QByteArray>
#include <QString>

namespace Orvida::Tools {

/// Whether `name` is a device or a pipe.
bool isSpecialFile(const QString &name);

/// Writes `document` into the file `name`, whole or not at all: a file that is there stays as it is until the
/// new one is complete. A device or a pipe is written into. Gives what the system says when that fails; else
/// an empty text.
QString errorOfWriting(const QString &name, const QByteArray &document);

} // namespace Orvida::Tools
