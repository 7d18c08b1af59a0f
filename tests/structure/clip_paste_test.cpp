#include "structure/clip_paste.h"

#include "sheet/cell.h"
#include "structure/clip_file.h"
#include "structure/record_operations.h"
#include "structure/record_world.h"

#include <algorithm>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Cells = std::vector<std::string>;

/// A clip file of `records` records of `items` cells each.
std::string clipOf(int records, int items, const Cells& cells) {
    std::string clip;
    for (const int count : {records, items}) {
        clip += " " + std::to_string(count) + " \r\n";
        for (int i = 1; i <= count; ++i) {
            clip += " " + std::to_string(i) + " \r\n";
        }
    }
    for (const std::string& cell : cells) {
        clip += '"' + cell + "\"\r\n";
    }
    return clip;
}

void insertTheClip(ZORMOD& zormod) { pasteInsert(zormod); }

/// The rule by which a value goes into a row, on bytes.
void put(const CodePage& codePage, const ItemTable& items, std::string& row, const std::string& cell, int item) {
    const auto width = static_cast<std::size_t>(items.itemWidth[item]);
    const auto at = static_cast<std::size_t>(items.itemStart[item] - 1);
    const std::string value = codePage.encode(codePage.decode(cell));
    std::string bytes = items.itemAlign[item] == u"R" ? (std::string(width, ' ') + value) : value + std::string(width, ' ');
    bytes = items.itemAlign[item] == u"R" ? bytes.substr(bytes.size() - width) : bytes.substr(0, width);
    std::string made = row.substr(0, at) + bytes;
    if (item != items.itemCount) {
        made += row.substr(at + width);
    }
    row = codePage.encode(codePage.decode(made));
    row.resize(256, ' ');
}

std::size_t used(const ItemTable& items) {
    return static_cast<std::size_t>(items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] - 1);
}

/// A random table, a random clip of cells without quotes, and a place to paste it.
struct RandomPaste {
    RandomPaste(QuickWorld& quick, std::mt19937& random) : world(quick) {
        rows.resize(random() % 12);
        for (std::string& row : rows) {
            row = randomRow(random, 254) + "\r\n";
        }
        world.rows(randomItems(random, 200), rows, random() % 3 == 0 ? "tail" : "");
        records = 1 + static_cast<int>(random() % 8);
        items = 1 + static_cast<int>(random() % 6);
        for (int i = 0; i < records * items; ++i) {
            cells.push_back(randomRow(random, random() % 14));
        }
        world.writeFile("ZORCLip", clipOf(records, items, cells));
        const int count = world.zormod.items.itemCount + 1;
        world.stand(static_cast<std::int32_t>(1 + random() % (rows.size() + 1)),
                    static_cast<std::int16_t>(random() % static_cast<unsigned>(count)));
        first = world.zormod.position.curRecord;
        item = world.zormod.position.curItem;
    }
    const ItemTable& table() const { return world.zormod.items; }
    const std::string& cellAt(std::size_t index) const { return cells.at(index); }

    QuickWorld& world;
    Rows rows;
    int records = 0;
    int items = 0;
    Cells cells;
    std::int32_t first = 0;
    int item = 0;
};

std::string line(const std::string& text) { return text + "\r\n"; }

} // namespace

TEST(ClipPaste, PastingOverEqualsPuttingCellByCell) {
    std::mt19937 random(11);
    QuickWorld world;
    for (int turn = 0; turn < 250; ++turn) {
        RandomPaste paste(world, random);
        const std::string items = world.itemFile();
        pasteOver(paste.world.zormod);
        EXPECT_EQ(world.itemFile(), items);
        const CodePage& page = paste.world.codePage;
        std::string backup = line(" " + std::to_string(paste.first) + " ");
        Rows rows = paste.rows;
        const std::string tail = rows.size() < static_cast<std::size_t>(paste.first + paste.records - 1)
                                     ? ""
                                     : paste.world.bytesOf("t.txt").substr(rows.size() * 256);
        for (int i = 0; i < paste.records; ++i) {
            const auto target = static_cast<std::size_t>(paste.first - 1 + i);
            if (target >= rows.size()) {
                rows.push_back(std::string(256, ' '));
            }
            std::string& row = rows[target];
            backup += line('"' + page.encode(page.decode(row.substr(0, used(paste.table())))) + '"');
            for (int j = 0; j < paste.items && paste.item + j <= paste.table().itemCount; ++j) {
                put(page, paste.table(), row, paste.cellAt(static_cast<std::size_t>(i * paste.items + j)),
                    paste.item + j);
            }
            row = ended(row.substr(0, 254));
        }
        ASSERT_EQ(paste.world.bytesOf("t.txt"), joinedRows(rows) + tail) << turn;
        ASSERT_EQ(paste.world.backup(), backup) << turn;
    }
}

