#include "cli/OpenedProject.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Progress.h"
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/project/SC_Project.h"

namespace
{

QString valuesText(qint64 count)
{
    return count == 1
        ? CliText::tr("1 value in the file could not be read and has its default; \"plotka check\" tells which")
        : CliText::tr("%1 values in the file could not be read and have their defaults; \"plotka check\" tells which")
              .arg(count);
}

} // namespace

OpenedProject::OpenedProject(const QString &path, Telling telling) :
    m_session(PKC_SessionContext::createSessionContext(nullptr, nullptr))
{
    {
        const Progress progress(CliText::tr("opening %1").arg(path));
        m_session->openProject(path, &m_report);
    }
    if (telling == TellReport || !isOpen())
        tellReport(m_report);
    const qint64 defaults = SC_FileReport::countOf(m_report.remarks());
    if (telling == TellReport && isOpen() && defaults > 0)
        Console::tell(valuesText(defaults));
}

OpenedProject::~OpenedProject()
{
    m_session->releaseProject();
}

bool OpenedProject::isOpen() const
{
    return m_session->project() != nullptr;
}

const SC_Project &OpenedProject::asFiled() const
{
    return *m_session->project();
}

PKC_PlotkaProject &OpenedProject::project()
{
    if (!m_session->plotkaProject())
        m_session->createPlotkaProject(m_session->project());
    return *m_session->plotkaProject();
}

void tellReport(const SC_FileReport &report)
{
    constexpr int mostTold = 100;
    int told = 0;
    for (const SC_FileReport::Entry &entry : report.entries()) {
        if (told == mostTold) {
            Console::tell(CliText::tr("and %1 more").arg(SC_FileReport::countOf(report.entries()) - told));
            return;
        }
        Console::tell(entry.text());
        ++told;
    }
}
