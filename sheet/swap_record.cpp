#include "sheet/swap_record.h"

#include "sheet/change_recovery.h"
#include "sheet/record_file.h"
#include "sheet/stored_numbers.h"
#include "sheet/text_file_writer.h"
#include "sheet/work_files.h"

#include <algorithm>
#include <utility>

namespace {

constexpr BytesView magic = "ROMSWAP2";
constexpr std::size_t headLength = magic.size() + 5 * numberLength;
/// Two K files and the head; a K file is never read beyond this either.
constexpr std::size_t largestRecord = 40u << 20;
constexpr std::size_t blockLength = 1 << 18;
constexpr std::size_t sampleLength = 1 << 16;

Text recordPath(const Text& drive, const Text& fileName) { return besideTable(drive, fileName, u".swap-"); }

/// False if the bytes are no record: no run of ours wrote them.
bool parse(const Bytes& bytes, SwapRecord& record) {
    if (bytes.size() < headLength || !BytesView(bytes).starts_with(magic)) {
        return false;
    }
    std::size_t at = magic.size();
    const auto next = [&] { return numberAt(bytes, std::exchange(at, at + numberLength)); };
    record.newLength = next();
    record.newFingerprint = next();
    record.oldLength = next();
    record.oldSample = next();
    const std::uint64_t oldItems = next();
    if (oldItems > bytes.size() - headLength) {
        return false;
    }
    record.oldItems = bytes.substr(headLength, oldItems);
    record.newItems = bytes.substr(headLength + oldItems);
    return true;
}

/// How far a swap has come, as far as the files can tell.
enum class SwapState {
    notBegun,    ///< or taken back, or brought back
    halfDone,    ///< the new data file has its place, the new K file hasn't
    done,
    changedSince ///< somebody else has been at work on the table
};

SwapState stateOf(ZORMOD& zormod, const Text& dataPath, const Text& itemPath, const SwapRecord& record) {
    Files& files = zormod.platform.files;
    if (!files.exists(dataPath) || !files.exists(itemPath)) {
        return SwapState::changedSince;
    }
    const Bytes items = files.readWhole(itemPath, largestRecord);
    if (items == record.newItems) {
        return SwapState::done;
    }
    const auto data = files.openBulk(dataPath);
    const auto length = static_cast<std::uint64_t>(data->length());
    if (items == record.oldItems && length == record.newLength && fingerprintOf(*data) == record.newFingerprint) {
        return SwapState::halfDone;
    }
    return length == record.oldLength && sampleOf(*data) == record.oldSample ? SwapState::notBegun
                                                                             : SwapState::changedSince;
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

std::uint64_t sampleOf(RandomFile& file) {
    Bytes ends(2 * sampleLength, '\0');
    const std::size_t first = file.readAt(0, ends.data(), sampleLength);
    const std::int64_t from = std::max<std::int64_t>(0, file.length() - static_cast<std::int64_t>(sampleLength));
    const std::size_t last = file.readAt(from, ends.data() + first, sampleLength);
    return fingerprintOf(BytesView(ends).substr(0, first + last));
}

void writeSwapRecord(ZORMOD& zormod, const Text& fileName, const Text& drive, const SwapRecord& record) {
    Bytes bytes(magic);
    appendNumber(bytes, record.newLength);
    appendNumber(bytes, record.newFingerprint);
    appendNumber(bytes, record.oldLength);
    appendNumber(bytes, record.oldSample);
    appendNumber(bytes, record.oldItems.size());
    bytes += record.oldItems + record.newItems;
    zormod.platform.files.replaceWhole(recordPath(drive, fileName), bytes);
}

void removeSwapRecord(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    removeIfThere(zormod, recordPath(drive, fileName));
}

void finishSwap(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    Files& files = zormod.platform.files;
    const Text path = recordPath(drive, fileName);
    if (!files.exists(path)) {
        return;
    }
    SwapRecord record;
    const Text itemPath = besideTable(drive, fileName, u"K");
    const SwapState state = parse(files.readWhole(path, largestRecord), record)
                                ? stateOf(zormod, fullPath(drive, fileName), itemPath, record)
                                : SwapState::notBegun;
    if (state == SwapState::changedSince) {
        setAside(zormod, path, besideTable(drive, fileName, u".unused-swap-"));
        return;
    }
    if (state == SwapState::halfDone) {
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
        removeIfThere(zormod, newItemFilePath(drive, fileName));
        if (const auto claim = claimWorkFiles(zormod, drive)) {
            clearWorkFiles(zormod, drive);
        }
    });
}
