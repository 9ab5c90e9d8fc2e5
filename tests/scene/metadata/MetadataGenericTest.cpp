#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataDouble.h"
#include "scene/metadata/PIO_MetadataFactory.h"
#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_MetadataString.h"
#include "support/Records.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

namespace
{

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

template <typename T>
std::unique_ptr<T> readBack(const T &record)
{
    PIO_RecordResult result = readRecord(QString::fromStdString(markupOf(record)));
    EXPECT_EQ(result.message, QString());
    EXPECT_NE(dynamic_cast<T *>(result.record.get()), nullptr);
    return std::unique_ptr<T>(dynamic_cast<T *>(result.record.release()));
}

template <typename T>
std::unique_ptr<T> readValue(const char *type, const char *attribute)
{
    PIO_RecordResult result =
        readRecord(QStringLiteral("<metadata type='%1' name='n'><%1 %2/></metadata>").arg(text(type), text(attribute)));
    return std::unique_ptr<T>(dynamic_cast<T *>(result.record.release()));
}

} // namespace

TEST(GenericMetadata, IsNotValidAndNeutralUntilItsValueIsSet)
{
    EXPECT_FALSE(PIO_MetadataBool(text("n")).isValid());
    EXPECT_FALSE(PIO_MetadataBool().valueBool());
    EXPECT_FALSE(PIO_MetadataInt().isValid());
    EXPECT_EQ(PIO_MetadataInt().valueInt(), 0);
    EXPECT_FALSE(PIO_MetadataDouble().isValid());
    EXPECT_EQ(PIO_MetadataDouble().valueDouble(), 0.0);
    EXPECT_FALSE(PIO_MetadataString().isValid());
    EXPECT_EQ(PIO_MetadataString().valueString(), QString());

    PIO_MetadataBool record(text("n"));
    record.setValue(false);
    EXPECT_TRUE(record.isValid());
    EXPECT_EQ(record.metaType(), text("bool"));
    EXPECT_EQ(record.metaName(), text("n"));
    EXPECT_EQ(record.creator(), text("plotka-tests"));
    EXPECT_EQ(record.version(), text("1.0"));
}

TEST(GenericMetadata, WritesOneElementWithItsValueOrNoneWhenNotValid)
{
    PIO_MetadataInt record(text("startFrame"), text("c"), text("2"));
    EXPECT_EQ(markupOf(record), "<metadata type=\"int\" name=\"startFrame\" creator=\"c\" version=\"2\"/>\n");
    record.setValue(-7);
    EXPECT_EQ(markupOf(record),
        "<metadata type=\"int\" name=\"startFrame\" creator=\"c\" version=\"2\">\n  <int "
        "value=\"-7\"/>\n</metadata>\n");
}

TEST(GenericMetadata, ComesBackAsItWasWritten)
{
    PIO_MetadataString string(text("s"), text("someone"), text("0.9"));
    for (const QString &value :
        {QStringLiteral(""), text(" a\n\t\r<&>\"' "), QString::fromUtf8("Płotka \xF0\x9F\x8E\xAC")}) {
        string.setValue(value);
        const auto back = readBack(string);
        EXPECT_TRUE(back->isValid());
        EXPECT_EQ(back->valueString(), value);
        EXPECT_EQ(back->creator(), text("someone"));
        EXPECT_EQ(back->version(), text("0.9"));
    }
    PIO_MetadataInt number(text("i"));
    for (int value : {0, 1, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        number.setValue(value);
        EXPECT_EQ(readBack(number)->valueInt(), value);
    }
    PIO_MetadataBool flag(text("b"));
    for (bool value : {true, false}) {
        flag.setValue(value);
        EXPECT_EQ(readBack(flag)->valueBool(), value);
        EXPECT_TRUE(readBack(flag)->isValid());
    }
    EXPECT_FALSE(readBack(PIO_MetadataDouble(text("d")))->isValid());
}

TEST(GenericMetadata, KeepsDoublesToTheLastBit)
{
    PIO_MetadataDouble record(text("d"));
    const double inf = std::numeric_limits<double>::infinity();
    for (double value : {0.1, 1.0 / 3, 23.976023976023978, 1e300, 5e-324, -2.5, inf, -inf}) {
        record.setValue(value);
        EXPECT_EQ(readBack(record)->valueDouble(), value);
    }
    record.setValue(-0.0);
    EXPECT_TRUE(std::signbit(readBack(record)->valueDouble()));
    record.setValue(std::nan(""));
    EXPECT_TRUE(readBack(record)->isValid());
    EXPECT_TRUE(std::isnan(readBack(record)->valueDouble()));
}

TEST(GenericMetadata, IsLeftInvalidByAWrongValue)
{
    for (const char *bad : {"", "value=''", "value='x'", "value='1.5'", "value='2147483648'", "Value='1'"}) {
        const auto record = readValue<PIO_MetadataInt>("int", bad);
        ASSERT_NE(record, nullptr);
        EXPECT_FALSE(record->isValid()) << bad;
        EXPECT_EQ(record->valueInt(), 0);
    }
    for (const char *bad : {"", "value=''", "value='True'", "value='1'", "value=' true'"}) {
        const auto record = readValue<PIO_MetadataBool>("bool", bad);
        EXPECT_FALSE(record->isValid()) << bad;
    }
    for (const char *bad : {"", "value=''", "value='1,5'", "value='one'"})
        EXPECT_FALSE(readValue<PIO_MetadataDouble>("double", bad)->isValid()) << bad;
    EXPECT_FALSE(readValue<PIO_MetadataString>("string", "")->isValid());
    EXPECT_TRUE(readValue<PIO_MetadataString>("string", "value=''")->isValid());
}

TEST(GenericMetadata, PassesOverElementsThatItDoesNotKnow)
{
    const auto read = readRecord(text("<metadata type='int'><x><int value='5'/></x><int value='6'/></metadata>"));
    const auto *const first = dynamic_cast<const PIO_MetadataInt *>(read.record.get());
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->isValid());
    EXPECT_EQ(first->valueInt(), 5) << "what follows the end is ignored";
}

