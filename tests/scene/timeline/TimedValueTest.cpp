#include "TimelineFixture.h"

#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

namespace
{

class TimedValue : public TimelineFixture
{
protected:
    UT_SharedPtr<MO_ElementModule> makeElement(const QString &name, TUScene *scene = nullptr)
    {
        SC_SceneCommon *const common = (scene ? scene : &session.top())->sceneCommon();
        return UT_SharedPtr<MO_ElementModule>(new MO_ElementModule(common, name));
    }
};

using SoundTimedValue = TimedValue;
using TimelineSearches = TimedValue;

} // namespace

TEST_F(TimedValue, TellsOfANewNameOnly)
{
    EXPECT_EQ(timeline->getName(), QStringLiteral("T"));
    EXPECT_EQ(timeline->sceneCommon(), session.top().sceneCommon());
    timeline->setName(QStringLiteral("U"));
    EXPECT_EQ(news.told(), "timedValueNamesChanged{U}");
    timeline->setName(QStringLiteral("U"));
    timeline->setName(timeline->getName());
    EXPECT_EQ(news.told(), "");
}

TEST_F(TimedValue, DrivesAnElementInBothDirections)
{
    const auto element = makeElement(QStringLiteral("A"));
    EXPECT_EQ(timeline->linkedNodes(0), nullptr);
    ASSERT_TRUE(timeline->linkNode(element.get()));
    EXPECT_EQ(news.told(), "nodesChanged{A}");
    EXPECT_EQ(timeline->linkedNodes(0), element.get());
    EXPECT_EQ(timeline->linkedNodes(1), nullptr);
    EXPECT_EQ(timeline->linkedNodes(4294967295u), nullptr);
    EXPECT_EQ(element->drawingAttr()->linkedTimedValue(), timeline);
    EXPECT_FALSE(timeline->linkNode(element.get()));
    EXPECT_EQ(news.told(), "");
    ASSERT_TRUE(timeline->unlinkNode(element.get()));
    EXPECT_EQ(news.told(), "nodesChanged{A}");
    EXPECT_EQ(timeline->linkedNodes(0), nullptr);
    EXPECT_EQ(element->drawingAttr()->linkedTimedValue(), nullptr);
    EXPECT_FALSE(timeline->unlinkNode(element.get()));
    EXPECT_EQ(news.told(), "");
}

TEST_F(TimedValue, DrivesSeveralElementsInTheOrderOfLinking)
{
    const auto a = makeElement(QStringLiteral("A"));
    auto b = makeElement(QStringLiteral("B"));
    const auto c = makeElement(QStringLiteral("C"));
    for (MO_ElementModule *element : {c.get(), b.get(), a.get()})
        ASSERT_TRUE(timeline->linkNode(element));
    EXPECT_EQ(timeline->linkedNodes(0), c.get());
    EXPECT_EQ(timeline->linkedNodes(1), b.get());
    EXPECT_EQ(timeline->linkedNodes(2), a.get());
    b = nullptr; // dies
    EXPECT_EQ(timeline->linkedNodes(1), a.get());
    EXPECT_EQ(timeline->linkedNodes(2), nullptr);
    ASSERT_TRUE(timeline->unlinkNode(c.get()));
    EXPECT_EQ(timeline->linkedNodes(0), a.get());
}

TEST_F(TimedValue, KeepsTheOrderOfLinkingWhereManyElementsDie)
{
    std::vector<UT_SharedPtr<MO_ElementModule>> elements;
    for (int i = 0; i < 1000; ++i) {
        elements.emplace_back(makeElement(QString::number(i)));
        ASSERT_TRUE(timeline->linkNode(elements.back().get()));
        if (i % 3 == 0)
            elements.erase(elements.begin() + (i / 2) % static_cast<int>(elements.size()));
    }
    std::vector<MO_Node *> living;
    for (const UT_SharedPtr<MO_ElementModule> &element : elements)
        living.push_back(element.get());
    EXPECT_EQ(timeline->linkedNodes(), living);
}

TEST_F(TimedValue, TakesAnElementOverFromTheOneBefore)
{
    const auto element = makeElement(QStringLiteral("A"));
    TUSeqTimedValue *const other = session.top().addSeqTimedValue(QStringLiteral("O"));
    ASSERT_TRUE(other->linkNode(element.get()));
    ASSERT_TRUE(timeline->linkNode(element.get()));
    EXPECT_EQ(other->linkedNodes(0), nullptr);
    EXPECT_EQ(element->drawingAttr()->linkedTimedValue(), timeline);
    EXPECT_FALSE(other->unlinkNode(element.get()));
    EXPECT_EQ(element->drawingAttr()->linkedTimedValue(), timeline);
}

