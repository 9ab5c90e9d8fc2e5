#include "infofields/FieldTexts.h"
#include "infofields/PKC_InfoFieldImage.h"
#include "infofields/PKC_InfoFieldText.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

using Desc = PKC_InfoFieldDesc;
using Ids = std::list<int>;

static_assert(std::is_base_of_v<std::list<UT_SharedPtr<PKC_InfoField>>, PKC_InfoFieldList>);

PKC_InfoFieldList listOf(const Ids &ids)
{
    PKC_InfoFieldList list;
    for (const int id : ids)
        list.push_back(new PKC_InfoFieldText(id, QString(), QString()));
    return list;
}

Ids merged(const PKC_InfoFieldList &list, Ids into)
{
    list.getIds(into);
    return into;
}

int idOf(const PKC_InfoFieldList &list, PKC_InfoFieldList::const_reverse_iterator place)
{
    return place == list.rend() ? 1000 : (*place)->id();
}

} // namespace

TEST(FieldListLookups, FindByIdAndReservedIdsMeanPlaces)
{
    auto list = listOf({4, -2, 4});
    EXPECT_EQ(list.find(-2), std::next(list.begin()));
    EXPECT_EQ(list.find(4), list.begin());
    EXPECT_EQ(list.find(5), list.end());
    EXPECT_EQ(list.find(endId), list.end());
    EXPECT_EQ(list.find(firstId), list.begin());
    PKC_InfoFieldList none;
    EXPECT_EQ(none.find(firstId), none.end());
}

TEST(FieldListLookups, FindFromTheBack)
{
    const auto list = listOf({4, -2, 4, 1});
    EXPECT_EQ(list.rfind(4), std::next(list.rbegin()));
    EXPECT_EQ(idOf(list, list.rfind(-2)), -2);
    EXPECT_EQ(list.rfind(5), list.rend());
    EXPECT_EQ(list.rfind(endId), list.rbegin());
    EXPECT_EQ(list.rfind(firstId), list.rend());
}

TEST(FieldListLookups, KnowWhatTheListContains)
{
    auto list = listOf({4, -2});
    EXPECT_TRUE(list.contain(4));
    EXPECT_TRUE(list.contain(firstId));
    EXPECT_FALSE(list.contain(0));
    EXPECT_FALSE(list.contain(endId));
    EXPECT_FALSE(PKC_InfoFieldList().contain(firstId));
    EXPECT_FALSE(list.containsCustomSize());
    list.back()->setSize(Desc::CUSTOM);
    EXPECT_TRUE(list.containsCustomSize());
}

TEST(FieldListLookups, GiveTheFieldItself)
{
    auto list = listOf({4, -2});
    EXPECT_EQ(list.getInfoField(-2), list.back());
    EXPECT_EQ(list.getInfoField(firstId), list.front());
    EXPECT_FALSE(list.getInfoField(endId));
    EXPECT_FALSE(list.getInfoField(9));
    EXPECT_FALSE(PKC_InfoFieldList().getInfoField(firstId));
}

TEST(FieldListLookups, GiveTheGlobalFieldBeforeALocalOne)
{
    const auto list = listOf({-5, -6, 0, -1, 7, -2, -3});
    EXPECT_EQ(list.getPreviousGlobalInfoField(-3), 7);
    EXPECT_EQ(list.getPreviousGlobalInfoField(-2), 7);
    EXPECT_EQ(list.getPreviousGlobalInfoField(-1), 0);
    EXPECT_EQ(list.getPreviousGlobalInfoField(-6), -5); // none: the first
    EXPECT_EQ(list.getPreviousGlobalInfoField(-5), -5);
    EXPECT_EQ(list.getPreviousGlobalInfoField(-9), -9); // not here
    EXPECT_EQ(list.getPreviousGlobalInfoField(7), 7);
    EXPECT_EQ(list.getPreviousGlobalInfoField(99), 99);
    EXPECT_EQ(list.getPreviousGlobalInfoField(endId), endId);
    EXPECT_EQ(list.getPreviousGlobalInfoField(firstId), firstId);
    EXPECT_EQ(listOf({-1, 3, -1}).getPreviousGlobalInfoField(-1), 3); // of two the last
}

