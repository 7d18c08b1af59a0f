#include "tests/monkey/walk_process.h"

#include "tests/monkey/shrinker.h"

#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int patienceForATry = 30; // seconds

pid_t startAgain(const std::vector<std::string>& arguments, int output) {
    const pid_t process = fork();
    if (process == 0) {
        std::vector<char*> words{const_cast<char*>("monkey_tests")};
        for (const std::string& argument : arguments) {
            words.push_back(const_cast<char*>(argument.c_str()));
        }
        words.push_back(nullptr);
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
        execv("/proc/self/exe", words.data());
        _exit(127);
    }
    return process;
}

/// Reads until the other end is closed; false if that takes too long.
bool readAll(int from, std::string& into, Clock::time_point end) {
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd ready{from, POLLIN, 0};
        if (left <= 0 || poll(&ready, 1, static_cast<int>(left)) <= 0) {
            return false;
        }
        char bytes[4096];
        const ssize_t count = read(from, bytes, sizeof bytes);
        if (count <= 0) {
            return count == 0;
        }
        into.append(bytes, static_cast<std::size_t>(count));
    }
}

std::string lineBehind(const std::string& text, const std::string& mark) {
    const std::size_t at = text.find(mark);
    return at == std::string::npos ? std::string()
                                   : text.substr(at + mark.size(), text.find('\n', at) - at - mark.size());
}

/// What was found, without the details that differ from walk to walk.
std::string kindOf(const std::string& found) {
    return found.substr(0, found.find(':'));
}

} // namespace

WalkResult walkInProcess(const std::vector<std::string>& arguments, int patience) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return {.found = "the test: no pipe"};
    }
    const pid_t process = startAgain(arguments, ends[1]);
    close(ends[1]);
    WalkResult result;
    const bool ended = readAll(ends[0], result.output, Clock::now() + std::chrono::seconds(patience));
    close(ends[0]);
    if (!ended) {
        kill(process, SIGKILL);
    }
    int status = 0;
    waitpid(process, &status, 0);
    result.found = lineBehind(result.output, "FOUND ");
    result.folder = lineBehind(result.output, "FOLDER ");
    if (!ended) {
        result.found = "standstill: no end after " + std::to_string(patience) + " seconds";
    } else if (WIFSIGNALED(status)) {
        result.found = "crash: signal " + std::to_string(WTERMSIG(status));
    } else if (WEXITSTATUS(status) != 0 && result.found.empty()) {
        result.found = "crash: exit status " + std::to_string(WEXITSTATUS(status));
    }
    return result;
}

Trace shortestTrace(const Trace& trace, const std::string& found, const std::string& scratchFile, int seconds) {
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    const auto fails = [&](const std::vector<MonkeyKey>& keys) {
        if (Clock::now() > end) {
            return false;
        }
        std::ofstream(scratchFile, std::ios::binary) << textOf({trace.table, keys});
        return kindOf(walkInProcess({"--again", scratchFile}, patienceForATry).found) == kindOf(found);
    };
    constexpr int tries = 3000;
    return fails(trace.keys) ? Trace{trace.table, shrunk<MonkeyKey>(trace.keys, fails, tries)} : trace;
}
