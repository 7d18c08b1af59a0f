#include "edit/input_box.h"

#include "edit/input_keys.h"
#include "edit/limit_suspension.h"
#include "edit/movement.h"
#include "edit/range_keys.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/code_page.h"
#include "platform/commands.h"
#include "platform/flag_scope.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "voice/caret_reading.h"
#include "voice/program_end.h"
#include "voice/speech_channel.h"
#include "voice/typing_reading.h"

#include <algorithm>

namespace {

bool isSelectingKey(const KeyStroke& stroke) {
    return stroke == shiftKey(Key::left) || stroke == shiftKey(Key::right);
}

/// Strokes that key up alone answers, so that they leave a fixed range alone.
bool isForKeyUpOnly(const KeyStroke& stroke) {
    return stroke == shiftKey(Key::pageDown) || stroke == ctrlShiftKey(Key::s) || stroke == ctrlKey(Key::pageDown) ||
           (stroke.ctrl && stroke.alt);
}

/// Plain keys that have moved the cell when the box is empty; the move has spoken by itself.
bool isMovingKey(const KeyStroke& stroke) {
    switch (stroke.key) {
    case Key::left:
    case Key::right:
    case Key::up:
    case Key::down:
    case Key::pageUp:
    case Key::pageDown:
        return stroke == plainKey(stroke.key);
    default:
        return false;
    }
}

/// The text without the last two bytes of its encoding, whatever its last character is.
Text withoutLastTwoBytes(const CodePage& codePage, const Text& text) {
    Bytes bytes = codePage.encode(text);
    bytes.resize(bytes.size() - std::min<std::size_t>(bytes.size(), 2));
    return codePage.decode(bytes);
}

} // namespace

InputBox::InputBox(EditScreen& edit) : edit_(edit) {
    edit_.txtinputbox.onChange([this] { changed(); });
}

void InputBox::change(const Text& text) {
    edit_.txtinputbox.typed(text);
}

void InputBox::changed() {
    edit_.zormod.platform.screen.showEcho(edit_.txtinputbox.text());
    endInputAtLimit();
    readChange();
    edit_.previousInputText = edit_.txtinputbox.text();
}

void InputBox::endInputAtLimit() {
    ZORMOD& zormod = edit_.zormod;
    const Text text = edit_.txtinputbox.text();
    // An emptied box commits nothing, not even in an item of width 0.
    if (text.empty() || putsBack_ || !hasTable(zormod)) {
        return;
    }
    const CodePage& codePage = zormod.platform.codePage;
    const auto length = static_cast<int>(codePage.byteLength(text));
    const int limit = zormod.input.inputLimit;
    if (limit != 0) {
        if (length >= limit) {
            commitCell(zormod, text);
            setBoxText(edit_, PanelField::txtinputbox, {});
            nextItem(edit_);
        }
        return;
    }
    const int width = zormod.items.itemWidth[zormod.position.curItem];
    if (length < width) {
        return;
    }
    if (length != width) {
        zormod.platform.beeper.beep();
        const FlagScope shortened(putsBack_);
        const SilentScope silent(zormod);
        setBoxText(edit_, PanelField::txtinputbox, withoutLastTwoBytes(codePage, text));
    }
    commitCell(zormod, edit_.txtinputbox.text());
    const SilentScope silent(zormod);
    // The step clears the box, except where it beeps at the end of the file; a row that can't be written leaves it.
    nextItem(edit_);
    clearInputBox(edit_);
}

void InputBox::readChange() {
    ZORMOD& zormod = edit_.zormod;
    const Text now = edit_.txtinputbox.text();
    const Text before = edit_.previousInputText;
    if (now == before) {
        return;
    }
    if (edit_.commitBusy) {
        edit_.previousInputText.clear();
        setBoxText(edit_, PanelField::txtinputbox, {});
    } else if (!hasTable(zormod)) {
        sayTextChange(zormod, before, now);
    } else if (throttlePasses(zormod)) {
        sayText(zormod, withCharacterName(describeInputChange(zormod, before, now), before, now));
    }
}

