#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/AT_SceneSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "support/News.h"
#include "support/SceneSession.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <set>

namespace
{

class Project : public ::testing::Test
{
protected:
    Project() : project(session.makeProject()), news(*session.changeManager()) {}

    SceneSession session;
    SC_Project &project;
    News news;
};

using Scene = Project;

/// Runs something when it dies.
class LastWords : public PIO_MetadataBool
{
public:
    explicit LastWords(std::function<void()> words) : m_words(std::move(words)) {}
    ~LastWords() override { m_words(); }

private:
    std::function<void()> m_words;
};

} // namespace

TEST_F(Project, AnswersNullForScenesThatDoNotExist)
{
    const UT_SharedPtr<SC_Project> empty(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("Empty")));
    EXPECT_EQ(empty->sceneAt(0), nullptr);
    EXPECT_EQ(empty->sceneAt(4294967295u), nullptr);
    EXPECT_EQ(empty->sceneCount(), 0u);
    EXPECT_NE(empty->projectCommon(), nullptr);
    EXPECT_NE(empty->metadatas(), nullptr);
    EXPECT_EQ(empty->projectCommon()->changeManager(), nullptr);
}

TEST_F(Project, EditsWithoutASessionInSilence)
{
    const UT_SharedPtr<SC_Project> alone(new SC_Project(QStringLiteral("/nowhere"), QStringLiteral("Alone")));
    TUScene *const top = alone->addScene();
    TUSeqTimedValue *const timeline = top->addSeqTimedValue(QStringLiteral("T"));
    EXPECT_TRUE(timeline->insertBlock(1, 5, nullptr));
    timeline->setName(QStringLiteral("U"));
    top->getRootGroup()->setLocked(true);
    EXPECT_FALSE(alone->removeScene(top));
    EXPECT_TRUE(alone->removeScene(alone->addScene()));
    EXPECT_EQ(news.told(), "");
}

TEST_F(Project, AddsScenesThatAreWholeAndTellsOfThem)
{
    TUScene *const scene = project.addScene();
    EXPECT_EQ(news.told(), "sceneChanged");
    EXPECT_EQ(project.sceneAt(1), scene);
    EXPECT_EQ(project.sceneCount(), 2u);
    EXPECT_FALSE(scene->objectId().isNull());
    EXPECT_FALSE(scene->sceneId().isNull());
    EXPECT_NE(scene->objectId(), scene->sceneId());
    EXPECT_NE(scene->metadatas(), nullptr);
    EXPECT_EQ(scene->sceneCommon()->metadatas(), scene->metadatas());
    EXPECT_EQ(scene->sceneCommon()->scene(), scene);
    EXPECT_EQ(scene->projectCommon(), project.projectCommon());
    EXPECT_EQ(scene->sceneCommon()->projectCommon(), project.projectCommon());
    ASSERT_NE(scene->getRootGroup(), nullptr);
    EXPECT_EQ(scene->getRootGroup()->ownerGroup(), nullptr);
    EXPECT_EQ(scene->unconnectedComposite(), nullptr);
    EXPECT_TRUE(scene->timedValues().empty());
    EXPECT_EQ(scene->sceneCommon()->getNumberOfFrames(), 0);
}

TEST_F(Project, FindsScenesBySceneIdOnly)
{
    const SC_SceneManager *const manager = project.projectCommon()->sceneManager();
    TUScene *const scene = project.addScene();
    EXPECT_EQ(manager->find(scene->sceneId()), scene);
    EXPECT_EQ(manager->find(scene->objectId()), nullptr);
    EXPECT_EQ(manager->find(SC_Id()), nullptr);
    EXPECT_EQ(manager->find(SC_Id(999999)), nullptr);
    EXPECT_NE(dynamic_cast<TUScene *>(manager->find(scene->sceneId())), nullptr);
    const SC_Id id = scene->sceneId();
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(manager->find(id), nullptr);
}

