#include "infofields/FieldTexts.h"
#include "infofields/PKC_InfoFieldText.h"
#include "infofields/PKC_InfoFieldUtil.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "support/Records.h"

#include <gtest/gtest.h>

namespace
{

using Ids = std::list<int>;

/// The ids of fields with these ids, ordered by descriptors with those.
Ids ordered(const Ids &fieldIds, const Ids &descIds)
{
    PKC_InfoFieldList fields;
    for (const int id : fieldIds)
        fields.push_back(new PKC_InfoFieldText(id, {}, {}));
    PKC_PanelInfoFieldDescList descs;
    for (const int id : descIds)
        descs.add(PKC_InfoFieldDesc::TEXT, id, {}, PKC_InfoFieldDesc::DEFAULT, 16);
    PKC_InfoFieldUtil::order_infofield_based_on_desc(descs, fields);
    return idsOf(fields);
}

} // namespace

TEST(FieldOrder, IsThatOfTheDescriptorsAndThenTheOldOne)
{
    EXPECT_EQ(ordered({1, -1, 2, 9, 3}, {3, 2, 1}), (Ids{3, 2, 1, -1, 9}));
    EXPECT_EQ(ordered({2, 1}, {5, 1}), (Ids{1, 2}));
    EXPECT_EQ(ordered({2, 1}, {}), (Ids{2, 1}));
    EXPECT_EQ(ordered({}, {1}), (Ids{}));
}

TEST(FieldOrder, TakesOneFieldForEachDescriptor)
{
    EXPECT_EQ(ordered({1, 2, 1, 2}, {2, 1}), (Ids{2, 1, 1, 2}));
    EXPECT_EQ(ordered({1, 2, 1, 2}, {2, 2, 2, 1}), (Ids{2, 2, 1, 1}));
}

TEST(FieldOrder, TakesReservedIdsAsTheyAre)
{
    EXPECT_EQ(ordered({1, endId, firstId}, {firstId, endId}), (Ids{firstId, endId, 1}));
}

TEST(FieldOrder, KeepsTheFieldsThemselves)
{
    PKC_InfoFieldList fields;
    fields.push_back(new PKC_InfoFieldText(1, {}, {}));
    fields.push_back(nullptr);
    fields.push_back(new PKC_InfoFieldText(2, text("v"), text("n")));
    const UT_SharedPtr<PKC_InfoField> second = fields.back();
    second->setHeight(70);
    second->setNextId(5);
    PKC_PanelInfoFieldDescList descs;
    descs.add(PKC_InfoFieldDesc::TEXT, 2, {}, PKC_InfoFieldDesc::DEFAULT, 16);
    PKC_InfoFieldUtil::order_infofield_based_on_desc(descs, fields);
    EXPECT_EQ(fields.front(), second);
    EXPECT_EQ(second->refCount, 2);
    EXPECT_EQ(second->nextId(), 5);
    EXPECT_EQ(textOf(fields), "2:n 1 70=v | 1: 1= | null");
}

TEST(FieldOrder, MakesTheRecordANewOne)
{
    PKC_InfoFieldList fields(text("inside"), text("elsewhere"), text("0.7"));
    PKC_InfoFieldUtil::order_infofield_based_on_desc(PKC_PanelInfoFieldDescList(), fields);
    EXPECT_EQ(textsOf(fields), "infoFields '' 'plotka-tests' '1.0'");
}
