#pragma once

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/session/SC_SessionContext.h"

#include <memory>

/// A session of the scene layer alone, as an application would derive one, with its factories in reach.
class SceneSession : public SC_SessionContext
{
public:
    SceneSession() : SC_SessionContext(nullptr, nullptr) { init(); }

    using SC_SessionContext::init;

    /// A project in memory with a top scene; what making it queued is dropped.
    SC_Project &makeProject()
    {
        SC_Project *made = newProject(QStringLiteral("/nowhere"), QStringLiteral("Film"));
        changeManager()->clear();
        return *made;
    }

    TUScene &top() const { return *static_cast<TUScene *>(project()->sceneAt(0)); }
};
