// Figures of the operations on items and blocks on a table of 1,000,000 records, real files, everything else doubles:
//   copy       the table copied in large blocks, fsync, rename
//   items      inserting, deleting and moving items, another width, another alignment; against the copy in the same turn, median of the turns
//   clear      clearing one item of 100,000 records: clip file, journal, table; against a copy of 100,000 records
//   screenful  a block of 20 records copied within the table; against the durable write of one record, which is what
//              leaving a row costs
//   memory     by how much the highest use of memory has grown since the table was opened: by the operations on items, and
//              by clearing, whose clip text stands in memory as a whole

#include "edit/edit_screen.h"
#include "measure.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "structure/alignment_change.h"
#include "structure/block_operations.h"
#include "structure/item_operations.h"
#include "structure/width_rewrite.h"
#include "support/test_world.h"
#include "table_generator.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

namespace {

constexpr std::int64_t records = 1000000;
constexpr std::int32_t clearedRecords = 100000;
constexpr int rounds = 5;
constexpr std::size_t blockLength = 1 << 20;

/// Copies the first `length` bytes of the table.
void bareCopy(const std::string& folder, std::size_t length) {
    const int from = ::open((folder + "/t.txt").c_str(), O_RDONLY | O_CLOEXEC);
    const int to = ::open((folder + "/copy.tmp").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (from < 0 || to < 0) {
        giveUp("open");
    }
    std::string block(blockLength, '\0');
    for (std::size_t left = length; left > 0;) {
        const ssize_t came = read(from, block.data(), std::min(left, block.size()));
        if (came <= 0 || write(to, block.data(), static_cast<std::size_t>(came)) != came) {
            giveUp("copy");
        }
        left -= static_cast<std::size_t>(came);
    }
    if (fsync(to) != 0 || close(to) != 0 || close(from) != 0 ||
        rename((folder + "/copy.tmp").c_str(), (folder + "/copy.txt").c_str()) != 0) {
        giveUp("fsync");
    }
}

/// Highest use of memory so far, in MB.
double highestMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::strtod(line.c_str() + 6, nullptr) / 1024;
        }
    }
    giveUp("VmHWM");
}

void mustBeDone(BulkEnd end) {
    if (end != BulkEnd::done) {
        giveUp("items");
    }
}

} // namespace

int main() {
    TestWorld world;
    ZORMOD& zormod = world.zormod;
    const std::string folder = world.folder.path();
    generateTable(folder, "t.txt", records);
    world.openTable("t.txt");
    sync();
    const double memoryBefore = highestMemory();

    std::vector<double> inserted;
    std::vector<double> deleted;
    std::vector<double> moved;
    std::vector<double> widened;
    std::vector<double> realigned;
    EditScreen edit(zormod);
    std::vector<double> cleared;
    for (std::int16_t round = 0; round < rounds; ++round) {
        const double copy = microseconds([&] { bareCopy(folder, records * recordLength); });
        inserted.push_back(microseconds([&] { mustBeDone(insertItems(zormod, 3, 4)); }) / copy);
        deleted.push_back(microseconds([&] { mustBeDone(deleteItems(zormod, 3, 4)); }) / copy);
        moved.push_back(microseconds([&] { mustBeDone(moveItems(zormod, 6, 8, 2)); }) / copy);
        const auto before = zormod.items.itemWidth;
        ++zormod.items.itemWidth[4];
        computeItemStart(zormod.items);
        widened.push_back(microseconds([&] { rewriteWidths(zormod, before); }) / copy);
        zormod.position.curItem = 5;
        edit.txtLR = zormod.items.itemAlign[5] == u"L" ? u"R" : u"L";
        realigned.push_back(microseconds([&] { changeAlignment(edit); }) / copy);
        sync();
    }
    const double memoryOfItems = highestMemory() - memoryBefore;
    for (std::int16_t round = 0; round < rounds; ++round) {
        const double part = microseconds([&] { bareCopy(folder, clearedRecords * recordLength); });
        const auto item = static_cast<std::int16_t>(5 + round);
        cleared.push_back(microseconds([&] { clearRange(zormod, 450001, 450000 + clearedRecords, item, item); }) / part);
        world.clipboard.written.clear();
        sync();
    }
    const double memoryOfClip = highestMemory() - memoryBefore;

    std::vector<double> row;
    std::vector<double> screenful;
    Bytes record;
    for (std::int32_t i = 0; i < 50; ++i) {
        readRecord(zormod, 1, 700000 + i, record);
        row.push_back(microseconds([&] { writeRecord(zormod, 1, 800000 + i, record); }));
        zormod.selection = {1, 1000 + i * 100, 1019 + i * 100, 0, 2, 0};
        zormod.position.curRecord = 300000 + i * 100;
        zormod.position.curItem = 0;
        screenful.push_back(microseconds([&] { copyBlock(zormod); }));
    }
    bool kept = report("items: inserting two items into 1,000,000 records against a copy", median(inserted), "x", 2.5);
    kept = report("items: deleting two items against a copy", median(deleted), "x", 2.5) && kept;
    kept = report("items: moving three items against a copy", median(moved), "x", 2.5) && kept;
    kept = report("items: another width against a copy", median(widened), "x", 2.5) && kept;
    kept = report("items: another alignment against a copy", median(realigned), "x", 2.5) && kept;
    kept = report("blocks: clearing 100,000 records against a copy of them", median(cleared), "x", 15) && kept;
    kept = report("blocks: copying 20 records against leaving one row", median(screenful) / median(row), "x", 10) && kept;
    kept = report("items: growth of the highest use of memory", memoryOfItems, "MB", 8) && kept;
    kept = report("blocks: the same with the clip text of 100,000 cells", memoryOfClip, "MB", 40) && kept;
    std::printf("%-74s %10.2f ms\n", "blocks: copying 20 records", median(screenful) / 1000);
    return kept && world.dialogs.messages.empty() ? 0 : 1;
}
