#pragma once
// The message forms as the logic sees them: modal questions and messages that speak themselves. Each call returns when
// the user has answered; the progress form alone is shown without waiting. Callers pass whole sentences; a CR or CR LF in a text is a line break.

#include "platform/text.h"

/// The button with which a message form was left. The numbers are those that `msgAnswer` holds.
enum class Answer { ok = 1, cancel = 2, yes = 6, no = 7 };

/// Modal messages and questions.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// Shows `text` in `FrmOK` under `title` and waits until the user closes it. An empty title means the caption of
    /// the active form.
    virtual void showMessage(const Text& text, const Text& title) = 0;
    /// Asks with `frmOKCAN`; `Answer::ok` or `Answer::cancel`.
    virtual Answer askOkCancel(const Text& text, const Text& title) = 0;
    /// Asks for a text with `frmTin`. An empty answer and a cancel both come back as the empty text.
    virtual Text askText(const Text& prompt, const Text& title, const Text& defaultText) = 0;
    /// Asks with `frmCMSG`; `Answer::yes`, `Answer::no` or `Answer::cancel`. A non-empty `prompt` is the form's title
    /// for this question.
    virtual Answer askYesNoCancel(const Text& prompt, const Text& text) = 0;
    /// Shows the progress form `frmDOE` under the operation's `name` and returns at once: the caller's loop runs on. Until
    /// the form is closed only its stop button takes input, at the turns of the event loop that the loop gives; the
    /// button sets `answers(0)`, which loading has set to 0, to 1; without `canStop` the form has no button. An empty
    /// caption means the form's own. A progress form that is open already is used anew.
    virtual void openProgress(const Text& name, const Text& caption, bool canStop) = 0;
    /// Sets the progress label; nothing without the form.
    virtual void showProgress(const Text& text) = 0;
    /// Closes the progress form; nothing without it. The focus goes back to where it was, without a word.
    virtual void closeProgress() = 0;
    /// True while the progress form is open: its stop button closes it.
    virtual bool isProgressOpen() const = 0;
};
