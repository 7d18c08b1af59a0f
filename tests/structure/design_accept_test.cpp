#include "structure/design_world.h"

#include "sheet/cell.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/folder_entries.h"
#include "support/forked_child.h"

#include <filesystem>

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<TestWorld::Item> meibo = {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}};
const std::vector<std::vector<std::u16string_view>> people = {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}};

struct AcceptWorld : DesignWorld {
    Text path(TextView name) { return zormod.file.programFolder + Text(name); }
    /// A complete design of a new table under `name`.
    TableDesign& complete(TextView name) {
        TableDesign& made = newDesign();
        fill(made, {{u"ID", u"L", u"4"}, {u"品名", u"L", u"20"}});
        made.text2 = u" 在庫 ";
        made.text3 = path(name);
        return made;
    }
    /// The design of the table `meibo` with `people` in it.
    TableDesign& changing() {
        table(meibo, people);
        return change();
    }
    std::string dataOf(const std::string& name, int record) { return bytesOf(name).substr(256U * static_cast<unsigned>(record - 1), 256); }
};

TEST(DesignAccept, ANewTableGetsItsFilesAndIsOpen) {
    AcceptWorld world;
    TableDesign& design = world.complete(u"zaiko");
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(design.text3, world.path(u"zaiko.txt"));
    EXPECT_EQ(utf8(world.codePage.decode(world.bytesOf("kzaiko.txt"))),
              "100  ' 0,在庫,, 1\r\n1000 'ID,L\r\n1001 '品名,L\r\n2000 ' 4\r\n2001 ' 20\r\n");
    EXPECT_TRUE(hasTable(world.zormod));
    EXPECT_EQ(recordCount(world.zormod), 0);
    EXPECT_EQ(world.zormod.items.itemStart[1], 5);
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.position.curItem, 0);
    EXPECT_EQ(world.zormod.taskWord, u"");
    EXPECT_EQ(utf8(world.screen.title), "ロミカ (" + utf8(world.path(u"zaiko.txt")) + "/記録数:0)");
    EXPECT_THAT(world.commands.names, ElementsAre(Text(u"showOpenedTable")));
    setSlotCell(world.zormod, currentSlot(world.zormod), u"鉛筆", 1);
    commitRecord(world.zormod);
    EXPECT_EQ(utf8(trimmed(world.codePage.decode(world.bytesOf("zaiko.txt").substr(4, 20)))), "鉛筆");
}

TEST(DesignAccept, ATableOfTheIdItemAloneIsValid) {
    AcceptWorld world;
    TableDesign& design = world.newDesign();
    fill(design, {{u"全文", u"L", u"254"}});
    design.text3 = world.path(u"memo.TXT");
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(design.text3, world.path(u"memo.TXT"));
    EXPECT_EQ(world.zormod.items.itemCount, 0);
}

TEST(DesignAccept, WithoutANameTheNameBoxIsAskedFor) {
    for (const char16_t* name : {u"c:\\data\\", u"c:\\data\\.txt", u"", u".TXT"}) {
        AcceptWorld world;
        TableDesign& design = world.complete(u"x");
        design.text3 = name;
        world.expectMessage();
        EXPECT_EQ(acceptDesign(design), DesignOutcome::toFileName);
        EXPECT_EQ(world.message(), std::pair(std::string("ﾌｧｲﾙ名がありません。ﾌｧｲﾙ名は？"), std::string("ﾌｧｲﾙ名なし")));
    }
}

TEST(DesignAccept, ANameWithoutADriveTakesThatOfTheListAndLiesInTheProgramFolder) {
    AcceptWorld world;
    TableDesign& design = world.complete(u"");
    design.text3 = u"bare";
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.file.fileDrive, u"c");
    EXPECT_EQ(world.zormod.file.fileName, u"bare.txt");
    EXPECT_FALSE(world.bytesOf("Kbare.txt").empty());
}

TEST(DesignAccept, AFaultBeepsAndLeadsToTheGridWithNothingWritten) {
    AcceptWorld world;
    TableDesign& design = world.complete(u"x");
    design.rows[1].align = u"";
    world.expectMessage();
    EXPECT_EQ(acceptDesign(design), DesignOutcome::toGrid);
    EXPECT_EQ(world.message(), std::pair(std::string("L/Rが未定義です1項目"), std::string("表使用値の誤り")));
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_FALSE(world.files.exists(world.path(u"x.txt")));
    EXPECT_FALSE(world.files.exists(world.path(u"kx.txt")));
}

