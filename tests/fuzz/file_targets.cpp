// The files of a table, and the others that lie in the user's folder.

#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_world.h"
#include "fuzz/target_groups.h"

#include "edit/input_box.h"
#include "edit/status_update.h"
#include "output/print_text.h"
#include "output/text_viewer.h"
#include "platform/code_page.h"
#include "platform/letter_case.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "structure/clip_paste.h"
#include "structure/design_reference.h"
#include "voice/reading_mode.h"

#include <algorithm>
#include <array>

namespace {

/// Names the table "t.txt" of the folder.
void nameTable(ZORMOD& zormod) {
    const Text path = zormod.file.programFolder + u"t.txt";
    zormod.file.fileName = path.substr(2);
    zormod.file.fileDrive = path.substr(0, 1);
}

/// Opens that table, whose K file is a good one.
void openTable(ZORMOD& zormod) {
    nameTable(zormod);
    mustHold(readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty());
    openDataFile(zormod);
    fillFirstWindow(zormod);
}

/// The readers of one item definition file; the table has its own rows to be read by whatever it says.
void readItemFiles(BytesView bytes) {
    TestWorld& here = freshWorld();
    ZORMOD& zormod = here.zormod;
    here.writeFile("kt.txt", bytes);
    here.writeFile("t.txt", Bytes(3 * recordLength, 'x'));
    nameTable(zormod);
    const Text name = zormod.file.fileName;
    const Text drive = zormod.file.fileDrive;
    if (readItemFile(zormod, name, drive).empty()) {
        openDataFile(zormod);
        fillFirstWindow(zormod);
        for (std::int16_t item = 0; item <= zormod.items.itemCount; ++item) {
            setSlotCell(zormod, currentSlot(zormod), getCell(zormod, item), item);
        }
        // What was read and written again reads the same.
        const ItemTable read = zormod.items;
        const Bytes written = itemFileBytes(zormod, read, read.itemCount);
        here.writeFile("kt.txt", written);
        mustHold(readItemFile(zormod, name, drive).empty());
        mustHold(zormod.items.itemCount == read.itemCount || zormod.file.tableMemo.find(u',') != Text::npos);
    }
    closeAllFiles(zormod);
    here.writeFile("kt.txt", bytes);
    static_cast<void>(readOtherItemFile(zormod, name, drive));
    TableDesign design(zormod);
    static_cast<void>(readItemFileToDesign(design, name, drive));
    mustHold(!design.rows.empty());
    // Reading never writes.
    mustHold(here.bytesOf("kt.txt") == bytes && here.bytesOf("t.txt") == Bytes(3 * recordLength, 'x'));
}

/// Items for records of any bytes: two to the right, one of width 0, and the last ends far ahead of the record's end.
constexpr BytesView fiveItems = "100  ' 0,memo,, 4\r\n"
                                "1000 'ID,L\r\n1001 'x,R\r\n1002 'y,L\r\n1003 'z,R\r\n1004 'w,L\r\n"
                                "2000 ' 4\r\n2001 ' 1\r\n2002 ' 0\r\n2003 ' 10\r\n2004 ' 30\r\n";
constexpr std::ptrdiff_t bytesOfItems = 45;

/// The keys that move or read; none of them changes a cell.
constexpr std::array<KeyStroke, 16> harmlessKeys = {
    plainKey(Key::down),    plainKey(Key::up),       plainKey(Key::left),      plainKey(Key::right),
    plainKey(Key::pageUp),  plainKey(Key::pageDown), ctrlKey(Key::down),       ctrlKey(Key::up),
    ctrlKey(Key::left),     ctrlKey(Key::right),     plainKey(Key::enter),     ctrlKey(Key::pageDown),
    ctrlKey(Key::pageUp),   shiftKey(Key::pageUp),   shiftKey(Key::pageDown),  ctrlShiftKey(Key::pageDown)};

Bytes canonical(const CodePage& codePage, BytesView bytes) {
    Bytes same(bytes);
    codePage.canonicalize(same);
    return same;
}

/// Each cell is the text of its bytes, and these bytes come back from it.
void readAllCells(ZORMOD& zormod, BytesView file) {
    const CodePage& codePage = zormod.platform.codePage;
    for (std::int32_t record = 1; record <= recordCount(zormod); ++record) {
        const BytesView row = file.substr(static_cast<std::size_t>(record - 1) * recordLength, recordLength);
        for (std::int16_t item = 0; item <= zormod.items.itemCount; ++item) {
            const Text cell = getRecordCell(zormod, record, item);
            mustHold(codePage.encode(cell) == canonical(codePage, cellBytes(zormod, row, item)));
        }
    }
}

/// Walks and listens with some of the harmless keys.
void walk(TestWorld& here, BytesView keys) {
    ZORMOD& zormod = here.zormod;
    EditScreen edit(zormod);
    InputBox box(edit);
    connectPositionBoxes(edit);
    here.screen.onShowCurrentCell = [&edit] { showCurrentCell(edit); };
    showOpenedTable(edit);
    zormod.speech.speechMode = 2;
    for (const char choice : keys) {
        const KeyStroke& stroke = harmlessKeys[static_cast<unsigned char>(choice) % harmlessKeys.size()];
        here.later();
        if (box.keyDown(stroke) == KeyOutcome::goesOn && stroke.key == Key::enter) {
            box.keyPress(u'\r');
        }
        box.keyUp(stroke, {});
        mustHold(zormod.position.curRecord >= 1 && zormod.position.curRecord <= recordCount(zormod) + 1);
        mustHold(zormod.position.curItem >= 0 && zormod.position.curItem <= zormod.items.itemCount);
    }
    commitRecord(zormod);
    here.screen.onShowCurrentCell = {};
}

/// True if nothing differs but line ends of whole records, which a record gets when it is left.
bool keepsEveryByte(BytesView before, BytesView now) {
    if (before.size() != now.size()) {
        return false;
    }
    const std::size_t whole = before.size() / recordLength * recordLength;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const std::size_t place = i % recordLength;
        const bool isLineEnd = i < whole && place >= dataLength && now[i] == (place == dataLength ? '\r' : '\n');
        if (now[i] != before[i] && !isLineEnd) {
            return false;
        }
    }
    return true;
}

