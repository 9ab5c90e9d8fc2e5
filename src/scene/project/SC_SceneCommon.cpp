#include "scene/project/SC_SceneCommon.h"

#include "scene/project/TUScene.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

PIO_Metadatas *SC_SceneCommon::metadatas() const
{
    return m_scene->metadatas();
}

int SC_SceneCommon::getNumberOfFrames() const
{
    const TUSeqTimedValue *timedValue = sceneMainTv(m_scene);
    return timedValue ? static_cast<int>(timedValue->nFrames()) : 0;
}
