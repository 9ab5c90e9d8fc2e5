#pragma once

#include "metadata/PKC_ClipInfo.h"
#include "project/ObjectPrivate_p.h"
#include "project/ShotPrivate_p.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/session/TUScene.h"

namespace Plotka
{

class PanelPrivate : public ObjectPrivate
{
public:
    PanelPrivate() = default;
    /// Gives the scene the records of a panel that it lacks.
    PanelPrivate(const TUSeqTimedValue *owningTimedValue, const TUScene *panelScene, const Shot_t &owningShot,
        const ObjectNameHelper *helper);

    const AT_FrameBlock &block() const
    {
        if (const AT_FrameBlock *known = knownBlock())
            return *known;
        return remember(scene ? findBlock() : AT_FrameBlock::none());
    }

    const UT_SharedWeakPtr<TUScene> scene{};
    const Shot_t shot{};
    const NameHelperRef nameHelper{};

    // In the order in which they are made; the records of captions, tracking, exposure points, layers, sound annotations and PDF options follow.
    PIO_MetadataAccess<PKC_ClipInfo> clipInfo;
};

} // namespace Plotka
