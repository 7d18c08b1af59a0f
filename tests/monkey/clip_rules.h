#pragma once
// What a clip file and its backup give back. One whose making was stopped has fewer cells than its head tells of. A
// double quote inside a cell isn't escaped there, so a cell may come back cut, as two, or together with the next.

#include <cstddef>
#include <string>
#include <vector>

/// How many records and items the head of a clip tells of; none of either: it is no clip.
struct ClipShape {
    std::size_t records = 0;
    std::size_t items = 0;
};

/// What a backup puts back.
struct PasteBackup {
    long first = 0;                  ///< the number of its first record
    std::vector<std::string> rows{}; ///< bytes up to the last item or to a double quote, one entry a record
};

/// The shape of a clip. `clip` is the file's bytes.
ClipShape shapeOf(const std::string& clip);

/// The rows of a backup. `backup` is the file's bytes.
PasteBackup backupOf(const std::string& backup);

/// True if the whole clip can be read: as many whole fields behind its head as the head tells. `clip` is the file's
/// bytes.
bool clipReadsBack(const std::string& clip);

/// True if the backup's rows can be put back into a table of `records` records: its first one, whose number the backup
/// begins with, must not lie behind the record that follows the last, and no double quote may be left open. `backup` is
/// the file's bytes.
bool backupFits(const std::string& backup, std::size_t records);
