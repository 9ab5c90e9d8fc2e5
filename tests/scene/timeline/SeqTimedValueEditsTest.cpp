#include "TimelineFixture.h"

#include "scene/base/UT_Edition.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <functional>
#include <utility>

namespace
{

class SeqTimedValueEdits : public TimelineFixture
{
protected:
    /// The edit is refused, changes nothing and makes no news.
    template <typename Edit>
    void expectRefused(Edit edit)
    {
        const std::string before = textOf(*timeline);
        const quint64 edition = UT_Edition::current();
        const qint64 nextId = project.projectCommon()->nextId();
        EXPECT_FALSE(edit());
        EXPECT_EQ(textOf(*timeline), before);
        EXPECT_EQ(UT_Edition::current(), edition);
        EXPECT_EQ(project.projectCommon()->nextId(), nextId);
        EXPECT_EQ(news.told(), "");
    }

    bool insert(unsigned int from, unsigned int count) { return timeline->insertBlock(from, count, nullptr); }

    const std::string shotNews = "sceneChanged timedValuesChanged{T}";
    const std::string plainNews = "timedValuesChanged{T}";
};

/// A sequence that runs something when it dies.
class LastWords : public TUSeq
{
public:
    explicit LastWords(std::function<void()> words) : m_words(std::move(words)) {}
    ~LastWords() override { m_words(); }

private:
    std::function<void()> m_words;
};

} // namespace

TEST_F(SeqTimedValueEdits, InsertsInOrderAndTellsOfIt)
{
    ASSERT_TRUE(timeline->insertBlock(11, 10, new AT_SceneSeq(project.addScene())));
    EXPECT_EQ(news.told(), shotNews);
    ASSERT_TRUE(timeline->insertBlock(1, 10, new AT_TimeWarpSeq(nullptr, 1, 10)));
    EXPECT_EQ(news.told(), shotNews) << "also for a scene that has gone";
    ASSERT_TRUE(timeline->insertBlock(30, 1, nullptr));
    EXPECT_EQ(news.told(), plainNews);
    ASSERT_TRUE(timeline->insertBlock(25, 5, new TUSeq));
    EXPECT_EQ(news.told(), plainNews);
    EXPECT_EQ(frames(), "1..10 11..20 25..29 30..30");
    EXPECT_EQ(timeline->firstBlock().seq()->timedValue(), timeline);
}

TEST_F(SeqTimedValueEdits, RefusesBlocksOutsideOfAllFrames)
{
    expectRefused([&] { return insert(0, 5); });
    expectRefused([&] { return insert(1, 0); });
    expectRefused([&] { return insert(2147483647u, 2); });
    expectRefused([&] { return insert(2147483648u, 1); });
    expectRefused([&] { return insert(1, 2147483648u); });
    expectRefused([&] { return insert(4294967295u, 4294967295u); });
    expectRefused([&] { return insert(2, 4294967295u); }); // would wrap round to frame 0
    EXPECT_TRUE(insert(2147483647u, 1));
    EXPECT_TRUE(insert(1, 2147483646u));
}

TEST_F(SeqTimedValueEdits, RefusesToCoverAFrameTwice)
{
    addShot(10, 10);
    addShot(30, 10);
    for (const auto &[from, count] : std::vector<std::pair<unsigned int, unsigned int>>{
             {10, 10}, {1, 10}, {19, 1}, {12, 2}, {1, 100}, {19, 11}, {39, 5}, {20, 11}})
        expectRefused([this, start = from, length = count] { return insert(start, length); });
    EXPECT_TRUE(insert(1, 9));
    EXPECT_TRUE(insert(20, 10));
    EXPECT_TRUE(insert(40, 1));
}

TEST_F(SeqTimedValueEdits, RefusesATransitionAsAPlainBlock)
{
    AT_TransitionSeq *const transition = new AT_TransitionSeq(newId(), 0);
    expectRefused([&] { return timeline->insertBlock(1, 5, transition); });
    delete transition;
}

