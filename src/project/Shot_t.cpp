#include "project/Shot_t.h"

#include "project/BlockMapping_p.h"
#include "project/ObjectIds.h"
#include "project/SharedPtr_p.h"
#include "project/ShotPrivate_p.h"
#include "scene/base/UT_Numbers.h"
#include "scene/project/TUScene.h"

namespace Plotka
{

template class SharedPtr<ShotPrivate>;

ShotPrivate::ShotPrivate(
    const TUSeqTimedValue *owningTimedValue, const TUScene *shotScene, const ObjectNameHelper *helper) :
    ObjectPrivate(owningTimedValue, objectId(shotScene)),
    scene(shotScene), nameHelper(helper)
{
}

Shot_t::Shot_t() = default;

Shot_t::Shot_t(const TUSeqTimedValue *timedValue, const TUScene *scene, const ObjectNameHelper *nameHelper) :
    SharedPtr(new ShotPrivate(timedValue, scene, nameHelper))
{
}

Shot_t::Shot_t(const Shot_t &) = default;
Shot_t &Shot_t::operator=(const Shot_t &) = default;
Shot_t::~Shot_t() = default;

const SC_Id &Shot_t::id() const
{
    return object()->id;
}

SC_Id Shot_t::sceneId() const
{
    return sceneIdOf(frameBlock());
}

TUScene *Shot_t::symbol() const
{
    return object()->scene.get();
}

const AT_FrameBlock &Shot_t::frameBlock() const
{
    return object()->block();
}

unsigned int Shot_t::firstFrame() const
{
    return frameBlock().fromFrame();
}

unsigned int Shot_t::lastFrame() const
{
    return frameBlock().toFrame();
}

unsigned int Shot_t::objNumOfFrame() const
{
    return frameBlock().key.frameCount;
}

QString Shot_t::name() const
{
    const PKC_SceneInfo *info = sceneInfo();
    if (info && info->name().isCustom())
        return info->name().value();
    const ObjectNameHelper *helper = object()->nameHelper.get();
    return helper ? helper->getSceneName(*this) : QString();
}

QString Shot_t::sequenceName() const
{
    const PKC_SceneInfo *info = sceneInfo();
    return info && info->sequenceName().isCustom() ? info->sequenceName().value() : QString::number(0);
}

QString Shot_t::actName() const
{
    const PKC_SceneInfo *info = sceneInfo();
    return info && info->actName().isCustom() ? info->actName().value() : QString::number(0);
}

PKC_SceneInfo *Shot_t::sceneInfo() const
{
    const TUScene *scene = symbol();
    if (!scene)
        return nullptr;
    PIO_MetadataAccess<PKC_SceneInfo> &access = object()->sceneInfo;
    if (!access.container)
        access = PIO_MetadataAccess<PKC_SceneInfo>(scene->metadatas(), QString());
    return access.getOrCreate();
}

double Shot_t::projectFrameToShotFrame(unsigned int projectFrame) const
{
    return projectFrame - firstFrame() + 1; // wraps on purpose before the shot
}

unsigned int Shot_t::shotFrameToProjectFrame(double shotFrame) const
{
    return UT_Numbers::toFrame(firstFrame() + shotFrame - 1.0);
}

unsigned int Shot_t::prjFrameToTvFrame(unsigned int shotFrame) const
{
    return toTimedValueFrame(frameBlock(), shotFrame);
}

} // namespace Plotka
