#include "infofields/CaptionText_p.h"
#include "infofields/FieldTexts.h"
#include "infofields/PKC_InfoFieldImage.h"
#include "infofields/PKC_InfoFieldText.h"
#include "metadata/PKC_MetadataFactory.h"
#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QTextDocument>
#include <QXmlAttributes>

#include <gtest/gtest.h>

namespace
{

using Desc = PKC_InfoFieldDesc;
using Ids = std::list<int>;

/// Every type and size, a global and a local field, and an old name from a drag. The texts are html, so that reading
/// leaves them as they are.
PKC_InfoFieldList fullList()
{
    PKC_InfoFieldList list(text("inside"), text("elsewhere"), text("0.7"));
    list.insertInfoField(Desc::TEXT, QString(), 3, Desc::MINIMUM, 40, text("<b>a & %1</b>\r\nb"), endId);
    list.insertInfoField(Desc::IMAGE, text("Local %2"), -2, Desc::MAXIMUM, -1, text("key"), endId);
    list.insertInfoField(Desc::TEXT, text("<n>"), -1, QString(), endId);
    list.back()->setDragName(text("once"));
    list.insertInfoField(Desc::IMAGE, QString(), 0, Desc::CUSTOM, 2147483647, QString(), endId);
    return list;
}

const std::string fullText =
    "3: 1 MINIMUM 40=<b>a & %1</b>\r\nb | -2:Local %2 2 MAXIMUM -1=key | -1:<n> 1 dragged once= | "
    "0: 2 CUSTOM 2147483647=";

/// A field whose object says that it is a comment, which reading never makes.
PKC_InfoFieldList commentList()
{
    PKC_InfoFieldList list(text("inside"), text("elsewhere"), text("0.7"));
    list.insertInfoField(Desc::TEXT, 1, text("plain"), endId);
    list.back()->setType(textComment);
    list.insertInfoField(Desc::IMAGE, 2, text("key"), endId);
    list.back()->setType(imageComment);
    return list;
}

std::string draggedMarkupOf(const PKC_InfoFieldList &list)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    context.setAttribute(text("for_drag"));
    PIO_RecordWriter::write(list, context);
    return writer.bytes().toStdString();
}

/// What reading `<field ATTRIBUTES/>` adds to an empty list.
std::string read(const QString &attributes)
{
    PKC_InfoFieldList list;
    readPayload(list, QStringLiteral("<infoFields><field %1/></infoFields>").arg(attributes));
    return textOf(list);
}

std::string read(const char *attributes)
{
    return read(text(attributes));
}

PKC_InfoFieldList listFrom(const char *payload)
{
    PKC_InfoFieldList list;
    readPayload(list, text(payload));
    return list;
}

/// The text of the value, as a caption shows it.
std::string captionOf(const UT_SharedPtr<PKC_InfoField> &field)
{
    return CaptionText::plainTextOf(field->value()).toStdString();
}

} // namespace

