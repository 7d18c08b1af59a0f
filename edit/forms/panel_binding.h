#pragma once
// Binds the boxes of the panel to the edit screen's logic: which event of which box runs which of its rules. It holds
// no rule itself.

#include "edit/edit_screen.h"
#include "edit/input_box.h"
#include "platform/screen.h"
#include "voice/forms/SpokenForm.h"

class Panel;

/// The bound boxes; Form1 owns it.
class PanelBinding {
public:
    /// Takes all boxes of `panel` into `form` and binds them.
    PanelBinding(Panel& panel, SpokenForm& form, EditScreen& edit, InputBox& inputBox);
    PanelBinding(const PanelBinding&) = delete;
    PanelBinding& operator=(const PanelBinding&) = delete;

    /// Gives a box the focus without running its focus rule: the caller does that. The box that is left runs its own.
    void moveFocus(PanelField field);
    /// Gives a box the focus as Tab does.
    void giveFocus(PanelField field);

private:
    void bindInputBox();
    void bindSideBox(PanelField field);
    void takeIn(PanelField field, QAnyStringView name, ControlVoice voice);

    Panel& panel_;
    SpokenForm& form_;
    EditScreen& edit_;
    InputBox& inputBox_;
    bool moving_ = false; ///< the program moves the focus: focus rules are the caller's
    std::map<PanelField, int> lastSelLength_;
};
