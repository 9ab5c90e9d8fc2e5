#pragma once

#include "metadata/PKC_SceneInfo.h"
#include "project/ObjectPrivate_p.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/project/TUScene.h"

namespace Plotka
{

class ShotPrivate : public ObjectPrivate
{
public:
    ShotPrivate() = default;
    ShotPrivate(const TUSeqTimedValue *owningTimedValue, const TUScene *shotScene, const ObjectNameHelper *helper);

    /// Where the shot stands now; the invalid block once its scene has gone.
    const AT_FrameBlock &block() const
    {
        if (const AT_FrameBlock *known = knownBlock())
            return *known;
        return remember(scene ? findBlock() : AT_FrameBlock::none());
    }

    const UT_SharedWeakPtr<TUScene> scene{};
    const NameHelperRef nameHelper{};
    PIO_MetadataAccess<PKC_SceneInfo> sceneInfo; ///< empty until first asked for
};

} // namespace Plotka
