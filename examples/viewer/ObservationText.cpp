#include "ObservationText.h"

namespace {

// The longest key that `text` has at `position`; empty when it has none.
QString placeholderAt(const QString &text, int position, const QMap<QString, QString> &values)
{
    QString longest;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const QString &key = value.key();
        if (key.size() > longest.size() && text.midRef(position, key.size()) == key)
            longest = key;
    }
    return longest;
}

} // namespace

QString filledObservationText(const QString &text, const QMap<QString, QString> &values)
{
    QString result;
    for (int position = 0; position < text.size();) {
        const QString placeholder = placeholderAt(text, position, values);
        if (placeholder.isEmpty()) {
            result += text.at(position++);
            continue;
        }
        const QString value = values.value(placeholder);
        result += value.isEmpty() ? QStringLiteral("…") : value;
        position += placeholder.size();
    }
    return result;
}