TEST(ClipPaste, PastingByInsertionEqualsInsertingAndThenFilling) {
    std::mt19937 random(12);
    QuickWorld world;
    QuickWorld two;
    for (int turn = 0; turn < 250; ++turn) {
        RandomPaste paste(world, random);
        const std::string items = world.itemFile();
        ASSERT_NO_THROW(pasteInsert(paste.world.zormod));
        EXPECT_EQ(world.itemFile(), items);

        // The two steps one after the other, on a second table.
        two.rows({{u"x", u"L", 1}}, paste.rows);
        two.stand(paste.first, 0);
        ASSERT_EQ(insertRecords(two.zormod, paste.records), BulkEnd::done);
        Rows rows = two.onDisk();
        std::size_t next = 0;
        for (int i = 0; i < paste.records; ++i) {
            std::string& row = rows[static_cast<std::size_t>(paste.first - 1 + i)];
            for (int j = 0; j < paste.items && paste.item + j <= paste.table().itemCount; ++j) {
                put(paste.world.codePage, paste.table(), row, paste.cellAt(next++), paste.item + j);
            }
            row = ended(row.substr(0, 254));
        }
        ASSERT_EQ(paste.world.bytesOf("t.txt"), joinedRows(rows)) << turn;
        std::string backup = line(" " + std::to_string(paste.first) + " ");
        for (int i = 0; i < paste.records; ++i) {
            backup += line('"' + std::string(256, ' ') + '"');
        }
        ASSERT_EQ(paste.world.backup(), backup) << turn;
        EXPECT_EQ(paste.world.zormod.position.curRecord, paste.first);
    }
}

TEST(ClipPaste, TakingAPasteBackRestoresTheRowsUpToTheLastItem) {
    std::mt19937 random(13);
    QuickWorld world;
    for (int turn = 0; turn < 200; ++turn) {
        RandomPaste paste(world, random);
        pasteOver(paste.world.zormod);
        const std::size_t records = paste.world.onDisk().size();
        paste.world.dialogs.answers = {Answer::ok};
        undoPaste(paste.world.zormod);
        const Rows rows = paste.world.onDisk();
        ASSERT_EQ(rows.size(), records) << "the table keeps its new length";
        const CodePage& page = paste.world.codePage;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const bool isPasted = i + 1 >= static_cast<std::size_t>(paste.first) &&
                                  i + 1 < static_cast<std::size_t>(paste.first + paste.records);
            std::string expected = i < paste.rows.size() ? paste.rows[i] : ended("");
            if (isPasted) {
                expected = ended(page.encode(page.decode(expected.substr(0, used(paste.table())))));
            }
            ASSERT_EQ(rows[i], expected) << turn << " record " << i + 1;
        }
    }
}

