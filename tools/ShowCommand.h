// orvida-catalog show: prints a catalog for people.
#pragma once

#include "tools/OutputStyle.h"

#include <QString>

namespace Orvida::Tools {

/// What `show` was asked for.
struct ShowOptions
{
    QString fileName;
    ColorChoice color = ColorChoice::Auto;
};

/// Runs `show` and gives the exit status of the process.
int show(const ShowOptions &options);

} // namespace Orvida::Tools
