#include "NetworkFixture.h"

#include "scene/network/MO_UnconnectedCompositeModule.h"

namespace
{

class Node : public NetworkFixture
{
};

} // namespace

TEST_F(Node, KnowsItsSceneUntilTheSceneDies)
{
    const UT_SharedPtr<MO_Node> node = makeNode("A");
    EXPECT_EQ(node->sceneCommon(), scene->sceneCommon());
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(node->sceneCommon(), nullptr);
    session.changeManager()->clear();
    node->setEnabled(false);
    node->setInstanceName(QStringLiteral("B"));
    EXPECT_EQ(news.told(), "") << "there is nobody to tell";
}

TEST_F(Node, StandsWithoutAScene)
{
    MO_ElementModule node(nullptr, QStringLiteral("alone"));
    EXPECT_EQ(node.sceneCommon(), nullptr);
    EXPECT_EQ(node.ownerGroup(), nullptr);
    EXPECT_EQ(node.getParentNode(), nullptr);
    node.setLocked(true);
    EXPECT_TRUE(node.lock());
}

TEST_F(Node, TellsOfARename)
{
    MO_Node *const node = add("A");
    node->setInstanceName(QStringLiteral("B"));
    EXPECT_EQ(node->instanceName(), QStringLiteral("B"));
    EXPECT_EQ(news.told(), "nodeInstanceNamesChanged{B}");
    node->setInstanceName(QStringLiteral("B"));
    EXPECT_EQ(news.told(), "");
}

TEST_F(Node, TellsOfAChangedPictureWhenEnabledOrDisabled)
{
    MO_Node *const node = add("A");
    EXPECT_TRUE(node->isEnabled());
    node->setEnabled(true);
    EXPECT_EQ(news.told(), "");
    node->setEnabled(false);
    EXPECT_FALSE(node->isEnabled());
    EXPECT_EQ(news.told(), "nodesChanged{A} nodeChangeApplied{A}");
}

