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

// A command that only begins something, such as the choice of a range, of a target or of a width, isn't among them:
// what is begun is carried out by a later key, under its task word.
constexpr std::array<Word, 14> commands = {{
    {u"mnuKILLREC1", Effect::recordsRemoved},
    {u"menuRKILL", Effect::recordsRemoved},
    {u"mnuINSREC1", Effect::recordsAdded},
    {u"mnuINSRECM", Effect::recordsAdded},
    {u"insertRangeRecords", Effect::recordsAdded},
    {u"mnuZDEL", Effect::rangeCleared},
    {u"mnuKILLITEM", Effect::itemsRemoved},
    {u"mnuINSITEM", Effect::itemsAdded},
    {u"mnuKOUMOKU", Effect::itemsRecut},
    {u"changeAlignment", Effect::itemsRecut},
    {u"mnuIPASTE", Effect::recordsPasted},
    {u"mnuPAST", Effect::pastedOver},
    {u"mnuDEPAST", Effect::pasteTakenBack},
    {u"mnuNEW", Effect::designed},
}};
constexpr std::array<Word, 5> taskWords = {{
    {u"moverecord", Effect::recordsMoved},
    {u"moveitem", Effect::itemsMoved},
    {u"move", Effect::blockPut},
    {u"copy", Effect::blockPut},
    {u"chfln", Effect::widthsChanged},
}};

template <typename List> Effect lookUp(const List& list, TextView name) {
    const auto* const found =
        std::find_if(list.begin(), list.end(), [&](const Word& word) { return word.name == name; });
    return found == list.end() ? Effect::none : found->effect;
}

Records recordsOf(std::string_view bytes) {
    Records records;
    for (; bytes.size() >= recordLength; bytes.remove_prefix(recordLength)) {
        records.push_back(bytes.substr(0, dataLength));
    }
    return records;
}

bool changesItems(Effect effect) {
    return effect == Effect::itemsRemoved || effect == Effect::itemsAdded || effect == Effect::itemsMoved ||
           effect == Effect::itemsRecut || effect == Effect::widthsChanged || effect == Effect::designed;
}

/// Lines of the K file behind the first, which holds the user's memo.
std::string_view withoutMemo(std::string_view items) {
    return items.substr(std::min(items.find("\r\n"), items.size()));
}

/// Two operations write their records with the line end further ahead.
Bytes lineEndAfter(Effect effect, const Seen& before, const Seen& now) {
    return effect == Effect::itemsRemoved    ? endAfterDeletion(before)
           : effect == Effect::widthsChanged ? endAfterWidths(now)
                                             : Bytes("\r\n");
}

/// True if there is nothing to look at: neither the records nor what cuts them has changed.
bool isUnchanged(Effect effect, const Seen& before, const Seen& now) {
    // A new design may leave the records as they are.
    return before.records == now.records &&
           (effect == Effect::itemsRecut || withoutMemo(before.items) == withoutMemo(now.items));
}

Complaint recordsPasted(const ClipShape& clip, const Records& old, const Records& made) {
    if (made.size() != old.size() + clip.records) {
        return "pasted records: " + std::to_string(clip.records) + " made " + std::to_string(made.size()) + " of " +
               std::to_string(old.size());
    }
    return stretchChanged(made, old, false);
}

Complaint otherRecords(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now,
                       const ClipFiles& clips) {
    const Records old = recordsOf(before.records);
    const Records made = recordsOf(now.records);
    switch (effect) {
    case Effect::recordsRemoved:
        return stretchChanged(old, made, false);
    case Effect::recordsAdded:
        return stretchChanged(made, old, !before.idIsAutomatic);
    case Effect::recordsPasted:
        return recordsPasted(shapeOf(clips.clip), old, made);
    case Effect::pastedOver:
        return pastedOver(codePage, before, shapeOf(clips.clip), old, made);
    case Effect::pasteTakenBack:
        return pasteTakenBack(codePage, backupOf(clips.backup), old, made);
    default:
        break;
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
        return blockPut(codePage, before, old, made);
    default:
        return itemsChanged(codePage, before, now, effect, old, made);
    }
}

Complaint changedFrom(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now,
                      const ClipFiles& clips) {
    if (isUnchanged(effect, before, now)) {
        return std::nullopt;
    }
    const Complaint complaint = otherRecords(codePage, effect, before, now, clips);
    return complaint ? complaint : recordsEndIn(lineEndAfter(effect, before, now), before, now);
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

Complaint itemFileKept(Effect effect, const Seen& before, const Seen& now) {
    if (changesItems(effect) || withoutMemo(before.items) == withoutMemo(now.items)) {
        return std::nullopt;
    }
    return "item file: changed without an operation on items";
}

Complaint changedByEffect(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now,
                          const ClipFiles& clips) {
    const Complaint complaint = changedFrom(codePage, effect, before, now, clips);
    return complaint ? changedFrom(codePage, effect, withRowSaved(codePage, before), now, clips) : complaint;
}