TEST_F(Project, RemovesASceneAndEverythingWatchesItGo)
{
    TUScene *const scene = project.addScene();
    const UT_SharedWeakPtr<TUScene> watchedScene(scene);
    const UT_SharedWeakPtr<TUTimedValue> watchedTv(scene->addSeqTimedValue(QStringLiteral("T")));
    const UT_SharedWeakPtr<MO_Node> watchedGroup(scene->getRootGroup());
    session.changeManager()->clear();
    EXPECT_TRUE(project.removeScene(scene));
    EXPECT_EQ(news.told(), "sceneChanged");
    EXPECT_FALSE(watchedScene);
    EXPECT_FALSE(watchedTv);
    EXPECT_FALSE(watchedGroup);
    EXPECT_TRUE(watchedScene.hasRecord());
}

TEST_F(Project, RefusesToRemoveItsTopSceneAndStrangers)
{
    SceneSession other;
    other.makeProject();
    EXPECT_FALSE(project.removeScene(&session.top()));
    EXPECT_FALSE(project.removeScene(nullptr));
    EXPECT_FALSE(project.removeScene(&other.top()));
    EXPECT_EQ(news.told(), "");
    EXPECT_EQ(project.sceneCount(), 1u);
}

TEST_F(Project, KeepsTheOrderOfScenes)
{
    TUScene *const a = project.addScene();
    TUScene *const b = project.addScene();
    TUScene *const c = project.addScene();
    ASSERT_TRUE(project.removeScene(b));
    EXPECT_EQ(project.sceneAt(1), a);
    EXPECT_EQ(project.sceneAt(2), c);
    EXPECT_EQ(project.sceneAt(3), nullptr);
}

TEST_F(Project, TakesGivenIdsOnce)
{
    TUScene *const scene = project.addScene(SC_Id(500), SC_Id(600));
    ASSERT_NE(scene, nullptr);
    EXPECT_EQ(scene->objectId(), SC_Id(500));
    EXPECT_EQ(scene->sceneId(), SC_Id(600));
    session.changeManager()->clear();
    EXPECT_EQ(project.addScene(SC_Id(500), SC_Id(700)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(600), SC_Id(700)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(700), SC_Id(500)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(700), SC_Id(600)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(700), SC_Id(700)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(), SC_Id(700)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(700), SC_Id()), nullptr);
    EXPECT_EQ(news.told(), "");
    EXPECT_EQ(project.projectCommon()->createId(), SC_Id(601));
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(project.addScene(SC_Id(500), SC_Id(600)), nullptr) << "an id is never given again";
    EXPECT_EQ(project.projectCommon()->createId(), SC_Id(602));
}

TEST_F(Project, GivesOutEachNumberOnce)
{
    std::set<qint64> numbers;
    for (int i = 0; i < 200; ++i) {
        TUScene *const scene = project.addScene();
        EXPECT_TRUE(numbers.insert(scene->objectId().value()).second);
        EXPECT_TRUE(numbers.insert(scene->sceneId().value()).second);
        EXPECT_TRUE(numbers.insert(project.projectCommon()->createId().value()).second);
        if (i % 3 == 0) {
            EXPECT_TRUE(project.removeScene(scene));
        }
    }
    EXPECT_GT(*numbers.begin(), 0);
}

TEST_F(Project, ReservesIdsUpwardsOnly)
{
    SC_ProjectCommon &common = *project.projectCommon();
    common.reserveId(SC_Id(1000));
    EXPECT_EQ(common.nextId(), 1001);
    common.reserveId(SC_Id(10));
    common.reserveId(SC_Id());
    common.reserveId(SC_Id(-5));
    common.reserveId(SC_Id(std::numeric_limits<qint64>::min()));
    EXPECT_EQ(common.nextId(), 1001);
}

TEST_F(Project, GivesOutNoIdTwiceAtTheEndOfTheNumbers)
{
    constexpr qint64 limit = SC_ProjectCommon::idLimit;
    SC_ProjectCommon &common = *project.projectCommon();
    common.reserveId(SC_Id(limit - 2));
    EXPECT_EQ(common.createId(), SC_Id(limit - 1));
    EXPECT_TRUE(common.createId().isNull());
    common.reserveId(SC_Id(std::numeric_limits<qint64>::max()));
    EXPECT_TRUE(common.createId().isNull());
    EXPECT_EQ(common.nextId(), limit);
    EXPECT_EQ(project.addScene(), nullptr);
    EXPECT_TRUE(session.top().addSoundTimedValue(QStringLiteral("S"))->addSound(1, 2).isNull());
}

