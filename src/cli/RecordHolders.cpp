#include "cli/RecordHolders.h"

#include "cli/CliText.h"
#include "scene/session/SC_Project.h"
#include "scene/session/TUScene.h"

std::vector<RecordHolder> recordHolders(const SC_Project &project)
{
    std::vector<RecordHolder> holders = {{project.metadatas(), nullptr, CliText::tr("project")}};
    for (unsigned int i = 0; i < project.sceneCount(); ++i) {
        if (const auto *scene = dynamic_cast<const TUScene *>(project.sceneAt(i)))
            holders.push_back({scene->metadatas(), scene, CliText::tr("scene %1").arg(scene->objectId().AsString())});
    }
    return holders;
}
