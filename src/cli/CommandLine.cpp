#include "cli/CommandLine.h"

#include "cli/AtCommand.h"
#include "cli/CheckCommand.h"
#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/DumpCommand.h"
#include "cli/ImportCommand.h"
#include "cli/InfoCommand.h"
#include "cli/TextTable.h"
#include "cli/TimelineCommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace
{

QList<Subcommand> subcommands()
{
    return {importCommand(), infoCommand(), timelineCommand(), atCommand(), dumpCommand(), checkCommand()};
}

QCommandLineOption helpOption()
{
    return {{QStringLiteral("h"), QStringLiteral("help")}, CliText::tr("Show this help.")};
}

QCommandLineOption versionOption()
{
    return {{QStringLiteral("v"), QStringLiteral("version")}, CliText::tr("Show the version.")};
}

ExitCode print(const QString &text)
{
    return Console::writeResult(text) ? ExitCode::Done : ExitCode::Failed;
}

ExitCode printVersion()
{
    return print(QStringLiteral("plotka %1\n").arg(QCoreApplication::applicationVersion()));
}

QString optionText(const QCommandLineOption &option)
{
    QStringList names;
    const QStringList all = option.names();
    for (const QString &name : all)
        names += (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
    const QString text = names.join(QStringLiteral(", "));
    return option.valueName().isEmpty() ? text : text + u' ' + option.valueName();
}

/// Two columns, indented.
QString listText(const QList<QStringList> &rows)
{
    TextTable table({{}, {}});
    for (const QStringList &row : rows)
        table.addRow(row);
    QString text;
    const QStringList lines = table.lines(Console::outputWidth());
    for (const QString &line : lines)
        text += QStringLiteral("  %1\n").arg(line);
    return text;
}

QString optionsText(const QList<QCommandLineOption> &options)
{
    QList<QStringList> rows;
    for (const QCommandLineOption &option : options)
        rows += {optionText(option), option.description()};
    return CliText::tr("Options:") + u'\n' + listText(rows);
}

ExitCode printHelp()
{
    QList<QStringList> rows;
    const QList<Subcommand> all = subcommands();
    for (const Subcommand &subcommand : all)
        rows += {QStringLiteral("%1 %2").arg(subcommand.name, subcommand.usage), subcommand.summary};
    return print(CliText::tr("Usage: plotka COMMAND ...") + QStringLiteral("\n\n") + CliText::tr("Commands:") + u'\n'
        + listText(rows) + u'\n' + optionsText({helpOption(), versionOption()}) + u'\n'
        + CliText::tr("FILE is a project file, or the folder that holds one.") + u'\n');
}

ExitCode printHelp(const Subcommand &subcommand)
{
    return print(CliText::tr("Usage: plotka %1 %2").arg(subcommand.name, subcommand.usage) + QStringLiteral("\n\n")
        + subcommand.summary + QStringLiteral("\n\n") + optionsText(subcommand.options + QList{helpOption()})
        + (subcommand.remark.isEmpty() ? QString() : u'\n' + subcommand.remark + u'\n'));
}

/// A word that is no subcommand: help, version, or a mistake.
ExitCode runWithoutSubcommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({helpOption(), versionOption()});
    if (!parser.parse(arguments))
        return refuseUsage(parser.errorText());
    if (parser.isSet(helpOption()))
        return printHelp();
    if (parser.isSet(versionOption()))
        return printVersion();
    const QStringList words = parser.positionalArguments();
    return refuseUsage(words.isEmpty() ? CliText::tr("no command is given")
                                       : CliText::tr("there is no command \"%1\"").arg(words.first()));
}

/// What is wrong with arguments that cannot be parsed: of a negative number the parser says that there is no option "5".
QString usageProblem(const Subcommand &subcommand, const QStringList &arguments, const QString &parserText)
{
    const qsizetype afterwards = arguments.indexOf(QStringLiteral("--"));
    for (const QString &argument : arguments.mid(0, afterwards)) {
        if (argument.size() > 1 && argument.startsWith(u'-') && argument[1].isDigit())
            return CliText::tr("%1: \"%2\" is taken for an option because it begins with -; put -- before it")
                .arg(subcommand.name, argument);
    }
    return QStringLiteral("%1: %2").arg(subcommand.name, parserText);
}

ExitCode run(const Subcommand &subcommand, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions(subcommand.options);
    parser.addOption(helpOption());
    if (!parser.parse(arguments))
        return refuseUsage(usageProblem(subcommand, arguments, parser.errorText()));
    if (parser.isSet(helpOption()))
        return printHelp(subcommand);
    const QStringList given = parser.positionalArguments();
    if (given.size() < subcommand.arguments.size())
        return refuseUsage(CliText::tr("%1: %2 is missing").arg(subcommand.name, subcommand.arguments[given.size()]));
    if (given.size() > subcommand.arguments.size() && !subcommand.takesMore)
        return refuseUsage(
            CliText::tr("%1: \"%2\" is too much").arg(subcommand.name, given[subcommand.arguments.size()]));
    return subcommand.run(parser);
}

} // namespace

ExitCode runCommandLine(const QStringList &arguments)
{
    const QList<Subcommand> all = subcommands();
    const QString wanted = arguments.value(1);
    const auto subcommand =
        std::find_if(all.begin(), all.end(), [&wanted](const Subcommand &one) { return one.name == wanted; });
    if (subcommand == all.end())
        return runWithoutSubcommand(arguments);
    return run(*subcommand, arguments.mid(1));
}

ExitCode refuseUsage(const QString &message)
{
    Console::tell(message);
    Console::tell(CliText::tr("see \"plotka --help\""));
    return ExitCode::Usage;
}