TEST(FieldListIds, GiveTheGreatestFreeLocalId)
{
    EXPECT_EQ(PKC_InfoFieldList().getUniqId(), -1);
    EXPECT_EQ(listOf({-1, -2, 4}).getUniqId(), -3);
    EXPECT_EQ(listOf({-3, -1}).getUniqId(), -2);
    EXPECT_EQ(listOf({firstId, 0}).getUniqId(), -1);
}

TEST(FieldListIds, AreMergedBehindTheirNeighbours)
{
    EXPECT_EQ(merged(listOf({3, -1, 2}), {}), (Ids{3, -1, 2}));
    EXPECT_EQ(merged(listOf({1, -5, 2}), {1, 2}), (Ids{1, -5, 2}));
    EXPECT_EQ(merged(listOf({5, 1}), {1, 2}), (Ids{1, 2, 5}));
    EXPECT_EQ(merged(listOf({5}), {endId, 1}), (Ids{endId, 1, 5})); // the first has no neighbour, whatever is there
    std::set<int> ids{9};
    listOf({4, -2, 4}).getIds(ids);
    EXPECT_EQ(ids, (std::set<int>{-2, 4, 9}));
}

TEST(FieldListInsertion, PutsAFieldBeforeAnother)
{
    auto list = listOf({1, 2});
    const auto insert = [&list](int id, int beforeId) {
        return list.insertInfoField(UT_SharedPtr<PKC_InfoField>(new PKC_InfoFieldText(id, {}, {})), beforeId);
    };
    EXPECT_EQ(insert(3, 2), 3);
    EXPECT_EQ(insert(4, endId), 4);
    EXPECT_EQ(insert(5, 99), 5);
    EXPECT_EQ(insert(6, firstId), 6);
    EXPECT_EQ(insert(1, 1), 1);
    EXPECT_EQ(idsOf(list), (Ids{6, 1, 1, 3, 2, 4, 5}));
}

TEST(FieldListInsertion, PutsTheFieldAsItIs)
{
    auto list = listOf({1});
    list.front()->setSize(Desc::CUSTOM);
    const UT_SharedPtr<PKC_InfoField> field = new PKC_InfoFieldImage(2, text("key"), text("name"));
    field->setType(imageComment);
    EXPECT_EQ(list.insertInfoField(field, endId), 2);
    EXPECT_EQ(list.back(), field);
    EXPECT_EQ(textOf(list), "1: 1 CUSTOM= | 2:name 18=key");
    EXPECT_EQ(field->refCount, 2);
}

TEST(FieldListInsertion, GivesAFieldWithAReservedIdALocalOne)
{
    auto list = listOf({1, -1});
    const UT_SharedPtr<PKC_InfoField> field = new PKC_InfoFieldText(endId, text("a"), text("name"));
    EXPECT_EQ(list.insertInfoField(field, -1), -2);
    EXPECT_EQ(list.insertInfoField(UT_SharedPtr<PKC_InfoField>(new PKC_InfoFieldText(firstId, {}, {})), firstId), -3);
    EXPECT_EQ(textOf(list), "-3: 1= | 1: 1= | -2:name 1=a | -1: 1=");
    EXPECT_EQ(list.getInfoField(-2), field);
}

TEST(FieldListInsertion, PutsNothingForANullPointer)
{
    auto list = listOf({1});
    EXPECT_EQ(list.insertInfoField(UT_SharedPtr<PKC_InfoField>(), endId), endId);
    EXPECT_EQ(idsOf(list), (Ids{1}));
}

TEST(FieldListInsertion, MakesATextOrAnImage)
{
    PKC_InfoFieldList list;
    EXPECT_EQ(list.insertInfoField(Desc::TEXT, text("n"), -7, Desc::MAXIMUM, 5, text("v"), endId), -7);
    EXPECT_EQ(list.insertInfoField(Desc::IMAGE, text("m"), -8, text("w"), endId), -8);
    EXPECT_EQ(list.insertInfoField(Desc::IMAGE, 3, text("x"), -7), 3);
    EXPECT_EQ(list.insertInfoField(Desc::TEXT, 4, firstId), 4);
    EXPECT_EQ(textOf(list), "4: 1= | 3: 2=x | -7:n 1 MAXIMUM 5=v | -8:m 2=w");
    EXPECT_NE(dynamic_cast<PKC_InfoFieldImage *>(list.getInfoField(3).get()), nullptr);
    EXPECT_NE(dynamic_cast<PKC_InfoFieldText *>(list.getInfoField(4).get()), nullptr);
}

