#include "edit/range_keys.h"

#include "edit/edit_world.h"

namespace {

void fix(EditWorld& world, std::int16_t kind) {
    world.zormod.selection = {kind, 1, 2, 0, 1};
    world.forget();
}

TEST(RangeKeys, ShiftArrowsBeginABlockAltArrowsRecordsAndItems) {
    NumberedWorld world(3);
    for (const KeyStroke& stroke : {shiftKey(Key::up), shiftKey(Key::down), shiftKey(Key::left), shiftKey(Key::right),
                                    altKey(Key::up), altKey(Key::down), altKey(Key::left), altKey(Key::right)}) {
        EXPECT_EQ(world.down(stroke), KeyOutcome::taken);
    }
    EXPECT_EQ(world.commandsRun(),
              (Spoken{"startBlockRange", "startBlockRange", "startBlockRange", "startBlockRange", "startRecordRange",
                      "startRecordRange", "startItemRange", "startItemRange"}));
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.item(), 0);
}

TEST(RangeKeys, WithTextInTheBoxShiftLeftAndRightSelectInIt) {
    NumberedWorld world(3);
    world.type(u"a");
    EXPECT_EQ(world.down(shiftKey(Key::left)), KeyOutcome::goesOn);
    EXPECT_EQ(world.down(shiftKey(Key::right)), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), Spoken());
    EXPECT_EQ(world.down(shiftKey(Key::up)), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), Spoken{"startBlockRange"});
}

TEST(RangeKeys, TheRowIsOnTheDiskBeforeARangeBegins) {
    NumberedWorld world(3, {2, 1});
    commitCell(world.zormod, u"new");
    world.down(altKey(Key::down));
    EXPECT_EQ(world.onDisk(2), "    new          ");
}

TEST(RangeKeys, WhatIsTypedGoesIntoItsOwnCellBeforeARangeBegins) {
    for (const KeyStroke& stroke : {shiftKey(Key::down), altKey(Key::down), altKey(Key::right)}) {
        NumberedWorld world(3, {2, 1});
        world.type(u"new");
        world.down(stroke);
        EXPECT_EQ(world.onDisk(2), "    new          ");
        EXPECT_EQ(world.typed(), "") << "nothing is left over for the cell at the other end";
    }
}

TEST(RangeKeys, BehindTheEndOfTheFileARangeBeeps) {
    NumberedWorld world(3, {4, 1});
    world.zormod.display.viewMode = 1;
    EXPECT_EQ(world.down(shiftKey(Key::down)), KeyOutcome::taken);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(RangeKeys, TheCardViewRefusesARange) {
    NumberedWorld world(3);
    world.zormod.display.viewMode = 1;
    world.dialogs.expectedMessages = 1;
    EXPECT_EQ(world.down(altKey(Key::left)), KeyOutcome::taken);
    ASSERT_EQ(world.dialogs.messages.size(), 1u);
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "個別記録表示中は範囲の指定は出来ません");
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "注意");
    EXPECT_EQ(world.commandsRun(), Spoken());
    EXPECT_EQ(world.screen.focusCalls, 1) << "who can't see hears where the message has left them";
}

TEST(RangeKeys, ARangeThatIsRefusedLeavesWhatIsTypedInTheBox) {
    NumberedWorld card(3, {2, 1});
    card.type(u"new");
    card.zormod.display.viewMode = 1;
    card.dialogs.expectedMessages = 1;
    card.down(altKey(Key::down));
    EXPECT_EQ(card.typed(), "new");
    EXPECT_EQ(card.onDisk(2), "    n2           ");
    NumberedWorld behind(3, {4, 1});
    behind.type(u"new");
    behind.down(shiftKey(Key::down));
    EXPECT_EQ(behind.beeper.count, 1);
    EXPECT_EQ(behind.typed(), "new");
    EXPECT_EQ(behind.recordsOnDisk(), 3u);
}

TEST(RangeKeys, WithoutATableARangeBeeps) {
    EditWorld world;
    EXPECT_EQ(world.down(shiftKey(Key::down)), KeyOutcome::taken);
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(RangeKeys, ModifierKeysKeepAFixedRangeAndShiftAloneReadsIt) {
    NumberedWorld world(3);
    fix(world, 1);
    EXPECT_EQ(world.down(plainKey(Key::control)), KeyOutcome::goesOn);
    EXPECT_EQ(world.down(plainKey(Key::alt)), KeyOutcome::goesOn);
    EXPECT_EQ(world.down(ctrlKey(Key::shift)), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), Spoken());
    EXPECT_EQ(world.down(plainKey(Key::shift)), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), Spoken{"Hread"});
    EXPECT_EQ(world.zormod.selection.selectionKind, 1);
}

TEST(RangeKeys, ReadingKeysAndNewRangesLeaveAFixedRange) {
    NumberedWorld world(3);
    fix(world, 2);
    EXPECT_EQ(world.down(ctrlShiftKey(Key::s)), KeyOutcome::goesOn);
    EXPECT_EQ(world.down(shiftKey(Key::pageDown)), KeyOutcome::goesOn);
    EXPECT_EQ(world.down(ctrlKey(Key::pageDown)), KeyOutcome::goesOn);
    EXPECT_EQ(world.down({Key::x, false, true, true}), KeyOutcome::goesOn);
    EXPECT_EQ(world.down(shiftKey(Key::down)), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), Spoken{"startBlockRange"});
    EXPECT_EQ(world.zormod.selection.selectionKind, 2);
}

