#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"
#include "pdf/properties/PKC_PropertyObserver.h"
#include "support/Warnings.h"

#include <QDataStream>
#include <QDomDocument>
#include <QIODevice>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString kName = QStringLiteral("key");
const QMap<QString, QVariant> kChoices{{QStringLiteral("One"), 1}, {QStringLiteral("Two"), 2}};

const char *const kOver = "Invalid PKC_PropertyFromRange, out of range (over). Init value to max.";
const char *const kLower = "Invalid PKC_PropertyFromRange, out of range (lower). Init value to min.";
const char *const kNoNumbers = "Invalid PKC_PropertyFromRange, not numerical or not the same type.";

class Counter : public PKC_PropertyObserver
{
public:
    void onPropertyModified(PKC_Property *property) override { values.push_back(property->toInt()); }
    std::vector<int> values;
};

PKC_PropertyFromRange tenths(const QVariant &value)
{
    return PKC_PropertyFromRange(kName, value, 0, 10, nullptr);
}

} // namespace

TEST(PropertyFromList, TakesValuesThatAreNotInTheList)
{
    PKC_PropertyFromList list(kName, 1, kChoices, false, false, nullptr);
    EXPECT_EQ(list.possibleValues(), kChoices);
    EXPECT_FALSE(list.allowEmpty());
    EXPECT_FALSE(list.allowMultiple());
    EXPECT_TRUE(list.setValue(QVariant(99)));
    EXPECT_EQ(list.toInt(), 99);
    EXPECT_TRUE(list.validate(false));
}

TEST(PropertyFromList, TakesItsFirstValueFromAProperty)
{
    const PKC_Property from(QStringLiteral("from"), 2, nullptr);
    const PKC_PropertyFromList list(kName, from, kChoices, true, false, nullptr);
    EXPECT_EQ(list.toInt(), 2);
    EXPECT_TRUE(list.allowEmpty());
}

TEST(PropertyFromList, IsClearedWhenAChoiceHasAnotherType)
{
    const PKC_PropertyFromList list(kName, QStringLiteral("1"), kChoices, false, false, nullptr);
    EXPECT_FALSE(list.isValid());
    PKC_PropertyFromList mixed(kName, 1, {{QStringLiteral("a"), 1}, {QStringLiteral("b"), 1.0}}, false, false, nullptr);
    EXPECT_FALSE(mixed.isValid());
    EXPECT_FALSE(mixed.validate(true));
}

TEST(PropertyFromList, RefusesAValueOfAnotherTypeThanItsChoices)
{
    PKC_PropertyFromList list(kName, QVariant(), kChoices, false, false, nullptr);
    EXPECT_FALSE(list.validate(true)); // without a type there is nothing to compare
    EXPECT_FALSE(list.setValue(QVariant(QStringLiteral("x"))));
    EXPECT_FALSE(list.isValid());
    EXPECT_TRUE(list.setValue(QVariant(2)));
    EXPECT_TRUE(list.setValue(QVariant(QStringLiteral("1"))));
    EXPECT_EQ(list.value(), QVariant(1));
}

TEST(PropertyFromList, ComparesTheFirstItemWhenSeveralMayBeChosen)
{
    PKC_PropertyFromList several(kName, QVariantList{1, QStringLiteral("x")}, kChoices, false, true, nullptr);
    EXPECT_TRUE(several.validate(false));
    EXPECT_FALSE(several.setValue(QVariant(QVariantList{QStringLiteral("x"), 1})));
    EXPECT_FALSE(several.setValue(QVariant(QVariantList())));
    EXPECT_EQ(several.value().toList().size(), 2);
    PKC_PropertyFromList single(kName, 1, kChoices, false, true, nullptr);
    EXPECT_TRUE(single.validate(false));
    const PKC_PropertyFromList one(kName, QVariantList{1}, kChoices, false, false, nullptr);
    EXPECT_FALSE(one.isValid());
}

TEST(PropertyFromList, LeavesAnEmptyChoiceOfSeveralAlone)
{
    PKC_PropertyFromList list(kName, QVariantList(), kChoices, true, true, nullptr);
    EXPECT_FALSE(list.validate(true));
    EXPECT_EQ(list.type(), QMetaType::QVariantList);
}

TEST(PropertyFromList, IsClearedOfTextsEvenWhenSeveralMayBeChosen)
{
    const QMap<QString, QVariant> words{{QStringLiteral("A"), QStringLiteral("a")}};
    const QStringList chosen{QStringLiteral("a")};
    PKC_PropertyFromList list(kName, chosen, words, false, true, nullptr);
    EXPECT_FALSE(list.isValid()); // only in a list of values does the first item count
    EXPECT_FALSE(list.setValue(QVariant(chosen)));
    EXPECT_FALSE(list.validate(false));
    EXPECT_FALSE(list.isValid());
}

