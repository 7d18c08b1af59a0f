#include "edit/forms/menu_voice.h"

#include "edit/menu_text.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/spoken_control.h"
#include "voice/speech_channel.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

MenuVoice::MenuVoice(QMenuBar& bar, const FormContext& context) : QObject(&bar), context_(context) {
    connect(&bar, &QMenuBar::hovered, this, &MenuVoice::say);
    for (const QAction* action : bar.actions()) {
        if (const QMenu* menu = action->menu()) {
            connect(menu, &QMenu::hovered, this, &MenuVoice::say);
        }
    }
}

Text MenuVoice::textOf(const QAction& action) {
    return menuEntryText({.caption = spokenCaption(action.text()),
                          .checked = action.isCheckable() && action.isChecked(),
                          .enabled = action.isEnabled(),
                          .opensMenu = action.menu() != nullptr,
                          .key = fromQt(action.shortcut().toString(QKeySequence::PortableText))});
}

void MenuVoice::say(const QAction* action) {
    if (action != nullptr) {
        context_.guard.run([&] { sayThrottled(context_.zormod, textOf(*action)); });
    }
}
