#pragma once
// What a key may change in a table when it runs no operation: the row the user stands on, there the cell that was being
// typed into, and nothing else anywhere. Each rule gives what is wrong, or nothing.

#include "tests/monkey/monkey_key.h"
#include "tests/monkey/seen.h"

#include <optional>
#include <string>

using Complaint = std::optional<std::string>;

/// `now` is `before` but for the row that the user was leaving: it may have come to the disk, with what was typed into
/// its current cell. `now` are the bytes of the table's file after the key.
Complaint onlyTheRowWasSaved(const CodePage& codePage, const Seen& before, const std::string& now);

/// If the user is still in the same record, its row in the window has changed at most in the cell that the user was in,
/// and then only because something was typed into it.
Complaint onlyTheCellWasTyped(const CodePage& codePage, const Seen& before, const Seen& after, bool mayChangeRow);

/// What Enter in the input box must make of the row: the typed text stands in the current cell, aligned. Nothing if the
/// key is no such Enter.
Complaint enterPutsTheTextIn(const CodePage& codePage, const Seen& before, const Seen& after, const MonkeyKey& key);

/// What the command that blanks a cell and goes to the next must make of the row. The table is the same before and after.
Complaint blankPutIn(const CodePage& codePage, const Seen& before, const Seen& after);

/// `before` as it is once the row has come to the disk with what stands in the input box.
Seen withRowSaved(const CodePage& codePage, Seen before);

/// Bytes for a complaint: what isn't ASCII as numbers.
std::string readable(std::string_view bytes);
