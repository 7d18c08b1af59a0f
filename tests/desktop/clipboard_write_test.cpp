// What other programs find on the clipboard when ours has written, while our thread does nothing but wait.

#include "platform/qt/keeper_clipboard.h"
#include "platform/utf8.h"
#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/x_client.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <xcb/xfixes.h>

namespace {

using namespace std::literals;

// Kanji, half-width kana, a full-width tilde, private use, a surrogate pair.
constexpr TextView japanese = u"得意先コード、ｼｭｳﾘｮｳ。｡.～①\uE000\uF8F0\uF7FF𠮟\r\n終";

Text longText() {
    Text text;
    while (text.size() < 5u << 20)
        text += u"0123456789abcde\n";
    return text;
}

class ClipboardWrite : public testing::Test {
protected:
    KeeperClipboard clipboard{ROMIKA_KEEPER};
};

} // namespace

TEST_F(ClipboardWrite, AnotherProgramReadsTheTextAtOnceWhileOurOnlyThreadWaits) {
    ASSERT_TRUE(clipboard.write(u"読み上げ。｡."));
    EXPECT_EQ(pasteElsewhere(), "読み上げ。｡.");
}

TEST_F(ClipboardWrite, EveryKindOfCharacterArrivesUnchanged) {
    ASSERT_TRUE(clipboard.write(japanese));
    EXPECT_EQ(pasteElsewhere(), toUtf8(japanese));
}

TEST_F(ClipboardWrite, TwoHundredTextsAreEachFetchedByAnotherProgram) {
    XClient other;
    for (int i = 0; i < 200; ++i) {
        const std::string text = "行 " + std::to_string(i);
        ASSERT_TRUE(clipboard.write(fromUtf8(text)));
        const auto answer = other.fetch("UTF8_STRING");
        ASSERT_TRUE(answer) << i;
        ASSERT_EQ(answer->bytes, text);
    }
}

TEST_F(ClipboardWrite, EveryWriteIsNewsToAWatcherAlsoOfTheSameText) {
    XClient watcher;
    const auto version = xcb_xfixes_query_version(watcher.raw(), 5, 0);
    std::free(xcb_xfixes_query_version_reply(watcher.raw(), version, nullptr));
    xcb_xfixes_select_selection_input(watcher.raw(), watcher.window(), watcher.atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    watcher.atom("CLIPBOARD"); // a round trip: the server watches from here on
    const int news = xcb_get_extension_data(watcher.raw(), &xcb_xfixes_id)->first_event;
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(clipboard.write(u"同じ"));
        const auto event = watcher.waitForEvent();
        ASSERT_TRUE(event);
        EXPECT_EQ(event->response_type & 0x7f, news);
    }
}

TEST_F(ClipboardWrite, ALongTextGoesOutPieceByPiece) {
    const Text text = longText();
    ASSERT_TRUE(becomesTrue([&] { return clipboard.write(text); }));
    EXPECT_TRUE(pasteElsewhere() == toUtf8(text));
}

TEST_F(ClipboardWrite, SeveralProgramsFetchALongTextAtOnceAndOneThatStallsHoldsNobodyUp) {
    const Text text = longText();
    ASSERT_TRUE(becomesTrue([&] { return clipboard.write(text); }));
    XClient stalling;
    stalling.ask("UTF8_STRING");
    ASSERT_NE(stalling.waitForNotice(), xcb_atom_t{XCB_ATOM_NONE});
    std::vector<std::unique_ptr<XClient>> others(6);
    for (auto &other : others) {
        other = std::make_unique<XClient>();
        other->ask("UTF8_STRING");
    }
    // All of them stand in the middle of their transfers before the first one goes on.
    std::vector<xcb_atom_t> properties;
    for (auto &other : others)
        properties.push_back(other->waitForNotice());
    for (std::size_t i = 0; i < others.size(); ++i) {
        const auto answer = others[i]->take(properties[i]);
        ASSERT_TRUE(answer) << i;
        EXPECT_TRUE(answer->bytes == toUtf8(text)) << i;
    }
}

TEST_F(ClipboardWrite, AProgramInTheMiddleOfALongTextGetsItsEndAlsoAfterANewWrite) {
    const Text text = longText();
    ASSERT_TRUE(becomesTrue([&] { return clipboard.write(text); }));
    XClient other;
    other.ask("UTF8_STRING");
    const xcb_atom_t property = other.waitForNotice();
    ASSERT_TRUE(clipboard.write(u"次"));
    const auto answer = other.take(property);
    ASSERT_TRUE(answer);
    EXPECT_TRUE(answer->bytes == toUtf8(text));
    EXPECT_EQ(other.fetch("UTF8_STRING")->bytes, "次");
}

