#include "listing/RecordHolders.h"

#include "listing/ListingText_p.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"

std::vector<RecordHolder> recordHolders(const SC_Project &project)
{
    std::vector<RecordHolder> holders = {{project.metadatas(), nullptr, ListingText::tr("project")}};
    for (unsigned int i = 0; i < project.sceneCount(); ++i) {
        if (const auto *scene = dynamic_cast<const TUScene *>(project.sceneAt(i)))
            holders.push_back(
                {scene->metadatas(), scene, ListingText::tr("scene %1").arg(scene->objectId().AsString())});
    }
    return holders;
}
