#include "FilledPanels.h"

#include "BigProject.h"
#include "infofields/PKC_InfoFieldList.h"
#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_ExposurePoints.h"
#include "metadata/PKC_SoundAnnotation.h"
#include "pdf/PKC_PdfOptions.h"
#include "tracking/PKC_Tracking.h"

#include <QDateTime>

#include <limits>

namespace
{

void fill(const Plotka::Panel_t &panel)
{
    panel.clipInfo()->name().setValue(QStringLiteral("12B"));
    panel.clipInfo()->name().setFlag(PKC_ObjectName::customBit);
    panel.infoFieldList()->insertInfoField(PKC_InfoFieldDesc::TEXT, 0,
        QStringLiteral("<html><body><p>She turns to the window.</p></body></html>"), std::numeric_limits<int>::max());
    panel.infoFieldList()->insertInfoField(PKC_InfoFieldDesc::TEXT, 1,
        QStringLiteral("<html><body><p>Rain, then silence.</p></body></html>"), std::numeric_limits<int>::max());
    panel.tracking()->setIsTracked(true);
    panel.tracking()->setTrackingDate(QDateTime(QDate(2024, 2, 29), QTime(12, 30), Qt::UTC));
    panel.tracking()->setTrackingNote(QStringLiteral("longer"));
    panel.exposurePoints()->insertExposurePoint(0.0F);
    panel.exposurePoints()->insertExposurePoint(0.5F);
    panel.layerInfos()->info(QStringLiteral("BG"), /*create*/ true);
    panel.layerInfos()->info(QStringLiteral("Ink"), /*create*/ true);
    panel.soundAnnotation()->add(QStringLiteral("sounds/rain.wav"));
    const PKC_Property isExported(QStringLiteral("panel_export_enabled"), QVariant(false), {});
    panel.pdfOptions()->addPdfOptions(&isExported);
}

} // namespace

void fillRecords(BigProject &project)
{
    for (auto panel = project.project().beginPanel(); panel != project.project().endPanel(); ++panel)
        fill(*panel);
}
