#include "scene/base/UT_SharedPtr.h"
#include "scene/project/SC_Project.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "scene/storage/XmlBounds_p.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{

UT_SharedPtr<SC_Project> read(const QByteArray &text, SC_FileReport &report)
{
    return SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report);
}

/// How deep elements stand in one another as the XML stream tells them, up to where it ends; 0 in an encoding that is refused.
int depthOf(const QByteArray &text)
{
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    xml.readNext();
    if (!xml.documentEncoding().isEmpty() && xml.documentEncoding() != QLatin1StringView("UTF-8"))
        return 0;
    int depth = 0;
    int deepest = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        depth += xml.isStartElement() ? 1 : xml.isEndElement() ? -1 : 0;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

} // namespace

// The bounds miss no element that the stream sees, however deep or shallow.
// Whatever a file holds: there is a project or an error, and what was read is saved so that it reads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const int depth = depthOf(text);
    if (depth > 0 && XmlBounds::find(text, depth - 1).message.isEmpty())
        std::abort();
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project = read(text, report);
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
