#pragma once
// The kind of data that menus are written in. The edit screen builds its menu bar from such a table and runs the
// entry's name as a command; it knows no entry by itself.

#include "platform/text.h"

#include <vector>

/// An entry of a menu.
struct MenuEntry {
    Text name;    ///< command and object name, such as u"mnuJUMP"
    Text caption; ///< without a mark for an access key
    Text key;     ///< "Ctrl+J", "Shift+F9", or empty
};

/// A top-level menu. Without entries it is itself an entry that runs the command `name`.
struct MenuGroup {
    Text name;
    Text caption; ///< with "&" before its access key
    std::vector<MenuEntry> entries;
};

/// A whole menu bar, in order.
using MenuTable = std::vector<MenuGroup>;
