#include "tests/desktop/reader/support/reader_process.h"

#include "tests/desktop/support/processes.h"

#include <algorithm>
#include <csignal>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

ReaderProcess::ReaderProcess(const EngineFolder& folder, const std::vector<std::string>& arguments,
                             const std::string& display) {
    std::vector<std::string> words{"romika-reader", "--log", folder.file("log")};
    words.insert(words.end(), arguments.begin(), arguments.end());
    process_ = fork();
    if (process_ == 0) {
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
        if (!display.empty())
            setenv("DISPLAY", display.c_str(), 1);
        execv(ROMIKA_READER, pointers.data());
        _exit(127);
    }
    if (display.empty()) {
        const XClient client;
        becomesTrue([&] { return client.owner("_ROMIKA_READER") != XCB_WINDOW_NONE; });
    }
}

ReaderProcess::~ReaderProcess() {
    if (!ended_) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    // The next test's reader must not meet the last one's office.
    const XClient client;
    if (xcb_connection_has_error(client.raw()) == 0)
        becomesTrue([&] { return client.owner("_ROMIKA_READER") == XCB_WINDOW_NONE; });
}

int ReaderProcess::waitForEnd(std::chrono::milliseconds patience) {
    int status = 0;
    ended_ = becomesTrue([&] { return waitpid(process_, &status, WNOHANG) == process_; }, patience);
    if (!ended_)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

long ReaderProcess::mostMemory() const {
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:"))
            return std::stol(line.substr(6));
    }
    return -1;
}

bool hears(const EngineFolder& folder, const std::string& event, std::size_t count,
           std::chrono::milliseconds patience) {
    return becomesTrue([&] { return folder.events(event).size() >= count; }, patience);
}

bool hearsText(const EngineFolder& folder, const std::string& event, const std::string& text,
               std::chrono::milliseconds patience) {
    return becomesTrue(
        [&] {
            const auto all = folder.events(event);
            return std::find(all.begin(), all.end(), text) != all.end();
        },
        patience);
}

std::string outputOfReader(const EngineFolder& folder, const std::string& arguments, int* status) {
    const std::string command = "XDG_CONFIG_HOME=" + folder.path() + " timeout 30 " + ROMIKA_READER + " " + arguments +
                                " 2>&1 </dev/null";
    FILE* pipe = popen(command.c_str(), "re");
    std::string output;
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe))
        output += static_cast<char>(c);
    const int ended = pclose(pipe);
    if (status != nullptr)
        *status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    return output;
}

TextOwner::TextOwner()
    : owner_("CLIPBOARD", [this](ForeignOwner& owner, const xcb_selection_request_event_t& request) {
          const std::lock_guard lock(mutex_);
          if (request.target == owner.client().atom("UTF8_STRING"))
              owner.answer(request, text_);
          else
              owner.refuse(request);
      }) {}

void TextOwner::put(const std::string& text) {
    {
        const std::lock_guard lock(mutex_);
        text_ = text;
    }
    owner_.client().own("CLIPBOARD");
}

FakePlayer::FakePlayer(const EngineFolder& folder, const std::string& how) {
    setenv("FAKE_PLAYER_LOG", folder.file("played").c_str(), 1);
    setenv("FAKE_PLAYER_HOW", how.c_str(), 1);
    std::filesystem::create_directories(folder.file("romika"));
    std::ofstream(folder.file("romika/reader.conf"), std::ios::app)
        << "engine = espeak\nplayer = " << FAKE_PLAYER_PROGRAM << "\n";
}

FakePlayer::~FakePlayer() {
    unsetenv("FAKE_PLAYER_LOG");
    unsetenv("FAKE_PLAYER_HOW");
}

std::vector<std::string> playerNews(const EngineFolder& folder, const std::string& news) {
    std::istringstream in(folder.read("played"));
    std::vector<std::string> found;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with(news + " "))
            found.push_back(line.substr(news.size() + 1));
    }
    return found;
}
