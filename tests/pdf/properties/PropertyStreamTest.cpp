#include "pdf/properties/PKC_PropertyFactory.h"
#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/PKC_PropertyObserver.h"
#include "pdf/properties/Samples.h"
#include "support/Warnings.h"

#include <QDataStream>
#include <QIODevice>
#include <QPoint>
#include <QTimeZone>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

using testing::ElementsAre;

namespace
{

const QString kName = QStringLiteral("key");

QByteArray streamed(const PKC_Property &property)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_TRUE(property.store(stream));
    return bytes;
}

bool loadFrom(const QByteArray &bytes, PKC_Property &property)
{
    QDataStream stream(bytes);
    return property.load(stream);
}

/// A property in a stream of that version, with the value that @p write puts there.
QByteArray withValue(int version, const std::function<void(QDataStream &)> &write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream << kName;
    write(stream);
    stream << QString() << QString() << qint32(0) << qint32(0);
    return bytes;
}

/// Whether a property is loaded from a stream of that version; one that is not must be as it was.
bool isLoaded(int version, const QByteArray &bytes, PKC_Property &target)
{
    QDataStream stream(bytes);
    stream.setVersion(version);
    const QString name = target.name();
    const bool loaded = target.load(stream);
    EXPECT_EQ(loaded, stream.status() == QDataStream::Ok);
    EXPECT_TRUE(loaded || (!target.isValid() && target.name() == name));
    return loaded;
}

bool isLoaded(int version, const std::function<void(QDataStream &)> &write)
{
    PKC_Property target{QString()};
    return isLoaded(version, withValue(version, write), target);
}

/// That many lists in one another.
QVariant nested(int depth)
{
    QVariant value = 1;
    for (int i = 0; i < depth; ++i)
        value = QVariantList{value};
    return value;
}

/// A type of the program that no stream can hold.
struct Unstreamable {
    int number = 0;
};

/// One property of each kind that the factory makes.
std::vector<std::unique_ptr<PKC_Property>> oneOfEachKind()
{
    UT_SharedPtr<PKC_PropertyDefinition> told(
        new PKC_PropertyDefinition(QStringLiteral("Long"), QStringLiteral("Short"), true, false));
    std::vector<std::unique_ptr<PKC_Property>> result;
    result.push_back(std::make_unique<PKC_Property>(kName, true, told));
    result.push_back(std::make_unique<PKC_PropertyFromList>(
        kName, 1, QMap<QString, QVariant>{{QStringLiteral("One"), 1}}, true, false, told));
    result.push_back(std::make_unique<PKC_PropertyFromRange>(kName, 0.5, 0.0, 1.0, told));
    result.push_back(std::make_unique<PKC_PropertyFromFile>(kName, QStringLiteral("f"), QStringLiteral("*.png"), told));
    result.push_back(std::make_unique<PKC_PropertyFromFont>(kName, QStringLiteral("Courier"), told));
    return result;
}

} // namespace

TEST(PropertyStream, HoldsItsFieldsInOrder)
{
    const QByteArray bytes = streamed(PKC_Property(
        kName, 150, new PKC_PropertyDefinition(QStringLiteral("Long"), QStringLiteral("Short"), true, false)));
    QByteArray expected;
    QDataStream stream(&expected, QIODevice::WriteOnly);
    stream << kName << QVariant(150) << QStringLiteral("Long") << QStringLiteral("Short") << qint32(1) << qint32(0);
    EXPECT_EQ(bytes.toHex(), expected.toHex());
}

TEST(PropertyStream, HoldsWhatEachKindAdds)
{
    const auto properties = oneOfEachKind();
    const qsizetype base = streamed(PKC_Property(kName, *properties[1], nullptr)).size();
    EXPECT_EQ(base, streamed(PKC_Property(kName, 1, nullptr)).size());
    const auto expected = [](const auto &...fields) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << kName;
        (stream << ... << fields);
        return bytes.toHex();
    };
    const QString l = QStringLiteral("Long");
    const QString s = QStringLiteral("Short");
    const QVariantMap choices{{QStringLiteral("One"), 1}};
    EXPECT_EQ(streamed(*properties[1]).toHex(),
        expected(QVariant(1), l, s, qint32(1), qint32(0), QVariant(choices), qint32(1), qint32(0)));
    EXPECT_EQ(streamed(*properties[2]).toHex(),
        expected(QVariant(0.5), l, s, qint32(1), qint32(0), QVariant(0.0), QVariant(1.0)));
    EXPECT_EQ(streamed(*properties[3]).toHex(),
        expected(QVariant(QStringLiteral("f")), l, s, qint32(1), qint32(0), QStringLiteral("*.png")));
    EXPECT_EQ(
        streamed(*properties[4]).toHex(), expected(QVariant(QStringLiteral("Courier")), l, s, qint32(1), qint32(0)));
}

