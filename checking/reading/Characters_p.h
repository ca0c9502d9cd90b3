// Kinds of characters and words. For the checker's own use.
#pragma once

#include <QChar>
#include <QStringView>

#include <algorithm>

namespace Orvida::Checking {

inline bool isHexDigit(QChar character)
{
    const ushort c = character.unicode();
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

template <typename Text>
bool isHex(const Text &text)
{
    return std::all_of(text.begin(), text.end(), isHexDigit);
}

/// Whether there is nothing but white space in a text, if anything.
inline bool isBlank(QStringView text)
{
    return text.trimmed().isEmpty();
}

/// Calls `visit` with each word of a list that white space, commas or semicolons separate.
template <typename Visit>
void forEachWord(QStringView text, Visit visit)
{
    const auto isSeparator = [](QChar c) {
        return c.isSpace() || c == QLatin1Char(',') || c == QLatin1Char(';');
    };
    const QChar *const end = text.end();
    for (const QChar *start = text.begin(); start != end;) {
        const QChar *const wordStart = std::find_if_not(start, end, isSeparator);
        start = std::find_if(wordStart, end, isSeparator);
        if (wordStart != start)
            visit(QStringView(wordStart, start));
    }
}

} // namespace Orvida::Checking