TEST_F(Project, KnowsWhatIsPlaced)
{
    SC_ProjectCommon &common = *project.projectCommon();
    EXPECT_FALSE(common.isPlaced(SC_Id(5)));
    common.setPlaced(SC_Id(5), SC_Id(), true);
    EXPECT_TRUE(common.isPlaced(SC_Id(5)));
    common.setPlaced(SC_Id(5), SC_Id(), false);
    EXPECT_FALSE(common.isPlaced(SC_Id(5)));
    common.setPlaced(SC_Id(), SC_Id(), true);
    EXPECT_FALSE(common.isPlaced(SC_Id())) << "what has no id stands anywhere";
}

TEST_F(Project, KnowsWhatAnIdBelongsTo)
{
    SC_ProjectCommon &common = *project.projectCommon();
    common.setPlaced(SC_Id(50), SC_Id(60), true); // a scene that is not there
    common.setPlaced(SC_Id(70), SC_Id(), true);   // a sound or a transition
    EXPECT_EQ(common.claimOf(SC_Id(50), SC_Id(60)), SC_ProjectCommon::Placed);
    EXPECT_EQ(common.claimOf(SC_Id(50), SC_Id()), SC_ProjectCommon::Placed);
    EXPECT_EQ(common.claimOf(SC_Id(80), SC_Id(90)), SC_ProjectCommon::Free);
    EXPECT_EQ(common.claimOf(SC_Id(), SC_Id()), SC_ProjectCommon::Free);
    EXPECT_TRUE(common.isFree(SC_Id(80)));
    for (const qint64 id : {qint64(50), qint64(60), qint64(70), qint64(0), qint64(-1), SC_ProjectCommon::idLimit})
        EXPECT_FALSE(common.isFree(SC_Id(id))) << id;
    for (const auto &[object, scene] : std::vector<std::pair<qint64, qint64>>{{60, 0}, {0, 60}, {60, 50}, {50, 61},
             {51, 60}, {70, 80}, {80, 70}, {80, 80}, {-1, 0}, {80, -1}, {SC_ProjectCommon::idLimit, 0}})
        EXPECT_EQ(common.claimOf(SC_Id(object), SC_Id(scene)), SC_ProjectCommon::Foreign) << object << ' ' << scene;

    EXPECT_EQ(project.addScene(SC_Id(55), SC_Id(60)), nullptr);
    EXPECT_EQ(project.addScene(SC_Id(70), SC_Id(80)), nullptr);
    TUScene *const scene = project.addScene(SC_Id(50), SC_Id(60));
    ASSERT_NE(scene, nullptr) << "the scene of the block that waits for it";
    EXPECT_EQ(common.claimOf(SC_Id(50), SC_Id(60)), SC_ProjectCommon::Placed);
    common.setPlaced(SC_Id(50), SC_Id(60), false);
    EXPECT_EQ(common.claimOf(SC_Id(50), SC_Id(60)), SC_ProjectCommon::Free);
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(common.claimOf(SC_Id(50), SC_Id(61)), SC_ProjectCommon::Foreign) << "a scene keeps its ids for ever";
    EXPECT_EQ(common.nextId(), 71);
}

TEST_F(Project, KeepsRateAndStartTimecode)
{
    SC_ProjectCommon &common = *project.projectCommon();
    EXPECT_EQ(common.frameRate(), UT_FrameRate(24, 1));
    EXPECT_EQ(common.startTimecode(), 0);
    common.setFrameRate(UT_FrameRate(30000, 1001));
    common.setStartTimecode(86400);
    EXPECT_EQ(common.frameRate().asString(), QStringLiteral("30000/1001"));
    EXPECT_EQ(common.startTimecode(), 86400);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Project, KnowsWhereItLives)
{
    const TUDbSceneData *const data = project.projectCommon()->dbSceneData();
    EXPECT_EQ(data->sceneName(), QStringLiteral("Film"));
    EXPECT_EQ(data->projectDir(), QStringLiteral("/nowhere"));
    EXPECT_EQ(data->filePath(), QStringLiteral("/nowhere/Film.plotka"));
    EXPECT_TRUE(data->fileDigest().isEmpty());
    EXPECT_EQ(TUDbSceneData(QStringLiteral("a/b//"), QStringLiteral("c")).projectDir(), QStringLiteral("a/b"));
}

