// Each effect with an offence planted, which must be told, and with the change that the operation makes.

#include "tests/monkey/made_seen.h"
#include "tests/monkey/operation_rules.h"

#include <gtest/gtest.h>

namespace {

Complaint changed(Effect effect, const Seen& before, const Seen& now, const ClipFiles& clips = {}) {
    return changedByEffect(testCodePage(), effect, before, now, clips);
}

std::string rowOf(const Seen& seen, int number) {
    return std::string(seen.record(number).substr(0, dataLength));
}

/// `seen` without records `from` to `to`.
Seen without(Seen seen, int from, int to) {
    seen.records.erase(static_cast<std::size_t>(from - 1) * recordLength,
                       static_cast<std::size_t>(to - from + 1) * recordLength);
    return seen;
}

/// `seen` with a record in front of record `number`.
Seen with(Seen seen, int number, const std::string& row) {
    seen.records.insert(static_cast<std::size_t>(number - 1) * recordLength, row + "\r\n");
    return seen;
}

const std::string blankRow(dataLength, ' ');

/// Records 2 and 3, items 1 and 2 are selected.
Seen seenWithBlock() {
    Seen seen = madeSeen();
    seen.selection = {.selectionKind = 1, .selRecordFrom = 2, .selRecordTo = 3, .selItemFrom = 1, .selItemTo = 2};
    return seen;
}

/// The same while its place is being looked for, with the user on item 2 of record 4.
Seen seenWithTarget(TextView task) {
    Seen seen = seenWithBlock();
    seen.taskWord = Text(task);
    standOn(seen, 4, 2);
    return seen;
}

/// Items 1 to 2 are selected.
Seen seenWithItems() {
    Seen seen = madeSeen();
    seen.selection = {.selectionKind = 3, .selRecordFrom = 1, .selRecordTo = 5, .selItemFrom = 1, .selItemTo = 2};
    return seen;
}

/// The table cut by other items, each record made of the cells that `cells` gives for its number.
template <typename Cells>
Seen recut(const Seen& seen, const std::vector<int>& widths, const Cells& cells, const std::string& end = "\r\n") {
    Seen made = seen;
    setItems(made, madeItems(widths));
    for (int number = 1; number <= seen.recordCount(); ++number) {
        setRecord(made, number, madeRow(made.itemTable, cells(number)), end);
    }
    return made;
}

/// A clip of two records and two items.
const ClipFiles twoByTwo{.clip = " 2 \r\n 1 \r\n 2 \r\n 2 \r\n 1 \r\n 2 \r\n\"a\"\r\n\"b\"\r\n\"c\"\r\n\"d\"\r\n"};

} // namespace

TEST(OperationRules, AnEffectIsKnownByItsCommandOrItsTask) {
    EXPECT_EQ(effectOf(madeSeen(), {u"mnuDEPAST"}), Effect::pasteTakenBack);
    EXPECT_EQ(effectOf(madeSeen(), {u"mnuSINKI", u"mnuNEW"}), Effect::designed);
    EXPECT_EQ(effectOf(madeSeen(), {u"mnuCLIP"}), Effect::none);
    EXPECT_EQ(effectOf(madeSeen(), {u"mnuFLN"}), Effect::none) << "only begins";
    Seen choosing = madeSeen();
    choosing.taskWord = u"chfln";
    EXPECT_EQ(effectOf(choosing, {}), Effect::widthsChanged);
    EXPECT_EQ(effectOf(seenWithTarget(u"move"), {}), Effect::blockPut);
}

TEST(OperationRules, TheItemFileStaysUnlessItemsChange) {
    const Seen before = madeSeen();
    Seen now = before;
    now.items = testCodePage().encode(itemFileText(before.itemTable, 3, u"another memo"));
    EXPECT_FALSE(itemFileKept(Effect::none, before, now));
    setItems(now, madeItems({4, 6, 2, 9}));
    EXPECT_TRUE(itemFileKept(Effect::none, before, now));
    EXPECT_TRUE(itemFileKept(Effect::recordsMoved, before, now));
    EXPECT_FALSE(itemFileKept(Effect::widthsChanged, before, now));
    EXPECT_FALSE(itemFileKept(Effect::designed, before, now));
}

TEST(OperationRules, OneStretchOfRecordsIsRemoved) {
    const Seen before = madeSeen();
    EXPECT_FALSE(changed(Effect::recordsRemoved, before, without(before, 2, 3)));
    EXPECT_TRUE(changed(Effect::recordsRemoved, before, without(without(before, 4, 4), 2, 2))) << "two stretches";
    Seen now = without(before, 2, 3);
    setCell(now, 1, 2, "x");
    EXPECT_TRUE(changed(Effect::recordsRemoved, before, now)) << "a record that stays";
}

