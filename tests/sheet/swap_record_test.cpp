#include "sheet/bulk_world.h"
#include "sheet/stored_numbers.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

/// A table on which a run that makes an item wider was killed between the two files: new data, old K file.
struct HalfSwapped : BulkWorld {
    HalfSwapped() {
        oldData = bytesOf("t.txt");
        oldItems = bytesOf("kt.txt");
        ForkedChild child([this](const ChildSide&) {
            DyingFiles dying(files);
            ZORMOD copy(Platform{clipboard, clock, beeper, dying, codePage, dialogs, screen, commands, forms, eventLoop, printer});
            copy.file = zormod.file;
            readItemFile(copy, copy.file.fileName, copy.file.fileDrive);
            openDataFile(copy);
            fillFirstWindow(copy);
            widenFirstItem(copy);
            return true;
        });
        EXPECT_TRUE(WIFSIGNALED(child.end()));
        EXPECT_NE(bytesOf("t.txt"), oldData);
        EXPECT_EQ(bytesOf("kt.txt"), oldItems);
    }
    void recover() { recoverTable(zormod, zormod.file.fileName, zormod.file.fileDrive); }
    bool opensInAFolderThatCannotBeWritten() {
        fs::permissions(folder.path(), fs::perms(0555));
        const bool opens = holdsForOrdinaryUser([this] {
            recover();
            return true;
        });
        fs::permissions(folder.path(), fs::perms(0755));
        return opens;
    }
    /// The next opening changes nothing, tells so once, and keeps the record under another name.
    void expectLeftAlone(std::set<std::string> names) {
        const std::string data = bytesOf("t.txt");
        const std::string items = bytesOf("kt.txt");
        const std::string record = bytesOf(".swap-t.txt");
        dialogs.expectedMessages = 1;
        recover();
        EXPECT_EQ(bytesOf("t.txt"), data);
        EXPECT_EQ(bytesOf("kt.txt"), items);
        EXPECT_EQ(bytesOf(".unused-swap-t.txt"), record);
        names.insert(".unused-swap-t.txt");
        EXPECT_EQ(entries(), names);
        ASSERT_EQ(dialogs.messages.size(), 1U);
        EXPECT_EQ(utf8(dialogs.messages[0].text),
                  "前の作業が途中で終わりましたが、その後に表が変わっているため、続きを行いませんでした。表の内容を確認してください");
        EXPECT_EQ(utf8(dialogs.messages[0].title), "確認");
        recover(); // no second message: none is expected any more
    }

    std::string oldData;
    std::string oldItems;

private:
    /// Dies when the second file would be put in place.
    class DyingFiles : public FaultyFiles {
    public:
        using FaultyFiles::FaultyFiles;
        std::unique_ptr<TableLock> moveIntoPlace(const Text& from, const Text& to) override {
            if (++moves_ == 2) {
                std::raise(SIGKILL);
            }
            return FaultyFiles::moveIntoPlace(from, to);
        }

    private:
        int moves_ = 0;
    };
};

} // namespace

