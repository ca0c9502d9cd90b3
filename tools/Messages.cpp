#include "tools/Messages.h"

#include "tools/OutputStyle.h"

#include <cstdio>

namespace Orvida::Tools {

namespace {

constexpr int longestQuotation = 60;

void print(const QString &line)
{
    std::fputs((OutputStyle::singleLine(line) + QLatin1Char('\n')).toUtf8().constData(), stderr);
}

void printAt(const QString &file, FilePosition position, const char *level, const QString &text)
{
    QString where = file + QLatin1Char(':');
    if (position.line != 0)
        where += QStringLiteral("%1:%2:").arg(position.line).arg(position.column);
    print(where + QLatin1Char(' ') + QLatin1String(level) + QLatin1String(": ") + text);
}

} // namespace

void printError(const QString &file, FilePosition position, const QString &text)
{
    printAt(file, position, "error", text);
}

void printWarning(const QString &file, FilePosition position, const QString &text)
{
    printAt(file, position, "warning", text);
}

void printRemedy(const QString &text)
{
    print(QStringLiteral("  to fix it: ") + text);
}

void printMessage(const QString &text)
{
    print(QStringLiteral("orvida-catalog: ") + text);
}

QString quoted(const QString &text)
{
    const bool isLong = text.size() > longestQuotation;
    return QStringLiteral("\u201C%1\u201D").arg(isLong ? text.left(longestQuotation) + QChar(0x2026) : text);
}

QString counted(int count, const QString &noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(noun, count == 1 ? QString() : QStringLiteral("s"));
}

} // namespace Orvida::Tools
