#pragma once
// A range is drawn with the arrow keys: the cursor moves, the end of the range follows it, and after every step it is
// said where the range stands. This is `frmHANI` without its window. While a range is drawn nothing goes to the disk
// and the boxes of the panel keep silent, so that the only thing heard is the step itself. main makes one; the form
// shows it, and the commands of range_keys.h start it.

#include "edit/edit_screen.h"
#include "platform/keys.h"

#include <functional>

/// The kinds of range, by the numbers of `selectionKind`.
enum class RangeKind : std::int16_t {
    block = 1,   ///< a block of cells, corner to corner
    records = 2, ///< whole records
    items = 3,   ///< whole items
};

/// The range as the four fields of the form show it: numbers in the order in which they were drawn.
struct RangeFields {
    Text Text1{}; ///< first record
    Text Text2{}; ///< last record
    Text Text3{}; ///< first item
    Text Text4{}; ///< last item
};

/// The drawing of a range. It is going on while the task word is "HTYU".
class RangeDrawing {
public:
    explicit RangeDrawing(EditScreen& edit) : edit_(edit) {}
    RangeDrawing(const RangeDrawing&) = delete;
    RangeDrawing& operator=(const RangeDrawing&) = delete;

    /// Begins a range at the current cell and opens the form. The current record must lie in the file and be on the
    /// disk.
    void start(RangeKind kind);
    /// A key down of the key box `Text5`: moves the current cell. Every key is used up, except Tab.
    KeyOutcome keyDown(const KeyStroke& stroke);
    /// A key up of the key box: the drawing step, and the reading of that key.
    void keyUp(const KeyStroke& stroke);
    /// Enter, `Command2`: the range stands, its ends in order.
    void finish();
    /// Esc, `Command1`: no range.
    void cancel();
    /// The form closes: a range that is still being drawn is given up.
    void closing();
    /// The input box got the focus while a range is drawn: the form comes forward and its key box gets it.
    void takeFocus();

    /// The form's title, by the kind of the range.
    Text title() const;
    /// The prompt on the form.
    const Text& Label6() const { return prompt_; }
    /// The kind of the range that is drawn.
    RangeKind kind() const;
    RangeFields fields() const;
    /// What the form does when the fields have changed: it shows them and gives its key box, emptied, the focus. An
    /// empty rule when the form goes.
    void onShown(std::function<void()> rule) { shown_ = std::move(rule); }

private:
    void goToAskedItem();
    void goToAskedRecord();
    void makeClip();
    void step();
    void show();
    void leave();

    EditScreen& edit_;
    Text prompt_ = u"どこから？（ｶｰｿﾙ移動+CR）";
    std::function<void()> shown_;
};