TEST_F(ClipboardWrite, EachFormOfTextCarriesItsOwnName) {
    ASSERT_TRUE(clipboard.write(u"é漢𠮟"));
    XClient other;
    for (const char *form : {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain"}) {
        const auto answer = other.fetch(form);
        ASSERT_TRUE(answer) << form;
        EXPECT_EQ(answer->type, form);
        EXPECT_EQ(answer->bytes, "é漢𠮟");
    }
    const auto text = other.fetch("TEXT");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->type, "UTF8_STRING");
    EXPECT_EQ(text->bytes, "é漢𠮟");
    const auto latin = other.fetch("STRING");
    ASSERT_TRUE(latin);
    EXPECT_EQ(latin->type, "STRING");
    EXPECT_EQ(latin->bytes, "\xE9??");
    EXPECT_FALSE(other.fetch("image/png"));
}

TEST_F(ClipboardWrite, TheFormsAreListedAndTheTimeIsReal) {
    ASSERT_TRUE(clipboard.write(u"一"));
    XClient other;
    const auto targets = other.fetch("TARGETS");
    ASSERT_TRUE(targets);
    EXPECT_EQ(targets->type, "ATOM");
    auto names = other.names(targets->bytes);
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"MULTIPLE", "SAVE_TARGETS", "STRING", "TARGETS", "TEXT", "TIMESTAMP",
                                               "UTF8_STRING", "text/plain", "text/plain;charset=utf-8"}));
    const auto time = other.fetch("TIMESTAMP");
    ASSERT_TRUE(time);
    EXPECT_EQ(time->type, "INTEGER");
    std::uint32_t milliseconds = 0;
    ASSERT_EQ(time->bytes.size(), sizeof milliseconds);
    std::memcpy(&milliseconds, time->bytes.data(), sizeof milliseconds);
    EXPECT_NE(milliseconds, 0u);
}

TEST_F(ClipboardWrite, SeveralFormsAskedForAtOnceAreAllAnsweredAndTheUnknownOneIsCrossedOut) {
    ASSERT_TRUE(clipboard.write(u"二"));
    XClient other;
    const std::uint32_t pairs[] = {other.atom("UTF8_STRING"), other.atom("FIRST"),  other.atom("image/png"),
                                   other.atom("SECOND"),      other.atom("STRING"), other.atom("THIRD")};
    xcb_change_property(other.raw(), XCB_PROP_MODE_REPLACE, other.window(), other.atom("PAIRS"),
                        other.atom("ATOM_PAIR"), 32, 6, pairs);
    other.ask("MULTIPLE", "PAIRS");
    ASSERT_EQ(other.waitForNotice(), other.atom("PAIRS"));
    EXPECT_EQ(other.names(other.property(other.atom("PAIRS")).bytes),
              (std::vector<std::string>{"UTF8_STRING", "FIRST", "image/png", "", "STRING", "THIRD"}));
    EXPECT_EQ(other.property(other.atom("FIRST")).bytes, "二");
    EXPECT_EQ(other.property(other.atom("THIRD")).bytes, "?");
}

TEST_F(ClipboardWrite, ClearingLeavesNobodyAsOwner) {
    XClient other;
    ASSERT_TRUE(clipboard.write(u"三"));
    ASSERT_TRUE(clipboard.clear());
    EXPECT_EQ(other.owner("CLIPBOARD"), xcb_window_t{XCB_WINDOW_NONE});
    EXPECT_EQ(pasteElsewhere(), "");
    const ClipboardText text = clipboard.read();
    EXPECT_TRUE(text.ok);
    EXPECT_EQ(text.text, u"");
}

TEST_F(ClipboardWrite, ClearingTakesAnotherProgramsTextAway) {
    ASSERT_TRUE(copyElsewhere("よその文"));
    ASSERT_TRUE(clipboard.clear());
    EXPECT_EQ(pasteElsewhere(), "");
}

TEST_F(ClipboardWrite, AnEmptyTextIsATextAllTheSame) {
    ASSERT_TRUE(clipboard.write(u""));
    XClient other;
    const auto answer = other.fetch("UTF8_STRING");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->bytes, "");
}

TEST_F(ClipboardWrite, ATextBeyondTheLimitIsRefusedAndTheOldOneStays) {
    ASSERT_TRUE(clipboard.write(u"前"));
    EXPECT_FALSE(clipboard.write(Text((maxKeeperPayload / 3) + 1, u'漢')));
    EXPECT_EQ(clipboard.read().text, u"前");
}
