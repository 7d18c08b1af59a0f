#include "sheet/bulk_world.h"
#include "support/forked_child.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

void pressStop(BulkWorld& world) {
    world.zormod.results.answers[0] = 1.0;
    world.dialogs.progressOpen = false;
}

std::string widened(const std::string& records) {
    std::string wider;
    for (std::size_t at = 0; at + 256 <= records.size(); at += 256) {
        const std::string row = records.substr(at, 4) + "  " + records.substr(at + 4);
        wider += row.substr(0, 254) + "\r\n";
    }
    return wider;
}

} // namespace

TEST(BulkRewrite, ACopyHasTheSameBytesAndNothingElseIsLeft) {
    BulkWorld world;
    const std::string before = world.bytesOf("t.txt");
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(BulkRewrite, WritesNoneOneOrMoreRecordsForEach) {
    BulkWorld world(6);
    const std::string before = world.bytesOf("t.txt");
    EXPECT_EQ(dropEveryThird(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), before.substr(0, 512) + before.substr(768, 512));
    bulkRewrite(world.zormod, {.name = u"行挿入中"}, [](BulkRun& run) {
        run.forEach(1, run.records(), [&](const Bytes& row) {
            run.write(row);
            run.write({});
        });
        EXPECT_EQ(run.written(), 8);
    });
    const std::string blank = std::string(254, ' ') + "\r\n";
    EXPECT_EQ(world.bytesOf("t.txt"), before.substr(0, 256) + blank + before.substr(256, 256) + blank +
                                          before.substr(768, 256) + blank + before.substr(1024, 256) + blank);
}

TEST(BulkRewrite, EveryRecordGetsItsEndingAndATailIsNotCopied) {
    BulkWorld world(0);
    world.writeFile("t.txt", std::string(256, 'x') + std::string(44, 'y'));
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), std::string(254, 'x') + "\r\n");
}

TEST(BulkRewrite, ARecordWrittenAsItIsKeepsItsLineEndInside) {
    BulkWorld world(1);
    bulkRewrite(world.zormod, {}, [](BulkRun& run) { run.writeAsIs("ab\r\n"); });
    EXPECT_EQ(world.bytesOf("t.txt"), "ab\r\n" + std::string(252, ' '));
}

