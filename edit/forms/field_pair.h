#pragma once
// A field of the panel: its label and its box or second label side by side. It draws the frame of the box itself, for
// the toolkit's own takes its colour from the ground and vanishes on a dark one.

#include <QWidget>

/// A label and what it names.
class FieldPair : public QWidget {
    Q_OBJECT
public:
    /// Takes both over. Only a box that can have the focus gets a frame.
    FieldPair(QWidget* label, QWidget* field, QWidget* parent);
    /// Width of the label and the gaps beside the field.
    int extraWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* label_;
    QWidget* field_;
};
