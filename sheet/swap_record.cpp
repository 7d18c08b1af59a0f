#include "sheet/swap_record.h"

#include "sheet/change_recovery.h"
#include "sheet/record_file.h"
#include "sheet/stored_numbers.h"
#include "sheet/text_file_writer.h"
#include "sheet/work_files.h"

namespace {

constexpr BytesView magic = "ROMSWAP1";
constexpr std::size_t headLength = magic.size() + 3 * numberLength;
/// Two K files and the head; a K file is never read beyond this either.
constexpr std::size_t largestRecord = 40u << 20;
constexpr std::size_t blockLength = 1 << 18;

Text recordPath(const Text& drive, const Text& fileName) { return besideTable(drive, fileName, u".swap-"); }

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

} // namespace

std::uint64_t fingerprintOf(RandomFile& file) {
    std::uint64_t fingerprint = emptyFingerprint;
    Bytes block(blockLength, '\0');
    for (std::int64_t offset = 0;;) {
        const std::size_t came = file.readAt(offset, block.data(), block.size());
        if (came == 0) {
            return fingerprint;
        }
        fingerprint = fingerprintOf(BytesView(block).substr(0, came), fingerprint);
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

void finishInterrupted(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    finishSwap(zormod, fileName, drive);
    finishChange(zormod, fileName, drive);
}

void recoverTable(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    finishInterrupted(zormod, fileName, drive);
    tidy([&] {
        zormod.platform.files.removeLeftovers(fullPath(drive, TextView(fileName).substr(0, lastPosition(fileName, u"\\"))));
        zormod.platform.files.removeLeftovers(zormod.file.programFolder);
    });
    tidy([&] { clearUnfinishedTextFiles(zormod); });
    tidy([&] {
        removeIfThere(zormod, newFilePath(drive, fileName));
        if (const auto claim = claimWorkFiles(zormod, drive)) {
            clearWorkFiles(zormod, drive);
        }
    });
}
