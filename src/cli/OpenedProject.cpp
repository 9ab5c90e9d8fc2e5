#include "cli/OpenedProject.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Progress.h"
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/session/SC_Project.h"

OpenedProject::OpenedProject(const QString &path, Telling telling) :
    m_session(PKC_SessionContext::createSessionContext(nullptr, nullptr))
{
    {
        const Progress progress(CliText::tr("opening %1").arg(path));
        m_session->openProject(path, &m_report);
    }
    if (telling == TellReport || !isOpen())
        tellReport(m_report);
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
