#include "NetworkFixture.h"

#include <random>

namespace
{

class Group : public NetworkFixture
{
};

} // namespace

TEST_F(Group, KeepsTheOrderInWhichNodesAreAdded)
{
    const UT_SharedPtr<MO_Node> a = makeNode("A");
    ASSERT_TRUE(group->addNode(a));
    EXPECT_EQ(a->ownerGroup(), group);
    EXPECT_EQ(a->getParentNode(), nullptr);
    EXPECT_EQ(news.told(), "networkChanged{A} subNetworkChanged{Top}");
    ASSERT_TRUE(group->addNode(makeNode("C")));
    ASSERT_TRUE(group->addNode(makeNode("B"), std::prev(group->subNodesEnd())->get()));
    ASSERT_TRUE(group->addNode(makeNode("0"), a.get()));
    EXPECT_EQ(list(*group), "0 A B C");
}

TEST_F(Group, RefusesNodesThatBelongElsewhere)
{
    MO_Node *const a = add("A");
    const UT_SharedPtr<MO_Node> stranger(new MO_ElementModule(session.top().sceneCommon(), QStringLiteral("S")));
    const UT_SharedPtr<MO_Node> homeless(new MO_ElementModule(nullptr, QStringLiteral("H")));
    EXPECT_FALSE(group->addNode(UT_SharedPtr<MO_Node>()));
    EXPECT_FALSE(group->addNode(UT_SharedPtr<MO_Node>(a)));
    EXPECT_FALSE(group->addNode(*group->subNodesBegin()));
    EXPECT_FALSE(group->addNode(stranger));
    EXPECT_FALSE(group->addNode(homeless));
    EXPECT_FALSE(group->addNode(makeNode("B"), stranger.get()));
    EXPECT_EQ(list(*group), "A");
    EXPECT_EQ(news.told(), "");
}

TEST_F(Group, RefusesItselfAndWhatIsAroundIt)
{
    const UT_SharedPtr<TUGroup> outer = makeGroup("outer");
    const UT_SharedPtr<TUGroup> inner = makeGroup("inner");
    ASSERT_TRUE(outer->addNode(inner));
    EXPECT_FALSE(outer->addNode(outer));
    EXPECT_FALSE(inner->addNode(outer));
    EXPECT_FALSE(inner->addNode(UT_SharedPtr<MO_Node>(group))) << "the root stays the root";
    ASSERT_TRUE(group->addNode(outer));
    EXPECT_FALSE(inner->addNode(UT_SharedPtr<MO_Node>(group)));
    EXPECT_EQ(composition(*group), "outer");
}

TEST_F(Group, LetsGoOfARemovedNodeAndTellsOfTheGroupOnly)
{
    MO_Node *const a = add("A");
    const UT_SharedWeakPtr<MO_Node> watch(a);
    add("B");
    ASSERT_TRUE(group->removeNode(a));
    EXPECT_EQ(news.told(), "subNetworkChanged{Top}");
    EXPECT_FALSE(watch);
    EXPECT_EQ(list(*group), "B");
    EXPECT_FALSE(group->removeNode(nullptr));
    EXPECT_FALSE(group->removeNode(group));
    EXPECT_EQ(news.told(), "");
}

