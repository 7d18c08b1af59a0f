#include "platform/keeper/keeper.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <poll.h>
#include <unistd.h>
#include <utility>

using std::chrono::steady_clock;

namespace {

KeeperMessage answer(const KeeperMessage &request, bool done) {
    return {done ? KeeperMessageKind::done : KeeperMessageKind::failed, request.sequence, 0, {}};
}

} // namespace

Keeper::Keeper(XConnection &x, int program)
    : x_(x), program_(program), transfers_(x), selection_(x, transfers_), reading_(x) {
    const std::int32_t process = getpid();
    program_.send({KeeperMessageKind::hello, 0, 0, {reinterpret_cast<const char *>(&process), sizeof process}});
}

void Keeper::run() {
    while (!isOver()) {
        const TimePoint now = steady_clock::now();
        transfers_.expire(now);
        if (reading_.isUnderWay() && reading_.deadline() <= now)
            reading_.cancel();
        x_.flush();
        // Sending may have brought in events, and those do not wake up poll.
        if (!handleEvents())
            waitForWork();
    }
    // A socket that is closed with events unread throws away what the server has not read: perhaps a text's last piece.
    x_.settle();
}

bool Keeper::isOver() {
    if (x_.isBroken())
        return true;
    if (!program_.isOpen() && !programGone_) {
        programGone_ = true;
        reading_.cancel();
        if (selection_.isOwner())
            selection_.offerToManager();
    }
    return programGone_ && (saved_ || !selection_.text()) && transfers_.isEmpty();
}

bool Keeper::handleEvents() {
    bool any = false;
    while (const XEvent event = x_.nextEvent()) {
        handle(*event);
        any = true;
    }
    reportReading();
    return any;
}

void Keeper::handle(const xcb_generic_event_t &event) {
    const Atoms &atoms = x_.atoms();
    switch (kindOf(event)) {
    case XCB_SELECTION_REQUEST:
        selection_.answer(as<xcb_selection_request_event_t>(event), steady_clock::now());
        break;
    case XCB_SELECTION_CLEAR:
        // The news may be older than our latest writing, so the server is asked.
        selection_.isOwner();
        break;
    case XCB_SELECTION_NOTIFY: {
        const auto &notice = as<xcb_selection_notify_event_t>(event);
        if (notice.selection == atoms.clipboardManager)
            saved_ = programGone_ && notice.property != XCB_ATOM_NONE;
        else
            reading_.handle(event);
        break;
    }
    default:
        reading_.handle(event);
        transfers_.handle(event, steady_clock::now());
    }
}

void Keeper::carryOut(KeeperMessage &request) {
    reading_.cancel();
    const bool tooLate = TimePoint(std::chrono::nanoseconds(request.deadline)) <= steady_clock::now();
    if (tooLate)
        program_.send(answer(request, false));
    else if (request.kind == KeeperMessageKind::write)
        program_.send(answer(request, selection_.take(std::move(request.payload))));
    else if (request.kind == KeeperMessageKind::clear)
        program_.send(answer(request, selection_.empty()));
    else if (request.kind == KeeperMessageKind::read)
        startReading(request);
}

void Keeper::startReading(const KeeperMessage &request) {
    const auto owner = x_.selectionOwner(x_.atoms().clipboard);
    if (!owner)
        return program_.send(answer(request, false));
    if (*owner == x_.window() && selection_.text())
        return program_.send({KeeperMessageKind::text, request.sequence, 0, *selection_.text()});
    if (*owner == XCB_WINDOW_NONE)
        return program_.send({KeeperMessageKind::text, request.sequence, 0, {}});
    readingSequence_ = request.sequence;
    reading_.start(*owner, TimePoint(std::chrono::nanoseconds(request.deadline)));
}

void Keeper::reportReading() {
    if (auto text = reading_.takeText())
        program_.send({KeeperMessageKind::text, readingSequence_, 0, std::move(*text)});
    else if (reading_.takeFailure())
        program_.send({KeeperMessageKind::failed, readingSequence_, 0, {}});
}

void Keeper::waitForWork() {
    pollfd watched[] = {{x_.descriptor(), POLLIN, 0}, {program_.descriptor(), program_.pollEvents(), 0}};
    if (poll(watched, std::size(watched), pollTimeout(steady_clock::now())) <= 0)
        return;
    if ((watched[1].revents & POLLOUT) != 0)
        program_.sendWaiting();
    if ((watched[1].revents & ~POLLOUT) != 0)
        program_.receive();
    while (auto request = program_.next())
        carryOut(*request);
}

/// Milliseconds until something must be given up, rounded up; -1 if nothing must.
int Keeper::pollTimeout(TimePoint now) const {
    auto first = transfers_.nextDeadline();
    if (reading_.isUnderWay())
        first = first ? std::min(*first, reading_.deadline()) : reading_.deadline();
    if (!first)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*first - now).count();
    return static_cast<int>(std::max<std::int64_t>(left, 0));
}
