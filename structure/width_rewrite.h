#pragma once
// The rewrite of all records for changed widths of the items. Called when a change of width is applied or taken back to
// the item definition file. It looks at bytes only: a cut may halve a double-byte character.

#include "sheet/zormod.h"

/// The record with each cell, taken by the widths of `old`, at its width in `made`: an item that is exactly "L" is
/// filled up or cut behind, any other in front. CR LF stands directly behind the last item, so a record whose widths
/// come to less than 254 ends early; what a slot has behind it is blank.
Bytes resizedRecord(BytesView record, const ItemTable& old, const ItemTable& made);

/// Puts every record of file 1 from the widths `widthBefore` into those of the open table, and the K file with it: both
/// change together, or neither. Shows the progress form, can't be stopped, and says when it is done. Ends as every
/// rewrite does: window refilled, `taskWord` empty. A failure is thrown as it rises.
void rewriteWidths(ZORMOD& zormod, const CheckedArray<std::int16_t, itemEntries>& widthBefore);
