// How the keeper comes, dies, is replaced and goes: after our program's end, with other owners, without an X server.

#include "platform/qt/keeper_clipboard.h"
#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/x_client.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::literals;

double secondsOf(const std::function<void()> &action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A program writes `text` and ends on the spot; gives the process id of the keeper that it leaves behind, or 0.
pid_t keeperLeftBehind(const Text &text) {
    int ends[2];
    if (pipe(ends) != 0)
        return 0;
    const bool written = inEndedProcess([&] {
        KeeperClipboard clipboard(ROMIKA_KEEPER);
        const pid_t keeper = clipboard.keeperProcess();
        return clipboard.write(text) && write(ends[1], &keeper, sizeof keeper) == sizeof keeper;
    });
    pid_t keeper = 0;
    if (!written || read(ends[0], &keeper, sizeof keeper) != sizeof keeper)
        keeper = 0;
    close(ends[0]);
    close(ends[1]);
    return keeper;
}

testing::AssertionResult ends(pid_t keeper, std::chrono::milliseconds patience = 5000ms) {
    if (becomesTrue([=] { return !isRunning(keeper); }, patience))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the keeper still runs";
}

/// DISPLAY names no X server while this lives.
class WithoutServer {
public:
    WithoutServer() : display_(getenv("DISPLAY")) { setenv("DISPLAY", ":64999", 1); }
    ~WithoutServer() { setenv("DISPLAY", display_.c_str(), 1); }

private:
    std::string display_;
};

} // namespace

TEST(ClipboardLifetime, TheTextStaysAfterTheProgramHasEnded) {
    const pid_t keeper = keeperLeftBehind(u"ﾛﾐｶ ｼｭｳﾘｮｳ");
    ASSERT_NE(keeper, 0);
    EXPECT_EQ(pasteElsewhere(), "ﾛﾐｶ ｼｭｳﾘｮｳ");
    EXPECT_EQ(pasteElsewhere(), "ﾛﾐｶ ｼｭｳﾘｮｳ");
    EXPECT_TRUE(isRunning(keeper));
}

TEST(ClipboardLifetime, TheKeeperEndsWhenAnotherProgramTakesTheClipboardAfterOurEnd) {
    const pid_t keeper = keeperLeftBehind(u"残り");
    ASSERT_TRUE(isRunning(keeper));
    ASSERT_TRUE(copyElsewhere("よその文"));
    EXPECT_TRUE(ends(keeper));
    EXPECT_EQ(pasteElsewhere(), "よその文");
}

TEST(ClipboardLifetime, TheKeeperEndsAtOnceWhenWeEndWithoutOwningTheClipboard) {
    ASSERT_TRUE(copyElsewhere("よその文"));
    pid_t keeper = 0;
    {
        KeeperClipboard clipboard(ROMIKA_KEEPER);
        keeper = clipboard.keeperProcess();
        ASSERT_TRUE(isRunning(keeper));
    }
    EXPECT_TRUE(ends(keeper));
}

TEST(ClipboardLifetime, TheKeeperEndsWhenWeEndAfterAnotherProgramTookTheClipboard) {
    pid_t keeper = 0;
    {
        KeeperClipboard clipboard(ROMIKA_KEEPER);
        keeper = clipboard.keeperProcess();
        ASSERT_TRUE(clipboard.write(u"初め"));
        ASSERT_TRUE(copyElsewhere("よその文"));
        EXPECT_TRUE(isRunning(keeper));
    }
    EXPECT_TRUE(ends(keeper));
}

TEST(ClipboardLifetime, ALongTextOnItsWayIsDeliveredBeforeTheKeeperEnds) {
    XClient other;
    pid_t keeper = 0;
    xcb_atom_t property = XCB_ATOM_NONE;
    {
        KeeperClipboard clipboard(ROMIKA_KEEPER);
        ASSERT_TRUE(becomesTrue([&] { return clipboard.write(Text(5u << 20, u'x')); }));
        keeper = clipboard.keeperProcess();
        other.ask("UTF8_STRING");
        property = other.waitForNotice();
        ASSERT_TRUE(copyElsewhere("よその文"));
    }
    const auto answer = other.take(property);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->bytes.size(), 5u << 20);
    EXPECT_TRUE(ends(keeper, 2000ms));
}

