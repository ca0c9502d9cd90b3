// How far a long task is, for people who wait at a terminal.
#pragma once

#include <QElapsedTimer>
#include <QString>

namespace Orvida::Tools {

/// A line on standard error that is there only while a task takes more than a second; none when standard
/// error is no terminal.
class ProgressLine
{
public:
    /// Begins to count the time of a task on `what`.
    explicit ProgressLine(const QString &what);
    /// Removes the line.
    ~ProgressLine();
    Q_DISABLE_COPY(ProgressLine)

    /// Shows that `done` of `all` is done. May be called as often as you like.
    void show(qint64 done, qint64 all);

private:
    const QString m_what;
    const bool m_isTerminal;
    bool m_isShown = false;
    qint64 m_nextTime = 1000; ///< milliseconds from the start
    QElapsedTimer m_timer;
};

} // namespace Orvida::Tools