TEST(ClipPaste, DeletedRecordsComeBackByInsertionAtTheSamePlace) {
    RecordWorld world;
    world.numbered(6);
    const std::string before = world.bytesOf("t.txt");
    world.stand(3, 0);
    ASSERT_EQ(deleteRecords(world.zormod, 3, 5), BulkEnd::done);
    EXPECT_EQ(world.order(), "1 2 6");
    pasteInsert(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
}

TEST(ClipPaste, DeletedRecordsOfAnyTableComeBackByteForByte) {
    std::mt19937 random(14);
    QuickWorld world;
    int cutCharacters = 0;
    for (int turn = 0; turn < 250; ++turn) {
        const auto items = randomItems(random, 200);
        int width = 0;
        for (const auto& item : items) {
            width += item.width;
        }
        Rows rows(1 + random() % 10);
        for (std::string& row : rows) {
            // A pair of bytes that another pair stands for comes back as that one, and isn't looked at here.
            do {
                row = randomRow(random, static_cast<std::size_t>(width));
            } while (world.codePage.encode(world.codePage.decode(row)) != row);
            cutCharacters += static_cast<unsigned char>(row[static_cast<std::size_t>(items[0].width - 1)]) > 0x80 ? 1 : 0;
            row = ended(row);
        }
        world.rows(items, rows);
        const auto from = static_cast<std::int32_t>(1 + random() % rows.size());
        const auto to = static_cast<std::int32_t>(from + static_cast<std::int32_t>(random() % (rows.size() - static_cast<std::size_t>(from) + 1)));
        world.stand(from, 0);
        ASSERT_EQ(deleteRecords(world.zormod, from, to), BulkEnd::done);
        world.stand(from, 0);
        pasteInsert(world.zormod);
        ASSERT_EQ(world.bytesOf("t.txt"), joinedRows(rows)) << turn;
    }
    EXPECT_GT(cutCharacters, 100);
}

TEST(ClipPaste, WithoutAClipFileTheUserIsToldAndTheBackupStays) {
    for (void (*paste)(ZORMOD&) : {pasteOver, insertTheClip}) {
        RecordWorld world;
        world.numbered(2);
        world.writeFile("ZORCLip.bak", "old");
        world.dialogs.expectedMessages = 1;
        paste(world.zormod);
        EXPECT_THAT(world.messages(), ElementsAre("クリップファイルなし/張り付けるべきｸﾘｯﾌﾟﾌｧｲﾙがありません"));
        EXPECT_EQ(world.backup(), "old");
        EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
        EXPECT_EQ(world.entries().count("ZORCLip"), 0U) << "looking for it doesn't make it";
    }
}

TEST(ClipPaste, AClipThatCannotBeOpenedCountsAsNone) {
    RecordWorld world;
    world.numbered(2);
    std::filesystem::create_directory(world.folder.path() + "/ZORCLip");
    world.dialogs.expectedMessages = 1;
    pasteOver(world.zormod);
    EXPECT_EQ(world.messages().size(), 1U);
}

TEST(ClipPaste, TakingBackWithoutABackupIsToldAfterTheQuestion) {
    RecordWorld world;
    world.numbered(2);
    world.dialogs.answers = {Answer::ok};
    world.dialogs.expectedMessages = 1;
    undoPaste(world.zormod);
    EXPECT_THAT(world.messages(), ElementsAre("クリップファイルなし/張り付けるべきｸﾘｯﾌﾟﾌｧｲﾙがありません"));
}

TEST(ClipPaste, TakingBackAfterAStopLeavesNoStopBehindThoughThereIsNoBackup) {
    RecordWorld world;
    world.numbered(2);
    world.zormod.results.answers[0] = 1.0;
    world.dialogs.expectedMessages = 1;
    undoPaste(world.zormod);
    EXPECT_THAT(world.dialogs.questions, IsEmpty());
    EXPECT_FALSE(isStopAsked(world.zormod));
}

TEST(ClipPaste, TakingBackAsksAndCancelLeavesEverything) {
    RecordWorld world;
    world.numbered(2);
    world.writeFile("ZORCLip.bak", " 1 \r\n\"x\"\r\n");
    world.dialogs.answers = {Answer::cancel};
    undoPaste(world.zormod);
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), ".張り付けの取り消し");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt), "いちばん最近の貼り付け操作を取り消し,以前の状態に戻します");
    EXPECT_EQ(world.order(), "1 2");
}

TEST(ClipPaste, TheFormsHaveTheirNamesAndTakingBackHasNoStopButton) {
    RecordWorld world;
    world.numbered(3);
    world.writeFile("ZORCLip", clipOf(1, 1, {"x"}));
    pasteOver(world.zormod);
    pasteInsert(world.zormod);
    world.dialogs.answers = {Answer::ok};
    undoPaste(world.zormod);
    EXPECT_THAT(utf8(world.dialogs.progressNames),
                ElementsAre("上書き張り付け作業中", "行挿入中", "挿入張り付け作業中", "張り付け撤去中"));
    EXPECT_THAT(world.dialogs.progressCanStop, ElementsAre(true, true, false, false));
    EXPECT_FALSE(world.dialogs.progressOpen);
}

TEST(ClipPaste, CellsToTheRightOfTheLastItemAreDroppedByPastingOver) {
    RecordWorld world;
    world.numbered(2);
    world.stand(1, 2);
    world.writeFile("ZORCLip", clipOf(2, 2, {"11", "lost", "22", "lost"}));
    pasteOver(world.zormod);
    EXPECT_EQ(world.onDisk()[0].substr(0, 20), "1   n1       11     ");
    EXPECT_EQ(world.onDisk()[1].substr(0, 20), "2   n2       22     ");
}

