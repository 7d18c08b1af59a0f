#include "edit/menu_text.h"

namespace {
constexpr TextView pause = u"､";
} // namespace

Text menuEntryText(const MenuEntryState& entry) {
    Text text = entry.caption;
    const auto add = [&text](bool holds, TextView word) {
        if (holds) {
            text += pause;
            text += word;
        }
    };
    add(entry.checked, u"チェック");
    add(!entry.enabled, u"使用不可");
    add(entry.opensMenu, u"サブメニュー");
    add(!entry.key.empty(), entry.key);
    return text;
}
