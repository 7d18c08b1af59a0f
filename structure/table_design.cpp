#include "structure/table_design.h"

#include "platform/number_text.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"

#include <algorithm>

namespace {

DesignMode modeOf(const Text& taskWord) {
    if (taskWord == u"tdesign") {
        return DesignMode::change;
    }
    return taskWord == u"SVCread" ? DesignMode::csv : DesignMode::newTable;
}

/// The path up to and with its last "\".
Text folderOf(const Text& path) {
    return path.substr(0, lastPosition(path, u"\\"));
}

Text withoutExtension(const Text& path) {
    const std::size_t point = path.rfind(u'.');
    return point == Text::npos || point < lastPosition(path, u"\\") ? path : path.substr(0, point);
}

Text openPath(const FileIdentity& file) {
    return file.fileName.empty() ? file.programFolder : fullPath(file.fileDrive, file.fileName);
}

Text DesignRow::*textOf(DesignColumn column) {
    switch (column) {
    case DesignColumn::align:
        return &DesignRow::align;
    case DesignColumn::width:
        return &DesignRow::width;
    default:
        return &DesignRow::name;
    }
}

} // namespace

TableDesign::TableDesign(ZORMOD& state)
    : zormod(state), mode(modeOf(state.taskWord)), rows(1), references(state, referencePattern) {
    const FileIdentity& file = zormod.file;
    before = {file, zormod.items, zormod.position, hasTable(zormod)};
    const Text path = openPath(file);
    text3 = folderOf(path);
    references.start(text3);
    if (mode == DesignMode::change) {
        text3 = path;
        text2 = file.tableMemo;
        rows = designRows(zormod.items);
    } else if (mode == DesignMode::csv) {
        text3 = withoutExtension(fullPath(file.otherFileDrive, file.otherFileName));
        rows = designRows(zormod.otherItems);
    }
    designRowsChanged(*this);
    standOnDesignCell(*this, 0, DesignColumn::name);
}

std::int16_t lastDesignItem(const TableDesign& design) {
    return static_cast<std::int16_t>(design.rows.size() - 1);
}

Text& cellText(DesignRow& row, DesignColumn column) {
    return row.*textOf(column);
}

const Text& cellText(const DesignRow& row, DesignColumn column) {
    return row.*textOf(column);
}

void standOnDesignCell(TableDesign& design, int row, DesignColumn column) {
    if (row != lastDesignItem(design)) {
        design.toldEnd = false;
    }
    design.row = row;
    design.column = column;
    design.itemin = cellText(design.rows[static_cast<std::size_t>(row)], column);
}

void designRowsChanged(TableDesign& design) {
    design.text1 = plainNumber(lastDesignItem(design));
    ItemTable& items = design.zormod.items;
    items.itemCount = lastDesignItem(design);
    // Items that the table doesn't have are empty cells behind its last one, so that readings of the row still work.
    computeItemStart(items);
    design.toldEnd = false;
    design.row = std::min<int>(design.row, lastDesignItem(design));
}

void resizeDesign(TableDesign& design, std::int16_t count) {
    design.rows.resize(static_cast<std::size_t>(count) + 1);
    designRowsChanged(design);
    standOnDesignCell(design, design.row, design.column);
}

std::vector<DesignRow> designRows(const ItemTable& items) {
    std::vector<DesignRow> rows;
    for (std::int16_t i = 0; i <= items.itemCount; ++i) {
        rows.push_back({items.itemName[i], items.itemAlign[i], trimmedStr(items.itemWidth[i])});
    }
    return rows;
}
