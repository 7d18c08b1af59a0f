#pragma once
// The shared state of the program. There is exactly one ZORMOD, made in main and handed down by reference; every form
// and routine reads and changes it directly. It holds values only: no work is hidden behind any of them.

#include "platform/checked_array.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/text.h"

#include <array>
#include <cstdint>
#include <memory>
#include <variant>

/// Length of a record on file in bytes: 254 data bytes, CR, LF.
inline constexpr int recordLength = 256;
/// Data bytes of a record.
inline constexpr int dataLength = 254;
/// The highest item number a table may have.
inline constexpr int highestItem = 254;
/// Entries of the item arrays; index 0 to 255.
inline constexpr int itemEntries = 256;
/// Slots of the record window, scratch slots 0 and 1 included.
inline constexpr int windowSlots = 102;

/// The items of a table. Entries past `itemCount` have no meaning, except that `itemWidth` is 0 there for the open
/// table. Item 0 is the ID item.
struct ItemTable {
    std::int16_t itemCount = 0; ///< the highest item number
    CheckedArray<Text, itemEntries> itemName;
    CheckedArray<Text, itemEntries> itemAlign; ///< "L" or "R", but a file may hold anything
    CheckedArray<std::int16_t, itemEntries> itemWidth; ///< bytes
    CheckedArray<std::int16_t, itemEntries> itemWidthAsRead; ///< the width as the item definition file has it
    CheckedArray<std::int16_t, itemEntries> itemStart; ///< first byte of the item in the record, 1-based
    CheckedArray<std::int16_t, itemEntries> itemInputMark; ///< 1: takes input while `allItemsInput` is 0
};

/// Which files the program works on. A full path is drive + ":" + name.
struct FileIdentity {
    Text fileName; ///< path of the open data file without drive and colon, beginning with "\"; empty without a table
    Text fileDrive; ///< one letter
    Text otherFileName; ///< the second file: target of an output, or a file looked at
    Text otherFileDrive;
    Text programFolder; ///< the folder the program was started in, ending in "\"
    Text tableMemo;
};

/// Where the user stands.
struct Position {
    std::int32_t curRecord = 1; ///< from 1; may be one past the last record
    std::int16_t curItem = 0; ///< 0..itemCount
    std::int32_t windowFirst = 1; ///< record number of the window's first row
    std::int16_t windowRows = 20; ///< rows in the window
};

/// The cache of records. Slots 0 and 1 are scratch; row j (from 1) is slot j + 1 and holds record windowFirst + j - 1.
/// Every slot holds exactly `recordLength` bytes; a shorter record is filled up with blanks.
struct RecordWindow {
    RecordWindow() { recordWindow.fill(Bytes(recordLength, ' ')); }
    CheckedArray<Bytes, windowSlots> recordWindow;
    const Bytes blankLine = Bytes(dataLength, ' ');
    const Bytes slashLine = Bytes(dataLength, '/');
    std::int32_t unsureRecord = 0; ///< the record whose last write failed: what reads back of it may not be on the disk
    std::array<char, recordLength> cellBuffer{}; ///< shared by readRecord and writeRecord, keeps the last record read
};

/// The selected range.
struct Selection {
    std::int16_t selectionKind = 0; ///< 0 none, 1 block, 2 whole records, 3 whole items
    std::int32_t selRecordFrom = 0;
    std::int32_t selRecordTo = 0;
    std::int16_t selItemFrom = 0;
    std::int16_t selItemTo = 0;
    std::int32_t moveAnchor = 0; ///< the record or item that a move or a copy points at
};

/// What governs typing.
struct InputState {
    std::int16_t allItemsInput = 1; ///< 1: Enter walks all items; 0: only those with `itemInputMark` 1
    std::int16_t inputLimit = 0; ///< bytes; 0 means the item's width
    std::int16_t idAutoOn = 0; ///< 1: new records get a number as their ID
    float idAutoValue = 0; ///< the number the current record gets
    std::int16_t pinnedItem = -1; ///< item shown permanently, -1 none
};

/// How the sheet is shown.
struct DisplayState {
    std::int16_t viewMode = 0; ///< 0 standard sheet, 1 card, 2 grid
};

/// The speech channel.
struct SpeechState {
    std::int16_t speechMode = 0; ///< 0 off, 1 data only, 2 with record and item number
    double lastSpokenTime = 0; ///< clock at the last utterance that passed the throttle
    double inhibitSeconds = 0.2; ///< a text within this time of the last one is dropped
    Text speechMark = u"。｡."; ///< ends every text that is to be spoken, and tells our own texts on the clipboard
    Text userClipboard; ///< the user's own clipboard text
    std::int16_t pinnedAutoRead = 0; ///< 1: cell readings add the pinned item
};

/// Results that dialogs leave for their callers.
struct SharedResults {
    std::int16_t msgAnswer = 0; ///< button of the last question: 1 OK, 2 cancel, 6 yes, 7 no
    CheckedArray<std::variant<double, Text>, 31> answers; ///< element 0 is also the stop flag of the long loops
};

/// The open files by number: 1 the data file, 2 to 4 what an operation has in hand.
struct OpenFiles {
    CheckedArray<std::unique_ptr<RandomFile>, 5> byNumber; ///< element 0 is not used
    std::unique_ptr<TableLock> tableLock; ///< our claim on the open table; outlives every close and reopen of file 1
};

/// The one shared state.
struct ZORMOD {
    explicit ZORMOD(const Platform& world) : platform(world) {}
    ZORMOD(const ZORMOD&) = delete;
    ZORMOD& operator=(const ZORMOD&) = delete;

    Platform platform;
    ItemTable items; ///< the open table
    ItemTable otherItems; ///< a second file's items: `otherItemName` and its companions
    FileIdentity file;
    Position position;
    RecordWindow window;
    Text taskWord; ///< the operation in progress; empty: none
    Selection selection;
    InputState input;
    DisplayState display;
    SpeechState speech;
    SharedResults results;
    OpenFiles files;
    Text writeFlag; ///< "er" after a failed write of an item definition file
};

/// True if a table is open.
inline bool hasTable(const ZORMOD& zormod) { return zormod.files.byNumber[1] != nullptr; }
