#include "scene/project/SC_SceneBase.h"

SC_SceneBase::~SC_SceneBase() = default;
