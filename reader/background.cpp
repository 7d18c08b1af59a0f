#include "reader/background.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

Background Background::enter() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        _exit(1);
    Descriptor out(ends[0]);
    Descriptor in(ends[1]);
    const pid_t process = fork();
    if (process < 0)
        _exit(1);
    if (process == 0) {
        setsid();
        return Background(std::move(in));
    }
    in = Descriptor();
    char status = 1;
    // Without a report the other half has died.
    const auto got = uninterrupted([&] { return read(out.number(), &status, 1); });
    _exit(got == 1 ? status : 1);
}

void Background::report(int status) {
    if (!foreground_.isOpen())
        return;
    const char byte = static_cast<char>(status);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, stream);
    close(nowhere);
    // A reader that stays for the whole login must not keep a folder in use. Both may fail without harm.
    static_cast<void>(chdir("/") == 0 && write(foreground_.number(), &byte, 1) == 1);
    foreground_ = Descriptor();
}
