#include "shared/RecordingHost.h"

namespace Orvida {

thread_local const char *Recording::threadName = "no thread of ours";

QStringList &Recording::calls()
{
    static QStringList recorded;
    return recorded;
}

void Recording::record(const char *call, const QString &argument)
{
    const QString line =
        QStringLiteral("%1: %2 %3").arg(QLatin1String(threadName), QLatin1String(call), argument);
    calls().append(line.trimmed());
}

void Logging::CLogger::logMessage(LogLevel level, const QString &category, const QString &message)
{
    Recording::record("logMessage", QStringLiteral("%1 %2: %3").arg(level).arg(category, message));
}

void Shared::InputField::setItemList(const QList<ListItem> &entries)
{
    QStringList texts;
    for (const ListItem &entry : entries)
        texts += entry.storedText();
    Recording::record("setItemList", texts.join(QStringLiteral(", ")));
}

Shared::InputField::DataType Shared::DataConverter::stringToDataType(const QStringRef &text)
{
    Recording::record("stringToDataType", text.toString());
    return text == QLatin1String("number") ? InputField::Decimal : InputField::Undefined;
}

QString Shared::DoubleFormater::toString(const QString &value, const QString &format)
{
    Recording::record("toString", value + QLatin1Char(' ') + format);
    return QLatin1Char('<') + value + QLatin1Char('@') + format + QLatin1Char('>');
}

} // namespace Orvida
