#include "scene/base/UT_SharedPtr.h"
#include "scene/session/SC_Project.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"

#include <cstdint>
#include <cstdlib>

namespace
{

UT_SharedPtr<SC_Project> read(const QByteArray &text, SC_FileReport &report)
{
    return SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report);
}

} // namespace

// Whatever a file holds: there is a project or an error, and what was read is saved so that it reads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project =
        read(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), report);
    if (report.hasErrors() == bool(project))
        std::abort();
    if (!project)
        return 0;
    const QByteArray saved = SC_ProjectFile::toText(*project, QStringLiteral("p"));
    SC_FileReport again;
    const UT_SharedPtr<SC_Project> back = read(saved, again);
    if (!back || SC_ProjectFile::toText(*back, QStringLiteral("p")) != saved)
        std::abort();
    return 0;
}
