#include "app/menus.h"

#include "support/doubles.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace {

std::vector<MenuEntry> allEntries() {
    std::vector<MenuEntry> entries;
    for (const MenuGroup& group : form1Menus()) {
        entries.insert(entries.end(), group.entries.begin(), group.entries.end());
    }
    return entries;
}

std::vector<std::string> namesIn(const char16_t* group) {
    std::vector<std::string> names;
    for (const MenuGroup& menu : form1Menus()) {
        for (const MenuEntry& entry : menu.entries) {
            if (menu.name == group) {
                names.push_back(utf8(entry.name));
            }
        }
    }
    return names;
}

} // namespace

TEST(Menus, TheKeysAreThoseOfTheKeyGuide) {
    const std::map<Text, Text> expected = {
        {u"F1", u"mnuIDAUTO"},     {u"Ctrl+A", u"mnuSPITEM"},  {u"F2", u"mnuSORT"},        {u"Ctrl+B", u"mnuLIMIT"},
        {u"F3", u"mnuSEARCH"},     {u"Ctrl+D", u"mnuCTRLD"},   {u"F4", u"mnuREPLACE"},     {u"Ctrl+F", u"mnuF"},
        {u"F5", u"mnuKOUMOKU"},    {u"Ctrl+G", u"mnuINSRECM"}, {u"F6", u"mnuWHOLE"},       {u"Ctrl+H", u"mnuHJ"},
        {u"F7", u"mnuItem"},       {u"Ctrl+I", u"mnuDEPAST"},  {u"F8", u"mnuFOMULA"},      {u"Ctrl+J", u"mnuJUMP"},
        {u"F9", u"mnuPRINT"},      {u"Ctrl+K", u"menuRKILL"},  {u"Shift+F9", u"mnuKOJIN"}, {u"Ctrl+L", u"mnuItemList"},
        {u"Shift+F1", u"mnuDICT"}, {u"Ctrl+O", u"mnuPAST"},    {u"Shift+F2", u"IDSORT"},   {u"Ctrl+P", u"mnuCTRLP"},
        {u"Shift+F6", u"mnuFREQ"}, {u"Ctrl+U", u"mnuCTRLU"},   {u"Shift+F7", u"mnuDIST"},  {u"Ctrl+W", u"mnuW"},
        {u"Ctrl+Y", u"mnuIPASTE"}, {u"F11", u"mnuDTKN"},       {u"Ctrl+F11", u"mnuDTKEX"}, {u"Ctrl+F12", u"mnuDTKOFF"}};
    std::map<Text, Text> found;
    for (const MenuEntry& entry : allEntries()) {
        if (!entry.key.empty()) {
            EXPECT_TRUE(found.emplace(entry.key, entry.name).second) << "two entries have " << utf8(entry.key);
        }
    }
    EXPECT_EQ(found, expected);
}

TEST(Menus, EveryEntryHasACaptionAndANameOfItsOwn) {
    std::set<Text> names;
    for (const MenuEntry& entry : allEntries()) {
        EXPECT_FALSE(entry.caption.empty()) << utf8(entry.name);
        EXPECT_TRUE(names.insert(entry.name).second) << utf8(entry.name);
        EXPECT_EQ(entry.caption.find(u'&'), Text::npos) << utf8(entry.caption);
    }
    EXPECT_EQ(names.size(), 91U);
    for (const MenuGroup& group : form1Menus()) {
        EXPECT_TRUE(names.insert(group.name).second) << utf8(group.name);
    }
}

TEST(Menus, TheEntriesForRecordsItemsAndTheClipHaveTheirWords) {
    const std::map<Text, Text> expected = {
        {u"mnuCLIP", u"copy(はりつけﾌｧｲﾙ作成)"},
        {u"mnuPAST", u"はりつけ･上書き"},
        {u"mnuIPASTE", u"はりつけ･挿入"},
        {u"mnuDEPAST", u"はりつけ取り消し"},
        {u"mnuCOPY", u"ﾃﾞｰﾀｺﾋﾟｰ"},
        {u"mnuMOVE", u"ﾃﾞｰﾀ移動"},
        {u"mnuFLN", u"項目幅変更(shiftまたはctrl+ｽﾍﾟｰｽ)"},
        {u"mnuRL", u"配置（ＲまたはＬ）の変更"},
        {u"mnuINSREC1", u"１記録挿入(Ctrl+Shift+Ins)"},
        {u"mnuINSRECM", u"指定数の記録の挿入"},
        {u"mnuKILLREC1", u"指定数の記録の排除"},
        {u"menuRKILL", u"指定範囲の記録の排除"},
        {u"mnuINSITEM", u"項目の挿入"},
        {u"mnuKILLITEM", u"項目の削除"},
        {u"mnuMITEM", u"項目の移動"},
        {u"mnuMREC", u"記録の移動"},
        {u"mnuZDEL", u"指定範囲データ消去"},
    };
    std::map<Text, Text> found;
    for (const MenuEntry& entry : allEntries()) {
        if (expected.contains(Text(entry.name))) {
            found.emplace(entry.name, entry.caption);
        }
    }
    EXPECT_EQ(found, expected);
}

TEST(Menus, EachMenuHasALetterAndNoneTakesOneOfTheInputBox) {
    std::string letters;
    for (const MenuGroup& group : form1Menus()) {
        const std::size_t mark = group.caption.find(u'&');
        ASSERT_LT(mark + 1, group.caption.size()) << utf8(group.caption);
        letters += static_cast<char>(group.caption[mark + 1]);
    }
    EXPECT_EQ(letters, "FJYKHESPORTLZ");
    EXPECT_EQ(letters.find_first_of("GMN"), std::string::npos);
}

TEST(Menus, TheTelephoneIsAnEntryAtTheTop) {
    int entriesAtTop = 0;
    for (const MenuGroup& group : form1Menus()) {
        entriesAtTop += group.entries.empty() ? 1 : 0;
        EXPECT_EQ(group.entries.empty(), group.name == u"mnuTEL");
    }
    EXPECT_EQ(entriesAtTop, 1);
}

TEST(Menus, EntriesStandInTheirOrder) {
    EXPECT_THAT(namesIn(u"mnuDTK"), testing::ElementsAre("mnuDTKN", "mnuDTKEX", "mnuDTKOFF", "mnuJY", "mnuINH"));
    EXPECT_THAT(namesIn(u"mnuKEY"), testing::ElementsAre("mnuALT", "mnuCTRL", "mnuFKEY", "mnuSfunc"));
    EXPECT_EQ(namesIn(u"menuF").front(), "mnuNEW");
    EXPECT_EQ(namesIn(u"menuF").back(), "mnuEND");
}
