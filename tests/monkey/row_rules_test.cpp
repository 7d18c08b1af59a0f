// Each rule of the rows with an offence planted, which it must tell, and with the nearest thing that is allowed.

#include "tests/monkey/made_seen.h"
#include "tests/monkey/quiet_rules.h"
#include "tests/monkey/row_rules.h"
#include "tests/monkey/shift_rules.h"

#include <gtest/gtest.h>

namespace {

const MonkeyKey enter{MonkeyKey::Kind::press, plainKey(Key::enter), {}};
const MonkeyKey letter{MonkeyKey::Kind::type, {}, u"a"};
const MonkeyKey ctrlArrow{MonkeyKey::Kind::press, ctrlKey(Key::down), {}};

Complaint saved(const Seen& before, const Seen& now) {
    return onlyTheRowWasSaved(testCodePage(), before, now.records);
}

Complaint typed(const Seen& before, const Seen& now, bool mayChangeRow = true) {
    return onlyTheCellWasTyped(testCodePage(), before, now, mayChangeRow);
}

Complaint entered(const Seen& before, const Seen& now) {
    return enterPutsTheTextIn(testCodePage(), before, now, enter);
}

Complaint quiet(const Seen& before, const Seen& now, const std::vector<Text>& ran = {},
                const MonkeyKey& key = ctrlArrow) {
    return changedWithoutOperation(testCodePage(), before, now, key, ran);
}

/// madeSeen with "abc" in the input box.
Seen seenWithText() {
    Seen seen = madeSeen();
    seen.boxText = u"abc";
    seen.boxIsEmpty = false;
    return seen;
}

} // namespace

TEST(RowRules, TheRowThatIsLeftMayHaveItsCellChanged) {
    const Seen before = madeSeen();
    Seen now = before;
    EXPECT_FALSE(saved(before, now));
    setCell(now, 2, 1, "new");
    EXPECT_FALSE(saved(before, now));
    setCell(now, 2, 2, "x");
    EXPECT_TRUE(saved(before, now)) << "another cell";
}

TEST(RowRules, WhatTheWindowHeldComesToTheDisk) {
    Seen before = madeSeen();
    typeCell(before, 3, "typed");
    Seen now = before;
    setCell(now, 2, 3, "typed");
    EXPECT_FALSE(saved(before, now));
    setCell(now, 2, 3, "typos");
    EXPECT_TRUE(saved(before, now));
}

TEST(RowRules, NoOtherRowMayChange) {
    const Seen before = madeSeen();
    Seen now = before;
    setCell(now, 3, 1, "new");
    EXPECT_TRUE(saved(before, now));
}

TEST(RowRules, ARowEndsInItsLineEnd) {
    const Seen before = madeSeen();
    Seen now = before;
    setRecord(now, 2, before.row, "  ");
    EXPECT_TRUE(saved(before, now));
}

TEST(RowRules, OnlyANewRowLengthensTheTable) {
    Seen before = madeSeen();
    Seen now = before;
    setRecord(now, 6, madeRow(now.itemTable, {"", "new"}));
    EXPECT_TRUE(saved(before, now)) << "the user stood in record 2";
    standOn(before, 6, 1);
    EXPECT_FALSE(saved(before, now));
    setRecord(now, 7, madeRow(now.itemTable, {"", "new"}));
    EXPECT_TRUE(saved(before, now)) << "two rows";
}

TEST(RowRules, NoRowMayGo) {
    const Seen before = madeSeen();
    Seen now = before;
    now.records.resize(now.records.size() - recordLength);
    EXPECT_TRUE(saved(before, now));
}

TEST(RowRules, OnlyTheCurrentCellOfTheWindowIsTypedInto) {
    const Seen before = madeSeen();
    Seen now = before;
    typeCell(now, 1, "new");
    EXPECT_FALSE(typed(before, now));
    EXPECT_TRUE(typed(before, now, false)) << "nothing was typed";
    EXPECT_FALSE(typed(seenWithText(), now, false)) << "what was typed before comes in later";
    typeCell(now, 0, "9");
    EXPECT_TRUE(typed(before, now)) << "another cell";
}

TEST(RowRules, EnterPutsTheTextIntoItsCell) {
    const Seen before = seenWithText();
    Seen now = before;
    EXPECT_TRUE(entered(before, now)) << "the text is lost";
    typeCell(now, 1, "abc");
    EXPECT_FALSE(entered(before, now));
    typeCell(now, 1, " abc");
    EXPECT_TRUE(entered(before, now)) << "not aligned";
    setCell(now, 2, 1, "abc");
    standOn(now, 3, 0);
    EXPECT_FALSE(entered(before, now)) << "the row was left";
    setCell(now, 2, 1, "ab");
    EXPECT_TRUE(entered(before, now)) << "cut on the disk";
}

TEST(RowRules, TheBlankingCommandBlanksItsCell) {
    const Seen before = seenWithText();
    Seen now = before;
    EXPECT_TRUE(quiet(before, now, {u"mnuCTRLD"})) << "nothing was blanked";
    typeCell(now, 1, "");
    EXPECT_FALSE(quiet(before, now, {u"mnuCTRLD"}));
    typeCell(now, 2, "");
    EXPECT_TRUE(quiet(before, now, {u"mnuCTRLD"})) << "another cell";
}

