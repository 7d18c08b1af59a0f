#include "structure/block_operations.h"

#include "structure/random_table.h"

#include "sheet/cell.h"

#include <algorithm>
#include <optional>

namespace {

/// Copy and move of a block as a user of paper would carry them out, cell by cell on the records themselves.
class LiteralBlock {
public:
    LiteralBlock(const RandomTable& table, bool move) : table_(table), move_(move), records(table.records) {}

    void run(int fromRecord, int toRecord, int fromItem, int toItem, int atRecord, int atItem) {
        const int n = table_.count();
        if (atRecord == fromRecord && atItem == fromItem) {
            return;
        }
        if (atRecord == fromRecord) {
            for (int r = fromRecord; r <= toRecord && r <= n; ++r) {
                std::string slot = record(r);
                if (fromItem <= atItem) {
                    for (int k = fromItem; k <= toItem && take(slot, slot, k, atItem + k - fromItem); ++k) {
                    }
                } else {
                    for (int k = toItem; k >= fromItem && take(slot, slot, k, atItem + k - fromItem); --k) {
                    }
                }
                write(r, slot);
            }
            return;
        }
        const int height = toRecord - fromRecord + 1;
        for (int i = 0; i < height; ++i) {
            const int step = atRecord < fromRecord ? i : height - 1 - i;
            const int source = fromRecord + step;
            const int target = atRecord + step;
            if (source > n || target > n) {
                if (atRecord < fromRecord) {
                    return;
                }
                continue;
            }
            std::string slot1 = record(source);
            std::string slot0 = record(target);
            for (int k = fromItem; k <= toItem && take(slot1, slot0, k, atItem + k - fromItem); ++k) {
            }
            write(target, slot0);
            if (move_) {
                write(source, slot1);
            }
        }
    }

private:
    std::string record(int number) const { return records[static_cast<std::size_t>(number - 1)]; }
    void write(int number, const std::string& slot) {
        records[static_cast<std::size_t>(number - 1)] = slot.substr(0, 254) + "\r\n";
    }

    bool take(std::string& source, std::string& target, int item, int place) {
        if (place >= static_cast<int>(table_.items.size())) {
            return false;
        }
        const auto from = static_cast<std::size_t>(item);
        const CodePage& page = table_.codePage;
        std::u16string value = page.decode(source.substr(table_.startOf(from), table_.widthOf(from)));
        while (!value.empty() && value.front() == u' ') {
            value.erase(0, 1);
        }
        while (!value.empty() && value.back() == u' ') {
            value.pop_back();
        }
        put(target, page.encode(value), static_cast<std::size_t>(place));
        if (move_) {
            put(source, std::string(table_.widthOf(from), ' '), from);
        }
        return true;
    }

    void put(std::string& row, const std::string& value, std::size_t item) const {
        const std::size_t width = table_.widthOf(item);
        const std::string blanks(254, ' ');
        const std::string cell =
            table_.items[item].align == "R" ? (blanks + value).substr(254 + value.size() - width) : (value + blanks).substr(0, width);
        const std::size_t start = table_.startOf(item);
        std::string changed = row.substr(0, start) + cell;
        if (item + 1 < table_.items.size()) {
            changed += row.substr(table_.startOf(item + 1));
        }
        row = table_.codePage.encode(table_.codePage.decode(changed));
        row.resize(256, ' ');
    }

    const RandomTable& table_;
    bool move_;

public:
    std::vector<std::string> records;
};

void select(ZORMOD& zormod, std::int32_t fromRecord, std::int32_t toRecord, std::int16_t fromItem, std::int16_t toItem) {
    zormod.selection = {1, fromRecord, toRecord, fromItem, toItem, 0};
}

/// Four items of ID (3, left), 氏名 (6, left), 年齢 (3, right), 組 (4, left) and three records.
struct BlockWorld : TestWorld {
    BlockWorld() {
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 3}, {u"組", u"L", 4}},
              {{u"1", u"山田", u"40", u"東"}, {u"2", u"鈴木", u"7", u"西組"}, {u"3", u"abcdef", u"101", u"x"}});
        before = bytesOf("t.txt");
    }
    void stand(std::int32_t record, std::int16_t item) {
        zormod.position.curRecord = record;
        zormod.position.curItem = item;
    }
    /// The cells of a record on the disk, between bars.
    std::string row(int record) {
        Bytes rec;
        readRecord(zormod, 1, record, rec);
        std::string cells;
        for (std::int16_t item = 0; item <= zormod.items.itemCount; ++item) {
            cells += utf8(cellOf(zormod, rec, item)) + "|";
        }
        return cells;
    }
    std::string before;
};

