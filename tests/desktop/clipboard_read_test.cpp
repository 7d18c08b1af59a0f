// What our program reads from the clipboard, above all from other programs that answer late, badly or never.

#include "platform/qt/keeper_clipboard.h"
#include "platform/utf8.h"
#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/x_client.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr TextView japanese = u"得意先コード、ｼｭｳﾘｮｳ。｡.～①\uE000\uF8F0\uF7FF𠮟\n終";

double secondsOf(const std::function<void()> &action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void stayingSilent(ForeignOwner &, const xcb_selection_request_event_t &) {}

/// An owner that has its text in one form only.
ForeignOwner::Behaviour offering(const std::string &form, const std::string &bytes, const std::string &type) {
    return [=](ForeignOwner &owner, const xcb_selection_request_event_t &request) {
        if (request.target == owner.client().atom(form))
            owner.answer(request, bytes, type);
        else
            owner.refuse(request);
    };
}

class ClipboardRead : public testing::Test {
protected:
    void expectText(TextView expected) {
        // On a machine that is busy with other things a reading may run out of its tenth of a second.
        ClipboardText got;
        EXPECT_TRUE(becomesTrue([&] { return (got = clipboard.read()).ok; }));
        EXPECT_EQ(got.text, expected);
    }

    KeeperClipboard clipboard{ROMIKA_KEEPER};
};

} // namespace

TEST_F(ClipboardRead, OurOwnTextComesBackExactly) {
    const Text text = Text(japanese) + u"\r\n" + Text(1, u'\0') + u"。";
    ASSERT_TRUE(clipboard.write(text));
    expectText(text);
}

TEST_F(ClipboardRead, ALoneSurrogateComesBackAsTheReplacementCharacter) {
    ASSERT_TRUE(clipboard.write(Text{u'a', 0xD842, u'b', 0xDFB7}));
    expectText(u"a\uFFFDb\uFFFD");
}

TEST_F(ClipboardRead, AnotherProgramsTextIsRead) {
    ASSERT_TRUE(copyElsewhere(toUtf8(japanese)));
    expectText(japanese);
}

TEST_F(ClipboardRead, AnotherKeepersTextIsRead) {
    KeeperClipboard second(ROMIKA_KEEPER);
    ASSERT_TRUE(second.write(japanese));
    expectText(japanese);
    ASSERT_TRUE(clipboard.write(u"こちら"));
    EXPECT_EQ(second.read().text, u"こちら");
}

TEST_F(ClipboardRead, ALongTextOfAnotherProgramIsReadWhole) {
    std::string text;
    while (text.size() < 5u << 20)
        text += "0123456789abcde\n";
    ASSERT_TRUE(copyElsewhere(text));
    // Readings that run out of their tenth of a second must not tear the text of a later one.
    ClipboardText got;
    EXPECT_TRUE(becomesTrue([&] { return (got = clipboard.read()).ok; }));
    EXPECT_TRUE(got.text == fromUtf8(text));
}

TEST_F(ClipboardRead, OurOwnLongTextComesBackWhole) {
    const Text text(5u << 20, u'x');
    ASSERT_TRUE(becomesTrue([&] { return clipboard.write(text); }));
    ClipboardText got;
    EXPECT_TRUE(becomesTrue([&] { return (got = clipboard.read()).ok; }));
    EXPECT_TRUE(got.text == text);
}

TEST_F(ClipboardRead, AClipboardWithoutOwnerIsEmpty) {
    ASSERT_TRUE(clipboard.clear());
    expectText(u"");
}

TEST_F(ClipboardRead, AnOwnerThatNeverAnswersIsAFailureInTimeAndAWriteThenWorks) {
    ForeignOwner owner("CLIPBOARD", stayingSilent);
    ClipboardText got;
    const double seconds = secondsOf([&] { got = clipboard.read(); });
    EXPECT_FALSE(got.ok);
    EXPECT_EQ(got.text, u"");
    EXPECT_LE(seconds, 0.12);
    ASSERT_TRUE(clipboard.write(u"後"));
    EXPECT_EQ(pasteElsewhere(), "後");
    expectText(u"後");
}