TEST_F(SeqTimedValueEdits, PlacesASceneInOneBlockOfTheProject)
{
    TUScene *const scene = project.addScene();
    TUSeqTimedValue *const other = project.addScene()->addSeqTimedValue(QStringLiteral("O"));
    ASSERT_TRUE(timeline->insertBlock(1, 5, new AT_SceneSeq(scene)));
    session.changeManager()->clear();
    AT_SceneSeq *const again = new AT_SceneSeq(scene);
    AT_SceneSeq *const sameScene = new AT_SceneSeq(SC_Id(5000), scene->sceneId());
    AT_SceneSeq *const sameObject = new AT_SceneSeq(scene->objectId(), SC_Id(5001));
    for (AT_SceneSeq *seq : {again, sameScene, sameObject}) {
        expectRefused([&] { return timeline->insertBlock(10, 5, seq); });
        expectRefused([&] { return other->insertBlock(10, 5, seq); });
    }
    ASSERT_TRUE(timeline->removeBlock({1, 5, false}));
    EXPECT_TRUE(other->insertBlock(1, 5, again)) << "it is free again";
    delete sameScene;
    delete sameObject;
}

TEST_F(SeqTimedValueEdits, PlacesASceneUnderItsOwnObjectIdOnly)
{
    const TUScene *scene = project.addScene();
    const TUScene *other = project.addScene();
    news.told();
    AT_SceneSeq *const mixedUp = new AT_SceneSeq(other->objectId(), scene->sceneId());
    expectRefused([&] { return timeline->insertBlock(1, 10, mixedUp); });
    delete mixedUp;
    EXPECT_TRUE(timeline->insertBlock(1, 10, new AT_SceneSeq(scene->objectId(), scene->sceneId())));
}

TEST_F(SeqTimedValueEdits, RefusesAnIdThatBelongsToSomethingElse)
{
    addShot(1, 10);
    addShot(11, 10);
    const AT_TransitionSeq *const transition = addTransition(11, 1, 1);
    TUSoundTimedValue *const sounds = session.top().addSoundTimedValue(QStringLiteral("Sound"));
    const SC_Id sound = sounds->addSound(1, 2);
    const TUScene *const scene = project.addScene();
    const SC_Id fresh(5000);
    session.changeManager()->clear();
    for (const SC_Id &id : {transition->id, sound, scene->objectId(), scene->sceneId(), session.top().objectId(),
             SC_Id(-1), SC_Id(SC_ProjectCommon::idLimit)}) {
        AT_SceneSeq *const asObject = new AT_SceneSeq(id, fresh);
        AT_SceneSeq *const asScene = new AT_SceneSeq(fresh, id);
        AT_TransitionSeq *const asTransition = new AT_TransitionSeq(id, 0);
        expectRefused([&] { return timeline->insertBlock(31, 10, asObject); });
        expectRefused([&] { return timeline->insertBlock(31, 10, asScene); });
        expectRefused([&] { return timeline->insertTransition(21, 1, 1, asTransition); });
        expectRefused([&] { return sounds->addSound(TUSoundTimedValue::Sound{id, 1, 2, QString()}); });
        expectRefused([&] { return project.addScene(id, fresh) != nullptr; });
        expectRefused([&] { return project.addScene(fresh, id) != nullptr; });
        delete asObject;
        delete asScene;
        delete asTransition;
    }
}

TEST_F(SeqTimedValueEdits, TakesASequenceOnceOnly)
{
    AT_TimeWarpSeq *const shot = addShot(1, 5);
    expectRefused([&] { return timeline->insertBlock(10, 5, shot); });
    TUSeq *const plain = new TUSeq;
    ASSERT_TRUE(timeline->insertBlock(10, 5, plain));
    news.told();
    expectRefused([&] { return timeline->insertBlock(20, 5, plain); });
}

TEST_F(SeqTimedValueEdits, NeverGivesOutAnIdThatABlockBrought)
{
    const qint64 next = project.projectCommon()->nextId();
    ASSERT_TRUE(timeline->insertBlock(1, 5, new AT_SceneSeq(SC_Id(next + 10), SC_Id(next + 20))));
    EXPECT_EQ(project.projectCommon()->createId(), SC_Id(next + 21));
    ASSERT_TRUE(timeline->insertBlock(6, 5, new AT_SceneSeq(SC_Id(next + 50), SC_Id(next + 40))));
    ASSERT_TRUE(timeline->insertTransition(6, 1, 1, new AT_TransitionSeq(SC_Id(next + 70), 0)));
    EXPECT_EQ(project.projectCommon()->createId(), SC_Id(next + 71));
    ASSERT_TRUE(timeline->removeTransition({5, 2, true}));
    EXPECT_EQ(project.projectCommon()->createId(), SC_Id(next + 72));
}

