#pragma once
// The message forms as the logic sees them: modal questions and messages that speak themselves. Each call returns when
// the user has answered. Callers pass whole sentences; a CR or CR LF in a text is a line break.

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
};
