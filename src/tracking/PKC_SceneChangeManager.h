#pragma once

#include "plotka_export.h"
#include "scene/changes/TUSceneChangeManager.h"
#include "tracking/PKC_TransitionSequenceSet.h"

#include <QString>

#include <memory>

class AT_TransitionSeq;

/// Adds the storyboard's own news to that of the scenes.
///
/// An `emit...` call only queues. notify() sends the scenes' signals first and then these eight, in the
/// order in which they are declared. clear() drops all that is queued and sends nothing.
class PLOTKA_EXPORT PKC_SceneChangeManager : public TUSceneChangeManager
{
    Q_OBJECT
public:
    PKC_SceneChangeManager();
    ~PKC_SceneChangeManager() override;

    void clear() override;

    /// @name Queueing
    /// Each kind is sent once, however often it was queued, except that every export range is sent,
    /// equal ones too, in the order in which they were queued. What a receiver queues is sent at the
    /// next notify() when it is of a kind that has gone out already; an export range queued while
    /// export ranges are sent goes out among them, and a transition queued while transitions are
    /// sent is lost.
    /// @{
    void emitSceneResized();
    void emitExportRangeChanged(const QString &range);
    void emitCameraKeyframeSelectionChanged();
    void emitProjectUnloaded();
    void emitExternalPanelsDrop();
    void emitShotCollapsedUncollapsed();
    void emitVideoTrackSelectionChanged();
    /// Null is ignored.
    void emitTransitionChanged(AT_TransitionSeq *transition);
    /// @}

Q_SIGNALS:
    void sceneResized();
    void exportRangeChanged(const QString &);
    void cameraKeyframeSelectionChanged();
    void projectUnloaded();
    void externalPanelsDrop();
    void shotCollapsedUncollapsed();
    void videoTrackSelectionChanged();
    void transitionChanged(const PKC_TransitionSequenceSet &);

protected:
    void sendSignals() override;

private:
    struct News;
    std::unique_ptr<News> m_news;
};
