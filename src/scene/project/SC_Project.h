#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_ShareBase.h"
#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/project/SC_ProjectCommon.h"

#include <deque>
#include <memory>
#include <vector>

class SC_SceneBase;
class TUScene;

/// A project: an ordered list of scenes and what they share. Scene 0 is the top scene.
class PLOTKA_SCENE_EXPORT SC_Project : public UT_ShareBase
{
public:
    /// A project without scenes, on no disk yet.
    SC_Project(const QString &projectDir, const QString &sceneName);
    SC_Project(const SC_Project &) = delete;
    SC_Project &operator=(const SC_Project &) = delete;
    ~SC_Project() override;

    /// Null when there is no such scene.
    SC_SceneBase *sceneAt(unsigned int index) const;
    unsigned int sceneCount() const { return static_cast<unsigned int>(m_scenes.size()); }
    SC_ProjectCommon *projectCommon() const { return &m_projectCommon; }
    PIO_Metadatas *metadatas() const { return &m_metadatas; }

    /// Keeps a record that containers of this project share, and gives it back.
    const PIO_Metadata *keepOriginal(std::unique_ptr<PIO_Metadata> record);

    /// @name Edits
    /// @{
    /// A new last scene with fresh ids, a container and a root group.
    TUScene *addScene();
    /// The same with given ids; null when one is null, when they are equal or when one belongs to something else.
    TUScene *addScene(const SC_Id &objectId, const SC_Id &sceneId);
    /// Deletes the scene and its timed values; the block that placed it stays. False for the top scene and
    /// for a scene of another project.
    bool removeScene(TUScene *scene);
    /// @}

private:
    using SceneList = std::deque<std::unique_ptr<TUScene>>; // taken out near either end without moving all

    SceneList::iterator placeOf(const TUScene *scene);
    void takeOut(SceneList::iterator place);

    std::vector<std::unique_ptr<PIO_Metadata>> m_originals; // go after all containers
    mutable SC_ProjectCommon m_projectCommon;
    mutable PIO_Metadatas m_metadatas;
    SceneList m_scenes;
};
