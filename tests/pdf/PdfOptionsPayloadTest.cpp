#include "pdf/PKC_PdfOptions.h"
#include "pdf/properties/PKC_PropertyFactory.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/Samples.h"
#include "support/Payloads.h"

#include <QBitArray>
#include <QDataStream>
#include <QIODevice>
#include <QImage>
#include <QPointF>
#include <QSize>
#include <QUrl>
#include <QUuid>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace
{

const QString kName = QStringLiteral("key");

/// How the bytes of an option are laid out: with a header and as this Qt writes values, or as they were kept before.
enum class Layout { Marked, Old };

QByteArray bytesOf(Layout layout, const std::function<void(QDataStream &)> &write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (layout == Layout::Old)
        stream.setVersion(6);
    else
        stream << qint32(-1330642944) << qint32(473);
    write(stream);
    return bytes;
}

QByteArray bytesOf(Layout layout, const PKC_Property &property)
{
    return bytesOf(layout, [&property](QDataStream &stream) { property.store(stream); });
}

/// The only option of a record that met these bytes, or null when they were not taken.
std::unique_ptr<PKC_Property> loaded(const QByteArray &bytes, int kind)
{
    PKC_PdfOptions options;
    readPayload(options,
        QStringLiteral("<option name='key' type='%1'><value data='%2'/></option>")
            .arg(QString::number(kind), QString::fromLatin1(bytes.toBase64())));
    std::list<PKC_Property *> properties;
    options.pdfOptions().getAllProperties(properties);
    return std::unique_ptr<PKC_Property>(properties.empty() ? nullptr : properties.front()->clone());
}

/// A plain option of that value, as Qt would write it.
std::unique_ptr<PKC_Property> loadedValue(Layout layout, const QVariant &value)
{
    const auto write = [&value](QDataStream &stream) {
        stream << kName << value << QString() << QString() << qint32(0) << qint32(0);
    };
    return loaded(bytesOf(layout, write), 0);
}

/// One property of each kind, with values of all sizes.
std::vector<std::unique_ptr<PKC_Property>> oneOfEachKind()
{
    UT_SharedPtr<PKC_PropertyDefinition> told(
        new PKC_PropertyDefinition(QStringLiteral("Long"), QString(), false, false));
    const QDateTime time(QDate(2024, 2, 29), QTime(1, 2));
    QVariantList all;
    for (const SampleValue &sample : sampleValues())
        all += sample.value;
    all += QVariant(QVariantMap{{QStringLiteral("k"), QVariantList{QVariant(), 1}}});
    std::vector<std::unique_ptr<PKC_Property>> result;
    result.push_back(std::make_unique<PKC_Property>(kName, all, told));
    result.push_back(std::make_unique<PKC_PropertyFromList>(
        kName, time, QMap<QString, QVariant>{{QStringLiteral("now"), time}}, true, false, told));
    result.push_back(std::make_unique<PKC_PropertyFromRange>(kName, 0.5, 0.0, 1.0, told));
    result.push_back(std::make_unique<PKC_PropertyFromFile>(kName, QStringLiteral("f"), QStringLiteral("*.png"), told));
    result.push_back(std::make_unique<PKC_PropertyFromFont>(kName, QStringLiteral("Courier"), told));
    return result;
}

QVariant inLists(int depth)
{
    QVariant value = 1;
    for (int i = 0; i < depth; ++i)
        value = QVariantList{value};
    return value;
}

QVariant inMaps(int depth)
{
    QVariant value = 1;
    for (int i = 0; i < depth; ++i)
        value = QVariantMap{{kName, value}};
    return value;
}

class PdfOptionsPayload : public testing::TestWithParam<Layout>
{
protected:
    /// A plain property whose value is what @p write puts there.
    static QByteArray withValue(const std::function<void(QDataStream &)> &write)
    {
        return bytesOf(GetParam(), [&write](QDataStream &stream) {
            stream << kName;
            write(stream);
            stream << QString() << QString() << qint32(0) << qint32(0);
        });
    }
    static bool isLoaded(const std::function<void(QDataStream &)> &write) { return bool(loaded(withValue(write), 0)); }
    static void type(QDataStream &stream, quint32 number)
    {
        stream << number;
        if (GetParam() == Layout::Marked)
            stream << qint8(0);
    }
    /// The numbers of some types in this layout.
    static quint32 listType() { return GetParam() == Layout::Old ? 2 : 9; }
    static quint32 mapType() { return GetParam() == Layout::Old ? 1 : 8; }
    static quint32 textType() { return GetParam() == Layout::Old ? 3 : 10; }
    static quint32 textsType() { return GetParam() == Layout::Old ? 4 : 11; }
};

INSTANTIATE_TEST_SUITE_P(Layouts, PdfOptionsPayload, testing::Values(Layout::Marked, Layout::Old),
    [](const auto &layout) { return layout.param == Layout::Old ? std::string("Old") : std::string("Marked"); });

} // namespace