TEST(DesignAccept, WhatIsStillInTheBoxBelongsToTheDesign) {
    AcceptWorld world;
    TableDesign& design = world.complete(u"x");
    standOnDesignCell(design, 1, DesignColumn::width);
    design.itemin = u"30";
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.items.itemWidth[1], 30);
}

TEST(DesignAccept, AWrongTextStillInTheBoxIsToldAndNothingIsWritten) {
    AcceptWorld world;
    TableDesign& design = world.complete(u"x");
    standOnDesignCell(design, 1, DesignColumn::align);
    design.itemin = u"X";
    world.expectMessage();
    EXPECT_EQ(acceptDesign(design), DesignOutcome::toGrid);
    EXPECT_EQ(world.message().first, "Ｌ(左詰め指定)かＲ(右詰め指定）のみを入力して下さい");
    EXPECT_EQ(design.itemin, u"X");
    EXPECT_FALSE(world.files.exists(world.path(u"x.txt")));
    EXPECT_FALSE(world.files.exists(world.path(u"kx.txt")));
}

TEST(DesignAccept, AnExistingDataFileKeepsItsRecordsAndGetsTheNewDesign) {
    AcceptWorld world;
    world.makeTable("old.txt", meibo, people);
    const std::string bytes = world.bytesOf("old.txt");
    EXPECT_EQ(acceptDesign(world.complete(u"old")), DesignOutcome::closed);
    EXPECT_EQ(world.bytesOf("old.txt"), bytes);
    EXPECT_EQ(recordCount(world.zormod), 2);
    EXPECT_EQ(world.zormod.items.itemCount, 1);
    EXPECT_EQ(world.files.folderContents(world.zormod.file.programFolder).files.size(), 2U);
}

TEST(DesignAccept, ATableOfAnotherRunningCopyIsRefusedUntouched) {
    AcceptWorld world;
    world.makeTable("busy.txt", meibo, people);
    const std::string items = world.bytesOf("kbusy.txt");
    const ForkedChild other([&](const ChildSide& side) {
        const auto lock = world.files.lockTable(world.path(u"busy.txt"));
        side.giveSign();
        return side.waitForSign() && lock != nullptr;
    });
    ASSERT_TRUE(other.waitForSign());
    world.expectMessage();
    EXPECT_EQ(acceptDesign(world.complete(u"busy")), DesignOutcome::toFileName);
    EXPECT_EQ(world.message(), std::pair(std::string("このﾌｧｲﾙは別のロミカで使用中です"), std::string("確認")));
    EXPECT_EQ(world.bytesOf("kbusy.txt"), items);
    other.giveSign();
}

TEST(DesignAccept, AFolderThatCantBeWrittenIsToldAndTheOldTableComesBack) {
    AcceptWorld world;
    world.table(meibo, people);
    TableDesign& design = world.complete(u"x");
    design.text3 = world.path(u"missing\\x");
    world.expectMessage();
    EXPECT_EQ(acceptDesign(design), DesignOutcome::toFileName);
    EXPECT_EQ(world.message(), std::pair(std::string("不適切なﾌｧｲﾙを指定しました。"), std::string("ディスクエラー")));
    EXPECT_EQ(design.rows.size(), 2U);
    EXPECT_EQ(world.zormod.file.fileName, design.before.file.fileName);
    EXPECT_EQ(recordCount(world.zormod), 2);
    EXPECT_EQ(world.zormod.file.tableMemo, u"memo");
}

TEST(DesignAccept, ACsvDesignTellsTheReaderAndKeepsTheTaskWord) {
    AcceptWorld world;
    world.zormod.file.otherFileDrive = u"c";
    world.zormod.file.otherFileName = world.path(u"uriage.csv").substr(2);
    TableDesign& design = world.open(u"SVCread");
    fill(design, {{u"ID", u"L", u"4"}});
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_FALSE(world.bytesOf("kuriage.txt").empty());
    EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 1.0);
    EXPECT_EQ(world.zormod.taskWord, u"SVCread");
}

TEST(DesignAccept, ChangedNamesAloneRaiseNoQuestion) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    const std::string bytes = world.bytesOf("t.txt");
    design.rows[1].name = u"名前";
    standOnDesignCell(design, 0, DesignColumn::name);
    design.text2 = u"新";
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.bytesOf("t.txt"), bytes);
    EXPECT_EQ(world.zormod.items.itemName[1], u"名前");
    EXPECT_EQ(world.zormod.file.tableMemo, u"新");
    EXPECT_EQ(world.zormod.taskWord, u"");
    EXPECT_EQ(world.screen.shownCells, 1);
}