TEST_F(Node, TellsOfLockAndCollapseWithoutAChangedPicture)
{
    MO_Node *const node = add("A");
    EXPECT_FALSE(node->lock());
    EXPECT_FALSE(node->isCollapsed());
    node->setLocked(true);
    EXPECT_TRUE(node->lock());
    EXPECT_EQ(news.told(), "nodeChangeApplied{A}");
    node->setCollapsed(true);
    EXPECT_TRUE(node->isCollapsed());
    EXPECT_EQ(news.told(), "nodeChangeApplied{A}");
    node->setLocked(true);
    node->setCollapsed(true);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Node, TellsOfLineArtModeAndCameraAlignment)
{
    auto *const element = static_cast<MO_ElementModule *>(add("A"));
    EXPECT_EQ(element->lineArtDrawingMode(), 0);
    EXPECT_EQ(element->cameraAlignment(), AT_Enums::NoAlignment);
    EXPECT_EQ(int(AT_Enums::NoAlignment), 0);
    element->setLineArtDrawingMode(2);
    EXPECT_EQ(element->lineArtDrawingMode(), 2);
    EXPECT_EQ(news.told(), "nodesChanged{A} nodeChangeApplied{A}");
    element->setCameraAlignment(AT_Enums::LockToCamera);
    EXPECT_EQ(element->cameraAlignment(), AT_Enums::LockToCamera);
    EXPECT_EQ(news.told(), "nodesChanged{A} nodeChangeApplied{A}");
    element->setLineArtDrawingMode(2);
    element->setCameraAlignment(AT_Enums::LockToCamera);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Node, TakesAParentAndItsLink)
{
    MO_Node *const peg = add("P");
    MO_Node *const node = add("A");
    ASSERT_TRUE(node->setParentNode(peg));
    EXPECT_EQ(node->getParentNode(), peg);
    EXPECT_EQ(node->ownerGroup(), group) << "the parent is not the group";
    EXPECT_EQ(node->inPort(0)->realSrcPort(), peg->outPort());
    EXPECT_EQ(news.told(), "childrenOrderingChanged{A} nodeLinksChanged{A P}");
    EXPECT_TRUE(node->setParentNode(peg));
    EXPECT_EQ(news.told(), "");
    EXPECT_TRUE(node->setParentNode(nullptr));
    EXPECT_EQ(node->getParentNode(), nullptr);
    EXPECT_EQ(node->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(news.told(), "childrenOrderingChanged{A} nodeLinksChanged{A P}");
    EXPECT_TRUE(node->setParentNode(nullptr));
    EXPECT_EQ(news.told(), "");
}

TEST_F(Node, TellsOfItsParentAlsoWhereNoPortChanges)
{
    MO_Node *const peg = add("P");
    MO_Node *const node = add("A");
    ASSERT_TRUE(node->inPort(0)->connect(peg->outPort()));
    session.changeManager()->clear();
    ASSERT_TRUE(node->setParentNode(peg));
    EXPECT_EQ(news.told(), "childrenOrderingChanged{A} nodeLinksChanged{A}");
    const UT_SharedPtr<TUGroup> nested = makeGroup("G"); // has no in port
    ASSERT_TRUE(group->addNode(nested));
    session.changeManager()->clear();
    ASSERT_TRUE(nested->setParentNode(peg));
    EXPECT_EQ(news.told(), "childrenOrderingChanged{G} nodeLinksChanged{G}");
}

TEST_F(Node, TellsBothParentsWhenItGoesFromOneToTheOther)
{
    MO_Node *const p = add("P");
    MO_Node *const q = add("Q");
    MO_Node *const node = add("A", p);
    ASSERT_TRUE(node->setParentNode(q));
    EXPECT_EQ(node->inPort(0)->realSrcPort(), q->outPort());
    EXPECT_EQ(news.told(), "childrenOrderingChanged{A} nodeLinksChanged{A P Q}");
}

TEST_F(Node, RefusesParentsThatWouldMakeACircleOrLeaveTheGroup)
{
    MO_Node *const a = add("A");
    MO_Node *const b = add("B", a);
    MO_Node *const c = add("C", b);
    const UT_SharedPtr<MO_Node> outside = makeNode("outside");
    const UT_SharedPtr<TUGroup> nested = makeGroup("G");
    ASSERT_TRUE(group->addNode(nested));
    const UT_SharedPtr<MO_Node> inside = makeNode("inside");
    ASSERT_TRUE(nested->addNode(inside));
    session.changeManager()->clear();
    EXPECT_FALSE(a->setParentNode(a));
    EXPECT_FALSE(a->setParentNode(c));
    EXPECT_FALSE(a->setParentNode(outside.get()));
    EXPECT_FALSE(outside->setParentNode(a));
    EXPECT_FALSE(a->setParentNode(inside.get()));
    EXPECT_FALSE(a->setParentNode(group));
    EXPECT_EQ(a->getParentNode(), nullptr);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Node, ComesToTheTopWhenItsParentDies)
{
    UT_SharedPtr<MO_Node> child;
    {
        SceneSession other;
        other.makeProject();
        TUGroup *const root = other.top().getRootGroup();
        const UT_SharedPtr<MO_Node> parent(new MO_ElementModule(other.top().sceneCommon(), QStringLiteral("P")));
        child = UT_SharedPtr<MO_Node>(new MO_ElementModule(other.top().sceneCommon(), QStringLiteral("C")));
        ASSERT_TRUE(root->addNode(parent));
        ASSERT_TRUE(root->addNode(child));
        ASSERT_TRUE(child->setParentNode(parent.get()));
    }
    EXPECT_EQ(child->getParentNode(), nullptr);
    EXPECT_EQ(child->ownerGroup(), nullptr);
    EXPECT_EQ(child->sceneCommon(), nullptr);
    EXPECT_EQ(child->inPort(0)->realSrcPort(), nullptr);
}

TEST_F(Node, HasOneInPortUnlessItIsAGroup)
{
    const UT_SharedPtr<MO_Node> node = makeNode("A");
    ASSERT_NE(node->inPort(0), nullptr);
    EXPECT_EQ(node->inPort(0)->node(), node.get());
    EXPECT_EQ(node->outPort()->node(), node.get());
    EXPECT_EQ(node->inPort(1), nullptr);
    EXPECT_EQ(node->inPort(4294967295u), nullptr);
    EXPECT_EQ(group->inPort(0), nullptr);
}

TEST_F(Node, CarriesTheKeywordOfItsKind)
{
    EXPECT_EQ(makeNode("A")->keyword(), MO_ElementModule::Keyword());
    EXPECT_EQ(group->keyword(), TUGroup::Keyword());
    const MO_UnconnectedCompositeModule composite(scene->sceneCommon());
    EXPECT_EQ(composite.keyword(), MO_UnconnectedCompositeModule::Keyword());
    EXPECT_NE(MO_ElementModule::Keyword(), TUGroup::Keyword());
}

TEST_F(Node, OfTheUnconnectedCompositeHasAYesOrNoThatChangesTheNodeAndNothingElse)
{
    EXPECT_EQ(scene->unconnectedComposite(), nullptr);
    MO_UnconnectedCompositeModule *const composite = scene->addUnconnectedComposite();
    EXPECT_EQ(scene->addUnconnectedComposite(), composite);
    EXPECT_EQ(scene->unconnectedComposite(), composite);
    AT_Attr *const first = composite->firstAttribute();
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(composite->firstAttribute()->value());
    EXPECT_EQ(news.told(), "");
    first->setBool(true);
    EXPECT_TRUE(composite->firstAttribute()->value());
    EXPECT_EQ(news.told(), "nodesChanged{Unconnected_Composite} nodeChangeApplied{Unconnected_Composite}");
    first->setBool(true);
    EXPECT_EQ(news.told(), "");
    first->setBool(false);
    EXPECT_FALSE(composite->firstAttribute()->value());
    EXPECT_EQ(news.told(), "nodesChanged{Unconnected_Composite} nodeChangeApplied{Unconnected_Composite}");
    EXPECT_EQ(composite->getParentNode(), nullptr);
    EXPECT_EQ(composition(*group), "");
    AT_DrawingAttr drawing;
    drawing.setBool(true); // no yes or no: ignored
    EXPECT_EQ(drawing.linkedTimedValue(), nullptr);
}
