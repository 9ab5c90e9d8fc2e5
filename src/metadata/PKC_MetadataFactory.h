#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_MetadataFactory.h"

/// Makes the storyboard's own records when a file is read, and leaves the generic ones to its base.
class PLOTKA_EXPORT PKC_MetadataFactory : public PIO_MetadataFactory
{
public:
    /// The one factory, never null. The first call registers it: files are read with it from then on.
    static PKC_MetadataFactory *createInstance();

    /// Types are compared exactly. Creator and version are those of the file and stay so.
    PIO_Metadata *createMeta(
        const QString &type, const QString &name, const QString &creator, const QString &version) override;
    ~PKC_MetadataFactory() override;

private:
    PKC_MetadataFactory();
};
