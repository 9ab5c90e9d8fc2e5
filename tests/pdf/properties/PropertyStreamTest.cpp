#include "pdf/properties/PKC_PropertyFactory.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/PKC_PropertyObserver.h"
#include "pdf/properties/Samples.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

#include <memory>

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