TEST(DesignAccept, AChangedWidthOfItem0AloneRaisesNoQuestion) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    const std::string bytes = world.bytesOf("t.txt");
    design.rows[0].width = u"5";
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.bytesOf("t.txt"), bytes);
    EXPECT_EQ(world.zormod.items.itemWidth[0], 5);
}

TEST(DesignAccept, AnEmptyTableIsNotAskedAbout) {
    AcceptWorld world;
    world.table(meibo, {});
    TableDesign& design = world.change();
    design.rows[1].width = u"5";
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.items.itemWidth[1], 5);
}

TEST(DesignAccept, CancelLeavesEverythingAsItIs) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    const std::string bytes = world.bytesOf("t.txt");
    const std::string items = world.bytesOf("kt.txt");
    design.rows[1].width = u"6";
    world.dialogs.answers = {Answer::cancel};
    EXPECT_EQ(acceptDesign(design), DesignOutcome::stays);
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title + world.dialogs.questions[0].prompt),
              "<<<<<書き換えますか>>>>>　？項目幅区切り又は左／右詰め項目に変更がありました、新設定に沿って既存データを書き換えますか。\r"
              "書き換えるは　はい　　区切りのみ変更しデータはそのままの場合は いいえ を選択");
    EXPECT_EQ(world.bytesOf("t.txt"), bytes);
    EXPECT_EQ(world.bytesOf("kt.txt"), items);
    EXPECT_EQ(world.zormod.taskWord, u"tdesign");
}

TEST(DesignAccept, NoLeavesTheBytesWhichThenBelongToOtherItems) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    const std::string bytes = world.bytesOf("t.txt");
    design.rows[1].width = u"2";
    world.dialogs.answers = {Answer::no};
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.bytesOf("t.txt"), bytes);
    EXPECT_EQ(utf8(getCell(world.zormod, 1)), "山");
    EXPECT_EQ(utf8(getCell(world.zormod, 2)), "田 ");
}

TEST(DesignAccept, YesPutsTheRecordsIntoTheNewCells) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    design.rows[1] = {u"氏名", u"R", u"6"};
    design.rows[2] = {u"年齢", u"L", u"5"};
    world.dialogs.answers = {Answer::yes};
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(utf8(world.codePage.decode(world.dataOf("t.txt", 1).substr(0, 14))), "1    山田40   ");
    EXPECT_EQ(utf8(world.codePage.decode(world.dataOf("t.txt", 2))),
              "2    鈴木7    " + std::string(240, ' ') + "\r\n");
    EXPECT_EQ(world.bytesOf("t.txt").size(), 512U);
    EXPECT_EQ(utf8(getCell(world.zormod, 2)), "40   ");
    EXPECT_EQ(world.zormod.taskWord, u"");
}

TEST(DesignAccept, TheTailBehindTheLastWholeRecordSurvivesARewrite) {
    AcceptWorld world;
    world.makeTable("t.txt", meibo, people);
    world.writeFile("t.txt", world.bytesOf("t.txt") + "tail");
    world.openTable("t.txt");
    TableDesign& design = world.change();
    design.rows[1].width = u"4";
    world.dialogs.answers = {Answer::yes};
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.bytesOf("t.txt").substr(512), "tail");
}

TEST(DesignAccept, FewerItemsMoveTheCurrentOneToItem0) {
    AcceptWorld world;
    world.table(meibo, people);
    world.zormod.position.curItem = 2;
    world.zormod.position.curRecord = 2;
    TableDesign& design = world.change();
    resizeDesign(design, 1);
    world.dialogs.answers = {Answer::yes};
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.position.curItem, 0);
    EXPECT_EQ(world.zormod.position.curRecord, 2);
    EXPECT_EQ(utf8(trimmed(getCell(world.zormod, 1))), "鈴木");
}

TEST(DesignAccept, TheLastItemStaysTheCurrentOneWhileThereIsOneOfItsNumber) {
    AcceptWorld world;
    world.table(meibo, people);
    world.zormod.position.curItem = 2;
    TableDesign& design = world.change();
    design.rows[1].name = u"名前";
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.position.curItem, 2);
}

