#include "start/model_files.h"

#include "start/start_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

/// The start screen is up and the sources of model 1 are installed.
struct ModelWorld : StartWorld {
    ModelWorld() {
        forms.loaded = {u"FrmLunch"};
        make("source.txt", u"品目");
        std::filesystem::rename(native("ksource.txt"), native("km1.___"));
        std::filesystem::rename(native("source.txt"), native("m1.___"));
    }
    std::string name() const { return "家計簿.txt"; }
};

} // namespace

TEST(ModelFiles, EveryModelHasItsPairAndItsSources) {
    ASSERT_EQ(models().size(), 8u);
    EXPECT_EQ(utf8(modelOf(4).dataFile), "4バイト50項目集計表.txt");
    EXPECT_EQ(utf8(modelOf(4).itemSource), "ks50.___");
    EXPECT_EQ(utf8(modelOf(6).dataSource), "g40.___");
    EXPECT_EQ(utf8(modelOf(101).itemSource), "kサンプル試験結果.___");
    EXPECT_EQ(utf8(modelOf(100).entry), "mnuE1");
    EXPECT_THROW(modelOf(7), RuntimeFailure);
}

TEST(ModelFiles, EachIsKnownByItsCaptionAndLiesInFilesOfItsOwn) {
    struct Expected {
        int number;
        std::string button, entry, caption, dataFile, itemSource, dataSource;
    };
    const std::vector<Expected> all = {
        {1, "Picture1", "mnuKAKEI", "家計簿", "家計簿.txt", "km1.___", "m1.___"},
        {2, "Picture2", "mnuad", "アドレス帖", "アドレス帖.txt", "km2.___", "m2.___"},
        {3, "Picture3", "mnuS10", "20バイト10項目集計表", "20バイト10項目集計表.txt", "ks10.___", "s10.___"},
        {4, "Picture4", "mnuS50", "4バイト50項目集計表", "4バイト50項目集計表.txt", "ks50.___", "s50.___"},
        {5, "Picture5", "mnuS100", "2バイト100項目集計表", "2バイト100項目集計表.txt", "ks100.___", "s100.___"},
        {6, "Picture6", "mnuG1", "1行40バイト原稿用紙", "1行40バイト原稿用紙.txt", "kg40.___", "g40.___"},
        {100, "", "mnuE1", "サンプル住所録", "サンプル住所録.txt", "kサンプル住所録.___", "サンプル住所録.___"},
        {101, "", "mnuE2", "サンプル試験結果", "サンプル試験結果.txt", "kサンプル試験結果.___", "サンプル試験結果.___"},
    };
    for (const Expected& expected : all) {
        const Model& model = modelOf(expected.number);
        EXPECT_EQ(utf8(model.button), expected.button) << expected.number;
        EXPECT_EQ(utf8(model.entry), expected.entry);
        EXPECT_EQ(utf8(model.caption), expected.caption);
        EXPECT_EQ(utf8(model.dataFile), expected.dataFile);
        EXPECT_EQ(utf8(model.itemSource), expected.itemSource);
        EXPECT_EQ(utf8(model.dataSource), expected.dataSource);
    }
}

TEST(ModelFiles, AMissingModelIsCopiedFromItsSourcesAndOpened) {
    ModelWorld world;
    EXPECT_EQ(openModel(world.zormod, 1), u"");
    EXPECT_TRUE(world.isThere("k家計簿.txt"));
    ASSERT_TRUE(hasTable(world.zormod));
    EXPECT_EQ(recordCount(world.zormod), 1);
    EXPECT_EQ(utf8(world.zormod.items.itemName[1]), "品目");
    EXPECT_EQ(utf8(world.zormod.file.fileName), utf8(world.pathOf(u"家計簿.txt")));
    EXPECT_EQ(utf8(world.zormod.file.fileDrive), "C");
}

