#pragma once

#include "plotka_scene_export.h"

class AT_FrameBlock;
class MO_Node;
class SC_SceneManager;
class TUScene;
class TUSeqTimedValue;

/// The scene that a block places; null for an invalid block, one that places none, and a scene that has gone.
PLOTKA_SCENE_EXPORT TUScene *sceneOfBlock(const SC_SceneManager *manager, const AT_FrameBlock &block);

/// The first sequence timed value of the scene; null for null and without one.
PLOTKA_SCENE_EXPORT TUSeqTimedValue *sceneMainTv(const TUScene *scene);

/// The sequence timed value that drives an element; null for any other node and any other timed value.
PLOTKA_SCENE_EXPORT TUSeqTimedValue *linkedSeqTv(MO_Node *node);
