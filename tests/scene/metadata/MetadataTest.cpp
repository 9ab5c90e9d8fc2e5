#include "scene/changes/TUSceneChangeManager.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataDouble.h"
#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "support/Records.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace
{

/// Tells of its own death.
class MortalRecord : public PlainRecord
{
public:
    MortalRecord(bool *alive, const QString &name = QString()) : PlainRecord(name), m_alive(alive) { *m_alive = true; }
    ~MortalRecord() override { *m_alive = false; }

private:
    bool *m_alive;
};

/// Asks for another record when it dies.
class AskingRecord : public PlainRecord
{
public:
    explicit AskingRecord(std::function<void()> ask) : m_ask(std::move(ask)) {}
    ~AskingRecord() override { m_ask(); }

private:
    std::function<void()> m_ask;
};

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

} // namespace

TEST(Metadata, CopiesItsFourTexts)
{
    const PlainRecord record(text("n"));
    const std::unique_ptr<PIO_Metadata> copy(record.clone());
    EXPECT_EQ(copy->metaType(), text("plain"));
    EXPECT_EQ(copy->metaName(), text("n"));
    EXPECT_EQ(copy->creator(), text("tests"));
    EXPECT_EQ(copy->version(), text("1.0"));

    PlainRecord target(text("other"));
    target = record;
    EXPECT_EQ(target.metaName(), text("n"));
    target = *&target;
    EXPECT_EQ(target.metaName(), text("n"));
}

TEST(Metadata, DumpsItsFourTextsAlsoWhenTheyLookLikePlaces)
{
    QString dump = text("> ");
    PlainRecord(text("%3")).dumpToString(dump);
    EXPECT_EQ(dump, text("> type=plain, name=%3, creator=tests, version=1.0, "));
}

TEST(Metadata, QueuesItsChangeForTheNextNotify)
{
    TUSceneChangeManager manager;
    QSignalSpy news(&manager, &TUSceneChangeManager::metadataChanged);
    PlainRecord record;
    record.emitChanged(&manager, 3);
    record.emitChanged(&manager, 6);
    record.emitChanged(&manager, 6);
    EXPECT_EQ(news.count(), 0);

    manager.notify();
    ASSERT_EQ(news.count(), 1);
    const auto set = news.at(0).at(0).value<TUMetadataSet>();
    ASSERT_EQ(set.size(), 2u);
    EXPECT_EQ(set.begin()->metadata(), &record);
    EXPECT_EQ(set.begin()->changeCode(), 3);
}

TEST(Metadata, ChangesWithoutAManagerAreForgotten)
{
    PlainRecord record;
    record.emitChanged(nullptr, 3);
    EXPECT_TRUE(record.isValid());
}

TEST(Metadata, IsNotToldOfOnceItHasDied)
{
    TUSceneChangeManager first;
    TUSceneChangeManager second;
    QSignalSpy firstNews(&first, &TUSceneChangeManager::metadataChanged);
    QSignalSpy secondNews(&second, &TUSceneChangeManager::metadataChanged);
    PIO_Metadatas records;
    auto *record = new PlainRecord;
    records.add(record);
    record->emitChanged(&first, 3);
    record->emitChanged(&second, 3);

    EXPECT_TRUE(records.remove(record));
    first.notify();
    second.notify();
    EXPECT_EQ(firstNews.count(), 0);
    EXPECT_EQ(secondNews.count(), 0);
}

TEST(Metadata, OutlivesTheManagerItToldOf)
{
    PlainRecord record;
    {
        TUSceneChangeManager manager;
        record.emitChanged(&manager, 3);
    }
    TUSceneChangeManager manager;
    QSignalSpy news(&manager, &TUSceneChangeManager::metadataChanged);
    record.emitChanged(&manager, 4);
    manager.notify();
    EXPECT_EQ(news.count(), 1);
}

TEST(Metadata, ACopyHasNoNewsOfItsOwn)
{
    TUSceneChangeManager manager;
    QSignalSpy news(&manager, &TUSceneChangeManager::metadataChanged);
    PlainRecord record;
    record.emitChanged(&manager, 3);
    delete record.clone();
    manager.notify();
    EXPECT_EQ(news.count(), 1);
}

TEST(Metadatas, OwnWhatTheyHoldInTheOrderOfAdding)
{
    bool firstAlive = false;
    bool secondAlive = false;
    {
        PIO_Metadatas records;
        auto *first = new MortalRecord(&firstAlive);
        auto *second = new MortalRecord(&secondAlive);
        records.add(first);
        records.add(second);
        records.add(nullptr);
        EXPECT_EQ(
            std::vector<PIO_Metadata *>(records.begin(), records.end()), (std::vector<PIO_Metadata *>{first, second}));
        EXPECT_TRUE(records.contains(second));

        EXPECT_TRUE(records.remove(first));
        EXPECT_FALSE(firstAlive);
        EXPECT_TRUE(secondAlive);
        EXPECT_FALSE(records.remove(nullptr));
        EXPECT_FALSE(records.contains(nullptr));
    }
    EXPECT_FALSE(secondAlive);
}

TEST(Metadatas, DoNotRemoveWhatBelongsToAnother)
{
    PIO_Metadatas records;
    PlainRecord stranger;
    EXPECT_FALSE(records.remove(&stranger));
    EXPECT_FALSE(records.contains(&stranger));
}

