// The four key guides: every sentence that the Tab key brings to the ear, and what pressing a key's button does not do.

#include "support/qt/edit_desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScrollArea>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace {

const std::vector<std::string> altSentences = {
    "ｱﾙﾄﾌﾟﾗｽ  F。ﾌｧｲﾙﾒﾆｭｰ(読み込み.印字等)",
    "ｱﾙﾄﾌﾟﾗｽ  J。項目移動ﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  Y。ｸﾘｯﾌﾟ貼り付けﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  K。表ﾃﾞｻﾞｲﾝの変更ﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  H。編集1ﾒﾆｭｰ(記録や項目の挿入削除)",
    "ｱﾙﾄﾌﾟﾗｽ  E。編集2ﾒﾆｭｰ(文字変換、置換､並べ替え等)",
    "ｱﾙﾄﾌﾟﾗｽ  S。統計処理ﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  P。その他ﾃﾞｰﾀ利用ﾒﾆｭｰ(採点､宛名ｼｰﾙ)",
    "ｱﾙﾄﾌﾟﾗｽ  O。ﾊﾞﾘｴｰｼｮﾝﾌｧｲﾙ作成ﾒﾆｭｰ(抽出､並べ替えﾌｧｲﾙ等)",
    "ｱﾙﾄﾌﾟﾗｽ  T。電話ﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  L。ｷｰ操作一覧等ﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  Z。ﾍﾙﾌﾟﾒﾆｭｰ",
    "ｱﾙﾄﾌﾟﾗｽ  G。常時表示項目の読み上げ(ﾃﾞｰﾀ入力場面のみ)",
    "ｱﾙﾄﾌﾟﾗｽ  N。現在ｾﾙﾃｷｽﾄ読み上げ",
    "ｱﾙﾄﾌﾟﾗｽ  M。現在行ﾃｷｽﾄ読み上げ",
    "ｱﾙﾄﾌﾟﾗｽｼﾀﾔｼﾞﾙｼ↓。記録範囲指定開始",
    "ｱﾙﾄﾌﾟﾗｽｳｴﾔｼﾞﾙｼ↑。記録範囲指定開始",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  A。ﾌｫｰｶｽのあるﾌｫｰﾑのﾀｲﾄﾙ読み上げ､ﾌｫｰﾑの説明｡全ﾌｫｰﾑでｻﾎﾟｰﾄ",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  S。入力場面では､ﾌｫｰｶｽのあるｺﾝﾄﾛｰﾙの種類､状態よみあげと教示｡範囲指定中では､いまの範囲指定状態を､項目番号と記録番号で案内",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  D。入力場面では､既存のｾﾙ内のﾃﾞｰﾀ読み上げ｡範囲指定中でも､いまの範囲指定ｶｰｿﾙのある項目の内容を読む",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  Q。編集中のﾌｧｲﾙ名､記録数等を読み上げ・範囲指定中では範囲指定操作中に範囲指定内の全ﾃｷｽﾄを読む",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  W。いまのｾﾙの記録番号読み上げ",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  E。書き込み項目の指定状態､入力字数制限状態の音声案内",
    "ｼﾌﾄﾌﾟﾗｽｺﾝﾄﾛｰﾙ  R。今のｾﾙの項目番号、項目名､配置の音声案内",
    "ﾌｧﾝｸｼｮﾝ  F12。現在入力ﾃｷｽﾄｷｬﾚｯﾄ位置",
};
const std::vector<std::string> ctrlSentences = {
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  ↑。記録先頭へ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  ↓。記録末へ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  →。最終項目へ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  ←。先頭項目へ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  K。記録削除",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  G。記録挿入",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  J。記録ジャンプ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  H。項目ジャンプ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  B。入力字数制限/解除",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  W。ﾜｰﾌﾟﾛ風編集",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  F。書式によるﾃﾞｰﾀ書換",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  D。現項目ﾃﾞｰﾀ消去次項目へ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  P。次記録第１項目へ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ　0。現項目迄のﾃﾞｰﾀ横合計",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ　1。現記録迄のﾃﾞｰﾀ縦合計",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ　2。任意項目の偏差値記入",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ　3から9。ﾕｰｻﾞ定義式値入力",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  space。項目幅ちじめる",
    "ｼﾌﾄﾌﾟﾗｽ  space。項目幅広げる",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  Y。挿入貼り付け",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  I。貼り付け取り消し",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  O。上書き貼り付け",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  L。項目名一覧ﾌｫｰﾑ表示",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  U。既存ﾃﾞｰﾀ入力ﾎﾞｯｸｽにｺﾋﾟｰ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  A。常時表示項目設定/解除",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  Insert。範囲指定中､ｸﾘｯﾌﾟﾌｧｲﾙ作成",
    "ｼﾌﾄﾌﾟﾗｽ  ←。対角範囲指定開始",
    "ｼﾌﾄﾌﾟﾗｽ  →。対角範囲指定開始",
    "ｼﾌﾄﾌﾟﾗｽ  ↑。対角範囲指定開始",
    "ｼﾌﾄﾌﾟﾗｽ  ↓。対角範囲指定開始",
    "ｼﾌﾄﾌﾟﾗｽ  ｐａｇｅＤｏｗｎ。いまのﾌｫｰｶｽｺﾝﾄﾛｰﾙの入力案内ctrl+alt+Jと同機能",
    "ｼﾌﾄﾌﾟﾗｽ  ｐａｇｅＵＰ。いまのｾﾙの記録番号読み上げctrl+alt+iと同機能",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  pageDown。既存ｾﾙ内のﾃｷｽﾄ読み上げｃｔｒｌ＋ａｌｔ＋ｋと同機能",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  ｐａｇｅＵＰ。今のｾﾙの項目番号、項目名､配置の音声案内ｃｔｒｌ＋ａｌｔ＋ｐと同機能",
};
const std::vector<std::string> functionSentences = {
    "f1。ID自働",
    "f2。記録並べ替え",
    "f3。検索",
    "f4。置換",
    "f5。表ﾃﾞｻﾞｲﾝ",
    "f6。全項目記入",
    "f7。記入項目指定",
    "f8。式値入力/式設定",
    "f9。印字",
    "f10。未使用",
    "f11。ﾃﾞｰﾀ読み上げ",
    "f12。キャレット",
};
const std::vector<std::string> shiftFunctionSentences = {
    "ｼﾌﾄﾌﾟﾗｽ  f1。ｺ-ﾄﾞﾌｧｲﾙによる置換",
    "ｼﾌﾄﾌﾟﾗｽ  f2。順序指定ﾌｧｲﾙによる並べ替え",
    "ｼﾌﾄﾌﾟﾗｽ  f3。未使用",
    "ｼﾌﾄﾌﾟﾗｽ  f4。未使用",
    "ｼﾌﾄﾌﾟﾗｽ  f5。未使用",
    "ｼﾌﾄﾌﾟﾗｽ  f6。ﾃﾞｰﾀ頻度",
    "ｼﾌﾄﾌﾟﾗｽ  f7。度数分布",
    "ｼﾌﾄﾌﾟﾗｽ  f8。未使用",
    "ｼﾌﾄﾌﾟﾗｽ  f9。記録ｶｰﾄﾞ印字",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  f11。詳細読み上げ",
    "ｺﾝﾄﾛｰﾙﾌﾟﾗｽ  f12。読み上げon/off",
};

