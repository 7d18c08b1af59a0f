#include "support/memory_files.h"

#include "platform/failure.h"

#include <algorithm>
#include <cstring>

namespace {

class MemoryFile : public BulkFile {
public:
    explicit MemoryFile(std::shared_ptr<Bytes> bytes) : bytes_(std::move(bytes)) {}
    std::int64_t length() override { return static_cast<std::int64_t>(bytes_->size()); }
    std::size_t readAt(std::int64_t offset, char* into, std::size_t count) override {
        const auto from = std::min(static_cast<std::size_t>(offset), bytes_->size());
        const std::size_t come = std::min(count, bytes_->size() - from);
        std::memcpy(into, bytes_->data() + from, come);
        return come;
    }
    void writeDurably(std::int64_t offset, BytesView bytes) override {
        const auto from = static_cast<std::size_t>(offset);
        bytes_->resize(std::max(bytes_->size(), from + bytes.size()), '\0');
        bytes_->replace(from, bytes.size(), bytes);
    }
    bool isInPlace() override { return true; }
    void finish() override {}
    void handOver() override {}

private:
    std::shared_ptr<Bytes> bytes_;
};

[[noreturn]] void fail() { throw RuntimeFailure{FailureKind::file}; }

} // namespace

Text MemoryFiles::key(Text path) {
    for (char16_t& character : path) {
        character += character >= u'a' && character <= u'z' ? u'A' - u'a' : 0;
    }
    return path;
}

Bytes MemoryFiles::bytesOf(const Text& path) const { return *files.at(key(path)); }

std::unique_ptr<RandomFile> MemoryFiles::openRandom(const Text& path) { return openBulk(path); }

std::unique_ptr<BulkFile> MemoryFiles::openBulk(const Text& path) {
    auto& file = files[key(path)];
    if (!file) {
        file = std::make_shared<Bytes>();
    }
    return std::make_unique<MemoryFile>(file);
}

Bytes MemoryFiles::readWhole(const Text& path, std::size_t limit) {
    const auto found = files.find(key(path));
    if (found == files.end() || found->second->size() > limit) {
        fail();
    }
    return *found->second;
}

void MemoryFiles::replaceWhole(const Text& path, BytesView contents) {
    files[key(path)] = std::make_shared<Bytes>(contents);
}

std::unique_ptr<TableLock> MemoryFiles::moveIntoPlace(const Text& from, const Text& to) {
    const auto found = files.find(key(from));
    if (found == files.end()) {
        fail();
    }
    files[key(to)] = found->second;
    files.erase(key(from));
    return std::make_unique<TableLock>();
}

void MemoryFiles::remove(const Text& path) {
    if (files.erase(key(path)) == 0) {
        fail();
    }
}

void MemoryFiles::copy(const Text&, const Text&) { fail(); }
void MemoryFiles::makeFolder(const Text&) { fail(); }
FolderContents MemoryFiles::folderContents(const Text&) { fail(); }
