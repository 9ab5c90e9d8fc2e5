#pragma once

#include "scene/timeline/TUSeq.h"

class TUScene;

/// Places a scene without a time warp, as video clips do.
///
/// It remembers the two ids of the scene and not the scene: a block whose scene has gone is an
/// ordinary case.
class PLOTKA_SCENE_EXPORT AT_SceneSeq : public TUSeq
{
public:
    /// A null scene gives null ids.
    explicit AT_SceneSeq(const TUScene *scene);
    AT_SceneSeq(SC_Id objectId, SC_Id sceneId);

    const TUSeq *identifiedSeq() const override { return this; }
    const TUSeq *sceneSeq() const override { return &m_sceneView; }

private:
    TUSeq m_sceneView;
};
