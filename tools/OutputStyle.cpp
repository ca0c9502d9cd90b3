#include "tools/OutputStyle.h"

#include <QByteArray>
#include <QtGlobal>

#include <unistd.h>

namespace Orvida::Tools {

namespace {

bool isColorWanted(ColorChoice choice)
{
    if (choice != ColorChoice::Auto)
        return choice == ColorChoice::Always;
    return isatty(STDOUT_FILENO) && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

bool isLineBreak(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char('\t')
           || c == QChar(QChar::LineSeparator) || c == QChar(QChar::ParagraphSeparator);
}

} // namespace

OutputStyle::OutputStyle(ColorChoice choice) : m_hasColor(isColorWanted(choice)) {}

QString OutputStyle::code(const QString &text) const
{
    return decorated("\x1b[1;36m", text);
}

QString OutputStyle::line(const QString &text) const
{
    return decorated("\x1b[2m", text);
}

QString OutputStyle::title(const QString &text) const
{
    return decorated("\x1b[1m", text);
}

QString OutputStyle::error(const QString &text) const
{
    return decorated("\x1b[1;31m", text);
}

QString OutputStyle::warning(const QString &text) const
{
    return decorated("\x1b[1;35m", text);
}

QString OutputStyle::note(const QString &text) const
{
    return decorated("\x1b[1;36m", text);
}

QString OutputStyle::singleLine(const QString &text)
{
    QString result = text;
    for (QChar &c : result) {
        if (isLineBreak(c))
            c = QLatin1Char(' ');
        else if (steersTerminal(c))
            c = QChar(QChar::ReplacementCharacter);
    }
    return result;
}

bool OutputStyle::steersTerminal(QChar c)
{
    const ushort u = c.unicode();
    return c.category() == QChar::Other_Control || (u >= 0x202A && u <= 0x202E)
           || (u >= 0x2066 && u <= 0x2069);
}

QString OutputStyle::decorated(const char *sequence, const QString &text) const
{
    if (!m_hasColor || text.isEmpty())
        return text;
    return QString::fromLatin1(sequence) + text + QStringLiteral("\x1b[0m");
}

} // namespace Orvida::Tools
