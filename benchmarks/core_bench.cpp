// Figures of the core on real files, everything else doubles. Each line says what is measured:
//   open       K file, claim, data file and window of a table, median of 200; a large table against a small one
//   down       key Down in the input box on an unchanged row, window of 20 rows, speech on; per key, both table sizes
//   commit     a changed row made durable, against a bare pwrite + fdatasync of the same 256 bytes in the same file
//   voice      the name of a character, the wording of a change

#include "app/entry.h"
#include "edit/input_box.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "measure.h"
#include "sheet/cell.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/test_world.h"
#include "table_generator.h"
#include "voice/character_names.h"
#include "voice/typing_reading.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::int64_t smallTable = 10000;
constexpr std::int64_t largeTable = 1000000;
constexpr int openings = 200;
constexpr int keys = 2000;
constexpr int writes = 300;

/// A world whose table "t.txt" has `records` records, and the edit screen on it.
struct BenchWorld : TestWorld {
    explicit BenchWorld(std::int64_t records) : edit(zormod), box(edit) {
        connectPositionBoxes(edit);
        generateTable(folder.path(), "t.txt", records);
        enterProgram(zormod);
    }
    void open() { openFromCommandLine(edit, u"t.txt"); }
    EditScreen edit;
    InputBox box;
};

double openingTime(BenchWorld& world) {
    std::vector<double> samples;
    for (int i = 0; i < openings; ++i) {
        samples.push_back(microseconds([&] { world.open(); }));
    }
    return median(samples);
}

double downTime(BenchWorld& world) {
    world.open();
    std::vector<double> samples;
    for (int i = 0; i < keys; ++i) {
        world.later();
        samples.push_back(microseconds([&] { world.box.keyDown(plainKey(Key::down)); }));
    }
    return median(samples);
}

/// Rewrites records with other bytes, once through the program and once bare, each on a page of its own and turn about
/// which comes first, so that both meet the disk in the same mood.
double commitRatio(BenchWorld& world) {
    world.open();
    ZORMOD& zormod = world.zormod;
    const std::string path = world.folder.path() + "/t.txt";
    const int bare = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    constexpr int recordsApart = 64;
    std::vector<double> ours;
    std::vector<double> theirs;
    // The same before both: how long a disk has rested decides how soon it answers.
    const auto change = [&](int record) {
        zormod.position.curRecord = record;
        refillWindow(zormod, record);
        setSlotCell(zormod, currentSlot(zormod), u"changed", 1);
    };
    const auto writeOurs = [&](int record) {
        change(record);
        ours.push_back(microseconds([&] { commitRecord(zormod); }));
    };
    const auto writeBare = [&](int record) {
        change(record);
        const Bytes row = endedRecord(zormod.window.recordWindow[currentSlot(zormod)]);
        theirs.push_back(microseconds([&] {
            if (pwrite(bare, row.data(), row.size(), static_cast<off_t>(record - 1) * recordLength) < 0 ||
                fdatasync(bare) != 0) {
                std::perror("bench");
            }
        }));
    };
    for (int i = 0; i < writes; ++i) {
        const int record = 100 + 2 * i * recordsApart;
        if (i % 2 == 0) {
            writeOurs(record);
            writeBare(record + recordsApart);
        } else {
            writeBare(record + recordsApart);
            writeOurs(record);
        }
    }
    close(bare);
    std::printf("%-74s %10.2f us\n", "commit: pwrite + fdatasync of a record, median", median(theirs));
    return median(ours) / median(theirs);
}

bool voiceTimes(BenchWorld& world) {
    const Text characters = u"aA5ａＡ５あアｱ;!～ー漢";
    constexpr int rounds = 20000;
    std::size_t length = 0;
    const double names = microseconds([&] {
        for (int i = 0; i < rounds; ++i) {
            length += charReading(TextView(characters).substr(static_cast<std::size_t>(i) % characters.size(), 1)).size();
        }
    });
    const Text before = u"山田太郎東京都";
    const Text now = u"山田太郎東京都港";
    const double changes = microseconds([&] {
        for (int i = 0; i < rounds; ++i) {
            length += describeInputChange(world.zormod, before, now).size();
        }
    });
    const bool names_ok = report("voice: charReading, per call", names / rounds, "us", 2);
    return report("voice: describeInputChange, per call", changes / rounds, "us", 2) && names_ok && length > 0;
}

} // namespace

int main() {
    BenchWorld small(smallTable);
    BenchWorld large(largeTable);
    sync(); // the tables just made shall not be on their way to the disk meanwhile
    bool kept = report("open: 1,000,000 records against 10,000, median of 200", openingTime(large) / openingTime(small),
                       "x", 1.2);
    const double downSmall = downTime(small);
    const double downLarge = downTime(large);
    kept = report("down: one key on an unchanged row, 10,000 records", downSmall, "us", 50) && kept;
    kept = report("down: one key on an unchanged row, 1,000,000 records", downLarge, "us", 50) && kept;
    kept = report("down: 1,000,000 records against 10,000", downLarge / downSmall, "x", 1.2) && kept;
    kept = report("commit: a changed row against pwrite + fdatasync", commitRatio(large), "x", 1.3) && kept;
    kept = voiceTimes(large) && kept;
    return kept ? 0 : 1;
}