/// Puts a cell's own text into it: no other record changes, and its own only where a character has two codes or was cut
/// in two.
void putCellBack(TestWorld& here, std::int32_t record, std::int16_t item) {
    ZORMOD& zormod = here.zormod;
    const CodePage& codePage = zormod.platform.codePage;
    const std::string before = here.bytesOf("t.txt");
    zormod.position.curRecord = record;
    zormod.position.curItem = item;
    refillWindow(zormod, record);
    Bytes row = zormod.window.recordWindow[currentSlot(zormod)];
    const Bytes cell(cellBytes(zormod, row, item));
    commitCell(zormod, getCell(zormod, item));
    commitRecord(zormod);
    const std::string now = here.bytesOf("t.txt");
    mustHold(now.size() == before.size());
    const std::size_t at = static_cast<std::size_t>(record - 1) * recordLength;
    const bool isPlain = canonical(codePage, row) == row && canonical(codePage, cell) == cell;
    // What stands behind the last item goes when that is written.
    if (item == zormod.items.itemCount) {
        std::fill(row.begin() + bytesOfItems, row.end(), ' ');
    }
    mustHold(!isPlain || now.substr(at, recordLength) == endedRecord(row));
    mustHold(now.substr(0, at) == before.substr(0, at));
    mustHold(now.substr(at + recordLength) == before.substr(at + recordLength));
}

/// How many keys, the keys, a record and an item, then the data file of an opened table.
void readDataFile(BytesView bytes) {
    constexpr unsigned mostKeys = 64;
    TestWorld& here = freshWorld();
    ZORMOD& zormod = here.zormod;
    FuzzInput input(bytes);
    const BytesView keys = input.bytes(input.byte() % mostKeys);
    const unsigned record = input.byte();
    const unsigned item = input.byte();
    const Bytes file(input.rest());
    here.writeFile("t.txt", file);
    here.writeFile("kt.txt", fiveItems);
    openTable(zormod);
    readAllCells(zormod, file);
    mustHold(here.bytesOf("t.txt") == file);
    walk(here, keys);
    mustHold(keepsEveryByte(file, here.bytesOf("t.txt")));
    if (const auto records = static_cast<unsigned>(recordCount(zormod)); records > 0) {
        putCellBack(here, static_cast<std::int32_t>(record % records + 1),
                    static_cast<std::int16_t>(item % static_cast<unsigned>(zormod.items.itemCount + 1)));
    }
    mustHold(here.dialogs.messages.empty() && here.bytesOf("kt.txt") == fiveItems);
}

