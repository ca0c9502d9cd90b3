// Findings as JSON, for programs.
#pragma once

#include "tools/CheckReport.h"
#include "tools/CommandOutput.h"

#include <QJsonArray>

namespace Orvida::Tools {

/// Writes one object with all files and their findings: the same bytes for every run.
class CheckJson : public CheckReport
{
public:
    explicit CheckJson(CommandOutput &output) : m_output(output) {}

    void add(const CheckedFile &file) override;
    void finish() override;

private:
    CommandOutput &m_output;
    QJsonArray m_files;
};

} // namespace Orvida::Tools
