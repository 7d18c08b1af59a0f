// frmDISK and the boxes in it: opening, refusing, deleting, looking at items, making folders, giving up.

#include "support/qt/start_desk.h"

#include "platform/failure.h"
#include "sheet/record_file.h"
#include "start/file_choice.h"

#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

/// Tables t (open), b, and a spoilt one, and two folders.
struct DiskDesk : StartDesk {
    DiskDesk() {
        openTable({{u"ID", u"L", 4}, {u"one", u"L", 8}}, {{u"1", u"x"}});
        make("b.txt", u"two");
        world.writeFile("kx.txt", "nonsense");
        std::filesystem::create_directory(native("alpha"));
        std::filesystem::create_directory(native("beta"));
        zormod.speech.speechMode = 2;
    }
    std::string item() { return utf8(zormod.items.itemName[1]); }
    std::string openFile() { return utf8(zormod.file.fileName); }
    std::string here() { return utf8(zormod.file.programFolder.substr(0, zormod.file.programFolder.size() - 1)); }
    std::string caption(QAnyStringView button) {
        return static_cast<QPushButton*>(control(button))->text().toStdString();
    }
    std::string hint() { return static_cast<QLabel*>(control(u"Label2"))->text().toStdString(); }
    void esc() { key(plainKey(Key::escape)); }
};

} // namespace

TEST(frmDISK, DescribesItselfAndStartsInTheFileListWithNothingChosen) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        EXPECT_EQ(desk.title(), "ﾛﾐｶﾌｧｲﾙ指定");
        EXPECT_THAT(desk.spoken(), ElementsAre(StartsWith("ﾛﾐｶﾌｧｲﾙ指定。")));
        EXPECT_EQ(desk.focus(), "File1");
        EXPECT_EQ(desk.lineOf(u"File1"), "");
        EXPECT_EQ(desk.caption(u"Command1"), "読込(CR)");
        EXPECT_EQ(desk.caption(u"Command2"), "CSVファイルの読み込み");
        EXPECT_EQ(desk.caption(u"Command3"), "中止(ESC)");
        EXPECT_EQ(desk.caption(u"Command4"), "フォルダ作成(&F)");
        EXPECT_EQ(desk.caption(u"cmdNOTZOR"), "すべてのファイルを表示する");
        EXPECT_EQ(desk.hint(), "上記ﾌｧｲﾙ名はK+ﾌｧｲﾙで表示されています");
        desk.key(plainKey(Key::enter));
        EXPECT_EQ(desk.title(), "ﾛﾐｶﾌｧｲﾙ指定") << "nothing was chosen";
        desk.esc();
    });
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDISK, ArrowsSayTheFileAndEnterOpensIt) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("kb.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::end)), ElementsAre("kx.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("kx.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::home)), ElementsAre("kb.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        desk.key(plainKey(Key::enter));
    });
    EXPECT_THAT(desk.openFile(), EndsWith("\\b.txt"));
    EXPECT_EQ(desk.item(), "two");
    EXPECT_EQ(QApplication::activeWindow(), &desk.form);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.title(), HasSubstr("b.txt/記録数:1"));
    EXPECT_THAT(desk.spoken(), Contains("データ入力ﾃｷｽﾄﾎﾞｯｸｽ")) << "the only sign that the table is there";
}

TEST(frmDISK, ItsButtonsGiveUpAndCarryOut) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.key(plainKey(Key::down));
        desk.tabTo("Command3");
        desk.key(plainKey(Key::enter));
    });
    EXPECT_EQ(desk.item(), "one");
    EXPECT_EQ(desk.focus(), "txtinputbox");
    desk.runWith(u"mnuREAD", [&] {
        desk.key(plainKey(Key::down));
        desk.tabTo("Command1");
        desk.key(plainKey(Key::enter));
    });
    EXPECT_EQ(desk.item(), "two");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDISK, TheTableComesUpInTheViewThatIsInForce) {
    DiskDesk desk;
    desk.zormod.display.viewMode = 1;
    desk.form.redrawView();
    desk.settle();
    desk.runWith(u"mnuREAD", [&] {
        desk.key(plainKey(Key::down));
        desk.key(plainKey(Key::enter));
    });
    const auto* card = static_cast<QTableView*>(desk.partOf("frmKOJIND", "Grid1"));
    EXPECT_TRUE(card->isVisible());
    EXPECT_EQ(card->model()->index(0, 1).data().toString().toStdString(), "ID");
    EXPECT_EQ(card->model()->index(1, 1).data().toString().toStdString(), "two");
    EXPECT_EQ(static_cast<QLabel*>(desk.partOf("frmKOJIND", "Label1"))->text().toStdString(), "ID:1");
}