TEST(PropertyStream, ComesBackInEveryType)
{
    auto samples = sampleValues();
    samples.push_back({QVariant(), "", ""});
    for (const SampleValue &sample : samples) {
        SCOPED_TRACE(sample.script);
        const PKC_Property property(kName, sample.value, nullptr);
        PKC_Property again{QString()};
        EXPECT_TRUE(loadFrom(streamed(property), again));
        EXPECT_EQ(again.name(), kName);
        EXPECT_EQ(again.type(), sample.value.typeId());
        EXPECT_EQ(again.value(), sample.value);
        EXPECT_EQ(streamed(again), streamed(property));
    }
}

TEST(PropertyStream, ComesBackInEveryKind)
{
    for (const auto &property : oneOfEachKind()) {
        const std::unique_ptr<PKC_Property> again(
            PKC_PropertyFactory::create(property->propertyType(), QStringLiteral("other")));
        EXPECT_TRUE(loadFrom(streamed(*property), *again));
        EXPECT_EQ(again->name(), kName);
        EXPECT_EQ(again->ldesc(), QStringLiteral("Long"));
        EXPECT_EQ(again->sdesc(), QStringLiteral("Short"));
        EXPECT_TRUE(again->isReadOnly());
        EXPECT_FALSE(again->isInternal());
        EXPECT_TRUE(*again == *property);
        EXPECT_EQ(streamed(*again), streamed(*property)) << property->propertyType();
    }
}

TEST(PropertyStream, ReplacesAValueWithoutAskingOrTelling)
{
    class Listener : public PKC_PropertyObserver
    {
    public:
        void onPropertyModified(PKC_Property *) override { ++heard; }
        int heard = 0;
    };
    PKC_PropertyFromRange range(kName, 5, 0, 10, new PKC_PropertyDefinition(QString(), QString(), true, true));
    Listener listener;
    listener.registerObservable(&range);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QStringLiteral("renamed") << QVariant(77) << QString() << QString() << qint32(-3) << qint32(0)
           << QVariant(0) << QVariant(1);
    EXPECT_TRUE(loadFrom(bytes, range));
    EXPECT_EQ(range.name(), QStringLiteral("renamed"));
    EXPECT_EQ(range.value(), QVariant(77)); // neither read-only nor the range is asked
    EXPECT_EQ(range.max(), QVariant(1));
    EXPECT_TRUE(range.isReadOnly());
    EXPECT_FALSE(range.isInternal());
    EXPECT_EQ(listener.heard, 0);
}

TEST(PropertyStream, ChangesASharedDefinition)
{
    UT_SharedPtr<PKC_PropertyDefinition> shared(new PKC_PropertyDefinition);
    PKC_Property one(QStringLiteral("one"), 1, shared);
    const PKC_Property two(QStringLiteral("two"), 2, shared);
    EXPECT_TRUE(loadFrom(streamed(*oneOfEachKind()[0]), one));
    EXPECT_EQ(two.ldesc(), QStringLiteral("Long"));
    EXPECT_TRUE(two.isReadOnly());
}

TEST(PropertyStream, ClearsAListWhoseChoicesHaveAnotherType)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << kName << QVariant(1) << QString() << QString() << qint32(0) << qint32(0)
           << QVariant(QVariantMap{{QStringLiteral("a"), QStringLiteral("text")}}) << qint32(5) << qint32(0);
    PKC_PropertyFromList list(kName);
    EXPECT_TRUE(loadFrom(bytes, list));
    EXPECT_FALSE(list.isValid());
    EXPECT_TRUE(list.allowEmpty());
    EXPECT_FALSE(list.allowMultiple());
    EXPECT_EQ(list.possibleValues().size(), 1);
}

TEST(PropertyStream, ChangesNothingWhenItEndsTooEarly)
{
    for (const auto &property : oneOfEachKind()) {
        const QByteArray whole = streamed(*property);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            const std::unique_ptr<PKC_Property> target(
                PKC_PropertyFactory::create(property->propertyType(), QStringLiteral("old")));
            EXPECT_FALSE(loadFrom(whole.left(length), *target)) << length;
            EXPECT_EQ(target->name(), QStringLiteral("old"));
            EXPECT_FALSE(target->isValid());
        }
    }
}

TEST(PropertyStream, IsNotReadOnceItWasBad)
{
    const QByteArray bytes = streamed(PKC_Property(kName, 1, nullptr));
    QDataStream stream(bytes);
    stream.setStatus(QDataStream::ReadCorruptData);
    PKC_Property target(QStringLiteral("old"));
    EXPECT_FALSE(target.load(stream));
    EXPECT_EQ(target.name(), QStringLiteral("old"));
}

TEST(PropertyStream, IsReadAsQtDoesInEveryVersion)
{
    for (int version = 1; version <= QDataStream::Qt_DefaultCompiledVersion; ++version) {
        for (const SampleValue &sample : sampleValues()) {
            if (version < QDataStream::Qt_4_0 && sample.value.typeId() == QMetaType::QColor)
                continue; // read, but not written any more
            const QByteArray bytes = withValue(version, [&sample](QDataStream &stream) { stream << sample.value; });
            QDataStream stream(bytes);
            stream.setVersion(version);
            QString name;
            QVariant expected;
            stream >> name >> expected;
            PKC_Property property{QString()};
            EXPECT_TRUE(isLoaded(version, bytes, property)) << sample.script << " in version " << version;
            EXPECT_EQ(property.type(), expected.typeId());
            EXPECT_EQ(property.value(), expected) << sample.script << " in version " << version;
        }
    }
}

