#include "interchange/otio/OtioNode_p.h"

QString OtioText::brief(const QString &text, qsizetype length)
{
    if (text.size() <= length)
        return text;
    return text.left(length - 1) + QChar(0x2026);
}

QString OtioText::storable(const QString &text)
{
    QString kept;
    kept.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            kept += unit;
            kept += text.at(++i);
            continue;
        }
        const char16_t code = unit.unicode();
        const bool isForbidden = code < 0x20 ? code != u'\t' && code != u'\n' && code != u'\r' : code >= 0xFFFE;
        if (!isForbidden && !unit.isSurrogate())
            kept += unit;
    }
    return kept;
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
