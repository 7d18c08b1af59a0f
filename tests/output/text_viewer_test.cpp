#include "output/text_viewer.h"

#include "support/test_world.h"

#include <gmock/gmock.h>

#include <array>
#include <stdexcept>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct ViewerWorld : TestWorld {
    ViewerWorld() { zormod.speech.speechMode = 1; }

    /// Puts a guide into the program's folder.
    void writeGuide(const HelpFile& help, TextView text) {
        writeFile(utf8(help.file), codePage.encode(text));
    }
    const HelpFile& help(TextView command) const {
        for (const HelpFile& file : helpFiles()) {
            if (file.command == command) {
                return file;
            }
        }
        throw std::logic_error("no such guide");
    }
    std::optional<FoundWord> find(TextView word, TextView text, int caret, int start = 0, int length = 0) {
        later();
        takeSpoken();
        return viewer.find(word, {Text(text), caret, length > 0 ? start : caret, length});
    }
    TextViewer viewer{zormod};
};

} // namespace

TEST(TextViewer, EachMenuEntryShowsItsFileUnderItsCaption) {
    const std::vector<std::array<std::string, 3>> expected = {
        {"menuGENERAL", "ロミカについて.txt", "ロミカについて.txt"},
        {"mnuGUIDE", "音声案内について.txt", "音声案内について.txt"},
        {"mnuWRITE", "ﾃｷｽﾄﾃﾞｰﾀの記入の仕方.txt", "ﾃｷｽﾄﾃﾞｰﾀの記入のしかた.txt"},
        {"mnuSETU", "コードファイルを利用した置換機能について.txt", "コードファイルを利用した置換機能について.txt"},
        {"mnuOSETU", "他ファイルを参照して記録を並べ替える機能について.txt",
         "他ファイルを参照して記録を並べ替える機能について.txt"},
        {"mnuCONTROLS", "各種ｺﾝﾄﾛｰﾙについて.txt", "各種ｺﾝﾄﾛｰﾙについて.txt"},
        {"mnuREDME", "readme.txt", "ReadMe.txt"}};
    ASSERT_EQ(helpFiles().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        ViewerWorld world;
        const HelpFile& help = helpFiles()[i];
        EXPECT_EQ(utf8(help.command), expected[i][0]);
        world.writeFile(expected[i][1], world.codePage.encode(help.command));
        world.viewer.showHelp(help);
        EXPECT_EQ(utf8(world.viewer.text()), expected[i][0]);
        EXPECT_EQ(utf8(world.viewer.caption()), expected[i][2]);
        EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmHelp"));
    }
}

TEST(TextViewer, TakesEveryKindOfLineEndAndNoEndOfFileCharacter) {
    ViewerWorld world;
    world.writeGuide(world.help(u"mnuGUIDE"), u"一\r\n二\r三\n\x1A四");
    world.viewer.showHelp(world.help(u"mnuGUIDE"));
    EXPECT_EQ(utf8(world.viewer.text()), "一\r二\r三\r\x1A四");
}

TEST(TextViewer, AMissingFileShowsAnEmptyBoxAndMakesNoFile) {
    ViewerWorld world;
    world.viewer.show(u"old", u"old");
    world.viewer.showHelp(world.help(u"mnuREDME"));
    EXPECT_EQ(utf8(world.viewer.text()), "");
    EXPECT_EQ(utf8(world.viewer.caption()), "ReadMe.txt");
    EXPECT_EQ(world.forms.opened.size(), 2U);
    EXPECT_FALSE(world.files.exists(world.zormod.file.programFolder + u"readme.txt"));
}

TEST(TextViewer, AFileThatCannotBeReadShowsAnEmptyBox) {
    ViewerWorld world;
    world.files.makeFolder(world.zormod.file.programFolder + u"readme.txt");
    world.viewer.showHelp(world.help(u"mnuREDME"));
    EXPECT_EQ(utf8(world.viewer.text()), "");
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmHelp"));
}

