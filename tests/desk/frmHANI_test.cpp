// Ranges as a user draws them: from the input box by the keys that begin one, step by step in the small form, and back.

#include "structure/clip_file.h"
#include "support/qt/range_desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>

#include <gmock/gmock.h>

TEST(frmHANI, ComesUpWithTheKindsTitlePromptAndFields) {
    struct Kind {
        KeyStroke key;
        const char* title;
        bool records;
        bool items;
    };
    for (const Kind& kind :
         {Kind{shiftKey(Key::down), "範囲の指定", true, true}, Kind{altKey(Key::up), "記録範囲の指定", true, false},
          Kind{altKey(Key::right), "項目範囲の指定", false, true}}) {
        RangeDesk desk;
        desk.key(kind.key);
        ASSERT_TRUE(desk.isDrawing());
        EXPECT_EQ(desk.title(), kind.title);
        EXPECT_EQ(desk.focus(), "Text5");
        EXPECT_EQ(desk.control(u"Text1")->isEnabled(), kind.records);
        EXPECT_EQ(desk.control(u"Text2")->isEnabled(), kind.records);
        EXPECT_EQ(desk.control(u"Text3")->isEnabled(), kind.items);
        EXPECT_EQ(desk.control(u"Text4")->isEnabled(), kind.items);
        EXPECT_EQ(static_cast<QLabel*>(desk.control(u"Label6"))->text(), QStringLiteral("どこまで？(ｶ-ｿﾙ移動+CR)"));
        EXPECT_EQ(static_cast<QAbstractButton*>(desk.control(u"Command2"))->text(), QStringLiteral("終(CR)"));
        EXPECT_EQ(static_cast<QAbstractButton*>(desk.control(u"Command1"))->text(), QStringLiteral("取消(esc)"));
    }
}

TEST(frmHANI, TheOpeningKeySaysWhereTheRangeBeginsAndTakesNoStep) {
    RangeDesk desk;
    EXPECT_EQ(desk.spokenBy(altKey(Key::down)), Said{"ｷﾞｮｳ1.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ1から1指定ずみ"});
    EXPECT_EQ(desk.fields(), (Said{"1", "1", "0", "4"}));
    EXPECT_EQ(desk.place(), std::pair(1, 0));
}

TEST(frmHANI, ABlockIsDrawnInEveryDirection) {
    RangeDesk desk;
    for (int i = 0; i < 9; ++i) {
        desk.key(plainKey(Key::down));
    }
    desk.key(plainKey(Key::right));
    desk.key(plainKey(Key::right));
    desk.key(shiftKey(Key::up));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::up)),
              Said{"ｷﾞｮｳ9 ｺｳﾓｸ2 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは42．ﾞｮｳ10から9 および.ｺｳﾓｸ2から2のﾀｲｶｸﾊﾝｲ指定ずみ"});
    EXPECT_EQ(desk.spokenBy(plainKey(Key::left)),
              Said{"ｷﾞｮｳ9 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ10から9 および.ｺｳﾓｸ2から1のﾀｲｶｸﾊﾝｲ指定ずみ"});
    for (int i = 0; i < 4; ++i) {
        desk.key(plainKey(Key::up));
    }
    EXPECT_EQ(desk.fields(), (Said{"10", "5", "2", "1"}));
    desk.key(plainKey(Key::enter));
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(desk.range(), (Ends{1, 5, 10, 1, 2}));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_TRUE(desk.sheet("LblMUSK")->isVisible());
    desk.key(shiftKey(Key::right));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::right)),
              Said{"ｷﾞｮｳ6 ｺｳﾓｸ2 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは42．ﾞｮｳ5から6 および.ｺｳﾓｸ1から2のﾀｲｶｸﾊﾝｲ指定ずみ"});
}

TEST(frmHANI, RecordsAndItemsAreDrawnInBothDirections) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::down)), Said{"ｷﾞｮｳ2.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ1から2指定ずみ"});
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.range(), (Ends{2, 1, 2, 0, 4}));
    desk.key(altKey(Key::up));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::up)), Said{"ｷﾞｮｳ1.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ2から1指定ずみ"});
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.range(), (Ends{2, 1, 2, 0, 4}));
    desk.key(altKey(Key::right));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::right)),
              Said{"ｺｳﾓｸ1.ｺｳﾓｸﾊﾝｲ指定中．今のセルデータは山田．ｺｳﾓｸ0から1指定ずみ"});
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.range(), (Ends{3, 1, 40, 0, 1}));
    desk.key(altKey(Key::left));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::left)), Said{"ｺｳﾓｸ0.ｺｳﾓｸﾊﾝｲ指定中．今のセルデータは1．ｺｳﾓｸ1から0指定ずみ"});
}