TEST(RowRules, TheBlankedRowComesToTheDiskWhenItIsLeft) {
    Seen before = madeSeen();
    standOn(before, 2, 3);
    Seen now = before;
    setCell(now, 2, 3, "");
    standOn(now, 3, 0);
    EXPECT_FALSE(quiet(before, now, {u"mnuCTRLD"}));
    setCell(now, 2, 3, "text2");
    EXPECT_TRUE(quiet(before, now, {u"mnuCTRLD"}));
}

TEST(RowRules, CellsShiftToTheRight) {
    Seen before = madeSeen();
    const Seen untouched = before;
    Seen now = before;
    now.row = madeRow(now.itemTable, {"id2", "", "na", "n2"});
    EXPECT_FALSE(quiet(untouched, now, {u"shiftCellsRight"})) << "a value is too wide for its new cell";
    before.row = madeRow(before.itemTable, {"id2", "n2", "x", "y"});
    now.row = madeRow(now.itemTable, {"id2", "", "n2", "x"});
    EXPECT_FALSE(quiet(before, now, {u"shiftCellsRight"}));
    now.row = madeRow(now.itemTable, {"id2", "", "n2", ""});
    EXPECT_TRUE(quiet(before, now, {u"shiftCellsRight"})) << "a value is lost";
    now.row = madeRow(now.itemTable, {"id3", "", "n2", "x"});
    EXPECT_TRUE(quiet(before, now, {u"shiftCellsRight"})) << "a cell ahead of it";
}

TEST(RowRules, CellsShiftToTheLeft) {
    const Seen before = madeSeen();
    Seen now = before;
    now.row = madeRow(now.itemTable, {"id2", "n2", "te", ""});
    EXPECT_FALSE(quiet(before, now, {u"shiftCellsLeft"})) << "a value is too wide for its new cell";
    Seen narrow = before;
    narrow.row = madeRow(narrow.itemTable, {"id2", "name2", "n2", "t2"});
    now.row = madeRow(now.itemTable, {"id2", "n2", "t2", ""});
    EXPECT_FALSE(quiet(narrow, now, {u"shiftCellsLeft"}));
    now.row = madeRow(now.itemTable, {"id2", "n2", "t2", "t2"});
    EXPECT_TRUE(quiet(narrow, now, {u"shiftCellsLeft"})) << "the last cell is to become blank";
}

TEST(RowRules, AShiftWritesNothingAndStays) {
    Seen before = madeSeen();
    before.row = madeRow(before.itemTable, {"id2", "n2", "x", "y"});
    Seen now = before;
    now.row = madeRow(now.itemTable, {"id2", "", "n2", "x"});
    Seen elsewhere = now;
    elsewhere.position.curItem = 2;
    EXPECT_TRUE(quiet(before, elsewhere, {u"shiftCellsRight"}));
    setCell(now, 3, 1, "new");
    EXPECT_TRUE(quiet(before, now, {u"shiftCellsRight"}));
}

TEST(RowRules, ACommandThatNoRuleKnowsOnlySavesTheRow) {
    const Seen before = madeSeen();
    Seen now = before;
    EXPECT_FALSE(quiet(before, now, {u"mnuCLIP"}));
    setCell(now, 2, 1, "new");
    EXPECT_FALSE(quiet(before, now, {u"mnuCLIP"}));
    setCell(now, 4, 1, "new");
    EXPECT_TRUE(quiet(before, now, {u"mnuCLIP"}));
}

TEST(RowRules, TheNumberingPutsAnIdIntoTheRow) {
    const Seen before = madeSeen();
    Seen now = before;
    typeCell(now, 0, "1");
    EXPECT_FALSE(quiet(before, now, {u"mnuIDAUTO"}));
    EXPECT_TRUE(quiet(before, now, {u"mnuCLIP"})) << "another command";
    EXPECT_TRUE(quiet(before, now, {}, letter)) << "typed into another cell";
    typeCell(now, 1, "1");
    EXPECT_TRUE(quiet(before, now, {u"mnuIDAUTO"})) << "another cell";
}

TEST(RowRules, TheRowsOfTheWindowFollowAWidthThatIsBeingChosen) {
    const Seen before = madeSeen();
    Seen now = before;
    now.row = madeRow(madeItems({4, 7, 2, 8}), madeCells(2));
    EXPECT_TRUE(quiet(before, now, {u"widenItem"}));
    now.taskWord = u"chfln";
    EXPECT_FALSE(quiet(before, now, {u"widenItem"}));
    setCell(now, 2, 2, "x");
    EXPECT_TRUE(quiet(before, now, {u"widenItem"})) << "nothing is written yet";
}

TEST(RowRules, ARowIsSavedWithWhatStandsInTheInputBox) {
    const Seen before = seenWithText();
    Seen wanted = before;
    setCell(wanted, 2, 1, "abc");
    EXPECT_EQ(withRowSaved(testCodePage(), before).records, wanted.records);
    EXPECT_EQ(withRowSaved(testCodePage(), madeSeen()).records, madeSeen().records);
}
