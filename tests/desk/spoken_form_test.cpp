#include "voice/forms/SpokenForm.h"

#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "support/qt/desk.h"
#include "voice/announcement.h"
#include "voice/forms/spoken_dialog.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <memory>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A main window with one control of each kind.
struct FormDesk : Desk {
    explicit FormDesk(FormVoice form = {.description = [] { return Text(u"何かをします。"); }}) {
        window = std::make_unique<QMainWindow>();
        window->setWindowTitle(QStringLiteral("題"));
        auto* middle = new QWidget;
        auto* layout = new QVBoxLayout(middle);
        box = new KeyLineEdit(context);
        button = new KeyButton(QStringLiteral("フォルダ作成(&F)"), context);
        check = new QCheckBox(QStringLiteral("読む"));
        for (QWidget* control : std::initializer_list<QWidget*>{box, button, check}) {
            layout->addWidget(control);
        }
        window->setCentralWidget(middle);
        voice = new SpokenForm(*window, context, std::move(form));
        voice->add(*box, u"Text1", {.label = u"氏名ﾃｷｽﾄﾎﾞｯｸｽ"});
        voice->add(*button, u"Command1");
        voice->add(*check, u"Check1");
        box->setFocus();
        zormod.speech.speechMode = 2;
    }
    /// Opens the window and forgets what it said.
    FormDesk& opened() {
        open(*window);
        quiet();
        return *this;
    }
    void quiet() {
        spoken();
        world.later();
    }

    std::unique_ptr<QMainWindow> window;
    KeyLineEdit* box;
    KeyButton* button;
    QCheckBox* check;
    SpokenForm* voice;
};

} // namespace

TEST(SpokenForm, SaysItsOpeningTextOncePerOpening) {
    FormDesk desk({.description = [] { return Text(u"d"); }, .opening = [] { return Text(u"開きました"); }});
    desk.open(*desk.window);
    EXPECT_THAT(desk.spoken(), ElementsAre("開きました"));
    desk.world.later();

    QWidget other;
    desk.open(other);
    desk.bringToFront(*desk.window);
    EXPECT_THAT(desk.spoken(), IsEmpty()) << "coming back to the front is no opening";

    desk.window->hide();
    desk.open(*desk.window);
    EXPECT_THAT(desk.spoken(), ElementsAre("開きました"));
}

TEST(SpokenForm, TheOpeningTextWaitsTheInhibitTimeSoThatItIsHeard) {
    FormDesk desk;
    desk.zormod.speech.lastSpokenTime = desk.world.clock.now;
    desk.open(*desk.window);
    EXPECT_THAT(desk.spoken(), ElementsAre("題。何かをします。"));
    EXPECT_GE(desk.world.clock.slept, desk.zormod.speech.inhibitSeconds);
}

TEST(SpokenForm, WithoutAnOpeningTextTheFocusedControlIsAnnounced) {
    FormDesk desk({.opening = [] { return Text(); }});
    desk.open(*desk.window);
    EXPECT_THAT(desk.spoken(), ElementsAre("氏名ﾃｷｽﾄﾎﾞｯｸｽ"));
}

TEST(SpokenForm, WithSpeechOffNothingIsWaitedFor) {
    FormDesk desk;
    desk.zormod.speech.speechMode = 0;
    desk.opened();
    EXPECT_EQ(desk.world.clock.slept, 0);
    EXPECT_EQ(desk.world.clipboard.reads, 0);
}

TEST(SpokenForm, CtrlShiftASaysCaptionAndDescriptionOnEveryControl) {
    FormDesk desk;
    desk.opened();
    for (int i = 0; i < 3; ++i) {
        for (const Key key : {Key::a, Key::keypad1}) {
            desk.quiet();
            desk.keys.press(ctrlShiftKey(key));
            EXPECT_THAT(desk.spoken(), ElementsAre("題。何かをします。")) << desk.focus();
        }
        desk.keys.press(plainKey(Key::tab));
    }
}

