#include "pdf/properties/PKC_Property.h"

#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/Samples.h"
#include "support/Warnings.h"

#include <QDomDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString kName = QStringLiteral("key");

PKC_Property propertyOf(const QVariant &value)
{
    return PKC_Property(kName, value, nullptr);
}

/// What a new document holds once a property of that name and value is stored.
QString storedMarkup(const QString &name, const QVariant &value)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("root"));
    document.appendChild(root);
    PKC_Property(name, value, nullptr).store(document, root);
    return document.toString(-1).trimmed();
}

} // namespace

TEST(PropertyText, OfEveryType)
{
    for (const SampleValue &sample : sampleValues()) {
        SCOPED_TRACE(sample.script);
        EXPECT_EQ(propertyOf(sample.value).valueToString().toStdString(), sample.text);
    }
}

TEST(PropertyText, ComesBackInEveryType)
{
    for (const SampleValue &sample : sampleValues()) {
        SCOPED_TRACE(sample.script);
        PKC_Property property = propertyOf(sample.value);
        EXPECT_TRUE(property.setValueFromString(QString::fromUtf8(sample.text)));
        EXPECT_EQ(property.type(), sample.value.typeId());
        if (sample.comesBackFromText) {
            EXPECT_EQ(property.value(), sample.value);
        }
        EXPECT_EQ(property.valueToString().toStdString(), sample.text);
    }
}

TEST(PropertyText, ReadsABadNumberAsZero)
{
    for (const QVariant &number :
        {QVariant(7), QVariant(7u), QVariant(Q_INT64_C(7)), QVariant(Q_UINT64_C(7)), QVariant(7.5)}) {
        for (const char *bad : {"abc", "", "7x", "1e400", "99999999999999999999999x", "--1"}) {
            PKC_Property property = propertyOf(number);
            EXPECT_TRUE(property.setValueFromString(QString::fromLatin1(bad)));
            EXPECT_EQ(property.type(), number.typeId());
            EXPECT_EQ(property.toDouble(), 0.0) << bad << " as " << number.typeName();
        }
    }
    PKC_Property small = propertyOf(7);
    EXPECT_TRUE(small.setValueFromString(QStringLiteral("4294967296")));
    EXPECT_EQ(small.toInt(), 0);
}

TEST(PropertyText, ReadsOnlyTheWordTrueAsTrue)
{
    for (const char *no : {"", "1", "TRUE", "true ", "false", "yes"}) {
        PKC_Property property = propertyOf(true);
        EXPECT_TRUE(property.setValueFromString(QString::fromLatin1(no)));
        EXPECT_EQ(property.value(), QVariant(false)) << no;
    }
}

TEST(PropertyText, KeepsTheEmptyPartsOfAList)
{
    PKC_Property texts = propertyOf(QStringList());
    EXPECT_TRUE(texts.setValueFromString(QStringLiteral(",a,,")));
    EXPECT_EQ(texts.value().toStringList(), QStringList({QString(), QStringLiteral("a"), QString(), QString()}));
    // So an empty list comes back with one empty text.
    EXPECT_TRUE(texts.setValueFromString(propertyOf(QStringList()).valueToString()));
    EXPECT_EQ(texts.value().toStringList(), QStringList{QString()});
    PKC_Property values = propertyOf(QVariantList{1, 2});
    EXPECT_TRUE(values.setValueFromString(QStringLiteral("3,4")));
    EXPECT_EQ(values.value(), QVariant(QVariantList{QStringLiteral("3"), QStringLiteral("4")}));
}

TEST(PropertyText, ReadsBadDatesAndColoursAsInvalidOnes)
{
    for (const QVariant &value : {QVariant(QDate(2000, 1, 1)), QVariant(QTime(1, 1)),
             QVariant(QDateTime(QDate(2000, 1, 1), QTime(1, 1))), QVariant(QColor(1, 2, 3))}) {
        PKC_Property property = propertyOf(value);
        EXPECT_TRUE(property.setValueFromString(QStringLiteral("nonsense")));
        EXPECT_EQ(property.value(), QVariant(value.metaType())) << value.typeName();
    }
}

