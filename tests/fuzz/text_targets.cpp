// Texts, numbers and lists of ranges: readers that touch no file.

#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_world.h"
#include "fuzz/target_groups.h"

#include "edit/range_list.h"
#include "platform/code_page.h"
#include "platform/number_picture.h"
#include "platform/number_text.h"
#include "platform/text_picture.h"
#include "transform/width_conversion.h"

#include <algorithm>

namespace {

void readCodePage(BytesView bytes) {
    const CodePage& codePage = fuzzCodePage();
    const Text text = codePage.decode(bytes);
    const Bytes again = codePage.encode(text);
    // Characters that have two codes come back under the accepted one: other bytes, never more or fewer.
    mustHold(again.size() == bytes.size());
    // A half character may form a new one with the other code of its neighbour.
    mustHold(codePage.decode(again) == text || std::any_of(text.begin(), text.end(), isCarriedByte));
    mustHold(codePage.byteLength(text) == bytes.size());
    Bytes inPlace(bytes);
    codePage.canonicalize(inPlace);
    mustHold(inPlace == again);
    const Text units = unitsOf(bytes);
    mustHold(codePage.byteLength(units) == codePage.encode(units).size());
}

/// The text up to the first line end is a number or a text, what follows a picture.
void readNumbers(BytesView bytes) {
    const Text text = fuzzCodePage().decode(bytes);
    const std::size_t end = text.find(u'\n');
    const Text number = text.substr(0, end);
    const Text picture = end == Text::npos ? Text() : text.substr(end + 1);
    const auto mayOverflow = [](const std::function<void()>& reader) { mayFail({FailureKind::overflow}, reader); };
    mayOverflow([&] { static_cast<void>(Format(Val(number), picture)); });
    mayOverflow([&] { static_cast<void>(Format(static_cast<float>(Val(number)), picture)); });
    mayOverflow([&] { static_cast<void>(Format(typedNumber(number), picture)); });
    // What a number is shown as reads as the same number, and shows the same again.
    mayOverflow([&] {
        const Text shown = Str(Val(number));
        mustHold(Str(Val(shown)) == shown);
    });
    mayOverflow([&] {
        const std::int16_t whole = roundTo16(Val(number));
        mustHold(Val(Str(whole)) == whole);
    });
    static_cast<void>(Format(TextView(number), picture));
    const Text half = toHalfWidth(number);
    mustHold(toHalfWidth(half) == half);
}

/// The blocks of a list that was found to be right lie within the limits; those of any list have their ends in order.
void walkRangeList(const Text& list, RangeListKind kind, std::int64_t lowest, std::int64_t highest) {
    Text checked = list;
    const bool isValid = checkRangeList(checked, kind, highest).empty();
    Text left = list;
    while (const auto block = nextRangeBlock(left)) {
        mustHold(block->first <= block->last && block->first >= 0);
        mustHold(!isValid || (block->first >= lowest && block->last <= highest));
        mustHold(left.size() < list.size());
    }
    mustHold(left.empty());
}

void readRangeList(BytesView bytes) {
    const Text list = fuzzCodePage().decode(bytes);
    walkRangeList(list, RangeListKind::records, 1, 1000);
    walkRangeList(list, RangeListKind::items, 0, 254);
}

} // namespace

void addTextTargets(std::vector<FuzzTarget>& list) {
    list.push_back({"code_page", readCodePage});
    list.push_back({"numbers", readNumbers});
    list.push_back({"range_list", readRangeList});
}
