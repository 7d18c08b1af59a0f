#include "voice/forms/frmTin.h"

#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/qt_text.h"
#include "voice/announcement.h"
#include "voice/forms/message_label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

frmTin::frmTin(const FormContext& context, const Text& prompt, const Text& title, const Text& defaultText,
               QWidget* parent)
    : SpokenDialog(context, {.description = [prompt] { return prompt; }}, parent), box_(new KeyLineEdit(context)) {
    setObjectName(u"frmTin");
    setWindowTitle(toQt(title));
    auto* ok = new KeyButton(QStringLiteral("OK"), context);
    auto* cancel = new KeyButton(QStringLiteral("ｷｬﾝｾﾙ"), context);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new MessageLabel(u"Label1", prompt));
    layout->addWidget(box_);
    layout->addLayout(buttons);

    box_->setProgramText(defaultText);
    spoken().add(*box_, u"Text1", {.label = Text(textBoxWord), .accessibleName = prompt.empty() ? title : prompt});
    spoken().add(*ok, u"Command1");
    spoken().add(*cancel, u"Command2");
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            reject();
            return KeyOutcome::taken;
        }
        return KeyOutcome::goesOn;
    });
    box_->keys().onKeyPress([this](char16_t unit) {
        if (unit != u'\r') {
            return KeyOutcome::goesOn;
        }
        accept();
        return KeyOutcome::taken;
    });
    ok->onClick([this] { accept(); });
    cancel->onClick([this] { reject(); });
    // What is typed takes the place of the answer that is proposed, which is not read out: a number typed behind it would
    // become another number.
    box_->selectAll();
    box_->setFocus();
}

Text frmTin::answer() const {
    return box_->view().text;
}