/// What becomes of five cells of one letter each, "abcde", when those of two items and between go to another item.
std::string lettersAfter(void (*operation)(ZORMOD&), std::int16_t from, std::int16_t to, std::int16_t pointer) {
    TestWorld world;
    world.table({{u"0", u"L", 1}, {u"1", u"L", 1}, {u"2", u"L", 1}, {u"3", u"L", 1}, {u"4", u"L", 1}},
                {{u"a", u"b", u"c", u"d", u"e"}});
    select(world.zormod, 1, 1, from, to);
    world.zormod.position.curItem = pointer;
    operation(world.zormod);
    return world.bytesOf("t.txt").substr(0, 5);
}

} // namespace

TEST(BlockOperations, RandomBlocksComeOutAsCarriedOutCellByCell) {
    int overlaps = 0;
    int beyondTheEnd = 0;
    for (unsigned seed = 1; seed <= 750; ++seed) {
        RandomTable table(seed, 6, 7);
        for (int round = 0; round < 8; ++round) {
            const bool move = table.between(0, 1) == 0;
            const int n = std::max(1, table.count());
            // Now and then the range reaches past the end.
            const int a = table.between(1, n + 1);
            const int b = table.between(1, n + 1);
            const std::int16_t c = table.anyItem();
            const std::int16_t d = table.anyItem();
            const int fromRecord = std::min(a, b);
            const int toRecord = std::max(a, b);
            const std::int16_t fromItem = std::min(c, d);
            const std::int16_t toItem = std::max(c, d);
            const int atRecord = table.between(0, 1) == 0 ? table.between(1, table.count() + 1) : fromRecord;
            const std::int16_t atItem = table.anyItem();
            LiteralBlock literal(table, move);
            literal.run(fromRecord, toRecord, fromItem, toItem, atRecord, atItem);
            table.records = literal.records;

            select(table.copy, a, b, c, d);
            table.copy.position.curRecord = atRecord;
            table.copy.position.curItem = atItem;
            (move ? moveBlock : copyBlock)(table.copy);
            ASSERT_EQ(table.dataNow(), table.joined() + table.tail) << "seed " << seed << ", round " << round;
            ASSERT_EQ(table.memory.count(), 2);
            const bool overlap = std::abs(atRecord - fromRecord) <= toRecord - fromRecord &&
                                 std::abs(atItem - fromItem) <= toItem - fromItem;
            overlaps += overlap ? 1 : 0;
            beyondTheEnd += atRecord + toRecord - fromRecord > table.count() ? 1 : 0;
        }
    }
    EXPECT_GT(overlaps, 1000);
    EXPECT_GT(beyondTheEnd, 500);
}

TEST(BlockOperations, LargeBlocksComeOutTheSame) {
    for (const auto& [fromRecord, atRecord] : {std::pair{1, 301}, {301, 1}, {1, 1400}, {1400, 2}, {700, 701}, {701, 700}}) {
        for (const bool move : {false, true}) {
            RandomTable table(7, 5, 0);
            table.records.clear();
            for (int record = 1; record <= 2000; ++record) {
                std::string row = std::to_string(record) + " \x82\xA0 " + std::to_string(record * 7);
                row.resize(254, ' ');
                table.records.push_back(row + "\r\n");
            }
            table.copy.files.byNumber[1]->writeDurably(0, table.joined());
            const auto last = static_cast<std::int16_t>(table.items.size() - 1);
            LiteralBlock literal(table, move);
            literal.run(fromRecord, fromRecord + 600, 0, last, atRecord, 0);
            std::string expected;
            for (const std::string& record : literal.records) {
                expected += record;
            }
            select(table.copy, fromRecord, fromRecord + 600, 0, last);
            table.copy.position.curRecord = atRecord;
            table.copy.position.curItem = 0;
            (move ? moveBlock : copyBlock)(table.copy);
            EXPECT_EQ(table.dataNow(), expected) << fromRecord << " to " << atRecord << " move " << move;
        }
    }
}

