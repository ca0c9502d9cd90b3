#include "tools/XmlText.h"

#include "tools/OutputStyle.h"

#include <algorithm>

namespace Orvida::Tools {

namespace {

// Written as a reference: line breaks, which would move all lines after them, and what would not be seen.
bool needsReference(QChar c)
{
    return c == QChar(QChar::ByteOrderMark) || (c != QLatin1Char('\t') && OutputStyle::steersTerminal(c));
}

QString escaped(uint codePoint)
{
    switch (codePoint) {
    case '&': return QStringLiteral("&amp;");
    case '<': return QStringLiteral("&lt;");
    case '>': return QStringLiteral("&gt;");
    default: return QStringLiteral("&#x%1;").arg(QString::number(codePoint, 16).toUpper());
    }
}

} // namespace

bool canBeInXml(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        const ushort u = c.unicode();
        return (u >= 0x20 && u < 0xFFFE) || u == '\t' || u == '\n' || u == '\r';
    });
}

QString xmlText(const QString &text, const TextRewriter &document)
{
    QString xml;
    for (const uint codePoint : text.toUcs4()) {
        const QString character = QString::fromUcs4(&codePoint, 1);
        const bool isMarkup = codePoint == '&' || codePoint == '<' || codePoint == '>';
        const bool isAscii = codePoint < 0x80;
        if (isMarkup || needsReference(character.at(0)) || !(isAscii || document.canEncode(character)))
            xml += escaped(codePoint);
        else
            xml += character;
    }
    return xml;
}

bool fitsIntoCData(const QString &text, const TextRewriter &document)
{
    return !text.contains(QLatin1String("]]>")) && !std::any_of(text.cbegin(), text.cend(), needsReference)
           && document.canEncode(text);
}

} // namespace Orvida::Tools
