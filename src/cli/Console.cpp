#include "cli/Console.h"

#include "cli/CliText.h"
#include "cli/DisplayWidth.h"

#include <cerrno>
#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

constexpr int widthWithoutTerminal = 100;
constexpr int narrowestWidth = 40;

} // namespace

bool Console::writeResult(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return true;
    tell(CliText::tr("cannot write to standard output: %1").arg(qt_error_string(errno)));
    return false;
}

void Console::tell(const QString &message)
{
    const QByteArray bytes = QStringLiteral("plotka: %1\n").arg(DisplayWidth::printable(message)).toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
}

int Console::outputWidth()
{
    winsize size = {};
    if (!isatty(STDOUT_FILENO) || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return widthWithoutTerminal;
    return size.ws_col < narrowestWidth ? narrowestWidth : size.ws_col;
}

bool Console::outputHasColour()
{
    return isatty(STDOUT_FILENO) && qEnvironmentVariableIsEmpty("NO_COLOR");
}

bool Console::errorsAreSeen()
{
    return isatty(STDERR_FILENO);
}