TEST(frmDISK, AMemoThatIsBeingTypedIsKeptBeforeAnotherTableIsChosen) {
    DiskDesk desk;
    desk.tabTo("RichTextBox2");
    desk.key(plainKey(Key::end));
    desk.keys.type(u"xy");
    desk.runWith(u"mnuREAD", [&] {
        EXPECT_THAT(desk.world.bytesOf("kt.txt"), HasSubstr("memoxy,"));
        desk.key(plainKey(Key::down));
        desk.key(plainKey(Key::enter));
    });
    EXPECT_THAT(desk.openFile(), EndsWith("\\b.txt"));
    EXPECT_THAT(desk.world.bytesOf("kt.txt"), HasSubstr("memoxy,"));
    EXPECT_EQ(desk.world.bytesOf("kb.txt").find("xy"), std::string::npos);
}

TEST(frmDISK, TheFocusGoesToTheInputBoxFromWhereverItWas) {
    DiskDesk desk;
    desk.tabTo("txtREC");
    desk.runWith(u"mnuREAD", [&] {
        desk.key(plainKey(Key::down));
        desk.key(plainKey(Key::enter));
    });
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDISK, TypingFindsAFileWithAndWithoutItsK) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        EXPECT_THAT(desk.spokenBy(plainKey(Key::t)), ElementsAre("kt.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        desk.world.later(2);
        EXPECT_THAT(desk.spokenBy(plainKey(Key::k)), ElementsAre("kx.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        desk.esc();
    });
}

TEST(frmDISK, ARefusedFileLeavesTheOldTableAndTheForm) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.key(plainKey(Key::end));
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "項目挿入不可能");
            desk.enterAnew();
        });
        desk.key(plainKey(Key::enter));
        EXPECT_EQ(desk.title(), "ﾛﾐｶﾌｧｲﾙ指定");
        EXPECT_EQ(desk.focus(), "File1");
        EXPECT_EQ(desk.lineOf(u"File1"), "kx.txt");
        desk.esc();
    });
    EXPECT_THAT(desk.openFile(), EndsWith("\\t.txt"));
    EXPECT_EQ(desk.item(), "one");
    desk.keys.type(u"new");
    desk.key(plainKey(Key::enter));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.world.bytesOf("t.txt").substr(0, 4), "new ");
}

TEST(frmDISK, SpaceShowsTheItemsOfTheFileAndComesBackToIt) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.key(plainKey(Key::down));
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "項目一覧");
            desk.key(plainKey(Key::end));
            EXPECT_EQ(desk.lineOf(u"List1"), "    1:two(8/R)");
            desk.keys.press(plainKey(Key::escape));
        });
        desk.key(plainKey(Key::space));
        EXPECT_EQ(desk.focus(), "File1");
        EXPECT_EQ(desk.lineOf(u"File1"), "kb.txt");
        desk.esc();
    });
    EXPECT_EQ(desk.item(), "one");
}

