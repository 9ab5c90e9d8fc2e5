#include "pdf/PKC_PdfOptions.h"

#include "metadata/PKC_MetadataFactory.h"
#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/PKC_PropertyObserver.h"
#include "scene/metadata/PIO_ComponentReader.h"
#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"
#include "support/Warnings.h"

#include <QDataStream>
#include <QIODevice>
#include <QPoint>
#include <QXmlAttributes>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

const QString kExport = QStringLiteral("panel_export_enabled");

UT_SharedPtr<PKC_PropertyDefinition> told()
{
    return new PKC_PropertyDefinition(QStringLiteral("Long"), QStringLiteral("Short"), true, false);
}

/// One option of each kind that is read again.
PKC_PdfOptions fullOptions()
{
    PKC_PdfOptions options(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    const PKC_Property exported(kExport, false, told());
    const PKC_PropertyFromList unit(QStringLiteral("profile_unit"), QStringLiteral("mm"),
        {{QStringLiteral("    mm"), QStringLiteral("mm")}, {QStringLiteral("inches"), QStringLiteral("inches")}}, true,
        false, told());
    const PKC_PropertyFromRange size(QStringLiteral("global_fontsize"), 12, 1, 99, nullptr);
    const PKC_PropertyFromFile image(
        QStringLiteral("cover_bg_image"), QStringLiteral("C:\\a.png"), QStringLiteral("Images (*.png)"), told());
    const PKC_PropertyFromFont font(QStringLiteral("global_font"), QStringLiteral("Courier"), told());
    for (const PKC_Property *property :
        {&exported, static_cast<const PKC_Property *>(&unit), static_cast<const PKC_Property *>(&size),
            static_cast<const PKC_Property *>(&image), static_cast<const PKC_Property *>(&font)})
        options.addPdfOptions(property);
    return options;
}

/// "name:kind=value" of all options in order.
std::string optionsOf(const PKC_PdfOptions &options)
{
    std::list<PKC_Property *> properties;
    options.pdfOptions().getAllProperties(properties);
    QStringList parts;
    for (const PKC_Property *property : properties)
        parts += QStringLiteral("%1:%2=%3")
                     .arg(property->name(), QString::number(property->propertyType()), property->toString());
    return parts.join(QLatin1Char(' ')).toStdString();
}

const std::string fullText = "panel_export_enabled:0=false profile_unit:1=mm global_fontsize:2=12 "
                             "cover_bg_image:3=C:\\a.png global_font:4=Courier";

void expectFullOptions(const PKC_PdfOptions &options)
{
    EXPECT_EQ(options.metaType(), QStringLiteral("pdfOptions"));
    EXPECT_EQ(options.metaName(), QStringLiteral("inside"));
    EXPECT_EQ(options.creator(), QStringLiteral("elsewhere"));
    EXPECT_EQ(options.version(), QStringLiteral("0.7"));
    EXPECT_EQ(optionsOf(options), fullText);
    EXPECT_EQ(markupOf(options), markupOf(fullOptions()));
}

/// The text that the option of a value has in a file.
QString dataOf(const PKC_Property &property)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(-1330642944) << qint32(473);
    property.store(stream);
    return QString::fromLatin1(bytes.toBase64());
}

QString optionOf(const PKC_Property &property)
{
    return QStringLiteral("<option name='%1' type='%2'><value data='%3'/></option>")
        .arg(property.name(), QString::number(property.propertyType()), dataOf(property));
}

/// The options after their reader met `<pdfOptions>CONTENT</pdfOptions>`.
std::string readFrom(const QString &content)
{
    PKC_PdfOptions options;
    readPayload(options, QStringLiteral("<pdfOptions>%1</pdfOptions>").arg(content));
    return optionsOf(options);
}

QString oneOption()
{
    return optionOf(PKC_Property(QStringLiteral("a"), 1, nullptr));
}

} // namespace