TEST(OperationRules, TheRowMayBeSavedFirst) {
    Seen before = madeSeen();
    before.boxText = u"abc";
    before.boxIsEmpty = false;
    Seen now = before;
    setCell(now, 2, 1, "abc");
    EXPECT_FALSE(changed(Effect::recordsRemoved, before, without(now, 4, 5)));
    setCell(now, 2, 1, "abd");
    EXPECT_TRUE(changed(Effect::recordsRemoved, before, without(now, 4, 5)));
}

TEST(OperationRules, BlankRecordsAreAdded) {
    const Seen before = madeSeen();
    EXPECT_FALSE(changed(Effect::recordsAdded, before, with(with(before, 2, blankRow), 2, blankRow)));
    EXPECT_TRUE(changed(Effect::recordsAdded, before, with(before, 2, rowOf(before, 5))));
}

TEST(OperationRules, MovedRecordsAreTheSameOnes) {
    const Seen before = madeSeen();
    const Seen now = with(without(before, 1, 1), 4, rowOf(before, 1));
    EXPECT_FALSE(changed(Effect::recordsMoved, before, now));
    Seen twice = now;
    setRecord(twice, 1, rowOf(now, 2));
    EXPECT_TRUE(changed(Effect::recordsMoved, before, twice));
}

TEST(OperationRules, PastedRecordsAreAsManyAsTheClipHas) {
    const Seen before = madeSeen();
    const Seen one = with(before, 2, madeRow(before.itemTable, {"", "a", "b"}));
    const Seen two = with(one, 3, madeRow(before.itemTable, {"", "c", "d"}));
    EXPECT_TRUE(changed(Effect::recordsPasted, before, one, twoByTwo));
    EXPECT_FALSE(changed(Effect::recordsPasted, before, two, twoByTwo));
    EXPECT_TRUE(changed(Effect::recordsPasted, before, two)) << "no clip";
}

TEST(OperationRules, APasteCoversTheCellsOfItsClip) {
    const Seen before = madeSeen(); // on item 1 of record 2
    Seen now = before;
    setCell(now, 2, 1, "a");
    setCell(now, 2, 2, "b");
    setCell(now, 3, 2, "d");
    EXPECT_FALSE(changed(Effect::pastedOver, before, now, twoByTwo));
    EXPECT_TRUE(changed(Effect::pastedOver, before, now)) << "no clip";
    Seen offence = now;
    setCell(offence, 4, 1, "x");
    EXPECT_TRUE(changed(Effect::pastedOver, before, offence, twoByTwo)) << "behind the clip's records";
    offence = now;
    setCell(offence, 1, 1, "x");
    EXPECT_TRUE(changed(Effect::pastedOver, before, offence, twoByTwo)) << "ahead of the user";
    offence = now;
    setCell(offence, 3, 3, "x");
    EXPECT_TRUE(changed(Effect::pastedOver, before, offence, twoByTwo)) << "behind the clip's items";
    offence = now;
    setCell(offence, 3, 0, "x");
    EXPECT_TRUE(changed(Effect::pastedOver, before, offence, twoByTwo)) << "an item ahead of the user's";
}

TEST(OperationRules, APasteLengthensTheTableByWhatTheClipHas) {
    Seen before = madeSeen();
    standOn(before, 5, 1);
    Seen now = before;
    setCell(now, 5, 1, "a");
    setRecord(now, 6, madeRow(now.itemTable, {"", "c", "d"}));
    EXPECT_FALSE(changed(Effect::pastedOver, before, now, twoByTwo));
    Seen offence = now;
    setCell(offence, 6, 3, "x");
    EXPECT_TRUE(changed(Effect::pastedOver, before, offence, twoByTwo)) << "a cell of the new record";
    setRecord(now, 7, blankRow);
    EXPECT_TRUE(changed(Effect::pastedOver, before, now, twoByTwo)) << "one record more";
    EXPECT_TRUE(changed(Effect::pastedOver, before, without(before, 5, 5), twoByTwo)) << "one less";
}

TEST(OperationRules, APasteIsTakenBackFromItsBackup) {
    const Seen before = madeSeen();
    Seen now = before;
    const std::string third = madeRow(now.itemTable, {"id3", "old"});
    const std::string fourth = madeRow(now.itemTable, {"id4", "older"});
    setRecord(now, 3, third);
    setRecord(now, 4, fourth);
    const ClipFiles files{.backup = " 3 \r\n\"" + third.substr(0, 20) + "\"\r\n\"" + fourth.substr(0, 20) + "\"\r\n"};
    EXPECT_FALSE(changed(Effect::pasteTakenBack, before, now, files));
    EXPECT_TRUE(changed(Effect::pasteTakenBack, before, now)) << "no backup";
    Seen offence = now;
    setCell(offence, 4, 1, "x");
    EXPECT_TRUE(changed(Effect::pasteTakenBack, before, offence, files)) << "not what the backup holds";
    offence = now;
    setCell(offence, 5, 1, "x");
    EXPECT_TRUE(changed(Effect::pasteTakenBack, before, offence, files)) << "a row that it doesn't name";
    EXPECT_TRUE(changed(Effect::pasteTakenBack, before, without(now, 5, 5), files)) << "a record has gone";
}

