#pragma once

#include "plotka_scene_export.h"

#include <QString>

class SC_FileReport;
class SC_Project;

/// The file of a project, "<name>.plotka": one XML file in the project's directory.
namespace SC_ProjectFile
{

/// The file that @p path means: itself, or the one project file in the folder; empty, with an error, otherwise.
PLOTKA_SCENE_EXPORT QString resolve(const QString &path, SC_FileReport &report);

/// A new project without a change manager, count 0, which the caller takes over; null with an error in @p report.
PLOTKA_SCENE_EXPORT SC_Project *read(const QString &filePath, SC_FileReport &report);

/// Writes to a temporary file beside it and renames: the file is always the old or the new one. Refused when the file
/// is no longer what this project last read or wrote.
PLOTKA_SCENE_EXPORT bool write(const SC_Project &project, const QString &filePath, SC_FileReport &report);

} // namespace SC_ProjectFile
