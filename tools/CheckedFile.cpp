#include "tools/CheckedFile.h"

#include "tools/ProgressLine.h"

#include <QFileInfo>

#include <algorithm>

namespace Orvida::Tools {

using Catalogs::CatalogReadFailure;
using Checking::CatalogChecker;

namespace {

// A check may read a file several times. Of a large one, a copy would be a waste.
bool canBeReadAgain(const QString &fileName)
{
    const QFileInfo place(fileName);
    return fileName != QLatin1String("-") && (place.isFile() || place.isDir() || !place.exists());
}

} // namespace

CheckedFile::CheckedFile(const QString &fileName, const Options &options)
    : m_name(fileName), m_path(fileName), m_isReadable(options.isReadable)
{
    if (!canBeReadAgain(fileName)) {
        m_copy = std::make_unique<InputFile>(fileName);
        m_name = m_copy->name();
        m_path = m_copy->path();
        if (!m_copy->read()) {
            addUnread(m_copy->failure());
            return;
        }
    }
    check(options);
    if (options.areWarningsErrors)
        takeWarningsForErrors();
    leaveOutMilderThan(options.least);
}

void CheckedFile::check(const Options &options)
{
    CatalogChecker checker;
    checker.setForm(m_isReadable ? CatalogChecker::Form::Readable : CatalogChecker::Form::Scrambled);
    if (options.listsAll)
        checker.setFindingsPerRule(0);
    for (auto level = options.levels.cbegin(); level != options.levels.cend(); ++level)
        checker.setLevel(level.key(), level.value());
    ProgressLine progress(m_name);
    checker.setProgress([&progress](qint64 bytesRead, qint64 size) { progress.show(bytesRead, size); });
    m_loads = checker.check(m_path);
    m_isRead = checker.failure().reason != CatalogReadFailure::FileNotRead;
    m_findings = checker.findings();
    for (const CatalogSeverity severity :
         {CatalogSeverity::Error, CatalogSeverity::Warning, CatalogSeverity::Note})
        m_counts[std::size_t(severity)] = checker.count(severity);
}

// As the checker tells it of a file that it cannot read itself.
void CheckedFile::addUnread(const FileFailure &failure)
{
    CatalogFinding finding;
    finding.rule = QStringLiteral("file-not-read");
    finding.message = failure.problem;
    finding.hint = failure.remedy;
    m_findings.append(finding);
    ++m_counts[std::size_t(finding.severity)];
}

void CheckedFile::takeWarningsForErrors()
{
    int &warnings = m_counts[std::size_t(CatalogSeverity::Warning)];
    m_counts[std::size_t(CatalogSeverity::Error)] += warnings;
    warnings = 0;
    for (CatalogFinding &finding : m_findings) {
        if (finding.severity == CatalogSeverity::Warning)
            finding.severity = CatalogSeverity::Error;
    }
}

void CheckedFile::leaveOutMilderThan(CatalogSeverity least)
{
    const auto milder = [least](const CatalogFinding &finding) { return finding.severity > least; };
    m_findings.erase(std::remove_if(m_findings.begin(), m_findings.end(), milder), m_findings.end());
    int wanted = 0;
    for (int severity = 0; severity <= int(least); ++severity)
        wanted += m_counts[std::size_t(severity)];
    m_unlistedCount = wanted - m_findings.size();
}

} // namespace Orvida::Tools
