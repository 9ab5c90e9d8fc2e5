#include "NetworkFixture.h"

#include "scene/network/MO_ModuleVisitor.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"

#include <functional>

namespace
{

class Visitor : public NetworkFixture
{
};

/// Hears of elements only.
struct ElementNames : MO_ModuleVisitor {
    using MO_ModuleVisitor::visit;
    void visit(MO_ElementModule &element) override
    {
        names += (names.empty() ? "" : " ") + element.instanceName().toStdString();
        if (onVisit)
            onVisit(element);
    }
    std::string names;
    std::function<void(MO_ElementModule &)> onVisit;
};

/// Hears of whatever can move, elements among them.
struct AnimatedNames : MO_ModuleVisitor {
    using MO_ModuleVisitor::visit;
    void visit(MO_AnimatedModule &module) override { names += module.instanceName().toStdString(); }
    std::string names;
};

/// Hears of every module.
struct ModuleNames : MO_ModuleVisitor {
    using MO_ModuleVisitor::visit;
    void visit(MO_Module &module) override { names += module.instanceName().toStdString(); }
    std::string names;
};

struct Nothing : MO_ModuleVisitor {
};

} // namespace

TEST_F(Visitor, GoesThroughNestedGroupsInCompositionOrder)
{
    MO_Node *const p = add("P");
    const UT_SharedPtr<TUGroup> nested = makeGroup("G");
    ASSERT_TRUE(group->addNode(nested));
    ASSERT_TRUE(nested->addNode(makeNode("inner1")));
    ASSERT_TRUE(nested->addNode(makeNode("inner2")));
    add("Z");
    add("A", p);
    ElementNames visitor;
    group->accept(visitor);
    EXPECT_EQ(visitor.names, "P A inner1 inner2 Z");
}

TEST_F(Visitor, VisitsOneNodeWhenANodeAccepts)
{
    MO_Node *const p = add("P");
    add("A", p);
    ElementNames visitor;
    p->accept(visitor);
    EXPECT_EQ(visitor.names, "P");
}

TEST_F(Visitor, FallsBackFromElementToAnimatedModuleToModule)
{
    MO_AnimatedModule animated(scene->sceneCommon(), QStringLiteral("PEG"), QStringLiteral("peg"));
    MO_Module module(scene->sceneCommon(), QStringLiteral("M"), QStringLiteral("module"));
    MO_UnconnectedCompositeModule composite(scene->sceneCommon());
    MO_Node plain(scene->sceneCommon(), QStringLiteral("N"), QStringLiteral("node"));
    const UT_SharedPtr<MO_Node> element = makeNode("element");
    ElementNames elements;
    AnimatedNames animatedOnes;
    ModuleNames modules;
    Nothing nothing;
    for (MO_Node *node : {static_cast<MO_Node *>(&animated), static_cast<MO_Node *>(&module),
             static_cast<MO_Node *>(&composite), &plain, element.get()}) {
        for (MO_ModuleVisitor *visitor :
            {static_cast<MO_ModuleVisitor *>(&elements), static_cast<MO_ModuleVisitor *>(&animatedOnes),
                static_cast<MO_ModuleVisitor *>(&modules), static_cast<MO_ModuleVisitor *>(&nothing)})
            node->accept(*visitor);
    }
    EXPECT_EQ(elements.names, "element");
    EXPECT_EQ(animatedOnes.names, "pegelement");
    EXPECT_EQ(modules.names, "pegmoduleUnconnected_Compositeelement");
}

TEST_F(Visitor, MayEditTheGroupItWalksThrough)
{
    for (const char *name : {"A", "B", "C", "D"})
        add(name);
    ElementNames visitor;
    visitor.onVisit = [this](MO_ElementModule &element) {
        while (group->subNodesBegin() != group->subNodesEnd())
            group->removeNode(group->subNodesBegin()->get());
        group->addNode(makeNode(("new" + element.instanceName().toStdString()).c_str()));
    };
    group->accept(visitor);
    EXPECT_EQ(visitor.names, "A B C D");
    EXPECT_EQ(list(*group), "newD");
}

TEST_F(Visitor, MayDeleteTheSceneItWalksThrough)
{
    add("A");
    add("B");
    ElementNames visitor;
    visitor.onVisit = [this](MO_ElementModule &) { project.removeScene(scene); };
    group->accept(visitor);
    EXPECT_EQ(visitor.names, "A B");
    EXPECT_EQ(project.sceneCount(), 1u);
}