TEST_F(TimedValue, LinksAnElementOfAnotherSceneOfItsProject)
{
    const auto element = makeElement(QStringLiteral("E"), project.addScene());
    EXPECT_TRUE(timeline->linkNode(element.get()));
    EXPECT_EQ(timeline->linkedNodes(0), element.get());
}

TEST_F(TimedValue, LinksNothingButElementsOfItsProject)
{
    SC_Project elsewhere(QStringLiteral("/elsewhere"), QStringLiteral("other"));
    const UT_SharedPtr<MO_Node> group(new TUGroup(session.top().sceneCommon(), QStringLiteral("G")));
    const auto stranger = makeElement(QStringLiteral("S"), elsewhere.addScene());
    session.changeManager()->clear();
    EXPECT_FALSE(timeline->linkNode(nullptr));
    EXPECT_FALSE(timeline->linkNode(group.get()));
    EXPECT_FALSE(timeline->linkNode(stranger.get()));
    EXPECT_FALSE(timeline->unlinkNode(nullptr));
    EXPECT_FALSE(timeline->unlinkNode(group.get()));
    EXPECT_EQ(news.told(), "");
}

TEST_F(TimedValue, LeavesItsElementUndrivenWhenItDies)
{
    const auto element = makeElement(QStringLiteral("A"));
    ASSERT_TRUE(timeline->linkNode(element.get()));
    ASSERT_TRUE(session.top().removeTimedValue(timeline));
    EXPECT_EQ(element->drawingAttr()->linkedTimedValue(), nullptr);
    TUSeqTimedValue *const next = session.top().addSeqTimedValue(QStringLiteral("N"));
    EXPECT_TRUE(next->linkNode(element.get()));
    EXPECT_EQ(linkedSeqTv(element.get()), next);
}

TEST_F(SoundTimedValue, AnswersItsSoundsAndTheirEnd)
{
    TUSoundTimedValue *const sounds = session.top().addSoundTimedValue(QStringLiteral("Sound"));
    session.changeManager()->clear();
    EXPECT_EQ(sounds->timedValueKind(), 1);
    EXPECT_EQ(sounds->getEndFrame(), 0);
    EXPECT_TRUE(sounds->sequenceIds().empty());
    EXPECT_TRUE(sounds->audible);
    EXPECT_FALSE(sounds->muted);
    EXPECT_FALSE(sounds->isExcluded());
    const SC_Id late = sounds->addSound(50, 100, QStringLiteral("rain"));
    EXPECT_EQ(news.told(), "timedValuesChanged{Sound}");
    const SC_Id early = sounds->addSound(1, 60);
    EXPECT_EQ(sounds->sequenceIds(), (std::vector<SC_Id>{late, early}));
    EXPECT_EQ(sounds->getEndFrame(), 100);
    EXPECT_EQ(sounds->sounds()[0].name, QStringLiteral("rain"));
    news.told();
    EXPECT_TRUE(sounds->removeSound(sounds->sounds()[0].id));
    EXPECT_EQ(news.told(), "timedValuesChanged{Sound}");
    EXPECT_EQ(sounds->getEndFrame(), 60);
    EXPECT_FALSE(sounds->removeSound(late));
    EXPECT_EQ(news.told(), "");
    sounds->setExcluded(true);
    EXPECT_TRUE(sounds->isExcluded());
}

TEST_F(SoundTimedValue, RefusesSoundsOutsideOfAllFramesAndTakenIds)
{
    TUSoundTimedValue *const sounds = session.top().addSoundTimedValue(QStringLiteral("Sound"));
    session.changeManager()->clear();
    EXPECT_TRUE(sounds->addSound(0, 5).isNull());
    EXPECT_TRUE(sounds->addSound(6, 5).isNull());
    EXPECT_TRUE(sounds->addSound(6, 2147483648u).isNull());
    EXPECT_FALSE(sounds->addSound(TUSoundTimedValue::Sound{SC_Id(), 1, 2, QString()}));
    EXPECT_EQ(news.told(), "");
    const TUSoundTimedValue::Sound sound{SC_Id(700), 2147483647u, 2147483647u, QString()};
    EXPECT_TRUE(sounds->addSound(sound));
    EXPECT_EQ(sounds->getEndFrame(), 2147483647);
    EXPECT_FALSE(sounds->addSound(sound));
    EXPECT_FALSE(sounds->addSound(sounds->sounds()[0]));
    EXPECT_EQ(newId(), SC_Id(701));
    TUSoundTimedValue *const others = session.top().addSoundTimedValue(QStringLiteral("Others"));
    EXPECT_FALSE(others->addSound(sound));
    ASSERT_TRUE(session.top().removeTimedValue(sounds));
    EXPECT_TRUE(others->addSound(sound)) << "free again";
    EXPECT_EQ(newId(), SC_Id(702));
}

