// Whoever knows the program by heart types ahead of its windows. The real program on a real X server gets a run of keys
// without a rest between them, on a desktop that is quick and on one that takes its time to show a window.

#include "support/test_world.h"
#include "tests/desktop/support/clipboard_watcher.h"
#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/program_keys.h"
#include "tests/desktop/support/running_program.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <signal.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::size_t recordLength = 256;

/// The program at a table of 100 records with an ID, a name and an age.
class TableOnScreen {
public:
    TableOnScreen() {
        std::vector<std::vector<std::u16string_view>> rows(100, {u"7", u"abc", u"45"});
        world.makeTable("t.txt", {{u"ID", u"L", 6}, {u"A", u"L", 10}, {u"B", u"R", 3}}, rows);
        program.emplace(world.folder.path(), "t.txt");
        EXPECT_TRUE(windowComesUp("t.txt/"));
        EXPECT_TRUE(takesKeys("ctrl+g"));
    }
    std::size_t records() const { return world.bytesOf("t.txt").size() / recordLength; }
    /// Waits until the table has so many records.
    bool comesTo(std::size_t count) const {
        return becomesTrue([&] { return records() == count; }, std::chrono::seconds(10));
    }
    /// Where the edit screen stands by its own word, such as "ギョウ3 項目0ID".
    bool standsAt(const std::string& place) {
        return becomesTrue(
            [&] {
                usleep(300000); // a reading that follows another at once is not spoken
                pressKey("alt+n");
                usleep(100000);
                return watcher.texts().back().find("。" + place + "。") != std::string::npos;
            },
            std::chrono::seconds(10));
    }
    std::string lastHeard() const { return watcher.texts().back(); }

    TestWorld world;
    ClipboardWatcher watcher;
    std::optional<RunningProgram> program;
};

/// Presses keys that are separated by blanks one right after the other.
void pressAtOnce(const std::string& keys) {
    outputOf("xdotool key --delay 0 " + keys);
}

/// A window manager that does nothing for a while, as on a desktop that is busy or slow.
class SlowDesktop {
public:
    explicit SlowDesktop(std::chrono::milliseconds pause)
        : manager_(std::atoi(std::getenv("ROMIKA_WINDOW_MANAGER"))), awakener_([this, pause] {
              std::this_thread::sleep_for(pause);
              kill(manager_, SIGCONT);
          }) {
        kill(manager_, SIGSTOP);
    }
    ~SlowDesktop() { awakener_.join(); }
    SlowDesktop(const SlowDesktop&) = delete;
    SlowDesktop& operator=(const SlowDesktop&) = delete;

private:
    pid_t manager_;
    std::thread awakener_;
};

} // namespace

TEST(KeysAhead, AnswerTheQuestionThatIsStillComingUp) {
    TableOnScreen table;
    pressAtOnce("ctrl+g 5 Return");
    EXPECT_TRUE(table.comesTo(105)) << table.records();
}

TEST(KeysAhead, GoToTheTableWhenTheQuestionHasGone) {
    TableOnScreen table;
    pressAtOnce("ctrl+g 5 Return Down Down");
    EXPECT_TRUE(table.comesTo(105)) << table.records();
    EXPECT_TRUE(table.standsAt("ギョウ3 項目0ID")) << table.lastHeard();
}

TEST(KeysAhead, KeepTheirOrderThroughSeveralQuestions) {
    TableOnScreen table;
    pressAtOnce("ctrl+g 2 Return Down ctrl+g 3 Return Right Down");
    EXPECT_TRUE(table.comesTo(105)) << table.records();
    EXPECT_TRUE(table.standsAt("ギョウ3 項目1A")) << table.lastHeard();
}

TEST(KeysAhead, WaitForASlowDesktop) {
    TableOnScreen table;
    {
        const SlowDesktop slow(std::chrono::milliseconds(600));
        pressAtOnce("ctrl+g 5 Return Down Down");
        usleep(200000);
        EXPECT_EQ(table.records(), 100U) << "the desktop was not slow";
    }
    EXPECT_TRUE(table.comesTo(105)) << table.records();
    EXPECT_TRUE(table.standsAt("ギョウ3 項目0ID")) << table.lastHeard();
}

TEST(KeysAhead, AreNotLostWhileASlowDesktopTakesAQuestionAway) {
    TableOnScreen table;
    // When a window goes, the X server gives keys to whatever the pointer stands on: here to nobody.
    outputOf("xdotool getactivewindow windowsize --sync 800 600 windowmove --sync 0 0 mousemove --sync 1200 1000");
    ASSERT_TRUE(pressOnTheWay({"ctrl+g>"}));
    {
        const SlowDesktop slow(std::chrono::milliseconds(600));
        pressAtOnce("5 Return");
        usleep(100000);
        pressAtOnce("Down Down");
    }
    EXPECT_TRUE(table.comesTo(105)) << table.records();
    EXPECT_TRUE(table.standsAt("ギョウ3 項目0ID")) << table.lastHeard();
}

TEST(KeysAhead, AreGivenUpWhenNoWindowComes) {
    TableOnScreen table;
    {
        const SlowDesktop slow(std::chrono::milliseconds(4500));
        pressAtOnce("ctrl+g 5 Return");
    }
    // The question is there, and nothing is in its box but what it proposes.
    ASSERT_TRUE(windowComesUp("指定数の記録の挿入"));
    usleep(300000);
    EXPECT_EQ(table.records(), 100U);
    pressKey("Return");
    EXPECT_TRUE(table.comesTo(101)) << table.records();
}

TEST(KeysAhead, ThatWereLetGoAheadAreNotHeldAnyMore) {
    TableOnScreen table;
    // Enter closes the question and is let go on the way; the next Enter is a fresh one and moves to the next item.
    pressAtOnce("ctrl+g 1 Return Return Return");
    EXPECT_TRUE(table.comesTo(101)) << table.records();
    EXPECT_TRUE(table.standsAt("ギョウ1 項目2B")) << table.lastHeard();
}
