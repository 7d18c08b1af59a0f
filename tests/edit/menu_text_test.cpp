#include "edit/menu_text.h"

#include <gtest/gtest.h>

TEST(MenuText, AnEntrySaysItsCaptionAndItsKey) {
    EXPECT_EQ(menuEntryText({.caption = u"検索", .key = u"F3"}), u"検索､F3");
    EXPECT_EQ(menuEntryText({.caption = u"終了"}), u"終了");
}

TEST(MenuText, StatesComeBetweenCaptionAndKey) {
    EXPECT_EQ(menuEntryText({.caption = u"データのみ", .checked = true, .key = u"F11"}), u"データのみ､チェック､F11");
    EXPECT_EQ(menuEntryText({.caption = u"x", .enabled = false}), u"x､使用不可");
    EXPECT_EQ(menuEntryText({.caption = u"編集1(H)", .opensMenu = true}), u"編集1(H)､サブメニュー");
    EXPECT_EQ(menuEntryText({.caption = u"x", .checked = true, .enabled = false, .opensMenu = true, .key = u"F1"}),
              u"x､チェック､使用不可､サブメニュー､F1");
}