TEST(frmDISK, DeletesWithoutAQuestionAndStaysOpenForMore) {
    DiskDesk desk;
    desk.runWith(u"mnuDEL", [&] {
        EXPECT_EQ(desk.title(), "削除ﾌｧｲﾙ指定");
        EXPECT_EQ(desk.caption(u"Command1"), "削除(CR)");
        desk.key(plainKey(Key::down));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("削除されました"));
        EXPECT_FALSE(desk.isThere("b.txt"));
        EXPECT_FALSE(desk.isThere("kb.txt"));
        desk.key(plainKey(Key::enter));
        EXPECT_TRUE(desk.isThere("t.txt")) << "nothing was chosen any more";
        desk.key(plainKey(Key::down));
        EXPECT_EQ(desk.lineOf(u"File1"), "kt.txt");
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "確認");
            desk.enterAnew();
        });
        desk.key(plainKey(Key::enter));
        EXPECT_TRUE(desk.isThere("t.txt"));
        EXPECT_TRUE(desk.isThere("kt.txt"));
        desk.esc();
    });
    EXPECT_TRUE(hasTable(desk.zormod));
    EXPECT_EQ(desk.zormod.taskWord, u"");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDISK, TheFolderBoxSaysItsLinesAndTheNewFolder) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.world.later();
        desk.spoken();
        desk.key(shiftKey(Key::tab));
        EXPECT_EQ(desk.focus(), "Dir1");
        EXPECT_THAT(desk.spoken(), ElementsAre("矢印ｷｰでﾌｫﾙﾀﾞを選択し、CRｷｰを叩くとﾌｫﾙﾀﾞが変更されます"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::up)), ElementsAre("..､上のﾌｫﾙﾀﾞ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::b)), ElementsAre("beta"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre(desk.here() + "\\betaにﾌｫﾙﾀﾞが変更されました."));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre(desk.here() + "にﾌｫﾙﾀﾞが変更されました."));
        EXPECT_EQ(desk.lineOf(u"Dir1"), "beta") << "the folder it came from";
        desk.esc();
    });
}

TEST(frmDISK, AFolderWithoutFilesSaysSo) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.tabTo("Dir1");
        desk.key(plainKey(Key::a));
        desk.key(plainKey(Key::enter));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)),
                    ElementsAre("現在のﾌｫﾙﾀﾞには該当ﾌｧｲﾙはありませんﾌｫﾙﾀﾞを変更してください"));
        EXPECT_EQ(desk.focus(), "File1");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)),
                    ElementsAre("現在のﾌｫﾙﾀﾞには該当ﾌｧｲﾙはありませんﾌｫﾙﾀﾞを変更してください"));
        desk.esc();
    });
}

TEST(frmDISK, AnUnreadableFolderIsToldAndTheBoxesStay) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.tabTo("Dir1");
        desk.key(plainKey(Key::a));
        std::filesystem::remove(desk.native("alpha"));
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), utf8(failureTitle));
            desk.enterAnew();
        });
        desk.key(plainKey(Key::enter));
        EXPECT_EQ(desk.focus(), "Dir1");
        EXPECT_EQ(desk.lineOf(u"Dir1"), "alpha");
        desk.esc();
    });
}

TEST(frmDISK, TheDriveBoxFindsAMediumThatWasPutInMeanwhile) {
    DiskDesk desk;
    TemporaryFolder medium;
    desk.runWith(u"mnuREAD", [&] {
        EXPECT_EQ(desk.lineOf(u"Drive1"), "c:");
        desk.world.files.lookForMedia([&] { return std::vector<std::string>{medium.path()}; });
        desk.tabTo("cmdNOTZOR");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("矢印ｷｰでﾄﾞﾗｲﾌﾞ変更 CRで確定します"));
        EXPECT_EQ(desk.focus(), "Drive1");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("d:"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("D:\\にﾌｫﾙﾀﾞが変更されました."));
        desk.esc();
    });
}

TEST(frmDISK, MakesAFolderByItsAccessKey) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "フォルダの作成");
            desk.keys.type(u"new");
            desk.key(plainKey(Key::enter));
        });
        EXPECT_THAT(desk.spokenBy(altKey(Key::f)), Contains("フォルダ作成作成されました"));
        EXPECT_TRUE(std::filesystem::is_directory(desk.native("new")));
        desk.tabTo("Dir1");
        desk.key(plainKey(Key::n));
        EXPECT_EQ(desk.lineOf(u"Dir1"), "new");
        desk.esc();
    });
}

