#include "voice/caret_reading.h"

#include "support/test_world.h"
#include "voice/announcement.h"

#include <gtest/gtest.h>

namespace {

using Said = std::vector<std::string>;

BoxView at(int caret, TextView text) {
    return {.text = Text(text), .caret = caret, .selectionStart = caret};
}

BoxView selected(TextView text, int start, int length) {
    return {.text = Text(text), .caret = start, .selectionStart = start, .selectionLength = length};
}

std::string position(int caret, TextView text) {
    return utf8(caretPositionReading(at(caret, text)));
}

std::string line(int caret, TextView text) {
    return utf8(getCLineString(at(caret, text)));
}

struct BoxWorld : TestWorld {
    BoxWorld() { zormod.speech.speechMode = 1; }
    /// What a key up says, each long after the one before.
    Said keyUp(const KeyStroke& stroke, const BoxView& box, TextView label = textBoxWord) {
        later();
        readBoxKeys(zormod, stroke, box, label, lastSelLength);
        return takeSpoken();
    }
    int lastSelLength = 0;
};

const std::string selectionWords = "。ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ ";

} // namespace

TEST(CaretPosition, AtTheStartOfAOneLineBox) {
    EXPECT_EQ(position(0, u"abcdefghijklmn"), "先頭ぎょう1もじめキャレットabcdefghij");
    EXPECT_EQ(position(0, u""), "先頭ぎょう1もじめキャレット");
}

TEST(CaretPosition, InsideAndAtTheEndOfAOneLineBox) {
    EXPECT_EQ(position(3, u"abcdef"), "4もじめabcキャレットdef");
    EXPECT_EQ(position(6, u"abcdef"), "7もじめabcdefキャレット");
}

TEST(CaretPosition, SaysTenCharactersOnEitherSide) {
    EXPECT_EQ(position(12, u"0123456789abcdefghijklmnop"), "13もじめ23456789abキャレットcdefghijkl");
    EXPECT_EQ(position(10, u"0123456789"), "11もじめ0123456789キャレット");
}

TEST(CaretPosition, CountsLinesByTheReturnsAheadOfTheCaret) {
    const TextView text = u"one\rtwo\rthree";
    EXPECT_EQ(position(0, text), "先頭ぎょう1ぎょう1もじめキャレットone");
    EXPECT_EQ(position(1, text), "1ぎょう2もじめoキャレットne");
    EXPECT_EQ(position(5, text), "2ぎょう2もじめtキャレットwo");
    EXPECT_EQ(position(4, text), "2ぎょう1もじめキャレットtwo");
}

TEST(CaretPosition, TheLastLineHasAWordOfItsOwn) {
    EXPECT_EQ(position(10, u"one\rtwo\rthree"), "最終ぎょう3もじめthキャレットree");
    EXPECT_EQ(position(4, u"one\r"), "最終ぎょう1もじめキャレット");
}

TEST(CaretPosition, RightBeforeALineEndTheWholeRestIsSaid) {
    EXPECT_EQ(position(3, u"one\rtwo"), "1ぎょう4もじめoneキャレット\rtwo");
    EXPECT_EQ(position(3, u"one\r123456789abc"), "1ぎょう4もじめoneキャレット\r123456789");
}

TEST(CaretPosition, LineFeedsBehindReturnsAreNoPartOfTheLine) {
    EXPECT_EQ(position(7, u"one\r\ntwo\r\nthree"), "2ぎょう3もじめtwキャレットo");
    EXPECT_EQ(position(5, u"one\r\ntwo"), "最終ぎょう1もじめキャレットtwo");
}

TEST(CaretPosition, ACaretPastTheTextStandsAtItsEnd) {
    EXPECT_EQ(position(9, u"abc"), "4もじめabcキャレット");
}

TEST(CaretPosition, ComesThroughTheThrottle) {
    BoxWorld world;
    readCaretPosition(world.zormod, at(1, u"ab"));
    readCaretPosition(world.zormod, at(2, u"ab"));
    EXPECT_EQ(world.takeSpoken(), Said{"2もじめaキャレットb"});
}

TEST(CaretLine, IsTheLineThatHoldsTheCaret) {
    const TextView text = u"one\rtwo\rthree";
    EXPECT_EQ(line(0, text), "one");
    EXPECT_EQ(line(2, text), "one");
    EXPECT_EQ(line(4, text), "two");
    EXPECT_EQ(line(6, text), "two");
    EXPECT_EQ(line(8, text), "three");
    EXPECT_EQ(line(13, text), "three");
    EXPECT_EQ(line(2, u"one"), "one");
}

