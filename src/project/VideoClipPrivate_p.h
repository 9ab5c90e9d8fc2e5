#pragma once

#include "metadata/PKC_ClipInfo.h"
#include "project/ObjectPrivate_p.h"
#include "project/RecordAccesses_p.h"
#include "scene/project/TUScene.h"
#include "tracking/PKC_Tracking.h"

namespace Plotka
{

class VideoClipPrivate : public ObjectPrivate
{
public:
    VideoClipPrivate() = default;
    /// Gives the scene the records of a clip that it lacks.
    VideoClipPrivate(const TUSeqTimedValue *owningTimedValue, const TUScene *clipScene);

    const AT_FrameBlock &block() const
    {
        if (const AT_FrameBlock *known = knownBlock())
            return *known;
        return remember(scene ? findBlock() : AT_FrameBlock::none());
    }

    const UT_SharedWeakPtr<TUScene> scene{};

    /// Null once the scene has gone.
    template <typename Record>
    Record *record()
    {
        return scene ? m_records.get<Record>(scene->metadatas()) : nullptr;
    }

private:
    // In the order in which they are made.
    RecordAccesses<PKC_Tracking, PKC_ClipInfo> m_records;
};

} // namespace Plotka