TEST(frmDISK, AFolderThatCantBeMadeIsToldAndTheFormGoesOn) {
    DiskDesk desk;
    desk.runWith(u"mnuDEL", [&] {
        desk.inNextModal([&] {
            desk.keys.type(u"alpha");
            desk.keys.press(plainKey(Key::enter));
        });
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), utf8(failureTitle));
            desk.keys.press(plainKey(Key::enter));
        });
        desk.key(altKey(Key::f));
        EXPECT_EQ(desk.title(), "削除ﾌｧｲﾙ指定");
        desk.esc();
    });
    EXPECT_EQ(desk.endStatus, std::nullopt);
    EXPECT_TRUE(hasTable(desk.zormod));
}

TEST(frmDISK, AllFilesAreShownAndTheTablesAgain) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.tabTo("cmdNOTZOR");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("ロミカファイルでないファイルの読み込みへ"));
        EXPECT_EQ(desk.title(), "ﾛﾐｶﾌｧｲﾙへの変換");
        EXPECT_EQ(desk.hint(), "ロミカファイルでないファイルの読み込みへ");
        EXPECT_EQ(desk.caption(u"Command1"), "読込(CR)");
        desk.key(plainKey(Key::enter));
        EXPECT_EQ(desk.title(), "ﾛﾐｶﾌｧｲﾙ指定");
        desk.key(plainKey(Key::enter));
        desk.esc();
    });
    EXPECT_TRUE(hasTable(desk.zormod));
    EXPECT_EQ(desk.zormod.taskWord, u"");
}

TEST(frmDISK, WhatCantBeUsedYetSaysSo) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        desk.tabTo("Command2");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("まだ使えません"));
        desk.esc();
    });
}

TEST(frmDISK, TheCloseBoxGivesUp) {
    DiskDesk desk;
    desk.runWith(u"mnuDEL", [&] { QApplication::activeWindow()->close(); });
    EXPECT_EQ(desk.zormod.taskWord, u"");
    EXPECT_TRUE(hasTable(desk.zormod));
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(frmDISK, TenThousandFilesAreReadOnceAndWalkedAtOnce) {
    DiskDesk desk;
    for (int i = 0; i < 10000; ++i) {
        desk.world.writeFile("alpha/k" + std::to_string(100000 + i) + ".txt", "");
    }
    desk.runWith(u"mnuREAD", [&] {
        desk.tabTo("Dir1");
        desk.key(plainKey(Key::a));
        desk.key(plainKey(Key::enter));
        desk.key(plainKey(Key::tab));
        std::filesystem::remove_all(desk.native("alpha"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::end)), ElementsAre("k109999.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::up)), ElementsAre("k109998.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::home)), ElementsAre("k100000.txt､ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ"));
        desk.esc();
    });
}

TEST(frmDISK, NoInputMethodComesUpInItsLists) {
    DiskDesk desk;
    desk.runWith(u"mnuREAD", [&] {
        for (const char16_t* name : {u"Drive1", u"Dir1", u"File1"}) {
            EXPECT_FALSE(desk.control(name)->testAttribute(Qt::WA_InputMethodEnabled));
        }
        desk.esc();
    });
}

TEST(frmItemList, SaysWhatItIsOnEnteringAndEachLineWithTheArrows) {
    DiskDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "項目一覧");
        EXPECT_EQ(desk.focus(), "List1");
        EXPECT_THAT(desk.spoken(), ElementsAre(StartsWith("ｺｳﾓｸｲﾁﾗﾝﾌｫｰﾑがﾋｮｳｼﾞｻﾚﾏｼﾀ｡ｺｳﾓｸ数1ﾔｼﾞﾙｼｷ-")));
        EXPECT_EQ(static_cast<QLabel*>(desk.control(u"Label1"))->text().toStdString(), "項目数1");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("    0:ID(4/L)､項目ﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("    1:one(8/L)､項目ﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("消去戻る(esc)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre(StartsWith("ｺｳﾓｸｲﾁﾗﾝﾌｫｰﾑが")));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.key(ctrlKey(Key::l));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    desk.inNextModal([&] {
        desk.tabTo("Command1");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::l));
    EXPECT_EQ(QApplication::activeWindow(), &desk.form);
}
