#include "structure/alignment_change.h"

#include "edit/side_boxes.h"
#include "sheet/cell.h"
#include "structure/task_world.h"

#include <cstdint>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A table of ID (4, left), 氏名 (10, left) and 年齢 (4, right).
struct AlignmentWorld : TaskWorld {
    AlignmentWorld() {
        table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}},
              {{u"1", u"山田", u"12"}, {u"2", u"a b", u"7"}, {u"3", u"", u"1234"}});
        show();
    }
    void stand(std::int16_t item) {
        zormod.position.curItem = item;
        showCurrentCell(edit);
        forget();
    }
    /// Types into txtLR and presses Enter.
    void enter(const Text& text) {
        later();
        sideBoxTyped(edit, PanelField::txtLR, text);
        sideBoxKeyPress(edit, PanelField::txtLR, u'\r');
    }
    std::string row(int record, std::size_t count = 18) {
        return utf8(codePage.decode(bytesOf("t.txt").substr(static_cast<std::size_t>(record - 1) * 256, count)));
    }
    std::string align(std::int16_t item) { return utf8(zormod.items.itemAlign[item]); }
    std::string box() { return utf8(edit.txtLR); }
};

TEST(AlignmentChange, TheMenuEntryGivesTheBoxTheFocusAndSaysIt) {
    AlignmentWorld world;
    world.zormod.speech.speechMode = 1;
    world.run(u"mnuRL");
    EXPECT_EQ(world.screen.focus, PanelField::txtLR);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("L､さゆう配置ﾃｷｽﾄﾎﾞｯｸｽ"));
}

TEST(AlignmentChange, WithoutATableItBeeps) {
    TaskWorld world;
    world.run(u"mnuRL");
    world.run(u"changeAlignment");
    EXPECT_EQ(world.beeps(), 2);
}

TEST(AlignmentChange, FromLeftToRightTheTextMovesToTheRightEdgeInEveryRecord) {
    AlignmentWorld world;
    world.stand(1);
    world.enter(u"R");
    EXPECT_EQ(world.row(1), "1         山田  12");
    EXPECT_EQ(world.row(2), "2          a b   7");
    EXPECT_EQ(world.row(3), "3             1234");
    EXPECT_EQ(world.bytesOf("t.txt").substr(254, 2), "\r\n");
    EXPECT_NE(world.codePage.decode(world.bytesOf("kt.txt")).find(u"1001 '氏名,R\r\n"), Text::npos);
    EXPECT_EQ(world.align(1), "R");
    EXPECT_EQ(world.box(), "R");
    EXPECT_EQ(world.beeps(), 0);
    EXPECT_EQ(utf8(getCell(world.zormod, 1)), "      山田");
    EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
}

TEST(AlignmentChange, TheLastItemKeepsItsLineEnd) {
    AlignmentWorld world;
    world.stand(2);
    world.enter(u"L");
    EXPECT_EQ(world.row(1), "1   山田      12  ");
    EXPECT_EQ(world.bytesOf("t.txt").substr(254, 2), "\r\n");
}

TEST(AlignmentChange, EitherCaseAndWidthWillDo) {
    for (const Text& text : {Text(u"r"), Text(u"Ｒ"), Text(u"ｒ")}) {
        AlignmentWorld world;
        world.stand(1);
        world.enter(text);
        EXPECT_EQ(world.align(1), "R") << utf8(text);
        EXPECT_EQ(utf8(world.screen.fields[PanelField::txtLR]), "R");
        EXPECT_EQ(world.beeps(), 0);
    }
}

TEST(AlignmentChange, AnythingElseBeepsAndTheBoxShowsTheOldValue) {
    for (const Text& text : {Text(u"x"), Text(u""), Text(u"RL"), Text(u" R")}) {
        AlignmentWorld world;
        const std::string data = world.bytesOf("t.txt");
        world.stand(1);
        world.enter(text);
        EXPECT_EQ(world.beeps(), 1) << utf8(text);
        EXPECT_EQ(world.box(), "L");
        EXPECT_EQ(utf8(world.screen.fields[PanelField::txtLR]), "L");
        EXPECT_EQ(world.align(1), "L");
        EXPECT_EQ(world.bytesOf("t.txt"), data);
    }
}

