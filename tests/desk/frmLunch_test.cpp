// FrmLunch: the first form of a run without a file.

#include "support/qt/start_desk.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

struct LunchDesk : StartDesk {
    explicit LunchDesk(std::int16_t speechMode = 2) : StartDesk(speechMode) {
        openStartScreen();
        opening = spoken();
        screen = QApplication::activeWindow();
        world.later();
    }
    bool isTicked() { return static_cast<QCheckBox*>(control(u"Check2"))->isChecked(); }
    /// Installs the sources of model 1.
    void installModel() {
        make("s.txt", u"品目");
        std::filesystem::rename(native("ks.txt"), native("km1.___"));
        std::filesystem::rename(native("s.txt"), native("m1.___"));
    }
    std::vector<std::string> opening;
    QPointer<QWidget> screen;
};

} // namespace

TEST(FrmLunch, OpensOnItsFirstButtonAndSaysItsGuidanceAtTheFirstTickOnly) {
    LunchDesk desk;
    EXPECT_EQ(desk.title(), "ようこそロミカ");
    EXPECT_EQ(desk.focus(), "Command1");
    EXPECT_THAT(desk.opening, ElementsAre("新規作成(Y)ｺﾏﾝﾄﾞぼたん"));
    QTimer& timer = desk.guidanceTimer();
    EXPECT_EQ(timer.interval(), 1000);
    EXPECT_TRUE(desk.timerRan);
    timer.start();
    StartDesk::tick(timer);
    EXPECT_THAT(desk.spoken(), ElementsAre(StartsWith("ようこそロミカ。ロミカは、1行254文字を")));
    EXPECT_FALSE(timer.isActive());
}

TEST(FrmLunch, TheGuidanceIsRepeatedOnDemand) {
    LunchDesk desk;
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)), ElementsAre(StartsWith("ようこそロミカ。ロミカは、")));
}

TEST(FrmLunch, WithSpeechOffNothingSpeaksNotEvenTheGuidance) {
    LunchDesk desk(0);
    EXPECT_THAT(desk.opening, IsEmpty());
    StartDesk::tick(desk.guidanceTimer());
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), IsEmpty());
    EXPECT_FALSE(desk.isTicked());
    EXPECT_EQ(desk.world.clock.slept, 0);
}

TEST(FrmLunch, ARunThatReadsTheDataAloneStartsWithTheBoxTickedAndStaysSo) {
    LunchDesk desk(1);
    EXPECT_TRUE(desk.isTicked());
    EXPECT_THAT(desk.opening, ElementsAre("新規作成(Y)ｺﾏﾝﾄﾞぼたん"));
    StartDesk::tick(desk.guidanceTimer());
    EXPECT_THAT(desk.spoken(), ElementsAre(StartsWith("ようこそロミカ。ロミカは、")));
    EXPECT_EQ(desk.zormod.speech.speechMode, 1);
}

TEST(FrmLunch, TabSpeaksEachControlAfterAWait) {
    LunchDesk desk;
    const double slept = desk.world.clock.slept;
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("既存ファイル(N)ｺﾏﾝﾄﾞぼたん"));
    EXPECT_NEAR(desk.world.clock.slept - slept, 0.2, 0.01);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("終了(ESC)ｺﾏﾝﾄﾞぼたん"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("読み上げ機能を使うﾁｪｯｸﾎﾞｯｸｽ､チェック"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)),
                ElementsAre("家計簿 ピクチャーボックス. リターンまたはクリックで実行します"));
    EXPECT_THAT(desk.spokenBy(shiftKey(Key::pageDown)), ElementsAre(StartsWith("家計簿 ピクチャー")));
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::s)), ElementsAre(StartsWith("家計簿 ピクチャー")));
}

TEST(FrmLunch, AHintIsSeenWhileItsButtonHasTheFocus) {
    LunchDesk desk;
    const auto seen = [&] {
        std::vector<std::string> texts;
        for (const char16_t* name : {u"Text1", u"Text2", u"Text3", u"Text4"}) {
            const auto* label = static_cast<QLabel*>(desk.control(name));
            if (label->isVisible()) {
                texts.push_back(label->text().toStdString());
            }
        }
        return texts;
    };
    EXPECT_THAT(seen(), ElementsAre("新規作成です！！"));
    desk.key(plainKey(Key::tab));
    EXPECT_THAT(seen(), ElementsAre("既存ファイルを開きます！！"));
    desk.key(plainKey(Key::tab));
    EXPECT_THAT(seen(), ElementsAre("終了します！！"));
    desk.key(plainKey(Key::tab));
    EXPECT_THAT(seen(), IsEmpty());
    desk.key(plainKey(Key::tab));
    EXPECT_THAT(seen(), ElementsAre("モデルファイルを開きます！！"));
}

