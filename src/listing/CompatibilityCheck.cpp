#include "listing/CompatibilityCheck_p.h"

#include "listing/ListingText_p.h"
#include "metadata/PKC_ProjectCompatibility.h"
#include "metadata/PKC_ProjectCompatibilityIssues.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/project/SC_Project.h"

#include <QStringList>

#include <algorithm>

namespace
{

using RecordedIssue = PKC_ProjectCompatibility::CompatiblityIssue_s;

// The project's own test for it ends where a walk by panels ends; gaps beyond that place count all the same.
const RecordedIssue spaceBetweenPanels{
    QStringLiteral("space-between-panels"), QStringLiteral("Plotka Pro"), QStringLiteral("7.0.0")};

/// Product and version change places whenever a project is read, so the one that begins with a digit is the version.
RecordedIssue inOrder(RecordedIssue issue)
{
    const auto isVersion = [](const QString &text) { return !text.isEmpty() && text.front().isDigit(); };
    if (isVersion(issue.product) && !isVersion(issue.version))
        std::swap(issue.product, issue.version);
    return issue;
}

QString gapsText(const std::vector<TimelineItem> &gaps)
{
    constexpr std::size_t mostTold = 5;
    QStringList texts;
    for (std::size_t i = 0; i < std::min(gaps.size(), mostTold); ++i)
        texts += QStringLiteral("%1-%2").arg(gaps[i].firstFrame).arg(gaps[i].lastFrame);
    QString text = texts.join(QStringLiteral(", "));
    if (gaps.size() > mostTold)
        text = ListingText::tr("%1 and %2 more").arg(text, QString::number(gaps.size() - mostTold));
    return gaps.size() == 1
        ? ListingText::tr("there is a gap between panels, at frames %1").arg(text)
        : ListingText::tr("there are %1 gaps between panels, at frames %2").arg(QString::number(gaps.size()), text);
}

QString messageOf(const CompatibilityIssue &issue, const std::vector<TimelineItem> &gaps)
{
    const QString older = ListingText::tr("%1 before version %2 cannot read that").arg(issue.product, issue.version);
    if (issue.isFound && issue.id == spaceBetweenPanels.id && !gaps.empty())
        return ListingText::tr("%1; %2").arg(gapsText(gaps), older);
    if (issue.isFound)
        return ListingText::tr("the project has \"%1\"; %2").arg(issue.id, older);
    const bool isKnown = !PKC_ProjectCompatibilityIssues::hasUnknowsIssue({{issue.id, QString(), QString()}});
    return isKnown ? ListingText::tr("the file says that the project has \"%1\", but it has not").arg(issue.id)
                   : ListingText::tr("the file says that the project has \"%1\", which is not known here; %2")
                         .arg(issue.id, older);
}

} // namespace

std::vector<CompatibilityIssue> checkCompatibility(PKC_PlotkaProject &project, const std::vector<TimelineItem> &gaps)
{
    std::set<RecordedIssue> found = PKC_ProjectCompatibilityIssues::analyseProject(&project);
    const auto isSpace = [](const RecordedIssue &issue) { return issue.id == spaceBetweenPanels.id; };
    if (!gaps.empty() && std::none_of(found.begin(), found.end(), isSpace))
        found.insert(spaceBetweenPanels);

    std::vector<CompatibilityIssue> issues;
    for (const RecordedIssue &issue : found)
        issues.push_back({issue.id, issue.product, issue.version, /*isFound*/ true, /*isRecorded*/ false, QString()});
    const std::size_t foundCount = issues.size();
    const auto *const record =
        PIO_MetadataAccess<PKC_ProjectCompatibility>(project.project()->metadatas(), QString()).get();
    for (const RecordedIssue &recorded : record ? record->compatiblityIssueList() : std::set<RecordedIssue>()) {
        const auto foundEnd = issues.begin() + static_cast<std::ptrdiff_t>(foundCount);
        const auto same = std::find_if(
            issues.begin(), foundEnd, [&recorded](const CompatibilityIssue &issue) { return issue.id == recorded.id; });
        if (same != foundEnd) {
            same->isRecorded = true;
            continue;
        }
        const RecordedIssue issue = inOrder(recorded);
        issues.push_back({issue.id, issue.product, issue.version, /*isFound*/ false, /*isRecorded*/ true, QString()});
    }
    for (CompatibilityIssue &issue : issues)
        issue.message = messageOf(issue, gaps);
    return issues;
}
