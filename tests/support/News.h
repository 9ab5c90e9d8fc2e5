#pragma once

#include "scene/changes/TUSceneChangeManager.h"

#include <QObject>

#include <string>

/// Hears every signal of a change manager and tells them as text, in the order in which they came:
///
///     "sceneChanged timedValuesChanged{Storyboard} nodeChangeApplied{A} nodeChangeApplied{B}"
///
/// Sets show names in alphabetical order, records as name:code, what has died as "dead".
class News : public QObject
{
public:
    explicit News(TUSceneChangeManager &manager);

    /// Sends what is queued and tells it. A pass that is not closed by exactly one endOfNotify is told as such.
    std::string told();
    /// All heard since the last call, endOfNotify included.
    std::string heard();

private:
    void add(const std::string &signal);

    TUSceneChangeManager &m_manager;
    std::string m_heard;
};
