#include "cli/CheckCommand.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/DisplayWidth.h"
#include "cli/OpenedProject.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"
#include "listing/ItemFields.h"
#include "listing/JsonWriter.h"
#include "listing/ProjectCheck.h"
#include "scene/project/SC_Project.h"

#include <QCommandLineParser>

namespace
{

QString jsonText(const QString &file, const ProjectCheck &check)
{
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("schema"), 1);
    json.field(QLatin1String("file"), file);
    json.beginArray(QLatin1String("findings"));
    for (const Finding &finding : check.findings) {
        json.beginObject(JsonWriter::OneLine);
        json.field(QLatin1String("code"), finding.code);
        json.field(QLatin1String("item"), finding.item);
        json.field(QLatin1String("line"), finding.line ? QVariant(finding.line) : QVariant());
        json.field(QLatin1String("message"), finding.message);
        json.endObject();
    }
    json.endArray();
    json.beginArray(QLatin1String("compatibility"));
    for (const CompatibilityIssue &issue : check.compatibility) {
        json.beginObject(JsonWriter::OneLine);
        json.field(QLatin1String("id"), issue.id);
        json.field(QLatin1String("product"), issue.product);
        json.field(QLatin1String("version"), issue.version);
        json.field(QLatin1String("found"), issue.isFound);
        json.field(QLatin1String("recorded"), issue.isRecorded);
        json.field(QLatin1String("message"), issue.message);
        json.endObject();
    }
    json.endArray();
    json.beginArray(QLatin1String("gaps"));
    for (const TimelineItem &gap : check.gaps) {
        json.beginObject(JsonWriter::OneLine);
        for (const auto &field : fieldsOf(gap))
            json.field(field.first, field.second);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

QString findingsText(const std::vector<Finding> &findings)
{
    if (findings.empty())
        return CliText::tr("nothing found") + u'\n';
    // Nothing is cut: what is at the end of a text is what it is about.
    TextTable table({{CliText::tr("finding")}, {CliText::tr("item")}, {CliText::tr("line"), TextTable::Right},
        {CliText::tr("message")}});
    for (const Finding &finding : findings) {
        const QString line = finding.line ? QString::number(finding.line) : QString();
        table.addRow({finding.code, finding.item, line, finding.message});
    }
    return table.lines(Console::outputWidth()).join(u'\n') + u'\n';
}

QString recordedText(const CompatibilityIssue &issue)
{
    if (!issue.isFound)
        return QString();
    return issue.isRecorded ? CliText::tr(" (the file says so)") : CliText::tr(" (the file does not say so)");
}

QString compatibilityText(const std::vector<CompatibilityIssue> &issues)
{
    if (issues.empty())
        return QString();
    QString text = u'\n' + CliText::tr("compatibility with older programs, which is no damage:") + u'\n';
    for (const CompatibilityIssue &issue : issues)
        text += QStringLiteral("  ") + DisplayWidth::printable(issue.message + recordedText(issue)) + u'\n';
    return text;
}

ExitCode runCheck(const QCommandLineParser &parser)
{
    OpenedProject opened(parser.positionalArguments().first(), OpenedProject::KeepReport);
    if (!opened.isOpen())
        return ExitCode::BadInput;
    const QString file = opened.asFiled().projectCommon()->dbSceneData()->filePath();
    ProjectCheck check;
    {
        const Progress progress(CliText::tr("checking %1").arg(file));
        check = checkProject(opened.project(), opened.report());
    }
    const QString text = parser.isSet(QStringLiteral("json"))
        ? jsonText(file, check)
        : findingsText(check.findings) + compatibilityText(check.compatibility);
    if (!Console::writeResult(text))
        return ExitCode::Failed;
    return check.findings.empty() ? ExitCode::Done : ExitCode::SomethingFound;
}

} // namespace

Subcommand checkCommand()
{
    return {QStringLiteral("check"), {QStringLiteral("FILE")}, QStringLiteral("FILE [--json]"),
        CliText::tr("Look for what is wrong with a project."), {{QStringLiteral("json"), CliText::tr("Print JSON.")}},
        runCheck};
}