TEST_P(PdfOptionsPayload, LoadsEveryTypeOfValue)
{
    for (const SampleValue &sample : sampleValues()) {
        SCOPED_TRACE(sample.script);
        if (GetParam() == Layout::Old && sample.value.typeId() == QMetaType::QColor)
            continue; // read, but not written any more
        const auto option = loadedValue(GetParam(), sample.value);
        ASSERT_TRUE(option);
        EXPECT_EQ(option->name(), kName);
        EXPECT_EQ(option->type(), sample.value.typeId());
        if (GetParam() == Layout::Old && sample.value.typeId() == QMetaType::QDateTime) {
            EXPECT_EQ(option->value().toDateTime().date(), sample.value.toDateTime().date()); // without the zone
        } else {
            EXPECT_EQ(option->value(), sample.value);
        }
    }
}

TEST_P(PdfOptionsPayload, LoadsEveryKind)
{
    for (const auto &property : oneOfEachKind()) {
        const auto option = loaded(bytesOf(GetParam(), *property), property->propertyType());
        ASSERT_TRUE(option) << property->propertyType();
        EXPECT_EQ(option->propertyType(), property->propertyType());
        EXPECT_EQ(option->ldesc(), QStringLiteral("Long"));
        EXPECT_EQ(bytesOf(GetParam(), *option), bytesOf(GetParam(), *property));
    }
}

TEST_P(PdfOptionsPayload, LoadsNothingThatEndsTooEarly)
{
    for (const auto &property : oneOfEachKind()) {
        const QByteArray whole = bytesOf(GetParam(), *property);
        for (qsizetype length = 0; length < whole.size(); ++length)
            ASSERT_FALSE(loaded(whole.left(length), property->propertyType()))
                << property->propertyType() << ": " << length << " of " << whole.size();
    }
}

TEST_P(PdfOptionsPayload, PassesOverWhatComesAfterIt)
{
    for (const auto &property : oneOfEachKind())
        EXPECT_TRUE(loaded(bytesOf(GetParam(), *property) + "more", property->propertyType()));
}

TEST_P(PdfOptionsPayload, SurvivesAnyChangedByte)
{
    for (const auto &property : oneOfEachKind()) {
        const QByteArray whole = bytesOf(GetParam(), *property);
        for (qsizetype i = 0; i < whole.size(); ++i) {
            for (const int change : {0x01, 0x80, 0xFF}) {
                QByteArray changed = whole;
                changed[i] = char(changed.at(i) ^ change);
                const auto option = loaded(changed, property->propertyType());
                if (option) {
                    EXPECT_TRUE(option->isValid());
                }
            }
        }
    }
}

// Qt would load these; the application never keeps such values.
TEST_P(PdfOptionsPayload, LoadsNoOtherTypes)
{
    for (const QVariant &other :
        {QVariant(QPoint(1, 2)), QVariant(QByteArray("x")), QVariant(QBitArray(3)), QVariant(QSize(1, 1))}) {
        EXPECT_FALSE(loadedValue(GetParam(), other)) << other.typeName();
        EXPECT_FALSE(loadedValue(GetParam(), QVariantList{1, other})) << other.typeName();
        EXPECT_FALSE(loadedValue(GetParam(), QVariantMap{{kName, other}})) << other.typeName();
    }
    if (GetParam() == Layout::Old)
        return; // has no number for these
    for (const QVariant &other : {QVariant(1.5f), QVariant(QChar(u'x')), QVariant(QUrl()), QVariant(QUuid()),
             QVariant(QPointF()), QVariant::fromValue(short(3)), QVariant(QImage(1, 1, QImage::Format_RGB32))})
        EXPECT_FALSE(loadedValue(GetParam(), other)) << other.typeName();
}