TEST_F(SeqTimedValueEdits, RemovesABlockAndLeavesItsScene)
{
    const AT_TimeWarpSeq *const shot = addShot(1, 10);
    const SC_Id sceneId = shot->sceneSeq()->id;
    ASSERT_TRUE(insert(20, 5));
    news.told();
    const unsigned int scenes = project.sceneCount();
    EXPECT_TRUE(timeline->removeBlock({1, 10, false}));
    EXPECT_EQ(news.told(), shotNews);
    EXPECT_EQ(project.sceneCount(), scenes);
    EXPECT_NE(project.projectCommon()->sceneManager()->find(sceneId), nullptr);
    EXPECT_TRUE(timeline->removeBlock({20, 5, false}));
    EXPECT_EQ(news.told(), plainNews);
    EXPECT_EQ(timeline->blockCount(), 0u);
    expectRefused([&] { return timeline->removeBlock({20, 5, false}); });
}

TEST_F(SeqTimedValueEdits, StandsKeysThatAreTakenFromItsOwnBlocks)
{
    for (unsigned int i = 0; i < 20; ++i)
        addShot(1 + i * 10, 10);
    ASSERT_TRUE(timeline->setBlockRange(timeline->firstBlock().key, 2, 5));
    ASSERT_TRUE(timeline->setBlockRange(timeline->firstBlock().key, 1, 10));
    ASSERT_TRUE(timeline->insertTransition(11, 2, 2, new AT_TransitionSeq(newId(), 0)));
    ASSERT_TRUE(timeline->removeTransition((timeline->beginBlock() + 1)->key));
    while (timeline->blockCount() > 0)
        ASSERT_TRUE(timeline->removeBlock(timeline->firstBlock().key));
}

TEST_F(SeqTimedValueEdits, ResizesAndMovesABlockOverFreeFrames)
{
    addShot(1, 10);
    addShot(21, 10);
    addShot(41, 10);
    EXPECT_TRUE(timeline->setBlockRange({21, 10, false}, 11, 30));
    EXPECT_EQ(news.told(), shotNews);
    EXPECT_EQ(frames(), "1..10 11..40 41..50");
    EXPECT_TRUE(timeline->setBlockRange({11, 30, false}, 40, 1));
    EXPECT_EQ(frames(), "1..10 40..40 41..50");
    EXPECT_TRUE(timeline->setBlockRange({40, 1, false}, 12, 3));
    EXPECT_TRUE(timeline->setBlockRange({41, 10, false}, 2147483647u, 1));
    EXPECT_EQ(frames(), "1..10 12..14 2147483647..2147483647");
}

TEST_F(SeqTimedValueEdits, TellsOfAResizedBlockWithoutASceneQuietly)
{
    ASSERT_TRUE(insert(5, 5));
    news.told();
    EXPECT_TRUE(timeline->setBlockRange({5, 5, false}, 1, 5));
    EXPECT_EQ(news.told(), plainNews);
}

TEST_F(SeqTimedValueEdits, MakesNoNewsOfTheRangeThatStands)
{
    addShot(1, 10);
    const quint64 edition = UT_Edition::current();
    EXPECT_TRUE(timeline->setBlockRange({1, 10, false}, 1, 10));
    EXPECT_EQ(news.told(), "");
    EXPECT_EQ(UT_Edition::current(), edition);
}

