// The host's logger, as far as the catalog library calls it.
#pragma once

#include "shared/SharedExport.h"

#include <QString>

namespace Orvida::Logging {

/// Forwards messages to Qt's logging: the category given is the name of the Qt logging category.
///
/// A category that nobody configured shows warnings and errors only. `QT_LOGGING_RULES` and
/// `QLoggingCategory::setFilterRules` turn levels on and off; `qInstallMessageHandler` receives what is on.
class ORVIDA_SHARED_EXPORT CLogger
{
public:
    /// How much a message matters.
    enum LogLevel : int {
        Error = 1,   ///< `QtCriticalMsg`
        Warning = 2, ///< `QtWarningMsg`
        Info = 3,    ///< `QtInfoMsg`
        Debug = 4,   ///< `QtDebugMsg`
    };

    /// Writes `message`, unchanged, to `category` at `level`; does nothing when that level is off.
    ///
    /// Any thread may call it. An unknown level counts as `Debug`. Categories are kept for the life of
    /// the process, one per name, so names are meant to be few.
    static void logMessage(LogLevel level, const QString &category, const QString &message);
};

} // namespace Orvida::Logging
