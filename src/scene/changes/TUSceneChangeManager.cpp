#include "scene/changes/TUSceneChangeManager.h"

#include "scene/network/MO_Node.h"
#include "scene/timeline/TUTimedValue.h"

#include <QPointer>

#include <utility>

struct TUSceneChangeManager::Queue {
    bool sceneChanged = false;
    bool selectionChanged = false;
    TUTvSet timedValuesAdded;
    TUTvSet timedValuesRemoved;
    TUTvSet timedValuesChanged;
    TUTvSet timedValueNamesChanged;
    TUNodeSet nodesChanged;
    TUNodeSet networkChanged;
    TUNodeSet subNetworkChanged;
    TUNodeSet childrenOrderingChanged;
    TUNodeSet nodeLinksChanged;
    TUNodeSet nodeInstanceNamesChanged;
    TUNodeSet nodeChangesApplied;
    TUMetadataSet metadataChanged;
};

namespace
{

template <typename T>
void include(TUChangeSet<UT_SharedWeakPtr<T>> &set, T *changed)
{
    if (changed)
        set.insert(UT_SharedWeakPtr<T>(changed));
}

/// Takes the set out of the queue, then sends it; an empty set sends nothing.
template <typename Set, typename Send>
void sendSet(Set &queued, Send send)
{
    const Set taken = std::exchange(queued, Set());
    if (!taken.empty())
        send(taken);
}

} // namespace

TUSceneChangeManager::TUSceneChangeManager() : m_queue(std::make_unique<Queue>()) {}

TUSceneChangeManager::~TUSceneChangeManager() = default;

void TUSceneChangeManager::notify()
{
    if (m_notifying) {
        m_furtherPass = true;
        return;
    }
    const QPointer<TUSceneChangeManager> alive(this);
    m_notifying = true;
    m_furtherPass = false;
    runPass();
    if (alive && std::exchange(m_furtherPass, false))
        runPass();
    if (alive)
        m_notifying = false;
}

void TUSceneChangeManager::runPass()
{
    const QPointer<TUSceneChangeManager> alive(this);
    sendSignals();
    if (alive)
        Q_EMIT endOfNotify();
}

void TUSceneChangeManager::clear()
{
    *m_queue = Queue();
    m_networkPending = false;
}

void TUSceneChangeManager::markPendingBeforeSend()
{
    if (!m_queue->nodesChanged.empty())
        m_networkPending = true;
}

void TUSceneChangeManager::sendSignals()
{
    // What answers from the timeline drops its caches first: the slots of node signals look nodes up there.
    if (std::exchange(m_queue->sceneChanged, false))
        Q_EMIT sceneChanged();
    sendSet(m_queue->timedValuesAdded, [this](const TUTvSet &set) { Q_EMIT timedValuesAdded(set); });
    sendSet(m_queue->timedValuesRemoved, [this](const TUTvSet &set) { Q_EMIT timedValuesRemoved(set); });
    sendSet(m_queue->timedValuesChanged, [this](const TUTvSet &set) { Q_EMIT timedValuesChanged(set); });
    sendSet(m_queue->timedValueNamesChanged, [this](const TUTvSet &set) { Q_EMIT timedValueNamesChanged(set); });
    m_networkPending = false;
    sendSet(m_queue->nodesChanged, [this](const TUNodeSet &set) { Q_EMIT nodesChanged(set); });
    sendSet(m_queue->networkChanged, [this](const TUNodeSet &set) { Q_EMIT networkChanged(set); });
    sendSet(m_queue->subNetworkChanged, [this](const TUNodeSet &set) { Q_EMIT subNetworkChanged(set); });
    sendSet(m_queue->childrenOrderingChanged, [this](const TUNodeSet &set) { Q_EMIT childrenOrderingChanged(set); });
    sendSet(m_queue->nodeLinksChanged, [this](const TUNodeSet &set) { Q_EMIT nodeLinksChanged(set); });
    sendSet(m_queue->nodeInstanceNamesChanged, [this](const TUNodeSet &set) { Q_EMIT nodeInstanceNamesChanged(set); });
    sendSet(m_queue->nodeChangesApplied, [this](const TUNodeSet &set) {
        for (const UT_SharedWeakPtr<MO_Node> &node : set) {
            if (node)
                Q_EMIT nodeChangeApplied(node.get());
        }
    });
    sendSet(m_queue->metadataChanged, [this](const TUMetadataSet &set) { Q_EMIT metadataChanged(set); });
    if (std::exchange(m_queue->selectionChanged, false))
        Q_EMIT selectionChanged();
}

void TUSceneChangeManager::emitSceneChanged()
{
    m_queue->sceneChanged = true;
}

void TUSceneChangeManager::emitTimedValueAdded(TUTimedValue *timedValue)
{
    include(m_queue->timedValuesAdded, timedValue);
}

void TUSceneChangeManager::emitTimedValueRemoved(TUTimedValue *timedValue)
{
    include(m_queue->timedValuesRemoved, timedValue);
}

void TUSceneChangeManager::emitTimedValueChanged(TUTimedValue *timedValue)
{
    include(m_queue->timedValuesChanged, timedValue);
}

void TUSceneChangeManager::emitTimedValueNameChanged(TUTimedValue *timedValue)
{
    include(m_queue->timedValueNamesChanged, timedValue);
}

void TUSceneChangeManager::emitNodeChanged(MO_Node *node)
{
    include(m_queue->nodesChanged, node);
}

void TUSceneChangeManager::emitNetworkChanged(MO_Node *node)
{
    include(m_queue->networkChanged, node);
}

void TUSceneChangeManager::emitSubNetworkChanged(MO_Node *group)
{
    include(m_queue->subNetworkChanged, group);
}

void TUSceneChangeManager::emitChildrenOrderingChanged(MO_Node *node)
{
    include(m_queue->childrenOrderingChanged, node);
}

void TUSceneChangeManager::emitNodeLinksChanged(MO_Node *node)
{
    include(m_queue->nodeLinksChanged, node);
}

void TUSceneChangeManager::emitNodeInstanceNameChanged(MO_Node *node)
{
    include(m_queue->nodeInstanceNamesChanged, node);
}

void TUSceneChangeManager::emitNodeChangeApplied(MO_Node *node)
{
    include(m_queue->nodeChangesApplied, node);
}

void TUSceneChangeManager::emitMetadataChanged(PIO_Metadata *metadata, int changeCode)
{
    if (metadata)
        m_queue->metadataChanged.insert(PIO_MetaModif(metadata, changeCode));
}

void TUSceneChangeManager::emitSelectionChanged()
{
    m_queue->selectionChanged = true;
}

void TUSceneChangeManager::forgetMetadata(const PIO_Metadata *metadata)
{
    TUMetadataSet &queued = m_queue->metadataChanged;
    for (auto it = queued.begin(); it != queued.end();)
        it = it->metadata() == metadata ? queued.erase(it) : std::next(it);
}
