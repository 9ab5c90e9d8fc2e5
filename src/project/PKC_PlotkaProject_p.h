#pragma once

// Private to the PKC_PlotkaProject*.cpp files.

#include "project/PKC_PlotkaProject.h"
#include "project/TimelineCaches_p.h"
#include "scene/base/UT_SharedPtr.h"
#include "scene/session/SC_Project.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <QMutex>

#include <set>

struct PKC_PlotkaProject::Private {
    explicit Private(SC_Project *ownedProject) : project(ownedProject) {}

    TUScene *topScene() const;
    TUScene *sceneOf(const AT_FrameBlock &block) const;

    /// The shot that the block of the timeline places, remembered or made. A shot whose scene has gone is a handle
    /// with the null id, and is not remembered.
    Plotka::Shot_t shotOf(const AT_FrameBlock &block, const TUSeqTimedValue *timeline);
    Plotka::Shot_t makeShot(const AT_FrameBlock &block, const TUSeqTimedValue *timeline, const TUScene *scene);
    Plotka::Trans_t transitionOf(const AT_FrameBlock &block, const TUSeqTimedValue *timeline);

    const UT_SharedPtr<SC_Project> project;
    UT_SharedWeakPtr<TUSeqTimedValue> topMainTv; // kept when the caches are dropped
    bool cacheOn = true;
    Plotka::TimelineCaches caches;
    std::set<SC_Id> savedPanelIds;
    QMutex mutex; // taken by LockHelper alone
    bool locked = false;
};
