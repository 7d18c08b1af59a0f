#include "structure/item_operations.h"

#include "structure/random_table.h"

#include "sheet/cell.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

using MadeItems = std::vector<RandomTable::MadeItem>;

/// Which of the operations' results are compared: a random table, a random range, and what a literal reading makes of them.
struct ItemCase : RandomTable {
    explicit ItemCase(unsigned seed) : RandomTable(seed, 7, 9) {
        const std::int16_t a = anyItem();
        const std::int16_t b = anyItem();
        from = a;
        to = b;
        first = static_cast<std::size_t>(std::min(a, b));
        last = static_cast<std::size_t>(std::max(a, b));
    }
    std::size_t highest() const { return items.size() - 1; }

    std::int16_t from; ///< as handed over, in either order
    std::int16_t to;
    std::size_t first;
    std::size_t last;
};

std::string ended(std::string row) {
    row.resize(std::min<std::size_t>(row.size(), 254));
    return row + "\r\n";
}

std::string padded(std::string row) {
    row.resize(256, ' ');
    return row;
}

/// Three items of ID (3, left), 氏名 (6, left), 年齢 (3, right) and two records.
struct ItemWorld : TestWorld {
    ItemWorld() {
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 3}}, {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}});
        data = bytesOf("t.txt");
        itemFile = bytesOf("kt.txt");
    }
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (std::int16_t item = 0; item <= zormod.items.itemCount; ++item) {
            result.push_back(utf8(zormod.items.itemName[item]));
        }
        return result;
    }
    std::vector<int> marks() const {
        std::vector<int> result;
        for (std::int16_t item = 0; item <= zormod.items.itemCount; ++item) {
            result.push_back(zormod.items.itemInputMark[item]);
        }
        return result;
    }
    std::string sjis(TextView text) const { return codePage.encode(Text(text)); }
    std::string data;
    std::string itemFile;
};

using Names = std::vector<std::string>;

} // namespace

TEST(InsertItems, RandomTablesComeOutAsBlanksPutBetweenTheBytes) {
    int inserted = 0;
    for (unsigned seed = 1; seed <= 400; ++seed) {
        ItemCase table(seed);
        const std::size_t count = table.last - table.first + 1;
        if (table.startOf(table.highest()) + 1 + table.widthOf(table.highest()) + count > 254) {
            continue;
        }
        std::string expected;
        for (const std::string& record : table.records) {
            expected += ended(record.substr(0, table.startOf(table.first)) + std::string(count, ' ') +
                              record.substr(table.startOf(table.first)));
        }
        MadeItems items = table.items;
        for (std::size_t i = 0; i < count; ++i) {
            // "追加項目" and the number of the item.
            items.insert(items.begin() + static_cast<std::ptrdiff_t>(table.first + i),
                         {"\x92\xC7\x89\xC1\x8D\x80\x96\xDA" + std::to_string(table.first + i), "L", 1});
        }
        ASSERT_EQ(insertItems(table.copy, table.from, table.to), BulkEnd::done);
        ASSERT_EQ(table.dataNow(), expected + table.tail) << seed;
        ASSERT_EQ(table.itemsNow(), RandomTable::itemFile(items)) << seed;
        ASSERT_EQ(table.memory.count(), 2);
        ++inserted;
    }
    EXPECT_GT(inserted, 250);
}

TEST(DeleteItems, RandomTablesComeOutShortenedWithTheirOldLineEndInside) {
    int deleted = 0;
    for (unsigned seed = 1; seed <= 400; ++seed) {
        ItemCase table(seed);
        if (table.first == 0 && table.last == table.highest()) {
            continue;
        }
        const std::size_t behind = table.startOf(table.last) + table.widthOf(table.last);
        std::string expected;
        for (const std::string& record : table.records) {
            const std::string row = record.substr(0, 254) + "\r\n";
            const std::string rest = row.substr(behind);
            expected += padded(ended(table.first == 0 ? rest : row.substr(0, table.startOf(table.first)) + rest));
        }
        MadeItems items = table.items;
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(table.first),
                    items.begin() + static_cast<std::ptrdiff_t>(table.last) + 1);
        ASSERT_EQ(deleteItems(table.copy, table.from, table.to), BulkEnd::done);
        ASSERT_EQ(table.dataNow(), expected) << seed;
        ASSERT_EQ(table.itemsNow(), RandomTable::itemFile(items)) << seed;
        ASSERT_EQ(table.memory.count(), 2);
        ++deleted;
    }
    EXPECT_GT(deleted, 250);
}

