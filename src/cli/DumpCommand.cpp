#include "cli/DumpCommand.h"

#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "cli/RecordText.h"
#include "listing/RecordHolders.h"
#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/project/TUScene.h"

#include <QCommandLineParser>

#include <algorithm>
#include <set>

namespace
{

/// The records of a holder that are of the type, of all types for an empty one, below its title; empty without any.
QString holderText(const RecordHolder &holder, const QString &type)
{
    QString text;
    for (const PIO_Metadata *record : holder.records->view()) {
        if (type.isEmpty() || record->metaType() == type)
            text += recordText(*record);
    }
    return text.isEmpty() ? text : holder.title + u'\n' + text;
}

/// The types of the records that the holders have, each once and in order.
QStringList typesIn(const std::vector<RecordHolder> &holders)
{
    std::set<QString> types;
    for (const RecordHolder &holder : holders) {
        for (const PIO_Metadata *record : holder.records->view())
            types.insert(record->metaType());
    }
    return QStringList(types.begin(), types.end());
}

/// Written holder by holder, because a large project says more than fits in memory twice.
bool writeAll(const std::vector<RecordHolder> &holders, const QString &type)
{
    return std::all_of(holders.begin(), holders.end(), [&type](const RecordHolder &holder) {
        const QString text = holderText(holder, type);
        return text.isEmpty() || Console::writeResult(text);
    });
}

ExitCode runDump(const QCommandLineParser &parser)
{
    const QString panelText = parser.value(QStringLiteral("panel"));
    SC_Id panelId;
    if (parser.isSet(QStringLiteral("panel")) && (!panelId.parseXml(panelText) || panelId.isNull()))
        return refuseUsage(CliText::tr("dump: \"%1\" is no id").arg(panelText));
    const OpenedProject opened(parser.positionalArguments().first());
    if (!opened.isOpen())
        return ExitCode::BadInput;

    std::vector<RecordHolder> holders = recordHolders(opened.asFiled());
    if (!panelId.isNull()) {
        const auto isOther = [&panelId](const RecordHolder &holder) {
            return !holder.scene || holder.scene->objectId() != panelId;
        };
        holders.erase(std::remove_if(holders.begin(), holders.end(), isOther), holders.end());
        if (holders.empty()) {
            Console::tell(CliText::tr("there is nothing with the id %1").arg(panelText));
            return ExitCode::BadInput;
        }
    }
    const QString type = parser.value(QStringLiteral("record"));
    const QStringList types = typesIn(holders);
    if (parser.isSet(QStringLiteral("record")) && !types.contains(type)) {
        Console::tell(types.isEmpty() ? CliText::tr("there is no record of type \"%1\", nor any other").arg(type)
                                      : CliText::tr("there is no record of type \"%1\"; there are: %2")
                                            .arg(type, types.join(QStringLiteral(", "))));
        return ExitCode::BadInput;
    }
    return writeAll(holders, type) ? ExitCode::Done : ExitCode::Failed;
}

} // namespace

Subcommand dumpCommand()
{
    return {QStringLiteral("dump"), {QStringLiteral("FILE")}, QStringLiteral("FILE [--record TYPE] [--panel ID]"),
        CliText::tr("Print the records that a project holds."),
        {{QStringLiteral("record"), CliText::tr("Only records of this type."), CliText::tr("TYPE")},
            {QStringLiteral("panel"), CliText::tr("Only those of the panel, shot or clip with this id."),
                CliText::tr("ID")}},
        runDump};
}