TEST(PropertyStream, KeepsAValueOfATypeThatIsNull)
{
    const PKC_Property property(kName, QVariant(QMetaType(QMetaType::Int)), nullptr);
    PKC_Property again{QString()};
    EXPECT_TRUE(loadFrom(streamed(property), again));
    EXPECT_EQ(again.type(), QMetaType::Int);
    EXPECT_TRUE(again.isNull());
}

TEST(PropertyStream, IsReadInTheOrderOfItsBytes)
{
    const QVariantList value{
        0.5, QStringLiteral("x"), QDateTime(QDate(2024, 2, 29), QTime(1, 2), QTimeZone("UTC+01:00"))};
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    EXPECT_TRUE(PKC_Property(kName, value, nullptr).store(out));
    QDataStream in(bytes);
    in.setByteOrder(QDataStream::LittleEndian);
    PKC_Property again{QString()};
    EXPECT_TRUE(again.load(in));
    EXPECT_EQ(again.value(), QVariant(value));
}

// What a damaged stream asks for: memory without end, a picture where there is no window system, all of the stack.
TEST(PropertyStream, BelievesNothingOfADamagedValue)
{
    const quint32 listType = 9;
    const quint32 textsType = 11;
    const quint32 pixmapType = 0x1001;
    for (const int version : {int(QDataStream::Qt_4_2), int(QDataStream::Qt_5_15), int(QDataStream::Qt_6_4)}) {
        for (const quint32 type : {listType, textsType}) {
            for (const quint32 count : {1000u, 0x7FFFFFFFu, 0xFFFFFFFFu})
                EXPECT_FALSE(
                    isLoaded(version, [=](QDataStream &stream) { stream << type << qint8(0) << count << qint8(0); }));
        }
        for (const quint32 type : {pixmapType, 65u, 127u, 65536u})
            EXPECT_FALSE(isLoaded(version, [=](QDataStream &stream) {
                stream << type << qint8(0) << QByteArray("QPixmap") << qint32(0);
            })) << type;
        EXPECT_FALSE(isLoaded(version, [=](QDataStream &stream) {
            for (int i = 0; i < 200000; ++i)
                stream << listType << qint8(0) << quint32(1);
        }));
        EXPECT_TRUE(isLoaded(version, [](QDataStream &stream) { stream << nested(32); }));
        EXPECT_FALSE(isLoaded(version, [](QDataStream &stream) { stream << nested(33); }));
    }
}

TEST(PropertyStream, BelievesNothingOfWhatAKindAdds)
{
    for (const int kind : {1, 2}) {
        const std::unique_ptr<PKC_Property> target(PKC_PropertyFactory::create(kind, QStringLiteral("old")));
        const auto write = [](QDataStream &stream) { stream << QVariant(1); };
        QByteArray bytes = withValue(QDataStream::Qt_6_4, write);
        QDataStream stream(&bytes, QIODevice::Append);
        stream << QVariant(QPoint(1, 2)) << QVariant(QPoint(1, 2));
        EXPECT_FALSE(isLoaded(QDataStream::Qt_6_4, bytes, *target)) << kind;
    }
}

TEST(PropertyStream, HoldsNothingThatItWouldNotReadAgain)
{
    Warnings warnings;
    const QVariant point(QPoint(1, 2));
    const QVariant unstreamable = QVariant::fromValue(Unstreamable());
    const QTimeZone zone("a.b", 3600, kName, kName); // named like a file
    const QVariant inOddZone(QDateTime(QDate(2024, 2, 29), QTime(1, 2), zone));
    for (const QVariant &value : {point, unstreamable, inOddZone, QVariant(QVariantList{1, unstreamable}),
             QVariant(QVariantMap{{kName, unstreamable}}), nested(33)}) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        EXPECT_FALSE(PKC_Property(kName, value, nullptr).store(stream)) << value.typeName();
        EXPECT_FALSE(PKC_PropertyFromFile(kName, value, QString(), nullptr).store(stream)) << value.typeName();
        const PKC_PropertyFromList list(kName, 1, {{QStringLiteral("choice"), value}}, false, false, nullptr);
        EXPECT_FALSE(list.store(stream)) << value.typeName();
        EXPECT_TRUE(bytes.isEmpty());
        const std::string refused = "Could not store property key, streams keep no such value";
        EXPECT_THAT(warnings.taken(), ElementsAre(refused, refused, refused));
    }
    EXPECT_FALSE(streamed(PKC_Property(kName, nested(32), nullptr)).isEmpty());
}

TEST(PropertyStream, HoldsACaptionListAsAPlainProperty)
{
    const QString captions = QStringLiteral("a;b");
    EXPECT_EQ(streamed(PKC_PropertyFromCaptionList(kName, captions, nullptr)),
        streamed(PKC_Property(kName, captions, nullptr)));
}
