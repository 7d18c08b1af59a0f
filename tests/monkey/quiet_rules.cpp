#include "tests/monkey/quiet_rules.h"

#include "tests/monkey/shift_rules.h"

#include <algorithm>

namespace {

bool hasRun(const std::vector<Text>& ran, TextView name) {
    return std::find(ran.begin(), ran.end(), name) != ran.end();
}

bool mayType(const Seen& before, const MonkeyKey& key) {
    const bool isText = key.kind == MonkeyKey::Kind::type || key.kind == MonkeyKey::Kind::commit;
    const bool isPaste = key.stroke == ctrlKey(Key::v) || key.stroke == shiftKey(Key::insert);
    const bool isKeypad = key.stroke.key >= Key::keypad0 && key.stroke.key <= Key::keypad9;
    return before.inInputBox && (isText || isPaste || isKeypad || key.stroke.ctrl == key.stroke.alt);
}

Complaint rowInWindow(const CodePage& codePage, const Seen& before, const Seen& now, const MonkeyKey& key,
                      const std::vector<Text>& ran) {
    if (now.taskWord == u"chfln") { // the rows show what the width that is being chosen would make of them
        return std::nullopt;
    }
    if (hasRun(ran, u"mnuIDAUTO")) {
        Seen atTheId = before;
        atTheId.position.curItem = 0;
        return onlyTheCellWasTyped(codePage, atTheId, now, true);
    }
    const bool mayChange = mayType(before, key) || hasRun(ran, u"mnuCTRLD");
    return onlyTheCellWasTyped(codePage, before, now, mayChange);
}

} // namespace

Complaint changedWithoutOperation(const CodePage& codePage, const Seen& before, const Seen& now, const MonkeyKey& key,
                                  const std::vector<Text>& ran) {
    if (hasRun(ran, u"shiftCellsRight")) {
        return cellsShifted(codePage, before, now, Shift::right);
    }
    if (hasRun(ran, u"shiftCellsLeft")) {
        return cellsShifted(codePage, before, now, Shift::left);
    }
    if (auto wrong = onlyTheRowWasSaved(codePage, before, now.records)) {
        return wrong;
    }
    if (auto wrong = rowInWindow(codePage, before, now, key, ran)) {
        return wrong;
    }
    return hasRun(ran, u"mnuCTRLD") ? blankPutIn(codePage, before, now)
                                    : enterPutsTheTextIn(codePage, before, now, key);
}