TEST(DesignAccept, AnotherNameLeavesTheOpenTableAloneAndTakesTheDesignThere) {
    AcceptWorld world;
    world.table(meibo, people);
    world.zormod.position.curRecord = 3;
    TableDesign& design = world.change();
    const std::string bytes = world.bytesOf("t.txt");
    const std::string items = world.bytesOf("kt.txt");
    design.rows[1].width = u"4";
    design.text3 = world.path(u"u");
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.bytesOf("t.txt"), bytes);
    EXPECT_EQ(world.bytesOf("kt.txt"), items);
    EXPECT_EQ(recordCount(world.zormod), 0);
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.items.itemWidth[1], 4);
}

TEST(DesignGiveUp, WithATableEverythingIsAsItWasAfterAWait) {
    AcceptWorld world;
    for (const char16_t* task : {u"", u"tdesign", u"SVCread"}) {
        world.table(meibo, people);
        const std::string bytes = world.bytesOf("t.txt");
        const std::string items = world.bytesOf("kt.txt");
        const double slept = world.clock.slept;
        TableDesign& design = world.open(task);
        fill(design, {{u"x", u"L", u"9"}});
        design.text3 = u"c:\\other";
        EXPECT_EQ(giveUpDesign(design), DesignOutcome::closed);
        EXPECT_NEAR(world.clock.slept - slept, world.zormod.speech.inhibitSeconds, 0.01);
        EXPECT_EQ(world.bytesOf("t.txt"), bytes);
        EXPECT_EQ(world.bytesOf("kt.txt"), items);
        EXPECT_EQ(world.zormod.items.itemCount, 2);
        EXPECT_EQ(world.zormod.items.itemStart[2], 14);
        EXPECT_EQ(recordCount(world.zormod), 2);
        EXPECT_EQ(world.zormod.taskWord, u"");
    }
}

TEST(DesignGiveUp, AKFileThatHasGoneMeanwhileLeavesTheTableOpenWithItsItems) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    world.files.remove(world.path(u"kt.txt"));
    world.expectMessage();
    EXPECT_EQ(giveUpDesign(design), DesignOutcome::closed);
    EXPECT_EQ(utf8(trimmed(getCell(world.zormod, 1))), "山田");
    EXPECT_EQ(recordCount(world.zormod), 2);
}

TEST(DesignGiveUp, FromTheStartTheProgramEndsOnYesAlone) {
    AcceptWorld world;
    world.zormod.speech.speechMode = 2;
    TableDesign& design = world.newDesign();
    world.dialogs.answers = {Answer::no, Answer::cancel, Answer::yes};
    EXPECT_EQ(giveUpDesign(design), DesignOutcome::stays);
    EXPECT_EQ(giveUpDesign(design), DesignOutcome::stays);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title + world.dialogs.questions[0].prompt), "確認ロミカを終了しますか？");
    try {
        giveUpDesign(design);
        ADD_FAILURE() << "the program went on";
    } catch (const ProgramEnd& end) {
        EXPECT_EQ(end.how, EndKind::farewellOnly);
    }
    EXPECT_THAT(world.takeSpoken(), testing::Contains("ﾛﾐｶ ｼｭｳﾘｮｳ"));
    EXPECT_NEAR(world.clock.slept, 2.7, 0.01) << "what was said before gets out, then the farewell";
    EXPECT_FALSE(world.files.exists(world.path(u"zorTalk")));
}

TEST(DesignGiveUp, AfterARefusedNewTableFromTheStartNothingIsOpen) {
    AcceptWorld world;
    TableDesign& design = world.complete(u"x");
    design.text3 = world.path(u"missing\\x");
    world.expectMessage();
    EXPECT_EQ(acceptDesign(design), DesignOutcome::toFileName);
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_EQ(world.zormod.file.fileName, u"");
}

TEST(DesignAccept, ADataFileThatCantBeOpenedLeavesWhatWasOpenBefore) {
    for (const bool hadTable : {false, true}) {
        AcceptWorld world;
        if (hadTable) {
            world.table(meibo, people);
        }
        world.files.makeFolder(world.path(u"x.txt"));
        TableDesign& design = world.complete(u"x");
        EXPECT_THROW(acceptDesign(design), RuntimeFailure);
        EXPECT_EQ(hasTable(world.zormod), hadTable);
        EXPECT_EQ(world.zormod.file.fileName, design.before.file.fileName);
        EXPECT_EQ(world.zormod.items.itemCount, hadTable ? 2 : 0);
        EXPECT_EQ(design.rows.size(), 2U);
    }
}

