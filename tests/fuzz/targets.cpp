#include "fuzz/targets.h"

#include "edit/range_list.h"
#include "platform/failure.h"
#include "platform/number_picture.h"
#include "platform/number_text.h"
#include "platform/text_picture.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "structure/clip_paste.h"
#include "structure/design_reference.h"
#include "support/test_world.h"
#include "transform/width_conversion.h"
#include "voice/reading_mode.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace {

constexpr int manyMessages = 1 << 30;

/// A reader's promise.
void mustHold(bool promise) {
    if (!promise) {
        std::abort();
    }
}

/// One world for all inputs: making one takes longer than reading one.
TestWorld& world() {
    static TestWorld made;
    made.dialogs.expectedMessages = manyMessages;
    made.dialogs.messages.clear();
    made.clipboard.written.clear();
    return made;
}

const CodePage& codePage() { return world().codePage; }

/// Runs a reader that may fail in the program's own way, and in no other.
void mayFail(const std::function<void()>& reader) {
    try {
        reader();
    } catch (const RuntimeFailure&) {
        // Told to the user by the guard around the handlers.
    }
}

void readCodePage(BytesView bytes) {
    const Text text = codePage().decode(bytes);
    const Bytes again = codePage().encode(text);
    // Characters that have two codes come back under the accepted one: other bytes, never more or fewer.
    mustHold(again.size() == bytes.size());
    // A half character may form a new one with the other code of its neighbour.
    mustHold(codePage().decode(again) == text || std::any_of(text.begin(), text.end(), isCarriedByte));
    mustHold(codePage().byteLength(text) == bytes.size());
    Text units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 | static_cast<unsigned char>(bytes[i + 1]));
    }
    mustHold(codePage().byteLength(units) == codePage().encode(units).size());
}

/// The readers of one item definition file; the table has its own rows to be read by whatever it says.
void readItemFiles(BytesView bytes) {
    TestWorld& here = world();
    ZORMOD& zormod = here.zormod;
    here.writeFile("kt.txt", bytes);
    here.writeFile("t.txt", Bytes(3 * recordLength, 'x'));
    const Text path = zormod.file.programFolder + u"t.txt";
    const Text name = path.substr(2);
    const Text drive = path.substr(0, 1);
    if (readItemFile(zormod, name, drive).empty()) {
        zormod.file.fileName = name;
        zormod.file.fileDrive = drive;
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
    mayFail([&] { static_cast<void>(readItemFileToDesign(design, name, drive)); });
    mustHold(!design.rows.empty());
    closeAllFiles(zormod);
    zormod.file.fileName.clear();
}

void readSettings(BytesView bytes) {
    ZORMOD& zormod = world().zormod;
    world().writeFile("zorTalk", bytes);
    readZorTalk(zormod);
    mustHold(zormod.speech.speechMode >= 0 && zormod.speech.speechMode <= 2);
}

/// The text up to the first line end is a number or a text, what follows a picture.
void readNumbers(BytesView bytes) {
    const Text text = codePage().decode(bytes);
    const std::size_t end = text.find(u'\n');
    const Text number = text.substr(0, end);
    const Text picture = end == Text::npos ? Text() : text.substr(end + 1);
    mayFail([&] { static_cast<void>(Format(Val(number), picture)); });
    mayFail([&] { static_cast<void>(Format(static_cast<float>(Val(number)), picture)); });
    mayFail([&] { static_cast<void>(Format(typedNumber(number), picture)); });
    mayFail([&] { static_cast<void>(Str(Val(number))); });
    mayFail([&] { static_cast<void>(roundTo16(Val(number))); });
    static_cast<void>(Format(TextView(number), picture));
    const Text half = toHalfWidth(number);
    mustHold(toHalfWidth(half) == half);
}

/// A file of that name beside a table, found at its opening: whatever it holds, the table keeps its records.
void openBeside(BytesView bytes, const char* name) {
    TestWorld& here = world();
    ZORMOD& zormod = here.zormod;
    const std::string records(5 * recordLength, 'a');
    const std::string items = "100  ' 0,memo,, 0\r\n1000 'ID,L\r\n2000 ' 4\r\n";
    here.writeFile("t.txt", records);
    here.writeFile("kt.txt", items);
    here.writeFile(name, bytes);
    const Text path = zormod.file.programFolder + u"t.txt";
    mayFail([&] { recoverTable(zormod, path.substr(2), path.substr(0, 1)); });
    // A record of ours knows the whole old table; made-up bytes never do.
    mustHold(here.bytesOf("t.txt") == records && here.bytesOf("kt.txt") == items);
}

void readSwapRecord(BytesView bytes) { openBeside(bytes, ".swap-t.txt"); }
void readChangeJournal(BytesView bytes) { openBeside(bytes, ".change-t.txt"); }

/// What the table of readItemFiles's world needs for a paste; its rows are put back before each.
void paste(BytesView bytes, const char* name, void (*operation)(ZORMOD&)) {
    TestWorld& here = world();
    ZORMOD& zormod = here.zormod;
    here.writeFile("t.txt", Bytes(5 * recordLength, 'a'));
    here.writeFile("kt.txt", "100  ' 0,memo,, 1\r\n1000 'ID,L\r\n1001 'x,R\r\n2000 ' 4\r\n2001 ' 8\r\n");
    here.writeFile(name, bytes);
    const Text path = zormod.file.programFolder + u"t.txt";
    zormod.file.fileName = path.substr(2);
    zormod.file.fileDrive = path.substr(0, 1);
    mustHold(readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty());
    openDataFile(zormod);
    fillFirstWindow(zormod);
    zormod.position.curRecord = 2;
    here.dialogs.answers = {Answer::ok};
    mayFail([&] { operation(zormod); });
    here.dialogs.closeProgress();
    here.dialogs.answers.clear();
    closeAllFiles(zormod);
    zormod.files.tableLock.reset();
    zormod.file.fileName.clear();
    // Pasting never takes a record away, and every record that it writes is whole.
    const std::string now = here.bytesOf("t.txt");
    mustHold(now.size() >= 5U * recordLength && now.size() % recordLength == 0);
}

void readClipFile(BytesView bytes) {
    paste(bytes, "ZORCLip", pasteOver);
    paste(bytes, "ZORCLip", pasteInsert);
}
void readClipBackup(BytesView bytes) { paste(bytes, "ZORCLip.bak", undoPaste); }

void readRangeList(BytesView bytes) {
    Text text = codePage().decode(bytes);
    Text checked = text;
    const bool isValid = checkRangeList(checked, RangeListKind::records, 1000).empty();
    while (const auto block = nextRangeBlock(text)) {
        mustHold(block->first <= block->last);
        mustHold(!isValid || (block->first >= 1 && block->last <= 1000));
    }
    mustHold(text.empty());
}

} // namespace

const std::vector<FuzzTarget>& fuzzTargets() {
    static const std::vector<FuzzTarget> all = {
        {"code_page", readCodePage},       {"item_file", readItemFiles},   {"settings", readSettings},
        {"numbers", readNumbers},          {"swap_record", readSwapRecord}, {"change_journal", readChangeJournal},
        {"clip_file", readClipFile},       {"clip_backup", readClipBackup}, {"range_list", readRangeList},
    };
    return all;
}
