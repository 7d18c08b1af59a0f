#include "voice/forms/FrmOK.h"

#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/message_label.h"
#include "voice/message_texts.h"

#include <QVBoxLayout>

FrmOK::FrmOK(const FormContext& context, const Text& text, const Text& title, QWidget* parent)
    : SpokenDialog(context,
                   {.description = [text, title] { return okDescription(title, text); },
                    .captionFirst = false,
                    .opening = [text] { return okOpeningText(text); }},
                   parent) {
    setObjectName(u"FrmOK");
    setWindowTitle(toQt(title));
    auto* label = new MessageLabel(u"Label1", text);
    auto* button = new KeyButton(QStringLiteral("OK(CR)"), context);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(button, 0, Qt::AlignHCenter);

    const Text caption = fromQt(button->text());
    spoken().add(*button, u"Command1", {.reading = [text, caption] { return okButtonReading(text, caption); }});
    spoken().onKeyDown([this, label](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            accept();
            return KeyOutcome::taken;
        }
        return label->scroll(stroke);
    });
    button->onClick([this] { accept(); });
    button->setFocus();
}
