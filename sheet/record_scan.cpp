#include "sheet/record_scan.h"

#include "sheet/record_file.h"

#include <algorithm>

namespace {
constexpr std::int32_t blockRecords = 1024;
} // namespace

void eachRecord(ZORMOD& zormod, std::int32_t first, std::int32_t last,
                const std::function<void(std::int32_t record, BytesView bytes)>& use) {
    first = std::max(first, 1);
    last = std::min(last, recordCount(zormod));
    Bytes block;
    while (first <= last) {
        const std::int32_t wanted = std::min(blockRecords, last - first + 1);
        block.resize(static_cast<std::size_t>(wanted) * recordLength);
        const std::int64_t offset = (std::int64_t{first} - 1) * recordLength;
        const std::size_t came = zormod.files.byNumber[1]->readAt(offset, block.data(), block.size());
        // Another program may have cut the file meanwhile; what is gone can't be read.
        const auto whole = static_cast<std::int32_t>(came / recordLength);
        for (std::int32_t i = 0; i < whole; ++i) {
            use(first + i, BytesView(block).substr(static_cast<std::size_t>(i) * recordLength, recordLength));
        }
        if (whole < wanted) {
            return;
        }
        first += wanted;
    }
}
