#include "tools/page/PrintHeads.h"

#include "tools/OutputStyle.h"

namespace Orvida::Tools {

namespace {

// More does not fit into a margin.
constexpr int longestHead = 70;

// Each takes the browser time whenever it opens the page. No catalog has as many classes.
constexpr int mostHeads = 1000;

bool isPlain(uint c)
{
    return c == ' ' || (c < 0x80 && QChar(c).isLetterOrNumber());
}

// A string of a style sheet. All but letters and digits is written as a number, so that no text ends it.
QByteArray styleString(const QString &text)
{
    const QString shown = OutputStyle::singleLine(text);
    const bool isLong = shown.size() > longestHead;
    QByteArray string = "\"";
    for (const uint c : (isLong ? shown.left(longestHead) + QChar(0x2026) : shown).toUcs4())
        string += isPlain(c) ? QByteArray(1, static_cast<char>(c)) : '\\' + QByteArray::number(c, 16) + ' ';
    return string + '"';
}

QString headOf(const PageSource &source, int index)
{
    const Catalogs::CatalogItem &item = *source.items.at(index);
    if (index >= source.itemsInTree)
        return QStringLiteral("Outside the tree");
    const QString head = (item.code() + QLatin1Char(' ') + item.caption()).trimmed();
    return head.isEmpty() ? item.id() : head;
}

} // namespace

bool beginsSection(const PageSource &source, int index)
{
    const bool isTopLevel = source.items.at(index)->parentId().isEmpty() && index < source.itemsInTree;
    return index == 0 || isTopLevel || index == source.itemsInTree;
}

QByteArray printHeads(const PageSource &source, const QString &edition)
{
    QByteArray rules = "@page { @top-right { content: " + styleString(edition) + "; } }\n";
    int number = 0;
    for (int i = 0; i < source.items.size() && number < mostHeads; ++i) {
        if (!beginsSection(source, i))
            continue;
        const QByteArray name = 's' + QByteArray::number(++number);
        rules += "@page " + name + " { @top-left { content: " + styleString(headOf(source, i)) + "; } }\n."
                 + name + " { page: " + name + "; }\n";
    }
    return rules;
}

} // namespace Orvida::Tools
