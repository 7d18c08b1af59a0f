#include "edit/block_ranges.h"

#include "edit/range_list.h"
#include "platform/beeper.h"
#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"

#include <array>

namespace {

/// The instruction between its first and its last sentence, cut into the lines of the label.
constexpr std::array<TextView, 7> middleLines = {
    u"第10記録から１５記録までと、第80記録より100記録まで、",
    u"それと、第３記録を指定する場合",
    u"10-15/80-100/3　というように、記録範囲指定欄に記入する",
    u"スラッシュで区切り、いくつでも範囲を指定できます。",
    u"項目の範囲を指定する場合も同じように",
    u"0-3/6/9-12　とすると第0から3項目､第6､第9から12項目を指定した事になります。",
    u"なお、空欄のままの場合はすべての記録､項目を指定したことになります。",
};

/// The empty box of an impatient user: filled once, so that what is chosen is seen; left or made empty again it counts
/// as the whole range.
bool fills(Text& box, bool& filled, const Text& whole) {
    if (!box.empty() || filled) {
        return false;
    }
    box = whole;
    filled = true;
    return true;
}

/// True, and told, if the list is faulty.
bool isFaulty(ZORMOD& zormod, Text list, RangeListKind kind, TextView title) {
    const std::int64_t highest = kind == RangeListKind::records ? recordCount(zormod) : zormod.items.itemCount;
    const Text fault = checkRangeList(list, kind, highest);
    if (!fault.empty()) {
        zormod.platform.dialogs.showMessage(fault, Text(title));
    }
    return !fault.empty();
}

} // namespace

bool askBlockRanges(ZORMOD& zormod) {
    zormod.platform.forms.open(u"FrmBROCK");
    // The list of items is never empty once it has been chosen.
    const auto* items = std::get_if<Text>(&zormod.results.answers[1]);
    return items != nullptr && !items->empty();
}

BlockRanges::BlockRanges(ZORMOD& zormod) : zormod_(zormod) {
    zormod_.results.answers[0] = Text();
    zormod_.results.answers[1] = Text();
}

BlockRanges::Outcome BlockRanges::carryOut() {
    records = trimmed(records);
    if (fills(records, filledRecords_, wholeRecords())) {
        zormod_.platform.beeper.beep();
        return Outcome::filledIn;
    }
    if (isFaulty(zormod_, records, RangeListKind::records, u"記録ﾌﾞﾛｯｸ指定のあやまり")) {
        return Outcome::faultInRecords;
    }
    items = trimmed(items);
    if (fills(items, filledItems_, wholeItems())) {
        zormod_.platform.beeper.beep();
        return Outcome::filledIn;
    }
    if (isFaulty(zormod_, items, RangeListKind::items, u"項目ﾌﾞﾛｯｸ指定のあやまり")) {
        return Outcome::faultInItems;
    }
    zormod_.results.answers[0] = records.empty() && !isTrend() ? wholeRecords() : records;
    zormod_.results.answers[1] = items.empty() ? wholeItems() : items;
    return Outcome::chosen;
}

Text BlockRanges::guidance() {
    Text text = u"範囲を数字と と　ﾏｲﾅｽ記号　および　スラッシュ　を使って記述してください。";
    for (const TextView sentence : middleLines) {
        text += sentence;
    }
    return text += u"また作業は、記録項目番号の大小に関わらず記述されたﾌﾞﾛｯｸの順に行われます";
}

Text BlockRanges::label() const {
    Text text = zormod_.taskWord == u"PRINT" ? u"範囲を｢123...｣ と｢-｣｢/｣を使って記述してください"
                                             : u"範囲を｢123...｣ と｢-｣ ｢/｣を使って記述してください";
    for (const TextView line : middleLines) {
        (text += u'\r') += line;
    }
    return text += u"\rまた作業は記録項目番号の大小に関わらず記述されたﾌﾞﾛｯｸの順に行われます";
}

bool BlockRanges::isTrend() const {
    return contains(zormod_.taskWord, u"MLINE");
}

Text BlockRanges::wholeRecords() const {
    return u"1-" + plainNumber(recordCount(zormod_));
}

Text BlockRanges::wholeItems() const {
    return (isTrend() ? u"1-" : u"0-") + plainNumber(zormod_.items.itemCount);
}
