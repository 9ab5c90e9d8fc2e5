#include "project/Panel_t.h"

#include "project/BlockMapping_p.h"
#include "project/ObjectIds.h"
#include "project/PanelPrivate_p.h"
#include "project/SharedPtr_p.h"
#include "scene/base/AT_Frame.h"
#include "scene/base/UT_Numbers.h"
#include "scene/project/TUScene.h"

namespace Plotka
{

template class SharedPtr<PanelPrivate>;

namespace
{

/// A frame of a panel's block in project frames.
unsigned int blockFrameToProjectFrame(const Shot_t &shot, unsigned int frame)
{
    return UT_Numbers::toFrame(double(shot.firstFrame()) + double(frame) - 1.0);
}

} // namespace

PanelPrivate::PanelPrivate(const TUSeqTimedValue *owningTimedValue, const TUScene *panelScene, const Shot_t &owningShot,
    const ObjectNameHelper *helper) :
    ObjectPrivate(owningTimedValue, objectId(panelScene)),
    scene(panelScene), shot(owningShot), nameHelper(helper)
{
    m_records.complete(panelScene ? panelScene->metadatas() : nullptr, PanelRecordsKind);
}

Panel_t::Panel_t() = default;

Panel_t::Panel_t(
    const TUSeqTimedValue *timedValue, const TUScene *scene, const Shot_t &shot, const ObjectNameHelper *nameHelper) :
    SharedPtr(new PanelPrivate(timedValue, scene, shot, nameHelper))
{
}

Panel_t::Panel_t(const Panel_t &other) : SharedPtr(other) {}

Panel_t &Panel_t::operator=(const Panel_t &other)
{
    SharedPtr::operator=(other);
    m_cachedBlock = AT_FrameBlock();
    return *this;
}

Panel_t::~Panel_t() = default;

const SC_Id &Panel_t::id() const
{
    return object()->id;
}

SC_Id Panel_t::sceneId() const
{
    return sceneIdOf(frameBlock());
}

TUScene *Panel_t::symbol() const
{
    return object()->scene.get();
}

MO_Node *Panel_t::node() const
{
    const TUSeqTimedValue *timedValue = object()->timedValue.get();
    return timedValue ? timedValue->linkedNodes(0) : nullptr;
}

const Shot_t &Panel_t::shot() const
{
    return object()->shot;
}

const AT_FrameBlock &Panel_t::frameBlock() const
{
    if (m_useCachedBlock && m_cachedBlock.isValid())
        return m_cachedBlock;
    const AT_FrameBlock &block = object()->block();
    if (!m_useCachedBlock)
        return block;
    m_cachedBlock = block;
    return m_cachedBlock;
}

void Panel_t::useFrameBlockCache(bool on) const
{
    m_useCachedBlock = on;
    if (!on)
        m_cachedBlock = AT_FrameBlock();
}

unsigned int Panel_t::firstFrame() const
{
    const AT_FrameBlock &block = frameBlock();
    return block.isValid() ? blockFrameToProjectFrame(shot(), block.fromFrame()) : 0;
}

unsigned int Panel_t::lastFrame() const
{
    const AT_FrameBlock &block = frameBlock();
    return block.isValid() ? blockFrameToProjectFrame(shot(), block.toFrame()) : 0;
}

unsigned int Panel_t::objNumOfFrame() const
{
    return frameBlock().key.frameCount;
}

unsigned int Panel_t::relativeFirstFrame() const
{
    return firstFrame() + 1 - shot().firstFrame(); // wraps on purpose once the panel has gone
}

unsigned int Panel_t::relativeLastFrame() const
{
    return lastFrame() + 1 - shot().firstFrame();
}

bool Panel_t::isFirstOfShot() const
{
    return firstFrame() == shot().firstFrame();
}

bool Panel_t::isLastOfShot() const
{
    return lastFrame() == shot().lastFrame();
}

bool Panel_t::hasMorePKPanelInCurPKScene(bool forward) const
{
    return forward ? !isLastOfShot() : !isFirstOfShot();
}

QString Panel_t::name() const
{
    const PKC_ClipInfo *info = clipInfo();
    if (info && info->name().isCustom())
        return info->name().value();
    const ObjectNameHelper *helper = object()->nameHelper.get();
    return helper ? helper->getPanelName(*this) : QString();
}

QString Panel_t::shotName() const
{
    return shot().name();
}

QString Panel_t::sequenceName() const
{
    return shot().sequenceName();
}

QString Panel_t::actName() const
{
    return shot().actName();
}

PKC_ClipInfo *Panel_t::clipInfo() const
{
    return object()->record<PKC_ClipInfo>();
}

PKC_InfoFieldList *Panel_t::infoFieldList() const
{
    return object()->record<PKC_InfoFieldList>();
}

PKC_Tracking *Panel_t::tracking() const
{
    return object()->record<PKC_Tracking>();
}

PKC_ExposurePoints *Panel_t::exposurePoints() const
{
    return object()->record<PKC_ExposurePoints>();
}

PKC_LayerInfos *Panel_t::layerInfos() const
{
    return object()->record<PKC_LayerInfos>();
}

PKC_SoundAnnotation *Panel_t::soundAnnotation() const
{
    return object()->record<PKC_SoundAnnotation>();
}

PKC_PdfOptions *Panel_t::pdfOptions() const
{
    return object()->record<PKC_PdfOptions>();
}

double Panel_t::panelFrameToShotFrame(double panelFrame) const
{
    return towardParent(object()->block(), panelFrame);
}

double Panel_t::shotFrameToPanelFrame(double shotFrame) const
{
    return towardInner(object()->block(), shotFrame);
}

unsigned int Panel_t::panelFrameToProjectFrame(double panelFrame) const
{
    const unsigned int cut = UT_Numbers::toFrame(shot().firstFrame() + panelFrameToShotFrame(panelFrame) - 1.0);
    return static_cast<unsigned int>(AT_Frame::roundToUnsigned(cut));
}

double Panel_t::projectFrameToPanelFrame(unsigned int projectFrame) const
{
    return shotFrameToPanelFrame(shot().projectFrameToShotFrame(projectFrame));
}

} // namespace Plotka
