#include "models/SearchableText_p.h"

#include <algorithm>

namespace Orvida::Models {

namespace {

// Folded letters that Unicode does not take apart, although people type them without their stroke or as two.
QString replacementOf(QChar letter)
{
    switch (letter.unicode()) {
    case 0x00E6: return QStringLiteral("ae");
    case 0x0153: return QStringLiteral("oe");
    case 0x00F8: return QStringLiteral("o");
    case 0x0111: return QStringLiteral("d");
    case 0x0131: return QStringLiteral("i");
    case 0x0142: return QStringLiteral("l");
    }
    return letter;
}

} // namespace

QString searchableText(const QString &text)
{
    const bool isAscii = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
    if (isAscii)
        return text.toLower();
    QString result;
    for (const QChar letter : text.normalized(QString::NormalizationForm_KD).toCaseFolded()) {
        if (letter.category() != QChar::Mark_NonSpacing)
            result += replacementOf(letter);
    }
    return result;
}

} // namespace Orvida::Models
