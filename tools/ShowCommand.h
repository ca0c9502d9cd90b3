// orvida-catalog show: prints a catalog for people.
#pragma once

#include "tools/OutputStyle.h"

#include <QString>

namespace Orvida::Tools {

/// What `show` was asked for.
struct ShowOptions
{
    QString fileName;
    QString code;    ///< Print this code as a form; not asked for when `hasCode` is false.
    QString profile; ///< Look at this profile; not asked for when `hasProfile` is false.
    bool hasCode = false;
    bool hasProfile = false;
    bool showsFields = false;
    bool showsLog = false;
    ColorChoice color = ColorChoice::Auto;
};

/// Runs `show` and gives the exit status of the process.
int show(const ShowOptions &options);

} // namespace Orvida::Tools
