#include "metadata/PKC_SoundAnnotation.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>

namespace
{

constexpr int largestId = std::numeric_limits<int>::max();

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// "id=path" of each entry, with a "-" before those that are marked.
std::string entriesOf(const PKC_SoundAnnotation &annotation)
{
    QStringList entries;
    for (auto entry = annotation.beginSoundFiles(); entry != annotation.endSoundFiles(); ++entry) {
        entries += QStringLiteral("%1%2=%3").arg(
            entry->second.deleted ? QStringLiteral("-") : QString(), QString::number(entry->first), entry->second.path);
    }
    return entries.join(QLatin1Char(' ')).toStdString();
}

PKC_SoundAnnotation threeFiles()
{
    PKC_SoundAnnotation annotation(text("inside"), text("elsewhere"), text("0.7"));
    annotation.add(7, text("a%2.wav"));
    annotation.add(-2, text("b"));
    annotation.add(3, text("<c>"));
    annotation.markDeleted(3, true);
    return annotation;
}

const std::string threeEntries = "-2=b -3=<c> 7=a%2.wav";

} // namespace

TEST(SoundAnnotation, StartsEmptyAndIsAlwaysValid)
{
    const PKC_SoundAnnotation annotation;
    EXPECT_EQ(textsOf(annotation), "soundAnnotation '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_SoundAnnotation::kPIO_PKMETA_Keyword, text("soundAnnotation"));
    EXPECT_EQ(PKC_SoundAnnotation::kPIO_PKMETA_Version, text("1.0"));
    EXPECT_TRUE(annotation.isValid());
    EXPECT_TRUE(threeFiles().isValid());
    EXPECT_EQ(annotation.count(), 0U);
    EXPECT_EQ(annotation.beginSoundFiles(), annotation.endSoundFiles());
    EXPECT_TRUE(annotation.soundFiles().empty());
    EXPECT_TRUE(PKC_SoundAnnotation::SoundFilePath_t().path.isEmpty());
    EXPECT_FALSE(PKC_SoundAnnotation::SoundFilePath_t().deleted);
}

TEST(SoundAnnotation, NumbersFilesAfterTheLargestId)
{
    PKC_SoundAnnotation annotation;
    EXPECT_EQ(annotation.add(text("a")), 1);
    EXPECT_EQ(annotation.add(text("b")), 2);
    EXPECT_EQ(annotation.add(5, text("e")), 5);
    EXPECT_TRUE(annotation.remove(2));
    EXPECT_EQ(annotation.add(text("f")), 6);
    EXPECT_EQ(entriesOf(annotation), "1=a 5=e 6=f");
    EXPECT_TRUE(annotation.markDeleted(6, true));
    EXPECT_EQ(annotation.add(text("g")), 7);

    PKC_SoundAnnotation negative;
    negative.add(-9, text("a"));
    EXPECT_EQ(negative.add(text("b")), -8);
}

TEST(SoundAnnotation, NumbersFilesFromBelowOnceTheLargestIdIsTaken)
{
    PKC_SoundAnnotation annotation;
    annotation.add(largestId, text("z"));
    EXPECT_EQ(annotation.add(text("a")), 1);
    annotation.add(-1, text("n"));
    annotation.add(0, text("o"));
    annotation.add(3, text("c"));
    EXPECT_EQ(annotation.add(text("b")), 2);
    EXPECT_EQ(annotation.add(text("d")), 4);
    EXPECT_EQ(entriesOf(annotation), "-1=n 0=o 1=a 2=b 3=c 4=d 2147483647=z");
}

TEST(SoundAnnotation, ReplacesTheFileOfAnId)
{
    PKC_SoundAnnotation annotation = threeFiles();
    EXPECT_EQ(annotation.add(3, text("new")), 3);
    EXPECT_EQ(entriesOf(annotation), "-2=b 3=new 7=a%2.wav");
}

TEST(SoundAnnotation, KeepsAMarkedFileInMemory)
{
    PKC_SoundAnnotation annotation = threeFiles();
    EXPECT_EQ(annotation.count(), 3U);
    EXPECT_EQ(annotation.filePath(3), text("<c>"));
    EXPECT_TRUE(annotation.markDeleted(7, true));
    EXPECT_TRUE(annotation.markDeleted(3, false));
    EXPECT_EQ(entriesOf(annotation), "-2=b 3=<c> -7=a%2.wav");
}

TEST(SoundAnnotation, BringsAMarkedFileBackWhenItMoves)
{
    PKC_SoundAnnotation annotation = threeFiles();
    EXPECT_TRUE(annotation.move(3, text("moved")));
    EXPECT_EQ(entriesOf(annotation), "-2=b 3=moved 7=a%2.wav");
}

TEST(SoundAnnotation, RefusesEditsOfAnUnknownId)
{
    PKC_SoundAnnotation annotation = threeFiles();
    for (const int unknown : {0, 4, largestId}) {
        EXPECT_FALSE(annotation.markDeleted(unknown, true));
        EXPECT_FALSE(annotation.move(unknown, text("x")));
        EXPECT_FALSE(annotation.remove(unknown));
        EXPECT_EQ(annotation.filePath(unknown), QString());
    }
    EXPECT_EQ(entriesOf(annotation), threeEntries);
    EXPECT_TRUE(annotation.remove(3));
    EXPECT_FALSE(annotation.remove(3));
    EXPECT_EQ(annotation.count(), 2U);
}

TEST(SoundAnnotation, TakesAPathOfItsOwn)
{
    PKC_SoundAnnotation annotation = threeFiles();
    annotation.add(7, annotation.soundFiles()[7].path);
    annotation.move(3, annotation.soundFiles()[3].path);
    EXPECT_EQ(entriesOf(annotation), "-2=b 3=<c> 7=a%2.wav");
    EXPECT_EQ(annotation.add(annotation.soundFiles()[7].path), 8);
    EXPECT_EQ(annotation.filePath(8), text("a%2.wav"));
}

TEST(SoundAnnotation, CopiesEveryField)
{
    PKC_SoundAnnotation annotation = threeFiles();
    PKC_SoundAnnotation assigned;
    assigned.add(text("old"));
    assigned = annotation;
    const PKC_SoundAnnotation &self = assigned;
    assigned = self;
    const PKC_SoundAnnotation copied(annotation);
    const auto clone = cloneOf(annotation);
    ASSERT_TRUE(clone);
    annotation.soundFiles().clear();
    for (const PKC_SoundAnnotation *copy : {&copied, static_cast<const PKC_SoundAnnotation *>(&assigned),
             static_cast<const PKC_SoundAnnotation *>(clone.get())}) {
        EXPECT_EQ(textsOf(*copy), "soundAnnotation 'inside' 'elsewhere' '0.7'");
        EXPECT_EQ(entriesOf(*copy), threeEntries);
    }
}

TEST(SoundAnnotation, WritesWhatIsNotMarked)
{
    PKC_SoundAnnotation marked;
    marked.add(text("gone"));
    marked.markDeleted(1, true);
    expectGolden("sound_annotation.xml", markupOf(PKC_SoundAnnotation()) + markupOf(marked) + markupOf(threeFiles()));
}

TEST(SoundAnnotation, ReadsBackWhatIsNotMarked)
{
    const auto again = as<PKC_SoundAnnotation>(readBack(threeFiles()));
    ASSERT_TRUE(again);
    EXPECT_EQ(entriesOf(*again), "-2=b 7=a%2.wav");
    EXPECT_EQ(markupOf(*again), markupOf(threeFiles()));
}

TEST(SoundAnnotation, DumpsItsFilesForDebugging)
{
    QString base;
    threeFiles().PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dumpOf(threeFiles()),
        base.toStdString()
            + "Sound Annotation id=-2, path=b, deleted=0\n"
              "Sound Annotation id=3, path=<c>, deleted=1\n"
              "Sound Annotation id=7, path=a%2.wav, deleted=0\n");
    EXPECT_NE(dumpOf(PKC_SoundAnnotation()).find("No sound annotation\n"), std::string::npos);
}

