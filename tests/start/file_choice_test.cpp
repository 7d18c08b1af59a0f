#include "start/file_choice.h"

#include "start/start_world.h"
#include "support/folder_entries.h"

#include <gmock/gmock.h>

#include <optional>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Tables a and b; a is open unless a test wants none.
struct ChoiceWorld : StartWorld {
    explicit ChoiceWorld(TextView word = openFileWord, bool withTable = true) {
        make("a.txt", u"one");
        make("b.txt", u"two");
        writeFile("plain.txt", "text");
        if (withTable) {
            openTable("a.txt");
        } else {
            forms.loaded.clear();
        }
        zormod.taskWord = Text(word);
        forms.loaded.insert(u"frmDISK");
        choice.emplace(zormod);
    }
    /// Selects a file of the list by its name.
    void select(const std::string& name) {
        const auto names = utf8(choice->folders().files());
        const auto found = std::find(names.begin(), names.end(), name);
        ASSERT_NE(found, names.end()) << name;
        choice->folders().selectFile(static_cast<int>(found - names.begin()));
    }
    bool formIsOpen() const { return forms.isLoaded(u"frmDISK"); }
    std::optional<FileChoice> choice;
};

} // namespace

TEST(FileChoice, CaptionsPatternAndHintFollowTheTaskWord) {
    ChoiceWorld opening;
    EXPECT_EQ(utf8(opening.choice->caption()), "ﾛﾐｶﾌｧｲﾙ指定");
    EXPECT_EQ(utf8(opening.choice->carryOutCaption()), "読込(CR)");
    EXPECT_EQ(utf8(opening.choice->hint()), "上記ﾌｧｲﾙ名はK+ﾌｧｲﾙで表示されています");
    EXPECT_THAT(utf8(opening.choice->folders().files()), ElementsAre("ka.txt", "kb.txt"));
    ChoiceWorld starting(u"", false);
    EXPECT_EQ(utf8(starting.choice->caption()), "ﾛﾐｶﾌｧｲﾙ指定");
    EXPECT_EQ(utf8(starting.choice->carryOutCaption()), "読み込み(CR)");
    ChoiceWorld deleting(deleteFileWord);
    EXPECT_EQ(utf8(deleting.choice->caption()), "削除ﾌｧｲﾙ指定");
    EXPECT_EQ(utf8(deleting.choice->carryOutCaption()), "削除(CR)");
    ChoiceWorld converting(convertFileWord);
    EXPECT_EQ(utf8(converting.choice->caption()), "ﾛﾐｶﾌｧｲﾙへの変換");
    EXPECT_EQ(utf8(converting.choice->hint()), "ロミカファイルでないファイルの読み込みへ");
    EXPECT_THAT(utf8(converting.choice->folders().files()), Contains("plain.txt"));
}

TEST(FileChoice, StartsInTheFolderOfTheOpenTableOrInTheProgramsFolder) {
    ChoiceWorld world;
    std::filesystem::create_directory(world.native("sub"));
    std::filesystem::rename(world.native("b.txt"), world.native("sub/b.txt"));
    std::filesystem::rename(world.native("kb.txt"), world.native("sub/kb.txt"));
    ASSERT_TRUE(openInsteadOfOld(world.zormod, world.pathOf(u"sub\\b.txt"), u"c"));
    EXPECT_TRUE(FileChoice(world.zormod).folders().path().ends_with(u"\\sub"));
    ChoiceWorld none(u"", false);
    EXPECT_EQ(none.choice->folders().path() + u'\\', none.zormod.file.programFolder);
}

TEST(FileChoice, OpensTheChosenTableAndCloses) {
    ChoiceWorld world;
    world.select("kb.txt");
    world.choice->carryOut();
    world.expectOpen("b.txt", u"two");
    EXPECT_EQ(world.zormod.file.fileDrive, u"c");
    EXPECT_EQ(world.zormod.taskWord, u"");
    EXPECT_FALSE(world.formIsOpen());
    EXPECT_TRUE(world.choice->isClosed());
    EXPECT_THAT(utf8(world.commands.names), ElementsAre("showOpenedTable", "backToInputBox"));
}

