#pragma once
// The system calls of the file layer, seen and spoilt from outside. The test program is linked so that every call of
// open, pwrite, fsync, rename and their like goes through here; while a CallWatch lives, those that touch the watched
// folder are counted and written down, and the chosen one fails as a real disk does: no space, an I/O error, no
// permission, or a part written. So the real file layer is judged, not a copy of it.
//
// Used by the fault runs and by the tests of the order in which the file layer makes things durable.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What a system call did to the watched folder.
struct DiskStep {
    enum class Kind {
        create,     ///< a new, empty file `file` under `path`
        write,      ///< `bytes` at `offset` of `file`
        setLength,  ///< `file` cut or stretched to `offset` bytes
        syncFile,   ///< what was written to `file` is durable
        syncFailed, ///< whether any of what was written to `file` is durable, nobody knows
        syncFolder, ///< what was done to the names in the folder `path` is durable
        rename,     ///< `path` became `target`
        unlink,     ///< `path` went away
        makeFolder, ///< `path` was made
    };
    Kind kind;
    std::string path{};   ///< below the watched folder, without a slash in front; the folder itself is empty
    std::string target{}; ///< as `path`
    int file = 0;         ///< tells files apart also when the system gives a number a second time
    std::int64_t offset = 0;
    std::string bytes{};
};

/// How a system call fails.
struct CallFault {
    int error = 0;          ///< ENOSPC, EIO or EACCES; only calls that can fail so are counted
    bool fromThenOn = false;
    bool shortWrite = false; ///< only writes are counted; half is written, what follows fails with `error`
    bool onlySyncs = false;  ///< only syncs are counted
};

/// Watches one folder. Only one may live at a time.
class CallWatch {
public:
    /// `folder` is a native path without links. The files that are there get numbers.
    explicit CallWatch(std::string folder);
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    /// Plans a fault at the `n`th call from now on that can fail in this way, 1-based.
    void failAt(int n, const CallFault& fault);
    /// Nothing fails any more.
    void heal();
    /// Runs `look` ahead of every call that touches the folder; what `look` itself calls is not watched.
    void lookAheadOfEachCall(std::function<void()> look);
    /// Faults met since the last plan.
    int faults() const;
    /// What was done to the folder so far, failed calls left out.
    const std::vector<DiskStep>& steps() const;
    /// The number of a file that was there at the start; 0 if there was none of that name.
    int numberOf(const std::string& path) const;

    struct State;

private:
    std::unique_ptr<State> state_;
};

/// While it lives, the folder at the native path counts as another disk than all the rest: no rename leads into it or out
/// of it. Only one may live at a time.
class SecondDisk {
public:
    explicit SecondDisk(std::string folder);
    ~SecondDisk();
    SecondDisk(const SecondDisk&) = delete;
    SecondDisk& operator=(const SecondDisk&) = delete;
};

/// While it lives, a sync returns at once: what is durable is worked out from the steps, and a thousand runs needn't
/// wait for a thousand disks.
class PretendedSyncs {
public:
    PretendedSyncs();
    ~PretendedSyncs();
    PretendedSyncs(const PretendedSyncs&) = delete;
    PretendedSyncs& operator=(const PretendedSyncs&) = delete;
};
