#pragma once

#include "metadata/PKC_ClipInfo.h"
#include "project/ObjectPrivate_p.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/session/TUScene.h"

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

    // In the order in which they are made; the record of tracking comes before.
    PIO_MetadataAccess<PKC_ClipInfo> clipInfo;
};

} // namespace Plotka
