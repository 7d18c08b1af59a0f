#include "output/pdf_target.h"

#include "support/test_world.h"

#include <gmock/gmock.h>

namespace {

struct PdfWorld : TestWorld {
    std::string ask() { return utf8(askPdfPath(zormod)); }
    std::string inFolder(TextView name) const { return utf8(zormod.file.programFolder + Text(name)); }
};

} // namespace

TEST(PdfTarget, ProposesAFileBesideTheTable) {
    PdfWorld world;
    world.table({{u"ID", u"L", 3}}, {{u"1"}});
    world.dialogs.texts = {u""};
    EXPECT_EQ(world.ask(), "");
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), world.inFolder(u"t.pdf"));
}

TEST(PdfTarget, ProposesAFileInTheProgramsFolderWithoutATable) {
    PdfWorld world;
    world.dialogs.texts = {u" "};
    EXPECT_EQ(world.ask(), "") << "a blank answer gives up";
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), world.inFolder(u"印刷.pdf"));
}

TEST(PdfTarget, CompletesANameWithoutDriveOrEnding) {
    PdfWorld world;
    world.dialogs.texts = {u"結果"};
    EXPECT_EQ(world.ask(), world.inFolder(u"結果.pdf"));
    world.dialogs.texts = {u"\\a.PDF"};
    EXPECT_EQ(world.ask(), world.inFolder(u"a.PDF"));
    world.dialogs.texts = {u"t.txt"};
    EXPECT_EQ(world.ask(), world.inFolder(u"t.txt.pdf")) << "a table is never the target";
    world.dialogs.texts = {u"C:\\x\\y.pdf"};
    EXPECT_EQ(world.ask(), "C:\\x\\y.pdf");
}

TEST(PdfTarget, AnExistingFileIsOverwrittenOnlyWhenTheUserSaysSo) {
    PdfWorld world;
    world.writeFile("old.pdf", "x");
    world.dialogs.texts = {u"old", u"new"};
    world.dialogs.answers = {Answer::cancel};
    EXPECT_EQ(world.ask(), world.inFolder(u"new.pdf"));
    EXPECT_EQ(utf8(world.dialogs.questions[2].defaultText), world.inFolder(u"old.pdf")) << "what was typed is not lost";
    world.dialogs.texts = {u"old"};
    world.dialogs.answers = {Answer::ok};
    EXPECT_EQ(world.ask(), world.inFolder(u"old.pdf"));
}

TEST(PdfTarget, TheFileIsKeptWholeAndTold) {
    PdfWorld world;
    world.zormod.speech.speechMode = 1;
    keepPdf(world.zormod, world.zormod.file.programFolder + u"a.pdf", "bytes");
    EXPECT_EQ(world.bytesOf("a.pdf"), "bytes");
    EXPECT_THAT(world.takeSpoken(), testing::ElementsAre(world.inFolder(u"a.pdfに書き出しました")));
}
