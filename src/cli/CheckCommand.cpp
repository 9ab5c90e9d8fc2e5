#include "cli/CheckCommand.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "cli/Progress.h"
#include "cli/TextTable.h"
#include "listing/JsonWriter.h"
#include "listing/ProjectCheck.h"
#include "scene/session/SC_Project.h"

#include <QCommandLineParser>

namespace
{

QString jsonText(const QString &file, const std::vector<Finding> &findings)
{
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("schema"), 1);
    json.field(QLatin1String("file"), file);
    json.beginArray(QLatin1String("findings"));
    for (const Finding &finding : findings) {
        json.beginObject(JsonWriter::OneLine);
        json.field(QLatin1String("code"), finding.code);
        json.field(QLatin1String("item"), finding.item);
        json.field(QLatin1String("line"), finding.line ? QVariant(finding.line) : QVariant());
        json.field(QLatin1String("message"), finding.message);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

QString peopleText(const std::vector<Finding> &findings)
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

ExitCode runCheck(const QCommandLineParser &parser)
{
    OpenedProject opened(parser.positionalArguments().first(), OpenedProject::KeepReport);
    if (!opened.isOpen())
        return ExitCode::BadInput;
    const QString file = opened.asFiled().projectCommon()->dbSceneData()->filePath();
    std::vector<Finding> findings;
    {
        const Progress progress(CliText::tr("checking %1").arg(file));
        findings = checkProject(opened.project(), opened.report());
    }
    const QString text = parser.isSet(QStringLiteral("json")) ? jsonText(file, findings) : peopleText(findings);
    if (!Console::writeResult(text))
        return ExitCode::Failed;
    return findings.empty() ? ExitCode::Done : ExitCode::SomethingFound;
}

} // namespace

Subcommand checkCommand()
{
    return {QStringLiteral("check"), {QStringLiteral("FILE")}, QStringLiteral("FILE [--json]"),
        CliText::tr("Look for what is wrong with a project."), {{QStringLiteral("json"), CliText::tr("Print JSON.")}},
        runCheck};
}