struct GuideDesk : EditDesk {
    GuideDesk() {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
        zormod.speech.speechMode = 1;
    }
    void openGuide(TextView command) {
        world.later();
        EXPECT_TRUE(guard.run([&] { commands.run(command); }));
        settle();
    }
    bool isInView() const {
        const QWidget* focused = QApplication::focusWidget();
        const auto* area = QApplication::activeWindow()->findChild<QScrollArea*>();
        if (!area->isAncestorOf(focused)) {
            return true; // the buttons that leave stand below the list
        }
        const QRect place(focused->mapTo(area->viewport(), QPoint()), focused->size());
        return area->viewport()->rect().contains(place);
    }
};

struct Guide {
    const char16_t* command;
    const char16_t* form;
    std::string title;
    std::vector<std::string> sentences;
    std::string unloadCaption;
};

std::vector<Guide> guides() {
    return {{u"mnuALT", u"frmALT", "音声案内キ-ｶﾞｲﾄﾞ(Shift+ctrl､Alt+,等+)", altSentences, "消去+戻る(esc)"},
            {u"mnuCTRL", u"frmCTRLK", "ctrl+ｷｰまたはｓｈｉｆｔ＋ｷｰ機能", ctrlSentences, "消去+戻る(esc)"},
            {u"mnuFKEY", u"frmFUNC", "functionキｰ機能", functionSentences, "消去+戻(ESC)"},
            {u"mnuSfunc", u"frmSFUNC", "shft+functionｷｰ機能", shiftFunctionSentences, "消去+戻(ESC)"}};
}

} // namespace

TEST(KeyGuide, TabSpeaksEveryKeyWithItsFunctionAndKeepsItInView) {
    for (const Guide& guide : guides()) {
        GuideDesk desk;
        desk.openGuide(guide.command);
        EXPECT_EQ(desk.title(), guide.title);
        EXPECT_THAT(desk.spoken(), ElementsAre(guide.title));
        EXPECT_EQ(desk.focus(), "Command1");
        std::vector<std::string> heard = desk.spokenBy(ctrlShiftKey(Key::s));
        for (std::size_t i = 0; i < guide.sentences.size() + 1; ++i) {
            const auto spoken = desk.spokenBy(plainKey(Key::tab));
            heard.insert(heard.end(), spoken.begin(), spoken.end());
            EXPECT_TRUE(desk.isInView()) << desk.focus();
        }
        std::vector<std::string> expected = guide.sentences;
        expected.emplace_back("戻る(CR)こまんどぼたん");
        expected.emplace_back("消去戻る(esc)こまんどぼたん");
        EXPECT_THAT(heard, ElementsAreArray(expected));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre(guide.sentences.front())) << "round again";
        EXPECT_TRUE(desk.isInView());
        EXPECT_EQ(static_cast<QAbstractButton*>(desk.control(u"cmdBack"))->text().toStdString(), "戻る(CR)");
        EXPECT_EQ(static_cast<QAbstractButton*>(desk.control(u"cmdUnload"))->text().toStdString(),
                  guide.unloadCaption);
        desk.key(plainKey(Key::escape));
    }
}