KeyOutcome InputBox::keyDown(const KeyStroke& stroke) {
    ZORMOD& zormod = edit_.zormod;
    if (edit_.keyIgnore) {
        return KeyOutcome::goesOn;
    }
    if (zormod.taskWord == u"HTYU") {
        // The keys of the range belong to its form; a key that lands here brings the form back and is used up.
        zormod.platform.commands.run(focusRangeBoxCommand);
        return KeyOutcome::taken;
    }
    if (isSelectingKey(stroke) && !boxIsEmpty(edit_)) {
        return KeyOutcome::goesOn;
    }
    if (isForKeyUpOnly(stroke)) {
        return KeyOutcome::goesOn;
    }
    if (startsRange(edit_, stroke)) {
        return KeyOutcome::taken;
    }
    if (zormod.selection.selectionKind != 0) {
        return fixedRangeKey(edit_, stroke);
    }
    if (zormod.taskWord == u"moveitem" || zormod.taskWord == u"moverecord") {
        return KeyOutcome::goesOn;
    }
    return stroke == plainKey(Key::escape) ? escape() : keyTable(stroke);
}

KeyOutcome InputBox::escape() {
    ZORMOD& zormod = edit_.zormod;
    if (!boxIsEmpty(edit_)) {
        clearInputBox(edit_);
        return KeyOutcome::taken;
    }
    if (hasTable(zormod)) {
        commitRecord(zormod);
    }
    if (zormod.speech.speechMode != 0) {
        orderlyEnd(zormod);
    }
    endAtOnce(zormod);
}

KeyOutcome InputBox::keyTable(const KeyStroke& stroke) {
    const InputKey* const key = findInputKey(stroke, boxIsEmpty(edit_));
    if (key == nullptr) {
        return KeyOutcome::goesOn;
    }
    if (key->needsTable && beepsWithoutTable(edit_.zormod)) {
        return KeyOutcome::taken;
    }
    if (key->act != nullptr) {
        key->act(edit_);
    } else {
        edit_.zormod.platform.commands.run(key->command);
    }
    return key->outcome;
}

KeyOutcome InputBox::keyPress(char16_t character) {
    if (character != u'\r') {
        return KeyOutcome::goesOn;
    }
    if (beepsWithoutTable(edit_.zormod)) {
        return KeyOutcome::taken;
    }
    const FlagScope busy(edit_.commitBusy);
    if (!edit_.txtinputbox.text().empty()) {
        commitCell(edit_.zormod, edit_.txtinputbox.text());
    }
    nextItem(edit_);
    edit_.previousInputText.clear();
    return KeyOutcome::taken;
}

void InputBox::keyUp(const KeyStroke& stroke, const BoxView& box) {
    if (edit_.zormod.taskWord == u"HTYU") {
        // Quick fingers let the key that began a range go before the desktop has given its form the keyboard.
        edit_.zormod.platform.commands.run(stepRangeCommand);
        return;
    }
    const bool isEmpty = boxIsEmpty(edit_);
    if ((isEmpty && isMovingKey(stroke)) || clearsRestoringBlank(edit_, stroke)) {
        return;
    }
    if (box.selectionLength == 0) {
        edit_.lastSelLength = 0;
    }
    if (!isEmpty && isSelectingKey(stroke)) {
        readSelection(edit_.zormod, box, stroke.key, edit_.lastSelLength);
        return;
    }
    const ReadingKey* const key = findReadingKey(stroke);
    if (key == nullptr || (key->needsTable && beepsWithoutTable(edit_.zormod))) {
        return;
    }
    key->read(edit_, box);
}

void InputBox::mnuCTRLD() {
    ZORMOD& zormod = edit_.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const std::int16_t item = zormod.position.curItem;
    edit_.undoCell = trimmed(getCell(zormod, item));
    commitCell(zormod, Text(static_cast<std::size_t>(zormod.items.itemWidth[item]), u' '));
    nextItem(edit_);
    clearInputBox(edit_); // at the end of the file the step leaves it as it was
}

void InputBox::mnuCTRLU() {
    ZORMOD& zormod = edit_.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    {
        const SilentScope silent(zormod);
        setBoxText(edit_, PanelField::txtinputbox, trimmed(getCell(zormod, zormod.position.curItem)));
    }
    giveInputBoxFocus(edit_);
}
