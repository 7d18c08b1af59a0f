#include "start/start_screen.h"

#include "start/start_world.h"
#include "voice/reading_mode.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct ScreenWorld : StartWorld {
    explicit ScreenWorld(std::int16_t speechMode = 2) {
        forms.loaded = {u"FrmLunch"};
        zormod.speech.speechMode = speechMode;
        clipboard.foreign(u"mine");
    }
};

} // namespace

TEST(StartScreen, TheGuidanceIsFourSentencesWithoutABreak) {
    const std::string text = utf8(guidanceText());
    EXPECT_EQ(text.find("ロミカは、1行254文字を任意の項目に区切り、"), 0u);
    EXPECT_NE(text.find("プログラムです。いま、スタート画面"), std::string::npos);
    EXPECT_NE(text.find("字で示されています。タブキーを押すと"), std::string::npos);
    EXPECT_NE(text.find("閲覧画面が開かれます。編集画面では、"), std::string::npos);
    EXPECT_TRUE(text.ends_with("コントロール+SHIFT+Aキーでこの案内が繰り返されます。"));
}

TEST(StartScreen, TheGuidanceIsWordForWordWhatItsListenersKnow) {
    EXPECT_EQ(utf8(guidanceText()),
              "ロミカは、1行254文字を任意の項目に区切り、項目単位にテキストデータを管理、編集するプログラムで"
              "す。"
              "いま、スタート画面が表示されています。画面上には押しボタンなどをなぞらえた図形が表示されていま"
              "す。ボタンの上にはメニューが字で示されています。"
              "タブキーを押すとメニュー項目が移動し、読み上げられます。リターンキーを叩くと、そのメニューを選"
              "択したことになりメニューが実行されます。今までに作ったファイルを指定するメニューや、新規にファ"
              "イルを作成するメニューと同時に、アドレス帖や集計表など、あらかじめ項目区切りを設定したファイル"
              "を選択するメニューも並んでいます。これらのメニューを選択すると、すぐに編集、閲覧画面が開かれま"
              "す。"
              "編集画面では、左右の矢印キーを操作すると書き込み項目が移動し、項目のデータと項目名が案内されま"
              "す。書き込みたい事を入力しリターンキーをたたいてください、項目データがうわがき記入され、次の項"
              "目に書き込み項目が移動します。上下矢印記号で行が移動し、行番号が案内されます。メニューバーを開"
              "いて別の名前で保存すると、別の名前でも保存できます。終わるときはエスケープキーを叩きます。保存"
              "操作は必要ありません。行が変わるたびに、ディスクに保存されます。操作でわからないときは、コント"
              "ロール+shift+Sやコントロール+shift+Aなどをを押すと、音声案内が繰り返されます。タブキーを何度か"
              "押してください、案内されたメニューを選択したい場合は、そこでリターンキーを叩いてください。また"
              "ctrl+キー操作も今試してください。コントロール+SHIFT+Aキーでこの案内が繰り返されます。");
}

TEST(StartScreen, ControlsSayTheirCaptionAndKind) {
    EXPECT_EQ(utf8(startButtonReading(u"新規作成(Y)")), "新規作成(Y)ｺﾏﾝﾄﾞぼたん");
    EXPECT_EQ(utf8(pictureReading(u"家計簿")), "家計簿 ピクチャーボックス. リターンまたはクリックで実行します");
}

TEST(StartScreen, TheStepBetweenControlsWaitsOnlyWithSpeechOn) {
    ScreenWorld world;
    waitBeforeControl(world.zormod);
    EXPECT_NEAR(world.clock.slept, 0.2, 0.01);
    world.zormod.speech.speechMode = 0;
    waitBeforeControl(world.zormod);
    EXPECT_NEAR(world.clock.slept, 0.2, 0.01);
}

TEST(StartScreen, ANewTableLeadsToTheDesignOnTheEditScreen) {
    ScreenWorld world;
    startNewTable(world.zormod);
    EXPECT_FALSE(world.forms.isLoaded(u"FrmLunch"));
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("Form1"));
    EXPECT_THAT(utf8(world.commands.names), ElementsAre("mnuNEW"));
    EXPECT_EQ(world.zormod.taskWord, u"");
}

TEST(StartScreen, AnExistingFileLeadsToTheChoiceOfAFile) {
    ScreenWorld world;
    world.zormod.taskWord = u"stale";
    bool lunchWasThere = true;
    world.forms.scripts[u"frmDISK"] = [&] {
        lunchWasThere = world.forms.isLoaded(u"FrmLunch");
        EXPECT_EQ(world.zormod.taskWord, u"");
    };
    startFromFile(world.zormod);
    EXPECT_FALSE(lunchWasThere);
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmDISK"));
}

