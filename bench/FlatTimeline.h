#pragma once

#include <cstddef>
#include <vector>

/// What a timeline of shots and panels is at the very least: sorted arrays of first frames. Nothing that answers
/// questions about one by searching can be faster.
class FlatTimeline
{
public:
    explicit FlatTimeline(unsigned int panels);
    static const FlatTimeline &ofSize(unsigned int panels);

    unsigned int frameCount() const { return m_frameCount; }
    /// Place from 0 of the panel at the frame: the shot is searched for, then the panel within it.
    std::size_t panelAt(unsigned int frame) const;

private:
    std::vector<unsigned int> m_shotFirstFrames;  ///< in project frames
    std::vector<std::size_t> m_shotFirstPanels;   ///< and one past the last shot
    std::vector<unsigned int> m_panelFirstFrames; ///< in shot frames
    unsigned int m_frameCount = 0;
};
