// Shows the library's log messages on standard error.
#pragma once

#include <QtGlobal>

namespace Orvida::Tools {

/// While it lives, log messages go to standard error, a line each: level, category, message. Errors and
/// warnings always, the rest only when asked for.
class LogOutput
{
public:
    explicit LogOutput(bool showsEverything);
    ~LogOutput();
    Q_DISABLE_COPY(LogOutput)

private:
    QtMessageHandler m_earlierHandler;
};

} // namespace Orvida::Tools
