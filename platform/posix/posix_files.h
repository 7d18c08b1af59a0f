#pragma once
// The file system of the machine behind the interface Files. main builds one and hands it down; tests build it on real
// temporary folders. It holds the drive table, the start folder and the claims on tables, and nothing of any file.

#include "platform/files.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/drive_paths.h"
#include "platform/posix/table_locks.h"

#include <functional>

/// The real files. Contracts: platform/files.h; drives and spelling of paths: drive_paths.h; names outside UTF-8:
/// native_names.h. A drive that is not in the table is a failure of every call but fromCommandLine and lockTable.
class PosixFiles : public Files {
public:
    /// `startFolder` is the absolute native folder in which the program was started; the program's current folder
    /// may change later without any effect here.
    PosixFiles(DriveTable drives, const std::string& startFolder) : paths_(std::move(drives), startFolder) {}

    /// Where `drives` looks for media mounted since; without it the table stays as it is.
    void lookForMedia(std::function<std::vector<std::string>()> media) { media_ = std::move(media); }

    Text currentFolder() override { return paths_.currentFolder(); }
    Text fromCommandLine(const Text& argument) override { return DrivePaths::fromCommandLine(argument); }
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
    std::vector<Text> drives() override;
    FolderContents folderContents(const Text& path) override;

private:
    /// What `path` leads to; empty if nothing is there.
    std::optional<Status> find(const Text& path) const;

    DrivePaths paths_;
    TableLocks locks_;
    std::function<std::vector<std::string>()> media_;
};
