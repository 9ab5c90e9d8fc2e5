#pragma once

#include <string>

class SC_FileReport;
class SC_Project;

/// Everything that the scene layer answers about a project, as text: its scenes with their records,
/// timed values, blocks, nodes and links.
std::string textOf(const SC_Project &project);

/// One line for each entry of the report, without the folder of the file.
std::string textOf(const SC_FileReport &report);
