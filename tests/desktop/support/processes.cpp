#include "tests/desktop/support/processes.h"

#include "tests/desktop/support/x_client.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

bool becomesTrue(const std::function<bool()> &condition, std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        poll(nullptr, 0, 2);
    }
    return true;
}

std::string outputOf(const std::string &command) {
    FILE *pipe = popen(("timeout 10 " + command + " 2>/dev/null").c_str(), "re");
    if (pipe == nullptr)
        return {};
    std::string output;
    std::array<char, 65536> buffer;
    while (const std::size_t got = fread(buffer.data(), 1, buffer.size(), pipe))
        output.append(buffer.data(), got);
    pclose(pipe);
    return output;
}

bool feed(const std::string &command, const std::string &input) {
    FILE *pipe = popen(("timeout 10 " + command + " >/dev/null 2>&1").c_str(), "we");
    if (pipe == nullptr)
        return false;
    const bool written = fwrite(input.data(), 1, input.size(), pipe) == input.size();
    return pclose(pipe) == 0 && written;
}

bool isRunning(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    if (!std::getline(status, line))
        return false;
    return line.at(line.rfind(')') + 2) != 'Z';
}

bool inEndedProcess(const std::function<bool()> &story) {
    const pid_t child = fork();
    if (child == 0)
        _exit(story() ? 0 : 1);
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool copyElsewhere(const std::string &utf8) {
    // xclip returns before its own background process has taken the clipboard.
    const XClient watcher;
    const xcb_window_t before = watcher.owner("CLIPBOARD");
    return feed("xclip -i -selection clipboard", utf8) && becomesTrue([&] {
               const xcb_window_t now = watcher.owner("CLIPBOARD");
               return now != before && now != XCB_WINDOW_NONE;
           });
}

std::string pasteElsewhere() {
    return outputOf("xclip -o -selection clipboard");
}
