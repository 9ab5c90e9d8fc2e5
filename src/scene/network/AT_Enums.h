#pragma once

namespace AT_Enums
{

/// How a layer follows the camera. The numbers are saved.
enum CameraAlignment { NoAlignment = 0, CenterFirstPage = 1, LockToCamera = 2 };

} // namespace AT_Enums