TEST(PropertyText, HasNoTextForOtherTypes)
{
    Warnings warnings;
    PKC_Property point = propertyOf(QPoint(1, 2));
    EXPECT_EQ(point.valueToString(), QString());
    EXPECT_THAT(warnings.taken(), ElementsAre("Cannot convert property of type QPoint to string."));
    EXPECT_FALSE(point.setValueFromString(QStringLiteral("1 %s,2")));
    EXPECT_THAT(warnings.taken(), ElementsAre("Cannot convert property of type QPoint from string = 1 %s,2."));
    EXPECT_EQ(point.toScriptString(), QString());
    EXPECT_THAT(warnings.taken(), ElementsAre("Cannot convert property of type QPoint to scriptString."));
    EXPECT_EQ(point.value(), QVariant(QPoint(1, 2)));
    PKC_Property none(kName);
    EXPECT_EQ(none.valueToString(), QString());
    EXPECT_FALSE(none.setValueFromString(QStringLiteral("x")));
    EXPECT_EQ(none.toScriptString(), QString());
    EXPECT_THAT(warnings.taken(),
        ElementsAre("Cannot convert property of type  to string.", "Cannot convert property of type  from string = x.",
            "Cannot convert property of type  to scriptString."));
    EXPECT_EQ(warnings.category(), "plotka.properties");
    EXPECT_EQ(propertyOf(QVariantMap{{kName, 1}}).toScriptString(), QString());
    EXPECT_THAT(warnings.taken(), ElementsAre("Cannot convert property of type QVariantMap to scriptString."));
}

TEST(PropertyScript, OfEveryType)
{
    for (const SampleValue &sample : sampleValues()) {
        EXPECT_EQ(propertyOf(sample.value).toScriptString().toStdString(), sample.script);
        EXPECT_EQ(PKC_Property::toScriptString(sample.value).toStdString(), sample.script);
    }
}

TEST(PropertyScript, OfAMapIsKeysAndValuesInTurn)
{
    const QMap<QString, QVariant> map{{QStringLiteral("b\""), 2}, {QStringLiteral(" a"), QStringLiteral("A")}};
    EXPECT_EQ(PKC_Property::toScriptString(map).toStdString(), R"(new Array( " a", "A", "b\"", 2 ))");
    EXPECT_EQ(PKC_Property::toScriptString(QMap<QString, QVariant>()).toStdString(), "new Array(  )");
}

TEST(PropertyScript, MakesThePropertyAgain)
{
    const QString object = QStringLiteral("profile%2");
    EXPECT_EQ(propertyOf(150).regenarationScript(object).toStdString(),
        "profile%2.addProperty( key, , , 150, false, false );\n");
    PKC_Property described(kName, QStringLiteral("%1\""),
        new PKC_PropertyDefinition(QStringLiteral("%3 long"), QStringLiteral("short"), true, true));
    EXPECT_EQ(described.regenarationScript(object).toStdString(),
        "profile%2.addProperty( key, %3 long, short, \"%1\\\"\", true, true );\n");
    PKC_PropertyFromRange range(kName, 5, 0, 10, nullptr);
    EXPECT_EQ(range.regenarationScript(object).toStdString(), "profile%2.addProperty( key, , , 5, false, false );\n");
    PKC_PropertyFromFont font(kName, QStringLiteral("Courier"), nullptr);
    EXPECT_EQ(font.regenarationScript(object).toStdString(),
        "profile%2.addProperty( key, , , \"Courier\", false, false );\n");
    PKC_PropertyFromFile file(kName, QStringLiteral("a.png"), QStringLiteral("*.png"), nullptr);
    EXPECT_EQ(
        file.regenarationScript(object).toStdString(), "profile%2.addProperty( key, , , \"a.png\", false, false );\n");
    PKC_PropertyFromCaptionList captions(kName, QStringLiteral("a;b"), nullptr);
    EXPECT_EQ(captions.regenarationScript(object).toStdString(),
        "profile%2.addProperty( key, , , \"a;b\", false, false );\n");
}

