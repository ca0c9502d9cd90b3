// Finds the name that somebody may have meant. For the checker's own use.
#pragma once

#include <QString>
#include <QStringView>

namespace Orvida::Checking {

/// The nearest of several names to one that is unknown: the same but for letter case, blanks, hyphens and
/// underscores; otherwise one that at most two letters, and at most a third of them, tell from it. Of equally
/// near ones, the first.
class NearName
{
public:
    explicit NearName(QStringView wanted);

    void offer(QStringView name);

    /// Empty when none was near.
    const QString &nearest() const { return m_nearest; }

private:
    const QStringView m_wanted;
    QString m_nearest;
    /// Names must be nearer than this.
    int m_distance;
};

} // namespace Orvida::Checking
