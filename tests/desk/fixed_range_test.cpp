// A range that is fixed, as a user meets it in the input box: what reads it, what acts on it, what gives it up.

#include "support/qt/range_desk.h"

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::HasSubstr;

namespace {

/// A block of records 1 and 2, item 1, fixed.
struct FixedBlockDesk : RangeDesk {
    FixedBlockDesk() {
        key(plainKey(Key::right));
        fix({shiftKey(Key::down), plainKey(Key::down)});
    }
};

const Ends none{0, 0, 0, 0, 0};

} // namespace

TEST(FixedRange, IsReadByShiftAndGivenUpByALetterThatIsNotTyped) {
    FixedBlockDesk desk;
    const Said read = desk.spokenBy(plainKey(Key::shift));
    ASSERT_FALSE(read.empty());
    EXPECT_EQ(read[0], "山田次記録山田次記録たいかく範囲あり");
    EXPECT_EQ(desk.range(), (Ends{1, 1, 2, 1, 1}));
    desk.keys.type(u"x");
    desk.settle();
    EXPECT_EQ(desk.range(), none);
    EXPECT_EQ(desk.text("txtinputbox"), "");
    EXPECT_FALSE(desk.sheet("LblMUSK")->isVisible());
    desk.keys.type(u"x");
    EXPECT_EQ(desk.text("txtinputbox"), "x");
}

TEST(FixedRange, IsGivenUpByACommittedTextOfAnInputMethod) {
    RangeDesk desk;
    desk.fix({altKey(Key::down)});
    desk.keys.compose(u"あ");
    desk.settle();
    EXPECT_EQ(desk.range(), none);
}

TEST(FixedRange, OfRecordsIsReadWholeAndOneOfItemsFromTheWholeFile) {
    EditDesk desk;
    desk.openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 3}},
                   {{u"1", u"山", u"7"}, {u"2", u"川", u"8"}});
    desk.zormod.speech.speechMode = 1;
    for (const KeyStroke& stroke : {altKey(Key::down), plainKey(Key::enter)}) {
        desk.key(stroke);
    }
    EXPECT_THAT(desk.spokenBy(plainKey(Key::shift)), Contains("1  山      7次記録記録範囲あり"));
    for (const KeyStroke& stroke : {altKey(Key::right), plainKey(Key::enter)}) {
        desk.key(stroke);
    }
    // The byte behind the ID is the first half of a name's first letter.
    EXPECT_THAT(desk.spokenBy(plainKey(Key::shift)), Contains(HasSubstr("次記録項目範囲あり")));
    desk.key(plainKey(Key::escape));
    for (const KeyStroke& stroke : {plainKey(Key::right), altKey(Key::right), plainKey(Key::enter)}) {
        desk.key(stroke);
    }
    EXPECT_THAT(desk.spokenBy(plainKey(Key::shift)), Contains("山次記録川次記録項目範囲あり"));
}

TEST(FixedRange, AboveFiftyOneThousandBytesTheReadingSaysSoAndGoesOnAndThatOfRecordsDoesNot) {
    const std::string message = "50000文字の読み込みバッファがオーバしました";
    const Text full(246, u'x');
    EditDesk desk;
    desk.openTable({{u"ID", u"L", 4}, {u"a", u"L", 246}, {u"b", u"L", 4}},
                   std::vector<std::vector<std::u16string_view>>(205, {u"1", full, u""}));
    desk.zormod.speech.speechMode = 1;
    const auto reading = [&](const KeyStroke& draw) {
        desk.key(draw);
        desk.key(ctrlKey(Key::down));
        desk.key(plainKey(Key::enter));
        return desk.spokenBy(plainKey(Key::shift)).at(0);
    };
    desk.key(plainKey(Key::right));
    // A record gives 246 bytes and the six of the word behind it.
    const std::string part = std::string(246, 'x') + "次記録";
    const std::string items = reading(altKey(Key::right));
    EXPECT_EQ(items.find(message), 203 * part.size()) << "behind the record with which 51000 are passed";
    EXPECT_EQ(items.substr(203 * part.size() + message.size()), part + part + "項目範囲あり");
    desk.key(plainKey(Key::escape));
    desk.key(ctrlKey(Key::up));
    const std::string block = reading(shiftKey(Key::down));
    EXPECT_EQ(block.find(message), 203 * part.size());
    desk.key(plainKey(Key::escape));
    desk.key(ctrlKey(Key::up));
    const std::string records = reading(altKey(Key::down));
    EXPECT_EQ(records.find(message), std::string::npos);
    EXPECT_GT(records.size(), 205 * part.size());
    desk.key(plainKey(Key::escape));
}

TEST(FixedRange, StaysUnderModifiersAndReadingKeys) {
    FixedBlockDesk desk;
    const Ends fixed = desk.range();
    desk.keysDown({plainKey(Key::control), plainKey(Key::alt), ctrlShiftKey(Key::s), shiftKey(Key::pageDown)});
    EXPECT_EQ(desk.range(), fixed);
    EXPECT_TRUE(desk.sheet("LblMUSK")->isVisible());
}

