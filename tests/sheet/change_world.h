#pragma once
// Changes in place on a table whose every record is told apart by its number.

#include "sheet/change_in_place.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "support/faulty_files.h"
#include "support/folder_entries.h"
#include "support/test_world.h"

#include <optional>
#include <set>
#include <string>

/// A row that no other record and no other `version` has.
inline Bytes rowOf(std::int32_t record, char version) {
    Bytes row = std::to_string(record) + version;
    row.resize(dataLength, version);
    return row;
}

/// Record after record as a file holds them.
inline std::string recordsOf(std::int32_t from, std::int32_t to, char version) {
    std::string bytes;
    for (std::int32_t record = from; record <= to; ++record) {
        bytes += endedRecord(rowOf(record, version));
    }
    return bytes;
}

/// A folder with the table "t.txt" and `tail` behind its last record, and a second copy of the program whose files may
/// fail.
struct ChangeWorld : TestWorld {
    explicit ChangeWorld(std::int32_t records = 20, const std::string& tail = "")
        : faulty(files), copy(Platform{clipboard, clock, beeper, faulty, codePage, dialogs, screen, commands, forms,
                                       eventLoop, printer}) {
        makeTable("t.txt", {{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, {});
        before = recordsOf(1, records, 'a') + tail;
        writeFile("t.txt", before);
        openTable("t.txt");
        copy.file = zormod.file;
        openDataFile(copy);
    }

    std::set<std::string> entries() const { return entriesOf(folder.path()); }
    std::string now() const { return bytesOf("t.txt"); }
    /// What every opening of the table does first.
    void recover() { recoverTable(zormod, zormod.file.fileName, zormod.file.fileDrive); }

    FaultyFiles faulty;
    ZORMOD copy;
    std::string before;
};

inline const std::set<std::string> tableAlone = {"kt.txt", "t.txt"};

/// Gives every record of the span its version 'b'.
inline BulkEnd renew(ZORMOD& zormod, RecordSpan span, const Text& name = {}) {
    return changeInPlace(zormod, {.name = name, .spans = {span}}, [&](RecordChanges& run) {
        for (std::int32_t record = span.from; record <= span.to && run.nextRound(); ++record) {
            run.write(record, rowOf(record, 'b'));
        }
    });
}
