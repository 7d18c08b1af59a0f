#include "voice/forms/message_label.h"

#include "platform/qt/qt_text.h"

#include <QLabel>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int widest = 640;
// Room that the window needs beside and beneath the text: frame, buttons, box.
constexpr int roomBeside = 60;
constexpr int roomBeneath = 200;
constexpr int linesOfAir = 3;

QString withLineEnds(TextView text) {
    return toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

} // namespace

MessageLabel::MessageLabel(QAnyStringView name, TextView text, QWidget* parent)
    : QScrollArea(parent), label_(new QLabel(withLineEnds(text))) {
    label_->setObjectName(name);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label_->setAccessibleName(label_->text());
    setWidget(label_);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

KeyOutcome MessageLabel::scroll(const KeyStroke& stroke) {
    QScrollBar* bar = verticalScrollBar();
    if (stroke == plainKey(Key::up)) {
        bar->triggerAction(QScrollBar::SliderSingleStepSub);
    } else if (stroke == plainKey(Key::down)) {
        bar->triggerAction(QScrollBar::SliderSingleStepAdd);
    } else if (stroke == plainKey(Key::pageUp)) {
        bar->triggerAction(QScrollBar::SliderPageStepSub);
    } else if (stroke == plainKey(Key::pageDown)) {
        bar->triggerAction(QScrollBar::SliderPageStepAdd);
    } else if (stroke == plainKey(Key::home)) {
        bar->triggerAction(QScrollBar::SliderToMinimum);
    } else if (stroke == plainKey(Key::end)) {
        bar->triggerAction(QScrollBar::SliderToMaximum);
    } else {
        return KeyOutcome::goesOn;
    }
    return KeyOutcome::taken;
}

QSize MessageLabel::sizeHint() const {
    const QSize free = screen()->availableSize();
    const QFontMetrics metrics(label_->font());
    const QSize one = metrics.size(0, label_->text());
    const int width = std::min({one.width() + 2 * metrics.averageCharWidth(), widest, free.width() - roomBeside});
    const int height = label_->heightForWidth(width) + linesOfAir * metrics.height();
    return {width, std::min(height, free.height() - roomBeneath)};
}