TEST(BlockOperations, AValueIsTrimmedAndGoesInByItsNewItem) {
    BlockWorld world;
    select(world.zormod, 1, 3, 1, 1);
    world.stand(1, 2); // three bytes, to the right
    copyBlock(world.zormod);
    EXPECT_EQ(world.row(1), "1  |山田  |" + utf8(world.codePage.decode("\x52\x93\x63")) + "|東  |"); // the last three bytes
    EXPECT_EQ(world.row(3), "3  |abcdef|def|x   |");
    BlockWorld other;
    select(other.zormod, 1, 2, 2, 2);
    other.stand(1, 1);
    copyBlock(other.zormod);
    EXPECT_EQ(other.row(1), "1  |40    | 40|東  |");
    EXPECT_EQ(other.row(2), "2  |7     |  7|西組|");
}

TEST(BlockOperations, AMovedCellIsBlankAfterwards) {
    BlockWorld world;
    select(world.zormod, 1, 1, 1, 2);
    world.stand(3, 1);
    moveBlock(world.zormod);
    EXPECT_EQ(world.row(1), "1  |      |   |東  |");
    EXPECT_EQ(world.row(3), "3  |山田  | 40|x   |");
    EXPECT_EQ(world.bytesOf("t.txt").substr(256, 256), world.before.substr(256, 256));
}

TEST(BlockOperations, OverTheRightEdgeCellsWithoutAnItemAreLost) {
    BlockWorld world;
    select(world.zormod, 1, 1, 1, 3);
    world.stand(2, 2);
    moveBlock(world.zormod);
    EXPECT_EQ(world.row(2), "2  |鈴木  |" + utf8(world.codePage.decode("\x52\x93\x63")) + "|40  |");
    // The cell that found no item stays where it was.
    EXPECT_EQ(world.row(1), "1  |      |   |東  |");
}

TEST(BlockOperations, OverTheEndOfTheTableRecordsAreLostAndNoneIsMade) {
    BlockWorld world;
    select(world.zormod, 1, 3, 0, 3);
    world.stand(3, 0);
    copyBlock(world.zormod);
    EXPECT_EQ(world.row(3), "1  |山田  | 40|東  |");
    EXPECT_EQ(world.bytesOf("t.txt").size(), world.before.size());
    select(world.zormod, 1, 1, 0, 3);
    world.stand(4, 0);
    copyBlock(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt").size(), world.before.size());
    EXPECT_EQ(world.zormod.position.curRecord, 4);
}

TEST(BlockOperations, ToTheRightInTheSameRecordTheFirstCellsAreRepeated) {
    EXPECT_EQ(lettersAfter(copyBlock, 0, 3, 1), "aaaaa");
}

TEST(BlockOperations, AMoveToTheRightInTheSameRecordCarriesTheFirstCellAlong) {
    EXPECT_EQ(lettersAfter(moveBlock, 0, 3, 1), "    a");
}

TEST(BlockOperations, ToTheLeftInTheSameRecordTheLastCellsAreRepeated) {
    EXPECT_EQ(lettersAfter(copyBlock, 1, 4, 0), "eeeee");
}

TEST(BlockOperations, AMoveOntoItselfBeepsACopyDoesNotAndNeitherChangesAnything) {
    BlockWorld world;
    for (const bool move : {true, false}) {
        select(world.zormod, 2, 3, 1, 2);
        world.zormod.taskWord = move ? u"move" : u"copy";
        world.stand(2, 1);
        (move ? moveBlock : copyBlock)(world.zormod);
        EXPECT_EQ(world.beeper.count, 1);
        EXPECT_EQ(world.bytesOf("t.txt"), world.before);
        EXPECT_EQ(world.zormod.selection.selectionKind, 0);
        EXPECT_EQ(world.zormod.taskWord, Text());
    }
}

TEST(BlockOperations, CopyAndMoveShowNoProgressAndGiveTheSelectionUp) {
    BlockWorld world;
    select(world.zormod, 1, 1, 1, 1);
    world.zormod.taskWord = u"copy";
    world.stand(2, 1);
    copyBlock(world.zormod);
    EXPECT_TRUE(world.dialogs.progressNames.empty());
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.taskWord, Text());
    EXPECT_EQ(world.screen.maskHides, 1);
    EXPECT_EQ(utf8(getCell(world.zormod, 1)), "山田  ");
}

