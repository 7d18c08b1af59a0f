#include "edit/side_boxes.h"

#include "edit/box_labels.h"
#include "edit/jumps.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"
#include "transform/width_conversion.h"
#include "voice/announcement.h"
#include "voice/caret_reading.h"
#include "voice/speech_channel.h"

namespace {

void setTyping(EditScreen& edit, PanelField field, bool isTyping) {
    if (field == PanelField::txtREC) {
        edit.typingInRecordBox = isTyping;
    } else if (field == PanelField::txtItemnum) {
        edit.typingInItemBox = isTyping;
    }
}

/// True if there is such an item; else beeps. Compared before it is narrowed, so that a number of any size is told.
bool isItem(const ZORMOD& zormod, double value) {
    if (value >= 0 && value <= zormod.items.itemCount) {
        return true;
    }
    zormod.platform.beeper.beep();
    return false;
}

void showItemNumber(EditScreen& edit) {
    setBoxText(edit, PanelField::txtItemnum, plainNumber(edit.zormod.position.curItem));
}

void takeRecordNumber(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const double value = typedNumber(edit.txtREC.text());
    if (value < 1 || value > recordCount(zormod)) {
        zormod.platform.beeper.beep();
        setBoxText(edit, PanelField::txtREC, Str(zormod.position.curRecord));
        giveInputBoxFocus(edit);
        return;
    }
    goToRecord(edit, roundTo32(value));
}

void takeItemNumber(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const double value = typedNumber(edit.txtItemnum.text());
    if (!isItem(zormod, value)) {
        showItemNumber(edit);
        giveInputBoxFocus(edit);
        return;
    }
    goToItem(edit, roundTo16(value));
}

} // namespace

void sideBoxGotFocus(EditScreen& edit, PanelField field) {
    talkS(edit.zormod, {.text = panelText(edit, field)}, sideBoxLabel(field));
}

void sideBoxLostFocus(EditScreen& edit, PanelField field) {
    setTyping(edit, field, false);
}

void sideBoxTyped(EditScreen& edit, PanelField field, const Text& text) {
    // An input method commits without any key down.
    setTyping(edit, field, true);
    if (field == PanelField::txtREC) {
        edit.txtREC.typed(text);
    } else if (field == PanelField::txtItemnum) {
        if (isItem(edit.zormod, typedNumber(text))) {
            edit.txtItemnum.typed(text);
        } else {
            showItemNumber(edit);
        }
    } else if (field == PanelField::txtWIDTH) {
        edit.txtWIDTH = text;
    } else if (field == PanelField::txtLR) {
        edit.txtLR = text;
    } else if (field == PanelField::RichTextBox2 && hasTable(edit.zormod)) {
        edit.typedMemo = text;
    }
}

KeyOutcome sideBoxKeyDown(EditScreen& edit, PanelField field, const KeyStroke&) {
    setTyping(edit, field, true);
    return KeyOutcome::goesOn;
}

KeyOutcome sideBoxKeyPress(EditScreen& edit, PanelField field, char16_t character) {
    if (character != u'\r') {
        return KeyOutcome::goesOn;
    }
    switch (field) {
    case PanelField::txtREC:
        takeRecordNumber(edit);
        break;
    case PanelField::txtItemnum:
        takeItemNumber(edit);
        break;
    case PanelField::txtWIDTH:
        edit.zormod.platform.commands.run(u"mnuFLN");
        break;
    case PanelField::txtLR:
        edit.zormod.platform.commands.run(changeAlignmentCommand);
        break;
    case PanelField::RichTextBox2:
        giveInputBoxFocus(edit);
        break;
    default:
        break;
    }
    return KeyOutcome::taken;
}

void sideBoxKeyUp(EditScreen& edit, PanelField field, const KeyStroke& stroke, const BoxView& box,
                  int& lastSelLength) {
    const TextView name = readingKeyName(field);
    if (!name.empty() && (stroke == shiftKey(Key::pageDown) || stroke == ctrlShiftKey(Key::s))) {
        sayThrottled(edit.zormod, (Text(name) += periodPause) += box.text);
    } else {
        readBoxKeys(edit.zormod, stroke, box, sideBoxLabel(field), lastSelLength);
    }
    if (field == PanelField::txtItemnum) {
        sayThrottled(edit.zormod, Text(box.text) += commaPause);
    }
}