TEST_F(Project, TakesASceneOutBeforeItDies)
{
    TUScene *const first = project.addScene();
    TUScene *const doomed = project.addScene();
    TUScene *const after = project.addScene();
    const SC_Id id = doomed->sceneId();
    const UT_SharedWeakPtr<TUScene> watch(doomed);
    int words = 0;
    const SC_Project &asked = project;
    doomed->metadatas()->add(new LastWords([&] {
        ++words;
        EXPECT_FALSE(watch);
        EXPECT_EQ(asked.projectCommon()->sceneManager()->find(id), nullptr);
        EXPECT_EQ(asked.sceneCount(), 3u);
        EXPECT_EQ(asked.sceneAt(1), first);
        EXPECT_EQ(asked.sceneAt(2), after);
    }));
    ASSERT_TRUE(project.removeScene(doomed));
    EXPECT_EQ(words, 1);
}

TEST_F(Project, GoesAwaySceneBySceneAndTellsNobody)
{
    int words = 0;
    UT_SharedPtr<SC_Project> held(session.project());
    for (int i = 0; i < 3; ++i) {
        TUScene *const scene = project.addScene();
        scene->addSeqTimedValue(QStringLiteral("T"));
        const SC_Project *const asked = &project;
        scene->metadatas()->add(new LastWords([&words, asked, i] {
            ++words;
            EXPECT_EQ(asked->sceneCount(), unsigned(i) + 1) << "the later ones have gone, this one too";
            EXPECT_EQ(asked->sceneAt(unsigned(i) + 1), nullptr);
            EXPECT_NE(asked->sceneAt(0), nullptr);
        }));
    }
    session.releaseProject();
    session.changeManager()->clear();
    EXPECT_EQ(words, 0);
    held = nullptr;
    EXPECT_EQ(words, 3);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Project, TakesItsPendingNewsOfRecordsAlong)
{
    PIO_MetadataBool *const ofProject = new PIO_MetadataBool(QStringLiteral("p"));
    PIO_MetadataBool *const ofScene = new PIO_MetadataBool(QStringLiteral("s"));
    project.metadatas()->add(ofProject);
    TUScene *const scene = project.addScene();
    scene->metadatas()->add(ofScene);
    session.changeManager()->clear();
    EXPECT_EQ(news.told(), "") << "adding a record is silent";
    ofProject->emitChanged(session.changeManager(), 1);
    ofScene->emitChanged(session.changeManager(), 1);
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(news.told(), "sceneChanged metadataChanged{p:1}");
    ofProject->emitChanged(session.changeManager(), 1);
    session.releaseProject();
    EXPECT_EQ(news.told(), "");
}

TEST_F(Scene, AddsMovesAndRemovesTimedValues)
{
    TUScene *const scene = project.addScene();
    session.changeManager()->clear();
    TUSeqTimedValue *const a = scene->addSeqTimedValue(QStringLiteral("A"));
    EXPECT_EQ(news.told(), "sceneChanged timedValuesAdded{A}");
    TUSoundTimedValue *const s = scene->addSoundTimedValue(QStringLiteral("S"));
    EXPECT_EQ(news.told(), "sceneChanged timedValuesAdded{S}");
    TUSeqTimedValue *const b = scene->addSeqTimedValue(QStringLiteral("B"));
    EXPECT_EQ(scene->timedValues(), (std::vector<TUTimedValue *>{a, s, b}));
    EXPECT_EQ(a->sceneCommon(), scene->sceneCommon());
    news.told();

    EXPECT_TRUE(scene->moveTimedValue(b, a));
    EXPECT_EQ(news.told(), "sceneChanged");
    EXPECT_EQ(scene->timedValues(), (std::vector<TUTimedValue *>{b, a, s}));
    EXPECT_TRUE(scene->moveTimedValue(b, s));
    EXPECT_EQ(scene->timedValues(), (std::vector<TUTimedValue *>{a, b, s}));
    EXPECT_TRUE(scene->moveTimedValue(a, nullptr));
    EXPECT_EQ(scene->timedValues(), (std::vector<TUTimedValue *>{b, s, a}));
    news.told();

    EXPECT_TRUE(scene->removeTimedValue(s));
    EXPECT_EQ(news.told(), "sceneChanged timedValuesRemoved{dead}");
    EXPECT_EQ(scene->timedValues(), (std::vector<TUTimedValue *>{b, a}));
}