TEST(PropertyFromList, ComesBackFromXmlOnlyWhenItsChoicesAreTexts)
{
    const auto loaded = [](const QVariantList &chosen, const QVariant &choice) {
        PKC_PropertyFromList list(kName, chosen, {{QStringLiteral("A"), choice}}, true, true, nullptr);
        QDomDocument document;
        QDomElement root = document.createElement(QStringLiteral("root"));
        EXPECT_TRUE(list.store(document, root));
        QDomElement element = root.firstChildElement();
        const bool good = list.load(element);
        EXPECT_EQ(list.type(), QMetaType::QVariantList);
        return std::pair(good, list.value().toList());
    };
    const QString a = QStringLiteral("a");
    EXPECT_EQ(loaded({a, a}, a), std::pair(true, QVariantList({a, a})));
    EXPECT_EQ(loaded({}, a), std::pair(true, QVariantList{QString()})); // nothing comes back as one empty text
    EXPECT_EQ(loaded({1}, 1), std::pair(false, QVariantList{1}));       // the text "1" is no number
    EXPECT_EQ(loaded({}, 1), std::pair(false, QVariantList()));
}

TEST(PropertyFromList, WithoutChoicesTakesEverything)
{
    PKC_PropertyFromList list(kName);
    EXPECT_FALSE(list.validate(true));
    EXPECT_TRUE(list.setValue(QVariant(QStringLiteral("x"))));
    EXPECT_TRUE(list.validate(true));
}

TEST(PropertyFromRange, ClipsAValueAboveItAndTellsOfIt)
{
    Warnings warnings;
    PKC_PropertyFromRange range = tenths(5);
    Counter counter;
    counter.registerObservable(&range);
    EXPECT_TRUE(range.setValue(QVariant(12)));
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver));
    EXPECT_EQ(range.value(), QVariant(10));
    EXPECT_THAT(counter.values, ElementsAre(10));
    EXPECT_EQ(warnings.category(), "plotka.properties");
}

TEST(PropertyFromRange, RefusesAValueBelowIt)
{
    Warnings warnings;
    PKC_PropertyFromRange range = tenths(5);
    Counter counter;
    counter.registerObservable(&range);
    EXPECT_FALSE(range.setValue(QVariant(-1)));
    EXPECT_THAT(warnings.taken(), ElementsAre(kLower));
    EXPECT_EQ(range.value(), QVariant(5));
    EXPECT_THAT(counter.values, IsEmpty());
}

TEST(PropertyFromRange, TakesItsLimits)
{
    PKC_PropertyFromRange range = tenths(5);
    EXPECT_TRUE(range.setValue(QVariant(0)));
    EXPECT_TRUE(range.setValue(QVariant(10)));
    EXPECT_EQ(range.min(), QVariant(0));
    EXPECT_EQ(range.max(), QVariant(10));
}

TEST(PropertyFromRange, IsBornWithinIt)
{
    Warnings warnings;
    EXPECT_EQ(tenths(12).value(), QVariant(10));
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver));
    EXPECT_EQ(tenths(-1).value(), QVariant(0));
    EXPECT_THAT(warnings.taken(), ElementsAre(kLower));
    const PKC_Property from(QStringLiteral("from"), 11, nullptr);
    EXPECT_EQ(PKC_PropertyFromRange(kName, from, 0, 10, nullptr).value(), QVariant(10));
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver));
}

TEST(PropertyFromRange, IsBornAsZeroWithoutThreeNumbersOfOneType)
{
    Warnings warnings;
    for (const QVariant &bad :
        {QVariant(1.0), QVariant(1u), QVariant(QStringLiteral("1")), QVariant(), QVariant(true)}) {
        const PKC_PropertyFromRange range = tenths(bad);
        EXPECT_THAT(warnings.taken(), ElementsAre(kNoNumbers));
        EXPECT_EQ(range.value(), QVariant(0));
        EXPECT_EQ(range.type(), QMetaType::Int);
        EXPECT_EQ(range.min(), QVariant(0));
        EXPECT_EQ(range.max(), QVariant(0));
    }
    const PKC_PropertyFromRange words(kName, kName, kName, kName, nullptr);
    EXPECT_THAT(warnings.taken(), ElementsAre(kNoNumbers));
    EXPECT_EQ(words.max(), QVariant(0));
    const PKC_PropertyFromRange uneven(kName, 5, 0, 10u, nullptr);
    EXPECT_THAT(warnings.taken(), ElementsAre(kNoNumbers));
    EXPECT_EQ(uneven.value(), QVariant(0));
}

