#include "NetworkFixture.h"

namespace
{

class Port : public NetworkFixture
{
};

} // namespace

TEST_F(Port, IsFedByTheOutPortOfAnotherNode)
{
    MO_Node *const camera = add("C");
    MO_Node *const peg = add("P");
    EXPECT_EQ(camera->inPort(0)->realSrcPort(), nullptr);
    ASSERT_TRUE(camera->inPort(0)->connect(peg->outPort()));
    EXPECT_EQ(camera->inPort(0)->realSrcPort(), peg->outPort());
    EXPECT_EQ(camera->inPort(0)->realSrcPort()->node(), peg);
    EXPECT_EQ(camera->getParentNode(), nullptr) << "a link is no parent";
    EXPECT_EQ(news.told(), "nodeLinksChanged{C P}");
    EXPECT_FALSE(camera->inPort(0)->connect(peg->outPort()));
    EXPECT_EQ(news.told(), "");
    ASSERT_TRUE(camera->inPort(0)->disconnect());
    EXPECT_EQ(camera->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(news.told(), "nodeLinksChanged{C P}");
    EXPECT_FALSE(camera->inPort(0)->disconnect());
    EXPECT_EQ(news.told(), "");
}

TEST_F(Port, TellsAlsoTheNodeThatFedItBefore)
{
    MO_Node *const camera = add("C");
    MO_Node *const p = add("P");
    MO_Node *const q = add("Q");
    ASSERT_TRUE(camera->inPort(0)->connect(p->outPort()));
    session.changeManager()->clear();
    ASSERT_TRUE(camera->inPort(0)->connect(q->outPort()));
    EXPECT_EQ(camera->inPort(0)->realSrcPort(), q->outPort());
    EXPECT_EQ(news.told(), "nodeLinksChanged{C P Q}");
}

TEST_F(Port, ConnectsNoOtherWayThanOutToIn)
{
    MO_Node *const a = add("A");
    MO_Node *const b = add("B");
    EXPECT_FALSE(a->inPort(0)->connect(a->outPort()));
    EXPECT_FALSE(a->inPort(0)->connect(b->inPort(0)));
    EXPECT_FALSE(a->outPort()->connect(b->outPort()));
    EXPECT_FALSE(a->outPort()->connect(b->inPort(0)));
    EXPECT_FALSE(a->outPort()->disconnect());
    EXPECT_EQ(a->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(a->outPort()->realSrcPort(), nullptr);
    EXPECT_EQ(news.told(), "");
}

TEST_F(Port, IsUnconnectedOnceItsSourceHasDied)
{
    MO_Node *const a = add("A");
    {
        const UT_SharedPtr<MO_Node> shortLived = makeNode("gone");
        ASSERT_TRUE(a->inPort(0)->connect(shortLived->outPort()));
    }
    EXPECT_EQ(a->inPort(0)->realSrcPort(), nullptr);
    MO_Node *const b = add("B");
    EXPECT_TRUE(a->inPort(0)->connect(b->outPort()));
}

TEST_F(Port, OfANodeWithoutASceneConnectsInSilence)
{
    MO_ElementModule a(nullptr, QStringLiteral("A"));
    MO_ElementModule b(nullptr, QStringLiteral("B"));
    EXPECT_TRUE(a.inPort(0)->connect(b.outPort()));
    EXPECT_EQ(a.inPort(0)->realSrcPort(), b.outPort());
}
