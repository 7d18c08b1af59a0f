#include "platform/posix/posix_random_file.h"

#include "platform/failure.h"

#include <unistd.h>

std::size_t PosixRandomFile::readAt(std::int64_t offset, char* into, std::size_t count) {
    return readFully(file_.descriptor(), offset, into, count);
}

void PosixRandomFile::writeDurably(std::int64_t offset, BytesView bytes) {
    file_.mustBeWritable();
    const std::int64_t oldLength = length();
    Bytes old(bytes.size(), '\0');
    old.resize(readAt(offset, old.data(), old.size()));
    try {
        writeFully(file_.descriptor(), offset, bytes);
        file_.sync();
    } catch (const RuntimeFailure&) {
        putBack(offset, old, oldLength);
        throw;
    }
}

void PosixRandomFile::putBack(std::int64_t offset, BytesView old, std::int64_t oldLength) {
    // Half a record on the disk would be neither the old one nor the new one if the program died before the next try.
    const bool hasOldLength =
        length() <= oldLength || uninterrupted([&] { return ftruncate(file_.descriptor().number(), oldLength); }) == 0;
    writeFully(file_.descriptor(), offset, old);
    if (!hasOldLength) {
        failFile();
    }
}
