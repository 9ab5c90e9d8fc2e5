#include "infofields/PKC_HiddenInfoFieldList.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

static_assert(std::is_base_of_v<std::set<QString>, PKC_HiddenInfoFieldList>);

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

PKC_HiddenInfoFieldList fullList()
{
    PKC_HiddenInfoFieldList names(text("inside"), text("elsewhere"), text("0.7"));
    names.insert({text("b"), text("B"), text("%1 <&>"), text("a"), QString()});
    return names;
}

const std::string fullText = "|%1 <&>|B|a|b"; // capitals before small letters

std::string textOf(const PKC_HiddenInfoFieldList &names)
{
    return QStringList(names.begin(), names.end()).join(QLatin1Char('|')).toStdString();
}

} // namespace

TEST(HiddenList, StartsEmptyAndIsAlwaysValid)
{
    const PKC_HiddenInfoFieldList names;
    EXPECT_EQ(textsOf(names), "hiddenInfoField '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_HiddenInfoFieldList(text("n")).metaName(), text("n"));
    EXPECT_TRUE(names.isValid());
    EXPECT_TRUE(names.empty());
    EXPECT_TRUE(fullList().isValid());
}

TEST(HiddenList, TellsNamesApartByCase)
{
    EXPECT_EQ(textOf(fullList()), fullText);
    EXPECT_EQ(fullList().count(text("A")), 0U);
    EXPECT_EQ(fullList().count(text("a")), 1U);
}

TEST(HiddenList, CopiesAndClonesEveryName)
{
    auto names = fullList();
    const std::string texts = textsOf(names);
    const PKC_HiddenInfoFieldList copy(names);
    PKC_HiddenInfoFieldList assigned;
    assigned.insert(text("old"));
    assigned = names;
    const PKC_HiddenInfoFieldList &self = assigned;
    assigned = self;
    const auto clone = cloneOf(names);
    names.clear();
    for (const PKC_HiddenInfoFieldList *same : {&copy, static_cast<const PKC_HiddenInfoFieldList *>(&assigned),
             static_cast<const PKC_HiddenInfoFieldList *>(clone.get())}) {
        EXPECT_EQ(textOf(*same), fullText);
        EXPECT_EQ(textsOf(*same), texts);
    }
}

TEST(HiddenList, WritesItsNamesInOrder)
{
    expectGolden("infofields/hidden.xml", markupOf(fullList()) + markupOf(PKC_HiddenInfoFieldList()));
}

TEST(HiddenList, ReadsBackWhatItWrote)
{
    const auto again = as<PKC_HiddenInfoFieldList>(readBack(fullList()));
    ASSERT_TRUE(again);
    EXPECT_EQ(textOf(*again), fullText);
    EXPECT_EQ(markupOf(*again), markupOf(fullList()));
}

TEST(HiddenList, DumpsItsNamesForDebugging)
{
    QString base;
    fullList().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullList()),
        base.toStdString() + "Field: name=\nField: name=%1 <&>\nField: name=B\nField: name=a\nField: name=b\n");
    EXPECT_NE(dumpOf(PKC_HiddenInfoFieldList()).find("version=1.0, EMPTY\n"), std::string::npos);
}

TEST(HiddenList, ReadsARepeatedNameOnce)
{
    PKC_HiddenInfoFieldList names;
    readPayload(names, text("<hiddenInfoField><field name='b'/><field name='a'/><field name='b'/></hiddenInfoField>"));
    EXPECT_EQ(textOf(names), "a|b");
}

TEST(HiddenList, ReadsAMissingNameAsAnEmptyOne)
{
    PKC_HiddenInfoFieldList names;
    readPayload(names, text("<field/><field name=''/>"));
    EXPECT_EQ(names.size(), 1U);
    EXPECT_TRUE(names.begin()->isEmpty());
}

TEST(HiddenList, StopsReadingAtTheEndOfItsOwnElement)
{
    PKC_HiddenInfoFieldList names;
    readPayload(names,
        text("<x><field name='a'/></x><Field name='no'/><hiddenInfoField><y/><field name='b'/></hiddenInfoField>"
             "<field name='late'/>"));
    EXPECT_EQ(textOf(names), "a|b");
}
