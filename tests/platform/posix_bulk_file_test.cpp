#include "platform/failure.h"
#include "support/failing_system_call.h"
#include "support/file_size_limit.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <random>
#include <sys/syscall.h>

namespace {

constexpr std::int64_t row = 256;

std::string rowOf(char letter) { return std::string(row, letter); }

} // namespace

TEST(PosixBulkFile, WhatIsWrittenIsThereAfterFinishing) {
    RealFolder world;
    std::string expected;
    {
        const auto file = world.files.openBulk(u"t");
        for (int i = 0; i < 5000; ++i) {
            const std::string record = rowOf(static_cast<char>('a' + i % 26));
            file->writeDurably(i * row, record);
            expected += record;
        }
        EXPECT_EQ(file->length(), 5000 * row);
        file->finish();
        EXPECT_EQ(world.bytesOf("t"), expected);
    }
    EXPECT_EQ(world.bytesOf("t"), expected);
}

TEST(PosixBulkFile, AFileThatIsThereIsNotEmptied) {
    RealFolder world;
    world.make("t", "0123456789");
    const auto file = world.files.openBulk(u"t");
    file->writeDurably(0, "abc");
    file->finish();
    EXPECT_EQ(world.bytesOf("t"), "abc3456789");
}

TEST(PosixBulkFile, ReadsSeeWhatWasWrittenInAnyOrder) {
    RealFolder world;
    std::string model(1 << 20, '.');
    world.make("t", model);
    const auto file = world.files.openBulk(u"t");
    std::mt19937 random(7);
    for (int step = 0; step < 4000; ++step) {
        const std::size_t from = random() % model.size();
        const std::size_t count = 1 + random() % 700;
        if (random() % 2 == 0) {
            const std::string bytes(count, static_cast<char>('a' + step % 26));
            file->writeDurably(static_cast<std::int64_t>(from), bytes);
            model.resize(std::max(model.size(), from + count), '.');
            model.replace(from, count, bytes);
        } else {
            std::string bytes(count, '\0');
            bytes.resize(file->readAt(static_cast<std::int64_t>(from), bytes.data(), count));
            ASSERT_EQ(bytes, model.substr(from, count)) << step;
        }
    }
    EXPECT_EQ(file->length(), static_cast<std::int64_t>(model.size()));
    file->finish();
    EXPECT_EQ(world.bytesOf("t"), model);
}

TEST(PosixBulkFile, ReadsForwardsAndBackwardsAndPastTheEnd) {
    RealFolder world;
    std::string bytes;
    for (int i = 0; i < 4000; ++i) {
        bytes += rowOf(static_cast<char>('a' + i % 26));
    }
    world.make("t", bytes + "tail");
    const auto file = world.files.openBulk(u"t");
    std::string record(row, '\0');
    for (int i = 0; i < 4000; ++i) {
        ASSERT_EQ(file->readAt(i * row, record.data(), row), static_cast<std::size_t>(row));
        ASSERT_EQ(record, rowOf(static_cast<char>('a' + i % 26)));
    }
    for (int i = 3999; i >= 0; --i) {
        ASSERT_EQ(file->readAt(i * row, record.data(), row), static_cast<std::size_t>(row));
        ASSERT_EQ(record, rowOf(static_cast<char>('a' + i % 26)));
    }
    EXPECT_EQ(file->readAt(4000 * row, record.data(), row), 4U);
    EXPECT_EQ(record.substr(0, 4), "tail");
    EXPECT_EQ(file->readAt(5000 * row, record.data(), row), 0U);
}

TEST(PosixBulkFile, AFullDiskIsReportedAtTheLatestByFinish) {
    RealFolder world;
    const auto file = world.files.openBulk(u"t");
    const FileSizeLimit full(1 << 20);
    const auto writeMuch = [&] {
        for (int i = 0; i < 8192; ++i) {
            file->writeDurably(i * row, rowOf('x'));
        }
        file->finish();
    };
    EXPECT_THROW(writeMuch(), RuntimeFailure);
}

TEST(PosixBulkFile, AFailedSyncFailsFinish) {
    RealFolder world;
    ForkedChild child([&](const ChildSide&) {
        const auto file = world.files.openBulk(u"t");
        file->writeDurably(0, "abc");
        failSystemCall(SYS_fdatasync, EIO);
        try {
            file->finish();
        } catch (const RuntimeFailure&) {
            return true;
        }
        return false;
    });
    EXPECT_EQ(child.end(), 0);
}

TEST(PosixBulkFile, AFileReplacedMeanwhileFailsFinish) {
    RealFolder world;
    world.make("t", "old");
    const auto file = world.files.openBulk(u"t");
    file->writeDurably(0, "new");
    std::filesystem::remove(world.native("t"));
    world.make("t", "other");
    EXPECT_THROW(file->finish(), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t"), "other");
}

TEST(PosixBulkFile, AFileForReadingOnlyCanBeReadAndNotWritten) {
    RealFolder world;
    world.make("t", "old");
    world.openToEverybody();
    std::filesystem::permissions(world.native("t"), std::filesystem::perms(0444));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        const auto file = world.files.openBulk(u"t");
        char byte = 0;
        bool refused = false;
        try {
            file->writeDurably(0, "x");
        } catch (const RuntimeFailure&) {
            refused = true;
        }
        return refused && file->readAt(1, &byte, 1) == 1 && byte == 'l';
    }));
}
