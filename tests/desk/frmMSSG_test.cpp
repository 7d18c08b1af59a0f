// The move and the copy of a range as a user does them: the range drawn by keys, the pointer moved in the small form, and
// what is heard and seen on the way.

#include "edit/forms/frmSHEET.h"
#include "edit/status_update.h"
#include "support/qt/edit_desk.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Said = std::vector<std::string>;

/// The edit screen with four records of an ID and three items, listening in mode 2.
struct PointerDesk : EditDesk {
    PointerDesk() {
        openTable({{u"ID", u"L", 4}, {u"甲", u"L", 3}, {u"乙", u"L", 3}, {u"丙", u"L", 3}},
                  {{u"r1", u"a1", u"b1", u"c1"},
                   {u"r2", u"a2", u"b2", u"c2"},
                   {u"r3", u"a3", u"b3", u"c3"},
                   {u"r4", u"a4", u"b4", u"c4"}});
        zormod.speech.speechMode = 2;
    }
    void keysDown(std::initializer_list<KeyStroke> strokes) {
        for (const KeyStroke& stroke : strokes) {
            key(stroke);
        }
    }
    /// A range of the item at the cursor alone, or of the record, or of the cell.
    void draw(const KeyStroke& stroke) { keysDown({stroke, plainKey(Key::enter)}); }
    bool isOpen() { return formTable.isLoaded(u"frmMSSG"); }
    std::string label(const char* name) {
        return static_cast<QLabel*>(control(QLatin1StringView(name)))->text().toStdString();
    }
    std::string caption(const char* name) {
        return static_cast<QAbstractButton*>(control(QLatin1StringView(name)))->text().toStdString();
    }
    QRect mask(const char* name) {
        QWidget* widget = partOf("frmSHEET", name);
        return widget->isVisibleTo(&form) ? widget->geometry() : QRect();
    }
    std::string row(int record, std::size_t count = 13) {
        return world.bytesOf("t.txt").substr(static_cast<std::size_t>(record - 1) * 256, count);
    }
    void expectOver() {
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(utf8(zormod.taskWord), "");
        EXPECT_EQ(zormod.selection.selectionKind, 0);
        EXPECT_EQ(QApplication::activeWindow(), &form);
        EXPECT_EQ(focus(), "txtinputbox");
        EXPECT_TRUE(mask("LblMUSK").isNull());
        EXPECT_TRUE(mask("LblPMUSK").isNull());
    }
};

} // namespace

