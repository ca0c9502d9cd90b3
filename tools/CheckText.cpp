#include "tools/CheckText.h"

#include "tools/Messages.h"
#include "tools/RuleText.h"

#include <QStringList>

#include <limits>
#include <optional>

namespace Orvida::Tools {

using Checking::CatalogRelated;

namespace {

constexpr CatalogSeverity severities[] = {CatalogSeverity::Error, CatalogSeverity::Warning,
                                          CatalogSeverity::Note};

// "2 errors, 1 note"
QString sumOf(const std::array<int, 3> &counts)
{
    QStringList parts;
    for (const CatalogSeverity severity : severities) {
        if (const int count = counts[std::size_t(severity)])
            parts << counted(count, severityName(severity));
    }
    return parts.isEmpty() ? QStringLiteral("no findings") : parts.join(QStringLiteral(", "));
}

QString fateOf(const CheckedFile &file)
{
    if (!file.isRead())
        return QStringLiteral("the file could not be read");
    if (!file.loads())
        return QStringLiteral("the catalog does not load");
    return file.isReadable() ? QStringLiteral("the catalog loads once it is scrambled")
                             : QStringLiteral("the catalog loads");
}

QString placeOf(const QString &name, qint64 line, qint64 column)
{
    return QStringLiteral("%1:%2:%3:").arg(name, QString::number(line), QString::number(column));
}

} // namespace

CheckText::CheckText(QTextStream &out, const OutputStyle &style, bool showsLines)
    : m_out(out), m_style(style), m_showsLines(showsLines)
{
}

void CheckText::add(const CheckedFile &file)
{
    const QString name = OutputStyle::singleLine(file.name());
    std::optional<SourceLines> lines;
    if (m_showsLines && file.isRead())
        lines.emplace(file.path());
    for (const CatalogFinding &finding : file.findings())
        print(name, finding, lines ? &*lines : nullptr);
    std::array<int, 3> counts{};
    for (const CatalogSeverity severity : severities) {
        counts[std::size_t(severity)] = file.count(severity);
        m_counts[std::size_t(severity)] += file.count(severity);
    }
    ++m_fileCount;
    m_loadCount += file.loads() ? 1 : 0;
    m_out << m_style.title(name + QLatin1Char(':')) << ' ' << sumOf(counts) << "; " << fateOf(file) << '\n';
    if (file.unlistedCount() > 0)
        m_out << "  " << file.unlistedCount() << " of them are not listed; --all lists them\n";
    m_out.flush();
}

void CheckText::finish()
{
    if (m_fileCount < 2)
        return;
    const int failures = m_fileCount - m_loadCount;
    m_out << m_style.title(counted(m_fileCount, QStringLiteral("file")) + QLatin1Char(':')) << ' '
          << sumOf(m_counts) << "; "
          << (failures == 0 ? QStringLiteral("all of them load")
                            : QStringLiteral("%1 of them %2 not load")
                                  .arg(failures)
                                  .arg(failures == 1 ? QStringLiteral("does") : QStringLiteral("do")))
          << '\n';
}

void CheckText::print(const QString &name, const CatalogFinding &finding, SourceLines *lines)
{
    m_out << m_style.title(placeOf(name, finding.line, finding.column)) << ' '
          << colored(finding.severity, severityName(finding.severity) + QLatin1Char(':')) << ' '
          << OutputStyle::singleLine(finding.message) << " [" << colored(finding.severity, finding.rule)
          << "]\n";
    if (lines)
        printLine(finding, *lines);
    if (!finding.hint.isEmpty())
        m_out << "  to fix it: " << OutputStyle::singleLine(finding.hint) << '\n';
    printRelated(name, finding);
}

void CheckText::printLine(const CatalogFinding &finding, SourceLines &lines)
{
    const bool isAboutTheFile = finding.line == 1 && finding.column == 1;
    if (isAboutTheFile)
        return;
    const qint64 endColumn =
        finding.endLine == finding.line ? finding.endColumn : std::numeric_limits<int>::max();
    const auto excerpt = lines.excerpt(finding.line, finding.column, endColumn);
    if (!excerpt || excerpt->text.trimmed().isEmpty())
        return;
    const QString number = QString::number(finding.line).rightJustified(5);
    const QString mark = QLatin1Char('^') + QString(excerpt->length - 1, QLatin1Char('~'));
    m_out << number << " | " << excerpt->text << '\n'
          << QString(number.size(), QLatin1Char(' ')) << " | " << QString(excerpt->start, QLatin1Char(' '))
          << colored(finding.severity, mark) << '\n';
}

void CheckText::printRelated(const QString &name, const CatalogFinding &finding)
{
    for (const CatalogRelated &related : finding.related)
        m_out << "  " << placeOf(name, related.line, related.column) << ' '
              << OutputStyle::singleLine(related.message) << '\n';
    if (finding.count > 1)
        m_out << "  " << finding.count << " times in all\n";
    if (finding.affected > 0)
        m_out << "  affects " << counted(finding.affected, QStringLiteral("further record")) << '\n';
}

QString CheckText::colored(CatalogSeverity severity, const QString &text) const
{
    switch (severity) {
    case CatalogSeverity::Error: return m_style.error(text);
    case CatalogSeverity::Warning: return m_style.warning(text);
    case CatalogSeverity::Note: break;
    }
    return m_style.note(text);
}

} // namespace Orvida::Tools