TEST(RangeKeys, CtrlFWritesTheRowAndKeepsTheRange) {
    NumberedWorld world(3, {2, 1});
    commitCell(world.zormod, u"new");
    fix(world, 1);
    EXPECT_EQ(world.down(ctrlKey(Key::f)), KeyOutcome::taken);
    EXPECT_EQ(world.onDisk(2), "    new          ");
    EXPECT_EQ(world.commandsRun(), Spoken{"mnuF"});
    EXPECT_EQ(world.zormod.selection.selectionKind, 1);
}

TEST(RangeKeys, AnyOtherKeyGivesTheRangeUpAndIsNotTyped) {
    NumberedWorld world(3, {2, 1}, 1);
    world.type(u"abc");
    fix(world, 1);
    world.screen.maskHides = 0;
    world.type(u"x");
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.selection.selRecordFrom, 0);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 0);
    EXPECT_EQ(world.zormod.selection.selItemFrom, 0);
    EXPECT_EQ(world.zormod.selection.selItemTo, 0);
    EXPECT_EQ(world.screen.maskHides, 1);
    EXPECT_GT(world.screen.redraws, 0);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.cell(1), "n2        ");
}

TEST(RangeKeys, EscGivesTheRangeUpAndDoesNotEndTheProgram) {
    NumberedWorld world(3);
    fix(world, 3);
    EXPECT_EQ(world.down(plainKey(Key::escape)), KeyOutcome::taken);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
}

TEST(RangeKeys, InsOnABlockGivesItUp) {
    NumberedWorld world(3);
    fix(world, 1);
    EXPECT_EQ(world.down(plainKey(Key::insert)), KeyOutcome::taken);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(RangeKeys, DelActsByTheKindOfTheRange) {
    NumberedWorld world(3);
    for (const std::int16_t kind : {1, 2, 3}) {
        world.zormod.selection.selectionKind = kind;
        EXPECT_EQ(world.down(plainKey(Key::del)), KeyOutcome::taken);
        EXPECT_EQ(world.zormod.selection.selectionKind, kind);
    }
    EXPECT_EQ(world.commandsRun(), (Spoken{"mnuZDEL", "menuRKILL", "mnuKILLITEM"}));
}

TEST(RangeKeys, InsOnRecordsWritesTheRowFirst) {
    NumberedWorld world(3, {2, 1});
    world.type(u"new");
    fix(world, 2);
    EXPECT_EQ(world.down(plainKey(Key::insert)), KeyOutcome::taken);
    EXPECT_EQ(world.onDisk(2), "    new          ");
    EXPECT_EQ(world.commandsRun(), Spoken{"insertRangeRecords"});
    fix(world, 3);
    world.down(plainKey(Key::insert));
    EXPECT_EQ(world.commandsRun(), Spoken{"mnuINSITEM"});
}

TEST(RangeKeys, ArrowsMoveOrCopyTheRange) {
    NumberedWorld world(3);
    fix(world, 1);
    for (const Key key : {Key::left, Key::right, Key::up, Key::down}) {
        EXPECT_EQ(world.down(plainKey(key)), KeyOutcome::taken);
    }
    EXPECT_EQ(world.commandsRun(), Spoken(4, "copyRangeBlock"));
    world.forget();
    for (const Key key : {Key::left, Key::right, Key::up, Key::down}) {
        EXPECT_EQ(world.down(ctrlKey(key)), KeyOutcome::taken);
    }
    EXPECT_EQ(world.commandsRun(), Spoken(4, "moveRangeBlock"));
    fix(world, 2);
    world.down(plainKey(Key::up));
    world.down(plainKey(Key::down));
    EXPECT_EQ(world.commandsRun(), (Spoken{"moveRangeRecordsUp", "moveRangeRecordsDown"}));
    fix(world, 3);
    world.down(plainKey(Key::left));
    world.down(ctrlKey(Key::right));
    EXPECT_EQ(world.commandsRun(), (Spoken{"moveRangeItemsLeft", "moveRangeItemsRight"}));
}

TEST(RangeKeys, CtrlArrowsMoveRecordsAndItemsToo) {
    NumberedWorld world(3);
    fix(world, 2);
    EXPECT_EQ(world.down(ctrlKey(Key::up)), KeyOutcome::taken);
    EXPECT_EQ(world.down(ctrlKey(Key::down)), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), (Spoken{"moveRangeRecordsUp", "moveRangeRecordsDown"}));
    fix(world, 3);
    EXPECT_EQ(world.down(ctrlKey(Key::left)), KeyOutcome::taken);
    EXPECT_EQ(world.down(plainKey(Key::right)), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), (Spoken{"moveRangeItemsLeft", "moveRangeItemsRight"}));
    EXPECT_EQ(world.zormod.selection.selectionKind, 3);
}

TEST(RangeKeys, ArrowsAcrossTheKindOfTheRangeGiveItUp) {
    NumberedWorld world(3);
    fix(world, 2);
    EXPECT_EQ(world.down(plainKey(Key::left)), KeyOutcome::taken);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.item(), 0);
    fix(world, 3);
    world.down(plainKey(Key::down));
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.record(), 1);
}

} // namespace
