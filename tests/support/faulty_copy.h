#pragma once
// A running copy of the program whose files may fail, and the loops by which a test lets an operation fail, or die, at
// its 1st, 2nd, 3rd ... file call and looks at what the next opening of the table finds.

#include "sheet/zormod.h"
#include "support/faulty_files.h"
#include "support/forked_child.h"
#include "support/test_world.h"

#include <functional>
#include <string>

/// The bytes of the table "t.txt".
struct TablePair {
    std::string data;  ///< of the data file
    std::string items; ///< of its K file
    bool operator==(const TablePair&) const = default;
};

TablePair pairIn(const TestWorld& world);

/// Opens the table that `zormod` names as every opening does it: claimed, recovered, read, shown.
void openAsAtStart(ZORMOD& zormod);

/// The running copy, with "t.txt" of the world's folder open. The world's own shared state has no table meanwhile.
class FaultyCopy {
public:
    explicit FaultyCopy(TestWorld& world);
    /// Ends the copy and opens the table in the world's own shared state, as the next start of the program does, with
    /// files that hold.
    void startAgain();

    FaultyFiles files;
    ZORMOD zormod;

private:
    TestWorld& world_;
};

/// Runs `work` with a fault at the `n`th call, as the guard round the handlers does; afterwards the files hold again.
/// False if there is no `n`th call any more.
bool failsAt(FaultyCopy& copy, int n, FaultyFiles::Lasting lasting, const std::function<void()>& work);

/// Waits for the end of `child`. True if it was killed; it must have come to its end otherwise.
bool endsKilled(ForkedChild& child);

/// Runs `work` in a process of its own that is killed at the `n`th call. False if there is no `n`th call any more: the
/// work is done then.
bool diesAt(FaultyCopy& copy, int n, const std::function<void()>& work);

/// Calls `meetsFault` with 1, 2, 3 ... until it returns false; the number of faults met.
int faultsMet(const std::function<bool(int n)>& meetsFault);

/// The same for faults that come once, and for those that stay from then on; the smaller of the two numbers.
int failuresMet(const std::function<bool(int n, FaultyFiles::Lasting lasting)>& meetsFault);
