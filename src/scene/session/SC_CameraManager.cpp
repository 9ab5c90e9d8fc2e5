#include "scene/session/SC_CameraManager.h"

SC_CameraManager::~SC_CameraManager() = default;
