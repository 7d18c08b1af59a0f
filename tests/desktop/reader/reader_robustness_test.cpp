// The reading program among neighbours that misbehave: it stays up or ends cleanly, stays small, and reads the next
// text all the same.

#include "tests/desktop/reader/support/reader_process.h"
#include "tests/desktop/support/processes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* mark = "。｡.";

/// A test whose reader must go on afterwards, within its bounds.
struct ReaderRobustness : testing::Test {
    EngineFolder folder{};

    /// Puts a text on the clipboard as a program of its own and expects to hear it to its end.
    void expectNextTextIsRead(const ReaderProcess& reader) {
        const std::size_t ends = folder.events("end").size();
        TextOwner owner;
        owner.put(std::string("次の文です") + mark);
        EXPECT_TRUE(hearsText(folder, "text", "次の文です"));
        EXPECT_TRUE(becomesTrue([&] { return folder.events("end").size() > ends; }, std::chrono::seconds(15)));
        EXPECT_TRUE(isRunning(reader.process()));
        expectSmall(reader);
    }
    static void expectSmall(const ReaderProcess& reader) {
#ifndef __SANITIZE_ADDRESS__ // which multiplies what it watches
        EXPECT_LT(reader.mostMemory(), 40 * 1024);
#endif
        EXPECT_GT(reader.mostMemory(), 0);
    }
};

/// An X server of the test's own.
class OwnServer {
public:
    OwnServer() {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            return;
        process_ = fork();
        if (process_ == 0) {
            dup2(ends[1], 3);
            dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
            execlp("Xvfb", "Xvfb", "-displayfd", "3", "-screen", "0", "320x200x24", "-nolisten", "tcp", "-noreset",
                   nullptr);
            _exit(127);
        }
        close(ends[1]);
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
            display_ += c;
        close(ends[0]);
    }
    ~OwnServer() { end(); }
    std::string display() const { return ":" + display_; }
    void end() {
        if (process_ > 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
        }
        process_ = 0;
    }

private:
    pid_t process_ = 0;
    std::string display_;
};

} // namespace

TEST_F(ReaderRobustness, AnOwnerThatDoesNotAnswer) {
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    {
        bool asked = false;
        ForeignOwner silent("CLIPBOARD", [&](ForeignOwner&, const xcb_selection_request_event_t&) { asked = true; });
        EXPECT_TRUE(becomesTrue([&] { return asked; })) << "the reader must have asked it";
    }
    expectNextTextIsRead(reader);
}

TEST_F(ReaderRobustness, AnOwnerThatRefusesOrGoesAway) {
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    {
        bool asked = false;
        ForeignOwner refusing("CLIPBOARD", [&](ForeignOwner& owner, const xcb_selection_request_event_t& request) {
            owner.refuse(request);
            asked = true;
        });
        EXPECT_TRUE(becomesTrue([&] { return asked; }));
    }
    { const ForeignOwner gone("CLIPBOARD", [](ForeignOwner&, const xcb_selection_request_event_t&) {}); }
    expectNextTextIsRead(reader);
}

TEST_F(ReaderRobustness, ATextOfFiveMegabytesThatIsNotToBeSpoken) {
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string(5u << 20, 'x'));
    expectNextTextIsRead(reader);
    EXPECT_THAT(folder.events("text"), SizeIs(1));
}

TEST_F(ReaderRobustness, ATextOfFiveMegabytesThatIsToBeSpoken) {
    FakePlayer player(folder, "real-time");
    ReaderProcess reader(folder);
    std::string text;
    while (text.size() < 5u << 20)
        text += "これは長い長い文です";
    TextOwner owner;
    owner.put(text + mark);
    EXPECT_TRUE(hears(folder, "sound", 1)) << "it is spoken from its beginning, without waiting for its end";
    expectNextTextIsRead(reader);
}

TEST_F(ReaderRobustness, BinaryNoise) {
    FakePlayer player(folder, "fast");
    ReaderProcess reader(folder);
    TextOwner owner;
    std::mt19937 random(20);
    for (int i = 0; i < 20; ++i) {
        std::string noise;
        for (int byte = 0; byte < 5000; ++byte)
            noise += static_cast<char>(random());
        owner.put(i % 2 == 0 ? noise : noise + mark);
        poll(nullptr, 0, 20);
    }
    expectNextTextIsRead(reader);
    EXPECT_THAT(folder.events("notice"), IsEmpty()) << "noise is no reason to give up an engine";
}

