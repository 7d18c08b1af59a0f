#pragma once
// The edit screen's menus as data: every entry with its caption, key and place. Each entry's name is the command that
// it runs. main hands the table to Form1; nothing else reads it.
//
// A key that stands only inside a caption is a key of the input box, not of the menu. G, M and N are no menu's letter:
// Alt with them belongs to the input box.

#include "edit/menu_table.h"

/// The menu bar of Form1.
MenuTable form1Menus();