TEST(BulkRewrite, InPlaceATailStays) {
    BulkWorld world(0);
    const std::string tail(44, 'y');
    world.writeFile("t.txt", std::string(254, 'x') + "\r\n" + tail);
    EXPECT_EQ(copyAll(world.zormod, BulkRoad::inPlace), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), std::string(254, 'x') + "\r\n" + tail);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(BulkRewrite, NewItemsAndNewRecordsComeTogether) {
    for (const auto& operation : {widenFirstItem, widenInPlace}) {
        BulkWorld world;
        const std::string before = world.bytesOf("t.txt");
        EXPECT_EQ(operation(world.zormod), BulkEnd::done);
        EXPECT_EQ(world.bytesOf("t.txt"), widened(before));
        EXPECT_NE(world.bytesOf("kt.txt").find("2000 ' 6\r\n2001 ' 8\r\n"), std::string::npos);
        EXPECT_EQ(world.zormod.items.itemWidth[0], 6);
        EXPECT_EQ(world.zormod.items.itemStart[1], 7);
        EXPECT_EQ(getCell(world.zormod, 1), u"       a");
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(BulkRewrite, ACurrentItemPastTheNewLastOneComesBackToIt) {
    BulkWorld world;
    world.zormod.position.curItem = 1;
    world.zormod.otherItems = world.zormod.items;
    world.zormod.otherItems.itemCount = 0;
    bulkRewrite(world.zormod, {.items = BulkItems::other}, [](BulkRun& run) { run.copy(1, run.records()); });
    EXPECT_EQ(world.zormod.position.curItem, 0);
    EXPECT_EQ(world.zormod.items.itemCount, 0);
}

TEST(BulkRewrite, PercentComesAtMultiplesOfTenWithALeadingBlank) {
    BulkWorld small(10);
    copyAll(small.zormod);
    EXPECT_THAT(utf8(small.dialogs.progressTexts),
                ElementsAre(" 10%完了", " 20%完了", " 30%完了", " 40%完了", " 50%完了", " 60%完了", " 70%完了",
                            " 80%完了", " 90%完了", " 100%完了"));
    EXPECT_THAT(utf8(small.dialogs.progressNames), ElementsAre("記録移動中"));
    BulkWorld uneven(7);
    copyAll(uneven.zormod);
    EXPECT_THAT(utf8(uneven.dialogs.progressTexts), ElementsAre(" 100%完了"));
    BulkWorld three(3);
    copyAll(three.zormod);
    EXPECT_THAT(utf8(three.dialogs.progressTexts), ElementsAre(" 100%完了"));
}

TEST(BulkRewrite, ThePercentIsRoundedAndNotCut) {
    BulkWorld world(11);
    copyAll(world.zormod);
    EXPECT_THAT(utf8(world.dialogs.progressTexts), ElementsAre(" 100%完了")) << "ten of eleven are 91 percent";
}

TEST(BulkRewrite, AStopFromBeforeStopsNothing) {
    BulkWorld world(7);
    world.zormod.results.answers[0] = 1.0;
    EXPECT_EQ(dropEveryThird(world.zormod), BulkEnd::done);
    EXPECT_EQ(recordCount(world.zormod), 5);
}

TEST(BulkRewrite, TheSameTenthIsShownOnce) {
    BulkWorld world(300);
    copyAll(world.zormod);
    EXPECT_EQ(utf8(world.dialogs.progressTexts).front(), " 0%完了");
    EXPECT_EQ(world.dialogs.progressTexts.size(), 11U);
}

TEST(BulkRewrite, TheEventLoopGetsATurnForEachRecord) {
    BulkWorld world(7);
    copyAll(world.zormod);
    EXPECT_EQ(world.eventLoop.turns, 7);
    EXPECT_FALSE(world.dialogs.progressOpen);
}

TEST(BulkRewrite, WithoutItsFormNoEventIsHandledAndNothingCanStopIt) {
    BulkWorld world(7);
    bulkRewrite(world.zormod, {}, [&](BulkRun& run) {
        world.zormod.results.answers[0] = 1.0;
        EXPECT_TRUE(run.copy(1, 6));
    });
    EXPECT_EQ(world.eventLoop.turns, 0);
    EXPECT_TRUE(world.dialogs.progressNames.empty());
    EXPECT_EQ(world.bytesOf("t.txt").size(), 6 * 256U);
}

TEST(BulkRewrite, AStopAtAnyRecordLeavesTheOldBytes) {
    for (int turn = 1; turn <= 7; ++turn) {
        for (const auto& operation : {widenFirstItem, dropEveryThird}) {
            BulkWorld world(7);
            if (operation == dropEveryThird && turn > 5) {
                continue; // it copies five of seven
            }
            const std::string before = world.bytesOf("t.txt");
            const std::string items = world.bytesOf("kt.txt");
            world.eventLoop.atTurn[turn] = [&] { pressStop(world); };
            world.zormod.taskWord = u"work";
            world.zormod.selection.selectionKind = 2;
            EXPECT_EQ(operation(world.zormod), BulkEnd::stopped);
            EXPECT_EQ(world.eventLoop.turns, turn);
            EXPECT_EQ(world.bytesOf("t.txt"), before);
            EXPECT_EQ(world.bytesOf("kt.txt"), items);
            EXPECT_EQ(world.entries(), tableAlone);
            EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 0.0);
            EXPECT_EQ(world.zormod.taskWord, u"");
            EXPECT_EQ(world.zormod.selection.selectionKind, 0);
            EXPECT_EQ(recordCount(world.zormod), 7);
        }
    }
}

TEST(BulkRewrite, ARunThatCannotBeStoppedGoesOnWithoutTurns) {
    BulkWorld world(7);
    world.eventLoop.atTurn[2] = [&] { pressStop(world); };
    EXPECT_EQ(widenInPlace(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.eventLoop.turns, 2) << "without the form, keys would reach the other windows";
    EXPECT_EQ(world.bytesOf("t.txt").size(), 7 * 256U);
}

TEST(BulkRewrite, ATableWithoutRecordsIsSwappedAllTheSame) {
    BulkWorld world(0);
    world.writeFile("t.txt", std::string(100, 'y'));
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), "");
    EXPECT_EQ(world.entries(), tableAlone);
    EXPECT_EQ(world.eventLoop.turns, 0);
}

TEST(BulkRewrite, AfterwardsPositionSelectionWindowAndTitleAreRight) {
    BulkWorld world(7);
    world.zormod.position.curRecord = 7;
    world.zormod.taskWord = u"killrecord";
    world.zormod.selection = {2, 5, 6, 0, 1};
    dropEveryThird(world.zormod);
    EXPECT_EQ(world.zormod.position.curRecord, 5);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 0);
    EXPECT_EQ(world.zormod.taskWord, u"");
    EXPECT_TRUE(utf8(world.screen.title).ends_with("/記録数:5)")) << utf8(world.screen.title);
    EXPECT_EQ(world.screen.shownCells, 1);
    bulkRewrite(world.zormod, {.name = u"記録削除中"}, [](BulkRun&) {});
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(recordCount(world.zormod), 0);
}