TEST(SwapRecord, TheNextOpeningFinishesTheSwap) {
    HalfSwapped world;
    world.recover();
    EXPECT_NE(world.bytesOf("kt.txt").find("2000 ' 6\r\n"), std::string::npos);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(SwapRecord, ItIsFoundWhereverTheProgramIsStarted) {
    HalfSwapped world;
    fs::create_directory(world.folder.path() + "/elsewhere");
    PosixFiles files(defaultDrives(), world.folder.path() + "/elsewhere");
    ZORMOD zormod(Platform{world.clipboard, world.clock, world.beeper, files, world.codePage, world.dialogs,
                           world.screen, world.commands, world.forms, world.eventLoop, world.printer});
    recoverTable(zormod, world.zormod.file.fileName, world.zormod.file.fileDrive);
    EXPECT_NE(world.bytesOf("kt.txt").find("2000 ' 6\r\n"), std::string::npos);
}

TEST(SwapRecord, ATableBroughtBackFromABackupStaysAsItIs) {
    HalfSwapped world;
    world.writeFile("t.txt", world.oldData); // the same length, and into the same file
    world.recover();
    EXPECT_EQ(world.bytesOf("t.txt"), world.oldData);
    EXPECT_EQ(world.bytesOf("kt.txt"), world.oldItems);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(SwapRecord, ALongTableBroughtBackIsKnownByItsEndsAndItsLength) {
    HalfSwapped world;
    world.oldData = std::string(400 * recordLength, 'o');
    const Bytes record = world.bytesOf(".swap-t.txt");
    world.writeFile("t.txt", world.oldData);
    const auto old = world.files.openBulk(world.zormod.file.programFolder + u"t.txt");
    Bytes changed = record.substr(0, 24);
    appendNumber(changed, world.oldData.size());
    appendNumber(changed, sampleOf(*old));
    changed += record.substr(40);
    std::vector<std::string> others(3, world.oldData);
    others[0].front() = 'x';
    others[1].back() = 'x';
    others[2] += std::string(recordLength, 'o'); // both ends are the same
    for (const std::string& other : others) {
        world.writeFile("t.txt", other);
        world.writeFile(".swap-t.txt", changed);
        world.dialogs.messages.clear();
        world.expectLeftAlone(tableAlone);
    }
    fs::remove(world.folder.path() + "/.unused-swap-t.txt");
    world.writeFile("t.txt", world.oldData);
    world.writeFile(".swap-t.txt", changed);
    world.recover();
    EXPECT_EQ(world.bytesOf("kt.txt"), world.oldItems);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(SwapRecord, ADataFileEditedMeanwhileStaysAsItIsAndTheUserIsTold) {
    HalfSwapped world;
    std::string edited = world.bytesOf("t.txt");
    edited[7] = 'x';
    world.writeFile("t.txt", edited);
    world.expectLeftAlone(tableAlone);
    EXPECT_EQ(world.bytesOf("kt.txt"), world.oldItems);
}

TEST(SwapRecord, AnItemFileChangedMeanwhileStaysAsItIsAndTheUserIsTold) {
    HalfSwapped world;
    world.writeFile("kt.txt", world.oldItems + " ");
    world.expectLeftAlone(tableAlone);
}

TEST(SwapRecord, AFileThatIsGoneStaysGone) {
    for (const char* name : {"t.txt", "kt.txt"}) {
        HalfSwapped world;
        fs::remove(world.folder.path() + "/" + name);
        std::set<std::string> others = tableAlone;
        others.erase(name);
        world.expectLeftAlone(others);
    }
}

TEST(SwapRecord, ARecordThatIsNoneIsTakenAway) {
    for (const std::string& bytes : {std::string(), std::string("ROMSWAP2"), std::string(60, 'x'),
                                    "ROMSWAP2" + std::string(40, '\xFF'), "ROMSWAP1" + std::string(40, '\0')}) {
        BulkWorld world;
        const std::string before = world.bytesOf("kt.txt");
        world.writeFile(".swap-t.txt", bytes);
        recoverTable(world.zormod, world.zormod.file.fileName, world.zormod.file.fileDrive);
        EXPECT_EQ(world.bytesOf("kt.txt"), before);
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(SwapRecord, AFolderThatCannotBeWrittenDoesNotKeepATableFromOpening) {
    HalfSwapped world;
    const std::string record = world.bytesOf(".swap-t.txt");
    world.recover();
    const std::vector<std::pair<std::string, std::string>> leftovers = {
        {".swap-t.txt", record}, {".new-ZORCLip", "x"}, {".romika-work", ""}, {"WORK.QQQ", "x"}};
    for (const auto& [name, bytes] : leftovers) {
        world.writeFile(name, bytes);
        EXPECT_TRUE(world.opensInAFolderThatCannotBeWritten()) << name;
        EXPECT_EQ(world.bytesOf(name), bytes);
    }
    world.recover();
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(SwapRecord, ATableChangedMeanwhileOpensThoughTheRecordCannotBePutAside) {
    HalfSwapped world;
    world.writeFile("kt.txt", world.oldItems + " ");
    world.dialogs.expectedMessages = 1;
    EXPECT_TRUE(world.opensInAFolderThatCannotBeWritten());
}

TEST(SwapRecord, WorkFilesOfSomebodyElseStay) {
    BulkWorld world;
    world.writeFile("WORK.QQQ", "x");
    recoverTable(world.zormod, world.zormod.file.fileName, world.zormod.file.fileDrive);
    EXPECT_EQ(world.bytesOf("WORK.QQQ"), "x");
}

TEST(SwapRecord, WorkFilesThatAnotherCopyIsAtWorkOnStay) {
    BulkWorld world;
    world.writeFile(".romika-work", "");
    world.writeFile("WORK.QQQ", "x");
    PosixFiles other(defaultDrives(), world.folder.path());
    const auto claim = other.lockFolder(world.zormod.file.fileDrive + u":");
    ASSERT_NE(claim, nullptr);
    recoverTable(world.zormod, world.zormod.file.fileName, world.zormod.file.fileDrive);
    EXPECT_EQ(world.bytesOf("WORK.QQQ"), "x");
}

TEST(SwapRecord, FingerprintsDifferWhereOneByteDoes) {
    BulkWorld world;
    const auto fingerprint = [&](const std::string& bytes) {
        world.writeFile("f", bytes);
        const auto file = world.files.openBulk(world.zormod.file.programFolder + u"f");
        return fingerprintOf(*file);
    };
    std::set<std::uint64_t> seen;
    std::string bytes(600000, ' ');
    seen.insert(fingerprint(bytes));
    for (const std::size_t at : {0U, 7U, 8U, 262143U, 262144U, 599999U}) {
        bytes[at] = 'x';
        seen.insert(fingerprint(bytes));
    }
    EXPECT_EQ(seen.size(), 7U);
    EXPECT_EQ(fingerprint(bytes), fingerprint(bytes));
}