TEST(MetadatasDeathTest, HoldARecordOnceAndOneContainerAlone)
{
    bool alive = false;
    PIO_Metadatas other;
    {
        PIO_Metadatas records;
        PIO_Metadata *const record = new MortalRecord(&alive);
        records.add(record);
        EXPECT_DEBUG_DEATH(records.add(record), "");
        EXPECT_DEBUG_DEATH(other.add(record), "");
        EXPECT_EQ(records.end() - records.begin(), 1);
        EXPECT_EQ(other.begin(), other.end());
        other.add(new PlainRecord(dynamic_cast<const PlainRecord &>(*record)));
        EXPECT_EQ(other.end() - other.begin(), 1) << "a copy is held by nobody";
    }
    EXPECT_FALSE(alive);
}

TEST(Metadatas, FindTheFirstOfExactlyThatTypeAndName)
{
    PIO_Metadatas records;
    auto *unnamed = new PlainRecord;
    auto *named = new PlainRecord(text("plain"));
    records.add(unnamed);
    records.add(named);
    records.add(new PlainRecord(text("plain")));
    EXPECT_EQ(records.metadata(text("plain"), text("plain")), named);
    EXPECT_EQ(records.metadata(text("plain"), QString()), unnamed);
    EXPECT_EQ(records.metadata(text("plain"), text("Plain")), nullptr);
    EXPECT_EQ(records.metadata(text("Plain"), text("plain")), nullptr);
}

TEST(MetadataAccess, IsEmptyWithoutAContainer)
{
    PIO_MetadataAccess<PIO_MetadataBool> access;
    EXPECT_EQ(access.get(), nullptr);
    EXPECT_EQ(access.getOrCreate(), nullptr);
    EXPECT_EQ(access.container, nullptr);
    EXPECT_TRUE(access.name.isNull());
}

TEST(MetadataAccess, TakesTheFirstOfItsClassWhenItsNameIsNull)
{
    PIO_Metadatas records;
    auto *first = new PIO_MetadataInt(text("a"));
    records.add(new PIO_MetadataBool(text("b")));
    records.add(first);
    records.add(new PIO_MetadataInt);
    PIO_MetadataAccess<PIO_MetadataInt> access(&records, QString());
    EXPECT_EQ(access.get(), first);
    EXPECT_EQ(access.result, first);
}

TEST(MetadataAccess, TakesOnlyItsNameWhenItHasOneAlsoAnEmptyOne)
{
    PIO_Metadatas records;
    auto *named = new PIO_MetadataInt(text("startFrame"));
    auto *unnamed = new PIO_MetadataInt;
    records.add(named);
    records.add(unnamed);
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>(&records, text("startFrame")).get(), named);
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>(&records, text("startframe")).get(), nullptr);
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>(&records, text("start")).get(), nullptr);
    EXPECT_EQ(PIO_MetadataAccess<PIO_MetadataInt>(&records, QStringLiteral("")).get(), unnamed);
}

TEST(MetadataAccess, MakesItsRecordOnFirstTouchSilently)
{
    PIO_Metadatas records;
    PIO_MetadataAccess<PIO_MetadataInt> access(&records, text("startFrame"));
    EXPECT_EQ(access.get(), nullptr);
    PIO_MetadataInt *made = access.getOrCreate();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->metaName(), text("startFrame"));
    EXPECT_FALSE(made->isValid());
    EXPECT_TRUE(records.contains(made));
    EXPECT_EQ(access.getOrCreate(), made);
    EXPECT_EQ(records.end() - records.begin(), 1);
}

TEST(MetadataAccess, GivesARecordOfAnyNameANullName)
{
    PIO_Metadatas records;
    PIO_MetadataAccess<PIO_MetadataInt> access(&records, QString());
    EXPECT_TRUE(access.getOrCreate()->metaName().isNull());
}

TEST(MetadataAccess, LooksAnewForARecordItsContainerNoLongerHolds)
{
    PIO_Metadatas records;
    PIO_MetadataAccess<PIO_MetadataInt> access(&records, QString());
    access.getOrCreate();
    records.remove(access.result);
    EXPECT_EQ(access.get(), nullptr);
    auto *next = new PIO_MetadataInt;
    records.add(next);
    EXPECT_EQ(access.get(), next);
}

TEST(MetadataAccess, FindsNoRecordThatDiedWithItsContainer)
{
    auto records = std::make_unique<PIO_Metadatas>();
    PIO_MetadataAccess<PlainRecord> access(records.get(), text("n"));
    const PlainRecord *found = nullptr;
    records->add(new AskingRecord([&] { found = access.get(); })); // dies last
    records->add(new PlainRecord(text("n")));
    found = access.get();
    EXPECT_NE(found, nullptr);
    records.reset();
    EXPECT_EQ(found, nullptr);
}

TEST(MetadataAccess, DoesNotTakeARecordOfAnotherClassForTheOneThatWasThere)
{
    PIO_Metadatas records;
    PIO_MetadataAccess<PIO_MetadataInt> access(&records, QString());
    for (int round = 0; round < 100; ++round) {
        PIO_MetadataInt *const record = access.getOrCreate();
        ASSERT_TRUE(records.remove(record));
        PIO_Metadata *const other = new PIO_MetadataDouble(QString()); // perhaps at the same address
        records.add(other);
        ASSERT_EQ(access.get(), nullptr);
        ASSERT_TRUE(records.remove(other));
    }
}
