#pragma once
// A program that works for the reader: an engine, a player, the dictionary. Started without a shell, in a process group
// of its own, and as a rule killed with everything it started when the object goes or the reader dies. Its error output
// goes nowhere. Nothing here ever waits for it, except for the moment that a killed process needs to be gone.

#include "platform/posix/descriptor.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

/// The native path of a program as a shell would find it; empty if there is none. A name with "/" is its own path.
std::string findProgram(const std::string& name);

/// A running or ended child.
class ChildProcess {
public:
    /// What becomes of the child's standard output.
    enum class Output { taken, thrownAway };
    /// What is killed at the end: the child alone, or also what it has started and not put into another group.
    enum class Scope { group, alone };

    /// Starts `command`: the program's name or path, then its arguments. Empty if there is no such program or the
    /// system refuses.
    static std::optional<ChildProcess> start(const std::vector<std::string>& command, Output output,
                                             Scope scope = Scope::group);

    ~ChildProcess();
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;

    /// Our end of its standard input, -1 once closed. Neither end of ours ever makes us wait.
    int input() const { return input_.number(); }
    /// Our end of its standard output, -1 if thrown away.
    int output() const { return output_.number(); }
    /// Becomes readable when the child has ended.
    int ending() const { return ending_.number(); }

    void closeInput() { input_ = Descriptor(); }
    /// Writes a short text, shorter than a pipe's room. False if the child takes no more.
    bool write(std::string_view bytes);
    /// Appends what has come, at most `most` bytes. False once the child has closed its output.
    bool read(std::string& into, std::size_t most);
    /// Its exit status, or 128 and more if a signal ended it; empty while it runs.
    std::optional<int> status();

private:
    ChildProcess(pid_t process, Scope scope, Descriptor input, Descriptor output, Descriptor ending);
    void end();

    pid_t process_;
    Scope scope_;
    std::optional<int> status_{};
    Descriptor input_;
    Descriptor output_;
    Descriptor ending_;
};