TEST(ClipPaste, CellsToTheRightOfTheLastItemShiftTheRestOfAnInsertion) {
    RecordWorld world;
    world.numbered(1);
    world.stand(1, 2);
    world.writeFile("ZORCLip", clipOf(3, 2, {"1", "2", "3", "4", "5", "6"}));
    pasteInsert(world.zormod);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(world.onDisk()[i].substr(12, 3), "  " + std::to_string(i + 1));
    }
}

TEST(ClipPaste, APastePastTheEndMakesTheTableGrowAndTakingItBackLeavesBlankRows) {
    RecordWorld world;
    world.numbered(2);
    world.stand(2, 0);
    world.writeFile("ZORCLip", clipOf(3, 1, {"a", "b", "c"}));
    pasteOver(world.zormod);
    EXPECT_EQ(world.order(), "1 a b c");
    world.dialogs.answers = {Answer::ok};
    undoPaste(world.zormod);
    EXPECT_EQ(world.onDisk()[1].substr(0, 6), "2   n2");
    EXPECT_EQ(world.onDisk()[2], ended(""));
    EXPECT_EQ(world.onDisk()[3], ended(""));
}

TEST(ClipPaste, TakingAnInsertionBackBlanksTheRowsAndKeepsThem) {
    RecordWorld world;
    world.numbered(2);
    world.stand(2, 0);
    world.writeFile("ZORCLip", clipOf(2, 1, {"a", "b"}));
    pasteInsert(world.zormod);
    EXPECT_EQ(world.order(), "1 a b 2");
    world.dialogs.answers = {Answer::ok};
    undoPaste(world.zormod);
    EXPECT_EQ(world.onDisk()[1], ended(""));
    EXPECT_EQ(world.onDisk()[2], ended(""));
    EXPECT_EQ(world.onDisk()[3].substr(0, 6), "2   n2");
}

TEST(ClipPaste, ADoubleQuoteCutsTheCellOnTheWayBack) {
    RecordWorld world;
    world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, {{u"1", u"ab\"cd"}, {u"2", u"x"}});
    world.select(1, 1, 1, 1, 1);
    ASSERT_TRUE(makeClip(world.zormod));
    world.stand(2, 1);
    pasteOver(world.zormod);
    EXPECT_EQ(world.onDisk()[1].substr(0, 12), "2   ab      ");
}

TEST(ClipPaste, ADoubleQuoteCutsTheRowThatIsTakenBack) {
    RecordWorld world;
    world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, {{u"1", u"ab\"cd"}, {u"2", u"y"}});
    world.writeFile("ZORCLip", clipOf(1, 1, {"x"}));
    world.stand(1, 0);
    pasteOver(world.zormod);
    world.dialogs.answers = {Answer::ok};
    undoPaste(world.zormod);
    EXPECT_EQ(world.onDisk()[0], ended("1   ab"));
    EXPECT_EQ(world.onDisk()[1].substr(0, 5), "2   y");
}

TEST(ClipPaste, ADoubleQuoteAndACommaInARowThatIsTakenBackSpareTheOtherRows) {
    for (const TextView name : {u"a\",b", u"a\",\"b", u"a\"\"b", u"a\",\""}) {
        RecordWorld world;
        world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, {{u"1", name}, {u"2", u"y"}, {u"3", u"z"}});
        world.writeFile("ZORCLip", clipOf(2, 1, {"p", "q"}));
        world.stand(1, 0);
        pasteOver(world.zormod);
        world.dialogs.answers = {Answer::ok};
        undoPaste(world.zormod);
        EXPECT_EQ(world.onDisk()[0], ended("1   a")) << utf8(name);
        EXPECT_EQ(world.onDisk()[1].substr(0, 5), "2   y");
        EXPECT_EQ(world.onDisk()[2].substr(0, 5), "3   z");
    }
}

