#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const Text noTableText = u"ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です";

/// A world in which "Kt.txt" can be written by hand and read.
struct ItemFileWorld : TestWorld {
    Bytes encoded(TextView text) { return codePage.encode(text); }
    Result read(BytesView itemFile) {
        writeFile("Kt.txt", itemFile);
        return readItemFile(zormod, zormod.file.programFolder.substr(2) + u"t.txt", u"C");
    }
    Result readOther(BytesView itemFile) {
        writeFile("Kt.txt", itemFile);
        return readOtherItemFile(zormod, zormod.file.programFolder.substr(2) + u"t.txt", u"C");
    }
    /// A file with `count` in its head and items 0..items of width `width`.
    Bytes plainFile(int count, int items, int width) {
        std::ostringstream out;
        out << "100  ' 0,memo,, " << count << "\r\n";
        for (int i = 0; i <= items; ++i) {
            out << 1000 + i << " 'n" << i << ",L\r\n";
        }
        for (int i = 0; i <= items; ++i) {
            out << 2000 + i << " ' " << width << "\r\n";
        }
        return out.str();
    }
    void expectRefusal(BytesView itemFile, TextView title, TextView text) {
        dialogs.messages.clear();
        dialogs.expectedMessages = 1;
        const int beeps = beeper.count;
        const double slept = clock.slept;
        EXPECT_EQ(read(itemFile), u"error");
        ASSERT_EQ(dialogs.messages.size(), 1u);
        EXPECT_EQ(utf8(dialogs.messages[0].title), utf8(title));
        EXPECT_EQ(utf8(dialogs.messages[0].text), utf8(text));
        EXPECT_EQ(beeper.count, beeps + 1);
        EXPECT_GE(clock.slept - slept, 0.2);
    }
};

/// Notes what had come before a message.
class NotingDialogs : public ScriptedDialogs {
public:
    void showMessage(const Text& text, const Text& title) override {
        beepsBefore = world->beeper.count;
        sleptBefore = world->clock.slept;
        ScriptedDialogs::showMessage(text, title);
    }
    const TestWorld* world = nullptr;
    int beepsBefore = 0;
    double sleptBefore = 0;
};

const TextView example = u"100  ' 0,名簿,, 2\r\n"
                         u"1000 'ID,L\r\n"
                         u"1001 '氏名,L\r\n"
                         u"1002 '年齢,R\r\n"
                         u"2000 ' 6\r\n"
                         u"2001 ' 20\r\n"
                         u"2002 ' 3\r\n";

} // namespace

TEST(ItemFile, ReadsMemoNamesAlignmentsAndWidths) {
    ItemFileWorld world;
    EXPECT_EQ(world.read(world.encoded(example)), u"");
    const ItemTable& items = world.zormod.items;
    EXPECT_EQ(items.itemCount, 2);
    EXPECT_EQ(world.zormod.file.tableMemo, u"名簿");
    EXPECT_EQ(items.itemName[0], u"ID");
    EXPECT_EQ(items.itemName[1], u"氏名");
    EXPECT_EQ(items.itemName[2], u"年齢");
    EXPECT_EQ(items.itemAlign[1], u"L");
    EXPECT_EQ(items.itemAlign[2], u"R");
    EXPECT_EQ(items.itemWidth[0], 6);
    EXPECT_EQ(items.itemWidth[1], 20);
    EXPECT_EQ(items.itemWidth[2], 3);
    EXPECT_EQ(items.itemWidthAsRead[1], 20);
}

TEST(ItemFile, WritesTheSameBytesThatItReads) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.encoded(example)), u"");
    writeItemFile(world.zormod, world.zormod.file.programFolder.substr(2) + u"copy.txt", u"C");
    EXPECT_EQ(world.bytesOf("kcopy.txt"), world.encoded(example));
    EXPECT_EQ(world.zormod.writeFlag, u"");
}

