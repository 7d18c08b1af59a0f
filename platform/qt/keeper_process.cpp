#include "platform/qt/keeper_process.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <pthread.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The rest of the keeper's process up to its own program. Only what is safe after a fork of a program with threads.
[[noreturn]] void becomeKeeper(const char *path, int socket) {
    setsid();
    if (fork() != 0)
        _exit(0);
    char *const arguments[] = {const_cast<char *>(path), nullptr};
    const int nothing = open("/dev/null", O_RDWR);
    // The socket may have any number, also 0, so it moves out of the way of the three numbers first.
    const int moved = fcntl(socket, F_DUPFD, 3);
    if (nothing >= 0 && moved >= 0 && dup2(nothing, 1) == 1 && dup2(nothing, 2) == 2 && dup2(moved, 0) == 0) {
        closefrom(3);
        execv(path, arguments);
    }
    _exit(127);
}

} // namespace

int startKeeper(const std::string &path) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    // No handler of ours may run in the child, where it would act upon what belongs to us.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t child = fork();
    if (child == 0)
        becomeKeeper(path.c_str(), ends[1]);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    close(ends[1]);
    if (child < 0 || fcntl(ends[0], F_SETFL, O_NONBLOCK) != 0) {
        close(ends[0]);
        return -1;
    }
    // The child only forks once more and ends, so this wait is as short as the fork before.
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return ends[0];
}
