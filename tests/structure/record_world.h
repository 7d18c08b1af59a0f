#pragma once
// Tables of random bytes for the operations on records and for the clip file, and the short ways to run them.

#include "sheet/item_file.h"
#include "sheet/progress_rounds.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/folder_entries.h"
#include "support/memory_files.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <vector>

/// The records of a file, 256 bytes each.
using Rows = std::vector<std::string>;

inline std::string joinedRows(const Rows& rows) {
    std::string bytes;
    for (const std::string& row : rows) {
        bytes += row;
    }
    return bytes;
}

/// A record as every operation ends it: 254 bytes, CR, LF.
inline std::string ended(std::string row) {
    row.resize(254, ' ');
    return row + "\r\n";
}

/// What tests do with the table "t.txt" of a world that has a shared state `zormod` and knows its files by name.
template <typename World> struct RecordTools {
    /// Opens a table of the items ID (4), name (8), age (3, right) with `count` records that tell their number.
    void numbered(int count) {
        Rows records;
        for (int i = 1; i <= count; ++i) {
            std::string row = std::to_string(i);
            row.resize(4, ' ');
            records.push_back(ended(row + "n" + std::to_string(i)));
        }
        self().rows({{u"ID", u"L", 4}, {u"氏名", u"L", 8}, {u"年齢", u"R", 3}}, records);
    }
    void stand(std::int32_t record, std::int16_t item) {
        self().zormod.position.curRecord = record;
        self().zormod.position.curItem = item;
        refillWindow(self().zormod, record);
    }
    void select(std::int16_t kind, std::int32_t recordFrom, std::int32_t recordTo, std::int16_t itemFrom,
                std::int16_t itemTo) {
        self().zormod.selection = {.selectionKind = kind,
                                   .selRecordFrom = recordFrom,
                                   .selRecordTo = recordTo,
                                   .selItemFrom = itemFrom,
                                   .selItemTo = itemTo};
    }
    std::string data() const { return self().bytesOf("t.txt"); }
    std::string clip() const { return self().bytesOf("ZORCLip"); }
    std::string backup() const { return self().bytesOf("ZORCLip.bak"); }
    /// The records in the file.
    Rows onDisk() const {
        const std::string bytes = data();
        Rows records;
        for (std::size_t at = 0; at + 256 <= bytes.size(); at += 256) {
            records.push_back(bytes.substr(at, 256));
        }
        return records;
    }
    /// First word of each record.
    std::string order() const {
        std::string words;
        for (const std::string& row : onDisk()) {
            words += (words.empty() ? "" : " ") + row.substr(0, row.find(' '));
        }
        return words;
    }

private:
    World& self() { return static_cast<World&>(*this); }
    const World& self() const { return static_cast<const World&>(*this); }
};

/// A world with real files.
struct RecordWorld : TestWorld, RecordTools<RecordWorld> {
    /// Opens a table of these items and of these records, whatever their bytes.
    void rows(const std::vector<Item>& items, const Rows& records, const std::string& tail = "") {
        makeTable("t.txt", items, {});
        writeFile("t.txt", joinedRows(records) + tail);
        openTable("t.txt");
    }
    std::set<std::string> entries() const { return entriesOf(folder.path()); }
    /// The stop button is pressed at the `turn`th turn of the event loop from now on.
    void stopAt(int turn) {
        eventLoop.atTurn[eventLoop.turns + turn] = [this] {
            zormod.results.answers[0] = 1.0;
            dialogs.closeProgress();
        };
    }
    std::vector<std::string> messages() const {
        std::vector<std::string> texts;
        for (const auto& message : dialogs.messages) {
            texts.push_back(utf8(message.title) + "/" + utf8(message.text));
        }
        return texts;
    }
};

/// A world whose files stand in memory, for comparing with a model hundreds of times.
struct QuickWorld : TestWorld, RecordTools<QuickWorld> {
    void rows(const std::vector<Item>& items, const Rows& records, const std::string& tail = "") {
        ZORMOD maker(zormod.platform);
        maker.items.itemCount = static_cast<std::int16_t>(items.size() - 1);
        for (std::size_t i = 0; i < items.size(); ++i) {
            const auto index = static_cast<std::int64_t>(i);
            maker.items.itemName[index] = Text(items[i].name);
            maker.items.itemAlign[index] = Text(items[i].align);
            maker.items.itemWidth[index] = static_cast<std::int16_t>(items[i].width);
        }
        zormod.file.fileDrive = u"C";
        zormod.file.fileName = u"\\t.txt";
        closeAllFiles(zormod);
        writeItemFile(maker, zormod.file.fileName, zormod.file.fileDrive);
        memory.replaceWhole(u"C:\\t.txt", joinedRows(records) + tail);
        EXPECT_EQ(readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive), Text());
        openDataFile(zormod);
        fillFirstWindow(zormod);
    }
    static Text pathOf(const std::string& name) {
        return (name == "t.txt" ? Text(u"C:\\") : Text()) + Text(name.begin(), name.end());
    }
    std::string bytesOf(const std::string& name) const {
        return memory.exists(pathOf(name)) ? memory.bytesOf(pathOf(name)) : std::string();
    }
    /// The item definition file, which the table must have.
    std::string itemFile() const {
        EXPECT_TRUE(memory.exists(u"C:\\kt.txt"));
        return memory.bytesOf(u"C:\\kt.txt");
    }
    void writeFile(const std::string& name, std::string_view bytes) { memory.replaceWhole(pathOf(name), bytes); }

    mutable MemoryFiles memory;
    ZORMOD zormod{Platform{clipboard, clock, beeper, memory, codePage, dialogs, screen, commands, forms, eventLoop,
                           printer}};
};

/// Random bytes of a record: letters, blanks, kana, whole and half characters, whatever a cell's edge may cut.
inline std::string randomRow(std::mt19937& random, std::size_t length, bool withQuotes = false) {
    static const std::vector<std::string> pieces = {" ",        " ",        "a",        "Z9",       "\xB1",     "\x82\xA0",
                                                    "\x8E\x52", "\x93\x63", "\x82",     "\xFA\x5C", "\x81\x5C", "/",
                                                    "\x83\x5C", "\x95\x7C", "\x40\x40", "\x81",     "'",        ";"};
    std::string row;
    while (row.size() < length) {
        row += withQuotes && random() % 12 == 0 ? "\"" : pieces[random() % pieces.size()];
    }
    return row.substr(0, length);
}

/// Items whose widths come to at most `most` bytes.
inline std::vector<TestWorld::Item> randomItems(std::mt19937& random, int most = 254) {
    std::vector<TestWorld::Item> items;
    const std::size_t count = 1 + random() % 9;
    int left = most;
    while (items.size() < count && left > 0) {
        const int width = 1 + static_cast<int>(random() % 12);
        if (width > left) {
            break;
        }
        left -= width;
        items.push_back({u"x", random() % 3 == 0 ? u"R" : u"L", width});
    }
    return items;
}
