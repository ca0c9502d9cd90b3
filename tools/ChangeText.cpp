#include "tools/ChangeText.h"

#include <QStringList>

#include <algorithm>

namespace Orvida::Tools {

using Checking::CatalogChange;
using Checking::CatalogChangeClass;
using Checking::CatalogComparison;

namespace {

constexpr CatalogChangeClass classes[] = {CatalogChangeClass::Breaking, CatalogChangeClass::Review,
                                          CatalogChangeClass::Addition, CatalogChangeClass::Wording,
                                          CatalogChangeClass::Hidden};

QString counted(int count, const char *one, const char *several)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : several));
}

QString countOf(CatalogChangeClass changeClass, int count)
{
    switch (changeClass) {
    case CatalogChangeClass::Breaking: return counted(count, "breaking", "breaking");
    case CatalogChangeClass::Review: return counted(count, "to review", "to review");
    case CatalogChangeClass::Addition: return counted(count, "addition", "additions");
    case CatalogChangeClass::Wording: return counted(count, "wording", "wordings");
    case CatalogChangeClass::Hidden: break;
    }
    return counted(count, "hidden", "hidden");
}

// Short enough to stand before a line number.
bool isLabel(const QString &version)
{
    constexpr int longestLabel = 16;
    return !version.isEmpty() && version.size() <= longestLabel && !version.contains(QLatin1Char(' '));
}

} // namespace

QString className(CatalogChangeClass changeClass)
{
    const char *const names[] = {"breaking", "review", "addition", "wording", "hidden"};
    return QLatin1String(names[int(changeClass)]);
}

void printKind(QTextStream &out, const OutputStyle &style, const Checking::CatalogChangeKind &kind)
{
    out << style.title(kind.id) << ": " << className(kind.changeClass) << ": " << kind.summary << "\n\n"
        << kind.explanation << '\n';
}

ChangeText::ChangeText(QTextStream &out, const OutputStyle &style, const CatalogComparison &comparison)
    : m_out(out), m_style(style), m_comparison(comparison)
{
    const QString &oldVersion = comparison.version(CatalogComparison::Old);
    const QString &newVersion = comparison.version(CatalogComparison::New);
    if (isLabel(oldVersion) && isLabel(newVersion) && oldVersion != newVersion) {
        m_oldLabel = oldVersion;
        m_newLabel = newVersion;
    }
}

void ChangeText::print(bool listsAll)
{
    m_out << m_style.title(OutputStyle::singleLine(summary())) << '\n';
    printErrors();
    for (const CatalogChangeClass changeClass : classes) {
        if (changeClass == CatalogChangeClass::Hidden && !listsAll)
            continue;
        QVector<CatalogChange> sure;
        QVector<CatalogChange> unsure;
        for (const CatalogChange &change : m_comparison.changes()) {
            if (change.changeClass == changeClass)
                (change.id == QLatin1String("code-perhaps-renamed") ? unsure : sure).append(change);
        }
        printSection(className(changeClass), sure);
        printSection(className(changeClass) + QStringLiteral(", perhaps renamed"), unsure);
    }
}

QString ChangeText::summary() const
{
    QStringList counts;
    for (const CatalogChangeClass changeClass : classes) {
        const int count = m_comparison.count(changeClass);
        if (count > 0)
            counts << countOf(changeClass, count);
    }
    const bool hasVisible = m_comparison.changes().size() > m_comparison.count(CatalogChangeClass::Hidden);
    if (!hasVisible)
        counts.prepend(QStringLiteral("no change"));
    const QString &oldKey = m_comparison.catalogKey(CatalogComparison::Old);
    const QString &newKey = m_comparison.catalogKey(CatalogComparison::New);
    const QString &oldVersion = m_comparison.version(CatalogComparison::Old);
    const QString &newVersion = m_comparison.version(CatalogComparison::New);
    const auto named = [](const QString &key, const QString &version) {
        const QString name = (key + QLatin1Char(' ') + version).trimmed();
        return name.isEmpty() ? QStringLiteral("catalog") : name;
    };
    QString editions = oldKey == newKey
                           ? named(oldKey, oldVersion)
                           : named(oldKey, oldVersion) + QStringLiteral(" → ") + named(newKey, newVersion);
    if (oldKey == newKey && oldVersion != newVersion)
        editions +=
            QStringLiteral(" → ") + (newVersion.isEmpty() ? QStringLiteral("no version") : newVersion);
    return editions + QStringLiteral(": ") + counts.join(QStringLiteral(", "));
}

void ChangeText::printErrors()
{
    for (const auto edition : {CatalogComparison::Old, CatalogComparison::New}) {
        const int count = m_comparison.errorCount(edition);
        if (count > 0)
            m_out << OutputStyle::singleLine(
                QStringLiteral(
                    "%1 has %2, which `check` tells: what does not load as written is not compared as "
                    "written")
                    .arg(edition == CatalogComparison::Old ? m_oldLabel : m_newLabel,
                         counted(count, "error", "errors")))
                  << '\n';
    }
}

void ChangeText::printSection(const QString &title, const QVector<CatalogChange> &changes)
{
    constexpr int widest = 30;
    if (changes.isEmpty())
        return;
    int width = 0;
    for (const CatalogChange &change : changes) {
        if (change.subject.size() <= widest)
            width = std::max(width, change.subject.size());
    }
    m_out << '\n' << m_style.title(title) << '\n';
    for (const CatalogChange &change : changes)
        m_out << lineOf(change, width) << '\n';
}

QString ChangeText::lineOf(const CatalogChange &change, int width) const
{
    const QString subject = OutputStyle::singleLine(change.subject);
    QString text = change.message + profilesText(change);
    if (!change.list.isEmpty() && change.codeCount > 0)
        text += QStringLiteral("; used by ") + counted(change.codeCount, "code", "codes");
    return QStringLiteral("  ") + m_style.code(subject)
           + QString(std::max(0, width - subject.size()) + 2, QLatin1Char(' '))
           + OutputStyle::singleLine(text) + m_style.line(OutputStyle::singleLine(placeText(change)));
}

QString ChangeText::profilesText(const CatalogChange &change) const
{
    constexpr int mostNamed = 5;
    const int all = m_comparison.profiles(CatalogComparison::New).size();
    const int count = change.profiles.size();
    if (count == 0 || all == 1 || change.id.startsWith(QLatin1String("profile-")))
        return QString();
    if (count == all)
        return QStringLiteral(" (all profiles)");
    if (count <= mostNamed)
        return QStringLiteral(" (%1)").arg(change.profiles.join(QStringLiteral(", ")));
    return QStringLiteral(" (%1 and %2 more)")
        .arg(change.profiles.mid(0, mostNamed - 1).join(QStringLiteral(", ")),
             QString::number(count - mostNamed + 1));
}

// In the new edition, or in the old one when there is nothing left.
QString ChangeText::placeText(const CatalogChange &change) const
{
    if (change.newPlace.line > 0)
        return QStringLiteral(": %1:%2").arg(m_newLabel, QString::number(change.newPlace.line));
    return change.oldPlace.line > 0
               ? QStringLiteral(": %1:%2").arg(m_oldLabel, QString::number(change.oldPlace.line))
               : QString();
}

} // namespace Orvida::Tools