TEST(ClipboardLifetime, AProgramThatDiesInTheMiddleOfALongTextDoesNotHoldTheKeeper) {
    pid_t keeper = 0;
    {
        KeeperClipboard clipboard(ROMIKA_KEEPER);
        ASSERT_TRUE(becomesTrue([&] { return clipboard.write(Text(5u << 20, u'x')); }));
        keeper = clipboard.keeperProcess();
        for (int i = 0; i < 100; ++i) {
            XClient dying;
            dying.ask("UTF8_STRING");
            ASSERT_NE(dying.waitForNotice(), xcb_atom_t{XCB_ATOM_NONE}) << i;
        }
        ASSERT_TRUE(copyElsewhere("よその文"));
    }
    // Well below the time after which a silent requestor is given up.
    EXPECT_TRUE(ends(keeper, 2000ms));
}

TEST(ClipboardLifetime, AClipboardManagerSavesTheTextAndTheKeeperEnds) {
    std::string saved;
    std::vector<std::string> wanted;
    ForeignOwner manager("CLIPBOARD_MANAGER", [&](ForeignOwner &self, const xcb_selection_request_event_t &request) {
        if (request.target != self.client().atom("SAVE_TARGETS"))
            return self.refuse(request);
        const auto cookie =
            xcb_get_property(self.client().raw(), 0, request.requestor, request.property, XCB_ATOM_ATOM, 0, 64);
        xcb_get_property_reply_t *list = xcb_get_property_reply(self.client().raw(), cookie, nullptr);
        wanted = self.client().names({static_cast<const char *>(xcb_get_property_value(list)),
                                      static_cast<std::size_t>(xcb_get_property_value_length(list))});
        std::free(list);
        XClient fetching;
        if (const auto text = fetching.fetch("UTF8_STRING"))
            saved = text->bytes;
        self.answer(request, "", "NULL");
    });
    const pid_t keeper = keeperLeftBehind(u"引き継ぎ");
    ASSERT_NE(keeper, 0);
    EXPECT_TRUE(ends(keeper));
    EXPECT_EQ(saved, "引き継ぎ");
    EXPECT_EQ(wanted, (std::vector<std::string>{"UTF8_STRING", "STRING"}));
}

TEST(ClipboardLifetime, AClipboardManagerThatCannotSaveLeavesTheTextWithTheKeeper) {
    bool asked = false;
    pid_t keeper = 0;
    {
        ForeignOwner manager("CLIPBOARD_MANAGER",
                             [&](ForeignOwner &self, const xcb_selection_request_event_t &request) {
                                 asked = true;
                                 self.refuse(request);
                             });
        keeper = keeperLeftBehind(u"残る");
        // Only what the keeper answers after the refusal shows that it has stayed.
        EXPECT_EQ(pasteElsewhere(), "残る");
    }
    EXPECT_TRUE(asked);
    EXPECT_EQ(pasteElsewhere(), "残る");
    EXPECT_TRUE(isRunning(keeper));
}

TEST(ClipboardLifetime, ASignalThatKillsTheProgramAndItsGroupLeavesTheKeeperWithTheLastText) {
    for (const int signal : {SIGTERM, SIGKILL}) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            setpgid(0, 0);
            KeeperClipboard clipboard(ROMIKA_KEEPER);
            const bool written = clipboard.write(u"初め") && clipboard.write(u"生き残り");
            const pid_t keeper = written ? clipboard.keeperProcess() : 0;
            if (write(ready[1], &keeper, sizeof keeper) == sizeof keeper)
                pause();
            _exit(1);
        }
        pid_t keeper = 0;
        ASSERT_EQ(read(ready[0], &keeper, sizeof keeper), static_cast<ssize_t>(sizeof keeper));
        ASSERT_NE(keeper, 0);
        ASSERT_EQ(kill(-child, signal), 0);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        EXPECT_EQ(pasteElsewhere(), "生き残り") << signal;
        EXPECT_EQ(pasteElsewhere(), "生き残り") << signal;
        EXPECT_TRUE(isRunning(keeper)) << signal;
        ASSERT_TRUE(copyElsewhere("よその文"));
        EXPECT_TRUE(ends(keeper)) << signal;
        close(ready[0]);
        close(ready[1]);
    }
}

