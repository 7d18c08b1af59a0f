#pragma once
// The fuzz targets by what they read. Each call appends some to the list of all (targets.h).

#include "fuzz/targets.h"

#include <vector>

/// Texts, numbers and lists of ranges, however they came into the program.
void addTextTargets(std::vector<FuzzTarget>& list);
/// The files of a table, and the others that lie in the user's folder.
void addFileTargets(std::vector<FuzzTarget>& list);
/// What an interrupted operation has left beside a table.
void addRecoveryTargets(std::vector<FuzzTarget>& list);
/// What other programs hand over: names of files, the clipboard, sound; and the reading program's settings.
void addNeighbourTargets(std::vector<FuzzTarget>& list);
