// What the process needs before anything is read or written.
#pragma once

namespace Orvida::Tools {

/// Makes names of files UTF-8 whatever the locale is, and makes sure that no file that is opened later takes
/// the place of a closed standard input, output or error.
void setUpProcess();

} // namespace Orvida::Tools