TEST_F(SeqTimedValueEdits, RefusesToResizeOverAnotherOrToPassIt)
{
    addShot(1, 10);
    addShot(21, 10);
    addShot(41, 10);
    const AT_FrameBlockKey middle{21, 10, false};
    expectRefused([&] { return timeline->setBlockRange(middle, 10, 10); });
    expectRefused([&] { return timeline->setBlockRange(middle, 31, 11); });
    expectRefused([&] { return timeline->setBlockRange(middle, 60, 10); });
    expectRefused([&] { return timeline->setBlockRange({41, 10, false}, 12, 3); });
    expectRefused([&] { return timeline->setBlockRange(middle, 0, 5); });
    expectRefused([&] { return timeline->setBlockRange(middle, 21, 0); });
    expectRefused([&] { return timeline->setBlockRange({41, 10, false}, 2147483647u, 2); });
    expectRefused([&] { return timeline->setBlockRange({41, 10, false}, 41, 4294967295u); });
    expectRefused([&] { return timeline->setBlockRange({21, 9, false}, 21, 5); });
    expectRefused([&] { return timeline->setBlockRange({21, 10, true}, 21, 5); });
}

TEST_F(SeqTimedValueEdits, LetsATimeWarpOfSlopeOneFollowTheLength)
{
    AT_TimeWarpSeq *const plain = addShot(1, 10);
    AT_TimeWarpSeq *const fast = addShot(101, 10);
    fast->setRange(1, 20);
    ASSERT_TRUE(timeline->setBlockRange({1, 10, false}, 1, 25));
    ASSERT_TRUE(timeline->setBlockRange({101, 10, false}, 101, 25));
    EXPECT_EQ(plain->start, 1);
    EXPECT_EQ(plain->end, 25);
    EXPECT_EQ(fast->start, 1);
    EXPECT_EQ(fast->end, 20);
    ASSERT_TRUE(timeline->setBlockRange({1, 25, false}, 7, 3));
    EXPECT_EQ(plain->start, 1);
    EXPECT_EQ(plain->end, 3);
}

TEST_F(SeqTimedValueEdits, KeepsSlopeOneWhateverTheStart)
{
    for (const double start : {0.1, 0.7, 1.0 / 3, 2.1, 12345.678, -4.3, 1e9 + 0.1}) {
        AT_TimeWarpSeq *const warp = addShot(1, 1);
        warp->setRange(start, start);
        unsigned int count = 1;
        for (const unsigned int next : {5u, 9u, 4u, 24u, 3u, 65u, 1000u, 2u}) {
            ASSERT_TRUE(timeline->setBlockRange({1, count, false}, 1, next));
            count = next;
            EXPECT_DOUBLE_EQ(warp->end, start + count - 1) << start << " " << count;
        }
        ASSERT_TRUE(timeline->removeBlock({1, count, false}));
    }
}

TEST_F(SeqTimedValueEdits, LaysATransitionOverACut)
{
    AT_TimeWarpSeq *const first = addShot(1, 10);
    AT_TimeWarpSeq *const second = addShot(11, 10);
    AT_TransitionSeq *const transition = new AT_TransitionSeq(newId(), 0);
    ASSERT_TRUE(timeline->insertTransition(11, 2, 3, transition));
    EXPECT_EQ(news.told(), shotNews);
    EXPECT_EQ(frames(), "1..13 T9..13 9..20");
    EXPECT_EQ(timeline->nFrames(), 20u) << "the length of the timeline does not change";
    EXPECT_EQ(transition->framesBeforeCut(), 2u);
    EXPECT_EQ(transition->timedValue(), timeline);
    EXPECT_EQ(first->start, 1);
    EXPECT_EQ(first->end, 13);
    EXPECT_EQ(second->start, 1);
    EXPECT_EQ(second->end, 12);
    ASSERT_TRUE(timeline->removeTransition({9, 5, true}));
    EXPECT_EQ(news.told(), shotNews);
    EXPECT_EQ(frames(), "1..10 11..20");
    EXPECT_EQ(first->end, 10);
    EXPECT_EQ(second->end, 10);
}

TEST_F(SeqTimedValueEdits, LaysATransitionOnOneSideOfACut)
{
    addShot(1, 10);
    addShot(11, 10);
    AT_TransitionSeq *transition = addTransition(11, 0, 3);
    EXPECT_EQ(frames(), "1..13 T11..13 11..20");
    transition->IncRef(); // it comes back below
    ASSERT_TRUE(timeline->removeTransition({11, 3, true}));
    EXPECT_EQ(frames(), "1..10 11..20");
    ASSERT_TRUE(timeline->insertTransition(11, 3, 0, transition));
    EXPECT_EQ(transition->DecRef(), 1u);
    EXPECT_EQ(frames(), "1..10 T8..10 8..20");
    ASSERT_TRUE(timeline->removeTransition({8, 3, true}));
    EXPECT_EQ(frames(), "1..10 11..20");
}