TEST(FieldListInsertion, DropsTheCommentBitAndMakesAnythingButAPlainImageAText)
{
    PKC_InfoFieldList list;
    list.insertInfoField(textComment, 1, endId);
    list.insertInfoField(imageComment, 2, endId);
    list.insertInfoField(Desc::Type(0), 3, endId);
    list.insertInfoField(Desc::Type(3), 4, endId);
    EXPECT_EQ(textOf(list), "1: 1= | 2: 1= | 3: 1= | 4: 1=");
}

TEST(FieldListInsertion, KeepsTheNameOfALocalFieldAlone)
{
    PKC_InfoFieldList list;
    list.insertInfoField(Desc::TEXT, text("n"), 7, QString(), endId);
    list.insertInfoField(Desc::TEXT, text("n"), -7, QString(), endId);
    list.insertInfoField(Desc::TEXT, text("n"), 0, QString(), endId);
    list.insertInfoField(Desc::TEXT, text("n"), endId, QString(), endId);
    EXPECT_EQ(textOf(list), "7: 1= | -7:n 1= | 0: 1= | -1:n 1=");
}

TEST(FieldListInsertion, ChoosesALocalIdForAReservedOne)
{
    auto list = listOf({-1, -3});
    EXPECT_EQ(list.insertInfoField(Desc::TEXT, endId, endId), -2);
    EXPECT_EQ(list.insertInfoField(Desc::TEXT, firstId, firstId), -4);
    EXPECT_EQ(idsOf(list), (Ids{-4, -1, -3, -2}));
}

TEST(FieldListInsertion, GivesLaterFieldsTheCustomSize)
{
    PKC_InfoFieldList list;
    list.insertInfoField(Desc::TEXT, QString(), 1, Desc::MINIMUM, 1, QString(), endId);
    list.insertInfoField(Desc::TEXT, QString(), 2, Desc::CUSTOM, 2, QString(), endId);
    list.insertInfoField(Desc::TEXT, QString(), 3, Desc::MAXIMUM, 3, QString(), firstId);
    list.insertInfoField(Desc::TEXT, 4, endId);
    EXPECT_EQ(textOf(list), "3: 1 CUSTOM 3= | 1: 1 MINIMUM 1= | 2: 1 CUSTOM 2= | 4: 1 CUSTOM=");
}

TEST(FieldListReserving, ReplacesTheFieldsByEmptyOnes)
{
    PKC_PanelInfoFieldDescList descs;
    descs.add(Desc::TEXT, 3, text("a"), Desc::CUSTOM, 50);
    descs.add(Desc::IMAGE, 1, text("b"), Desc::MINIMUM, 60);
    descs.add(textComment, 2, text("c"), Desc::DEFAULT, 70);
    descs.add(imageComment, 4, text("d"), Desc::DEFAULT, 70);
    auto list = listOf({9, -1});
    list.front()->setSize(Desc::CUSTOM);
    list.reserveInfoFields(descs);
    EXPECT_EQ(textOf(list), "3: 1= | 1: 2= | 2: 17= | 4: 18=");
    EXPECT_NE(dynamic_cast<PKC_InfoFieldText *>(list.getInfoField(2).get()), nullptr);
    EXPECT_NE(dynamic_cast<PKC_InfoFieldImage *>(list.getInfoField(4).get()), nullptr);
    list.reserveInfoFields(PKC_PanelInfoFieldDescList());
    EXPECT_TRUE(list.empty());
}

TEST(FieldListReserving, KeepsTheIdsOfDescriptors)
{
    PKC_PanelInfoFieldDescList descs;
    for (const int id : {endId, -1, firstId})
        descs.add(Desc::TEXT, id, text("a"), Desc::DEFAULT, 16);
    PKC_InfoFieldList list;
    list.reserveInfoFields(descs);
    EXPECT_EQ(idsOf(list), (Ids{endId, -1, firstId}));
}

