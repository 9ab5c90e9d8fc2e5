#include "scene/timeline/AT_SceneSeq.h"

#include "scene/project/TUScene.h"

AT_SceneSeq::AT_SceneSeq(const TUScene *scene) :
    TUSeq(scene ? scene->objectId() : SC_Id()), m_sceneView(scene ? scene->sceneId() : SC_Id())
{
}

AT_SceneSeq::AT_SceneSeq(SC_Id objectId, SC_Id sceneId) : TUSeq(objectId), m_sceneView(sceneId) {}
