#include "structure/forms/frmMSSG.h"

#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/owner_window.h"
#include "platform/qt/qt_text.h"
#include "structure/pointer_choice.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QLabel* newLabel(QAnyStringView name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

frmMSSG::frmMSSG(const FormContext& context, PointerChoice& choice, QWidget* owner)
    : SpokenDialog(context, {.description = [&choice] { return choice.description(); }}, owner), choice_(choice),
      instructions_(newLabel(u"Label1")), line_(newLabel(u"Label2")), box_(new KeyLineEdit(context)),
      carryOut_(new KeyButton({}, context)) {
    setObjectName(u"frmMSSG");
    auto* cancel = new KeyButton(QStringLiteral("中止(ESC)"), context);
    auto* row = new QHBoxLayout;
    row->addWidget(box_, 1);
    row->addWidget(carryOut_);
    row->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(instructions_);
    layout->addWidget(line_);
    layout->addLayout(row);
    showTexts();

    box_->setReadOnly(true);
    box_->switchInputMethodOff();
    spoken().add(*box_, u"Text2", {.label = u"セル移動操作テキストボックス。", .ownKeyUps = true});
    spoken().add(*carryOut_, u"Command1");
    spoken().add(*cancel, u"Command2");
    box_->keys().onKeyDown([this](const KeyStroke& stroke) { return choice_.keyDown(stroke); });
    box_->keys().onKeyUp([this](const KeyStroke& stroke) { choice_.keyUp(stroke); });
    carryOut_->onClick([this] { choice_.carryOut(); });
    cancel->onClick([this] { choice_.giveUp(); });
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke != plainKey(Key::escape)) {
            return KeyOutcome::goesOn;
        }
        choice_.giveUp();
        return KeyOutcome::taken;
    });
    choice_.onChanged([this] { showTexts(); });
    choice_.onFocus([this] { spoken().giveFocus(*box_); });
    box_->setFocus();
    constexpr int formWidth = 560;
    resize(formWidth, layout->totalHeightForWidth(formWidth)); // the instructions wrap, and none of their lines is cut off
    // The key that began the choice takes no step, and Enter on a menu entry, held a little long, must not carry it out.
    context.heldKeys.muteHeld();
}

frmMSSG::~frmMSSG() {
    choice_.onChanged({});
    choice_.onFocus({});
}

void frmMSSG::showTexts() {
    setWindowTitle(toQt(choice_.words().title));
    carryOut_->setText(toQt(choice_.words().carryOut));
    instructions_->setText(toQt(choice_.words().instructions));
    line_->setText(toQt(choice_.line()));
}

void frmMSSG::closeEvent(QCloseEvent* event) {
    event->accept();
    activateOwner(*this, context().heldKeys);
    context().guard.run([this] { choice_.closed(); });
}