TEST(frmHANI, EveryMovingKeyOfTheTableMoves) {
    RangeDesk desk;
    desk.key(shiftKey(Key::down));
    const int half = desk.zormod.position.windowRows / 2;
    desk.key(ctrlKey(Key::down));
    EXPECT_EQ(desk.place(), std::pair(40, 0));
    desk.key(plainKey(Key::pageUp));
    EXPECT_EQ(desk.place(), std::pair(40 - half, 0));
    desk.key(plainKey(Key::pageDown));
    EXPECT_EQ(desk.place(), std::pair(40, 0));
    desk.key(ctrlKey(Key::up));
    EXPECT_EQ(desk.place(), std::pair(1, 0));
    desk.key(ctrlKey(Key::right));
    EXPECT_EQ(desk.place(), std::pair(1, 4));
    desk.key(ctrlKey(Key::left));
    EXPECT_EQ(desk.place(), std::pair(1, 1));
    desk.key(ctrlShiftKey(Key::t));
    EXPECT_EQ(desk.place(), std::pair(1, 0));
    EXPECT_EQ(desk.world.beeper.count, 1);
    desk.key(plainKey(Key::x));
    desk.key(plainKey(Key::del));
    EXPECT_EQ(desk.place(), std::pair(1, 0));
    EXPECT_EQ(desk.field("Text5"), "");
    EXPECT_EQ(desk.focus(), "Text5");
}

TEST(frmHANI, EveryStepOfABlockIsSaid) {
    RangeDesk desk;
    desk.keysDown({plainKey(Key::down), plainKey(Key::right), shiftKey(Key::left)});
    struct Step {
        KeyStroke key;
        const char* said;
    };
    for (const Step& step :
         {Step{plainKey(Key::down),
               "ｷﾞｮｳ3 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ2から3 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{plainKey(Key::right),
               "ｷﾞｮｳ3 ｺｳﾓｸ2 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは42．ﾞｮｳ2から3 および.ｺｳﾓｸ1から2のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{plainKey(Key::up),
               "ｷﾞｮｳ2 ｺｳﾓｸ2 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは42．ﾞｮｳ2から2 および.ｺｳﾓｸ1から2のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{plainKey(Key::left),
               "ｷﾞｮｳ2 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ2から2 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{ctrlKey(Key::right),
               "ｷﾞｮｳ2 ｺｳﾓｸ4 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータはx．ﾞｮｳ2から2 および.ｺｳﾓｸ1から4のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{ctrlKey(Key::down),
               "ｷﾞｮｳ40 ｺｳﾓｸ4 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータはx．ﾞｮｳ2から40 および.ｺｳﾓｸ1から4のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{ctrlKey(Key::left),
               "ｷﾞｮｳ40 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ2から40 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{ctrlKey(Key::up),
               "ｷﾞｮｳ1 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ2から1 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{plainKey(Key::pageUp),
               "ｷﾞｮｳ1 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ2から1 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"},
          Step{ctrlShiftKey(Key::t),
               "ｷﾞｮｳ1 ｺｳﾓｸ0 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは1．ﾞｮｳ2から1 および.ｺｳﾓｸ1から0のﾀｲｶｸﾊﾝｲ指定ずみ"}}) {
        EXPECT_EQ(desk.spokenBy(step.key), Said{step.said});
    }
    EXPECT_EQ(desk.world.beeper.count, 2) << "the page and the five items ended at an edge";
}

TEST(frmHANI, AnEmptyCellIsSaidAsBlank) {
    RangeDesk desk;
    desk.zormod.window.recordWindow[2].replace(3, 10, "          ");
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.spokenBy(altKey(Key::right)),
              Said{"ｺｳﾓｸ1.ｺｳﾓｸﾊﾝｲ指定中．今のセルデータはブランク．ｺｳﾓｸ1から1指定ずみ"});
}

TEST(frmHANI, ARangeOfRecordsStopsTwoShortOfTheEndAtAPageAndAtTheEndAtAStep) {
    RangeDesk desk;
    desk.keysDown({ctrlKey(Key::down), altKey(Key::up)});
    for (const KeyStroke& stroke : {plainKey(Key::down), ctrlKey(Key::down)}) {
        EXPECT_EQ(desk.spokenBy(stroke), Said{"ｷﾞｮｳ40.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ40から40指定ずみ"});
    }
    EXPECT_EQ(desk.spokenBy(plainKey(Key::pageDown)),
              Said{"ｷﾞｮｳ38.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ40から38指定ずみ"});
    EXPECT_EQ(desk.world.beeper.count, 0);
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.range(), (Ends{2, 38, 40, 0, 4}));
}