TEST(FrmLunch, ThePictureWithTheFocusIsWhiteAndTheOthersAreGrey) {
    LunchDesk desk;
    desk.tabTo("Picture1");
    const auto colour = [&](const char16_t* name) {
        return desk.control(name)->grab().toImage().pixelColor(8, 8).name().toStdString();
    };
    EXPECT_EQ(colour(u"Picture1"), "#ffffff");
    EXPECT_EQ(colour(u"Picture2"), "#c0c0c0");
}

TEST(FrmLunch, EnterOnAPictureOpensTheModelAndTheScreenNeverComesBack) {
    LunchDesk desk;
    desk.installModel();
    desk.tabTo("Picture1");
    desk.key(plainKey(Key::enter));
    EXPECT_TRUE(hasTable(desk.zormod));
    EXPECT_EQ(QApplication::activeWindow(), &desk.form);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.title(), HasSubstr("家計簿.txt/記録数:1"));
    EXPECT_EQ(desk.text("Label11"), "全項目(0～1)");
    desk.settle();
    EXPECT_TRUE(desk.screen == nullptr || !desk.screen->isVisible());
    EXPECT_EQ(desk.endStatus, std::nullopt);
}

TEST(FrmLunch, TheKeyThatOpenedATableSaysNothingThere) {
    LunchDesk desk;
    desk.installModel();
    desk.tabTo("Picture1");
    desk.world.later();
    desk.keys.down(plainKey(Key::enter));
    desk.settle();
    desk.spoken();
    desk.world.later();
    desk.keys.up(plainKey(Key::enter));
    EXPECT_THAT(desk.spoken(), IsEmpty());
    EXPECT_EQ(desk.zormod.position.curItem, 0);
}

TEST(FrmLunch, EnterOnEachButtonAndPictureRunsTheEntryOfItsOwn) {
    LunchDesk desk;
    const std::vector<std::pair<std::string, const char16_t*>> entries = {
        {"Command1", u"mnuSINKI"}, {"Command2", u"mnuKiSON"}, {"Command3", u"mnuSYURYOU"},
        {"Picture1", u"mnuKAKEI"}, {"Picture2", u"mnuad"},    {"Picture3", u"mnuS10"},
        {"Picture4", u"mnuS50"},   {"Picture5", u"mnuS100"},  {"Picture6", u"mnuG1"},
    };
    for (const auto& [control, entry] : entries) {
        desk.commands.bind(entry, [] {});
        desk.tabTo(control);
        desk.commands.ran.clear();
        desk.key(plainKey(Key::enter));
        EXPECT_THAT(utf8(desk.commands.ran), ElementsAre(utf8(entry))) << control;
    }
}

TEST(FrmLunch, AMissingModelIsToldAndTheScreenStays) {
    LunchDesk desk;
    desk.tabTo("Picture2");
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "ファイル読み込みエラー");
        desk.enterAnew();
    });
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(QApplication::activeWindow(), desk.screen);
    EXPECT_EQ(desk.focus(), "Picture2");
}

TEST(FrmLunch, EnterTogglesTheCheckBox) {
    LunchDesk desk;
    desk.tabTo("Check2");
    EXPECT_TRUE(desk.isTicked());
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("読み上げ機能を使うﾁｪｯｸﾎﾞｯｸｽ､ノーチェック"));
    EXPECT_FALSE(desk.isTicked());
    EXPECT_EQ(desk.zormod.speech.speechMode, 0);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("読み上げ機能を使うﾁｪｯｸﾎﾞｯｸｽ､チェック"));
    EXPECT_EQ(desk.zormod.speech.speechMode, 2);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::space)), ElementsAre("読み上げ機能を使うﾁｪｯｸﾎﾞｯｸｽ､ノーチェック"));
    EXPECT_EQ(desk.zormod.speech.speechMode, 0);
}

TEST(FrmLunch, TheSpeechKeysTickTheBoxWithoutItsRule) {
    LunchDesk desk(0);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::f11)), ElementsAre("データのみﾖﾐｱｹﾞﾁｪｯｸ。ヨミアゲ機能を使うチェック"));
    EXPECT_TRUE(desk.isTicked());
    EXPECT_EQ(desk.zormod.speech.speechMode, 1);
    desk.key(ctrlKey(Key::f11));
    EXPECT_EQ(desk.zormod.speech.speechMode, 2);
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::f12)), ElementsAre("ﾖﾐｱｹﾞｵﾌ。"));
    EXPECT_FALSE(desk.isTicked());
    EXPECT_EQ(desk.zormod.speech.speechMode, 0);
}

