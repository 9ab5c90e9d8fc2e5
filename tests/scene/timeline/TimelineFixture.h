#pragma once

#include "NaiveTimeline.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "support/News.h"
#include "support/SceneSession.h"

#include <gtest/gtest.h>

/// A project whose top scene has the empty sequence timed value "T", and what tells its news.
class TimelineFixture : public ::testing::Test
{
protected:
    TimelineFixture() : project(session.makeProject()), news(*session.changeManager())
    {
        timeline = session.top().addSeqTimedValue(QStringLiteral("T"));
        session.changeManager()->clear();
    }

    SC_Id newId() { return project.projectCommon()->createId(); }

    /// A block that places a fresh scene with a time warp from 1 to its length.
    AT_TimeWarpSeq *addShot(unsigned int fromFrame, unsigned int frameCount)
    {
        AT_TimeWarpSeq *const seq = new AT_TimeWarpSeq(project.addScene(), 1, frameCount);
        EXPECT_TRUE(timeline->insertBlock(fromFrame, frameCount, seq));
        session.changeManager()->clear();
        return seq;
    }

    AT_TransitionSeq *addTransition(unsigned int cut, unsigned int before, unsigned int after)
    {
        AT_TransitionSeq *const seq = new AT_TransitionSeq(newId(), AT_TransitionSeq::Dissolve);
        EXPECT_TRUE(timeline->insertTransition(cut, before, after, seq));
        session.changeManager()->clear();
        return seq;
    }

    /// Frames of all blocks, transitions marked: "1..10 T9..12 9..20".
    std::string frames() const
    {
        std::string text;
        for (auto it = timeline->beginBlock(); it != timeline->endBlock(); ++it) {
            text += (text.empty() ? "" : " ") + std::string(it->key.isTransition ? "T" : "")
                + std::to_string(it->fromFrame()) + ".." + std::to_string(it->toFrame());
        }
        return text;
    }

    SceneSession session;
    SC_Project &project;
    News news;
    TUSeqTimedValue *timeline = nullptr;
};
