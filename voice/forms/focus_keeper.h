#pragma once
// Gives the focus back where a form took it from. Held by whoever shows a form above the one that the user works in.

#include <QPointer>

class QDialog;
class QWidget;

/// Made before the form is shown; at its end, by whatever way the form was left, it hides the form, makes the window
/// that was active before the active one and gives the control there its focus, without a word.
class FocusKeeper {
public:
    explicit FocusKeeper(QDialog& form);
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

private:
    QPointer<QDialog> form_;
    QPointer<QWidget> window_;
    QPointer<QWidget> focused_;
};
