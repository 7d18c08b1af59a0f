#pragma once
// Choosing where a selected range is to go. A key on a fixed range or a menu entry begins it; frmMSSG shows the words,
// its key box hands every key over, and the pointer moves with the current cell: the range stays under one mask, the
// place it would take under a green one. It ends with the operation or is given up. Both leave no range, no mask and no
// form, and the user in the input box.
//
// For whole records and items the pointer is `moveAnchor`, in front of which they go; for a block it is the current cell.

#include "edit/edit_screen.h"
#include "platform/keys.h"
#include "structure/pointer_texts.h"
#include "structure/range_questions.h"

#include <functional>
#include <optional>

/// Which side of the range the pointer starts on.
enum class Towards { start = -1, end = 1 };

/// The one choice of a target. The form registers itself; commands, keys and jumps work on it.
class PointerChoice {
public:
    explicit PointerChoice(EditScreen& edit) : edit_(edit), zormod_(edit.zormod) {}
    PointerChoice(const PointerChoice&) = delete;
    PointerChoice& operator=(const PointerChoice&) = delete;

    /// The keys on a fixed range of that kind. Where there is no place on that side they beep and the range stays; a
    /// range of all items is given up.
    void startItems(Towards side);
    void startRecords(Towards side);
    /// `task` is "copy" or "move".
    void startBlock(TextView task);
    /// The menu entries. Without a range of their kind they say which is wanted. Records and items start behind the
    /// range, where there is no place there in front of it.
    void mnuMITEM();
    void mnuMREC();
    void mnuCOPY();
    void mnuMOVE();

    /// Key down and key up in the key box.
    KeyOutcome keyDown(const KeyStroke& stroke);
    void keyUp(const KeyStroke& stroke);
    /// A jump has moved the current cell: pointer, line and masks follow it, and the key box has the focus.
    void jumped();
    /// Gives the key box the focus.
    void focusBox();
    /// `Command1`, Enter: carries the operation out and ends the choice. A pointer inside the range is told and ends it too.
    void carryOut();
    /// `Command2`, Esc. While the operation runs it asks it to stop instead.
    void giveUp();
    /// The form has been closed: a choice that was still going on is given up.
    void closed();

    const PointerWords& words() const { return words_; }
    const Text& line() const { return line_; }
    /// What the form does: its instructions and the line.
    Text description() const { return words_.instructions + line_; }
    /// What the form does when its texts change and when its key box is to have the focus.
    void onChanged(std::function<void()> show) { show_ = std::move(show); }
    void onFocus(std::function<void()> focus) { focus_ = std::move(focus); }

private:
    void putTypedTextAway();
    bool hasRange(std::int16_t kind, MissingRange missing);
    std::optional<std::int16_t> itemPlace(Towards side) const;
    std::optional<std::int32_t> recordPlace(Towards side);
    void moveItemsFrom(std::int16_t place, PointerStart start);
    void moveRecordsFrom(std::int32_t place, PointerStart start);
    void blockFrom(TextView task, PointerStart start);
    void open(PointerStart start);

    void arrow(const KeyStroke& stroke);
    void ask();
    void edge(Key key);
    void stepPointer(int step);
    void follow();
    void show(Text line);
    void paintMasks();

    void run(const Text& task);
    void leave();

    EditScreen& edit_;
    ZORMOD& zormod_;
    PointerWords words_;
    Text line_;
    std::function<void()> show_;
    std::function<void()> focus_;
};
