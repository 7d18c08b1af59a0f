#include "app/entry.h"
#include "edit/status_update.h"
#include "platform/failure.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/faulty_files.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

const std::vector<TestWorld::Item> shape = {{u"ID", u"L", 4}, {u"name", u"L", 8}};

struct EntryWorld : TestWorld {
    EntryWorld() : edit(zormod) { connectPositionBoxes(edit); }
    void open(const Text& argument) {
        enterProgram(zormod);
        openFromCommandLine(edit, argument);
    }
    std::string native(const std::string& name) const { return folder.path() + "/" + name; }
    EditScreen edit;
};

/// Notes the reading mode in which a message comes.
class NotingDialogs : public ScriptedDialogs {
public:
    void showMessage(const Text& text, const Text& title) override {
        modeWhenTold = zormod->speech.speechMode;
        ScriptedDialogs::showMessage(text, title);
    }
    const ZORMOD* zormod = nullptr;
    int modeWhenTold = -1;
};

Text wide(const std::string& ascii) { return Text(ascii.begin(), ascii.end()); }

} // namespace

TEST(Entry, SetsTheStartValues) {
    EntryWorld world;
    world.clipboard.foreign(u"mine");
    enterProgram(world.zormod);
    const ZORMOD& zormod = world.zormod;
    EXPECT_EQ(zormod.speech.speechMark, u"。｡.");
    EXPECT_EQ(zormod.speech.userClipboard, u"mine");
    Text folder = wide(world.folder.path());
    std::replace(folder.begin(), folder.end(), u'/', u'\\');
    EXPECT_EQ(zormod.file.programFolder, u"C:" + folder + u"\\");
    EXPECT_EQ(zormod.window.blankLine, Bytes(254, ' '));
    EXPECT_EQ(zormod.window.slashLine, Bytes(254, '/'));
    EXPECT_EQ(zormod.input.allItemsInput, 1);
    EXPECT_EQ(zormod.position.windowRows, 20);
    EXPECT_EQ(zormod.input.inputLimit, 0);
    EXPECT_EQ(zormod.selection.selectionKind, 0);
    EXPECT_EQ(zormod.input.pinnedItem, -1);
    EXPECT_EQ(zormod.speech.inhibitSeconds, 0.2);
    EXPECT_EQ(world.screen.title, u"音声案内付きﾃｷｽﾄﾃﾞｰﾀ管理・編集・集計ｿﾌﾄ");
}

TEST(Entry, AFirstRunSpeaksAndALaterOneDoesAsTheLast) {
    EntryWorld first;
    enterProgram(first.zormod);
    EXPECT_EQ(first.zormod.speech.speechMode, 2);
    EXPECT_EQ(first.screen.readingMode, 2);
    for (const int mode : {0, 1, 2}) {
        EntryWorld world;
        world.writeFile("zorTalk", " " + std::string(1, static_cast<char>('0' + mode)) + " \r\n");
        enterProgram(world.zormod);
        EXPECT_EQ(world.zormod.speech.speechMode, mode);
        EXPECT_EQ(world.screen.readingMode, mode);
    }
}

TEST(Entry, NothingIsSaidBeforeATableIsOpen) {
    EntryWorld world;
    enterProgram(world.zormod);
    EXPECT_TRUE(world.clipboard.written.empty());
}

TEST(Entry, TheSampleBoardIsPutBackAtEveryStart) {
    EntryWorld world;
    world.writeFile("サンプル試験結果.0__", "pristine");
    world.writeFile("サンプル試験結果.000", "changed");
    enterProgram(world.zormod);
    EXPECT_EQ(world.bytesOf("サンプル試験結果.000"), "pristine");
}

TEST(Entry, ABareNameOpensInTheProgramFolder) {
    for (const char16_t* argument : {u"t.txt", u"  t.txt ", u"\\t.txt", u"\\\\t.txt"}) {
        EntryWorld world;
        world.makeTable("t.txt", shape, {{u"1", u"x"}});
        world.open(argument);
        ASSERT_TRUE(hasTable(world.zormod)) << utf8(argument);
        EXPECT_EQ(world.zormod.file.fileDrive, u"C");
        EXPECT_EQ(recordCount(world.zormod), 1);
    }
}

TEST(Entry, FoldersInARelativeNameMayBeWrittenEitherWay) {
    for (const char16_t* argument : {u"sub/t.txt", u"sub\\t.txt"}) {
        EntryWorld world;
        std::filesystem::create_directory(world.folder.path() + "/sub");
        world.makeTable("t.txt", shape, {{u"1", u"x"}});
        std::filesystem::rename(world.native("t.txt"), world.native("sub/t.txt"));
        std::filesystem::rename(world.native("kt.txt"), world.native("sub/kt.txt"));
        world.open(argument);
        EXPECT_TRUE(hasTable(world.zormod)) << utf8(argument);
    }
}

TEST(Entry, APathOfTheSystemAndAPathWithADriveOpenTheTable) {
    EntryWorld native;
    native.makeTable("t.txt", shape, {{u"1", u"x"}});
    native.open(wide(native.native("t.txt")));
    EXPECT_TRUE(hasTable(native.zormod));
    EntryWorld drive;
    drive.makeTable("t.txt", shape, {{u"1", u"x"}});
    drive.open(drive.zormod.file.programFolder + u"t.txt");
    EXPECT_TRUE(hasTable(drive.zormod));
}

