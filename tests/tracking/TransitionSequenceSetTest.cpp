#include "tracking/PKC_TransitionSequenceSet.h"

#include "scene/timeline/AT_TransitionSeq.h"
#include "tracking/PKC_SceneChangeManager.h"

#include <QVariant>

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <utility>

namespace
{

using Key = UT_SharedWeakPtr<AT_TransitionSeq>;

class TransitionSequenceSet : public ::testing::Test
{
protected:
    AT_TransitionSeq first{SC_Id(1), AT_TransitionSeq::Dissolve};
    AT_TransitionSeq second{SC_Id(2), AT_TransitionSeq::Slide};
    AT_TransitionSeq third{SC_Id(3), AT_TransitionSeq::EdgeWipe};
};

} // namespace

TEST_F(TransitionSequenceSet, HoldsAKeyOnce)
{
    PKC_TransitionSequenceSet set;
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_TRUE(set.insert(Key(&first)).second);
    const auto again = set.insert(Key(&first));
    EXPECT_FALSE(again.second);
    EXPECT_EQ(again.first, set.begin());
    EXPECT_EQ(set.insert(set.end(), Key(&first)), set.begin());
    EXPECT_EQ(*set.insert(set.end(), Key(&second)), Key(&second));
    EXPECT_EQ(set.size(), 2U);
}

TEST_F(TransitionSequenceSet, FindsItsKeys)
{
    PKC_TransitionSequenceSet set;
    set.insert(Key(&first));
    EXPECT_EQ(set.count(Key(&first)), 1U);
    EXPECT_TRUE(set.include(Key(&first)));
    EXPECT_EQ(set.find(Key(&first)), set.begin());
    EXPECT_EQ(set.count(Key(&second)), 0U);
    EXPECT_FALSE(set.include(Key(&second)));
    EXPECT_EQ(set.find(Key(&second)), set.end());
}

TEST_F(TransitionSequenceSet, WalksInKeyOrder)
{
    PKC_TransitionSequenceSet set;
    for (AT_TransitionSeq *transition : {&third, &first, &second})
        set.insert(Key(transition));
    for (auto it = set.begin(); std::next(it) != set.end(); ++it)
        EXPECT_TRUE(*it < *std::next(it));
}

TEST_F(TransitionSequenceSet, ErasesByKeyPositionAndRange)
{
    PKC_TransitionSequenceSet set;
    for (AT_TransitionSeq *transition : {&first, &second, &third})
        set.insert(Key(transition));
    EXPECT_EQ(set.erase(Key(&second)), 1U);
    EXPECT_EQ(set.erase(Key(&second)), 0U);
    const auto next = set.erase(set.begin());
    EXPECT_EQ(next, set.begin());
    EXPECT_EQ(set.size(), 1U);
    EXPECT_EQ(set.erase(set.begin(), set.end()), set.end());
    EXPECT_TRUE(set.empty());
    set.insert(Key(&first));
    set.clear();
    EXPECT_EQ(set.size(), 0U);
}

TEST_F(TransitionSequenceSet, CopiesAndMoves)
{
    PKC_TransitionSequenceSet set;
    set.insert(Key(&first));
    PKC_TransitionSequenceSet copy(set);
    set.insert(Key(&second));
    EXPECT_EQ(copy.size(), 1U);
    copy = set;
    EXPECT_EQ(copy.size(), 2U);
    const PKC_TransitionSequenceSet &self = copy;
    copy = self;
    EXPECT_EQ(copy.size(), 2U);
    PKC_TransitionSequenceSet moved(std::move(copy));
    EXPECT_EQ(moved.size(), 2U);
    PKC_TransitionSequenceSet assigned;
    assigned = std::move(moved);
    EXPECT_TRUE(assigned.include(Key(&second)));
}

TEST_F(TransitionSequenceSet, KeepsThePlaceOfATransitionThatHasGone)
{
    auto shortLived = std::make_unique<AT_TransitionSeq>(SC_Id(9), AT_TransitionSeq::Dissolve);
    const Key key(shortLived.get());
    PKC_TransitionSequenceSet set;
    set.insert(Key(&first));
    set.insert(key);
    set.insert(Key(&second));
    shortLived.reset();
    EXPECT_EQ(set.size(), 3U);
    ASSERT_NE(set.find(key), set.end());
    EXPECT_EQ(set.find(key)->get(), nullptr);
    EXPECT_EQ(set.erase(key), 1U);
    EXPECT_TRUE(set.include(Key(&first)));
    EXPECT_TRUE(set.include(Key(&second)));
}

TEST_F(TransitionSequenceSet, TravelsInAVariant)
{
    const PKC_SceneChangeManager manager;
    EXPECT_EQ(QMetaType::fromName("PKC_TransitionSequenceSet"), QMetaType::fromType<PKC_TransitionSequenceSet>());
    PKC_TransitionSequenceSet set;
    set.insert(Key(&first));
    const QVariant variant = QVariant::fromValue(set);
    EXPECT_TRUE(variant.value<PKC_TransitionSequenceSet>().include(Key(&first)));
}
