#include "interchange/otio/OtioNode_p.h"

QString OtioText::brief(const QString &text, qsizetype length)
{
    if (text.size() <= length)
        return text;
    return text.left(length - 1) + QChar(0x2026);
}

const OtioNode *findFirstVideoTrack(const OtioNode &stack)
{
    const OtioNode *implied = nullptr;
    for (const OtioNode &track : stack.children) {
        if (track.trackKind != OtioNode::Video)
            continue;
        if (!track.isImplied)
            return &track;
        if (!implied)
            implied = &track;
    }
    return implied;
}