TEST(Entry, AnOpenedTableStandsAtItsStartWithItsLabelsAndTheFocusInTheBox) {
    EntryWorld world;
    world.makeTable("t.txt", shape, {{u"1", u"x"}, {u"2", u"y"}});
    world.open(u"t.txt");
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.position.curItem, 0);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.screen.fields[PanelField::Label8], u"字数制限:項目幅");
    EXPECT_EQ(world.screen.fields[PanelField::Label11], u"全項目(0～1)");
    EXPECT_EQ(world.screen.fields[PanelField::txtREC], u" 1");
    const Text path = world.zormod.file.programFolder + u"t.txt";
    EXPECT_EQ(world.screen.title, u"ロミカ (" + path + u"/記録数:2)");
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
}

TEST(Entry, ATableWithoutAnItemFileIsRefusedAloudAndLeavesNoTable) {
    EntryWorld world;
    world.writeFile("plain.txt", "hello");
    world.dialogs.expectedMessages = 1;
    world.open(u"plain.txt");
    ASSERT_EQ(world.dialogs.messages.size(), 1u);
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "項目挿入不可能");
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
    EXPECT_EQ(world.zormod.file.fileName, u"");
    EXPECT_EQ(world.bytesOf("plain.txt"), "hello");
}

TEST(Entry, ARefusalIsToldInTheReadingModeOfTheLastRun) {
    for (const int mode : {1, 2}) {
        NotingDialogs dialogs;
        TestWorld world({.dialogs = &dialogs});
        dialogs.zormod = &world.zormod;
        dialogs.expectedMessages = 1;
        world.writeFile("zorTalk", " " + std::to_string(mode) + " \r\n");
        EditScreen edit{world.zormod};
        connectPositionBoxes(edit);
        enterProgram(world.zormod);
        openFromCommandLine(edit, u"none.txt");
        EXPECT_EQ(dialogs.modeWhenTold, mode);
        EXPECT_EQ(world.zormod.speech.speechMode, mode);
    }
}

TEST(Entry, ADataFileThatCantBeOpenedIsToldWithItsName) {
    EntryWorld world;
    world.makeTable("t.txt", shape, {});
    std::filesystem::remove(world.native("t.txt"));
    std::filesystem::create_directory(world.native("t.txt"));
    world.dialogs.expectedMessages = 1;
    world.open(u"t.txt");
    ASSERT_EQ(world.dialogs.messages.size(), 1u);
    const Text name = (world.zormod.file.programFolder + u"t.txt").substr(2);
    EXPECT_EQ(world.dialogs.messages[0].text, name + u"はﾛﾐｶﾌｧｲﾙではありません");
    EXPECT_FALSE(hasTable(world.zormod));
}

TEST(Entry, ATableThatFailsWhileItIsShownEndsTheProgramWithItsReport) {
    EntryWorld world;
    world.makeTable("t.txt", shape, {{u"1", u"x"}});
    FaultyFiles faulty(world.files);
    // Opens the table with a fault at the `failing`th call, or with none, and gives the number of calls.
    const auto openWithFault = [&](int failing) {
        ZORMOD zormod(Platform{world.clipboard, world.clock, world.beeper, faulty, world.codePage, world.dialogs,
                               world.screen, world.commands, world.forms, world.eventLoop, world.printer});
        EditScreen edit{zormod};
        connectPositionBoxes(edit);
        enterProgram(zormod);
        const int before = faulty.calls();
        if (failing > 0) {
            faulty.failAt(failing, FaultyFiles::Counted::calls);
        }
        openFromCommandLine(edit, u"t.txt");
        return faulty.calls() - before;
    };
    const int calls = openWithFault(0);
    try {
        openWithFault(calls);
        ADD_FAILURE() << "the last look at the file was not missed";
    } catch (const FatalFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::file);
        EXPECT_EQ(utf8(failure.report), "コマンドラインが異常です");
    }
}

TEST(Entry, AMissingDataFileIsMadeEmpty) {
    EntryWorld world;
    world.makeTable("t.txt", shape, {});
    std::filesystem::remove(world.native("t.txt"));
    world.open(u"t.txt");
    EXPECT_TRUE(hasTable(world.zormod));
    EXPECT_TRUE(std::filesystem::exists(world.native("t.txt")));
}

TEST(Entry, ATableInUseElsewhereIsRefused) {
    EntryWorld world;
    world.makeTable("t.txt", shape, {{u"1", u"x"}});
    PosixFiles otherCopy(defaultDrives(), world.folder.path());
    const auto claim = otherCopy.lockTable(world.zormod.file.programFolder + u"t.txt");
    ASSERT_TRUE(claim);
    world.dialogs.expectedMessages = 1;
    world.open(u"t.txt");
    ASSERT_EQ(world.dialogs.messages.size(), 1u);
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "このﾌｧｲﾙは別のロミカで使用中です");
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "確認");
    EXPECT_FALSE(hasTable(world.zormod));
}

TEST(Entry, AnOpenTableIsClaimedUntilAnotherIsOpened) {
    EntryWorld world;
    world.makeTable("t.txt", shape, {{u"1", u"x"}});
    world.makeTable("u.txt", shape, {{u"1", u"x"}});
    world.open(u"t.txt");
    PosixFiles otherCopy(defaultDrives(), world.folder.path());
    EXPECT_FALSE(otherCopy.lockTable(world.zormod.file.programFolder + u"t.txt"));
    closeFile(world.zormod, 1);
    EXPECT_FALSE(otherCopy.lockTable(world.zormod.file.programFolder + u"t.txt"));
    openFromCommandLine(world.edit, u"u.txt");
    EXPECT_TRUE(otherCopy.lockTable(world.zormod.file.programFolder + u"t.txt"));
}
