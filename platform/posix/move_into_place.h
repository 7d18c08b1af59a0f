#pragma once
// Puts a finished file in the place of another one. Called by PosixFiles. On one disk that is a rename; from one disk to
// another it is a copy beside the other file, which a rename then puts in place.

#include "platform/posix/table_locks.h"

#include <memory>
#include <string>

/// Files::moveIntoPlace for native paths. A link at `to` stays a link. Throws RuntimeFailure of kind file on failure; a
/// failure behind the rename is thrown although the new file is in place already.
std::unique_ptr<TableLock> moveIntoPlace(const std::string& from, const std::string& to, TableLocks& locks);
