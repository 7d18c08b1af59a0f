#pragma once
// The mouse on the standard view: a left click picks a cell, a right drag moves the sheet. It only tells where;
// frmSHEET knows what stands there and how far the sheet can go.

#include <QObject>
#include <QPoint>

#include <functional>
#include <optional>

class QMouseEvent;
class QWidget;

/// Watches one picture; a child of it.
class SheetMouse : public QObject {
    Q_OBJECT
public:
    /// What the mouse does; points are pixels of the picture.
    struct Rules {
        std::function<void(QPoint)> pick;   ///< the left button went down here
        std::function<QPoint()> corner;     ///< the pixel of the sheet in the picture's upper left corner
        std::function<void(QPoint)> moveTo; ///< this pixel of the sheet shall come to that corner
    };
    SheetMouse(QWidget& picture, Rules rules);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool pressed(const QMouseEvent& mouse);

    Rules rules_;
    std::optional<QPoint> held_; ///< pixel of the sheet that the right button has taken hold of
};
