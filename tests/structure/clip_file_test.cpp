#include "structure/clip_file.h"

#include "structure/clip_paste.h"
#include "structure/record_world.h"
#include "support/file_size_limit.h"
#include "support/forked_child.h"

#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The clip file of a block, from the bytes of the table alone.
std::string modelClip(const ItemTable& items, const Rows& rows, std::int32_t recordFrom, std::int32_t recordTo,
                      std::int16_t itemFrom, std::int16_t itemTo) {
    std::string clip;
    const auto line = [&](int number) { clip += " " + std::to_string(number) + " \r\n"; };
    line(recordTo - recordFrom + 1);
    for (std::int32_t record = recordFrom; record <= recordTo; ++record) {
        line(record);
    }
    line(itemTo - itemFrom + 1);
    for (int item = itemFrom; item <= itemTo; ++item) {
        line(item);
    }
    for (std::int32_t record = recordFrom; record <= recordTo; ++record) {
        for (int item = itemFrom; item <= itemTo; ++item) {
            clip += '"' +
                    rows[static_cast<std::size_t>(record - 1)].substr(
                        static_cast<std::size_t>(items.itemStart[item] - 1),
                        static_cast<std::size_t>(items.itemWidth[item])) +
                    "\"\r\n";
        }
    }
    return clip;
}

/// The most memory that this process has used, in bytes.
std::size_t mostMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

} // namespace

TEST(ClipFile, HoldsNumbersAndCellsLineByLine) {
    RecordWorld world;
    world.numbered(9);
    world.select(1, 7, 8, 1, 2);
    EXPECT_TRUE(makeClip(world.zormod));
    EXPECT_EQ(world.clip(), " 2 \r\n 7 \r\n 8 \r\n 2 \r\n 1 \r\n 2 \r\n"
                            "\"n7      \"\r\n\"   \"\r\n\"n8      \"\r\n\"   \"\r\n");
}

TEST(ClipFile, ATableThatWasReplacedBeforeIsNotCopied) {
    RecordWorld world;
    world.numbered(9);
    world.writeFile("ZORCLip", "older");
    std::filesystem::rename(world.folder.path() + "/t.txt", world.folder.path() + "/moved.txt");
    world.writeFile("t.txt", std::string(9 * 256, 'o'));
    world.select(1, 7, 8, 1, 2);
    EXPECT_THROW(makeClip(world.zormod), RuntimeFailure);
    EXPECT_EQ(world.clip(), "older");
}

TEST(ClipFile, EqualsTheBytesOfTheTableForAnyBlock) {
    std::mt19937 random(5);
    QuickWorld world;
    for (int turn = 0; turn < 200; ++turn) {
        Rows rows(1 + random() % 20);
        for (std::string& row : rows) {
            row = randomRow(random, 256, true);
        }
        world.rows(randomItems(random), rows);
        auto from = static_cast<std::int32_t>(1 + random() % rows.size());
        auto to = static_cast<std::int32_t>(1 + random() % rows.size());
        const int items = world.zormod.items.itemCount + 1;
        auto itemFrom = static_cast<std::int16_t>(random() % static_cast<unsigned>(items));
        auto itemTo = static_cast<std::int16_t>(random() % static_cast<unsigned>(items));
        world.select(1, from, to, itemFrom, itemTo);
        ASSERT_TRUE(makeClip(world.zormod));
        ASSERT_EQ(world.clip(), modelClip(world.zormod.items, rows, std::min(from, to), std::max(from, to),
                                          std::min(itemFrom, itemTo), std::max(itemFrom, itemTo)))
            << turn;
        EXPECT_EQ(world.bytesOf("t.txt"), joinedRows(rows));
    }
}

TEST(ClipFile, WithoutASelectionTheUserIsTold) {
    RecordWorld world;
    world.numbered(2);
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(makeClip(world.zormod));
    EXPECT_THAT(world.messages(),
                ElementsAre("ｸﾘｯﾌﾟ範囲の指定/Alt+矢印またはshift+矢印でClip範囲を指定した上で本ﾒﾆｭｰを選択して下さい."));
    EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
    EXPECT_EQ(world.clip(), "");
}

TEST(ClipFile, TheCellsGoToTheClipboardWithoutAnythingBetweenThemEvenWithSpeechOff) {
    RecordWorld world;
    world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 6}}, {{u"1", u"山田"}, {u"2", u"a"}});
    world.clipboard.contents = u"mine";
    world.select(2, 1, 2, 0, 1);
    EXPECT_TRUE(makeClip(world.zormod));
    EXPECT_EQ(utf8(world.clipboard.contents), "1   山田  2   a     。｡.");
    EXPECT_EQ(utf8(world.zormod.speech.userClipboard), "mine");
}

