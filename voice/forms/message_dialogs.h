#pragma once
// The message forms behind the interface by which the logic asks. main and the desk tests put it into the Platform.

#include "platform/dialogs.h"
#include "platform/qt/form_context.h"

/// Opens the message forms, modal, above the form that is active.
class MessageDialogs : public Dialogs {
public:
    /// Must be called before the first question. The context can't be had earlier: the shared state in it is made with
    /// a Platform that names this very object.
    void setContext(const FormContext& context) { context_ = &context; }

    void showMessage(const Text& text, const Text& title) override;
    /// The answers are left in `msgAnswer` too.
    Answer askOkCancel(const Text& text, const Text& title) override;
    Text askText(const Text& prompt, const Text& title, const Text& defaultText) override;
    Answer askYesNoCancel(const Text& prompt, const Text& text) override;

private:
    Answer answered(int result);

    const FormContext* context_ = nullptr;
};
