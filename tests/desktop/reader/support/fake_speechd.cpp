// A library that plays the client side of the desktop's speech service. FAKE_SPEECHD says how: "none" (there is no
// service), "kana" (only a voice of the eSpeak family), "text" (also a better Japanese voice), "english" (no Japanese
// voice), "hang" (never answers), "silent" (takes texts and never speaks them), "busy" (as "text", but
// another program speaks while the first text comes). What it is asked to do goes into the file
// FAKE_SPEECHD_LOG.

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace {

struct Connection {
    void (*begin)(std::size_t, std::size_t, int) = nullptr;
    void (*end)(std::size_t, std::size_t, int) = nullptr;
    void (*cancel)(std::size_t, std::size_t, int) = nullptr;
    std::string module;
    std::size_t messages = 0;
};

struct Voice {
    const char* name;
    const char* language;
    const char* variant;
};

bool is(const std::string& how) { return std::getenv("FAKE_SPEECHD") == how; }

void tell(const std::string& line) {
    const char* name = std::getenv("FAKE_SPEECHD_LOG");
    const int file = name != nullptr ? open(name, O_WRONLY | O_CREAT | O_APPEND, 0600) : -1;
    const std::string text = line + "\n";
    if (file < 0 || write(file, text.data(), text.size()) < 0)
        return;
    close(file);
}

} // namespace

extern "C" {

Connection* spd_open(const char*, const char*, const char*, int) {
    while (is("hang"))
        pause();
    return is("none") ? nullptr : new Connection;
}

const char** spd_list_modules(Connection*) {
    static const char* all[] = {"espeak-ng", "better", nullptr};
    static const char* few[] = {"espeak-ng", nullptr};
    static const char* other[] = {"other", nullptr};
    return is("text") || is("busy") ? all : is("english") ? other : few;
}

const Voice** spd_list_synthesis_voices(Connection* connection) {
    static const Voice english{"Mary", "en", "none"};
    static const Voice japanese{"Hanako", "ja", "none"};
    static const Voice* both[] = {&english, &japanese, nullptr};
    static const Voice* one[] = {&english, nullptr};
    if (connection->module == "espeak-ng")
        tell("thousands of voices");
    return is("english") ? one : both;
}

int spd_set_output_module(Connection* connection, const char* module) {
    connection->module = module;
    return 0;
}
int spd_set_language(Connection*, const char*) { return 0; }
int spd_set_notification_on(Connection*, int) { return 0; }
int spd_set_voice_rate(Connection*, int rate) {
    tell("rate " + std::to_string(rate));
    return 0;
}
int spd_cancel(Connection*) {
    tell("cancel");
    return 0;
}

int spd_say(Connection* connection, int priority, const char* text) {
    constexpr int notification = 4;
    tell((priority == notification ? "say " : "say rudely ") + connection->module + " " + text);
    const std::size_t message = ++connection->messages;
    if (is("busy") && message == 1)
        connection->cancel(message, 1, 8);
    else if (!is("silent"))
        std::thread([connection, message] {
            connection->begin(message, 1, 1);
            connection->end(message, 1, 2);
        }).detach();
    return static_cast<int>(message);
}
}
