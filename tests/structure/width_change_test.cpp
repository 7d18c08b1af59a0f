#include "structure/width_change.h"

#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "structure/item_operations.h"
#include "structure/task_world.h"
#include "structure/width_rewrite.h"

#include <cstdint>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Spoken = std::vector<std::string>;

/// A table of ID (4, left), 氏名 (10, left) and 年齢 (3, right).
struct WidthWorld : TaskWorld {
    explicit WidthWorld(std::int16_t speechMode = 0) {
        table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
              {{u"1", u"山田太郎", u"123"}, {u"2", u"鈴木", u"7"}, {u"3", u"abcdefghij", u"45"}});
        show(speechMode);
    }
    WidthChange& change() { return routines.width; }
    void stand(std::int16_t item) {
        zormod.position.curItem = item;
        showCurrentCell(edit);
        forget();
    }
    void press(const KeyStroke& stroke) {
        later();
        change().keyDown(stroke);
    }
    void widen() { press(shiftKey(Key::space)); }
    void narrow() { press(ctrlKey(Key::space)); }
    int width(std::int16_t item) { return zormod.items.itemWidth[item]; }
    int start(std::int16_t item) { return zormod.items.itemStart[item]; }
    /// A row of the window as the screen shows it.
    std::string shown(int row, std::size_t count = 20) {
        return utf8(codePage.decode(zormod.window.recordWindow[rowSlot(row)].substr(0, count)));
    }
    std::string onDisk(int record, std::size_t count = 256) {
        return bytesOf("t.txt").substr(static_cast<std::size_t>(record - 1) * 256, count);
    }
    std::string decoded(const std::string& bytes) { return utf8(codePage.decode(bytes)); }
    bool isOpen() const { return forms.isLoaded(u"frmFLN"); }
    void expectOver() {
        EXPECT_EQ(task(), "");
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(screen.focus, PanelField::txtinputbox);
    }
};

TEST(WidthChange, TheMenuEntryPutsWhatIsTypedAwayAndShowsTheForm) {
    WidthWorld world;
    world.edit.txtinputbox.set(u"9");
    world.run(u"mnuFLN");
    EXPECT_EQ(world.task(), "chfln");
    EXPECT_TRUE(world.isOpen());
    EXPECT_EQ(world.onDisk(1, 4), "9   ");
    EXPECT_EQ(utf8(world.edit.txtinputbox.text()), "");
    EXPECT_EQ(utf8(world.change().description()),
              "現在項目0の項目幅操作中です。ｺﾝﾄﾛｰﾙｽﾍﾟｰｽで現在の項目幅縮小、ｼﾌﾄｽﾍﾟｰｽで拡大、CRで確定、エスケープで元通りです。");
}

TEST(WidthChange, WithoutATableAndWhileATargetIsChosenItOnlyBeeps) {
    TaskWorld none;
    none.run(u"mnuFLN");
    EXPECT_EQ(none.beeps(), 1);
    EXPECT_THAT(none.forms.opened, IsEmpty());
    WidthWorld world;
    world.zormod.taskWord = u"moveitem";
    world.run(u"mnuFLN");
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.task(), "moveitem");
}

TEST(WidthChange, ShiftSpaceAndCtrlSpaceInTheInputBoxTakeOneStepAtOnce) {
    WidthWorld world(1);
    world.stand(1);
    world.key(shiftKey(Key::space));
    EXPECT_TRUE(world.isOpen());
    EXPECT_EQ(world.width(1), 11);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("Width11"));
    world.change().giveUp();
    world.forget();
    world.key(ctrlKey(Key::space));
    EXPECT_EQ(world.width(1), 9);
    EXPECT_EQ(world.task(), "chfln");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("Width9"));
}

TEST(WidthChange, AStepFromTheInputBoxDuringAChangeBelongsToIt) {
    WidthWorld world;
    world.stand(1);
    world.key(shiftKey(Key::space));
    world.table_.run(u"widenItem");
    EXPECT_EQ(world.width(1), 12);
    world.change().giveUp();
    EXPECT_EQ(world.width(1), 10);
}