TEST(PropertyScript, LeavesAGapForAnItemWithoutScriptText)
{
    Warnings warnings;
    const std::string warning = "Cannot convert property of type QPoint to scriptString.";
    EXPECT_EQ(propertyOf(QVariantList{1, QPoint(), 2}).toScriptString().toStdString(), "new Array( 1, , 2 )");
    EXPECT_THAT(warnings.taken(), ElementsAre(warning));
    const QMap<QString, QVariant> map{{QStringLiteral("a"), QPoint()}, {QStringLiteral("b"), 2}};
    EXPECT_EQ(PKC_Property::toScriptString(map).toStdString(), R"(new Array( "a", , "b", 2 ))");
    EXPECT_THAT(warnings.taken(), ElementsAre(warning));
}

TEST(PropertyScript, OfAListDeclaresOneVariableAndUsesAnother)
{
    PKC_PropertyFromList list(kName, QStringLiteral("%9"), {{QStringLiteral("A %1"), QStringLiteral("a")}}, true, false,
        new PKC_PropertyDefinition(QStringLiteral("l"), QStringLiteral("s"), false, true));
    EXPECT_EQ(list.regenarationScript(QStringLiteral("o")).toStdString(),
        "var possValues = new Array( \"A %1\", \"a\" );\n"
        "o.addPropertyFromList( key, l, s, \"%9\", possibleValues, true, false, false, true );\n");
}

TEST(PropertyScript, IsEmptyForAValueWithoutScriptText)
{
    Warnings warnings;
    EXPECT_EQ(PKC_Property(kName).regenarationScript(kName), QString());
    EXPECT_EQ(PKC_PropertyFromList(kName).regenarationScript(kName), QString());
    EXPECT_EQ(propertyOf(QPoint()).regenarationScript(kName), QString());
    EXPECT_THAT(warnings.taken(),
        ElementsAre("Cannot convert property of type  to scriptString.",
            "Cannot convert property of type  to scriptString.",
            "Cannot convert property of type QPoint to scriptString."));
}

TEST(PropertyXml, ComesBackInEveryType)
{
    for (const SampleValue &sample : sampleValues()) {
        SCOPED_TRACE(sample.script);
        const QString markup = storedMarkup(kName, sample.value);
        QDomDocument document;
        ASSERT_TRUE(document.setContent(markup)) << markup.toStdString();
        QDomElement element = document.documentElement().firstChildElement();
        EXPECT_EQ(element.attribute(QStringLiteral("value")).toStdString(), sample.text);
        PKC_Property property = propertyOf(sample.value);
        EXPECT_TRUE(property.load(element));
        if (sample.comesBackFromText) {
            EXPECT_EQ(property.value(), sample.value);
        }
        EXPECT_EQ(storedMarkup(kName, property.value()), markup);
    }
}

TEST(PropertyXml, IsOneElementNamedAsTheProperty)
{
    EXPECT_EQ(storedMarkup(QStringLiteral("page_format"), QStringLiteral("A<4>")).toStdString(),
        "<root><page_format value=\"A&lt;4>\"/></root>");
}

TEST(PropertyXml, KeepsWhiteSpaceAndDropsWhatXmlForbids)
{
    QString odd = QStringLiteral("a\n\t\r b");
    odd += QChar(1);
    odd += QChar(0xFFFE);
    odd += QChar(0xD800);
    odd += QStringLiteral("\U0001F600");
    odd += QChar(0xDC00);
    odd += QChar(0);
    QDomDocument document;
    ASSERT_TRUE(document.setContent(storedMarkup(kName, odd)));
    QDomElement element = document.documentElement().firstChildElement();
    PKC_Property property = propertyOf(QString());
    EXPECT_TRUE(property.load(element));
    EXPECT_EQ(property.toString(), QStringLiteral("a\n\t\r b\U0001F600"));
}

