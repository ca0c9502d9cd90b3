// Findings in SARIF, the form that code-scanning services take.
#pragma once

#include "tools/CheckReport.h"
#include "tools/CommandOutput.h"

#include <QJsonArray>

namespace Orvida::Tools {

/// Writes a log of version 2.1.0 with one run, all rules and the findings of all files.
class CheckSarif : public CheckReport
{
public:
    explicit CheckSarif(CommandOutput &output) : m_output(output) {}

    void add(const CheckedFile &file) override;
    void finish() override;

private:
    CommandOutput &m_output;
    QJsonArray m_results;
    bool m_isAllRead = true;
};

} // namespace Orvida::Tools
