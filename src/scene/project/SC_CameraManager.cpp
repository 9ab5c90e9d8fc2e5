#include "scene/project/SC_CameraManager.h"

SC_CameraManager::~SC_CameraManager() = default;