TEST(MoveItems, RandomTablesComeOutAsTheItemsWalkedInTheirNewOrder) {
    int moved = 0;
    for (unsigned seed = 1; seed <= 400; ++seed) {
        ItemCase table(seed);
        const auto pointer = static_cast<std::size_t>(table.anyItem());
        if (pointer >= table.first && pointer <= table.last) {
            continue;
        }
        const auto walk = [&](const auto& take) {
            for (std::size_t item = 0; item <= table.highest(); ++item) {
                if (item >= table.first && item <= table.last) {
                    continue;
                }
                for (std::size_t inner = table.first; item == pointer && inner <= table.last; ++inner) {
                    take(inner);
                }
                take(item);
            }
        };
        std::string expected;
        for (const std::string& record : table.records) {
            std::string row;
            walk([&](std::size_t item) { row += record.substr(table.startOf(item), table.widthOf(item)); });
            row.resize(254, ' ');
            expected += row + "\r\n";
        }
        MadeItems items;
        walk([&](std::size_t item) { items.push_back(table.items[item]); });
        ASSERT_EQ(moveItems(table.copy, table.from, table.to, static_cast<std::int16_t>(pointer)), BulkEnd::done);
        ASSERT_EQ(table.dataNow(), expected) << seed;
        ASSERT_EQ(table.itemsNow(), RandomTable::itemFile(items)) << seed;
        ASSERT_EQ(table.memory.count(), 2);
        ++moved;
    }
    EXPECT_GT(moved, 100);
}

TEST(InsertItems, NewItemsAreOneByteWideToTheLeftAndNamedByTheirNumber) {
    ItemWorld world;
    world.zormod.items.itemInputMark[1] = 1;
    world.zormod.position.curItem = 2;
    EXPECT_EQ(insertItems(world.zormod, 2, 1), BulkEnd::done);
    EXPECT_EQ(world.names(), (Names{"ID", "追加項目1", "追加項目2", "氏名", "年齢"}));
    EXPECT_EQ(world.marks(), (std::vector<int>{0, 0, 0, 1, 0}));
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 14), "1    " + world.sjis(u"山田  ") + " 40");
    EXPECT_EQ(world.zormod.items.itemStart[3], 6);
    EXPECT_EQ(world.zormod.position.curItem, 2);
    EXPECT_EQ(utf8(getCell(world.zormod, 3)), "山田  ");
    EXPECT_EQ(world.screen.shownCells, 1);
}

TEST(InsertItems, InFrontOfItemNullTheNewOneIsTheIdItem) {
    ItemWorld world;
    EXPECT_EQ(insertItems(world.zormod, 0, 0), BulkEnd::done);
    EXPECT_EQ(world.names(), (Names{"追加項目0", "ID", "氏名", "年齢"}));
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 4), " 1  ");
}

TEST(InsertItems, AWidthOf253AfterwardsIsAllowedOneMoreIsRefused) {
    TestWorld world;
    world.table({{u"ID", u"L", 3}, {u"a", u"L", 248}}, {{u"1", u"x"}});
    // 4 and 248 and 2 are 254, counted with the start of the last item.
    EXPECT_EQ(insertItems(world.zormod, 0, 1), BulkEnd::done);
    const std::string data = world.bytesOf("t.txt");
    const std::string itemFile = world.bytesOf("kt.txt");
    world.dialogs.expectedMessages = 1;
    world.zormod.selection.selectionKind = 3;
    EXPECT_EQ(insertItems(world.zormod, 2, 2), BulkEnd::refused);
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "項目挿入不可能");
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "項目幅の合計が254を越えるためこれ以上指定の項目を挿入できません");
    EXPECT_EQ(world.bytesOf("t.txt"), data);
    EXPECT_EQ(world.bytesOf("kt.txt"), itemFile);
    EXPECT_EQ(world.zormod.items.itemCount, 3);
}

