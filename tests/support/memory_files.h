#pragma once
// Files that stand in memory and wait for no disk, for tests that run an operation thousands of times. The case of
// ASCII letters in names makes no difference, claims are always given, and what only real files can do (copies, folders, drives) is a failure.

#include "platform/files.h"

#include <map>
#include <memory>

class MemoryFiles : public Files {
public:
    Text currentFolder() override { return u"C:\\"; }
    Text fromCommandLine(const Text& argument) override { return argument; }
    bool exists(const Text& path) override { return files.count(key(path)) != 0; }
    bool isSameFile(const Text& one, const Text& other) override { return exists(one) && key(one) == key(other); }
    std::unique_ptr<RandomFile> openRandom(const Text& path) override;
    std::unique_ptr<BulkFile> openBulk(const Text& path) override;
    Bytes readWhole(const Text& path, std::size_t limit) override;
    void replaceWhole(const Text& path, BytesView contents) override;
    void expectReplaceable(const Text&) override {}
    void copy(const Text& from, const Text& to) override;
    std::unique_ptr<TableLock> lockTable(const Text&) override { return std::make_unique<TableLock>(); }
    std::unique_ptr<TableLock> lockFolder(const Text&) override { return std::make_unique<TableLock>(); }
    std::unique_ptr<TableLock> moveIntoPlace(const Text& from, const Text& to) override;
    void remove(const Text& path) override;
    void removeLeftovers(const Text&) override {} // nothing here outlasts a kill
    void makeFolder(const Text& path) override;
    std::vector<Text> drives() override { return {u"C"}; }
    FolderContents folderContents(const Text& path) override;

    /// Contents of a file; a missing one is a failure.
    Bytes bytesOf(const Text& path) const;
    int count() const { return static_cast<int>(files.size()); }

private:
    static Text key(Text path);

    /// A file that is open outlives its name.
    std::map<Text, std::shared_ptr<Bytes>> files;
};
