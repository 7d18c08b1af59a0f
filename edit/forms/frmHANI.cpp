#include "edit/forms/frmHANI.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/owner_window.h"
#include "platform/qt/qt_text.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>

namespace {

FormVoice rangeVoice() {
    // Nothing is said on opening: the key that began the range says the first step when it is let go.
    return {.description =
                [] { return Text(u"矢印操作、ctrl+矢印操作やctrl+Jなどの、ジャンプ操作で、範囲を指定ｼﾃｸﾀﾞｻｲ。"); },
            .opening = [] { return Text(); }};
}

struct RangeField {
    const char16_t* name;
    TextView label;
};
constexpr std::array<RangeField, 4> rangeFields = {{{u"Text1", u"はじめの記録ﾃｷｽﾄﾎﾞｯｸｽ"},
                                                    {u"Text2", u"おわりの記録ﾃｷｽﾄﾎﾞｯｸｽ"},
                                                    {u"Text3", u"はじめの項目ﾃｷｽﾄﾎﾞｯｸｽ"},
                                                    {u"Text4", u"おわりの項目ﾃｷｽﾄﾎﾞｯｸｽ"}}};

} // namespace

frmHANI::frmHANI(const FormContext& context, RangeDrawing& drawing, QWidget* owner)
    : SpokenDialog(context, rangeVoice(), owner), drawing_(drawing), fields_(), keyBox_(new KeyLineEdit(context)),
      done_(new KeyButton(QStringLiteral("終(CR)"), context)),
      giveUp_(new KeyButton(QStringLiteral("取消(esc)"), context)), prompt_(new QLabel(toQt(drawing.Label6()))) {
    setObjectName(u"frmHANI");
    setWindowTitle(toQt(drawing.title()));
    prompt_->setObjectName(u"Label6");
    for (KeyLineEdit*& field : fields_) {
        field = new KeyLineEdit(context);
    }
    layOut();
    addKeyBox();
    addButtons();
    addFields();
    drawing_.onShown([this] { showRange(); });
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        const bool finishes = stroke == plainKey(Key::enter) && !giveUp_->hasFocus();
        if (finishes) {
            drawing_.finish();
        } else if (stroke == plainKey(Key::escape)) {
            drawing_.cancel();
        } else {
            return KeyOutcome::goesOn;
        }
        return KeyOutcome::taken;
    });
    showRange();
    moveOutOfTheWay();
}

frmHANI::~frmHANI() {
    drawing_.onShown({});
}

void frmHANI::layOut() {
    auto* layout = new QGridLayout(this);
    for (const int row : {0, 1}) {
        layout->addWidget(new QLabel(row == 0 ? QStringLiteral("記録") : QStringLiteral("項目")), row, 0);
        layout->addWidget(fields_[static_cast<std::size_t>(row) * 2], row, 1);
        layout->addWidget(new QLabel(QStringLiteral("～")), row, 2);
        layout->addWidget(fields_[static_cast<std::size_t>(row) * 2 + 1], row, 3);
    }
    layout->addWidget(prompt_, 2, 0, 1, 4);
    layout->addWidget(keyBox_, 3, 0, 1, 4);
    layout->addWidget(done_, 4, 0, 1, 2);
    layout->addWidget(giveUp_, 4, 3);
}

// The ends are shown and can be read; they are changed by moving the cursor alone.
void frmHANI::addFields() {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        KeyLineEdit& field = *fields_[i];
        spoken().add(field, rangeFields[i].name, {.label = Text(rangeFields[i].label)});
        field.setReadOnly(true);
        field.setStyleSheet(QStringLiteral("QLineEdit:focus { background-color: #FFFF00; color: #000000 }"));
        const bool isRecordField = i < 2;
        field.setEnabled(drawing_.kind() != (isRecordField ? RangeKind::items : RangeKind::records));
        setTabOrder(i == 0 ? static_cast<QWidget*>(giveUp_) : fields_[i - 1], &field);
    }
}

void frmHANI::addKeyBox() {
    // Its key up says where the range stands, also when Tab has come back to it.
    spoken().add(*keyBox_, u"Text5",
                 {.accessibleName = drawing_.Label6(), .onFocus = [] {}, .ownKeyUps = true, .ownTyping = true});
    keyBox_->switchInputMethodOff();
    keyBox_->keys().onKeyDown([this](const KeyStroke& stroke) { return drawing_.keyDown(stroke); });
    keyBox_->keys().onKeyUp([this](const KeyStroke& stroke) { drawing_.keyUp(stroke); });
}

void frmHANI::addButtons() {
    ZORMOD& zormod = context().zormod;
    spoken().add(*done_, u"Command2",
                 {.onFocus = [&zormod] { sayThrottled(zormod, u"ﾊﾝｲｼﾃｲ ｵﾜﾘ" + Text(commaPause) + Text(buttonWord)); }});
    spoken().add(*giveUp_, u"Command1", {.onFocus = [&zormod] { sayThrottled(zormod, u"ﾊﾝｲｼﾃｲﾄﾘｹｼ(esc)"); }});
    done_->onClick([this] { drawing_.finish(); });
    giveUp_->onClick([this] { drawing_.cancel(); });
    done_->setDefault(true);
    setTabOrder(keyBox_, done_);
    setTabOrder(done_, giveUp_);
}

void frmHANI::showRange() {
    const RangeFields range = drawing_.fields();
    fields_[0]->setProgramText(range.Text1);
    fields_[1]->setProgramText(range.Text2);
    fields_[2]->setProgramText(range.Text3);
    fields_[3]->setProgramText(range.Text4);
    keyBox_->setProgramText({});
    keyBox_->setFocus();
}

// In the corner, where it hides least of the range that the user is looking at.
void frmHANI::moveOutOfTheWay() {
    if (parentWidget() == nullptr) {
        return;
    }
    constexpr int margin = 16;
    adjustSize();
    const QRect room = parentWidget()->window()->geometry().adjusted(margin, margin, -margin, -2 * margin);
    move(room.right() - width(), room.bottom() - height());
}

void frmHANI::closeEvent(QCloseEvent* event) {
    event->accept();
    activateOwner(*this, context().heldKeys);
    context().guard.run([this] { drawing_.closing(); });
}