TEST_F(ReaderRobustness, AnEngineThatHangs) {
    FakePlayer player(folder, "fast");
    folder.add("espeak-ng", "test -e " + folder.file("hung") + " && exec " + EngineFolder::real("espeak-ng") +
                                " \"$@\"; touch " + folder.file("hung") + "; sleep 1000 & wait");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string("この文で止まります") + mark);
    EXPECT_TRUE(becomesTrue([&] { return std::filesystem::exists(folder.file("hung")); }));
    expectNextTextIsRead(reader);
}

TEST_F(ReaderRobustness, AnEngineThatAlwaysHangsIsReplacedWithOneNotice) {
    FakePlayer player(folder, "fast");
    folder.add("espeak-ng", "sleep 1000 & wait");
    setenv("FAKE_SPEECHD", "none", 1);
    setenv("LD_LIBRARY_PATH", FAKE_SPEECHD_FOLDER, 1);
    ReaderProcess reader(folder, {"--engine", "auto"});
    unsetenv("LD_LIBRARY_PATH");
    TextOwner owner;
    owner.put(std::string("この文で止まります") + mark);
    EXPECT_TRUE(hearsText(folder, "engine", "log"));
    EXPECT_THAT(folder.events("notice"), ElementsAre(HasSubstr("espeak does not work; log takes its place")));
    expectNextTextIsRead(reader);
    EXPECT_THAT(folder.events("notice"), SizeIs(1));
}

TEST_F(ReaderRobustness, AnEngineThatCrashesIsReplacedWithOneNotice) {
    FakePlayer player(folder, "fast");
    folder.add("espeak-ng", "kill -SEGV $$");
    setenv("FAKE_SPEECHD", "none", 1);
    setenv("LD_LIBRARY_PATH", FAKE_SPEECHD_FOLDER, 1);
    ReaderProcess reader(folder, {"--engine", "auto"});
    unsetenv("LD_LIBRARY_PATH");
    TextOwner owner;
    owner.put(std::string("この文で落ちます") + mark);
    EXPECT_TRUE(hearsText(folder, "engine", "log"));
    expectNextTextIsRead(reader);
    EXPECT_THAT(folder.events("notice"), SizeIs(1));
}

TEST_F(ReaderRobustness, WithoutAnotherEngineTheNextTextTriesAgain) {
    FakePlayer player(folder, "fast");
    folder.add("espeak-ng", "test -e " + folder.file("crashed") + " && exec " + EngineFolder::real("espeak-ng") +
                                " \"$@\"; touch " + folder.file("crashed") + "; kill -SEGV $$");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string("この文で落ちます") + mark);
    EXPECT_TRUE(hears(folder, "notice", 1));
    expectNextTextIsRead(reader);
}

TEST_F(ReaderRobustness, NoSoundDevice) {
    FakePlayer player(folder, "broken");
    ReaderProcess reader(folder);
    TextOwner owner;
    for (int i = 0; i < 3; ++i) {
        owner.put(std::string("聞こえない文") + mark);
        EXPECT_TRUE(hears(folder, "text", static_cast<std::size_t>(i) + 1));
    }
    EXPECT_TRUE(hears(folder, "notice", 1));
    EXPECT_TRUE(isRunning(reader.process()));
    expectSmall(reader);
    EXPECT_THAT(folder.events("end"), IsEmpty());
}

TEST_F(ReaderRobustness, ASoundDeviceThatTakesNothing) {
    FakePlayer player(folder, "deaf");
    ReaderProcess reader(folder);
    TextOwner owner;
    owner.put(std::string("これは長い文で、最後まで読み上げると何秒もかかるはずのものです") + mark);
    EXPECT_TRUE(hears(folder, "text", 1));
    owner.put(std::string("次の文です") + mark);
    EXPECT_TRUE(hearsText(folder, "text", "次の文です"));
    kill(reader.process(), SIGTERM);
    EXPECT_EQ(reader.waitForEnd(std::chrono::milliseconds(500)), 0);
}

TEST_F(ReaderRobustness, TheXServerGoesAway) {
    FakePlayer player(folder, "fast");
    OwnServer server;
    ReaderProcess reader(folder, {}, server.display());
    EXPECT_TRUE(becomesTrue([&] { return std::filesystem::exists(folder.file("log")); }));
    poll(nullptr, 0, 200);
    ASSERT_TRUE(isRunning(reader.process()));
    server.end();
    EXPECT_EQ(reader.waitForEnd(std::chrono::seconds(1)), 0);
}
