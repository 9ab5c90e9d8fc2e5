#include "scene/changes/TUSceneChangeManager.h"

#include "scene/base/UT_SharedPtr.h"
#include "scene/metadata/PIO_Metadata.h"
#include "scene/network/MO_Node.h"
#include "scene/timeline/TUTimedValue.h"

#include <limits>
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

} // namespace

TUSceneChangeManager::TUSceneChangeManager() : m_queue(std::make_unique<Queue>()) {}

/// Puts a value into a member of the manager, and null or false back in the end, also when a receiver throws; not
/// when the manager has died.
template <typename T>
class TUSceneChangeManager::Mark
{
public:
    Mark(TUSceneChangeManager *manager, T TUSceneChangeManager::*member, T value) : m_manager(manager), m_member(member)
    {
        manager->*member = value;
    }
    Mark(const Mark &) = delete;
    Mark &operator=(const Mark &) = delete;
    ~Mark()
    {
        if (m_manager)
            m_manager->*m_member = T();
    }

private:
    QPointer<TUSceneChangeManager> m_manager;
    T TUSceneChangeManager::*m_member;
};

// Who still reads the news can no longer be told of the deaths of its records.
TUSceneChangeManager::~TUSceneChangeManager()
{
    if (!m_metadataBeingSent)
        return;
    for (const PIO_MetaModif &modif : *m_metadataBeingSent)
        modif.m_metadata = nullptr;
}

void TUSceneChangeManager::notify()
{
    if (m_notifying) {
        m_furtherPass = true;
        return;
    }
    const QPointer<TUSceneChangeManager> alive(this);
    const Mark<bool> notifying(this, &TUSceneChangeManager::m_notifying, true);
    m_furtherPass = false;
    runPass();
    if (alive && std::exchange(m_furtherPass, false))
        runPass();
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
    using Manager = TUSceneChangeManager;
    const QPointer<Manager> alive(this);
    if (std::exchange(m_queue->sceneChanged, false))
        Q_EMIT sceneChanged();
    send(alive, &Queue::timedValuesAdded, &Manager::timedValuesAdded);
    send(alive, &Queue::timedValuesRemoved, &Manager::timedValuesRemoved);
    send(alive, &Queue::timedValuesChanged, &Manager::timedValuesChanged);
    send(alive, &Queue::timedValueNamesChanged, &Manager::timedValueNamesChanged);
    if (alive)
        m_networkPending = false;
    send(alive, &Queue::nodesChanged, &Manager::nodesChanged);
    send(alive, &Queue::networkChanged, &Manager::networkChanged);
    send(alive, &Queue::subNetworkChanged, &Manager::subNetworkChanged);
    send(alive, &Queue::childrenOrderingChanged, &Manager::childrenOrderingChanged);
    send(alive, &Queue::nodeLinksChanged, &Manager::nodeLinksChanged);
    send(alive, &Queue::nodeInstanceNamesChanged, &Manager::nodeInstanceNamesChanged);
    sendNodeChangesApplied(alive);
    sendMetadataChanged(alive);
    if (alive && std::exchange(m_queue->selectionChanged, false))
        Q_EMIT selectionChanged();
}

template <typename Set>
void TUSceneChangeManager::send(const QPointer<TUSceneChangeManager> &manager, Set Queue::*queued,
    void (TUSceneChangeManager::*signal)(const Set &))
{
    const Set taken = manager ? std::exchange(manager->m_queue.get()->*queued, Set()) : Set();
    if (!taken.empty())
        Q_EMIT(manager->*signal)(taken);
}

void TUSceneChangeManager::sendNodeChangesApplied(const QPointer<TUSceneChangeManager> &manager)
{
    const TUNodeSet taken = manager ? std::exchange(manager->m_queue->nodeChangesApplied, TUNodeSet()) : TUNodeSet();
    for (const UT_SharedWeakPtr<MO_Node> &watched : taken) {
        MO_Node *const node = watched.get();
        if (!manager || !node)
            continue;
        // One receiver may drop the node that the next is told of. What nobody counts is not ours to delete.
        const UT_SharedPtr<MO_Node> held(node->refCount > 0 ? node : nullptr);
        Q_EMIT manager->nodeChangeApplied(node);
    }
}

void TUSceneChangeManager::sendMetadataChanged(const QPointer<TUSceneChangeManager> &manager)
{
    const TUMetadataSet taken =
        manager ? std::exchange(manager->m_queue->metadataChanged, TUMetadataSet()) : TUMetadataSet();
    if (taken.empty())
        return;
    const Mark<const TUMetadataSet *> sending(manager, &TUSceneChangeManager::m_metadataBeingSent, &taken);
    Q_EMIT manager->metadataChanged(taken);
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
    // The record has to know whom to tell of its death, so what is new here goes through the record as well; the
    // second time round nothing is new.
    if (metadata && m_queue->metadataChanged.insert(PIO_MetaModif(metadata, changeCode)).second)
        metadata->emitChanged(this, changeCode);
}

void TUSceneChangeManager::emitSelectionChanged()
{
    m_queue->selectionChanged = true;
}

void TUSceneChangeManager::forgetMetadata(const PIO_Metadata *metadata)
{
    const PIO_MetaModif first(const_cast<PIO_Metadata *>(metadata), std::numeric_limits<int>::min());
    TUMetadataSet &queued = m_queue->metadataChanged;
    for (auto it = queued.lower_bound(first); it != queued.end() && it->metadata() == metadata;)
        it = queued.erase(it);
    // A receiver may be walking over this one.
    if (!m_metadataBeingSent)
        return;
    for (auto it = m_metadataBeingSent->lower_bound(first); it != m_metadataBeingSent->end() && it->m_place == metadata;
         ++it)
        it->m_metadata = nullptr;
}
