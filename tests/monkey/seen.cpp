#include "tests/monkey/seen.h"

#include "edit/movement.h"
#include "platform/qt/key_line_edit.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <QApplication>

std::string fileBytes(MonkeyDesk& desk, const Text& path) {
    constexpr std::size_t limit = std::size_t{1} << 32; // a typed number may have made a table long
    return desk.world.files.exists(path) ? desk.world.files.readWhole(path, limit) : std::string();
}

Seen look(MonkeyDesk& desk) {
    const ZORMOD& zormod = desk.zormod;
    Seen seen;
    seen.position = zormod.position;
    seen.selection = zormod.selection;
    seen.boxText = desk.edit.txtinputbox.text();
    seen.boxIsEmpty = boxIsEmpty(desk.edit);
    seen.taskWord = zormod.taskWord;
    seen.idIsAutomatic = zormod.input.idAutoOn != 0;
    const auto* box = qobject_cast<const KeyLineEdit*>(QApplication::focusWidget());
    // While a menu is open the box has the focus still, and the menu gets the keys.
    seen.inInputBox = box != nullptr && box->objectName() == QLatin1StringView("txtinputbox") &&
                      QApplication::activePopupWidget() == nullptr;
    seen.isComposing = box != nullptr && box->composing();
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        const bool wantsKeys = !window->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus);
        seen.smallWindowIsUp = seen.smallWindowIsUp || (window != &desk.form && window->isVisible() && wantsKeys);
    }
    if (!hasTable(zormod)) {
        return seen;
    }
    seen.table = fullPath(zormod.file.fileDrive, zormod.file.fileName);
    seen.items = fileBytes(desk, itemFilePathOn(zormod.file.fileDrive, zormod.file.fileName));
    seen.records = fileBytes(desk, seen.table);
    seen.itemTable = zormod.items;
    seen.row = zormod.window.recordWindow[currentSlot(zormod)].substr(0, dataLength);
    return seen;
}
