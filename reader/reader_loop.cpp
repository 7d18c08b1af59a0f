#include "reader/reader_loop.h"

#include "reader/marked_text.h"

#include <algorithm>
#include <csignal>
#include <sys/signalfd.h>
#include <utility>

using std::chrono::steady_clock;

namespace {

/// Takes the signals that end the program out of their sudden course and makes them readable.
Descriptor takeEndingSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, nullptr);
    return Descriptor(signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
}

void carryOut(ClipboardRequest request, Speaker& speaker, EventLog& log) {
    switch (request.kind) {
    case ClipboardRequest::Kind::none:
        return;
    case ClipboardRequest::Kind::silence:
        log.add("silence", "");
        return speaker.stop();
    case ClipboardRequest::Kind::speed:
        log.add("speed", std::string(1, static_cast<char>('0' + request.speed)));
        speaker.stop();
        return speaker.setSpeed(request.speed);
    case ClipboardRequest::Kind::speech:
        log.add("text", request.text);
        return speaker.speak(std::move(request.text));
    }
}

std::optional<TimePoint> earlier(std::optional<TimePoint> one, std::optional<TimePoint> other) {
    return one && other ? std::min(*one, *other) : one ? one : other;
}

} // namespace

void waitForNews(std::vector<pollfd>& watched, std::optional<TimePoint> deadline) {
    int timeout = -1;
    if (deadline) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - steady_clock::now()).count();
        timeout = static_cast<int>(std::max<std::int64_t>(left, 0));
    }
    poll(watched.data(), watched.size(), timeout);
}

bool watchClipboard(ClipboardWatch& clipboard, Speaker& speaker, EventLog& log, const std::function<void()>& ready) {
    const Descriptor signals = takeEndingSignals();
    speaker.prepare();
    bool isReady = false;
    while (!clipboard.isOver()) {
        const TimePoint now = steady_clock::now();
        clipboard.work(now);
        if (auto text = clipboard.takeText())
            carryOut(requestIn(std::move(*text)), speaker, log);
        speaker.work(now);
        if (!isReady && speaker.isDecided()) {
            if (speaker.hasGivenUp())
                return false;
            isReady = true;
            ready();
        }
        std::vector<pollfd> watched{{clipboard.descriptor(), POLLIN, 0}, {signals.number(), POLLIN, 0}};
        speaker.watch(watched);
        waitForNews(watched, earlier(clipboard.deadline(), speaker.deadline()));
        if (watched[1].revents != 0)
            break;
    }
    speaker.stop();
    return true;
}

bool speakToTheEnd(Speaker& speaker, const std::string& text) {
    speaker.prepare();
    speaker.speak(text);
    while (speaker.isSpeaking()) {
        std::vector<pollfd> watched;
        speaker.watch(watched);
        waitForNews(watched, speaker.deadline());
        speaker.work(steady_clock::now());
    }
    return speaker.hasSaidAll();
}