TEST(frmHANI, TheCardViewRefusesARangeAndSaysSo) {
    for (const KeyStroke& stroke : {shiftKey(Key::down), shiftKey(Key::left), altKey(Key::up), altKey(Key::right)}) {
        RangeDesk desk;
        desk.press("frmSHEET", "Command3");
        desk.spoken();
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "注意");
            EXPECT_THAT(desk.spoken(), testing::Contains(testing::HasSubstr("個別記録表示中は範囲の指定は出来ません")));
            desk.key(plainKey(Key::enter));
        });
        desk.key(stroke);
        EXPECT_FALSE(desk.isDrawing());
        EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
        EXPECT_EQ(desk.focus(), "txtinputbox");
    }
}

TEST(frmHANI, OnTheNewRecordARangeBeeps) {
    RangeDesk desk;
    desk.keysDown({ctrlKey(Key::down), plainKey(Key::down)});
    ASSERT_EQ(desk.place(), std::pair(41, 0));
    for (const KeyStroke& stroke : {shiftKey(Key::up), shiftKey(Key::right), altKey(Key::down), altKey(Key::left)}) {
        desk.world.beeper.count = 0;
        desk.key(stroke);
        EXPECT_EQ(desk.world.beeper.count, 1);
        EXPECT_FALSE(desk.isDrawing());
        EXPECT_EQ(desk.place(), std::pair(41, 0));
    }
}

TEST(frmHANI, TheReadingKeysSayCellDataGuideAndRow) {
    RangeDesk desk;
    desk.key(plainKey(Key::right));
    desk.key(shiftKey(Key::down));
    desk.key(plainKey(Key::down));
    const Said status{"ｷﾞｮｳ2 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは山田．ﾞｮｳ1から2 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"};
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::s)), status);
    EXPECT_EQ(desk.spokenBy(shiftKey(Key::pageDown)), status);
    EXPECT_EQ(desk.spokenBy(plainKey(Key::x)), status);
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::d)), Said{"山田      。ギョウ2 項目1氏名"});
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::q)), Said{" ｷﾞｮｳ1 山田       ｷﾞｮｳ2 山田      "});
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::a)),
              Said{"範囲の指定。矢印操作、ctrl+矢印操作やctrl+Jなどの、ジャンプ操作で、範囲を指定ｼﾃｸﾀﾞｻｲ。"});
    EXPECT_EQ(desk.spokenBy(altKey(Key::m)), Said{"ギョウ2 山田      ｺｳﾓｸﾊﾝｲ指定ｱﾘ"});
    EXPECT_EQ(desk.spokenBy(altKey(Key::n)), Said{"山田      。ギョウ2 項目1氏名"});
}

TEST(frmHANI, JumpsAskAndTheStepIsSaid) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "指定記録へ移動");
        desk.keys.type(u"7");
        desk.world.later();
        desk.keys.press(plainKey(Key::enter));
    });
    const Said said = desk.spokenBy(ctrlKey(Key::j));
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.back(), "ｷﾞｮｳ7.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ1から7指定ずみ");
    EXPECT_EQ(desk.focus(), "Text5");
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "指定項目へ移動");
        desk.keys.type(u"2");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::h));
    EXPECT_EQ(desk.place(), std::pair(7, 2));
    EXPECT_EQ(desk.focus(), "Text5");
    EXPECT_TRUE(desk.isDrawing());
}

TEST(frmHANI, TabLeadsThroughButtonsAndFieldsWhichSayThemselves) {
    RangeDesk desk;
    desk.key(shiftKey(Key::down));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"ﾊﾝｲｼﾃｲ ｵﾜﾘ､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
    EXPECT_EQ(desk.focus(), "Command2");
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::s)), Said{"終(CR)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"ﾊﾝｲｼﾃｲﾄﾘｹｼ(esc)"});
    EXPECT_EQ(desk.focus(), "Command1");
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"1､はじめの記録ﾃｷｽﾄﾎﾞｯｸｽ"});
    QWidget* field = desk.control(u"Text1");
    const QImage focused = field->grab().toImage();
    EXPECT_EQ(focused.pixelColor(focused.width() / 2, 4), QColor(0xFF, 0xFF, 0x00));
    desk.keys.type(u"5");
    EXPECT_EQ(desk.field("Text1"), "1");
    desk.key(plainKey(Key::tab));
    const QImage left = field->grab().toImage();
    EXPECT_NE(left.pixelColor(left.width() / 2, 4), QColor(0xFF, 0xFF, 0x00));
    desk.key(plainKey(Key::tab));
    desk.key(plainKey(Key::tab));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)),
              Said{"ｷﾞｮｳ1 ｺｳﾓｸ0 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータは1．ﾞｮｳ1から1 および.ｺｳﾓｸ0から0のﾀｲｶｸﾊﾝｲ指定ずみ"});
    EXPECT_EQ(desk.focus(), "Text5");
}

