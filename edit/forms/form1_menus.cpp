#include "edit/forms/form1_menus.h"

#include "platform/commands.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"
#include "sheet/zormod.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace {

QAction* makeAction(QMenuBar& bar, const MenuEntry& entry, const FormContext& context) {
    auto* action = new QAction(toQt(entry.caption), &bar);
    action->setObjectName(toQt(entry.name));
    if (!entry.key.empty()) {
        action->setShortcut(QKeySequence(toQt(entry.key), QKeySequence::PortableText));
    }
    QObject::connect(
        action, &QAction::triggered, action, // a bar forgets an action that moves to another row
        context.guard.wrap([&zormod = context.zormod, name = entry.name] { zormod.platform.commands.run(name); }));
    return action;
}

} // namespace

void buildMenus(QMenuBar& bar, const MenuTable& table, const FormContext& context) {
    for (const MenuGroup& group : table) {
        if (group.entries.empty()) {
            bar.addAction(makeAction(bar, {group.name, group.caption, {}}, context));
            continue;
        }
        QMenu* menu = bar.addMenu(toQt(group.caption));
        menu->setObjectName(toQt(group.name));
        for (const MenuEntry& entry : group.entries) {
            menu->addAction(makeAction(bar, entry, context));
        }
    }
}

QAction* menuEntry(const QMenuBar& bar, TextView name) {
    return bar.findChild<QAction*>(toQt(name), Qt::FindDirectChildrenOnly);
}
