#include "voice/forms/frmOKCAN.h"

#include "platform/dialogs.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/message_label.h"
#include "voice/message_texts.h"
#include "voice/speech_channel.h"

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

    const auto answer = [&](KeyButton& button, QAnyStringView name, TextView focusText) {
        ZORMOD& zormod = context.zormod;
        spoken().add(button, name,
                     {.label = Text(focusText),
                      .accessibleName = fromQt(button.text()),
                      .reading = [text, focusText] { return answerReading(text, focusText); },
                      .onFocus = [&zormod, focusText] { sayThrottled(zormod, Text(focusText)); }});
    };
    answer(*ok, u"Command1", okButtonFocus);
    answer(*cancel, u"Command2", cancelButtonFocus);
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
