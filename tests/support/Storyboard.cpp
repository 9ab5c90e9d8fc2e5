#include "support/Storyboard.h"

#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TimelineSearches.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <cstdio>
#include <cstdlib>

namespace
{

/// What a test wrote and the scenes refuse is a mistake of the test.
void must(bool done, const char *what)
{
    if (done)
        return;
    std::fprintf(stderr, "storyboard: %s is refused\n", what);
    std::abort();
}

/// The n-th block that is a transition, or that is none.
AT_FrameBlock blockByNumber(const TUSeqTimedValue *tv, unsigned int number, bool transition)
{
    if (!tv)
        return AT_FrameBlock();
    for (auto block = tv->beginBlock(); block != tv->endBlock(); ++block) {
        if (block->key.isTransition == transition && number-- == 0)
            return *block;
    }
    return AT_FrameBlock();
}

SC_Id idOf(const AT_FrameBlock &block)
{
    return block.seq() ? block.seq()->objectId() : SC_Id();
}

} // namespace

Storyboard::Storyboard(const std::string &notation, bool cacheOn) : Storyboard(parseTimeline(notation), cacheOn) {}

Storyboard::Storyboard(const TimelineText &timeline, bool cacheOn) :
    m_session(PKC_SessionContext::createSessionContext(nullptr, nullptr))
{
    SC_Project *const made = m_session->newProject(QStringLiteral("/nowhere"), QStringLiteral("storyboard"));
    build(timeline);
    m_session->changeManager()->clear();
    m_session->createPlotkaProject(made);
    project().setCacheEnabled(cacheOn);
}

Storyboard::~Storyboard()
{
    m_forgetful.reset();
    m_session->releaseProject();
}

PKC_PlotkaProject &Storyboard::forgetful()
{
    if (!m_forgetful) {
        m_forgetful = std::make_unique<PKC_PlotkaProject>(&sceneProject());
        m_forgetful->setCacheEnabled(false);
    }
    return *m_forgetful;
}

TUScene &Storyboard::topScene() const
{
    return *static_cast<TUScene *>(sceneProject().sceneAt(0));
}

TUSeqTimedValue &Storyboard::timeline() const
{
    return *sceneMainTv(&topScene());
}

std::string Storyboard::shotNameAt(unsigned int frame) const
{
    return project()
        .getShotAt(frame, PKC_PlotkaProject::ResolveBackward, /*nearest*/ false, /*forward*/ true)
        .name()
        .toStdString();
}

std::string Storyboard::panelNameAt(unsigned int frame) const
{
    return project()
        .getPanelAt(frame, PKC_PlotkaProject::ResolveBackward, /*nearest*/ false, /*forward*/ true)
        .name()
        .toStdString();
}

unsigned int Storyboard::shotBlockCount() const
{
    unsigned int count = 0;
    for (auto block = timeline().beginBlock(); block != timeline().endBlock(); ++block)
        count += block->key.isTransition ? 0 : 1;
    return count;
}

AT_FrameBlock Storyboard::shotBlock(unsigned int shot) const
{
    return blockByNumber(&timeline(), shot, /*transition*/ false);
}

TUScene *Storyboard::shotScene(unsigned int shot) const
{
    return sceneOfBlock(sceneProject().projectCommon()->sceneManager(), shotBlock(shot));
}

SC_Id Storyboard::shotId(unsigned int shot) const
{
    return idOf(shotBlock(shot));
}

TUSeqTimedValue *Storyboard::panelTrack(unsigned int shot) const
{
    return sceneMainTv(shotScene(shot));
}

AT_FrameBlock Storyboard::panelBlock(unsigned int shot, unsigned int panel) const
{
    return blockByNumber(panelTrack(shot), panel, /*transition*/ false);
}

TUScene *Storyboard::panelScene(unsigned int shot, unsigned int panel) const
{
    return sceneOfBlock(sceneProject().projectCommon()->sceneManager(), panelBlock(shot, panel));
}

SC_Id Storyboard::panelId(unsigned int shot, unsigned int panel) const
{
    return idOf(panelBlock(shot, panel));
}

AT_FrameBlock Storyboard::transitionBlock(unsigned int transition) const
{
    return blockByNumber(&timeline(), transition, /*transition*/ true);
}

SC_Id Storyboard::transitionId(unsigned int transition) const
{
    return idOf(transitionBlock(transition));
}

