#pragma once
// A second process for tests of what only another process can show: claims of another running copy, a kill in the
// middle, an ordinary user where the tests run as root. Nothing here waits for time to pass: the two sides hand each
// other signs through pipes.

#include <functional>
#include <sys/types.h>

/// What the child sees of the hand-shake.
class ChildSide {
public:
    ChildSide(int toParent, int fromParent) : toParent_(toParent), fromParent_(fromParent) {}
    /// Lets the parent's waitForSign return.
    void giveSign() const;
    /// Returns after the parent's sign; false if the parent has given up the child instead.
    bool waitForSign() const;

private:
    int toParent_;
    int fromParent_;
};

/// A forked process that runs `work` and ends with status 0 if it returned true, with 1 otherwise or after an
/// exception. Killed and waited for by the destructor unless it has ended.
class ForkedChild {
public:
    explicit ForkedChild(const std::function<bool(const ChildSide&)>& work);
    ~ForkedChild();
    ForkedChild(const ForkedChild&) = delete;
    ForkedChild& operator=(const ForkedChild&) = delete;

    /// Returns after the child's sign; false if the child has ended without one.
    bool waitForSign() const;
    void giveSign() const;
    /// Kills the child and returns when it is gone.
    void kill();
    /// Waits for the end of the child; its status as waitpid tells it.
    int end();

private:
    pid_t pid_ = -1;
    int toChild_ = -1;
    int fromChild_ = -1;
};

/// True if `work`, run in a process of its own by a user without privileges, returned true. Folders that it uses must
/// be open to everybody.
bool holdsForOrdinaryUser(const std::function<bool()>& work);
