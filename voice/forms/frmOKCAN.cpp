#include "voice/forms/frmOKCAN.h"

#include "platform/dialogs.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/message_label.h"
#include "voice/message_texts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

frmOKCAN::frmOKCAN(const FormContext& context, const Text& text, const Text& title, QWidget* parent)
    : SpokenDialog(context, {.description = [text] { return text; }, .opening = [text] { return text; }}, parent) {
    setObjectName(u"frmOKCAN");
    setWindowTitle(toQt(title));
    auto* label = new MessageLabel(u"Label1", text);
    auto* ok = new KeyButton(QStringLiteral("OK"), context);
    auto* cancel = new KeyButton(QStringLiteral("ｷｬﾝｾﾙ"), context);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(buttons);

    spoken().add(*ok, u"Command1", {.label = Text(okButtonFocus), .accessibleName = fromQt(ok->text())});
    spoken().add(*cancel, u"Command2", {.label = Text(cancelButtonFocus), .accessibleName = fromQt(cancel->text())});
    spoken().onKeyDown([this, label](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            done(static_cast<int>(Answer::cancel));
            return KeyOutcome::taken;
        }
        return label->scroll(stroke);
    });
    ok->onClick([this] { done(static_cast<int>(Answer::ok)); });
    cancel->onClick([this] { done(static_cast<int>(Answer::cancel)); });
    ok->setFocus();
}
