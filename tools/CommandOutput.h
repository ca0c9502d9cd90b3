// Standard output of a command.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTextStream>

namespace Orvida::Tools {

/// Standard output, as bytes or as a text stream in UTF-8 whatever the locale is.
class CommandOutput
{
public:
    CommandOutput();

    QTextStream &stream() { return m_stream; }
    /// Writes `bytes` as they are.
    void write(const QByteArray &bytes);

    /// Writes what is still buffered, and returns the exit status of the process: `status`, or
    /// `NotReadable` with a message on standard error when something could not be written.
    int finish(int status);

private:
    QFile m_file;
    QTextStream m_stream;
};

} // namespace Orvida::Tools
