#include "voice/forms/key_guide.h"

#include "platform/commands.h"
#include "platform/number_text.h"
#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/owner_window.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/form_table.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

QLabel* plainLabel(TextView text) {
    auto* label = new QLabel(toQt(text));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

KeyGuideForm::KeyGuideForm(const FormContext& context, const KeyGuide& guide, QWidget* owner)
    : SpokenDialog(context, {.description = [title = Text(guide.title)] { return title; }, .captionFirst = false},
                   owner),
      scroll_(new QScrollArea), focusWatch_([this](QWidget*, QWidget* to) { keepInView(to); }) {
    setObjectName(toQt(guide.form));
    setWindowTitle(toQt(guide.title));
    auto* keys = new QWidget;
    auto* grid = new QGridLayout(keys);
    grid->setColumnStretch(2, 1);
    for (int row = 0; const GuideKey& key : guide.keys) {
        addKey(*grid, row++, key);
    }
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(keys);
    auto* back = new KeyButton(toQt(guideBackCaption), context);
    auto* unload = new KeyButton(toQt(guide.unloadCaption), context);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll_);
    layout->addWidget(back);
    layout->addWidget(unload);

    spoken().add(*back, u"cmdBack", {.label = Text(guideBackReading), .accessibleName = Text(guideBackCaption)});
    spoken().add(*unload, u"cmdUnload",
                 {.label = Text(guideUnloadReading), .accessibleName = Text(guide.unloadCaption)});
    back->onClick([this] {
        hide();
        giveBack();
    });
    unload->onClick([this] { close(); });
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            close();
            return KeyOutcome::taken;
        }
        return KeyOutcome::goesOn;
    });
    resize(QSize(820, 640).boundedTo(screen()->availableSize()));
}

// The Tab key scrolls only while it stays inside the list; it comes round to the first key from below it.
void KeyGuideForm::keepInView(QWidget* control) {
    if (control != nullptr && scroll_->widget() != nullptr && scroll_->widget()->isAncestorOf(control)) {
        scroll_->ensureWidgetVisible(control);
    }
}

void KeyGuideForm::addKey(QGridLayout& grid, int row, const GuideKey& key) {
    const Text number = plainNumber(row + 1);
    auto* button = new KeyButton(toQt(key.key), context());
    QLabel* function = plainLabel(key.function);
    function->setObjectName(toQt(u"Label" + number));
    function->setWordWrap(true);
    grid.addWidget(plainLabel(key.prefix), row, 0);
    grid.addWidget(button, row, 1);
    grid.addWidget(function, row, 2);
    const Text reading = guideKeyReading(key);
    spoken().add(*button, toQt(u"Command" + number), {.label = reading, .accessibleName = reading});
    if (row == 0) {
        button->setFocus();
    }
}

void KeyGuideForm::closeEvent(QCloseEvent* event) {
    event->accept();
    giveBack();
}

void KeyGuideForm::giveBack() {
    activateOwner(*this, context().heldKeys);
    context().guard.run([this] { context().zormod.platform.commands.run(u"backToInputBox"); });
}

void addKeyGuides(FormTable& forms, const FormContext& context) {
    for (const KeyGuide& guide : keyGuides()) {
        forms.addModeless(
            guide.form, [&context, guide](QWidget* owner) { return new KeyGuideForm(context, guide, owner); }, true);
    }
}
