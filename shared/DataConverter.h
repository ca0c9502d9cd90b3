// The host's conversions of text, as far as the catalog library calls them.
#pragma once

#include "shared/CLogger.h"
#include "shared/InputField.h"
#include "shared/SharedExport.h"

#include <QString>
#include <QStringRef>

namespace Orvida::Shared {

/// Converts text to values. Any thread may call any of it.
class DataConverter
{
public:
    /// True for "true", false for "false", in any letter case and as a whole.
    ///
    /// Anything else, an empty text or one with white space around it included, is false and logged as
    /// an error of the category "DataConverter". Defined here, because callers instantiate it for their own
    /// text type (`QString`, `QStringRef`).
    template <typename Text>
    static bool stringToBool(const Text &text);

    /// The type that "TXT", "INT", "DEC", "BOL" or "DAT" names, letter case included; any other text,
    /// the empty one too, gives `InputField::Undefined`.
    ORVIDA_SHARED_EXPORT static InputField::DataType stringToDataType(const QStringRef &text);
};

template <typename Text>
bool DataConverter::stringToBool(const Text &text)
{
    static const QString STR_TRUE = QStringLiteral("true");
    static const QString STR_FALSE = QStringLiteral("false");
    if (text.compare(STR_TRUE, Qt::CaseInsensitive) == 0)
        return true;
    if (text.compare(STR_FALSE, Qt::CaseInsensitive) != 0)
        Logging::CLogger::logMessage(Logging::CLogger::Error, QStringLiteral("DataConverter"),
                                     QStringLiteral("stringToBool conversion error! ") + text);
    return false;
}

} // namespace Orvida::Shared
