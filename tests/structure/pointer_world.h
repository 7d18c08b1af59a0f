#pragma once
// A table of letters with a selected range, for the tests of choosing its target.

#include "structure/task_world.h"

#include <algorithm>

/// Masks compare and print by their four ends.
struct Mask {
    int firstRecord, lastRecord, firstItem, lastItem;
    bool operator==(const Mask&) const = default;
    friend void PrintTo(const Mask& mask, std::ostream* out) {
        *out << mask.firstRecord << ".." << mask.lastRecord << "/" << mask.firstItem << ".." << mask.lastItem;
    }
};

/// A table of six items (0 to 5), three bytes each but the first, and `records` records.
struct PointerWorld : TaskWorld {
    explicit PointerWorld(int records = 6, std::int16_t speechMode = 0) {
        std::vector<std::vector<std::u16string_view>> rows;
        static constexpr std::u16string_view ids[] = {u"r1", u"r2", u"r3", u"r4", u"r5", u"r6", u"r7", u"r8"};
        for (int record = 0; record < records; ++record) {
            rows.push_back({ids[record], u"a", u"b", u"c", u"d", u"e"});
        }
        makeTable("t.txt",
                  {{u"ID", u"L", 4}, {u"甲", u"L", 3}, {u"乙", u"L", 3}, {u"丙", u"L", 3}, {u"丁", u"L", 3}, {u"戊", u"L", 3}},
                  rows);
        openTable("t.txt");
        show(speechMode);
    }
    void selectItems(std::int16_t from, std::int16_t to) { select(3, 1, 6, from, to); }
    void selectRecords(std::int32_t from, std::int32_t to) { select(2, from, to, 0, 5); }
    void selectBlock(std::int32_t fromRecord, std::int32_t toRecord, std::int16_t fromItem, std::int16_t toItem) {
        select(1, fromRecord, toRecord, fromItem, toItem);
    }
    void select(std::int16_t kind, std::int32_t fromRecord, std::int32_t toRecord, std::int16_t fromItem,
                std::int16_t toItem) {
        zormod.selection = {kind, fromRecord, toRecord, fromItem, toItem, 0};
    }
    PointerChoice& choice() { return routines.pointer; }
    /// A key down in the key box of the form.
    void press(const KeyStroke& stroke) {
        later();
        choice().keyDown(stroke);
    }
    void press(Key key) { press(plainKey(key)); }
    /// A key that asks, and the answer to it.
    void ask(const KeyStroke& stroke, const Text& answer) {
        dialogs.texts.push_back(answer);
        press(stroke);
    }
    std::string line() { return utf8(choice().line()); }
    int pointer() const { return zormod.selection.moveAnchor; }
    std::pair<int, int> place() const { return {zormod.position.curRecord, zormod.position.curItem}; }
    bool isOpen() const { return forms.isLoaded(u"frmMSSG"); }
    Mask mask(MaskKind kind) {
        const auto found = screen.masks.find(kind);
        if (found == screen.masks.end()) {
            return {};
        }
        const CellRange& range = found->second;
        return {range.firstRecord, range.lastRecord, range.firstItem, range.lastItem};
    }
    /// The first letters of each record on the disk.
    std::string ids() {
        const std::string bytes = bytesOf("t.txt");
        std::string found;
        for (std::size_t at = 0; at + 256 <= bytes.size(); at += 256) {
            found += bytes.substr(at, 2) + " ";
        }
        return found;
    }
    std::string row(int record) { return bytesOf("t.txt").substr(static_cast<std::size_t>(record - 1) * 256, 19); }
    /// Nothing is left of the choice.
    void expectOver() {
        EXPECT_EQ(task(), "");
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(zormod.selection.selectionKind, 0);
        EXPECT_TRUE(screen.masks.empty());
        EXPECT_EQ(screen.focus, PanelField::txtinputbox);
    }
};
