#include "start/make_folder.h"

#include "start/start_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(MakeFolder, AsksForANameMakesTheFolderAndSaysSo) {
    StartWorld world;
    world.zormod.speech.speechMode = 1;
    world.dialogs.texts = {u"新しい"};
    EXPECT_TRUE(makeFolder(world.zormod, world.zormod.file.programFolder));
    ASSERT_EQ(world.dialogs.questions.size(), 1u);
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt), "フォルダ名を入力してください");
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "フォルダの作成");
    EXPECT_TRUE(std::filesystem::is_directory(world.native("新しい")));
    EXPECT_THAT(world.takeSpoken(), ElementsAre("フォルダ作成作成されました"));
    EXPECT_NEAR(world.clock.slept, 2.2, 0.01) << "what was typed last gets out, and then the answer";
}

TEST(MakeFolder, WithSpeechOffNobodyWaits) {
    StartWorld world;
    world.dialogs.texts = {u"new"};
    EXPECT_TRUE(makeFolder(world.zormod, world.zormod.file.programFolder));
    EXPECT_EQ(world.clock.slept, 0);
}

TEST(MakeFolder, AnEmptyAnswerMakesNothing) {
    for (const char16_t* answer : {u"", u"  "}) {
        StartWorld world;
        world.zormod.speech.speechMode = 1;
        world.dialogs.texts = {answer};
        EXPECT_FALSE(makeFolder(world.zormod, world.zormod.file.programFolder));
        EXPECT_TRUE(std::filesystem::is_empty(world.folder.path()));
        EXPECT_THAT(world.takeSpoken(), IsEmpty());
    }
}

TEST(MakeFolder, OneThatIsThereAlreadyIsAFailure) {
    StartWorld world;
    std::filesystem::create_directory(world.native("old"));
    world.dialogs.texts = {u"old"};
    EXPECT_THROW(makeFolder(world.zormod, world.zormod.file.programFolder), RuntimeFailure);
}

TEST(MakeFolder, ARootGetsNoSecondBackslash) {
    EXPECT_EQ(pathInFolder(u"C:\\", u"a"), u"C:\\a");
    EXPECT_EQ(pathInFolder(u"C:\\b", u"a"), u"C:\\b\\a");
}