TEST(PropertyFromRange, ComparesInItsOwnType)
{
    Warnings warnings;
    const auto clipped = [](const QVariant &value, const QVariant &min, const QVariant &max) {
        return PKC_PropertyFromRange(kName, value, min, max, nullptr).value();
    };
    EXPECT_EQ(clipped(4294967295u, 0u, 4294967294u), QVariant(4294967294u));
    const qlonglong large = Q_INT64_C(9007199254740993); // not the same as a double
    EXPECT_EQ(clipped(large, large - 2, large - 1), QVariant(large - 1));
    const qulonglong huge = std::numeric_limits<qulonglong>::max();
    EXPECT_EQ(clipped(huge, qulonglong(0), huge - 1), QVariant(huge - 1));
    EXPECT_EQ(clipped(0.25, 0.3, 0.5), QVariant(0.3));
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver, kOver, kOver, kLower));
}

TEST(PropertyFromRange, TakesNotANumberAsItIsNeitherAboveNorBelow)
{
    PKC_PropertyFromRange range(kName, 0.5, 0.0, 1.0, nullptr);
    EXPECT_TRUE(range.setValue(QVariant(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_TRUE(std::isnan(range.toDouble()));
}

TEST(PropertyFromRange, TakesTheMaximumFirstWhenItsLimitsAreTurnedAround)
{
    Warnings warnings;
    const PKC_PropertyFromRange range(kName, 7, 10, 5, nullptr);
    EXPECT_EQ(range.value(), QVariant(5));
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver));
}

TEST(PropertyFromRange, TakesNoValueBeforeItHasLimits)
{
    Warnings warnings;
    PKC_PropertyFromRange range(kName);
    EXPECT_FALSE(range.setValue(QVariant(3)));
    EXPECT_THAT(warnings.taken(), ElementsAre(kNoNumbers));
    EXPECT_FALSE(range.isValid());
    EXPECT_FALSE(range.min().isValid());
}

TEST(PropertyFromRange, RepairsWhatAStreamBroughtOnlyWhenAsked)
{
    Warnings warnings;
    const auto streamed = [](const QVariant &value, const QVariant &min, const QVariant &max) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << kName << value << QString() << QString() << qint32(0) << qint32(0) << min << max;
        auto range = std::make_unique<PKC_PropertyFromRange>(kName);
        QDataStream in(bytes);
        EXPECT_TRUE(range->load(in));
        return range;
    };
    const auto low = streamed(-5, 0, 10);
    EXPECT_EQ(low->toInt(), -5);
    EXPECT_FALSE(low->validate(false));
    EXPECT_EQ(low->toInt(), -5);
    EXPECT_FALSE(low->validate(true));
    EXPECT_EQ(low->toInt(), 0);
    EXPECT_THAT(warnings.taken(), ElementsAre(kLower, kLower));

    const auto high = streamed(15, 0, 10);
    EXPECT_TRUE(high->validate(false)); // what is above is clipped in any case
    EXPECT_EQ(high->toInt(), 10);
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver));

    const auto mixed = streamed(5, 0.0, 10);
    EXPECT_FALSE(mixed->validate(false));
    EXPECT_EQ(mixed->min(), QVariant(0.0));
    EXPECT_EQ(mixed->toInt(), 5);
    EXPECT_FALSE(mixed->validate(true));
    EXPECT_EQ(mixed->max(), QVariant(0));
    EXPECT_EQ(mixed->toInt(), 0);
    EXPECT_THAT(warnings.taken(), ElementsAre(kNoNumbers, kNoNumbers));
}

TEST(PropertyFromRange, TakesWhatQtLeavesOfALargerNumber)
{
    PKC_PropertyFromRange range = tenths(1);
    EXPECT_TRUE(range.setValue(QVariant(Q_INT64_C(4294967301)))); // 2^32 + 5
    EXPECT_EQ(range.value(), QVariant(5));
}

TEST(PropertyFromRange, IsReadFromTextWithinItsLimits)
{
    Warnings warnings;
    PKC_PropertyFromRange range = tenths(5);
    EXPECT_TRUE(range.setValueFromString(QStringLiteral("77")));
    EXPECT_THAT(warnings.taken(), ElementsAre(kOver));
    EXPECT_FALSE(range.setValueFromString(QStringLiteral("-77")));
    EXPECT_THAT(warnings.taken(), ElementsAre(kLower));
    EXPECT_EQ(range.toInt(), 10);
}

