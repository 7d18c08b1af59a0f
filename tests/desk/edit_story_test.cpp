// Whole stories on the edit screen, told by keys alone: what is heard, and every byte that is left on the disk.

#include "sheet/failure_recovery.h"
#include "support/qt/edit_desk.h"

#include <gmock/gmock.h>

#include <cstdio>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A record of the table: ID 4, name 10, age 3 bytes, given as the bytes of the cells.
std::string record(std::string cells) {
    cells.resize(254, ' ');
    return cells + "\r\n";
}

const std::string yamada = "1   \x8E\x52\x93\x63       31";
const std::string suzuki = "2   \x97\xE9\x96\xD8       45";

/// The edit screen on a table of two people.
struct Story : EditDesk {
    explicit Story(std::int16_t speechMode) {
        guard.setCleanup([this](const RuntimeFailure& failure) { putStateRight(zormod, failure); });
        openTable({{u"ID", u"L", 4}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
                  {{u"1", u"山田", u"31"}, {u"2", u"鈴木", u"45"}});
        zormod.speech.speechMode = speechMode;
    }
    std::string file() const { return world.bytesOf("t.txt"); }
    std::string native(const char* name) const { return world.folder.path() + "/" + name; }
};

} // namespace

TEST(EditStory, WalkingOverTheTableSaysDataAndPlace) {
    Story story(2);
    EXPECT_THAT(story.spokenBy(plainKey(Key::right)),
                ElementsAre("山田､  ｷﾞｮｳ1 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_THAT(story.spokenBy(plainKey(Key::down)),
                ElementsAre("鈴木 ､  ｷﾞｮｳ2 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_THAT(story.spokenBy(plainKey(Key::down)),
                ElementsAre("ﾌﾞﾗﾝｸ ､  ｷﾞｮｳ3 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
    const int beeps = story.world.beeper.count;
    EXPECT_THAT(story.spokenBy(plainKey(Key::down)), IsEmpty());
    EXPECT_EQ(story.world.beeper.count, beeps + 1);
    EXPECT_THAT(story.spokenBy(plainKey(Key::up)),
                ElementsAre("鈴木 ､  ｷﾞｮｳ2 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_EQ(story.file(), record(yamada) + record(suzuki));
}

TEST(EditStory, WalkingInDataModeSaysTheDataAlone) {
    Story story(1);
    EXPECT_THAT(story.spokenBy(plainKey(Key::right)), ElementsAre("山田､"));
    EXPECT_THAT(story.spokenBy(plainKey(Key::down)), ElementsAre("鈴木 ､"));
}

TEST(EditStory, HalfWidthTextIsTypedOverACellAndKeptByDown) {
    Story story(2);
    story.key(plainKey(Key::right));
    story.spoken();
    story.world.later();
    story.keys.type(u"x");
    EXPECT_THAT(story.spoken(), ElementsAre("ｴｯｸｽ ざん9バイト"));
    story.world.later();
    story.keys.type(u"Y");
    EXPECT_THAT(story.spoken(), ElementsAre("ｵｵﾓｼﾞﾜｲ ざん8バイト"));
    EXPECT_EQ(story.file(), record(yamada) + record(suzuki)) << "nothing is written before the row is left";
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.file(), record("1   xY         31") + record(suzuki));
}

TEST(EditStory, TakingBackTypedTextEndsWithItsCell) {
    Story story(2);
    story.keys.type(u"x");
    story.key(plainKey(Key::backspace));
    EXPECT_EQ(story.edit.txtinputbox.text(), u"");
    story.key(ctrlKey(Key::z));
    EXPECT_EQ(story.edit.txtinputbox.text(), u"x") << "in the cell where it was typed";
    story.key(plainKey(Key::backspace));
    story.key(plainKey(Key::right));
    story.key(ctrlKey(Key::z));
    EXPECT_EQ(story.edit.txtinputbox.text(), u"") << "but not in the next";
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.file(), record(yamada) + record(suzuki));
}

TEST(EditStory, TakingBackTypedTextEndsWithItsTable) {
    Story story(2);
    const auto goToMemo = [&] {
        for (int tabs = 0; story.focus() != "RichTextBox2" && tabs < 10; ++tabs) {
            story.key(plainKey(Key::tab));
        }
    };
    goToMemo();
    story.keys.type(u"x");
    story.key(plainKey(Key::backspace));
    story.openTable({{u"ID", u"L", 4}}, {{u"9"}});
    ASSERT_EQ(story.text("RichTextBox2"), "memo") << "both tables have this one";
    goToMemo();
    ASSERT_EQ(story.focus(), "RichTextBox2");
    story.key(ctrlKey(Key::z));
    EXPECT_EQ(story.text("RichTextBox2"), "memo");
}

TEST(EditStory, ComposedTextIsNeitherHeardNorMeasuredUntilItIsCommitted) {
    Story story(2);
    story.key(plainKey(Key::right));
    story.spoken();
    story.world.later();
    story.keys.compose(u"とうきょうとみなとく");
    EXPECT_THAT(story.spoken(), IsEmpty());
    EXPECT_EQ(story.zormod.position.curItem, 1);
    story.world.later();
    story.keys.commit(u"東京");
    EXPECT_THAT(story.spoken(), ElementsAre("東京 ざん6バイト"));
    EXPECT_THAT(story.spokenBy(plainKey(Key::enter)),
                ElementsAre("31､  ｷﾞｮｳ1 ｺｳﾓｸ2 年齢 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.file(), record("1   \x93\x8C\x8B\x9E       31") + record(suzuki));
}

TEST(EditStory, AFilledItemIsKeptAndTheCursorMovesOnWithoutAWord) {
    Story story(2);
    story.key(plainKey(Key::right));
    story.spoken();
    story.world.later();
    story.keys.commit(u"東京都港区");
    EXPECT_EQ(story.zormod.position.curItem, 2);
    EXPECT_EQ(story.text("txtinputbox"), "");
    EXPECT_THAT(story.spoken(), IsEmpty());
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.file(), record("1   \x93\x8C\x8B\x9E\x93\x73\x8D\x60\x8B\xE6 31") + record(suzuki));
}

TEST(EditStory, ACharacterOverTheEdgeBeepsAndIsDropped) {
    Story story(2);
    story.key(plainKey(Key::right));
    story.world.later();
    story.keys.type(u"x");
    const int beeps = story.world.beeper.count;
    story.world.later();
    story.keys.commit(u"東京都港区");
    EXPECT_EQ(story.world.beeper.count, beeps + 1);
    EXPECT_EQ(story.zormod.position.curItem, 2);
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.file(), record("1   x\x93\x8C\x8B\x9E\x93\x73\x8D\x60  31") + record(suzuki));
}

TEST(EditStory, TheFileGrowsByStepsPastItsEndAndTyping) {
    Story story(0);
    story.key(ctrlKey(Key::down));
    story.key(plainKey(Key::down));
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.zormod.position.curRecord, 3);
    story.keys.type(u"3");
    story.key(plainKey(Key::enter));
    story.keys.commit(u"佐藤");
    story.key(plainKey(Key::enter));
    story.keys.type(u"8");
    story.key(plainKey(Key::enter));
    EXPECT_EQ(story.zormod.position.curRecord, 4);
    EXPECT_EQ(story.file(), record(yamada) + record(suzuki) + record("3   \x8D\xB2\x93\xA1        8"));
    story.key(plainKey(Key::up));
    EXPECT_EQ(story.file().size(), 768u) << "an empty new row is not kept";
    EXPECT_NE(story.title().find("記録数:3)"), std::string::npos);
}

TEST(EditStory, EscapeWithSpeechEndsInOrderAndKeepsTheRow) {
    Story story(2);
    story.world.clipboard.foreign(u"mine");
    story.key(plainKey(Key::right));
    story.keys.type(u"z");
    story.key(plainKey(Key::enter));
    story.keys.type(u"9");
    story.key(plainKey(Key::escape));
    EXPECT_FALSE(story.endStatus) << "the first only clears the box";
    EXPECT_EQ(story.cell(1), "z         ");
    story.spoken();
    story.key(plainKey(Key::escape));
    EXPECT_EQ(story.endStatus, 0);
    EXPECT_THAT(story.spoken(), ElementsAre("ﾛﾐｶ ｼｭｳﾘｮｳ"));
    EXPECT_EQ(story.world.clipboard.contents, u"mine");
    EXPECT_EQ(story.world.bytesOf("zorTalk"), " 2 \r\n");
    EXPECT_EQ(story.file(), record("1   z          31") + record(suzuki));
}

TEST(EditStory, EscapeWithoutSpeechEndsAtOnceAndLeavesTheSettingsAlone) {
    Story story(0);
    story.world.writeFile("zorTalk", " 2 \r\n");
    story.key(plainKey(Key::escape));
    EXPECT_EQ(story.endStatus, 0);
    EXPECT_THAT(story.spoken(), IsEmpty());
    EXPECT_EQ(story.world.bytesOf("zorTalk"), " 2 \r\n");
}

TEST(EditStory, TheEndEntryAndTheCloseBoxLoseTheRowThatWasNotLeft) {
    for (const bool byEntry : {true, false}) {
        Story story(0);
        story.key(plainKey(Key::right));
        story.keys.type(u"z");
        story.key(plainKey(Key::enter));
        ASSERT_EQ(story.cell(1), "z         ");
        if (byEntry) {
            story.guard.run([&] { story.commands.run(u"mnuEND"); });
        } else {
            story.form.close();
        }
        EXPECT_EQ(story.endStatus, 0);
        EXPECT_EQ(story.file(), record(yamada) + record(suzuki));
        EXPECT_EQ(story.world.bytesOf("zorTalk"), " 0 \r\n");
    }
}

TEST(EditStory, ARowThatCantBeWrittenIsToldOnceAndWrittenByTheNextLeave) {
    Story story(2);
    story.key(plainKey(Key::right));
    story.keys.commit(u"東京");
    // The table is taken away behind the program's back.
    ASSERT_EQ(std::rename(story.native("t.txt").c_str(), story.native("away.txt").c_str()), 0);
    story.world.writeFile("t.txt", "another file");
    story.spoken();
    story.inNextModal(plainKey(Key::enter));
    story.key(plainKey(Key::down));
    EXPECT_THAT(story.spoken(), ElementsAre("ファイル操作に失敗しました。。OKならCRを叩いてください。"));
    EXPECT_EQ(story.zormod.position.curRecord, 1);
    EXPECT_EQ(story.cell(1), "東京      ");
    EXPECT_EQ(story.world.bytesOf("t.txt"), "another file");
    EXPECT_EQ(story.world.bytesOf("away.txt"), record(yamada) + record(suzuki));
    // It comes back, and the row is written when it is left.
    ASSERT_EQ(std::rename(story.native("away.txt").c_str(), story.native("t.txt").c_str()), 0);
    story.key(plainKey(Key::down));
    EXPECT_EQ(story.zormod.position.curRecord, 2);
    EXPECT_EQ(story.file(), record("1   \x93\x8C\x8B\x9E       31") + record(suzuki));
}

TEST(EditStory, ATableWithoutItemsHasItsIdAlone) {
    EditDesk desk;
    desk.openTable({{u"line", u"L", 40}}, {{u"one"}, {u"two"}});
    desk.zormod.speech.speechMode = 1;
    EXPECT_EQ(desk.text("Text1"), "0");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::right)), ElementsAre("two ､"));
}

TEST(EditStory, WhatIsTypedInTheMemoAndTheAlignmentIsHeard) {
    for (const char* name : {"RichTextBox2", "txtLR"}) {
        EditDesk desk;
        desk.openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
        desk.zormod.speech.speechMode = 1;
        for (int i = 0; i < 8 && desk.focus() != name; ++i) {
            desk.key(plainKey(Key::tab));
        }
        ASSERT_EQ(desk.focus(), name);
        desk.spoken();
        desk.world.later();
        desk.keys.type(u"r");
        desk.settle();
        EXPECT_EQ(desk.spoken(), std::vector<std::string>{"ｱｰﾙ"}) << name;
    }
}
