#pragma once
// The start screen's menus as data, in the form in which the edit screen's menus are written.

#include "edit/menu_table.h"

/// The menu bar of FrmLunch; each entry's name is the command that it runs.
MenuTable startMenus();
