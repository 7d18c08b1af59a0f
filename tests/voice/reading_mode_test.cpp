#include "voice/reading_mode.h"

#include "platform/failure.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Log = std::vector<std::string>;

/// Writes down what the screen was told, what was spoken, and when time passed, in one order.
class LoggingScreen : public FakeScreen {
public:
    explicit LoggingScreen(Log& log) : log_(log) {}
    void showSpeek(bool visible) override {
        FakeScreen::showSpeek(visible);
        log_.push_back(visible ? "Speek! shown" : "Speek! hidden");
    }
    void showReadingMode(int mode) override {
        FakeScreen::showReadingMode(mode);
        log_.push_back(mode == 0 ? "marks 0" : mode == 1 ? "marks 1" : "marks 2");
    }
    void showPinnedAutoRead(bool on) override {
        FakeScreen::showPinnedAutoRead(on);
        log_.push_back(on ? "pinned on" : "pinned off");
    }

private:
    Log& log_;
};

class LoggingClipboard : public FakeClipboard {
public:
    LoggingClipboard(Log& log, const FakeClock& clock) : log_(log), clock_(clock) {}
    bool write(TextView text) override {
        log_.push_back("said " + utf8(text));
        spokenAt = clock_.now;
        return FakeClipboard::write(text);
    }
    double spokenAt = 0;

private:
    Log& log_;
    const FakeClock& clock_;
};

/// Calls back in every rest of a wait.
class WatchingClock : public FakeClock {
public:
    void shortSleep() override {
        FakeClock::shortSleep();
        onSleep();
    }
    std::function<void()> onSleep;
};

struct ModeWorld : TestWorld {
    ModeWorld()
        : logging(log, clock), recorder(log),
          state(Platform{logging, clock, beeper, files, codePage, dialogs, recorder, commands, forms, eventLoop, printer}),
          speech(state.speech) {
        state.file.programFolder = zormod.file.programFolder;
    }
    void writeZorTalkFile(std::string_view bytes) { writeFile("zorTalk", bytes); }
    int modeFromFile(std::string_view bytes) {
        writeZorTalkFile(bytes);
        speech.speechMode = 77;
        readZorTalk(state);
        return speech.speechMode;
    }
    Log log;
    LoggingClipboard logging;
    LoggingScreen recorder;
    ZORMOD state;
    SpeechState& speech;
};

} // namespace

TEST(ReadingMode, DataOnlyShowsItselfAndThenConfirms) {
    ModeWorld world;
    mnuDTKN(world.state);
    EXPECT_EQ(world.speech.speechMode, 1);
    EXPECT_EQ(world.log, (Log{"Speek! shown", "marks 1", "said データのみ読み上げ。｡."}));
}

TEST(ReadingMode, WithNumbersShowsItselfAndThenConfirms) {
    ModeWorld world;
    mnuDTKEX(world.state);
    EXPECT_EQ(world.speech.speechMode, 2);
    EXPECT_EQ(world.log, (Log{"Speek! shown", "marks 2", "said 行、項目番号付き読み上げ。｡."}));
}

TEST(ReadingMode, OffConfirmsWhileSpeechIsStillOnAndLetsItBeHeard) {
    ModeWorld world;
    world.speech.speechMode = 2;
    mnuDTKOFF(world.state);
    EXPECT_EQ(world.log, (Log{"Speek! hidden", "said 読み上げｵﾌ。｡.", "marks 0"}));
    EXPECT_EQ(world.speech.speechMode, 0);
    EXPECT_NEAR(world.clock.now - world.logging.spokenAt, 1.8, 0.01);
}

TEST(ReadingMode, SpeechStaysOnUntilTheConfirmationHasBeenHeard) {
    TestWorld world;
    WatchingClock watching;
    ZORMOD state(Platform{world.clipboard, watching, world.beeper, world.files, world.codePage, world.dialogs,
                          world.screen, world.commands, world.forms, world.eventLoop, world.printer});
    state.speech.speechMode = 1;
    int rests = 0;
    watching.onSleep = [&] {
        ++rests;
        EXPECT_EQ(state.speech.speechMode, 1);
    };
    mnuDTKOFF(state);
    EXPECT_GT(rests, 0);
    EXPECT_EQ(state.speech.speechMode, 0);
}

TEST(ReadingMode, OffIsSilentIfSpeechWasOff) {
    ModeWorld world;
    mnuDTKOFF(world.state);
    EXPECT_EQ(world.log, (Log{"Speek! hidden", "marks 0"}));
    EXPECT_EQ(world.speech.speechMode, 0);
}

TEST(ReadingMode, ConfirmationsComeThroughTheThrottleButTheModeChangesAnyway) {
    ModeWorld world;
    world.speech.lastSpokenTime = world.clock.now;
    mnuDTKN(world.state);
    EXPECT_EQ(world.log, (Log{"Speek! shown", "marks 1"}));
    EXPECT_EQ(world.speech.speechMode, 1);
}

