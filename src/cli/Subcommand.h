#pragma once

#include "cli/ExitCode.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

class QCommandLineParser;

/// One thing that the command can do: what it is called, what it takes, and the function that does it.
struct Subcommand {
    QString name;
    /// Names of the arguments, all of which must be there; more are refused unless takesMore.
    QStringList arguments;
    /// Arguments and options as the usage line shows them.
    QString usage;
    QString summary;
    QList<QCommandLineOption> options;
    /// Called with a parser that has parsed, and at least as many positional arguments as there are @c arguments.
    ExitCode (*run)(const QCommandLineParser &parser);
    /// What the help says below the options; may be empty.
    QString remark = {};
    bool takesMore = false;
};