TEST(InsertItems, MoreItemsThanATableMayHaveAreRefused) {
    TestWorld world;
    std::vector<TestWorld::Item> items(254, {u"a", u"L", 0});
    world.table(items, {{}});
    EXPECT_EQ(insertItems(world.zormod, 9, 9), BulkEnd::done);
    EXPECT_EQ(world.zormod.items.itemCount, 254);
    world.dialogs.expectedMessages = 1;
    EXPECT_EQ(insertItems(world.zormod, 9, 9), BulkEnd::refused);
    EXPECT_EQ(world.zormod.items.itemCount, 254);
}

TEST(InsertItems, WhatIsPushedBehindByte254IsLost) {
    ItemWorld world;
    std::string data = world.data;
    data.replace(250, 4, "wxyz");
    world.writeFile("t.txt", data);
    EXPECT_EQ(insertItems(world.zormod, 1, 3 - 1), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt").substr(250, 6), "  wx\r\n");
}

TEST(InsertItems, ShowsNoProgressAndUsesNoWorkFile) {
    ItemWorld world;
    world.writeFile("WORK.QQQ", "somebody else's");
    EXPECT_EQ(insertItems(world.zormod, 1, 1), BulkEnd::done);
    EXPECT_TRUE(world.dialogs.progressNames.empty());
    EXPECT_EQ(world.eventLoop.turns, 0);
    EXPECT_EQ(world.bytesOf("WORK.QQQ"), "somebody else's");
}

TEST(DeleteItems, ARecordHasTwoLineEndsAfterwards) {
    ItemWorld world;
    world.zormod.items.itemInputMark[2] = 1;
    world.zormod.position.curItem = 2;
    EXPECT_EQ(deleteItems(world.zormod, 1, 1), BulkEnd::done);
    EXPECT_EQ(world.names(), (Names{"ID", "年齢"}));
    EXPECT_EQ(world.marks(), (std::vector<int>{0, 1}));
    const std::string record = world.bytesOf("t.txt").substr(0, 256);
    EXPECT_EQ(record, "1   40" + std::string(242, ' ') + "\r\n\r\n    ");
    EXPECT_EQ(world.zormod.position.curItem, 1);
    EXPECT_EQ(utf8(world.commands.names), Names{"showOpenedTable"});
}

TEST(DeleteItems, WithoutItemNullTheNextOneIsTheIdItem) {
    ItemWorld world;
    EXPECT_EQ(deleteItems(world.zormod, 1, 0), BulkEnd::done);
    EXPECT_EQ(world.names(), Names{"年齢"});
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 3), " 40");
    EXPECT_EQ(world.zormod.items.itemStart[0], 1);
    EXPECT_EQ(utf8(getCell(world.zormod, 0)), " 40");
}

TEST(DeleteItems, TheNextCommitOfARecordGivesItItsPlainForm) {
    ItemWorld world;
    deleteItems(world.zormod, 1, 1);
    setSlotCell(world.zormod, currentSlot(world.zormod), u"9", 1);
    commitRecord(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 256), "1    9" + std::string(248, ' ') + "\r\n");
}