TEST(ReadingMode, ThePinnedItemIsAddedOrNot) {
    ModeWorld world;
    world.speech.speechMode = 1;
    mnuJY(world.state);
    EXPECT_EQ(world.speech.pinnedAutoRead, 1);
    world.later();
    mnuJY(world.state);
    EXPECT_EQ(world.speech.pinnedAutoRead, 0);
    EXPECT_EQ(world.log, (Log{"pinned on", "said 常時表示項目自動読み上げオン。｡.", "pinned off",
                              "said 常時表示項目自動読み上げオフ。｡."}));
}

TEST(InhibitTime, IsAskedForWithThePresentValue) {
    ModeWorld world;
    world.dialogs.texts = {u"0.5", u"1"};
    mnuINH(world.state);
    mnuINH(world.state);
    ASSERT_EQ(world.dialogs.questions.size(), 2u);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "読み上げ禁止時間の設定");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "読み上げ禁止時間を秒単位で入力してください。読み上げソフトにエラーが出る場合、読み上げ禁止時間を長く設定"
              "して試してください。");
    EXPECT_EQ(world.dialogs.questions[0].defaultText, u"0.2");
    EXPECT_EQ(world.dialogs.questions[1].defaultText, u"0.5");
}

TEST(InhibitTime, StaysWithinATenthAndAWholeSecond) {
    const std::vector<std::pair<Text, double>> answers{{u"0.05", 0.1},   {u"5", 1},       {u"abc", 0.1}, {u"0.1", 0.1},
                                                       {u"1", 1},        {u"0.35", 0.35}, {u"-3", 0.1},  {u" .5 ", 0.5},
                                                       {u"０．５", 0.5}, {u"1.01", 1},    {u"   ", 0.1}};
    for (const auto& [answer, expected] : answers) {
        ModeWorld world;
        world.dialogs.texts = {answer};
        mnuINH(world.state);
        EXPECT_EQ(world.speech.inhibitSeconds, expected) << utf8(answer);
        EXPECT_EQ(world.beeper.count, 0);
    }
}

TEST(InhibitTime, NothingTypedBeepsAndChangesNothing) {
    ModeWorld world;
    world.speech.inhibitSeconds = 0.7;
    world.dialogs.texts = {u""};
    mnuINH(world.state);
    EXPECT_EQ(world.speech.inhibitSeconds, 0.7);
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(ZorTalk, IsOneNumberAsPrinted) {
    ModeWorld world;
    for (const auto& [mode, line] : {std::pair{0, " 0 \r\n"}, {1, " 1 \r\n"}, {2, " 2 \r\n"}}) {
        world.speech.speechMode = static_cast<std::int16_t>(mode);
        writeZorTalk(world.state);
        EXPECT_EQ(world.bytesOf("zorTalk"), line);
        EXPECT_EQ(world.modeFromFile(line), mode);
    }
}

TEST(ZorTalk, IsReadWithOrWithoutBlanksAndLineEnd) {
    ModeWorld world;
    EXPECT_EQ(world.modeFromFile("1"), 1);
    EXPECT_EQ(world.modeFromFile("  1  \r\n"), 1);
    EXPECT_EQ(world.modeFromFile("0\n2\n"), 0);
    EXPECT_EQ(world.modeFromFile("0\r1"), 0);
    EXPECT_EQ(world.modeFromFile("abc\r\n"), 0);
    EXPECT_EQ(world.modeFromFile("\r\n"), 0);
}

TEST(ZorTalk, AFileThatIsMissingEmptyOrNotOursMeansFullSpeech) {
    ModeWorld world;
    readZorTalk(world.state);
    EXPECT_EQ(world.speech.speechMode, 2);
    EXPECT_EQ(world.modeFromFile(""), 2);
    EXPECT_EQ(world.modeFromFile(std::string(2000, '0')), 2);
    world.state.file.programFolder += u"missing\\";
    world.speech.speechMode = 0;
    readZorTalk(world.state);
    EXPECT_EQ(world.speech.speechMode, 2);
    EXPECT_EQ(world.log, Log{});
}

TEST(ZorTalk, AnyOtherNumberMeansThatSpeechIsOn) {
    ModeWorld world;
    EXPECT_EQ(world.modeFromFile(" 3 \r\n"), 2);
    EXPECT_EQ(world.modeFromFile("-1\r\n"), 2);
    EXPECT_EQ(world.modeFromFile("99999\r\n"), 2);
    EXPECT_EQ(world.modeFromFile("1E999\r\n"), 2);
}

TEST(ZorTalk, AWriteThatFailsIsAFailureOfTheFile) {
    ModeWorld world;
    world.state.file.programFolder += u"missing\\";
    try {
        writeZorTalk(world.state);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::file);
    }
}
