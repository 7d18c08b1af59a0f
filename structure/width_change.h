#pragma once
// The change of an item's width, step by step, with the records of the window following each step. Nothing goes to the
// disk until the change is applied; until then the window's rows are cut by the new widths and the file by the old ones,
// so no row may be written meanwhile: frmFLN keeps the keyboard and the mouse to itself. Started by commands.

#include "edit/edit_screen.h"
#include "platform/keys.h"

/// The one change of width. `taskWord` is "chfln" while it is going on.
class WidthChange {
public:
    explicit WidthChange(EditScreen& edit) : edit_(edit), zormod_(edit.zormod) {}
    WidthChange(const WidthChange&) = delete;
    WidthChange& operator=(const WidthChange&) = delete;

    /// `mnuFLN`: puts what is typed safely away and shows the form. Beeps without a table and while a range or a target
    /// is being chosen.
    void start();
    /// The keys of the input box: start, and one step at once.
    void startWidening();
    void startNarrowing();

    /// Key down in `Text1`.
    KeyOutcome keyDown(const KeyStroke& stroke);
    /// `Command1`: the current item a byte wider, in the window only. Beeps if the widths would come to more than 254.
    void widen();
    /// `Command2`: a byte narrower, which an item of width 1 can't be.
    void narrow();
    /// `Command3`: the widths with which the K file was read. Records that were written in others are rewritten.
    void takeWidthsAsRead();
    /// `Command4`, Enter: writes all records in the new widths and leaves.
    void apply();
    /// `Command5`, Esc: the widths as they were at the start, and leaves.
    void giveUp();
    /// `Command6`: the same without leaving.
    void takeWidthsBefore();
    /// The form has been closed: a change that was still going on is given up.
    void closed();

    /// What the form does, with the current item.
    Text description() const;

private:
    bool begin();
    bool isGoingOn() const;
    void step(int by);
    void restore();
    void rewrite();
    void leave();

    EditScreen& edit_;
    ZORMOD& zormod_;
    CheckedArray<std::int16_t, itemEntries> widthBefore_; ///< by which the records in the file are cut
};