TEST(StartScreen, TheEndSaysFarewellAndForgetsAModeThatWasTriedOut) {
    ScreenWorld world;
    world.writeFile("zorTalk", " 2 \r\n");
    startScreenKeyUp(world.zormod, plainKey(Key::f11));
    ASSERT_EQ(world.zormod.speech.speechMode, 1);
    world.takeSpoken();
    EXPECT_THROW(endFromStart(world.zormod), ProgramEnd);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("ﾛﾐｶ ｼｭｳﾘｮｳ"));
    EXPECT_EQ(world.clipboard.contents, u"mine");
    EXPECT_EQ(world.bytesOf("zorTalk"), " 2 \r\n");
}

TEST(StartScreen, AModelThatIsNotInstalledIsTold) {
    ScreenWorld world;
    world.dialogs.expectedMessages = 2;
    startWithModel(world.zormod, 2);
    world.expectMessage("モデルファイルがインストールされてないなどの理由で、モデルファイルが開けません",
                        "ファイル読み込みエラー");
    startWithModel(world.zormod, 100);
    world.expectMessage("サンプルファイルが削除されたなどの理由で、サンプルファイルが開けません",
                        "ファイル読み込みエラー");
    EXPECT_TRUE(world.forms.isLoaded(u"FrmLunch"));
}

TEST(StartScreen, ARefusedModelGetsNoSecondMessage) {
    ScreenWorld world;
    world.writeFile("k家計簿.txt", "nonsense");
    world.dialogs.expectedMessages = 1;
    startWithModel(world.zormod, 1);
    EXPECT_EQ(utf8(world.dialogs.messages.back().title), "項目挿入不可能");
}

TEST(StartScreen, TheCheckBoxSwitchesBetweenFullSpeechAndNone) {
    ScreenWorld world(0);
    switchSpeechByCheck(world.zormod, true);
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
    EXPECT_EQ(world.screen.readingMode, 2);
    EXPECT_TRUE(world.screen.speekVisible);
    switchSpeechByCheck(world.zormod, false);
    EXPECT_EQ(world.zormod.speech.speechMode, 0);
    EXPECT_EQ(world.screen.readingMode, 0);
    EXPECT_FALSE(world.screen.speekVisible);
}

TEST(StartScreen, F11AndCtrlF11SwitchOnAndSaySoAfterAWait) {
    for (const auto& [stroke, mode, said] :
         {std::tuple(plainKey(Key::f11), 1, "データのみﾖﾐｱｹﾞﾁｪｯｸ。ヨミアゲ機能を使うチェック"),
          std::tuple(ctrlKey(Key::f11), 2, "ｷﾞｮｳ､ｺｳﾓｸﾊﾞﾝｺﾞｳﾂｷﾖﾐｱｹﾞﾁｪｯｸ、。ヨミアげ機能を使うチェック")}) {
        ScreenWorld world(0);
        world.later();
        EXPECT_TRUE(startScreenKeyUp(world.zormod, stroke));
        EXPECT_EQ(world.zormod.speech.speechMode, mode);
        EXPECT_EQ(world.screen.readingMode, mode);
        EXPECT_TRUE(world.screen.speekVisible);
        EXPECT_NEAR(world.clock.slept, 0.2, 0.01);
        EXPECT_THAT(world.takeSpoken(), ElementsAre(said));
    }
}

TEST(StartScreen, CtrlF12SaysItsLastWordBeforeSpeechGoesOff) {
    ScreenWorld world;
    world.later();
    EXPECT_TRUE(startScreenKeyUp(world.zormod, ctrlKey(Key::f12)));
    EXPECT_THAT(world.takeSpoken(), ElementsAre("ﾖﾐｱｹﾞｵﾌ。"));
    EXPECT_NEAR(world.clock.slept, 1.2, 0.01);
    EXPECT_EQ(world.zormod.speech.speechMode, 0);
    EXPECT_EQ(world.screen.readingMode, 0);
}

TEST(StartScreen, OtherKeysAreNoSpeechKeys) {
    ScreenWorld world;
    for (const KeyStroke& stroke : {plainKey(Key::f12), shiftKey(Key::f11), ctrlShiftKey(Key::f12), plainKey(Key::a)}) {
        EXPECT_FALSE(startScreenKeyUp(world.zormod, stroke));
    }
    EXPECT_THAT(world.takeSpoken(), IsEmpty());
    EXPECT_EQ(world.clock.slept, 0);
}
