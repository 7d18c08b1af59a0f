#include "support/qt/edit_desk.h"

#include "app/menus.h"
#include "edit/forms/input_forms.h"
#include "edit/forms/range_forms.h"
#include "edit/status_update.h"
#include "output/forms/frmHelp.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "start/forms/start_forms.h"
#include "structure/forms/structure_forms.h"
#include "voice/forms/key_guide.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

EditDesk::EditDesk(bool walledIn)
    : Desk({.screen = &link, .commands = &commands, .forms = &formTable, .walledIn = walledIn}), routines(zormod),
      form(context, edit, box, form1Menus()) {
    link.connectTo(&form);
    formTable.setContext(context);
    formTable.addStanding(u"Form1", form);
    addStartForms(formTable, context);
    addStructureForms(formTable, context, routines.pointer, routines.width);
    addKeyGuides(formTable, context);
    addTextViewer(formTable, context, routines.viewer);
    addRangeForms(formTable, context, routines.rangeDrawing);
    addInputForms(formTable, context, edit);
    bindCommands(commands, routines);
    form.showReadingMode(zormod.speech.speechMode);
}

void EditDesk::openTable(const std::vector<TestWorld::Item>& items,
                         const std::vector<std::vector<std::u16string_view>>& records) {
    world.table(items, records);
    updateTitle(zormod);
    open(form);
    showOpenedTable(edit);
    settle();
    spoken();
    world.later();
}

void EditDesk::key(const KeyStroke& stroke) {
    world.later();
    keys.press(stroke);
    settle();
}

std::vector<std::string> EditDesk::spokenBy(const KeyStroke& stroke) {
    spoken();
    key(stroke);
    return spoken();
}

QWidget* EditDesk::part(const char* name) {
    auto* found = form.findChild<QWidget*>(QLatin1StringView(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

QWidget* EditDesk::partOf(const char* view, const char* name) {
    auto* found = part(view)->findChild<QWidget*>(QLatin1StringView(name));
    EXPECT_NE(found, nullptr) << view << "." << name;
    return found;
}

std::string EditDesk::text(const char* name) {
    const QWidget* widget = part(name);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        return line->text().toStdString();
    }
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label == nullptr ? std::string() : label->text().toStdString();
}

std::string EditDesk::cell(int item) {
    return utf8(getCell(zormod, item));
}
