// The commands on records and cells, by the keys and entries that start them.

#include "app/record_commands.h"

#include "edit/edit_world.h"
#include "edit/input_keys.h"
#include "edit/range_keys.h"
#include "sheet/record_file.h"
#include "voice/speech_channel.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A table of four numbered records, and keys that reach the commands.
struct RecordCommandWorld : EditWorld {
    explicit RecordCommandWorld(int records = 4) {
        bindRecordCommands(table, edit);
        numbered(records);
    }
    void key(const KeyStroke& stroke) {
        down(stroke);
        const std::vector<Text> asked = std::exchange(commands.names, {});
        for (const Text& name : asked) {
            table.run(name);
        }
        up(stroke);
    }
    void selectRecords(std::int32_t from, std::int32_t to) {
        zormod.selection = {.selectionKind = 2,
                            .selRecordFrom = from,
                            .selRecordTo = to,
                            .selItemFrom = 0,
                            .selItemTo = zormod.items.itemCount};
    }
    /// The names of all records on the disk, "-" for a blank one.
    std::string names() const {
        std::string all;
        for (int record = 1; record <= static_cast<int>(recordsOnDisk()); ++record) {
            const std::string name = onDisk(record).substr(4, 10);
            all += (all.empty() ? "" : " ") + (name[0] == ' ' ? std::string("-") : name.substr(0, name.find(' ')));
        }
        return all;
    }
    void expectAtRest() const {
        EXPECT_TRUE(zormod.taskWord.empty());
        EXPECT_EQ(zormod.selection.selectionKind, 0);
        EXPECT_EQ(screen.focus, PanelField::txtinputbox);
        EXPECT_EQ(typed(), "");
    }
    CommandTable table;
};

} // namespace

TEST(RecordCommands, CtrlShiftInsInsertsABlankRecordAndSaysSo) {
    RecordCommandWorld world;
    world.stand(2, 1);
    world.zormod.speech.speechMode = 1;
    world.key(ctrlShiftKey(Key::insert));
    EXPECT_EQ(world.names(), "n1 - n2 n3 n4");
    EXPECT_EQ(world.record(), 2);
    const Spoken spoken = world.takeSpoken();
    ASSERT_FALSE(spoken.empty());
    EXPECT_EQ(spoken.back(), " 1業挿入されました。") << "the name of the box doesn't come on top of it";
    world.expectAtRest();
}

TEST(RecordCommands, WhatIsTypedIsOnTheDiskBeforeTheInsertion) {
    RecordCommandWorld world;
    world.stand(2, 1);
    world.type(u"xy");
    world.key(ctrlShiftKey(Key::insert));
    EXPECT_EQ(world.names(), "n1 - xy n3 n4");
    world.expectAtRest();
}

TEST(RecordCommands, ANewRecordBehindTheEndIsWrittenAndThenMovesOn) {
    RecordCommandWorld world;
    world.stand(5, 1);
    world.type(u"xy");
    world.table.run(u"mnuINSREC1");
    EXPECT_EQ(world.names(), "n1 n2 n3 n4 - xy");
    EXPECT_EQ(world.record(), 5);
}

TEST(RecordCommands, ManyRecordsAreInsertedAfterAQuestion) {
    RecordCommandWorld world;
    world.stand(3, 1);
    world.dialogs.texts = {u" ２"};
    world.table.run(u"mnuINSRECM");
    EXPECT_EQ(world.names(), "n1 n2 - - n3 n4");
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt), "なん記録挿入しますか？");
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定数の記録の挿入");
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), "1");
    world.expectAtRest();
}

TEST(RecordCommands, NoCountOrNoneAboveZeroDoesNothing) {
    for (const TextView command : {u"mnuINSRECM", u"mnuKILLREC1"}) {
        for (const TextView answer : {u"", u"0", u"-3", u"abc"}) {
            RecordCommandWorld world;
            world.stand(2, 1);
            world.dialogs.texts = {Text(answer)};
            world.table.run(command);
            EXPECT_EQ(world.names(), "n1 n2 n3 n4");
            EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
            world.expectAtRest();
        }
    }
}

TEST(RecordCommands, ACountThatNoTableCanHoldIsAnOverflow) {
    RecordCommandWorld world;
    world.dialogs.texts = {u"99999999999999"};
    try {
        world.table.run(u"mnuINSRECM");
        ADD_FAILURE();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::overflow);
    }
    EXPECT_EQ(world.names(), "n1 n2 n3 n4");
}

