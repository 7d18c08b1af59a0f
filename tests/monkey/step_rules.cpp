#include "tests/monkey/step_rules.h"

#include "tests/monkey/operation_rules.h"
#include "tests/monkey/quiet_rules.h"
#include "voice/speech_channel.h"

#include <QApplication>

namespace {

bool copies(const KeyStroke& stroke) {
    return stroke == ctrlKey(Key::c) || stroke == ctrlKey(Key::x) || stroke == ctrlKey(Key::insert) ||
           stroke == shiftKey(Key::del);
}

/// Only the pastes need them.
ClipFiles clipFilesFor(MonkeyDesk& desk, Effect effect) {
    const bool pastes = effect == Effect::recordsPasted || effect == Effect::pastedOver;
    return {.clip = pastes ? desk.world.bytesOf("ZORCLip") : std::string(),
            .backup = effect == Effect::pasteTakenBack ? desk.world.bytesOf("ZORCLip.bak") : std::string()};
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
    const CodePage& codePage = desk.world.codePage;
    const std::vector<Text>& ran = desk.commands.ran;
    const Effect effect = effectOf(before, ran);
    if (before.table != now.table) {
        // How far an operation had come when its table was closed, nobody can tell.
        return now.table.empty() && effect != Effect::none
                   ? std::nullopt
                   : onlyTheRowWasSaved(codePage, before, fileBytes(desk, before.table));
    }
    if (auto wrong = itemFileKept(effect, before, now)) {
        return wrong;
    }
    if (effect == Effect::none || effect == Effect::designed) {
        return changedWithoutOperation(codePage, before, now, key, ran);
    }
    return changedByEffect(codePage, effect, before, now, clipFilesFor(desk, effect));
}
