#include "voice/forms/frmCMSG.h"

#include "platform/dialogs.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "voice/announcement.h"
#include "voice/forms/message_label.h"
#include "voice/message_texts.h"
#include "voice/speech_channel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

// Keys by which the user looks round before answering; they get no hint, it would drown what they say themselves.
bool looksRound(const KeyStroke& stroke) {
    switch (stroke.key) {
    case Key::shift:
    case Key::control:
    case Key::alt:
    case Key::tab:
    case Key::enter:
    case Key::space:
    case Key::left:
    case Key::right:
        return true;
    default:
        return stroke.ctrl || stroke.alt || stroke.shift;
    }
}

} // namespace

frmCMSG::frmCMSG(const FormContext& context, const Text& text, const Text& title, QWidget* parent)
    : SpokenDialog(context,
                   {.description = [text] { return yesNoOpeningText(text); },
                    .opening = [text] { return yesNoOpeningText(text); }},
                   parent),
      text_(text), label_(new MessageLabel(u"lblMSG", text)) {
    setObjectName(u"frmCMSG");
    setWindowTitle(toQt(title.empty() ? yesNoTitle : TextView(title)));
    auto* yes = new KeyButton(QStringLiteral("はい(Y)"), context);
    auto* no = new KeyButton(QStringLiteral("いいえ(N)"), context);
    auto* cancel = new KeyButton(QStringLiteral("ｷｬﾝｾﾙ(ESC)"), context);
    auto* buttons = new QHBoxLayout;
    for (KeyButton* button : {yes, no, cancel}) {
        buttons->addWidget(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label_);
    layout->addLayout(buttons);

    const auto answer = [&](KeyButton& button, QAnyStringView name, const Text& focusText) {
        ZORMOD& zormod = context.zormod;
        spoken().add(button, name,
                     {.reading = [text, focusText] { return answerReading(text, focusText); },
                      .onFocus = [&zormod, focusText] { sayThrottled(zormod, focusText); }});
    };
    const auto announced = [](const KeyButton& button) {
        return controlAnnouncement({.caption = fromQt(button.text())}, buttonWord);
    };
    answer(*yes, u"cmdYES", yesButtonFocus());
    answer(*no, u"cmdNO", announced(*no));
    answer(*cancel, u"Command1", announced(*cancel));
    spoken().onKeyDown([this](const KeyStroke& stroke) { return keyDown(stroke); });
    yes->onClick([this] { done(static_cast<int>(Answer::yes)); });
    no->onClick([this] { done(static_cast<int>(Answer::no)); });
    cancel->onClick([this] { done(static_cast<int>(Answer::cancel)); });
    yes->setFocus();
}

KeyOutcome frmCMSG::keyDown(const KeyStroke& stroke) {
    const bool letter = !stroke.ctrl && !stroke.alt;
    if (letter && stroke.key == Key::y) {
        done(static_cast<int>(Answer::yes));
    } else if (letter && stroke.key == Key::n) {
        done(static_cast<int>(Answer::no));
    } else if (stroke == plainKey(Key::escape)) {
        done(static_cast<int>(Answer::cancel));
    } else if (label_->scroll(stroke) == KeyOutcome::goesOn) {
        if (!looksRound(stroke)) {
            sayThrottled(context().zormod, yesNoKeyHint(text_));
        }
        return KeyOutcome::goesOn;
    }
    return KeyOutcome::taken;
}
