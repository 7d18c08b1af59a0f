#include "platform/posix/posix_bulk_file.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <utility>

namespace {

/// Long enough that system calls don't count, short enough to stay in the processor's cache.
constexpr std::size_t blockLength = 1 << 18;
/// How much is written before the disk is set to work on it: the disk likes long pieces, but it should be at work while
/// the next one is made, and a stop in the middle should not have to wait for one.
constexpr std::int64_t pieceLength = 1 << 20;

} // namespace

PosixBulkFile::PosixBulkFile(std::string path) : file_(std::move(path)) { held_.reserve(blockLength); }

std::int64_t PosixBulkFile::length() {
    return held_.empty() ? file_.length() : std::max<std::int64_t>(file_.length(), heldEnd());
}

std::size_t PosixBulkFile::readAt(std::int64_t offset, char* into, std::size_t count) {
    if (offset < aheadFrom_ || offset + static_cast<std::int64_t>(count) > aheadEnd()) {
        readAhead(offset, count);
    }
    const std::int64_t from = std::min(offset - aheadFrom_, static_cast<std::int64_t>(ahead_.size()));
    const std::size_t come = std::min(count, ahead_.size() - static_cast<std::size_t>(from));
    std::memcpy(into, ahead_.data() + from, come);
    return come;
}

void PosixBulkFile::readAhead(std::int64_t offset, std::size_t count) {
    writeOut(); // the block may hold some of it
    const std::size_t wanted = std::max(count, blockLength);
    // A run from the last record to the first reads its block behind it.
    const bool runsBackwards = !ahead_.empty() && offset < aheadFrom_;
    const std::int64_t end = offset + static_cast<std::int64_t>(count);
    aheadFrom_ = runsBackwards ? std::max<std::int64_t>(0, end - static_cast<std::int64_t>(wanted)) : offset;
    Bytes block = std::exchange(ahead_, {}); // after a failed read nothing has been read ahead
    block.resize(wanted);
    block.resize(readFully(file_.descriptor(), aheadFrom_, block.data(), wanted));
    ahead_ = std::move(block);
}

void PosixBulkFile::writeDurably(std::int64_t offset, BytesView bytes) {
    if (!isChanged_) {
        file_.mustBeWritable();
        isChanged_ = true;
    }
    if (held_.empty() || offset != heldEnd() || held_.size() + bytes.size() > blockLength) {
        writeOut();
        heldFrom_ = offset;
    }
    held_ += bytes;
    writeIntoAhead(offset, bytes);
}

void PosixBulkFile::writeIntoAhead(std::int64_t offset, BytesView bytes) {
    const std::int64_t from = std::max(offset, aheadFrom_);
    const std::int64_t end = std::min(offset + static_cast<std::int64_t>(bytes.size()), aheadEnd());
    if (from < end) {
        std::memcpy(ahead_.data() + (from - aheadFrom_), bytes.data() + (from - offset),
                    static_cast<std::size_t>(end - from));
    }
}

void PosixBulkFile::writeOut() {
    if (held_.empty()) {
        return;
    }
    writeFully(file_.descriptor(), heldFrom_, held_);
    if (heldFrom_ != pushEnd_) {
        push();
        pushFrom_ = heldFrom_;
    }
    pushEnd_ = heldEnd();
    held_.clear();
    if (pushEnd_ - pushFrom_ >= pieceLength) {
        push();
    }
}

void PosixBulkFile::push() {
    if (pushEnd_ > pushFrom_) {
        // A mere beginning: what can't be pushed now, or not at all on this file system, is left to finish(), and so is
        // the report of whatever goes wrong with it.
        static_cast<void>(sync_file_range(file_.descriptor().number(), pushFrom_, pushEnd_ - pushFrom_,
                                          SYNC_FILE_RANGE_WRITE));
    }
    pushFrom_ = pushEnd_;
}

void PosixBulkFile::finish() {
    handOver();
    if (isChanged_) {
        file_.sync();
    }
    file_.syncName();
}

void PosixBulkFile::handOver() {
    writeOut();
    file_.mustBeNamed();
}
