// How every subcommand of orvida-catalog ends.
#pragma once

namespace Orvida::Tools {

enum ExitStatus : int {
    Done = 0,        ///< Everything that was asked for was done.
    AnswerIsNo = 1,  ///< It was done, and the answer is no: findings, differences, an unknown code.
    NotReadable = 2, ///< A file could not be read, loaded or written.
    WrongUsage = 3,  ///< The call itself was wrong.
};

} // namespace Orvida::Tools
