#include "scene/changes/TUSceneChangeManager.h"

#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "support/News.h"
#include "support/SceneSession.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

class SceneChangeManager : public ::testing::Test
{
protected:
    SceneChangeManager() : news(manager) {}

    TUSceneChangeManager manager;
    News news;
    TUSeqTimedValue timedValue{nullptr, QStringLiteral("T")};
    MO_ElementModule nodeA{nullptr, QStringLiteral("A")};
    MO_ElementModule nodeB{nullptr, QStringLiteral("B")};
    PIO_MetadataBool record{QStringLiteral("r")};
};

const std::string everything = "sceneChanged timedValuesAdded{T} timedValuesRemoved{T} timedValuesChanged{T} "
                               "timedValueNamesChanged{T} nodesChanged{A B} networkChanged{A} subNetworkChanged{A} "
                               "childrenOrderingChanged{A} nodeLinksChanged{A} nodeInstanceNamesChanged{A} "
                               "nodeChangeApplied{A} metadataChanged{r:3} selectionChanged";

class Recording : public TUSceneChangeManager
{
public:
    std::vector<std::string> steps;

    void clear() override
    {
        TUSceneChangeManager::clear();
        steps.emplace_back("clear");
    }
    void queueNode(MO_Node *node) { emitNodeChanged(node); }
    void notePending()
    {
        if (isNetworkPending())
            steps.emplace_back("pending");
    }

protected:
    void sendSignals() override
    {
        markPendingBeforeSend();
        steps.emplace_back("before");
        notePending();
        TUSceneChangeManager::sendSignals();
        steps.emplace_back("after");
    }
};

/// Receives by text, as the library's own connections are made.
class TextReceiver : public QObject
{
    Q_OBJECT
public:
    int count = 0;

public Q_SLOTS:
    void onPlain() { ++count; }
    void onTimedValues(const TUTvSet &) { ++count; }
    void onNodes(const TUNodeSet &) { ++count; }
    void onNode(MO_Node *) { ++count; }
    void onMetadata(const TUMetadataSet &) { ++count; }
};

} // namespace

TEST_F(SceneChangeManager, ClosesEveryPassAlsoWithoutNews)
{
    QSignalSpy ends(&manager, &TUSceneChangeManager::endOfNotify);
    manager.notify();
    EXPECT_EQ(news.heard(), "endOfNotify");
    manager.notify();
    EXPECT_EQ(ends.count(), 2);
}

TEST_F(SceneChangeManager, SendsInOneOrderWhateverTheOrderOfQueueing)
{
    manager.emitSelectionChanged();
    manager.emitMetadataChanged(&record, 3);
    manager.emitNodeChangeApplied(&nodeA);
    manager.emitNodeInstanceNameChanged(&nodeA);
    manager.emitNodeLinksChanged(&nodeA);
    manager.emitChildrenOrderingChanged(&nodeA);
    manager.emitSubNetworkChanged(&nodeA);
    manager.emitNetworkChanged(&nodeA);
    manager.emitNodeChanged(&nodeB);
    manager.emitNodeChanged(&nodeA);
    manager.emitTimedValueNameChanged(&timedValue);
    manager.emitTimedValueChanged(&timedValue);
    manager.emitTimedValueRemoved(&timedValue);
    manager.emitTimedValueAdded(&timedValue);
    manager.emitSceneChanged();
    EXPECT_EQ(news.heard(), "") << "nothing is sent while it changes";
    EXPECT_EQ(news.told(), everything);
    EXPECT_EQ(news.told(), "") << "what was sent is gone";
}

TEST_F(SceneChangeManager, SendsEachKindOnceHoweverOftenItWasQueued)
{
    for (int i = 0; i < 3; ++i) {
        manager.emitSceneChanged();
        manager.emitSelectionChanged();
        manager.emitTimedValueChanged(&timedValue);
        manager.emitNodeChangeApplied(&nodeA);
        manager.emitMetadataChanged(&record, 3);
        manager.emitMetadataChanged(&record, 6);
    }
    EXPECT_EQ(news.told(),
        "sceneChanged timedValuesChanged{T} nodeChangeApplied{A} metadataChanged{r:3 r:6} selectionChanged");
}

