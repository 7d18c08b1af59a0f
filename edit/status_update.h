#pragma once
// The status update: the panel follows the current cell. The order in which it sets its boxes is the order in which
// moves are spoken, for the box that really changes is what speaks. Every routine that moves the current cell ends
// here; nothing here moves it.

#include "edit/edit_screen.h"
#include "platform/screen.h"
#include "voice/cell_reading.h"

/// Connects the change rules of txtREC and txtItemnum; called once, when the edit screen is made.
void connectPositionBoxes(EditScreen& edit);

/// Writes the panel for `record` and `item`; `record` stands in the window, and a table is open. The input box gets
/// `boxText` without a word: only the position boxes speak here.
void updateStatus(EditScreen& edit, std::int32_t record, std::int16_t item, const Text& boxText);

/// Status update and redraw for the current cell with an empty box, speech as it stands. Nothing without a table.
void showCurrentCell(EditScreen& edit);

/// Status update and redraw for the current cell; what is typed stays in the box. For whatever changes the panel while
/// the user stays in the cell. Nothing without a table.
void refreshCurrentCell(EditScreen& edit);

/// showCurrentCell and the focus in the empty input box: how every jump ends.
void showCurrentCellAtRest(EditScreen& edit);

/// The same with speech held off and the labels that a table gets when it is opened ("全項目(0～..)", limit): after a
/// table has been opened into the window.
void showOpenedTable(EditScreen& edit);

/// The label of the items to input as an opened table and the return to all items write it. Status updates write
/// another.
Text allItemsLabel(const ZORMOD& zormod);

/// The mark of the ID numbering beside the ID in Label13.
inline constexpr TextView idAutoMark = u"(自動更新！)";

/// The text of any field of the panel.
const Text& panelText(const EditScreen& edit, PanelField field);

/// Sets a field that nobody watches and shows it if it differs. A watched field is a fault of the caller and stays.
void setPanelText(EditScreen& edit, PanelField field, const Text& text);

/// The program sets txtREC, txtItemnum or txtinputbox: a real difference runs the change rule and is shown.
void setBoxText(EditScreen& edit, PanelField field, TextView text);

/// The echo shows the stored cell, not what is typed; nothing without a table.
void showCellInEcho(const EditScreen& edit);

/// Empties the input box with speech held off; the echo shows the stored cell again.
void clearInputBox(EditScreen& edit);

/// Gives the input box the focus and runs its focus rule, whether or not it had the focus already.
void giveInputBoxFocus(EditScreen& edit);

/// The focus rule of the input box alone: the user has come to it by Tab or mouse. While a range or a target is being
/// chosen the focus goes on to the box of its form.
void inputBoxGotFocus(EditScreen& edit);

/// The texts of the panel that readings repeat.
PanelReadings panelReadings(const EditScreen& edit);

/// True unless the task word is one of those under which the view is left where it is and the focus stays.
bool viewComesForward(const Text& taskWord);

/// The commands to which the focus is handed on while the task word is "HTYU", and while it is "copy" or "move".
inline constexpr TextView focusRangeBoxCommand = u"focusRangeBox";
inline constexpr TextView focusPointerBoxCommand = u"focusPointerBox";
