// The sources keep their own rules, and each rule is shown to notice an offence. A rule that finds nothing because it
// looks at nothing would be worse than none.

#include "support/source_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

/// What a line of code in a file of the product is found guilty of.
std::vector<Finding> planted(const std::string& path, const std::string& line) {
    const std::string head = path.ends_with(".h") ? "#pragma once\n// What this is.\n" : "";
    return findingsIn({path, head + line + "\n"});
}

std::string header(const std::string& include) { return "#include \"" + include + "\"\n"; }

} // namespace

TEST(SourceRules, TheProductKeepsThem) {
    const auto files = productFiles(ROMIKA_SOURCE_DIR);
    ASSERT_GT(files.size(), 30U);
    for (const auto& file : files) {
        EXPECT_THAT(findingsIn(file), IsEmpty()) << file.path;
    }
    EXPECT_THAT(findingsAmong(files), IsEmpty());
}

TEST(SourceRules, NoTestWaitsForRealTime) {
    const auto files = testFiles(ROMIKA_SOURCE_DIR);
    ASSERT_GT(files.size(), 5U);
    for (const auto& file : files) {
        EXPECT_THAT(findingsInTest(file), IsEmpty()) << file.path;
    }
}

TEST(SourceRules, CoreIncludesNoToolkit) {
    for (const auto* line : {"#include <QString>", "#include <QtCore/QString>", "#include <qglobal.h>"}) {
        EXPECT_THAT(planted("sheet/cell.cpp", line), Contains(HasSubstr("core includes the toolkit"))) << line;
        EXPECT_THAT(planted("edit/forms/Form1.cpp", line), IsEmpty()) << line;
        EXPECT_THAT(planted("platform/qt/screen.cpp", line), IsEmpty()) << line;
    }
    for (const auto* line : {"#include <queue>", "#include \"platform/text.h\"", "// #include <QString>"}) {
        EXPECT_THAT(planted("sheet/cell.cpp", line), IsEmpty()) << line;
    }
}

TEST(SourceRules, CoreIncludesNothingAboveIt) {
    for (const auto* above : {"edit/forms/Form1.h", "platform/qt/screen.h"}) {
        EXPECT_THAT(planted("edit/jumps.cpp", header(above)), Contains(HasSubstr("above it"))) << above;
        EXPECT_THAT(planted("main.cpp", header(above)), IsEmpty()) << above;
    }
}

TEST(SourceRules, AFormIncludesNoOtherForm) {
    EXPECT_THAT(planted("edit/forms/Form1.cpp", header("edit/forms/frmJump.h")),
                Contains(HasSubstr("includes another form")));
    for (const auto* helper : {"edit/forms/Form1.h", "edit/forms/sheet_font.h", "voice/forms/SpokenForm.h"}) {
        EXPECT_THAT(planted("edit/forms/Form1.cpp", header(helper)), IsEmpty()) << helper;
    }
    EXPECT_THAT(planted("voice/forms/message_dialogs.cpp", header("voice/forms/FrmOK.h")), IsEmpty());
}

TEST(SourceRules, NoWholeToolkitModuleIsIncluded) {
    for (const auto* line : {"#include <QtWidgets>", "#include <QtWidgets/QtWidgets>", "#include <QtCore>"}) {
        EXPECT_THAT(planted("edit/forms/Form1.cpp", line), Contains(HasSubstr("whole toolkit module"))) << line;
    }
    EXPECT_THAT(planted("edit/forms/Form1.cpp", "#include <QtWidgets/QLabel>"), IsEmpty());
}

TEST(SourceRules, TheClockStandsBehindItsSeam) {
    for (const auto* line : {"    const auto now = std::chrono::steady_clock::now();", "using std::chrono::seconds;",
                             "std::time(nullptr);", "    QElapsedTimer timer;", "QThread::msleep(5);"}) {
        EXPECT_THAT(planted("voice/speech_channel.cpp", line), Contains(HasSubstr("clock"))) << line;
        EXPECT_THAT(planted("platform/qt/clock.cpp", line), IsEmpty()) << line;
        EXPECT_THAT(planted("platform/keeper/keeper.cpp", line), IsEmpty()) << line;
    }
    EXPECT_THAT(planted("voice/speech_channel.cpp", "const double now = platform.clock.now();"), IsEmpty());
}

TEST(SourceRules, TheClipboardStandsBehindItsSeam) {
    for (const auto* line : {"QGuiApplication::clipboard()->text();", "    edit->paste();", "    box_->copy();"}) {
        EXPECT_THAT(planted("edit/forms/Form1.cpp", line), Contains(HasSubstr("clipboard"))) << line;
    }
    EXPECT_THAT(planted("voice/speech_channel.cpp", "platform.clipboard.write(text);"), IsEmpty());
}

TEST(SourceRules, NoMessageFormSpeaksPastTheVoice) {
    EXPECT_THAT(planted("platform/qt/dialogs.cpp", "QMessageBox::warning(this, title, text);"),
                Contains(HasSubstr("message form")));
}

TEST(SourceRules, FilesStandBehindTheirSeam) {
    for (const auto* line : {"    auto* file = fopen(name, mode);", "    std::ofstream out(name);", "#include <filesystem>",
                             "    const int fd = ::open(name, 0);", "    QFile file(name);"}) {
        EXPECT_THAT(planted("sheet/item_file.cpp", line), Contains(HasSubstr("file is touched"))) << line;
        EXPECT_THAT(planted("platform/posix/files.cpp", line), IsEmpty()) << line;
    }
    EXPECT_THAT(planted("sheet/item_file.cpp", "const auto file = Connection::open(path);"), IsEmpty());
}