TEST(WidthChange, WideningALeftItemPutsABlankBehindItsCellsInEveryRow) {
    WidthWorld world(1);
    world.stand(1);
    world.run(u"mnuFLN");
    world.forget();
    world.widen();
    EXPECT_EQ(world.shown(1, 18), "1   山田太郎   123");
    EXPECT_EQ(world.shown(3, 18), "3   abcdefghij  45");
    EXPECT_EQ(world.width(1), 11);
    EXPECT_EQ(world.start(2), 16);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("Width11"));
    EXPECT_GT(world.screen.redraws, 0);
    EXPECT_EQ(utf8(world.edit.txtWIDTH), "11");
    world.later();
    world.widen();
    EXPECT_THAT(world.takeSpoken(), ElementsAre("Width12"));
    EXPECT_EQ(world.shown(1, 19), "1   山田太郎    123");
}

TEST(WidthChange, WideningAnyOtherItemPutsTheBlankInFront) {
    for (const Text& align : {Text(u"R"), Text(u"x")}) {
        WidthWorld world;
        world.zormod.items.itemAlign[2] = align;
        world.stand(2);
        world.run(u"mnuFLN");
        world.widen();
        EXPECT_EQ(world.shown(1, 18), "1   山田太郎   123");
        EXPECT_EQ(world.width(2), 4);
    }
}

TEST(WidthChange, ARowOfSlashesStaysOne) {
    WidthWorld world;
    world.stand(1);
    world.run(u"mnuFLN");
    world.widen();
    EXPECT_EQ(world.shown(5, 19), "////////////////// ");
    world.narrow();
    world.narrow();
    EXPECT_EQ(world.shown(5, 18), "////////////////  ");
}

TEST(WidthChange, NarrowingKeepsTheFirstBytesOfALeftAndTheLastOfAnyOtherItem) {
    WidthWorld world(1);
    world.stand(1);
    world.run(u"mnuFLN");
    world.forget();
    world.narrow();
    EXPECT_EQ(world.shown(3, 16), "3   abcdefghi 45");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("Width9"));
    world.change().giveUp();
    world.stand(2);
    world.run(u"mnuFLN");
    world.narrow();
    EXPECT_EQ(world.shown(1, 16), "1   山田太郎  23");
    EXPECT_EQ(world.width(2), 2);
}

TEST(WidthChange, AnItemOfWidth1StaysAsItIsWithoutAWord) {
    WidthWorld world(1);
    world.stand(2);
    world.run(u"mnuFLN");
    world.narrow();
    world.narrow();
    EXPECT_EQ(world.width(2), 1);
    world.forget();
    world.narrow();
    EXPECT_EQ(world.width(2), 1);
    EXPECT_EQ(world.beeps(), 0);
    EXPECT_THAT(world.takeSpoken(), IsEmpty());
}

TEST(WidthChange, AStepPastASumOf254BeepsAndDoesNothing) {
    WidthWorld world(1);
    world.table({{u"ID", u"L", 100}, {u"氏名", u"L", 153}}, {{u"1", u"a"}});
    world.show(1);
    world.run(u"mnuFLN");
    world.widen();
    EXPECT_EQ(world.width(0), 101);
    EXPECT_EQ(world.beeps(), 0);
    world.forget();
    const Bytes row = world.zormod.window.recordWindow[rowSlot(1)];
    world.widen();
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.width(0), 101);
    EXPECT_EQ(world.zormod.window.recordWindow[rowSlot(1)], row);
    EXPECT_THAT(world.takeSpoken(), IsEmpty());
}

TEST(WidthChange, OtherKeysDoNothingAndTabGoesOn) {
    WidthWorld world;
    world.run(u"mnuFLN");
    for (const KeyStroke& stroke : {plainKey(Key::space), plainKey(Key::a), shiftKey(Key::enter), plainKey(Key::left)}) {
        EXPECT_EQ(world.change().keyDown(stroke), KeyOutcome::taken);
    }
    EXPECT_EQ(world.width(0), 4);
    EXPECT_EQ(world.task(), "chfln");
    for (const KeyStroke& stroke : {plainKey(Key::tab), shiftKey(Key::tab), plainKey(Key::control)}) {
        EXPECT_EQ(world.change().keyDown(stroke), KeyOutcome::goesOn);
    }
}