TEST(PropertyXml, LeavesOutANameThatNoElementCanHave)
{
    Warnings warnings;
    for (const QString &bad : {QString(), QStringLiteral("a b"), QStringLiteral("1st"), QStringLiteral("-a"),
             QStringLiteral("a<"), QStringLiteral("a/"), QStringLiteral("a\u00d7"), QStringLiteral("\u00aa"),
             QStringLiteral("\u3001"), QStringLiteral("\U00010000"), QString(QChar(0xD800))}) {
        EXPECT_EQ(storedMarkup(bad, 1).toStdString(), "<root/>") << bad.toStdString();
        EXPECT_THAT(warnings.taken(),
            ElementsAre("Could not store property " + bad.toStdString() + ", no element can be named so"));
    }
    for (const QString &good : {QStringLiteral("_"), QStringLiteral("a-1.b:c"), QStringLiteral("\u017c\u00f3\u0142"),
             QStringLiteral("\u5b57e\u0301")}) {
        QDomDocument document;
        EXPECT_TRUE(document.setContent(storedMarkup(good, 1))) << good.toStdString();
        EXPECT_EQ(document.documentElement().firstChildElement().tagName(), good);
    }
    EXPECT_THAT(warnings.taken(), IsEmpty());
}

TEST(PropertyXml, ReadsEveryNameThatItWrites)
{
    Warnings warnings;
    QDomDocument document;
    QDomElement root = document.createElement(kName);
    document.appendChild(root);
    int written = 0;
    for (char16_t unit = 1; unit != 0; ++unit) {
        written += PKC_Property(QString(QChar(unit)), 1, nullptr).store(document, root);
        written += PKC_Property(QStringLiteral("a") + QChar(unit), 1, nullptr).store(document, root);
    }
    EXPECT_GT(written, 50000); // nearly all of them letters of Asia
    EXPECT_FALSE(warnings.taken().empty());
    QDomDocument again;
    ASSERT_TRUE(again.setContent(document.toByteArray(-1)));
    EXPECT_EQ(again.documentElement().childNodes().size(), written);
}

TEST(PropertyXml, TellsWhetherItWasStored)
{
    Warnings warnings;
    QDomDocument document;
    QDomElement root = document.createElement(kName);
    EXPECT_TRUE(propertyOf(1).store(document, root));
    EXPECT_FALSE(PKC_Property(QStringLiteral(" ")).store(document, root));
    EXPECT_EQ(warnings.taken().size(), 1u);
}

TEST(PropertyXml, IsNotReadFromAnElementOfAnotherName)
{
    QDomDocument document;
    for (const char *name : {"Key", "key2", "value"}) {
        QDomElement element = document.createElement(QString::fromLatin1(name));
        element.setAttribute(QStringLiteral("value"), 9);
        PKC_Property property = propertyOf(1);
        EXPECT_FALSE(property.load(element));
        EXPECT_EQ(property.toInt(), 1);
    }
    QDomElement null;
    EXPECT_FALSE(propertyOf(1).load(null));
}

TEST(PropertyXml, ReadsAnAbsentValueAsAnEmptyText)
{
    QDomDocument document;
    QDomElement element = document.createElement(kName);
    PKC_Property text = propertyOf(QStringLiteral("x"));
    EXPECT_TRUE(text.load(element));
    EXPECT_EQ(text.toString(), QString());
    PKC_Property number = propertyOf(3);
    EXPECT_TRUE(number.load(element));
    EXPECT_EQ(number.toInt(), 0);
    PKC_PropertyFromRange range(kName, 3, 0, 5, nullptr);
    EXPECT_TRUE(range.load(element));
    EXPECT_EQ(range.toInt(), 0);
}
