#pragma once
// The state of the edit screen's panel: the watched texts of its boxes, the texts of its labels, and the few flags by
// which one handler knows what another is doing. Form1 owns one; the routines of this room work on it and tell the
// Screen what to show.

#include "sheet/zormod.h"
#include "voice/watched_text.h"

#include <optional>

/// Whether the cell reading has just been said, so that the input box's focus need not speak again.
enum class ReadingState {
    none = 0,        ///< the focus of the input box says its own name
    cellSaid = 1,    ///< a cell reading has just gone out
    focusPassed = 2, ///< and the focus that followed it has kept quiet
};

/// Form1's own state.
struct EditScreen {
    explicit EditScreen(ZORMOD& state) : zormod(state) {}
    EditScreen(const EditScreen&) = delete;
    EditScreen& operator=(const EditScreen&) = delete;

    ZORMOD& zormod;

    WatchedText txtinputbox; ///< what is being typed; empty at rest
    WatchedText txtREC;      ///< record number with its leading blank
    WatchedText txtItemnum;  ///< item number
    Text txtWIDTH;
    Text txtLR;
    Text Text1;        ///< number of items
    Text RichTextBox1; ///< name of the current item
    Text RichTextBox2; ///< table memo as the box shows it
    std::optional<Text> typedMemo; ///< what was typed in the memo box and isn't in the item definition file yet
    Text Label8;       ///< input limit
    Text Label11;      ///< items to input
    Text Label13;      ///< ID of the current record

    WatchedText pinnedCaption; ///< title of frmSPITEM
    WatchedText pinnedCell;    ///< its label: the pinned item of the current record

    Text previousInputText; ///< the input box's text before its last change
    ReadingState readingState = ReadingState::none;
    bool commitBusy = false; ///< a key handler commits and moves: changes of the box are cleared, not read
    bool keyIgnore = false;  ///< key down does nothing while it is set
    bool typingInRecordBox = false; ///< the user types in txtREC, so its changes are typing, not moves
    bool typingInItemBox = false;
    std::int16_t savedLimit = 0; ///< the input limit held back while it is suspended; 0: nothing suspended
    int lastSelLength = 0;       ///< length of the input box's selection at the last key up
    Text undoCell;               ///< the cell that `mnuCTRLD` blanked last
};

