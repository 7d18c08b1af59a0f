#include "edit/forms/sheet_mouse.h"

#include <QMouseEvent>
#include <QWidget>

SheetMouse::SheetMouse(QWidget& picture, Rules rules) : QObject(&picture), rules_(std::move(rules)) {
    picture.installEventFilter(this);
}

bool SheetMouse::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return pressed(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
        if (held_) {
            rules_.moveTo(*held_ - static_cast<const QMouseEvent&>(*event).position().toPoint());
        }
        return true;
    case QEvent::MouseButtonRelease:
        held_.reset();
        return true;
    case QEvent::ContextMenu:
        return true; // the right button has another meaning here
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool SheetMouse::pressed(const QMouseEvent& mouse) {
    const QPoint point = mouse.position().toPoint();
    if (mouse.button() == Qt::LeftButton) {
        rules_.pick(point);
    } else if (mouse.button() == Qt::RightButton) {
        held_ = point + rules_.corner();
    }
    return true;
}
