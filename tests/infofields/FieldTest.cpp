#include "infofields/FieldTexts.h"
#include "infofields/PKC_InfoFieldImage.h"
#include "infofields/PKC_InfoFieldText.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace
{

using Desc = PKC_InfoFieldDesc;

static_assert(std::has_virtual_destructor_v<Desc>);
static_assert(std::is_abstract_v<PKC_InfoField>);
static_assert(std::is_base_of_v<UT_ShareBase, PKC_InfoField>);

/// A field in which nothing has its default.
template <typename Field>
Field fullField()
{
    Field field(-4, text("value"), text("name"));
    field.setType(imageComment);
    field.setSize(Desc::MAXIMUM);
    field.setHeight(90);
    field.setNextId(8);
    field.setDragName(text("dragged"));
    return field;
}

template <typename Field>
Field assignedFrom(const Field &other)
{
    Field field(1, QString(), QString());
    field = other;
    const Field &self = field;
    field = self;
    EXPECT_EQ(field.nextId(), other.nextId()); // what a copy leaves behind
    return field;
}

template <typename Field>
class FieldKind : public ::testing::Test
{
};

using BothKinds = ::testing::Types<PKC_InfoFieldText, PKC_InfoFieldImage>;
TYPED_TEST_SUITE(FieldKind, BothKinds);

} // namespace

TEST(FieldDesc, StartsAsATextOfDefaultSize)
{
    const Desc desc;
    EXPECT_EQ(textOf(desc), "0: 1");
    EXPECT_EQ(desc.size(), Desc::DEFAULT);
    EXPECT_EQ(desc.height(), 16);
    EXPECT_EQ(Desc::DEFAULT_HEIGHT, 16);
    EXPECT_EQ(Desc::commentsField, text("Comments"));
    EXPECT_EQ(Desc::endId, 0x7fffffff);
    EXPECT_EQ(Desc::firstId, -0x7fffffff - 1);
}

TEST(FieldDesc, HasTheValuesThatApplicationsStore)
{
    EXPECT_EQ(int(Desc::TEXT), 1);
    EXPECT_EQ(int(Desc::IMAGE), 2);
    EXPECT_EQ(int(Desc::MINIMUM), 0);
    EXPECT_EQ(int(Desc::MAXIMUM), 1);
    EXPECT_EQ(int(Desc::DEFAULT), 2);
    EXPECT_EQ(int(Desc::CUSTOM), 3);
}

TEST(FieldDesc, TellsItsTypeByBits)
{
    EXPECT_TRUE(Desc::isText(Desc::TEXT) && !Desc::isImage(Desc::TEXT) && !Desc::isComment(Desc::TEXT));
    EXPECT_TRUE(!Desc::isText(Desc::IMAGE) && Desc::isImage(Desc::IMAGE) && !Desc::isComment(Desc::IMAGE));
    EXPECT_TRUE(Desc::isText(textComment) && !Desc::isImage(textComment) && Desc::isComment(textComment));
    EXPECT_TRUE(!Desc::isText(imageComment) && Desc::isImage(imageComment) && Desc::isComment(imageComment));
    Desc desc;
    EXPECT_TRUE(desc.isText() && !desc.isImage() && !desc.isComment());
    desc.setType(imageComment);
    EXPECT_TRUE(!desc.isText() && desc.isImage() && desc.isComment());
}

TEST(FieldDesc, CopiesAndChangesEveryField)
{
    const Desc desc(textComment, 7, text("name"), Desc::CUSTOM, 30);
    EXPECT_EQ(textOf(desc), "7:name 17 CUSTOM 30");
    EXPECT_EQ(textOf(Desc(desc)), textOf(desc));
    Desc changed;
    changed.setType(textComment);
    changed.setId(7);
    changed.setName(text("name"));
    changed.setSize(Desc::CUSTOM);
    changed.setHeight(30);
    EXPECT_EQ(textOf(changed), textOf(desc));
    Desc assigned;
    assigned = desc;
    const Desc &self = assigned;
    assigned = self;
    EXPECT_EQ(textOf(assigned), textOf(desc));
}

TYPED_TEST(FieldKind, StartsWithDefaultSizeAndHeight)
{
    const TypeParam field(5, text("value"), text("name"));
    const int type = std::is_same_v<TypeParam, PKC_InfoFieldText> ? 1 : 2;
    EXPECT_EQ(textOf(static_cast<const Desc &>(field)), "5:name " + std::to_string(type));
    EXPECT_EQ(field.value(), text("value"));
    EXPECT_EQ(field.nextId(), endId);
    EXPECT_TRUE(field.dragName().isEmpty());
}

TYPED_TEST(FieldKind, IsGlobalFromZeroOn)
{
    EXPECT_TRUE(TypeParam(0, QString(), QString()).isGlobal());
    EXPECT_FALSE(TypeParam(0, QString(), QString()).isLocal());
    EXPECT_TRUE(TypeParam(-1, QString(), QString()).isLocal());
    EXPECT_FALSE(TypeParam(-1, QString(), QString()).isGlobal());
}

TYPED_TEST(FieldKind, CopiesAllButTheFieldThatFollowed)
{
    const auto field = fullField<TypeParam>();
    const TypeParam copy(field);
    EXPECT_EQ(copy.nextId(), endId);
    for (const TypeParam &same : {copy, assignedFrom(field)}) {
        EXPECT_EQ(textOf(static_cast<const Desc &>(same)), "-4:name 18 MAXIMUM 90");
        EXPECT_EQ(same.value(), text("value"));
        EXPECT_EQ(same.dragName(), text("dragged"));
    }
}

TYPED_TEST(FieldKind, ClonesWithoutHeightCommentBitAndNeighbour)
{
    const auto field = fullField<TypeParam>();
    const std::unique_ptr<PKC_InfoField> clone(field.clone());
    ASSERT_NE(dynamic_cast<TypeParam *>(clone.get()), nullptr);
    const std::string type = std::is_same_v<TypeParam, PKC_InfoFieldText> ? "1" : "2";
    EXPECT_EQ(textOf(static_cast<const Desc &>(*clone)), "-4:name " + type + " MAXIMUM");
    EXPECT_EQ(clone->value(), text("value"));
    EXPECT_EQ(clone->dragName(), text("dragged"));
    EXPECT_EQ(clone->nextId(), endId);
}

TYPED_TEST(FieldKind, IsCountedByItself)
{
    const UT_SharedPtr<PKC_InfoField> field = new TypeParam(1, QString(), QString());
    const TypeParam copy(static_cast<const TypeParam &>(*field));
    EXPECT_EQ(field->refCount, 1);
    EXPECT_EQ(copy.refCount, 0);
}

TEST(FieldKinds, NameTheirValue)
{
    PKC_InfoFieldText caption(1, text("a"), QString());
    caption.setText(text("b"));
    EXPECT_EQ(caption.value(), text("b"));
    caption.setValue(text("c"));
    EXPECT_EQ(caption.text(), text("c"));
    PKC_InfoFieldImage sketch(1, text("a"), QString());
    sketch.setKey(text("b"));
    EXPECT_EQ(sketch.value(), text("b"));
    sketch.setValue(text("c"));
    EXPECT_EQ(sketch.key(), text("c"));
}
