#include "shared/RecordingHost.h"

namespace Orvida::Logging {

QStringList &CLogger::messages()
{
    static QStringList recorded;
    return recorded;
}

void CLogger::logMessage(LogLevel level, const QString &category, const QString &message)
{
    messages().append(QString::number(level) + QLatin1Char('|') + category + QLatin1Char('|') + message);
}

} // namespace Orvida::Logging

namespace Orvida::Shared {

InputField::DataType DataConverter::stringToDataType(const QStringRef &text)
{
    return text == QLatin1String("number") ? InputField::Decimal : InputField::Undefined;
}

QString DoubleFormater::toString(const QString &value, const QString &format)
{
    return QLatin1Char('<') + value + QLatin1Char('@') + format + QLatin1Char('>');
}

} // namespace Orvida::Shared
