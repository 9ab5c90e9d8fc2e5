#include "metadata/PKC_ProjectCompatibilityIssues.h"

#include "project/PKC_PlotkaProject.h"
#include "project/TimelineWalk_p.h"

namespace
{

/// Counts panels as a walk finds them: a gap at the end of a shot ends it.
class SpaceInTimeLineIssue : public PKC_ProjectCompatibilityIssues::Issue
{
public:
    QString id() const override { return QStringLiteral("space-between-panels"); }
    QString product() const override { return QStringLiteral("Plotka Pro"); }
    QString version() const override { return QStringLiteral("7.0.0"); }

    bool isIn(PKC_PlotkaProject *project) const override
    {
        if (!project || project->panelCount() == 0)
            return false;
        quint64 freeFrame = 1; // what comes next may start here, or before where shots overlap
        for (Plotka::PanelWalk walk(project); !walk.isAtEnd(); walk.step()) {
            if (walk.current().firstFrame() > freeFrame)
                return true;
            freeFrame = quint64(walk.current().lastFrame()) + 1;
        }
        return false;
    }
};

} // namespace

PKC_ProjectCompatibilityIssues::Issue::~Issue() = default;

PKC_ProjectCompatibilityIssues::PKC_ProjectCompatibilityIssues() = default;

PKC_ProjectCompatibilityIssues::~PKC_ProjectCompatibilityIssues() = default;

PKC_ProjectCompatibilityIssues &PKC_ProjectCompatibilityIssues::instance()
{
    // Made with the issue that is always there, so whoever comes first finds it, and never destroyed.
    static auto *const registry = [] {
        auto *const made = new PKC_ProjectCompatibilityIssues;
        made->add(new SpaceInTimeLineIssue);
        return made;
    }();
    return *registry;
}

void PKC_ProjectCompatibilityIssues::registerIssue(const Issue *issue)
{
    if (issue)
        instance().add(issue);
}

std::set<PKC_ProjectCompatibility::CompatiblityIssue_s> PKC_ProjectCompatibilityIssues::analyseProject(
    PKC_PlotkaProject *project)
{
    std::set<PKC_ProjectCompatibility::CompatiblityIssue_s> found;
    // Held while they are asked: an issue may register others, in its own place too.
    const auto known = instance().m_issues;
    for (const auto &[id, issue] : known) {
        if (issue->isIn(project))
            found.insert({issue->id(), issue->product(), issue->version()});
    }
    return found;
}

bool PKC_ProjectCompatibilityIssues::hasUnknowsIssue(
    const std::set<PKC_ProjectCompatibility::CompatiblityIssue_s> &issues)
{
    const auto &known = instance().m_issues;
    for (const PKC_ProjectCompatibility::CompatiblityIssue_s &issue : issues) {
        if (known.count(issue.id) == 0)
            return true;
    }
    return false;
}

void PKC_ProjectCompatibilityIssues::add(const Issue *issue)
{
    std::shared_ptr<const Issue> &known = m_issues[issue->id()];
    if (known.get() != issue)
        known.reset(issue);
}
