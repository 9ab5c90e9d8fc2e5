#include "cli/ImportCommand.h"

#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/ImportReport.h"
#include "cli/OpenedProject.h"
#include "cli/OutputFolder.h"
#include "cli/Progress.h"
#include "interchange/otio/OtioProjectImport.h"
#include "project/PKC_SessionContext.h"
#include "scene/session/SC_Project.h"
#include "scene/storage/SC_FileReport.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cmath>
#include <memory>

namespace
{

/// "24", "24000/1001", or in decimals as people write the latter: "23.976", "23.98", "29.97", "59.94".
bool parseRate(const QString &text, UT_FrameRate &rate)
{
    constexpr double slowest = 1.0;
    constexpr double fastest = 1000.0;
    if (rate.parse(text))
        return rate.fps() >= slowest && rate.fps() <= fastest;
    bool isNumber = false;
    const double wanted = text.toDouble(&isNumber);
    if (!isNumber || !(wanted >= slowest && wanted <= fastest))
        return false;
    const auto whole = static_cast<unsigned int>(std::lround(wanted * 1.001));
    if (wanted == std::floor(wanted))
        rate = UT_FrameRate(static_cast<unsigned int>(wanted));
    else
        rate = UT_FrameRate(whole * 1000, 1001);
    constexpr double roundedAway = 0.005;
    return std::abs(rate.fps() - wanted) <= roundedAway;
}

/// What the arguments ask for.
struct Order {
    QString input;
    QString folder;
    QString reportFile; ///< empty: none
    OtioOptions options;
    bool isStrict = false;
    bool isForced = false;
};

/// The report as a file that is there only once it is committed; true without one to write.
bool prepareReport(QSaveFile &file, const Order &order, const QString &text)
{
    if (order.reportFile.isEmpty())
        return true;
    const QByteArray bytes = text.toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    Console::tell(CliText::tr("%1: %2").arg(order.reportFile, file.errorString()));
    return false;
}

bool commitReport(QSaveFile &file, const Order &order)
{
    if (order.reportFile.isEmpty() || file.commit())
        return true;
    Console::tell(CliText::tr("%1: %2").arg(order.reportFile, file.errorString()));
    return false;
}

ExitCode save(PKC_SessionContext &session, const ImportReport &report, const Order &order)
{
    const QString projectFile = session.project()->projectCommon()->dbSceneData()->filePath();
    OutputFolder folder(order.folder);
    if (const QString problem = folder.prepare(); !problem.isEmpty()) {
        Console::tell(problem);
        return ExitCode::Failed;
    }
    // It may lie in the folder, which goes only when it is empty; so what is not committed goes first.
    QSaveFile reportFile(order.reportFile);
    if (!prepareReport(reportFile, order, report.jsonText(projectFile)))
        return ExitCode::Failed;
    SC_FileReport saving;
    bool isSaved = false;
    {
        const Progress progress(CliText::tr("saving %1").arg(projectFile));
        session.createPlotkaProject(session.project()); // gives the panels the records that belong to them
        isSaved = session.saveProject(&saving);
    }
    tellReport(saving);
    if (!isSaved || !Console::writeResult(projectFile + u'\n') || !commitReport(reportFile, order))
        return ExitCode::Failed;
    folder.keep();
    report.tell(ImportNote::Change);
    return ExitCode::Done;
}

void tellError(const QString &input, const OtioError &error)
{
    const QString place = error.line > 0
        ? QStringLiteral("%1:%2:%3").arg(input, QString::number(error.line), QString::number(error.column))
        : input;
    Console::tell(CliText::tr("%1: error: %2").arg(place, error.message));
}

/// True for a report that would take the place of the cut, or that of a project in the output folder.
bool isReportInTheWay(const Order &order)
{
    if (order.reportFile.isEmpty())
        return false;
    const QFileInfo report(order.reportFile);
    if (report == QFileInfo(order.input))
        return true;
    const bool isInFolder = QDir(order.folder).absolutePath() == QDir::cleanPath(report.absolutePath());
    return isInFolder && report.fileName().contains(QStringLiteral(".plotka"));
}

ExitCode import(const Order &order)
{
    if (!order.isForced && OutputFolder(order.folder).isTaken()) {
        Console::tell(CliText::tr("%1 exists; --force overrides").arg(order.folder));
        return ExitCode::OutputExists;
    }
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    OtioProjectImport imported;
    {
        const Progress progress(CliText::tr("importing %1").arg(order.input));
        imported = OtioImport::importFileInto(*session, order.input, order.folder, order.options);
    }
    if (imported.hasError()) {
        tellError(order.input, imported.error);
        return ExitCode::BadInput;
    }
    const ImportReport report(order.input, std::move(imported.notes));
    if (order.isStrict && report.count(ImportNote::Loss) > 0) {
        report.tell(ImportNote::Loss);
        Console::tell(CliText::tr("nothing is written, since something would be lost"));
        return ExitCode::SomethingLost;
    }
    const ExitCode code = save(*session, report, order);
    session->releaseProject();
    return code;
}

ExitCode runImport(const QCommandLineParser &parser)
{
    Order order;
    order.input = parser.positionalArguments().first();
    order.folder = parser.value(QStringLiteral("output"));
    order.reportFile = parser.value(QStringLiteral("report"));
    order.isStrict = parser.isSet(QStringLiteral("strict"));
    order.isForced = parser.isSet(QStringLiteral("force"));
    if (order.folder.isEmpty())
        return refuseUsage(CliText::tr("import: -o DIR is missing"));
    if (parser.isSet(QStringLiteral("report")) && order.reportFile.isEmpty())
        return refuseUsage(CliText::tr("import: --report names no file"));
    if (isReportInTheWay(order))
        return refuseUsage(
            CliText::tr("import: the report would take the place of another file: %1").arg(order.reportFile));
    order.options.hasRate = parser.isSet(QStringLiteral("rate"));
    const QString rate = parser.value(QStringLiteral("rate"));
    if (order.options.hasRate && !parseRate(rate, order.options.rate))
        return refuseUsage(CliText::tr("import: \"%1\" is no frame rate from 1 to 1000").arg(rate));
    return import(order);
}

} // namespace

Subcommand importCommand()
{
    return {QStringLiteral("import"), {QStringLiteral("IN")},
        QStringLiteral("IN -o DIR [--rate R] [--report FILE] [--strict] [--force]"),
        CliText::tr("Make a project of an OpenTimelineIO cut."),
        {{{QStringLiteral("o"), QStringLiteral("output")}, CliText::tr("The folder of the new project."),
             QStringLiteral("DIR")},
            {QStringLiteral("rate"), CliText::tr("Frames per second instead of those of the cut."),
                QStringLiteral("R")},
            {QStringLiteral("report"), CliText::tr("Write the notes to a file, as JSON."), QStringLiteral("FILE")},
            {QStringLiteral("strict"), CliText::tr("Fail when something would be lost.")},
            {QStringLiteral("force"), CliText::tr("Replace a project that is there already.")}},
        runImport};
}
