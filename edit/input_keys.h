#pragma once
// The key tables of the input box as data: which stroke does what on key down, and which reads what on key up. The box
// looks its keys up here after its own earlier rules have let them pass.

#include "edit/edit_screen.h"
#include "platform/keys.h"

/// Commands of the box's keys that no menu entry carries. The formula keys are "formulaKey0" to "formulaKey9".
inline constexpr TextView shiftCellsRightCommand = u"shiftCellsRight";
inline constexpr TextView shiftCellsLeftCommand = u"shiftCellsLeft";
/// Run with the row on the disk, outside the card view, while the item can still be widened or narrowed.
inline constexpr TextView widenItemCommand = u"widenItem";
inline constexpr TextView narrowItemCommand = u"narrowItem";

/// A row of the table of key down.
struct InputKey {
    KeyStroke stroke;
    bool needsEmptyBox = false; ///< with text in the box the stroke is the box's own
    void (*act)(EditScreen&) = nullptr;
    TextView command{}; ///< what is run where `act` is null
    KeyOutcome outcome = KeyOutcome::taken;
    bool needsTable = true; ///< beeps while no table is open
};

/// The row for a stroke, null if there is none.
const InputKey* findInputKey(const KeyStroke& stroke, bool boxIsEmpty);

/// A row of the table of key up. Every reading has the throttle in front of it.
struct ReadingKey {
    KeyStroke stroke;
    void (*read)(EditScreen&, const BoxView&);
    bool needsTable = true;
};

/// The row for a stroke, null if there is none.
const ReadingKey* findReadingKey(const KeyStroke& stroke);
