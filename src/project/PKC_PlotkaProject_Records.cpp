#include "project/PKC_PlotkaProject.h"

#include "metadata/PKC_ProjectCompatibility.h"
#include "naming/PKC_NamingRules.h"
#include "project/PKC_PlotkaProject_p.h"

PKC_ReferenceToolData *PKC_PlotkaProject::referenceToolData() const
{
    return d->record<PKC_ReferenceToolData>();
}

PKC_DeletedPanels *PKC_PlotkaProject::deletedPanels() const
{
    return d->record<PKC_DeletedPanels>();
}

PKC_ProjectLinkInfo *PKC_PlotkaProject::projectLinkInfo() const
{
    return d->record<PKC_ProjectLinkInfo>();
}

PKC_ProjectCompatibility *PKC_PlotkaProject::projectCompatibility() const
{
    return PIO_MetadataAccess<PKC_ProjectCompatibility>(d->container(), QString()).getOrCreate();
}

PKC_NamingRules *PKC_PlotkaProject::namingRules() const
{
    return PIO_MetadataAccess<PKC_NamingRules>(d->container(), QString()).getOrCreate();
}
