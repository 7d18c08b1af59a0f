#include "edit/range_list.h"

#include <algorithm>

namespace {

/// Characters that survive behind a cut.
constexpr std::size_t kept = 255;
/// More than any file has records; a value stops growing here.
constexpr std::int64_t beyondAll = 1'000'000'000'000'000;

bool isDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}
bool isSign(char16_t character) {
    return character == u'-' || character == u'/';
}

/// What stands from character `from` on, as far as it survives the cut.
Text behind(const Text& text, std::size_t from) {
    return from < text.size() ? text.substr(from, kept) : Text();
}

void dropLeadingSigns(Text& text) {
    while (!text.empty() && isSign(text.front())) {
        text = behind(text, 1);
    }
}

std::int64_t leadingNumber(TextView text) {
    std::int64_t value = 0;
    for (const char16_t character : text) {
        if (!isDigit(character)) {
            break;
        }
        value = std::min(value * 10 + (character - u'0'), beyondAll);
    }
    return value;
}

RangeBlock blockOf(const Text& written) {
    const std::size_t dash = written.find(u'-');
    if (dash == Text::npos) {
        const std::int64_t value = leadingNumber(written);
        return {value, value};
    }
    const auto [first, last] =
        std::minmax({leadingNumber(TextView(written).substr(0, dash)), leadingNumber(behind(written, dash + 1))});
    return {first, last};
}

/// What is wrong with the characters of the list; empty if nothing is.
Text faultInWriting(const Text& text) {
    int dashes = 0;
    for (const char16_t character : text) {
        if (!isDigit(character) && !isSign(character)) {
            return u"数字-/以外の文字が含まれる、又は無駄なスペースが含まれる";
        }
        dashes = character == u'/' ? 0 : dashes + (character == u'-' ? 1 : 0);
        if (dashes > 1) {
            return u"ブロック中に１以上の「－」がある";
        }
    }
    return {};
}

/// What is wrong with the ends of a block; empty if nothing is.
Text faultInBlock(const RangeBlock& block, RangeListKind kind, std::int64_t highest) {
    const bool isRecords = kind == RangeListKind::records;
    if (block.last > highest) {
        return isRecords ? u"レコード番号がオーバ" : u"指定値が最大項目番号をオーバ";
    }
    if (block.first < (isRecords ? 1 : 0)) {
        return isRecords ? u"指定値が１より小さい" : u"指定値が０より小さい";
    }
    return {};
}

} // namespace

std::optional<RangeBlock> nextRangeBlock(Text& text) {
    dropLeadingSigns(text);
    if (text.empty()) {
        return {};
    }
    const std::size_t end = std::min(text.find(u'/'), text.size());
    const RangeBlock block = blockOf(text.substr(0, end));
    text = behind(text, end + 1);
    dropLeadingSigns(text);
    return block;
}

Text checkRangeList(Text& text, RangeListKind kind, std::int64_t highest) {
    Text fault = faultInWriting(text);
    while (fault.empty()) {
        const auto block = nextRangeBlock(text);
        if (!block) {
            break;
        }
        fault = faultInBlock(*block, kind, highest);
    }
    return fault;
}
