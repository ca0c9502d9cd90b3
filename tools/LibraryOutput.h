// What the library itself writes while it loads a catalog.
#pragma once

#include "tools/MemoryFile.h"

#include <QtGlobal>

namespace Orvida::Tools {

/// While it lives, diverts what the library writes to standard output, which must hold only what was asked
/// for, and shows its log messages on standard error, a line each: level, category, message.
class LibraryOutput
{
public:
    /// What is shown.
    enum Show {
        Nothing,
        Problems,   ///< Warnings, and errors that are not the library's: `reportLoad` explains those.
        Everything, ///< Every log message, and what was written to standard output.
    };

    explicit LibraryOutput(Show show);
    ~LibraryOutput();
    Q_DISABLE_COPY(LibraryOutput)

    /// Whether there was anything that `Problems` does not show: text on standard output, or an error of the
    /// library.
    bool hasHeldBack() const;

private:
    void showDiverted() const;

    const Show m_show;
    MemoryFile m_diverted;
    int m_standardOutput;
    QtMessageHandler m_earlierHandler;
};

} // namespace Orvida::Tools
