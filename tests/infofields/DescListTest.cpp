#include "infofields/FieldTexts.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace
{

using Desc = PKC_InfoFieldDesc;
using Ids = std::list<int>;

static_assert(std::is_base_of_v<std::list<Desc>, PKC_InfoFieldDescList>);
static_assert(std::is_abstract_v<PKC_InfoFieldDescList>);

/// One entry per size and type, with ids that are not in order.
template <typename List>
List fullList()
{
    List list(text("inside"), text("elsewhere"), text("0.7"));
    list.add(Desc::TEXT, 3, text("Dialog %1"), Desc::DEFAULT, 16);
    list.add(Desc::IMAGE, 0, text("<Sketch>"), Desc::MINIMUM, 40);
    list.add(textComment, 7, text("Comments"), Desc::MAXIMUM, -1);
    list.add(imageComment, 1, QString(), Desc::CUSTOM, 2147483647);
    return list;
}

const std::string fullText =
    "3:Dialog %1 1 | 0:<Sketch> 2 MINIMUM 40 | 7:Comments 17 MAXIMUM -1 | 1: 18 CUSTOM 2147483647";

PKC_PanelInfoFieldDescList named(const std::vector<std::pair<int, const char *>> &entries)
{
    PKC_PanelInfoFieldDescList list;
    for (const auto &entry : entries)
        list.add(Desc::TEXT, entry.first, text(entry.second), Desc::DEFAULT, 16);
    return list;
}

PKC_PanelInfoFieldDescList listOf(const Ids &ids)
{
    PKC_PanelInfoFieldDescList list;
    for (const int id : ids)
        list.add(Desc::TEXT, id, QString(), Desc::DEFAULT, 16);
    return list;
}

/// What reading `<field ATTRIBUTES/>` adds to an empty list.
std::string read(const char *attributes)
{
    PKC_ProjectInfoFieldDescList list;
    readPayload(list,
        QStringLiteral("<projectPanelInfoFieldList><field %1/></projectPanelInfoFieldList>").arg(text(attributes)));
    return textOf(list);
}

Ids merged(const PKC_InfoFieldDescList &list, Ids into)
{
    list.getIds(into);
    return into;
}

template <typename List>
class DescList : public ::testing::Test
{
};

using BothLists = ::testing::Types<PKC_PanelInfoFieldDescList, PKC_ProjectInfoFieldDescList>;
TYPED_TEST_SUITE(DescList, BothLists);

} // namespace

