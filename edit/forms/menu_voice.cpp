#include "edit/forms/menu_voice.h"

#include "edit/menu_text.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/spoken_control.h"
#include "voice/speech_channel.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

MenuVoice::MenuVoice(QMenuBar& bar, const FormContext& context) : QObject(&bar), context_(context) {
    listenTo(bar);
    for (const QAction* action : bar.actions()) {
        if (const QMenu* menu = action->menu()) {
            connect(menu, &QMenu::hovered, this, &MenuVoice::highlighted);
        }
    }
}

void MenuVoice::listenTo(const QMenuBar& row) {
    connect(&row, &QMenuBar::hovered, this, &MenuVoice::highlighted);
}

Text MenuVoice::textOf(const QAction& action) {
    return menuEntryText({.caption = spokenCaption(action.text()),
                          .checked = action.isCheckable() && action.isChecked(),
                          .enabled = action.isEnabled(),
                          .opensMenu = action.menu() != nullptr,
                          .key = fromQt(action.shortcut().toString(QKeySequence::PortableText))});
}

void MenuVoice::highlighted(QAction* action) {
    if (action == nullptr || pending_.contains(action)) {
        return;
    }
    if (pending_.isEmpty()) {
        QMetaObject::invokeMethod(this, context_.guard.wrap([this] { say(); }), Qt::QueuedConnection);
    }
    pending_.append(action);
}

void MenuVoice::say() {
    Text text;
    for (const QPointer<QAction>& action : std::exchange(pending_, {})) {
        if (action) {
            text += text.empty() ? TextView() : periodPause;
            text += textOf(*action);
        }
    }
    if (!text.empty()) {
        sayThrottled(context_.zormod, text);
    }
}
