#pragma once
// Builds Form1's menu bar from the menu table. Every entry runs the command of its name inside the guard; the keys of
// the table are the toolkit's shortcuts of the window, so they come before the focused control.

#include "edit/menu_table.h"
#include "platform/qt/form_context.h"

class QAction;
class QMenuBar;

/// Fills `bar` in the order of the table. Each entry's action has the entry's name as its object name.
void buildMenus(QMenuBar& bar, const MenuTable& table, const FormContext& context);

/// The action of the entry `name`; null if there is none.
QAction* menuEntry(const QMenuBar& bar, TextView name);
