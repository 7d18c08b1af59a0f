#include "voice/speech_channel.h"

#include "platform/failure.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Writes down every use of the clipboard in order. A reading or a writing can be told to fail.
class LoggingClipboard : public FakeClipboard {
public:
    ClipboardText read() override {
        log.push_back("read");
        return failingRead ? ClipboardText{} : FakeClipboard::read();
    }
    bool write(TextView text) override {
        log.push_back("write " + utf8(text));
        return FakeClipboard::write(text);
    }
    bool clear() override {
        log.push_back("clear");
        return FakeClipboard::clear();
    }
    std::vector<std::string> log;
    bool failingRead = false;
};

/// A world with speech on and a clipboard that keeps a log.
struct SpeakingWorld : TestWorld {
    SpeakingWorld()
        : state(Platform{logging, clock, beeper, files, codePage, dialogs, screen, commands, forms, eventLoop, printer}),
          speech(state.speech) {
        speech.speechMode = 1;
    }
    LoggingClipboard logging;
    ZORMOD state;
    SpeechState& speech;
};

using Log = std::vector<std::string>;

/// A clock that falls back to midnight in the middle of a wait.
class MidnightClock : public FakeClock {
public:
    void shortSleep() override {
        FakeClock::shortSleep();
        if (now >= 86400) {
            now -= 86400;
        }
    }
};

} // namespace

TEST(SayText, KeepsTheUsersTextAndThenWritesItsOwnWithTheMark) {
    SpeakingWorld world;
    world.logging.foreign(u"mine");
    sayText(world.state, u"abc");
    EXPECT_EQ(world.logging.log, (Log{"read", "write abc。｡."}));
    EXPECT_EQ(world.speech.userClipboard, u"mine");
}

TEST(SayText, TouchesNothingWithSpeechOff) {
    SpeakingWorld world;
    world.speech.speechMode = 0;
    world.speech.userClipboard = u"kept";
    world.logging.foreign(u"foreign");
    Text text = u"。abc";
    sayText(world.state, text);
    EXPECT_EQ(world.logging.log, Log{});
    EXPECT_EQ(world.speech.userClipboard, u"kept");
    EXPECT_EQ(text, u"。abc");
}

TEST(SayText, SpeaksInEveryModeButZero) {
    SpeakingWorld world;
    world.speech.speechMode = 2;
    sayText(world.state, u"a");
    world.speech.speechMode = -1;
    sayText(world.state, u"b");
    EXPECT_EQ(utf8(world.logging.written), (Log{"a。｡.", "b。｡."}));
}

TEST(SayText, TakesOffOnePeriodAndThenOneComma) {
    SpeakingWorld world;
    sayText(world.state, u"。､abc");
    sayText(world.state, u"､。abc");
    sayText(world.state, u"。。､､abc");
    sayText(world.state, u"､､abc");
    sayText(world.state, u"。abc");
    sayText(world.state, u"｡､abc");
    EXPECT_EQ(utf8(world.logging.written),
              (Log{"abc。｡.", "。abc。｡.", "。､､abc。｡.", "､abc。｡.", "abc。｡.", "｡､abc。｡."}));
}

TEST(SayText, GivesTheCallersStringBackShortened) {
    SpeakingWorld world;
    Text text = u"。､abc";
    sayText(world.state, text);
    EXPECT_EQ(text, u"abc");
}

TEST(SayText, WritesTheBareMarkForAnEmptyText) {
    SpeakingWorld world;
    sayText(world.state, u"");
    sayText(world.state, u"。､");
    EXPECT_EQ(utf8(world.logging.written), (Log{"。｡.", "。｡."}));
}

TEST(SayText, DoesNotLookAtTheClock) {
    SpeakingWorld world;
    sayText(world.state, u"a");
    sayText(world.state, u"b");
    EXPECT_EQ(world.logging.written.size(), 2u);
    EXPECT_EQ(world.speech.lastSpokenTime, 0);
}

TEST(SayText, SwallowsAClipboardThatIsHeldAndTriesAgainNextTime) {
    SpeakingWorld world;
    world.speech.userClipboard = u"kept";
    world.logging.failing = true;
    sayText(world.state, u"a");
    EXPECT_EQ(world.speech.userClipboard, u"kept");
    EXPECT_EQ(world.logging.written.size(), 0u);
    world.logging.failing = false;
    sayText(world.state, u"b");
    EXPECT_EQ(utf8(world.logging.written), Log{"b。｡."});
}

TEST(SayText, IsSpokenEvenIfTheUsersTextCouldNotBeRead) {
    SpeakingWorld world;
    world.speech.userClipboard = u"kept";
    world.logging.failingRead = true;
    sayText(world.state, u"a");
    EXPECT_EQ(utf8(world.logging.written), Log{"a。｡."});
    EXPECT_EQ(world.speech.userClipboard, u"kept");
}

