#pragma once
// The input box `txtinputbox`: the one place where the user types. It starts empty, what is typed replaces the cell
// when it is committed, and an empty box commits nothing. Key down moves and changes things, key up speaks things, the
// change event speaks the typing and enforces the limit; so a reading can't be overtaken by a key's own repeats.

#include "edit/edit_screen.h"
#include "platform/keys.h"

/// The four events of the input box. Form1 hands it the toolkit's events and shows what it says.
class InputBox {
public:
    /// Connects the change rule of the box's text.
    explicit InputBox(EditScreen& edit);
    InputBox(const InputBox&) = delete;
    InputBox& operator=(const InputBox&) = delete;

    /// The user changed the text (typing, paste, input method): runs the change rule if it differs.
    void change(const Text& text);
    /// A key went down or repeats. `taken` means the box must not do anything with it: neither edit by it nor hand its
    /// character to keyPress. Esc in an empty box throws ProgramEnd.
    KeyOutcome keyDown(const KeyStroke& stroke);
    /// A character is about to go into the box; CR is Enter. Only Enter is taken.
    KeyOutcome keyPress(char16_t character);
    /// A key was let go; `box` is the box as the toolkit shows it.
    void keyUp(const KeyStroke& stroke, const BoxView& box);

    /// `mnuCTRLD`: blanks the cell and goes to the next item.
    void mnuCTRLD();
    /// `mnuCTRLU`: the stored cell comes into the box to be changed. The change rule runs as for typing, so a cell that
    /// fills its item (or the limit) is committed as it is and the next item is the current one.
    void mnuCTRLU();

private:
    void changed();
    void endInputAtLimit();
    void readChange();
    KeyOutcome escape();
    KeyOutcome keyTable(const KeyStroke& stroke);

    EditScreen& edit_;
    bool putsBack_ = false; ///< a text that was too long is being put back shortened: no second look at its length
};