TEST(PropertyFromFile, KeepsAFilter)
{
    const PKC_PropertyFromFile file(kName, QStringLiteral("/no/such.png"), QStringLiteral("Images (*.png)"), nullptr);
    EXPECT_EQ(file.fileFilter(), QStringLiteral("Images (*.png)"));
    EXPECT_EQ(file.toString(), QStringLiteral("/no/such.png"));
    const PKC_PropertyFromFile same(QStringLiteral("other"), file, QString(), nullptr);
    EXPECT_EQ(same.toString(), QStringLiteral("/no/such.png"));
    EXPECT_TRUE(same.fileFilter().isEmpty());
    EXPECT_EQ(PKC_PropertyFromFile(kName).fileFilter(), QStringLiteral("*.*"));
}

TEST(PropertyFromFont, IsAPlainValueOfItsOwnKind)
{
    const PKC_PropertyFromFont font(kName, QStringLiteral("Courier"), nullptr);
    EXPECT_EQ(font.toString(), QStringLiteral("Courier"));
    EXPECT_EQ(PKC_PropertyFromFont(kName, font, nullptr).toString(), QStringLiteral("Courier"));
    EXPECT_FALSE(PKC_PropertyFromFont(kName).isValid());
}

TEST(PropertyFromCaptionList, SplitsItsTextAndDropsEmptyParts)
{
    const PKC_PropertyFromCaptionList captions(kName, QStringLiteral(";Dialog;; Notes ;dialog;"), nullptr);
    EXPECT_EQ(captions.captionList(),
        QList<QString>({QStringLiteral("Dialog"), QStringLiteral(" Notes "), QStringLiteral("dialog")}));
    EXPECT_TRUE(PKC_PropertyFromCaptionList(kName).captionList().isEmpty());
    const PKC_PropertyFromCaptionList same(QStringLiteral("other"), captions, nullptr);
    EXPECT_EQ(same.captionList().size(), 3);
}

TEST(PropertyFromCaptionList, SplitsAgainOnceItsValueIsSet)
{
    Warnings warnings;
    PKC_PropertyFromCaptionList captions(kName, QStringLiteral("a;b"), nullptr);
    const QList<QString> *const list = &captions.captionList();
    EXPECT_EQ(list->size(), 2);
    EXPECT_TRUE(captions.setValue(QVariant(QStringLiteral("c"))));
    EXPECT_EQ(captions.captionList(), QList<QString>{QStringLiteral("c")});
    EXPECT_EQ(&captions.captionList(), list);
    EXPECT_TRUE(captions.setValue(PKC_Property(kName, QStringLiteral("d;e"), nullptr)));
    EXPECT_EQ(captions.captionList().size(), 2);
    EXPECT_TRUE(captions.setValueFromString(QStringLiteral("f")));
    EXPECT_EQ(captions.captionList(), QList<QString>{QStringLiteral("f")});
    EXPECT_FALSE(captions.setValue(QVariant()));
    EXPECT_EQ(captions.captionList(), QList<QString>{QStringLiteral("f")});
    EXPECT_EQ(warnings.taken().size(), 1u);
}

TEST(PropertyFromCaptionList, SplitsAgainOnceLoadedFromAStream)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    PKC_Property(kName, QStringLiteral("x;y"), nullptr).store(out);
    PKC_PropertyFromCaptionList captions(kName, QStringLiteral("a"), nullptr);
    EXPECT_EQ(captions.captionList().size(), 1);
    QDataStream in(bytes);
    EXPECT_TRUE(captions.load(in));
    EXPECT_EQ(captions.captionList(), QList<QString>({QStringLiteral("x"), QStringLiteral("y")}));
}

TEST(PropertyFromCaptionList, ShowsObserversTheNewCaptions)
{
    class Reader : public PKC_PropertyObserver
    {
    public:
        void onPropertyModified(PKC_Property *property) override
        {
            seen = static_cast<PKC_PropertyFromCaptionList *>(property)->captionList();
        }
        QList<QString> seen;
    };
    PKC_PropertyFromCaptionList captions(kName, QStringLiteral("a"), nullptr);
    EXPECT_EQ(captions.captionList().size(), 1);
    Reader reader;
    reader.registerObservable(&captions);
    captions.setValue(QVariant(QStringLiteral("b;c")));
    EXPECT_EQ(reader.seen, QList<QString>({QStringLiteral("b"), QStringLiteral("c")}));
}
