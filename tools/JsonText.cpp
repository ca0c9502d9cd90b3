#include "tools/JsonText.h"

#include "tools/OutputStyle.h"

namespace Orvida::Tools {

namespace {

// JSON itself only asks for the control characters of ASCII to be escaped. All others that stand in a JSON
// text stand in one of its strings.
QString withoutSteering(const QString &json)
{
    QString result;
    int copied = 0;
    for (int i = 0; i < json.size(); ++i) {
        const QChar c = json.at(i);
        if (c.unicode() < 0x7F || !OutputStyle::steersTerminal(c))
            continue;
        result += json.midRef(copied, i - copied);
        result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        copied = i + 1;
    }
    return result + json.midRef(copied);
}

} // namespace

QJsonValue jsonOf(const QString &text)
{
    return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonValue jsonOf(qint64 number)
{
    return QString::number(number);
}

QByteArray jsonText(const QJsonObject &object, QJsonDocument::JsonFormat format, int margin)
{
    QByteArray json = QJsonDocument(object).toJson(format);
    if (json.endsWith('\n'))
        json.chop(1);
    if (margin > 0 && format == QJsonDocument::Indented)
        json.replace("\n", '\n' + QByteArray(margin, ' '));
    return withoutSteering(QString::fromUtf8(json)).toUtf8();
}

} // namespace Orvida::Tools