TEST(FixedRange, GivesWayToANewOne) {
    FixedBlockDesk desk;
    desk.key(altKey(Key::down));
    EXPECT_TRUE(desk.isDrawing());
    EXPECT_EQ(desk.range(), (Ends{2, 2, 2, 0, 4}));
    desk.key(plainKey(Key::escape));
}

TEST(FixedRange, IsGivenUpByASwitchToTheCardView) {
    FixedBlockDesk desk;
    desk.press("frmSHEET", "Command3");
    ASSERT_EQ(desk.zormod.display.viewMode, 1);
    EXPECT_EQ(desk.range(), none);
    desk.press("frmKOJIND", "Command1");
    desk.press("frmGrid", "Command1");
    ASSERT_EQ(desk.zormod.display.viewMode, 0);
    EXPECT_FALSE(desk.sheet("LblMUSK")->isVisible());
}

TEST(FixedRange, OtherKeysGiveItUpAndDoNothingElse) {
    for (const KeyStroke& stroke : {plainKey(Key::insert), plainKey(Key::escape), plainKey(Key::home),
                                    plainKey(Key::pageDown), plainKey(Key::space), ctrlKey(Key::t)}) {
        FixedBlockDesk desk;
        const std::string before = desk.world.bytesOf("t.txt");
        desk.key(stroke);
        EXPECT_EQ(desk.range(), none);
        EXPECT_EQ(desk.place(), std::pair(2, 1));
        EXPECT_EQ(desk.text("txtinputbox"), "");
        EXPECT_EQ(desk.focus(), "txtinputbox");
        EXPECT_FALSE(desk.sheet("LblMUSK")->isVisible());
        EXPECT_EQ(desk.world.bytesOf("t.txt"), before);
        EXPECT_EQ(desk.endStatus, std::nullopt);
    }
}

TEST(FixedRange, ArrowsAcrossItsKindGiveItUp) {
    RangeDesk desk;
    desk.fix({altKey(Key::down)});
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.range(), none);
    EXPECT_EQ(desk.place(), std::pair(1, 0));
    desk.fix({altKey(Key::right)});
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.range(), none);
    EXPECT_EQ(desk.place(), std::pair(1, 0));
}

TEST(FixedRange, OfAllRecordsBeepsAtUpAndStays) {
    RangeDesk desk;
    desk.fix({altKey(Key::down), ctrlKey(Key::down)});
    desk.key(plainKey(Key::up));
    EXPECT_EQ(desk.world.beeper.count, 1);
    EXPECT_EQ(desk.range(), (Ends{2, 1, 40, 0, 4}));
    EXPECT_EQ(desk.place(), std::pair(40, 0));
}

TEST(FixedRange, OfOneRecordIsDeletedAfterItsQuestion) {
    RangeDesk desk;
    desk.fix({altKey(Key::down)});
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "指定範囲の記録の排除");
        EXPECT_THAT(desk.spoken(),
                    Contains(HasSubstr("記録1を　削除し、以後のﾃﾞｰﾀを前に詰めます。削除部はクリップファイルになります｡"
                                       "なお記録数の多い場合は時間がかかります。")));
        desk.key(plainKey(Key::y));
    });
    desk.key(plainKey(Key::del));
    EXPECT_EQ(desk.world.bytesOf("t.txt").size(), 39U * 256);
    EXPECT_EQ(desk.range(), none);
}

TEST(FixedRange, OfABlockIsBlankedAfterItsQuestion) {
    FixedBlockDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "指定範囲データ消去");
        EXPECT_THAT(desk.spoken(), Contains(HasSubstr("記録1から記録2の範囲に於ける、項目1 のデータを消去し、ブランクに"
                                                      "置き換えます。消去部はクリップファイルになります")));
        desk.key(plainKey(Key::y));
    });
    desk.key(plainKey(Key::del));
    EXPECT_EQ(desk.world.bytesOf("t.txt").substr(0, 17), "1              42");
    EXPECT_EQ(desk.range(), none);
}

TEST(FixedRange, OfItemsIsWidenedByInsAndDeletedByDel) {
    RangeDesk desk;
    desk.key(plainKey(Key::right));
    desk.fix({altKey(Key::right), plainKey(Key::right)});
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "項目の挿入");
        EXPECT_THAT(desk.spoken(), Contains(HasSubstr("項目番号1の位置に、1 項目、挿入します。")));
        desk.key(plainKey(Key::y));
    });
    desk.key(plainKey(Key::insert));
    EXPECT_EQ(desk.zormod.items.itemCount, 6) << "one more than it told";
    EXPECT_EQ(desk.range(), none);
    while (desk.zormod.position.curItem != 1) {
        desk.key(desk.zormod.position.curItem < 1 ? plainKey(Key::right) : plainKey(Key::left));
    }
    desk.fix({altKey(Key::right), plainKey(Key::right)});
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "項目の削除");
        EXPECT_THAT(desk.spoken(),
                    Contains(HasSubstr("項目1から項目2の範囲の項目　を　削除します。復活はできません。")));
        desk.key(plainKey(Key::y));
    });
    desk.key(plainKey(Key::del));
    EXPECT_EQ(desk.zormod.items.itemCount, 4);
    EXPECT_EQ(desk.range(), none);
}