TEST(ItemFile, WriterSpellsASmallLetterInAFolderAndACapitalWithoutOne) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.encoded(example)), u"");
    writeItemFile(world.zormod, world.zormod.file.programFolder.substr(2) + u"a.txt", u"C");
    EXPECT_FALSE(world.bytesOf("ka.txt").empty());
    writeItemFile(world.zormod, u"b.txt", u"C");
    EXPECT_FALSE(world.bytesOf("Kb.txt").empty());
}

TEST(ItemFile, AnExistingFileKeepsTheCaseOfItsName) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.encoded(example)), u"");
    world.zormod.file.tableMemo = u"new";
    writeItemFile(world.zormod, world.zormod.file.programFolder.substr(2) + u"t.txt", u"C");
    EXPECT_NE(world.bytesOf("Kt.txt").find(",new,"), std::string::npos);
    EXPECT_TRUE(world.bytesOf("kt.txt").empty());
}

TEST(ItemFile, OfTwoFilesThatDifferInCaseTheOneThatIsReadIsWritten) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.encoded(example)), u"");
    const std::string other = world.bytesOf("Kt.txt");
    world.writeFile("kt.txt", "of somebody else");
    world.zormod.file.tableMemo = u"new";
    const Text name = world.zormod.file.programFolder.substr(2) + u"t.txt";
    writeItemFile(world.zormod, name, u"C");
    EXPECT_NE(world.bytesOf("Kt.txt").find(",new,"), std::string::npos);
    EXPECT_EQ(world.bytesOf("kt.txt"), "of somebody else");
    world.zormod.file.tableMemo.clear();
    EXPECT_EQ(readItemFile(world.zormod, name, u"C"), u"");
    EXPECT_EQ(world.zormod.file.tableMemo, u"new");
}

TEST(ItemFile, PathsPutTheLetterBeforeTheName) {
    ItemFileWorld world;
    world.zormod.file.fileDrive = u"D";
    world.zormod.file.otherFileDrive = u"E";
    EXPECT_EQ(itemFilePath(world.zormod, u"\\data\\meibo.txt"), u"D:\\data\\Kmeibo.txt");
    EXPECT_EQ(itemFilePath(world.zormod, u"meibo.txt"), u"D:Kmeibo.txt");
    EXPECT_EQ(otherItemFilePath(world.zormod, u"\\meibo.txt"), u"E:\\Kmeibo.txt");
}

TEST(ItemFile, RefusesAnApostropheAtAnotherPlace) {
    ItemFileWorld world;
    for (const char* head : {"100 ' 0,m,, 0\r\n", "100   ' 0,m,, 0\r\n", "100 0,m,, 0\r\n"}) {
        world.expectRefusal(std::string(head) + "1000 'ID,L\r\n2000 ' 6\r\n", u"項目ﾌｧｲﾙ読込エラー", noTableText);
    }
}

TEST(ItemFile, RefusesANumberBelow100InFront) {
    ItemFileWorld world;
    world.expectRefusal(" 99  ' 0,m,, 0\r\n1000 'ID,L\r\n2000 ' 6\r\n", u"項目ﾌｧｲﾙ読込エラー", noTableText);
    world.expectRefusal("099  ' 0,m,, 0\r\n1000 'ID,L\r\n2000 ' 6\r\n", u"項目ﾌｧｲﾙ読込エラー", noTableText);
    EXPECT_EQ(world.read("999  ' 0,m,, 0\r\n1000 'ID,L\r\n2000 ' 6\r\n"), u"");
}

TEST(ItemFile, RefusesItemCountsOutsideItsLimits) {
    ItemFileWorld world;
    world.expectRefusal(world.plainFile(-1, 0, 1), u"項目ﾌｧｲﾙ読込エラー", noTableText);
    world.expectRefusal(world.plainFile(255, 255, 1), u"項目ﾌｧｲﾙ読込エラー", noTableText);
    EXPECT_EQ(world.read(world.plainFile(254, 254, 1)), u"");
    EXPECT_EQ(world.zormod.items.itemCount, 254);
    EXPECT_EQ(world.read(world.plainFile(0, 0, 1)), u"");
    EXPECT_EQ(world.zormod.items.itemCount, 0);
}

