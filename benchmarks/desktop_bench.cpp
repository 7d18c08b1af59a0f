// Figures of the whole program on an X server, seen by another program. Run it with a display; ./bench brings one.
//   key        from a key press (XTest) to the notice that the clipboard has a new text, 200 times Down on unchanged
//              rows, 0.25 s apart, speech on
//   memory     peak of the program's resident memory with 1,000,000 records less that with 10,000, each after opening,
//              walking, a jump to the last record and back

#include "measure.h"
#include "table_generator.h"

#include <X11/keysym.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>
#include <xcb/xtest.h>

#include <poll.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <thread>

namespace {

constexpr int measuredKeys = 200;
constexpr auto keyDistance = std::chrono::milliseconds(250);

/// A client that presses keys and is told whenever the clipboard gets a new text.
class Watcher {
public:
    Watcher() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_) != 0) {
            giveUp("no X server");
        }
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        const char name[] = "CLIPBOARD";
        auto* atom = xcb_intern_atom_reply(connection_, xcb_intern_atom(connection_, 0, sizeof name - 1, name), nullptr);
        auto* fixes = xcb_xfixes_query_version_reply(connection_, xcb_xfixes_query_version(connection_, 5, 0), nullptr);
        if (atom == nullptr || fixes == nullptr) {
            giveUp("the X server lacks what is needed");
        }
        xcb_xfixes_select_selection_input(connection_, root_, atom->atom, XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
        xcb_flush(connection_);
        std::free(atom);
        std::free(fixes);
    }
    ~Watcher() { xcb_disconnect(connection_); }

    /// Waits for the next new text. False if none comes in time.
    bool waitForText(std::chrono::milliseconds patience) {
        const auto end = std::chrono::steady_clock::now() + patience;
        for (;;) {
            if (auto* event = xcb_poll_for_event(connection_)) {
                std::free(event);
                return true;
            }
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
            if (left.count() <= 0) {
                return false;
            }
            pollfd descriptor{xcb_get_file_descriptor(connection_), POLLIN, 0};
            poll(&descriptor, 1, static_cast<int>(left.count()));
        }
    }
    void drain() {
        while (waitForText(std::chrono::milliseconds(0))) {
        }
    }
    void press(xcb_keysym_t key, std::optional<xcb_keysym_t> modifier = {}) {
        if (modifier) {
            fake(XCB_KEY_PRESS, *modifier);
        }
        fake(XCB_KEY_PRESS, key);
        fake(XCB_KEY_RELEASE, key);
        if (modifier) {
            fake(XCB_KEY_RELEASE, *modifier);
        }
        xcb_flush(connection_);
    }

private:
    void fake(std::uint8_t kind, xcb_keysym_t symbol) {
        xcb_test_fake_input(connection_, kind, keycode(symbol), XCB_CURRENT_TIME, root_, 0, 0, 0);
    }
    xcb_keycode_t keycode(xcb_keysym_t symbol) {
        const auto* setup = xcb_get_setup(connection_);
        const int count = setup->max_keycode - setup->min_keycode + 1;
        auto* reply = xcb_get_keyboard_mapping_reply(
            connection_, xcb_get_keyboard_mapping(connection_, setup->min_keycode, static_cast<std::uint8_t>(count)),
            nullptr);
        const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply);
        for (int code = 0; code < count; ++code) {
            if (symbols[code * reply->keysyms_per_keycode] == symbol) {
                std::free(reply);
                return static_cast<xcb_keycode_t>(setup->min_keycode + code);
            }
        }
        giveUp("the keyboard lacks a key");
    }
    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
};

/// The program itself, started on a table and killed at the end.
class RunningProgram {
public:
    RunningProgram(const std::string& folder, const std::string& table) {
        process_ = fork();
        if (process_ == 0) {
            if (chdir(folder.c_str()) == 0) {
                execl(ROMIKA_PROGRAM, "romika", table.c_str(), nullptr);
            }
            _exit(127);
        }
    }
    ~RunningProgram() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    /// Peak of the resident memory in KiB.
    long peakMemory() const {
        std::ifstream status("/proc/" + std::to_string(process_) + "/status");
        for (std::string line; std::getline(status, line);) {
            if (line.rfind("VmHWM:", 0) == 0) {
                return std::atol(line.c_str() + 6);
            }
        }
        giveUp("the program has ended early");
    }

private:
    pid_t process_;
};

/// Waits until the program has said what it says on opening and has been silent for a while.
void waitUntilReady(Watcher& watcher) {
    if (!watcher.waitForText(std::chrono::seconds(20))) {
        giveUp("the program never spoke");
    }
    while (watcher.waitForText(std::chrono::milliseconds(1500))) {
    }
}

/// Milliseconds from key press to the new text, one for each key.
std::vector<double> keyTimes(Watcher& watcher) {
    std::vector<double> samples;
    for (int i = 0; i < measuredKeys; ++i) {
        std::this_thread::sleep_for(keyDistance);
        watcher.drain();
        bool came = false;
        const double time = microseconds([&] {
            watcher.press(XK_Down);
            came = watcher.waitForText(std::chrono::seconds(2));
        });
        if (!came) {
            giveUp("a key was not answered");
        }
        samples.push_back(time / 1000);
    }
    return samples;
}

long peakAfterAWalk(Watcher& watcher, const std::string& folder, const std::string& table) {
    RunningProgram program(folder, table);
    waitUntilReady(watcher);
    for (int i = 0; i < 5; ++i) {
        watcher.press(XK_Down);
        std::this_thread::sleep_for(keyDistance);
    }
    watcher.press(XK_Down, XK_Control_L);
    std::this_thread::sleep_for(keyDistance);
    watcher.press(XK_Up, XK_Control_L);
    std::this_thread::sleep_for(keyDistance);
    watcher.drain();
    return program.peakMemory();
}

} // namespace

int main() {
    std::string folder = (std::filesystem::temp_directory_path() / "romika-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        giveUp("no temporary folder");
    }
    generateTable(folder, "small.txt", 10000);
    generateTable(folder, "large.txt", 1000000);
    bool kept = true;
    {
        Watcher watcher;
        {
            RunningProgram program(folder, "large.txt");
            waitUntilReady(watcher);
            const std::vector<double> samples = keyTimes(watcher);
            kept = report("key: key press to the new clipboard text, median of 200", median(samples), "ms", 5);
            kept = report("key: the same, 95 %", quantile(samples, 0.95), "ms", 15) && kept;
        }
        const long small = peakAfterAWalk(watcher, folder, "small.txt");
        const long large = peakAfterAWalk(watcher, folder, "large.txt");
        kept = report("memory: peak with 1,000,000 records less that with 10,000",
                      static_cast<double>(large - small) / 1024, "MiB", 4) &&
               kept;
        std::printf("%-74s %10.2f MiB\n", "memory: peak with 1,000,000 records", static_cast<double>(large) / 1024);
    }
    std::filesystem::remove_all(folder);
    return kept ? 0 : 1;
}
