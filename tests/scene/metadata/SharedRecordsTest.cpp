#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace
{

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// Its clones are counted.
class CountedRecord : public PlainRecord
{
public:
    CountedRecord(int *clones, const QString &name) : PlainRecord(name), m_clones(clones) {}
    PIO_Metadata *clone() const override
    {
        ++*m_clones;
        return new CountedRecord(*this);
    }

private:
    int *m_clones;
};

} // namespace

TEST(SharedRecords, AreSeenAsTheirOriginalsUntilAskedFor)
{
    int clones = 0;
    const CountedRecord original(&clones, text("a"));
    PIO_Metadatas one;
    PIO_Metadatas other;
    one.addShared(&original);
    other.addShared(&original);
    ASSERT_EQ(one.view().size(), 1U);
    EXPECT_EQ(&one.view()[0], &original);
    EXPECT_TRUE(one.isShared(0));
    EXPECT_FALSE(one.isShared(1));
    EXPECT_FALSE(one.contains(&original)) << "the original belongs to no container";
    EXPECT_EQ(clones, 0);

    PIO_Metadata *const own = one.metadata(text("plain"), text("a"));
    EXPECT_EQ(clones, 1);
    EXPECT_NE(own, &original);
    EXPECT_TRUE(one.contains(own));
    EXPECT_FALSE(one.isShared(0));
    EXPECT_EQ(&one.view()[0], own);
    EXPECT_EQ(one.metadata(text("plain"), text("a")), own) << "a container gets one copy and keeps it";
    EXPECT_TRUE(other.isShared(0));
    EXPECT_EQ(clones, 1);
}

TEST(SharedRecords, BecomeTheContainersOwnForAWalk)
{
    int clones = 0;
    const CountedRecord original(&clones, text("a"));
    PIO_Metadatas records;
    records.addShared(&original);
    records.add(new PlainRecord(text("b")));
    records.addShared(&original);
    std::vector<PIO_Metadata *> walked(records.begin(), records.end());
    ASSERT_EQ(walked.size(), 3U);
    EXPECT_EQ(clones, 2);
    EXPECT_NE(walked[0], walked[2]);
    for (const PIO_Metadata *record : walked)
        EXPECT_TRUE(records.contains(record));
}

TEST(SharedRecords, AreFoundByClassAndBecomeOwnAlone)
{
    const PIO_MetadataInt original(text("n"), text("tests"), text("1.0"));
    const PlainRecord plain(text("p"));
    PIO_Metadatas records;
    records.addShared(&plain);
    records.addShared(&original);
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>::placeIn(records, QString()), 1U);
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>::placeIn(records, text("m")), 2U);
    PIO_MetadataInt *const own = PIO_MetadataAccess<PIO_MetadataInt>(&records, text("n")).get();
    ASSERT_NE(own, nullptr);
    own->setValue(7);
    EXPECT_FALSE(original.isValid());
    EXPECT_TRUE(records.isShared(0));
    EXPECT_FALSE(records.isShared(1));
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>(&records, QString()).getOrCreate(), own);
}

TEST(SharedRecordsDeathTest, AreHeldByOneContainerOnceTheyAreItsOwn)
{
    const PlainRecord original(text("a"));
    PIO_Metadatas records;
    PIO_Metadatas other;
    records.addShared(&original);
    PIO_Metadata *const own = records.own(0);
    EXPECT_DEBUG_DEATH(records.add(own), "");
    EXPECT_DEBUG_DEATH(other.add(own), "");
    EXPECT_EQ(records.view().size(), 1U);
    EXPECT_EQ(other.view().size(), 0U);
}

TEST(SharedRecords, IgnoreNullAndCannotBeRemovedByTheirOriginals)
{
    PlainRecord original(text("a"));
    PIO_Metadatas records;
    records.addShared(nullptr);
    EXPECT_EQ(records.view().size(), 0U);
    records.addShared(&original);
    EXPECT_FALSE(records.remove(&original));
    EXPECT_EQ(records.view().size(), 1U);
}

TEST(SharedRecords, KeepTheirPlacesAmongAnyNumberOfOthers)
{
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::unique_ptr<PlainRecord>> originals;
        PIO_Metadatas records;
        QStringList expected;
        const auto names = [&records] {
            QStringList seen;
            for (const PIO_Metadata *record : records.view())
                seen.append(record->metaName());
            return seen;
        };
        for (int step = 0; step < 150; ++step) {
            const QString name = QString::number(step);
            const std::size_t place = expected.isEmpty() ? 0 : random() % static_cast<std::size_t>(expected.size());
            switch (random() % 5) {
            case 0:
                records.add(new PlainRecord(name));
                expected.append(name);
                break;
            case 1:
            case 2:
                originals.push_back(std::make_unique<PlainRecord>(name));
                records.addShared(originals.back().get());
                expected.append(name);
                break;
            case 3:
                if (!expected.isEmpty()) {
                    EXPECT_EQ(records.own(place)->metaName(), expected[static_cast<qsizetype>(place)]);
                }
                break;
            default:
                if (!expected.isEmpty()) {
                    EXPECT_TRUE(records.remove(records.own(place)));
                    expected.removeAt(static_cast<qsizetype>(place));
                }
            }
            ASSERT_EQ(names(), expected) << round << ' ' << step;
        }
    }
}