TEST(ItemFile, ACountBeyondSixteenBitsTakesTheFailurePath) {
    ItemFileWorld world;
    world.expectRefusal("100  ' 0,m,, 40000\r\n", u"項目挿入不可能", noTableText);
    world.expectRefusal("100  ' 0,m,, 1E999\r\n", u"項目挿入不可能", noTableText);
}

TEST(ItemFile, AcceptsAWidthSumOf256AndRefuses257) {
    ItemFileWorld world;
    EXPECT_EQ(world.read(world.plainFile(1, 1, 128)), u"");
    EXPECT_EQ(world.read("100  ' 0,m,, 1\r\n1000 'a,L\r\n1001 'b,L\r\n2000 ' 128\r\n2001 ' 127\r\n"), u"");
    world.expectRefusal("100  ' 0,m,, 1\r\n1000 'a,L\r\n1001 'b,L\r\n2000 ' 128\r\n2001 ' 129\r\n", u"ﾌｧｲﾙ長エラー",
                        u" 256文字ﾌｧｲﾙでありません.");
}

TEST(ItemFile, AWidthBelowZeroOrBeyondSixteenBitsTakesTheFailurePath) {
    ItemFileWorld world;
    world.expectRefusal("100  ' 0,m,, 0\r\n1000 'a,L\r\n2000 '-5\r\n", u"項目挿入不可能", noTableText);
    world.expectRefusal("100  ' 0,m,, 0\r\n1000 'a,L\r\n2000 '40000\r\n", u"項目挿入不可能", noTableText);
}

TEST(ItemFile, LineLabelsAreNeverLookedAt) {
    ItemFileWorld world;
    EXPECT_EQ(world.read("100  'abc,m,x, 1\r\n7777 'a,L\r\nxxxx 'b,R\r\n0000 ' 3\r\n9.9. ' 4\r\n"), u"");
    EXPECT_EQ(world.zormod.items.itemName[1], u"b");
    EXPECT_EQ(world.zormod.items.itemWidth[0], 3);
    EXPECT_EQ(world.zormod.items.itemWidth[1], 4);
}

TEST(ItemFile, ACommaInTheMemoMovesTheCountOutOfItsPlace) {
    ItemFileWorld world;
    // The memo "a,3" makes the third field "3" and the fourth the empty one, which counts as 0.
    EXPECT_EQ(world.read("100  ' 0,a,3,, 2\r\n1000 'x,L\r\n2000 ' 1\r\n"), u"");
    EXPECT_EQ(world.zormod.file.tableMemo, u"a");
    EXPECT_EQ(world.zormod.items.itemCount, 0);
    // The field that follows is then the real count, whose characters from the seventh are nothing.
    EXPECT_EQ(world.zormod.items.itemName[0], u"");
}

TEST(ItemFile, ACommaInANameBecomesTheAlignmentAndShiftsTheRest) {
    ItemFileWorld world;
    EXPECT_EQ(world.read("100  ' 0,m,, 1\r\n1000 'a,b,L\r\n1001 'c,R\r\n2000 ' 3\r\n2001 ' 4\r\n"), u"");
    const ItemTable& items = world.zormod.items;
    EXPECT_EQ(items.itemName[0], u"a");
    EXPECT_EQ(items.itemAlign[0], u"b");
    EXPECT_EQ(items.itemName[1], u"");
    EXPECT_EQ(items.itemAlign[1], u"1001 'c");
    EXPECT_EQ(items.itemWidth[0], 0);
    EXPECT_EQ(items.itemWidth[1], 3);
}

TEST(ItemFile, ABlankAheadOfAFieldGoesAwayAndOneBehindItStays) {
    ItemFileWorld world;
    EXPECT_EQ(world.read("100  ' ,  ,t.txt,0\r\n1000 'a b ,  L \r\n2000 ' 5\r\n"), u"");
    EXPECT_EQ(world.zormod.file.tableMemo, u"");
    EXPECT_EQ(world.zormod.items.itemName[0], u"a b ");
    EXPECT_EQ(world.zormod.items.itemAlign[0], u"L ");
}

