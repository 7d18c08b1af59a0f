#pragma once
// The real program, started on a real X server for a test.

#include <string>
#include <sys/types.h>

/// The program in a folder of its own; killed when the object goes if it still runs.
class RunningProgram {
public:
    /// Starts the program in `folder` with `argument`, which may be empty for none.
    RunningProgram(const std::string& folder, const std::string& argument);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    pid_t process() const { return process_; }
    /// Waits for its end and gives the exit status, -1 if it doesn't end within ten seconds or was killed.
    int waitForEnd();

private:
    pid_t process_;
    bool ended_ = false;
};

/// Presses a key or a chord such as "ctrl+Down" on the focused window.
void pressKey(const std::string& chord);
/// Types half-width text.
void typeText(const std::string& text);
