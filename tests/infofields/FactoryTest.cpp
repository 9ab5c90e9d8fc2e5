#include "infofields/FieldTexts.h"
#include "infofields/PKC_HiddenInfoFieldList.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"
#include "metadata/PKC_MetadataFactory.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

struct Kind {
    const char *keyword;
    bool (*isOfClass)(const PIO_Metadata *);
};

template <typename Record>
bool is(const PIO_Metadata *record)
{
    return dynamic_cast<const Record *>(record) != nullptr;
}

const Kind kinds[] = {
    {"projectPanelInfoFieldList", is<PKC_ProjectInfoFieldDescList>},
    {"scenePanelInfoFieldList", is<PKC_PanelInfoFieldDescList>},
    {"infoFields", is<PKC_InfoFieldList>},
    {"extraInfoFieldList", is<PKC_ExtraInfoFieldDescList>},
    {"hiddenInfoField", is<PKC_HiddenInfoFieldList>},
};

std::unique_ptr<PIO_Metadata> made(const QString &type)
{
    return std::unique_ptr<PIO_Metadata>(
        PKC_MetadataFactory::createInstance()->createMeta(type, text("n"), text("c"), text("0.1")));
}

} // namespace

TEST(InfoFieldFactory, MakesTheClassOfAType)
{
    for (const Kind &kind : kinds) {
        const auto record = made(text(kind.keyword));
        ASSERT_TRUE(record) << kind.keyword;
        EXPECT_TRUE(kind.isOfClass(record.get())) << kind.keyword;
        EXPECT_EQ(textsOf(*record), std::string(kind.keyword) + " 'n' 'c' '0.1'");
        EXPECT_FALSE(made(text(kind.keyword).toUpper())) << kind.keyword;
    }
}

TEST(InfoFieldFactory, KeepsAForeignCreatorAndAnOlderVersionThroughLoadAndClone)
{
    PKC_MetadataFactory::createInstance();
    for (const Kind &kind : kinds) {
        const QString keyword = text(kind.keyword);
        const QString payload =
            QStringLiteral("<%1><field id='4' name='a' height='16' position='5' type='IMAGE'/></%1>");
        const auto record = loadRecord(keyword, payload.arg(keyword), text("0.3"));
        ASSERT_TRUE(record) << kind.keyword;
        const std::unique_ptr<PIO_Metadata> clone(record->clone());
        EXPECT_TRUE(kind.isOfClass(clone.get())) << kind.keyword;
        EXPECT_EQ(textsOf(*clone), std::string(kind.keyword) + " 'inside' 'elsewhere' '0.3'");
        EXPECT_EQ(markupOf(*clone), markupOf(*record));
        EXPECT_NE(markupOf(*clone).find("<field "), std::string::npos) << kind.keyword;
    }
}