TEST(CaretLine, StopsAtTheLineEndRightBehindTheCaret) {
    EXPECT_EQ(line(3, u"one\rtwo"), "one");
    EXPECT_EQ(line(4, u"one\r\rtwo"), "");
    EXPECT_EQ(line(4, u"one\r"), "");
    EXPECT_EQ(line(0, u""), "");
}

TEST(CaretChar, NamesTheCharacterBehindTheCaret) {
    BoxWorld world;
    readCaretChar(world.zormod, at(1, u"aBc"));
    EXPECT_EQ(world.takeSpoken(), Said{"ｵｵﾓｼﾞﾋﾞｰ"});
}

TEST(CaretChar, AtTheEndSendsTheBareMark) {
    BoxWorld world;
    readCaretChar(world.zormod, at(3, u"aBc"));
    EXPECT_EQ(utf8(world.clipboard.written), Said{"。｡."});
}

TEST(CaretChar, SaysNothingInAnEmptyBoxAndLeavesTheThrottleOpen) {
    BoxWorld world;
    readCaretChar(world.zormod, at(0, u""));
    EXPECT_EQ(world.clipboard.written.size(), 0u);
    EXPECT_EQ(world.zormod.speech.lastSpokenTime, 0);
}

TEST(Selection, GrowingToTheLeftTheCaretIsAtTheStart) {
    BoxWorld world;
    EXPECT_EQ(world.keyUp(shiftKey(Key::left), selected(u"abcd", 2, 2)), Said{"cd" + selectionWords + " ﾊｼﾞﾒﾆ ｱﾘﾏｽ"});
    EXPECT_EQ(world.lastSelLength, 2);
}

TEST(Selection, ShrinkingToTheLeftTheCaretIsAtTheEnd) {
    BoxWorld world;
    world.lastSelLength = 3;
    EXPECT_EQ(world.keyUp(shiftKey(Key::left), selected(u"abcd", 0, 2)), Said{"ab" + selectionWords + " ｵﾜﾘﾆ ｱﾘﾏｽ"});
}

TEST(Selection, GrowingToTheRightTheCaretIsAtTheEnd) {
    BoxWorld world;
    world.lastSelLength = 1;
    EXPECT_EQ(world.keyUp(shiftKey(Key::right), selected(u"abcd", 1, 2)), Said{"bc" + selectionWords + " ｵﾜﾘﾆ ｱﾘﾏｽ"});
}

TEST(Selection, ShrinkingToTheRightTheCaretIsAtTheStart) {
    BoxWorld world;
    world.lastSelLength = 3;
    EXPECT_EQ(world.keyUp(shiftKey(Key::right), selected(u"abcd", 2, 2)), Said{"cd" + selectionWords + " ﾊｼﾞﾒﾆ ｱﾘﾏｽ"});
}

TEST(Selection, OfTheSameLengthTellsNoEnd) {
    BoxWorld world;
    world.lastSelLength = 2;
    EXPECT_EQ(world.keyUp(shiftKey(Key::right), selected(u"abcd", 2, 2)), Said{"cd" + selectionWords});
    EXPECT_EQ(world.keyUp(shiftKey(Key::left), selected(u"abcd", 2, 2)), Said{"cd" + selectionWords});
}

TEST(Selection, ThatIsEmptySaysNothingAndLeavesTheThrottleOpen) {
    BoxWorld world;
    world.lastSelLength = 1;
    readSelection(world.zormod, selected(u"abcd", 2, 0), Key::left, world.lastSelLength);
    EXPECT_EQ(world.takeSpoken(), Said{});
    EXPECT_EQ(world.zormod.speech.lastSpokenTime, 0);
    EXPECT_EQ(world.lastSelLength, 0);
}

TEST(Selection, IsRememberedEvenIfItsReadingIsDropped) {
    BoxWorld world;
    readSelection(world.zormod, selected(u"abcd", 3, 1), Key::left, world.lastSelLength);
    readSelection(world.zormod, selected(u"abcd", 2, 2), Key::left, world.lastSelLength);
    EXPECT_EQ(world.takeSpoken(), Said{"d" + selectionWords + " ﾊｼﾞﾒﾆ ｱﾘﾏｽ"});
    EXPECT_EQ(world.lastSelLength, 2);
    world.zormod.speech.speechMode = 0;
    readSelection(world.zormod, selected(u"abcd", 1, 3), Key::left, world.lastSelLength);
    EXPECT_EQ(world.takeSpoken(), Said{});
    EXPECT_EQ(world.lastSelLength, 3);
}

