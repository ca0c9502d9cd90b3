// Findings for people, as compilers tell them.
#pragma once

#include "tools/CheckReport.h"
#include "tools/OutputStyle.h"
#include "tools/SourceLines.h"

#include <QTextStream>

#include <array>

namespace Orvida::Tools {

/// Prints a line for each finding with its place first, what there is to say below it, and the sum below
/// those of a file.
class CheckText : public CheckReport
{
public:
    /// With `showsLines`, also the line of the file that a finding is about.
    CheckText(QTextStream &out, const OutputStyle &style, bool showsLines);

    void add(const CheckedFile &file) override;
    void finish() override;

private:
    void print(const QString &name, const CatalogFinding &finding, SourceLines *lines);
    void printLine(const CatalogFinding &finding, SourceLines &lines);
    void printRelated(const QString &name, const CatalogFinding &finding);
    QString colored(CatalogSeverity severity, const QString &text) const;

    QTextStream &m_out;
    const OutputStyle m_style;
    const bool m_showsLines;
    int m_fileCount = 0;
    int m_loadCount = 0;
    std::array<int, 3> m_counts{}; ///< of all files
};

} // namespace Orvida::Tools
