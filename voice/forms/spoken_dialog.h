#pragma once
// A form that is a window of its own: a dialog with the common voice. Enter and Esc mean nothing here by themselves;
// each form says what they do.

#include "voice/forms/SpokenForm.h"

#include <QDialog>

/// The base of the message forms and of every other form in a small window.
class SpokenDialog : public QDialog {
    Q_OBJECT
public:
    SpokenDialog(const FormContext& context, FormVoice voice, QWidget* parent);

    /// The form's voice.
    SpokenForm& spoken() { return spoken_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    const FormContext& context() const { return context_; }

private:
    FormContext context_;
    SpokenForm& spoken_;
};
