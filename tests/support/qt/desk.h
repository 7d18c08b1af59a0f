#pragma once
// A desk at which the real forms are worked: the toolkit on its offscreen platform, real message forms and files, and
// doubles for clipboard, clock and beeper. A test presses keys and looks at what a user would notice. A form that no
// test expected, or that a test leaves open, fails it.

#include "platform/qt/form_context.h"
#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "support/qt/keyboard.h"
#include "support/test_world.h"
#include "voice/forms/message_dialogs.h"
#include "voice/forms/modal_runner.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>
#include <optional>
#include <string>

class QWidget;

/// Everything forms are built with, and a keyboard.
class Desk {
public:
    /// `parts` may bring the real screen and command table; its dialogs are the real ones in any case.
    explicit Desk(const RealParts& parts = {});
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /// Shows a form and waits until it has the keyboard and has said its opening text.
    void open(QWidget& form);
    /// Makes a window that is shown the active one, as the user does from the desktop.
    void bringToFront(QWidget& form);
    /// Handles all events that are waiting.
    void settle();
    /// `script` is run when the next modal form has come up and has said its opening text. It must close that form.
    void inNextModal(std::function<void()> script) { scripts_.push_back(std::move(script)); }
    /// No modal form came up, and that was right: the scripts that waited for one are dropped.
    void dropScripts() { scripts_.clear(); }
    /// Presses one key in the next modal form.
    void inNextModal(const KeyStroke& stroke);

    /// From now on `work` is run whenever a modal form is up and has come to rest, again and again until it is closed;
    /// no form is unexpected any more.
    void inEveryModal(std::function<void(QWidget& form)> work) { everyModal_ = std::move(work); }

    /// Object name of the control that has the focus; empty if none has.
    std::string focus() const;
    /// Title of the active window.
    std::string title() const;
    /// The control of the given object name in the active window; fails the test if there is none.
    QWidget* control(QAnyStringView name) const;
    /// The texts spoken since the last call.
    std::vector<std::string> spoken() { return world.takeSpoken(); }

    MessageDialogs dialogs;
    TestWorld world;
    ZORMOD& zormod;
    std::optional<int> endStatus; ///< the status with which the program would have ended
    EventGuard guard;
    HeldKeys heldKeys;
    ModalRunner modals;
    FormContext context;
    Keyboard keys;

private:
    void watchSoon();
    void watch();
    void workIn(QWidget& modal);
    void manageWindows();
    void rest();

    std::deque<std::function<void()>> scripts_;
    std::function<void(QWidget&)> everyModal_;
    QPointer<QWidget> workedIn_;
    QPointer<QWidget> watched_; ///< the modal form of the last turn
    QList<QPointer<QWidget>> served_;
    QPointer<QWidget> lastActive_;
    int turns_ = 0;
    QElapsedTimer stuck_;
    QObject anchor_;
};
