#pragma once

#include "plotka_scene_export.h"

#include <QByteArray>
#include <QString>

class SC_FileReport;
class SC_Project;

/// The file of a project, "<name>.plotka": one XML file in the project's directory.
namespace SC_ProjectFile
{

/// The file that @p path means: itself, or the one project file in the folder; empty, with an error, otherwise. A
/// project file is called "<name>.plotka" to the letter.
PLOTKA_SCENE_EXPORT QString resolve(const QString &path, SC_FileReport &report);

/// A new project without a change manager, count 0, which the caller takes over; null with an error in @p report.
PLOTKA_SCENE_EXPORT SC_Project *read(const QString &filePath, SC_FileReport &report);

/// Writes to a temporary file beside it and renames: the file is always the old or the new one. Refused when there is
/// a file that is not what this project last read or wrote as its own, and when the file could not be read again.
PLOTKA_SCENE_EXPORT bool write(const SC_Project &project, const QString &filePath, SC_FileReport &report);

/// @name Text
/// What a file holds, without a file.
/// @{
/// As read(); @p filePath gives the project its place and name, nothing is read from there.
PLOTKA_SCENE_EXPORT SC_Project *fromText(const QByteArray &text, const QString &filePath, SC_FileReport &report);
PLOTKA_SCENE_EXPORT QByteArray toText(const SC_Project &project, const QString &name);
/// @}

} // namespace SC_ProjectFile
