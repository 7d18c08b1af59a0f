#pragma once
// The voice of the menus: the entry that becomes the highlighted one says itself through the throttle. A menu that
// opens highlights itself and its first entry at once; both are said as one text, or the entry would be dropped. It
// listens to the toolkit's menus and decides nothing; the words are in edit/menu_text.

#include "platform/qt/form_context.h"
#include "platform/text.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class QMenuBar;

/// Speaks for one menu bar and all menus in it, wherever they move; a child of the bar.
class MenuVoice : public QObject {
    Q_OBJECT
public:
    MenuVoice(QMenuBar& bar, const FormContext& context);
    /// Speaks for another row of the same menus too.
    void listenTo(const QMenuBar& row);

    /// What `action` says as it stands.
    static Text textOf(const QAction& action);

private:
    void highlighted(QAction* action);
    void say();

    FormContext context_;
    QList<QPointer<QAction>> pending_; ///< highlighted since the last turn of the event loop
};
