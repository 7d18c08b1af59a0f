#pragma once
// What a menu says of the entry that is highlighted: without a voice of its own a menu could only be used by people who
// see it. Called by the menu's voice for every entry that the user comes to.

#include "platform/text.h"

/// An entry as it stands.
struct MenuEntryState {
    Text caption{}; ///< without the mark of its access key
    bool checked = false;
    bool enabled = true;
    bool opensMenu = false;
    Text key{}; ///< "Ctrl+J", or empty
};

/// Caption, state and key, with short pauses between.
Text menuEntryText(const MenuEntryState& entry);