TEST(KeyGuide, PressingAKeysButtonChangesNothing) {
    for (const Guide& guide : guides()) {
        GuideDesk desk;
        const std::string before = desk.world.bytesOf("t.txt");
        desk.openGuide(guide.command);
        for (std::size_t i = 0; i < guide.sentences.size(); ++i) {
            const std::string focused = desk.focus();
            EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), IsEmpty());
            EXPECT_THAT(desk.spokenBy(plainKey(Key::space)), IsEmpty());
            EXPECT_EQ(desk.focus(), focused);
            EXPECT_EQ(desk.title(), guide.title);
            desk.key(plainKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), "cmdBack");
        EXPECT_EQ(desk.zormod.position.curRecord, 1);
        EXPECT_EQ(desk.zormod.position.curItem, 0);
        EXPECT_EQ(desk.cell(1), "山田      ");
        EXPECT_EQ(desk.world.bytesOf("t.txt"), before);
        desk.key(plainKey(Key::escape));
    }
}

TEST(KeyGuide, BackHidesTheGuideAndItComesBackAsItWasLeft) {
    GuideDesk desk;
    desk.openGuide(u"mnuALT");
    desk.key(plainKey(Key::tab));
    desk.key(shiftKey(Key::tab));
    desk.key(shiftKey(Key::tab));
    desk.key(shiftKey(Key::tab));
    EXPECT_EQ(desk.focus(), "cmdBack");
    desk.spoken();
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("データ入力ﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_FALSE(desk.formTable.isLoaded(u"frmALT"));
    desk.openGuide(u"mnuALT");
    EXPECT_EQ(desk.focus(), "cmdBack");
    desk.key(plainKey(Key::escape));
}

TEST(KeyGuide, UnloadForgetsWhereItStood) {
    for (const KeyStroke& leave : {plainKey(Key::escape), plainKey(Key::enter)}) {
        GuideDesk desk;
        desk.openGuide(u"mnuALT");
        desk.key(shiftKey(Key::tab));
        EXPECT_EQ(desk.focus(), "cmdUnload");
        desk.spoken();
        desk.key(leave);
        EXPECT_EQ(desk.focus(), "txtinputbox");
        EXPECT_FALSE(desk.formTable.isLoaded(u"frmALT"));
        desk.openGuide(u"mnuALT");
        EXPECT_EQ(desk.focus(), "Command1");
        desk.key(plainKey(Key::escape));
    }
}

TEST(KeyGuide, EachWayOutGoesBackToTheInputBoxOnce) {
    const std::vector<std::function<void(GuideDesk&)>> waysOut = {
        [](GuideDesk& desk) { static_cast<QAbstractButton*>(desk.control(u"cmdBack"))->click(); },
        [](GuideDesk& desk) { static_cast<QAbstractButton*>(desk.control(u"cmdUnload"))->click(); },
        [](GuideDesk& desk) { desk.key(plainKey(Key::escape)); },
        [](GuideDesk&) { QApplication::activeWindow()->close(); }};
    for (const auto& leave : waysOut) {
        GuideDesk desk;
        int times = 0;
        desk.commands.bind(u"backToInputBox", [&times] { ++times; });
        desk.openGuide(u"mnuFKEY");
        leave(desk);
        desk.settle();
        EXPECT_EQ(times, 1);
        EXPECT_EQ(QApplication::activeWindow(), &desk.form);
    }
}

TEST(KeyGuide, EscHeldTooLongEndsNoMoreThanTheGuide) {
    GuideDesk desk;
    desk.openGuide(u"mnuALT");
    desk.keys.hold(plainKey(Key::escape), 3);
    desk.settle();
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_FALSE(desk.endStatus.has_value());
    EXPECT_FALSE(desk.guard.isEndPending());
}

TEST(KeyGuide, SaysItsTitleAndTheCellAndTheRow) {
    GuideDesk desk;
    desk.openGuide(u"mnuSfunc");
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)), ElementsAre("shft+functionｷｰ機能"));
    EXPECT_THAT(desk.spokenBy(altKey(Key::n)), ElementsAre(testing::HasSubstr("ギョウ1 項目0")));
    EXPECT_THAT(desk.spokenBy(altKey(Key::m)), ElementsAre(testing::HasSubstr("山田")));
    desk.key(plainKey(Key::escape));
}
