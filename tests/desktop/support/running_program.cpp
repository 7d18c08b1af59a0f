#include "tests/desktop/support/running_program.h"

#include "tests/desktop/support/processes.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

RunningProgram::RunningProgram(const std::string& folder, const std::string& argument) : process_(fork()) {
    if (process_ == 0) {
        if (chdir(folder.c_str()) == 0) {
            execl(ROMIKA_PROGRAM, "romika", argument.empty() ? nullptr : argument.c_str(), nullptr);
        }
        _exit(127);
    }
}

RunningProgram::~RunningProgram() {
    if (!ended_) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
}

int RunningProgram::waitForEnd() {
    int status = -1;
    ended_ = becomesTrue([&] { return waitpid(process_, &status, WNOHANG) == process_; }, std::chrono::seconds(10));
    return ended_ && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void pressKey(const std::string& chord) { outputOf("xdotool key --clearmodifiers " + chord); }

void typeText(const std::string& text) { outputOf("xdotool type --delay 60 '" + text + "'"); }
