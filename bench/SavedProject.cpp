#include "SavedProject.h"

#include "BigProject.h"
#include "FilledPanels.h"

#include <cstdlib>
#include <map>

namespace
{

using SavedProjects = std::map<unsigned int, std::unique_ptr<SavedProject>>;

} // namespace

SavedProject::SavedProject(unsigned int panels, bool isFilled) : m_panels(panels)
{
    BigProject big(panels);
    if (isFilled)
        fillRecords(big);
    if (!m_folder.isValid() || !big.session().saveProjectAs(path()))
        std::abort();
}

const SavedProject &SavedProject::ofSize(unsigned int panels)
{
    static SavedProjects made;
    std::unique_ptr<SavedProject> &saved = made[panels];
    if (!saved)
        saved.reset(new SavedProject(panels, /*isFilled*/ false));
    return *saved;
}

const SavedProject &SavedProject::filled(unsigned int panels)
{
    static SavedProjects made;
    std::unique_ptr<SavedProject> &saved = made[panels];
    if (!saved)
        saved.reset(new SavedProject(panels, /*isFilled*/ true));
    return *saved;
}

std::unique_ptr<PKC_SessionContext> SavedProject::opened() const
{
    std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    session->createPlotkaProject(session->openProject(path()));
    if (!session->plotkaProject() || session->plotkaProject()->panelCount() != m_panels)
        std::abort();
    return session;
}
