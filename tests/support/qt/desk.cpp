#include "support/qt/desk.h"

#include "platform/qt/qt_text.h"
#include "platform/qt/romika_application.h"

#include <QDialog>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

constexpr int turnsUntilSettled = 12;
constexpr qint64 stuckAfter = 5000; // milliseconds; only a test that fails waits so long

RomikaApplication& application() {
    return *static_cast<RomikaApplication*>(QCoreApplication::instance());
}

/// The one window on the screen; null if there is none, or several.
QWidget* windowThatIsLeft() {
    QWidget* left = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            if (left != nullptr) {
                return nullptr;
            }
            left = window;
        }
    }
    return left;
}

RealParts withDialogs(RealParts parts, Dialogs& dialogs) {
    parts.dialogs = &dialogs;
    return parts;
}

} // namespace

Desk::Desk(const RealParts& parts)
    : world(withDialogs(parts, dialogs)), zormod(world.zormod),
      guard(zormod, [this](int status) { endStatus = status; }),
      modals(guard, heldKeys), context{zormod, guard, heldKeys, modals} {
    dialogs.setContext(context);
    application().setGuard(&guard);
    watchSoon();
}

Desk::~Desk() {
    application().setGuard(nullptr);
    EXPECT_TRUE(scripts_.empty()) << scripts_.size() << " forms were expected and never came up";
}

void Desk::open(QWidget& form) {
    form.show();
    bringToFront(form);
}

void Desk::bringToFront(QWidget& form) {
    form.activateWindow();
    settle();
    // A window that was hidden and comes back is not activated without a window manager.
    if (QApplication::activeWindow() != &form) {
        QApplication::setActiveWindow(&form);
    }
    EXPECT_EQ(QApplication::activeWindow(), &form) << "the window did not come up";
    settle();
}

void Desk::settle() {
    keys.catchUp();
    for (int i = 0; i < turnsUntilSettled; ++i) {
        QCoreApplication::processEvents();
        manageWindows();
    }
}

// The platform has no window manager: when a menu has closed, no window or the closed menu itself is active, and none at
// all when the active window has gone and another one is left.
void Desk::manageWindows() {
    QWidget* active = QApplication::activeWindow();
    // Nor does the platform leave the keyboard where it is for a window that doesn't want it.
    const bool isPassive = active != nullptr && active->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus);
    if (active != nullptr && active->isVisible() && !isPassive) {
        lastActive_ = active->windowType() == Qt::Popup ? lastActive_.data() : active;
    } else if (QWidget* next = lastActive_ && lastActive_->isVisible() ? lastActive_.data() : windowThatIsLeft()) {
        QApplication::setActiveWindow(next);
    }
}

void Desk::inNextModal(const KeyStroke& stroke) {
    inNextModal([this, stroke] { keys.press(stroke); });
}

std::string Desk::focus() const {
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? focused->objectName().toStdString() : std::string();
}

std::string Desk::title() const {
    const QWidget* window = QApplication::activeWindow();
    return window != nullptr ? window->windowTitle().toStdString() : std::string();
}

QWidget* Desk::control(QAnyStringView name) const {
    QWidget* window = QApplication::activeWindow();
    QWidget* found = window != nullptr ? window->findChild<QWidget*>(name.toString()) : nullptr;
    EXPECT_NE(found, nullptr) << "no control " << name.toString().toStdString();
    return found;
}

void Desk::rest() {
    turns_ = 0;
    stuck_.start();
}

// A key may open the next form above this one, which then has its own turns here until it is closed.
void Desk::workIn(QWidget& modal) {
    if (workedIn_ == &modal) {
        return;
    }
    const QPointer<QWidget> below = workedIn_;
    workedIn_ = &modal;
    rest();
    everyModal_(modal);
    rest();
    workedIn_ = below;
}

// A timer of its own for each turn: one that repeats would rest while a form opened from it is up.
void Desk::watchSoon() {
    QTimer::singleShot(0, &anchor_, [this] { watch(); });
}

void Desk::watch() {
    watchSoon();
    manageWindows();
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
        rest();
        return;
    }
    if (modal != watched_) {
        // Time that passed before the form came up is no time in which it was stuck.
        watched_ = modal;
        rest();
    }
    turns_ = QApplication::activeWindow() == modal ? turns_ + 1 : 0;
    const bool isServed = served_.contains(modal);
    const bool isReady = turns_ >= turnsUntilSettled;
    const bool isStuck = stuck_.hasExpired(stuckAfter);
    if (everyModal_ && isReady) {
        workIn(*modal);
    } else if (isReady && !isServed && !scripts_.empty()) {
        served_.append(modal);
        rest();
        const auto script = scripts_.front();
        scripts_.pop_front();
        script();
        rest();
    } else if ((isReady && !isServed) || isStuck) {
        ADD_FAILURE() << (isServed ? "a form was left open: " : "a form came up that nobody expected: ")
                      << modal->windowTitle().toStdString();
        rest();
        static_cast<QDialog*>(modal)->reject();
    }
}
