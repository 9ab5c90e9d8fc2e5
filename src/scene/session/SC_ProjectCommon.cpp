#include "scene/session/SC_ProjectCommon.h"

#include "scene/changes/TUSceneChangeManager.h"

#include <algorithm>

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
    if (m_nextId == idLimit)
        return SC_Id();
    return SC_Id(m_nextId++);
}

void SC_ProjectCommon::reserveId(const SC_Id &id)
{
    m_nextId = std::max(m_nextId, std::min(id.value(), idLimit - 1) + 1);
}

bool SC_ProjectCommon::isFree(const SC_Id &id) const
{
    return id.value() > 0 && id.value() < idLimit && !m_owners.contains(id.value());
}

SC_ProjectCommon::Claim SC_ProjectCommon::claimOf(const SC_Id &objectId, const SC_Id &sceneId) const
{
    if (objectId == sceneId && !objectId.isNull())
        return Foreign;
    Claim claim = Free;
    for (const SC_Id &id : {objectId, sceneId}) {
        if (id.value() < 0 || id.value() >= idLimit)
            return Foreign;
        const auto owner = m_owners.constFind(id.value());
        if (owner == m_owners.cend())
            continue;
        if (owner->objectId != objectId || (!sceneId.isNull() && owner->sceneId != sceneId))
            return Foreign;
        if (owner->isPlaced)
            claim = Placed;
    }
    return claim;
}

void SC_ProjectCommon::setPlaced(const SC_Id &objectId, const SC_Id &sceneId, bool placed)
{
    for (const SC_Id &id : {objectId, sceneId}) {
        if (id.isNull())
            continue;
        Owner &owner = m_owners[id.value()];
        owner = {objectId, sceneId.isNull() ? owner.sceneId : sceneId, owner.isScene, placed};
        if (!owner.isScene && !owner.isPlaced)
            m_owners.remove(id.value());
        reserveId(id);
    }
}

bool SC_ProjectCommon::takeForScene(const SC_Id &objectId, const SC_Id &sceneId)
{
    if (objectId.isNull() || sceneId.isNull() || claimOf(objectId, sceneId) == Foreign
        || m_owners.value(objectId.value()).isScene)
        return false;
    for (const SC_Id &id : {objectId, sceneId}) {
        Owner &owner = m_owners[id.value()];
        owner = {objectId, sceneId, /*isScene*/ true, owner.isPlaced}; // a block may have come before its scene
        reserveId(id);
    }
    return true;
}
