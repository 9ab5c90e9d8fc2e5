#include "cli/OpenedProject.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Progress.h"
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/session/SC_Project.h"
#include "scene/storage/SC_FileReport.h"

OpenedProject::OpenedProject(const QString &path) :
    m_session(PKC_SessionContext::createSessionContext(nullptr, nullptr))
{
    SC_FileReport report;
    {
        const Progress progress(CliText::tr("opening %1").arg(path));
        m_session->openProject(path, &report);
    }
    tellReport(report);
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

const PKC_PlotkaProject &OpenedProject::project()
{
    if (!m_session->plotkaProject())
        m_session->createPlotkaProject(m_session->project());
    return *m_session->plotkaProject();
}

void tellReport(const SC_FileReport &report)
{
    constexpr std::size_t mostTold = 100;
    std::size_t told = 0;
    for (const SC_FileReport::Entry &entry : report.entries()) {
        if (++told > mostTold) {
            Console::tell(CliText::tr("%n more", nullptr, static_cast<int>(report.entries().size() - mostTold)));
            return;
        }
        Console::tell(entry.text());
    }
}
