#include "support/forked_child.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;

void sendSign(int to) {
    if (write(to, "!", 1) != 1) {
        std::abort();
    }
}

bool receiveSign(int from) {
    char sign = 0;
    return read(from, &sign, 1) == 1;
}

/// Never unwinds into the test program that the child is a copy of.
[[noreturn]] void runAndEnd(const std::function<bool(const ChildSide&)>& work, const ChildSide& side) {
    bool succeeded = false;
    try {
        succeeded = work(side);
    } catch (...) {
        succeeded = false;
    }
    _exit(succeeded ? 0 : 1);
}

} // namespace

void ChildSide::giveSign() const { sendSign(toParent_); }
bool ChildSide::waitForSign() const { return receiveSign(fromParent_); }

ForkedChild::ForkedChild(const std::function<bool(const ChildSide&)>& work) {
    std::array<int, 2> down{};
    std::array<int, 2> up{};
    if (pipe(down.data()) != 0 || pipe(up.data()) != 0) {
        std::abort();
    }
    pid_ = fork();
    if (pid_ < 0) {
        std::abort();
    }
    if (pid_ == 0) {
        close(down[1]);
        close(up[0]);
        runAndEnd(work, ChildSide(up[1], down[0]));
    }
    close(down[0]);
    close(up[1]);
    toChild_ = down[1];
    fromChild_ = up[0];
}

ForkedChild::~ForkedChild() {
    kill();
    close(toChild_);
    close(fromChild_);
}

bool ForkedChild::waitForSign() const { return receiveSign(fromChild_); }
void ForkedChild::giveSign() const { sendSign(toChild_); }

void ForkedChild::kill() {
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        end();
    }
}

int ForkedChild::end() {
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return status;
}

bool holdsForOrdinaryUser(const std::function<bool()>& work) {
    ForkedChild child([&work](const ChildSide&) {
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) {
            return false;
        }
        return work();
    });
    return child.end() == 0;
}
