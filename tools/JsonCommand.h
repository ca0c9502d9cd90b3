// orvida-catalog json: prints a catalog for machines.
#pragma once

#include <QString>

namespace Orvida::Tools {

/// What `json` was asked for.
struct JsonOptions
{
    QString fileName;
    bool isCompact = false;
};

/// Runs `json` and gives the exit status of the process.
int json(const JsonOptions &options);

} // namespace Orvida::Tools
