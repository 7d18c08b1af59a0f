// What the next opening makes of the journal of an interrupted change, whatever has become of table and journal meanwhile.

#include "sheet/change_recovery.h"
#include "sheet/change_world.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <random>

namespace {

namespace fs = std::filesystem;

constexpr const char* journalName = ".change-t.txt";
constexpr const char* unusedName = ".unused-change-t.txt";

/// A table that a change of `span` has not reached yet, and the complete journal of that change.
struct Interrupted : ChangeWorld {
    /// The records get one version after the other. With more than one of them the span must be of so many frames that
    /// each leaves the memory before its next turn.
    explicit Interrupted(std::int32_t records, RecordSpan span, const std::string& tail = "",
                         const std::string& versions = "b")
        : ChangeWorld(records, tail) {
        after = before;
        after.resize(std::max(after.size(), static_cast<std::size_t>(span.to) * recordLength), '\0');
        const std::string changed = recordsOf(span.from, span.to, versions.back());
        after.replace(static_cast<std::size_t>(span.from - 1) * recordLength, changed.size(), changed);
        // The journal is made of one write for each of its frames and one for its head; then comes the table.
        const int frames = ((span.to - span.from) / 256 + 1) * static_cast<int>(versions.size());
        faulty.failAt(1 + frames + 1 + 1 + 1, FaultyFiles::Counted::writes, FaultyFiles::Lasting::fromThenOn);
        EXPECT_THROW(writeAll(span, versions), RuntimeFailure);
        faulty.heal();
        EXPECT_EQ(now(), before);
        journal = bytesOf(journalName);
        EXPECT_EQ(entries(), (std::set<std::string>{"kt.txt", "t.txt", journalName}));
    }
    void writeAll(RecordSpan span, const std::string& versions) {
        changeInPlace(copy, {.spans = {span}}, [&](RecordChanges& run) {
            for (const char version : versions) {
                for (std::int32_t record = span.from; record <= span.to; ++record) {
                    run.write(record, rowOf(record, version));
                }
            }
        });
    }
    /// Lets the next opening meet this table and this journal.
    void meet(const std::string& table, const std::string& withJournal) {
        writeFile("t.txt", table);
        writeFile(journalName, withJournal);
        recover();
    }

    std::string after;
    std::string journal;
};

/// Each record of `one` or of `other`, as chance has it.
std::string mixed(const std::string& one, const std::string& other, std::mt19937& random) {
    std::string bytes;
    for (std::size_t offset = 0; offset < one.size(); offset += recordLength) {
        bytes += (random() % 2 == 0 ? one : other).substr(offset, recordLength);
    }
    return bytes;
}

} // namespace

