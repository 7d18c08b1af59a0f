// The design form worked from the keyboard alone, and what it leaves on the disk.

#include "sheet/record_file.h"
#include "support/qt/edit_desk.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Spoken = std::vector<std::string>;

const std::vector<TestWorld::Item> meibo = {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}};
const std::vector<std::vector<std::u16string_view>> people = {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}};

struct DesignDesk : EditDesk {
    DesignDesk() { zormod.speech.speechMode = 2; }

    /// The edit screen with the table of people, listening.
    void openPeople() {
        openTable(meibo, people);
        zormod.speech.speechMode = 2;
        spoken();
    }
    /// F5, and `script` in the form that opens.
    void design(std::function<void()> script) {
        inNextModal(std::move(script));
        key(plainKey(Key::f5));
    }
    /// The entry for a new table, and `script` in the form that opens.
    void makeNew(std::function<void()> script) {
        inNextModal(std::move(script));
        world.later();
        guard.run([this] { commands.run(u"mnuNEW"); });
        settle();
    }
    Spoken typed(TextView text, const KeyStroke& stroke = plainKey(Key::enter)) {
        keys.type(text);
        return spokenBy(stroke);
    }
    /// A key that brings a message form up, which Esc closes; the text of the message.
    std::string messageOf(const KeyStroke& stroke) {
        std::string text;
        inNextModal([&] {
            text = qobject_cast<QLabel*>(control(u"Label1"))->text().toStdString();
            keys.press(plainKey(Key::escape));
        });
        key(stroke);
        return text;
    }
    void answer(const KeyStroke& stroke) {
        inNextModal([this, stroke] { keys.press(stroke); });
    }
    std::string boxText(QAnyStringView name) const {
        return qobject_cast<QLineEdit*>(control(name))->text().toStdString();
    }
    QTableView& grid() const { return *qobject_cast<QTableView*>(control(u"Grid1")); }
    std::string gridCell(int row, int column) const {
        return grid().model()->index(row, column).data().toString().toStdString();
    }
    std::string disk(const std::string& name) const { return world.bytesOf(name); }
    std::string diskText(const std::string& name) const { return utf8(world.codePage.decode(disk(name))); }
};

} // namespace

