#include "platform/posix/posix_random_file.h"

#include "platform/failure.h"

#include <unistd.h>

std::size_t PosixRandomFile::readAt(std::int64_t offset, char* into, std::size_t count) {
    return readFully(file_.descriptor(), offset, into, count);
}

void PosixRandomFile::writeDurably(std::int64_t offset, BytesView bytes) {
    file_.mustBeWritable();
    const std::int64_t oldLength = length();
    try {
        writeFully(file_.descriptor(), offset, bytes);
        file_.sync();
    } catch (const RuntimeFailure&) {
        shrinkBackTo(oldLength);
        throw;
    }
}

void PosixRandomFile::shrinkBackTo(std::int64_t oldLength) {
    if (length() > oldLength &&
        uninterrupted([&] { return ftruncate(file_.descriptor().number(), oldLength); }) != 0) {
        failFile();
    }
}
