#include "support/faulty_copy.h"

#include "sheet/failure_recovery.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <sys/wait.h>

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;

TablePair pairIn(const TestWorld& world) {
    return {world.bytesOf("t.txt"), world.bytesOf("kt.txt")};
}

void openAsAtStart(ZORMOD& zormod) {
    const FileIdentity& file = zormod.file;
    zormod.files.tableLock = zormod.platform.files.lockTable(fullPath(file.fileDrive, file.fileName));
    recoverTable(zormod, file.fileName, file.fileDrive);
    ASSERT_EQ(readItemFile(zormod, file.fileName, file.fileDrive), Text());
    openDataFile(zormod);
    fillFirstWindow(zormod);
}

FaultyCopy::FaultyCopy(TestWorld& world)
    : files(world.files),
      zormod(Platform{world.clipboard, world.clock, world.beeper, files, world.codePage, world.dialogs, world.screen,
                      world.commands, world.forms, world.eventLoop, world.printer}),
      world_(world) {
    FileIdentity& file = world.zormod.file;
    file.fileDrive = file.programFolder.substr(0, 1);
    file.fileName = file.programFolder.substr(2) + u"t.txt";
    zormod.file = file;
    world.zormod.files.tableLock.reset();
    closeAllFiles(world.zormod);
    openAsAtStart(zormod);
}

void FaultyCopy::startAgain() {
    zormod.files.tableLock.reset();
    closeAllFiles(zormod);
    openAsAtStart(world_.zormod);
}

bool failsAt(FaultyCopy& copy, int n, Lasting lasting, const std::function<void()>& work) {
    copy.files.failAt(n, Counted::calls, lasting);
    try {
        work();
    } catch (const RuntimeFailure& failure) {
        putStateRight(copy.zormod, failure);
    }
    const bool met = copy.files.faults() > 0;
    copy.files.heal();
    return met;
}

bool endsKilled(ForkedChild& child) {
    const int status = child.end();
    const bool died = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    EXPECT_TRUE(died || status == 0) << "ended in another way: " << status;
    return died;
}

bool diesAt(FaultyCopy& copy, int n, const std::function<void()>& work) {
    ForkedChild child([&](const ChildSide&) {
        copy.files.failAt(n, Counted::calls, Lasting::once, FaultyFiles::Kind::kill);
        work();
        return true;
    });
    return endsKilled(child);
}

int faultsMet(const std::function<bool(int)>& meetsFault) {
    int n = 0;
    while (meetsFault(n + 1)) {
        ++n;
    }
    return n;
}

int failuresMet(const std::function<bool(int, Lasting)>& meetsFault) {
    int least = 0;
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn}) {
        const int met = faultsMet([&](int n) { return meetsFault(n, lasting); });
        least = lasting == Lasting::once ? met : std::min(least, met);
    }
    return least;
}