TYPED_TEST(DescList, StartsEmptyAndIsAlwaysValid)
{
    const TypeParam list;
    EXPECT_EQ(textsOf(list), TypeParam::kPIO_PKMETA_Keyword.toStdString() + " '' 'plotka-tests' '1.0'");
    EXPECT_EQ(TypeParam::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_EQ(TypeParam(text("n")).metaName(), text("n"));
    EXPECT_TRUE(list.isValid());
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(fullList<TypeParam>().isValid());
}

TYPED_TEST(DescList, CopiesEveryField)
{
    const auto list = fullList<TypeParam>();
    const std::string texts = textsOf(list);
    EXPECT_EQ(textOf(list), fullText);
    const TypeParam copy(list);
    EXPECT_EQ(textOf(copy), fullText);
    EXPECT_EQ(textsOf(copy), texts);
    TypeParam assigned;
    assigned.add(Desc::TEXT, 9, text("old"), Desc::DEFAULT, 16);
    assigned = list;
    EXPECT_EQ(textOf(assigned), fullText);
    EXPECT_EQ(textsOf(assigned), texts);
    const TypeParam &self = assigned;
    assigned = self;
    EXPECT_EQ(textOf(assigned), fullText);
    EXPECT_EQ(textsOf(assigned), texts);
}

TYPED_TEST(DescList, ClonesIndependently)
{
    auto list = fullList<TypeParam>();
    const auto clone = cloneOf(list);
    ASSERT_TRUE(clone);
    list.front().setName(text("changed"));
    list.pop_back();
    EXPECT_EQ(textOf(*clone), fullText);
    EXPECT_EQ(textsOf(*clone), textsOf(list));
}

TYPED_TEST(DescList, ReadsBackWhatItWrote)
{
    const auto list = fullList<TypeParam>();
    const auto again = as<TypeParam>(readBack(list));
    ASSERT_TRUE(again);
    EXPECT_EQ(textOf(*again), fullText);
    EXPECT_EQ(textsOf(*again), textsOf(list));
    EXPECT_EQ(markupOf(*again), markupOf(list));
}

TYPED_TEST(DescList, StopsReadingAtTheEndOfItsOwnElement)
{
    TypeParam list;
    const QString own = TypeParam::kPIO_PKMETA_Keyword;
    readPayload(list,
        QStringLiteral("<other><field id='1'/></other><%1><field id='2'><field id='3'/></field></%1><field id='4'/>")
            .arg(own));
    EXPECT_EQ(idsOf(list), (Ids{1, 2, 3}));
}

TEST(DescListRecord, HasTwoKindsWithKeywordsOfTheirOwn)
{
    EXPECT_EQ(PKC_PanelInfoFieldDescList::kPIO_PKMETA_Keyword, text("scenePanelInfoFieldList"));
    EXPECT_EQ(PKC_ProjectInfoFieldDescList::kPIO_PKMETA_Keyword, text("projectPanelInfoFieldList"));
}

TEST(DescListRecord, WritesItsAttributesInOrder)
{
    expectGolden("infofields/descriptors.xml",
        markupOf(fullList<PKC_PanelInfoFieldDescList>()) + markupOf(fullList<PKC_ProjectInfoFieldDescList>()));
}

TEST(DescListRecord, WritesNothingWhenItIsEmpty)
{
    EXPECT_EQ(markupOf(PKC_PanelInfoFieldDescList()),
        "<metadata type=\"scenePanelInfoFieldList\" name=\"\" creator=\"plotka-tests\" version=\"1.0\"/>\n");
    const auto again = as<PKC_PanelInfoFieldDescList>(readBack(PKC_PanelInfoFieldDescList()));
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->empty());
}

TEST(DescListRecord, WritesAnUnknownSizeAsTheDefaultOne)
{
    PKC_PanelInfoFieldDescList list;
    list.add(Desc::TEXT, 1, QString(), Desc::Size(9), 16);
    const auto again = as<PKC_PanelInfoFieldDescList>(readBack(list));
    ASSERT_TRUE(again);
    EXPECT_EQ(textOf(*again), "1: 1");
}

TEST(DescListRecord, DumpsItsFieldsForDebugging)
{
    const auto list = fullList<PKC_PanelInfoFieldDescList>();
    QString base;
    list.PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(list),
        base.toStdString()
            + "Field: name=Dialog %1, type=TEXT, id=3, size=DEFAULT, height=16\n"
              "Field: name=<Sketch>, type=IMAGE, id=0, size=MINIMUM, height=40\n"
              "Field: name=Comments, type=TEXT, id=7, size=MAXIMUM, height=-1\n"
              "Field: name=, type=IMAGE, id=1, size=CUSTOM, height=2147483647\n");
    const PKC_PanelInfoFieldDescList none;
    base.clear();
    none.PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(none), base.toStdString() + "EMPTY\n");
}

TEST(DescListRecord, ReadsAFieldThatSaysOnlyItsId)
{
    EXPECT_EQ(read("id='5'"), "5: 1");
    EXPECT_EQ(read("id='-5' name=' a '"), "-5: a  1");
}

TEST(DescListRecord, SkipsAFieldWhoseIdIsNoNumber)
{
    for (const char *bad : {"name='x'", "id=''", "id='abc'", "id='7x'", "id='1.0'", "id='2147483648'", "id='0x7'"})
        EXPECT_EQ(read(bad), "") << bad;
    PKC_PanelInfoFieldDescList list;
    readPayload(list, text("<field id='abc' name='no'/><Field id='1'/><fields id='2'/><field id='3' name='yes'/>"));
    EXPECT_EQ(textOf(list), "3:yes 1");
}

TEST(DescListRecord, ReadsWhatIsNoImageAsAText)
{
    EXPECT_EQ(read("id='1' type='IMAGE'"), "1: 2");
    for (const char *odd : {"TEXT", "", "image", "Image", "IMAGE ", "SOUND"})
        EXPECT_EQ(read(QStringLiteral("id='1' type='%1'").arg(text(odd)).toUtf8().constData()), "1: 1") << odd;
}