TEST(ClearRange, BlanksTheCellsAndPutsThemInTheClipFile) {
    BlockWorld world;
    clearRange(world.zormod, 3, 2, 2, 1); // ends the other way round
    EXPECT_EQ(world.row(1), "1  |山田  | 40|東  |");
    EXPECT_EQ(world.row(2), "2  |      |   |西組|");
    EXPECT_EQ(world.row(3), "3  |      |   |x   |");
    EXPECT_EQ(world.bytesOf("ZORCLip"), " 2 \r\n 2 \r\n 3 \r\n 2 \r\n 1 \r\n 2 \r\n\"\x97\xE9\x96\xD8  \"\r\n\"  7\"\r\n"
                                        "\"abcdef\"\r\n\"101\"\r\n");
    EXPECT_EQ(utf8(world.dialogs.progressNames), (std::vector<std::string>{"ｸﾘｯﾌﾟﾌｧｲﾙ作成中", "消去中"}));
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_FALSE(world.dialogs.progressOpen);
}

TEST(ClearRange, RandomRangesComeOutWithBlanksInTheirBytes) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomTable table(seed, 6, 8);
        const int n = table.count();
        if (n == 0) {
            continue;
        }
        const int a = table.between(1, n);
        const int b = table.between(1, n);
        const std::int16_t c = table.anyItem();
        const std::int16_t d = table.anyItem();
        const std::size_t last = table.items.size() - 1;
        std::string expected;
        for (int number = 1; number <= n; ++number) {
            std::string record = table.records[static_cast<std::size_t>(number - 1)];
            if (number >= std::min(a, b) && number <= std::max(a, b)) {
                record.resize(254);
                for (auto item = static_cast<std::size_t>(std::min(c, d)); item <= static_cast<std::size_t>(std::max(c, d)); ++item) {
                    // The last item takes all that stands behind it along.
                    const std::size_t length = item == last ? 254 - table.startOf(item) : table.widthOf(item);
                    record.replace(table.startOf(item), length, length, ' ');
                    record = table.codePage.encode(table.codePage.decode(record));
                }
                record = record.substr(0, 254) + "\r\n";
            }
            expected += record;
        }
        const std::string items = table.itemsNow();
        clearRange(table.copy, a, b, c, d);
        ASSERT_EQ(table.dataNow(), expected + table.tail) << seed;
        ASSERT_EQ(table.itemsNow(), items) << seed;
    }
}

TEST(ClearRange, ItsProgressCountsTheRecordsOfTheRange) {
    BlockWorld world;
    clearRange(world.zormod, 2, 3, 1, 2);
    EXPECT_EQ(utf8(world.dialogs.progressTexts.back()), " 100%完了");
    EXPECT_EQ(world.eventLoop.turns, 4);
}

TEST(ClearRange, StoppedAtTheClipFileOrLaterItBlanksNothing) {
    for (int turn = 1; turn <= 6; ++turn) {
        BlockWorld world;
        world.zormod.selection.selectionKind = 1;
        world.zormod.taskWord = u"killrecord";
        world.eventLoop.atTurn[turn] = [&] { world.zormod.results.answers[0] = 1.0; };
        clearRange(world.zormod, 1, 3, 0, 3);
        EXPECT_EQ(world.bytesOf("t.txt"), world.before) << turn;
        EXPECT_EQ(world.zormod.selection.selectionKind, 0);
        EXPECT_EQ(world.zormod.taskWord, Text());
        if (turn <= 3) {
            EXPECT_EQ(world.zormod.selection.selRecordTo, 0);
        }
        EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 0.0);
        EXPECT_FALSE(world.dialogs.progressOpen);
    }
}

TEST(ClearRange, WhatStandsBehindTheLastItemGoesWithIt) {
    BlockWorld world;
    std::string bytes = world.before;
    bytes.replace(100, 6, "behind");
    world.writeFile("t.txt", bytes);
    clearRange(world.zormod, 1, 1, 2, 2);
    EXPECT_EQ(world.bytesOf("t.txt").substr(100, 6), "behind");
    clearRange(world.zormod, 1, 1, 3, 3);
    EXPECT_EQ(world.bytesOf("t.txt").substr(12, 244), std::string(242, ' ') + "\r\n");
}

TEST(ClearRange, OnAnEmptyTableNoRecordIsMade) {
    TestWorld world;
    world.table({{u"ID", u"L", 3}}, {});
    clearRange(world.zormod, 1, 1, 0, 0);
    EXPECT_EQ(world.bytesOf("t.txt"), "");
}
