// The text viewer worked by keys and ear.

#include "platform/qt/key_text_edit.h"
#include "support/qt/edit_desk.h"

#include <QApplication>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

struct ViewerDesk : EditDesk {
    ViewerDesk() {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
        zormod.speech.speechMode = 1;
    }
    /// Writes a guide and opens it by its menu command.
    void openGuide(TextView text, TextView command = u"mnuREDME", const std::string& file = "readme.txt") {
        world.writeFile(file, world.codePage.encode(text));
        run(command);
    }
    void run(TextView command) {
        world.later();
        EXPECT_TRUE(guard.run([&] { commands.run(command); }));
        settle();
    }
    KeyTextEdit& box() const { return *static_cast<KeyTextEdit*>(control(u"RichTextBox1")); }
    /// Goes by Tab to a control.
    void tabTo(const std::string& name) {
        for (int i = 0; i < 6 && focus() != name; ++i) {
            key(plainKey(Key::tab));
        }
        ASSERT_EQ(focus(), name);
        spoken();
    }
    void searchFor(TextView word) {
        tabTo("Text1");
        keys.type(word);
        tabTo("Command1");
        world.later();
    }
};

constexpr const char* description =
    "リッチテキストボックスにヘルプファイルを読み込み、閲覧するWindowです。検索したい文字列を書き検索ボタンを押すとカーソルが該当個所に移動します。上下矢印キーでテキスト内のキャレットを移動すると、各行が読まれます。";

} // namespace

TEST(frmHelp, OpensWithItsDescriptionAndReadsLineByLine) {
    ViewerDesk desk;
    desk.openGuide(u"はじめ\r\n\r\n中ほど\r\nおわり");
    EXPECT_EQ(desk.title(), "ReadMe.txt");
    EXPECT_THAT(desk.spoken(), ElementsAre("ReadMe.txt。" + std::string(description)));
    EXPECT_EQ(desk.focus(), "RichTextBox1");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("空行"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("中ほど"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("最終ぎょう。おわり"));
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::home)), ElementsAre("先頭ぎょう。はじめ"));
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::pageDown)), ElementsAre("0パーセント位置"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::f12)), ElementsAre("先頭ぎょう1ぎょう1もじめキャレットはじめ"));
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)), ElementsAre("ReadMe.txt。" + std::string(description)));
    desk.key(plainKey(Key::escape));
    EXPECT_FALSE(desk.formTable.isLoaded(u"frmHelp"));
}