void readSettings(BytesView bytes) {
    TestWorld& here = freshWorld();
    here.writeFile("zorTalk", bytes);
    readZorTalk(here.zormod);
    const std::int16_t mode = here.zormod.speech.speechMode;
    mustHold(mode >= 0 && mode <= 2);
    // What was read and written again reads the same.
    writeZorTalk(here.zormod);
    readZorTalk(here.zormod);
    mustHold(here.zormod.speech.speechMode == mode);
}

/// Pastes from the made-up file `name` into five records of two items.
template <typename Operation> void paste(BytesView bytes, const char* name, Operation operation) {
    TestWorld& here = freshWorld();
    ZORMOD& zormod = here.zormod;
    const std::string before(5 * recordLength, 'a');
    here.writeFile("t.txt", before);
    here.writeFile("kt.txt", "100  ' 0,memo,, 1\r\n1000 'ID,L\r\n1001 'x,R\r\n2000 ' 4\r\n2001 ' 8\r\n");
    here.writeFile(name, bytes);
    openTable(zormod);
    zormod.position.curRecord = 2;
    here.dialogs.answers = {Answer::ok};
    bool isDone = false;
    mayFail({FailureKind::file, FailureKind::overflow, FailureKind::subscript}, [&] {
        operation(zormod);
        isDone = true;
    });
    // Pasting never takes a record away, every record that it writes is whole, and a paste that fails is none.
    const std::string now = here.bytesOf("t.txt");
    mustHold(now.size() >= before.size() && now.size() % recordLength == 0);
    mustHold(isDone || now == before);
}

void readClipFile(BytesView bytes) {
    paste(bytes, "ZORCLip", pasteOver);
    paste(bytes, "ZORCLip", pasteInsert);
}
void readClipBackup(BytesView bytes) { paste(bytes, "ZORCLip.bak", undoPaste); }

/// The bytes with every line end as one CR. Neither sign is ever the second byte of a character.
Bytes withCr(BytesView bytes) {
    Bytes same;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool isSecond = bytes[i] == '\n' && i > 0 && bytes[i - 1] == '\r';
        if (!isSecond) {
            same += bytes[i] == '\n' ? '\r' : bytes[i];
        }
    }
    return same;
}

/// The lines of a page hold all of the text but its line ends, and none is wider than the page.
void wrap(const CodePage& codePage, const Text& text, std::size_t columns) {
    Text printed;
    for (const Text& line : wrappedLines(codePage, text, columns)) {
        mustHold(codePage.byteLength(line) <= columns);
        printed += line;
    }
    Text expected = text;
    std::erase(expected, u'\r');
    mustHold(printed == expected);
}

/// A word of the text is found in it, wherever the search begins.
void findLastCharacters(TextViewer& viewer, const Text& text) {
    const Text word = text.substr(text.size() - std::min<std::size_t>(text.size(), 3));
    const int middle = static_cast<int>(text.size() / 2);
    for (const Text& wanted : {word, upperCase(word)}) {
        const auto found = viewer.find(wanted, {.text = text, .caret = middle, .selectionStart = middle});
        mustHold(found.has_value() == !wanted.empty());
        if (found) {
            const auto start = static_cast<std::size_t>(found->start);
            const Text there = text.substr(start, static_cast<std::size_t>(found->length));
            mustHold(upperCase(there) == upperCase(wanted));
        }
    }
}

/// A guide in the program's folder.
void readTextFile(BytesView bytes) {
    TestWorld& here = freshWorld();
    const HelpFile& guide = helpFiles().back();
    const std::string name = utf8(guide.file);
    here.writeFile(name, bytes);
    here.zormod.speech.speechMode = 1;
    TextViewer viewer(here.zormod);
    viewer.showHelp(guide);
    const Text text = viewer.text();
    mustHold(text.find(u'\n') == Text::npos);
    mustHold(here.codePage.encode(text) == canonical(here.codePage, withCr(bytes)));
    mustHold(here.forms.opened.size() == 1 && here.dialogs.messages.empty());
    wrap(here.codePage, text, 2 + bytes.size() % 40);
    findLastCharacters(viewer, text);
    mustHold(here.bytesOf(name) == bytes);
}

} // namespace

void addFileTargets(std::vector<FuzzTarget>& list) {
    list.push_back({"item_file", readItemFiles});
    list.push_back({"data_file", readDataFile});
    list.push_back({"settings", readSettings});
    list.push_back({"clip_file", readClipFile});
    list.push_back({"clip_backup", readClipBackup});
    list.push_back({"text_file", readTextFile});
}