TEST(FieldListReserving, AddsExtraFieldsAtTheirPlaces)
{
    PKC_ExtraInfoFieldDescList extras;
    extras.emplace_back(Desc::TEXT, text("before 2"), 2);
    extras.emplace_back(Desc::IMAGE, text("last"), endId);
    extras.emplace_back(Desc::TEXT, text("nowhere"), 99);
    extras.emplace_back(textComment, text("first"), firstId);
    extras.emplace_back(Desc::TEXT, text("before -1"), -1);
    auto list = listOf({1, 2});
    list.reserveExtraInfoFields(extras);
    EXPECT_EQ(
        textOf(list), "-4:first 1= | 1: 1= | -5:before -1 1= | -1:before 2 1= | 2: 1= | -2:last 2= | -3:nowhere 1=");
}

TEST(FieldListReserving, GivesExtraFieldsTheCustomSizeOfOthers)
{
    PKC_ExtraInfoFieldDescList extras;
    extras.emplace_back(Desc::TEXT, text("a"), endId);
    auto list = listOf({1});
    list.front()->setSize(Desc::CUSTOM);
    list.reserveExtraInfoFields(extras);
    EXPECT_EQ(textOf(list), "1: 1 CUSTOM= | -1:a 1 CUSTOM=");
}

TEST(FieldListReserving, GivesTheNamedLocalFieldsBack)
{
    auto list = listOf({1});
    list.insertInfoField(Desc::IMAGE, text("b"), -2, QString(), endId);
    list.insertInfoField(Desc::TEXT, text("a"), -5, QString(), firstId);
    list.insertInfoField(Desc::TEXT, 7, endId);
    list.insertInfoField(Desc::TEXT, -3, endId);
    list.insertInfoField(Desc::TEXT, text("c"), -4, QString(), endId);
    PKC_ExtraInfoFieldDescList extras;
    extras.emplace_back(Desc::TEXT, text("there"), 0);
    list.copyExtra(&extras);
    EXPECT_EQ(textOf(extras), "there 1 @0 | a 1 @1 | b 2 @7 | c 1 @2147483647");
    list.copyExtra(nullptr);
}

TEST(FieldListEdits, RemapEachEntryOnce)
{
    auto list = listOf({1, 2, 3, 1});
    EXPECT_TRUE(list.remap({{1, 2}, {2, 1}, {9, 4}}));
    EXPECT_EQ(idsOf(list), (Ids{2, 1, 3, 2}));
    EXPECT_TRUE(list.remapInfoField({{3, -3}}));
    EXPECT_TRUE(list.remap({}));
    EXPECT_EQ(idsOf(list), (Ids{2, 1, -3, 2}));
}

TEST(FieldListEdits, RemapNothingOntoAReservedId)
{
    auto list = listOf({1, 2, 3});
    EXPECT_TRUE(list.remap({{1, endId}, {2, firstId}, {3, 4}}));
    EXPECT_EQ(idsOf(list), (Ids{1, 2, 4}));
}

TEST(FieldListEdits, RemapAFieldThatIsThereTwiceOnce)
{
    auto list = listOf({1, 5});
    list.push_back(list.front());
    list.remap({{1, 2}, {2, 3}});
    EXPECT_EQ(idsOf(list), (Ids{2, 5, 2}));
}

TEST(FieldListEdits, RemoveAllEntriesOfTheIds)
{
    auto list = listOf({1, 2, 3, 1, 4});
    EXPECT_TRUE(list.remove({1, 9}));
    EXPECT_TRUE(list.removeInfoField(std::set<int>{3}));
    EXPECT_TRUE(list.remove({firstId, endId}));
    EXPECT_TRUE(list.remove({}));
    EXPECT_EQ(idsOf(list), (Ids{2, 4}));
}

TEST(FieldListEdits, TakeAFieldOutWithItsPlace)
{
    auto list = listOf({1, 2, 3});
    const UT_SharedPtr<PKC_InfoField> second = list.removeInfoField(2);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->id(), 2);
    EXPECT_EQ(second->nextId(), 3);
    EXPECT_EQ(second->refCount, 1);
    const UT_SharedPtr<PKC_InfoField> last = list.removeInfoField(3);
    ASSERT_TRUE(last);
    EXPECT_EQ(last->nextId(), endId);
    EXPECT_EQ(idsOf(list), (Ids{1}));
    list.insertInfoField(last, last->nextId());
    list.insertInfoField(second, second->nextId());
    EXPECT_EQ(idsOf(list), (Ids{1, 2, 3}));
}