TEST(DesignGiveUp, ACsvDesignGoesBackToTheFileChoiceWithoutAQuestion) {
    AcceptWorld world;
    TableDesign& design = world.open(u"SVCread");
    EXPECT_EQ(giveUpDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.taskWord, u"");
    EXPECT_FALSE(hasTable(world.zormod));
}

} // namespace

TEST(DesignAccept, TheItemsThatTakeInputStayChosen) {
    for (const TextView width : {u"10", u"9"}) { // without a rewrite and with one
        AcceptWorld world;
        world.table(meibo, people);
        world.zormod.input.allItemsInput = 0;
        world.zormod.items.itemInputMark[1] = 1;
        TableDesign& design = world.change();
        design.rows[1].name = u"名";
        design.rows[1].width = Text(width);
        designRowsChanged(design);
        world.dialogs.answers = {Answer::yes};
        EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
        EXPECT_EQ(world.zormod.items.itemInputMark[1], 1);
        EXPECT_EQ(world.zormod.items.itemInputMark[2], 0);
        EXPECT_EQ(world.zormod.input.allItemsInput, 0);
    }
}

TEST(DesignAccept, WithoutAChosenItemLeftAllTakeInput) {
    AcceptWorld world;
    TableDesign& design = world.changing();
    world.zormod.input.allItemsInput = 0;
    design.before.items.itemInputMark[2] = 1;
    design.rows.resize(2);
    designRowsChanged(design);
    world.dialogs.answers = {Answer::no};
    EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.items.itemCount, 1);
    EXPECT_EQ(world.zormod.input.allItemsInput, 1);
}

TEST(DesignAccept, AFixedRangeEndsWithTheOldItems) {
    for (const bool isNew : {false, true}) {
        AcceptWorld world;
        world.table(meibo, people);
        world.zormod.selection = {.selectionKind = 3, .selRecordFrom = 1, .selRecordTo = 2, .selItemFrom = 1, .selItemTo = 2};
        if (isNew) {
            EXPECT_EQ(acceptDesign(world.complete(u"zaiko")), DesignOutcome::closed);
        } else {
            TableDesign& design = world.change();
            design.rows[1].name = u"名";
            EXPECT_EQ(acceptDesign(design), DesignOutcome::closed);
        }
        EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    }
}

TEST(DesignAccept, ADesignNeverTakesTheFilesOfAnotherTable) {
    // The item file of "aki.txt" would be the records of "kaki.txt", and the records of "kmeibo.txt" the item file of
    // "meibo.txt".
    for (const auto& [there, wanted] : {std::pair{"kaki.txt", u"aki"}, {"meibo.txt", u"kmeibo"}, {"meibo.txt", u"KMEIBO.TXT"}}) {
        AcceptWorld world;
        world.makeTable(there, meibo, people);
        const std::string itemFile = std::string("k") + there;
        const std::vector<std::string> before = {world.bytesOf(there), world.bytesOf(itemFile)};
        TableDesign& design = world.complete(wanted);
        world.dialogs.expectedMessages = 1;
        EXPECT_EQ(acceptDesign(design), DesignOutcome::toFileName);
        EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "ﾌｧｲﾙ名入力エラー");
        EXPECT_EQ((std::vector<std::string>{world.bytesOf(there), world.bytesOf(itemFile)}), before);
        EXPECT_EQ(entriesOf(world.folder.path()), (std::set<std::string>{there, itemFile}));
    }
}

TEST(DesignAccept, ANameThatBeginsWithTheLetterOfItemFilesIsFreeWhereNobodyIsHarmed) {
    AcceptWorld world;
    world.writeFile("aki.txt", "no table");
    EXPECT_EQ(acceptDesign(world.complete(u"kaki")), DesignOutcome::closed);
    EXPECT_EQ(acceptDesign(world.change()), DesignOutcome::closed) << "its own files are no one else's";
    EXPECT_EQ(world.bytesOf("aki.txt"), "no table");
}

TEST(DesignAccept, TheOpenTableIsKnownByABareNameAndByAnotherRoadToo) {
    for (const TextView name : {u"T", u"road\\t"}) {
        AcceptWorld world;
        std::filesystem::create_directory_symlink(".", world.folder.path() + "/road");
        TableDesign& design = world.changing();
        design.text3 = name == u"T" ? Text(name) : world.path(name);
        design.rows[1].width = u"9";
        designRowsChanged(design);
        world.dialogs.answers = {Answer::cancel};
        EXPECT_EQ(acceptDesign(design), DesignOutcome::stays);
        EXPECT_EQ(world.dialogs.questions.size(), 1U) << "its records would be cut differently";
    }
}
