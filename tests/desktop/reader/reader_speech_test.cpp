// What the reading program speaks and what it leaves alone, on a real X server with the real engine and a player that
// plays the sound device.

#include "tests/desktop/reader/support/reader_process.h"
#include "tests/desktop/support/processes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <poll.h>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr const char* mark = "。｡.";

/// The processes whose parent is `process`.
std::vector<pid_t> childrenOf(pid_t process) {
    std::istringstream in(outputOf("ps -o pid= --ppid " + std::to_string(process)));
    std::vector<pid_t> found;
    for (pid_t each = 0; in >> each;)
        found.push_back(each);
    return found;
}

} // namespace

TEST(ReaderSpeech, ATextWithTheMarkIsSpokenAndNoOther) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put("somebody's password");
    owner.put(std::string("山田 ､  ｷﾞｮｳ12 ｺｳﾓｸ3 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    owner.put("another secret");
    owner.put(std::string("終了") + mark);
    EXPECT_TRUE(hears(folder, "end", 2));
    EXPECT_THAT(folder.events("text"),
                ElementsAre("山田 ､  ｷﾞｮｳ12 ｺｳﾓｸ3 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ", "終了"));
    EXPECT_THAT(folder.events("kana"),
                ElementsAre("ヤマダ、ギョウ12 コウモク3 シメイ、データニュウリョクテキストボックス", "シューリョー"));
    EXPECT_THAT(playerNews(folder, "all"), SizeIs(2));
    EXPECT_THAT(folder.read("log"), testing::Not(testing::AnyOf(HasSubstr("password"), HasSubstr("secret"))));
}

TEST(ReaderSpeech, ATextThatStoodThereBeforeTheReaderIsNotSpoken) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    TextOwner owner;
    owner.put(std::string("古い文") + mark);
    ReaderProcess reader(folder);
    owner.put(std::string("新しい文") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    EXPECT_THAT(folder.events("text"), ElementsAre("新しい文"));
}

TEST(ReaderSpeech, TheSameTextAgainIsSpokenAgain) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    TextOwner owner;
    for (std::size_t i = 1; i <= 3; ++i) {
        owner.put(std::string("終了") + mark);
        EXPECT_TRUE(hears(folder, "end", i));
    }
}

TEST(ReaderSpeech, ANewerTextCutsOffTheOlderOne) {
    EngineFolder folder;
    FakePlayer player(folder, "real-time");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string("これはとても長い文で、最後まで読み上げると何秒もかかるはずのものです") + mark);
    EXPECT_TRUE(becomesTrue([&] { return playerNews(folder, "first").size() == 1; }));
    owner.put(std::string("はい") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    EXPECT_THAT(folder.events("text"), SizeIs(2));
    EXPECT_THAT(playerNews(folder, "first"), SizeIs(2));
    EXPECT_THAT(playerNews(folder, "all"), SizeIs(1)) << "the long text must not have been played to its end";
}

TEST(ReaderSpeech, ABareMarkSilencesAtOnce) {
    EngineFolder folder;
    FakePlayer player(folder, "real-time");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string("これはとても長い文で、最後まで読み上げると何秒もかかるはずのものです") + mark);
    EXPECT_TRUE(hears(folder, "sound", 1));
    const auto before = childrenOf(reader.process());
    EXPECT_GE(before.size(), 2U) << "the dictionary and the player";
    owner.put(mark);
    EXPECT_TRUE(hears(folder, "silence", 1));
    EXPECT_TRUE(becomesTrue([&] { return childrenOf(reader.process()).size() == 1; }, milliseconds(500)));
    EXPECT_THAT(folder.events("end"), IsEmpty());
}

TEST(ReaderSpeech, SpeedMarksSetTheSpeedAndAreNotSpoken) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    folder.add("espeak-ng", "echo \"$*\" >>" + folder.file("asked") + "; exec " + EngineFolder::real("espeak-ng") +
                                " \"$@\"");
    ReaderProcess reader(folder, {"--speed", "0"});
    TextOwner owner;
    owner.put(std::string("はい") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    owner.put(std::string("＜速さ９＞速度調整9") + mark);
    EXPECT_TRUE(hearsText(folder, "speed", "9"));
    owner.put(std::string("はい") + mark);
    EXPECT_TRUE(hears(folder, "end", 2));
    EXPECT_THAT(folder.events("text"), ElementsAre("はい", "はい"));
    EXPECT_EQ(folder.read("asked"), "-v ja -s 90 --stdin --stdout\n-v ja -s 400 --stdin --stdout\n");
    const auto sizes = playerNews(folder, "all");
    ASSERT_THAT(sizes, SizeIs(2));
    EXPECT_GT(std::stol(sizes[0]), 2 * std::stol(sizes[1])) << "fast speech is shorter";
}

