#include "checking/findings/Wording_p.h"

#include <QLatin1String>

namespace Orvida::Checking {

namespace {

constexpr int longest = 60;

bool isPlain(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Other_PrivateUse:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph: return false;
    default: return true;
    }
}

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case '\n': return QStringLiteral("\\n");
    case '\r': return QStringLiteral("\\r");
    case '\t': return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u")
               + QString::number(character.unicode(), 16).toUpper().rightJustified(4, QLatin1Char('0'));
    }
}

} // namespace

QString shown(QStringView text)
{
    QString result;
    int count = 0;
    for (auto character = text.begin(); character != text.end(); ++character) {
        const bool isPair =
            character->isHighSurrogate() && character + 1 != text.end() && (character + 1)->isLowSurrogate();
        if (++count > longest)
            return result + QChar(0x2026);
        if (isPair)
            result += *character++;
        result += isPair || (isPlain(*character) && !character->isSurrogate()) ? QString(*character)
                                                                               : escaped(*character);
    }
    return result;
}

QString quoted(QStringView text)
{
    return QChar(0x201C) + shown(text) + QChar(0x201D);
}

QString tag(QStringView name)
{
    return QLatin1Char('<') + shown(name) + QLatin1Char('>');
}

QString counted(int count, const char *noun)
{
    return counted(count, noun, qPrintable(QLatin1String(noun) + QLatin1Char('s')));
}

QString counted(int count, const char *noun, const char *plural)
{
    return QString::number(count) + QLatin1Char(' ') + QLatin1String(count == 1 ? noun : plural);
}

} // namespace Orvida::Checking