TEST(WidthChange, GivingUpLeavesTheFilesAsTheyWere) {
    WidthWorld world;
    const std::string data = world.bytesOf("t.txt");
    const std::string items = world.bytesOf("kt.txt");
    world.stand(1);
    world.run(u"mnuFLN");
    world.widen();
    world.widen();
    world.change().giveUp();
    world.expectOver();
    EXPECT_EQ(world.width(1), 10);
    EXPECT_EQ(world.start(2), 15);
    EXPECT_EQ(world.shown(1, 17), "1   山田太郎  123");
    EXPECT_EQ(utf8(world.edit.txtWIDTH), "10");
    EXPECT_EQ(world.bytesOf("t.txt"), data);
    EXPECT_EQ(world.bytesOf("kt.txt"), items);
}

TEST(WidthChange, GoingBackToTheStartStaysInTheForm) {
    WidthWorld world;
    world.stand(1);
    world.run(u"mnuFLN");
    world.narrow();
    world.narrow();
    world.change().takeWidthsBefore();
    EXPECT_EQ(world.task(), "chfln");
    EXPECT_TRUE(world.isOpen());
    EXPECT_EQ(world.width(1), 10);
    // What the steps had cut off is there again.
    EXPECT_EQ(world.shown(3, 17), "3   abcdefghij 45");
    world.widen();
    EXPECT_EQ(world.width(1), 11);
}

TEST(WidthChange, AFormThatIsClosedGivesUp) {
    WidthWorld world;
    world.stand(1);
    world.run(u"mnuFLN");
    world.widen();
    world.change().closed();
    world.expectOver();
    EXPECT_EQ(world.width(1), 10);
    world.zormod.items.itemWidth[1] = 9;
    world.change().closed();
    EXPECT_EQ(world.width(1), 9);
}

TEST(WidthChange, AChangeThatSomethingElseHasEndedOnlyClosesItsForm) {
    for (int action = 0; action < 6; ++action) {
        WidthWorld world;
        world.run(u"mnuFLN");
        world.zormod.taskWord.clear();
        const std::string data = world.bytesOf("t.txt");
        void (WidthChange::*const actions[])() = {&WidthChange::widen,           &WidthChange::narrow,
                                                  &WidthChange::takeWidthsAsRead, &WidthChange::apply,
                                                  &WidthChange::giveUp,           &WidthChange::takeWidthsBefore};
        (world.change().*actions[action])();
        world.expectOver();
        EXPECT_EQ(world.width(0), 4);
        EXPECT_EQ(world.bytesOf("t.txt"), data);
    }
}

TEST(WidthChange, EnterWritesEveryRecordInTheNewWidthsWithItsLineEndDirectlyBehind) {
    WidthWorld world(1);
    world.stand(1);
    world.run(u"mnuFLN");
    world.narrow();
    world.narrow();
    world.narrow();
    world.forget();
    world.press(plainKey(Key::enter));
    EXPECT_EQ(world.decoded(world.onDisk(3)), "3   abcdefg 45\r\n" + std::string(240, ' '));
    EXPECT_EQ(world.onDisk(1).substr(0, 16), world.codePage.encode(u"1   山田太") + "\x98" + "123\r\n");
    EXPECT_EQ(world.bytesOf("t.txt").size(), 3U * 256);
    EXPECT_EQ(world.decoded(world.bytesOf("kt.txt")),
              "100  ' 0,memo,, 2\r\n1000 'ID,L\r\n1001 '氏名,L\r\n1002 '年齢,R\r\n2000 ' 4\r\n2001 ' 7\r\n2002 ' 3\r\n");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("書き換え終了"));
    EXPECT_EQ(utf8(world.dialogs.progressNames), Spoken{"データ書き換え中  中止不可"});
    world.expectOver();
    EXPECT_EQ(world.width(1), 7);
    EXPECT_EQ(world.shown(3, 14), "3   abcdefg 45");
}

TEST(WidthChange, TheEndOfTheWorkIsHeardEvenWithoutAnInhibitTime) {
    WidthWorld world(1);
    // The clock of the test stands still between two texts; this lets the second one pass as well.
    world.zormod.speech.inhibitSeconds = -1;
    world.run(u"mnuFLN");
    world.forget();
    world.press(plainKey(Key::enter));
    EXPECT_THAT(world.takeSpoken(), ElementsAre("書き換え終了"));
}

