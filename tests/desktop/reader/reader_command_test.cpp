// The reading program as a command: what it prints and with which status it ends; and the desktop's speech service,
// played by a library of the tests.

#include "tests/desktop/reader/support/reader_process.h"
#include "tests/desktop/support/processes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* mark = "。｡.";

/// Puts the played speech service in the place of the real one.
struct FakeService {
    FakeService(const EngineFolder& folder, const std::string& how) {
        setenv("FAKE_SPEECHD", how.c_str(), 1);
        setenv("FAKE_SPEECHD_LOG", folder.file("service").c_str(), 1);
        setenv("LD_LIBRARY_PATH", FAKE_SPEECHD_FOLDER, 1);
    }
    ~FakeService() {
        for (const char* name : {"FAKE_SPEECHD", "FAKE_SPEECHD_LOG", "LD_LIBRARY_PATH"})
            unsetenv(name);
    }
};

} // namespace

TEST(ReaderCommand, HelpAndVersionArePrinted) {
    EngineFolder folder;
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--help", &status), AllOf(HasSubstr("usage: romika-reader"), HasSubstr("--say")));
    EXPECT_EQ(status, 0);
    EXPECT_THAT(outputOfReader(folder, "--version", &status), testing::MatchesRegex("romika-reader [0-9.]+\n"));
    EXPECT_EQ(status, 0);
}

TEST(ReaderCommand, AWrongOptionIsToldWithItsOwnStatus) {
    EngineFolder folder;
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--loud", &status), AllOf(HasSubstr("--loud"), HasSubstr("--help")));
    EXPECT_EQ(status, 2);
}

TEST(ReaderCommand, SayingWritesAWaveFile) {
    EngineFolder folder;
    FakeService service(folder, "text");
    int status = -1;
    EXPECT_EQ(outputOfReader(folder, "--wav " + folder.file("wave") + " --say 'ﾛﾐｶ ｼｭｳﾘｮｳ'", &status), "");
    EXPECT_EQ(status, 0);
    EXPECT_GT(folder.read("wave").size(), 20000U);
    EXPECT_EQ(folder.read("service"), "") << "the speech service can't write into a file";
    EXPECT_NE(outputOfReader(folder, "--engine espeak --wav /no/folder/wave --say あ", &status), "");
    EXPECT_EQ(status, 1);
}

TEST(ReaderCommand, SayingSpeaksOnceAndEnds) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    int status = -1;
    EXPECT_EQ(outputOfReader(folder, "--say 終了 --log -", &status),
              "engine\tespeak\nkana\tシューリョー\nsound\tespeak\nend\t\n");
    EXPECT_EQ(status, 0);
    EXPECT_THAT(playerNews(folder, "all"), testing::SizeIs(1));
}

TEST(ReaderCommand, SayingWithoutASoundDeviceIsAFailure) {
    EngineFolder folder;
    FakePlayer player(folder, "broken");
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--say 終了", &status), HasSubstr("no sound device"));
    EXPECT_EQ(status, 1);
}

TEST(ReaderCommand, WithoutADesktopItSaysSoInPlainWords) {
    EngineFolder folder;
    const std::string display = std::getenv("DISPLAY");
    unsetenv("DISPLAY");
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--engine log", &status), HasSubstr("there is no desktop"));
    EXPECT_EQ(status, 1);
    setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    EXPECT_THAT(outputOfReader(folder, "--background --engine log", &status), HasSubstr("without XWayland"));
    EXPECT_EQ(status, 1);
    unsetenv("WAYLAND_DISPLAY");
    setenv("DISPLAY", display.c_str(), 1);
}

TEST(ReaderCommand, WithoutAnyEngineItSaysSo) {
    EngineFolder folder;
    FakeService service(folder, "none");
    int status = -1;
    for (const char* how : {"", " --background"}) {
        EXPECT_THAT(outputOfReader(folder, std::string("--engine openjtalk") + how, &status),
                    HasSubstr("no engine is installed"));
        EXPECT_EQ(status, 1);
    }
}

TEST(ReaderCommand, ALogThatCantBeWrittenIsTold) {
    EngineFolder folder;
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--log /no/folder/log", &status), HasSubstr("/no/folder/log"));
    EXPECT_EQ(status, 1);
}

TEST(ReaderCommand, ABadSettingIsToldAndTheReaderGoesOn) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    std::ofstream(folder.file("romika/reader.conf"), std::ios::app) << "volume = 11\n";
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--say 終了", &status), AllOf(HasSubstr("volume"), HasSubstr("reader.conf")));
    EXPECT_EQ(status, 0);
}

