#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_SharedPtr.h"
#include "scene/project/SC_Project.h"

#include <vector>

/// The projects that a session holds open. Each is held by one reference.
class PLOTKA_SCENE_EXPORT SC_ProjectManager
{
public:
    const std::vector<UT_SharedPtr<SC_Project>> &projects() const { return m_projects; }
    void add(SC_Project *project);
    void remove(SC_Project *project);
    /// Lets go of all of them.
    void clean();

private:
    std::vector<UT_SharedPtr<SC_Project>> m_projects;
};
