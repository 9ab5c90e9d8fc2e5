#include "scene/timeline/TimelineSearches.h"

#include "scene/base/UT_Edition.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/TUSeqTimedValue.h"

TUScene *sceneOfBlock(const SC_SceneManager *manager, const AT_FrameBlock &block)
{
    const TUSeq *view = manager && block.isValid() && block.seq() ? block.seq()->sceneSeq() : nullptr;
    if (!view)
        return nullptr;
    if (view->m_sceneFoundAt == UT_Edition::deaths() && view->m_scene->projectCommon()->sceneManager() == manager)
        return view->m_scene;
    TUScene *const scene = static_cast<TUScene *>(manager->find(view->id)); // all that it finds are scenes
    if (scene) {
        view->m_scene = scene;
        view->m_sceneFoundAt = UT_Edition::deaths();
    }
    return scene;
}

TUSeqTimedValue *sceneMainTv(const TUScene *scene)
{
    if (!scene)
        return nullptr;
    for (TUTimedValue *timedValue : scene->timedValues()) {
        if (timedValue->timedValueKind() == TUTimedValue::SequenceKind)
            return dynamic_cast<TUSeqTimedValue *>(timedValue);
    }
    return nullptr;
}

TUSeqTimedValue *linkedSeqTv(MO_Node *node)
{
    const MO_ElementModule *element = dynamic_cast<MO_ElementModule *>(node);
    TUTimedValue *const timedValue =
        element && element->drawingAttr() ? element->drawingAttr()->linkedTimedValue() : nullptr;
    return timedValue && timedValue->timedValueKind() == TUTimedValue::SequenceKind
        ? dynamic_cast<TUSeqTimedValue *>(timedValue)
        : nullptr;
}