TEST_F(SeqTimedValueEdits, LeavesEachNeighbourAFrameOfItsOwn)
{
    addShot(1, 5);
    addShot(6, 5);
    AT_TransitionSeq *const transition = new AT_TransitionSeq(newId(), 0);
    expectRefused([&] { return timeline->insertTransition(6, 5, 1, transition); });
    expectRefused([&] { return timeline->insertTransition(6, 1, 5, transition); });
    expectRefused([&] { return timeline->insertTransition(6, 0, 0, transition); });
    expectRefused([&] { return timeline->insertTransition(6, 4294967295u, 1, transition); });
    expectRefused([&] { return timeline->insertTransition(6, 2147483648u, 2147483648u, transition); });
    expectRefused([&] { return timeline->insertTransition(6, 1, 4294967290u, transition); });
    ASSERT_TRUE(timeline->insertTransition(6, 4, 4, transition));
    EXPECT_EQ(frames(), "1..9 T2..9 2..10");
    EXPECT_EQ(problemsOf(*timeline), "");
}

TEST_F(SeqTimedValueEdits, RefusesATransitionWithoutACutBetweenTwoScenes)
{
    addShot(1, 10);
    addShot(12, 10);            // a gap before it
    ASSERT_TRUE(insert(22, 5)); // touches, but places no scene
    addShot(27, 5);
    AT_TransitionSeq *const transition = new AT_TransitionSeq(newId(), 0);
    for (const unsigned int cut : {0u, 1u, 5u, 11u, 12u, 22u, 27u, 32u, 33u, 4294967295u})
        expectRefused([&] { return timeline->insertTransition(cut, 1, 1, transition); });
    expectRefused([&] { return timeline->insertTransition(12, 1, 1, nullptr); });
    delete transition;
    TUSeqTimedValue *const empty = project.addScene()->addSeqTimedValue(QStringLiteral("E"));
    AT_TransitionSeq stays(newId(), 0);
    EXPECT_FALSE(empty->insertTransition(1, 1, 1, &stays));
}

TEST_F(SeqTimedValueEdits, NeverLetsTransitionsOverlap)
{
    addShot(1, 10);
    addShot(11, 10);
    addShot(21, 10);
    addTransition(11, 2, 4); // 9..14
    AT_TransitionSeq *const other = new AT_TransitionSeq(newId(), 0);
    expectRefused([&] { return timeline->insertTransition(21, 6, 1, other); }); // no frame between them
    expectRefused([&] { return timeline->insertTransition(21, 7, 1, other); });
    expectRefused([&] { return timeline->insertTransition(11, 1, 1, other); }); // the cut has one
    expectRefused([&] { return timeline->insertTransition(9, 1, 1, other); });
    expectRefused([&] { return timeline->insertTransition(15, 1, 1, other); });
    ASSERT_TRUE(timeline->insertTransition(21, 5, 1, other));
    EXPECT_EQ(frames(), "1..14 T9..14 9..21 T16..21 16..30");
    EXPECT_EQ(timeline->blockCountAt(15), 1u);
    EXPECT_EQ(problemsOf(*timeline), "");
}

TEST_F(SeqTimedValueEdits, TakesATransitionOnceOnly)
{
    addShot(1, 10);
    addShot(11, 10);
    addShot(21, 10);
    AT_TransitionSeq *const placed = addTransition(11, 1, 1);
    expectRefused([&] { return timeline->insertTransition(21, 1, 1, placed); });
    AT_TransitionSeq *const sameId = new AT_TransitionSeq(placed->id, 0);
    expectRefused([&] { return timeline->insertTransition(21, 1, 1, sameId); });
    delete sameId;
}

