#include "tracking/PKC_SceneChangeManager.h"

#include "metadata/PKC_ClipInfo.h"
#include "scene/timeline/AT_TransitionSeq.h"

#include <QMetaMethod>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// A manager whose news are written down in the order in which they arrive.
class SceneChangeManager : public ::testing::Test
{
protected:
    using Manager = PKC_SceneChangeManager;

    SceneChangeManager()
    {
        const auto note = [this](auto signal, const char *name) {
            QObject::connect(manager.get(), signal, [this, name] { log.emplace_back(name); });
        };
        note(&Manager::sceneChanged, "sceneChanged");
        note(&Manager::selectionChanged, "selectionChanged");
        note(&Manager::metadataChanged, "metadataChanged");
        note(&Manager::endOfNotify, "endOfNotify");
        note(&Manager::sceneResized, "sceneResized");
        QObject::connect(manager.get(), &Manager::exportRangeChanged,
            [this](const QString &range) { log.push_back("exportRange " + range.toStdString()); });
        note(&Manager::cameraKeyframeSelectionChanged, "cameraKeyframeSelection");
        note(&Manager::projectUnloaded, "projectUnloaded");
        note(&Manager::externalPanelsDrop, "externalPanelsDrop");
        note(&Manager::shotCollapsedUncollapsed, "shotCollapsedUncollapsed");
        note(&Manager::videoTrackSelectionChanged, "videoTrackSelection");
        QObject::connect(manager.get(), &Manager::transitionChanged, [this](const PKC_TransitionSequenceSet &set) {
            log.push_back("transitions " + std::to_string(set.size()));
        });
    }

    /// Runs @p action whenever @p signal arrives, after it was written down.
    template <typename Signal, typename Action>
    void on(Signal signal, Action action)
    {
        QObject::connect(manager.get(), signal, action);
    }

    void emitAll()
    {
        manager->emitTransitionChanged(&transition);
        manager->emitVideoTrackSelectionChanged();
        manager->emitShotCollapsedUncollapsed();
        manager->emitExternalPanelsDrop();
        manager->emitProjectUnloaded();
        manager->emitCameraKeyframeSelectionChanged();
        manager->emitExportRangeChanged(QStringLiteral("r"));
        manager->emitSceneResized();
    }

    /// What one notify() sends.
    std::vector<std::string> notified()
    {
        log.clear();
        manager->notify();
        return log;
    }

    AT_TransitionSeq transition{SC_Id(1), AT_TransitionSeq::Dissolve};
    AT_TransitionSeq otherTransition{SC_Id(2), AT_TransitionSeq::Dissolve};
    std::unique_ptr<Manager> manager = std::make_unique<Manager>();
    std::vector<std::string> log;
};

} // namespace

TEST_F(SceneChangeManager, DeclaresEightSignalsInOrderAndNoSlot)
{
    const QMetaObject &meta = Manager::staticMetaObject;
    std::vector<std::string> signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        EXPECT_EQ(meta.method(i).methodType(), QMetaMethod::Signal);
        signatures.push_back(meta.method(i).methodSignature().toStdString());
    }
    EXPECT_THAT(signatures,
        ElementsAre("sceneResized()", "exportRangeChanged(QString)", "cameraKeyframeSelectionChanged()",
            "projectUnloaded()", "externalPanelsDrop()", "shotCollapsedUncollapsed()", "videoTrackSelectionChanged()",
            "transitionChanged(PKC_TransitionSequenceSet)"));
    EXPECT_EQ(meta.superClass(), &TUSceneChangeManager::staticMetaObject);
    EXPECT_EQ(Manager::tr("text", "comment", 1), QStringLiteral("text"));
}

TEST_F(SceneChangeManager, IsHeardThroughSignatureTexts)
{
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const char *signature :
        {"2sceneResized()", "2exportRangeChanged(QString const&)", "2cameraKeyframeSelectionChanged()",
            "2projectUnloaded()", "2externalPanelsDrop()", "2shotCollapsedUncollapsed()",
            "2videoTrackSelectionChanged()", "2transitionChanged(const PKC_TransitionSequenceSet&)"}) {
        spies.push_back(std::make_unique<QSignalSpy>(manager.get(), signature));
        ASSERT_TRUE(spies.back()->isValid()) << signature;
    }
    emitAll();
    for (const auto &spy : spies)
        EXPECT_EQ(spy->count(), 0);
    manager->notify();
    for (const auto &spy : spies)
        EXPECT_EQ(spy->count(), 1);
    EXPECT_EQ(spies[1]->at(0).at(0).toString(), QStringLiteral("r"));
    const auto set = spies[7]->at(0).at(0).value<PKC_TransitionSequenceSet>();
    EXPECT_TRUE(set.include(UT_SharedWeakPtr<AT_TransitionSeq>(&transition)));
}