TEST(frmDESIGN, ANewTableIsTypedInFromTheKeyboardHearingEachPromptAndThenFilled) {
    DesignDesk desk;
    desk.open(desk.form);
    desk.makeNew([&] {
        EXPECT_EQ(desk.title(), "項目区切りの設定");
        EXPECT_EQ(desk.focus(), "text3");
        EXPECT_THAT(desk.spoken(), Contains("項目区切りの設定。ﾌｧｲﾙ名（拡張子つけない)、表メモ、項目数"));
        EXPECT_THAT(desk.typed(u"meibo"), ElementsAre("表メモﾃｷｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.typed(u"名簿"), ElementsAre("0､項目数ﾃｷｽﾄﾎﾞｯｸｽ"));
        desk.keys.press(plainKey(Key::backspace));
        EXPECT_THAT(desk.typed(u"1"), ElementsAre("項目0の項目名を記入してください"));
        EXPECT_EQ(desk.focus(), "itemin");
        EXPECT_THAT(desk.typed(u"ID"), ElementsAre("項目0の配置を示すRまたはＬを入力してください"));
        EXPECT_THAT(desk.typed(u"l"), ElementsAre("項目0の項目幅を入力してください"));
        EXPECT_THAT(desk.typed(u"4"), ElementsAre("項目1の項目名を記入してください"));
        EXPECT_THAT(desk.typed(u"氏名"), ElementsAre("項目1の配置を示すRまたはＬを入力してください"));
        EXPECT_THAT(desk.typed(u"L"), ElementsAre("項目1の項目幅を入力してください"));
        desk.keys.type(u"20");
        EXPECT_EQ(desk.messageOf(plainKey(Key::enter)),
                  "設定された項目数の記入を終えました。項目数を増やす場合は↓を押して下さい。");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("項目2の項目名を記入してください"));
        desk.typed(u"年齢");
        desk.typed(u"r");
        desk.keys.type(u"3");
        desk.messageOf(plainKey(Key::enter));
        EXPECT_EQ(desk.boxText(u"text1"), "2");
        EXPECT_EQ(desk.gridCell(2, 2), "R");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("決定､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.key(plainKey(Key::enter));
    });
    EXPECT_EQ(desk.diskText("kmeibo.txt"),
              "100  ' 0,名簿,, 2\r\n1000 'ID,L\r\n1001 '氏名,L\r\n1002 '年齢,R\r\n2000 ' 4\r\n2001 ' 20\r\n2002 ' 3\r\n");
    EXPECT_TRUE(desk.form.windowTitle().contains(QStringLiteral("meibo.txt/記録数:0")));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(desk.text("Text1"), "2");
    EXPECT_EQ(desk.text("Label11"), "全項目(0～2)");
    for (const char16_t* cell : {u"1", u"山田", u"40"}) {
        desk.typed(cell);
    }
    EXPECT_EQ(desk.diskText("meibo.txt"), "1   山田                 40" + std::string(227, ' ') + "\r\n");
}

TEST(frmDESIGN, ARefusedCellIsToldAndKeepsItsTextForCorrection) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        EXPECT_EQ(desk.focus(), "itemin");
        desk.key(plainKey(Key::right));
        desk.keys.type(u"x");
        desk.spoken();
        EXPECT_EQ(desk.messageOf(plainKey(Key::enter)), "Ｌ(左詰め指定)かＲ(右詰め指定）のみを入力して下さい");
        EXPECT_THAT(desk.spoken(), Contains("再入力、ＬかＲのみ記入。"));
        EXPECT_EQ(desk.focus(), "itemin");
        EXPECT_EQ(desk.boxText(u"itemin"), "x");
        desk.keys.press(plainKey(Key::backspace));
        desk.typed(u"r");
        EXPECT_EQ(desk.gridCell(0, 2), "R");
        desk.key(plainKey(Key::escape));
    });
}

TEST(frmDESIGN, TheCellInHandIsMarkedAndItsNameStandsBesideTheBox) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        desk.key(plainKey(Key::down));
        desk.key(plainKey(Key::right));
        EXPECT_EQ(desk.grid().currentIndex().row(), 1);
        EXPECT_EQ(desk.grid().currentIndex().column(), 2);
        EXPECT_EQ(desk.boxText(u"itemin"), "L");
        EXPECT_EQ(desk.control(u"itemin")->accessibleName().toStdString(), "1項目左/右詰");
        EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::s)), ElementsAre("L､1項目左/右詰ﾃｷｽﾄﾎﾞｯｸｽ"));
        const QPalette palette = desk.grid().palette();
        EXPECT_EQ(palette.color(QPalette::Inactive, QPalette::Highlight),
                  palette.color(QPalette::Active, QPalette::Highlight));
        EXPECT_GT(desk.grid().fontMetrics().height(), desk.control(u"text1")->fontMetrics().height());
        desk.key(plainKey(Key::escape));
    });
}

TEST(frmDESIGN, InsertMakesTypingTakeThePlaceOfWhatFollows) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        desk.key(plainKey(Key::home));
        desk.keys.type(u"A");
        EXPECT_EQ(desk.boxText(u"itemin"), "AID");
        desk.key(plainKey(Key::insert));
        desk.keys.type(u"XYZ");
        EXPECT_EQ(desk.boxText(u"itemin"), "AXYZ");
        desk.key(plainKey(Key::escape));
    });
}

