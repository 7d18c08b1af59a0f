// The box of several lines: editing, reading, and the clipboard.

#include "platform/qt/key_text_edit.h"
#include "platform/qt/key_tap.h"
#include "support/qt/desk.h"
#include "voice/forms/SpokenForm.h"

#include <QApplication>
#include <QClipboard>
#include <QVBoxLayout>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct LinesDesk : Desk {
    explicit LinesDesk(bool readOnly) {
        form.setWindowTitle(QStringLiteral("Lines"));
        auto* layout = new QVBoxLayout(&form);
        box = new KeyTextEdit(context);
        if (readOnly) {
            box->switchEditingOff();
        }
        layout->addWidget(box);
        voice = new SpokenForm(form, context, {.opening = [] { return Text(); }});
        voice->add(*box, u"box", {.label = u"本文"});
        box->keys().onKeyDown([this](const KeyStroke&) {
            events.push_back("down");
            return KeyOutcome::goesOn;
        });
        box->keys().onKeyPress([this](char16_t) {
            events.push_back("press");
            return press;
        });
        box->onChange([this](const Text& before, const Text& now) {
            events.push_back("change " + utf8(before) + ">" + utf8(now));
        });
        box->keys().onKeyUp([this](const KeyStroke&) { events.push_back("up"); });
        box->setFocus();
        open(form);
        zormod.speech.speechMode = 1;
    }
    std::vector<std::string> spokenBy(const KeyStroke& stroke) {
        world.later();
        spoken();
        keys.press(stroke);
        return spoken();
    }
    std::string text() const { return utf8(box->view().text); }

    QWidget form;
    KeyTextEdit* box;
    SpokenForm* voice;
    std::vector<std::string> events;
    KeyOutcome press = KeyOutcome::goesOn;
};

} // namespace

TEST(KeyTextEdit, HasTheFourEventsInTheirOrder) {
    LinesDesk desk(false);
    desk.keys.type(u"a");
    EXPECT_THAT(desk.events, ElementsAre("down", "press", "change >a", "up"));
    desk.events.clear();
    desk.keys.press(plainKey(Key::enter));
    EXPECT_THAT(desk.events, ElementsAre("down", "press", "change a>a\r", "up"));
    desk.press = KeyOutcome::taken;
    desk.keys.type(u"b");
    EXPECT_EQ(desk.text(), "a\r");
}

TEST(KeyTextEdit, TheProgramsTextRunsNoChangeAndStartsAtTheTop) {
    LinesDesk desk(false);
    desk.box->setProgramText(u"one\rtwo");
    EXPECT_THAT(desk.events, IsEmpty());
    EXPECT_EQ(desk.text(), "one\rtwo");
    EXPECT_EQ(desk.box->caretPosition(), 0);
    EXPECT_EQ(desk.box->lineCount(), 2);
    EXPECT_EQ(desk.box->textLength(), 7);
}

TEST(KeyTextEdit, AReadOnlyTextIsMovedThroughSelectedAndCopiedButNeverChanged) {
    LinesDesk desk(true);
    desk.box->setProgramText(u"one\rtwo\r\rfour");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("two"));
    EXPECT_EQ(desk.box->caretLineNumber(), 1);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("空行"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("最終ぎょう。four"));
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::home)), ElementsAre("先頭ぎょう。one"));
    EXPECT_THAT(desk.spokenBy(shiftKey(Key::down)),
                ElementsAre("one\r。ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ  ｵﾜﾘﾆ ｱﾘﾏｽ"));
    desk.keys.press(ctrlKey(Key::c));
    EXPECT_EQ(utf8(desk.world.clipboard.contents), "one\r\n");
    for (const KeyStroke& stroke : {ctrlKey(Key::x), ctrlKey(Key::v), plainKey(Key::del), plainKey(Key::backspace),
                                    plainKey(Key::enter), plainKey(Key::space), plainKey(Key::a)}) {
        desk.keys.press(stroke);
    }
    desk.keys.type(u"あ");
    EXPECT_EQ(desk.text(), "one\rtwo\r\rfour");
    EXPECT_EQ(desk.box->selectionLength(), 4);
}

TEST(KeyTextEdit, CopyCutAndPasteUseTheProgramsClipboardAlone) {
    LinesDesk desk(false);
    QGuiApplication::clipboard()->setText(QStringLiteral("untouched"));
    desk.box->setProgramText(u"one\rtwo");
    desk.keys.press(ctrlKey(Key::a));
    desk.keys.press(ctrlKey(Key::x));
    EXPECT_EQ(utf8(desk.world.clipboard.contents), "one\r\ntwo");
    EXPECT_EQ(desk.text(), "");
    desk.world.clipboard.foreign(u"a\r\nb\rc\nd\te\uF781");
    desk.keys.press(ctrlKey(Key::v));
    EXPECT_EQ(desk.text(), "a\rb\rc\rd e?");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("untouched"));
}

TEST(KeyTextEdit, ASelectionByTheProgramLeavesTheCaretBehindIt) {
    LinesDesk desk(true);
    desk.box->setProgramText(u"one\rtwo");
    desk.box->select(4, 2);
    const BoxView view = desk.box->view();
    EXPECT_EQ(view.caret, 6);
    EXPECT_EQ(view.selectionStart, 4);
    EXPECT_EQ(view.selectionLength, 2);
    EXPECT_EQ(utf8(desk.box->caretLine().text), "two");
    EXPECT_EQ(desk.box->caretLine().caret, 2);
}

TEST(KeyTextEdit, ComposedTextIsTypedWhenItIsCommitted) {
    LinesDesk desk(false);
    desk.keys.compose(u"かんじ");
    EXPECT_TRUE(desk.box->composing());
    EXPECT_EQ(desk.text(), "");
    EXPECT_THAT(desk.events, IsEmpty());
    desk.keys.commit(u"漢字");
    EXPECT_THAT(desk.events, ElementsAre("press", "press", "change >漢字"));
    EXPECT_EQ(desk.text(), "漢字");
}

TEST(KeyTextEdit, TheReadingKeysSayWhatItIs) {
    LinesDesk desk(true);
    desk.box->setProgramText(u"one");
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::s)), ElementsAre("本文"));
    EXPECT_THAT(desk.spokenBy(shiftKey(Key::pageDown)), ElementsAre("本文"));
}
