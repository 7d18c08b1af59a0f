// The wave engines with programs that play their parts: good ones, and some that hang, crash or talk nonsense.

#include "reader/engine_folder.h"
#include "reader/engine_list.h"
#include "reader/reader_loop.h"
#include "reader/synthesizer.h"
#include "reader/wave_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using State = Engine::State;

namespace {

constexpr std::chrono::seconds patience{12};

struct WaveEngineTest : testing::Test {
    EngineFolder folder{};
    EventLog log{folder.file("log")};
    Options options{};

    /// Drives the engine until it is no longer speaking.
    static State finish(Engine& engine) {
        const TimePoint deadline = std::chrono::steady_clock::now() + patience;
        while (engine.state() == State::speaking && std::chrono::steady_clock::now() < deadline) {
            std::vector<pollfd> watched;
            engine.watch(watched);
            waitForNews(watched, std::min(engine.deadline().value_or(deadline), deadline));
            engine.work(std::chrono::steady_clock::now());
        }
        return engine.state();
    }
    State say(const std::string& engineName, const std::string& text, SoundOutput& output) {
        const auto engine = makeEngine(engineName, options, output, log);
        engine->prepare();
        engine->speak(text, usualSpeed);
        return finish(*engine);
    }
    State sayToFile(const std::string& text) {
        FileOutput output(folder.file("wave"));
        return say("espeak", text, output);
    }
    State sayToPlayer(const std::string& text) {
        options.player = folder.file("player");
        PlayerOutput output(options.player);
        return say("espeak", text, output);
    }
};

/// The loudest sample of a wave file.
int loudest(const std::string& wave) {
    int most = 0;
    for (std::size_t at = 44; at + 1 < wave.size(); at += 2) {
        const auto low = static_cast<unsigned char>(wave[at]);
        const int sample = static_cast<std::int16_t>(low | static_cast<unsigned char>(wave[at + 1]) << 8);
        most = std::max(most, std::abs(sample));
    }
    return most;
}

} // namespace

TEST_F(WaveEngineTest, ACellMoveBecomesAWaveFileWithSoundInIt) {
    EXPECT_EQ(sayToFile("山田 ､  ｷﾞｮｳ12 ｺｳﾓｸ3 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"), State::idle);
    EXPECT_THAT(folder.events("kana"),
                ElementsAre("ヤマダ、ギョウ12 コウモク3 シメイ、データニュウリョクテキストボックス"));
    const std::string wave = folder.read("wave");
    WaveReader reader;
    std::string samples;
    ASSERT_TRUE(reader.take(wave, samples));
    EXPECT_EQ(samples.size(), wave.size() - 44) << "the head must tell the true length";
    const double seconds = static_cast<double>(samples.size()) / 2 / reader.rate();
    EXPECT_GT(seconds, 3.0);
    EXPECT_LT(seconds, 15.0);
    EXPECT_GT(loudest(wave), 3000);
    EXPECT_THAT(folder.eventNames(), ElementsAre("kana", "sound", "end"));
}

TEST_F(WaveEngineTest, ATextOfSeveralSentencesIsSpokenWhole) {
    EXPECT_EQ(sayToFile("一つ。"), State::idle);
    const auto one = folder.read("wave").size();
    EXPECT_EQ(sayToFile("一つ。二つ。三つ。"), State::idle);
    EXPECT_GT(folder.read("wave").size(), 2 * one);
    EXPECT_THAT(folder.events("kana"), testing::SizeIs(4));
}

TEST_F(WaveEngineTest, ATextWithoutSoundEndsAtOnce) {
    EXPECT_EQ(sayToFile("。、"), State::idle);
    EXPECT_THAT(folder.eventNames(), ElementsAre("end"));
}

TEST_F(WaveEngineTest, TheSpeedReachesTheEngine) {
    folder.add("espeak-ng", "echo \"$*\" >>" + folder.file("asked") + "; exec " + EngineFolder::real("espeak-ng") +
                                " \"$@\"");
    FileOutput output(folder.file("wave"));
    const auto engine = makeEngine("espeak", options, output, log);
    for (const int speed : {slowestSpeed, usualSpeed, fastestSpeed}) {
        engine->speak("テスト", speed);
        EXPECT_EQ(finish(*engine), State::idle);
    }
    const std::string asked = folder.read("asked");
    EXPECT_LT(asked.find("-s 90 "), asked.find("-s 175 "));
    EXPECT_LT(asked.find("-s 175 "), asked.find("-s 400 "));
    EXPECT_NE(asked.find("-s 400 "), std::string::npos);
}

TEST_F(WaveEngineTest, AMissingEngineIsAbsent) {
    options.voice = folder.file("no.htsvoice");
    setenv("PATH", folder.path().c_str(), 1);
    EXPECT_EQ(sayToFile("テスト"), State::absent);
    FileOutput output(folder.file("wave"));
    EXPECT_EQ(say("openjtalk", "テスト", output), State::absent);
}

TEST_F(WaveEngineTest, AnEngineThatCrashesFails) {
    folder.add("espeak-ng", "kill -SEGV $$");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
}

TEST_F(WaveEngineTest, AnEngineThatSpeaksNoWaveFails) {
    folder.add("espeak-ng", "echo 'this is no sound at all, only some words that go on'");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
}

TEST_F(WaveEngineTest, AnEngineThatGivesNoSoundFails) {
    folder.add("espeak-ng", "cat >/dev/null");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
}