TEST(WidthChange, ApplyingCanNotBeStopped) {
    WidthWorld world;
    world.stand(2);
    world.run(u"mnuFLN");
    world.widen();
    world.eventLoop.atTurn[2] = [&] { world.zormod.results.answers[0] = 1.0; };
    world.press(plainKey(Key::enter));
    EXPECT_EQ(world.eventLoop.turns, 3);
    EXPECT_EQ(utf8(world.dialogs.progressTexts), Spoken{" 100%完了"});
    EXPECT_EQ(world.decoded(world.onDisk(2, 20)), "2   鈴木         7\r\n");
}

TEST(WidthChange, AWidthSumOf254PutsTheLineEndAtTheEndOfTheRecord) {
    WidthWorld world;
    world.table({{u"ID", u"L", 100}, {u"氏名", u"R", 153}}, {{u"1", u"a"}});
    world.show();
    world.run(u"mnuFLN");
    world.widen();
    world.press(plainKey(Key::enter));
    EXPECT_EQ(world.bytesOf("t.txt"), "1" + std::string(252, ' ') + "a\r\n");
}

TEST(WidthChange, WidthsThatLeaveNoRoomForTheLineEndLoseTheirLastBytesToIt) {
    ItemTable old;
    old.itemCount = 1;
    old.itemAlign[0] = old.itemAlign[1] = u"L";
    old.itemWidth[0] = 200;
    old.itemWidth[1] = 56;
    computeItemStart(old);
    ItemTable made = old;
    made.itemWidth[1] = 55;
    EXPECT_EQ(resizedRecord(std::string(200, 'a') + std::string(56, 'b'), old, made),
              std::string(200, 'a') + std::string(54, 'b') + "\r\n");
}

TEST(WidthChange, AnEmptyTableIsChangedInItsItemFileAlone) {
    WidthWorld world;
    world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 6}}, {});
    world.show();
    world.run(u"mnuFLN");
    world.widen();
    world.press(plainKey(Key::enter));
    EXPECT_EQ(world.bytesOf("t.txt"), "");
    EXPECT_NE(world.bytesOf("kt.txt").find("2000 ' 5"), std::string::npos);
    world.expectOver();
}

TEST(WidthChange, TheWidthsOfTheItemFileAreAtOnceThereBeforeAnythingWasApplied) {
    WidthWorld world;
    const std::string data = world.bytesOf("t.txt");
    const std::string items = world.bytesOf("kt.txt");
    world.stand(1);
    world.run(u"mnuFLN");
    world.narrow();
    world.change().takeWidthsAsRead();
    EXPECT_EQ(world.width(1), 10);
    EXPECT_EQ(world.task(), "chfln");
    EXPECT_TRUE(world.isOpen());
    EXPECT_EQ(world.shown(3, 17), "3   abcdefghij 45");
    EXPECT_EQ(world.bytesOf("t.txt"), data);
    EXPECT_EQ(world.bytesOf("kt.txt"), items);
    EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
}

TEST(WidthChange, AnItemFileThatIsGoneComesBackWithItsWidths) {
    WidthWorld world;
    const std::string items = world.bytesOf("kt.txt");
    world.run(u"mnuFLN");
    world.files.remove(world.zormod.file.fileDrive + u":kt.txt");
    ASSERT_EQ(world.bytesOf("kt.txt"), "");
    world.change().takeWidthsAsRead();
    EXPECT_EQ(world.bytesOf("kt.txt"), items);
}

TEST(WidthChange, RecordsThatWereAppliedInOtherWidthsAreRewrittenToThoseOfTheItemFile) {
    WidthWorld world(1);
    const std::string items = world.bytesOf("kt.txt");
    world.stand(1);
    world.run(u"mnuFLN");
    world.narrow();
    world.narrow();
    world.press(plainKey(Key::enter));
    world.run(u"mnuFLN");
    // The steps that have not been applied are not in the file, and so not what is rewritten.
    world.widen();
    world.forget();
    world.change().takeWidthsAsRead();
    EXPECT_EQ(world.decoded(world.onDisk(3, 19)), "3   abcdefgh   45\r\n");
    EXPECT_EQ(world.bytesOf("kt.txt"), items);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("書き換え終了"));
    EXPECT_EQ(world.task(), "chfln");
    EXPECT_TRUE(world.isOpen());
    // What is on the disk now is what giving up goes back to.
    world.widen();
    world.change().giveUp();
    EXPECT_EQ(world.width(1), 10);
    EXPECT_EQ(world.shown(3, 17), "3   abcdefgh   45");
}

