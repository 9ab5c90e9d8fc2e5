#pragma once

// Private to the PKC_PlotkaProject*.cpp files.

#include "metadata/PKC_DeletedPanels.h"
#include "metadata/PKC_ProjectLinkInfo.h"
#include "metadata/PKC_ReferenceToolData.h"
#include "project/ForgottenCaches_p.h"
#include "project/PKC_PlotkaProject.h"
#include "project/RecordAccesses_p.h"
#include "project/TimelineCaches_p.h"
#include "scene/base/UT_SharedPtr.h"
#include "scene/project/SC_Project.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <QMutex>

#include <atomic>
#include <set>
#include <utility>

struct PKC_PlotkaProject::Private {
    explicit Private(SC_Project *ownedProject) : project(ownedProject)
    {
        projectRecords.complete(container(), Plotka::ProjectRecordsKind);
    }

    /// Null without a project.
    PIO_Metadatas *container() const { return project ? project->metadatas() : nullptr; }
    template <typename Record>
    Record *record()
    {
        return project ? projectRecords.get<Record>(container()) : nullptr;
    }

    /// A new state of the timeline, of which nothing is known.
    void forget() { forgotten.take(std::exchange(caches, Plotka::TimelineCaches())); }

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
    Plotka::ForgottenCaches<Plotka::TimelineCaches> forgotten;
    std::set<SC_Id> savedPanelIds;
    QMutex mutex;                     // taken by LockHelper alone
    std::atomic<bool> locked = false; // read without the mutex, by any thread

    // In the order in which they are made.
    Plotka::RecordAccesses<PKC_ReferenceToolData, PKC_DeletedPanels, PKC_ProjectLinkInfo> projectRecords;
};