TEST(frmHANI, EachButtonActsByEnterAndByMouse) {
    RangeDesk desk;
    desk.key(shiftKey(Key::down));
    desk.key(plainKey(Key::tab));
    desk.key(plainKey(Key::enter));
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(desk.range(), (Ends{1, 1, 1, 0, 0}));
    desk.key(shiftKey(Key::down));
    desk.key(plainKey(Key::tab));
    desk.key(plainKey(Key::tab));
    desk.key(plainKey(Key::enter));
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
    desk.key(altKey(Key::down));
    QTest::mouseClick(desk.control(u"Command2"), Qt::LeftButton);
    desk.settle();
    EXPECT_EQ(desk.range(), (Ends{2, 1, 1, 0, 4}));
    desk.key(altKey(Key::down));
    QTest::mouseClick(desk.control(u"Command1"), Qt::LeftButton);
    desk.settle();
    EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmHANI, EnterAndEscActInTheFieldsToo) {
    for (const Key key : {Key::enter, Key::escape}) {
        RangeDesk desk;
        desk.key(shiftKey(Key::down));
        desk.keysDown({plainKey(Key::tab), plainKey(Key::tab), plainKey(Key::tab)});
        ASSERT_EQ(desk.focus(), "Text1");
        desk.key(plainKey(key));
        EXPECT_FALSE(desk.isDrawing());
        EXPECT_EQ(desk.range(), key == Key::enter ? (Ends{1, 1, 1, 0, 0}) : (Ends{0, 0, 0, 0, 0}));
        EXPECT_EQ(desk.focus(), "txtinputbox");
        EXPECT_EQ(desk.endStatus, std::nullopt);
    }
}

TEST(frmHANI, EscOrItsClosingGiveTheRangeUpAndTheProgramGoesOn) {
    for (const bool byKey : {true, false}) {
        RangeDesk desk;
        desk.key(altKey(Key::down));
        EXPECT_TRUE(desk.sheet("LblMUSK")->isVisible());
        if (byKey) {
            EXPECT_EQ(desk.spokenBy(plainKey(Key::escape)), Said{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
        } else {
            QApplication::activeWindow()->close();
            desk.settle();
        }
        EXPECT_FALSE(desk.isDrawing());
        EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
        EXPECT_FALSE(desk.sheet("LblMUSK")->isVisible());
        EXPECT_EQ(desk.focus(), "txtinputbox");
        EXPECT_EQ(desk.endStatus, std::nullopt);
        desk.key(plainKey(Key::down));
        EXPECT_EQ(desk.place(), std::pair(2, 0));
    }
}

TEST(frmHANI, AHeldEscEndsTheDrawingButNotTheProgram) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    desk.keys.hold(plainKey(Key::escape), 5);
    desk.settle();
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(desk.endStatus, std::nullopt);
}

TEST(frmHANI, AHeldEnterFixesTheRangeAndDoesNotGiveItUp) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    desk.keys.hold(plainKey(Key::enter), 5);
    desk.settle();
    EXPECT_EQ(desk.range(), (Ends{2, 1, 1, 0, 4}));
}

TEST(frmHANI, TheInputBoxSendsFocusAndKeysBack) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    desk.bringToFront(desk.form);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    desk.key(plainKey(Key::x));
    EXPECT_EQ(desk.focus(), "Text5");
    EXPECT_EQ(desk.title(), "記録範囲の指定");
    EXPECT_EQ(desk.text("txtinputbox"), "");
    desk.bringToFront(desk.form);
    desk.part("txtREC")->setFocus(Qt::MouseFocusReason);
    desk.settle();
    desk.part("txtinputbox")->setFocus(Qt::MouseFocusReason);
    desk.settle();
    EXPECT_EQ(desk.focus(), "Text5");
}

TEST(frmHANI, TheMenusKeysAreOutOfReach) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    desk.key(plainKey(Key::f3));
    desk.key(ctrlKey(Key::d));
    EXPECT_TRUE(desk.isDrawing());
    EXPECT_EQ(desk.place(), std::pair(1, 0));
    EXPECT_EQ(desk.world.beeper.count, 0);
}

