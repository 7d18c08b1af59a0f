#include "voice/progress.h"
#include "support/test_world.h"
#include "voice/speech_channel.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct ProgressWorld : TestWorld {
    ProgressWorld() {
        table({{u"ID", u"L", 4}}, {{u"1"}, {u"2"}});
        dialogs.progressOpen = true;
        zormod.speech.speechMode = 1;
    }
};

/// Writes down whether the progress form was still there when a text went out.
class NotingClipboard : public FakeClipboard {
public:
    explicit NotingClipboard(const Dialogs& dialogs) : dialogs_(dialogs) {}
    bool write(TextView text) override {
        log.push_back(utf8(text) + (dialogs_.isProgressOpen() ? " in the form" : " behind the form"));
        return FakeClipboard::write(text);
    }
    std::vector<std::string> log;

private:
    const Dialogs& dialogs_;
};

} // namespace

TEST(Progress, LoadingForgetsAnOldStop) {
    ProgressWorld world;
    world.zormod.results.answers[0] = 1.0;
    loadProgress(world.zormod, u"行挿入中", {});
    EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 0.0);
}

TEST(Progress, OnlyDataReadingHearsTheLabels) {
    ProgressWorld world;
    EXPECT_TRUE(loadProgress(world.zormod, u"行挿入中", {}));
    EXPECT_THAT(world.takeSpoken(), ElementsAre("行挿入中"));
    sayProgress(world.zormod, u"行挿入中", u" 30%完了");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("行挿入中。 30%完了"));
    for (const int mode : {0, 2}) {
        world.zormod.speech.speechMode = static_cast<std::int16_t>(mode);
        EXPECT_FALSE(loadProgress(world.zormod, u"行挿入中", {}));
        EXPECT_THAT(world.takeSpoken(), IsEmpty());
    }
}

TEST(Progress, TheStopSetsTheFlagSaysSoAndClosesTheForm) {
    for (const char16_t* task : {u"", u"work", u"killrecord", u"CVZORF"}) {
        ProgressWorld world;
        world.zormod.taskWord = task;
        stopWork(world.zormod);
        EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 1.0);
        EXPECT_FALSE(throttlePasses(world.zormod)) << "what the focus says as it comes back would take its place";
        EXPECT_THAT(world.takeSpoken(), ElementsAre("作業中止"));
        EXPECT_FALSE(world.dialogs.progressOpen);
        EXPECT_EQ(world.zormod.taskWord, task) << "the loop still needs it";
    }
}

TEST(Progress, TheStopOfAPrintSaysNothingAndRefreshesTheSheet) {
    for (const auto& [task, kept] : {std::pair(u"labelp", 0), std::pair(u"PRINT", 2)}) {
        ProgressWorld world;
        world.zormod.taskWord = task;
        world.zormod.selection.selectionKind = 2;
        stopWork(world.zormod);
        EXPECT_THAT(world.takeSpoken(), IsEmpty());
        EXPECT_FALSE(world.dialogs.progressOpen);
        EXPECT_EQ(world.screen.shownCells, 1);
        EXPECT_EQ(world.zormod.selection.selectionKind, kept);
        EXPECT_EQ(world.zormod.taskWord, u"");
    }
}

TEST(Progress, AConversionIsToldToHaveStoppedWhenTheFormHasGoneAndEveryOtherWorkBefore) {
    for (const auto& [task, said] :
         {std::pair(u"CVZORF", "作業中止。｡. behind the form"), std::pair(u"", "作業中止。｡. in the form"),
          std::pair(u"killrecord", "作業中止。｡. in the form")}) {
        TestWorld world;
        NotingClipboard clipboard(world.dialogs);
        ZORMOD zormod(Platform{clipboard, world.clock, world.beeper, world.files, world.codePage, world.dialogs,
                               world.screen, world.commands, world.forms, world.eventLoop, world.printer});
        zormod.speech.speechMode = 1;
        zormod.taskWord = task;
        world.dialogs.progressOpen = true;
        stopWork(zormod);
        EXPECT_THAT(clipboard.log, ElementsAre(said)) << utf8(task);
        EXPECT_FALSE(world.dialogs.progressOpen);
    }
}
