#include "sheet/record_file.h"

#include <algorithm>

namespace {

RandomFile& openFile(ZORMOD& zormod, int fileNo) {
    const auto& file = zormod.files.byNumber[fileNo];
    if (!file) {
        throw RuntimeFailure{FailureKind::file};
    }
    return *file;
}

std::int64_t recordOffset(std::int32_t recordNo) {
    if (recordNo <= 0) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    return (static_cast<std::int64_t>(recordNo) - 1) * recordLength;
}

} // namespace

std::int32_t recordCount(ZORMOD& zormod) {
    const std::int64_t records = openFile(zormod, 1).length() / recordLength;
    if (records > INT32_MAX) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    return static_cast<std::int32_t>(records);
}

void readRecord(ZORMOD& zormod, int fileNo, std::int32_t recordNo, Bytes& rec) {
    auto& buffer = zormod.window.cellBuffer;
    const std::int64_t offset = recordOffset(recordNo);
    openFile(zormod, fileNo).readAt(offset, buffer.data(), buffer.size());
    rec.assign(buffer.data(), buffer.size());
}

void writeRecord(ZORMOD& zormod, int fileNo, std::int32_t recordNo, BytesView rec) {
    auto& buffer = zormod.window.cellBuffer;
    const std::int64_t offset = recordOffset(recordNo);
    const auto end = std::copy_n(rec.begin(), std::min(rec.size(), buffer.size()), buffer.begin());
    std::fill(end, buffer.end(), '\0');
    openFile(zormod, fileNo).writeDurably(offset, BytesView(buffer.data(), buffer.size()));
}

Bytes endedRecord(BytesView row) {
    Bytes record;
    endRecord(row, record);
    return record;
}

void endRecord(BytesView row, Bytes& into) {
    into.assign(row.substr(0, dataLength));
    into.resize(dataLength, ' ');
    into += "\r\n";
}

void closeFile(ZORMOD& zormod, int fileNo) {
    zormod.files.byNumber[fileNo].reset();
}

void closeAllFiles(ZORMOD& zormod) {
    for (auto& file : zormod.files.byNumber) {
        file.reset();
    }
}

void expectTableInPlace(ZORMOD& zormod) {
    if (!openFile(zormod, 1).isInPlace()) {
        throw RuntimeFailure{FailureKind::file};
    }
}

Text fullPath(TextView drive, TextView name) {
    Text path(drive);
    path += u':';
    path += name;
    return path;
}