TEST_F(SceneChangeManager, IgnoresNull)
{
    manager.emitTimedValueAdded(nullptr);
    manager.emitTimedValueRemoved(nullptr);
    manager.emitTimedValueChanged(nullptr);
    manager.emitTimedValueNameChanged(nullptr);
    manager.emitNodeChanged(nullptr);
    manager.emitNetworkChanged(nullptr);
    manager.emitSubNetworkChanged(nullptr);
    manager.emitChildrenOrderingChanged(nullptr);
    manager.emitNodeLinksChanged(nullptr);
    manager.emitNodeInstanceNameChanged(nullptr);
    manager.emitNodeChangeApplied(nullptr);
    manager.emitMetadataChanged(nullptr, 1);
    manager.forgetMetadata(nullptr);
    EXPECT_EQ(news.told(), "");
}

TEST_F(SceneChangeManager, ClearDropsAllOfItAndSendsNothing)
{
    manager.emitSceneChanged();
    manager.emitSelectionChanged();
    manager.emitTimedValueAdded(&timedValue);
    manager.emitTimedValueRemoved(&timedValue);
    manager.emitTimedValueChanged(&timedValue);
    manager.emitTimedValueNameChanged(&timedValue);
    manager.emitNodeChanged(&nodeA);
    manager.emitNetworkChanged(&nodeA);
    manager.emitSubNetworkChanged(&nodeA);
    manager.emitChildrenOrderingChanged(&nodeA);
    manager.emitNodeLinksChanged(&nodeA);
    manager.emitNodeInstanceNameChanged(&nodeA);
    manager.emitNodeChangeApplied(&nodeA);
    manager.emitMetadataChanged(&record, 3);
    manager.clear();
    EXPECT_EQ(news.heard(), "");
    EXPECT_EQ(news.told(), "");
}

TEST_F(SceneChangeManager, KeepsThePlaceOfWhatDiedBeforeItIsSent)
{
    {
        TUSeqTimedValue shortLived(nullptr, QStringLiteral("gone"));
        MO_ElementModule node(nullptr, QStringLiteral("gone"));
        manager.emitTimedValueRemoved(&shortLived);
        manager.emitNodeChanged(&node);
        manager.emitNodeChanged(&nodeA);
        manager.emitNodeChangeApplied(&node);
    }
    EXPECT_EQ(news.told(), "timedValuesRemoved{dead} nodesChanged{A dead}");
}

TEST_F(SceneChangeManager, ForgetsARecordThatDies)
{
    {
        PIO_MetadataBool other(QStringLiteral("other"));
        other.emitChanged(&manager, 1);
        other.emitChanged(&manager, 2);
        record.emitChanged(&manager, 1);
        manager.emitMetadataChanged(&other, 7);
    }
    EXPECT_EQ(news.told(), "metadataChanged{r:1}");
}

TEST_F(SceneChangeManager, ForgetsARecordThatWasQueuedOnTheManagerItself)
{
    PIO_Metadatas records;
    PIO_MetadataBool *const other = new PIO_MetadataBool(QStringLiteral("other"));
    records.add(other);
    manager.emitMetadataChanged(other, 7);
    EXPECT_TRUE(records.remove(other));
    EXPECT_EQ(news.told(), "");
}

TEST_F(SceneChangeManager, ForgetsOnRequestOneRecordOnly)
{
    PIO_MetadataBool other(QStringLiteral("other"));
    other.emitChanged(&manager, 1);
    record.emitChanged(&manager, 1);
    record.emitChanged(&manager, 2);
    manager.forgetMetadata(&record);
    EXPECT_EQ(news.told(), "metadataChanged{other:1}");
}

