#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

class SC_ProjectCommon;

/// The frames that an argument asks for: "25", "100-200", or the same with timecodes, "00:00:04:04-00:00:08:07".
class FrameRange
{
public:
    /// More frames are not asked for at once.
    static constexpr qint64 mostFrames = 1'000'000;

    /// Nothing for a text of another form. Whether its timecodes name frames depends on the project.
    static std::optional<FrameRange> parse(const QString &text);

    /// Finds the project frames. False when it cannot; problem() then says why.
    bool resolve(const SC_ProjectCommon &common);
    /// Of no use before resolve(). What 64 bits cannot hold is the outermost number that they can.
    qint64 firstFrame() const { return m_firstFrame; }
    qint64 lastFrame() const { return m_lastFrame; }
    QString problem() const { return m_problem; }
    /// One that is written as one frame.
    bool isSingle() const { return m_last.isEmpty(); }

private:
    std::optional<qint64> frameOf(const QString &text, const SC_ProjectCommon &common);

    QString m_first;
    QString m_last;
    QString m_problem;
    qint64 m_firstFrame = 0;
    qint64 m_lastFrame = 0;
};
