#include "reader/child_process.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

struct Pipe {
    Descriptor out;
    Descriptor in;
};

std::optional<Pipe> makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

void neverWait(const Descriptor& end) {
    fcntl(end.number(), F_SETFL, fcntl(end.number(), F_GETFL) | O_NONBLOCK);
}

/// The library's own call can't be linked from C++ in all releases of it.
int openEnding(pid_t process) {
    return static_cast<int>(syscall(SYS_pidfd_open, process, 0));
}

/// Runs in the child: becomes the program.
[[noreturn]] void become(const std::string& path, char* const* arguments, int input, int output, pid_t parent) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(127);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(input, STDIN_FILENO);
    dup2(output >= 0 ? output : nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    execv(path.c_str(), arguments);
    _exit(127);
}

} // namespace

std::string findProgram(const std::string& name) {
    if (name.find('/') != std::string::npos)
        return access(name.c_str(), X_OK) == 0 ? name : std::string();
    const char* path = std::getenv("PATH");
    std::string_view folders = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        const std::string candidate = std::string(folders.substr(0, end)) + "/" + name;
        if (end > 0 && access(candidate.c_str(), X_OK) == 0)
            return candidate;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return {};
}

std::optional<ChildProcess> ChildProcess::start(const std::vector<std::string>& command, Output output, Scope scope) {
    const std::string path = findProgram(command.front());
    auto in = makePipe();
    auto out = output == Output::taken ? makePipe() : std::optional<Pipe>(Pipe{Descriptor(), Descriptor()});
    if (path.empty() || !in || !out)
        return std::nullopt;
    std::vector<char*> arguments;
    for (const std::string& each : command)
        arguments.push_back(const_cast<char*>(each.c_str()));
    arguments.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process == 0)
        become(path, arguments.data(), in->out.number(), out->in.number(), parent);
    if (process < 0)
        return std::nullopt;
    // Both sides do it, so that the group exists whoever comes first.
    setpgid(process, process);
    neverWait(in->in);
    if (output == Output::taken)
        neverWait(out->out);
    return ChildProcess(process, scope, std::move(in->in), std::move(out->out), Descriptor(openEnding(process)));
}

ChildProcess::ChildProcess(pid_t process, Scope scope, Descriptor input, Descriptor output, Descriptor ending)
    : process_(process), scope_(scope), input_(std::move(input)), output_(std::move(output)),
      ending_(std::move(ending)) {}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : process_(std::exchange(other.process_, 0)), scope_(other.scope_), status_(other.status_),
      input_(std::move(other.input_)), output_(std::move(other.output_)), ending_(std::move(other.ending_)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    if (this != &other) {
        end();
        process_ = std::exchange(other.process_, 0);
        scope_ = other.scope_;
        status_ = other.status_;
        input_ = std::move(other.input_);
        output_ = std::move(other.output_);
        ending_ = std::move(other.ending_);
    }
    return *this;
}

ChildProcess::~ChildProcess() {
    end();
}

void ChildProcess::end() {
    if (process_ <= 0)
        return;
    // What the child has started itself may outlive it, so the group is killed even after its end.
    if (scope_ == Scope::group)
        kill(-process_, SIGKILL);
    else if (!status_)
        kill(process_, SIGKILL);
    if (!status_)
        uninterrupted([this] { return waitpid(process_, nullptr, 0); });
    process_ = 0;
}

bool ChildProcess::write(std::string_view bytes) {
    return input_.isOpen() && uninterrupted([&] { return ::write(input(), bytes.data(), bytes.size()); }) ==
                                  static_cast<ssize_t>(bytes.size());
}

bool ChildProcess::read(std::string& into, std::size_t most) {
    std::array<char, 16384> buffer;
    while (most > 0 && output_.isOpen()) {
        const auto got = uninterrupted([&] { return ::read(output(), buffer.data(), std::min(buffer.size(), most)); });
        if (got < 0)
            return errno == EAGAIN;
        if (got == 0) {
            // An end that stays open would wake us again and again.
            output_ = Descriptor();
            return false;
        }
        into.append(buffer.data(), static_cast<std::size_t>(got));
        most -= static_cast<std::size_t>(got);
    }
    return output_.isOpen();
}

std::optional<int> ChildProcess::status() {
    int status = 0;
    if (!status_ && process_ > 0 && waitpid(process_, &status, WNOHANG) == process_)
        status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return status_;
}
