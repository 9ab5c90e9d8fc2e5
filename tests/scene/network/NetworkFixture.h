#pragma once

#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_Port.h"
#include "scene/network/TUGroup.h"
#include "support/News.h"
#include "support/SceneSession.h"

#include <gtest/gtest.h>

/// A project with a scene whose root group is empty, and what tells its news.
class NetworkFixture : public ::testing::Test
{
protected:
    NetworkFixture() : project(session.makeProject()), news(*session.changeManager())
    {
        scene = project.addScene();
        group = scene->getRootGroup();
        session.changeManager()->clear();
    }

    UT_SharedPtr<MO_Node> makeNode(const char *name)
    {
        return UT_SharedPtr<MO_Node>(new MO_ElementModule(scene->sceneCommon(), QString::fromLatin1(name)));
    }
    UT_SharedPtr<TUGroup> makeGroup(const char *name)
    {
        return UT_SharedPtr<TUGroup>(new TUGroup(scene->sceneCommon(), QString::fromLatin1(name)));
    }
    MO_Node *add(const char *name, MO_Node *parent = nullptr)
    {
        const UT_SharedPtr<MO_Node> node = makeNode(name);
        EXPECT_TRUE(group->addNode(node));
        EXPECT_TRUE(node->setParentNode(parent));
        session.changeManager()->clear();
        return node.get();
    }

    /// Names in group order and in composition order.
    static std::string list(const TUGroup &group)
    {
        std::string text;
        for (auto it = group.subNodesBegin(); it != group.subNodesEnd(); ++it)
            text += (text.empty() ? "" : " ") + (*it)->instanceName().toStdString();
        return text;
    }
    static std::string composition(const TUGroup &group)
    {
        std::string text;
        for (const MO_Node *node : group.compositionOrder())
            text += (text.empty() ? "" : " ") + node->instanceName().toStdString();
        return text;
    }

    SceneSession session;
    SC_Project &project;
    News news;
    TUScene *scene = nullptr;
    TUGroup *group = nullptr;
};
