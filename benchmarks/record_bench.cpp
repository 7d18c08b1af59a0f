// Figures of the operations on records and of the clip file, on a table of 1,000,000 records, real files, everything else
// doubles:
//   insert, delete, move   of 10 records in the middle, against a copy of the file with fsync, taken in turn; medians
//   clip                   100,000 cells into the clip file, against writing the same bytes as safely: fsync, rename, fsync
//                          of the folder; medians
//   stop                   from the press of the stop button in the middle to the end of the operation; the worst
//   memory                 what the process has grown by after all of them but the clip, which the clipboard holds

#include "measure.h"
#include "sheet/progress_rounds.h"
#include "sheet/record_file.h"
#include "structure/clip_file.h"
#include "structure/record_operations.h"
#include "support/test_world.h"
#include "table_generator.h"
#include "voice/speech_channel.h"

#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr std::int64_t records = 1000000;
constexpr std::int32_t middle = 500000;
constexpr int rounds = 7;
constexpr std::size_t blockLength = 1 << 20;

/// Presses the stop button at a chosen turn and takes the time of it.
class StoppingEventLoop : public EventLoop {
public:
    void yield() override {
        if (stopIn > 0 && --stopIn == 0) {
            pressed = std::chrono::steady_clock::now();
            zormod->results.answers[0] = 1.0;
        }
    }
    ZORMOD* zormod = nullptr;
    int stopIn = 0;
    std::chrono::steady_clock::time_point pressed{};
};

int opened(const std::string& path, int flags) {
    const int file = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (file < 0) {
        giveUp("open");
    }
    return file;
}

void finish(int file) {
    if (fsync(file) != 0 || close(file) != 0) {
        giveUp("fsync");
    }
}

/// What cp does, and fsync.
void copyFile(const std::string& from, const std::string& to) {
    const int in = opened(from, O_RDONLY);
    const int out = opened(to, O_WRONLY | O_CREAT | O_TRUNC);
    std::vector<char> block(blockLength);
    for (ssize_t come = 0; (come = read(in, block.data(), block.size())) > 0;) {
        if (write(out, block.data(), static_cast<std::size_t>(come)) != come) {
            giveUp("write");
        }
    }
    close(in);
    finish(out);
}

/// A file with these bytes in the place of an older one, safely on the disk.
void writeBytes(const std::string& folder, const std::string& bytes) {
    const std::string path = folder + "/clip.tmp";
    const int out = opened(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (write(out, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        giveUp("write");
    }
    finish(out);
    if (std::rename(path.c_str(), (folder + "/clip").c_str()) != 0) {
        giveUp("rename");
    }
    finish(opened(folder, O_RDONLY | O_DIRECTORY));
}

long megabytesUsed() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// Holds the last text, as a clipboard does; the one of the tests remembers all of them.
class PlainClipboard : public Clipboard {
public:
    ClipboardText read() override { return {.ok = true, .text = text_}; }
    bool write(TextView text) override {
        text_ = text;
        return true;
    }
    bool clear() override {
        text_.clear();
        return true;
    }

private:
    Text text_;
};

} // namespace

int main() {
    TestWorld world;
    PlainClipboard clipboard;
    StoppingEventLoop turns;
    ZORMOD zormod(Platform{clipboard, world.clock, world.beeper, world.files, world.codePage, world.dialogs,
                           world.screen, world.commands, world.forms, turns, world.printer});
    turns.zormod = &zormod;
    zormod.file.programFolder = world.zormod.file.programFolder;
    openGeneratedTable(zormod, world.folder.path(), records);
    const std::string table = world.folder.path() + "/t.txt";
    sync();

    struct Operation {
        const char* name;
        std::function<BulkEnd()> run;
        std::vector<double> ratios{};
    };
    std::vector<Operation> operations = {
        {"insert", [&] {
             zormod.position.curRecord = middle;
             return insertRecords(zormod, 10);
         }},
        {"delete", [&] { return deleteRecords(zormod, middle, middle + 9); }},
        {"move", [&] { return moveRecords(zormod, middle, middle + 9, middle / 2); }}};

    const long before = megabytesUsed();
    for (int i = 0; i < rounds; ++i) {
        for (Operation& operation : operations) {
            const double copy = microseconds([&] { copyFile(table, world.folder.path() + "/copy.tmp"); });
            const double own = microseconds([&] {
                if (operation.run() != BulkEnd::done) {
                    giveUp(operation.name);
                }
            });
            operation.ratios.push_back(own / copy);
        }
    }
    double slowestStop = 0;
    for (int i = 0; i < rounds; ++i) {
        for (Operation& operation : operations) {
            turns.stopIn = middle + i * 1000;
            if (operation.run() != BulkEnd::stopped) {
                giveUp("stop");
            }
            const std::chrono::duration<double, std::milli> since = std::chrono::steady_clock::now() - turns.pressed;
            slowestStop = std::max(slowestStop, since.count());
        }
    }
    const long grown = megabytesUsed() - before;

    const auto cellsOf = [&] { return static_cast<std::int32_t>(100000 / (zormod.items.itemCount + 1)); };
    std::vector<double> clip;
    std::vector<double> clipTimes;
    for (int i = 0; i < rounds; ++i) {
        zormod.selection = {2, middle, middle + cellsOf() - 1, 0, zormod.items.itemCount, 0};
        sayText(zormod, u"ｺﾋﾟｰ。"); // as after any key, no longer the last clip
        const double own = microseconds([&] {
            if (!makeClip(zormod)) {
                giveUp("makeClip");
            }
        });
        const std::string bytes = world.bytesOf("ZORCLip");
        clipTimes.push_back(own / 1000);
        clip.push_back(own / microseconds([&] { writeBytes(world.folder.path(), bytes); }));
    }

    bool kept = true;
    for (const Operation& operation : operations) {
        kept = report("records: " + std::string(operation.name) + " 10 of 1,000,000 against a copy of the file",
                      median(operation.ratios), "x", 1.3) && kept;
    }
    kept = report("records: from the stop button to the end, worst", slowestStop, "ms", 50) && kept;
    kept = report("records: growth of the process", static_cast<double>(grown), "MB", 16) && kept;
    std::printf("%-74s %10.2f ms\n", "records: clip of 100,000 cells", median(clipTimes));
    kept = report("records: clip of 100,000 cells against writing its bytes", median(clip), "x", 3) && kept;
    return kept && recordCount(zormod) == records ? 0 : 1;
}
