// Text that comes into a box by other ways than single keys: input methods, the clipboard, the mouse.

#include "support/qt/box_window.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(KeyLineEditInput, ComposingTextIsNotMeasuredUntilItIsCommitted) {
    BoxWindow desk;
    desk.keys.compose(u"やま");
    EXPECT_TRUE(desk.box->composing());
    EXPECT_EQ(desk.text(), "");
    EXPECT_THAT(desk.events, ElementsAre("other key"));
    desk.keys.commit(u"山田");
    EXPECT_FALSE(desk.box->composing());
    EXPECT_THAT(desk.events, ElementsAre("other key", "press 23665", "press 30000", "change >山田"));
}

TEST(KeyLineEditInput, ACommitWithoutCompositionCountsAsOneOtherKey) {
    BoxWindow desk;
    desk.keys.commit(u"é");
    EXPECT_THAT(desk.events, ElementsAre("other key", "press 233", "change >é"));
}

TEST(KeyLineEditInput, ACompositionGivenUpChangesNothing) {
    BoxWindow desk;
    desk.keys.compose(u"や");
    desk.keys.compose(u"");
    EXPECT_FALSE(desk.box->composing());
    EXPECT_THAT(desk.events, ElementsAre("other key"));
}

TEST(KeyLineEditInput, ASelectionReplacedByComposingIsToldWithTheCommit) {
    BoxWindow desk;
    desk.box->setProgramText(u"abc");
    desk.box->selectAll();
    desk.keys.compose(u"や");
    EXPECT_THAT(desk.events, ElementsAre("other key"));
    desk.keys.commit(u"矢");
    EXPECT_EQ(desk.events.back(), "change abc>矢");
}

TEST(KeyLineEditInput, ProgramTextWaitsForTheEndOfAComposition) {
    BoxWindow desk;
    desk.keys.compose(u"や");
    desk.box->setProgramText(u"new");
    EXPECT_EQ(desk.text(), "") << "the composition is not disturbed";
    desk.keys.compose(u"");
    EXPECT_EQ(desk.text(), "new");
    EXPECT_THAT(desk.events, ElementsAre("other key"));
}

TEST(KeyLineEditInput, ProgramTextThatIsThereAlreadyMovesNoComposition) {
    BoxWindow desk;
    desk.box->setProgramText(u"abc");
    desk.box->setCursorPosition(1);
    desk.keys.compose(u"や");
    desk.box->setProgramText(u"abc");
    desk.keys.commit(u"矢");
    EXPECT_EQ(desk.text(), "a矢bc");
}

TEST(KeyLineEditInput, WhatIsCommittedFollowsTheTextThatWaited) {
    BoxWindow desk;
    desk.keys.compose(u"や");
    desk.box->setProgramText(u"new");
    desk.keys.commit(u"矢");
    EXPECT_EQ(desk.text(), "new矢");
    EXPECT_EQ(desk.events.back(), "change new>new矢");
}

TEST(KeyLineEditInput, AUnitOfACommitCanBeTaken) {
    BoxWindow desk;
    desk.takenPress = KeyOutcome::taken;
    desk.keys.commit(u"ab");
    EXPECT_THAT(desk.events, ElementsAre("other key", "press 97", "press 98"));
    EXPECT_EQ(desk.text(), "");
}

TEST(KeyLineEditInput, ABoxForKeysHasNoInputMethod) {
    BoxWindow desk;
    desk.box->switchInputMethodOff();
    desk.keys.commit(u"ab");
    EXPECT_EQ(desk.text(), "");
    EXPECT_THAT(desk.events, IsEmpty());
}

TEST(KeyLineEditInput, PastedTextEndsAtItsFirstLineEnd) {
    for (const TextView text : {u"ab\rcd", u"ab\ncd", u"ab\r\ncd"}) {
        BoxWindow desk;
        desk.world.clipboard.foreign(text);
        desk.keys.press(ctrlKey(Key::v));
        EXPECT_EQ(desk.text(), "ab");
    }
}