TEST_F(Scene, RefusesMovesThatChangeNothingAndStrangers)
{
    TUScene *const scene = project.addScene();
    TUSeqTimedValue *const a = scene->addSeqTimedValue(QStringLiteral("A"));
    TUSeqTimedValue *const b = scene->addSeqTimedValue(QStringLiteral("B"));
    TUTimedValue *const stranger = session.top().timedValues().front();
    session.changeManager()->clear();
    EXPECT_FALSE(scene->moveTimedValue(a, a));
    EXPECT_FALSE(scene->moveTimedValue(a, b));
    EXPECT_FALSE(scene->moveTimedValue(b, nullptr));
    EXPECT_FALSE(scene->moveTimedValue(stranger, a));
    EXPECT_FALSE(scene->moveTimedValue(a, stranger));
    EXPECT_FALSE(scene->moveTimedValue(nullptr, a));
    EXPECT_FALSE(scene->removeTimedValue(stranger));
    EXPECT_FALSE(scene->removeTimedValue(nullptr));
    EXPECT_EQ(news.told(), "");
    EXPECT_EQ(scene->timedValues(), (std::vector<TUTimedValue *>{a, b}));
}

TEST_F(Scene, TellsOfATimedValueThatCameAndWentBetweenTwoPasses)
{
    TUScene *const scene = project.addScene();
    session.changeManager()->clear();
    TUSeqTimedValue *const shortLived = scene->addSeqTimedValue(QStringLiteral("A"));
    shortLived->insertBlock(1, 5, nullptr);
    ASSERT_TRUE(scene->removeTimedValue(shortLived));
    EXPECT_EQ(news.told(), "sceneChanged timedValuesAdded{dead} timedValuesRemoved{dead} timedValuesChanged{dead}");
}

TEST_F(Scene, IsAsLongAsItsMainTimedValue)
{
    TUScene *const scene = project.addScene();
    TUSeqTimedValue *const a = scene->addSeqTimedValue(QStringLiteral("A"));
    ASSERT_TRUE(scene->addSeqTimedValue(QStringLiteral("B"))->insertBlock(1, 50, nullptr));
    EXPECT_EQ(scene->sceneCommon()->getNumberOfFrames(), 0);
    ASSERT_TRUE(a->insertBlock(3, 10, nullptr));
    EXPECT_EQ(scene->sceneCommon()->getNumberOfFrames(), 12);
    ASSERT_TRUE(a->insertBlock(2147483647u, 1, nullptr));
    EXPECT_EQ(scene->sceneCommon()->getNumberOfFrames(), 2147483647);
}

TEST_F(Scene, KeepsPanelsOfATimedValueThatIsRemoved)
{
    TUScene *const shot = project.addScene();
    TUScene *const panel = project.addScene();
    TUSeqTimedValue *const panels = shot->addSeqTimedValue(QStringLiteral("P"));
    ASSERT_TRUE(panels->insertBlock(1, 10, new AT_SceneSeq(panel)));
    const UT_SharedWeakPtr<TUScene> watch(panel);
    ASSERT_TRUE(shot->removeTimedValue(panels));
    EXPECT_TRUE(watch);
    EXPECT_EQ(project.sceneCount(), 3u);
    EXPECT_TRUE(shot->addSeqTimedValue(QStringLiteral("Q"))->insertBlock(1, 10, new AT_SceneSeq(panel)));
}
