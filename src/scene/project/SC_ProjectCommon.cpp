#include "scene/project/SC_ProjectCommon.h"

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
    return id.value() > 0 && id.value() < idLimit && !m_owners.find(id);
}

SC_ProjectCommon::Claim SC_ProjectCommon::claimOf(const SC_Id &objectId, const SC_Id &sceneId) const
{
    if (objectId == sceneId && !objectId.isNull())
        return Foreign;
    Claim claim = Free;
    for (const SC_Id &id : {objectId, sceneId}) {
        if (id.value() < 0 || id.value() >= idLimit)
            return Foreign;
        const Owner *const owner = m_owners.find(id);
        if (!owner)
            continue;
        if (owner->objectId != objectId || (!sceneId.isNull() && owner->sceneId != sceneId))
            return Foreign;
        if (owner->isPlaced)
            claim = Placed;
    }
    return claim;
}

void SC_ProjectCommon::setPlaced(const SC_Id &objectId, const SC_Id &sceneId, bool placed, const TUSeq *by)
{
    for (const SC_Id &id : {objectId, sceneId}) {
        if (id.isNull())
            continue;
        Owner &owner = m_owners[id];
        owner = {objectId, sceneId.isNull() ? owner.sceneId : sceneId, owner.isScene, placed, placed ? by : nullptr};
        if (!owner.isScene && !owner.isPlaced)
            m_owners.remove(id);
        reserveId(id);
    }
}

const TUSeq *SC_ProjectCommon::sequenceOf(const SC_Id &objectId) const
{
    const Owner *const owner = m_owners.find(objectId);
    return owner && owner->objectId == objectId ? owner->placedBy : nullptr;
}

bool SC_ProjectCommon::takeForScene(const SC_Id &objectId, const SC_Id &sceneId)
{
    if (objectId.isNull() || sceneId.isNull() || claimOf(objectId, sceneId) == Foreign)
        return false;
    if (const Owner *known = m_owners.find(objectId); known && known->isScene)
        return false;
    for (const SC_Id &id : {objectId, sceneId}) {
        Owner &owner = m_owners[id];
        owner = {objectId, sceneId, /*isScene*/ true, owner.isPlaced,
            owner.placedBy}; // a block may have come before its scene
        reserveId(id);
    }
    return true;
}
