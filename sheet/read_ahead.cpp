#include "sheet/read_ahead.h"

#include "sheet/record_file.h"

#include <utility>

ReadAheadScope::ReadAheadScope(ZORMOD& zormod) : zormod_(zormod) {
    expectTableInPlace(zormod);
    auto ahead = zormod.platform.files.openBulk(fullPath(zormod.file.fileDrive, zormod.file.fileName));
    table_ = std::exchange(zormod.files.byNumber[1], std::move(ahead));
}

ReadAheadScope::~ReadAheadScope() { zormod_.files.byNumber[1] = std::move(table_); }
