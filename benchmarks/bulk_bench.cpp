// Figures of the rewrite of a whole table of 1,000,000 records, real files, everything else doubles:
//   bare       the same bytes written in large blocks, fsync, rename
//   bulk       the rewrite that copies every record: read, put right, write, swap; against the bare write just before it,
//              median of the turns
//   items      the same with a new item definition file

#include "measure.h"
#include "platform/posix/turn_clock.h"
#include "sheet/bulk_rewrite.h"
#include "support/test_world.h"
#include "table_generator.h"

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::int64_t records = 1000000;
constexpr int rounds = 9;
constexpr std::size_t blockLength = 1 << 20;

/// Gives a turn at the times at which the real event loop does.
class TimedEventLoop : public EventLoop {
public:
    void yield() override {
        if (clock_.isDue()) {
            clock_.restart();
            ++turns;
        }
    }
    int turns = 0;

private:
    TurnClock clock_;
};

void bareWrite(const std::string& folder, const Bytes& table) {
    const std::string work = folder + "/bare.tmp";
    const int file = ::open(work.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0) {
        giveUp("open");
    }
    for (std::size_t at = 0; at < table.size(); at += blockLength) {
        const BytesView block = BytesView(table).substr(at, blockLength);
        if (write(file, block.data(), block.size()) != static_cast<ssize_t>(block.size())) {
            giveUp("write");
        }
    }
    if (fsync(file) != 0 || close(file) != 0 || rename(work.c_str(), (folder + "/bare.txt").c_str()) != 0) {
        giveUp("fsync");
    }
}

double rewriteTime(ZORMOD& zormod, const BulkJob& job) {
    return microseconds([&] {
        if (bulkRewrite(zormod, job, [](BulkRun& run) { run.copy(1, run.records()); }) != BulkEnd::done) {
            giveUp("bulkRewrite");
        }
    });
}

} // namespace

int main() {
    TestWorld world;
    TimedEventLoop turns;
    ZORMOD zormod(Platform{world.clipboard, world.clock, world.beeper, world.files, world.codePage, world.dialogs,
                           world.screen, world.commands, world.forms, turns, world.printer});
    zormod.file.programFolder = world.zormod.file.programFolder;
    openGeneratedTable(zormod, world.folder.path(), records);
    const Bytes table = world.bytesOf("t.txt");
    sync();

    std::vector<double> bare;
    std::vector<double> withItems;
    std::vector<double> againstBare;
    for (int i = 0; i < rounds; ++i) {
        bare.push_back(microseconds([&] { bareWrite(world.folder.path(), table); }));
        againstBare.push_back(rewriteTime(zormod, {.name = u"n"}) / bare.back());
        zormod.otherItems = zormod.items;
        withItems.push_back(rewriteTime(zormod, {.name = u"n", .items = BulkItems::other}));
    }
    std::printf("%-74s %10.2f ms\n", "bulk: bare write, fsync and rename of 256 MB", median(bare) / 1000);
    bool kept = report("bulk: rewrite of 1,000,000 records against the bare write", median(againstBare), "x", 1.2);
    kept = report("bulk: with a new item definition file against the bare write", median(withItems) / median(bare),
                  "x", 2.5) && kept;
    return kept && turns.turns > 0 && world.bytesOf("t.txt") == table ? 0 : 1;
}
