#include "BigProject.h"

#include "metadata/PKC_SceneInfo.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <utility>

namespace
{

constexpr unsigned int longestPanel = 30;
constexpr unsigned int transitionFrames = longestPanel + 2;

/// A measurement of anything else than what was meant is worse than none.
void must(bool done)
{
    if (!done)
        std::abort();
}

} // namespace

std::vector<unsigned int> BigProject::panelLengths(unsigned int panels)
{
    std::vector<unsigned int> lengths;
    lengths.reserve(panels);
    for (unsigned int i = 0; i < panels; ++i)
        lengths.push_back(6 + (i * 2654435761u >> 16) % (longestPanel - 5));
    return lengths;
}

BigProject::BigProject(unsigned int panels, Joints joints) :
    m_session(PKC_SessionContext::createSessionContext(nullptr, nullptr)), m_joints(joints)
{
    m_session->newProject(QStringLiteral("/nowhere"), QStringLiteral("big"));
    const std::vector<unsigned int> lengths = panelLengths(panels);
    for (std::size_t first = 0; first < lengths.size(); first += panelsPerShot)
        addShot(lengths, first);
    m_session->changeManager()->clear();
    m_session->createPlotkaProject(m_session->project());
    must(project().panelCount() == panels && project().getNumOfFrames() == m_frameCount);
}

BigProject::~BigProject()
{
    m_session->releaseProject();
}

BigProject &BigProject::ofSize(unsigned int panels, Joints joints)
{
    static std::map<std::pair<unsigned int, Joints>, std::unique_ptr<BigProject>> made;
    std::unique_ptr<BigProject> &project = made[{panels, joints}];
    if (!project)
        project = std::make_unique<BigProject>(panels, joints);
    return *project;
}

void BigProject::addShot(const std::vector<unsigned int> &lengths, std::size_t firstPanel)
{
    TUScene *const shot = scenes().addScene();
    TUSeqTimedValue *const panels = shot->addSeqTimedValue(QStringLiteral("Panels"));
    const UT_SharedPtr<MO_Node> layer(new MO_ElementModule(shot->sceneCommon(), panels->getName()));
    shot->getRootGroup()->addNode(layer);
    panels->linkNode(layer.get());

    // The first panel begins so much earlier, over the end of the shot before.
    const unsigned int overlap = m_joints == Joints::Transitions && firstPanel != 0 ? transitionFrames : 0;
    unsigned int next = 1;
    for (std::size_t i = firstPanel; i < std::min<std::size_t>(firstPanel + panelsPerShot, lengths.size()); ++i) {
        const unsigned int length = lengths[i] + (i == firstPanel ? overlap : 0);
        const TUScene *panel = scenes().addScene();
        must(panels->insertBlock(next, length, new AT_TimeWarpSeq(panel, 1.0, double(length))));
        m_panelIds.push_back(panel->objectId());
        next += length;
    }

    auto *const top = static_cast<TUScene *>(scenes().sceneAt(0));
    auto *const timeline = static_cast<TUSeqTimedValue *>(top->timedValues().front());
    const unsigned int cut = m_frameCount + 1;
    const unsigned int frames = next - 1 - overlap;
    must(timeline->insertBlock(cut, frames, new AT_TimeWarpSeq(shot, 1.0, double(frames))));
    if (overlap != 0) {
        const SC_Id id = scenes().projectCommon()->createId();
        must(timeline->insertTransition(cut, overlap, 0, new AT_TransitionSeq(id, AT_TransitionSeq::Dissolve)));
    }
    m_shots.push_back(panels);
    m_shotFirstFrames.push_back(cut - overlap);
    m_frameCount += frames;

    m_shotNames.push_back(QStringLiteral("S_%1").arg(m_shots.size(), 5, 10, QLatin1Char('0')));
    PKC_SceneInfo *const info = PIO_MetadataAccess<PKC_SceneInfo>(shot->metadatas(), QString()).getOrCreate();
    info->name().setValue(m_shotNames.back());
    info->name().setFlag(PKC_ObjectName::customBit);
}

unsigned int BigProject::roll()
{
    TUSeqTimedValue &panels = middleShot();
    const auto before = std::next(panels.beginBlock(), panelsPerShot / 2);
    const AT_FrameBlockKey first = before->key;
    const AT_FrameBlockKey second = std::next(before)->key;
    if (m_rolled) {
        must(panels.setBlockRange(second, second.fromFrame + 1, second.frameCount - 1));
        must(panels.setBlockRange(first, first.fromFrame, first.frameCount + 1));
    } else {
        must(panels.setBlockRange(first, first.fromFrame, first.frameCount - 1));
        must(panels.setBlockRange(second, second.fromFrame - 1, second.frameCount + 1));
    }
    m_rolled = !m_rolled;
    m_session->changeManager()->notify();
    return middleShotFirstFrame() + second.fromFrame - 1;
}

void BigProject::warmUp() const
{
    for (auto panel = project().beginPanel(); panel != project().endPanel(); ++panel) {
    }
}