TEST(TextViewer, OfAFileAboveTheLimitTheBeginningIsShownAndTheUserTold) {
    ViewerWorld world;
    world.writeFile("readme.txt", std::string(viewerLimit, 'a'));
    world.viewer.showHelp(world.help(u"mnuREDME"));
    EXPECT_EQ(world.viewer.text().size(), viewerLimit);
    world.writeFile("readme.txt", std::string(viewerLimit, 'b') + "c");
    world.dialogs.expectedMessages = 1;
    world.viewer.showHelp(world.help(u"mnuREDME"));
    EXPECT_EQ(world.viewer.text(), Text(viewerLimit, u'b'));
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "ReadMe.txt");
}

TEST(TextViewer, TellsTheOpenFormThatOtherContentsAreShown) {
    ViewerWorld world;
    int shown = 0;
    world.viewer.onShown([&shown] { ++shown; });
    world.viewer.show(u"a", u"b");
    EXPECT_EQ(shown, 1);
    world.viewer.onShown({});
    world.viewer.show(u"a", u"b");
    EXPECT_EQ(shown, 1);
}

TEST(TextViewer, FindsFromTheCaretAndBehindTheSelection) {
    ViewerWorld world;
    const auto first = world.find(u"ab", u"ab ab ab", 0);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->start, 0);
    EXPECT_EQ(first->length, 2);
    const auto next = world.find(u"ab", u"ab ab ab", 2, 0, 2);
    ASSERT_TRUE(next);
    EXPECT_EQ(next->start, 3);
    // With the caret at the start of the selection too: the search goes on behind what is selected.
    const auto third = world.find(u"ab", u"ab ab ab", 3, 3, 2);
    ASSERT_TRUE(third);
    EXPECT_EQ(third->start, 6);
}

TEST(TextViewer, FindsWithoutRegardToCaseOnlyWhereTheWordItselfIsMissing) {
    ViewerWorld world;
    EXPECT_EQ(world.find(u"ab", u"AB ab", 0)->start, 3);
    EXPECT_EQ(world.find(u"ab", u"xx AB Ab", 0)->start, 3);
    EXPECT_EQ(world.find(u"ａ", u"xＡ", 0)->start, 1);
}

TEST(TextViewer, AWordAheadOfTheCaretIsFoundFromTheTopAfterAMessage) {
    ViewerWorld world;
    world.dialogs.expectedMessages = 1;
    const auto found = world.find(u"先", u"先\r後", 2);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->start, 0);
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "最初から再検索");
    EXPECT_EQ(utf8(world.dialogs.messages[0].text),
              "今のキャレット位置以後のテキストに検索文字列が見つかりません。文頭から再検索します");
}

TEST(TextViewer, AWordThatStandsNowhereIsToldOnceAndNotFound) {
    ViewerWorld world;
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(world.find(u"無", u"先\r後", 1));
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_THAT(world.takeSpoken(), IsEmpty());
}

TEST(TextViewer, NoWordFindsNothingAndTellsNothing) {
    ViewerWorld world;
    EXPECT_FALSE(world.find(u"", u"abc", 0));
}

TEST(TextViewer, SaysTheLineOfTheWordThatWasFound) {
    ViewerWorld world;
    world.find(u"い", u"あ\rまいく\rう", 0);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("まいく"));
}

TEST(TextViewer, PrintsTheSelectionOrElseAllOfIt) {
    ViewerWorld world;
    world.viewer.show(u"one\rtwo", u"題");
    world.viewer.print({u"one\rtwo", 7, 4, 3});
    ASSERT_EQ(world.printer.drawn.size(), 1U);
    EXPECT_EQ(world.printer.drawn[0].text, "two");
    EXPECT_EQ(world.printer.title, "題");
    world.printer.drawn.clear();
    world.viewer.print({u"one\rtwo", 7, 7, 0});
    EXPECT_EQ(world.printer.drawn.size(), 2U);
    EXPECT_EQ(world.printer.documents, 2);
}

TEST(TextViewer, AnEmptyTextIsNotPrinted) {
    ViewerWorld world;
    world.dialogs.expectedMessages = 1;
    world.viewer.print({});
    EXPECT_EQ(world.printer.documents, 0);
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
}

TEST(TextViewer, CancelRedrawsTheSheetBehindAStatisticOnly) {
    ViewerWorld world;
    world.viewer.cancelled();
    EXPECT_EQ(world.screen.redraws, 0);
    world.zormod.taskWord = u"SFCC";
    world.viewer.cancelled();
    EXPECT_EQ(world.screen.redraws, 1);
}