TEST(SpokenForm, EachControlAnnouncesItselfWhenItGetsTheFocus) {
    FormDesk desk;
    desk.opened();
    desk.box->setProgramText(u"山田");
    desk.keys.press(plainKey(Key::tab));
    EXPECT_THAT(desk.spoken(), ElementsAre("フォルダ作成(F)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
    desk.quiet();
    desk.keys.press(plainKey(Key::tab));
    EXPECT_THAT(desk.spoken(), ElementsAre("読むﾁｪｯｸﾎﾞｯｸｽ､ノーチェック"));
    desk.check->setChecked(true);
    desk.quiet();
    desk.keys.press(ctrlShiftKey(Key::s));
    EXPECT_THAT(desk.spoken(), ElementsAre("読むﾁｪｯｸﾎﾞｯｸｽ､チェック"));
    desk.quiet();
    desk.keys.press(plainKey(Key::tab));
    EXPECT_THAT(desk.spoken(), ElementsAre("山田､氏名ﾃｷｽﾄﾎﾞｯｸｽ"));
}

TEST(SpokenForm, ReadingKeysOfButtonsSpeakOnKeyUp) {
    FormDesk desk;
    desk.opened();
    desk.keys.press(plainKey(Key::tab));
    for (const KeyStroke& stroke : {shiftKey(Key::pageDown), ctrlShiftKey(Key::s)}) {
        desk.quiet();
        desk.keys.down(stroke);
        EXPECT_THAT(desk.spoken(), IsEmpty());
        desk.keys.up(stroke);
        EXPECT_THAT(desk.spoken(), ElementsAre("フォルダ作成(F)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
    }
}

TEST(SpokenForm, TypingInABoxIsSpokenAndItsKeysRead) {
    FormDesk desk;
    desk.opened();
    desk.keys.type(u"a");
    EXPECT_THAT(desk.spoken(), ElementsAre("ｴｰ"));
    desk.quiet();
    desk.keys.press(plainKey(Key::f12));
    EXPECT_THAT(desk.spoken(), ElementsAre("2もじめaキャレット"));
    desk.quiet();
    desk.keys.press(plainKey(Key::shift));
    EXPECT_THAT(desk.spoken(), ElementsAre("a"));
}

TEST(SpokenForm, NothingIsSpokenWhileTheUserComposes) {
    FormDesk desk;
    desk.opened();
    desk.keys.compose(u"あ");
    desk.keys.press(plainKey(Key::left));
    EXPECT_THAT(desk.spoken(), IsEmpty());
    desk.keys.commit(u"亜");
    EXPECT_EQ(desk.box->view().text, u"亜");
    EXPECT_THAT(desk.spoken(), ElementsAre("亜"));
}

TEST(SpokenForm, AControlMaySpeakForItself) {
    FormDesk desk;
    desk.voice->voiceOf(*desk.box).ownKeyUps = true;
    desk.voice->voiceOf(*desk.box).ownTyping = true;
    desk.opened();
    desk.keys.type(u"a");
    desk.keys.press(plainKey(Key::f12));
    EXPECT_THAT(desk.spoken(), IsEmpty());
}

TEST(SpokenForm, TheSheetIsReadOnKeyDown) {
    FormDesk desk;
    desk.world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
    desk.opened();
    desk.keys.down(altKey(Key::n));
    EXPECT_THAT(desk.spoken(), ElementsAre("1   。ギョウ1 項目0ID"));
    desk.keys.up(altKey(Key::n));
    desk.quiet();
    desk.keys.down(altKey(Key::m));
    EXPECT_THAT(desk.spoken(), ElementsAre("ギョウ1 1   山田"));
    desk.keys.up(altKey(Key::m));
}

TEST(SpokenForm, AControlMayKeepTheSheetKeysForItsKeyUp) {
    FormDesk desk;
    desk.world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
    desk.voice->voiceOf(*desk.box).ownSheetKeys = true;
    desk.opened();
    desk.keys.press(altKey(Key::n));
    EXPECT_THAT(desk.spoken(), IsEmpty());
    EXPECT_EQ(desk.box->view().text, u"") << "and it types no letter";
}

TEST(SpokenForm, ShiftInsOffersTheUsersTextBeforeTheBoxPastes) {
    FormDesk desk;
    desk.opened();
    desk.zormod.speech.userClipboard = u"mine";
    desk.world.clipboard.foreign(u"words。｡.");
    desk.keys.press(shiftKey(Key::insert));
    EXPECT_EQ(desk.box->view().text, u"mine");
}

TEST(SpokenForm, ShiftInsLeavesTheClipboardAloneWithSpeechOff) {
    FormDesk desk;
    desk.zormod.speech.speechMode = 0;
    desk.opened();
    desk.zormod.speech.userClipboard = u"mine";
    desk.world.clipboard.foreign(u"theirs");
    desk.keys.press(shiftKey(Key::insert));
    EXPECT_EQ(desk.box->view().text, u"theirs");
    EXPECT_THAT(desk.world.clipboard.written, IsEmpty());
}

TEST(SpokenForm, CtrlInsIsRememberedAtKeyUpEvenWithSpeechOff) {
    FormDesk desk;
    desk.zormod.speech.speechMode = 0;
    desk.opened();
    desk.box->setProgramText(u"abc");
    desk.box->selectAll();
    desk.keys.down(ctrlKey(Key::insert));
    EXPECT_EQ(desk.zormod.speech.userClipboard, u"");
    desk.keys.up(ctrlKey(Key::insert));
    EXPECT_EQ(desk.zormod.speech.userClipboard, u"abc");
}

TEST(SpokenForm, FormKeysComeBeforeTheControl) {
    FormDesk desk;
    std::vector<std::string> order;
    desk.voice->onKeyDown([&](const KeyStroke& stroke) {
        order.push_back("form");
        return stroke == plainKey(Key::escape) ? KeyOutcome::taken : KeyOutcome::goesOn;
    });
    desk.box->keys().onKeyDown([&](const KeyStroke&) {
        order.push_back("box");
        return KeyOutcome::goesOn;
    });
    desk.opened();
    desk.keys.press(plainKey(Key::home));
    desk.keys.press(plainKey(Key::escape));
    EXPECT_THAT(order, ElementsAre("form", "box", "form"));
}

TEST(SpokenForm, FocusRulesRunForMovesInsideTheProgramOnly) {
    FormDesk desk;
    int gained = 0;
    int lost = 0;
    desk.voice->voiceOf(*desk.box).onFocus = [&] { ++gained; };
    desk.voice->voiceOf(*desk.box).onLeave = [&] { ++lost; };
    desk.opened();
    gained = 0;

    QWidget other;
    desk.open(other);
    desk.bringToFront(*desk.window);
    EXPECT_EQ(desk.focus(), "Text1");
    EXPECT_EQ(gained, 0);
    EXPECT_EQ(lost, 0);

    desk.keys.press(plainKey(Key::tab));
    EXPECT_EQ(lost, 1);
    desk.keys.press(shiftKey(Key::tab));
    EXPECT_EQ(gained, 1);
}

TEST(SpokenForm, MenusTakeAndGiveBackTheFocusWithoutAWord) {
    FormDesk desk;
    desk.window->menuBar()->addMenu(QStringLiteral("&Z"))->addAction(QStringLiteral("x"));
    desk.opened();
    desk.keys.press(altKey(Key::z));
    desk.keys.press(plainKey(Key::escape));
    desk.keys.press(plainKey(Key::escape));
    desk.settle();
    EXPECT_EQ(desk.focus(), "Text1");
    EXPECT_THAT(desk.spoken(), IsEmpty());
}

TEST(SpokenForm, GivingTheFocusRunsTheRuleEachTime) {
    FormDesk desk;
    int gained = 0;
    desk.voice->voiceOf(*desk.box).onFocus = [&] { ++gained; };
    desk.opened();
    gained = 0;
    desk.voice->giveFocus(*desk.box);
    EXPECT_EQ(gained, 1);
    desk.voice->giveFocus(*desk.button);
    desk.voice->giveFocus(*desk.box);
    EXPECT_EQ(gained, 2);
    EXPECT_EQ(desk.focus(), "Text1");
}

TEST(SpokenForm, ALeaveRuleMaySendTheFocusElsewhere) {
    FormDesk desk;
    desk.opened();
    desk.voice->voiceOf(*desk.box).onLeave = [&] { desk.check->setFocus(); };
    desk.keys.press(plainKey(Key::tab));
    EXPECT_EQ(desk.focus(), "Check1");
    EXPECT_THAT(desk.spoken(), ElementsAre("読むﾁｪｯｸﾎﾞｯｸｽ､ノーチェック")) << "the control passed by says nothing";
}

TEST(SpokenForm, EveryControlHasItsNames) {
    FormDesk desk;
    EXPECT_EQ(desk.box->objectName().toStdString(), "Text1");
    EXPECT_EQ(desk.box->accessibleName().toStdString(), "氏名");
    EXPECT_EQ(desk.button->accessibleName().toStdString(), "フォルダ作成(F)");
    EXPECT_EQ(desk.check->accessibleName().toStdString(), "読む");
}

TEST(SpokenForm, TheActiveFormIsTheNearestOneAboveTheFocus) {
    FormDesk desk;
    auto* view = new QWidget(desk.window->centralWidget());
    view->setWindowTitle(QStringLiteral("ビュー"));
    auto* inner = new QLabel(QStringLiteral("x"), view);
    auto* viewVoice = new SpokenForm(*view, desk.context, {.description = [] { return Text(u"v"); }});
    EXPECT_EQ(SpokenForm::nearest(inner), viewVoice);
    EXPECT_EQ(SpokenForm::nearest(desk.box), desk.voice);
    EXPECT_EQ(SpokenForm::nearest(nullptr), nullptr);
    desk.opened();
    EXPECT_THAT(desk.spoken(), IsEmpty()) << "a view does not open by itself";
    viewVoice->sayOpening();
    EXPECT_THAT(desk.spoken(), ElementsAre("ビュー。v"));
}

TEST(SpokenForm, ALabelMayTakeKeysToo) {
    FormDesk desk;
    auto* label = new QLabel(QStringLiteral("一枚の札"), desk.window->centralWidget());
    label->setFocusPolicy(Qt::StrongFocus);
    desk.window->centralWidget()->layout()->addWidget(label);
    desk.voice->add(*label, u"Label1", {.label = u"一枚の札です"});
    int downs = 0;
    KeyTap::of(*label, desk.context).onKeyDown([&](const KeyStroke&) {
        ++downs;
        return KeyOutcome::goesOn;
    });
    desk.opened();
    desk.voice->giveFocus(*label);
    EXPECT_THAT(desk.spoken(), ElementsAre("一枚の札です"));
    desk.quiet();
    desk.keys.press(ctrlShiftKey(Key::a));
    EXPECT_THAT(desk.spoken(), ElementsAre("題。何かをします。"));
    EXPECT_EQ(downs, 3);
}

TEST(SpokenDialog, EnterAndEscMeanNothingByThemselves) {
    Desk desk;
    SpokenDialog form(desk.context, {}, nullptr);
    auto* layout = new QVBoxLayout(&form);
    auto* box = new KeyLineEdit(desk.context);
    auto* button = new KeyButton(QStringLiteral("x"), desk.context);
    int clicks = 0;
    button->onClick([&] { ++clicks; });
    layout->addWidget(box);
    layout->addWidget(button);
    desk.open(form);
    desk.keys.press(plainKey(Key::enter));
    desk.keys.press(plainKey(Key::escape));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(clicks, 0);
}
