#include "tests/monkey/pair_rules.h"

#include "sheet/item_file.h"
#include "sheet/record_window.h"
#include "tests/monkey/random_table.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>

namespace {

/// The lines of a K file, without their ends.
std::vector<std::string> linesOf(std::string_view file) {
    std::vector<std::string> lines;
    while (!file.empty()) {
        const std::size_t end = file.find("\r\n");
        lines.emplace_back(file.substr(0, end));
        file.remove_prefix(end == std::string_view::npos ? file.size() : end + 2);
    }
    return lines;
}

/// What stands behind the label of line `number`; empty behind the end.
std::string behindLabel(const std::vector<std::string>& lines, std::size_t number) {
    constexpr std::size_t label = 6;
    return number < lines.size() && lines[number].size() >= label ? lines[number].substr(label) : std::string();
}

/// The K file as it must be written for the items, but for its first line, which holds the user's memo.
Complaint itemsStandIn(const CodePage& codePage, const Seen& now) {
    const std::vector<std::string> lines = linesOf(now.items);
    const auto items = static_cast<std::size_t>(now.itemTable.itemCount) + 1;
    if (lines.size() != 2 * items + 1 || !lines[0].ends_with(", " + std::to_string(items - 1))) {
        return "item file: " + std::to_string(lines.size()) + " lines for " + std::to_string(items) + " items";
    }
    for (std::size_t i = 0; i < items; ++i) {
        const auto item = static_cast<std::int64_t>(i);
        const Bytes name = codePage.encode(now.itemTable.itemName[item] + u"," + now.itemTable.itemAlign[item]);
        const std::string width = " " + std::to_string(now.itemTable.itemWidth[item]);
        if (behindLabel(lines, 1 + i) != name || behindLabel(lines, 1 + items + i) != width) {
            return "item file: item " + std::to_string(i) + " is not the one in use";
        }
    }
    return std::nullopt;
}

/// A table that the user has given such a name: it has a K file beside it.
bool isTable(const std::filesystem::path& path) {
    const std::string name = path.filename().string();
    return std::filesystem::exists(path.parent_path() / ("K" + name)) ||
           std::filesystem::exists(path.parent_path() / ("k" + name));
}

bool isWorkFile(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name.ends_with(".qqq");
}

} // namespace

Complaint lengthFits(MonkeyDesk& desk) {
    if (!hasTable(desk.zormod) || desk.dialogs.isProgressOpen()) {
        return std::nullopt;
    }
    const std::int64_t length = desk.zormod.files.byNumber[1]->length();
    return length % recordLength == 0 ? std::nullopt : Complaint("file length: " + std::to_string(length));
}

Complaint positionFits(const Seen& now) {
    if (now.table.empty()) {
        return std::nullopt;
    }
    if (now.records.size() % recordLength != 0) {
        return "file length: " + std::to_string(now.records.size());
    }
    const Position& at = now.position;
    if (at.curItem < 0 || at.curItem > now.itemTable.itemCount) {
        return "position: item " + std::to_string(at.curItem) + " of " + std::to_string(now.itemTable.itemCount);
    }
    if (at.curRecord < 1 || at.curRecord > now.recordCount() + 1) {
        return "position: record " + std::to_string(at.curRecord) + " of " + std::to_string(now.recordCount());
    }
    if (at.curRecord < at.windowFirst || at.curRecord >= at.windowFirst + at.windowRows) {
        return "position: record " + std::to_string(at.curRecord) + " outside the window from " +
               std::to_string(at.windowFirst);
    }
    return std::nullopt;
}

Complaint windowShowsTheFile(MonkeyDesk& desk, const Seen& now) {
    // While a width is being chosen, the rows show what it would make of the records.
    if (now.table.empty() || now.taskWord == u"chfln") {
        return std::nullopt;
    }
    const Position& at = now.position;
    for (int row = 1; row <= at.windowRows; ++row) {
        const int number = at.windowFirst + row - 1;
        if (number == at.curRecord || number > now.recordCount()) {
            continue;
        }
        const Bytes& shown = desk.zormod.window.recordWindow[rowSlot(row)];
        if (shown.compare(0, dataLength, now.record(number).substr(0, dataLength)) != 0) {
            return "window: row " + std::to_string(row) + " does not show record " + std::to_string(number);
        }
    }
    return std::nullopt;
}

void takeWidthsOfTheFile(Seen& now) {
    const std::vector<std::string> lines = linesOf(now.items);
    ItemTable& items = now.itemTable;
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        const auto number = static_cast<std::size_t>(items.itemCount + 2 + item);
        items.itemWidth[item] = static_cast<std::int16_t>(std::atoi(behindLabel(lines, number).c_str()));
    }
    computeItemStart(items);
}

Complaint pairIsWhole(const CodePage& codePage, const Seen& now) {
    if (now.table.empty() || now.taskWord == u"chfln") { // widths that are being tried stand in no file yet
        return std::nullopt;
    }
    int bytes = 0;
    for (std::int16_t item = 0; item <= now.itemTable.itemCount; ++item) {
        if (now.itemTable.itemStart[item] != bytes + 1) {
            return "item start: item " + std::to_string(item) + " at " + std::to_string(now.itemTable.itemStart[item]);
        }
        bytes += now.itemTable.itemWidth[item];
    }
    if (bytes > dataLength) {
        return "widths: " + std::to_string(bytes) + " bytes";
    }
    for (int number = 1; number <= now.recordCount(); ++number) {
        // Items that were moved bring half characters together, and such a pair may have another code as well.
        const std::string_view record = now.record(number);
        if (codePage.decode(canonical(codePage, record)) != codePage.decode(record)) {
            return "code: record " + std::to_string(number) + " does not come back as it was";
        }
    }
    return itemsStandIn(codePage, now);
}

Complaint nothingIsLeftBehind(const std::string& folder) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        // The program never makes a hidden folder; the user may.
        const bool isHidden = name.starts_with('.') && !entry.is_directory() && !isTable(entry.path());
        if (isHidden || isWorkFile(name)) {
            return "left behind: " + name;
        }
    }
    return std::nullopt;
}
