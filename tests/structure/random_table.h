#pragma once
// Tables of random items and records in memory, by which operations are compared with what they are to do, byte for byte.

#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/memory_files.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

/// A shared state whose files stand in memory, and what its table "t.txt" was made of.
struct RandomTable : TestWorld {
    struct MadeItem {
        std::string name;
        std::string align;
        int width;
    };

    /// At most `mostItems` items beside item 0 and at most `mostRecords` records.
    RandomTable(unsigned seed, int mostItems, int mostRecords)
        : random(seed), copy(Platform{clipboard, clock, beeper, memory, codePage, dialogs, screen, commands, forms,
                                      eventLoop, printer}) {
        int room = 254;
        const int count = between(0, mostItems);
        for (int item = 0; item <= count; ++item) {
            const int width = std::min(room, between(0, 7) == 0 ? 0 : between(1, 12));
            room -= width;
            static constexpr const char* aligns[] = {"L", "R", "L", "R", "x"};
            items.push_back({"n" + std::to_string(between(0, 99)), aligns[between(0, 4)], width});
        }
        const int n = between(0, mostRecords);
        for (int record = 0; record < n; ++record) {
            records.push_back(randomRecord());
        }
        tail = between(0, 3) == 0 ? "tail" : "";
        memory.replaceWhole(u"C:\\Kt.txt", itemFile(items));
        memory.replaceWhole(u"C:\\t.txt", joined() + tail);
        copy.file.fileDrive = u"C";
        copy.file.fileName = u"\\t.txt";
        EXPECT_EQ(readItemFile(copy, copy.file.fileName, copy.file.fileDrive), Text());
        openDataFile(copy);
        fillFirstWindow(copy);
    }

    int between(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }
    std::int16_t anyItem() { return static_cast<std::int16_t>(between(0, static_cast<int>(items.size()) - 1)); }
    int count() const { return static_cast<int>(records.size()); }
    /// First byte of an item in the record, 0-based.
    std::size_t startOf(std::size_t item) const {
        std::size_t start = 0;
        for (std::size_t i = 0; i < item; ++i) {
            start += static_cast<std::size_t>(items[i].width);
        }
        return start;
    }
    std::size_t widthOf(std::size_t item) const { return static_cast<std::size_t>(items[item].width); }

    std::string joined() const {
        std::string bytes;
        for (const std::string& record : records) {
            bytes += record;
        }
        return bytes;
    }
    std::string dataNow() const { return memory.bytesOf(u"C:\\t.txt"); }
    std::string itemsNow() const { return memory.bytesOf(u"C:\\Kt.txt"); }

    /// The K file of such items, in ASCII but for the names.
    static std::string itemFile(const std::vector<MadeItem>& made) {
        std::string text = "100  ' 0,memo,, " + std::to_string(made.size() - 1) + "\r\n";
        for (std::size_t i = 0; i < made.size(); ++i) {
            text += std::to_string(1000 + i) + " '" + made[i].name + "," + made[i].align + "\r\n";
        }
        for (std::size_t i = 0; i < made.size(); ++i) {
            text += std::to_string(2000 + i) + " ' " + std::to_string(made[i].width) + "\r\n";
        }
        return text;
    }

    std::mt19937 random;
    MemoryFiles memory;
    ZORMOD copy; ///< the shared state of the tests
    std::vector<MadeItem> items;
    std::vector<std::string> records; ///< 256 bytes each
    std::string tail;

private:
    /// Letters, blanks, double-byte characters, halves of them, and now and then a line end where none belongs.
    std::string randomRecord() {
        static const std::vector<std::string> pieces = {" ",    "  ",       "a",        "7",        "\x82\xA0", "\x8E\x52",
                                                        "\x93", "\x83\x5C", "\x81\x40", "\xB1",     "       ",  "xyz"};
        std::string record;
        while (record.size() < 254) {
            record += pieces[static_cast<std::size_t>(between(0, static_cast<int>(pieces.size()) - 1))];
        }
        record.resize(254);
        if (between(0, 5) == 0) {
            record.replace(static_cast<std::size_t>(between(0, 252)), 2, "\r\n");
        }
        return record + (between(0, 9) == 0 ? "  " : "\r\n");
    }
};
