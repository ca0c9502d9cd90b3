// Messages on standard error, all in one form.
#pragma once

#include <QString>

namespace Orvida::Tools {

/// A place in a file, line and column from 1; line 0 is the file as a whole.
struct FilePosition
{
    qint64 line = 0;
    qint64 column = 0;
};

/// "FILE:LINE:COLUMN: error: TEXT" or "... warning: TEXT", made safe for a terminal.
void printError(const QString &file, FilePosition position, const QString &text);
void printWarning(const QString &file, FilePosition position, const QString &text);

/// "  to fix it: TEXT", below the message that it belongs to.
void printRemedy(const QString &text);

/// "orvida-catalog: TEXT": not about a place in a file.
void printMessage(const QString &text);

/// `text` in quotation marks, cut when it is long.
QString quoted(const QString &text);

/// "1 item", "2 items".
QString counted(int count, const QString &noun);

} // namespace Orvida::Tools
