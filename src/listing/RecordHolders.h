#pragma once

#include "plotka_listing_export.h"

#include <QString>

#include <vector>

class PIO_Metadatas;
class SC_Project;
class TUScene;

/// What carries records: the project, or one of its scenes.
struct RecordHolder {
    const PIO_Metadatas *records;
    const TUScene *scene; ///< null for the project
    QString title;        ///< "project", or "scene 12" with the id of the object that the scene makes up
};

/// The project, then its scenes in their order. Nothing is owned; good until the project is edited.
PLOTKA_LISTING_EXPORT std::vector<RecordHolder> recordHolders(const SC_Project &project);
