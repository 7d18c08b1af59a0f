#include "edit/forms/panel_binding.h"

#include "edit/box_labels.h"
#include "edit/forms/panel.h"
#include "edit/side_boxes.h"
#include "edit/status_update.h"
#include "edit/table_memo.h"
#include "platform/flag_scope.h"
#include "platform/qt/key_line_edit.h"

namespace {

struct NamedBox {
    PanelField field;
    const char* name;
};
constexpr NamedBox sideBoxes[] = {{PanelField::txtREC, "txtREC"},
                                  {PanelField::txtItemnum, "txtItemnum"},
                                  {PanelField::txtWIDTH, "txtWIDTH"},
                                  {PanelField::txtLR, "txtLR"},
                                  {PanelField::Text1, "Text1"},
                                  {PanelField::RichTextBox1, "RichTextBox1"},
                                  {PanelField::RichTextBox2, "RichTextBox2"}};

} // namespace

PanelBinding::PanelBinding(Panel& panel, SpokenForm& form, EditScreen& edit, InputBox& inputBox)
    : panel_(panel), form_(form), edit_(edit), inputBox_(inputBox) {
    bindInputBox();
    for (const NamedBox& box : sideBoxes) {
        const PanelField field = box.field;
        takeIn(field, QLatin1StringView(box.name),
               {.onFocus = [this, field] { sideBoxGotFocus(edit_, field); },
                .onLeave = [this, field] { sideBoxLostFocus(edit_, field); }});
        bindSideBox(field);
    }
    form_.voiceOf(*panel_.box(PanelField::RichTextBox2)).onLeave = [this] {
        sideBoxLostFocus(edit_, PanelField::RichTextBox2);
        keepTypedMemo(edit_);
    };
}

void PanelBinding::takeIn(PanelField field, QAnyStringView name, ControlVoice voice) {
    voice.label = sideBoxLabel(field);
    voice.ownKeyUps = true;
    // The change rules of these three say what is typed; in the others it is said as in any box.
    voice.ownTyping = field == PanelField::txtinputbox || field == PanelField::txtREC || field == PanelField::txtItemnum;
    voice.onFocus = [this, rule = std::move(voice.onFocus)] {
        if (!moving_) {
            rule();
        }
    };
    form_.add(*panel_.box(field), name, std::move(voice));
}

void PanelBinding::bindInputBox() {
    KeyLineEdit& box = *panel_.box(PanelField::txtinputbox);
    takeIn(PanelField::txtinputbox, "txtinputbox",
           {.onFocus = [this] { inputBoxGotFocus(edit_); }, .ownSheetKeys = true});
    box.keys().onKeyDown([this](const KeyStroke& stroke) { return inputBox_.keyDown(stroke); });
    box.keys().onKeyPress([this](char16_t character) { return inputBox_.keyPress(character); });
    box.keys().onKeyUp([this, &box](const KeyStroke& stroke) { inputBox_.keyUp(stroke, box.view()); });
    box.onOtherKey([this] { inputBox_.keyDown(plainKey(Key::other)); });
    box.onChange([this, &box](const Text&, const Text& now) {
        inputBox_.change(now);
        if (box.view().text != edit_.txtinputbox.text()) {
            box.setProgramText(edit_.txtinputbox.text());
        }
    });
}

void PanelBinding::bindSideBox(PanelField field) {
    KeyLineEdit& box = *panel_.box(field);
    box.keys().onKeyDown([this, field](const KeyStroke& stroke) { return sideBoxKeyDown(edit_, field, stroke); });
    box.keys().onKeyPress([this, field](char16_t character) { return sideBoxKeyPress(edit_, field, character); });
    box.keys().onKeyUp([this, field, &box](const KeyStroke& stroke) {
        sideBoxKeyUp(edit_, field, stroke, box.view(), lastSelLength_[field]);
    });
    box.onChange([this, field, &box](const Text&, const Text& now) {
        sideBoxTyped(edit_, field, now);
        const bool isWatched = field == PanelField::txtREC || field == PanelField::txtItemnum;
        if (isWatched && box.view().text != panelText(edit_, field)) {
            box.setProgramText(panelText(edit_, field));
        }
    });
}

void PanelBinding::moveFocus(PanelField field) {
    if (KeyLineEdit* box = panel_.box(field)) {
        const FlagScope moving(moving_);
        box->setFocus(Qt::OtherFocusReason);
    }
}

void PanelBinding::giveFocus(PanelField field) {
    if (KeyLineEdit* box = panel_.box(field)) {
        form_.giveFocus(*box);
    }
}