TEST(FieldListRecord, StartsEmptyAndIsAlwaysValid)
{
    const PKC_InfoFieldList list;
    EXPECT_EQ(textsOf(list), "infoFields '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_InfoFieldList::kPIO_PKMETA_Keyword, text("infoFields"));
    EXPECT_EQ(PKC_InfoFieldList::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_EQ(PKC_InfoFieldList(text("n")).metaName(), text("n"));
    EXPECT_TRUE(list.isValid());
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(fullList().isValid());
}

TEST(FieldListRecord, SharesItsFieldsWithCopies)
{
    const auto list = fullList();
    const PKC_InfoFieldList copy(list);
    PKC_InfoFieldList assigned;
    assigned.insertInfoField(Desc::TEXT, 9, endId);
    assigned = list;
    const PKC_InfoFieldList &self = assigned;
    assigned = self;
    for (const PKC_InfoFieldList *same : {&list, &copy, static_cast<const PKC_InfoFieldList *>(&assigned)}) {
        EXPECT_EQ(textOf(*same), fullText);
        EXPECT_EQ(textsOf(*same), "infoFields 'inside' 'elsewhere' '0.7'");
        EXPECT_EQ(same->front(), list.front());
        EXPECT_EQ(same->front()->refCount, 3);
    }
}

TEST(FieldListRecord, ClonesItsFieldsWithoutTheirHeights)
{
    auto list = fullList();
    list.front()->setNextId(9);
    const auto clone = cloneOf(list);
    ASSERT_TRUE(clone);
    EXPECT_EQ(textsOf(*clone), textsOf(list));
    EXPECT_EQ(textOf(*clone),
        "3: 1 MINIMUM=<b>a & %1</b>\r\nb | -2:Local %2 2 MAXIMUM=key | -1:<n> 1 dragged once= | 0: 2 CUSTOM=");
    EXPECT_EQ(clone->front()->nextId(), endId);
    EXPECT_NE(clone->front(), list.front());
    EXPECT_EQ(clone->front()->refCount, 1);
    list.front()->setValue(text("changed"));
    EXPECT_EQ(clone->front()->value(), text("<b>a & %1</b>\r\nb"));
    EXPECT_EQ(textOf(*cloneOf(commentList())), "1: 1=plain | 2: 2=key");
}

TEST(FieldListRecord, ClonesNullEntries)
{
    PKC_InfoFieldList list;
    list.push_back(nullptr);
    EXPECT_EQ(textOf(*cloneOf(list)), "null");
}

TEST(FieldListRecord, WritesItsAttributesInOrder)
{
    expectGolden("infofields/values.xml",
        markupOf(fullList()) + markupOf(commentList()) + draggedMarkupOf(fullList()) + markupOf(PKC_InfoFieldList()));
}

TEST(FieldListRecord, WritesNoNullEntries)
{
    auto list = fullList();
    const std::string markup = markupOf(list);
    const std::string dump = dumpOf(list);
    list.push_front(nullptr);
    EXPECT_EQ(markupOf(list), markup);
    EXPECT_EQ(dumpOf(list), dump);
}

TEST(FieldListRecord, ReadsBackWhatItWroteWithoutCarriageReturnsAndDragNames)
{
    const auto again = as<PKC_InfoFieldList>(readBack(fullList()));
    ASSERT_TRUE(again);
    EXPECT_EQ(textsOf(*again), textsOf(fullList()));
    EXPECT_EQ(textOf(*again),
        "3: 1 MINIMUM 40=<b>a & %1</b>\nb | -2:Local %2 2 MAXIMUM -1=key | -1:<n> 1= | "
        "0: 2 CUSTOM 2147483647=");
    EXPECT_EQ(markupOf(*again), markupOf(fullList()));
}

TEST(FieldListRecord, TellsADragWhatEachFieldIsCalledHere)
{
    PKC_MetadataFactory::createInstance();
    const PIO_RecordResult result = readRecord(QString::fromStdString(draggedMarkupOf(fullList())));
    const auto *again = dynamic_cast<const PKC_InfoFieldList *>(result.record.get());
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->front()->dragName(), QString()); // a global field has no name here
    EXPECT_EQ((*std::next(again->begin()))->dragName(), text("Local %2"));
    EXPECT_EQ((*std::next(again->begin(), 2))->dragName(), text("<n>"));
}

TEST(FieldListRecord, DumpsItsFieldsForDebugging)
{
    QString base;
    fullList().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(fullList()),
        base.toStdString()
            + "Field: name=, type=TEXT, size=MINIMUM, height=40, id=3, value=<b>a & %1</b>\r\nb\n"
              "Field: name=Local %2, type=IMAGE, size=MAXIMUM, height=-1, id=-2, value=key\n"
              "Field: name=<n>, type=TEXT, size=DEFAULT, height=16, id=-1, value=\n"
              "Field: name=, type=IMAGE, size=CUSTOM, height=2147483647, id=0, value=\n");
    EXPECT_NE(dumpOf(PKC_InfoFieldList()).find("version=1.0, EMPTY\n"), std::string::npos);
}

TEST(FieldListRecord, ReadsAFieldThatSaysOnlyItsId)
{
    EXPECT_EQ(read("id='5'"), "5: 1=");
    EXPECT_EQ(read("id='-5'"), "-5: 1=");
    EXPECT_EQ(read("id='5' name='' dragName='' type='' comment='' size='' height='' value=''"), "5: 1=");
}

TEST(FieldListRecord, SkipsAFieldWhoseIdIsNoNumber)
{
    for (const char *bad : {"value='x'", "id=''", "id='abc'", "id='7x'", "id='1.0'", "id='2147483648'"})
        EXPECT_EQ(read(bad), "") << bad;
    EXPECT_EQ(textOf(listFrom("<field id='abc'/><Field id='1'/><x/><field id='3'/>")), "3: 1=");
}

TEST(FieldListRecord, ReadsTypeSizeAndHeightAsDescriptorsDo)
{
    EXPECT_EQ(read("id='1' type='IMAGE'"), "1: 2=");
    EXPECT_EQ(read("id='1' type='image'"), "1: 1=");
    EXPECT_EQ(read("id='1' size='MINIMUM' height='3'"), "1: 1 MINIMUM 3=");
    EXPECT_EQ(read("id='1' size='MAXIMUM'"), "1: 1 MAXIMUM=");
    EXPECT_EQ(read("id='1' size='CUSTOM' height='-3'"), "1: 1 CUSTOM -3=");
    EXPECT_EQ(read("id='1' size='LARGE' height='abc'"), "1: 1=");
}

TEST(FieldListRecord, ReadsANameOfLocalFieldsAlone)
{
    EXPECT_EQ(read("id='7' name='n'"), "7: 1=");
    EXPECT_EQ(read("id='-7' name='n'"), "-7:n 1=");
}