TEST(frmMSSG, AMoveOfItemsFromTheRangeToTheEnd) {
    PointerDesk desk;
    desk.key(plainKey(Key::right));
    desk.draw(altKey(Key::right));
    const Said opening = desk.spokenBy(plainKey(Key::right));
    ASSERT_TRUE(desk.isOpen());
    EXPECT_EQ(desk.title(), "項目の移動");
    EXPECT_EQ(desk.focus(), "Text2");
    EXPECT_EQ(desk.caption("Command1"), "項目移動実行CR");
    EXPECT_EQ(desk.caption("Command2"), "中止(ESC)");
    const std::string instructions =
        "一連の項目（マスク範囲の項目）を移動します。左右矢印キーで、移動点項目を指定して下さい。今の移動点項目にある項目は、"
        "移動された項目の後に、連なり、移動後の空白になった部分は、詰められます。CRキーで項目の移動が実行。中止の場合はESCを。";
    EXPECT_EQ(desk.label("Label1"), instructions);
    EXPECT_EQ(desk.label("Label2"), "移動項目：項目1～　項目1 を　項目3の前に");
    EXPECT_EQ(opening.back(), "項目の移動。" + instructions + "移動項目：項目1～　項目1 を　項目3の前に");
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::a)), Said{opening.back()});
    EXPECT_EQ(desk.mask("LblMUSK").height(), desk.mask("LblPMUSK").height());
    EXPECT_LT(desk.mask("LblMUSK").right(), desk.mask("LblPMUSK").left());
    EXPECT_EQ(desk.spokenBy(plainKey(Key::left)), Said{"b1､  ｷﾞｮｳ1 ｺｳﾓｸ2 乙 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(desk.label("Label2"), "移動項目：項目1～　項目1 を　項目2の前に");
    desk.key(plainKey(Key::right));
    const Said work = desk.spokenBy(plainKey(Key::enter));
    EXPECT_EQ(work.front(), "項目の移動実行中．．．．");
    EXPECT_THAT(work, Contains("項目移動完了。"));
    EXPECT_EQ(desk.row(1), "r1  b1 a1 c1 ");
    desk.expectOver();
}

TEST(frmMSSG, AMoveOfRecordsAndItsStatusReading) {
    PointerDesk desk;
    desk.draw(altKey(Key::down));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.title(), "記録の移動");
    EXPECT_EQ(desk.label("Label2"), "移動記録：記録1～1 を　記録3の前に");
    EXPECT_GT(desk.mask("LblPMUSK").top(), desk.mask("LblMUSK").bottom());
    const std::string path = utf8(desk.zormod.file.fileDrive + u":" + desk.zormod.file.fileName);
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::s)),
              Said{path + "。ｷﾛｸｽｳ4。ｺｳﾓｸ0。移動します、記録移動点を指定してくださいCRを叩くと実行されます。"});
    EXPECT_EQ(desk.spokenBy(shiftKey(Key::pageDown)).size(), 1U);
    EXPECT_EQ(desk.spokenBy(plainKey(Key::down)), Said{"r4 ､  ｷﾞｮｳ4 ｺｳﾓｸ0 ID .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(desk.spokenBy(plainKey(Key::enter)).front(), "記録の移動実行中．．．．");
    EXPECT_EQ(desk.row(1, 2) + desk.row(2, 2) + desk.row(3, 2) + desk.row(4, 2), "r2r3r1r4");
    desk.expectOver();
}

TEST(frmMSSG, ACopyOfABlockKeepsTheKeysInTheFormWhileTheCellMoves) {
    PointerDesk desk;
    desk.keysDown({plainKey(Key::right), shiftKey(Key::right), plainKey(Key::right), plainKey(Key::enter)});
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.title(), "ﾃﾞｰﾀｺﾋﾟ-");
    EXPECT_EQ(desk.label("Label2"), "ﾃﾞｰﾀｺﾋﾟｰ：行/列:1・1を1・1にｺﾋﾟ-");
    EXPECT_EQ(desk.spokenBy(plainKey(Key::down)), Said{"a2 ､  ｷﾞｮｳ2 ｺｳﾓｸ1 甲 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(desk.focus(), "Text2");
    EXPECT_EQ(desk.label("Label2"), "ﾃﾞｰﾀｺﾋﾟｰ：行/列:1・1を2・1にｺﾋﾟｰ");
    EXPECT_EQ(desk.mask("LblMUSK").width(), desk.mask("LblPMUSK").width());
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.focus(), "Text2");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.row(2), "r2  a2 a1 b1 ");
    desk.expectOver();
}

TEST(frmMSSG, AMoveOfABlockByCtrlArrow) {
    PointerDesk desk;
    desk.key(plainKey(Key::right));
    desk.draw(shiftKey(Key::right));
    desk.key(ctrlKey(Key::down));
    EXPECT_EQ(desk.title(), "ﾃﾞｰﾀ移動");
    EXPECT_EQ(desk.caption("Command1"), "ﾃﾞｰﾀ移動CR");
    desk.keysDown({ctrlKey(Key::down), ctrlKey(Key::right), plainKey(Key::enter)});
    EXPECT_EQ(desk.row(1), "r1     b1 c1 ");
    EXPECT_EQ(desk.row(4), "r4  a4 b4 a1 ");
    desk.expectOver();
}

TEST(frmMSSG, EscAndTheCloseBoxGiveUpAndEscDoesNotEndTheProgram) {
    for (const bool byKey : {true, false}) {
        PointerDesk desk;
        const std::string before = desk.world.bytesOf("t.txt");
        desk.key(plainKey(Key::right));
        desk.draw(altKey(Key::right));
        desk.key(plainKey(Key::right));
        ASSERT_TRUE(desk.isOpen());
        if (byKey) {
            desk.key(plainKey(Key::escape));
        } else {
            QApplication::activeWindow()->close();
            desk.settle();
        }
        desk.expectOver();
        EXPECT_EQ(desk.world.bytesOf("t.txt"), before);
        EXPECT_FALSE(desk.endStatus.has_value());
    }
}

