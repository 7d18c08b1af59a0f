#pragma once
// The progress form. Shown by message_dialogs alone, application-modal but without stopping the caller, whose loop runs
// on and gives the event loop its turns.

#include "voice/forms/spoken_dialog.h"

class QLabel;
class QTimer;

/// `frmDOE`: the operation's name, the progress label, the standing text, and the stop button `Command1`, which Esc and
/// the close box press too. While it is open, no other window is closed; a request from the desktop to end the program
/// stops the work and is carried out when the form has been closed.
class frmDOE : public SpokenDialog {
    Q_OBJECT
public:
    /// What the operation puts into the form.
    struct Work {
        Text name;
        Text caption;        ///< empty: the form's own
        bool canStop = true; ///< false: there is no button, and Esc and the close box do nothing
    };
    frmDOE(const FormContext& context, const Work& work, QWidget* parent);
    ~frmDOE() override;

    /// The form has come up: says what it has to say and starts its timer.
    void loaded();
    void setProgress(const Text& text);
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void stop();
    void endAfterwards();

    Work work_;
    Text progress_;
    QLabel* label_;
    QTimer* timer_;
    bool endIsWanted_ = false;
};