void Storyboard::build(const TimelineText &timelineText)
{
    // First every shot without what a transition gives it, so that the shots touch; then the transitions.
    struct Cut {
        unsigned int frame;
        const ElementText *transition;
    };
    std::vector<Cut> cuts;
    struct Warped {
        unsigned int shot;
        const WarpText *warp;
    };
    std::vector<Warped> warped;
    unsigned int next = 1;
    unsigned int shots = 0;
    for (std::size_t i = 0; i < timelineText.size(); ++i) {
        const ElementText &element = timelineText[i];
        if (element.kind == ElementText::Gap) {
            next += element.frames;
        } else if (element.kind == ElementText::Transition) {
            cuts.push_back({next, &element});
        } else {
            unsigned int frames = element.length();
            if (i > 0 && timelineText[i - 1].kind == ElementText::Transition)
                frames -= timelineText[i - 1].framesBeforeCut;
            if (i + 1 < timelineText.size() && timelineText[i + 1].kind == ElementText::Transition)
                frames -= timelineText[i + 1].framesAfterCut;
            buildShot(element, next, frames);
            next += frames;
            if (element.warp.kind == WarpText::Given)
                warped.push_back({shots, &element.warp});
            ++shots;
        }
    }
    for (const Cut &cut : cuts) {
        const SC_Id id = sceneProject().projectCommon()->createId();
        must(timeline().insertTransition(cut.frame, cut.transition->framesBeforeCut, cut.transition->framesAfterCut,
                 new AT_TransitionSeq(id, AT_TransitionSeq::Dissolve)),
            "a transition");
    }
    for (const Warped &shot : warped)
        must(setShotWarp(shot.shot, shot.warp->start, shot.warp->end), "a time warp");
    for (TUScene *scene : m_doomed)
        must(sceneProject().removeScene(scene), "deleting a scene");
    m_doomed.clear();
}

void Storyboard::buildShot(const ElementText &shot, unsigned int fromFrame, unsigned int frames)
{
    TUScene *scene = nullptr;
    if (shot.holds == Holds::Scene || shot.holds == Holds::BareScene || shot.holds == Holds::GoneScene) {
        scene = sceneProject().addScene();
        if (shot.holds == Holds::Scene)
            buildPanels(scene, shot.panels);
    }
    WarpText warp = shot.warp;
    if (warp.kind == WarpText::Given)
        warp.kind = WarpText::ToLength;
    must(timeline().insertBlock(fromFrame, frames, newSequence(shot.holds, warp, frames, scene)), "a shot");
    if (scene && shot.holds != Holds::GoneScene && !shot.name.empty())
        PIO_MetadataAccess<PKC_SceneInfo>(scene->metadatas(), QString())
            .getOrCreate()
            ->name()
            .setValue(QString::fromStdString(shot.name));
}

void Storyboard::buildPanels(TUScene *scene, const std::vector<PanelText> &panels)
{
    TUSeqTimedValue *const track = scene->addSeqTimedValue(QStringLiteral("Panels"));
    unsigned int next = 1;
    for (const PanelText &panel : panels) {
        if (!panel.isGap) {
            TUScene *const held = panel.holds == Holds::Nothing ? nullptr : sceneProject().addScene();
            must(track->insertBlock(next, panel.frames, newSequence(panel.holds, panel.warp, panel.frames, held)),
                "a panel");
            if (held && !panel.name.empty()) {
                PKC_ClipInfo *info = PIO_MetadataAccess<PKC_ClipInfo>(held->metadatas(), QString()).getOrCreate();
                info->name().setValue(QString::fromStdString(panel.name));
                info->name().setFlag(PKC_ObjectName::customBit | (panel.locked ? PKC_ObjectName::lockedBit : 0));
            }
        }
        next += panel.frames;
    }
}

TUSeq *Storyboard::newSequence(Holds holds, const WarpText &warp, unsigned int frames, TUScene *scene)
{
    if (holds == Holds::Nothing)
        return nullptr;
    if (holds == Holds::OtherSequence)
        return new TUSeq;
    if (holds == Holds::GoneScene)
        m_doomed.push_back(scene);
    if (warp.kind == WarpText::None)
        return new AT_SceneSeq(scene);
    if (warp.kind == WarpText::Given)
        return new AT_TimeWarpSeq(scene, warp.start, warp.end);
    return new AT_TimeWarpSeq(scene, 1.0, double(frames));
}