TEST(frmDESIGN, ItemsAreInsertedAndDeletedByTheirKeys) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        desk.key(plainKey(Key::down));
        EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::insert)),
                    Contains("1項目に項目が挿入されました。項目名などを設定してください。"));
        EXPECT_EQ(desk.gridCell(2, 1), "氏名");
        EXPECT_EQ(desk.boxText(u"text1"), "3");
        EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::del)), Contains("1項目が削除され、以後の項目が前詰めされました。"));
        EXPECT_EQ(desk.gridCell(1, 1), "氏名");
        EXPECT_EQ(desk.boxText(u"itemin"), "氏名");
        desk.key(plainKey(Key::escape));
    });
}

TEST(frmDESIGN, TheBoxesTellTheirFaultsOnBeingLeft) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        desk.spoken();
        desk.key(shiftKey(Key::tab));
        EXPECT_EQ(desk.focus(), "text1");
        desk.keys.press(ctrlKey(Key::a));
        desk.keys.type(u"255");
        EXPECT_EQ(desk.messageOf(shiftKey(Key::tab)), "項目数は254以下でなければいけません。");
        desk.key(shiftKey(Key::tab));
        EXPECT_EQ(desk.focus(), "text3");
        desk.keys.press(plainKey(Key::end));
        desk.keys.type(u".doc");
        EXPECT_EQ(desk.messageOf(plainKey(Key::tab)), "拡張子ははＴＸＴ以外許されません");
        desk.key(shiftKey(Key::tab));
        desk.keys.press(ctrlKey(Key::a));
        desk.keys.press(plainKey(Key::del));
        EXPECT_EQ(desk.messageOf(plainKey(Key::tab)), "ﾌｧｲﾙ名を入力してください");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.zormod.items.itemCount, 2);
}

