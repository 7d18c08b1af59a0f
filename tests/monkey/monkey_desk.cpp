#include "tests/monkey/monkey_desk.h"

#include "app/entry.h"
#include "edit/status_update.h"
#include "platform/qt/qt_text.h"
#include "sheet/failure_recovery.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

// Painting costs time by the pixel, and nothing that the monkey looks at depends on the window's size.
constexpr int smallWidth = 420;
constexpr int smallHeight = 300;
constexpr int turnsBeforeWork = 3;
constexpr double pauseBetweenKeys = 0.3; // seconds: readings pass the throttle

std::optional<Key> accessKeyIn(const QString& text) {
    const auto mark = text.indexOf(QLatin1Char('&'));
    const int letter = mark < 0 || mark + 1 >= text.size() ? 0 : text.at(mark + 1).toUpper().unicode();
    if (letter < 'A' || letter > 'Z') {
        return std::nullopt;
    }
    return static_cast<Key>(static_cast<int>(Key::a) + letter - 'A');
}

std::vector<Key> accessKeysOf(const QWidget& window) {
    std::vector<Key> keys;
    const auto take = [&keys](const QString& text) {
        if (const auto key = accessKeyIn(text)) {
            keys.push_back(*key);
        }
    };
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        take(button->text());
    }
    for (const auto* label : window.findChildren<QLabel*>()) {
        take(label->text());
    }
    for (const auto* bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* action : bar->actions()) {
            take(action->text());
        }
    }
    return keys;
}

std::optional<KeyStroke> strokeOf(const QKeySequence& shortcut) {
    const QKeyCombination keys = shortcut[0];
    KeyStroke stroke{Key::other, keys.keyboardModifiers().testFlag(Qt::ShiftModifier),
                     keys.keyboardModifiers().testFlag(Qt::ControlModifier),
                     keys.keyboardModifiers().testFlag(Qt::AltModifier)};
    const int code = keys.key();
    if (code >= Qt::Key_A && code <= Qt::Key_Z) {
        stroke.key = static_cast<Key>(static_cast<int>(Key::a) + code - Qt::Key_A);
    } else if (code >= Qt::Key_F1 && code <= Qt::Key_F12) {
        stroke.key = static_cast<Key>(static_cast<int>(Key::f1) + code - Qt::Key_F1);
    }
    return stroke.key == Key::other ? std::nullopt : std::optional(stroke);
}

std::vector<KeyStroke> shortcutsOf(const QWidget& window) {
    std::vector<KeyStroke> strokes;
    for (const auto* action : window.findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty()) {
            if (const auto stroke = strokeOf(action->shortcut())) {
                strokes.push_back(*stroke);
            }
        }
    }
    return strokes;
}

} // namespace

MonkeyDesk::MonkeyDesk(const FolderFiles& files) : EditDesk(true) {
    for (const auto& [name, bytes] : files) {
        world.writeFile(name, bytes);
    }
    guard.setCleanup([this](const RuntimeFailure& failure) { putStateRight(zormod, failure); });
    form.setMinimumSize(0, 0);
    form.resize(smallWidth, smallHeight);
}

void MonkeyDesk::start() {
    guard.run([this] { enterProgram(zormod); });
    zormod.speech.speechMode = 2;
    if (std::filesystem::exists(world.folder.path() + "/t.txt")) {
        open(form);
        guard.run([this] { openFromCommandLine(edit, u"t.txt"); });
    } else {
        guard.run([this] { formTable.open(u"FrmLunch"); });
    }
    settle();
}

// A comma in the table's memo moves all items of its K file along at the next opening. The file's form is what it is;
// this would only hide everything else that could be found.
MonkeyKey MonkeyDesk::withoutComma(MonkeyKey key) {
    const std::string place = focus();
    if (place == "RichTextBox2" || place == "text2") {
        std::replace(key.text.begin(), key.text.end(), u',', u'-');
        std::replace(world.clipboard.contents.begin(), world.clipboard.contents.end(), u',', u'-');
    }
    return key;
}

// The loop gives the turn to the event loop, as the real one does: whatever form stands above it takes keys.
void MonkeyDesk::workInNextLoop() {
    world.eventLoop.atTurn.clear();
    world.eventLoop.atTurn[world.eventLoop.turns + turnsBeforeWork] = [this] {
        settle();
        settle();
        guard.throwPending();
    };
}

void MonkeyDesk::perform(const MonkeyKey& wanted) {
    const MonkeyKey key = withoutComma(wanted);
    world.later(pauseBetweenKeys);
    switch (key.kind) {
    case MonkeyKey::Kind::press:
        keys.press(key.stroke);
        break;
    case MonkeyKey::Kind::down:
        keys.down(key.stroke);
        break;
    case MonkeyKey::Kind::repeat:
        keys.repeat(key.stroke);
        break;
    case MonkeyKey::Kind::up:
        keys.up(key.stroke);
        break;
    case MonkeyKey::Kind::type:
        keys.type(key.text);
        break;
    case MonkeyKey::Kind::compose:
        keys.compose(key.text);
        break;
    case MonkeyKey::Kind::commit:
        keys.commit(key.text);
        break;
    case MonkeyKey::Kind::copy:
        world.clipboard.foreign(key.text);
        break;
    case MonkeyKey::Kind::turn:
        workInNextLoop();
        break;
    }
    settle();
}

Situation MonkeyDesk::situation() const {
    Situation found;
    const QWidget* focused = QApplication::focusWidget();
    const QWidget* window = QApplication::activeWindow();
    found.takesText = focused != nullptr && focused->testAttribute(Qt::WA_InputMethodEnabled);
    found.boxIsEmpty = routines.edit.txtinputbox.text().empty();
    found.rangeIsFixed = zormod.selection.selectionKind != 0;
    found.picksPlace = !zormod.taskWord.empty();
    if (QApplication::activePopupWidget() != nullptr || qobject_cast<const QMenuBar*>(focused) != nullptr) {
        found.place = Situation::Place::menu;
        return found;
    }
    if (window != nullptr) {
        found.accessKeys = accessKeysOf(*window);
        found.shortcuts = shortcutsOf(*window);
    }
    if (window != &form) {
        found.place = Situation::Place::form;
    } else if (focused != nullptr && focused->objectName() == QLatin1StringView("txtinputbox")) {
        found.place = Situation::Place::inputBox;
    }
    return found;
}

FolderFiles MonkeyDesk::folderFiles() const {
    FolderFiles files;
    for (const auto& entry : std::filesystem::directory_iterator(world.folder.path())) {
        if (entry.is_regular_file()) {
            const std::string name = entry.path().filename().string();
            files[name] = world.bytesOf(name);
        }
    }
    return files;
}

void MonkeyDesk::forget() {
    world.clipboard.written.clear();
    commands.ran.clear();
}
