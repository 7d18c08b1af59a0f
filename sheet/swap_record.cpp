#include "sheet/swap_record.h"

#include "platform/failure.h"
#include "sheet/record_file.h"
#include "sheet/work_files.h"

#include <cstring>
#include <functional>

namespace {

constexpr BytesView magic = "ROMSWAP1";
constexpr std::size_t numberLength = 8;
constexpr std::size_t headLength = magic.size() + 3 * numberLength;
/// Two K files and the head; a K file is never read beyond this either.
constexpr std::size_t largestRecord = 40u << 20;
constexpr std::size_t blockLength = 1 << 18;

Text recordPath(const Text& drive, const Text& fileName) { return besideTable(drive, fileName, u".swap-"); }

void appendNumber(Bytes& bytes, std::uint64_t number) {
    for (std::size_t i = 0; i < numberLength; ++i) {
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
    }
}

std::uint64_t numberAt(BytesView bytes, std::size_t offset) {
    std::uint64_t number = 0;
    for (std::size_t i = numberLength; i > 0; --i) {
        number = number << 8 | static_cast<unsigned char>(bytes[offset + i - 1]);
    }
    return number;
}

/// False if the bytes are no record: no run of ours wrote them.
bool parse(const Bytes& bytes, SwapRecord& record) {
    if (bytes.size() < headLength || !BytesView(bytes).starts_with(magic)) {
        return false;
    }
    record.newLength = numberAt(bytes, magic.size());
    record.newFingerprint = numberAt(bytes, magic.size() + numberLength);
    const std::uint64_t oldLength = numberAt(bytes, magic.size() + 2 * numberLength);
    if (oldLength > bytes.size() - headLength) {
        return false;
    }
    record.oldItems = bytes.substr(headLength, oldLength);
    record.newItems = bytes.substr(headLength + oldLength);
    return true;
}

bool holdsNewData(ZORMOD& zormod, const Text& path, const SwapRecord& record) {
    Files& files = zormod.platform.files;
    if (!files.exists(path)) {
        return false;
    }
    const auto data = files.openBulk(path);
    return static_cast<std::uint64_t>(data->length()) == record.newLength &&
           fingerprintOf(*data) == record.newFingerprint;
}

/// Runs a step of tidying that nothing depends on: what it leaves is found again next time.
void tidy(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeFailure&) {
        // Such as a folder that has become read-only. The table opens all the same.
    }
}

} // namespace

std::uint64_t fingerprintOf(RandomFile& file) {
    std::uint64_t fingerprint = 0xCBF29CE484222325;
    Bytes block(blockLength, '\0');
    for (std::int64_t offset = 0;;) {
        const std::size_t came = file.readAt(offset, block.data(), block.size());
        if (came == 0) {
            return fingerprint;
        }
        std::memset(block.data() + came, 0, block.size() - came);
        for (std::size_t at = 0; at < came; at += sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, block.data() + at, sizeof word);
            fingerprint = (fingerprint ^ word) * 0x9E3779B97F4A7C15;
            fingerprint ^= fingerprint >> 29;
        }
        offset += static_cast<std::int64_t>(came);
    }
}

void writeSwapRecord(ZORMOD& zormod, const Text& fileName, const Text& drive, const SwapRecord& record) {
    Bytes bytes(magic);
    appendNumber(bytes, record.newLength);
    appendNumber(bytes, record.newFingerprint);
    appendNumber(bytes, record.oldItems.size());
    bytes += record.oldItems + record.newItems;
    zormod.platform.files.replaceWhole(recordPath(drive, fileName), bytes);
}

void removeSwapRecord(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    removeIfThere(zormod, recordPath(drive, fileName));
}

void finishSwap(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    Files& files = zormod.platform.files;
    if (!files.exists(recordPath(drive, fileName))) {
        return;
    }
    SwapRecord record;
    const Text itemPath = besideTable(drive, fileName, u"K");
    if (parse(files.readWhole(recordPath(drive, fileName), largestRecord), record) && files.exists(itemPath) &&
        files.readWhole(itemPath, largestRecord) == record.oldItems &&
        holdsNewData(zormod, fullPath(drive, fileName), record)) {
        files.replaceWhole(itemPath, record.newItems);
    }
    tidy([&] { removeSwapRecord(zormod, fileName, drive); });
}

void recoverTable(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    finishSwap(zormod, fileName, drive);
    tidy([&] {
        zormod.platform.files.removeLeftovers(fullPath(drive, TextView(fileName).substr(0, lastPosition(fileName, u"\\"))));
        zormod.platform.files.removeLeftovers(zormod.file.programFolder);
    });
    tidy([&] {
        removeIfThere(zormod, newFilePath(drive, fileName));
        if (const auto claim = claimWorkFiles(zormod, drive)) {
            clearWorkFiles(zormod, drive);
        }
    });
}
