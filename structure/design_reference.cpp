#include "structure/design_reference.h"

#include "platform/beeper.h"
#include "platform/letter_case.h"
#include "platform/number_text.h"
#include "sheet/item_fields.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "start/make_folder.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

/// The head of a K file, of either form.
struct ItemFileHead {
    bool isOldForm = false;
    double count = 0;
};

ItemFileHead readHead(ItemFields& fields) {
    ItemFileHead head;
    head.isOldForm = !contains(fields.next(), u"'");
    fields.next();
    fields.next();
    head.count = Val(fields.next());
    return head;
}

bool isItemCount(double count) {
    return count >= 0 && count <= highestItem;
}

DesignRow readRow(ItemFields& fields) {
    DesignRow row;
    row.name = trimmed(nameField(fields.next()));
    row.align = trimmed(fields.next());
    return row;
}

Result readRows(ZORMOD& zormod, const Text& path, std::vector<DesignRow>& rows) {
    ItemFields fields(itemFileContents(zormod, path));
    const ItemFileHead head = readHead(fields);
    if (!isItemCount(head.count)) {
        return refuseItemFile(zormod, Text(notAnItemFile), u"項目ﾌｧｲﾙ読込エラー");
    }
    const int items = roundTo16(head.count) + 1;
    for (int i = 0; i < items; ++i) {
        rows.push_back(readRow(fields));
    }
    for (DesignRow& row : rows) {
        if (!head.isOldForm || !fields.atEnd()) {
            row.width = widthField(fields.next());
        }
    }
    return {};
}

/// A comma would move the fields of the K file along in which the memo stands.
Text noteOf(const Text& entry) {
    Text name = entry.substr(1);
    std::replace(name.begin(), name.end(), u',', u'，');
    return name + u"よりｺﾋﾟｰ";
}

/// The rows of another table as the open table's reader sees them. The open table is itself again afterwards.
Result readRowsAsTable(TableDesign& design, const Text& fileName, const Text& fileDrive) {
    ZORMOD& zormod = design.zormod;
    const Result result = readItemFile(zormod, fileName, fileDrive);
    if (result.empty()) {
        design.rows = designRows(zormod.items);
    }
    zormod.items = design.before.items;
    zormod.file.tableMemo = design.before.file.tableMemo;
    return result;
}

} // namespace

Result readItemFileToDesign(TableDesign& design, const Text& fileName, const Text& fileDrive) {
    std::vector<DesignRow> rows;
    try {
        const Result result = readRows(design.zormod, itemFilePathOn(fileDrive, fileName), rows);
        if (result.empty()) {
            design.rows = rows;
        }
        return result;
    } catch (const RuntimeFailure&) {
        return refuseItemFile(design.zormod, Text(notAnItemFile), u"項目挿入不可能");
    }
}

void showReferences(TableDesign& design) {
    design.referencesShown = true;
    design.references.refresh();
}

void takeReference(TableDesign& design) {
    const Text entry = design.references.selectedName();
    if (entry.empty()) {
        design.zormod.platform.beeper.beep();
        return;
    }
    const Text path = pathInFolder(design.references.path(), entry.substr(1));
    const Text fileDrive = lowerCase(TextView(path).substr(0, 1));
    const Text fileName = path.substr(2);
    const bool isChange = design.mode == DesignMode::change;
    const Result result = isChange ? readItemFileToDesign(design, fileName, fileDrive)
                                   : readRowsAsTable(design, fileName, fileDrive);
    if (!result.empty()) {
        restoreTable(design);
    } else if (!isChange) {
        design.text2 = noteOf(entry);
    }
    designRowsChanged(design);
    standOnDesignCell(design, design.row, design.column);
    if (result.empty()) {
        sayThrottled(design.zormod, noteOf(entry));
    }
}

Text referenceReading(TableDesign& design, const Text& entry) {
    const Text name = entry + Text(periodPause);
    try {
        ItemFields fields(itemFileContents(design.zormod, pathInFolder(design.references.path(), entry)));
        const double count = readHead(fields).count;
        if (!isItemCount(count)) {
            return name;
        }
        const Text idName = readRow(fields).name;
        if (roundTo16(count) == 0) {
            return name + u"項目はID項目のみで、項目名は" + idName + u"。です。ロミカﾌｧｲﾙでないかもしれません。";
        }
        return name + u"項目数" + plainNumber(roundTo16(count)) + u"のファイルです" + u"第1項目の、項目名は" +
               readRow(fields).name + u"。です。";
    } catch (const RuntimeFailure&) {
        // Walking past a file that is no K file is no failure.
        return name;
    }
}

void restoreTable(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    closeAllFiles(zormod);
    zormod.file = design.before.file;
    zormod.items = design.before.items;
    if (design.before.hadTable) {
        openDataFile(zormod);
    } else {
        zormod.files.tableLock.reset();
    }
}
