#pragma once
// The files a change of the table needs besides the table. Used by the bulk rewrite, by the changes in place and by the
// recovery at the opening of a table; decides nothing about the table itself.
//
//   WORK.QQQ, KWORK.QQQ   the new data file and the new K file, in the current folder of the table's drive
//   .romika-work          beside them, empty: while it exists those two are ours, and what a killed or failed run left of
//                         them is deleted before they are used again. A file of that name without it was left by somebody
//                         else; it is not emptied, so a tail of it stays behind a shorter result.
//   .new-NAME, .new-KNAME beside the table NAME: the new data file of a rewrite that has no work file of its own, or the
//                         copies of work files that lie on another disk (Files::moveIntoPlace)
//   .swap-NAME            beside the table NAME: the record of a swap of both files (sheet/swap_record.h)
//   .change-NAME          beside the table NAME: the journal of a change of some records (sheet/change_frames.h)
//   .unused-swap-NAME, .unused-change-NAME   the last of each that could not be used, because the table was another one
//                         by then
//
// The names that begin with a point are shown in no list of files.

#include "sheet/zormod.h"

#include <functional>
#include <memory>

/// Full paths of the work files of a drive.
Text workFilePath(TextView drive);
Text workItemFilePath(TextView drive);

/// Full path of the file whose name is that of the table `fileName` with `prefix` in front, in the table's folder.
Text besideTable(TextView drive, TextView fileName, TextView prefix);
/// The new data file of a rewrite without a work file.
inline Text newFilePath(TextView drive, TextView fileName) { return besideTable(drive, fileName, u".new-"); }
/// The copy of a new K file that comes from another disk.
inline Text newItemFilePath(TextView drive, TextView fileName) { return besideTable(drive, fileName, u".new-K"); }
/// The journal of a change in place.
inline Text changeJournalPath(TextView drive, TextView fileName) { return besideTable(drive, fileName, u".change-"); }

/// Runs a step of tidying that nothing depends on: a file failure is no failure, what is left is found again next time.
void tidy(const std::function<void()>& step);
/// Deletes a file if there is one.
void removeIfThere(ZORMOD& zormod, const Text& path);

/// Gives what is left of an interrupted operation another name, because the table has been changed since, and tells the
/// user so.
void setAside(ZORMOD& zormod, const Text& path, const Text& unusedPath);

/// Claims the work files of a drive for this copy of the program. Null if another copy has them.
std::unique_ptr<TableLock> claimWorkFiles(ZORMOD& zormod, TextView drive);
/// Claims a folder in which an operation writes files of fixed names. Null if another copy of the program is at work in
/// it; the user has been told then.
std::unique_ptr<TableLock> claimFolderOrTell(ZORMOD& zormod, const Text& folder);
/// From here on the work files of the drive are ours. The caller holds the claim.
void markWorkFiles(ZORMOD& zormod, TextView drive);
/// Deletes the work files of the drive if they are ours, and the mark. The caller holds the claim.
void clearWorkFiles(ZORMOD& zormod, TextView drive);
