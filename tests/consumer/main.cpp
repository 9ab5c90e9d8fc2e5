// A stranger's program: it knows the installed headers and nothing else of us.
#include <project/PKC_PlotkaProject.h>
#include <project/PKC_SessionContext.h>

#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    session->createPlotkaProject(session->openProject(QString::fromLocal8Bit(argc > 1 ? argv[1] : ".")));
    const PKC_PlotkaProject *project = session->plotkaProject();
    if (!project)
        return 1;
    for (auto panel = project->first(Plotka::Panel_t()); panel.isValid(); panel = project->next(panel))
        std::printf("panel %s\n", panel.id().AsString().toUtf8().constData());
    session->releaseProject();
    return 0;
}
