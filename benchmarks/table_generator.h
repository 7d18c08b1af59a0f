#pragma once
// Makes the tables that the measurements run on.

#include "sheet/zormod.h"

#include <cstdint>
#include <string>

/// Writes `folder`/`name` with `records` records and its item definition file: an ID of 8 bytes, a name of 20, and ten
/// items of 20 bytes, all filled, Japanese among them. Ends the program with a message if the disk fails.
void generateTable(const std::string& folder, const std::string& name, std::int64_t records);

/// The same as "t.txt" in `folder`, which is the program folder, and opens it as the main table of `zormod`.
void openGeneratedTable(ZORMOD& zormod, const std::string& folder, std::int64_t records);