TEST(frmMSSG, ADigitAsksForTheItemAndTheFormGoesOn) {
    PointerDesk desk;
    desk.key(plainKey(Key::right));
    desk.draw(altKey(Key::right));
    desk.key(plainKey(Key::right));
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "指定項目へ移動");
        desk.keys.type(u"-1");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.key(plainKey(Key::digit5));
    EXPECT_EQ(desk.focus(), "Text2");
    EXPECT_EQ(desk.title(), "項目の移動");
    EXPECT_EQ(desk.label("Label2"), "移動項目：項目1～　項目1 を　項目2の前に");
    EXPECT_EQ(static_cast<QLineEdit*>(desk.control(u"Text2"))->text(), QString());
    desk.key(plainKey(Key::escape));
}

TEST(frmMSSG, APointerInsideTheRangeIsToldAndEverythingIsGivenUp) {
    PointerDesk desk;
    desk.draw(altKey(Key::down));
    desk.key(plainKey(Key::down));
    desk.inNextModal([&] {
        desk.keys.type(u"1");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::j));
    std::string text;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "移動点の再設定");
        text = desk.label("Label1");
        desk.keys.press(plainKey(Key::escape));
    });
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(text, "移動点と移動項目範囲と重なっています");
    desk.expectOver();
}

TEST(frmMSSG, TabReachesTheButtonsAndEachSaysItself) {
    PointerDesk desk;
    desk.draw(altKey(Key::down));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"記録移動実行CR､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"中止(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
    EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"セル移動操作テキストボックス。"});
    EXPECT_EQ(desk.control(u"Text2")->accessibleName().toStdString(), "セル移動操作テキストボックス。");
    desk.keysDown({shiftKey(Key::tab), plainKey(Key::enter)});
    desk.expectOver();
}

TEST(frmMSSG, ItsButtonCarriesTheMoveOut) {
    PointerDesk desk;
    desk.draw(altKey(Key::down));
    desk.keysDown({plainKey(Key::down), plainKey(Key::tab)});
    EXPECT_EQ(desk.focus(), "Command1");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.row(1, 2) + desk.row(2, 2) + desk.row(3, 2), "r2r1r3");
    desk.expectOver();
}

TEST(frmMSSG, TheInputBoxGivesTheFocusBackToItsBox) {
    PointerDesk desk;
    desk.draw(shiftKey(Key::right));
    desk.keysDown({plainKey(Key::down), plainKey(Key::tab)});
    EXPECT_EQ(desk.focus(), "Command1");
    desk.guard.run([&] { giveInputBoxFocus(desk.edit); });
    desk.settle();
    EXPECT_EQ(desk.focus(), "Text2");
    desk.key(plainKey(Key::escape));
    desk.expectOver();
}

TEST(frmMSSG, AChangeOfTheFontOrTheViewEndsTheChoice) {
    for (const char* button : {"Command1", "Command3"}) {
        PointerDesk desk;
        desk.key(plainKey(Key::right));
        desk.draw(altKey(Key::right));
        desk.key(plainKey(Key::right));
        ASSERT_TRUE(desk.isOpen());
        static_cast<QAbstractButton*>(desk.partOf("frmSHEET", button))->click();
        desk.settle();
        EXPECT_FALSE(desk.isOpen());
        EXPECT_EQ(utf8(desk.zormod.taskWord), "");
        EXPECT_EQ(desk.zormod.selection.selectionKind, 0);
    }
}

TEST(frmMSSG, TheMenuEntryLeavesTheShortWords) {
    PointerDesk desk;
    desk.key(plainKey(Key::right));
    desk.draw(shiftKey(Key::right));
    desk.guard.run([&] { desk.commands.run(u"mnuCOPY"); });
    desk.settle();
    EXPECT_EQ(desk.title(), "ﾃﾞｰﾀｺﾋﾟ-");
    EXPECT_EQ(desk.caption("Command1"), "CR");
    EXPECT_EQ(desk.label("Label1"),
              "選択範囲(マスク範囲)の項目ﾃﾞｰﾀをｺﾋﾟｰします。←→ｷｰでみどりマスクを動かし移動点を指定して下さい");
    desk.key(plainKey(Key::escape));
    desk.expectOver();
}