TEST_F(SceneChangeManager, BlanksARecordThatAReceiverDeletes)
{
    PIO_Metadatas records;
    PIO_MetadataBool *const doomed = new PIO_MetadataBool(QStringLiteral("doomed"));
    records.add(doomed);
    record.emitChanged(&manager, 1);
    doomed->emitChanged(&manager, 1);
    doomed->emitChanged(&manager, 2);
    std::vector<const PIO_Metadata *> walked;
    QObject::connect(&manager, &TUSceneChangeManager::metadataChanged, &news, [&](const TUMetadataSet &set) {
        for (const PIO_MetaModif &modif : set) { // deletes what it walks over
            if (modif.metadata() == doomed)
                records.remove(doomed);
            walked.push_back(modif.metadata());
        }
    });
    QString later;
    QObject::connect(&manager, &TUSceneChangeManager::metadataChanged, &news, [&](const TUMetadataSet &set) {
        for (const PIO_MetaModif &modif : set)
            later += modif.metadata() ? modif.metadata()->metaName() : QStringLiteral("-");
    });
    manager.notify();
    EXPECT_EQ(walked.size(), 3u);
    EXPECT_EQ(later.count(u'-'), 2) << later.toStdString();
    EXPECT_EQ(later.count(u'r'), 1) << later.toStdString();
}

TEST_F(SceneChangeManager, KeepsANodeUntilAllHaveHeardOfIt)
{
    UT_SharedPtr<MO_Node> doomed(new MO_ElementModule(nullptr, QStringLiteral("doomed")));
    const UT_SharedWeakPtr<MO_Node> watch(doomed.get());
    manager.emitNodeChangeApplied(doomed.get());
    QString heardOf;
    QObject::connect(&manager, &TUSceneChangeManager::nodeChangeApplied, &news, [&] { doomed = nullptr; });
    QObject::connect(&manager, &TUSceneChangeManager::nodeChangeApplied, &news,
        [&](MO_Node *node) { heardOf += watch ? node->instanceName() : QStringLiteral("gone"); });
    manager.notify();
    EXPECT_EQ(heardOf, QStringLiteral("doomed"));
    EXPECT_FALSE(watch);
}

TEST_F(SceneChangeManager, SkipsANodeThatAReceiverDeletedBeforeItsTurn)
{
    UT_SharedPtr<MO_Node> nodes[2] = {UT_SharedPtr<MO_Node>(new MO_ElementModule(nullptr, QStringLiteral("X"))),
        UT_SharedPtr<MO_Node>(new MO_ElementModule(nullptr, QStringLiteral("Y")))};
    for (const UT_SharedPtr<MO_Node> &node : nodes)
        manager.emitNodeChangeApplied(node.get());
    int told = 0;
    QObject::connect(&manager, &TUSceneChangeManager::nodeChangeApplied, &news, [&](MO_Node *node) {
        ++told;
        for (UT_SharedPtr<MO_Node> &other : nodes) {
            if (other.get() != node)
                other = nullptr;
        }
    });
    manager.notify();
    EXPECT_EQ(told, 1);
}

TEST(SceneChangeManagerLife, SendsNoMoreOnceAReceiverHasDeletedIt)
{
    // Whatever the signal in which it dies.
    for (int dying = 0; dying < 5; ++dying) {
        auto *const manager = new TUSceneChangeManager;
        MO_ElementModule node(nullptr, QStringLiteral("A"));
        TUSeqTimedValue timedValue(nullptr, QStringLiteral("T"));
        PIO_MetadataBool record(QStringLiteral("r"));
        manager->emitSceneChanged();
        manager->emitTimedValueChanged(&timedValue);
        manager->emitNodeChangeApplied(&node);
        manager->emitMetadataChanged(&record, 1);
        manager->emitSelectionChanged();
        QObject here;
        int heard = 0;
        const auto hear = [&] {
            if (heard++ == dying)
                delete manager;
        };
        using M = TUSceneChangeManager;
        QObject::connect(manager, &M::sceneChanged, &here, hear);
        QObject::connect(manager, &M::timedValuesChanged, &here, hear);
        QObject::connect(manager, &M::nodeChangeApplied, &here, hear);
        QObject::connect(manager, &M::metadataChanged, &here, hear);
        QObject::connect(manager, &M::selectionChanged, &here, hear);
        QObject::connect(manager, &M::endOfNotify, &here, [&] { ADD_FAILURE(); });
        manager->notify();
        EXPECT_EQ(heard, dying + 1);
    }
}

