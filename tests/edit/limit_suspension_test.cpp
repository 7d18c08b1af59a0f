#include "edit/limit_suspension.h"

#include "edit/edit_world.h"

namespace {

constexpr const char* suspended = "入力字数制限を一時解除します。もう一度スペースｷｰを叩くと入力字数制限が復活します";
constexpr const char* restored = "入力字数制限を復活します。入力字数制限:4";

TEST(LimitSuspension, SpaceHoldsTheLimitBackAndItsBlankStays) {
    NumberedWorld world(3, {1, 1}, 1);
    world.zormod.input.inputLimit = 4;
    world.space();
    EXPECT_EQ(world.zormod.input.inputLimit, 0);
    EXPECT_EQ(world.edit.savedLimit, 4);
    EXPECT_EQ(utf8(world.edit.Label8), "入力字数制限一時解除");
    EXPECT_EQ(world.takeSpoken(), Spoken{suspended});
    EXPECT_EQ(world.typed(), " ");
}

TEST(LimitSuspension, SpaceInAnEmptyBoxPutsItInForceAndItsBlankGoes) {
    NumberedWorld world(3, {1, 1}, 1);
    world.edit.savedLimit = 4;
    world.space();
    EXPECT_EQ(world.zormod.input.inputLimit, 4);
    EXPECT_EQ(world.edit.savedLimit, 0);
    EXPECT_EQ(utf8(world.edit.Label8), "入力字数制限:4");
    EXPECT_EQ(world.takeSpoken(), Spoken{restored});
    EXPECT_EQ(world.typed(), "");
}

TEST(LimitSuspension, ASecondSpaceAtOnceRestoresAndLeavesTwoBlanks) {
    NumberedWorld world(3, {1, 1});
    world.zormod.input.inputLimit = 4;
    world.space();
    world.space();
    EXPECT_EQ(world.zormod.input.inputLimit, 4);
    EXPECT_EQ(world.typed(), "  ");
}

TEST(LimitSuspension, EndDoesTheSameWithoutABlank) {
    NumberedWorld world(3);
    world.zormod.input.inputLimit = 4;
    EXPECT_EQ(world.press(Key::end), KeyOutcome::goesOn);
    EXPECT_EQ(world.edit.savedLimit, 4);
    EXPECT_EQ(world.press(Key::end), KeyOutcome::goesOn);
    EXPECT_EQ(world.zormod.input.inputLimit, 4);
}

TEST(LimitSuspension, TheBlankOfTheSuspendingSpaceGoesWhenEndRestoresTheLimit) {
    NumberedWorld world(3, {1, 1});
    world.zormod.input.inputLimit = 4;
    world.space();
    ASSERT_EQ(world.typed(), " ");
    world.press(Key::end);
    EXPECT_EQ(world.zormod.input.inputLimit, 4);
    EXPECT_EQ(world.typed(), "");
}

TEST(LimitSuspension, WithoutALimitSpaceIsABlank) {
    NumberedWorld world(3, {1, 1}, 1);
    world.space();
    EXPECT_EQ(world.typed(), " ");
    EXPECT_EQ(utf8(world.edit.Label8), "字数制限:項目幅");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ﾊﾝｶｸ ｽﾍﾟｰｽ ざん9バイト"});
}

TEST(LimitSuspension, SpaceInTypedTextIsABlank) {
    NumberedWorld world(3, {1, 1});
    world.zormod.input.inputLimit = 6;
    world.type(u"a");
    world.space();
    EXPECT_EQ(world.typed(), "a ");
    EXPECT_EQ(world.zormod.input.inputLimit, 6);
    EXPECT_EQ(world.press(Key::end), KeyOutcome::goesOn);
    EXPECT_EQ(world.zormod.input.inputLimit, 6);
}

TEST(LimitSuspension, WhileItIsHeldBackTheItemIsTheLimit) {
    NumberedWorld world(3, {1, 1});
    world.zormod.input.inputLimit = 2;
    world.press(Key::end);
    world.type(u"abcde");
    EXPECT_EQ(world.typed(), "abcde");
    EXPECT_EQ(world.item(), 1);
}

} // namespace