TEST_P(PdfOptionsPayload, LoadsNoTypeThatIsNamed)
{
    for (const quint32 number : {65536u, 1024u, 127u, 4294967295u, 36u, 20u}) {
        EXPECT_FALSE(isLoaded([number](QDataStream &stream) {
            type(stream, number);
            stream << QByteArray("QKeySequence") << quint32(0) << quint64(0);
        })) << number;
    }
}

TEST_P(PdfOptionsPayload, NestsThirtyTwoDeep)
{
    for (const auto nested : {inLists, inMaps}) {
        EXPECT_TRUE(loadedValue(GetParam(), nested(32)));
        EXPECT_FALSE(loadedValue(GetParam(), nested(33)));
    }
    EXPECT_FALSE(isLoaded([](QDataStream &stream) {
        for (int i = 0; i < 100000; ++i) {
            type(stream, listType());
            stream << quint32(1);
        }
    }));
}

TEST_P(PdfOptionsPayload, BelievesNoCountThatTheBytesCannotHold)
{
    for (const quint32 count : {2u, 1000u, 0x7FFFFFFFu, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
        for (const quint32 number : {listType(), mapType(), textsType(), textType()}) {
            EXPECT_FALSE(isLoaded([=](QDataStream &stream) {
                type(stream, number);
                stream << count;
                if (number == textType() && count == 0xFFFFFFFFu)
                    stream << qint8(0); // alone it is a null text
            })) << count
                << " of " << number;
        }
    }
    EXPECT_TRUE(isLoaded([](QDataStream &stream) {
        type(stream, listType());
        stream << quint32(0);
    }));
}

TEST_P(PdfOptionsPayload, LoadsNoTextOfHalfACharacter)
{
    const auto textOfBytes = [](quint32 length) {
        return [length](QDataStream &stream) {
            type(stream, textType());
            stream << length;
            for (quint32 i = 0; i < length; ++i)
                stream << qint8('a');
        };
    };
    EXPECT_TRUE(isLoaded(textOfBytes(4)));
    EXPECT_FALSE(isLoaded(textOfBytes(5)));
}

TEST_P(PdfOptionsPayload, KeepsANullValueNull)
{
    const auto option = loadedValue(GetParam(), QString());
    ASSERT_TRUE(option);
    EXPECT_TRUE(option->toString().isNull());
    EXPECT_FALSE(loadedValue(GetParam(), QVariant()));
}

TEST(PdfOptionsPayloadHeader, MustBeWholeOrTheBytesCountAsOld)
{
    QByteArray bytes = bytesOf(Layout::Marked, PKC_Property(kName, 1, nullptr));
    EXPECT_EQ(bytes.left(8).toHex(), QByteArray("b0b00000000001d9"));
    EXPECT_TRUE(loaded(bytes, 0));
    for (int i = 0; i < 8; ++i) {
        QByteArray changed = bytes;
        changed[i] = char(changed.at(i) ^ 1);
        EXPECT_FALSE(loaded(changed, 0)) << i;
    }
    // The layouts differ: neither is taken for the other.
    EXPECT_FALSE(loaded(bytes.mid(8), 0));
    EXPECT_FALSE(loaded(bytes.left(8) + bytesOf(Layout::Old, PKC_Property(kName, 1, nullptr)), 0));
}

TEST(PdfOptionsPayloadTimes, KeepTheirZones)
{
    const QDate date(2024, 6, 1);
    const QTime time(12, 30);
    for (const QDateTime &value :
        {QDateTime(date, time), QDateTime(date, time, Qt::UTC), QDateTime(date, time, Qt::OffsetFromUTC, 3600),
            QDateTime(date, time, QTimeZone::utc()), QDateTime(date, time, QTimeZone(5400)),
            QDateTime(date, time, QTimeZone("UTC+01:00")), QDateTime(date, time, QTimeZone("Europe/Warsaw"))}) {
        if (!value.isValid())
            continue; // this machine knows no such zone
        const auto option = loadedValue(Layout::Marked, value);
        ASSERT_TRUE(option) << value.toString(Qt::ISODate).toStdString();
        EXPECT_EQ(option->value(), QVariant(value));
        EXPECT_EQ(option->value().toDateTime().timeSpec(), value.timeSpec());
    }
}

TEST(PdfOptionsPayloadTimes, LeadToNoFile)
{
    const auto inZone = [](const QString &zone) {
        return bytesOf(Layout::Marked, [&zone](QDataStream &stream) {
            stream << kName << quint32(QMetaType::QDateTime) << qint8(0) << QDate(2024, 6, 1) << QTime(1, 2)
                   << qint8(Qt::TimeZone) << zone << QString() << QString() << qint32(0) << qint32(0);
        });
    };
    const auto unknown = loaded(inZone(QStringLiteral("Nowhere/At_all")), 0);
    ASSERT_TRUE(unknown);
    EXPECT_FALSE(unknown->value().toDateTime().isValid());
    EXPECT_TRUE(loaded(bytesOf(Layout::Marked, *unknown), 0)); // written with a zone of which Qt says that it is none
    for (const char *bad : {"", "../../../dev/zero", "/dev/zero", "a.b", "a b", "EST5EDT,M3.2.0,M11.1.0"})
        EXPECT_FALSE(loaded(inZone(QString::fromLatin1(bad)), 0)) << bad;
    EXPECT_FALSE(loaded(inZone(QString(65, QLatin1Char('a'))), 0));
    for (const int spec : {-1, 4, 127})
        EXPECT_FALSE(loaded(bytesOf(Layout::Marked,
                                [spec](QDataStream &stream) {
                                    stream << kName << quint32(QMetaType::QDateTime) << qint8(0) << QDate() << QTime()
                                           << qint8(spec) << QString() << QString() << qint32(0) << qint32(0);
                                }),
            0))
            << spec;
}

TEST(PdfOptionsPayloadColours, AreFourBytesInTheOldLayout)
{
    const auto inOld = [](quint32 number) {
        return bytesOf(Layout::Old, [number](QDataStream &stream) {
            stream << kName << quint32(10) << number << QString() << QString() << qint32(0) << qint32(0);
        });
    };
    const auto color = loaded(inOld(0x123456), 0);
    ASSERT_TRUE(color);
    EXPECT_EQ(color->toColor(), QColor(0x12, 0x34, 0x56));
    EXPECT_FALSE(loaded(inOld(0x123456).chopped(1), 0));
    const auto none = loaded(inOld(0x49000000), 0);
    ASSERT_TRUE(none);
    EXPECT_EQ(none->value(), QVariant(QColor()));
}

TEST(PdfOptionsPayloadColours, HaveASpecThatQtKnows)
{
    const auto inSpec = [](int spec) {
        return bytesOf(Layout::Marked, [spec](QDataStream &stream) {
            stream << kName << quint32(QMetaType::QColor) << qint8(0) << qint8(spec) << quint16(1) << quint16(2)
                   << quint16(3) << quint16(4) << quint16(5) << QString() << QString() << qint32(0) << qint32(0);
        });
    };
    for (int spec = 0; spec <= 5; ++spec)
        EXPECT_TRUE(loaded(inSpec(spec), 0)) << spec;
    for (const int spec : {-128, -1, 6, 127})
        EXPECT_FALSE(loaded(inSpec(spec), 0)) << spec;
    for (const QColor &color : {QColor::fromHsv(300, 20, 30), QColor::fromCmyk(1, 2, 3, 4), QColor::fromHsl(1, 2, 3),
             QColor::fromRgbF(1.5f, -0.5f, 0.0f)}) {
        const auto option = loadedValue(Layout::Marked, color);
        ASSERT_TRUE(option);
        EXPECT_EQ(option->toColor(), color);
    }
}
