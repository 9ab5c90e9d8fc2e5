#pragma once

#include "plotka_export.h"
#include "scene/base/UT_SharedWeakPtr.h"

#include <cstddef>

class MO_Node;
class TUSeqTimedValue;

namespace Plotka
{

/// A track: a top layer of the top scene and the timed value that drives it.
class PLOTKA_EXPORT VideoTrack
{
public:
    enum Type : int { TrackNone = 0, TrackVideo = 1, TrackPanel = 2 };

    static const VideoTrack invalid;
    /// The index of no track; all bits set.
    static constexpr std::size_t kInvalidIndex = ~std::size_t(0);

    VideoTrack();
    /// Nothing is owned.
    VideoTrack(MO_Node *node, TUSeqTimedValue *timedValue, Type type);
    VideoTrack(const VideoTrack &);
    VideoTrack &operator=(const VideoTrack &);
    virtual ~VideoTrack();

    /// True when it was made for a node and a timed value and has a type; the node may have died since.
    bool isValid() const;
    bool isInvalid() const { return !isValid(); }
    bool isPanelTrack() const { return m_type == TrackPanel; }
    Type type() const { return m_type; }

    /// Null once the node has gone.
    MO_Node *node() const;
    /// Null once the timed value has gone.
    TUSeqTimedValue *tv() const;

    bool operator==(const VideoTrack &other) const;
    bool operator!=(const VideoTrack &other) const { return !(*this == other); }
    /// True when the node, or else the timed value, or else the type is below the other's. A plain chain of three tests and
    /// no lexicographic order: a later field decides even when an earlier one is greater. The node counts only when
    /// the other track was ever given one.
    bool operator<(const VideoTrack &other) const;

private:
    UT_SharedWeakPtr<MO_Node> m_node;
    UT_SharedWeakPtr<TUSeqTimedValue> m_timedValue;
    Type m_type = TrackNone;
};

} // namespace Plotka
