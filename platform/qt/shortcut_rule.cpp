#include "platform/qt/shortcut_rule.h"

#include <QKeyEvent>

void ShortcutRule::answer(QKeyEvent& shortcutOverride) {
    shortcutOverride.ignore();
}