TEST(UserClipboard, IsNotReplacedByOurOwnTexts) {
    SpeakingWorld world;
    world.logging.foreign(u"mine");
    sayText(world.state, u"a");
    sayText(world.state, u"b");
    EXPECT_EQ(world.speech.userClipboard, u"mine");
}

TEST(UserClipboard, ATextOfAnotherProgramThatEndsInTheMarkIsNotSaved) {
    SpeakingWorld world;
    world.speech.userClipboard = u"kept";
    world.logging.foreign(u"foreign。｡.");
    keepUserClipboard(world.state);
    EXPECT_EQ(world.speech.userClipboard, u"kept");
}

TEST(UserClipboard, OnlyTheWholeMarkCounts) {
    SpeakingWorld world;
    for (const TextView text : {u"a。｡", u"｡.", u"a。.", u"。｡.a", u"a。｡. "}) {
        world.logging.foreign(text);
        keepUserClipboard(world.state);
        EXPECT_EQ(world.speech.userClipboard, text);
    }
}

TEST(UserClipboard, IsEmptiedByAClipboardWithoutText) {
    SpeakingWorld world;
    world.speech.userClipboard = u"kept";
    keepUserClipboard(world.state);
    EXPECT_EQ(world.speech.userClipboard, u"");
}

TEST(UserClipboard, StaysIfTheClipboardCannotBeRead) {
    SpeakingWorld world;
    world.speech.userClipboard = u"kept";
    world.logging.failing = true;
    keepUserClipboard(world.state);
    rememberCopied(world.state);
    EXPECT_EQ(world.speech.userClipboard, u"kept");
}

TEST(UserClipboard, WhatWasJustCopiedIsRememberedInEveryModeAndWithItsMark) {
    SpeakingWorld world;
    world.speech.speechMode = 0;
    world.logging.foreign(u"copied");
    rememberCopied(world.state);
    EXPECT_EQ(world.speech.userClipboard, u"copied");
    world.speech.speechMode = 2;
    world.logging.foreign(u"heard。｡.");
    rememberCopied(world.state);
    EXPECT_EQ(world.speech.userClipboard, u"heard。｡.");
}

TEST(UserClipboard, IsOfferedForPastingOnlyWithSpeechOn) {
    SpeakingWorld world;
    world.speech.userClipboard = u"mine";
    world.logging.foreign(u"spoken。｡.");
    world.speech.speechMode = 0;
    offerUserClipboard(world.state);
    EXPECT_EQ(world.logging.contents, u"spoken。｡.");
    EXPECT_EQ(world.logging.log, Log{});
    world.speech.speechMode = 1;
    offerUserClipboard(world.state);
    EXPECT_EQ(world.logging.contents, u"mine");
    EXPECT_EQ(world.logging.log, Log{"write mine"});
}

TEST(Throttle, DropsATextInsideTheInhibitTimeAndKeepsTheTimeOfTheFirst) {
    SpeakingWorld world;
    sayThrottled(world.state, u"first");
    const double first = world.clock.now;
    world.clock.now += 0.1;
    sayThrottled(world.state, u"second");
    EXPECT_EQ(utf8(world.logging.written), Log{"first。｡."});
    EXPECT_EQ(world.speech.lastSpokenTime, first);
    world.clock.now += 0.2;
    sayThrottled(world.state, u"third");
    EXPECT_EQ(utf8(world.logging.written), (Log{"first。｡.", "third。｡."}));
    EXPECT_EQ(world.speech.lastSpokenTime, world.clock.now);
}

TEST(Throttle, DropsATextExactlyTheInhibitTimeLater) {
    SpeakingWorld world;
    world.speech.lastSpokenTime = 0;
    world.clock.now = world.speech.inhibitSeconds;
    EXPECT_FALSE(throttlePasses(world.state));
    EXPECT_EQ(world.speech.lastSpokenTime, 0);
    world.clock.now = std::nextafter(world.speech.inhibitSeconds, 1);
    EXPECT_TRUE(throttlePasses(world.state));
}

TEST(Throttle, GoesOnSpeakingAfterMidnight) {
    SpeakingWorld world;
    world.clock.now = 86399.9;
    EXPECT_TRUE(throttlePasses(world.state));
    world.clock.now = 0.05;
    EXPECT_TRUE(throttlePasses(world.state));
    EXPECT_EQ(world.speech.lastSpokenTime, 0.05);
}

TEST(Throttle, NeverPassesWithSpeechOffAndNotesNoTimeThen) {
    SpeakingWorld world;
    world.speech.speechMode = 0;
    EXPECT_FALSE(throttlePasses(world.state));
    EXPECT_EQ(world.speech.lastSpokenTime, 0);
}

TEST(Throttle, ReadsNoClipboardForATextThatIsDropped) {
    SpeakingWorld world;
    world.speech.lastSpokenTime = world.clock.now;
    sayThrottled(world.state, u"dropped");
    EXPECT_EQ(world.logging.log, Log{});
}

