#include "scene/session/SC_ProjectManager.h"

#include <algorithm>
#include <utility>

void SC_ProjectManager::add(SC_Project *project)
{
    if (project)
        m_projects.emplace_back(project);
}

void SC_ProjectManager::remove(SC_Project *project)
{
    const auto place = std::find_if(m_projects.begin(), m_projects.end(),
        [project](const UT_SharedPtr<SC_Project> &held) { return held.get() == project; });
    if (place == m_projects.end())
        return;
    const UT_SharedPtr<SC_Project> dropped = *place; // may die when the list is whole again
    m_projects.erase(place);
}

void SC_ProjectManager::clean()
{
    const std::vector<UT_SharedPtr<SC_Project>> dropped = std::exchange(m_projects, {});
}
