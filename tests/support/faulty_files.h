#pragma once
// Files that fail when a test wants them to: a wrapper that hands every call on to real files, counts the calls, its
// own and those on the open files it hands out, and at the chosen one throws RuntimeFailure of kind file, writes only a
// part, or kills the program. A fault loop runs an operation with the fault at the 1st, 2nd, 3rd ... call until it
// meets no fault any more.

#include "platform/files.h"

#include <memory>

/// The wrapper. A write is openRandom or openBulk of a file that doesn't exist, writeDurably, finish, handOver,
/// replaceWhole, copy, moveIntoPlace, remove, removeLeftovers and makeFolder; a call is each of these and openRandom,
/// openBulk, exists, isSameFile, readWhole, expectReplaceable, lockTable, lockFolder, folderContents, length, readAt and
/// isInPlace.
/// currentFolder, fromCommandLine and drives, which touch no file, count as nothing.
class FaultyFiles : public Files {
public:
    enum class Counted { writes, calls };
    enum class Lasting { once, fromThenOn };
    enum class Kind {
        plain,      ///< fails before anything is done
        shortWrite, ///< writeDurably leaves half of what it had to overwrite written; the rest is plain, as no contract
                    ///< lets replaceWhole, copy or a growing file leave a part
        kill,       ///< SIGKILL before anything is done
    };

    explicit FaultyFiles(Files& real);

    /// Plans a fault at the `n`th write or call from now on, 1-based, and forgets the one planned before.
    void failAt(int n, Counted counted, Lasting lasting = Lasting::once, Kind kind = Kind::plain);
    /// Every write fails from now on.
    void failWrites() { failAt(1, Counted::writes, Lasting::fromThenOn); }
    /// Nothing fails any more.
    void heal();
    /// Faults met since the last plan.
    int faults() const;
    /// All writes and all calls since the wrapper was made, failed ones included.
    int writes() const;
    int calls() const;

    Text currentFolder() override { return real_.currentFolder(); }
    Text fromCommandLine(const Text& argument) override { return real_.fromCommandLine(argument); }
    bool exists(const Text& path) override;
    bool isSameFile(const Text& one, const Text& other) override;
    std::unique_ptr<RandomFile> openRandom(const Text& path) override;
    std::unique_ptr<BulkFile> openBulk(const Text& path) override;
    Bytes readWhole(const Text& path, std::size_t limit) override;
    void replaceWhole(const Text& path, BytesView contents) override;
    void expectReplaceable(const Text& path) override;
    void copy(const Text& from, const Text& to) override;
    std::unique_ptr<TableLock> lockTable(const Text& path) override;
    std::unique_ptr<TableLock> lockFolder(const Text& path) override;
    std::unique_ptr<TableLock> moveIntoPlace(const Text& from, const Text& to) override;
    void remove(const Text& path) override;
    void removeLeftovers(const Text& folder) override;
    void makeFolder(const Text& path) override;
    std::vector<Text> drives() override { return real_.drives(); }
    FolderContents folderContents(const Text& path) override;

    /// The plan and the counts, shared with the open files, which may outlive the wrapper.
    struct State;

private:
    Files& real_;
    std::shared_ptr<State> state_;
};
