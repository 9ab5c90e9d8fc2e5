#include "project/VideoClip.h"

#include "project/BlockMapping_p.h"
#include "project/ObjectIds.h"
#include "project/SharedPtr_p.h"
#include "project/VideoClipPrivate_p.h"
#include "scene/base/AT_Frame.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/TUScene.h"

#include <algorithm>
#include <typeinfo>

namespace Plotka
{

template class SharedPtr<VideoClipPrivate>;

namespace
{

/// The first direct node of the group that is exactly an element; null without one.
const MO_Node *firstElement(const TUGroup *group)
{
    if (!group)
        return nullptr;
    const auto found =
        std::find_if(group->subNodesBegin(), group->subNodesEnd(), [](const UT_SharedPtr<MO_Node> &node) {
            const MO_Node &candidate = *node;
            return typeid(candidate) == typeid(MO_ElementModule);
        });
    return found == group->subNodesEnd() ? nullptr : found->get();
}

} // namespace

VideoClipPrivate::VideoClipPrivate(const TUSeqTimedValue *owningTimedValue, const TUScene *clipScene) :
    ObjectPrivate(owningTimedValue, clipScene ? clipScene->objectId() : SC_Id()), scene(clipScene)
{
    m_records.complete(clipScene ? clipScene->metadatas() : nullptr, VideoClipRecordsKind);
}

VideoClip::VideoClip() = default;

VideoClip::VideoClip(const TUSeqTimedValue *timedValue, const TUScene *scene, const VideoTrack &track) :
    SharedPtr(new VideoClipPrivate(timedValue, scene)), m_track(track)
{
}

VideoClip::VideoClip(const VideoClip &other) : SharedPtr(other), m_track(other.m_track) {}

VideoClip &VideoClip::operator=(const VideoClip &other)
{
    SharedPtr::operator=(other);
    m_track = other.m_track;
    m_cachedBlock = AT_FrameBlock();
    return *this;
}

VideoClip::~VideoClip() = default;

const SC_Id &VideoClip::id() const
{
    return object()->id;
}

SC_Id VideoClip::sceneId() const
{
    return sceneIdOf(frameBlock());
}

TUScene *VideoClip::symbol() const
{
    return object()->scene.get();
}

const TUSeqTimedValue *VideoClip::tv() const
{
    return object()->timedValue.get();
}

const AT_FrameBlock &VideoClip::frameBlock() const
{
    if (m_useCachedBlock && m_cachedBlock.isValid())
        return m_cachedBlock;
    const AT_FrameBlock &block = object()->block();
    if (!m_useCachedBlock)
        return block;
    m_cachedBlock = block;
    return m_cachedBlock;
}

void VideoClip::useFrameBlockCache(bool on) const
{
    m_useCachedBlock = on;
    if (!on)
        m_cachedBlock = AT_FrameBlock();
}

unsigned int VideoClip::firstFrame() const
{
    return frameBlock().fromFrame();
}

unsigned int VideoClip::lastFrame() const
{
    return frameBlock().toFrame();
}

unsigned int VideoClip::objNumOfFrame() const
{
    return frameBlock().key.frameCount;
}

QString VideoClip::name() const
{
    PKC_ClipInfo *const info = clipInfo();
    if (info && !info->name().value().isEmpty())
        return info->name().value();
    const TUScene *scene = symbol();
    const MO_Node *element = scene ? firstElement(scene->getRootGroup()) : nullptr;
    if (!element)
        return QString();
    if (info)
        info->name().setValue(element->instanceName());
    return element->instanceName();
}

PKC_ClipInfo *VideoClip::clipInfo() const
{
    return object()->record<PKC_ClipInfo>();
}

PKC_Tracking *VideoClip::tracking() const
{
    return object()->record<PKC_Tracking>();
}

unsigned int VideoClip::videoClipFrameToProjectFrame(double clipFrame) const
{
    return static_cast<unsigned int>(AT_Frame::roundToUnsigned(towardParent(object()->block(), clipFrame)));
}

double VideoClip::projectFrameToVideoClipFrame(unsigned int projectFrame) const
{
    return towardInner(object()->block(), projectFrame);
}

} // namespace Plotka
