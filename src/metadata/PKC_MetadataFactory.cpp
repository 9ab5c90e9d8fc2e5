#include "metadata/PKC_MetadataFactory.h"

#include "infofields/PKC_ExtraInfoFieldDescList.h"
#include "infofields/PKC_HiddenInfoFieldList.h"
#include "infofields/PKC_InfoFieldList.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"
#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_DeletedPanels.h"
#include "metadata/PKC_ExposurePoints.h"
#include "metadata/PKC_ProjectCompatibility.h"
#include "metadata/PKC_ProjectLinkInfo.h"
#include "metadata/PKC_ReferenceToolData.h"
#include "metadata/PKC_SceneInfo.h"
#include "metadata/PKC_SoundAnnotation.h"
#include "naming/PKC_NamingRules.h"
#include "pdf/PKC_PdfOptions.h"
#include "tracking/PKC_Tracking.h"

namespace
{

using MakeRecord = PIO_Metadata *(*)(const QString &name, const QString &creator, const QString &version);

template <typename Record>
PIO_Metadata *make(const QString &name, const QString &creator, const QString &version)
{
    return new Record(name, creator, version);
}

struct RecordType {
    QLatin1String keyword;
    MakeRecord make;
};

// One line per type, compared in this order.
constexpr RecordType recordTypes[] = {
    {QLatin1String("sceneInfo"), make<PKC_SceneInfo>},
    {QLatin1String("panelInfo"), make<PKC_ClipInfo>},
    {QLatin1String("projectPanelInfoFieldList"), make<PKC_ProjectInfoFieldDescList>},
    {QLatin1String("scenePanelInfoFieldList"), make<PKC_PanelInfoFieldDescList>},
    {QLatin1String("infoFields"), make<PKC_InfoFieldList>},
    {QLatin1String("extraInfoFieldList"), make<PKC_ExtraInfoFieldDescList>},
    {QLatin1String("hiddenInfoField"), make<PKC_HiddenInfoFieldList>},
    {QLatin1String("exposurePoints"), make<PKC_ExposurePoints>},
    {QLatin1String("tracking"), make<PKC_Tracking>},
    {QLatin1String("layerInfos"), make<PKC_LayerInfos>},
    {QLatin1String("namingRules"), make<PKC_NamingRules>},
    {QLatin1String("soundAnnotation"), make<PKC_SoundAnnotation>},
    {QLatin1String("pdfOptions"), make<PKC_PdfOptions>},
    {QLatin1String("referenceToolData"), make<PKC_ReferenceToolData>},
    {QLatin1String("deletedPanels"), make<PKC_DeletedPanels>},
    {QLatin1String("projectLinkInfo"), make<PKC_ProjectLinkInfo>},
    {QLatin1String("projectCompatibilityIssue"), make<PKC_ProjectCompatibility>},
};

} // namespace

PKC_MetadataFactory::PKC_MetadataFactory()
{
    registerImpl(this);
}

PKC_MetadataFactory::~PKC_MetadataFactory() = default;

PKC_MetadataFactory *PKC_MetadataFactory::createInstance()
{
    // Never destroyed: a project may still be read while static objects die.
    static PKC_MetadataFactory *const factory = new PKC_MetadataFactory;
    return factory;
}

PIO_Metadata *PKC_MetadataFactory::createMeta(
    const QString &type, const QString &name, const QString &creator, const QString &version)
{
    for (const RecordType &known : recordTypes) {
        if (type == known.keyword)
            return known.make(name, creator, version);
    }
    return PIO_MetadataFactory::createMeta(type, name, creator, version);
}