TEST(DescListRecord, ReadsTheCommentBitFromExactlyTrue)
{
    EXPECT_EQ(read("id='1' comment='true'"), "1: 17");
    EXPECT_EQ(read("id='1' type='IMAGE' comment='true'"), "1: 18");
    for (const char *odd : {"", "false", "TRUE", "1", "true "})
        EXPECT_EQ(read(QStringLiteral("id='1' comment='%1'").arg(text(odd)).toUtf8().constData()), "1: 1") << odd;
}

TEST(DescListRecord, ReadsAnUnknownSizeAsTheDefaultOne)
{
    EXPECT_EQ(read("id='1' size='MINIMUM'"), "1: 1 MINIMUM");
    EXPECT_EQ(read("id='1' size='MAXIMUM'"), "1: 1 MAXIMUM");
    EXPECT_EQ(read("id='1' size='CUSTOM'"), "1: 1 CUSTOM");
    for (const char *odd : {"", "DEFAULT", "custom", "LARGE", "3"})
        EXPECT_EQ(read(QStringLiteral("id='1' size='%1'").arg(text(odd)).toUtf8().constData()), "1: 1") << odd;
}

TEST(DescListRecord, ReadsABadHeightAsTheDefaultOne)
{
    EXPECT_EQ(read("id='1' height='7'"), "1: 1 7");
    EXPECT_EQ(read("id='1' height='-2147483648'"), "1: 1 -2147483648");
    for (const char *bad : {"", "abc", "1.5", "99999999999"})
        EXPECT_EQ(read(QStringLiteral("id='1' height='%1'").arg(text(bad)).toUtf8().constData()), "1: 1") << bad;
}

TEST(DescListRecord, KeepsDoubledAndReservedIdsOfAFile)
{
    PKC_PanelInfoFieldDescList list;
    readPayload(list,
        text("<field id='1' name='a'/><field id='1' name='b'/><field id='2147483647'/><field id='-2147483648'/>"));
    EXPECT_EQ(textOf(list), "1:a 1 | 1:b 1 | 2147483647: 1 | -2147483648: 1");
}

TEST(DescListRecord, ReadsBehindWhatTheListHolds)
{
    auto list = listOf({5});
    readPayload(list, text("<field id='1'/>"));
    EXPECT_EQ(idsOf(list), (Ids{5, 1}));
}

TEST(DescListLookups, FindByIdAndReservedIdsMeanPlaces)
{
    auto list = named({{4, "a"}, {-2, "b"}, {4, "c"}});
    EXPECT_EQ(list.find(-2)->name(), text("b"));
    EXPECT_EQ(list.find(4)->name(), text("a")); // the first of two
    EXPECT_EQ(list.find(5), list.end());
    EXPECT_EQ(list.find(endId), list.end());
    EXPECT_EQ(list.find(firstId), list.begin());
    PKC_PanelInfoFieldDescList none;
    EXPECT_EQ(none.find(firstId), none.end());
    EXPECT_EQ(none.find(0), none.end());
}

TEST(DescListLookups, DoNotFindStoredReservedIds)
{
    auto list = listOf(Ids{1, endId, firstId});
    EXPECT_EQ(list.find(endId), list.end());
    EXPECT_EQ(list.find(firstId), list.begin());
    EXPECT_FALSE(list.contain(endId));
}

TEST(DescListLookups, FindByExactNameAndNeverByAnEmptyOne)
{
    const auto list = named({{1, ""}, {2, "a"}, {3, "A"}, {4, "a"}});
    EXPECT_EQ(list.find(text("a"))->id(), 2);
    EXPECT_EQ(list.find(text("A"))->id(), 3);
    EXPECT_EQ(list.find(text("b")), list.end());
    EXPECT_EQ(list.find(QString()), list.end());
    EXPECT_EQ(list.find(text("")), list.end());
    EXPECT_TRUE(list.contain(text("A")));
    EXPECT_FALSE(list.contain(text("b")));
    EXPECT_FALSE(list.contain(QString()));
}

