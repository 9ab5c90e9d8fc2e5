#include "scene/session/SC_SceneBase.h"

SC_SceneBase::~SC_SceneBase() = default;
