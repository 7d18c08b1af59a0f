// A player for tests: takes samples at its standard input as a sound device would and writes down what it got. Its
// argument is the rate. FAKE_PLAYER_LOG names the file; its lines are "first TIME" with the nanoseconds of the monotonic
// clock at the first sample, and "all BYTES" once it has played everything. FAKE_PLAYER_HOW is "fast", "real-time",
// "deaf" or "broken".

#include <array>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

void tell(const std::string& line) {
    const int file = open(std::getenv("FAKE_PLAYER_LOG"), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (file < 0 || write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        _exit(1);
    close(file);
}

} // namespace

int main(int, char** words) {
    const std::string how = std::getenv("FAKE_PLAYER_HOW");
    if (how == "broken")
        return 1;
    while (how == "deaf")
        pause();
    const long bytesPerSecond = 2 * std::atol(words[1]);
    std::array<char, 2048> buffer;
    long total = 0;
    while (const ssize_t got = read(0, buffer.data(), buffer.size())) {
        if (got < 0)
            return 1;
        if (total == 0) {
            timespec now{};
            clock_gettime(CLOCK_MONOTONIC, &now);
            tell("first " + std::to_string(now.tv_sec * 1000000000L + now.tv_nsec) + "\n");
        }
        total += got;
        if (how == "real-time")
            usleep(static_cast<useconds_t>(got * 1000000L / bytesPerSecond));
    }
    tell("all " + std::to_string(total) + "\n");
    return 0;
}
