#pragma once

#include <QString>

/// Standard output, which carries only the result, and standard error, which carries all messages. Both are UTF-8.
namespace Console
{

/// False when it could not be written.
bool writeResult(const QString &text);

/// One message, on a line of its own: line ends and what else would move the cursor are shown as U+FFFD, since
/// messages quote files that anybody may have written.
void tell(const QString &message);

/// Columns of the terminal that standard output is; 100 when it is none.
int outputWidth();
/// True on a terminal, unless NO_COLOR is set.
bool outputHasColour();
bool errorsAreSeen();

} // namespace Console
