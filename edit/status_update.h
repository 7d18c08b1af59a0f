#pragma once
// The status update: the panel follows the current cell. The order in which it sets its boxes is the order in which
// moves are spoken, for the box that really changes is what speaks.

#include "edit/edit_screen.h"
#include "platform/screen.h"
#include "voice/cell_reading.h"

/// Connects the change rules of txtREC and txtItemnum; called once, when the edit screen is made.
void connectPositionBoxes(EditScreen& edit);

/// Writes the panel for `record` and `item`; the input box gets `boxText`.
void updateStatus(EditScreen& edit, std::int32_t record, std::int16_t item, const Text& boxText);

/// Status update and redraw for the current cell with an empty box, speech as it stands.
void showCurrentCell(EditScreen& edit);

/// The same with speech held off and the labels that a table gets when it is opened ("全項目(0～..)", limit): after a
/// table has been opened into the window. Gives the input box the focus.
void showOpenedTable(EditScreen& edit);

/// Sets a field that nobody watches and shows it.
void setPanelText(EditScreen& edit, PanelField field, const Text& text);

/// Empties the input box with speech held off.
void clearInputBox(EditScreen& edit);

/// Gives the input box the focus and runs its focus rule, whether or not it had the focus already.
void giveInputBoxFocus(EditScreen& edit);

/// The focus rule of the input box alone: the user has come to it by Tab or mouse.
void inputBoxGotFocus(EditScreen& edit);

/// The texts of the panel that readings repeat.
PanelReadings panelReadings(const EditScreen& edit);

/// True unless the task word is one of those under which the view is left where it is and the focus stays.
bool viewComesForward(const Text& taskWord);
