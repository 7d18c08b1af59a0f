#include "voice/typing_reading.h"

#include "platform/code_page.h"
#include "platform/number_text.h"
#include "voice/character_names.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

/// Number of characters at the start that are the same in both.
std::size_t commonStart(TextView a, TextView b) {
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

/// Number of characters at the end that are the same in both.
std::size_t commonEnd(TextView a, TextView b) {
    return static_cast<std::size_t>(std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin());
}

} // namespace

Text describeTextChange(TextView before, TextView now) {
    if (before == now) {
        return {};
    }
    const std::size_t start = commonStart(before, now);
    if (now.size() > before.size()) {
        Text added(now.substr(start, now.size() - before.size()));
        return start < before.size() ? added.append(u" 挿入") : added;
    }
    if (now.size() < before.size()) {
        return Text(before.substr(start, before.size() - now.size())).append(u" 削除");
    }
    return Text(now.substr(start, now.size() - start - commonEnd(before, now))).append(u" うわがき");
}

Text describeInputChange(const ZORMOD& zormod, TextView before, TextView now) {
    if (before == now) {
        return {};
    }
    return describeTextChange(before, now) + remainingBytes(zormod, now);
}

Text remainingBytes(const ZORMOD& zormod, TextView boxText) {
    const auto width = static_cast<std::int64_t>(zormod.items.itemWidth[zormod.position.curItem]);
    const auto used = static_cast<std::int64_t>(zormod.platform.codePage.byteLength(boxText));
    return u" ざん" + plainNumber(width - used) + u"バイト";
}

Text withCharacterName(Text reading, TextView before, TextView now) {
    const bool isOneCharacter = before.size() + 1 == now.size() || now.size() + 1 == before.size();
    if (isOneCharacter && !reading.empty()) {
        reading.replace(0, 1, charReading(TextView(reading).substr(0, 1)));
    }
    return reading;
}

void sayTextChange(ZORMOD& zormod, TextView before, TextView now) {
    if (before != now && throttlePasses(zormod)) {
        sayText(zormod, withCharacterName(describeTextChange(before, now), before, now));
    }
}
