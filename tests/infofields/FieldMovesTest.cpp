#include "infofields/FieldTexts.h"
#include "infofields/PKC_InfoFieldText.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <vector>

namespace
{

using Ids = std::list<int>;

void append(PKC_InfoFieldDescList &list, int id)
{
    list.add(PKC_InfoFieldDesc::TEXT, id, text("n%1").arg(id), PKC_InfoFieldDesc::DEFAULT, 16);
}

void append(PKC_InfoFieldList &list, int id)
{
    list.push_back(new PKC_InfoFieldText(id, text("v%1").arg(id), QString()));
}

template <typename List>
List listOf(const Ids &ids)
{
    List list;
    for (const int id : ids)
        append(list, id);
    return list;
}

std::string printed(const Ids &ids)
{
    std::ostringstream out;
    for (const int id : ids)
        out << id << ' ';
    return out.str();
}

/// What a move does, told on a plain list of distinct ids: the new order and the answer.
struct PlainMove {
    Ids ids;
    int answer = endId;
};

PlainMove plainMove(const Ids &before, int id, int beforeId)
{
    std::vector<int> ids(before.begin(), before.end());
    const auto placeOf = [&ids](int wanted) {
        if (wanted == firstId)
            return ids.begin();
        return wanted == endId ? ids.end() : std::find(ids.begin(), ids.end(), wanted);
    };
    const auto entry = placeOf(id);
    if (entry == ids.end())
        return {before, endId};
    const int moved = *entry;
    const int neighbour = entry + 1 == ids.end() ? endId : *(entry + 1);
    const auto target = placeOf(beforeId);
    if (target == entry || target == entry + 1)
        return {before, moved};
    const int targetId = target == ids.end() ? endId : *target;
    ids.erase(entry);
    ids.insert(placeOf(targetId), moved);
    return {Ids(ids.begin(), ids.end()), neighbour};
}

struct Case {
    Ids ids;
    int id = 0;
    int beforeId = 0;
};

Case randomCase(unsigned int seed)
{
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    std::vector<int> pool;
    for (int id = -8; id < 9; ++id)
        pool.push_back(id);
    std::shuffle(pool.begin(), pool.end(), random);
    pool.resize(std::size_t(below(9)));
    const auto anyId = [&] {
        const int kind = below(8);
        if (kind == 0)
            return endId;
        if (kind == 1)
            return firstId;
        if (kind == 2 || pool.empty())
            return below(17) - 8; // perhaps not there
        return pool[std::size_t(below(int(pool.size())))];
    };
    Case result;
    result.ids.assign(pool.begin(), pool.end());
    result.id = anyId();
    result.beforeId = anyId();
    return result;
}

template <typename List>
class ListMoves : public ::testing::Test
{
};

using AllLists = ::testing::Types<PKC_PanelInfoFieldDescList, PKC_ProjectInfoFieldDescList, PKC_InfoFieldList>;
TYPED_TEST_SUITE(ListMoves, AllLists);

} // namespace

TYPED_TEST(ListMoves, PutAnEntryBeforeAnother)
{
    auto list = listOf<TypeParam>({1, 2, 3, 4});
    EXPECT_EQ(list.move(3, 1), 4);
    EXPECT_EQ(idsOf(list), (Ids{3, 1, 2, 4}));
    EXPECT_EQ(list.move(3, 4), 1);
    EXPECT_EQ(idsOf(list), (Ids{1, 2, 3, 4}));
    EXPECT_EQ(list.move(4, 2), endId); // it was the last
    EXPECT_EQ(idsOf(list), (Ids{1, 4, 2, 3}));
}

TYPED_TEST(ListMoves, TakeReservedIdsAsPlaces)
{
    auto list = listOf<TypeParam>({1, 2, 3});
    EXPECT_EQ(list.move(3, firstId), endId);
    EXPECT_EQ(idsOf(list), (Ids{3, 1, 2}));
    EXPECT_EQ(list.move(1, endId), 2);
    EXPECT_EQ(idsOf(list), (Ids{3, 2, 1}));
    EXPECT_EQ(list.move(firstId, 1), 2);
    EXPECT_EQ(idsOf(list), (Ids{2, 3, 1}));
    EXPECT_EQ(list.move(endId, firstId), endId);
    EXPECT_EQ(idsOf(list), (Ids{2, 3, 1}));
}

TYPED_TEST(ListMoves, GoToTheEndBeforeAnIdThatIsNotThere)
{
    auto list = listOf<TypeParam>({1, 2, 3});
    EXPECT_EQ(list.move(1, 99), 2);
    EXPECT_EQ(idsOf(list), (Ids{2, 3, 1}));
    EXPECT_EQ(list.move(1, 99), 1); // it is there already
    EXPECT_EQ(list.move(99, 1), endId);
    EXPECT_EQ(idsOf(list), (Ids{2, 3, 1}));
}

TYPED_TEST(ListMoves, AnswerTheEntryItselfWhenItStandsThere)
{
    auto list = listOf<TypeParam>({5, 6, 7});
    EXPECT_EQ(list.move(6, 6), 6);
    EXPECT_EQ(list.move(5, 6), 5);
    EXPECT_EQ(list.move(7, endId), 7);
    EXPECT_EQ(list.move(5, firstId), 5);
    EXPECT_EQ(list.move(firstId, 6), 5); // by its own id
    EXPECT_EQ(list.move(firstId, firstId), 5);
    EXPECT_EQ(idsOf(list), (Ids{5, 6, 7}));
    TypeParam none;
    EXPECT_EQ(none.move(firstId, endId), endId);
}

TYPED_TEST(ListMoves, KeepTheEntryItself)
{
    auto list = listOf<TypeParam>({1, 2, 3});
    const auto entry = list.find(1);
    const auto *address = &*entry;
    list.move(1, endId);
    EXPECT_EQ(&list.back(), address);
}

TYPED_TEST(ListMoves, AgreeWithAPlainListAndAreUndone)
{
    for (unsigned int seed = 1; seed <= 3000; ++seed) {
        const Case random = randomCase(seed);
        auto list = listOf<TypeParam>(random.ids);
        const std::string before = textOf(list);
        const int moved = random.id == firstId && !random.ids.empty() ? random.ids.front() : random.id;

        const int answer = list.move(random.id, random.beforeId);
        const PlainMove expected = plainMove(random.ids, random.id, random.beforeId);
        const std::string script = "seed " + std::to_string(seed) + ": move " + std::to_string(random.id) + " before "
            + std::to_string(random.beforeId) + " in " + printed(random.ids);
        ASSERT_EQ(answer, expected.answer) << script;
        ASSERT_EQ(printed(idsOf(list)), printed(expected.ids)) << script;

        list.move(moved, answer);
        ASSERT_EQ(textOf(list), before) << script;
    }
}

TEST(FieldListMoves, HaveASecondName)
{
    auto list = listOf<PKC_InfoFieldList>({1, 2, 3});
    EXPECT_EQ(list.moveInfoField(1, endId), 2);
    EXPECT_EQ(idsOf(list), (Ids{2, 3, 1}));
}