TEST(FrmLunch, YLeadsToTheDesignOfANewTable) {
    LunchDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "項目区切りの設定");
        EXPECT_TRUE(desk.form.isVisible());
        EXPECT_EQ(desk.zormod.taskWord, u"");
        // Giving up with no table open asks whether the program is to end.
        desk.inNextModal(plainKey(Key::enter));
        desk.key(plainKey(Key::escape));
    });
    desk.key(plainKey(Key::y));
    EXPECT_FALSE(hasTable(desk.zormod));
    EXPECT_EQ(desk.endStatus, 0);
}

TEST(FrmLunch, NLeadsToTheChoiceOfAFileAndFromThereIntoATable) {
    LunchDesk desk;
    desk.make("a.txt");
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "ﾛﾐｶﾌｧｲﾙ指定");
        desk.key(plainKey(Key::down));
        EXPECT_EQ(desk.lineOf(u"File1"), "ka.txt");
        desk.key(plainKey(Key::enter));
    });
    desk.key(plainKey(Key::n));
    EXPECT_TRUE(hasTable(desk.zormod));
    EXPECT_EQ(QApplication::activeWindow(), &desk.form);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(desk.endStatus, std::nullopt);
}

TEST(FrmLunch, NAndThenEscEndsTheProgram) {
    LunchDesk desk;
    desk.inNextModal(plainKey(Key::escape));
    desk.key(plainKey(Key::n));
    EXPECT_EQ(desk.endStatus, 0);
    EXPECT_THAT(desk.spoken(), Contains("ﾛﾐｶ ｼｭｳﾘｮｳ"));
    EXPECT_FALSE(desk.isThere("zorTalk"));
}

TEST(FrmLunch, EscAndTheButtonAndTheCloseBoxEndTheProgram) {
    const std::vector<std::function<void(LunchDesk&)>> ways = {
        [](LunchDesk& desk) { desk.key(plainKey(Key::escape)); },
        [](LunchDesk& desk) {
            desk.tabTo("Command3");
            desk.key(plainKey(Key::enter));
        },
        [](LunchDesk& desk) {
            QCloseEvent close;
            QSpontaneKeyEvent::setSpontaneous(&close);
            qApp->notify(desk.screen, &close);
        },
    };
    for (const auto& way : ways) {
        LunchDesk desk;
        desk.world.writeFile("zorTalk", " 1 \r\n");
        way(desk);
        EXPECT_EQ(desk.endStatus, 0);
        EXPECT_THAT(desk.spoken(), Contains("ﾛﾐｶ ｼｭｳﾘｮｳ"));
        EXPECT_EQ(desk.world.bytesOf("zorTalk"), " 1 \r\n");
    }
}

TEST(FrmLunch, ItsMenusHoldTheButtonsTheModelsTheSamplesAndTheHelp) {
    LunchDesk desk;
    const auto* bar = desk.screen->findChild<QMenuBar*>();
    std::vector<std::string> names;
    for (const QAction* action : bar->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!action->objectName().isEmpty()) {
            names.push_back(action->objectName().toStdString());
        }
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre("mnuSINKI", "mnuKiSON", "mnuSYURYOU", "mnuKAKEI", "mnuad",
                                                     "mnuS10", "mnuS50", "mnuS100", "mnuG1", "mnuE1", "mnuE2", "mnuH"));
    EXPECT_THAT(desk.commands.isBound(u"mnuKAKEI"), true);
}

TEST(FrmLunch, ModelsAndFilledSamplesStandInMenusOfTheirOwn) {
    LunchDesk desk;
    std::vector<std::string> shown;
    for (const QAction* top : desk.screen->findChild<QMenuBar*>()->actions()) {
        if (top->menu() == nullptr) {
            continue;
        }
        shown.push_back(top->text().toStdString());
        for (const QAction* entry : top->menu()->actions()) {
            shown.push_back("  " + entry->text().toStdString());
        }
    }
    EXPECT_THAT(shown, ElementsAre("モデルファイル", "  家計簿", "  アドレス帖", "  20バイト10項目集計表",
                                   "  4バイト50項目集計表", "  2バイト100項目集計表", "  1行40バイト原稿用紙",
                                   "記入済みファイル例", "  サンプル住所録", "  サンプル試験結果"));
}