TEST(GenericMetadata, ReportsAValueThatCannotBeRead)
{
    const PIO_RecordResult bad = readRecord(text("<metadata type='int'><int value='x'/></metadata>"));
    EXPECT_EQ(bad.message, text("the record has no readable value"));
    ASSERT_NE(bad.record, nullptr);
    EXPECT_EQ(readRecord(text("<metadata type='int'/>")).message, QString());
}

TEST(GenericMetadata, ClonesWithItsValue)
{
    PIO_MetadataString record(text("s"), text("c"), text("3"));
    record.setValue(text("v"));
    const std::unique_ptr<PIO_Metadata> copy(record.clone());
    EXPECT_EQ(dynamic_cast<PIO_MetadataString &>(*copy).valueString(), text("v"));
    EXPECT_TRUE(copy->isValid());
    EXPECT_EQ(copy->version(), text("3"));
    const PIO_MetadataInt unset;
    const std::unique_ptr<PIO_Metadata> unsetCopy(unset.clone());
    EXPECT_FALSE(unsetCopy->isValid());
}

TEST(GenericMetadata, DumpsItsValue)
{
    QString dump;
    PIO_MetadataDouble record(text("d"), text("c"), text("1"));
    record.dumpToString(dump);
    record.setValue(0.25);
    record.dumpToString(dump);
    EXPECT_EQ(dump,
        text("type=double, name=d, creator=c, version=1, value=(none)\n"
             "type=double, name=d, creator=c, version=1, value=0.25\n"));
}

TEST(MetadataFactory, MakesTheGenericRecordsAndNothingElse)
{
    PIO_MetadataFactory factory;
    for (const char *type : {"string", "int", "double", "bool"}) {
        const std::unique_ptr<PIO_Metadata> record(factory.createMeta(text(type), text("n"), text("c"), text("v")));
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->metaType(), text(type));
        EXPECT_EQ(record->metaName(), text("n"));
        EXPECT_EQ(record->creator(), text("c"));
        EXPECT_EQ(record->version(), text("v"));
        EXPECT_FALSE(record->isValid());
    }
    EXPECT_EQ(factory.createMeta(text("Int"), QString(), QString(), QString()), nullptr);
    EXPECT_EQ(factory.createMeta(QString(), QString(), QString(), QString()), nullptr);
}

TEST(MetadataFactory, IsTheRegisteredOneUntilThatDies)
{
    class PlainFactory : public PIO_MetadataFactory
    {
    public:
        PlainFactory() { registerImpl(this); }
        PIO_Metadata *createMeta(
            const QString &type, const QString &name, const QString &creator, const QString &version) override
        {
            ++calls;
            if (type == text("plain"))
                return new PlainRecord(name);
            return PIO_MetadataFactory::createMeta(type, name, creator, version);
        }
        int calls = 0;
    };
    PIO_MetadataFactory *generics = PIO_MetadataFactory::instance();
    ASSERT_NE(generics, nullptr);
    {
        PlainFactory factory;
        EXPECT_EQ(PIO_MetadataFactory::instance(), &factory);
        EXPECT_EQ(readRecord(text("<metadata type='plain' name='n'/>")).record->creator(), text("tests"));
        EXPECT_NE(readRecord(text("<metadata type='bool'/>")).record, nullptr);
        EXPECT_EQ(factory.calls, 2);
        {
            PlainFactory later;
            EXPECT_EQ(PIO_MetadataFactory::instance(), &later);
        }
        EXPECT_EQ(PIO_MetadataFactory::instance(), &factory);
    }
    EXPECT_EQ(PIO_MetadataFactory::instance(), generics);
}

TEST(MetadataFactory, IsLeftOutOfTheRegisteredOnesWhereverItStandsAmongThem)
{
    class PlainFactory : public PIO_MetadataFactory
    {
    public:
        PlainFactory() { registerImpl(this); }
    };
    PIO_MetadataFactory *const before = PIO_MetadataFactory::instance();
    auto first = std::make_unique<PlainFactory>();
    auto second = std::make_unique<PlainFactory>();
    PIO_MetadataFactory::registerImpl(first.get()); // again: it is the latest now
    EXPECT_EQ(PIO_MetadataFactory::instance(), first.get());
    second.reset();
    EXPECT_EQ(PIO_MetadataFactory::instance(), first.get());
    first.reset();
    EXPECT_EQ(PIO_MetadataFactory::instance(), before);
}
