#pragma once

#include "scene/base/SC_Id.h"
#include "scene/storage/LoadReport_p.h"

#include <QString>

#include <vector>

class ElementAttributes;
class MO_Node;
class SC_ProjectCommon;
class TUTimedValue;

/// Makes the links of a project: parents, sources of ports, and the nodes that timed values drive.
///
/// A link may lead to a node that the file tells later, so they are made when all nodes are there. A
/// link that leads nowhere is left out.
class NetworkLoader
{
public:
    explicit NetworkLoader(LoadReport &report) : m_report(report) {}

    /// A node as it stands in the file, with the links that its element tells.
    void addNode(MO_Node *node, const SC_Id &scene, const ElementAttributes &attributes);
    /// A timed value drives a node.
    void addLink(TUTimedValue *timedValue, const SC_Id &scene, const ElementAttributes &attributes);

    /// All scenes of @p project are there.
    void finish(const SC_ProjectCommon &project);

private:
    struct Numbered {
        qint64 scene;
        qint64 number;
        MO_Node *node;
        FilePlace place;
    };
    struct Link {
        MO_Node *node;
        TUTimedValue *timedValue;
        qint64 scene;
        qint64 number;
        FilePlace place;
    };

    void tellDoubled();
    MO_Node *find(qint64 scene, qint64 number) const;
    MO_Node *plainRootOf(qint64 scene) const;
    void linkParents();
    void linkSources();
    void linkTimedValues();
    void refuse(const Link &link, const QString &what);

    LoadReport &m_report;
    const SC_ProjectCommon *m_project = nullptr;
    std::vector<Numbered> m_nodes;
    std::vector<Link> m_parents;
    std::vector<Link> m_sources;
    std::vector<Link> m_links;
};
