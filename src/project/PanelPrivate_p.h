#pragma once

#include "infofields/PKC_InfoFieldList.h"
#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_ExposurePoints.h"
#include "metadata/PKC_SoundAnnotation.h"
#include "pdf/PKC_PdfOptions.h"
#include "project/ObjectPrivate_p.h"
#include "project/RecordAccesses_p.h"
#include "project/ShotPrivate_p.h"
#include "scene/project/TUScene.h"
#include "tracking/PKC_Tracking.h"

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

    /// Null once the scene has gone.
    template <typename Record>
    Record *record()
    {
        return scene ? m_records.get<Record>(scene->metadatas()) : nullptr;
    }

private:
    // In the order in which they are made.
    RecordAccesses<PKC_ClipInfo, PKC_InfoFieldList, PKC_Tracking, PKC_ExposurePoints, PKC_LayerInfos,
        PKC_SoundAnnotation, PKC_PdfOptions>
        m_records;
};

} // namespace Plotka
