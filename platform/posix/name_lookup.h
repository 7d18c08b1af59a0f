#pragma once
// Finds the entry that a name means: an exact match first, else the one entry equal without regard to case, of several
// the first in code order, else the name as written. So readers and writers that spell one file differently meet, a
// new file gets the spelling of its writer and an existing file keeps its own. Called by DrivePaths alone. Never
// changes a file. Behind a folder that may not be read a name stays as written, and the use of the path reports it; a
// disk that fails during the search is a RuntimeFailure of kind file.
//
// An exact path costs one query of the system. A folder is read only for the first name in it that has no exact match.

#include "platform/text.h"

#include <string>
#include <vector>

/// True if `path` names an entry, be it a link that leads nowhere. Throws if the disk can't say.
bool hasEntry(const std::string& path);

/// `folder` with `name` behind it.
std::string joined(const std::string& folder, const std::string& name);

/// The native path of the entry that `names` lead to, one below the other, beginning in the folder `base`, which is
/// taken as it is.
std::string lookedUp(const std::string& base, const std::vector<std::string>& names);

/// The simple case folding of Unicode, unit by unit: two names are the same without regard to case if their folded
/// forms are equal. Covers the alphabets of Europe in their usual ranges, the full-width letters and the Roman
/// numerals; never looks at the locale.
Text foldedName(TextView name);
