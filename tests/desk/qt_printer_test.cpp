// Real printed pages: a PDF file is written without a printer and read back as text.

#include "output/forms/print_talk.h"
#include "output/print_text.h"
#include "platform/failure.h"
#include "support/qt/desk.h"

#include <QProcess>
#include <QWidget>

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

/// The printer of a desktop that has none, or that has one.
class ChosenPrinter : public QtPrinter {
public:
    bool has = false;

protected:
    bool hasPrinter() const override { return has; }
};

struct PrinterPart {
    ChosenPrinter printer;
};

struct PrintDesk : PrinterPart, Desk {
    PrintDesk() : Desk({.printer = &printer}) {
        printer.setTalk(printTalk(context));
        open(owner);
        zormod.speech.speechMode = 1;
    }
    QWidget owner;
    /// Answers the question for the file with `name`.
    void nameFile(TextView name) {
        inNextModal([this, name] {
            keys.press(ctrlKey(Key::a));
            keys.type(name);
            keys.press(plainKey(Key::enter));
        });
    }
    /// The pages of a PDF file in the folder as lines of text.
    std::vector<std::vector<std::string>> pages(const std::string& name) {
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"),
                                                   QString::fromStdString(world.folder.path() + "/" + name),
                                                   QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished()) << reader.errorString().toStdString();
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
        std::istringstream all(reader.readAllStandardOutput().toStdString());
        std::vector<std::vector<std::string>> found;
        for (std::string page; std::getline(all, page, '\f');) {
            std::istringstream stream(page);
            found.emplace_back();
            for (std::string line; std::getline(stream, line);) {
                const auto start = line.find_first_not_of(' ');
                if (start != std::string::npos) {
                    found.back().push_back(line.substr(start));
                }
            }
        }
        return found;
    }
};

} // namespace

TEST(QtPrinter, WithoutAPrinterThePagesGoIntoAPdfFile) {
    PrintDesk desk;
    Text text = u"一行目のテキスト\r\rABC ｶﾅ 123\r";
    for (int i = 0; i < 80; ++i) {
        text += u"次の行\r";
    }
    desk.nameFile(u"out");
    EXPECT_TRUE(desk.guard.run([&] { EXPECT_TRUE(printText(desk.zormod, text, u"題")); }));
    EXPECT_THAT(desk.world.bytesOf("out.pdf"), StartsWith("%PDF"));
    const auto pages = desk.pages("out.pdf");
    ASSERT_GE(pages.size(), 2U);
    ASSERT_GE(pages[0].size(), 3U);
    EXPECT_EQ(pages[0][0], "一行目のテキスト");
    EXPECT_EQ(pages[0][1], "ABC ｶﾅ 123");
    std::size_t lines = 0;
    for (const auto& page : pages) {
        lines += page.size();
    }
    EXPECT_EQ(lines, 82U) << "no line is lost at the end of a page";
}

TEST(QtPrinter, SaysWhereTheFileIs) {
    PrintDesk desk;
    desk.nameFile(u"out");
    desk.guard.run([&] {
        desk.zormod.platform.printer.begin(u"題");
        desk.world.later();
        desk.spoken();
        desk.zormod.platform.printer.end();
    });
    EXPECT_THAT(desk.spoken(), ElementsAre(HasSubstr("out.pdfに書き出しました")));
}

TEST(QtPrinter, AFullWidthCharacterIsExactlyTwoHalfWidthOnesInTwips) {
    PrintDesk desk;
    desk.nameFile(u"out");
    desk.guard.run([&] {
        Printer& printer = desk.zormod.platform.printer;
        ASSERT_TRUE(printer.begin(u"題"));
        EXPECT_NEAR(printer.pageWidth(), 11906, 10) << "A4, to the whole point";
        EXPECT_NEAR(printer.pageHeight(), 16838, 10);
        for (const TextView font : {u"標準明朝", u"ＭＳ 明朝", u"ＭＳ ゴシック"}) {
            for (const double points : {6.6, 7.8, 9.6, 10.5, 11.0, 15.0}) {
                printer.setFont(Text(font));
                printer.setFontSize(points);
                EXPECT_EQ(printer.textWidth(u"0000000000"), std::lround(points * 100)) << utf8(font) << points;
                EXPECT_EQ(printer.textWidth(u"漢字漢字漢"), std::lround(points * 100));
                EXPECT_GE(printer.textHeight(u"Textsumple"), points * 20);
                EXPECT_LE(printer.textHeight(u"Textsumple"), points * 20 * 1.5);
            }
        }
        printer.end();
    });
}

TEST(QtPrinter, GivingUpTheFileNameWritesNothing) {
    PrintDesk desk;
    desk.inNextModal(plainKey(Key::escape));
    desk.guard.run([&] { EXPECT_FALSE(printText(desk.zormod, u"a", u"題")); });
    EXPECT_EQ(desk.world.bytesOf("印刷.pdf"), "");
}

TEST(QtPrinter, AFileThatCannotBeWrittenIsAFailure) {
    PrintDesk desk;
    desk.nameFile(u"none\\out");
    desk.guard.run([&] {
        Printer& printer = desk.zormod.platform.printer;
        ASSERT_TRUE(printer.begin(u"題"));
        EXPECT_THROW(printer.end(), RuntimeFailure);
    });
}

TEST(QtPrinter, ADocumentThatWasNeverEndedIsThrownAway) {
    PrintDesk desk;
    desk.nameFile(u"first");
    desk.nameFile(u"second");
    desk.guard.run([&] {
        Printer& printer = desk.zormod.platform.printer;
        printer.begin(u"題");
        printer.print(u"first");
        printer.begin(u"題");
        printer.moveTo(1000, 1000);
        printer.print(u"second");
        printer.end();
    });
    EXPECT_EQ(desk.world.bytesOf("first.pdf"), "");
    EXPECT_THAT(desk.pages("second.pdf"), ElementsAre(ElementsAre("second")));
}

TEST(QtPrinter, AChosenPlaceIsWhereTheTextStandsAndTheNextTextFollowsIt) {
    PrintDesk desk;
    desk.nameFile(u"out");
    desk.guard.run([&] {
        Printer& printer = desk.zormod.platform.printer;
        printer.begin(u"題");
        printer.setFont(u"ＭＳ ゴシック");
        printer.setFontSize(10);
        printer.moveTo(1000, 3000);
        printer.print(u"下");
        printer.moveTo(1000, 1000);
        printer.print(u"上");
        printer.print(u"右");
        printer.newPage();
        printer.moveTo(0, 500);
        printer.print(u"裏");
        printer.end();
    });
    EXPECT_THAT(desk.pages("out.pdf"), ElementsAre(ElementsAre("上右", "下"), ElementsAre("裏")));
}

TEST(QtPrinter, WithAPrinterTheDesktopsDialogAsksAndEscGivesUp) {
    PrintDesk desk;
    desk.printer.has = true;
    desk.inNextModal([&] {
        EXPECT_THAT(desk.spoken(), ElementsAre("印刷ダイアログです。CRで印刷、escで中止します"));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.guard.run([&] { EXPECT_FALSE(printText(desk.zormod, u"a", u"題")); });
}