TEST(RecordCommands, DeletingFromTheCurrentRecordOnAsksHowMany) {
    RecordCommandWorld world;
    world.stand(2, 1);
    world.dialogs.texts = {u"1"};
    world.table.run(u"mnuKILLREC1");
    EXPECT_EQ(world.names(), "n1 n3 n4");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt), "今の記録から、なん記録排除しますか？");
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定数の記録の排除");
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), "1");
    EXPECT_EQ(world.bytesOf("ZORCLip").substr(0, 10), " 1 \r\n 2 \r\n");
    world.expectAtRest();
}

TEST(RecordCommands, ACountBeyondTheEndDeletesToTheLastRecord) {
    for (const TextView answer : {u"3", u"99999999999999"}) {
        RecordCommandWorld world;
        world.stand(3, 1);
        world.dialogs.texts = {Text(answer)};
        world.table.run(u"mnuKILLREC1");
        EXPECT_EQ(world.names(), "n1 n2");
        EXPECT_EQ(world.record(), 2);
    }
}

TEST(RecordCommands, BehindTheEndADeletionBeeps) {
    RecordCommandWorld world;
    world.stand(5, 1);
    world.table.run(u"mnuKILLREC1");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_THAT(world.dialogs.questions, IsEmpty());
    EXPECT_EQ(world.names(), "n1 n2 n3 n4");
    world.expectAtRest();
}

TEST(RecordCommands, DelOnAFixedRangeDeletesItAfterAYes) {
    RecordCommandWorld world;
    world.stand(3, 1);
    world.selectRecords(3, 2);
    world.dialogs.answers = {Answer::yes};
    world.key(plainKey(Key::del));
    EXPECT_EQ(world.names(), "n1 n4");
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定範囲の記録の排除");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "記録2から記録3の範囲の記録を　削除し、以後のﾃﾞｰﾀを前に詰めます。削除部はクリップファイルになります｡"
              "なお記録数の多い場合は時間がかかります。");
    world.expectAtRest();
}

TEST(RecordCommands, AnyOtherAnswerLeavesTheRecordsAndGivesTheRangeUp) {
    for (const Answer answer : {Answer::no, Answer::cancel}) {
        RecordCommandWorld world;
        world.selectRecords(2, 3);
        world.dialogs.answers = {answer};
        world.key(plainKey(Key::del));
        EXPECT_EQ(world.names(), "n1 n2 n3 n4");
        EXPECT_EQ(world.bytesOf("ZORCLip"), "");
        world.expectAtRest();
    }
}

TEST(RecordCommands, TheQuestionStandsUnderItsTaskWord) {
    RecordCommandWorld world;
    world.selectRecords(2, 3);
    std::string word;
    world.eventLoop.atTurn[1] = [&] { word = utf8(world.zormod.taskWord); };
    world.dialogs.answers = {Answer::yes};
    world.table.run(u"menuRKILL");
    EXPECT_EQ(word, "killrecord");
}

TEST(RecordCommands, AnInsertionRunsUnderItsTaskWord) {
    for (const TextView command : {TextView(u"mnuINSREC1"), TextView(u"mnuINSRECM"), insertRangeRecordsCommand}) {
        RecordCommandWorld world;
        world.selectRecords(2, 3);
        world.dialogs.texts = {u"2"};
        std::string word;
        world.eventLoop.atTurn[1] = [&] { word = utf8(world.zormod.taskWord); };
        world.table.run(command);
        EXPECT_EQ(word, "insertrecord") << utf8(command);
        world.expectAtRest();
        world.dialogs.texts.clear();
    }
}

TEST(RecordCommands, WithoutARangeOfRecordsTheUserIsToldToSelectOne) {
    for (const std::int16_t kind : {0, 1, 3}) {
        RecordCommandWorld world;
        world.selectRecords(1, 4);
        world.zormod.selection.selectionKind = kind;
        world.screen.focusCalls = 0;
        world.dialogs.expectedMessages = 1;
        world.table.run(u"menuRKILL");
        EXPECT_EQ(world.screen.focusCalls, 1) << "the input box says that it is back";
        EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "記録範囲の先指定");
        EXPECT_EQ(world.names(), "n1 n2 n3 n4");
    }
}

TEST(RecordCommands, InsOnAFixedRangeInsertsAsManyRecordsInFrontOfIt) {
    RecordCommandWorld world;
    world.stand(4, 1);
    world.selectRecords(3, 2);
    world.zormod.speech.speechMode = 1;
    world.key(plainKey(Key::insert));
    EXPECT_EQ(world.names(), "n1 - - n2 n3 n4");
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.takeSpoken().back(), " 2業挿入されました。");
    EXPECT_THAT(world.dialogs.questions, IsEmpty());
    world.expectAtRest();
}

