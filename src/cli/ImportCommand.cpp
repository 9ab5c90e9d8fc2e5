#include "cli/ImportCommand.h"

#include "cli/CliText.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/ForeignNames.h"
#include "cli/ImportReport.h"
#include "cli/OpenedProject.h"
#include "cli/OutputFolder.h"
#include "cli/Progress.h"
#include "cli/ReportFile.h"
#include "interchange/otio/OtioProjectImport.h"
#include "project/PKC_SessionContext.h"
#include "scene/project/SC_Project.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
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
    QStringList accepted; ///< codes of losses that strictness lets pass
    bool isStrict = false;
    bool isForced = false;
    bool waits = false;
};

/// The codes of losses that nobody accepts, sorted.
QStringList missedCodes(const std::vector<ImportNote> &notes, const Order &order)
{
    QStringList codes;
    for (const ImportNote &note : notes) {
        if (note.severity == ImportNote::Loss && !order.accepted.contains(note.code))
            codes += note.code;
    }
    codes.removeDuplicates();
    codes.sort();
    return codes;
}

/// Last, so that it is not scrolled away: a project that shows nothing is hardly what was wanted.
void warnOfAnEmptyTimeline()
{
    Console::tell(CliText::tr("warning: the timeline has no shot, although the cut has some"));
}

/// The codes in @p text, with commas between; false, and told, when one of them is none of a loss.
bool parseAccepted(const QString &text, QStringList &codes)
{
    const QStringList known = OtioImport::lossCodes();
    codes = text.split(u',');
    for (QString &code : codes) {
        code = code.trimmed();
        if (known.contains(code))
            continue;
        refuseUsage(CliText::tr("import: --accept: nothing can be lost with the code \"%1\"; the codes are %2")
                        .arg(code, known.join(QStringLiteral(", "))));
        return false;
    }
    return true;
}

ExitCode refuseExisting(const QString &folder)
{
    Console::tell(CliText::tr("%1 exists; --force overrides").arg(folder));
    return ExitCode::OutputExists;
}

/// Where the file is or would be, whatever links lead there.
QString placeOf(const QString &path)
{
    const QFileInfo named(path);
    const QFileInfo file(named.isSymLink() ? named.symLinkTarget() : path);
    if (file.exists())
        return file.canonicalFilePath();
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? QDir::cleanPath(file.absoluteFilePath())
                            : QDir::cleanPath(folder + u'/' + file.fileName());
}

/// True for a report that would take the place of the cut, or that of a project in the output folder.
bool isReportInTheWay(const Order &order)
{
    if (order.reportFile.isEmpty())
        return false;
    if (QFileInfo(order.reportFile) == QFileInfo(order.input))
        return true;
    const QFileInfo report(placeOf(order.reportFile));
    return report.path() == placeOf(order.folder) && report.fileName().contains(QStringLiteral(".plotka"));
}

ExitCode refuseReport(const Order &order)
{
    return refuseUsage(
        CliText::tr("import: the report would take the place of another file: %1").arg(order.reportFile));
}

/// Why the folder cannot be written to; Done when it can.
ExitCode takeFolder(OutputFolder &folder, const Order &order)
{
    const auto existing = order.isForced ? OutputFolder::Existing::Replace : OutputFolder::Existing::Refuse;
    const auto wait = order.waits ? SC_FolderLock::Wait::UntilFree : SC_FolderLock::Wait::No;
    const OutputFolder::Access access = folder.prepare(existing, wait);
    if (!folder.warning().isEmpty())
        Console::tell(folder.warning());
    switch (access) {
    case OutputFolder::Access::Given:
        return ExitCode::Done;
    case OutputFolder::Access::Exists:
        return refuseExisting(order.folder);
    case OutputFolder::Access::Busy:
        Console::tell(CliText::tr("another command is writing to %1; --wait waits until it is done").arg(order.folder));
        return ExitCode::OutputExists;
    case OutputFolder::Access::Failed:
        break;
    }
    Console::tell(folder.problem());
    return ExitCode::Failed;
}

/// Writes the project beside what is there. It is the project's own file once it has been swapped in, and told of as that.
bool writeStaged(PKC_SessionContext &session, OutputFolder &folder, const QString &projectFile)
{
    const QString staged = folder.stage(QFileInfo(projectFile).fileName());
    if (staged.isEmpty()) {
        Console::tell(folder.problem());
        return false;
    }
    SC_FileReport saving;
    bool isWritten = false;
    {
        const Progress progress(CliText::tr("saving %1").arg(projectFile));
        session.createPlotkaProject(session.project()); // gives the panels the records that belong to them
        isWritten = SC_ProjectFile::write(*session.project(), staged, saving);
    }
    SC_FileReport told;
    for (SC_FileReport::Entry entry : saving.entries()) {
        entry.file = projectFile;
        told.add(entry);
    }
    tellReport(told);
    return isWritten;
}

