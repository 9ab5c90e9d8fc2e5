#pragma once

#include "listing/TimelineItem.h"
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

/// Something in a project that older programs cannot read. It is no damage.
struct CompatibilityIssue {
    QString id; ///< such as "space-between-panels"
    QString product;
    QString version;         ///< of the product, the first that can read it
    bool isFound = false;    ///< the project has it now
    bool isRecorded = false; ///< the project's record says that it has it
    QString message;         ///< a sentence for people
};

/// All that there is to say about the state of a project.
struct ProjectCheck {
    /// In the order of the file, then of its scenes.
    std::vector<Finding> findings;
    /// Those found, then those that are recorded alone, each by id.
    std::vector<CompatibilityIssue> compatibility;
    /// All gaps of the timeline, between shots and within them, as TimelineListing has them; not the one without end.
    std::vector<TimelineItem> gaps;
};

/// Looks for what is damaged in a project's file as @p report has it, scenes that are not there or place one another,
/// numbers out of bounds, records that nobody knows, what names things that are not there, and what older programs
/// cannot read. Changes nothing that is saved.
PLOTKA_LISTING_EXPORT ProjectCheck checkProject(PKC_PlotkaProject &project, const SC_FileReport &report);
