// The options of the commands that change a file: what is read, and where the result goes.
#pragma once

#include "tools/OutputFile.h"

#include <QString>

#include <optional>

namespace CLI {
class App;
}

namespace Orvida::Tools {

/// FILE, --output and --in-place.
class RewriteOptions
{
public:
    /// Adds the options; the object must live until the command line is parsed.
    void addTo(CLI::App &command);

    /// The file that is changed; "-" is standard input.
    const QString &fileName() const { return m_fileName; }
    bool isInPlace() const { return m_isInPlace; }
    OutputFile output() const;

    /// Whether the result can go where it is to go; says why not on standard error.
    [[nodiscard]] bool areUsable() const;

private:
    QString usageError() const;

    QString m_fileName;
    std::optional<QString> m_output;
    bool m_isInPlace = false;
};

} // namespace Orvida::Tools