TEST_F(SceneChangeManager, GoesOnAfterAReceiverThrew)
{
    PIO_Metadatas records;
    auto *const doomed = new PIO_MetadataBool(QStringLiteral("doomed"));
    records.add(doomed);
    QObject *const here = new QObject(&news);
    QObject::connect(&manager, &TUSceneChangeManager::metadataChanged, here,
        [] { throw std::length_error("list too long"); }); // as a query of the project may
    doomed->emitChanged(&manager, 1);
    EXPECT_THROW(manager.notify(), std::length_error);
    delete here;
    records.remove(doomed); // nothing is being sent any more
    manager.emitSceneChanged();
    EXPECT_EQ(news.told(), "sceneChanged");
}

TEST(SceneChangeManagerLife, LeavesNoRecordToThoseWhoStillReadWhenItDies)
{
    auto *const manager = new TUSceneChangeManager;
    auto record = std::make_unique<PIO_MetadataBool>(QStringLiteral("r"));
    record->emitChanged(manager, 1);
    QObject here;
    int read = 0;
    QObject::connect(manager, &TUSceneChangeManager::metadataChanged, &here, [&](const TUMetadataSet &set) {
        delete manager;
        record.reset();
        for (const PIO_MetaModif &modif : set) {
            EXPECT_EQ(modif.metadata(), nullptr);
            ++read;
        }
    });
    manager->notify();
    EXPECT_EQ(read, 1);
}

TEST(SceneChangeManagerLife, RecordsMayOutliveIt)
{
    PIO_MetadataBool record(QStringLiteral("r"));
    {
        TUSceneChangeManager manager;
        record.emitChanged(&manager, 1);
    }
    TUSceneChangeManager other;
    News news(other);
    record.emitChanged(&other, 2);
    EXPECT_EQ(news.told(), "metadataChanged{r:2}");
}

TEST_F(SceneChangeManager, SendsWhatAReceiverQueuesForALaterSignalInTheSamePass)
{
    QObject::connect(&manager, &TUSceneChangeManager::nodesChanged, &news, [&] {
        manager.emitMetadataChanged(&record, 12);
        manager.emitNodeChanged(&nodeB);
        manager.emitSceneChanged();
    });
    manager.emitNodeChanged(&nodeA);
    EXPECT_EQ(news.told(), "nodesChanged{A} metadataChanged{r:12}");
    QObject::disconnect(&manager, &TUSceneChangeManager::nodesChanged, nullptr, nullptr);
    EXPECT_EQ(news.told(), "sceneChanged") << "what was sent already waited";
    EXPECT_EQ(news.told(), "");
}

TEST_F(SceneChangeManager, KeepsForTheNextPassWhatAReceiverQueuesAgain)
{
    QObject *const here = new QObject(&news);
    QObject::connect(&manager, &TUSceneChangeManager::timedValuesChanged, here, [&, here] {
        manager.emitTimedValueChanged(&timedValue);
        delete here;
    });
    manager.emitTimedValueChanged(&timedValue);
    EXPECT_EQ(news.told(), "timedValuesChanged{T}");
    EXPECT_EQ(news.told(), "timedValuesChanged{T}");
    EXPECT_EQ(news.told(), "");
}

TEST_F(SceneChangeManager, RunsOneFurtherPassForAnyNumberOfNotifiesInside)
{
    bool asked = false;
    QObject::connect(&manager, &TUSceneChangeManager::sceneChanged, &news, [&] {
        if (std::exchange(asked, true))
            return;
        manager.emitSceneChanged();
        manager.emitNodeChanged(&nodeA);
        manager.notify();
        manager.notify();
        manager.notify();
    });
    manager.emitSceneChanged();
    manager.notify();
    EXPECT_EQ(news.heard(), "sceneChanged nodesChanged{A} endOfNotify sceneChanged endOfNotify");
    manager.notify();
    EXPECT_EQ(news.heard(), "endOfNotify");
}