TEST(DescListLookups, KnowWhatTheListContains)
{
    const auto list = listOf({4, -2});
    EXPECT_TRUE(list.contain(4));
    EXPECT_TRUE(list.contain(-2));
    EXPECT_TRUE(list.contain(firstId));
    EXPECT_FALSE(list.contain(0));
    EXPECT_FALSE(list.contain(endId));
    EXPECT_FALSE(PKC_PanelInfoFieldDescList().contain(firstId));
    EXPECT_FALSE(list.containsCustomSize());
    EXPECT_TRUE(fullList<PKC_PanelInfoFieldDescList>().containsCustomSize());
    EXPECT_FALSE(PKC_PanelInfoFieldDescList().containsCustomSize());
}

TEST(DescListIds, GiveTheSmallestFreeId)
{
    EXPECT_EQ(PKC_PanelInfoFieldDescList().getUniqId(), 0);
    EXPECT_EQ(listOf({0, 1, 3}).getUniqId(), 2);
    EXPECT_EQ(listOf({3, 1, 0, 0}).getUniqId(), 2);
    EXPECT_EQ(listOf({1, 2}).getUniqId(), 0);
    EXPECT_EQ(listOf({-1, -7, 0, 1}).getUniqId(), 2);
    EXPECT_EQ(listOf(Ids{endId, firstId}).getUniqId(), 0);
}

TEST(DescListIds, AreCollectedIntoASet)
{
    std::set<int> ids{9};
    listOf({4, -2, 4}).getIds(ids);
    EXPECT_EQ(ids, (std::set<int>{-2, 4, 9}));
}

TEST(DescListIds, AreMergedBehindTheirNeighbours)
{
    EXPECT_EQ(merged(listOf({3, 1, 2}), {}), (Ids{3, 1, 2}));
    EXPECT_EQ(merged(listOf({1, 5, 2}), {1, 2}), (Ids{1, 5, 2}));
    EXPECT_EQ(merged(listOf({5, 1}), {1, 2}), (Ids{1, 2, 5}));    // the first has no neighbour
    EXPECT_EQ(merged(listOf({2, 1, 6}), {1, 2}), (Ids{1, 6, 2})); // behind the one before it in this list
    EXPECT_EQ(merged(listOf({5, 6, 1}), {1, 2}), (Ids{1, 2, 5, 6}));
    EXPECT_EQ(merged(listOf({4, 4, 8}), {4, 1, 4}), (Ids{4, 8, 1, 4})); // the first of several
    EXPECT_EQ(merged(PKC_PanelInfoFieldDescList(), {1, 2}), (Ids{1, 2}));
}

TEST(DescListEdits, AddAlsoAnIdThatIsThere)
{
    auto list = named({{1, "a"}});
    list.add(Desc::IMAGE, 1, list.front().name(), Desc::CUSTOM, 3);
    EXPECT_EQ(textOf(list), "1:a 1 | 1:a 2 CUSTOM 3");
    EXPECT_EQ(list.find(1), list.begin());
}

TEST(DescListEdits, RemapEachEntryOnce)
{
    auto list = listOf({1, 2, 3, 1});
    EXPECT_TRUE(list.remap({{1, 2}, {2, 1}, {9, 4}}));
    EXPECT_EQ(idsOf(list), (Ids{2, 1, 3, 2}));
    EXPECT_TRUE(list.remap({{3, endId}, {2, firstId}})); // onto a reserved id goes nothing
    EXPECT_TRUE(list.remap({}));
    EXPECT_EQ(idsOf(list), (Ids{2, 1, 3, 2}));
}

TEST(DescListEdits, RemoveAllEntriesOfTheIds)
{
    auto list = listOf({1, 2, 3, 1});
    EXPECT_TRUE(list.remove({1, 3, 9}));
    EXPECT_EQ(idsOf(list), (Ids{2}));
    EXPECT_TRUE(list.remove({9}));
    EXPECT_TRUE(list.remove({}));
    EXPECT_EQ(idsOf(list), (Ids{2}));
    // Reserved ids mean no place in a set of ids.
    EXPECT_TRUE(list.remove({firstId, endId}));
    EXPECT_EQ(idsOf(list), (Ids{2}));
}
