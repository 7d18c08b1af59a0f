#pragma once
// Reading of the open table in blocks, for loops that read many records in their order and change none.

#include "sheet/zormod.h"

/// While it lives, file 1 reads ahead. It must not be written, closed or opened anew meanwhile.
class ReadAheadScope {
public:
    explicit ReadAheadScope(ZORMOD& zormod);
    /// The table's own open file is file 1 again.
    ~ReadAheadScope();
    ReadAheadScope(const ReadAheadScope&) = delete;
    ReadAheadScope& operator=(const ReadAheadScope&) = delete;

private:
    ZORMOD& zormod_;
    std::unique_ptr<RandomFile> table_;
};