TEST_F(SceneChangeManager, RunsTheFurtherPassAlsoWhenAskedInTheLastSignal)
{
    bool asked = false;
    QObject::connect(&manager, &TUSceneChangeManager::endOfNotify, &news, [&] {
        if (std::exchange(asked, true))
            return;
        manager.emitSelectionChanged();
        manager.notify();
    });
    manager.notify();
    EXPECT_EQ(news.heard(), "endOfNotify selectionChanged endOfNotify");
}

TEST_F(SceneChangeManager, EndsThoughAReceiverAsksForeverAgain)
{
    QObject::connect(&manager, &TUSceneChangeManager::endOfNotify, &news, [&] { manager.notify(); });
    manager.notify();
    EXPECT_EQ(news.heard(), "endOfNotify endOfNotify");
}

TEST_F(SceneChangeManager, ClearsInsideAPassWhatWasNotSentYet)
{
    QObject::connect(&manager, &TUSceneChangeManager::timedValuesChanged, &news, [&] { manager.clear(); });
    manager.emitTimedValueChanged(&timedValue);
    manager.emitNodeChanged(&nodeA);
    manager.emitSelectionChanged();
    EXPECT_EQ(news.told(), "timedValuesChanged{T}");
}

TEST(SceneChangeManagerDerived, SendsItsOwnSignalsBeforeTheEnd)
{
    Recording manager;
    QObject::connect(
        &manager, &TUSceneChangeManager::endOfNotify, &manager, [&] { manager.steps.emplace_back("end"); });
    QObject::connect(
        &manager, &TUSceneChangeManager::nodesChanged, &manager, [&] { manager.steps.emplace_back("nodes"); });
    QObject::connect(&manager, &TUSceneChangeManager::nodesChanged, &manager, [&] { manager.notePending(); });
    MO_ElementModule node(nullptr, QStringLiteral("A"));
    manager.queueNode(&node);
    manager.notify();
    manager.clear();
    EXPECT_EQ(manager.steps, (std::vector<std::string>{"before", "pending", "nodes", "after", "end", "clear"}));
}

TEST(SceneChangeManagerDerived, HasNoNetworkPendingWithoutChangedNodes)
{
    Recording manager;
    manager.emitSceneChanged();
    manager.notify();
    EXPECT_EQ(manager.steps, (std::vector<std::string>{"before", "after"}));
}

TEST_F(SceneChangeManager, HasFifteenSignalsThatASpyCanRead)
{
    qRegisterMetaType<MO_Node *>(); // the header of the manager only names the class
    const std::vector<const char *> names = {SIGNAL(sceneChanged()), SIGNAL(timedValuesAdded(const TUTvSet &)),
        SIGNAL(timedValuesRemoved(const TUTvSet &)), SIGNAL(timedValuesChanged(const TUTvSet &)),
        SIGNAL(timedValueNamesChanged(const TUTvSet &)), SIGNAL(nodesChanged(const TUNodeSet &)),
        SIGNAL(networkChanged(const TUNodeSet &)), SIGNAL(subNetworkChanged(const TUNodeSet &)),
        SIGNAL(childrenOrderingChanged(const TUNodeSet &)), SIGNAL(nodeLinksChanged(const TUNodeSet &)),
        SIGNAL(nodeInstanceNamesChanged(const TUNodeSet &)), SIGNAL(nodeChangeApplied(MO_Node *)),
        SIGNAL(metadataChanged(const TUMetadataSet &)), SIGNAL(selectionChanged()), SIGNAL(endOfNotify())};
    ASSERT_EQ(names.size(), 15u);
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const char *name : names) {
        spies.push_back(std::make_unique<QSignalSpy>(&manager, name));
        EXPECT_TRUE(spies.back()->isValid()) << name;
    }
    manager.emitSceneChanged();
    manager.emitTimedValueAdded(&timedValue);
    manager.emitTimedValueRemoved(&timedValue);
    manager.emitTimedValueChanged(&timedValue);
    manager.emitTimedValueNameChanged(&timedValue);
    for (MO_Node *node : {static_cast<MO_Node *>(&nodeA), static_cast<MO_Node *>(&nodeB)}) {
        manager.emitNodeChanged(node);
        manager.emitNetworkChanged(node);
        manager.emitSubNetworkChanged(node);
        manager.emitChildrenOrderingChanged(node);
        manager.emitNodeLinksChanged(node);
        manager.emitNodeInstanceNameChanged(node);
    }
    manager.emitNodeChangeApplied(&nodeA);
    manager.emitMetadataChanged(&record, 3);
    manager.emitSelectionChanged();
    manager.notify();
    for (std::size_t i = 0; i < spies.size(); ++i)
        EXPECT_EQ(spies[i]->count(), 1) << names[i];
    const TUTvSet timedValues = spies[3]->first().first().value<TUTvSet>();
    EXPECT_EQ(timedValues.count(UT_SharedWeakPtr<TUTimedValue>(&timedValue)), 1u);
    const TUNodeSet nodes = spies[5]->first().first().value<TUNodeSet>();
    EXPECT_TRUE(nodes.include(UT_SharedWeakPtr<MO_Node>(&nodeA)));
    EXPECT_TRUE(nodes.include(UT_SharedWeakPtr<MO_Node>(&nodeB)));
    EXPECT_EQ(spies[11]->first().first().value<MO_Node *>(), &nodeA);
    EXPECT_TRUE(spies[12]->first().first().value<TUMetadataSet>().include(PIO_MetaModif(&record, 3)));
}

