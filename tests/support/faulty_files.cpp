#include "support/faulty_files.h"

#include "platform/failure.h"

#include <algorithm>
#include <csignal>
#include <utility>

struct FaultyFiles::State {
    int writes = 0;
    int calls = 0;
    int faults = 0;
    int callsToFault = 0; ///< 0: no fault is planned
    Counted counted = Counted::calls;
    Lasting lasting = Lasting::once;
    Kind kind = Kind::plain;

    /// Counts a call; true if it has to fail.
    bool meetsFault(Counted what) {
        ++calls;
        writes += what == Counted::writes ? 1 : 0;
        const bool counts = counted == Counted::calls || what == Counted::writes;
        if (callsToFault == 0 || !counts) {
            return false;
        }
        if (callsToFault > 1) {
            --callsToFault;
            return false;
        }
        callsToFault = lasting == Lasting::once ? 0 : 1;
        ++faults;
        if (kind == Kind::kill) {
            std::raise(SIGKILL);
        }
        return true;
    }

    void pass(Counted what) {
        if (meetsFault(what)) {
            throw RuntimeFailure{FailureKind::file};
        }
    }
};

namespace {

using Counted = FaultyFiles::Counted;

/// Both kinds of open files: `Base` is RandomFile or BulkFile.
template <typename Base> class FaultyOpenFile : public Base {
public:
    FaultyOpenFile(std::unique_ptr<Base> real, std::shared_ptr<FaultyFiles::State> state)
        : real_(std::move(real)), state_(std::move(state)) {}

    std::int64_t length() override {
        state_->pass(Counted::calls);
        return real_->length();
    }
    std::size_t readAt(std::int64_t offset, char* into, std::size_t count) override {
        state_->pass(Counted::calls);
        return real_->readAt(offset, into, count);
    }
    void writeDurably(std::int64_t offset, BytesView bytes) override {
        if (state_->meetsFault(Counted::writes)) {
            if (state_->kind == FaultyFiles::Kind::shortWrite) {
                real_->writeDurably(offset, bytes.substr(0, overwritten(offset, bytes) / 2));
            }
            throw RuntimeFailure{FailureKind::file};
        }
        real_->writeDurably(offset, bytes);
    }
    bool isInPlace() override {
        state_->pass(Counted::calls);
        return real_->isInPlace();
    }

protected:
    Base& real() { return *real_; }
    FaultyFiles::State& state() { return *state_; }

private:
    /// How many of `bytes` replace bytes that the file has already.
    std::size_t overwritten(std::int64_t offset, BytesView bytes) {
        const auto size = static_cast<std::int64_t>(bytes.size());
        return static_cast<std::size_t>(std::clamp<std::int64_t>(real_->length() - offset, 0, size));
    }

    std::unique_ptr<Base> real_;
    std::shared_ptr<FaultyFiles::State> state_;
};

class FaultyBulkFile : public FaultyOpenFile<BulkFile> {
public:
    using FaultyOpenFile::FaultyOpenFile;
    void finish() override {
        state().pass(Counted::writes);
        real().finish();
    }
    void handOver() override {
        state().pass(Counted::writes);
        real().handOver();
    }
};

} // namespace

FaultyFiles::FaultyFiles(Files& real) : real_(real), state_(std::make_shared<State>()) {}

void FaultyFiles::failAt(int n, Counted counted, Lasting lasting, Kind kind) {
    state_->callsToFault = n;
    state_->counted = counted;
    state_->lasting = lasting;
    state_->kind = kind;
    state_->faults = 0;
}

void FaultyFiles::heal() { state_->callsToFault = 0; }
int FaultyFiles::faults() const { return state_->faults; }
int FaultyFiles::writes() const { return state_->writes; }
int FaultyFiles::calls() const { return state_->calls; }

bool FaultyFiles::exists(const Text& path) {
    state_->pass(Counted::calls);
    return real_.exists(path);
}

bool FaultyFiles::isSameFile(const Text& one, const Text& other) {
    state_->pass(Counted::calls);
    return real_.isSameFile(one, other);
}

std::unique_ptr<RandomFile> FaultyFiles::openRandom(const Text& path) {
    state_->pass(real_.exists(path) ? Counted::calls : Counted::writes);
    return std::make_unique<FaultyOpenFile<RandomFile>>(real_.openRandom(path), state_);
}

std::unique_ptr<BulkFile> FaultyFiles::openBulk(const Text& path) {
    state_->pass(real_.exists(path) ? Counted::calls : Counted::writes);
    return std::make_unique<FaultyBulkFile>(real_.openBulk(path), state_);
}

Bytes FaultyFiles::readWhole(const Text& path, std::size_t limit) {
    state_->pass(Counted::calls);
    return real_.readWhole(path, limit);
}

void FaultyFiles::replaceWhole(const Text& path, BytesView contents) {
    state_->pass(Counted::writes);
    real_.replaceWhole(path, contents);
}

void FaultyFiles::expectReplaceable(const Text& path) {
    state_->pass(Counted::calls);
    real_.expectReplaceable(path);
}

void FaultyFiles::copy(const Text& from, const Text& to) {
    state_->pass(Counted::writes);
    real_.copy(from, to);
}

std::unique_ptr<TableLock> FaultyFiles::lockTable(const Text& path) {
    state_->pass(Counted::calls);
    return real_.lockTable(path);
}

std::unique_ptr<TableLock> FaultyFiles::lockFolder(const Text& path) {
    state_->pass(Counted::calls);
    return real_.lockFolder(path);
}

std::unique_ptr<TableLock> FaultyFiles::moveIntoPlace(const Text& from, const Text& to) {
    state_->pass(Counted::writes);
    return real_.moveIntoPlace(from, to);
}

void FaultyFiles::remove(const Text& path) {
    state_->pass(Counted::writes);
    real_.remove(path);
}

void FaultyFiles::removeLeftovers(const Text& folder) {
    state_->pass(Counted::writes);
    real_.removeLeftovers(folder);
}

void FaultyFiles::makeFolder(const Text& path) {
    state_->pass(Counted::writes);
    real_.makeFolder(path);
}

FolderContents FaultyFiles::folderContents(const Text& path) {
    state_->pass(Counted::calls);
    return real_.folderContents(path);
}