TEST(FileChoice, FromTheStartScreenTheEditScreenComesFirst) {
    ChoiceWorld world(u"", false);
    world.select("ka.txt");
    world.choice->carryOut();
    world.expectOpen("a.txt", u"one");
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("Form1"));
}

TEST(FileChoice, WithoutASelectionNothingHappens) {
    ChoiceWorld world;
    world.choice->carryOut();
    EXPECT_TRUE(world.formIsOpen());
    world.expectOpen("a.txt", u"one");
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(FileChoice, ARefusedTableLeavesTheOldOneOpenAndTheFormUp) {
    ChoiceWorld world;
    world.writeFile("kbad.txt", "nonsense");
    world.choice->folders().refresh();
    world.select("kbad.txt");
    world.dialogs.expectedMessages = 1;
    world.choice->carryOut();
    world.expectOpen("a.txt", u"one");
    EXPECT_TRUE(world.formIsOpen());
    EXPECT_EQ(world.zormod.taskWord, openFileWord);
    EXPECT_FALSE(world.isThere("bad.txt"));
}

TEST(FileChoice, ARefusalReadsTheListAnew) {
    ChoiceWorld world;
    world.writeFile("kbad.txt", "nonsense");
    world.choice->folders().refresh();
    world.select("kbad.txt");
    world.writeFile("kc.txt", "new");
    world.dialogs.expectedMessages = 1;
    world.choice->carryOut();
    EXPECT_THAT(utf8(world.choice->folders().files()), Contains("kc.txt"));
}

TEST(FileChoice, ARefusalWithoutATableLeavesNone) {
    ChoiceWorld world(u"", false);
    world.writeFile("kbad.txt", "nonsense");
    world.choice->folders().refresh();
    world.select("kbad.txt");
    world.dialogs.expectedMessages = 1;
    world.choice->carryOut();
    world.expectNoTable();
    EXPECT_TRUE(world.formIsOpen());
}

TEST(FileChoice, SpaceShowsTheItemsAndTheOldTableComesBack) {
    ChoiceWorld world;
    world.select("kb.txt");
    std::string shown;
    world.forms.scripts[u"frmItemList"] = [&] { shown = utf8(world.zormod.items.itemName[1]); };
    world.choice->dispItem();
    EXPECT_EQ(shown, "two");
    world.expectOpen("a.txt", u"one");
    EXPECT_TRUE(world.formIsOpen());
    EXPECT_EQ(utf8(world.choice->folders().selectedName()), "kb.txt");
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(FileChoice, AmongAllFilesTheFirstLetterBelongsToTheName) {
    ChoiceWorld world;
    world.choice->toggleAllFiles();
    world.select("b.txt");
    std::string shown;
    world.forms.scripts[u"frmItemList"] = [&] { shown = utf8(world.zormod.items.itemName[1]); };
    world.choice->dispItem();
    EXPECT_EQ(shown, "two");
    world.expectOpen("a.txt", u"one");
}

TEST(FileChoice, TheItemListReadsTheListOfFilesAnew) {
    ChoiceWorld world;
    world.select("kb.txt");
    world.forms.scripts[u"frmItemList"] = [&] { world.writeFile("kc.txt", "new"); };
    world.choice->dispItem();
    EXPECT_THAT(utf8(world.choice->folders().files()), ElementsAre("ka.txt", "kb.txt", "kc.txt"));
}

TEST(FileChoice, AKeyThatComesBeforeTheItemListHasGoneBeepsAndNothingElse) {
    ChoiceWorld world(u"", false);
    world.select("kb.txt");
    world.forms.scripts[u"frmItemList"] = [&] {
        world.choice->giveUp();
        world.choice->carryOut();
        world.choice->dispItem();
    };
    world.choice->dispItem();
    EXPECT_EQ(world.beeper.count, 3);
    EXPECT_TRUE(world.formIsOpen());
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmItemList"));
    world.expectNoTable();
    EXPECT_THROW(world.choice->giveUp(), ProgramEnd) << "the next key is heard";
}

TEST(FileChoice, SpaceOnASpoiltFileBeepsAndTheOldTableComesBack) {
    ChoiceWorld world;
    world.writeFile("kbad.txt", "nonsense");
    world.choice->folders().refresh();
    world.select("kbad.txt");
    world.dialogs.expectedMessages = 1;
    world.choice->dispItem();
    EXPECT_EQ(world.beeper.count, 2);
    EXPECT_THAT(world.forms.opened, IsEmpty());
    world.expectOpen("a.txt", u"one");
}

TEST(FileChoice, SpaceWithoutASelectionBeeps) {
    ChoiceWorld world;
    world.choice->dispItem();
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_THAT(world.forms.opened, IsEmpty());
}

TEST(FileChoice, SpaceWithoutATableLeavesNone) {
    ChoiceWorld world(u"", false);
    world.select("kb.txt");
    world.choice->dispItem();
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmItemList"));
    world.expectNoTable();
}

TEST(FileChoice, AFailureInTheItemListLeavesTheOldTable) {
    ChoiceWorld world;
    world.select("kb.txt");
    world.forms.scripts[u"frmItemList"] = [] { throw RuntimeFailure{FailureKind::impossible}; };
    EXPECT_THROW(world.choice->dispItem(), RuntimeFailure);
    world.expectOpen("a.txt", u"one");
}

TEST(FileChoice, TheCaptionOfTheButtonNeverStopsTheOldTableFromComingBack) {
    for (const TextView word : {openFileWord, deleteFileWord, convertFileWord}) {
        ChoiceWorld world(word);
        EXPECT_NE(utf8(world.choice->carryOutCaption()), "ﾛﾐｶﾌｧｲﾙのｱｸｾｽ");
    }
}

TEST(FileChoice, DeletesDataAndItemFileWithoutAQuestionAndStaysOpen) {
    ChoiceWorld world(deleteFileWord);
    world.zormod.speech.speechMode = 1;
    world.select("kb.txt");
    world.choice->carryOut();
    EXPECT_FALSE(world.isThere("b.txt"));
    EXPECT_FALSE(world.isThere("kb.txt"));
    EXPECT_THAT(world.dialogs.questions, IsEmpty());
    EXPECT_THAT(utf8(world.choice->folders().files()), ElementsAre("ka.txt"));
    EXPECT_EQ(world.choice->folders().selectedFile(), -1);
    EXPECT_TRUE(world.formIsOpen());
    EXPECT_THAT(world.takeSpoken(), ElementsAre("削除されました"));
    world.expectOpen("a.txt", u"one");
}

TEST(FileChoice, WhatAKilledOperationLeftBesideATableGoesWithIt) {
    ChoiceWorld world(deleteFileWord);
    for (const char* name : {".change-b.txt", ".swap-b.txt", ".new-b.txt", ".new-Kb.txt"}) {
        world.writeFile(name, "half of something");
    }
    world.select("kb.txt");
    world.choice->carryOut();
    EXPECT_EQ(entriesOf(world.folder.path()), (std::set<std::string>{"a.txt", "ka.txt", "plain.txt"}));
}

TEST(FileChoice, TheOpenTableIsNeverDeleted) {
    for (const char16_t* drive : {u"C", u"c"}) {
        ChoiceWorld world(deleteFileWord);
        world.zormod.file.fileDrive = drive;
        world.select("ka.txt");
        world.dialogs.expectedMessages = 1;
        world.choice->carryOut();
        world.expectMessage("作業中のﾌｧｲﾙは削除出来ません", "確認");
        EXPECT_TRUE(world.isThere("a.txt"));
        EXPECT_TRUE(world.isThere("ka.txt"));
    }
}

TEST(FileChoice, TheOpenTableIsNotDeletedByAnotherRoadEither) {
    ChoiceWorld world(deleteFileWord);
    std::filesystem::create_directory_symlink(".", world.native("road"));
    std::filesystem::create_hard_link(world.native("ka.txt"), world.native("kc.txt"));
    world.writeFile("c.txt", "");
    FolderBrowser& folders = world.choice->folders();
    const Text home = folders.path();
    for (const auto& [folder, name] : {std::pair{home + u"\\road", "ka.txt"}, {home, "kc.txt"}}) {
        folders.start(folder);
        ASSERT_EQ(folders.path(), folder);
        world.select(name);
        world.dialogs.expectedMessages = 1;
        world.choice->carryOut();
        world.expectMessage("作業中のﾌｧｲﾙは削除出来ません", "確認");
        world.dialogs.messages.clear();
        EXPECT_TRUE(world.isThere("a.txt"));
        EXPECT_TRUE(world.isThere("ka.txt"));
        EXPECT_TRUE(world.isThere("c.txt"));
    }
}

TEST(FileChoice, AnItemFileWithoutItsDataIsNotDeleted) {
    ChoiceWorld world(deleteFileWord);
    std::filesystem::remove(world.native("b.txt"));
    world.select("kb.txt");
    world.dialogs.expectedMessages = 1;
    world.choice->carryOut();
    world.expectMessage("ﾛﾐｶﾌｧｲﾙではない可能性があります。", "確認");
    EXPECT_TRUE(world.isThere("kb.txt"));
}

TEST(FileChoice, AFilePairThatIsNoTableIsNotDeletedAndTheOldTableComesBack) {
    ChoiceWorld world(deleteFileWord);
    world.writeFile("kb.txt", "nonsense");
    world.select("kb.txt");
    world.dialogs.expectedMessages = 1;
    world.choice->carryOut();
    world.expectMessage("ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です", "エラーです");
    EXPECT_TRUE(world.isThere("b.txt"));
    EXPECT_TRUE(world.isThere("kb.txt"));
    world.expectOpen("a.txt", u"one");
}

TEST(FileChoice, ATableInUseElsewhereIsNotDeleted) {
    ChoiceWorld world(deleteFileWord);
    PosixFiles otherCopy(defaultDrives(), world.folder.path());
    const auto claim = otherCopy.lockTable(world.zormod.file.programFolder + u"b.txt");
    world.select("kb.txt");
    world.dialogs.expectedMessages = 1;
    world.choice->carryOut();
    world.expectMessage("このﾌｧｲﾙは別のロミカで使用中です", "確認");
    EXPECT_TRUE(world.isThere("b.txt"));
}

TEST(FileChoice, ADeletionThatFailsIsThrownAndTheFormStillKnowsWhatItIsFor) {
    ChoiceWorld world(deleteFileWord);
    std::filesystem::remove(world.native("b.txt"));
    std::filesystem::create_directory(world.native("b.txt"));
    world.select("kb.txt");
    EXPECT_THROW(world.choice->carryOut(), RuntimeFailure);
    EXPECT_TRUE(world.isThere("kb.txt"));
    world.zormod.taskWord.clear(); // as the guard does after a failure
    EXPECT_EQ(utf8(world.choice->caption()), "削除ﾌｧｲﾙ指定");
    EXPECT_NO_THROW(world.choice->giveUp());
}

TEST(FileChoice, ADeletionThatFailsHalfwayIsThrownAndTheListStillHoldsTheFile) {
    for (const int failing : {1, 2}) {
        ChoiceWorld world(deleteFileWord, false);
        FaultyState state(world);
        state.zormod.taskWord = Text(deleteFileWord);
        FileChoice choice(state.zormod);
        choice.folders().selectFile(1);
        ASSERT_EQ(utf8(choice.folders().selectedName()), "kb.txt");
        // Ahead of the two deletions what killed programs have left is taken away, in both folders that may hold some.
        state.files.failAt(2 + failing, FaultyFiles::Counted::writes);
        EXPECT_THROW(choice.carryOut(), RuntimeFailure);
        EXPECT_EQ(world.isThere("b.txt"), failing == 1);
        EXPECT_TRUE(world.isThere("kb.txt"));
        EXPECT_TRUE(choice.folders().refresh());
        EXPECT_EQ(utf8(choice.folders().selectedName()), "kb.txt");
    }
}

TEST(FileChoice, AllFilesAreShownAndTheTablesAgain) {
    ChoiceWorld world(deleteFileWord);
    world.zormod.speech.speechMode = 1;
    world.choice->toggleAllFiles();
    EXPECT_EQ(world.zormod.taskWord, convertFileWord);
    EXPECT_EQ(utf8(world.choice->caption()), "ﾛﾐｶﾌｧｲﾙへの変換");
    EXPECT_EQ(utf8(world.choice->carryOutCaption()), "削除(CR)");
    EXPECT_THAT(utf8(world.choice->folders().files()), ElementsAre("a.txt", "b.txt", "ka.txt", "kb.txt", "plain.txt"));
    EXPECT_THAT(world.takeSpoken(), ElementsAre("ロミカファイルでないファイルの読み込みへ"));
    world.choice->toggleAllFiles();
    EXPECT_EQ(world.zormod.taskWord, deleteFileWord);
    EXPECT_THAT(utf8(world.choice->folders().files()), ElementsAre("ka.txt", "kb.txt"));
}

TEST(FileChoice, WhatLeadsToLaterOperationsRunsTheirCommands) {
    ChoiceWorld world;
    world.choice->readCsv();
    world.choice->toggleAllFiles();
    world.select("plain.txt");
    world.choice->carryOut();
    EXPECT_THAT(utf8(world.commands.names), ElementsAre("csvREAD", "convertChosenFile"));
    EXPECT_TRUE(world.formIsOpen());
    world.expectOpen("a.txt", u"one");
}

TEST(FileChoice, MakesAFolderInTheOneShown) {
    ChoiceWorld world;
    world.dialogs.texts = {u"new"};
    world.choice->makeFolderHere();
    EXPECT_THAT(utf8(world.choice->folders().folders()), ElementsAre("..", "new"));
}

TEST(FileChoice, GivingUpGoesBackToTheOpenTable) {
    for (const TextView word : {openFileWord, deleteFileWord, convertFileWord, TextView(u"")}) {
        ChoiceWorld world(word);
        world.choice->giveUp();
        world.expectOpen("a.txt", u"one");
        EXPECT_FALSE(world.formIsOpen());
        EXPECT_EQ(world.zormod.taskWord, u"");
        EXPECT_EQ(world.screen.shownCells, word == deleteFileWord || word == convertFileWord ? 1 : 0) << utf8(word);
    }
}

TEST(FileChoice, TheDescriptionWarnsOfWhatCantBeTakenBack) {
    const auto says = [](const ChoiceWorld& world, const char* words) {
        return utf8(world.choice->description()).find(words) != std::string::npos;
    };
    EXPECT_TRUE(says(ChoiceWorld(deleteFileWord), "確認なしに"));
    EXPECT_FALSE(says(ChoiceWorld(), "確認なしに"));
    EXPECT_TRUE(says(ChoiceWorld(u"", false), "ロミカを終了します"));
    EXPECT_FALSE(says(ChoiceWorld(openFileWord, false), "ロミカを終了します"));
}

TEST(FileChoice, GivingUpWithoutATableEndsTheProgram) {
    for (const TextView word : {TextView(u""), convertFileWord}) {
        ChoiceWorld world(word, false);
        world.zormod.speech.speechMode = 1;
        world.writeFile("zorTalk", "old");
        EXPECT_THROW(world.choice->giveUp(), ProgramEnd) << utf8(word);
        EXPECT_THAT(world.takeSpoken(), ElementsAre("ﾛﾐｶ ｼｭｳﾘｮｳ"));
        EXPECT_EQ(world.bytesOf("zorTalk"), "old");
    }
}

TEST(FileChoice, GivingUpAnEntryOfTheEditScreenWithoutATableJustCloses) {
    for (const TextView word : {openFileWord, deleteFileWord}) {
        ChoiceWorld world(word, false);
        world.choice->giveUp();
        EXPECT_FALSE(world.formIsOpen());
        EXPECT_EQ(world.zormod.taskWord, u"");
        EXPECT_EQ(world.screen.shownCells, 0);
    }
}

TEST(FileChoice, ATableInADrivesRootHasNoDoubleBackslash) {
    TemporaryFolder medium;
    ChoiceWorld world;
    std::filesystem::copy(world.native("b.txt"), medium.path() + "/b.txt");
    std::filesystem::copy(world.native("kb.txt"), medium.path() + "/kb.txt");
    world.files.lookForMedia([&] { return std::vector<std::string>{medium.path()}; });
    world.choice->folders().findDrives();
    ASSERT_TRUE(world.choice->folders().changeDrive(1));
    world.select("kb.txt");
    world.choice->carryOut();
    EXPECT_EQ(world.zormod.file.fileName, u"\\b.txt");
    EXPECT_EQ(world.zormod.file.fileDrive, u"d");
    EXPECT_TRUE(hasTable(world.zormod));
    EXPECT_EQ(FileChoice(world.zormod).folders().path(), u"D:\\") << "the next choice starts there";
}
