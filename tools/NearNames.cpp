#include "tools/NearNames.h"

#include "tools/ExitStatus.h"
#include "tools/Messages.h"

#include <QPair>
#include <QVector>

#include <algorithm>

namespace Orvida::Tools {

namespace {

constexpr int mostNames = 5;
// Longer names are no typing mistakes of each other, and comparing them takes long.
constexpr int longestName = 100;

// Number of letters to insert, remove or replace to get from `a` to `b`.
int editDistance(const QString &a, const QString &b)
{
    QVector<int> distances(b.size() + 1);
    for (int column = 0; column <= b.size(); ++column)
        distances[column] = column;
    for (int row = 1; row <= a.size(); ++row) {
        int diagonal = distances[0];
        distances[0] = row;
        for (int column = 1; column <= b.size(); ++column) {
            const int replaced = diagonal + (a.at(row - 1) == b.at(column - 1) ? 0 : 1);
            diagonal = distances[column];
            distances[column] = std::min({replaced, diagonal + 1, distances[column - 1] + 1});
        }
    }
    return distances.last();
}

} // namespace

QStringList nearNames(const QString &name, const QStringList &names)
{
    const QString wanted = name.toLower();
    const int farthest = qMax(1, name.size() / 3);
    QVector<QPair<int, QString>> found;
    for (const QString &candidate : names) {
        if (candidate.isEmpty() || qMax(candidate.size(), name.size()) > longestName)
            continue;
        const QString lower = candidate.toLower();
        const int distance = editDistance(wanted, lower);
        if (distance <= farthest)
            found.append({distance, candidate});
        else if (!wanted.isEmpty() && lower.startsWith(wanted))
            found.append({farthest + 1, candidate});
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    QStringList nearest;
    for (const auto &candidate : found.mid(0, mostNames))
        nearest.append(candidate.second);
    return nearest;
}

int reportUnknown(const QString &what, const QString &name, const QStringList &names)
{
    const QStringList near = nearNames(name, names);
    QString text = QStringLiteral("no ") + what.arg(quoted(name));
    if (!near.isEmpty())
        text += QStringLiteral("; did you mean %1?").arg(near.join(QStringLiteral(", ")));
    printMessage(text);
    return AnswerIsNo;
}

} // namespace Orvida::Tools