TEST(frmHANI, AChangeOfSizeOrViewCancelsTheDrawing) {
    for (const char* button : {"Command1", "Command3"}) {
        RangeDesk desk;
        desk.key(altKey(Key::down));
        desk.press("frmSHEET", button);
        EXPECT_FALSE(desk.isDrawing()) << button;
        EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
        EXPECT_EQ(desk.zormod.taskWord, Text());
        EXPECT_FALSE(desk.sheet("LblMUSK")->isVisible());
    }
}

TEST(frmHANI, AClickOnTheSheetWhileDrawingChangesNothing) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    desk.clickCell(3, 1);
    EXPECT_TRUE(desk.isDrawing());
    EXPECT_EQ(desk.place(), std::pair(1, 0));
}

TEST(frmHANI, CtrlInsMakesTheClipFileAndGoesBackToTheInputBox) {
    RangeDesk desk;
    desk.commands.bind(u"mnuCLIP", [&desk] { makeClip(desk.zormod); });
    desk.key(plainKey(Key::down));
    desk.key(shiftKey(Key::up));
    desk.key(plainKey(Key::up));
    desk.key(ctrlKey(Key::insert));
    EXPECT_EQ(desk.world.bytesOf("ZORCLip"), " 2 \r\n 1 \r\n 2 \r\n 1 \r\n 0 \r\n\"1  \"\r\n\"1  \"\r\n");
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_FALSE(desk.sheet("LblMUSK")->isVisible());
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmHANI, TheKeyBoxTakesNoInputMethodAndTypesNothing) {
    RangeDesk desk;
    desk.key(altKey(Key::down));
    EXPECT_FALSE(desk.control(u"Text5")->testAttribute(Qt::WA_InputMethodEnabled));
    desk.keys.type(u"ab");
    EXPECT_EQ(desk.field("Text5"), "");
}

TEST(frmHANI, WhatAMousePastesIntoTheKeyBoxGoesWithTheNextKey) {
    RangeDesk desk;
    desk.key(shiftKey(Key::down));
    auto* box = static_cast<QLineEdit*>(desk.control(u"Text5"));
    box->insert(QStringLiteral("pasted"));
    desk.key(plainKey(Key::right));
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(desk.focus(), "Text5");
}

TEST(frmHANI, ShiftRightInABoxWithTextSelectsText) {
    RangeDesk desk;
    desk.key(plainKey(Key::right));
    desk.keys.type(u"ab");
    desk.key(shiftKey(Key::left));
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(static_cast<QLineEdit*>(desk.part("txtinputbox"))->selectedText(), QStringLiteral("b"));
}

TEST(frmHANI, TheMasksHaveTheColourOfTheKindAndFollowTheWindow) {
    RangeDesk desk;
    desk.key(plainKey(Key::right));
    desk.key(shiftKey(Key::down));
    desk.key(plainKey(Key::down));
    desk.key(plainKey(Key::down));
    desk.key(plainKey(Key::enter));
    const auto colour = [&] {
        const QImage mask = desk.image("LblMUSK");
        return mask.pixelColor(mask.width() - 2, mask.height() - 2);
    };
    EXPECT_EQ(colour(), QColor(0xFF, 0xC0, 0xC0));
    EXPECT_EQ(desk.sheet("LblMUSK")->height(), 3 * desk.rowHeight());
    EXPECT_EQ(desk.sheet("LblMUSK")->width(), desk.cellWidth());
    desk.key(altKey(Key::down));
    EXPECT_EQ(colour(), QColor(0xFF, 0x00, 0x00));
    EXPECT_EQ(desk.sheet("LblMUSK")->height(), desk.rowHeight());
    // The first record goes out of the window, and the mask with the rest stays.
    desk.key(ctrlKey(Key::down));
    EXPECT_GT(desk.zormod.position.windowFirst, 3);
    EXPECT_EQ(desk.sheet("LblMUSK")->geometry().top(), 0);
    EXPECT_EQ(desk.sheet("LblMUSK")->height(), (40 - desk.zormod.position.windowFirst + 1) * desk.rowHeight());
}

TEST(frmHANI, ARangeOfWholeItemsCoversTheColumnsOfAllRecordsInTheWindow) {
    RangeDesk desk;
    desk.key(altKey(Key::right));
    desk.key(plainKey(Key::right));
    const QRect mask = desk.sheet("LblMUSK")->geometry();
    EXPECT_EQ(mask.top(), 0);
    EXPECT_EQ(mask.height(), desk.zormod.position.windowRows * desk.rowHeight());
    EXPECT_EQ(mask.width(), desk.cellWidth() / 10 * 13);
}
