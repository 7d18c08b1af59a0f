#include "edit/forms/FrmBROCK.h"

#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/qt_text.h"
#include "voice/announcement.h"
#include "voice/forms/message_label.h"
#include "voice/speech_channel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

FrmBROCK::FrmBROCK(const FormContext& context, QWidget* parent)
    : SpokenDialog(context, {.description = BlockRanges::guidance}, parent), ranges_(context.zormod),
      records_(new KeyLineEdit(context)), items_(new KeyLineEdit(context)) {
    setObjectName(u"FrmBROCK");
    setWindowTitle(QStringLiteral("多記録、項目ﾌﾞﾛｯｸ指定"));
    addControls();
    bindKeys();
    records_->setFocus();
}

void FrmBROCK::addControls() {
    auto* layout = new QGridLayout(this);
    layout->addWidget(new MessageLabel(u"Label1", ranges_.label()), 0, 0, 1, 2);
    const auto addBox = [&](int row, QAnyStringView name, const QString& title, KeyLineEdit* box) {
        auto* label = new QLabel(title);
        label->setBuddy(box);
        layout->addWidget(label, row, 0);
        layout->addWidget(box, row, 1);
        spoken().add(*box, name, {.label = fromQt(title).append(textBoxWord)});
    };
    addBox(1, u"Text1", QStringLiteral("記録範囲"), records_);
    addBox(2, u"Text2", QStringLiteral("項目範囲"), items_);
    auto* run = new KeyButton(QStringLiteral("実行(CR)"), context());
    auto* cancel = new KeyButton(QStringLiteral("中止(ESC)"), context());
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(run);
    buttons->addWidget(cancel);
    layout->addLayout(buttons, 3, 0, 1, 2);
    spoken().add(*run, u"Command1");
    spoken().add(*cancel, u"Command2");
    run->onClick([this] { carryOut(); });
    cancel->onClick([this] { reject(); });
}

void FrmBROCK::bindKeys() {
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            reject();
            return KeyOutcome::taken;
        }
        return KeyOutcome::goesOn;
    });
    for (KeyLineEdit* box : {records_, items_}) {
        box->keys().onKeyPress([this](char16_t unit) {
            if (unit != u'\r') {
                return KeyOutcome::goesOn;
            }
            carryOut();
            return KeyOutcome::taken;
        });
    }
}

void FrmBROCK::carryOut() {
    ranges_.records = records_->view().text;
    ranges_.items = items_->view().text;
    const BlockRanges::Outcome outcome = ranges_.carryOut();
    records_->setProgramText(ranges_.records);
    items_->setProgramText(ranges_.items);
    switch (outcome) {
    case BlockRanges::Outcome::filledIn:
        return;
    case BlockRanges::Outcome::faultInRecords:
        return goBackTo(*records_);
    case BlockRanges::Outcome::faultInItems:
        return goBackTo(*items_);
    case BlockRanges::Outcome::chosen:
        return accept();
    }
}

/// The message has said what is wrong; the box that gets the focus keeps quiet.
void FrmBROCK::goBackTo(KeyLineEdit& box) {
    const SilentScope silent(context().zormod);
    spoken().giveFocus(box);
}