TEST(OperationRules, APasteThatIsTakenBackMayLengthenTheTable) {
    const Seen before = madeSeen();
    Seen now = before;
    setRecord(now, 6, blankRow);
    const ClipFiles files{.backup = " 6 \r\n\"" + std::string(20, ' ') + "\"\r\n"};
    EXPECT_FALSE(changed(Effect::pasteTakenBack, before, now, files));
    setRecord(now, 7, blankRow);
    EXPECT_TRUE(changed(Effect::pasteTakenBack, before, now, files));
}

TEST(OperationRules, AClearedRangeIsBlank) {
    const Seen before = seenWithBlock();
    Seen now = before;
    for (const int number : {2, 3}) {
        setCell(now, number, 1, "");
        setCell(now, number, 2, "");
    }
    EXPECT_FALSE(changed(Effect::rangeCleared, before, now));
    Seen offence = now;
    setCell(offence, 3, 3, "");
    EXPECT_TRUE(changed(Effect::rangeCleared, before, offence)) << "another cell";
    offence = now;
    setCell(offence, 4, 1, "");
    EXPECT_TRUE(changed(Effect::rangeCleared, before, offence)) << "another record";
}

TEST(OperationRules, ACopiedBlockCoversItsTarget) {
    const Seen before = seenWithTarget(u"copy");
    Seen now = before;
    setCell(now, 4, 2, "na");
    setCell(now, 5, 3, "n3");
    EXPECT_FALSE(changed(Effect::blockPut, before, now));
    Seen offence = now;
    setCell(offence, 4, 1, "x");
    EXPECT_TRUE(changed(Effect::blockPut, before, offence)) << "ahead of the target";
    offence = now;
    setCell(offence, 2, 1, "");
    EXPECT_TRUE(changed(Effect::blockPut, before, offence)) << "a copy leaves its source";
}

TEST(OperationRules, AMovedBlockLeavesItsSourceBlank) {
    const Seen before = seenWithTarget(u"move");
    Seen now = before;
    setCell(now, 4, 2, "na");
    setCell(now, 2, 1, "");
    EXPECT_FALSE(changed(Effect::blockPut, before, now));
    Seen offence = now;
    setCell(offence, 2, 3, "");
    EXPECT_TRUE(changed(Effect::blockPut, before, offence)) << "another cell of the source's record";
    offence = now;
    setCell(offence, 1, 1, "");
    EXPECT_TRUE(changed(Effect::blockPut, before, offence)) << "another record";
}

TEST(OperationRules, RemovedItemsLeaveTheOthers) {
    const Seen before = seenWithItems();
    const auto rest = [](int number) { return std::vector<std::string>{madeCells(number)[0], madeCells(number)[3]}; };
    EXPECT_FALSE(changed(Effect::itemsRemoved, before, recut(before, {4, 8}, rest, "  ")));
    Seen offence = recut(before, {4, 8}, rest, "  ");
    setRecord(offence, 5, madeRow(offence.itemTable, {"id5"}), "  ");
    EXPECT_TRUE(changed(Effect::itemsRemoved, before, offence)) << "a value is lost";
    EXPECT_TRUE(changed(Effect::itemsRemoved, before, recut(before, {4, 8}, rest, "xy"))) << "bytes behind the record";
}

TEST(OperationRules, TheLineEndMovesUpByTheBytesThatAreRemoved) {
    const auto ends = [](int width, const std::string& end) {
        const auto cells = [](int number) { return std::vector<std::string>{madeCells(number)[0]}; };
        Seen before = recut(madeSeen(), {4, 8, width}, cells);
        standOn(before, 2, 1);
        before.selection = {.selectionKind = 3, .selRecordFrom = 1, .selRecordTo = 5, .selItemFrom = 2, .selItemTo = 2};
        return !changed(Effect::itemsRemoved, before, recut(before, {4, 8}, cells, end));
    };
    EXPECT_TRUE(ends(2, "\r\n"));
    EXPECT_FALSE(ends(2, "  "));
    EXPECT_TRUE(ends(3, "\n "));
    EXPECT_FALSE(ends(3, "  "));
    EXPECT_TRUE(ends(4, "  "));
    EXPECT_FALSE(ends(4, "\n "));
}