TEST(WidthChange, TheWidthsAfterAnInsertionOfItemsAreThoseThatComeBack) {
    WidthWorld world;
    world.stand(1);
    world.run(u"mnuFLN");
    world.narrow();
    world.press(plainKey(Key::enter));
    ASSERT_EQ(insertItems(world.zormod, 1, 1), BulkEnd::done);
    const std::string data = world.bytesOf("t.txt");
    world.stand(2);
    world.run(u"mnuFLN");
    world.narrow();
    world.change().takeWidthsAsRead();
    EXPECT_EQ(world.width(1), 1);
    EXPECT_EQ(world.width(2), 9);
    EXPECT_EQ(world.bytesOf("t.txt"), data);
}

/// What applying has to make of a record, from the words of the rule alone.
Bytes modelRecord(const Bytes& record, const std::vector<int>& before, const std::vector<int>& after,
                  const std::vector<Text>& aligns) {
    Bytes out;
    int from = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        Bytes cell;
        for (int j = 0; j < before[i]; ++j) {
            cell.push_back(record[static_cast<std::size_t>(from + j)]);
        }
        from += before[i];
        const bool isLeft = aligns[i] == u"L";
        while (static_cast<int>(cell.size()) < after[i]) {
            cell = isLeft ? cell + " " : " " + cell;
        }
        while (static_cast<int>(cell.size()) > after[i]) {
            isLeft ? cell.pop_back() : static_cast<void>(cell.erase(cell.begin()));
        }
        out += cell;
    }
    out += "\r\n";
    while (out.size() < 256) {
        out += ' ';
    }
    return out;
}

/// A generator of its own, the same on every machine.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}
    int upTo(int most) {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<int>((state_ >> 8) % static_cast<std::uint32_t>(most + 1));
    }

private:
    std::uint32_t state_;
};

TEST(WidthChange, RandomStepsOnRandomTablesGiveTheBytesOfTheRule) {
    for (std::uint32_t round = 0; round < 150; ++round) {
        Dice dice(round);
        TaskWorld world;
        std::vector<TestWorld::Item> items;
        std::vector<int> before;
        std::vector<Text> aligns;
        const int count = 1 + dice.upTo(5);
        for (int i = 0; i <= count; ++i) {
            static constexpr std::u16string_view kinds[] = {u"L", u"R", u"x"};
            const auto align = kinds[dice.upTo(2)];
            before.push_back(1 + dice.upTo(11));
            items.push_back({u"項", align, before.back()});
            aligns.emplace_back(align);
        }
        world.makeTable("t.txt", items, {});
        std::string data;
        const int records = dice.upTo(6);
        for (int record = 0; record < records; ++record) {
            static constexpr std::u16string_view words[] = {u"山", u"田", u"a", u" ", u"7", u"ｱ", u"語", u"/"};
            Text text;
            while (world.codePage.byteLength(text) < 100) {
                text += words[dice.upTo(7)];
            }
            data += world.codePage.encode(text).substr(0, 100) + std::string(154, ' ') + "\r\n";
        }
        world.writeFile("t.txt", data);
        world.openTable("t.txt");
        world.show();
        std::vector<int> after = before;
        const auto item = static_cast<std::size_t>(dice.upTo(count));
        world.zormod.position.curItem = static_cast<std::int16_t>(item);
        world.run(u"mnuFLN");
        for (int steps = 1 + dice.upTo(6); steps > 0; --steps) {
            const bool isWider = dice.upTo(1) == 1;
            isWider ? world.routines.width.widen() : world.routines.width.narrow();
            after[item] = isWider ? after[item] + 1 : std::max(1, after[item] - 1);
        }
        world.routines.width.apply();
        std::string expected;
        std::string widths;
        for (int record = 0; record < records; ++record) {
            expected += modelRecord(data.substr(static_cast<std::size_t>(record) * 256, 256), before, after, aligns);
        }
        ASSERT_EQ(world.bytesOf("t.txt"), expected) << "round " << round;
        for (std::size_t i = 0; i < after.size(); ++i) {
            widths += std::to_string(2000 + i) + " ' " + std::to_string(after[i]) + "\r\n";
        }
        const std::string file = world.bytesOf("kt.txt");
        ASSERT_EQ(file.substr(file.find("2000 '")), widths) << "round " << round;
    }
}

} // namespace
