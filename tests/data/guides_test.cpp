// The guides name keys and captions. A key that does nothing or a caption that is nowhere would mislead people who
// have no screen to look at, so each is held against the program's own tables.

#include "app/menus.h"
#include "data/stock.h"
#include "data/tools/guide_source.h"
#include "edit/edit_world.h"
#include "edit/input_keys.h"
#include "edit/range_keys.h"
#include "platform/utf8.h"
#include "support/source_rules.h"

#include <gmock/gmock.h>

#include <map>
#include <optional>
#include <regex>
#include <set>

namespace {

constexpr const char* guides[] = {
    "ロミカについて.txt",
    "音声案内について.txt",
    "ﾃｷｽﾄﾃﾞｰﾀの記入の仕方.txt",
    "各種ｺﾝﾄﾛｰﾙについて.txt",
    "コードファイルを利用した置換機能について.txt",
    "他ファイルを参照して記録を並べ替える機能について.txt",
    "readme.txt",
};

std::string guideText(const std::string& name) {
    return utf8(CodePage().decode(stockFile(name)));
}

/// The key of a name as guides and menus write it: "J", "F12", "上", "テンキー3".
std::optional<Key> keyNamed(const std::string& name) {
    static const std::map<std::string, Key> names{
        {"Enter", Key::enter},    {"Esc", Key::escape}, {"Tab", Key::tab},     {"BackSpace", Key::backspace},
        {"スペース", Key::space}, {"左", Key::left},    {"右", Key::right},    {"上", Key::up},
        {"下", Key::down},        {"End", Key::end},    {"PgUp", Key::pageUp}, {"PgDn", Key::pageDown},
        {"Ins", Key::insert},     {"Del", Key::del},    {"Shift", Key::shift}, {"Ctrl", Key::control},
        {"Alt", Key::alt},
    };
    const auto offset = [](Key first, int steps) { return static_cast<Key>(static_cast<int>(first) + steps); };
    std::smatch match;
    if (const auto found = names.find(name); found != names.end()) {
        return found->second;
    }
    if (std::regex_match(name, match, std::regex("F([1-9]|1[0-2])"))) {
        return offset(Key::f1, std::stoi(match[1]) - 1);
    }
    if (std::regex_match(name, match, std::regex("テンキー([0-9])"))) {
        return offset(Key::keypad0, std::stoi(match[1]));
    }
    if (std::regex_match(name, std::regex("[A-Z]"))) {
        return offset(Key::a, name[0] - 'A');
    }
    return std::nullopt;
}

/// The stroke of "Ctrl+Shift+A"; nothing if it is spelled in any other way.
std::optional<KeyStroke> strokeNamed(std::string name) {
    KeyStroke stroke;
    const auto take = [&](const std::string& modifier, bool& held) {
        if (name.starts_with(modifier)) {
            held = true;
            name.erase(0, modifier.size());
        }
    };
    take("Ctrl+", stroke.ctrl);
    take("Shift+", stroke.shift);
    take("Alt+", stroke.alt);
    const auto key = keyNamed(name);
    if (!key) {
        return std::nullopt;
    }
    stroke.key = *key;
    return stroke;
}

/// Every key that a guide names, as it is spelled there. Plain letters that answer a question are not among them.
std::set<std::string> keysIn(const std::string& text) {
    static const std::regex pattern("((Ctrl|Shift|Alt)[+])+(テンキー[0-9]|スペース|上|下|左|右|[A-Za-z0-9]+)"
                                    "|\\b(F[0-9]+|Enter|Esc|Tab|BackSpace|End|PgUp|PgDn|Ins|Del|Shift|Ctrl|Alt)\\b"
                                    "|(上|下|左|右)の矢印|スペース");
    static const std::map<std::string, std::vector<std::string>> arrows{
        {"上の矢印", {"上"}}, {"下の矢印", {"下"}}, {"左の矢印", {"左"}}, {"右の矢印", {"右"}}};
    std::set<std::string> keys;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
        const auto arrow = arrows.find(match->str());
        keys.insert(arrow == arrows.end() ? match->str() : arrow->second.front());
    }
    return keys;
}

bool isMenuKey(const KeyStroke& stroke) {
    for (const MenuGroup& group : form1Menus()) {
        const auto mark = group.caption.find(u'&');
        if (mark != Text::npos && strokeNamed("Alt+" + utf8(group.caption.substr(mark + 1, 1))) == stroke) {
            return true;
        }
        for (const MenuEntry& entry : group.entries) {
            if (!entry.key.empty() && strokeNamed(utf8(entry.key)) == stroke) {
                return true;
            }
        }
    }
    return false;
}

/// Keys that every form has, whatever control has the focus.
bool isFormKey(const KeyStroke& stroke) {
    static const std::vector<std::string> names{"Ctrl+Shift+A", "Alt+N",     "Alt+M", "Shift+Ins", "Ctrl+Ins",
                                                "Tab",          "Shift+Tab", "Enter", "Esc",       "BackSpace",
                                                "Shift",        "Ctrl",      "Alt"};
    return std::ranges::any_of(names, [&](const auto& name) { return strokeNamed(name) == stroke; });
}

/// Keys of a single form: items in the design, rows in the table of conditions.
bool isKeyOfOneForm(const KeyStroke& stroke) {
    return stroke == ctrlShiftKey(Key::del) || stroke == ctrlKey(Key::del);
}

bool isInputKey(EditWorld& world, const KeyStroke& stroke) {
    return findInputKey(stroke, true) != nullptr || findReadingKey(stroke) != nullptr ||
           startsRange(world.edit, stroke);
}

