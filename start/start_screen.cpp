#include "start/start_screen.h"

#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/screen.h"
#include "start/model_files.h"
#include "voice/program_end.h"
#include "voice/speech_channel.h"

namespace {

/// Seconds between switching speech on and saying so, and in which the last word is heard before speech falls silent.
constexpr double waitBeforeModeText = 0.2;
constexpr double waitAfterLastWord = 1;

void setMode(ZORMOD& zormod, std::int16_t mode) {
    zormod.speech.speechMode = mode;
    zormod.platform.screen.showReadingMode(mode);
}

void switchOn(ZORMOD& zormod, std::int16_t mode, TextView confirmation) {
    setMode(zormod, mode);
    waitSeconds(zormod, waitBeforeModeText);
    sayThrottled(zormod, Text(confirmation));
}

void switchOff(ZORMOD& zormod) {
    waitSeconds(zormod, zormod.speech.inhibitSeconds);
    sayThrottled(zormod, u"ﾖﾐｱｹﾞｵﾌ。");
    waitSeconds(zormod, waitAfterLastWord);
    setMode(zormod, 0);
}

} // namespace

Text guidanceText() {
    Text text;
    text += u"ロミカは、1行254文字を任意の項目に区切り、項目単位にテキストデータを管理、編集するプログラム"
        u"です。";
    text += u"いま、スタート画面が表示されています。画面上には押しボタンなどをなぞらえた図形が表示されています"
        u"。ボタンの上にはメニューが字で示されています。";
    text += u"タブキーを押すとメニュー項目が移動し、読み上げられます。リターンキーを叩くと、そのメニューを選択"
        u"したことになりメニューが実行されます。今までに作ったファイルを指定するメニューや、新規にファイル"
        u"を作成するメニューと同時に、アドレス帖や集計表など、あらかじめ項目区切りを設定したファイルを選択"
        u"するメニューも並んでいます。これらのメニューを選択すると、すぐに編集、閲覧画面が開かれます。";
    text += u"編集画面では、左右の矢印キーを操作すると書き込み項目が移動し、項目のデータと項目名が案内されます"
        u"。書き込みたい事を入力しリターンキーをたたいてください、項目データがうわがき記入され、次の項目に"
        u"書き込み項目が移動します。上下矢印記号で行が移動し、行番号が案内されます。メニューバーを開いて別"
        u"の名前で保存すると、別の名前でも保存できます。終わるときはエスケープキーを叩きます。保存操作は必"
        u"要ありません。行が変わるたびに、ディスクに保存されます。操作でわからないときは、コントロール+s"
        u"hift+Sやコントロール+shift+Aなどをを押すと、音声案内が繰り返されます。タブキーを何"
        u"度か押してください、案内されたメニューを選択したい場合は、そこでリターンキーを叩いてください。ま"
        u"たctrl+キー操作も今試してください。コントロール+SHIFT+Aキーでこの案内が繰り返されま"
        u"す。";
    return text;
}

Text startButtonReading(TextView caption) {
    return Text(caption).append(u"ｺﾏﾝﾄﾞぼたん");
}

Text pictureReading(TextView caption) {
    return Text(caption).append(u" ピクチャーボックス.").append(u" リターンまたはクリックで実行します");
}

void waitBeforeControl(ZORMOD& zormod) {
    if (zormod.speech.speechMode != 0) {
        waitSeconds(zormod, zormod.speech.inhibitSeconds);
    }
}

void startNewTable(ZORMOD& zormod) {
    Forms& forms = zormod.platform.forms;
    forms.close(u"FrmLunch");
    forms.open(u"Form1");
    zormod.platform.commands.run(u"mnuNEW");
}

void startFromFile(ZORMOD& zormod) {
    Forms& forms = zormod.platform.forms;
    zormod.taskWord.clear();
    forms.close(u"FrmLunch");
    forms.open(u"frmDISK");
}

void endFromStart(ZORMOD& zormod) {
    farewellEnd(zormod);
}

void startWithModel(ZORMOD& zormod, int number) {
    if (openModel(zormod, number).empty()) {
        return;
    }
    const TextView text =
        isSample(number) ? u"サンプルファイルが削除されたなどの理由で、サンプルファイルが開けません"
                         : u"モデルファイルがインストールされてないなどの理由で、モデルファイルが開けません";
    zormod.platform.dialogs.showMessage(Text(text), u"ファイル読み込みエラー");
}

void switchSpeechByCheck(ZORMOD& zormod, bool ticked) {
    setMode(zormod, ticked ? 2 : 0);
}

bool startScreenKeyUp(ZORMOD& zormod, const KeyStroke& stroke) {
    if (stroke == plainKey(Key::f11)) {
        switchOn(zormod, 1, u"データのみﾖﾐｱｹﾞﾁｪｯｸ。ヨミアゲ機能を使うチェック");
    } else if (stroke == ctrlKey(Key::f11)) {
        switchOn(zormod, 2, u"ｷﾞｮｳ､ｺｳﾓｸﾊﾞﾝｺﾞｳﾂｷﾖﾐｱｹﾞﾁｪｯｸ、。ヨミアげ機能を使うチェック");
    } else if (stroke == ctrlKey(Key::f12)) {
        switchOff(zormod);
    } else {
        return false;
    }
    return true;
}