TEST(ReaderCommand, TheCheckTellsTheTruthWhereSpeechWorks) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    FakeService service(folder, "none");
    int status = -1;
    const std::string output = outputOfReader(folder, "--check", &status);
    EXPECT_THAT(output, HasSubstr("speechd, the desktop's speech service (デスクトップの音声サービス): is not there"));
    EXPECT_THAT(output, HasSubstr("openjtalk, Open JTalk: is not there"));
    EXPECT_THAT(output, HasSubstr("*.htsvoice"));
    EXPECT_THAT(output, HasSubstr("espeak, MeCab and eSpeak NG: works"));
    EXPECT_THAT(output, HasSubstr("Speech works with espeak"));
    EXPECT_EQ(status, 0);
    EXPECT_THAT(playerNews(folder, "all"), testing::SizeIs(2)) << "a moment of silence, and the outcome in words";
}

TEST(ReaderCommand, TheCheckTellsTheTruthWithoutASoundDevice) {
    EngineFolder folder;
    FakePlayer player(folder, "broken");
    FakeService service(folder, "none");
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--check", &status),
                AllOf(HasSubstr("espeak, MeCab and eSpeak NG: works"), HasSubstr("takes no sound"),
                      HasSubstr("no sound comes out")));
    EXPECT_EQ(status, 1);
}

TEST(ReaderCommand, TheCheckTellsTheTruthAboutAnEngineThatIsBroken) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    FakeService service(folder, "none");
    folder.add("espeak-ng", "exit 1");
    int status = -1;
    EXPECT_THAT(outputOfReader(folder, "--check", &status),
                AllOf(HasSubstr("eSpeak NG: is there and does not work"), HasSubstr("No engine works")));
    EXPECT_EQ(status, 1);
}

TEST(ReaderCommand, TheSpeechServiceIsTakenWhenItHasAJapaneseVoice) {
    EngineFolder folder;
    FakeService service(folder, "text");
    ReaderProcess reader(folder, {"--engine", "auto", "--speed", "6"});
    TextOwner owner;
    owner.put(std::string("一つ目は｡二つ目") + mark);
    EXPECT_TRUE(hears(folder, "end", 1));
    EXPECT_THAT(folder.events("engine"), ElementsAre("speechd"));
    EXPECT_EQ(folder.read("service"), "rate 40\nsay better 一つ目は。\nrate 40\nsay better 二つ目\n");
    EXPECT_THAT(folder.events("notice"), IsEmpty());
}

TEST(ReaderCommand, ATextThatGivesWayToAScreenReaderIsSaidBehindIt) {
    EngineFolder folder;
    FakeService service(folder, "busy");
    int status = -1;
    EXPECT_EQ(outputOfReader(folder, "--say 検索", &status), "");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.read("service"), "rate 0\nsay better 検索\nrate 0\nsay better 検索\n");
}

TEST(ReaderCommand, AServiceOfTheEspeakFamilyIsGivenKana) {
    EngineFolder folder;
    FakeService service(folder, "kana");
    int status = -1;
    outputOfReader(folder, "--say 検索は", &status);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.read("service"), "rate 0\nsay espeak-ng ケンサクワ\n");
}

TEST(ReaderCommand, AServiceWithoutAJapaneseVoiceIsPassedOverInSilence) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    FakeService service(folder, "english");
    EXPECT_EQ(outputOfReader(folder, "--engine auto --say 検索は --log -"),
              "engine\tespeak\nkana\tケンサクワ\nsound\tespeak\nend\t\n");
    EXPECT_EQ(folder.read("service"), "");
}

TEST(ReaderCommand, AServiceThatHangsIsReplacedWithANotice) {
    EngineFolder folder;
    FakePlayer player(folder, "fast");
    for (const char* how : {"hang", "silent"}) {
        FakeService service(folder, how);
        int status = -1;
        EXPECT_THAT(outputOfReader(folder, "--engine auto --say 検索は", &status), HasSubstr("espeak takes its place"));
        EXPECT_EQ(status, 0);
    }
    EXPECT_THAT(playerNews(folder, "all"), testing::SizeIs(2));
}

TEST(ReaderCommand, CuttingOffTheServiceCancelsOnlyWhatTheReaderSaid) {
    EngineFolder folder;
    FakeService service(folder, "silent");
    ReaderProcess reader(folder, {"--engine", "auto"});
    TextOwner owner;
    owner.put(std::string("検索") + mark);
    EXPECT_TRUE(becomesTrue([&] { return folder.read("service").find("ケンサク") != std::string::npos; }));
    owner.put(mark);
    EXPECT_TRUE(becomesTrue([&] { return folder.read("service").find("cancel\n") != std::string::npos; }));
    EXPECT_THAT(folder.read("service"), Not(HasSubstr("cancel_all")));
}
