#pragma once
// The text of a message form. It wraps, keeps its line ends, is never taken for markup, and scrolls where it is longer
// than the screen, so that the window around it always fits.

#include "platform/keys.h"
#include "platform/text.h"

#include <QScrollArea>

class QLabel;

/// A label in a scroll area that never takes the focus.
class MessageLabel : public QScrollArea {
    Q_OBJECT
public:
    /// `name` is the object name of the label itself.
    MessageLabel(QAnyStringView name, TextView text, QWidget* parent = nullptr);

    /// Scrolls for Up, Down, PgUp, PgDn, Home and End; the form hands its keys on, since the label has no focus.
    KeyOutcome scroll(const KeyStroke& stroke);
    QSize sizeHint() const override;

private:
    QLabel* label_;
};