TEST(BulkRewrite, RowsAreWrittenDurablyAgainAfterwards) {
    BulkWorld world(3);
    copyAll(world.zormod);
    setSlotCell(world.zormod, 2, u"new", 0);
    commitRecord(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 4), "new ");
}

TEST(BulkRewrite, ALeftoverOfSomebodyElseKeepsItsTail) {
    BulkWorld world(2);
    const std::string before = world.bytesOf("t.txt");
    world.writeFile("WORK.QQQ", std::string(700, 'z'));
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), before + std::string(700 - 512, 'z'));
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(BulkRewrite, ALeftoverOfOurOwnDoesNot) {
    BulkWorld world(2);
    const std::string before = world.bytesOf("t.txt");
    ForkedChild killed([&](const ChildSide& parent) {
        bulkRewrite(world.zormod, {.name = u"行挿入中"}, [&](BulkRun& run) {
            for (int i = 0; i < 3000; ++i) {
                run.write({});
            }
            parent.giveSign();
            parent.waitForSign();
        });
        return true;
    });
    ASSERT_TRUE(killed.waitForSign());
    killed.kill();
    EXPECT_GT(world.bytesOf("WORK.QQQ").size(), 512U);
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(BulkRewrite, NothingOfALongerNewFileThatCouldNotBeTakenAwayComesIntoTheTable) {
    BulkWorld world(2);
    const std::string before = world.bytesOf("t.txt");
    world.writeFile(".new-t.txt", std::string(5 * 256, 'z'));
    EXPECT_EQ(copyAll(world.zormod, BulkRoad::inPlace), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(BulkRewrite, ARunThatFailsLeavesTheOldBytesAndNoNewFile) {
    for (const BulkRoad road : {BulkRoad::workFile, BulkRoad::inPlace}) {
        BulkWorld world(3);
        const std::string before = world.bytesOf("t.txt");
        EXPECT_THROW(bulkRewrite(world.zormod, {.name = u"行挿入中", .road = road},
                                 [](BulkRun& run) {
                                     run.copy(1, 2);
                                     throw RuntimeFailure{FailureKind::file};
                                 }),
                     RuntimeFailure);
        EXPECT_EQ(world.bytesOf("t.txt"), before);
        EXPECT_EQ(world.entries(), tableAlone);
        EXPECT_EQ(world.zormod.files.byNumber[1]->length(), 3 * 256);
    }
}

TEST(BulkRewrite, WhileAnotherCopyIsAtWorkNothingHappens) {
    BulkWorld world(5);
    world.makeTable("u.txt", {{u"ID", u"L", 4}}, {{u"1"}, {u"2"}});
    const std::string before = world.bytesOf("t.txt");
    ForkedChild other([&](const ChildSide& parent) {
        PosixFiles files(defaultDrives(), world.folder.path());
        const Text drive = world.zormod.file.fileDrive + u":";
        const auto claim = files.lockFolder(drive);
        parent.giveSign();
        return claim != nullptr && parent.waitForSign();
    });
    ASSERT_TRUE(other.waitForSign());
    world.dialogs.expectedMessages = 1;
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::refused);
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "別のロミカが作業中です。しばらくしてからやり直してください");
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "確認");
    EXPECT_TRUE(world.dialogs.progressNames.empty());
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(copyAll(world.zormod, BulkRoad::inPlace), BulkEnd::done) << "needs no work file";
    other.kill();
    EXPECT_EQ(copyAll(world.zormod), BulkEnd::done);
}

TEST(BulkRewrite, TheTableStaysClaimed) {
    BulkWorld world(3);
    world.zormod.files.tableLock = world.files.lockTable(world.zormod.file.programFolder + u"t.txt");
    PosixFiles other(defaultDrives(), world.folder.path());
    EXPECT_EQ(other.lockTable(u"t.txt"), nullptr);
    copyAll(world.zormod);
    EXPECT_EQ(other.lockTable(u"t.txt"), nullptr);
}

TEST(BulkRewrite, AnItemFileThatCannotBeWrittenIsToldAndChangesNothing) {
    BulkWorld world(3);
    const std::string before = world.bytesOf("t.txt");
    std::filesystem::create_directory(world.folder.path() + "/Kwork.qqq");
    world.dialogs.expectedMessages = 1;
    EXPECT_THROW(widenFirstItem(world.zormod), RuntimeFailure) << "the folder can't be cleared away either";
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "ディスクエラー");
    EXPECT_EQ(world.bytesOf("t.txt"), before);
}

