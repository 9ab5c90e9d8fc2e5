// Prints the panels of a project: walk_panels <project file or folder>.
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"

#include <QTextStream>

#include <memory>

int main(int argc, char *argv[])
{
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    if (argc != 2 || !session->openProject(QString::fromLocal8Bit(argv[1])))
        return 1;
    session->createPlotkaProject(session->project());
    const PKC_PlotkaProject *project = session->plotkaProject();
    QTextStream out(stdout);
    for (auto panel = project->beginPanel(); panel != project->endPanel(); ++panel)
        out << panel->shotName() << ": " << panel->firstFrame() << '-' << panel->lastFrame() << '\n';
    out.flush();
    session->releaseProject();
    return 0;
}
