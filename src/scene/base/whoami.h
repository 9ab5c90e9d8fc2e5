#pragma once

#include "plotka_scene_export.h"

#include <QString>

/// Who is running.
namespace whoami
{

/// The application's name, "plotka" when it has none. Records made by this program carry it as their creator.
PLOTKA_SCENE_EXPORT QString progName();

} // namespace whoami
