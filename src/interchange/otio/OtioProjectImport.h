#pragma once

#include "interchange/otio/OtioImport.h"

class SC_Project;
class SC_SessionContext;

/// What came of importing a cut: a project, which is the session's, or an error. Notes come with both.
struct OtioProjectImport {
    SC_Project *project = nullptr;
    OtioError error;
    std::vector<ImportNote> notes;

    bool hasError() const { return !error.message.isEmpty(); }
};

namespace OtioImport
{

/// @name A cut as a project
/// The session gives up the project it has and works on the new one, in memory: nothing is written before
/// SC_SessionContext::saveProject(), and no change is queued. With an error the session is left as it was.
/// The project is named after the cut, else after @p fallbackName, else "Untitled"; what a file name
/// cannot hold is replaced. PKC_SessionContext::createPlotkaProject() then answers questions about it.
/// @{
PLOTKA_INTERCHANGE_EXPORT OtioProjectImport importInto(SC_SessionContext &session, const QByteArray &bytes,
    const QString &directory, const OtioOptions &options = OtioOptions(), const QString &fallbackName = QString());
/// The same of the file at @p path, whose name is the fallback. No more of it is read than a cut may be long.
PLOTKA_INTERCHANGE_EXPORT OtioProjectImport importFileInto(SC_SessionContext &session, const QString &path,
    const QString &directory, const OtioOptions &options = OtioOptions());
/// @}

} // namespace OtioImport
