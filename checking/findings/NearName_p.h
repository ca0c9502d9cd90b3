// Finds the name that may have been intended. For the checker's own use.
#pragma once

#include <QString>
#include <QStringView>

namespace Orvida::Checking {

/// The nearest of several names to one that is unknown: the same but for letter case, spaces, hyphens and
/// underscores; otherwise one that differs in at most two letters, and in at most a third of them. Of equally
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
