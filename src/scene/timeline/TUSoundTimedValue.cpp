#include "scene/timeline/TUSoundTimedValue.h"

#include "scene/changes/TUSceneChangeManager.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/SC_SceneCommon.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <algorithm>

namespace
{

bool isRange(unsigned int fromFrame, unsigned int toFrame)
{
    return fromFrame >= 1 && fromFrame <= toFrame && toFrame <= TUSeqTimedValue::maxFrame;
}

} // namespace

TUSoundTimedValue::~TUSoundTimedValue()
{
    for (const Sound &sound : m_sounds)
        projectCommon()->setPlaced(sound.id, SC_Id(), false);
}

long TUSoundTimedValue::getEndFrame() const
{
    long end = 0;
    for (const Sound &sound : m_sounds)
        end = std::max(end, static_cast<long>(sound.toFrame));
    return end;
}

std::vector<SC_Id> TUSoundTimedValue::sequenceIds() const
{
    std::vector<SC_Id> ids;
    ids.reserve(m_sounds.size());
    for (const Sound &sound : m_sounds)
        ids.push_back(sound.id);
    return ids;
}

SC_Id TUSoundTimedValue::addSound(unsigned int fromFrame, unsigned int toFrame, const QString &name)
{
    if (!projectCommon() || !isRange(fromFrame, toFrame))
        return SC_Id();
    const Sound sound{projectCommon()->createId(), fromFrame, toFrame, name};
    return addSound(sound) ? sound.id : SC_Id();
}

bool TUSoundTimedValue::addSound(const Sound &sound)
{
    SC_ProjectCommon *const project = projectCommon();
    if (!project || !isRange(sound.fromFrame, sound.toFrame) || !project->isFree(sound.id))
        return false;
    m_sounds.push_back(sound);
    project->setPlaced(sound.id, SC_Id(), true);
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitTimedValueChanged(this);
    return true;
}

bool TUSoundTimedValue::removeSound(const SC_Id &id)
{
    const auto place =
        std::find_if(m_sounds.begin(), m_sounds.end(), [&id](const Sound &sound) { return sound.id == id; });
    if (place == m_sounds.end())
        return false;
    projectCommon()->setPlaced(place->id, SC_Id(), false);
    m_sounds.erase(place);
    if (TUSceneChangeManager *changes = changeManager())
        changes->emitTimedValueChanged(this);
    return true;
}