TEST(ClipboardLifetime, TheKeeperHasASessionOfItsOwnAndNoneOfOurDescriptors) {
    const int leaking = open("/dev/zero", O_RDONLY); // without close-on-exec, as careless libraries open files
    KeeperClipboard clipboard(ROMIKA_KEEPER);
    const pid_t keeper = clipboard.keeperProcess();
    ASSERT_TRUE(isRunning(keeper));
    EXPECT_NE(getsid(keeper), getsid(0));
    int sockets = 0;
    const std::filesystem::path folder = "/proc/" + std::to_string(keeper);
    for (const auto &entry : std::filesystem::directory_iterator(folder / "fd")) {
        const std::string target = std::filesystem::read_symlink(entry.path());
        if (target.starts_with("socket:"))
            ++sockets;
        else
            EXPECT_EQ(target, "/dev/null");
    }
    EXPECT_EQ(sockets, 2); // the program's and the X server's
    EXPECT_EQ(std::filesystem::read_symlink(folder / "cwd"), "/");
    close(leaking);
}

TEST(ClipboardLifetime, AKeeperThatWasKilledIsStartedAgainAndLeavesNoZombie) {
    KeeperClipboard clipboard(ROMIKA_KEEPER);
    ASSERT_TRUE(clipboard.write(u"前"));
    const pid_t first = clipboard.keeperProcess();
    ASSERT_EQ(kill(first, SIGKILL), 0);
    ASSERT_TRUE(ends(first));
    EXPECT_TRUE(clipboard.write(u"後"));
    EXPECT_EQ(pasteElsewhere(), "後");
    EXPECT_NE(clipboard.keeperProcess(), first);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD); // no child of ours is left, living or dead
}

TEST(ClipboardLifetime, AKeeperThatWasKilledIsStartedAgainAlsoByAReading) {
    KeeperClipboard clipboard(ROMIKA_KEEPER);
    ASSERT_TRUE(copyElsewhere("よその文"));
    for (int i = 0; i < 3; ++i) {
        const pid_t keeper = clipboard.keeperProcess();
        ASSERT_EQ(kill(keeper, SIGKILL), 0);
        ASSERT_TRUE(ends(keeper));
        // A start on a busy machine may outlast one reading's tenth of a second.
        ClipboardText got;
        ASSERT_TRUE(becomesTrue([&] { return (got = clipboard.read()).ok; })) << i;
        EXPECT_EQ(got.text, u"よその文");
    }
}

TEST(ClipboardLifetime, AKeeperThatHangsFailsEachCallInTimeAndCarriesNothingOutAfterwards) {
    KeeperClipboard clipboard(ROMIKA_KEEPER);
    ASSERT_TRUE(clipboard.write(u"前"));
    const pid_t keeper = clipboard.keeperProcess();
    ASSERT_EQ(kill(keeper, SIGSTOP), 0);
    EXPECT_LE(secondsOf([&] { EXPECT_FALSE(clipboard.write(u"遅れた文")); }), 0.28);
    EXPECT_LE(secondsOf([&] { EXPECT_FALSE(clipboard.read().ok); }), 0.12);
    ASSERT_EQ(kill(keeper, SIGCONT), 0);
    const ClipboardText got = clipboard.read();
    EXPECT_TRUE(got.ok);
    EXPECT_EQ(got.text, u"前");
}

TEST(ClipboardLifetime, WithoutAnXServerEveryCallFailsAtOnceAndItWorksWhenThereIsOne) {
    std::optional<KeeperClipboard> clipboard;
    {
        WithoutServer none;
        EXPECT_LE(secondsOf([&] { clipboard.emplace(ROMIKA_KEEPER); }), 0.5);
        EXPECT_EQ(clipboard->keeperProcess(), 0);
        const double seconds = secondsOf([&] {
            EXPECT_FALSE(clipboard->write(u"無理"));
            EXPECT_FALSE(clipboard->read().ok);
            EXPECT_FALSE(clipboard->clear());
        });
        EXPECT_LE(seconds, 0.3);
    }
    EXPECT_TRUE(becomesTrue([&] { return clipboard->write(u"今度は"); }));
    EXPECT_EQ(pasteElsewhere(), "今度は");
}

TEST(ClipboardLifetime, WithoutTheKeepersProgramEveryCallFailsAtOnce) {
    std::optional<KeeperClipboard> clipboard;
    EXPECT_LE(secondsOf([&] { clipboard.emplace("/nowhere/romika-clipboard"); }), 0.5);
    EXPECT_LE(secondsOf([&] { EXPECT_FALSE(clipboard->write(u"無理")); }), 0.3);
    EXPECT_FALSE(clipboard->read().ok);
}