TEST(SourceRules, NumbersBecomeTextInOnePlace) {
    for (const auto* line : {"return std::to_string(count);", "snprintf(room, size, picture, value);",
                             "label->setText(QString::number(count));", "return text.arg(count);",
                             "    std::ostringstream out;", "std::format(picture, value);"}) {
        EXPECT_THAT(planted("edit/forms/Form1.cpp", line), Contains(HasSubstr("number becomes text"))) << line;
        EXPECT_THAT(planted("platform/number_text.cpp", line), IsEmpty()) << line;
    }
}

TEST(SourceRules, StateIsHandedDown) {
    for (const auto* line : {"int counter = 0;", "Text lastWords;", "static int calls = 0;", "    static Text kept;",
                             "extern int shared;", "thread_local int depth = 0;", "std::vector<int> found{};",
                             "inline bool speaking = false;"}) {
        EXPECT_THAT(planted("voice/words.cpp", line), Contains(HasSubstr("handed down"))) << line;
    }
    for (const auto* line : {"constexpr int limit = 254;", "    static const Table table = make();", "class ZORMOD;",
                             "using Bytes = std::string;", "static int helper(int count);", "int count(Text text);",
                             "    int counter = 0;", "    return counter;", "};", "extern \"C\" {",
                             "static std::size_t widthOf(int item) {", "struct Row;", "return found;"}) {
        EXPECT_THAT(planted("voice/words.cpp", line), IsEmpty()) << line;
    }
}

TEST(SourceRules, FilesStaySmall) {
    std::string text;
    for (int line = 0; line < 700; ++line) {
        text += "f();\n";
    }
    EXPECT_THAT(findingsIn({"sheet/cell.cpp", text}), IsEmpty());
    EXPECT_THAT(findingsIn({"sheet/cell.cpp", text + "f();\n"}), Contains(HasSubstr("more than 700 lines")));
}

TEST(SourceRules, AHeaderSaysWhatItIs) {
    EXPECT_THAT(findingsIn({"sheet/cell.h", "#pragma once\n// A cell.\n"}), IsEmpty());
    EXPECT_THAT(findingsIn({"sheet/cell.h", "// A cell.\n"}), Contains(HasSubstr("#pragma once")));
    EXPECT_THAT(findingsIn({"sheet/cell.h", "#pragma once\n\nint f();\n"}), Contains(HasSubstr("says under")));
}

TEST(SourceRules, NothingIsLeftUnfinished) {
    EXPECT_THAT(planted("sheet/cell.cpp", std::string("// TO") + "DO: the rest"), Contains(HasSubstr("unfinished")));
}

TEST(SourceRules, CommentsAndLiteralsAreNotCode) {
    EXPECT_THAT(planted("sheet/cell.cpp", "// as std::to_string would"), IsEmpty());
    EXPECT_THAT(planted("sheet/cell.cpp", "/* fopen\n fopen */ f(u\"QClipboard\", 'x', R\"(QFile)\");"), IsEmpty());
    EXPECT_THAT(planted("sheet/cell.cpp", "f('\"'); fopen(1'000, \"\\\"\");"), Contains(HasSubstr("sheet/cell.cpp:1: ")));
    EXPECT_EQ(codeOf("a /* b\nc */ d // e\nf"), "a     \n     d     \nf");
}

TEST(SourceRules, RoomsLookDownwards) {
    const SourceFile speech{"voice/speech.h", ""};
    const SourceFile width{"transform/width_conversion.h", ""};
    EXPECT_THAT(findingsAmong({{"sheet/cell.cpp", header("voice/speech.h")}, speech}),
                Contains(HasSubstr("looks up to a higher room")));
    EXPECT_THAT(findingsAmong({{"edit/keys.cpp", header("voice/speech.h")}, speech}), IsEmpty());
    EXPECT_THAT(findingsAmong({{"voice/words.cpp", header("transform/width_conversion.h")}, width}), IsEmpty());
    EXPECT_THAT(findingsAmong({{"transform/width_conversion.h", header("voice/speech.h")}, speech}),
                Contains(HasSubstr("a leaf knows nothing but platform")));
}

TEST(SourceRules, HeadersDoNotGoInCircles) {
    EXPECT_THAT(findingsAmong({{"edit/a.h", header("edit/b.h")}, {"edit/b.h", header("edit/c.h")},
                               {"edit/c.h", header("edit/a.h")}}),
                Contains(HasSubstr("edit/a.h > edit/b.h > edit/c.h > edit/a.h")));
    EXPECT_THAT(findingsAmong({{"edit/a.h", header("edit/b.h") + header("edit/c.h")},
                               {"edit/b.h", header("edit/c.h")}, {"edit/c.h", ""}}),
                IsEmpty());
}

TEST(SourceRules, AWaitingTestIsNoticed) {
    const std::string line = "    QTest::qWait(200);\n";
    EXPECT_THAT(findingsInTest({"tests/desk/keys_test.cpp", line}), Contains(HasSubstr("real time")));
    EXPECT_THAT(findingsInTest({"tests/desktop/keys_test.cpp", line}), IsEmpty());
    EXPECT_THAT(findingsInTest({"tests/desk/keys_test.cpp", "    QTest::qWaitFor(isThere);\n"}), IsEmpty());
}
