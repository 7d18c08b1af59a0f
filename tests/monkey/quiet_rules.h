#pragma once
// What a key may change in the open table when it runs no operation on it: the row that the user leaves, and there what
// was typed. That holds for every command that operation_rules doesn't know, whatever forms it has opened meanwhile.

#include "tests/monkey/row_rules.h"

/// Whether nothing else has changed in the table, which is the same one still. `ran` are the commands that the key has
/// run. The K file isn't looked at.
Complaint changedWithoutOperation(const CodePage& codePage, const Seen& before, const Seen& now, const MonkeyKey& key,
                                  const std::vector<Text>& ran);