TEST(ModelFiles, TheStartScreenGoesAndTheTableIsShown) {
    ModelWorld world;
    openModel(world.zormod, 1);
    EXPECT_FALSE(world.forms.isLoaded(u"FrmLunch"));
    EXPECT_TRUE(world.forms.isLoaded(u"Form1"));
    EXPECT_THAT(utf8(world.commands.names), ElementsAre("showOpenedTable"));
}

TEST(ModelFiles, AFilledModelOpensAsItStands) {
    ModelWorld world;
    openModel(world.zormod, 1);
    forgetTable(world.zormod);
    const std::string filled = world.bytesOf(world.name()) + world.bytesOf(world.name());
    world.writeFile(world.name(), filled);
    openModel(world.zormod, 1);
    EXPECT_EQ(recordCount(world.zormod), 2);
    EXPECT_EQ(world.bytesOf(world.name()), filled);
}

TEST(ModelFiles, ADeletedModelComesBack) {
    ModelWorld world;
    openModel(world.zormod, 1);
    forgetTable(world.zormod);
    std::filesystem::remove(world.native(world.name()));
    std::filesystem::remove(world.native("k" + world.name()));
    EXPECT_EQ(openModel(world.zormod, 1), u"");
    EXPECT_EQ(world.bytesOf(world.name()), world.bytesOf("m1.___"));
}

TEST(ModelFiles, OnlyTheItemFileTellsWhetherAModelIsThere) {
    ModelWorld world;
    openModel(world.zormod, 1);
    forgetTable(world.zormod);
    std::filesystem::remove(world.native(world.name()));
    EXPECT_EQ(openModel(world.zormod, 1), u"");
    ASSERT_TRUE(hasTable(world.zormod));
    EXPECT_EQ(recordCount(world.zormod), 0) << "nothing came out of the source";
    EXPECT_EQ(utf8(world.zormod.items.itemName[1]), "品目");
}

TEST(ModelFiles, DataWhoseItemFileIsLostIsKept) {
    ModelWorld world;
    const std::string filled = world.bytesOf("m1.___") + world.bytesOf("m1.___");
    world.writeFile(world.name(), filled);
    EXPECT_EQ(openModel(world.zormod, 1), u"");
    EXPECT_EQ(world.bytesOf(world.name()), filled);
}

TEST(ModelFiles, MissingSourcesAreReportedAndNothingIsLeftBehind) {
    for (const char* missing : {"km1.___", "m1.___"}) {
        ModelWorld world;
        std::filesystem::remove(world.native(missing));
        EXPECT_EQ(openModel(world.zormod, 1), u"雛型なし") << missing;
        EXPECT_FALSE(world.isThere("k家計簿.txt")) << missing;
        EXPECT_TRUE(world.forms.isLoaded(u"FrmLunch")) << missing;
        world.expectNoTable();
    }
}

TEST(ModelFiles, ACopyThatFailsIsDoneWholeTheNextTime) {
    for (const int failing : {1, 2}) {
        ModelWorld world;
        FaultyState state(world);
        state.files.failAt(failing, FaultyFiles::Counted::writes);
        EXPECT_EQ(openModel(state.zormod, 1), u"雛型なし");
        EXPECT_FALSE(world.isThere("k家計簿.txt"));
        state.files.heal();
        EXPECT_EQ(openModel(state.zormod, 1), u"");
        EXPECT_EQ(recordCount(state.zormod), 1);
        EXPECT_EQ(world.bytesOf(world.name()), world.bytesOf("m1.___"));
    }
}

TEST(ModelFiles, ASpoiltItemFileHasSpokenForItselfAndBeeps) {
    ModelWorld world;
    world.writeFile("k家計簿.txt", "nonsense");
    world.dialogs.expectedMessages = 1;
    EXPECT_EQ(openModel(world.zormod, 1), u"");
    world.expectMessage("ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です", "項目挿入不可能");
    EXPECT_EQ(world.beeper.count, 2);
    EXPECT_TRUE(world.forms.isLoaded(u"FrmLunch"));
    world.expectNoTable();
}