TEST(FieldListEdits, TakeNoFieldOutForAReservedId)
{
    auto list = listOf({1});
    EXPECT_FALSE(list.removeInfoField(firstId));
    EXPECT_FALSE(list.removeInfoField(endId));
    EXPECT_FALSE(list.removeInfoField(9));
    EXPECT_EQ(idsOf(list), (Ids{1}));
    auto reserved = listOf({firstId, endId});
    EXPECT_TRUE(reserved.removeInfoField(endId));
    EXPECT_TRUE(reserved.removeInfoField(firstId));
}

TEST(FieldListEdits, RenameLocalFieldsAlone)
{
    PKC_InfoFieldList list;
    list.insertInfoField(Desc::TEXT, text("old"), -4, QString(), endId);
    list.insertInfoField(Desc::TEXT, 4, endId);
    QString oldName = text("before");
    EXPECT_EQ(list.renameInfoField(4, text("no"), oldName), endId);
    EXPECT_EQ(list.renameInfoField(-9, text("no"), oldName), endId);
    EXPECT_EQ(list.renameInfoField(endId, text("no"), oldName), endId);
    EXPECT_EQ(oldName, text("before"));
    EXPECT_EQ(list.renameInfoField(-4, text("new"), oldName), -4);
    EXPECT_EQ(oldName, text("old"));
    EXPECT_EQ(list.renameInfoField(firstId, text("newer"), oldName), -4);
    EXPECT_EQ(oldName, text("new"));
    EXPECT_EQ(list.renameInfoField(-4, text("newest")), -4);
    EXPECT_EQ(list.renameInfoField(4, text("no")), endId);
    EXPECT_EQ(textOf(list), "-4:newest 1= | 4: 1=");
    list.move(4, firstId);
    EXPECT_EQ(list.renameInfoField(firstId, text("no"), oldName), endId); // the first is global
    EXPECT_EQ(oldName, text("new"));
    EXPECT_EQ(PKC_InfoFieldList().renameInfoField(firstId, text("no")), endId);
}

TEST(FieldListEdits, RenameWithOneTextForBothNames)
{
    PKC_InfoFieldList list;
    list.insertInfoField(Desc::TEXT, text("old"), -4, QString(), endId);
    QString name = text("new");
    list.renameInfoField(-4, name, name);
    EXPECT_EQ(name, text("old"));
    EXPECT_EQ(textOf(list), "-4:new 1=");
}

TEST(FieldListNulls, AreEntriesThatNothingFinds)
{
    auto list = listOf({2, -1});
    list.push_front(nullptr);
    list.push_back(nullptr);
    EXPECT_TRUE(list.contain(2));
    EXPECT_TRUE(list.contain(firstId));
    EXPECT_FALSE(list.getInfoField(firstId));
    EXPECT_FALSE(list.containsCustomSize());
    EXPECT_EQ(list.getUniqId(), -2);
    EXPECT_EQ(list.getPreviousGlobalInfoField(-1), 2);
    EXPECT_EQ(merged(list, {}), (Ids{2, -1}));
    EXPECT_EQ(list.move(firstId, endId), endId);
    EXPECT_EQ(list.move(2, endId), -1);
    EXPECT_EQ(list.renameInfoField(firstId, text("n")), endId);
    EXPECT_EQ(list.insertInfoField(Desc::TEXT, 5, firstId), 5);
    list.remap({{5, 6}});
    EXPECT_EQ(textOf(list), "6: 1= | null | -1: 1= | null | 2: 1=");
    EXPECT_EQ(list.removeInfoField(-1)->nextId(), endId); // a null entry has no id
    list.remove({6});
    EXPECT_EQ(textOf(list), "null | null | 2: 1=");
    PKC_ExtraInfoFieldDescList extras;
    list.copyExtra(&extras);
    EXPECT_TRUE(extras.empty());
}