TEST(SoundAnnotation, PassesOverAFileWithABadId)
{
    for (const char *bad : {"", "id=''", "id='x'", "id='1.0'", "id='2147483648'"}) {
        PKC_SoundAnnotation annotation = threeFiles();
        readPayload(annotation,
            QStringLiteral("<soundAnnotation><soundFile %1 path='p'/><soundFile id='8'/></soundAnnotation>")
                .arg(text(bad)));
        EXPECT_EQ(entriesOf(annotation), threeEntries + " 8=") << bad;
    }
}

TEST(SoundAnnotation, ReadsADoubledIdAsItsLastFile)
{
    PKC_SoundAnnotation annotation = threeFiles();
    readPayload(annotation, text("<soundFile id='3' path='x'/><soundFile id='3' path=' &#10;'/>"));
    EXPECT_EQ(entriesOf(annotation), "-2=b 3= \n 7=a%2.wav");
}

TEST(SoundAnnotation, ReadsOnWhateverCloses)
{
    PKC_SoundAnnotation annotation;
    readPayload(annotation,
        text("<other id='1' path='x'/><soundAnnotation id='2' path='x'><x id='3'><soundFile id='4' path='y'/></x>"
             "<soundfile id='5' path='x'/></soundAnnotation><soundFile id='6' path='z'/>"));
    EXPECT_EQ(entriesOf(annotation), "4=y 6=z");
}

TEST(SoundAnnotation, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto annotation =
        loaded<PKC_SoundAnnotation>(text("<soundAnnotation><soundFile id='4' path='y'/></soundAnnotation>"));
    ASSERT_TRUE(annotation);
    EXPECT_EQ(textsOf(*annotation), "soundAnnotation 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(textsOf(*cloneOf(*annotation)), textsOf(*annotation));
    EXPECT_EQ(entriesOf(*annotation), "4=y");
}