TEST(ClipPaste, AStopPutsTheRowsBackWithoutAQuestion) {
    for (int turn = 1; turn <= 5; ++turn) {
        RecordWorld world;
        world.rows({{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, Rows(3, std::string(256, 'x')));
        world.stand(2, 0);
        world.writeFile("ZORCLip", clipOf(4, 1, {"a", "b", "c", "d"}));
        world.stopAt(turn);
        pasteOver(world.zormod);
        const int pasted = turn - 1;
        if (turn == 5) {
            EXPECT_EQ(world.order().substr(0, 5), std::string(5, 'x')) << "there is no fifth record to stop at";
            EXPECT_THAT(utf8(world.dialogs.progressNames), ElementsAre("上書き張り付け作業中"));
            continue;
        }
        Rows rows(3, std::string(256, 'x'));
        std::string backup = line(" 2 ");
        for (int i = 0; i < pasted; ++i) {
            const auto target = static_cast<std::size_t>(1 + i);
            rows.resize(std::max(rows.size(), target + 1));
            rows[target] = target < 3 ? ended(std::string(12, 'x')) : ended("");
            backup += line('"' + rows[target].substr(0, 12) + '"');
        }
        EXPECT_EQ(world.bytesOf("t.txt"), joinedRows(rows)) << turn;
        EXPECT_EQ(world.backup(), backup);
        EXPECT_THAT(world.dialogs.questions, IsEmpty());
        EXPECT_FALSE(isStopAsked(world.zormod));
        EXPECT_THAT(utf8(world.dialogs.progressNames), ElementsAre("上書き張り付け作業中", "張り付け撤去中"));
    }
}

TEST(ClipPaste, AnInsertionThatIsStoppedLeavesTheTableAsItWas) {
    for (int turn = 1;; ++turn) {
        RecordWorld world;
        world.numbered(3);
        world.stand(2, 0);
        world.writeFile("ZORCLip", clipOf(2, 1, {"a", "b"}));
        world.stopAt(turn);
        pasteInsert(world.zormod);
        if (utf8(world.dialogs.progressNames).size() == 2) {
            EXPECT_EQ(turn, 6) << "three records and two new ones";
            EXPECT_EQ(world.order(), "1 a b 2 3");
            break;
        }
        EXPECT_EQ(world.order(), "1 2 3");
        EXPECT_EQ(world.entries().count("ZORCLip.bak"), 0U) << "the old backup's numbers would still fit, but no paste is left";
    }
}

TEST(ClipPaste, AClipCutShortAnywhereChangesNothing) {
    const std::string whole = clipOf(3, 2, {"a", "b", "c", "d", "e", "f"});
    for (void (*paste)(ZORMOD&) : {pasteOver, insertTheClip}) {
        for (std::size_t length = 0; length < whole.size() - 2; ++length) {
            RecordWorld world;
            world.numbered(4);
            const std::string before = world.bytesOf("t.txt");
            world.stand(2, 0);
            world.writeFile("ZORCLip", whole.substr(0, length));
            try {
                paste(world.zormod);
                ADD_FAILURE() << length;
            } catch (const RuntimeFailure& failure) {
                EXPECT_EQ(failure.kind, FailureKind::file) << length;
                EXPECT_EQ(world.bytesOf("t.txt"), before) << length;
                EXPECT_EQ(world.entries().count(".change-t.txt"), 0U) << length;
            }
        }
    }
}

TEST(ClipPaste, ABackupCutShortInsideARowChangesNothing) {
    const std::string whole = " 2 \r\n\"ab\"\r\n\"cd\"\r\n";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        RecordWorld world;
        world.numbered(3);
        const std::string before = world.bytesOf("t.txt");
        world.writeFile("ZORCLip.bak", whole.substr(0, length));
        world.dialogs.answers = {Answer::ok};
        const std::string cut = whole.substr(0, length);
        const auto quotes = std::count(cut.begin(), cut.end(), '"');
        if (length > 0 && quotes % 2 == 0) {
            // Rows that are whole are put back, however many there are.
            undoPaste(world.zormod);
            EXPECT_EQ(world.order(), quotes == 0 ? "1 2 3" : quotes == 2 ? "1 ab 3" : "1 ab cd") << length;
        } else {
            EXPECT_THROW(undoPaste(world.zormod), RuntimeFailure) << length;
            EXPECT_EQ(world.bytesOf("t.txt"), before) << length;
        }
    }
}

TEST(ClipPaste, NoiseChangesNothing) {
    const std::vector<std::string> clips = {
        "",                             // no file is empty
        "nonsense",                     // no numbers, and too short
        " 5 \r\n 1 \r\n",               // fewer records than told
        " 0 \r\n 1 \r\n 1 \r\n",       // no record at all, though a range has one
        "-1 \r\n 1 \r\n 1 \r\n",       // fewer still
        " 999999999 \r\n 1 \r\n 1 \r\n", // absurdly many
        " 1 \r\n 1 \r\n 99999999 \r\n 1 \r\n\"x\"\r\n",
        " 99999999999 \r\n",            // beyond 32 bits
        " 1E400 \r\n",
        std::string(300000, '\0'),
        "\"" + std::string(300000, 'x')};
    for (const std::string& clip : clips) {
        for (void (*paste)(ZORMOD&) : {pasteOver, insertTheClip}) {
            RecordWorld world;
            world.numbered(3);
            const std::string before = world.bytesOf("t.txt");
            world.writeFile("ZORCLip", clip);
            EXPECT_THROW(paste(world.zormod), RuntimeFailure) << clip.substr(0, 30);
            EXPECT_EQ(world.bytesOf("t.txt"), before) << clip.substr(0, 30);
        }
    }
}

TEST(ClipPaste, AClipWithOtherLineEndsIsReadAlike) {
    for (const std::string& end : {std::string("\n"), std::string("\r")}) {
        RecordWorld world;
        world.numbered(2);
        world.writeFile("ZORCLip", "1" + end + "7" + end + "1" + end + "0" + end + "\"ab\"");
        pasteOver(world.zormod);
        EXPECT_EQ(world.order(), "ab 2");
    }
}

TEST(ClipPaste, ABackupOfAnotherTableIsWrittenWhereItSaysButNeverBehindAGap) {
    const std::vector<std::pair<std::string, std::string>> backups = {
        {" 2 \r\n\"x\"\r\n", "1 x 3"}, {" 3 \r\n\"x\"\r\n\"y\"\r\n", "1 2 x y"}, {" 4 \r\n\"x\"\r\n", "1 2 3 x"},
        {" 99 \r\n", "1 2 3"}};
    for (const auto& [backup, order] : backups) {
        RecordWorld world;
        world.numbered(3);
        world.writeFile("ZORCLip.bak", backup);
        world.dialogs.answers = {Answer::ok};
        undoPaste(world.zormod);
        EXPECT_EQ(world.order(), order);
    }
    for (const std::string backup : {" 5 \r\n\"x\"\r\n", " 0 \r\n\"x\"\r\n", "-3 \r\n\"x\"\r\n", "word\r\n\"x\"\r\n",
                                     " 2147483647 \r\n\"x\"\r\n\"y\"\r\n", " 9E30 \r\n\"x\"\r\n", ""}) {
        RecordWorld world;
        world.numbered(3);
        world.writeFile("ZORCLip.bak", backup);
        world.dialogs.answers = {Answer::ok};
        EXPECT_THROW(undoPaste(world.zormod), RuntimeFailure) << backup;
        EXPECT_EQ(world.order(), "1 2 3") << backup;
    }
}

TEST(ClipPaste, TheBackupIsFoundUnderItsOtherSpelling) {
    RecordWorld world;
    world.numbered(2);
    world.writeFile("ZORclip.bak", " 1 \r\n\"x\"\r\n");
    world.dialogs.answers = {Answer::ok};
    undoPaste(world.zormod);
    EXPECT_EQ(world.order(), "x 2");
}

TEST(ClipPaste, TakingBackGivesTheSelectionUp) {
    RecordWorld world;
    world.numbered(2);
    world.select(1, 1, 1, 0, 0);
    world.writeFile("ZORCLip.bak", " 2 \r\n\"x\"\r\n");
    world.dialogs.answers = {Answer::ok};
    const int hides = world.screen.maskHides;
    undoPaste(world.zormod);
    EXPECT_EQ(world.order(), "1 x");
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_GT(world.screen.maskHides, hides);
}

TEST(ClipPaste, TheScreenShowsTheTableAsItIsAfterwards) {
    RecordWorld world;
    world.numbered(2);
    world.stand(2, 0);
    world.select(1, 1, 1, 0, 0);
    world.writeFile("ZORCLip", clipOf(2, 1, {"a", "b"}));
    pasteOver(world.zormod);
    EXPECT_EQ(utf8(getCell(world.zormod, 0)), "a   ");
    EXPECT_NE(utf8(world.screen.title).find("/記録数:3)"), std::string::npos);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
}