TEST_F(SceneChangeManager, SendsNothingButTheEndWhenNothingIsQueued)
{
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, SendsNothingBeforeNotify)
{
    emitAll();
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(SceneChangeManager, SendsInAFixedOrderAfterTheSceneSignals)
{
    emitAll();
    manager->emitSelectionChanged();
    manager->emitSceneChanged();
    EXPECT_THAT(notified(),
        ElementsAre("sceneChanged", "selectionChanged", "sceneResized", "exportRange r", "cameraKeyframeSelection",
            "projectUnloaded", "externalPanelsDrop", "shotCollapsedUncollapsed", "videoTrackSelection", "transitions 1",
            "endOfNotify"));
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, SendsAKindOnceHoweverOftenItWasQueued)
{
    for (int i = 0; i < 2; ++i) {
        manager->emitSceneResized();
        manager->emitCameraKeyframeSelectionChanged();
        manager->emitProjectUnloaded();
        manager->emitExternalPanelsDrop();
        manager->emitShotCollapsedUncollapsed();
        manager->emitVideoTrackSelectionChanged();
        manager->emitTransitionChanged(&transition);
    }
    EXPECT_THAT(notified(),
        ElementsAre("sceneResized", "cameraKeyframeSelection", "projectUnloaded", "externalPanelsDrop",
            "shotCollapsedUncollapsed", "videoTrackSelection", "transitions 1", "endOfNotify"));
}

TEST_F(SceneChangeManager, SendsEachKindAlone)
{
    manager->emitSceneResized();
    EXPECT_THAT(notified(), ElementsAre("sceneResized", "endOfNotify"));
    manager->emitCameraKeyframeSelectionChanged();
    EXPECT_THAT(notified(), ElementsAre("cameraKeyframeSelection", "endOfNotify"));
    manager->emitProjectUnloaded();
    EXPECT_THAT(notified(), ElementsAre("projectUnloaded", "endOfNotify"));
    manager->emitExternalPanelsDrop();
    EXPECT_THAT(notified(), ElementsAre("externalPanelsDrop", "endOfNotify"));
    manager->emitShotCollapsedUncollapsed();
    EXPECT_THAT(notified(), ElementsAre("shotCollapsedUncollapsed", "endOfNotify"));
    manager->emitVideoTrackSelectionChanged();
    EXPECT_THAT(notified(), ElementsAre("videoTrackSelection", "endOfNotify"));
    manager->emitTransitionChanged(&transition);
    EXPECT_THAT(notified(), ElementsAre("transitions 1", "endOfNotify"));
}

TEST_F(SceneChangeManager, SendsEveryExportRangeInTheOrderQueued)
{
    for (const char *range : {"a", "b", "a", ""})
        manager->emitExportRangeChanged(QString::fromLatin1(range));
    EXPECT_THAT(
        notified(), ElementsAre("exportRange a", "exportRange b", "exportRange a", "exportRange ", "endOfNotify"));
}

TEST_F(SceneChangeManager, SendsATransitionThatHasGoneAsADeadEntry)
{
    auto shortLived = std::make_unique<AT_TransitionSeq>(SC_Id(7), AT_TransitionSeq::Slide);
    manager->emitTransitionChanged(shortLived.get());
    manager->emitTransitionChanged(&transition);
    shortLived.reset();
    int dead = 0;
    on(&Manager::transitionChanged, [&dead](const PKC_TransitionSequenceSet &set) {
        for (const auto &entry : set)
            dead += entry ? 0 : 1;
    });
    EXPECT_THAT(notified(), ElementsAre("transitions 2", "endOfNotify"));
    EXPECT_EQ(dead, 1);
}

TEST_F(SceneChangeManager, IgnoresANullTransition)
{
    manager->emitTransitionChanged(nullptr);
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, DropsEverythingOnClear)
{
    emitAll();
    manager->emitSceneChanged();
    manager->clear();
    EXPECT_THAT(log, IsEmpty());
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
    manager->clear();
    manager->emitSceneResized();
    EXPECT_THAT(notified(), ElementsAre("sceneResized", "endOfNotify"));
}

TEST_F(SceneChangeManager, DropsEverythingWhenItDies)
{
    emitAll();
    manager.reset();
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(SceneChangeManager, KeepsAKindThatItsReceiverQueuesForTheNextNotify)
{
    bool again = true;
    on(&Manager::sceneResized, [&] {
        if (std::exchange(again, false))
            manager->emitSceneResized();
    });
    manager->emitSceneResized();
    EXPECT_THAT(notified(), ElementsAre("sceneResized", "endOfNotify"));
    EXPECT_THAT(notified(), ElementsAre("sceneResized", "endOfNotify"));
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, KeepsEarlierKindsForTheNextNotifyAndSendsLaterOnesNow)
{
    bool once = true;
    on(&Manager::projectUnloaded, [&] {
        if (std::exchange(once, false))
            emitAll();
    });
    manager->emitProjectUnloaded();
    EXPECT_THAT(notified(),
        ElementsAre("projectUnloaded", "externalPanelsDrop", "shotCollapsedUncollapsed", "videoTrackSelection",
            "transitions 1", "endOfNotify"));
    EXPECT_THAT(notified(),
        ElementsAre("sceneResized", "exportRange r", "cameraKeyframeSelection", "projectUnloaded", "endOfNotify"));
}

TEST_F(SceneChangeManager, SendsWhatASceneReceiverQueuesInTheSamePass)
{
    on(&Manager::sceneChanged, [this] { manager->emitSceneResized(); });
    manager->emitSceneChanged();
    EXPECT_THAT(notified(), ElementsAre("sceneChanged", "sceneResized", "endOfNotify"));
}

TEST_F(SceneChangeManager, SendsAnExportRangeQueuedWhileRangesAreSent)
{
    on(&Manager::exportRangeChanged, [this](const QString &range) {
        if (range.size() < 3)
            manager->emitExportRangeChanged(range + QLatin1Char('+'));
    });
    manager->emitExportRangeChanged(QStringLiteral("a"));
    manager->emitExportRangeChanged(QStringLiteral("b"));
    EXPECT_THAT(notified(),
        ElementsAre("exportRange a", "exportRange b", "exportRange a+", "exportRange b+", "exportRange a++",
            "exportRange b++", "endOfNotify"));
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, LosesATransitionQueuedWhileTransitionsAreSent)
{
    std::vector<std::size_t> sizes;
    on(&Manager::transitionChanged, [&](const PKC_TransitionSequenceSet &set) {
        manager->emitTransitionChanged(&otherTransition);
        sizes.push_back(set.size());
    });
    manager->emitTransitionChanged(&transition);
    EXPECT_THAT(notified(), ElementsAre("transitions 1", "endOfNotify"));
    EXPECT_THAT(sizes, ElementsAre(1U));
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, SendsNoMoreOnceAReceiverHasCleared)
{
    on(&Manager::exportRangeChanged, [this] { manager->clear(); });
    emitAll();
    manager->emitExportRangeChanged(QStringLiteral("second"));
    EXPECT_THAT(notified(), ElementsAre("sceneResized", "exportRange r", "endOfNotify"));
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}

TEST_F(SceneChangeManager, LeavesARangeToTheReceiverAfterTheOneThatCleared)
{
    on(&Manager::exportRangeChanged, [this] { manager->clear(); });
    QString read;
    on(&Manager::exportRangeChanged, [&read](const QString &range) { read = range; });
    manager->emitExportRangeChanged(QStringLiteral("a range that is too long to be kept in place"));
    manager->notify();
    EXPECT_EQ(read, QStringLiteral("a range that is too long to be kept in place"));
}

TEST_F(SceneChangeManager, LetsAReceiverOfTransitionsClear)
{
    std::size_t size = 0;
    on(&Manager::transitionChanged, [&](const PKC_TransitionSequenceSet &set) {
        manager->clear();
        size = set.size();
    });
    manager->emitTransitionChanged(&transition);
    EXPECT_THAT(notified(), ElementsAre("transitions 1", "endOfNotify"));
    EXPECT_EQ(size, 1U);
}

TEST_F(SceneChangeManager, RunsOneFurtherPassForANotifyInsideANotify)
{
    bool once = true;
    on(&Manager::externalPanelsDrop, [&] {
        if (!std::exchange(once, false))
            return;
        manager->emitSceneResized();
        manager->notify();
        manager->emitVideoTrackSelectionChanged();
        manager->notify();
        EXPECT_THAT(log, ElementsAre("externalPanelsDrop"));
    });
    manager->emitExternalPanelsDrop();
    EXPECT_THAT(notified(),
        ElementsAre("externalPanelsDrop", "videoTrackSelection", "endOfNotify", "sceneResized", "endOfNotify"));
}

TEST_F(SceneChangeManager, MayBeDeletedByAReceiver)
{
    on(&Manager::projectUnloaded, [this] { manager.reset(); });
    emitAll();
    manager->notify();
    EXPECT_THAT(log, ElementsAre("sceneResized", "exportRange r", "cameraKeyframeSelection", "projectUnloaded"));
}

TEST_F(SceneChangeManager, TellsOfAChangedRecordUntilItDies)
{
    auto info = std::make_unique<PKC_ClipInfo>();
    std::vector<int> codes;
    on(&Manager::metadataChanged, [&](const TUMetadataSet &set) {
        for (const PIO_MetaModif &change : set) {
            EXPECT_EQ(change.metadata(), info.get());
            codes.push_back(change.changeCode());
        }
    });
    info->emitChanged(manager.get(), 6);
    info->emitChanged(manager.get(), 3);
    info->emitChanged(manager.get(), 6);
    EXPECT_THAT(notified(), ElementsAre("metadataChanged", "endOfNotify"));
    EXPECT_THAT(codes, ElementsAre(3, 6));

    info->emitChanged(manager.get(), 3);
    info.reset();
    EXPECT_THAT(notified(), ElementsAre("endOfNotify"));
}
