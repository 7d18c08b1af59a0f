#pragma once
// The item definition file ("K file") that lies beside every table. It holds the table memo, the number of items, and
// each item's name, alignment and width. It is text in Shift-JIS, every line ended by CR LF:
//
//     100  ' 0,memo,, 2          reserved, memo, reserved, number of the highest item
//     1000 'ID,L                 label 1000 + i, name, alignment: one line for each item from 0
//     1001 '氏名,L
//     1002 '年齢,R
//     2000 ' 6                   label 2000 + i, width in bytes with a leading blank
//     2001 ' 20
//     2002 ' 3
//
// The apostrophe stands at character 6 of every line. The file is read field by field: a field ends at a comma or a
// line end (CR LF, CR or LF), blanks ahead of it are dropped, there is no quoting. So a comma in a name or in the memo
// moves all later fields along, which no reader reports. Line labels are never looked at.

#include "sheet/zormod.h"

/// "" for success, "error" after a refusal that the user has been told of.
using Result = Text;

/// Reads the K file of the data file `fileName` on `fileDrive` into the open table's items and memo. Does not compute
/// `itemStart`: callers do. Every refusal waits, beeps, shows its message, closes all files and gives "error"; the
/// items then hold what had been read, and the caller puts the old table back.
Result readItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive);

/// The same into the items of the other file, with `itemStart` computed; the memo is not kept.
Result readOtherItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive);

/// Writes memo and items of the open table as the K file of the data file. On failure a message is shown and
/// `writeFlag` is "er"; it is empty after success.
void writeItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive);

/// Writes the items of the other table with `count` as the highest item, and the memo of the open table, as the work K
/// file of a bulk rewrite: "Kwork.qqq" in the current folder of `fileDrive`. Fails as writeItemFile does.
void writeWorkItemFile(ZORMOD& zormod, std::int16_t count);

/// The bytes of a K file for `items` with `count` as the highest item, and the memo of the open table.
Bytes itemFileBytes(const ZORMOD& zormod, const ItemTable& items, std::int16_t count);

/// The text of a K file, for items 0 to `count`.
Text itemFileText(const ItemTable& items, std::int16_t count, const Text& memo);

/// Full path of the K file of `fileName` on `fileDrive`: the letter "K" before the name part.
Text itemFilePath(const ZORMOD& zormod, const Text& fileName);
/// The same on `otherFileDrive`.
Text otherItemFilePath(const ZORMOD& zormod, const Text& fileName);

/// Computes `itemStart` from the widths: item 0 starts at byte 1, each item where the one before it ends.
void computeItemStart(ItemTable& items);