TEST_F(Group, LiftsTheChildrenOfARemovedNode)
{
    MO_Node *const top = add("T");
    MO_Node *const peg = add("P", top);
    MO_Node *const a = add("A", peg);
    MO_Node *const deep = add("D", a);
    const UT_SharedPtr<MO_Node> held(peg);
    ASSERT_TRUE(group->removeNode(peg));
    EXPECT_EQ(held->ownerGroup(), nullptr);
    EXPECT_EQ(held->getParentNode(), nullptr);
    EXPECT_EQ(held->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(a->getParentNode(), nullptr);
    EXPECT_EQ(a->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(deep->getParentNode(), a);
    EXPECT_EQ(news.told(), "subNetworkChanged{Top} childrenOrderingChanged{A} nodeLinksChanged{A P}");
    EXPECT_EQ(composition(*group), "T A D");
    EXPECT_TRUE(group->addNode(held)) << "it can come back";
}

TEST_F(Group, MovesANode)
{
    MO_Node *const a = add("A");
    MO_Node *const b = add("B");
    MO_Node *const c = add("C");
    ASSERT_TRUE(group->moveNode(c, a));
    EXPECT_EQ(list(*group), "C A B");
    EXPECT_EQ(news.told(), "childrenOrderingChanged{C} nodeLinksChanged{C}");
    ASSERT_TRUE(group->moveNode(c, nullptr));
    EXPECT_EQ(list(*group), "A B C");
    news.told();
    EXPECT_FALSE(group->moveNode(a, a));
    EXPECT_FALSE(group->moveNode(a, b)) << "it stands there";
    EXPECT_FALSE(group->moveNode(c, nullptr));
    EXPECT_FALSE(group->moveNode(nullptr, a));
    EXPECT_FALSE(group->moveNode(a, group));
    EXPECT_FALSE(group->moveNode(group, a));
    EXPECT_EQ(news.told(), "");
}

TEST_F(Group, ComposesDepthFirstInGroupOrderWhateverTheStateOfANode)
{
    MO_Node *const e = add("E");
    MO_Node *const p = add("P");
    add("A", p);
    MO_Node *const q = add("Q", p);
    add("B", q);
    add("C", p);
    add("Z");
    ASSERT_TRUE(group->moveNode(e, nullptr));
    p->setCollapsed(true);
    q->setEnabled(false);
    q->setLocked(true);
    EXPECT_EQ(composition(*group), "P A Q B C Z E");
    EXPECT_EQ(list(*group), "P A Q B C Z E");
    ASSERT_TRUE(group->moveNode(p, nullptr));
    EXPECT_EQ(list(*group), "A Q B C Z E P");
    EXPECT_EQ(composition(*group), "Z E P A Q B C");
}

TEST_F(Group, ComposesAllItsNodesAfterRandomEdits)
{
    std::mt19937 random(7);
    const auto some = [&random](const std::vector<MO_Node *> &nodes) {
        return nodes[std::uniform_int_distribution<std::size_t>(0, nodes.size() - 1)(random)];
    };
    for (int i = 0; i < 12; ++i)
        add(std::string(1, char('A' + i)).c_str());
    for (int step = 0; step < 3000; ++step) {
        const std::vector<MO_Node *> nodes = group->compositionOrder();
        switch (random() % 4) {
        case 0:
            group->moveNode(some(nodes), random() % 5 ? some(nodes) : nullptr);
            break;
        case 1: {
            const UT_SharedPtr<MO_Node> node(some(nodes));
            ASSERT_TRUE(group->removeNode(node.get()));
            ASSERT_TRUE(group->addNode(node));
            break;
        }
        default:
            some(nodes)->setParentNode(random() % 4 ? some(nodes) : nullptr);
        }
        const std::vector<MO_Node *> order = group->compositionOrder();
        ASSERT_EQ(order.size(), 12u);
        for (std::size_t i = 0; i < order.size(); ++i) {
            const MO_Node *const parent = order[i]->getParentNode();
            ASSERT_EQ(order[i]->inPort(0)->realSrcPort(), parent ? parent->outPort() : nullptr);
            const auto place = std::find(order.begin(), order.begin() + std::ptrdiff_t(i), parent);
            ASSERT_TRUE(!parent || place != order.begin() + std::ptrdiff_t(i)) << "a child before its parent";
            for (auto between = place; parent && ++between != order.begin() + std::ptrdiff_t(i);) {
                const MO_Node *above = *between;
                while (above && above != parent)
                    above = above->getParentNode();
                ASSERT_EQ(above, parent) << "a stranger among the children";
            }
        }
    }
}

TEST_F(Group, LeavesNodesFreeThatOutliveIt)
{
    const UT_SharedPtr<MO_Node> parent = makeNode("P");
    const UT_SharedPtr<MO_Node> child = makeNode("C");
    {
        const UT_SharedPtr<TUGroup> shortLived = makeGroup("G");
        ASSERT_TRUE(shortLived->addNode(parent));
        ASSERT_TRUE(shortLived->addNode(child));
        ASSERT_TRUE(child->setParentNode(parent.get()));
        session.changeManager()->clear();
    }
    EXPECT_EQ(news.told(), "") << "nobody is told of a group that goes away as a whole";
    EXPECT_EQ(parent->ownerGroup(), nullptr);
    EXPECT_EQ(child->getParentNode(), nullptr);
    EXPECT_EQ(child->inPort(0)->realSrcPort(), nullptr);
    ASSERT_TRUE(group->addNode(child));
    EXPECT_EQ(composition(*group), "C") << "it is not hidden behind a parent that is not there";
}

TEST_F(Group, OutlivesItsSceneForWhoeverHoldsIt)
{
    const UT_SharedPtr<MO_Node> held(group);
    add("A");
    TUGroup *const survivor = group;
    ASSERT_TRUE(project.removeScene(scene));
    EXPECT_EQ(survivor->sceneCommon(), nullptr);
    EXPECT_EQ(list(*survivor), "A");
    session.changeManager()->clear();
    EXPECT_TRUE(survivor->removeNode(survivor->subNodesBegin()->get()));
    EXPECT_EQ(news.told(), "");
}