/// Captions of forms that are still to come.
const std::set<std::string> captionsToCome{"実行(CR)", "他ﾌｧｲﾙ項目番号の指定", "項目指定", "指定終了", "採点盤読込"};

/// Every text that the program's forms may show: the literals of its sources, without the marks of access keys.
const std::set<std::string>& programTexts() {
    static const std::set<std::string> texts = [] {
        std::set<std::string> found;
        const std::regex literal("\"((?:[^\"\\\\\n]|\\\\.)*)\"");
        for (const SourceFile& file : productFiles(ROMIKA_SOURCE_DIR)) {
            for (std::sregex_iterator match(file.text.begin(), file.text.end(), literal), end; match != end; ++match) {
                std::string text = (*match)[1];
                std::erase(text, '&');
                found.insert(text);
            }
        }
        return found;
    }();
    return texts;
}

std::set<std::string> menuCaptions() {
    const auto withoutMark = [](Text caption) {
        std::erase(caption, u'&');
        return utf8(caption);
    };
    std::set<std::string> captions;
    for (const MenuGroup& group : form1Menus()) {
        captions.insert(withoutMark(group.caption));
        for (const MenuEntry& entry : group.entries) {
            captions.insert(withoutMark(entry.caption));
        }
    }
    return captions;
}

} // namespace

TEST(Guides, AreAllThere) {
    for (const char* name : guides) {
        EXPECT_GT(stockFile(name).size(), 2000U) << name;
    }
}

TEST(Guides, EveryLineIsShort) {
    for (const char* name : guides) {
        const std::string bytes = stockFile(name);
        ASSERT_TRUE(bytes.ends_with("\r\n")) << name;
        for (std::size_t at = 0; at < bytes.size();) {
            const auto end = bytes.find("\r\n", at);
            EXPECT_LE(end - at, guideColumns) << name << " " << at;
            at = end + 2;
        }
    }
}

TEST(Guides, EveryKeyDoesSomething) {
    EditWorld world;
    world.numbered(3);
    for (const char* name : guides) {
        const auto keys = keysIn(guideText(name));
        EXPECT_GE(keys.size(), 4U) << name;
        for (const std::string& key : keys) {
            const auto stroke = strokeNamed(key);
            ASSERT_TRUE(stroke.has_value()) << name << ": " << key;
            EXPECT_TRUE(isMenuKey(*stroke) || isFormKey(*stroke) || isKeyOfOneForm(*stroke) ||
                        isInputKey(world, *stroke))
                << name << ": " << key;
        }
    }
}

TEST(Guides, TheCheckOfKeysNoticesAKeyThatDoesNothing) {
    EditWorld world;
    world.numbered(3);
    EXPECT_EQ(keysIn("次は、Ctrl+Q と F10 と下の矢印。"), (std::set<std::string>{"Ctrl+Q", "F10", "下"}));
    for (const char* key : {"Ctrl+Q", "F10", "Ctrl+Alt+J", "Shift+F3", "Alt+C"}) {
        const auto stroke = strokeNamed(key);
        ASSERT_TRUE(stroke.has_value()) << key;
        EXPECT_FALSE(isMenuKey(*stroke) || isFormKey(*stroke) || isKeyOfOneForm(*stroke) || isInputKey(world, *stroke))
            << key;
    }
    EXPECT_FALSE(strokeNamed("Shift+Ctrl+A").has_value()) << "one spelling for each key";
    EXPECT_FALSE(strokeNamed("Ctrl+Entre").has_value());
}

TEST(Guides, TheReadmeNamesEveryKeyOfTheEditScreen) {
    EditWorld world;
    world.numbered(3);
    std::vector<KeyStroke> named;
    for (const std::string& key : keysIn(guideText("readme.txt"))) {
        named.push_back(strokeNamed(key).value());
    }
    int found = 0;
    for (int key = static_cast<int>(Key::other); key <= static_cast<int>(Key::z); ++key) {
        for (int modifiers = 0; modifiers < 8; ++modifiers) {
            const KeyStroke stroke{static_cast<Key>(key), (modifiers & 1) != 0, (modifiers & 2) != 0,
                                   (modifiers & 4) != 0};
            if (isMenuKey(stroke) || isInputKey(world, stroke)) {
                ++found;
                EXPECT_THAT(named, testing::Contains(stroke))
                    << "key " << key << " shift " << stroke.shift << " ctrl " << stroke.ctrl << " alt " << stroke.alt;
            }
        }
    }
    EXPECT_GT(found, 90);
}

TEST(Guides, EveryQuotedCaptionExists) {
    const auto captions = menuCaptions();
    ASSERT_TRUE(captions.contains("読み上(R)"));
    int quoted = 0;
    for (const char* name : guides) {
        const std::string text = std::regex_replace(guideText(name), std::regex("\r\n"), "");
        static const std::regex quotation("「((?:(?!」).)*)」");
        for (std::sregex_iterator match(text.begin(), text.end(), quotation), end; match != end; ++match) {
            const std::string caption = (*match)[1];
            ++quoted;
            EXPECT_TRUE(captions.contains(caption) || programTexts().contains(caption) ||
                        captionsToCome.contains(caption))
                << name << ": " << caption;
        }
    }
    EXPECT_GT(quoted, 30);
}

TEST(Guides, TheCheckOfCaptionsKnowsWhatTheProgramShows) {
    EXPECT_TRUE(programTexts().contains("すべてのファイルを表示する"));
    EXPECT_TRUE(programTexts().contains("フォルダ作成(F)"));
    EXPECT_FALSE(programTexts().contains("フォルダ作成(G)"));
}
