#include "scene/base/UT_SharedPtr.h"
#include "scene/project/SC_Project.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "sizes.h"

#include <cstdlib>

namespace
{

/// A project whose one sequence drives so many elements.
QByteArray drivingText(unsigned int elements)
{
    QByteArray links;
    QByteArray nodes;
    for (unsigned int i = 2; i < elements + 2; ++i) {
        const QByteArray number = QByteArray::number(i);
        links += "<link node='" + number + "'/>";
        nodes += "<node class='element' number='" + number + "' name='e'/>";
    }
    return "<plotka format='1' nextId='3' rate='24' startTimecode='0'><scene object='1' scene='2'><sequence name='s'>"
        + links + "</sequence><node class='group' number='1' name='Top'>" + nodes + "</node></scene></plotka>";
}

void openLinks(benchmark::State &state)
{
    const QByteArray text = drivingText(panelsOf(state));
    for (auto _ : state) {
        SC_FileReport report;
        const UT_SharedPtr<SC_Project> project(
            SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report));
        if (!project || !report.isEmpty())
            std::abort();
    }
}
PLOTKA_BENCH_SIZES(openLinks, "open, one sequence drives all");

} // namespace
