#pragma once

#include "cli/ExitCode.h"

#include <QStringList>

/// Runs the subcommand that the arguments name. The first of them is the program.
ExitCode runCommandLine(const QStringList &arguments);

/// Tells what is wrong with the arguments, and how to learn about the right ones.
ExitCode refuseUsage(const QString &message);
