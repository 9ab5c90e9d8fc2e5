#include "tracking/PKC_SceneChangeManager.h"

#include "scene/timeline/AT_TransitionSeq.h"

#include <QPointer>

#include <list>
#include <utility>

struct PKC_SceneChangeManager::News {
    bool sceneResized = false;
    bool cameraKeyframeSelectionChanged = false;
    bool projectUnloaded = false;
    bool externalPanelsDrop = false;
    bool shotCollapsedUncollapsed = false;
    bool videoTrackSelectionChanged = false;
    std::list<QString> exportRanges;
    PKC_TransitionSequenceSet transitions;
};

PKC_SceneChangeManager::PKC_SceneChangeManager() : m_news(std::make_unique<News>())
{
    qRegisterMetaType<PKC_TransitionSequenceSet>();
}

PKC_SceneChangeManager::~PKC_SceneChangeManager() = default;

void PKC_SceneChangeManager::clear()
{
    TUSceneChangeManager::clear();
    *m_news = News();
}

void PKC_SceneChangeManager::sendSignals()
{
    // Whoever hears that the project is unloaded may well delete this manager.
    const QPointer<PKC_SceneChangeManager> alive(this);
    const auto send = [&alive, this](bool News::*raised, void (PKC_SceneChangeManager::*signal)()) {
        if (alive && std::exchange((*m_news).*raised, false))
            Q_EMIT(this->*signal)();
    };

    markPendingBeforeSend();
    TUSceneChangeManager::sendSignals();
    send(&News::sceneResized, &PKC_SceneChangeManager::sceneResized);
    while (alive && !m_news->exportRanges.empty()) {
        const QString range = std::move(m_news->exportRanges.front());
        m_news->exportRanges.pop_front();
        Q_EMIT exportRangeChanged(range);
    }
    send(&News::cameraKeyframeSelectionChanged, &PKC_SceneChangeManager::cameraKeyframeSelectionChanged);
    send(&News::projectUnloaded, &PKC_SceneChangeManager::projectUnloaded);
    send(&News::externalPanelsDrop, &PKC_SceneChangeManager::externalPanelsDrop);
    send(&News::shotCollapsedUncollapsed, &PKC_SceneChangeManager::shotCollapsedUncollapsed);
    send(&News::videoTrackSelectionChanged, &PKC_SceneChangeManager::videoTrackSelectionChanged);
    if (!alive || m_news->transitions.empty())
        return;
    const PKC_TransitionSequenceSet changed = m_news->transitions;
    Q_EMIT transitionChanged(changed);
    // Together with what a receiver has just queued, or two receivers could keep each other busy for ever.
    if (alive)
        m_news->transitions.clear();
}

void PKC_SceneChangeManager::emitSceneResized()
{
    m_news->sceneResized = true;
}

void PKC_SceneChangeManager::emitExportRangeChanged(const QString &range)
{
    m_news->exportRanges.push_back(range);
}

void PKC_SceneChangeManager::emitCameraKeyframeSelectionChanged()
{
    m_news->cameraKeyframeSelectionChanged = true;
}

void PKC_SceneChangeManager::emitProjectUnloaded()
{
    m_news->projectUnloaded = true;
}

void PKC_SceneChangeManager::emitExternalPanelsDrop()
{
    m_news->externalPanelsDrop = true;
}

void PKC_SceneChangeManager::emitShotCollapsedUncollapsed()
{
    m_news->shotCollapsedUncollapsed = true;
}

void PKC_SceneChangeManager::emitVideoTrackSelectionChanged()
{
    m_news->videoTrackSelectionChanged = true;
}

void PKC_SceneChangeManager::emitTransitionChanged(AT_TransitionSeq *transition)
{
    if (transition)
        m_news->transitions.insert(UT_SharedWeakPtr<AT_TransitionSeq>(transition));
}