TEST(frmHelp, EachControlSaysItsName) {
    ViewerDesk desk;
    desk.openGuide(u"a");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)),
                ElementsAre("検索文字列をいれてください、カーソル行以降のテキストが検索対象になります"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("検索コマンドボタン"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("印刷コマンドボタン"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("ｷｬﾝｾﾙ(esc)コマンドボタン"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("戻るコマンドボタン"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("ヘルプ表示リッチテキストボックス"));
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, AMissingFileShowsAnEmptyBox) {
    ViewerDesk desk;
    desk.run(u"mnuGUIDE");
    EXPECT_EQ(desk.title(), "音声案内について.txt");
    EXPECT_EQ(utf8(desk.box().view().text), "");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("空行"));
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, FindSelectsTheWordAndGoesOnBehindIt) {
    ViewerDesk desk;
    desk.openGuide(u"keyひとつ\r\n二番目のKey\r\nおわり");
    desk.searchFor(u"key");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("keyひとつ"));
    EXPECT_EQ(desk.box().view().selectionStart, 0);
    EXPECT_EQ(desk.box().view().caret, 3);
    EXPECT_EQ(desk.focus(), "Command1") << "the next press goes on";
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("二番目のKey"));
    EXPECT_EQ(desk.box().view().selectionStart, 11);
    EXPECT_EQ(desk.box().view().selectionLength, 3);
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, AWordAheadOfTheCaretIsFoundFromTheTopAfterTheMessage) {
    ViewerDesk desk;
    desk.openGuide(u"あたま\r\nおわり");
    desk.key(ctrlKey(Key::end));
    desk.searchFor(u"あたま");
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "最初から再検索");
        desk.keys.press(plainKey(Key::escape)); // Enter is still held
    });
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.box().view().selectionStart, 0);
    EXPECT_EQ(desk.box().view().selectionLength, 3);
    EXPECT_EQ(desk.focus(), "Command1");
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, AWordThatStandsNowhereLeavesTheCaretWhereItIs) {
    ViewerDesk desk;
    desk.openGuide(u"あたま\r\nおわり");
    desk.key(plainKey(Key::down));
    desk.searchFor(u"無い");
    desk.inNextModal(plainKey(Key::escape));
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.box().view().caret, 4);
    EXPECT_EQ(desk.box().view().selectionLength, 0);
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, EnterInTheWordFindsItAndAnEmptyWordIsAskedFor) {
    ViewerDesk desk;
    desk.openGuide(u"あ\r\nい");
    desk.tabTo("Command1");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)),
                ElementsAre("検索文字列をいれてください、カーソル行以降のテキストが検索対象になります"));
    EXPECT_EQ(desk.focus(), "Text1");
    desk.keys.type(u"い");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("い"));
    EXPECT_EQ(desk.box().view().selectionStart, 2);
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, PrintsTheSelectionOrElseAllOfIt) {
    ViewerDesk desk;
    desk.openGuide(u"one\r\ntwo\r\nthree");
    desk.key(plainKey(Key::down));
    desk.key(shiftKey(Key::end));
    desk.tabTo("Command2");
    desk.key(plainKey(Key::enter));
    ASSERT_EQ(desk.world.printer.drawn.size(), 1U);
    EXPECT_EQ(desk.world.printer.drawn[0].text, "two");
    desk.world.printer.drawn.clear();
    desk.tabTo("RichTextBox1");
    desk.key(plainKey(Key::up));
    desk.tabTo("Command2");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.world.printer.drawn.size(), 3U);
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, EachWayOutClosesItAndGivesTheKeyboardBack) {
    for (const char* button : {"Command3", "Command4"}) {
        ViewerDesk desk;
        desk.openGuide(u"a");
        desk.tabTo(button);
        desk.key(plainKey(Key::enter));
        EXPECT_FALSE(desk.formTable.isLoaded(u"frmHelp"));
        EXPECT_EQ(desk.focus(), "txtinputbox");
        EXPECT_EQ(QApplication::activeWindow(), &desk.form);
    }
}

TEST(frmHelp, EscHeldTooLongEndsNoMoreThanTheViewer) {
    ViewerDesk desk;
    desk.openGuide(u"a");
    desk.keys.hold(plainKey(Key::escape), 3);
    desk.settle();
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_FALSE(desk.endStatus.has_value());
    EXPECT_FALSE(desk.guard.isEndPending());
}

TEST(frmHelp, AnotherGuideComesIntoTheOpenWindow) {
    ViewerDesk desk;
    desk.openGuide(u"one");
    QWidget* first = QApplication::activeWindow();
    desk.bringToFront(desk.form);
    desk.openGuide(u"two", u"mnuGUIDE", "音声案内について.txt");
    EXPECT_EQ(QApplication::activeWindow(), first);
    EXPECT_EQ(desk.title(), "音声案内について.txt");
    EXPECT_EQ(utf8(desk.box().view().text), "two");
    EXPECT_THAT(desk.spoken(), Contains(StartsWith("音声案内について.txt。"))) << "or nobody would know that it has come";
    desk.key(plainKey(Key::escape));
}

TEST(frmHelp, TheReadingKeysSayTheWordThatIsLookedForAndTheBox) {
    ViewerDesk desk;
    desk.openGuide(u"one");
    desk.tabTo("Text1");
    desk.keys.type(u"key");
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::s)),
                ElementsAre("key､検索文字列をいれてください、カーソル行以降のテキストが検索対象になります"));
}

TEST(frmHelp, ALargeTextIsReadToItsEnd) {
    ViewerDesk desk;
    Text text;
    for (int i = 0; i < 50000; ++i) {
        text += u"行の文\r";
    }
    desk.guard.run([&] { desk.routines.viewer.show(text + u"最後", u"大"); });
    desk.settle();
    desk.spoken();
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::end)), ElementsAre("最終ぎょう。最後"));
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::pageDown)), ElementsAre("100パーセント位置"));
    desk.key(plainKey(Key::escape));
}
