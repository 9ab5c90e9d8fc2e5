#include "NaiveTimeline.h"

#include "scene/base/UT_Edition.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "support/News.h"
#include "support/SceneSession.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <sstream>

namespace
{

/// Edits a timed value and a naive list alike and compares the two after every edit.
class RandomTimeline
{
public:
    RandomTimeline(SceneSession &session, News &news, unsigned int seed) :
        m_session(session), m_news(news), m_random(seed),
        m_timedValue(*session.top().addSeqTimedValue(QStringLiteral("T"))), m_script("seed " + std::to_string(seed))
    {
        session.changeManager()->clear();
    }
    ~RandomTimeline()
    {
        m_session.top().removeTimedValue(&m_timedValue);
        m_session.changeManager()->clear();
    }

    void edit();
    void compareAnswers();

    const NaiveTimeline &naive() const { return m_naive; }
    const std::string &script() const { return m_script; }

private:
    unsigned int upTo(unsigned int last) { return std::uniform_int_distribution<unsigned int>(0, last)(m_random); }
    bool chance(unsigned int percent) { return upTo(99) < percent; }
    SC_Id newId() { return m_session.project()->projectCommon()->createId(); }
    AT_FrameBlockKey someKey();
    unsigned int someCut();

    /// Runs one edit on both; they must agree about the answer, the blocks and the news.
    template <typename Real, typename Naive>
    void both(const std::string &what, Real real, Naive naive);

    void insert();
    void insertTransition();

