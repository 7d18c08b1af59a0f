#pragma once
// What the logic tells the edit screen. The screen shows and moves the focus; it decides nothing, and no call here
// raises a change event of a box: who sets a text has already run its change rule.

#include "platform/text.h"

#include <cstdint>

/// The texts of Form1's panel, by control name.
enum class PanelField {
    txtREC,       ///< record number
    txtItemnum,   ///< item number
    txtWIDTH,     ///< width of the current item
    txtLR,        ///< alignment of the current item
    Text1,        ///< number of items
    RichTextBox1, ///< name of the current item
    RichTextBox2, ///< table memo
    txtinputbox,  ///< the input box
    Label8,       ///< input limit
    Label11,      ///< items to input
    Label13,      ///< ID of the current record
};

/// The masks that show a range.
enum class MaskKind {
    wholes, ///< `LblMUSK` over whole records or items
    block,  ///< `LblMUSK` over a block of cells
    target, ///< `LblPMUSK`: where it is to go
};

/// The grounds of a label that tells a state by colour too. The letters on green and yellow are black in every palette.
enum class LabelGround { plain, green, yellow };

/// A range of cells, both ends included: records from 1, items from 0.
struct CellRange {
    std::int32_t firstRecord = 1;
    std::int32_t lastRecord = 1;
    std::int16_t firstItem = 0;
    std::int16_t lastItem = 0;
};

/// The edit screen: Form1 with its panel and the view in force beneath it.
class Screen {
public:
    virtual ~Screen() = default;
    /// The window's title.
    virtual void setTitle(const Text& title) = 0;
    /// Shows `text` in a field of the panel. In a box the caret goes to the end.
    virtual void showField(PanelField field, const Text& text) = 0;
    /// Gives a label of the panel a ground.
    virtual void colourLabel(PanelField field, LabelGround ground) = 0;
    /// Gives a field the keyboard focus. The focus rule of the box is run by the caller, never by this call.
    virtual void focusField(PanelField field) = 0;
    /// Makes the input box as wide as `bytes` half-width characters, as far as the window allows.
    virtual void setInputBoxWidth(int bytes) = 0;
    /// Updates the panel to the current cell and redraws the view: for routines below the edit screen that have
    /// changed the table.
    virtual void showCurrentCell() = 0;
    /// Redraws the whole view in force from the record window.
    virtual void redrawView() = 0;
    /// Redraws the current row of the view in force.
    virtual void redrawCurrentRow() = 0;
    /// The echo of the standard view goes to its typing colour and shows `text`.
    virtual void showEcho(const Text& text) = 0;
    /// The echo shows the stored cell again.
    virtual void showCellInEcho() = 0;
    /// Puts a mask over a range, as far as it stands in the window, in place of the one of that kind that is shown.
    virtual void paintMask(MaskKind kind, const CellRange& range) = 0;
    /// Hides the masks of the selected range and of its target.
    virtual void hideMask() = 0;
    /// Shows the reading mode: "Speek!" visible unless `speechMode` is 0, the mark on the one menu entry of the mode,
    /// `mnuJY` enabled unless `speechMode` is 0.
    virtual void showReadingMode(int speechMode) = 0;
    /// Shows or hides "Speek!" alone: it changes before the confirmation is spoken, the marks after it.
    virtual void showSpeek(bool visible) = 0;
    /// The check mark of `mnuJY`.
    virtual void showPinnedAutoRead(bool on) = 0;
};
