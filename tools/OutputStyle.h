// How the tool's text looks: colours, and texts of a catalog made safe for one line of a terminal.
#pragma once

#include <QString>

namespace Orvida::Tools {

/// When to write in colour.
enum class ColorChoice {
    Auto, ///< On a terminal, unless NO_COLOR is set or the terminal is a dumb one.
    Always,
    Never,
};

/// Decorates texts for a terminal; leaves them alone when colour is off.
class OutputStyle
{
public:
    /// Decides by `choice` and, for `Auto`, by standard output and the environment.
    explicit OutputStyle(ColorChoice choice);

    QString code(const QString &text) const;
    QString line(const QString &text) const;
    QString title(const QString &text) const;
    QString error(const QString &text) const;
    QString warning(const QString &text) const;
    QString note(const QString &text) const;

    /// `text` on one line: line breaks become spaces, all else that steers a terminal becomes U+FFFD, so that
    /// a catalog can neither break the layout nor steer the terminal.
    static QString singleLine(const QString &text);

    /// Whether `c` is a control character, or an invisible one that turns the direction of the text after it.
    static bool steersTerminal(QChar c);

private:
    QString decorated(const char *sequence, const QString &text) const;

    bool m_hasColor = false;
};

} // namespace Orvida::Tools