TEST(OperationRules, AddedItemsLeaveTheOthers) {
    const Seen before = seenWithItems();
    const auto cells = [](int number) {
        std::vector<std::string> made = madeCells(number);
        made.insert(made.begin() + 1, 2, "");
        return made;
    };
    EXPECT_FALSE(changed(Effect::itemsAdded, before, recut(before, {4, 1, 1, 6, 2, 8}, cells)));
    EXPECT_TRUE(changed(Effect::itemsAdded, before, recut(before, {4, 1, 1, 6, 2, 8}, madeCells)));
    EXPECT_TRUE(changed(Effect::itemsAdded, before, recut(before, {4, 1, 1, 6, 2, 8}, cells, "  "))) << "line ends";
    Seen offence = before;
    setItems(offence, madeItems({4, 1, 1, 6, 2, 8}));
    EXPECT_TRUE(changed(Effect::itemsAdded, before, offence)) << "the records were not rewritten";
}

TEST(OperationRules, MovedItemsKeepTheirValues) {
    const Seen before = seenWithItems();
    const auto cells = [](int number) {
        const std::vector<std::string> old = madeCells(number);
        return std::vector<std::string>{old[0], old[3], old[1], old[2]};
    };
    EXPECT_FALSE(changed(Effect::itemsMoved, before, recut(before, {4, 8, 6, 2}, cells)));
    Seen offence = recut(before, {4, 8, 6, 2}, cells);
    setCell(offence, 4, 3, "");
    EXPECT_TRUE(changed(Effect::itemsMoved, before, offence));
}

TEST(OperationRules, ARecutKeepsTheValues) {
    const Seen before = madeSeen();
    Seen now = before;
    for (int number = 1; number <= 5; ++number) {
        setCell(now, number, 3, "   text" + std::to_string(number));
    }
    EXPECT_FALSE(changed(Effect::itemsRecut, before, now));
    setCell(now, 3, 3, "   text");
    EXPECT_TRUE(changed(Effect::itemsRecut, before, now));
    Seen designed = before;
    setItems(designed, madeItems({4, 6, 3, 7}));
    EXPECT_FALSE(changed(Effect::itemsRecut, before, designed)) << "a design may leave the records as they are";
}

TEST(OperationRules, AChangeOfWidthsPutsTheLineEndBehindTheItems) {
    const Seen before = madeSeen();
    EXPECT_FALSE(changed(Effect::widthsChanged, before, recut(before, {4, 7, 2, 8}, madeCells, "  ")));
    EXPECT_TRUE(changed(Effect::widthsChanged, before, recut(before, {4, 7, 2, 8}, madeCells, "\r\n")));
    EXPECT_FALSE(changed(Effect::widthsChanged, before, recut(before, {4, 240, 2, 8}, madeCells, "\r\n")));
    EXPECT_FALSE(changed(Effect::widthsChanged, before, recut(before, {4, 239, 2, 8}, madeCells, "\n ")));
}

TEST(OperationRules, AChangeOfWidthsRewritesTheRecords) {
    const Seen before = madeSeen();
    Seen now = before;
    setItems(now, madeItems({4, 7, 2, 8}));
    EXPECT_TRUE(changed(Effect::widthsChanged, before, now));
    now = recut(before, {4, 7, 2, 8}, madeCells, "  ");
    setCell(now, 3, 3, "x");
    EXPECT_TRUE(changed(Effect::widthsChanged, before, now)) << "a value and a line end";
}

TEST(OperationRules, ARecordThatIsWrittenEndsInItsLineEnd) {
    Seen before = seenWithBlock();
    setRecord(before, 4, rowOf(before, 4), "  "); // as a deletion of items has left it
    Seen now = before;
    setCell(now, 2, 1, "");
    setCell(now, 2, 2, "");
    EXPECT_FALSE(changed(Effect::rangeCleared, before, now)) << "record 4 is as it was";
    setRecord(now, 2, rowOf(now, 2), "\r ");
    EXPECT_TRUE(changed(Effect::rangeCleared, before, now));
    now = without(before, 2, 2);
    EXPECT_TRUE(changed(Effect::recordsRemoved, before, now)) << "record 4 was written without one";
    setRecord(now, 3, rowOf(now, 3));
    EXPECT_FALSE(changed(Effect::recordsRemoved, before, now));
}

TEST(OperationRules, ALongTableIsLookedAtToItsEnd) {
    Seen before = madeSeen();
    for (int number = 6; number <= 1500; ++number) {
        setRecord(before, number, madeRow(before.itemTable, madeCells(number % 10)));
    }
    Seen now = before;
    setCell(now, 1500, 3, "");
    EXPECT_TRUE(changed(Effect::itemsRecut, before, now));
}
