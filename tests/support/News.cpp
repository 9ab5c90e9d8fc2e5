#include "support/News.h"

#include "scene/metadata/PIO_Metadata.h"
#include "scene/network/MO_Node.h"
#include "scene/timeline/TUTimedValue.h"

#include <set>
#include <utility>

namespace
{

std::string nameOf(const UT_SharedWeakPtr<TUTimedValue> &timedValue)
{
    return timedValue ? timedValue->getName().toStdString() : "dead";
}

std::string nameOf(const UT_SharedWeakPtr<MO_Node> &node)
{
    return node ? node->instanceName().toStdString() : "dead";
}

std::string nameOf(const PIO_MetaModif &modif)
{
    const std::string record = modif.metadata() ? modif.metadata()->metaName().toStdString() : "dead";
    return record + ":" + std::to_string(modif.changeCode());
}

template <typename Set>
std::string namesOf(const Set &set)
{
    std::multiset<std::string> names;
    for (const auto &member : set)
        names.insert(nameOf(member));
    std::string text;
    for (const std::string &name : names)
        text += (text.empty() ? "{" : " ") + name;
    return text + "}";
}

} // namespace

News::News(TUSceneChangeManager &manager) : m_manager(manager)
{
    using M = TUSceneChangeManager;
    const auto hearTimedValues = [&](void (M::*signal)(const TUTvSet &), const char *name) {
        connect(&manager, signal, this, [this, name](const TUTvSet &set) { add(name + namesOf(set)); });
    };
    const auto hearNodes = [&](void (M::*signal)(const TUNodeSet &), const char *name) {
        connect(&manager, signal, this, [this, name](const TUNodeSet &set) { add(name + namesOf(set)); });
    };
    connect(&manager, &M::sceneChanged, this, [this] { add("sceneChanged"); });
    hearTimedValues(&M::timedValuesAdded, "timedValuesAdded");
    hearTimedValues(&M::timedValuesRemoved, "timedValuesRemoved");
    hearTimedValues(&M::timedValuesChanged, "timedValuesChanged");
    hearTimedValues(&M::timedValueNamesChanged, "timedValueNamesChanged");
    hearNodes(&M::nodesChanged, "nodesChanged");
    hearNodes(&M::networkChanged, "networkChanged");
    hearNodes(&M::subNetworkChanged, "subNetworkChanged");
    hearNodes(&M::childrenOrderingChanged, "childrenOrderingChanged");
    hearNodes(&M::nodeLinksChanged, "nodeLinksChanged");
    hearNodes(&M::nodeInstanceNamesChanged, "nodeInstanceNamesChanged");
    connect(&manager, &M::nodeChangeApplied, this,
        [this](MO_Node *node) { add("nodeChangeApplied{" + node->instanceName().toStdString() + "}"); });
    connect(&manager, &M::metadataChanged, this,
        [this](const TUMetadataSet &set) { add("metadataChanged" + namesOf(set)); });
    connect(&manager, &M::selectionChanged, this, [this] { add("selectionChanged"); });
    connect(&manager, &M::endOfNotify, this, [this] { add("endOfNotify"); });
}

std::string News::told()
{
    m_heard.clear();
    m_manager.notify();
    const std::string pass = heard();
    const std::string end = "endOfNotify";
    if (pass == end)
        return "";
    const std::size_t place = pass.find(" " + end);
    if (place == std::string::npos || place + 1 + end.size() != pass.size())
        return "not one closed pass: " + pass;
    return pass.substr(0, place);
}

std::string News::heard()
{
    return std::exchange(m_heard, std::string());
}

void News::add(const std::string &signal)
{
    m_heard += (m_heard.empty() ? "" : " ") + signal;
}