TEST_F(SeqTimedValueEdits, HoldsWhatATransitionTies)
{
    addShot(1, 10);
    addShot(11, 10);
    addShot(21, 10);
    addTransition(11, 2, 2);
    ASSERT_EQ(frames(), "1..12 T9..12 9..20 21..30");
    for (const AT_FrameBlockKey &key : {AT_FrameBlockKey{1, 12, false}, AT_FrameBlockKey{9, 12, false}}) {
        expectRefused([&] { return timeline->removeBlock(key); });
        expectRefused([&] { return timeline->setBlockRange(key, key.fromFrame, key.frameCount - 1); });
    }
    expectRefused([&] { return timeline->removeBlock({9, 4, true}); });
    expectRefused([&] { return timeline->setBlockRange({9, 4, true}, 9, 3); });
    expectRefused([&] { return timeline->removeTransition({9, 12, false}); });
    expectRefused([&] { return timeline->removeTransition({9, 5, true}); });
    ASSERT_TRUE(timeline->removeTransition({9, 4, true}));
    EXPECT_TRUE(timeline->removeBlock({1, 10, false}));
}

TEST_F(SeqTimedValueEdits, MovesAllFromAFrameOn)
{
    addShot(3, 8);
    addShot(11, 10);
    addShot(25, 6);
    addTransition(11, 2, 2);
    ASSERT_EQ(frames(), "3..12 T9..12 9..20 25..30");
    EXPECT_TRUE(timeline->moveBlocks(1, -2));
    EXPECT_EQ(news.told(), shotNews);
    EXPECT_EQ(frames(), "1..10 T7..10 7..18 23..28");
    EXPECT_TRUE(timeline->moveBlocks(19, 100));
    EXPECT_EQ(frames(), "1..10 T7..10 7..18 123..128");
    EXPECT_TRUE(timeline->moveBlocks(123, -104));
    EXPECT_EQ(frames(), "1..10 T7..10 7..18 19..24");
    EXPECT_EQ(timeline->blockAt(19).fromFrame(), 19u);
    news.told();
    EXPECT_TRUE(timeline->moveBlocks(19, 0));
    EXPECT_EQ(news.told(), "") << "nothing moved";
}

TEST_F(SeqTimedValueEdits, RefusesMovesThatWouldTearOrCrowd)
{
    addShot(3, 8);
    addShot(11, 10);
    addShot(25, 6);
    addTransition(11, 2, 2);
    expectRefused([&] { return timeline->moveBlocks(9, 1); }); // would leave the first shot without its transition
    expectRefused([&] { return timeline->moveBlocks(4, 5); });
    expectRefused([&] { return timeline->moveBlocks(1, -3); });
    expectRefused([&] { return timeline->moveBlocks(1, std::numeric_limits<int>::min()); });
    expectRefused([&] { return timeline->moveBlocks(25, -5); });
    expectRefused([&] { return timeline->moveBlocks(25, -100); });
    expectRefused([&] { return timeline->moveBlocks(25, 2147483618); });
    expectRefused([&] { return timeline->moveBlocks(25, 2147483647); });
    expectRefused([&] { return timeline->moveBlocks(26, 1); });
    expectRefused([&] { return timeline->moveBlocks(26, 0); });
    EXPECT_TRUE(timeline->moveBlocks(25, 2147483617));
    EXPECT_EQ(timeline->nFrames(), 2147483647u);
}

TEST_F(SeqTimedValueEdits, TellsQuietlyOfMovedBlocksWithoutScenes)
{
    addShot(1, 5);
    ASSERT_TRUE(insert(10, 5));
    news.told();
    EXPECT_TRUE(timeline->moveBlocks(10, 5));
    EXPECT_EQ(news.told(), plainNews);
}