TEST_F(TimelineSearches, FindTheSceneOfABlock)
{
    const SC_SceneManager *const manager = project.projectCommon()->sceneManager();
    TUScene *const scene = project.addScene();
    ASSERT_TRUE(timeline->insertBlock(1, 5, new AT_SceneSeq(scene)));
    ASSERT_TRUE(timeline->insertBlock(6, 5, new TUSeq));
    ASSERT_TRUE(timeline->insertBlock(11, 5, nullptr));
    ASSERT_TRUE(timeline->insertBlock(16, 5, new AT_SceneSeq(nullptr)));
    EXPECT_EQ(sceneOfBlock(manager, timeline->blockAt(1)), scene);
    for (const unsigned int frame : {6u, 11u, 16u, 21u})
        EXPECT_EQ(sceneOfBlock(manager, timeline->blockAt(frame)), nullptr) << frame;
    EXPECT_EQ(sceneOfBlock(nullptr, timeline->blockAt(1)), nullptr);
    EXPECT_EQ(sceneOfBlock(manager, AT_FrameBlock()), nullptr);
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(sceneOfBlock(manager, timeline->blockAt(1)), nullptr);
}

TEST_F(TimelineSearches, FindNoSceneOfAnotherProject)
{
    const SC_SceneManager *const manager = project.projectCommon()->sceneManager();
    SceneSession elsewhere;
    const SC_SceneManager *const other = elsewhere.makeProject().projectCommon()->sceneManager();
    TUScene *const scene = project.addScene();
    ASSERT_TRUE(timeline->insertBlock(1, 5, new AT_SceneSeq(scene)));
    EXPECT_EQ(sceneOfBlock(manager, timeline->blockAt(1)), scene);
    EXPECT_EQ(sceneOfBlock(other, timeline->blockAt(1)), nullptr) << "what was found before is of the first project";
    TUScene *const namesake = elsewhere.project()->addScene(scene->objectId(), scene->sceneId());
    EXPECT_EQ(sceneOfBlock(other, timeline->blockAt(1)), namesake);
    EXPECT_EQ(sceneOfBlock(manager, timeline->blockAt(1)), scene);
}

TEST_F(TimelineSearches, TakeTheFirstSequenceTimedValueAsTheMainOne)
{
    TUScene *const scene = project.addScene();
    EXPECT_EQ(sceneMainTv(nullptr), nullptr);
    EXPECT_EQ(sceneMainTv(scene), nullptr);
    scene->addSoundTimedValue(QStringLiteral("sound"));
    EXPECT_EQ(sceneMainTv(scene), nullptr);
    TUSeqTimedValue *const first = scene->addSeqTimedValue(QStringLiteral("first"));
    TUSeqTimedValue *const second = scene->addSeqTimedValue(QStringLiteral("second"));
    EXPECT_EQ(sceneMainTv(scene), first);
    ASSERT_TRUE(scene->moveTimedValue(second, first));
    EXPECT_EQ(sceneMainTv(scene), second);
    ASSERT_TRUE(scene->removeTimedValue(second));
    EXPECT_EQ(sceneMainTv(scene), first);
}

TEST_F(TimelineSearches, FindWhatDrivesAnElement)
{
    const auto element = makeElement(QStringLiteral("A"));
    EXPECT_EQ(linkedSeqTv(nullptr), nullptr);
    EXPECT_EQ(linkedSeqTv(element.get()), nullptr);
    EXPECT_EQ(linkedSeqTv(session.top().getRootGroup()), nullptr);
    ASSERT_TRUE(timeline->linkNode(element.get()));
    EXPECT_EQ(linkedSeqTv(element.get()), timeline);
    ASSERT_TRUE(session.top().addSoundTimedValue(QStringLiteral("S"))->linkNode(element.get()));
    EXPECT_EQ(linkedSeqTv(element.get()), nullptr) << "a sound is no sequence of blocks";
}
