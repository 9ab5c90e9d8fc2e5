#include "support/PlainTimeline.h"

#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

namespace
{

template <typename Record>
const PKC_ObjectName *customNameIn(const TUScene &scene)
{
    Record *const record = PIO_MetadataAccess<Record>(scene.metadatas(), QString()).get();
    return record && record->name().isCustom() ? &record->name() : nullptr;
}

void describeScene(PlainBlock &plain, const TUScene &scene, const SC_SceneManager &scenes)
{
    plain.sceneLives = true;
    if (const PKC_ObjectName *name = customNameIn<PKC_SceneInfo>(scene))
        plain.shotName = name->value().toStdString();
    if (const PKC_ObjectName *name = customNameIn<PKC_ClipInfo>(scene)) {
        plain.panelName = name->value().toStdString();
        plain.panelNameLocked = name->isLocked();
    }
    if (const TUSeqTimedValue *track = sceneMainTv(&scene)) {
        plain.hasTrack = true;
        plain.track = plainTimelineOf(*track, scenes);
    }
}

} // namespace

PlainTimeline plainTimelineOf(const TUSeqTimedValue &tv, const SC_SceneManager &scenes)
{
    PlainTimeline timeline;
    for (auto block = tv.beginBlock(); block != tv.endBlock(); ++block) {
        PlainBlock plain;
        plain.from = block->key.fromFrame;
        plain.to = block->key.fromFrame + block->key.frameCount - 1;
        plain.isTransition = block->key.isTransition;
        if (block->seq()) {
            plain.id = block->seq()->objectId().value();
            plain.placesScene = block->seq()->sceneSeq() != nullptr;
        }
        if (const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(block->seq())) {
            plain.hasWarp = true;
            plain.warpStart = warp->start;
            plain.warpEnd = warp->end;
        }
        if (const TUScene *scene = sceneOfBlock(&scenes, *block))
            describeScene(plain, *scene, scenes);
        timeline.push_back(std::move(plain));
    }
    return timeline;
}
