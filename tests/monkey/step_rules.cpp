#include "tests/monkey/step_rules.h"

#include "tests/monkey/operation_rules.h"
#include "voice/speech_channel.h"

#include <QApplication>

#include <algorithm>
#include <array>

namespace {

/// Commands that change no table beyond the row that the user leaves.
constexpr std::array<TextView, 34> quietCommands = {
    u"mnuJUMP",  u"mnuHJ",    u"mnuEXTD",         u"mnuEXTTOP",      u"mnuEXTR",     u"mnuEXTL",     u"mnuHOME",
    u"mnuCTRLP", u"mnuCTRLU", u"mnuDTKN",         u"mnuDTKEX",       u"mnuDTKOFF",   u"mnuJY",       u"mnuINH",
    u"mnuALT",   u"mnuCTRL",  u"mnuFKEY",         u"mnuSfunc",       u"menuGENERAL", u"mnuGUIDE",    u"mnuWRITE",
    u"mnuSETU",  u"mnuOSETU", u"mnuCONTROLS",     u"mnuREDME",       u"mnuH",        u"mnuItemList", u"backToInputBox",
    u"mnuEND",   u"mnuCTRLD", u"shiftCellsRight", u"shiftCellsLeft", u"mnuLIMIT",    u"Hread"};
/// Those of them that change the current row without anything being typed.
constexpr std::array<TextView, 3> rowCommands = {u"mnuCTRLD", u"shiftCellsRight", u"shiftCellsLeft"};

template <typename List> bool isIn(const List& list, TextView name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

bool isOperation(const MonkeyDesk& desk, TextView command) {
    return desk.commands.isBound(command) && !isIn(quietCommands, command);
}

bool ranOperation(const MonkeyDesk& desk, const Seen& before) {
    const auto& ran = desk.commands.ran;
    return !before.taskWord.empty() || before.smallWindowIsUp ||
           std::any_of(ran.begin(), ran.end(), [&](const Text& name) { return isOperation(desk, name); });
}

bool ranRowCommand(const MonkeyDesk& desk) {
    const auto& ran = desk.commands.ran;
    return std::any_of(ran.begin(), ran.end(), [](const Text& name) { return isIn(rowCommands, name); });
}

bool mayType(const Seen& before, const MonkeyKey& key) {
    const bool isText = key.kind == MonkeyKey::Kind::type || key.kind == MonkeyKey::Kind::commit;
    const bool isPaste = key.stroke == ctrlKey(Key::v) || key.stroke == shiftKey(Key::insert);
    const bool isKeypad = key.stroke.key >= Key::keypad0 && key.stroke.key <= Key::keypad9;
    return before.inInputBox && (isText || isPaste || isKeypad || key.stroke.ctrl == key.stroke.alt);
}

bool copies(const KeyStroke& stroke) {
    return stroke == ctrlKey(Key::c) || stroke == ctrlKey(Key::x) || stroke == ctrlKey(Key::insert) ||
           stroke == shiftKey(Key::del);
}

std::string_view withoutMemo(std::string_view items) {
    return items.substr(std::min(items.find("\r\n"), items.size()));
}

Complaint quietKey(MonkeyDesk& desk, const Seen& before, const Seen& now, const MonkeyKey& key) {
    const CodePage& codePage = desk.world.codePage;
    const std::string records = before.table == now.table ? now.records : fileBytes(desk, before.table);
    if (before.table == now.table && withoutMemo(before.items) != withoutMemo(now.items)) {
        return "item file: changed without an operation";
    }
    if (ranRowCommand(desk)) {
        return std::nullopt;
    }
    if (auto wrong = onlyTheRowWasSaved(codePage, before, records)) {
        return wrong;
    }
    if (auto wrong = onlyTheCellWasTyped(codePage, before, now, mayType(before, key))) {
        return wrong;
    }
    return enterPutsTheTextIn(codePage, before, now, key);
}

std::string visibleWindows() {
    std::string names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            names += " " + window->objectName().toStdString() + "(" + window->windowTitle().toStdString() + ")";
        }
    }
    return names.empty() ? " none" : names;
}

} // namespace

Complaint keyboardIsHeard() {
    if (QApplication::activePopupWidget() != nullptr) {
        return std::nullopt;
    }
    const QWidget* window = QApplication::activeWindow();
    const QWidget* focused = QApplication::focusWidget();
    if (window == nullptr || !window->isVisible()) {
        return "keyboard: no window has it; there are" + visibleWindows();
    }
    const std::string where = window->objectName().toStdString() + " " + window->windowTitle().toStdString();
    if (focused == nullptr) {
        return "keyboard: no control of " + where + " has it";
    }
    if (!focused->isVisible() || !focused->isEnabled() || focused->window() != window) {
        return "keyboard: " + focused->objectName().toStdString() + " has it and can't be used in " + where;
    }
    return std::nullopt;
}

Complaint readingsAreMarked(MonkeyDesk& desk, const MonkeyKey& key) {
    for (const Text& text : desk.world.clipboard.written) {
        if (!text.ends_with(desk.zormod.speech.speechMark) && text != desk.zormod.speech.userClipboard &&
            !copies(key.stroke)) {
            return "reading without its mark: " + utf8(text);
        }
    }
    return std::nullopt;
}

Complaint nothingIsStuck(MonkeyDesk& desk, const Seen& now) {
    if (desk.edit.commitBusy || desk.edit.keyIgnore) {
        return "stuck: a handler's flag is still set";
    }
    if (desk.dialogs.isProgressOpen()) {
        return "stuck: the progress form is still open";
    }
    if (!now.taskWord.empty() && !now.smallWindowIsUp) {
        return "stuck: task word " + utf8(now.taskWord);
    }
    return std::nullopt;
}

Complaint tableChangedAsItMay(MonkeyDesk& desk, const Seen& before, const Seen& now, const MonkeyKey& key) {
    if (before.table.empty()) {
        return std::nullopt;
    }
    if (ranOperation(desk, before)) {
        return changedByEffect(desk.world.codePage, effectOf(before, desk.commands.ran), before, now);
    }
    return quietKey(desk, before, now, key);
}
