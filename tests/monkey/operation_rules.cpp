#include "tests/monkey/operation_rules.h"

#include "tests/monkey/item_effects.h"
#include "tests/monkey/record_effects.h"

#include <algorithm>
#include <array>

namespace {

struct Word {
    TextView name;
    Effect effect;
};

constexpr std::array<Word, 16> commands = {{
    {u"mnuKILLREC1", Effect::recordsRemoved},
    {u"menuRKILL", Effect::recordsRemoved},
    {u"mnuINSREC1", Effect::recordsAdded},
    {u"mnuINSRECM", Effect::recordsAdded},
    {u"insertRangeRecords", Effect::recordsAdded},
    {u"mnuZDEL", Effect::rangeCleared},
    {u"mnuKILLITEM", Effect::itemsRemoved},
    {u"mnuINSITEM", Effect::itemsAdded},
    {u"mnuKOUMOKU", Effect::itemsRecut},
    {u"mnuFLN", Effect::itemsRecut},
    {u"widenItem", Effect::itemsRecut},
    {u"narrowItem", Effect::itemsRecut},
    {u"mnuRL", Effect::itemsRecut},
    {u"changeAlignment", Effect::itemsRecut},
    {u"mnuIPASTE", Effect::recordsPasted},
    {u"mnuPAST", Effect::pastedOver},
}};
constexpr std::array<Word, 5> taskWords = {{
    {u"moverecord", Effect::recordsMoved},
    {u"moveitem", Effect::itemsMoved},
    {u"move", Effect::blockPut},
    {u"copy", Effect::blockPut},
    {u"chfln", Effect::itemsRecut},
}};

template <typename List> Effect lookUp(const List& list, TextView name) {
    const auto* const found =
        std::find_if(list.begin(), list.end(), [&](const Word& word) { return word.name == name; });
    return found == list.end() ? Effect::none : found->effect;
}

Records recordsOf(std::string_view bytes) {
    Records records;
    for (; bytes.size() >= recordLength; bytes.remove_prefix(recordLength)) {
        // Of a record whose items were deleted the end is put right by the next operation that copies it.
        records.push_back(bytes.substr(0, dataLength));
    }
    return records;
}

Complaint changedFrom(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now) {
    const Records old = recordsOf(before.records);
    const Records made = recordsOf(now.records);
    if (before.records == now.records || effect == Effect::none) {
        return std::nullopt;
    }
    if (effect == Effect::recordsRemoved) {
        return stretchChanged(old, made, false);
    }
    if (effect == Effect::recordsAdded) {
        return stretchChanged(made, old, !before.idIsAutomatic);
    }
    if (effect == Effect::recordsPasted) {
        return stretchChanged(made, old, false);
    }
    if (effect == Effect::pastedOver) {
        return pastedOver(before, old, made);
    }
    if (old.size() != made.size()) {
        return "records: " + std::to_string(old.size()) + " became " + std::to_string(made.size());
    }
    switch (effect) {
    case Effect::recordsMoved:
        return recordsMoved(old, made);
    case Effect::rangeCleared:
        return rangeCleared(codePage, before, old, made);
    case Effect::blockPut:
        return blockPut(before, now, old, made);
    default:
        return itemsChanged(codePage, before, now, effect, old, made);
    }
}

} // namespace

Effect effectOf(const Seen& before, const std::vector<Text>& ran) {
    for (const Text& name : ran) {
        if (const Effect effect = lookUp(commands, name); effect != Effect::none) {
            return effect;
        }
    }
    return lookUp(taskWords, before.taskWord);
}

Complaint changedByEffect(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now) {
    if (before.table.empty() || before.table != now.table) {
        return std::nullopt;
    }
    const Complaint complaint = changedFrom(codePage, effect, before, now);
    return complaint ? changedFrom(codePage, effect, withRowSaved(codePage, before), now) : complaint;
}
