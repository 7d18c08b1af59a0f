#include "edit/forms/field_pair.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace {
constexpr int frame = 3; // of the focused box; the others have 1
constexpr int gap = 4;
} // namespace

FieldPair::FieldPair(QWidget* label, QWidget* field, QWidget* parent) : QWidget(parent), label_(label), field_(field) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, frame, frame, frame);
    layout->setSpacing(gap + frame);
    layout->addWidget(label);
    layout->addWidget(field);
    field->installEventFilter(this);
}

int FieldPair::extraWidth() const {
    return label_->sizeHint().width() + gap + 2 * frame;
}

void FieldPair::paintEvent(QPaintEvent*) {
    if (field_->focusPolicy() == Qt::NoFocus) {
        return;
    }
    QPainter painter(this);
    const int width = field_->hasFocus() ? frame : 1;
    const QColor colour = palette().color(field_->hasFocus() ? QPalette::Highlight : QPalette::WindowText);
    painter.fillRect(field_->geometry().adjusted(-width, -width, width, width), colour);
}

bool FieldPair::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}
