#pragma once
// One run over many records of the open table that only reads them, a block of the file at a time: for readings and
// counts over a range, where a system call for each record would be felt in a big file.

#include "sheet/zormod.h"

#include <functional>

/// Hands each record first..last of file 1 to `use`, in order, with its number and its bytes (recordLength of them, valid
/// during the call). Ends outside the file are cut to it; first > last is no round. Memory stays at one block.
void eachRecord(ZORMOD& zormod, std::int32_t first, std::int32_t last,
                const std::function<void(std::int32_t record, BytesView bytes)>& use);
