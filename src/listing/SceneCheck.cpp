#include "listing/SceneCheck_p.h"

#include "listing/ListingText_p.h"
#include "listing/NumberText.h"
#include "project/ObjectIds.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <QHash>
#include <QStringList>

#include <cmath>

namespace
{

QString sceneTitle(const SC_Id &objectId)
{
    return ListingText::tr("scene %1").arg(objectId.AsString());
}

class SceneChecker
{
public:
    explicit SceneChecker(const PKC_PlotkaProject &project) : m_project(project) {}

    std::vector<Finding> run();

private:
    void add(const char *code, const QString &item, const QString &message)
    {
        m_findings.push_back({QLatin1String(code), item, 0, message});
    }

    void checkRate();
    void checkScene(const TUScene &scene);
    void checkBlock(const TUScene &scene, const TUSeqTimedValue &timedValue, const AT_FrameBlock &block);
    void checkTimeWarp(const AT_FrameBlock &block);
    void checkCircles();
    QString placeText(const TUScene &scene, const TUSeqTimedValue &timedValue, const AT_FrameBlock &block) const;

    const PKC_PlotkaProject &m_project;
    std::vector<const TUScene *> m_scenes;
    QHash<const TUScene *, const TUScene *> m_placedIn; // a scene stands in one block of the project
    std::vector<Finding> m_findings;
};

std::vector<Finding> SceneChecker::run()
{
    checkRate();
    const SC_Project &project = *m_project.project();
    for (unsigned int i = 0; i < project.sceneCount(); ++i) {
        if (const auto *scene = dynamic_cast<const TUScene *>(project.sceneAt(i)))
            m_scenes.push_back(scene);
    }
    for (const TUScene *scene : m_scenes)
        checkScene(*scene);
    checkCircles();
    return std::move(m_findings);
}

void SceneChecker::checkRate()
{
    constexpr double slowest = 1.0;
    constexpr double fastest = 1000.0;
    const UT_FrameRate rate = m_project.projectCommon()->frameRate();
    if (rate.fps() < slowest || rate.fps() > fastest)
        add("rate-out-of-range", ListingText::tr("project"),
            ListingText::tr("%1 frames a second are not from 1 to 1000").arg(rate.asString()));
}

void SceneChecker::checkScene(const TUScene &scene)
{
    for (const TUTimedValue *timedValue : scene.timedValues()) {
        const auto *const blocks = dynamic_cast<const TUSeqTimedValue *>(timedValue);
        if (!blocks)
            continue;
        for (auto block = blocks->beginBlock(); block != blocks->endBlock(); ++block)
            checkBlock(scene, *blocks, *block);
    }
}

void SceneChecker::checkBlock(const TUScene &scene, const TUSeqTimedValue &timedValue, const AT_FrameBlock &block)
{
    const bool placesScene = block.seq() && block.seq()->sceneSeq();
    if (!placesScene)
        return;
    if (const TUScene *placed = sceneOfBlock(m_project.projectCommon()->sceneManager(), block))
        m_placedIn.insert(placed, &scene);
    else
        add("missing-scene", sceneTitle(Plotka::objectId(block)),
            ListingText::tr("it is not there; %1 shows nothing").arg(placeText(scene, timedValue, block)));
    checkTimeWarp(block);
}

void SceneChecker::checkTimeWarp(const AT_FrameBlock &block)
{
    const AT_TimeWarpSeq *const warp = AT_TimeWarpSeq::toTimeWarp(block.seq());
    if (warp && !(std::isfinite(warp->start) && std::isfinite(warp->end)))
        add("time-warp-not-finite", sceneTitle(Plotka::objectId(block)),
            ListingText::tr("its time warp goes from %1 to %2").arg(numberText(warp->start), numberText(warp->end)));
}

/// "shot at frames 25-48", for people.
QString SceneChecker::placeText(
    const TUScene &scene, const TUSeqTimedValue &timedValue, const AT_FrameBlock &block) const
{
    const QString frames = QStringLiteral("%1-%2").arg(block.fromFrame()).arg(block.toFrame());
    if (&timedValue == m_project.topMainTv())
        return ListingText::tr("the shot at frames %1").arg(frames);
    if (&scene == m_project.topScene())
        return ListingText::tr("the clip at frames %1 of \"%2\"").arg(frames, timedValue.getName());
    return ListingText::tr("the panel at frames %1 of %2").arg(frames, sceneTitle(scene.objectId()));
}

/// Each circle once, at the first of its scenes.
void SceneChecker::checkCircles()
{
    constexpr int mostTold = 10;
    QHash<const TUScene *, const TUScene *> seenFrom; // from which scene the way up was begun that met it
    for (const TUScene *start : m_scenes) {
        const TUScene *scene = start;
        for (; scene && !seenFrom.contains(scene); scene = m_placedIn.value(scene))
            seenFrom.insert(scene, start);
        if (!scene || seenFrom.value(scene) != start)
            continue; // the way ends, or goes on where an earlier one went
        QStringList others;
        for (const TUScene *next = m_placedIn.value(scene); next != scene; next = m_placedIn.value(next))
            others += next->objectId().AsString();
        const QString way = others.mid(0, mostTold).join(QStringLiteral(", "))
            + (others.size() > mostTold ? QStringLiteral(", ...") : QString());
        add("scene-circle", sceneTitle(scene->objectId()),
            others.isEmpty() ? ListingText::tr("it places itself")
                             : ListingText::tr("it is placed within itself, by way of %1").arg(way));
    }
}

} // namespace

std::vector<Finding> checkScenes(const PKC_PlotkaProject &project)
{
    return SceneChecker(project).run();
}
