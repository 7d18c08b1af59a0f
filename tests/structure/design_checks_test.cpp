#include "structure/design_world.h"

namespace {
using testing::ElementsAre;

std::string faultOf(const std::vector<DesignRow>& rows) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    fill(design, rows);
    return utf8(designFault(design));
}

TEST(DesignChecks, TheHeadersOfTheGrid) {
    EXPECT_THAT(utf8({Text(columnHeader(0)), Text(columnHeader(1)), Text(columnHeader(2)), Text(columnHeader(3))}),
                ElementsAre("項目番号", "項目名", "左/右詰", "項目幅"));
}

TEST(DesignChecks, TheItemCountBoxMakesRows) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    for (const auto& [typed, count] : {std::pair(u"３", 3), std::pair(u" 254 ", 254), std::pair(u"", 0),
                                       std::pair(u"2.5", 2)}) {
        design.text1 = typed;
        EXPECT_TRUE(leaveItemCountBox(design));
        EXPECT_EQ(lastDesignItem(design), count);
        EXPECT_EQ(world.zormod.items.itemCount, count);
    }
}

TEST(DesignChecks, ItemCountsOutsideTheLimitsAreRefusedAndKeepTheGrid) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    for (const auto& [typed, text, title] :
         {std::tuple(u"255", "項目数は254以下でなければいけません。", "項目数多すぎる"),
          std::tuple(u"99999", "項目数は254以下でなければいけません。", "項目数多すぎる"),
          std::tuple(u"-1", "項目数は0以上でなければいけません。", "項目数不適当")}) {
        design.text1 = typed;
        world.expectMessage();
        EXPECT_FALSE(leaveItemCountBox(design));
        EXPECT_EQ(world.message(), std::pair(std::string(text), std::string(title)));
        EXPECT_EQ(design.rows.size(), 1U);
    }
}

TEST(DesignChecks, FileNamesWithoutExtensionOrWithTxtMayStand) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    for (const char16_t* name : {u"a", u"c:\\x\\a", u"c:\\x.y\\a", u"a.txt", u"a.TXT"}) {
        design.text3 = name;
        EXPECT_TRUE(leaveFileNameBox(design));
    }
}

TEST(DesignChecks, OtherExtensionsAndEmptyNamesAreTold) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    for (const auto& [name, text, title] :
         {std::tuple(u"a.csv", "拡張子ははＴＸＴ以外許されません", "拡張子エラー"),
          std::tuple(u"c:\\x\\a.txt.doc", "拡張子ははＴＸＴ以外許されません", "拡張子エラー"),
          std::tuple(u"", "ﾌｧｲﾙ名を入力してください", "ﾌｧｲﾙ名入力エラー"),
          std::tuple(u"c:\\x\\", "ﾌｧｲﾙ名を入力してください", "ﾌｧｲﾙ名入力エラー")}) {
        design.text3 = name;
        world.expectMessage();
        EXPECT_FALSE(leaveFileNameBox(design));
        EXPECT_EQ(world.message(), std::pair(std::string(text), std::string(title)));
    }
}

TEST(DesignChecks, EachFaultOfAnItemIsNamedWithItsNumber) {
    const DesignRow good{u"ID", u"L", u"3"};
    EXPECT_EQ(faultOf({good}), "");
    EXPECT_EQ(faultOf({good, {u"a", u"", u"3"}}), "L/Rが未定義です1項目");
    EXPECT_EQ(faultOf({good, good, {u"a", u"l", u"3"}}), "R/Lを入力して下さい2項目");
    EXPECT_EQ(faultOf({{u"a", u"R", u""}}), "項目幅がが未定義です0項目");
    EXPECT_EQ(faultOf({{u"a", u"R", u"0"}}), "項目幅がが未定義です0項目");
    EXPECT_EQ(faultOf({good, {u"a", u"R", u"-1"}}), "フィ－ルド幅が不正1項目");
    EXPECT_EQ(faultOf({good, {u"a", u"R", u"255"}}), "フィ－ルド幅が不正1項目");
    EXPECT_EQ(faultOf({good, {u"a", u"R", u"99999"}}), "フィ－ルド幅が不正1項目");
    EXPECT_EQ(faultOf({good, {u"a,b", u"R", u"3"}}), "文中に｢,｣があってはいけません1項目");
}

TEST(DesignChecks, TheFirstFaultIsTheOneTold) {
    EXPECT_EQ(faultOf({{u"a,b", u"", u""}}), "L/Rが未定義です0項目");
    EXPECT_EQ(faultOf({{u"a,b", u"C", u""}}), "R/Lを入力して下さい0項目");
    EXPECT_EQ(faultOf({{u"a,b", u"L", u""}}), "項目幅がが未定義です0項目");
    EXPECT_EQ(faultOf({{u"a,b", u"L", u"3"}, {u"", u"", u""}}), "文中に｢,｣があってはいけません0項目");
}

TEST(DesignChecks, WidthsOf254TogetherPassAnd255DoNot) {
    const DesignRow half{u"", u"L", u"127"};
    EXPECT_EQ(faultOf({half, half}), "");
    EXPECT_EQ(faultOf({half, {u"", u"L", u"128"}}), "総フィ－ルド長が長すぎます.");
}

TEST(DesignChecks, ACountThatItsBoxHasRefusedIsAFaultOfTheDesign) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    fill(design, {{u"ID", u"L", u"3"}});
    design.text1 = u"300";
    EXPECT_EQ(utf8(designFault(design)), "項目数が不正(1-254)0項目");
    design.text1 = u"-5";
    EXPECT_EQ(utf8(designFault(design)), "項目数が未定義です0項目");
}

} // namespace