TEST(FieldListRecord, ChoosesLocalIdsForReservedOnes)
{
    EXPECT_EQ(textOf(listFrom("<field id='-1' name='a'/><field id='2147483647' name='b'/><field id='-3'/>"
                              "<field id='-2147483648' name='c' dragName='d'/><field id='2147483647'/>")),
        "-1:a 1= | -2:b 1= | -3: 1= | -4:c 1 dragged d= | -5: 1=");
    PKC_InfoFieldList list;
    list.insertInfoField(Desc::TEXT, -1, endId);
    readPayload(list, text("<field id='2147483647'/>"));
    EXPECT_EQ(idsOf(list), (Ids{-1, -2}));
}

TEST(FieldListRecord, ReadsIntoAListThatOthersChangeMeanwhile)
{
    PKC_InfoFieldList list;
    const UT_SharedPtr<PIO_XML::ComponentReader> reader = list.componentReader();
    const auto readField = [&reader] {
        QXmlAttributes attributes;
        attributes.append(text("id"), QString(), text("id"), text("2147483647"));
        reader->startElement(QString(), text("field"), attributes);
    };
    list.insertInfoField(Desc::TEXT, QString(), 1, Desc::CUSTOM, 16, QString(), endId);
    readField();
    EXPECT_EQ(textOf(list), "1: 1 CUSTOM= | -1: 1 CUSTOM=");
    list.insertInfoField(Desc::TEXT, -2, firstId);
    readField();
    EXPECT_EQ(list.back()->id(), -3);
    list.clear();
    readField();
    EXPECT_EQ(textOf(list), "-1: 1=");
}

TEST(FieldListRecord, GivesFieldsBehindACustomOneTheCustomSize)
{
    EXPECT_EQ(textOf(listFrom("<field id='1' size='MINIMUM'/><field id='2' size='CUSTOM' height='5'/>"
                              "<field id='3' size='MAXIMUM'/><field id='4'/>")),
        "1: 1 MINIMUM= | 2: 1 CUSTOM 5= | 3: 1 CUSTOM= | 4: 1 CUSTOM=");
    PKC_InfoFieldList list;
    list.insertInfoField(Desc::TEXT, QString(), 1, Desc::CUSTOM, 16, QString(), endId);
    readPayload(list, text("<field id='2'/>"));
    EXPECT_EQ(textOf(list), "1: 1 CUSTOM= | 2: 1 CUSTOM=");
}

TEST(FieldListRecord, MakesHtmlOfPlainTexts)
{
    const auto list = listFrom("<field id='1' value='Hello &amp; more'/>");
    EXPECT_TRUE(Qt::mightBeRichText(list.front()->value()));
    EXPECT_EQ(captionOf(list.front()), "Hello & more");
    const auto again = as<PKC_InfoFieldList>(readBack(list));
    ASSERT_TRUE(again);
    EXPECT_EQ(markupOf(*again), markupOf(list)); // once only
}

TEST(FieldListRecord, LeavesHtmlImagesAndEmptyTextsAlone)
{
    EXPECT_EQ(read("id='1' value='&lt;b>a&lt;/b>'"), "1: 1=<b>a</b>");
    EXPECT_EQ(read("id='1' type='IMAGE' value='plain'"), "1: 2=plain");
    EXPECT_EQ(read("id='1' value=''"), "1: 1=");
}

TEST(FieldListRecord, LeavesTheTextOfACommentPlainAndForgetsTheBit)
{
    EXPECT_EQ(read("id='1' comment='true' value='plain'"), "1: 1=plain");
    EXPECT_EQ(read("id='1' type='IMAGE' comment='true' value='key'"), "1: 1=key"); // with the bit it is a text
    // Written without the bit it is an ordinary text to the next reader.
    const auto once = as<PKC_InfoFieldList>(readBack(commentList()));
    const auto twice = as<PKC_InfoFieldList>(readBack(*once));
    EXPECT_EQ(once->front()->value(), text("plain"));
    EXPECT_TRUE(Qt::mightBeRichText(twice->front()->value()));
    EXPECT_EQ(captionOf(twice->front()), "plain");
}

TEST(FieldListRecord, KeepsDragNamesOfTheNewFields)
{
    EXPECT_EQ(textOf(listFrom("<field id='1' dragName='a'/><field id='1' dragName='b'/>")),
        "1: 1 dragged a= | 1: 1 dragged b=");
}

TEST(FieldListRecord, StopsReadingAtTheEndOfItsOwnElement)
{
    EXPECT_EQ(idsOf(listFrom("<x><field id='1'/></x><infoFields><field id='2'><field id='3'/></field></infoFields>"
                             "<field id='4'/>")),
        (Ids{1, 2, 3}));
}

TEST(FieldListRecord, ReadsManyFieldsInProportion)
{
    QString payload;
    for (int i = 0; i < 30000; ++i)
        payload += text("<field id='2147483647' type='IMAGE' size='CUSTOM'/>");
    PKC_InfoFieldList list;
    readPayload(list, payload);
    EXPECT_EQ(list.size(), 30000U);
    EXPECT_EQ(list.back()->id(), -30000);
}
