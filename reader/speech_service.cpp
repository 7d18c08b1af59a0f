#include "reader/speech_service.h"

#include "platform/number_reader.h"
#include "platform/number_text.h"
#include "platform/utf8.h"
#include "reader/event_log.h"

#include <algorithm>
#include <dlfcn.h>
#include <iostream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

using Notification = void (*)(std::size_t message, std::size_t client, int kind);

/// The public beginning of the library's connection; what follows is its own business.
struct Connection {
    Notification begin;
    Notification end;
    Notification cancel;
};

struct Voice {
    char* name;
    char* language;
    char* variant;
};

constexpr std::string_view kanaModule = "espeak-ng";
constexpr int threadedMode = 1;
// Each higher priority would cut off what other programs, a screen reader say, speak through the service.
constexpr int politePriority = 4;
constexpr int notifyBegin = 1;
constexpr int notifyEnd = 2;
constexpr int notifyCancel = 8;

/// The library's functions that are used here.
struct Library {
    Connection* (*open)(const char* client, const char* connection, const char* user, int mode);
    char** (*listModules)(Connection*);
    Voice** (*listVoices)(Connection*);
    int (*setModule)(Connection*, const char*);
    int (*setLanguage)(Connection*, const char*);
    int (*setNotificationOn)(Connection*, int);
    int (*setRate)(Connection*, int);
    int (*say)(Connection*, int priority, const char* text);
    int (*cancel)(Connection*);
};

template <class Function> bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

bool load(Library& library) {
    void* handle = dlopen("libspeechd.so.2", RTLD_NOW);
    return handle != nullptr && find(handle, "spd_open", library.open) &&
           find(handle, "spd_list_modules", library.listModules) &&
           find(handle, "spd_list_synthesis_voices", library.listVoices) &&
           find(handle, "spd_set_output_module", library.setModule) &&
           find(handle, "spd_set_language", library.setLanguage) &&
           find(handle, "spd_set_notification_on", library.setNotificationOn) &&
           find(handle, "spd_set_voice_rate", library.setRate) && find(handle, "spd_say", library.say) &&
           find(handle, "spd_cancel", library.cancel);
}

bool hasJapaneseVoice(const Library& library, Connection* connection) {
    Voice** voices = library.listVoices(connection);
    for (; voices != nullptr && *voices != nullptr; ++voices) {
        if ((*voices)->language != nullptr && std::string_view((*voices)->language).starts_with("ja"))
            return true;
    }
    return false;
}

/// The module to speak with: one that reads kanji if there is one, else eSpeak NG, which needs kana; empty if neither
/// is there. eSpeak NG always has its Japanese voice, and listing its thousands of others would take seconds.
std::string chooseModule(const Library& library, Connection* connection) {
    std::string chosen;
    char** modules = library.listModules(connection);
    for (; modules != nullptr && *modules != nullptr; ++modules) {
        const std::string module = *modules;
        if (module == kanaModule)
            chosen = module;
        else if (library.setModule(connection, module.c_str()) == 0 && hasJapaneseVoice(library, connection))
            return module;
    }
    return chosen;
}

// The library calls these on a thread of its own; each line goes out in one write.
void tell(const char* word, std::size_t message) {
    printLine(STDOUT_FILENO, word + (" " + toUtf8(plainNumber(message))));
}
void begun(std::size_t message, std::size_t, int) {
    tell("begin", message);
}
void ended(std::size_t message, std::size_t, int) {
    tell("end", message);
}
void cancelled(std::size_t message, std::size_t, int) {
    tell("cancelled", message);
}

void carryOut(const Library& library, Connection* connection, const std::string& order) {
    if (order == "cancel") {
        library.cancel(connection);
        return;
    }
    const std::size_t rate = order.find(' ') + 1;
    const std::size_t text = order.find(' ', rate) + 1;
    if (!order.starts_with("say ") || rate == 0 || text == 0)
        return;
    library.setRate(connection, static_cast<int>(Val(fromUtf8(order.substr(rate, text - rate - 1)))));
    const int message = library.say(connection, politePriority, order.substr(text).c_str());
    tell("said", static_cast<std::size_t>(std::max(message, 0)));
}

} // namespace

int runSpeechService() {
    Library library{};
    Connection* connection = load(library) ? library.open("romika-reader", "main", nullptr, threadedMode) : nullptr;
    const std::string module = connection != nullptr ? chooseModule(library, connection) : std::string();
    if (module.empty()) {
        printLine(STDOUT_FILENO, "absent");
        return 0;
    }
    library.setModule(connection, module.c_str());
    library.setLanguage(connection, "ja");
    connection->begin = begun;
    connection->end = ended;
    connection->cancel = cancelled;
    library.setNotificationOn(connection, notifyBegin);
    library.setNotificationOn(connection, notifyEnd);
    library.setNotificationOn(connection, notifyCancel);
    printLine(STDOUT_FILENO, module.starts_with("espeak") ? "ready kana" : "ready text");
    for (std::string order; std::getline(std::cin, order);)
        carryOut(library, connection, order);
    return 0;
}
