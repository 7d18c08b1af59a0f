#include "platform/posix/descriptor.h"

#include "platform/failure.h"

#include <fcntl.h>
#include <unistd.h>
#include <utility>

void failFile() { throw RuntimeFailure{FailureKind::file}; }

bool saysNothingIsThere(int error) {
    return error == ENOENT || error == ENOTDIR || error == EACCES || error == ENAMETOOLONG || error == ELOOP;
}

Descriptor::~Descriptor() {
    if (isOpen()) {
        close(number_);
    }
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

Status statusOf(const Descriptor& file) {
    Status status{};
    if (fstat(file.number(), &status) != 0) {
        failFile();
    }
    return status;
}

std::optional<Status> statusOf(const std::string& path) {
    Status status{};
    if (stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return status;
}

Descriptor openNative(const std::string& path, int flags, mode_t mode) {
    // Without O_NONBLOCK, opening a pipe would wait for its other end.
    return Descriptor(
        uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode); }));
}

Descriptor openForReading(const std::string& path) {
    Descriptor file = openNative(path, O_RDONLY);
    if (!file.isOpen() || !S_ISREG(statusOf(file).st_mode)) {
        failFile();
    }
    return file;
}

std::size_t readFully(const Descriptor& file, std::int64_t offset, char* into, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t part = uninterrupted([&] {
            return pread(file.number(), into + done, count - done, offset + static_cast<std::int64_t>(done));
        });
        if (part < 0) {
            failFile();
        }
        if (part == 0) {
            break;
        }
        done += static_cast<std::size_t>(part);
    }
    return done;
}

void writeFully(const Descriptor& file, std::int64_t offset, BytesView bytes) {
    while (!bytes.empty()) {
        const ssize_t part = uninterrupted([&] { return pwrite(file.number(), bytes.data(), bytes.size(), offset); });
        if (part <= 0) {
            failFile();
        }
        bytes.remove_prefix(static_cast<std::size_t>(part));
        offset += part;
    }
}
