// romika-clipboard, the keeper of the clipboard: started by the program with a socket as its standard input, and by
// nobody else. The desktop hands a text on only while the program that wrote it answers, so this one answers while the
// program waits and after it has ended. It says nothing and writes no file.

#include "platform/keeper/keeper.h"

#include <csignal>
#include <unistd.h>

int main() {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    // A keeper that outlives the program must not keep a folder in use.
    if (chdir("/") != 0)
        return 1;
    const auto x = XConnection::open();
    if (!x)
        return 1;
    Keeper(*x, STDIN_FILENO).run();
    return 0;
}