    SceneSession &m_session;
    News &m_news;
    std::mt19937 m_random;
    TUSeqTimedValue &m_timedValue;
    NaiveTimeline m_naive;
    std::string m_script;
};

AT_FrameBlockKey RandomTimeline::someKey()
{
    if (m_naive.blocks.empty() || chance(5))
        return {upTo(80), upTo(12), chance(30)};
    AT_FrameBlockKey key = m_naive.blocks[upTo(static_cast<unsigned int>(m_naive.blocks.size()) - 1)].key();
    if (chance(5))
        key.isTransition = !key.isTransition;
    if (chance(5))
        ++key.frameCount;
    return key;
}

unsigned int RandomTimeline::someCut()
{
    if (m_naive.blocks.empty() || chance(10))
        return upTo(80);
    return m_naive.blocks[upTo(static_cast<unsigned int>(m_naive.blocks.size()) - 1)].from;
}

template <typename Real, typename Naive>
void RandomTimeline::both(const std::string &what, Real real, Naive naive)
{
    m_script += "\n" + what;
    const std::string before = m_naive.text();
    const quint64 edition = UT_Edition::current();
    const bool placedScene = [this, naive] { // is a block that places a scene among those that change?
        NaiveTimeline probe = m_naive;
        naive(probe);
        for (const NaiveTimeline *timeline : {&m_naive, &probe}) {
            const NaiveTimeline &other = timeline == &probe ? m_naive : probe;
            for (const NaiveTimeline::Block &block : timeline->blocks) {
                const int place = block.objectId ? other.of(block.objectId) : -1;
                if (block.placesScene && (place < 0 || other.blocks[std::size_t(place)].text() != block.text()))
                    return true;
            }
        }
        return false;
    }();
    const bool accepted = naive(m_naive);
    ASSERT_EQ(real(m_timedValue), accepted) << m_script << "\non " << before;
    ASSERT_EQ(textOf(m_timedValue), m_naive.text()) << m_script << "\non " << before;
    ASSERT_EQ(problemsOf(m_timedValue), "") << m_script << "\non " << before;
    const bool changed = before != m_naive.text();
    ASSERT_EQ(
        m_news.told(), changed ? placedScene ? "sceneChanged timedValuesChanged{T}" : "timedValuesChanged{T}" : "")
        << m_script << "\non " << before;
    ASSERT_EQ(UT_Edition::current() != edition, changed) << m_script;
}

void RandomTimeline::insert()
{
    NaiveTimeline::Block block;
    block.from = chance(50) ? m_naive.lastFrame() + 1 + (chance(20) ? upTo(4) : 0) : upTo(80);
    block.count = chance(3) ? 0 : 1 + upTo(9);
    if (chance(2))
        block.from = TUSeqTimedValue::maxFrame - upTo(3);
    TUSeq *seq = nullptr;
    if (chance(85)) {
        const SC_Id object = newId();
        block.objectId = object.value();
        block.placesScene = true;
        if (chance(80)) {
            block.hasWarp = true;
            block.start = 1 + upTo(5);
            block.end = chance(70) ? block.start + block.count - 1.0 : block.start + upTo(20);
            seq = new AT_TimeWarpSeq(object, newId(), block.start, block.end);
        } else {
            seq = new AT_SceneSeq(object, newId());
        }
    }
    both(
        "insert " + block.text(),
        [&](TUSeqTimedValue &timedValue) {
            const bool inserted = timedValue.insertBlock(block.from, block.count, seq);
            if (!inserted)
                delete seq;
            return inserted;
        },
        [&](NaiveTimeline &naive) { return naive.insertBlock(block); });
}

void RandomTimeline::insertTransition()
{
    const unsigned int cut = someCut();
    const unsigned int before = upTo(3);
    const unsigned int after = upTo(3);
    const SC_Id id = newId();
    std::ostringstream what;
    what << "transition " << id.value() << " at " << cut << " -" << before << " +" << after;
    both(
        what.str(),
        [&](TUSeqTimedValue &timedValue) {
            AT_TransitionSeq *const transition = new AT_TransitionSeq(id, AT_TransitionSeq::Dissolve);
            const bool inserted = timedValue.insertTransition(cut, before, after, transition);
            if (!inserted)
                delete transition;
            return inserted;
        },
        [&](NaiveTimeline &naive) { return naive.insertTransition(cut, before, after, id.value()); });
}

void RandomTimeline::edit()
{
    std::ostringstream what;
    const unsigned int kind = upTo(99);
    if (kind < 36)
        return insert();
    if (kind < 68)
        return insertTransition();
    const AT_FrameBlockKey key = someKey();
    what << key.fromFrame << "+" << key.frameCount << (key.isTransition ? "T" : "");
    if (kind < 73) {
        both(
            "remove " + what.str(), [&](TUSeqTimedValue &tv) { return tv.removeBlock(key); },
            [&](NaiveTimeline &naive) { return naive.removeBlock(key); });
    } else if (kind < 77) {
        both(
            "remove transition " + what.str(), [&](TUSeqTimedValue &tv) { return tv.removeTransition(key); },
            [&](NaiveTimeline &naive) { return naive.removeTransition(key); });
    } else if (kind < 90) {
        const unsigned int from = chance(60) ? key.fromFrame : key.fromFrame + upTo(6) - 3;
        const unsigned int count = chance(30) ? key.frameCount : upTo(12);
        what << " to " << from << "+" << count;
        both(
            "set " + what.str(), [&](TUSeqTimedValue &tv) { return tv.setBlockRange(key, from, count); },
            [&](NaiveTimeline &naive) { return naive.setBlockRange(key, from, count); });
    } else {
        const unsigned int from = chance(70) ? key.fromFrame : upTo(80);
        const int delta = int(upTo(12)) - 6;
        what.str(std::string());
        what << from << " by " << delta;
        both(
            "move " + what.str(), [&](TUSeqTimedValue &tv) { return tv.moveBlocks(from, delta); },
            [&](NaiveTimeline &naive) { return naive.moveBlocks(from, delta); });
    }
}

void RandomTimeline::compareAnswers()
{
    const TUSeqTimedValue &tv = m_timedValue;
    const auto indexOf = [&tv](TUSeqTimedValue::const_iterator it) {
        return it == tv.endBlock() ? -1 : int(it - tv.beginBlock());
    };
    const auto indexOfBlock = [&tv](const AT_FrameBlock &block) {
        return block.isValid() ? int(&block - &*tv.beginBlock()) : -1;
    };
    SCOPED_TRACE(m_script + "\n" + m_naive.text());
    ASSERT_EQ(tv.nFrames(), m_naive.lastFrame());
    ASSERT_EQ(tv.blockCount(), m_naive.blocks.size());
    ASSERT_EQ(indexOfBlock(tv.firstBlock()), m_naive.blocks.empty() ? -1 : 0);
    const unsigned int interesting[] = {2147483644u, 2147483645u, 2147483646u, 2147483647u, 2147483648u, 4294967295u};
    for (unsigned int i = 0; i < 120; ++i) {
        const unsigned int frame = i < 114 ? i : interesting[i - 114];
        ASSERT_EQ(indexOf(tv.blockIteratorAt(frame)), m_naive.at(frame)) << frame;
        ASSERT_EQ(indexOfBlock(tv.blockAt(frame)), m_naive.at(frame)) << frame;
        ASSERT_EQ(indexOf(tv.nextBlockIteratorAt(frame)), m_naive.after(frame)) << frame;
        ASSERT_EQ(indexOfBlock(tv.nextBlockAfter(frame)), m_naive.after(frame)) << frame;
        ASSERT_EQ(indexOf(tv.previousBlockIteratorAt(frame)), m_naive.before(frame)) << frame;
        ASSERT_EQ(indexOfBlock(tv.prevBlockBefore(frame)), m_naive.before(frame)) << frame;
        for (const double position : {frame - 0.5, double(frame), frame + 0.25})
            ASSERT_EQ(tv.blockCountAt(position), m_naive.countAt(position)) << position;
    }
    for (std::size_t place = 0; place < m_naive.blocks.size(); ++place) {
        const NaiveTimeline::Block &block = m_naive.blocks[place];
        const int next = place + 1 < m_naive.blocks.size() ? int(place) + 1 : -1;
        const auto it = tv.beginBlock() + std::ptrdiff_t(place);
        ASSERT_EQ(indexOf(tv.blockIteratorAt(block.key())), int(place));
        ASSERT_EQ(indexOfBlock(tv.nextBlock(block.key())), next);
        ASSERT_EQ(indexOfBlock(tv.previousBlock(block.key())), int(place) - 1);
        ASSERT_EQ(indexOf(tv.nextBlockIterator(it)), next);
        ASSERT_EQ(indexOf(tv.previousBlockIterator(it)), int(place) - 1);
        {
            AT_FrameBlockKey key = block.key();
            ++key.fromFrame;
            ASSERT_EQ(indexOf(tv.blockIteratorAt(key)), m_naive.of(key));
            key = block.key();
            key.isTransition = !key.isTransition;
            ASSERT_EQ(indexOf(tv.blockIteratorAt(key)), m_naive.of(key));
            key.frameCount = 0;
            ASSERT_EQ(indexOf(tv.blockIteratorAt(key)), -1);
        }
        ASSERT_EQ(indexOf(tv.blockIteratorOf(SC_Id(block.objectId))), m_naive.of(block.objectId));
        ASSERT_EQ(indexOfBlock(tv.blockOf(SC_Id(block.objectId))), m_naive.of(block.objectId));
    }
    for (const qint64 absent : {qint64(-1), m_session.project()->projectCommon()->nextId()})
        ASSERT_EQ(indexOf(tv.blockIteratorOf(SC_Id(absent))), -1);
    ASSERT_EQ(indexOf(tv.blockIteratorOf(SC_Id())), m_naive.of(0));
}

} // namespace

TEST(SeqTimedValueRandom, AgreesWithAPlainListAfterEveryEdit)
{
    SceneSession session;
    session.makeProject();
    News news(*session.changeManager());
    std::size_t transitions = 0;
    std::size_t blocks = 0;
    for (unsigned int seed = 1; seed <= 2000; ++seed) {
        RandomTimeline timeline(session, news, seed);
        for (int step = 0; step < 40; ++step) {
            timeline.edit();
            if (HasFatalFailure())
                return;
        }
        timeline.compareAnswers();
        if (HasFatalFailure())
            return;
        for (const NaiveTimeline::Block &block : timeline.naive().blocks)
            ++(block.isTransition ? transitions : blocks);
    }
    // The scripts are worth something only when they build something.
    EXPECT_GT(blocks, 2000u * 4);
    EXPECT_GT(transitions, 1500u);
}
