#include "reader/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

using Task = CommandLine::Task;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

CommandLine lineOf(const std::vector<std::string>& arguments) {
    Options options;
    return readCommandLine(arguments, options);
}

} // namespace

TEST(Options, WithoutArgumentsItWatches) {
    Options options;
    const CommandLine line = readCommandLine({}, options);
    EXPECT_EQ(line.task, Task::watch);
    EXPECT_EQ(line.problem, "");
    EXPECT_FALSE(line.background);
    EXPECT_EQ(options.engine, "auto");
    EXPECT_EQ(options.speed, 4);
}

TEST(Options, TheCommandLineNamesTheTask) {
    EXPECT_EQ(lineOf({"--help"}).task, Task::help);
    EXPECT_EQ(lineOf({"--version"}).task, Task::version);
    EXPECT_EQ(lineOf({"--check"}).task, Task::check);
    EXPECT_TRUE(lineOf({"--background"}).background);
    const CommandLine say = lineOf({"--say", "あ", "--wav", "a.wav"});
    EXPECT_EQ(say.task, Task::say);
    EXPECT_EQ(say.text, "あ");
    EXPECT_EQ(say.wave, "a.wav");
    EXPECT_EQ(lineOf({"--say=--help"}).text, "--help");
}

TEST(Options, TheCommandLineHasTheLastWord) {
    Options options;
    EXPECT_THAT(applySettings("engine = log\nspeed=2\nlog = /a b\n", options), ElementsAre());
    EXPECT_EQ(options.engine, "log");
    EXPECT_EQ(options.speed, 2);
    EXPECT_EQ(options.log, "/a b");
    EXPECT_EQ(readCommandLine({"--engine", "espeak", "--speed=9"}, options).problem, "");
    EXPECT_EQ(options.engine, "espeak");
    EXPECT_EQ(options.speed, 9);
    EXPECT_EQ(options.log, "/a b");
}

TEST(Options, AnEmptyTextMayBeSaid) {
    EXPECT_EQ(lineOf({"--say", ""}).problem, "");
    EXPECT_EQ(lineOf({"--say", ""}).task, Task::say);
}

TEST(Options, ACommandLineThatMakesNoSenseSaysWhy) {
    EXPECT_THAT(lineOf({"--loud"}).problem, HasSubstr("--loud"));
    EXPECT_THAT(lineOf({"text"}).problem, HasSubstr("text"));
    EXPECT_THAT(lineOf({"--engine", "piano"}).problem, HasSubstr("piano"));
    EXPECT_THAT(lineOf({"--speed", "10"}).problem, HasSubstr("10"));
    EXPECT_THAT(lineOf({"--speed", ""}).problem, HasSubstr("speed"));
    EXPECT_THAT(lineOf({"--log"}).problem, HasSubstr("--log needs"));
    EXPECT_THAT(lineOf({"--wav", "a.wav"}).problem, HasSubstr("--say"));
    EXPECT_THAT(lineOf({"--check", "--background"}).problem, HasSubstr("--background"));
}

TEST(Options, ABadSettingIsPassedOverAndTheOthersHold) {
    Options options;
    const auto problems = applySettings("# a comment\n\n speed = fast\r\nvoice = /v.htsvoice\nvolume = 3\nnonsense\n",
                                        options);
    EXPECT_THAT(problems, ElementsAre(HasSubstr("fast"), HasSubstr("volume"), HasSubstr("nonsense")));
    EXPECT_EQ(options.speed, 4);
    EXPECT_EQ(options.voice, "/v.htsvoice");
}

TEST(Options, ASettingWithoutAValueLeavesTheOptionAsItIs) {
    Options options;
    const auto problems = applySettings("log = /l\nvoice = /v\nengine =\nplayer =\nlog=\nvoice = \r\n", options);
    EXPECT_THAT(problems, ElementsAre(HasSubstr("engine"), HasSubstr("player"), HasSubstr("log"), HasSubstr("voice")));
    EXPECT_EQ(options.engine, "auto");
    EXPECT_EQ(options.player, "auto");
    EXPECT_EQ(options.log, "/l");
    EXPECT_EQ(options.voice, "/v");
}

TEST(Options, TheSettingsFileLiesInTheConfigurationFolder) {
    setenv("HOME", "/people/hanako", 1);
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(settingsPath(), "/people/hanako/.config/romika/reader.conf");
    setenv("XDG_CONFIG_HOME", "/settings", 1);
    EXPECT_EQ(settingsPath(), "/settings/romika/reader.conf");
    unsetenv("XDG_CONFIG_HOME");
}

TEST(Options, TheHelpNamesEveryOptionAndSetting) {
    for (const char* word : {"--help", "--version", "--engine", "--speed", "--log", "--wav", "--say", "--check",
                             "--background", "player =", "voice =", "dictionary =", "reader.conf", "Exit status"})
        EXPECT_THAT(helpText(), HasSubstr(word));
}