TEST_F(SceneChangeManager, ReachesReceiversThatAreConnectedByText)
{
    struct Connection {
        const char *signal;
        const char *slot;
    };
    TextReceiver receiver;
    const std::vector<Connection> connections = {{"2sceneChanged()", "1onPlain()"},
        {"2timedValuesChanged(const TUTvSet &)", "1onTimedValues( const TUTvSet & )"},
        {"2timedValuesAdded(const TUTvSet &)", "1onTimedValues(const TUTvSet &)"},
        {"2timedValuesRemoved(const TUTvSet &)", "1onTimedValues(const TUTvSet &)"},
        {"2timedValueNamesChanged(const TUTvSet &)", "1onTimedValues(const TUTvSet &)"},
        {"2nodesChanged(const TUNodeSet &)", "1onNodes(const TUNodeSet &)"},
        {"2networkChanged (const TUNodeSet &)", "1onNodes(const TUNodeSet &)"},
        {"2subNetworkChanged (const TUNodeSet &)", "1onNodes(const TUNodeSet &)"},
        {"2childrenOrderingChanged (const TUNodeSet &)", "1onNodes(const TUNodeSet &)"},
        {"2nodeLinksChanged (const TUNodeSet &)", "1onNodes(const TUNodeSet &)"},
        {"2nodeInstanceNamesChanged(const TUNodeSet &)", "1onNodes(const TUNodeSet &)"},
        {"2nodeChangeApplied (MO_Node* )", "1onNode(MO_Node*)"},
        {"2metadataChanged(const TUMetadataSet &)", "1onMetadata(const TUMetadataSet &)"},
        {"2selectionChanged ( )", "1onPlain()"}, {"2endOfNotify()", "1onPlain()"}};
    for (const Connection &connection : connections)
        EXPECT_TRUE(QObject::connect(&manager, connection.signal, &receiver, connection.slot)) << connection.signal;
    manager.emitSceneChanged();
    manager.emitTimedValueAdded(&timedValue);
    manager.emitTimedValueRemoved(&timedValue);
    manager.emitTimedValueChanged(&timedValue);
    manager.emitTimedValueNameChanged(&timedValue);
    manager.emitNodeChanged(&nodeA);
    manager.emitNetworkChanged(&nodeA);
    manager.emitSubNetworkChanged(&nodeA);
    manager.emitChildrenOrderingChanged(&nodeA);
    manager.emitNodeLinksChanged(&nodeA);
    manager.emitNodeInstanceNameChanged(&nodeA);
    manager.emitNodeChangeApplied(&nodeA);
    manager.emitMetadataChanged(&record, 3);
    manager.emitSelectionChanged();
    manager.notify();
    EXPECT_EQ(receiver.count, 15);
}

#include "SceneChangeManagerTest.moc"
