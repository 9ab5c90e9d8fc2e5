#pragma once

#include "plotka_scene_export.h"

class PIO_Metadatas;
class SC_ProjectCommon;
class TUScene;

/// The part of a scene that its nodes and timed values know it by. One per scene, at a stable address.
class PLOTKA_SCENE_EXPORT SC_SceneCommon
{
public:
    SC_SceneCommon(TUScene *scene, SC_ProjectCommon *projectCommon) : m_scene(scene), m_projectCommon(projectCommon) {}
    SC_SceneCommon(const SC_SceneCommon &) = delete;
    SC_SceneCommon &operator=(const SC_SceneCommon &) = delete;

    TUScene *scene() const { return m_scene; }
    SC_ProjectCommon *projectCommon() const { return m_projectCommon; }

    /// The same container as TUScene::metadatas().
    PIO_Metadatas *metadatas() const;
    /// Last frame of the scene's main timed value; 0 without one.
    int getNumberOfFrames() const;

private:
    TUScene *m_scene;
    SC_ProjectCommon *m_projectCommon;
};