TEST(Throttle, HoldsDifferentInhibitTimes) {
    SpeakingWorld world;
    world.speech.inhibitSeconds = 1;
    world.speech.lastSpokenTime = world.clock.now;
    world.clock.now += 1;
    EXPECT_FALSE(throttlePasses(world.state));
    world.clock.now += 0.25;
    EXPECT_TRUE(throttlePasses(world.state));
}

TEST(Farewell, IsHeardAndThenGivesTheUsersTextBackWithoutAMark) {
    SpeakingWorld world;
    world.logging.foreign(u"mine");
    sayFarewell(world.state);
    EXPECT_EQ(world.logging.log, (Log{"read", "write ﾛﾐｶ ｼｭｳﾘｮｳ。｡.", "clear", "write mine"}));
    EXPECT_EQ(world.logging.contents, u"mine");
    EXPECT_NEAR(world.clock.slept, 2.5, 0.01);
}

TEST(Farewell, IsSilentWithSpeechOffAndDoesNotWait) {
    SpeakingWorld world;
    world.speech.speechMode = 0;
    sayFarewell(world.state);
    EXPECT_EQ(world.logging.log, Log{});
    EXPECT_EQ(world.clock.slept, 0);
}

TEST(Farewell, IsNotStoppedByAClipboardThatIsHeld) {
    SpeakingWorld world;
    world.logging.failing = true;
    EXPECT_NO_THROW(sayFarewell(world.state));
    EXPECT_NEAR(world.clock.slept, 2.5, 0.01);
}

TEST(WaitSeconds, ReturnsAsSoonAsTheTimeHasPassed) {
    SpeakingWorld world;
    waitSeconds(world.state, 0.25);
    EXPECT_GE(world.clock.slept, 0.25 - 1e-6);
    EXPECT_LT(world.clock.slept, 0.2521);
}

TEST(WaitSeconds, FailsOverMidnightWithoutAnyCorrection) {
    SpeakingWorld world;
    MidnightClock midnight;
    midnight.now = 86399.5;
    ZORMOD state(Platform{world.clipboard, midnight, world.beeper, world.files, world.codePage, world.dialogs,
                          world.screen, world.commands, world.forms, world.eventLoop, world.printer});
    try {
        waitSeconds(state, 1);
        ADD_FAILURE() << "the wait went on over midnight";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::overflow);
    }
    EXPECT_LT(midnight.slept, 0.6);
}

TEST(SpeedMark, StepsThroughTenMarksAndWraps) {
    SpeakingWorld world;
    int index = 8;
    for (int i = 0; i < 12; ++i) {
        world.later();
        cycleSpeedMark(world.state, index);
    }
    EXPECT_EQ(utf8(world.logging.written),
              (Log{"＜速さ９＞速度調整9。｡.", "＜速さ０＞速度調整0。｡.", "＜速さ１＞速度調整1。｡.",
                   "＜速さ２＞速度調整2。｡.", "＜速さ３＞速度調整3。｡.", "＜速さ４＞速度調整4。｡.",
                   "＜速さ５＞速度調整5。｡.", "＜速さ６＞速度調整6。｡.", "＜速さ７＞速度調整7。｡.",
                   "＜速さ８＞速度調整8。｡.", "＜速さ９＞速度調整9。｡.", "＜速さ０＞速度調整0。｡."}));
    EXPECT_EQ(index, 0);
}

TEST(SpeedMark, ComesThroughTheThrottleButStepsAnyway) {
    SpeakingWorld world;
    int index = 0;
    cycleSpeedMark(world.state, index);
    cycleSpeedMark(world.state, index);
    EXPECT_EQ(utf8(world.logging.written), Log{"＜速さ１＞速度調整1。｡."});
    EXPECT_EQ(index, 2);
}

TEST(SilentScope, HoldsSpeechOffAndGivesTheModeBackEvenAfterAFailure) {
    SpeakingWorld world;
    world.speech.speechMode = 2;
    try {
        const SilentScope silent(world.state);
        sayText(world.state, u"unheard");
        EXPECT_EQ(world.speech.speechMode, 0);
        throw RuntimeFailure{FailureKind::file};
    } catch (const RuntimeFailure&) {
        EXPECT_EQ(world.speech.speechMode, 2);
    }
    EXPECT_EQ(world.logging.written.size(), 0u);
}

TEST(SpeechState, StartsWithTheDefaults) {
    TestWorld world;
    EXPECT_EQ(world.zormod.speech.inhibitSeconds, 0.2);
    EXPECT_EQ(world.zormod.speech.lastSpokenTime, 0);
    EXPECT_EQ(world.zormod.speech.pinnedAutoRead, 0);
    EXPECT_EQ(world.zormod.speech.speechMark, u"。｡.");
}
