// What the library itself writes while it loads a catalog.
#pragma once

#include "tools/MemoryFile.h"

#include <QtGlobal>

namespace Orvida::Tools {

/// While it lives, keeps what the library writes to standard output out of it, which must hold only what was
/// asked for, and shows what the library logs on standard error, a line each: level, category, message.
class LibraryOutput
{
public:
    /// What is shown.
    enum Show {
        Nothing,
        Problems,   ///< Errors and warnings, but not those of which `reportOddities` tells more.
        Everything, ///< Every log message, and what was written to standard output.
    };

    explicit LibraryOutput(Show show);
    ~LibraryOutput();
    Q_DISABLE_COPY(LibraryOutput)

    /// Whether there was anything about items that are not in the catalog: text on standard output, or a log
    /// message that `Problems` does not show.
    bool hasHeldBack() const;

private:
    void showDiverted() const;

    const Show m_show;
    MemoryFile m_diverted;
    int m_standardOutput;
    QtMessageHandler m_earlierHandler;
};

} // namespace Orvida::Tools
