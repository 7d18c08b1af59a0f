#include "structure/forms/frmFLN.h"

#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/owner_window.h"
#include "platform/qt/qt_text.h"
#include "structure/width_change.h"

#include <QCloseEvent>
#include <QGridLayout>

#include <functional>

frmFLN::frmFLN(const FormContext& context, WidthChange& change, QWidget* owner)
    : SpokenDialog(context,
                   {.description = [&change] { return change.description(); },
                    .opening = [&change] { return change.description(); }},
                   owner),
      change_(change), box_(new KeyLineEdit(context)) {
    setObjectName(u"frmFLN");
    setWindowTitle(QStringLiteral("項目幅の変更"));
    // The rows on the screen don't fit the file any more: nobody may leave them or write them meanwhile.
    setWindowModality(Qt::ApplicationModal);
    box_->setReadOnly(true);
    box_->switchInputMethodOff();
    spoken().add(*box_, u"Text1", {.label = u"項目幅操作テキストボックス"});
    box_->keys().onKeyDown([this](const KeyStroke& stroke) { return change_.keyDown(stroke); });
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke != plainKey(Key::escape)) {
            return KeyOutcome::goesOn;
        }
        change_.giveUp();
        return KeyOutcome::taken;
    });

    auto* layout = new QGridLayout(this);
    layout->addWidget(box_, 0, 0, 1, 2);
    layout->addWidget(addButton(u"項目幅広げる(shift+ｽﾍﾟｰｽ)", u"Command1", &WidthChange::widen), 1, 0);
    layout->addWidget(addButton(u"項目幅せばめる(ctrl+ｽﾍﾟｰｽ)", u"Command2", &WidthChange::narrow), 1, 1);
    layout->addWidget(
        addButton(u"現ﾌｧｲﾙ読込/最近の項目挿入操作時項目幅に戻す", u"Command3", &WidthChange::takeWidthsAsRead), 2, 0, 1, 2);
    layout->addWidget(addButton(u"確定(CR)", u"Command4", &WidthChange::apply), 3, 0);
    layout->addWidget(addButton(u"中止(ESC)", u"Command5", &WidthChange::giveUp), 3, 1);
    layout->addWidget(addButton(u"今の変更作業初期状態に戻す", u"Command6", &WidthChange::takeWidthsBefore), 4, 0, 1, 2);
    box_->setFocus();
    // The key that opened the form has done its step; held a little long, it must not go on, nor apply the change.
    context.heldKeys.muteHeld();
}

KeyButton* frmFLN::addButton(TextView caption, QAnyStringView name, void (WidthChange::*act)()) {
    auto* button = new KeyButton(toQt(caption), context());
    spoken().add(*button, name);
    button->onClick([this, act] {
        std::invoke(act, change_);
        if (isVisible()) {
            spoken().giveFocus(*box_);
        }
    });
    return button;
}

void frmFLN::closeEvent(QCloseEvent* event) {
    event->accept();
    activateOwner(*this, context().heldKeys);
    context().guard.run([this] { change_.closed(); });
}