TEST(BoxKeys, AnEmptyBoxHasNoSelectionToRead) {
    BoxWorld world;
    EXPECT_EQ(world.keyUp(shiftKey(Key::left), at(0, u"")), Said{});
    EXPECT_EQ(world.keyUp(shiftKey(Key::right), at(0, u"")), Said{});
}

TEST(BoxKeys, AKeyThatLeavesNothingSelectedForgetsTheLength) {
    BoxWorld world;
    world.lastSelLength = 3;
    world.keyUp(plainKey(Key::left), at(1, u"abcd"));
    EXPECT_EQ(world.lastSelLength, 0);
    EXPECT_EQ(world.keyUp(shiftKey(Key::left), selected(u"abcd", 0, 1)), Said{"a" + selectionWords + " ﾊｼﾞﾒﾆ ｱﾘﾏｽ"});
}

TEST(BoxKeys, TheTextIsReadWithItsLabel) {
    BoxWorld world;
    EXPECT_EQ(world.keyUp(shiftKey(Key::pageDown), at(0, u"abc"), u"題名ﾃｷｽﾄﾎﾞｯｸｽ"), Said{"abc､題名ﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(world.keyUp(ctrlShiftKey(Key::s), at(0, u"abc")), Said{"abc､ﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(world.keyUp(ctrlShiftKey(Key::s), at(0, u"")), Said{"ﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(world.keyUp(ctrlShiftKey(Key::s), at(0, u"abc"), u"記録番号テキストボックス"),
              Said{"abc､記録番号テキストボックス"});
}

TEST(BoxKeys, F12ReadsThePlaceOfTheCaret) {
    BoxWorld world;
    EXPECT_EQ(world.keyUp(plainKey(Key::f12), at(2, u"abc")), Said{"3もじめabキャレットc"});
    EXPECT_EQ(world.keyUp(ctrlKey(Key::f12), at(2, u"abc")), Said{});
    EXPECT_EQ(world.keyUp(shiftKey(Key::f12), at(2, u"abc")), Said{});
}

TEST(BoxKeys, LeftAndRightReadTheCharacter) {
    BoxWorld world;
    EXPECT_EQ(world.keyUp(plainKey(Key::left), at(0, u"ab")), Said{"ｴｰ"});
    EXPECT_EQ(world.keyUp(plainKey(Key::right), at(1, u"ab")), Said{"ﾋﾞｰ"});
    EXPECT_EQ(world.keyUp(ctrlKey(Key::right), at(1, u"ab")), Said{});
}

TEST(BoxKeys, ShiftAloneReadsTheText) {
    BoxWorld world;
    EXPECT_EQ(world.keyUp(plainKey(Key::shift), at(0, u" ab ")), Said{" ab "});
    EXPECT_EQ(world.keyUp(plainKey(Key::shift), at(0, u"")), Said{"ブランク"});
    EXPECT_EQ(world.keyUp(plainKey(Key::shift), at(0, u"   ")), Said{"ブランク"});
    EXPECT_EQ(world.keyUp(plainKey(Key::shift), at(0, u"　")), Said{"　"});
    EXPECT_EQ(world.keyUp(ctrlKey(Key::shift), at(0, u"ab")), Said{});
}

TEST(BoxKeys, OtherKeysSayNothing) {
    BoxWorld world;
    for (const Key key : {Key::up, Key::down, Key::a, Key::control, Key::s, Key::pageDown, Key::enter}) {
        EXPECT_EQ(world.keyUp(plainKey(key), at(0, u"ab")), Said{});
    }
}

TEST(BoxKeys, AllComeThroughTheThrottle) {
    BoxWorld world;
    for (const KeyStroke& stroke : {shiftKey(Key::left), shiftKey(Key::pageDown), ctrlShiftKey(Key::s),
                                    plainKey(Key::f12), plainKey(Key::left), plainKey(Key::shift)}) {
        world.zormod.speech.lastSpokenTime = world.clock.now;
        readBoxKeys(world.zormod, stroke, selected(u"abc", 0, 1), textBoxWord, world.lastSelLength);
        EXPECT_EQ(world.takeSpoken(), Said{});
    }
}
