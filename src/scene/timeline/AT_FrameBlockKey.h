#pragma once

/// The place of a block in its timed value.
struct AT_FrameBlockKey {
    unsigned int fromFrame = 0;
    unsigned int frameCount = 0;
    bool isTransition = false;

    bool operator==(const AT_FrameBlockKey &other) const
    {
        return fromFrame == other.fromFrame && frameCount == other.frameCount && isTransition == other.isTransition;
    }
    bool operator!=(const AT_FrameBlockKey &other) const { return !(*this == other); }
};