TEST(AlignmentChange, TheSameValueChangesNothingAndKeepsWhatIsTyped) {
    AlignmentWorld world;
    world.stand(1);
    world.edit.txtinputbox.set(u"zz");
    const std::string data = world.bytesOf("t.txt");
    world.enter(u"l");
    EXPECT_EQ(world.beeps(), 0);
    EXPECT_EQ(world.box(), "L");
    EXPECT_EQ(world.bytesOf("t.txt"), data);
    EXPECT_EQ(utf8(world.edit.txtinputbox.text()), "zz");
}

TEST(AlignmentChange, WhatIsTypedIsPutAwayFirst) {
    AlignmentWorld world;
    world.stand(1);
    world.edit.txtinputbox.set(u"zz");
    world.enter(u"R");
    EXPECT_EQ(world.row(1), "1           zz  12");
    EXPECT_EQ(utf8(world.edit.txtinputbox.text()), "");
}

TEST(AlignmentChange, WhatIsTypedAndNotEnteredGoesWithTheNextMove) {
    AlignmentWorld world;
    world.stand(1);
    sideBoxTyped(world.edit, PanelField::txtLR, u"R");
    sideBoxTyped(world.edit, PanelField::txtWIDTH, u"99");
    EXPECT_EQ(world.box(), "R");
    world.stand(1);
    EXPECT_EQ(world.box(), "L");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtLR]), "L");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtWIDTH]), "10");
    EXPECT_EQ(world.align(1), "L");
}

/// What realigning has to make of a record, from the words of the rule alone: the cell without its blanks at either
/// edge of the cell, half characters staying what they are; then the whole row goes through the code page once.
Bytes modelRecord(const CodePage& codePage, const Bytes& record, int start, int width, bool isLast, bool toRight) {
    Text value = codePage.decode(record.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(width)));
    while (!value.empty() && value.front() == u' ') {
        value.erase(0, 1);
    }
    while (!value.empty() && value.back() == u' ') {
        value.pop_back();
    }
    Bytes cell = codePage.encode(value);
    while (static_cast<int>(cell.size()) < width) {
        cell = toRight ? " " + cell : cell + " ";
    }
    Bytes row = record.substr(0, static_cast<std::size_t>(start)) + cell;
    if (!isLast) {
        row += record.substr(static_cast<std::size_t>(start + width));
    }
    row = codePage.encode(codePage.decode(row)) + Bytes(256, ' ');
    return row.substr(0, 254) + "\r\n";
}

TEST(AlignmentChange, RandomTablesGiveTheBytesOfTheRule) {
    std::uint32_t state = 1;
    const auto upTo = [&state](int most) {
        state = state * 1664525U + 1013904223U;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(most + 1));
    };
    for (int round = 0; round < 150; ++round) {
        TaskWorld world;
        std::vector<TestWorld::Item> items;
        std::vector<int> starts;
        int sum = 0;
        const int count = 1 + upTo(4);
        for (int i = 0; i <= count; ++i) {
            starts.push_back(sum);
            items.push_back({u"項", upTo(1) == 0 ? u"L" : u"R", 1 + upTo(8)});
            sum += items.back().width;
        }
        world.makeTable("t.txt", items, {});
        std::string data;
        const int records = 1 + upTo(5);
        for (int record = 0; record < records; ++record) {
            static constexpr std::u16string_view words[] = {u"山", u"田", u"a", u" ", u"  ", u"ｱ", u"語", u"　"};
            Text text;
            while (world.codePage.byteLength(text) < 60) {
                text += words[upTo(7)];
            }
            data += world.codePage.encode(text).substr(0, 60) + std::string(194, ' ') + "\r\n";
        }
        world.writeFile("t.txt", data);
        world.openTable("t.txt");
        world.show();
        const auto item = static_cast<std::size_t>(upTo(count));
        world.zormod.position.curItem = static_cast<std::int16_t>(item);
        showCurrentCell(world.edit);
        const bool toRight = items[item].align == u"L";
        world.edit.txtLR = toRight ? u"R" : u"L";
        changeAlignment(world.edit);
        std::string expected;
        for (int record = 0; record < records; ++record) {
            expected += modelRecord(world.codePage, data.substr(static_cast<std::size_t>(record) * 256, 256), starts[item],
                                    items[item].width, static_cast<int>(item) == count, toRight);
        }
        ASSERT_EQ(world.bytesOf("t.txt"), expected) << "round " << round;
        const std::string wanted = "\r\n" + std::to_string(1000 + item) + " '" + world.codePage.encode(u"項") +
                                   (toRight ? ",R\r\n" : ",L\r\n");
        ASSERT_NE(world.bytesOf("kt.txt").find(wanted), std::string::npos) << "round " << round;
    }
}

} // namespace