TEST(PdfOptions, StartsEmptyAndIsAlwaysValid)
{
    const PKC_PdfOptions options;
    EXPECT_EQ(textsOf(options), "pdfOptions '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_PdfOptions::kPIO_PKMETA_Keyword, QStringLiteral("pdfOptions"));
    EXPECT_EQ(PKC_PdfOptions::kPIO_PKMETA_Version, QStringLiteral("1.0"));
    EXPECT_EQ(PKC_PdfOptions(QStringLiteral("n")).metaName(), QStringLiteral("n"));
    EXPECT_TRUE(options.isValid());
    EXPECT_TRUE(fullOptions().isValid());
    EXPECT_EQ(options.pdfOptions().propertiesCount(), 0);
    EXPECT_EQ(dumpOf(options), "");
    EXPECT_EQ(dumpOf(fullOptions()), "");
}

TEST(PdfOptions, ExportsThePanelUnlessToldNotTo)
{
    PKC_PdfOptions options;
    EXPECT_TRUE(options.exportEnabled());
    const PKC_Property no(kExport, false, nullptr);
    options.addPdfOptions(&no);
    EXPECT_FALSE(options.exportEnabled());
    options.pdfOptions().setProperty(kExport, QVariant(true));
    EXPECT_TRUE(options.exportEnabled());
    options.removePdfOption(kExport);
    EXPECT_TRUE(options.exportEnabled());
}

TEST(PdfOptions, ReplacesAnOptionByACloneAtTheEnd)
{
    PKC_PdfOptions options = fullOptions();
    PKC_PropertyFromFont other(QStringLiteral("profile_unit"), QStringLiteral("Serif"), told());
    options.addPdfOptions(&other);
    other.setReadOnly(false);
    other.setValue(QVariant(QStringLiteral("Sans")));
    EXPECT_EQ(optionsOf(options),
        "panel_export_enabled:0=false global_fontsize:2=12 cover_bg_image:3=C:\\a.png global_font:4=Courier "
        "profile_unit:4=Serif");
    options.addPdfOptions(nullptr);
    EXPECT_EQ(options.pdfOptions().propertiesCount(), 5);
}

TEST(PdfOptions, TakesOneOfItsOwnOptions)
{
    PKC_PdfOptions options = fullOptions();
    options.addPdfOptions(options.pdfOptions().getProperty(kExport));
    EXPECT_EQ(optionsOf(options),
        "profile_unit:1=mm global_fontsize:2=12 cover_bg_image:3=C:\\a.png global_font:4=Courier "
        "panel_export_enabled:0=false");
    EXPECT_EQ(options.pdfOptions().getProperty(kExport)->ldesc(), QStringLiteral("Long"));
}

TEST(PdfOptions, DropsOptionsByNameOrAll)
{
    PKC_PdfOptions options = fullOptions();
    options.removePdfOption(kExport);
    options.removePdfOption(kExport);
    options.removePdfOption(QStringLiteral("Global_font"));
    EXPECT_EQ(options.pdfOptions().propertiesCount(), 4);
    options.removePdfOption(options.pdfOptions().getProperty(QStringLiteral("global_font"))->name());
    EXPECT_EQ(options.pdfOptions().propertiesCount(), 3);
    options.removeAll();
    EXPECT_EQ(optionsOf(options), "");
}

TEST(PdfOptions, CopiesEveryOption)
{
    PKC_PdfOptions options = fullOptions();
    expectFullOptions(options);
    const PKC_PdfOptions copy(options);
    PKC_PdfOptions assigned;
    assigned.addPdfOptions(options.pdfOptions().getProperty(kExport));
    assigned = options;
    const PKC_PdfOptions &self = assigned;
    assigned = self;
    const auto clone = cloneOf(options);
    ASSERT_TRUE(clone);
    options.removeAll();
    expectFullOptions(copy);
    expectFullOptions(assigned);
    expectFullOptions(*clone);
}

TEST(PdfOptions, WritesItsOptionsInOrder)
{
    expectGolden("pdf_options.xml", markupOf(PKC_PdfOptions()) + markupOf(fullOptions()));
}

TEST(PdfOptions, ReadsBackWhatItWrote)
{
    const QString text = QString::fromStdString(markupOf(fullOptions()));
    const qsizetype from = text.indexOf(QStringLiteral("<pdfOptions"));
    PKC_PdfOptions again(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    readPayload(again, text.mid(from, text.indexOf(QStringLiteral("</pdfOptions>")) + 13 - from));
    expectFullOptions(again);
    const auto &unit =
        dynamic_cast<const PKC_PropertyFromList &>(*again.pdfOptions().getProperty(QStringLiteral("profile_unit")));
    EXPECT_EQ(unit.possibleValues().size(), 2);
    EXPECT_TRUE(unit.allowEmpty());
    EXPECT_TRUE(unit.isReadOnly());
}

TEST(PdfOptions, LoseAListOfCaptions)
{
    PKC_PdfOptions options;
    const PKC_PropertyFromCaptionList captions(QStringLiteral("captions"), QStringLiteral("a;b"), nullptr);
    options.addPdfOptions(&captions);
    EXPECT_EQ(optionsOf(options), "captions:5=a;b");
    EXPECT_EQ(readFrom(optionOf(captions) + oneOption()), "a:0=1");
}

TEST(PdfOptions, ReplacesOptionsByLaterOnes)
{
    EXPECT_EQ(readFrom(oneOption() + optionOf(PKC_Property(QStringLiteral("b"), 2, nullptr))
                  + optionOf(PKC_Property(QStringLiteral("a"), 3, nullptr))),
        "b:0=2 a:0=3");
    PKC_PdfOptions options = fullOptions();
    readPayload(options, QStringLiteral("<pdfOptions>%1</pdfOptions>").arg(oneOption()));
    EXPECT_EQ(optionsOf(options), fullText + " a:0=1");
}

TEST(PdfOptions, KnowsOnlyKindsThatCanBeMade)
{
    const QString data = dataOf(PKC_Property(QStringLiteral("a"), 1, nullptr));
    const auto readAs = [&data](const QString &attributes) {
        return readFrom(QStringLiteral("<option %1><value data='%2'/></option>").arg(attributes, data));
    };
    for (const char *unknown : {"5", "-1", "6", "2147483647"})
        EXPECT_EQ(readAs(QStringLiteral("name='a' type='%1'").arg(QString::fromLatin1(unknown))), "") << unknown;
    for (const char *bad : {"", "x", "1.5", "4294967297", "0x1"})
        EXPECT_EQ(readAs(QStringLiteral("name='a' type='%1'").arg(QString::fromLatin1(bad))), "a:0=1") << bad;
    EXPECT_EQ(readAs(QStringLiteral("name='a'")), "a:0=1");
    EXPECT_EQ(readAs(QStringLiteral("name='a' type='4'")), "a:4=1");
    // The other kinds hold more than the plain one.
    for (const char *larger : {"1", "2", "3"})
        EXPECT_EQ(readAs(QStringLiteral("name='a' type='%1'").arg(QString::fromLatin1(larger))), "") << larger;
}

TEST(PdfOptions, TakesTheNameThatStandsInTheData)
{
    const QString data = dataOf(PKC_Property(QStringLiteral("a"), 1, nullptr));
    for (const char *name : {"", "name=''", "name='other'"})
        EXPECT_EQ(
            readFrom(
                QStringLiteral("<option %1 type='0'><value data='%2'/></option>").arg(QString::fromLatin1(name), data)),
            "a:0=1");
}

TEST(PdfOptions, LosesAnOptionWithoutGoodData)
{
    for (const char *value : {"", "<value/>", "<value data=''/>", "<value data='%'/>", "<value data='AAAA'/>",
             "<value Data='AAAA'/>", "<data value='AAAA'/>", "<value data='not base64!'/>"}) {
        EXPECT_EQ(readFrom(QStringLiteral("<option name='x' type='0'>%1</option>").arg(QString::fromLatin1(value))
                      + oneOption()),
            "a:0=1")
            << value;
    }
}

TEST(PdfOptions, LosesAnOptionWithoutAValue)
{
    EXPECT_EQ(readFrom(optionOf(PKC_Property(QStringLiteral("x"))) + oneOption()), "a:0=1");
    // A list whose choices are of another type is cleared when it is loaded.
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(-1330642944) << qint32(473) << QStringLiteral("x") << QVariant(1) << QString() << QString()
           << qint32(0) << qint32(0) << QVariant(QVariantMap{{QStringLiteral("l"), QStringLiteral("text")}})
           << qint32(0) << qint32(0);
    EXPECT_EQ(readFrom(QStringLiteral("<option name='x' type='1'><value data='%1'/></option>")
                           .arg(QString::fromLatin1(bytes.toBase64()))),
        "");
}

TEST(PdfOptions, WritesNoOptionThatItCouldNotRead)
{
    Warnings warnings;
    PKC_PdfOptions options;
    const PKC_Property point(QStringLiteral("p"), QPoint(1, 2), nullptr);
    const PKC_Property number(QStringLiteral("a"), 1, nullptr);
    options.addPdfOptions(&number);
    const std::string before = markupOf(options);
    options.addPdfOptions(&point);
    EXPECT_EQ(markupOf(options), before);
    EXPECT_THAT(warnings.taken(), testing::ElementsAre("Could not store property p, streams keep no such value"));
}

TEST(PdfOptions, ReadsOneValueOfAnOption)
{
    const QString value = QStringLiteral("<value data='%1'/>");
    const QString one = value.arg(dataOf(PKC_Property(QStringLiteral("a"), 1, nullptr)));
    const QString two = value.arg(dataOf(PKC_Property(QStringLiteral("b"), 2, nullptr)));
    EXPECT_EQ(readFrom(QStringLiteral("<option type='0'>%1%2</option>").arg(one, two)), "a:0=1");
    EXPECT_EQ(readFrom(QStringLiteral("<option type='0'><value/>%1</option>").arg(one)), "");
    EXPECT_EQ(readFrom(one), "");
    EXPECT_EQ(readFrom(QStringLiteral("<option type='0'/>%1").arg(one)), "");
    EXPECT_EQ(readFrom(QStringLiteral("<option type='0'><option type='5'/>%1</option>").arg(one)), "");
    EXPECT_EQ(readFrom(QStringLiteral("<option type='5'><option type='4'>%1</option></option>").arg(one)), "a:4=1");
}

TEST(PdfOptions, SkipsElementsItDoesNotKnow)
{
    const QString value =
        QStringLiteral("<value data='%1'/>").arg(dataOf(PKC_Property(QStringLiteral("a"), 1, nullptr)));
    EXPECT_EQ(readFrom(QStringLiteral("<x/><option type='0'><y><z/></y>%1<y/></option><x/>").arg(value)), "a:0=1");
    EXPECT_EQ(readFrom(QStringLiteral("<option type='0'><y>%1</y></option>").arg(value)), "a:0=1");
    EXPECT_EQ(readFrom(QStringLiteral("<Option type='0'>%1</Option>").arg(value)), "");
}

TEST(PdfOptions, ReadsOnAfterItsOwnElementClosed)
{
    PKC_PdfOptions options;
    readPayload(options, QStringLiteral("<pdfOptions/>") + oneOption());
    EXPECT_EQ(optionsOf(options), "a:0=1");
    const UT_SharedPtr<PIO_XML::ComponentReader> reader(options.componentReader());
    QXmlAttributes attributes;
    attributes.append(QStringLiteral("type"), QString(), QStringLiteral("type"), QStringLiteral("0"));
    EXPECT_EQ(reader->startElement(QString(), QStringLiteral("option"), attributes), reader);
    // and lets go of an option that is never closed
}

TEST(PdfOptions, KeepAForeignCreatorAndAnOlderVersionThroughTheFactory)
{
    PKC_MetadataFactory::createInstance();
    const PIO_RecordResult result =
        readRecord(QStringLiteral("<metadata type='pdfOptions' name='' creator='Fremd' version='0.3'><pdfOptions>%1"
                                  "</pdfOptions></metadata>")
                       .arg(oneOption()));
    const auto *options = dynamic_cast<const PKC_PdfOptions *>(result.record.get());
    ASSERT_NE(options, nullptr);
    EXPECT_TRUE(result.message.isEmpty());
    const auto clone = cloneOf(*options);
    EXPECT_EQ(textsOf(*clone), "pdfOptions '' 'Fremd' '0.3'");
    EXPECT_EQ(optionsOf(*clone), "a:0=1");
    EXPECT_EQ(markupOf(*clone), markupOf(*options));
}
