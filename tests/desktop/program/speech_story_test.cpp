// The main story once on a real desktop: the real program, a real X server, and another program that reads the
// clipboard as a reading program does.

#include "tests/desktop/support/clipboard_watcher.h"
#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/running_program.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {

/// A folder with the table "meibo.txt": an ID of 4, a name of 10 and an age of 3 bytes, two records.
class StoryFolder {
public:
    StoryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "romika-story-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
        write("Kmeibo.txt", "100  ' 0,memo,, 2\r\n1000 'ID,L\r\n1001 '\x8E\x81\x96\xBC,L\r\n1002 '\x94N\x97\xEE,R\r\n"
                            "2000 ' 4\r\n2001 ' 10\r\n2002 ' 3\r\n");
        write("meibo.txt", record("1   \x8E\x52\x93\x63       31") + record("2   \x97\xE9\x96\xD8       45"));
    }
    ~StoryFolder() { std::filesystem::remove_all(path_); }

    const std::string& path() const { return path_; }
    static std::string record(std::string data) {
        data.resize(254, ' ');
        return data + "\r\n";
    }
    std::string read(const std::string& name) const {
        std::ifstream in(path_ + "/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

private:
    void write(const std::string& name, const std::string& bytes) {
        std::ofstream(path_ + "/" + name, std::ios::binary) << bytes;
    }
    std::string path_;
};

/// Presses a key once the throttle's time is over and expects to hear exactly `text` next.
void expectAfterKey(ClipboardWatcher& watcher, const std::string& key, const std::string& text) {
    usleep(250000);
    const std::size_t before = watcher.count();
    pressKey(key);
    EXPECT_TRUE(watcher.hears(text + "。｡.", before)) << key << ": last heard: " << watcher.texts().back();
}

} // namespace

TEST(SpeechStory, WalkingTypingAndLeavingIsHeardAndKept) {
    StoryFolder folder;
    ASSERT_TRUE(copyElsewhere("the user's own text"));
    ClipboardWatcher watcher;
    RunningProgram program(folder.path(), "meibo.txt");
    ASSERT_TRUE(becomesTrue([&] { return watcher.count() > 0; }, std::chrono::seconds(20)));

    expectAfterKey(watcher, "Right", "山田､  ｷﾞｮｳ1 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    expectAfterKey(watcher, "Down", "鈴木 ､  ｷﾞｮｳ2 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    expectAfterKey(watcher, "x", "ｴｯｸｽ ざん9バイト");
    expectAfterKey(watcher, "shift+y", "ｵｵﾓｼﾞﾜｲ ざん8バイト");
    expectAfterKey(watcher, "Return", "45､  ｷﾞｮｳ2 ｺｳﾓｸ2 年齢 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    const std::string before = folder.read("meibo.txt");
    expectAfterKey(watcher, "Up", "31 ､  ｷﾞｮｳ1 ｺｳﾓｸ2 年齢 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    std::string expected = before;
    expected.replace(256 + 4, 10, "xY        ");
    EXPECT_EQ(folder.read("meibo.txt"), expected);

    // Both are spoken right before the program's only thread waits; a reader gets them all the same.
    expectAfterKey(watcher, "ctrl+F12", "読み上げｵﾌ");
    usleep(2000000);
    expectAfterKey(watcher, "F11", "データのみ読み上げ");
    const std::size_t beforeEnd = watcher.count();
    usleep(250000);
    pressKey("Escape");
    EXPECT_TRUE(watcher.hears("ﾛﾐｶ ｼｭｳﾘｮｳ。｡.", beforeEnd));
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_EQ(pasteElsewhere(), "the user's own text");
    EXPECT_EQ(folder.read("zorTalk"), " 1 \r\n");
    for (const std::string& text : watcher.texts()) {
        EXPECT_NE(text, "(nothing)") << "a text was announced and then could not be fetched";
    }
}

TEST(SpeechStory, ATextThatIsRefusedAtOpeningIsHeardAndTheProgramStays) {
    StoryFolder folder;
    std::filesystem::remove(folder.path() + "/Kmeibo.txt");
    ClipboardWatcher watcher;
    RunningProgram program(folder.path(), "meibo.txt");
    EXPECT_TRUE(watcher.hears("ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です。。OKならCRを叩いてください。。｡."));
    pressKey("Return");
    usleep(300000);
    EXPECT_TRUE(isRunning(program.process()));
    pressKey("Escape");
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST(SpeechStory, AStartWithoutAFileLeadsThroughTheStartScreenIntoATable) {
    StoryFolder folder;
    ClipboardWatcher watcher;
    RunningProgram program(folder.path(), "");
    ASSERT_TRUE(watcher.hears("新規作成(Y)ｺﾏﾝﾄﾞぼたん。｡."));
    ASSERT_TRUE(becomesTrue([&] {
        const auto texts = watcher.texts();
        return texts.back().starts_with("ようこそロミカ。ロミカは、");
    }, std::chrono::seconds(10)));
    expectAfterKey(watcher, "Tab", "既存ファイル(N)ｺﾏﾝﾄﾞぼたん");
    usleep(250000);
    const std::size_t before = watcher.count();
    pressKey("n");
    ASSERT_TRUE(becomesTrue([&] { return watcher.count() > before; }, std::chrono::seconds(10)));
    EXPECT_TRUE(watcher.texts().back().starts_with("ﾛﾐｶﾌｧｲﾙ指定。"));
    expectAfterKey(watcher, "Down", "Kmeibo.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ");
    usleep(250000);
    pressKey("Return");
    usleep(1000000);
    expectAfterKey(watcher, "Right", "山田､  ｷﾞｮｳ1 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_TRUE(isRunning(program.process()));
    usleep(250000);
    pressKey("Escape");
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST(SpeechStory, TheFirstEnterInAFormThatWasOpenedByEnterCounts) {
    StoryFolder folder;
    ClipboardWatcher watcher;
    RunningProgram program(folder.path(), "");
    ASSERT_TRUE(watcher.hears("新規作成(Y)ｺﾏﾝﾄﾞぼたん。｡."));
    expectAfterKey(watcher, "Tab", "既存ファイル(N)ｺﾏﾝﾄﾞぼたん");
    usleep(250000);
    const std::size_t before = watcher.count();
    pressKey("Return");
    ASSERT_TRUE(becomesTrue([&] { return watcher.count() > before; }, std::chrono::seconds(10)));
    EXPECT_TRUE(watcher.texts().back().starts_with("ﾛﾐｶﾌｧｲﾙ指定。"));
    expectAfterKey(watcher, "Down", "Kmeibo.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ");
    pressKey("Return");
    usleep(800000);
    expectAfterKey(watcher, "Right", "山田､  ｷﾞｮｳ1 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    usleep(250000);
    pressKey("Escape");
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST(SpeechStory, EscOnTheStartScreenEndsTheProgramAndForgetsTheMode) {
    StoryFolder folder;
    ClipboardWatcher watcher;
    RunningProgram program(folder.path(), "");
    ASSERT_TRUE(watcher.hears("新規作成(Y)ｺﾏﾝﾄﾞぼたん。｡."));
    pressKey("Escape");
    EXPECT_TRUE(watcher.hears("ﾛﾐｶ ｼｭｳﾘｮｳ。｡."));
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/zorTalk"));
}
