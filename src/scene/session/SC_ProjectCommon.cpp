#include "scene/session/SC_ProjectCommon.h"

#include "scene/changes/TUSceneChangeManager.h"

#include <algorithm>
#include <limits>

SC_ProjectCommon::SC_ProjectCommon(const QString &projectDir, const QString &sceneName) :
    m_dbSceneData(projectDir, sceneName)
{
}

SC_ProjectCommon::~SC_ProjectCommon() = default;

void SC_ProjectCommon::setChangeManager(TUSceneChangeManager *manager)
{
    m_changeManager = manager;
}

SC_Id SC_ProjectCommon::createId()
{
    const SC_Id id(m_nextId);
    reserveId(id);
    return id;
}

void SC_ProjectCommon::reserveId(const SC_Id &id)
{
    constexpr qint64 last = std::numeric_limits<qint64>::max();
    m_nextId = std::max(m_nextId, id.value() == last ? last : id.value() + 1);
}

void SC_ProjectCommon::setPlaced(const SC_Id &id, bool placed)
{
    if (id.isNull())
        return;
    if (placed)
        m_placed.insert(id.value());
    else
        m_placed.remove(id.value());
}
