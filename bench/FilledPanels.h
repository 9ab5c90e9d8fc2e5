#pragma once

class BigProject;

/// Puts something into each of the seven records of every panel, with short texts as people write them.
void fillRecords(BigProject &project);
