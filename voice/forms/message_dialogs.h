#pragma once
// The message forms behind the interface by which the logic asks. main and the desk tests put it into the Platform.

#include "platform/dialogs.h"
#include "platform/qt/form_context.h"

#include <QPointer>

#include <memory>

class FocusKeeper;
class frmDOE;

/// Opens the message forms, modal, and the progress form above the form that is active.
class MessageDialogs : public Dialogs {
public:
    MessageDialogs();
    ~MessageDialogs() override;
    /// Must be called before the first question. The context can't be had earlier: the shared state in it is made with
    /// a Platform that names this very object.
    void setContext(const FormContext& context) { context_ = &context; }

    void showMessage(const Text& text, const Text& title) override;
    /// The answers are left in `msgAnswer` too.
    Answer askOkCancel(const Text& text, const Text& title) override;
    Text askText(const Text& prompt, const Text& title, const Text& defaultText) override;
    Answer askYesNoCancel(const Text& prompt, const Text& text) override;
    void openProgress(const Text& name, const Text& caption, bool canStop) override;
    void showProgress(const Text& text) override;
    void closeProgress() override;
    bool isProgressOpen() const override { return focusBefore_ != nullptr; }

private:
    Answer answered(int result);

    const FormContext* context_ = nullptr;
    QPointer<frmDOE> progress_;
    std::unique_ptr<FocusKeeper> focusBefore_; ///< only while the progress form is open
};