TEST_F(SeqTimedValueEdits, LeavesCopiedBlocksWholeWhenTheTimedValueDies)
{
    addShot(1, 10);
    addShot(11, 10);
    addTransition(11, 2, 2);
    const std::vector<AT_FrameBlock> copies(timeline->beginBlock(), timeline->endBlock());
    TUScene &scene = session.top();
    ASSERT_TRUE(scene.removeTimedValue(timeline));
    session.changeManager()->clear();
    ASSERT_EQ(copies.size(), 3u);
    for (const AT_FrameBlock &copy : copies) {
        EXPECT_EQ(copy.seq()->timedValue(), nullptr);
        EXPECT_FALSE(copy.seq()->objectId().isNull());
    }
    AT_TimeWarpSeq::toTimeWarp(copies[0].seq())->setRange(1, 99);
    AT_TransitionSeq::toTransition(copies[1].seq())->setAngle(99);
    EXPECT_EQ(news.told(), "");
    // What was placed is free: a copy can be placed again.
    TUSeqTimedValue *const other = scene.addSeqTimedValue(QStringLiteral("O"));
    EXPECT_TRUE(other->insertBlock(1, 10, copies[0].seq()));
    EXPECT_TRUE(other->insertBlock(11, 10, copies[2].seq()));
    EXPECT_TRUE(other->insertTransition(11, 1, 1, AT_TransitionSeq::toTransition(copies[1].seq())));
}

TEST_F(SeqTimedValueEdits, FreesTheScenesOfATimedValueThatDies)
{
    TUScene *const shot = project.addScene();
    TUScene *const panel = project.addScene();
    ASSERT_TRUE(timeline->insertBlock(1, 10, new AT_TimeWarpSeq(shot, 1, 10)));
    ASSERT_TRUE(shot->addSeqTimedValue(QStringLiteral("P"))->insertBlock(1, 10, new AT_TimeWarpSeq(panel, 1, 10)));
    EXPECT_TRUE(project.projectCommon()->isPlaced(panel->objectId()));
    ASSERT_TRUE(project.removeScene(shot));
    EXPECT_FALSE(project.projectCommon()->isPlaced(panel->objectId()));
    EXPECT_TRUE(timeline->insertBlock(11, 10, new AT_TimeWarpSeq(panel, 1, 10)));
    EXPECT_EQ(frames(), "1..10 11..20") << "the block that placed the shot stays";
}

TEST_F(SeqTimedValueEdits, AreDoneWhenTheSequenceOfABlockDies)
{
    const UT_SharedWeakPtr<TUSeqTimedValue> watch(timeline);
    const quint64 edition = UT_Edition::current();
    std::vector<std::string> words;
    addShot(1, 5);
    ASSERT_TRUE(timeline->insertBlock(6, 5, new LastWords([&] {
        EXPECT_EQ(UT_Edition::current(), edition + 4) << "whoever remembers the block looks again";
        words.push_back(frames());
    })));
    addShot(11, 5);
    ASSERT_TRUE(timeline->removeBlock({6, 5, false}));
    EXPECT_EQ(words, std::vector<std::string>{"1..5 11..15"});

    ASSERT_TRUE(timeline->insertBlock(20, 5, new LastWords([&] { words.push_back(watch ? "alive" : "gone"); })));
    ASSERT_TRUE(session.top().removeTimedValue(timeline));
    EXPECT_EQ(words.back(), "gone");
}

TEST_F(SeqTimedValueEdits, CountsItsEdits)
{
    const quint64 start = UT_Edition::current();
    addShot(1, 10);
    addShot(11, 10);
    addTransition(11, 1, 1);
    EXPECT_EQ(UT_Edition::current(), start + 3);
    EXPECT_FALSE(timeline->removeBlock({1, 11, false}));
    EXPECT_EQ(UT_Edition::current(), start + 3);
}

TEST(SeqTimedValueAlone, HoldsOnlyWhatNeedsNoIds)
{
    TUSeqTimedValue alone(nullptr, QStringLiteral("alone"));
    EXPECT_EQ(alone.sceneCommon(), nullptr);
    EXPECT_TRUE(alone.insertBlock(1, 10, nullptr));
    AT_SceneSeq seq(SC_Id(1), SC_Id(2));
    EXPECT_FALSE(alone.insertBlock(11, 10, &seq));
    EXPECT_TRUE(alone.removeBlock({1, 10, false}));
    TUSoundTimedValue sounds(nullptr, QStringLiteral("alone"));
    EXPECT_TRUE(sounds.addSound(1, 2).isNull());
    EXPECT_FALSE(sounds.addSound(TUSoundTimedValue::Sound{SC_Id(3), 1, 2, QString()}));
    EXPECT_FALSE(sounds.removeSound(SC_Id(3)));
}
