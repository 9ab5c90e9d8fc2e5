#pragma once

#include "plotka_listing_export.h"

#include <QString>

#include <vector>

class PKC_PlotkaProject;
class SC_FileReport;

/// One thing about a project that its owner should look at.
struct Finding {
    QString code;    ///< what kind it is, such as "dangling-link"; scripts rely on it
    QString item;    ///< what it is about, such as "scene 12"
    qint64 line = 0; ///< of the project file, from 1; 0 when it is about no line
    QString message;
};

/// All that is wrong with a project: what is damaged in its file as @p report has it, records that nobody knows, what
/// names things that are not there, and what older programs cannot read. In the order of the file, then of its scenes.
PLOTKA_LISTING_EXPORT std::vector<Finding> checkProject(PKC_PlotkaProject &project, const SC_FileReport &report);
