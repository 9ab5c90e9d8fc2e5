#include "project/VideoTrack.h"

#include "scene/network/MO_Node.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <functional>

namespace Plotka
{

VideoTrack::VideoTrack() = default;

VideoTrack::VideoTrack(MO_Node *node, TUSeqTimedValue *timedValue, Type type) :
    m_node(node), m_timedValue(timedValue), m_type(type)
{
}

VideoTrack::VideoTrack(const VideoTrack &) = default;
VideoTrack &VideoTrack::operator=(const VideoTrack &) = default;
VideoTrack::~VideoTrack() = default;

bool VideoTrack::isValid() const
{
    return m_type != TrackNone && tv() && m_node.hasRecord();
}

MO_Node *VideoTrack::node() const
{
    return m_node.get();
}

TUSeqTimedValue *VideoTrack::tv() const
{
    return m_timedValue.get();
}

bool VideoTrack::operator==(const VideoTrack &other) const
{
    return node() == other.node() && tv() == other.tv() && m_type == other.m_type;
}

bool VideoTrack::operator<(const VideoTrack &other) const
{
    if (other.m_node.hasRecord() && std::less<MO_Node *>()(node(), other.node()))
        return true;
    return std::less<TUSeqTimedValue *>()(tv(), other.tv()) || m_type < other.m_type;
}

} // namespace Plotka