TEST(KeyLineEditInput, PastedControlCharactersBecomeBlanksAndCarriedBytesQuestionMarks) {
    EXPECT_EQ(cleanedForOneLine(u"a\tb\x7F"
                                u"c\x1F"),
              u"a b c ");
    EXPECT_EQ(cleanedForOneLine(u"\xF700x\xF7FF"), u"?x?");
    EXPECT_EQ(cleanedForOneLine(u"\xF6FF\xF800"), u"\xF6FF\xF800");
    BoxWindow desk;
    desk.world.clipboard.foreign(u"a\tb\xF781");
    desk.keys.press(shiftKey(Key::insert));
    EXPECT_EQ(desk.text(), "a b?");
}

TEST(KeyLineEditInput, CommittedAndTypedTextIsCleanedToo) {
    BoxWindow desk;
    desk.keys.commit(u"a\tb\xF781\nc");
    desk.keys.type(u"\xF781");
    EXPECT_EQ(desk.text(), "a b??");
}

TEST(KeyLineEditInput, CopyCutAndPasteGoThroughTheProgramsClipboardAlone) {
    QApplication::clipboard()->setText(QStringLiteral("desktop"));
    for (const KeyStroke copy : {ctrlKey(Key::c), ctrlKey(Key::insert)}) {
        BoxWindow desk;
        desk.box->setProgramText(u"abc");
        desk.keys.press(shiftKey(Key::left));
        desk.keys.press(copy);
        EXPECT_EQ(desk.world.clipboard.contents, u"c");
        EXPECT_EQ(desk.text(), "abc");
    }
    for (const KeyStroke cut : {ctrlKey(Key::x), shiftKey(Key::del)}) {
        BoxWindow desk;
        desk.box->setProgramText(u"abc");
        desk.keys.press(shiftKey(Key::left));
        desk.forget();
        desk.keys.press(cut);
        EXPECT_EQ(desk.world.clipboard.contents, u"c");
        EXPECT_EQ(desk.text(), "ab");
        EXPECT_THAT(desk.events, ::testing::Contains("change abc>ab"));
    }
    for (const KeyStroke paste : {ctrlKey(Key::v), shiftKey(Key::insert)}) {
        BoxWindow desk;
        desk.world.clipboard.foreign(u"xy");
        desk.forget();
        desk.keys.press(paste);
        EXPECT_EQ(desk.text(), "xy");
        EXPECT_THAT(desk.events, ::testing::Contains("change >xy"));
    }
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "desktop");
}

TEST(KeyLineEditInput, CopyingWithoutASelectionLeavesTheClipboardAlone) {
    BoxWindow desk;
    desk.box->setProgramText(u"abc");
    desk.keys.press(ctrlKey(Key::c));
    EXPECT_THAT(desk.world.clipboard.written, IsEmpty());
}

TEST(KeyLineEditInput, WhatCanNotBeCutStays) {
    BoxWindow desk;
    desk.box->setProgramText(u"abc");
    desk.box->selectAll();
    desk.world.clipboard.failing = true;
    desk.keys.press(ctrlKey(Key::x));
    EXPECT_EQ(desk.text(), "abc");
}

TEST(KeyLineEditInput, DeletingToTheEndOfTheLineCopiesNothing) {
    QApplication::clipboard()->setText(QStringLiteral("desktop"));
    BoxWindow desk;
    desk.box->setProgramText(u"abc");
    desk.keys.press(plainKey(Key::left));
    desk.keys.press(ctrlKey(Key::k));
    desk.keys.press(ctrlKey(Key::u));
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "desktop");
    EXPECT_THAT(desk.world.clipboard.written, IsEmpty());
}

TEST(KeyLineEditInput, TheMiddleMouseButtonPastesNothing) {
    BoxWindow desk;
    if (QApplication::clipboard()->supportsSelection()) {
        QApplication::clipboard()->setText(QStringLiteral("selected elsewhere"), QClipboard::Selection);
    }
    QTest::mouseClick(desk.box, Qt::MiddleButton);
    EXPECT_EQ(desk.text(), "");
    EXPECT_EQ(desk.box->contextMenuPolicy(), Qt::NoContextMenu);
    EXPECT_FALSE(desk.box->acceptDrops());
}
