#include "sheet/item_file.h"

#include "platform/beeper.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/number_text.h"
#include "platform/waiting.h"
#include "sheet/record_file.h"

#include <algorithm>

namespace {

/// A K file is at most 511 lines; one much larger than any table could need is not read.
constexpr std::size_t largestItemFile = 16u << 20;

/// Longest item name that survives reading, in characters, and where it begins in its field.
constexpr std::size_t longestName = 248;
constexpr std::size_t nameOffset = 6;
/// Characters of a width field that are looked at.
constexpr std::size_t widthCharacters = 5;

constexpr TextView noTableText = u"ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です";

/// Takes the fields of a K file one by one. Reading past the end is a failure.
class FieldReader {
public:
    explicit FieldReader(Text text) : text_(std::move(text)) {}

    /// The next field: up to a comma or a line end, without the blanks ahead of it.
    Text next() {
        if (at_ >= text_.size()) {
            throw RuntimeFailure{FailureKind::file};
        }
        const auto first = std::min(text_.find_first_not_of(u' ', at_), text_.size());
        const auto end = std::min(text_.find_first_of(u",\r\n", first), text_.size());
        at_ = end + 1;
        if (end + 1 < text_.size() && text_[end] == u'\r' && text_[end + 1] == u'\n') {
            ++at_;
        }
        return text_.substr(first, end - first);
    }

private:
    Text text_;
    std::size_t at_ = 0;
};

/// Characters `from` (0-based) to the end, at most `count`; nothing where the field is shorter.
Text part(const Text& field, std::size_t from, std::size_t count) {
    return from < field.size() ? field.substr(from, count) : Text();
}

/// The refusal that every reader of a K file ends in.
Result refuse(ZORMOD& zormod, const Text& text, TextView title) {
    waitOnClock(zormod.platform.clock, zormod.speech.inhibitSeconds);
    zormod.platform.beeper.beep();
    zormod.platform.dialogs.showMessage(text, Text(title));
    closeAllFiles(zormod);
    return u"error";
}

/// Reads the fields of a K file into `items`. `memo` gets field 2. Refuses the head or the length itself; everything
/// else that is wrong is thrown.
Result readFields(ZORMOD& zormod, const Text& path, ItemTable& items, bool clearWidths, Text& memo) {
    FieldReader fields(zormod.platform.codePage.decode(zormod.platform.files.readWhole(path, largestItemFile)));
    const Text head = fields.next();
    const Text memoField = fields.next();
    fields.next();
    items.itemCount = roundTo16(Val(fields.next()));
    if (items.itemCount < 0 || items.itemCount > highestItem || head.find(u'\'') != nameOffset - 1 ||
        Val(head) < 100) {
        return refuse(zormod, Text(noTableText), u"項目ﾌｧｲﾙ読込エラー");
    }
    if (clearWidths) {
        for (int i = 1; i < itemEntries; ++i) {
            items.itemWidth[i] = 0;
        }
    }
    for (int i = 0; i <= items.itemCount; ++i) {
        items.itemName[i] = part(fields.next(), nameOffset, longestName);
        items.itemAlign[i] = fields.next();
    }
    std::int32_t sum = 0;
    for (int i = 0; i <= items.itemCount; ++i) {
        const std::int16_t width = roundTo16(Val(part(fields.next(), nameOffset, widthCharacters)));
        if (width < 0) {
            throw RuntimeFailure{FailureKind::subscript};
        }
        items.itemWidth[i] = width;
        items.itemWidthAsRead[i] = width;
        sum += width;
    }
    if (sum > recordLength) {
        return refuse(zormod, Str(recordLength) + u"文字ﾌｧｲﾙでありません.", u"ﾌｧｲﾙ長エラー");
    }
    memo = memoField;
    return {};
}

Text pathWithLetter(TextView drive, const Text& fileName, char16_t letter, char16_t letterInRoot) {
    const std::size_t slash = lastPosition(fileName, u"\\");
    Text name = fileName;
    name.insert(slash, 1, slash == 0 ? letterInRoot : letter);
    return fullPath(drive, name);
}

/// One line of a K file: a label of four digits, the apostrophe at character 6, and the rest.
Text itemLine(int label, const Text& rest) {
    return plainNumber(label) + u" '" + rest + u"\r\n";
}

/// Makes `contents` the K file at `path`, or tells the user that it can't.
void writeOrReport(ZORMOD& zormod, const Text& path, BytesView contents) {
    zormod.writeFlag.clear();
    try {
        zormod.platform.files.replaceWhole(path, contents);
    } catch (const RuntimeFailure&) {
        zormod.platform.dialogs.showMessage(u"不適切なﾌｧｲﾙを指定しました。", u"ディスクエラー");
        closeFile(zormod, 2);
        zormod.writeFlag = u"er";
    }
}

} // namespace

Result readItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive) {
    try {
        return readFields(zormod, pathWithLetter(fileDrive, fileName, u'K', u'K'), zormod.items, true,
                          zormod.file.tableMemo);
    } catch (const RuntimeFailure&) {
        return refuse(zormod, Text(noTableText), u"項目挿入不可能");
    }
}

Result readOtherItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive) {
    try {
        Text memo;
        const Result result =
            readFields(zormod, pathWithLetter(fileDrive, fileName, u'K', u'K'), zormod.otherItems, false, memo);
        if (result.empty()) {
            computeItemStart(zormod.otherItems);
        }
        return result;
    } catch (const RuntimeFailure&) {
        return refuse(zormod, Text(noTableText), u"エラーです");
    }
}

void writeItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive) {
    // The small letter is what this writer spells; the file layer finds an existing file in either case.
    writeOrReport(zormod, pathWithLetter(fileDrive, fileName, u'k', u'K'),
                  itemFileBytes(zormod, zormod.items, zormod.items.itemCount));
}

void writeWorkItemFile(ZORMOD& zormod, std::int16_t count) {
    writeOrReport(zormod, fullPath(zormod.file.fileDrive, u"Kwork.qqq"),
                  itemFileBytes(zormod, zormod.otherItems, count));
}

Bytes itemFileBytes(const ZORMOD& zormod, const ItemTable& items, std::int16_t count) {
    return zormod.platform.codePage.encode(itemFileText(items, count, zormod.file.tableMemo));
}

Text itemFileText(const ItemTable& items, std::int16_t count, const Text& memo) {
    Text text = u"100  '" + Str(0) + u"," + memo + u",," + Str(count) + u"\r\n";
    for (int i = 0; i <= count; ++i) {
        text += itemLine(1000 + i, items.itemName[i] + u"," + items.itemAlign[i]);
    }
    for (int i = 0; i <= count; ++i) {
        text += itemLine(2000 + i, Str(items.itemWidth[i]));
    }
    return text;
}

Text itemFilePath(const ZORMOD& zormod, const Text& fileName) {
    return pathWithLetter(zormod.file.fileDrive, fileName, u'K', u'K');
}

Text otherItemFilePath(const ZORMOD& zormod, const Text& fileName) {
    return pathWithLetter(zormod.file.otherFileDrive, fileName, u'K', u'K');
}

void computeItemStart(ItemTable& items) {
    items.itemStart[0] = 1;
    for (int i = 1; i <= items.itemCount; ++i) {
        items.itemStart[i] = static_cast<std::int16_t>(items.itemStart[i - 1] + items.itemWidth[i - 1]);
    }
}
