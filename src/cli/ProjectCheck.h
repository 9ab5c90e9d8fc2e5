#pragma once

#include <QString>

#include <vector>

class OpenedProject;

/// One thing about a project that its owner should look at.
struct Finding {
    QString code;    ///< what kind it is, such as "dangling-link"; scripts rely on it
    QString item;    ///< what it is about, such as "scene 12"
    qint64 line = 0; ///< of the project file, from 1; 0 when it is about no line
    QString message;
};

/// All that is wrong with an open project: what is damaged in its file, records that nobody knows, what names things
/// that are not there, and what older programs cannot read. In the order of the file, then of its scenes.
std::vector<Finding> checkProject(OpenedProject &opened);
