#pragma once
// A TestWorld with the edit screen's logic on top, worked by keys as a user works it: each key is a key down, a
// character and a change where they get that far, and a key up.

#include "edit/input_box.h"
#include "edit/status_update.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

struct EditWorld : TestWorld {
    EditWorld() {
        connectPositionBoxes(edit);
        screen.onShowCurrentCell = [this] { showCurrentCell(edit); };
    }

    /// Opens a table of the items ID (4, left), 氏名 (10, left), 年齢 (3, right) and of `records`, speech as wanted.
    void people(const std::vector<std::vector<std::u16string_view>>& records, std::int16_t speechMode = 0) {
        table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}}, records);
        show(speechMode);
    }
    /// The same with `count` records that hold their number in the name.
    void numbered(int count, std::int16_t speechMode = 0) {
        table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}}, {});
        std::string bytes;
        for (int record = 1; record <= count; ++record) {
            std::string row(254, ' ');
            row.replace(4, 1 + std::to_string(record).size(), "n" + std::to_string(record));
            bytes += row + "\r\n";
        }
        writeFile("t.txt", bytes);
        openTable("t.txt");
        show(speechMode);
    }
    /// Shows the table that has been opened.
    void show(std::int16_t speechMode = 0) {
        showOpenedTable(edit);
        zormod.speech.speechMode = speechMode;
        forget();
    }
    /// Forgets what was said, beeped and shown so far, and lets time pass.
    void forget() {
        clipboard.written.clear();
        beeper.count = 0;
        screen.focusCalls = 0;
        screen.redraws = 0;
        commands.names.clear();
        later();
    }

    /// The box as the toolkit would show it, caret at the end.
    BoxView view() const {
        const Text& text = edit.txtinputbox.text();
        const int end = static_cast<int>(text.size());
        return {.text = text, .caret = end, .selectionStart = end, .selectionLength = 0};
    }
    KeyOutcome down(const KeyStroke& stroke) { return box.keyDown(stroke); }
    void up(const KeyStroke& stroke) { box.keyUp(stroke, view()); }
    KeyOutcome press(const KeyStroke& stroke) {
        const KeyOutcome outcome = down(stroke);
        up(stroke);
        return outcome;
    }
    KeyOutcome press(Key key) { return press(plainKey(key)); }
    /// A key that puts a character at the end of the box.
    void type(char16_t character, Key key = Key::other) {
        if (down(plainKey(key)) == KeyOutcome::goesOn && box.keyPress(character) == KeyOutcome::goesOn) {
            box.change(edit.txtinputbox.text() + character);
        }
        up(plainKey(key));
    }
    void type(TextView text) {
        for (const char16_t character : text) {
            type(character);
        }
    }
    void space() { type(u' ', Key::space); }
    void enter() { type(u'\r', Key::enter); }
    /// Puts the current cell somewhere, as a click in the view does.
    void stand(std::int32_t record, std::int16_t item) {
        zormod.position.curItem = item;
        zormod.position.curRecord = record;
        refillWindow(zormod, record);
        const std::int16_t mode = zormod.speech.speechMode;
        zormod.speech.speechMode = 0;
        showCurrentCell(edit);
        zormod.speech.speechMode = mode;
        forget();
    }

    std::string typed() const { return utf8(edit.txtinputbox.text()); }
    std::int32_t record() const { return zormod.position.curRecord; }
    int item() const { return zormod.position.curItem; }
    /// The cell in the window, blanks kept, as UTF-8.
    std::string cell(std::int16_t number) const { return utf8(getCell(zormod, number)); }
    /// Bytes 1 to `count` of a record on the disk.
    std::string onDisk(int record, std::size_t count = 17) const {
        const std::string bytes = bytesOf("t.txt");
        const std::size_t at = static_cast<std::size_t>(record - 1) * 256;
        return at < bytes.size() ? bytes.substr(at, count) : "";
    }
    std::size_t recordsOnDisk() const { return bytesOf("t.txt").size() / 256; }
    std::vector<std::string> commandsRun() const { return utf8(commands.names); }

    EditScreen edit{zormod};
    InputBox box{edit};
};

/// The edit screen on a table of numbered records.
struct NumberedWorld : EditWorld {
    /// Where the current cell is.
    struct Place {
        std::int32_t record;
        std::int16_t item;
    };
    explicit NumberedWorld(int records, Place place = {1, 0}, std::int16_t speechMode = 0) {
        numbered(records, speechMode);
        stand(place.record, place.item);
    }
};

using Spoken = std::vector<std::string>;