TEST(RecordCommands, AnInsertionThatIsRefusedLeavesTheUserWhereHeWas) {
    RecordCommandWorld world;
    PosixFiles other(defaultDrives(), world.folder.path());
    const auto claim = other.lockFolder(other.currentFolder());
    world.stand(4, 1);
    world.selectRecords(2, 3);
    world.dialogs.expectedMessages = 1;
    world.key(plainKey(Key::insert));
    EXPECT_EQ(world.names(), "n1 n2 n3 n4");
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.cell(1), "n4        ");
    world.expectAtRest();
}

TEST(RecordCommands, AStopLeavesTheRecordsAndTheUserAtRest) {
    RecordCommandWorld world;
    world.stand(4, 1);
    world.selectRecords(2, 3);
    world.eventLoop.atTurn[2] = [&] { world.zormod.results.answers[0] = 1.0; };
    world.key(plainKey(Key::insert));
    EXPECT_EQ(world.names(), "n1 n2 n3 n4");
    EXPECT_EQ(world.record(), 4) << "and not where the new ones would have come";
    world.expectAtRest();
}

TEST(RecordCommands, AfterAStopFarAboveTheRowsAreThoseAroundTheUserAgain) {
    RecordCommandWorld world(60);
    world.stand(50, 1);
    world.selectRecords(2, 3);
    world.eventLoop.atTurn[2] = [&] { world.zormod.results.answers[0] = 1.0; };
    world.key(plainKey(Key::insert));
    EXPECT_EQ(world.record(), 50);
    EXPECT_GT(world.zormod.position.windowFirst, 50 - world.zormod.position.windowRows);
    EXPECT_LE(world.zormod.position.windowFirst, 50);
    EXPECT_EQ(world.cell(1), "n50       ");
    world.expectAtRest();
}

TEST(RecordCommands, InsAndDelInAnEmptyBoxShiftTheCellsOfTheRow) {
    RecordCommandWorld world;
    world.stand(2, 0);
    world.key(plainKey(Key::insert));
    EXPECT_EQ(world.cell(0), "    ");
    EXPECT_EQ(world.onDisk(2).substr(4, 2), "n2") << "nothing is written yet";
    world.key(plainKey(Key::del));
    world.key(plainKey(Key::del));
    EXPECT_EQ(world.cell(0), "n2  ");
    EXPECT_EQ(world.cell(1), "          ");
    world.key(plainKey(Key::down));
    EXPECT_EQ(world.onDisk(2).substr(0, 6), "n2    ");
}

TEST(RecordCommands, InsSaysSoAtOnceAndDelWithinTheInhibitTimeNot) {
    RecordCommandWorld world;
    world.stand(1, 0);
    world.zormod.speech.speechMode = 1;
    sayThrottled(world.zormod, u"before");
    world.table.run(shiftCellsRightCommand);
    world.table.run(shiftCellsLeftCommand);
    EXPECT_EQ(world.takeSpoken(), (Spoken{"before", "ﾃﾞｰﾀｶﾞｲﾁｺｳﾓｸﾐｷﾞｼﾌﾄｼﾏｼﾀ"}));
    world.later();
    world.table.run(shiftCellsLeftCommand);
    EXPECT_EQ(world.takeSpoken(), Spoken{"ﾃﾞｰﾀｶﾞｲﾁｺｳﾓｸﾋﾀﾞﾘｼﾌﾄｼﾏｼﾀ"});
}

TEST(RecordCommands, WithTextInTheBoxInsAndDelAreTheBoxesOwn) {
    RecordCommandWorld world;
    world.stand(2, 1);
    world.type(u"x");
    EXPECT_EQ(world.down(plainKey(Key::del)), KeyOutcome::goesOn);
    EXPECT_THAT(world.commandsRun(), IsEmpty());
}

TEST(RecordCommands, WithoutATableEachBeeps) {
    for (const TextView name : {TextView(u"mnuINSREC1"), TextView(u"mnuINSRECM"), TextView(u"mnuKILLREC1"),
                                TextView(u"menuRKILL"), insertRangeRecordsCommand}) {
        EditWorld world;
        CommandTable table;
        bindRecordCommands(table, world.edit);
        table.run(name);
        EXPECT_EQ(world.beeper.count, 1) << utf8(name);
    }
}
