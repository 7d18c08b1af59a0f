#include "voice/forms/frmDOE.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "voice/progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QLabel* newLabel(QAnyStringView name, const Text& text) {
    auto* label = new QLabel(toQt(text));
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

frmDOE::frmDOE(const FormContext& context, const Work& work, QWidget* parent)
    : SpokenDialog(context,
                   {.description = [this] { return spoken().caption(); },
                    .captionFirst = false,
                    .opening = [] { return Text(); }}, // loaded() speaks
                   parent),
      work_(work), label_(newLabel(u"Label2", {})), timer_(new QTimer(this)) {
    setObjectName(u"frmDOE");
    setWindowTitle(toQt(work.caption.empty() ? Text(progressCaption) : work.caption));
    setWindowModality(Qt::ApplicationModal);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(newLabel(u"Label1", work.name));
    layout->addWidget(label_);
    layout->addWidget(newLabel(u"Label3", Text(progressStandingText)));
    if (work.canStop) {
        auto* button = new KeyButton(toQt(stopCaption), context);
        layout->addWidget(button, 0, Qt::AlignHCenter);
        // The button has the focus from the start, and that alone says nothing.
        spoken().add(*button, u"Command1", {.onFocus = [] {}});
        button->onClick([this] { stop(); });
        button->setFocus();
    }
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke != plainKey(Key::escape)) {
            return KeyOutcome::goesOn;
        }
        stop();
        return KeyOutcome::taken;
    });
    timer_->setInterval(progressInterval);
    connect(timer_, &QTimer::timeout, this,
            context.guard.wrap([this] { sayProgress(SpokenDialog::context().zormod, work_.name, progress_); }));
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { endAfterwards(); });
    qApp->installEventFilter(this);
}

frmDOE::~frmDOE() { qApp->removeEventFilter(this); }

void frmDOE::loaded() {
    if (loadProgress(context().zormod, work_.name, progress_)) {
        timer_->start();
    }
}

void frmDOE::setProgress(const Text& text) {
    progress_ = text;
    label_->setText(toQt(text));
}

void frmDOE::stop() {
    if (!work_.canStop) {
        return;
    }
    timer_->stop();
    stopWork(context().zormod);
}

void frmDOE::endAfterwards() {
    endIsWanted_ = true;
    context().zormod.results.answers[0] = 1.0;
}

bool frmDOE::eventFilter(QObject* watched, QEvent* event) {
    if (!isVisible()) {
        return SpokenDialog::eventFilter(watched, event);
    }
    if (event->type() == QEvent::Quit && watched == qApp) {
        endAfterwards();
        event->ignore();
        return true;
    }
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Close && widget != nullptr && widget != this && !widget->isModal()) {
        event->ignore();
        return true;
    }
    return SpokenDialog::eventFilter(watched, event);
}

void frmDOE::closeEvent(QCloseEvent* event) {
    event->ignore(); // the stop closes it, unless the operation can't be stopped that way
    context().guard.run([this] { stop(); });
}

void frmDOE::hideEvent(QHideEvent* event) {
    SpokenDialog::hideEvent(event);
    timer_->stop();
    if (endIsWanted_) {
        endIsWanted_ = false;
        // Behind the handler in which the loop runs, which has still to put its files away.
        QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));
    }
}
