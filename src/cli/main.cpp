#include "cli/CommandLine.h"
#include "cli/ForeignNames.h"

#include <QCoreApplication>

#include <clocale>
#include <cstring>

#include <langinfo.h>

namespace
{

/// Arguments, file names and output are UTF-8; where the locale says otherwise Qt would say so on standard error at every
/// start.
void useUtf8()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        qputenv("LC_ALL", "C.UTF-8");
}

} // namespace

int main(int argc, char *argv[])
{
    useUtf8();
    ForeignNames names;
    const QStringList arguments = names.decode(argc, argv); // the application takes words of its own out of them
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("plotka"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PLOTKA_VERSION));
    return static_cast<int>(runCommandLine(arguments));
}
