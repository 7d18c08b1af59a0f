#include "voice/cell_reading.h"

#include "platform/code_page.h"
#include "platform/number_text.h"
#include "sheet/cell.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"
#include "voice/typing_reading.h"

#include <algorithm>

namespace {

/// The longest part of an item's name in the title of the pinned display, in characters.
constexpr std::size_t pinnedNameLength = 40;
/// The longest part of that title that is spoken.
constexpr std::size_t spokenTitleLength = 20;

bool isPinned(const ZORMOD& zormod) {
    return zormod.input.pinnedItem >= 0;
}

Text currentName(const ZORMOD& zormod) {
    return trimmed(zormod.items.itemName[zormod.position.curItem]);
}

Text currentCell(const ZORMOD& zormod) {
    return getCell(zormod, zormod.position.curItem);
}

BytesView currentRow(const ZORMOD& zormod) {
    return zormod.window.recordWindow[currentSlot(zormod)];
}

/// The cell for a reading that works on every form: before the first table is opened there is no item to cut out.
Text cellForAnyForm(const ZORMOD& zormod) {
    return zormod.items.itemStart[zormod.position.curItem] == 0 ? Text() : currentCell(zormod);
}

Text positionPart(const ZORMOD& zormod, const PanelReadings& panel) {
    return u"  ｷﾞｮｳ" + trimmed(panel.txtREC) + u" ｺｳﾓｸ" + trimmed(panel.txtItemnum) + u" " +
           zormod.items.itemName[zormod.position.curItem] + u" ";
}

} // namespace

Text cellMoveText(const ZORMOD& zormod, MovedBox box, const PanelReadings& panel) {
    const bool withPosition = zormod.speech.speechMode == 2;
    Text reading;
    if (zormod.speech.pinnedAutoRead == 1 && isPinned(zormod)) {
        reading = pinnedData(zormod) + u" ";
    }
    const Text cell = trimmed(currentCell(zormod));
    reading += cell.empty() ? Text(u"ﾌﾞﾗﾝｸ") : cell;
    if (box == MovedBox::record) {
        reading += u" ";
    }
    reading += commaPause;
    if (withPosition) {
        reading += positionPart(zormod, panel);
        reading += u".ﾃﾞｰﾀﾆｭｳﾘｮｸ";
        reading += textBoxWord;
    }
    return reading;
}

Text pinnedData(const ZORMOD& zormod) {
    return isPinned(zormod) ? trimmed(getCell(zormod, zormod.input.pinnedItem)) : Text();
}

Text pinnedTitle(const ZORMOD& zormod) {
    const std::int16_t item = zormod.input.pinnedItem;
    return plainNumber(item) + u"項目:" + trimmed(zormod.items.itemName[item]).substr(0, pinnedNameLength);
}

void readCellKey(ZORMOD& zormod) {
    if (!throttlePasses(zormod)) {
        return;
    }
    const Text cell = cellForAnyForm(zormod);
    sayText(zormod, (trimmed(cell).empty() ? Text(u"ブランク") : cell) + u"。ギョウ" +
                        plainNumber(zormod.position.curRecord) + u" 項目" + plainNumber(zormod.position.curItem) +
                        currentName(zormod));
}

void readRowKey(ZORMOD& zormod) {
    if (!throttlePasses(zormod)) {
        return;
    }
    const CodePage& codePage = zormod.platform.codePage;
    Text reading = u"ギョウ" + plainNumber(zormod.position.curRecord) + u" ";
    const std::int16_t kind = zormod.selection.selectionKind;
    if (kind == 1 || kind == 3) {
        reading += codePage.decode(itemSpan(zormod.items, currentRow(zormod), zormod.selection.selItemFrom,
                                            zormod.selection.selItemTo)) +
                   u"ｺｳﾓｸﾊﾝｲ指定ｱﾘ";
    } else {
        reading += trimmed(codePage.decode(currentRow(zormod).substr(0, dataLength)));
    }
    sayText(zormod, reading);
}

Text boxTextReading(const ZORMOD& zormod, const Text& boxText, int selectionStart, int selectionLength) {
    if (boxText.empty()) {
        return remainingBytes(zormod, boxText) +
               u"ｲﾏ ﾆｭｳﾘｮｸﾎﾞｯｸｽﾆﾜ ｹﾞﾝｺｳｶﾞｱﾘﾏｾﾝ。CRﾀﾞｹｦﾀﾀｸﾄ ｷｿﾞﾝﾃﾞｰﾀﾜ ｶｷｶﾜﾗﾅｲﾃﾞ、ｼﾞｺｳﾓｸﾆ ｶｷｺﾐｺｳﾓｸｶﾞ ｲﾄﾞｳｼﾏｽ";
    }
    if (selectionLength > 0) {
        const auto end = std::min(boxText.size(), static_cast<std::size_t>(selectionStart + selectionLength));
        return boxText.substr(0, end) + Text(periodPause) + boxText.substr(end) +
               u"ﾆｭｳﾘｮｸﾎﾞｯｸｽﾅｲｹﾞﾝｺｳｦ ﾖﾐｱｹﾞﾏｼﾀ､ｵﾄｺｺﾞｴﾜ ｾﾝﾀｸｻﾚﾀ ﾃｷｽﾄﾌﾞﾃﾞｽ";
    }
    return boxText + remainingBytes(zormod, boxText);
}

Text storedDataReading(const ZORMOD& zormod) {
    const Text cell = trimmed(currentCell(zormod));
    return cell.empty() ? Text(u"ｲﾏﾉ ｺｳﾓｸ ﾜ ﾐｷﾆｭｳﾃﾞｽ") : cell + u"。ｲﾏﾉ ｺｳﾓｸﾉ ｷｿﾞﾝﾃﾞｰﾀｦ ﾖﾐｱｹﾞﾏｼﾀ";
}

Text itemFactsReading(const ZORMOD& zormod, const PanelReadings& panel) {
    const std::int16_t item = zormod.position.curItem;
    return u"ｺｳﾓｸ" + plainNumber(item) + u"," + currentName(zormod) + u"。" + panel.txtLR + u"。ｺｳﾓｸﾊﾊﾞ" +
           plainNumber(zormod.items.itemWidth[item]);
}

Text rowNumberReading(const ZORMOD& zormod) {
    return u"ｷﾞｮｳ" + plainNumber(zormod.position.curRecord);
}

Text fileFactsReading(ZORMOD& zormod, const PanelReadings& panel) {
    return fullPath(zormod.file.fileDrive, zormod.file.fileName) + u"。ｷﾛｸｽｳ" + plainNumber(recordCount(zormod)) +
           u"。.ﾋｮｳﾒﾓ" + panel.memo;
}

Text stateFactsReading(const PanelReadings& panel) {
    return u"ｷﾆｭｳｺｳﾓｸわ" + panel.Label11 + u".IDｺｳﾓｸ." + panel.Label13 + u"." + trimmed(panel.Label8);
}

Text pinnedItemReading(const ZORMOD& zormod) {
    if (!isPinned(zormod)) {
        return u"常時表示項目はありません";
    }
    return pinnedData(zormod) + u"。" + pinnedTitle(zormod).substr(0, spokenTitleLength);
}
