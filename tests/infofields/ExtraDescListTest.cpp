#include "infofields/FieldTexts.h"
#include "infofields/PKC_ExtraInfoFieldDesc.h"
#include "infofields/PKC_ExtraInfoFieldDescList.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace
{

using Desc = PKC_InfoFieldDesc;

static_assert(!std::is_polymorphic_v<PKC_ExtraInfoFieldDesc>);
static_assert(std::is_base_of_v<std::list<PKC_ExtraInfoFieldDesc>, PKC_ExtraInfoFieldDescList>);

PKC_ExtraInfoFieldDescList fullList()
{
    PKC_ExtraInfoFieldDescList list(text("inside"), text("elsewhere"), text("0.7"));
    list.emplace_back(Desc::TEXT, text("a %2"), 3);
    list.emplace_back(Desc::IMAGE, text("<b>"), endId);
    list.emplace_back(textComment, QString(), -1);
    list.emplace_back(imageComment, text("d"), firstId);
    return list;
}

const std::string fullText = "a %2 1 @3 | <b> 2 @2147483647 |  17 @-1 | d 18 @-2147483648";

std::string read(const char *attributes)
{
    PKC_ExtraInfoFieldDescList list;
    readPayload(list, QStringLiteral("<extraInfoFieldList><field %1/></extraInfoFieldList>").arg(text(attributes)));
    return textOf(list);
}

} // namespace

TEST(ExtraDesc, StartsAsATextWithoutNameAndPlace)
{
    const PKC_ExtraInfoFieldDesc desc;
    EXPECT_EQ(desc.type(), Desc::TEXT);
    EXPECT_TRUE(desc.name().isEmpty());
    EXPECT_EQ(desc.position(), -1);
}

TEST(ExtraDesc, TakesItsPositionAsAnId)
{
    PKC_ExtraInfoFieldDesc desc(Desc::IMAGE, text("a"), 4);
    EXPECT_EQ(desc.position(), 4);
    desc.setId(9);
    EXPECT_EQ(desc.position(), 9);
}

TEST(ExtraDesc, TellsItsTypeByBits)
{
    PKC_ExtraInfoFieldDesc desc;
    EXPECT_TRUE(desc.isText() && !desc.isImage() && !desc.isComment());
    desc.setType(imageComment);
    EXPECT_TRUE(!desc.isText() && desc.isImage() && desc.isComment());
    desc.setName(text("n"));
    EXPECT_EQ(desc.name(), text("n"));
}

TEST(ExtraDesc, CopiesAndMovesEveryField)
{
    PKC_ExtraInfoFieldDesc desc(imageComment, text("a"), 4);
    const auto isSame = [](const PKC_ExtraInfoFieldDesc &other) {
        return other.type() == imageComment && other.name() == text("a") && other.position() == 4;
    };
    const PKC_ExtraInfoFieldDesc copy(desc);
    EXPECT_TRUE(isSame(copy));
    PKC_ExtraInfoFieldDesc assigned;
    assigned = desc;
    EXPECT_TRUE(isSame(assigned));
    const PKC_ExtraInfoFieldDesc &self = assigned;
    assigned = self;
    EXPECT_TRUE(isSame(assigned));
    PKC_ExtraInfoFieldDesc moved(std::move(desc));
    EXPECT_TRUE(isSame(moved));
    PKC_ExtraInfoFieldDesc moveAssigned;
    moveAssigned = std::move(moved);
    EXPECT_TRUE(isSame(moveAssigned));
}

TEST(ExtraDescList, StartsEmptyAndIsAlwaysValid)
{
    const PKC_ExtraInfoFieldDescList list;
    EXPECT_EQ(textsOf(list), "extraInfoFieldList '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_ExtraInfoFieldDescList::kPIO_PKMETA_Keyword, text("extraInfoFieldList"));
    EXPECT_EQ(PKC_ExtraInfoFieldDescList::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_EQ(PKC_ExtraInfoFieldDescList(text("n")).metaName(), text("n"));
    EXPECT_TRUE(list.isValid());
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(fullList().isValid());
}

TEST(ExtraDescList, CopiesAndClonesEveryField)
{
    auto list = fullList();
    const std::string texts = textsOf(list);
    const PKC_ExtraInfoFieldDescList copy(list);
    PKC_ExtraInfoFieldDescList assigned;
    assigned.emplace_back();
    assigned = list;
    const PKC_ExtraInfoFieldDescList &self = assigned;
    assigned = self;
    const auto clone = cloneOf(list);
    list.front().setName(text("changed"));
    for (const PKC_ExtraInfoFieldDescList *same : {&copy, static_cast<const PKC_ExtraInfoFieldDescList *>(&assigned),
             static_cast<const PKC_ExtraInfoFieldDescList *>(clone.get())}) {
        EXPECT_EQ(textOf(*same), fullText);
        EXPECT_EQ(textsOf(*same), texts);
    }
}

TEST(ExtraDescList, WritesItsAttributesInOrder)
{
    expectGolden("infofields/extra_descriptors.xml", markupOf(fullList()) + markupOf(PKC_ExtraInfoFieldDescList()));
}

TEST(ExtraDescList, ReadsBackWhatItWrote)
{
    const auto again = as<PKC_ExtraInfoFieldDescList>(readBack(fullList()));
    ASSERT_TRUE(again);
    EXPECT_EQ(textOf(*again), fullText);
    EXPECT_EQ(markupOf(*again), markupOf(fullList()));
}

TEST(ExtraDescList, DumpsItsFieldsForDebugging)
{
    QString base;
    fullList().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullList()),
        base.toStdString()
            + "Field: name=a %2, type=TEXT, position=3\nField: name=<b>, type=IMAGE, position=2147483647\n"
              "Field: name=, type=TEXT, position=-1\nField: name=d, type=IMAGE, position=-2147483648\n");
    EXPECT_NE(dumpOf(PKC_ExtraInfoFieldDescList()).find("version=1.0, EMPTY\n"), std::string::npos);
}

TEST(ExtraDescList, ReadsWhatIsMissingOrBadAsDefaults)
{
    EXPECT_EQ(read(""), " 1 @-1");
    EXPECT_EQ(read("name=''  type='' comment='' position=''"), " 1 @-1");
    EXPECT_EQ(read("name='n' type='image' comment='yes' position='x'"), "n 1 @-1");
    EXPECT_EQ(read("type='IMAGE'"), " 2 @-1");
    EXPECT_EQ(read("type='TEXT' comment='true'"), " 17 @-1");
    EXPECT_EQ(read("position='12'"), " 1 @12");
    EXPECT_EQ(read("position='2147483648'"), " 1 @-1");
    EXPECT_EQ(read("id='4' position='-2147483648'"), " 1 @-2147483648");
}

TEST(ExtraDescList, StopsReadingAtTheEndOfItsOwnElement)
{
    PKC_ExtraInfoFieldDescList list;
    readPayload(list,
        text("<x><field name='a'/></x><Field name='no'/><extraInfoFieldList><y/><field name='b'/></extraInfoFieldList>"
             "<field name='late'/>"));
    EXPECT_EQ(textOf(list), "a 1 @-1 | b 1 @-1");
}
