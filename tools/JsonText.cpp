#include "tools/JsonText.h"

#include "tools/OutputStyle.h"

namespace Orvida::Tools {

namespace {

// Whether `json` holds a byte with which such a character begins in UTF-8. Most texts hold none.
bool mayHaveSteering(const QByteArray &json)
{
    return json.contains('\x7F') || json.contains('\xC2') || json.contains('\xE2');
}

// JSON itself only requires the control characters of ASCII to be escaped. All others can only be in strings,
// where an escape means the same.
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
    return mayHaveSteering(json) ? withoutSteering(QString::fromUtf8(json)).toUtf8() : json;
}

} // namespace Orvida::Tools