TEST(frmDESIGN, AcceptingAFaultyDesignLeadsBackToTheGrid) {
    DesignDesk desk;
    desk.openPeople();
    const std::string items = desk.disk("kt.txt");
    desk.design([&] {
        desk.keys.type(u"a,b");
        desk.key(plainKey(Key::tab));
        EXPECT_EQ(desk.focus(), "Command1");
        EXPECT_EQ(desk.messageOf(plainKey(Key::enter)), "文中に｢,｣があってはいけません0項目");
        EXPECT_EQ(desk.focus(), "itemin");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.disk("kt.txt"), items);
}

TEST(frmDESIGN, AcceptingWithoutANameLeadsBackToTheNameBox) {
    DesignDesk desk;
    desk.openPeople();
    desk.makeNew([&] {
        EXPECT_EQ(desk.focus(), "text3");
        EXPECT_EQ(desk.messageOf(plainKey(Key::tab)), "ﾌｧｲﾙ名を入力してください");
        for (int i = 0; i < 3; ++i) {
            desk.key(plainKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), "Command1");
        EXPECT_EQ(desk.messageOf(plainKey(Key::enter)), "ﾌｧｲﾙ名がありません。ﾌｧｲﾙ名は？");
        EXPECT_EQ(desk.focus(), "text3");
        EXPECT_THAT(desk.boxText(u"text3"), testing::EndsWith("\\.txt"));
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.zormod.items.itemCount, 2);
}

namespace {

/// The width of 氏名 made 4, and `reply` to the question; the form is then given up if it is still there.
void narrow(DesignDesk& desk, const KeyStroke& reply) {
    desk.openPeople();
    desk.design([&desk, reply] {
        desk.key(plainKey(Key::down));
        desk.key(plainKey(Key::left));
        desk.key(plainKey(Key::down));
        EXPECT_EQ(desk.boxText(u"itemin"), "10");
        desk.keys.type(u"4");
        desk.key(plainKey(Key::tab));
        desk.answer(reply);
        desk.spoken();
        desk.key(plainKey(Key::enter));
        EXPECT_THAT(desk.spoken(), testing::Not(Contains("中止(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ")));
        if (QApplication::activeModalWidget() != nullptr) {
            EXPECT_EQ(desk.focus(), "Command1");
            desk.key(plainKey(Key::escape));
        }
    });
}

} // namespace

TEST(frmDESIGN, CancelAtTheQuestionChangesNothing) {
    DesignDesk desk;
    desk.world.makeTable("t.txt", meibo, people);
    const std::string bytes = desk.disk("t.txt");
    const std::string items = desk.disk("kt.txt");
    narrow(desk, plainKey(Key::escape));
    EXPECT_EQ(desk.disk("t.txt"), bytes);
    EXPECT_EQ(desk.disk("kt.txt"), items);
    EXPECT_EQ(desk.cell(1), "山田      ");
}

TEST(frmDESIGN, NoAtTheQuestionCutsTheSameBytesAnew) {
    DesignDesk desk;
    desk.world.makeTable("t.txt", meibo, people);
    const std::string bytes = desk.disk("t.txt");
    narrow(desk, plainKey(Key::n));
    EXPECT_EQ(desk.disk("t.txt"), bytes);
    EXPECT_THAT(desk.diskText("kt.txt"), testing::HasSubstr("2001 ' 4\r\n"));
    EXPECT_EQ(desk.cell(1), "山田");
    EXPECT_EQ(desk.cell(2), "   ");
}

TEST(frmDESIGN, YesAtTheQuestionRewritesTheRecords) {
    DesignDesk desk;
    narrow(desk, plainKey(Key::y));
    EXPECT_EQ(desk.diskText("t.txt"), "1  山田 40" + std::string(244, ' ') + "\r\n2  鈴木  7" + std::string(244, ' ') + "\r\n");
    EXPECT_EQ(desk.cell(1), "山田");
    EXPECT_EQ(desk.cell(2), " 40");
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(desk.zormod.taskWord, u"");
}

TEST(frmDESIGN, GivingUpLeavesFilesTableAndPositionAsTheyWere) {
    DesignDesk desk;
    desk.openPeople();
    const std::string bytes = desk.disk("t.txt");
    const std::string items = desk.disk("kt.txt");
    desk.key(plainKey(Key::down));
    desk.design([&] {
        desk.typed(u"別");
        desk.key(ctrlShiftKey(Key::del));
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.disk("t.txt"), bytes);
    EXPECT_EQ(desk.disk("kt.txt"), items);
    EXPECT_EQ(desk.zormod.items.itemCount, 2);
    EXPECT_EQ(desk.zormod.position.curRecord, 2);
    EXPECT_EQ(desk.cell(1), "鈴木      ");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDESIGN, WhatWasBeingTypedInTheSheetIsWrittenBeforeTheFormOpens) {
    DesignDesk desk;
    desk.openPeople();
    desk.keys.type(u"9");
    desk.design([&] {
        EXPECT_EQ(desk.disk("t.txt").substr(0, 3), "9  ");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.text("txtinputbox"), "");
}

TEST(frmDESIGN, TheCloseBoxIsGivingUp) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        desk.key(ctrlShiftKey(Key::del));
        QApplication::activeWindow()->close();
        desk.settle();
    });
    EXPECT_EQ(desk.zormod.items.itemCount, 2);
    EXPECT_EQ(desk.zormod.taskWord, u"");
}

TEST(frmDESIGN, GivingUpComplainsOfNoWrongTextInTheCellInHand) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        desk.key(plainKey(Key::right));
        desk.keys.type(u"x");
        EXPECT_EQ(desk.boxText(u"itemin"), "x");
        desk.spoken();
        desk.key(plainKey(Key::escape));
    });
    EXPECT_THAT(desk.spoken(), testing::Not(Contains("再入力、ＬかＲのみ記入。")));
    EXPECT_EQ(desk.zormod.taskWord, u"");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDESIGN, GivingUpComplainsOfNoWrongFileName) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        for (int i = 0; i < 3; ++i) {
            desk.key(shiftKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), "text3");
        desk.keys.press(plainKey(Key::end));
        desk.keys.type(u".doc");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.zormod.taskWord, u"");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDESIGN, GivingUpWithoutATableAsksAndEndsTheProgram) {
    DesignDesk desk;
    desk.open(desk.form);
    desk.makeNew([&] {
        desk.answer(plainKey(Key::n));
        desk.key(plainKey(Key::escape));
        EXPECT_EQ(desk.title(), "項目区切りの設定");
        desk.answer(plainKey(Key::y));
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.endStatus, 0);
}

TEST(frmDESIGN, WithoutATableItsDesignCantBeChanged) {
    DesignDesk desk;
    desk.open(desk.form);
    desk.key(plainKey(Key::f5));
    EXPECT_EQ(desk.world.beeper.count, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(frmDESIGN, AReferenceFileIsFoundHeardAndTaken) {
    DesignDesk desk;
    desk.world.makeTable("a.txt", {{u"番号", u"R", 4}, {u"品名", u"L", 20}}, {});
    desk.openPeople();
    desk.design([&] {
        desk.spoken();
        for (int i = 0; i < 3; ++i) {
            desk.key(plainKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), "Command3");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("矢印ｷｰでﾌｧｲﾙを選択します"));
        EXPECT_EQ(desk.focus(), "File1");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)),
                    ElementsAre("ka.txt。項目数1のファイルです第1項目の、項目名は品名。です。"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)),
                    ElementsAre("kt.txt。項目数2のファイルです第1項目の、項目名は氏名。です。"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::a)),
                    ElementsAre("ka.txt。項目数1のファイルです第1項目の、項目名は品名。です。"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), Contains("a.txtよりｺﾋﾟｰ"));
        EXPECT_EQ(desk.gridCell(1, 1), "品名");
        EXPECT_EQ(desk.boxText(u"text1"), "1");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::escape)), ElementsAre("参照ファイルリストクローズ"));
        EXPECT_EQ(desk.focus(), "Command3");
        EXPECT_FALSE(desk.control(u"File1")->isVisible());
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.zormod.items.itemCount, 2);
    EXPECT_EQ(desk.cell(1), "山田      ");
}

