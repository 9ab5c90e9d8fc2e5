#include "scene/changes/TUChangeSets.h"

#include "scene/metadata/PIO_MetadataBool.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

TEST(ChangeSet, IsOrderedAndHoldsEachKeyOnce)
{
    TUChangeSet<int> set;
    EXPECT_TRUE(set.empty());
    EXPECT_TRUE(set.insert(5).second);
    EXPECT_TRUE(set.insert(3).second);
    EXPECT_FALSE(set.insert(5).second);
    EXPECT_EQ(*set.insert(5).first, 5);
    EXPECT_EQ(*set.insert(set.end(), 4), 4);
    EXPECT_EQ(*set.insert(set.begin(), 4), 4);
    EXPECT_EQ(std::vector<int>(set.begin(), set.end()), (std::vector<int>{3, 4, 5}));
    EXPECT_EQ(set.size(), 3u);
    EXPECT_EQ(set.count(4), 1u);
    EXPECT_EQ(set.count(9), 0u);
    EXPECT_TRUE(set.include(4));
    EXPECT_FALSE(set.include(9));
    EXPECT_EQ(*set.find(4), 4);
    EXPECT_EQ(set.find(9), set.end());
}

TEST(ChangeSet, ErasesByKeyPlaceAndRange)
{
    TUChangeSet<int> set;
    for (const int key : {1, 2, 3, 4, 5})
        set.insert(key);
    EXPECT_EQ(set.erase(9), 0u);
    EXPECT_EQ(set.erase(1), 1u);
    EXPECT_EQ(*set.erase(set.find(2)), 3);
    EXPECT_EQ(*set.erase(set.find(3), set.find(5)), 5);
    EXPECT_EQ(set.size(), 1u);
    set.clear();
    EXPECT_TRUE(set.empty());
}

TEST(ChangeSet, ErasesAKeyGivenFromItself)
{
    TUChangeSet<int> set;
    set.insert(1);
    set.insert(2);
    EXPECT_EQ(set.erase(*set.begin()), 1u);
    EXPECT_EQ(*set.begin(), 2);
}

TEST(ChangeSet, CopiesAndMoves)
{
    TUChangeSet<int> set;
    set.insert(1);
    TUChangeSet<int> copy = set;
    copy.insert(2);
    EXPECT_EQ(set.size(), 1u);
    const TUChangeSet<int> moved = std::move(copy);
    EXPECT_EQ(moved.size(), 2u);
}

TEST(MetaModif, IsOneEntryForEachRecordAndCode)
{
    PIO_MetadataBool a(QStringLiteral("a"));
    PIO_MetadataBool b(QStringLiteral("b"));
    TUMetadataSet set;
    set.insert(PIO_MetaModif(&a, 3));
    set.insert(PIO_MetaModif(&a, 6));
    set.insert(PIO_MetaModif(&a, 3));
    set.insert(PIO_MetaModif(&b, 3));
    set.insert(PIO_MetaModif());
    EXPECT_EQ(set.size(), 4u);
    EXPECT_TRUE(set.include(PIO_MetaModif(&a, 6)));
    EXPECT_FALSE(set.include(PIO_MetaModif(&b, 6)));
    EXPECT_EQ(set.find(PIO_MetaModif(&b, 3))->metadata(), &b);
    EXPECT_EQ(set.find(PIO_MetaModif(&b, 3))->changeCode(), 3);
    EXPECT_TRUE(PIO_MetaModif(&a, 3) == PIO_MetaModif(&a, 3));
    EXPECT_FALSE(PIO_MetaModif(&a, 3) == PIO_MetaModif(&b, 3));
    EXPECT_EQ(PIO_MetaModif().metadata(), nullptr);
    EXPECT_EQ(PIO_MetaModif().changeCode(), 0);
}