TEST(DeleteItems, AllItemsAreAFailureThatChangesNothing) {
    ItemWorld world;
    EXPECT_THROW(deleteItems(world.zormod, 0, 2), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t.txt"), world.data);
    EXPECT_EQ(world.bytesOf("kt.txt"), world.itemFile);
}

TEST(DeleteItems, ShowsNoProgressAndCannotBeStopped) {
    ItemWorld world;
    world.zormod.results.answers[0] = 1.0;
    EXPECT_EQ(deleteItems(world.zormod, 2, 2), BulkEnd::done);
    EXPECT_TRUE(world.dialogs.progressNames.empty());
    EXPECT_EQ(world.eventLoop.turns, 0);
}

TEST(DeleteItems, WhileAnotherCopyIsAtWorkNothingIsDone) {
    ItemWorld world;
    PosixFiles other(defaultDrives(), world.folder.path());
    const auto claim = other.lockFolder(world.zormod.file.fileDrive + u":");
    world.dialogs.expectedMessages = 2;
    EXPECT_EQ(deleteItems(world.zormod, 1, 1), BulkEnd::refused);
    EXPECT_EQ(moveItems(world.zormod, 1, 1, 0), BulkEnd::refused);
    EXPECT_EQ(world.zormod.taskWord, Text());
    EXPECT_EQ(world.names(), (Names{"ID", "氏名", "年齢"}));
    EXPECT_EQ(world.bytesOf("t.txt"), world.data);
    EXPECT_TRUE(world.commands.names.empty());
    EXPECT_TRUE(world.takeSpoken().empty());
}

TEST(MoveItems, TheRangeGoesInFrontOfThePointerAndTheUserHearsIt) {
    ItemWorld world;
    world.zormod.speech.speechMode = 1;
    const double before = world.clock.slept;
    EXPECT_EQ(moveItems(world.zormod, 2, 2, 0), BulkEnd::done);
    EXPECT_EQ(world.names(), (Names{"年齢", "ID", "氏名"}));
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 256), " 401  " + world.sjis(u"山田  ") + std::string(242, ' ') + "\r\n");
    EXPECT_EQ(world.takeSpoken(), Names{"項目移動完了。"});
    EXPECT_NEAR(world.clock.slept - before, 1.5, 0.01);
    EXPECT_EQ(utf8(world.dialogs.progressNames), Names{"項目移動中"});
    EXPECT_EQ(world.zormod.taskWord, Text());
}

TEST(MoveItems, TheItemsThatTakeInputAreTheSameOnesAfterwards) {
    ItemWorld world;
    world.zormod.items.itemInputMark[0] = 1;
    world.zormod.items.itemInputMark[2] = 1;
    EXPECT_EQ(moveItems(world.zormod, 2, 2, 0), BulkEnd::done);
    EXPECT_EQ(world.names(), (Names{"年齢", "ID", "氏名"}));
    EXPECT_EQ(world.marks(), (std::vector<int>{1, 1, 0}));
}

TEST(MoveItems, WithSpeechOffItDoesNotWait) {
    ItemWorld world;
    const double before = world.clock.slept;
    EXPECT_EQ(moveItems(world.zormod, 0, 0, 2), BulkEnd::done);
    EXPECT_EQ(world.names(), (Names{"氏名", "ID", "年齢"}));
    EXPECT_EQ(world.clock.slept, before);
    EXPECT_TRUE(world.takeSpoken().empty());
}

TEST(MoveItems, TheTaskWordIsWorkWhileItRuns) {
    ItemWorld world;
    Text during;
    world.eventLoop.atTurn[1] = [&] { during = world.zormod.taskWord; };
    moveItems(world.zormod, 2, 2, 0);
    EXPECT_EQ(utf8(during), "work");
}

TEST(MoveItems, StoppedAtAnyRecordItLeavesTheTableAndSaysNothing) {
    for (int turn = 1; turn <= 2; ++turn) {
        ItemWorld world;
        world.zormod.speech.speechMode = 1;
        world.eventLoop.atTurn[turn] = [&] { world.zormod.results.answers[0] = 1.0; };
        EXPECT_EQ(moveItems(world.zormod, 2, 2, 0), BulkEnd::stopped);
        EXPECT_EQ(world.bytesOf("t.txt"), world.data);
        EXPECT_EQ(world.bytesOf("kt.txt"), world.itemFile);
        EXPECT_EQ(world.names(), (Names{"ID", "氏名", "年齢"}));
        EXPECT_TRUE(world.takeSpoken().empty());
        EXPECT_EQ(world.zormod.taskWord, Text());
    }
}

TEST(MoveItems, APointerInsideTheRangeOrOutsideTheTableIsAFailure) {
    ItemWorld world;
    for (const std::int16_t pointer : {std::int16_t{0}, std::int16_t{1}, std::int16_t{-1}, std::int16_t{3}}) {
        EXPECT_THROW(moveItems(world.zormod, 0, 1, pointer), RuntimeFailure);
    }
    EXPECT_THROW(moveItems(world.zormod, 1, 3, 0), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t.txt"), world.data);
}
