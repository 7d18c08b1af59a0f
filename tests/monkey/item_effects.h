#pragma once
// What an operation on items may change in the records of the open table: each value stays, at the place its item has
// then. Called by operation_rules.

#include "tests/monkey/operation_rules.h"
#include "tests/monkey/record_effects.h"

/// Whether every value of `old` stands in `now`, which has as many records, where `effect`, one of items, puts it. A
/// record with half characters isn't looked at, nor is an item that has become narrower.
Complaint itemsChanged(const CodePage& codePage, const Seen& before, const Seen& now, Effect effect, const Records& old,
                       const Records& made);
