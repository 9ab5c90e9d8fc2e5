#pragma once

#include "project/FrameCache_p.h"
#include "project/Panel_t.h"
#include "project/Trans_t.h"

#include <QHash>

class SC_SceneCommon;

namespace Plotka
{

/// Timeline objects of one kind by first frame and by id.
template <typename T>
struct ObjectCache {
    FrameCache<T> byFrame;
    QHash<SC_Id, T> byId;

    void insert(const AT_FrameBlock &block, const T &object)
    {
        byFrame.insert(block.fromFrame(), block.key.frameCount, object);
        byId.insert(object.id(), object);
    }
};

/// All that is remembered about one state of the timeline. It is dropped whole: a new state starts from a
/// fresh TimelineCaches, so no member can be forgotten. With the cache switch off no objects are put in.
struct TimelineCaches {
    ObjectCache<Shot_t> shots;        ///< by project frame
    ObjectCache<Trans_t> transitions; ///< by project frame
    QHash<SC_Id, Panel_t> panels;
    QHash<SC_Id, FrameCache<Panel_t>> panelsOfShot; ///< by frame of the shot's timed value

    QHash<const SC_SceneCommon *, SC_Id> panelOfScene;
    QHash<const SC_SceneCommon *, SC_Id> shotOfScene;

    // 0 means not known: an empty timeline is counted anew each time.
    unsigned int panelCount = 0;
    unsigned int shotCount = 0;
    unsigned int transCount = 0;
};

} // namespace Plotka
