#include "sheet/item_file.h"

#include "platform/beeper.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/number_text.h"
#include "platform/waiting.h"
#include "sheet/item_fields.h"
#include "sheet/record_file.h"
#include "sheet/work_files.h"

#include <algorithm>

namespace {

/// Reads the fields of a K file into `items`. `memo` gets field 2. Refuses the head or the length itself; everything
/// else that is wrong is thrown.
Result readFields(ZORMOD& zormod, const Text& path, ItemTable& items, bool clearWidths, Text& memo) {
    ItemFields fields(itemFileContents(zormod, path));
    const Text head = fields.next();
    const Text memoField = fields.next();
    fields.next();
    items.itemCount = roundTo16(Val(fields.next()));
    if (items.itemCount < 0 || items.itemCount > highestItem || head.find(u'\'') != itemTextOffset - 1 ||
        Val(head) < 100) {
        return refuseItemFile(zormod, Text(notAnItemFile), u"項目ﾌｧｲﾙ読込エラー");
    }
    if (clearWidths) {
        for (int i = 1; i < itemEntries; ++i) {
            items.itemWidth[i] = 0;
        }
    }
    for (int i = 0; i <= items.itemCount; ++i) {
        items.itemName[i] = nameField(fields.next());
        items.itemAlign[i] = fields.next();
    }
    std::int32_t sum = 0;
    for (int i = 0; i <= items.itemCount; ++i) {
        const std::int16_t width = roundTo16(Val(widthField(fields.next())));
        if (width < 0) {
            throw RuntimeFailure{FailureKind::subscript};
        }
        items.itemWidth[i] = width;
        items.itemWidthAsRead[i] = width;
        sum += width;
    }
    if (sum > recordLength) {
        return refuseItemFile(zormod, Str(recordLength) + u"文字ﾌｧｲﾙでありません.", u"ﾌｧｲﾙ長エラー");
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

/// Makes `contents` the K file at `path`, or tells the user that it can't. `path` is spelled in the writers' small
/// letters; on a disk that tells small and capital letters apart the file that the readers find goes first.
void writeOrReport(ZORMOD& zormod, const Text& path, const Text& readersPath, BytesView contents) {
    Files& files = zormod.platform.files;
    zormod.writeFlag.clear();
    try {
        files.replaceWhole(files.exists(readersPath) ? readersPath : path, contents);
    } catch (const RuntimeFailure&) {
        zormod.platform.dialogs.showMessage(u"不適切なﾌｧｲﾙを指定しました。", u"ディスクエラー");
        closeFile(zormod, 2);
        zormod.writeFlag = u"er";
    }
}

} // namespace

Result refuseItemFile(ZORMOD& zormod, const Text& text, TextView title) {
    waitOnClock(zormod.platform.clock, zormod.speech.inhibitSeconds);
    zormod.platform.beeper.beep();
    zormod.platform.dialogs.showMessage(text, Text(title));
    closeAllFiles(zormod);
    return u"error";
}

Result readItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive) {
    try {
        return readFields(zormod, pathWithLetter(fileDrive, fileName, u'K', u'K'), zormod.items, true,
                          zormod.file.tableMemo);
    } catch (const RuntimeFailure&) {
        return refuseItemFile(zormod, Text(notAnItemFile), u"項目挿入不可能");
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
        return refuseItemFile(zormod, Text(notAnItemFile), u"エラーです");
    }
}

void writeItemFile(ZORMOD& zormod, const Text& fileName, const Text& fileDrive) {
    writeOrReport(zormod, pathWithLetter(fileDrive, fileName, u'k', u'K'), itemFilePathOn(fileDrive, fileName),
                  itemFileBytes(zormod, zormod.items, zormod.items.itemCount));
}

void writeWorkItemFile(ZORMOD& zormod, std::int16_t count) {
    const Text& drive = zormod.file.fileDrive;
    writeOrReport(zormod, fullPath(drive, u"Kwork.qqq"), workItemFilePath(drive),
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

Text itemFilePathOn(TextView drive, const Text& fileName) {
    return pathWithLetter(drive, fileName, u'K', u'K');
}

void computeItemStart(ItemTable& items) {
    items.itemStart[0] = 1;
    for (int i = 1; i <= items.itemCount; ++i) {
        items.itemStart[i] = static_cast<std::int16_t>(items.itemStart[i - 1] + items.itemWidth[i - 1]);
    }
}
