#include "scene/session/SC_ProjectCommon.h"

#include "scene/changes/TUSceneChangeManager.h"

#include <algorithm>
#include <limits>

namespace
{

/// Never given out, so that the next number always fits.
constexpr qint64 lastNumber = std::numeric_limits<qint64>::max();

} // namespace

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
    if (m_nextId == lastNumber)
        return SC_Id();
    return SC_Id(m_nextId++);
}

void SC_ProjectCommon::reserveId(const SC_Id &id)
{
    m_nextId = std::max(m_nextId, id.value() == lastNumber ? lastNumber : id.value() + 1);
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
