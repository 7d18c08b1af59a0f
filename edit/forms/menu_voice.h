#pragma once
// The voice of the menus: the entry that becomes the highlighted one says itself through the throttle. It listens to the
// toolkit's menus and decides nothing; the words are in edit/menu_text.

#include "platform/qt/form_context.h"
#include "platform/text.h"

#include <QObject>

class QAction;
class QMenuBar;

/// Speaks for one menu bar and all menus in it; a child of the bar.
class MenuVoice : public QObject {
    Q_OBJECT
public:
    MenuVoice(QMenuBar& bar, const FormContext& context);

    /// What `action` says as it stands.
    static Text textOf(const QAction& action);

private:
    void say(const QAction* action);

    FormContext context_;
};
