// The editor and the reading program together on one desktop, knowing nothing of each other: a user walks through a
// table by keys, and the log tells what was heard.

#include "tests/desktop/reader/support/reader_process.h"
#include "tests/desktop/support/clipboard_watcher.h"
#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <unistd.h>

using testing::Contains;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

constexpr std::string_view mark = "。｡.";

/// The table "meibo.txt": an ID of 4, a name of 10 and an age of 3 bytes, three records.
void writeTable(const EngineFolder& folder) {
    std::ofstream(folder.file("Kmeibo.txt"), std::ios::binary)
        << "100  ' 0,memo,, 2\r\n1000 'ID,L\r\n1001 '\x8E\x81\x96\xBC,L\r\n1002 '\x94N\x97\xEE,R\r\n"
           "2000 ' 4\r\n2001 ' 10\r\n2002 ' 3\r\n";
    std::ofstream data(folder.file("meibo.txt"), std::ios::binary);
    for (std::string record : {"1   \x8E\x52\x93\x63       31", "2   \x97\xE9\x96\xD8       45", "3   \x93\x63\x92\x86       27"}) {
        record.resize(254, ' ');
        data << record << "\r\n";
    }
}

/// The texts with the mark among `all`, without it.
std::vector<std::string> spokenTexts(const std::vector<std::string>& all) {
    std::vector<std::string> spoken;
    for (const std::string& text : all) {
        if (text.ends_with(mark))
            spoken.push_back(text.substr(0, text.size() - mark.size()));
    }
    return spoken;
}

struct Step {
    const char* key;
    const char* cell; ///< what the text that is heard begins with
    const char* place;
};

} // namespace

TEST(ReaderStory, AWalkOverTenCellsIsHeardCellByCell) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    folder.add("espeak-ng", "echo \"$4\" >>" + folder.file("speeds") + "; exec " + EngineFolder::real("espeak-ng") +
                                " \"$@\"");
    writeTable(folder);
    ReaderProcess reader(folder);
    ClipboardWatcher watcher;
    RunningProgram program(folder.path(), "meibo.txt");
    ASSERT_TRUE(hears(folder, "text", 1, std::chrono::seconds(20))) << "the greeting";

    const Step steps[] = {
        {"Right", "山田", "ｷﾞｮｳ1 ｺｳﾓｸ1 氏名"}, {"Right", "31", "ｷﾞｮｳ1 ｺｳﾓｸ2 年齢"},  {"Down", "45", "ｷﾞｮｳ2 ｺｳﾓｸ2 年齢"},
        {"Down", "27", "ｷﾞｮｳ3 ｺｳﾓｸ2 年齢"},   {"Left", "田中", "ｷﾞｮｳ3 ｺｳﾓｸ1 氏名"}, {"Up", "鈴木", "ｷﾞｮｳ2 ｺｳﾓｸ1 氏名"},
        {"Left", "2", "ｷﾞｮｳ2 ｺｳﾓｸ0 ID"},      {"Up", "1", "ｷﾞｮｳ1 ｺｳﾓｸ0 ID"},        {"Right", "山田", "ｷﾞｮｳ1 ｺｳﾓｸ1 氏名"},
        {"Down", "鈴木", "ｷﾞｮｳ2 ｺｳﾓｸ1 氏名"},
    };
    std::vector<std::string> walk;
    for (const Step& step : steps) {
        usleep(250000); // the editor's own pause between two texts
        const std::size_t before = folder.events("text").size();
        const std::size_t written = watcher.count();
        pressKey(step.key);
        ASSERT_TRUE(hears(folder, "text", before + 1)) << step.key;
        const auto heard = folder.events("text");
        ASSERT_THAT(heard, SizeIs(before + 1));
        EXPECT_THAT(heard.back(), testing::AllOf(testing::StartsWith(step.cell), HasSubstr(step.place))) << step.key;
        // On a busy machine the watcher is later than the reader; what it hasn't fetched when the next text comes is lost.
        ASSERT_TRUE(watcher.hears(heard.back() + std::string(mark), written)) << step.key;
        walk.push_back(heard.back());
        // Half way somebody changes the speed by the mark that the reading program obeys.
        if (walk.size() == 5) {
            TextOwner owner;
            owner.put("＜速さ７＞速度調整7" + std::string(mark));
            ASSERT_TRUE(hearsText(folder, "speed", "7"));
            ASSERT_TRUE(watcher.hears("＜速さ７＞速度調整7" + std::string(mark)));
        }
    }
    EXPECT_TRUE(becomesTrue([&] {
        const auto kana = folder.events("kana");
        return !kana.empty() && kana.back() == "スズキ、ギョウ2 コウモク1 シメイ、データニュウリョクテキストボックス";
    })) << "the last cell as the engine was given it";

    // What was heard on the walk is what the editor wrote, in its order; the speed mark was there and was not spoken.
    const auto written = spokenTexts(watcher.texts());
    EXPECT_THAT(written, Contains("＜速さ７＞速度調整7"));
    EXPECT_THAT(folder.events("text"), testing::Not(Contains("＜速さ７＞速度調整7")));
    auto at = written.begin();
    for (const std::string& text : walk) {
        at = std::find(at, written.end(), text);
        ASSERT_NE(at, written.end()) << text;
        ++at;
    }

    // Five cells and what came before them at the usual speed, the other five faster.
    const std::string speeds = folder.read("speeds");
    const std::string fast = "285\n285\n285\n285\n285\n";
    ASSERT_TRUE(speeds.ends_with(fast)) << speeds;
    EXPECT_EQ(speeds.substr(0, speeds.size() - fast.size()).find("285"), std::string::npos);
    EXPECT_TRUE(speeds.starts_with("175\n175\n175\n175\n175\n")) << speeds;

    // The editor ends as without a reader, and the reader stays for the next program.
    usleep(250000);
    pressKey("Escape");
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(hearsText(folder, "text", "ﾛﾐｶ ｼｭｳﾘｮｳ"));
    EXPECT_TRUE(isRunning(reader.process()));
}