TEST(ReaderSpeech, OfABurstTheLastTextIsSpokenWholeAndNothingElseToItsEnd) {
    EngineFolder folder;
    FakePlayer player(folder, "real-time");
    ReaderProcess reader(folder);
    TextOwner owner;
    const auto start = steady_clock::now();
    for (int i = 1; i <= 50; ++i) {
        owner.put("山田 ､  ｷﾞｮｳ" + std::to_string(i) + " ｺｳﾓｸ3 氏名" + mark);
        const auto next = start + milliseconds(20) * i;
        poll(nullptr, 0, static_cast<int>(std::max<std::int64_t>(
                             0, std::chrono::duration_cast<milliseconds>(next - steady_clock::now()).count())));
    }
    EXPECT_LT(steady_clock::now() - start, milliseconds(1500));
    EXPECT_TRUE(hears(folder, "end", 1, std::chrono::seconds(15)));
    EXPECT_EQ(folder.events("text").back(), "山田 ､  ｷﾞｮｳ50 ｺｳﾓｸ3 氏名");
    EXPECT_THAT(folder.events("end"), SizeIs(1));
    const auto played = playerNews(folder, "all");
    ASSERT_THAT(played, SizeIs(1));
    outputOfReader(folder, "--wav " + folder.file("wave") + " --say '山田 ､  ｷﾞｮｳ50 ｺｳﾓｸ3 氏名'");
    EXPECT_EQ(std::stoul(played[0]) + 44, folder.read("wave").size());
}

TEST(ReaderSpeech, OneReaderIsEnoughForADesktop) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "", &status), HasSubstr("another reader is running"));
    EXPECT_EQ(status, 3);
    EXPECT_EQ(outputOfReader(folder, "--background", &status), "");
    EXPECT_EQ(status, 0);
    TextOwner owner;
    owner.put(std::string("はい") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    EXPECT_THAT(playerNews(folder, "first"), SizeIs(1));
}

TEST(ReaderSpeech, ASignalEndsItQuicklyAndCleanlyInTheMiddleOfASentence) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        EngineFolder folder;
        FakePlayer player(folder, "real-time");
        ReaderProcess reader(folder);
        TextOwner owner;
        owner.put(std::string("これはとても長い文で、最後まで読み上げると何秒もかかるはずのものです") + mark);
        EXPECT_TRUE(hears(folder, "sound", 1));
        const auto children = childrenOf(reader.process());
        EXPECT_THAT(children, testing::Not(IsEmpty()));
        kill(reader.process(), signal);
        EXPECT_EQ(reader.waitForEnd(milliseconds(500)), 0) << signal;
        for (const pid_t child : children)
            EXPECT_TRUE(becomesTrue([&] { return !isRunning(child); }, milliseconds(500)));
    }
}

TEST(ReaderSpeech, NothingItStartedOutlivesAReaderThatIsKilled) {
    EngineFolder folder;
    FakePlayer player(folder, "real-time");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string("これはとても長い文で、最後まで読み上げると何秒もかかるはずのものです") + mark);
    EXPECT_TRUE(hears(folder, "sound", 1));
    const auto children = childrenOf(reader.process());
    kill(reader.process(), SIGKILL);
    EXPECT_EQ(reader.waitForEnd(), 128 + SIGKILL);
    for (const pid_t child : children)
        EXPECT_TRUE(becomesTrue([&] { return !isRunning(child); }, milliseconds(1000)));
}

TEST(ReaderSpeech, InTheBackgroundItComesBackWhenItIsReady) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    int status = -1;
    EXPECT_EQ(outputOfReader(folder, "--background --log " + folder.file("log"), &status), "");
    EXPECT_EQ(status, 0);
    const XClient client;
    ASSERT_NE(client.owner("_ROMIKA_READER"), XCB_WINDOW_NONE) << "it must be watching by now";
    TextOwner owner;
    owner.put(std::string("はい") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    const std::string readers = outputOf("pgrep -f -- '--background --log " + folder.file("log") + "'");
    kill(std::stoi(readers), SIGTERM);
    EXPECT_TRUE(becomesTrue([&] { return client.owner("_ROMIKA_READER") == XCB_WINDOW_NONE; }));
}