TEST(ClipFile, TheSelectionIsGivenUpAndTheViewRedrawn) {
    RecordWorld world;
    world.numbered(2);
    world.select(2, 1, 2, 0, 2);
    const int hides = world.screen.maskHides;
    const int redraws = world.screen.redraws;
    EXPECT_TRUE(makeClip(world.zormod));
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_GT(world.screen.maskHides, hides);
    EXPECT_GT(world.screen.redraws, redraws);
    EXPECT_FALSE(world.dialogs.progressOpen);
}

TEST(ClipFile, ThePercentageIsTheRecordNumberOfTheLastOne) {
    RecordWorld world;
    world.numbered(20);
    world.select(2, 16, 20, 0, 0);
    EXPECT_TRUE(makeClip(world.zormod));
    EXPECT_THAT(utf8(world.dialogs.progressNames), ElementsAre("ｸﾘｯﾌﾟﾌｧｲﾙ作成中"));
    EXPECT_THAT(utf8(world.dialogs.progressTexts), ElementsAre(" 80%完了", " 90%完了", " 100%完了"));
}

TEST(ClipFile, AShorterClipLeavesNoTailOfALongerOne) {
    RecordWorld world;
    world.numbered(9);
    world.select(2, 1, 9, 0, 2);
    EXPECT_TRUE(makeClip(world.zormod));
    world.select(1, 3, 3, 0, 0);
    EXPECT_TRUE(makeClip(world.zormod));
    EXPECT_EQ(world.clip(), " 1 \r\n 3 \r\n 1 \r\n 0 \r\n\"3   \"\r\n");
    EXPECT_EQ(world.entries(), (std::set<std::string>{"ZORCLip", "kt.txt", "t.txt"}));
}

TEST(ClipFile, AStopLeavesTheFileCutShortAtAnyRecord) {
    RecordWorld whole;
    whole.numbered(4);
    whole.select(2, 1, 4, 0, 2);
    ASSERT_TRUE(makeClip(whole.zormod));
    const std::string head = " 4 \r\n 1 \r\n 2 \r\n 3 \r\n 4 \r\n 3 \r\n 0 \r\n 1 \r\n 2 \r\n";
    for (int turn = 1; turn <= 4; ++turn) {
        RecordWorld world;
        world.numbered(4);
        world.writeFile("ZORCLip", std::string(500, 'x'));
        world.select(2, 1, 4, 0, 2);
        world.stopAt(turn);
        EXPECT_FALSE(makeClip(world.zormod));
        const std::size_t cells = static_cast<std::size_t>(turn - 1) * (8 + 12 + 7);
        EXPECT_EQ(world.clip(), whole.clip().substr(0, head.size() + cells)) << turn;
        EXPECT_EQ(world.zormod.selection.selectionKind, 2) << "the range is still there for another try";
        EXPECT_THAT(world.clipboard.written, IsEmpty());
        EXPECT_FALSE(isStopAsked(world.zormod));
        EXPECT_EQ(world.zormod.files.byNumber[3], nullptr);
    }
}

TEST(ClipFile, AFailureLeavesTheOldFile) {
    RecordWorld world;
    world.numbered(4);
    world.writeFile("ZORCLip", "old");
    std::filesystem::create_directory(world.folder.path() + "/.new-ZORCLip");
    world.select(2, 1, 4, 0, 2);
    EXPECT_THROW(makeClip(world.zormod), RuntimeFailure);
    EXPECT_EQ(world.clip(), "old");
}

TEST(ClipFile, TheTableStaysOpenAsItWas) {
    RecordWorld world;
    world.numbered(4);
    const RandomFile* const table = world.zormod.files.byNumber[1].get();
    world.select(2, 1, 4, 0, 2);
    EXPECT_TRUE(makeClip(world.zormod));
    EXPECT_EQ(world.zormod.files.byNumber[1].get(), table);
}

TEST(ClipFile, TwoHundredThousandCellsTakeTheMemoryOfTheirTextAlone) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer keeps the memory that has been freed";
#endif
    constexpr std::int32_t records = 66667;
    RecordWorld world;
    world.numbered(records);
    // A process of its own, whose highest use of memory begins with what is in use now.
    ForkedChild child([&](const ChildSide&) {
        const FileSizeLimit enough(64 << 20); // a loop without an end must not fill the disk
        const std::size_t before = mostMemory();
        world.select(1, 1, records, 0, 2);
        if (!makeClip(world.zormod)) {
            return false;
        }
        // The text as it is made, and the clipboard's two copies of it.
        const std::size_t text = world.clipboard.contents.size() * sizeof(char16_t);
        const std::size_t clipped = mostMemory();
        world.stand(1, 0);
        pasteOver(world.zormod);
        constexpr std::size_t blocks = 8u << 20;
        return text > 1000000 && clipped < before + 4 * text + blocks && mostMemory() < clipped + blocks;
    });
    const int status = child.end();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}