TEST(ChangeRecovery, AnyMixtureOfOldAndNewRecordsBecomesTheNew) {
    Interrupted world(700, {5, 690});
    std::mt19937 random(1);
    for (int round = 0; round < 50; ++round) {
        world.meet(mixed(world.before, world.after, random), world.journal);
        EXPECT_EQ(world.now(), world.after);
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(ChangeRecovery, ARecordTornBetweenOldAndNewBecomesTheNew) {
    Interrupted world(20, {5, 15});
    for (std::size_t cut = 5 * recordLength; cut <= 6 * recordLength; ++cut) {
        world.meet(world.before.substr(0, cut) + world.after.substr(cut), world.journal);
        EXPECT_EQ(world.now(), world.after) << cut;
        world.meet(world.after.substr(0, cut) + world.before.substr(cut), world.journal);
        EXPECT_EQ(world.now(), world.after) << cut;
    }
}

TEST(ChangeRecovery, ATableWithAllOldOrAllNewRecordsStaysAsItIs) {
    Interrupted world(700, {5, 690});
    world.meet(world.before, world.journal);
    EXPECT_EQ(world.now(), world.before);
    EXPECT_EQ(world.entries(), tableAlone);
    world.meet(world.after, world.journal);
    EXPECT_EQ(world.now(), world.after);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(ChangeRecovery, WhatStandsOutsideTheSpanIsNobodysBusiness) {
    Interrupted world(20, {5, 15});
    std::string edited = world.before;
    edited.replace(0, 3, "xyz");
    edited.replace(6 * recordLength, recordLength, world.after, 6 * recordLength, recordLength);
    std::string expected = world.after;
    expected.replace(0, 3, "xyz");
    world.meet(edited, world.journal);
    EXPECT_EQ(world.now(), expected);
}

TEST(ChangeRecovery, AGrowingTableIsFinishedFromEveryLength) {
    Interrupted world(20, {18, 21}, std::string(44, 't'));
    for (std::size_t length = world.before.size(); length <= world.after.size(); ++length) {
        // The part that has grown, with or without its contents.
        std::string grown = world.before;
        grown.resize(length, '\0');
        world.meet(grown, world.journal);
        EXPECT_EQ(world.now(), length == world.before.size() ? world.before : world.after) << length;
        world.meet(world.after.substr(0, length), world.journal);
        EXPECT_EQ(world.now(), world.after) << length;
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(ChangeRecovery, ATornJournalIsDroppedAtEveryLength) {
    Interrupted world(20, {5, 5});
    for (std::size_t length = 0; length < world.journal.size(); ++length) {
        world.meet(world.before, world.journal.substr(0, length));
        EXPECT_EQ(world.now(), world.before) << length;
        EXPECT_EQ(world.entries(), tableAlone) << length;
        // Made long enough by the file system, but never filled.
        std::string holes = world.journal.substr(0, length);
        holes.resize(world.journal.size(), '\0');
        if (holes != world.journal) {
            world.meet(world.before, holes);
            EXPECT_EQ(world.now(), world.before) << length;
        }
    }
}

TEST(ChangeRecovery, AJournalWithAnyWrongByteIsDropped) {
    Interrupted world(20, {5, 5});
    for (std::size_t at = 0; at < world.journal.size(); ++at) {
        std::string damaged = world.journal;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x20);
        // Half changed, so that a journal that is believed would be applied.
        const std::string half = world.before.substr(0, 4 * recordLength + 9) + world.after.substr(4 * recordLength + 9);
        world.meet(half, damaged);
        EXPECT_EQ(world.now(), half) << at;
        EXPECT_EQ(world.entries(), tableAlone) << at;
    }
}

TEST(ChangeRecovery, AJournalWithoutOneOfItsFramesIsDropped) {
    Interrupted world(700, {5, 690});
    const std::size_t frame = 24 + 512 * 256;
    for (const std::size_t lost : {std::size_t{0}, std::size_t{1}, std::size_t{2}}) {
        std::string journal = world.journal;
        const std::size_t from = 80 + lost * frame;
        journal.replace(from, std::min(frame, journal.size() - from), std::min(frame, journal.size() - from), '\0');
        world.meet(world.before, journal);
        EXPECT_EQ(world.now(), world.before);
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(ChangeRecovery, RecordsThatChangedAgainWhenTheirFrameWasStoredBecomeTheNewestOnes) {
    Interrupted world(1500, {5, 1490}, "", "mb");
    std::mt19937 random(2);
    world.meet(mixed(world.before, world.after, random), world.journal);
    EXPECT_EQ(world.now(), world.after);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(ChangeRecovery, AJournalWithAnEarlierVersionOfAFrameIsDropped) {
    const RecordSpan span{5, 1490};
    Interrupted world(1500, span, "", "mb");
    const Interrupted earlier(1500, span, "", "m");
    ASSERT_EQ(world.journal.size(), earlier.journal.size());
    constexpr std::size_t headLength = 80;
    constexpr std::size_t frameLength = 24 + 2 * 256 * recordLength;
    std::string journal = world.journal;
    journal.replace(headLength + frameLength, frameLength, earlier.journal, headLength + frameLength, frameLength);
    std::mt19937 random(3);
    const std::string table = mixed(world.before, world.after, random);
    world.meet(table, journal);
    EXPECT_EQ(world.now(), table);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(ChangeRecovery, AnotherTableIsLeftAloneTheJournalPutAsideAndTheUserToldOnce) {
    Interrupted world(20, {5, 15});
    std::string half = world.before.substr(0, 8 * recordLength) + world.after.substr(8 * recordLength);
    std::string edited = half;
    edited[6 * recordLength + 7] = 'x';
    std::string oneByte = world.before;
    oneByte[6 * recordLength] = 'x';
    const std::vector<std::string> others = {
        edited,                                    // a record that the change has not reached was edited
        oneByte,                                   //
        recordsOf(1, 20, 'q'),                     // replaced, of the same length
        half.substr(0, 19 * recordLength),         // cut
        half + recordsOf(21, 21, 'a'),             // continued
        "",                                        // emptied
        half.substr(0, half.size() - 1),           //
    };
    for (const std::string& other : others) {
        world.dialogs.expectedMessages = 1;
        world.meet(other, world.journal);
        EXPECT_EQ(world.now(), other);
        EXPECT_EQ(world.bytesOf(unusedName), world.journal);
        EXPECT_EQ(world.entries(), (std::set<std::string>{"kt.txt", "t.txt", unusedName}));
        ASSERT_EQ(world.dialogs.messages.size(), 1U);
        EXPECT_EQ(utf8(world.dialogs.messages[0].text),
                  "前の作業が途中で終わりましたが、その後に表が変わっているため、続きを行いませんでした。表の内容を確認してください");
        EXPECT_EQ(utf8(world.dialogs.messages[0].title), "確認");
        world.recover(); // no second message: none is expected any more
        world.dialogs.messages.clear();
    }
}

TEST(ChangeRecovery, ATableThatIsGoneStaysGone) {
    Interrupted world(20, {5, 15});
    fs::remove(world.folder.path() + "/t.txt");
    world.dialogs.expectedMessages = 1;
    world.recover();
    EXPECT_EQ(world.entries(), (std::set<std::string>{"kt.txt", unusedName}));
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
}

TEST(ChangeRecovery, ATableMovedWithItsJournalIsFinishedThere) {
    Interrupted world(20, {5, 15});
    const std::string elsewhere = world.folder.path() + "/elsewhere";
    fs::create_directory(elsewhere);
    world.writeFile("t.txt", world.before.substr(0, 8 * recordLength) + world.after.substr(8 * recordLength));
    for (const std::string name : {"t.txt", "kt.txt", journalName}) {
        // Copied, not renamed: another disk is another device and another number for each file.
        fs::copy_file(world.folder.path() + "/" + name, elsewhere + "/" + name);
    }
    const Text name = world.zormod.file.programFolder.substr(2) + u"elsewhere\\t.txt";
    recoverTable(world.zormod, name, world.zormod.file.fileDrive);
    EXPECT_EQ(world.bytesOf("elsewhere/t.txt"), world.after);
    EXPECT_FALSE(fs::exists(elsewhere + "/" + journalName));
    // The one that stayed is finished at its own opening.
    world.recover();
    EXPECT_EQ(world.now(), world.after);
}

TEST(ChangeRecovery, ATableCopiedAwayWithoutItsJournalOpensAsItIs) {
    Interrupted world(20, {5, 15});
    world.writeFile("other.txt", world.before);
    recoverTable(world.zormod, world.zormod.file.programFolder.substr(2) + u"other.txt", world.zormod.file.fileDrive);
    EXPECT_EQ(world.bytesOf("other.txt"), world.before);
    EXPECT_EQ(world.bytesOf(journalName), world.journal);
}

TEST(ChangeRecovery, TheNextChangeWorksOffTheJournalFirst) {
    Interrupted world(20, {5, 15});
    world.writeFile("t.txt", world.before.substr(0, 8 * recordLength) + world.after.substr(8 * recordLength));
    EXPECT_EQ(renew(world.zormod, {1, 2}), BulkEnd::done);
    std::string expected = world.after;
    const std::string changed = recordsOf(1, 2, 'b');
    expected.replace(0, changed.size(), changed);
    EXPECT_EQ(world.now(), expected);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(ChangeRecovery, ARewriteOfTheWholeTableWorksOffTheJournalFirst) {
    Interrupted world(20, {5, 15});
    world.writeFile("t.txt", world.before.substr(0, 8 * recordLength) + world.after.substr(8 * recordLength));
    EXPECT_EQ(bulkRewrite(world.zormod, {}, [](BulkRun& run) { run.copy(1, run.records()); }), BulkEnd::done);
    EXPECT_EQ(world.now(), world.after);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(ChangeRecovery, AWholeTableThatMayOnlyBeReadOpensAndKeepsItsJournal) {
    for (const bool isNew : {false, true}) {
        Interrupted world(20, {5, 15});
        const std::string table = isNew ? world.after : world.before;
        world.writeFile("t.txt", table);
        fs::permissions(world.folder.path() + "/t.txt", fs::perms(0444));
        EXPECT_TRUE(holdsForOrdinaryUser([&] {
            world.recover();
            return true;
        }));
        EXPECT_EQ(world.now(), table);
        EXPECT_EQ(world.bytesOf(journalName), world.journal) << "whether the disk has got the table can't be said";
    }
}

TEST(ChangeRecovery, AFolderThatCannotBeWrittenDoesNotKeepAWholeTableFromOpening) {
    Interrupted world(20, {5, 15});
    fs::permissions(world.folder.path(), fs::perms(0555));
    const bool opened = holdsForOrdinaryUser([&] {
        world.recover();
        return true;
    });
    fs::permissions(world.folder.path(), fs::perms(0755));
    EXPECT_TRUE(opened);
    EXPECT_EQ(world.now(), world.before);
}