TEST(frmDESIGN, TheButtonThatShowsTheReferenceListHidesItAgain) {
    DesignDesk desk;
    desk.openPeople();
    desk.design([&] {
        for (int i = 0; i < 3; ++i) {
            desk.key(plainKey(Key::tab));
        }
        desk.key(plainKey(Key::enter));
        EXPECT_TRUE(desk.control(u"File1")->isVisible());
        for (int i = 0; i < 3; ++i) {
            desk.key(shiftKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), "Command3");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("参照ファイルリストクローズ"));
        EXPECT_FALSE(desk.control(u"File1")->isVisible());
        EXPECT_EQ(desk.focus(), "Command3");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.zormod.taskWord, u"");
}

TEST(frmDESIGN, FoldersAreWalkedInTheReferenceList) {
    DesignDesk desk;
    desk.world.files.makeFolder(desk.zormod.file.programFolder + u"sub");
    desk.openPeople();
    desk.design([&] {
        for (int i = 0; i < 3; ++i) {
            desk.key(plainKey(Key::tab));
        }
        desk.key(plainKey(Key::enter));
        desk.key(shiftKey(Key::tab));
        EXPECT_EQ(desk.focus(), "Dir1");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("sub"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre(testing::EndsWith("\\subにﾌｫﾙﾀﾞが変更されました.")));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)),
                    Contains("現在のﾌｫﾙﾀﾞには該当ﾌｧｲﾙはありませんﾌｫﾙﾀﾞを変更してください"));
        desk.key(shiftKey(Key::tab));
        desk.key(plainKey(Key::enter));
        desk.key(plainKey(Key::tab));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre(testing::StartsWith("kt.txt。")));
        desk.key(shiftKey(Key::tab));
        EXPECT_THAT(desk.spokenBy(shiftKey(Key::tab)), ElementsAre("矢印ｷｰでﾄﾞﾗｲﾌﾞ変更 CRで確定します"));
        desk.key(plainKey(Key::enter));
        EXPECT_EQ(desk.focus(), "Drive1");
        desk.key(plainKey(Key::escape));
        desk.key(plainKey(Key::escape));
    });
}