ExitCode save(PKC_SessionContext &session, OutputFolder &folder, ReportFile &report, const Order &order)
{
    const QString projectFile = session.project()->projectCommon()->dbSceneData()->filePath();
    if (const ExitCode code = takeFolder(folder, order); code != ExitCode::Done)
        return code;
    if (isReportInTheWay(order)) // links through a folder that has only now been made
        return refuseReport(order);
    const auto toldOf = [](const QString &problem) {
        Console::tell(problem);
        return ExitCode::Failed;
    };
    if (!report.prepare(order.input, projectFile))
        return toldOf(report.problem());
    if (!writeStaged(session, folder, projectFile))
        return ExitCode::Failed;
    if (!folder.swapIn())
        return toldOf(folder.problem());
    if (!Console::writeResult(projectFile + u'\n'))
        return ExitCode::Failed;
    if (!report.commit())
        return toldOf(report.problem());
    folder.keep();
    for (const OutputFolder::Aside &aside : folder.earlierProjects())
        Console::tell(CliText::tr("the earlier project %1 is now %2").arg(aside.name, aside.asideName));
    return ExitCode::Done;
}

void tellError(const QString &input, const OtioError &error)
{
    const QString place = error.line > 0
        ? QStringLiteral("%1:%2:%3").arg(input, QString::number(error.line), QString::number(error.column))
        : input;
    Console::tell(CliText::tr("%1: error: %2").arg(place, error.message));
}

ExitCode import(const Order &order)
{
    // The report may lie in the folder, which goes only when it is empty; so the report goes first.
    OutputFolder folder(order.folder);
    ReportFile reportFile(order.reportFile);
    if (!order.isForced && !order.waits && folder.isTaken())
        return refuseExisting(order.folder);
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    OtioProjectImport imported;
    {
        const Progress progress(CliText::tr("importing %1").arg(order.input));
        OtioOptions options = order.options;
        options.onNote = [&reportFile](const ImportNote &note) { reportFile.add(note); };
        imported = OtioImport::importFileInto(*session, order.input, order.folder, options);
    }
    if (imported.hasError()) {
        tellError(order.input, imported.error);
        return ExitCode::BadInput;
    }
    const auto isEmptied = [](const ImportNote &note) {
        return note.code == QLatin1String("empty-timeline") && note.severity == ImportNote::Loss;
    };
    const auto &notes = imported.notes;
    const bool hasNoShot = std::any_of(notes.begin(), notes.end(), isEmptied);
    const QStringList missed = missedCodes(notes, order);
    const ImportReport report(std::move(imported.notes));
    if (order.isStrict && !missed.isEmpty()) {
        report.tell(ImportNote::Loss, CliText::tr("--report FILE writes them all, without --strict"));
        Console::tell(CliText::tr("nothing is written, since something would be lost; the codes of the losses are %1")
                          .arg(missed.join(QStringLiteral(", "))));
        return ExitCode::SomethingLost;
    }
    const ExitCode code = save(*session, folder, reportFile, order);
    session->releaseProject();
    if (code == ExitCode::Done)
        report.tell(ImportNote::Change, CliText::tr("--report FILE writes them all"));
    if (hasNoShot && code == ExitCode::Done)
        warnOfAnEmptyTimeline();
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
    order.waits = parser.isSet(QStringLiteral("wait"));
    if (order.folder.isEmpty())
        return refuseUsage(CliText::tr("import: -o DIR is missing"));
    if (parser.isSet(QStringLiteral("report")) && order.reportFile.isEmpty())
        return refuseUsage(CliText::tr("import: --report names no file"));
    for (const QString &path : {order.folder, order.reportFile}) {
        if (ForeignNames::isLink(path))
            return refuseUsage(CliText::tr("import: names of what is written are in UTF-8"));
    }
    if (isReportInTheWay(order))
        return refuseReport(order);
    const QStringList accepted = parser.values(QStringLiteral("accept"));
    if (!accepted.isEmpty() && !parseAccepted(accepted.join(u','), order.accepted))
        return ExitCode::Usage;
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
        QStringLiteral("IN -o DIR [--rate R] [--report FILE] [--strict [--accept CODE,...]] [--force] [--wait]"),
        CliText::tr("Make a project of an OpenTimelineIO cut."),
        {{{QStringLiteral("o"), QStringLiteral("output")}, CliText::tr("The folder of the new project."),
             QStringLiteral("DIR")},
            {QStringLiteral("rate"), CliText::tr("Frames per second instead of those of the cut."),
                QStringLiteral("R")},
            {QStringLiteral("report"), CliText::tr("Write all notes to a file or a pipe, as JSON."),
                QStringLiteral("FILE")},
            {QStringLiteral("strict"), CliText::tr("Fail when something would be lost.")},
            {QStringLiteral("accept"),
                CliText::tr("Losses that --strict lets pass, by the codes of their notes; a wrong one lists them."),
                QStringLiteral("CODE,...")},
            {QStringLiteral("force"),
                CliText::tr(
                    "Use a folder that is there. An earlier project in it is kept, \"~\" appended to its name.")},
            {QStringLiteral("wait"), CliText::tr("Wait while another command writes to the folder.")}},
        runImport};
}
