#include "scene/project/TUScene.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <algorithm>
#include <utility>

TUScene::TUScene(SC_ProjectCommon *projectCommon, SC_Id objectId, SC_Id sceneId) :
    m_objectId(objectId), m_sceneId(sceneId), m_sceneCommon(this, projectCommon),
    m_rootGroup(new TUGroup(&m_sceneCommon, rootName()))
{
}

TUScene::~TUScene()
{
    // Whoever is reached from here, the destructor of a record for one, finds no scene any more.
    forgetWatchers();
    UT_Edition::advanceByDeath(); // also when nobody watched it, but found it by its id
    for (TUTimedValue *timedValue : std::exchange(m_timedValues, {}))
        delete timedValue;
}

QString TUScene::rootName()
{
    return QStringLiteral("Top");
}

TUGroup *TUScene::getRootGroup() const
{
    return m_rootGroup.get();
}

MO_UnconnectedCompositeModule *TUScene::unconnectedComposite() const
{
    return m_unconnectedComposite.get();
}

template <typename T>
T *TUScene::addTimedValue(const QString &name)
{
    T *const timedValue = new T(&m_sceneCommon, name);
    m_timedValues.push_back(timedValue);
    if (TUSceneChangeManager *changes = projectCommon()->changeManager()) {
        changes->emitTimedValueAdded(timedValue);
        changes->emitSceneChanged();
    }
    return timedValue;
}

TUSeqTimedValue *TUScene::addSeqTimedValue(const QString &name)
{
    return addTimedValue<TUSeqTimedValue>(name);
}

TUSoundTimedValue *TUScene::addSoundTimedValue(const QString &name)
{
    return addTimedValue<TUSoundTimedValue>(name);
}

bool TUScene::removeTimedValue(TUTimedValue *timedValue)
{
    const auto place = std::find(m_timedValues.begin(), m_timedValues.end(), timedValue);
    if (place == m_timedValues.end())
        return false;
    if (TUSceneChangeManager *changes = projectCommon()->changeManager()) {
        changes->emitTimedValueRemoved(timedValue);
        changes->emitSceneChanged();
    }
    m_timedValues.erase(place);
    delete timedValue;
    return true;
}

bool TUScene::moveTimedValue(TUTimedValue *timedValue, TUTimedValue *before)
{
    const auto from = std::find(m_timedValues.begin(), m_timedValues.end(), timedValue);
    const auto to = std::find(m_timedValues.begin(), m_timedValues.end(), before);
    if (from == m_timedValues.end() || (before && to == m_timedValues.end()) || from == to || std::next(from) == to)
        return false;
    if (from < to)
        std::rotate(from, std::next(from), to);
    else
        std::rotate(to, from, std::next(from));
    if (TUSceneChangeManager *changes = projectCommon()->changeManager())
        changes->emitSceneChanged();
    return true;
}

MO_UnconnectedCompositeModule *TUScene::addUnconnectedComposite()
{
    if (!m_unconnectedComposite)
        m_unconnectedComposite = new MO_UnconnectedCompositeModule(&m_sceneCommon);
    return m_unconnectedComposite.get();
}
