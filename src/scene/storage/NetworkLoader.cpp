#include "scene/storage/NetworkLoader_p.h"

#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_Port.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/TUScene.h"
#include "scene/storage/ElementAttributes_p.h"
#include "scene/storage/ProjectFileKeys_p.h"
#include "scene/timeline/TUTimedValue.h"

#include <QHash>

#include <algorithm>
#include <tuple>

namespace keys = ProjectFileKeys;

namespace
{

// Each link to a parent goes all the way up, to find no circle.
constexpr int parentLimit = 1000;

/// How deep each node would stand below its told parents; more than the limit for what stands in a circle.
class Depths
{
public:
    explicit Depths(const QHash<const MO_Node *, MO_Node *> &parents) : m_parents(parents) {}

    int of(const MO_Node *node)
    {
        std::vector<const MO_Node *> path;
        int depth = 0;
        for (const MO_Node *above = node; above; above = m_parents.value(above)) {
            const auto known = m_depths.constFind(above);
            if (known != m_depths.cend()) {
                depth = *known + 1;
                break;
            }
            // Met again on this very path, it closes a circle.
            m_depths.insert(above, parentLimit + 1);
            path.push_back(above);
        }
        for (auto above = path.rbegin(); above != path.rend(); ++above)
            m_depths.insert(*above, depth = std::min(depth, parentLimit + 1)), ++depth;
        return m_depths.value(node);
    }

private:
    const QHash<const MO_Node *, MO_Node *> &m_parents;
    QHash<const MO_Node *, int> m_depths;
};

} // namespace

void NetworkLoader::addNode(MO_Node *node, const SC_Id &scene, const ElementAttributes &attributes)
{
    const auto number = attributes.findNumber(keys::number);
    if (number)
        m_nodes.push_back({scene.value(), *number, node, attributes.place()});
    else
        m_report.warn(attributes.place(), QStringLiteral("node"), QStringLiteral("it has no number; no link finds it"));

    const auto link = [&](const QString &key, qint64 inScene) {
        return Link{node, nullptr, inScene, attributes.findNumber(key).value_or(0), attributes.place()};
    };
    if (attributes.has(keys::parent))
        m_parents.push_back(link(keys::parent, scene.value()));
    if (attributes.has(keys::source)) {
        const bool isElsewhere = attributes.has(keys::sourceScene);
        const SC_Id sourceScene = isElsewhere ? attributes.findId(keys::sourceScene).value_or(SC_Id()) : scene;
        m_sources.push_back(link(keys::source, sourceScene.value()));
    }
}

void NetworkLoader::addLink(TUTimedValue *timedValue, const SC_Id &scene, const ElementAttributes &attributes)
{
    const bool isElsewhere = attributes.has(keys::scene);
    const SC_Id nodeScene = isElsewhere ? attributes.findId(keys::scene).value_or(SC_Id()) : scene;
    const qint64 number = attributes.findNumber(keys::node).value_or(0);
    m_links.push_back({nullptr, timedValue, nodeScene.value(), number, attributes.place()});
}

void NetworkLoader::finish(const SC_ProjectCommon &project)
{
    m_project = &project;
    const auto standsBefore = [](const Numbered &a, const Numbered &b) {
        return std::tie(a.scene, a.number) < std::tie(b.scene, b.number);
    };
    // Stable: of two nodes with one number the first keeps it.
    std::stable_sort(m_nodes.begin(), m_nodes.end(), standsBefore);
    tellDoubled();
    linkParents();
    linkSources();
    linkTimedValues();
}

void NetworkLoader::tellDoubled()
{
    for (std::size_t i = 1; i < m_nodes.size(); ++i) {
        const Numbered &node = m_nodes[i];
        if (std::tie(node.scene, node.number) == std::tie(m_nodes[i - 1].scene, m_nodes[i - 1].number))
            m_report.warn(node.place, QStringLiteral("node \"%1\"").arg(node.node->instanceName()),
                QStringLiteral("its number %1 is that of another node; no link finds it").arg(node.number));
    }
}

MO_Node *NetworkLoader::find(qint64 scene, qint64 number) const
{
    const auto place = std::lower_bound(m_nodes.begin(), m_nodes.end(), std::tie(scene, number),
        [](const Numbered &node, const auto &key) { return std::tie(node.scene, node.number) < key; });
    if (place != m_nodes.end() && place->scene == scene && place->number == number)
        return place->node;
    return number == 1 ? plainRootOf(scene) : nullptr;
}

/// The root group of a scene of whose nodes the file says nothing.
MO_Node *NetworkLoader::plainRootOf(qint64 scene) const
{
    const auto *const holder = dynamic_cast<const TUScene *>(m_project->sceneManager()->find(SC_Id(scene)));
    MO_Node *const root = holder ? holder->getRootGroup() : nullptr;
    auto told = std::lower_bound(
        m_nodes.begin(), m_nodes.end(), scene, [](const Numbered &node, qint64 key) { return node.scene < key; });
    while (told != m_nodes.end() && told->scene == scene && told->node != root)
        ++told;
    const bool isTold = told != m_nodes.end() && told->scene == scene;
    return isTold ? nullptr : root;
}

void NetworkLoader::linkParents()
{
    QHash<const MO_Node *, MO_Node *> parents;
    for (const Link &link : m_parents) {
        if (MO_Node *parent = find(link.scene, link.number))
            parents.insert(link.node, parent);
    }
    Depths depths(parents);
    for (const Link &link : m_parents) {
        MO_Node *const parent = parents.value(link.node);
        if (!parent || depths.of(link.node) > parentLimit || !link.node->setParentNode(parent))
            refuse(link, QStringLiteral("parent"));
    }
}

void NetworkLoader::linkSources()
{
    // A parent feeds its child at once; the file has the last word.
    for (const Link &link : m_parents) {
        if (MO_Port *port = link.node->inPort(0))
            port->disconnect();
    }
    for (const Link &link : m_sources) {
        MO_Node *const source = find(link.scene, link.number);
        MO_Port *const port = link.node->inPort(0);
        if (!source || !port || !source->outPort() || !port->connect(source->outPort()))
            refuse(link, QStringLiteral("source"));
    }
}

void NetworkLoader::linkTimedValues()
{
    for (const Link &link : m_links) {
        auto *const element = dynamic_cast<MO_ElementModule *>(find(link.scene, link.number));
        const bool isDriven = element && element->drawingAttr() && element->drawingAttr()->linkedTimedValue();
        if (!element || isDriven || !link.timedValue->linkNode(element))
            refuse(link, QStringLiteral("driven element"));
    }
}

void NetworkLoader::refuse(const Link &link, const QString &what)
{
    const QString item =
        link.node ? link.node->instanceName() : QStringLiteral("\"%1\"").arg(link.timedValue->getName());
    m_report.warn(link.place, item, QStringLiteral("left out: the link to its %1 leads to no fitting node").arg(what));
}
