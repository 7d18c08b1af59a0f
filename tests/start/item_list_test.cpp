#include "start/item_list.h"

#include "start/start_world.h"

TEST(ItemList, ALineHoldsNumberNameWidthAndAlignment) {
    StartWorld world;
    world.table({{u"ID", u"L", 4}, {u" 氏名 ", u"R", 20}}, {});
    EXPECT_EQ(utf8(itemLine(world.zormod.items, 0)), "    0:ID(4/L)");
    EXPECT_EQ(utf8(itemLine(world.zormod.items, 1)), "    1:氏名(20/R)");
}

TEST(ItemList, TheCountIsToldInWordsAndOnTheLabel) {
    StartWorld world;
    world.table({{u"ID", u"L", 4}, {u"a", u"R", 20}, {u"b", u"R", 20}}, {});
    EXPECT_EQ(utf8(itemCountLabel(world.zormod.items)), "項目数2");
    EXPECT_EQ(utf8(itemListEntrance(world.zormod.items)),
              "ｺｳﾓｸｲﾁﾗﾝﾌｫｰﾑがﾋｮｳｼﾞｻﾚﾏｼﾀ｡ｺｳﾓｸ数2ﾔｼﾞﾙｼｷ-ﾃﾞ ｺｳﾓｸﾘｽﾄｦ ｲﾄﾞｳｽﾙﾄ ｺｳﾓｸﾒｲ､ﾊｲﾁ､ｺｳﾓｸﾊﾊﾞ､ｶﾞ､ﾖﾐｱｹﾞﾗﾚﾏｽ");
}