TEST_F(ClipboardRead, AnOwnerThatHoldsOnlyAPictureIsEmpty) {
    ForeignOwner owner("CLIPBOARD", offering("image/png", "\x89PNG", "image/png"));
    expectText(u"");
}

TEST_F(ClipboardRead, AnOwnerThatKnowsOnlyAnOlderFormIsRead) {
    {
        ForeignOwner owner("CLIPBOARD", offering("STRING", "caf\xE9", "STRING"));
        expectText(u"café");
    }
    {
        ForeignOwner owner("CLIPBOARD", offering("TEXT", "文", "UTF8_STRING"));
        expectText(u"文");
    }
    ForeignOwner owner("CLIPBOARD", offering("text/plain;charset=utf-8", "字", "text/plain;charset=utf-8"));
    expectText(u"字");
}

TEST_F(ClipboardRead, TextThatIsNoUtf8IsReadWithReplacementCharacters) {
    ForeignOwner owner("CLIPBOARD", offering("UTF8_STRING",
                                             "a\xFF\xE6\xBC"
                                             "b",
                                             "UTF8_STRING"));
    expectText(u"a\uFFFD\uFFFDb");
}

TEST_F(ClipboardRead, ALateAnswerOfTheOwnerIsNotTakenForTheAnswerToTheNextReading) {
    std::vector<xcb_selection_request_event_t> held;
    ForeignOwner owner("CLIPBOARD", [&held](ForeignOwner &self, const xcb_selection_request_event_t &request) {
        held.push_back(request);
        if (held.size() == 2) {
            self.answer(held[0], "古い");
            // The right answer comes only when the late one has been looked at.
            EXPECT_TRUE(becomesTrue([&] { return !self.client().hasProperty(held[0].requestor, held[0].property); }));
            self.answer(held[1], "新しい");
        } else if (held.size() > 2) {
            self.answer(request, "新しい");
        }
    });
    EXPECT_FALSE(clipboard.read().ok);
    expectText(u"新しい");
}

TEST_F(ClipboardRead, ALateRefusalOfTheOwnerIsNotTakenForARefusalOfTheNextReading) {
    std::vector<xcb_selection_request_event_t> held;
    ForeignOwner owner("CLIPBOARD", [&held](ForeignOwner &self, const xcb_selection_request_event_t &request) {
        held.push_back(request);
        if (held.size() == 2) {
            self.refuse(held[0]);
            self.answer(held[1], "新しい");
        } else if (held.size() > 2) {
            self.answer(request, "新しい");
        }
    });
    EXPECT_FALSE(clipboard.read().ok);
    expectText(u"新しい");
}

TEST_F(ClipboardRead, ALateAnswerOfTheKeeperIsNotTakenForTheAnswerToTheNextReading) {
    KeeperClipboard slow(ROMIKA_SLOW_KEEPER);
    ASSERT_NE(slow.keeperProcess(), 0);
    EXPECT_FALSE(slow.read().ok);
    const ClipboardText got = slow.read();
    EXPECT_TRUE(got.ok);
    EXPECT_EQ(got.text, u"in time");
}

TEST_F(ClipboardRead, OthersAreServedWhileAReadingWaitsForASilentOwner) {
    const Text text((1u << 20) + 1, u'x'); // two pieces
    // On a busy machine a tenth of a second can be too short for them; a keeper that serves nobody meanwhile never does.
    const auto isServed = [&] {
        EXPECT_TRUE(becomesTrue([&] { return clipboard.write(text); }));
        XClient other;
        other.ask("UTF8_STRING");
        const xcb_atom_t property = other.waitForNotice();
        EXPECT_NE(property, xcb_atom_t{XCB_ATOM_NONE});
        // The pieces are fetched when the reading has begun, and must have come before it gives up.
        std::atomic<std::size_t> fetched = 0;
        ForeignOwner owner("CLIPBOARD", [&](ForeignOwner &, const xcb_selection_request_event_t &) {
            if (const auto answer = other.take(property))
                fetched = answer->bytes.size();
        });
        EXPECT_FALSE(clipboard.read().ok);
        return fetched == text.size();
    };
    EXPECT_TRUE(becomesTrue(isServed, std::chrono::seconds(10)));
}
