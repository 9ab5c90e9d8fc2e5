// Prints the shots of a project and what each of them holds: walk_panels <project file or folder>.
//
// It goes from block to block, so that nothing is hidden. A walk by panels, beginPanel() to endPanel(), ends at a gap at the end of a
// shot; see docs/behaviour/walks-at-gaps.md.
#include "listing/ItemFields.h"
#include "listing/TimelineListing.h"
#include "project/PKC_SessionContext.h"

#include <QTextStream>

#include <memory>

int main(int argc, char *argv[])
{
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    if (argc != 2 || !session->openProject(QString::fromLocal8Bit(argv[1])))
        return 1;
    session->createPlotkaProject(session->project());
    const TimelineListing listing = listTimeline(*session->plotkaProject());
    QTextStream out(stdout);
    for (const TimelineItem &item : listing.items) {
        if (!item.isEndless())
            out << (item.shotId.isNull() ? "" : "  ") << kindText(item.kind) << ' ' << item.firstFrame << '-'
                << item.lastFrame << (item.name.isEmpty() ? "" : ": ") << item.name << '\n';
    }
    out.flush();
    session->releaseProject();
    return 0;
}
