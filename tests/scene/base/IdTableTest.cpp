#include "scene/base/UT_IdTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>

TEST(IdTable, IsEmptyAtFirstAndFindsNothing)
{
    UT_IdTable<int> table;
    EXPECT_TRUE(table.isEmpty());
    EXPECT_EQ(table.find(SC_Id(1)), nullptr);
    EXPECT_EQ(table.find(SC_Id()), nullptr);
}

TEST(IdTable, MakesAValueOnceAndFindsItAgain)
{
    UT_IdTable<int> table;
    EXPECT_EQ(table[SC_Id(5)], 0);
    table[SC_Id(5)] = 7;
    EXPECT_EQ(table[SC_Id(5)], 7);
    EXPECT_FALSE(table.isEmpty());
    ASSERT_NE(table.find(SC_Id(5)), nullptr);
    EXPECT_EQ(*table.find(SC_Id(5)), 7);
    EXPECT_EQ(table.find(SC_Id(6)), nullptr);
    EXPECT_EQ(table.find(SC_Id()), nullptr) << "the null id is no key";
}

TEST(IdTable, FindsWhatIsMissingToBeMissingAtEverySize)
{
    UT_IdTable<int> table;
    for (int i = 1; i <= 300; ++i) {
        table[SC_Id(i)] = i;
        ASSERT_EQ(table.find(SC_Id(-i)), nullptr) << i;
    }
}

TEST(IdTable, AnswersAsASortedMapForAnyIds)
{
    std::mt19937_64 random(11);
    UT_IdTable<int> table;
    std::map<qint64, int> map;
    const auto put = [&table, &map](qint64 id, int value) {
        table[SC_Id(id)] = value;
        map[id] = value;
    };
    put(std::numeric_limits<qint64>::min(), 1);
    put(std::numeric_limits<qint64>::max(), 2);
    for (int i = 1; i <= 20000; ++i) {
        const qint64 id = i % 2 ? qint64(random()) : qint64(random() % 5000) - 2500;
        if (id != 0)
            put(id, i);
    }
    for (const auto &entry : map) {
        const int *found = table.find(SC_Id(entry.first));
        ASSERT_NE(found, nullptr) << entry.first;
        ASSERT_EQ(*found, entry.second) << entry.first;
    }
    for (qint64 id = -3000; id < 3000; ++id)
        ASSERT_EQ(table.find(SC_Id(id)) != nullptr, map.count(id) != 0) << id;
}

TEST(IdTable, ForgetsWhatIsRemovedAndNothingElse)
{
    std::mt19937_64 random(12);
    for (const qint64 range : {20, 300, 5000}) {
        UT_IdTable<int> table;
        std::map<qint64, int> map;
        for (int i = 1; i <= 20000; ++i) {
            const qint64 id = qint64(random() % quint64(range)) * (i % 3 == 0 ? 16 : 1) + 1;
            if (random() % 2) {
                table[SC_Id(id)] = i;
                map[id] = i;
            } else {
                table.remove(SC_Id(id));
                map.erase(id);
            }
            ASSERT_EQ(table.size(), map.size());
            ASSERT_EQ(table.find(SC_Id(id)) != nullptr, map.count(id) != 0) << id;
        }
        for (const auto &entry : map) {
            const int *found = table.find(SC_Id(entry.first));
            ASSERT_NE(found, nullptr) << entry.first;
            ASSERT_EQ(*found, entry.second) << entry.first;
        }
    }
    UT_IdTable<int>().remove(SC_Id(1));
}