TEST(ItemFile, ANameOfMoreThan248CharactersIsCut) {
    ItemFileWorld world;
    EXPECT_EQ(world.read("100  ' 0,m,, 0\r\n1000 '" + std::string(300, 'x') + ",L\r\n2000 ' 5\r\n"), u"");
    EXPECT_EQ(world.zormod.items.itemName[0], Text(248, u'x'));
}

TEST(ItemFile, OnlyFiveCharactersOfAWidthAreRead) {
    ItemFileWorld world;
    EXPECT_EQ(world.read("100  ' 0,m,, 0\r\n1000 'a,L\r\n2000 '   12345\r\n"), u"");
    EXPECT_EQ(world.zormod.items.itemWidth[0], 12);
}

TEST(ItemFile, TakesEveryKindOfLineEndAndALastLineWithoutOne) {
    ItemFileWorld world;
    for (const char* end : {"\r\n", "\r", "\n"}) {
        const std::string e = end;
        EXPECT_EQ(world.read("100  ' 0,m,, 0" + e + "1000 'a,L" + e + "2000 ' 7"), u"");
        EXPECT_EQ(world.zormod.items.itemWidth[0], 7);
        EXPECT_EQ(world.zormod.items.itemAlign[0], u"L");
    }
}

TEST(ItemFile, AFileThatEndsEarlyIsRefusedAtEveryLength) {
    ItemFileWorld world;
    const Bytes whole = world.encoded(example);
    // The last line may lack its end and even its number: a line without an end counts, and no digit is worth 0.
    const std::size_t lastLine = whole.rfind("2002");
    for (std::size_t length = 0; length <= lastLine; ++length) {
        world.expectRefusal(BytesView(whole).substr(0, length), u"項目挿入不可能", noTableText);
    }
    for (std::size_t length = lastLine + 1; length <= whole.size(); ++length) {
        EXPECT_EQ(world.read(BytesView(whole).substr(0, length)), u"") << length;
    }
}

TEST(ItemFile, AMissingFileAndNoiseAreRefused) {
    ItemFileWorld world;
    world.dialogs.expectedMessages = 1;
    EXPECT_EQ(readItemFile(world.zormod, world.zormod.file.programFolder.substr(2) + u"none.txt", u"C"), u"error");
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "項目挿入不可能");
    std::string noise;
    for (int i = 0; i < 5000; ++i) {
        noise += static_cast<char>((i * 7919) >> 3);
    }
    world.dialogs.expectedMessages = 1;
    EXPECT_EQ(world.read(noise), u"error");
}

TEST(ItemFile, TheOlderFormWithoutAnApostropheIsRefused) {
    ItemFileWorld world;
    world.expectRefusal("100,a,b,1\r\nID,L\r\nname,L\r\n", u"項目ﾌｧｲﾙ読込エラー", noTableText);
}

TEST(ItemFile, ARefusalWaitsTheInhibitTimeAndBeepsBeforeItIsTold) {
    NotingDialogs dialogs;
    TestWorld world({.dialogs = &dialogs});
    dialogs.world = &world;
    dialogs.expectedMessages = 1;
    world.zormod.speech.inhibitSeconds = 0.7;
    EXPECT_EQ(readItemFile(world.zormod, world.zormod.file.programFolder.substr(2) + u"none.txt", u"C"), u"error");
    EXPECT_NEAR(dialogs.sleptBefore, 0.7, 0.01);
    EXPECT_EQ(dialogs.beepsBefore, 1);
}

TEST(ItemFile, ARefusalClosesEveryFileAndKeepsWhatWasRead) {
    ItemFileWorld world;
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 4}}, {{u"1", u"x"}});
    ASSERT_TRUE(hasTable(world.zormod));
    world.expectRefusal("100  ' 0,m,, 2\r\n1000 'p,L\r\n1001 'q,R\r\n", u"項目挿入不可能", noTableText);
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_EQ(world.zormod.items.itemCount, 2);
    EXPECT_EQ(world.zormod.items.itemName[1], u"q");
}

