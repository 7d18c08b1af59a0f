#include "voice/program_end.h"

#include "platform/failure.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using Said = std::vector<std::string>;

struct EndingWorld : TestWorld {
    EndingWorld() {
        table({{u"ID", u"R", 4}, {u"a", u"L", 6}}, {{u"1", u"x"}});
        writeFile("zorTalk", "old");
        clipboard.foreign(u"mine");
    }
};

} // namespace

TEST(OrderlyEnd, LetsTheLastTextOutThenSaysFarewellAndRemembersTheMode) {
    EndingWorld world;
    world.zormod.speech.speechMode = 1;
    world.zormod.speech.inhibitSeconds = 1;
    try {
        orderlyEnd(world.zormod);
    } catch (const ProgramEnd& end) {
        EXPECT_EQ(end.how, EndKind::orderly);
    }
    EXPECT_EQ(world.takeSpoken(), Said{"ﾛﾐｶ ｼｭｳﾘｮｳ"});
    EXPECT_NEAR(world.clock.slept, 3.5, 0.01);
    EXPECT_EQ(world.clipboard.contents, u"mine");
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_EQ(world.bytesOf("zorTalk"), " 1 \r\n");
}

TEST(OrderlyEnd, IsSilentWithSpeechOffButRemembersThat) {
    EndingWorld world;
    EXPECT_THROW(orderlyEnd(world.zormod), ProgramEnd);
    EXPECT_EQ(world.takeSpoken(), Said{});
    EXPECT_EQ(world.clock.slept, 0);
    EXPECT_EQ(world.bytesOf("zorTalk"), " 0 \r\n");
}

TEST(OrderlyEnd, EndsAlsoIfTheModeCannotBeRemembered) {
    EndingWorld world;
    std::filesystem::remove(world.folder.path() + "/zorTalk");
    std::filesystem::create_directory(world.folder.path() + "/zorTalk");
    world.dialogs.expectedMessages = 1;
    EXPECT_THROW(orderlyEnd(world.zormod), ProgramEnd);
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.dialogs.messages[0].title, Text(failureTitle));
}

TEST(EndAtOnce, SaysAndWritesNothing) {
    EndingWorld world;
    world.zormod.speech.speechMode = 2;
    try {
        endAtOnce(world.zormod);
    } catch (const ProgramEnd& end) {
        EXPECT_EQ(end.how, EndKind::atOnce);
    }
    EXPECT_EQ(world.takeSpoken(), Said{});
    EXPECT_EQ(world.clipboard.contents, u"mine");
    EXPECT_EQ(world.clock.slept, 0);
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_EQ(world.bytesOf("zorTalk"), "old");
}

TEST(FarewellEnd, SaysFarewellAndLeavesTheRememberedModeAsItWas) {
    EndingWorld world;
    world.zormod.speech.speechMode = 2;
    try {
        farewellEnd(world.zormod);
    } catch (const ProgramEnd& end) {
        EXPECT_EQ(end.how, EndKind::farewellOnly);
    }
    EXPECT_EQ(world.takeSpoken(), Said{"ﾛﾐｶ ｼｭｳﾘｮｳ"});
    EXPECT_NEAR(world.clock.slept, 2.7, 0.01);
    EXPECT_EQ(world.clipboard.contents, u"mine");
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_EQ(world.bytesOf("zorTalk"), "old");
}
