#pragma once

#include "plotka_scene_export.h"
#include "scene/changes/TUChangeSets.h"

#include <QObject>
#include <QPointer>

#include <memory>

class PIO_Metadata;

/// Collects what changes while a command runs and tells it at notify().
///
/// An `emit...` call only queues. notify() sends each kind of news once, after everything it speaks of
/// is true, in the order in which the signals are declared; endOfNotify() closes the pass, also when
/// nothing was queued. A set is taken out before it is sent: what a receiver queues for a signal
/// that has gone out already waits for the next notify(). A notify() inside a notify() is
/// remembered: one further pass runs after the current one, however often it was asked for.
/// A receiver may delete what the news is about, and the manager too: what is left is then not sent.
class PLOTKA_SCENE_EXPORT TUSceneChangeManager : public QObject
{
    Q_OBJECT
public:
    TUSceneChangeManager();
    ~TUSceneChangeManager() override;

    void notify();

    /// Drops everything queued and sends nothing.
    virtual void clear();

    /// @name Queueing
    /// Null arguments are ignored.
    /// @{
    void emitSceneChanged();
    void emitTimedValueAdded(TUTimedValue *timedValue);
    void emitTimedValueRemoved(TUTimedValue *timedValue);
    void emitTimedValueChanged(TUTimedValue *timedValue);
    void emitTimedValueNameChanged(TUTimedValue *timedValue);
    void emitNodeChanged(MO_Node *node);
    void emitNetworkChanged(MO_Node *node);
    void emitSubNetworkChanged(MO_Node *group);
    void emitChildrenOrderingChanged(MO_Node *node);
    void emitNodeLinksChanged(MO_Node *node);
    void emitNodeInstanceNameChanged(MO_Node *node);
    void emitNodeChangeApplied(MO_Node *node);
    void emitMetadataChanged(PIO_Metadata *metadata, int changeCode);
    void emitSelectionChanged();
    /// @}

    /// Takes back what is queued about a record that is about to die, and blanks the record in what is
    /// being sent. Records that have been queued call it by themselves.
    void forgetMetadata(const PIO_Metadata *metadata);

Q_SIGNALS:
    void sceneChanged();
    void timedValuesAdded(const TUTvSet &);
    void timedValuesRemoved(const TUTvSet &);
    void timedValuesChanged(const TUTvSet &);
    void timedValueNamesChanged(const TUTvSet &);
    void nodesChanged(const TUNodeSet &);
    void networkChanged(const TUNodeSet &);
    void subNetworkChanged(const TUNodeSet &);
    void childrenOrderingChanged(const TUNodeSet &);
    void nodeLinksChanged(const TUNodeSet &);
    void nodeInstanceNamesChanged(const TUNodeSet &);
    /// Once per node; a node that has died meanwhile is skipped.
    void nodeChangeApplied(MO_Node *);
    void metadataChanged(const TUMetadataSet &);
    void selectionChanged();
    void endOfNotify();

protected:
    /// Sends all that is queued. Called by notify(), which itself emits endOfNotify() afterwards, so
    /// that a derived manager's own signals come in between.
    virtual void sendSignals();

    /// A derived sendSignals() calls this first: marks the network as pending when changed nodes are queued.
    void markPendingBeforeSend();
    /// True from then on until changed nodes are sent.
    bool isNetworkPending() const { return m_networkPending; }

private:
    struct Queue;
    template <typename T>
    class Mark;

    void runPass();
    /// Takes the set out of the queue, then sends it; an empty set sends nothing, and so does a manager that has died.
    template <typename Set>
    static void send(const QPointer<TUSceneChangeManager> &manager, Set Queue::*queued,
        void (TUSceneChangeManager::*signal)(const Set &));
    static void sendNodeChangesApplied(const QPointer<TUSceneChangeManager> &manager);
    static void sendMetadataChanged(const QPointer<TUSceneChangeManager> &manager);

    std::unique_ptr<Queue> m_queue;
    const TUMetadataSet *m_metadataBeingSent = nullptr;
    bool m_notifying = false;
    bool m_furtherPass = false;
    bool m_networkPending = false;
};
