#include "reader/speaker.h"

#include "reader/engine_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using State = Engine::State;

namespace {

/// An engine that does as it is told and remembers what it was asked.
struct PlayedEngine : Engine {
    explicit PlayedEngine(std::string name) : called(std::move(name)) {}

    std::string called;
    State now = State::idle;
    State afterSpeak = State::speaking;
    bool decided = true;
    std::vector<std::string> asked{};

    std::string name() const override { return called; }
    void prepare() override { asked.emplace_back("prepare"); }
    void speak(const std::string& text, int speed) override {
        asked.push_back(text + " at " + static_cast<char>('0' + speed));
        now = afterSpeak;
    }
    void stop() override {
        asked.emplace_back("stop");
        if (now == State::speaking)
            now = State::idle;
    }
    State state() const override { return now; }
    bool hasSaidAll() const override { return now == State::idle; }
    bool isDecided() const override { return decided; }
    void watch(std::vector<pollfd>&) const override {}
    std::optional<TimePoint> deadline() const override { return std::nullopt; }
    void work(TimePoint) override {}
};

struct SpeakerTest : testing::Test {
    EngineFolder folder{};
    EventLog log{folder.file("log")};
    PlayedEngine* first = nullptr;
    PlayedEngine* second = nullptr;
    std::unique_ptr<Speaker> speaker = make();

    std::unique_ptr<Speaker> make() {
        std::vector<std::unique_ptr<Engine>> engines;
        engines.push_back(std::make_unique<PlayedEngine>("first"));
        engines.push_back(std::make_unique<PlayedEngine>("second"));
        first = static_cast<PlayedEngine*>(engines[0].get());
        second = static_cast<PlayedEngine*>(engines[1].get());
        return std::make_unique<Speaker>(std::move(engines), 4, log);
    }
};

} // namespace

TEST_F(SpeakerTest, TheFirstEngineSpeaks) {
    speaker->prepare();
    speaker->speak("あ");
    EXPECT_THAT(first->asked, ElementsAre("prepare", "stop", "あ at 4"));
    EXPECT_THAT(second->asked, IsEmpty());
    EXPECT_TRUE(speaker->isSpeaking());
    EXPECT_THAT(folder.events("engine"), ElementsAre("first"));
}

TEST_F(SpeakerTest, ANewTextCutsOffTheOldOneAndNothingIsQueued) {
    speaker->speak("あ");
    speaker->speak("い");
    EXPECT_THAT(first->asked, ElementsAre("stop", "あ at 4", "stop", "い at 4"));
    first->now = State::idle;
    speaker->work({});
    EXPECT_FALSE(speaker->isSpeaking());
    EXPECT_THAT(first->asked, testing::SizeIs(4));
}

TEST_F(SpeakerTest, TheSpeedHoldsForTheNextText) {
    speaker->setSpeed(7);
    speaker->speak("あ");
    EXPECT_EQ(first->asked.back(), "あ at 7");
}

TEST_F(SpeakerTest, AnEngineThatIsNotThereIsPassedOverInSilence) {
    first->now = State::absent;
    speaker->prepare();
    speaker->speak("あ");
    EXPECT_THAT(second->asked, ElementsAre("prepare", "stop", "あ at 4"));
    EXPECT_THAT(folder.events("notice"), IsEmpty());
}

TEST_F(SpeakerTest, ATextThatAnEngineFailsToSpeakIsSpokenByTheNextWithOneNotice) {
    speaker->speak("あ");
    first->now = State::failed;
    speaker->work({});
    EXPECT_EQ(second->asked.back(), "音声を切り替えました。あ at 4");
    EXPECT_THAT(folder.events("notice"), ElementsAre(HasSubstr("second takes its place")));
    speaker->speak("い");
    EXPECT_EQ(second->asked.back(), "い at 4");
    EXPECT_THAT(folder.events("notice"), testing::SizeIs(1));
}

TEST_F(SpeakerTest, WhenAllHaveFailedTheNextTextBeginsWithTheFirstAgain) {
    first->afterSpeak = State::failed;
    second->afterSpeak = State::failed;
    speaker->speak("あ");
    EXPECT_TRUE(speaker->hasGivenUp());
    EXPECT_FALSE(speaker->isSpeaking());
    EXPECT_FALSE(speaker->hasSaidAll());
    EXPECT_THAT(folder.events("notice"), ElementsAre(HasSubstr("second takes"), HasSubstr("there is no other")));
    first->afterSpeak = State::speaking;
    speaker->speak("い");
    EXPECT_EQ(first->asked.back(), "い at 4");
    EXPECT_TRUE(speaker->isSpeaking());
}

TEST_F(SpeakerTest, WithoutAnyEngineItHasGivenUpAtOnce) {
    first->now = State::absent;
    second->now = State::absent;
    speaker->prepare();
    EXPECT_TRUE(speaker->isDecided());
    EXPECT_TRUE(speaker->hasGivenUp());
}

TEST_F(SpeakerTest, ItIsUndecidedUntilTheEngineKnowsWhetherItIsThere) {
    first->decided = false;
    speaker->prepare();
    EXPECT_FALSE(speaker->isDecided());
    first->now = State::absent;
    speaker->work({});
    EXPECT_TRUE(speaker->isDecided());
    EXPECT_FALSE(speaker->hasGivenUp());
}