TEST(ItemFile, WidthsAreClearedBeforeReadingExceptThatOfTheIdItem) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.plainFile(3, 3, 9)), u"");
    world.expectRefusal("100  ' 0,m,, 2\r\n1000 'p,L\r\n", u"項目挿入不可能", noTableText);
    EXPECT_EQ(world.zormod.items.itemWidth[0], 9);
    EXPECT_EQ(world.zormod.items.itemWidth[3], 0);
}

TEST(ItemFile, TheOtherFileLeavesTheTableAloneAndComputesStarts) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.plainFile(0, 0, 7)), u"");
    world.zormod.file.tableMemo = u"mine";
    EXPECT_EQ(world.readOther(world.encoded(example)), u"");
    EXPECT_EQ(world.zormod.items.itemCount, 0);
    EXPECT_EQ(world.zormod.items.itemWidth[0], 7);
    EXPECT_EQ(world.zormod.file.tableMemo, u"mine");
    EXPECT_EQ(world.zormod.otherItems.itemStart[0], 1);
    EXPECT_EQ(world.zormod.otherItems.itemStart[1], 7);
    EXPECT_EQ(world.zormod.otherItems.itemStart[2], 27);
}

TEST(ItemFile, TheOtherFilesFailureHasItsOwnTitleWhateverTheTask) {
    for (const char16_t* task : {u"", u"delfile"}) {
        ItemFileWorld world;
        world.zormod.taskWord = task;
        world.dialogs.expectedMessages = 1;
        EXPECT_EQ(world.readOther("100  ' 0,m,, 2\r\n"), u"error");
        EXPECT_EQ(utf8(world.dialogs.messages[0].title), "エラーです");
        EXPECT_EQ(world.beeper.count, 1);
    }
}

TEST(ItemFile, TheOtherFilesWidthsAreNotCleared) {
    ItemFileWorld world;
    ASSERT_EQ(world.readOther(world.plainFile(3, 3, 9)), u"");
    ASSERT_EQ(world.readOther(world.plainFile(1, 1, 5)), u"");
    EXPECT_EQ(world.zormod.otherItems.itemWidth[1], 5);
    EXPECT_EQ(world.zormod.otherItems.itemWidth[3], 9);
}

TEST(ItemFile, AFailedWriteIsTold) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.encoded(example)), u"");
    world.dialogs.expectedMessages = 1;
    writeItemFile(world.zormod, u"\\no such folder at all\\x.txt", u"C");
    ASSERT_EQ(world.dialogs.messages.size(), 1u);
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "ディスクエラー");
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "不適切なﾌｧｲﾙを指定しました。");
    EXPECT_EQ(world.zormod.writeFlag, u"er");
}

TEST(ItemFile, AWriteThatSucceedsForgetsTheFailureBeforeIt) {
    ItemFileWorld world;
    ASSERT_EQ(world.read(world.encoded(example)), u"");
    world.dialogs.expectedMessages = 1;
    writeItemFile(world.zormod, u"\\no such folder at all\\x.txt", u"C");
    ASSERT_EQ(world.zormod.writeFlag, u"er");
    writeItemFile(world.zormod, world.zormod.file.programFolder.substr(2) + u"copy.txt", u"C");
    EXPECT_EQ(world.zormod.writeFlag, u"");
}

TEST(ItemFile, StartsFollowFromWidths) {
    ItemTable items;
    items.itemCount = 3;
    items.itemWidth[0] = 6;
    items.itemWidth[1] = 20;
    items.itemWidth[2] = 0;
    items.itemWidth[3] = 3;
    computeItemStart(items);
    EXPECT_EQ(items.itemStart[0], 1);
    EXPECT_EQ(items.itemStart[1], 7);
    EXPECT_EQ(items.itemStart[2], 27);
    EXPECT_EQ(items.itemStart[3], 27);
}
