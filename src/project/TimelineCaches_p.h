#pragma once

#include "project/FrameCache_p.h"
#include "project/PanelPrivate_p.h"
#include "project/ShotPrivate_p.h"
#include "project/TransPrivate_p.h"
#include "scene/base/UT_IdTable.h"

#include <QHash>

class SC_SceneCommon;

namespace Plotka
{

/// Timeline objects of one kind by first frame, which holds them, and by id.
template <typename Object>
struct ObjectCache {
    FrameCache<Object> byFrame;
    UT_IdTable<Object *> byId;

    void insert(const AT_FrameBlock &block, const UT_SharedPtr<Object> &object)
    {
        byFrame.insert(block.fromFrame(), block.key.frameCount, object);
        if (!object->id.isNull())
            byId[object->id] = object.get();
    }

    Object *find(const SC_Id &id)
    {
        Object *const *known = byId.find(id);
        return known ? *known : nullptr;
    }
};

/// All that is remembered about one state of the timeline. It is dropped whole: a new state starts from a
/// fresh TimelineCaches, so no member can be forgotten. With the cache switch off no objects are put in.
struct TimelineCaches {
    ObjectCache<ShotPrivate> shots;        ///< by project frame
    ObjectCache<TransPrivate> transitions; ///< by project frame
    /// By id of the shot and then by frame of the shot's timed value; holds the panels.
    UT_IdTable<FrameCache<PanelPrivate>> panelsOfShot;
    UT_IdTable<PanelPrivate *> panels;

    QHash<const SC_SceneCommon *, SC_Id> panelOfScene;
    QHash<const SC_SceneCommon *, SC_Id> shotOfScene;

    // 0 means not known: an empty timeline is counted anew each time.
    unsigned int panelCount = 0;
    unsigned int shotCount = 0;
    unsigned int transCount = 0;
};

} // namespace Plotka
