// Standard output of a subcommand.
#pragma once

#include <QTextStream>

namespace Orvida::Tools {

/// A text stream on standard output, in UTF-8 whatever the locale is.
class CommandOutput
{
public:
    CommandOutput();

    QTextStream &stream() { return m_stream; }

    /// Writes what is still held back, and gives the exit status of the process: `status`, or
    /// `NotReadable` with a message on standard error when something could not be written.
    int finish(int status);

private:
    QTextStream m_stream;
};

} // namespace Orvida::Tools