TEST(BulkRewrite, ATableReplacedMeanwhileIsNotOverwritten) {
    BulkWorld world(3);
    const std::string other(256, 'o');
    EXPECT_THROW(bulkRewrite(world.zormod, {.name = u"記録移動中"},
                             [&](BulkRun& run) {
                                 run.copy(1, run.records());
                                 std::filesystem::remove(world.folder.path() + "/t.txt");
                                 world.writeFile("t.txt", other);
                             }),
                 RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t.txt"), other);
}

TEST(BulkRewrite, ATableThatWasMovedDeletedOrReplacedBeforeIsNotTakenForTheOpenOne) {
    for (const bool isReplaced : {false, true}) {
        for (const bool hasNewItems : {false, true}) {
            BulkWorld world(3);
            const std::string items = world.bytesOf("kt.txt");
            std::filesystem::rename(world.folder.path() + "/t.txt", world.folder.path() + "/moved.txt");
            if (isReplaced) {
                world.writeFile("t.txt", std::string(512, 'o'));
            }
            const auto before = world.entries();
            EXPECT_THROW(hasNewItems ? widenInPlace(world.zormod) : dropEveryThird(world.zormod), RuntimeFailure);
            EXPECT_EQ(world.bytesOf("t.txt"), isReplaced ? std::string(512, 'o') : std::string());
            EXPECT_EQ(world.bytesOf("kt.txt"), items);
            EXPECT_EQ(world.entries(), before) << "what is gone is not made again, empty";
        }
    }
}

TEST(BulkRewrite, AnItemFileThatMayNotBeReplacedStopsTheSwapBeforeTheDataFileHasMoved) {
    namespace fs = std::filesystem;
    const std::vector<BulkEnd (*)(ZORMOD&)> rewrites = {widenFirstItem, widenInPlace};
    for (const auto rewrite : rewrites) {
        BulkWorld world(3);
        closeAllFiles(world.zormod);
        const std::string before = world.bytesOf("t.txt");
        const std::string items = world.bytesOf("kt.txt");
        fs::permissions(world.folder.path(), fs::perms(0777));
        fs::permissions(world.folder.path() + "/t.txt", fs::perms(0666));
        fs::permissions(world.folder.path() + "/kt.txt", fs::perms(0444));
        EXPECT_TRUE(holdsForOrdinaryUser([&] {
            openDataFile(world.zormod);
            try {
                rewrite(world.zormod);
            } catch (const RuntimeFailure& failure) {
                return failure.kind == FailureKind::file;
            }
            return false;
        }));
        EXPECT_EQ(world.bytesOf("t.txt"), before);
        EXPECT_EQ(world.bytesOf("kt.txt"), items);
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(BulkRewrite, ATableThatGrewOrShrankMeanwhileIsNotOverwritten) {
    for (const int records : {2, 4}) {
        for (const BulkRoad road : {BulkRoad::workFile, BulkRoad::inPlace}) {
            BulkWorld world(3);
            const auto length = static_cast<std::uintmax_t>(records) * recordLength;
            std::string now;
            EXPECT_THROW(bulkRewrite(world.zormod, {.name = u"記録移動中", .road = road},
                                     [&](BulkRun& run) {
                                         run.copy(1, run.records());
                                         std::filesystem::resize_file(world.folder.path() + "/t.txt", length);
                                         now = world.bytesOf("t.txt");
                                     }),
                         RuntimeFailure);
            EXPECT_EQ(world.bytesOf("t.txt"), now);
        }
    }
}

TEST(WorkItemFile, HoldsTheOtherItemsAndTheMemo) {
    BulkWorld world;
    ItemTable& items = world.zormod.otherItems;
    items = world.zormod.items;
    items.itemWidth[1] = 12;
    writeWorkItemFile(world.zormod, 1);
    EXPECT_EQ(world.bytesOf("Kwork.qqq"), world.codePage.encode(u"100  ' 0,memo,, 1\r\n1000 'ID,L\r\n1001 '氏名,R\r\n"
                                                                u"2000 ' 4\r\n2001 ' 12\r\n"));
    EXPECT_EQ(world.zormod.writeFlag, u"");
    writeWorkItemFile(world.zormod, 0);
    EXPECT_EQ(world.bytesOf("Kwork.qqq"), "100  ' 0,memo,, 0\r\n1000 'ID,L\r\n2000 ' 4\r\n");
}