TEST_F(WaveEngineTest, AnEngineThatHangsFailsAfterAWhileAndIsGone) {
    folder.add("espeak-ng", "echo $$ >" + folder.file("process") + "; sleep 1000 & wait");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
    const std::string process = folder.read("process");
    EXPECT_FALSE(std::filesystem::exists("/proc/" + process.substr(0, process.find('\n'))));
}

TEST_F(WaveEngineTest, AnEngineThatClosesItsOutputAndHangsFails) {
    folder.add("espeak-ng", "exec >&-; sleep 1000 & wait");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
}

TEST_F(WaveEngineTest, ADictionaryThatHangsOrDiesFails) {
    folder.add("mecab", "sleep 1000 & wait");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
    folder.add("mecab", "exit 1");
    EXPECT_EQ(sayToFile("テスト"), State::failed);
}

TEST_F(WaveEngineTest, ADictionaryThatDiedOnceIsStartedAgain) {
    folder.add("mecab", "test -e " + folder.file("died") + " && exec " + EngineFolder::real("mecab") + " \"$@\"; touch " +
                            folder.file("died"));
    EXPECT_EQ(sayToFile("検索"), State::idle);
    EXPECT_THAT(folder.events("kana"), ElementsAre("ケンサク"));
}

TEST_F(WaveEngineTest, ThePlayerGetsTheRateAndEverySample) {
    folder.add("player", "echo $1 >" + folder.file("rate") + "; cat >" + folder.file("played"));
    EXPECT_EQ(sayToPlayer("一つ。二つ。"), State::idle);
    EXPECT_EQ(folder.read("rate"), "22050\n");
    EXPECT_EQ(sayToFile("一つ。二つ。"), State::idle);
    EXPECT_EQ(folder.read("played"), folder.read("wave").substr(44));
}

TEST_F(WaveEngineTest, APlayerThatFailsIsReplacedByTheNextForTheSameText) {
    folder.add("paplay", "exit 1");
    folder.add("aplay", "cat >" + folder.file("played"));
    PlayerOutput output("auto");
    EXPECT_EQ(say("espeak", "テスト", output), State::idle);
    EXPECT_GT(folder.read("played").size(), 10000U);
    EXPECT_THAT(folder.events("end"), testing::SizeIs(1));
    EXPECT_THAT(folder.events("notice"), IsEmpty());
}

TEST_F(WaveEngineTest, WithoutASoundDeviceThereIsOneNoticeAndTheEngineStays) {
    folder.add("player", "echo x >>" + folder.file("tries") + "; exit 1");
    options.player = folder.file("player");
    PlayerOutput output(options.player);
    const auto engine = makeEngine("espeak", options, output, log);
    for (int i = 0; i < 3; ++i) {
        engine->speak("テスト", usualSpeed);
        EXPECT_EQ(finish(*engine), State::idle);
        EXPECT_FALSE(engine->hasSaidAll());
    }
    EXPECT_THAT(folder.events("notice"), ElementsAre(HasSubstr("no sound device")));
    EXPECT_EQ(folder.read("tries"), "x\nx\nx\n") << "a device may be plugged in at any time";
    EXPECT_THAT(folder.eventNames(), Not(Contains("end")));
}

TEST_F(WaveEngineTest, StoppingCutsOffThePlayer) {
    folder.add("player", "echo $$ >" + folder.file("process") + "; sleep 1000 & wait");
    options.player = folder.file("player");
    PlayerOutput output(options.player);
    const auto engine = makeEngine("espeak", options, output, log);
    engine->speak("とても長い文をゆっくり読み上げています", slowestSpeed);
    while (engine->state() == State::speaking && folder.read("process").empty()) {
        std::vector<pollfd> watched;
        engine->watch(watched);
        waitForNews(watched, std::chrono::steady_clock::now() + std::chrono::milliseconds(5));
        engine->work(std::chrono::steady_clock::now());
    }
    engine->stop();
    EXPECT_EQ(engine->state(), State::idle);
    const std::string process = folder.read("process");
    EXPECT_FALSE(std::filesystem::exists("/proc/" + process.substr(0, process.find('\n'))));
    EXPECT_THAT(folder.eventNames(), Not(Contains("end")));
}

TEST_F(WaveEngineTest, OpenJtalkIsUsedWhenAVoiceFileIsFoundInTheUsersFolder) {
    const std::string data = folder.file("data");
    std::filesystem::create_directories(data + "/hts-voice/mei");
    std::ofstream(data + "/hts-voice/mei/mei.htsvoice") << "voice";
    std::filesystem::create_directories(data + "/open-jtalk/dic");
    setenv("XDG_DATA_HOME", data.c_str(), 1);
    EXPECT_EQ(findVoiceFile(), data + "/hts-voice/mei/mei.htsvoice");
    options.dictionary = data + "/open-jtalk/dic";
    folder.add("open_jtalk", "echo \"$*\" >" + folder.file("asked") + "; read -r text; echo \"$text\" >>" +
                                 folder.file("asked") + "; echo あ | " + EngineFolder::real("espeak-ng") +
                                 " -v ja --stdin --stdout");
    FileOutput output(folder.file("wave"));
    EXPECT_EQ(say("openjtalk", "検索は､ｷﾞｮｳ12", output), State::idle);
    EXPECT_EQ(folder.read("asked"), "-x " + options.dictionary + " -m " + data +
                                        "/hts-voice/mei/mei.htsvoice -r 1 -ow /dev/stdout\n検索は、ギョウ12\n");
    EXPECT_GT(output.bytes(), 1000U);
    unsetenv("XDG_DATA_HOME");
}
