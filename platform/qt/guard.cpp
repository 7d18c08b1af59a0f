#include "platform/qt/guard.h"

#include "platform/dialogs.h"

#include <QEventLoop>

EventGuard::EventGuard(ZORMOD& zormod, std::function<void(int)> endMainLoop)
    : zormod_(zormod), endMainLoop_(std::move(endMainLoop)) {}

bool EventGuard::run(const std::function<void()>& handler) {
    return !isEndPending() && catchFrom(handler);
}

bool EventGuard::catchFrom(const std::function<void()>& work) {
    const Position before = zormod_.position;
    try {
        work();
        return true;
    } catch (const RuntimeFailure& failure) {
        recover(failure, before);
    } catch (const FatalFailure& failure) {
        endFatally(failure);
    } catch (const ProgramEnd& end) {
        setPending(end);
    }
    return false;
}

std::function<void()> EventGuard::wrap(std::function<void()> handler) {
    return [this, handler = std::move(handler)] { run(handler); };
}

void EventGuard::recover(const RuntimeFailure& failure, const Position& before) {
    // The typed row stays in the window, and so must the position that it was typed at. If the window has been filled
    // anew meanwhile, the old position would put the row elsewhere.
    if (failure.rowWrite && zormod_.position.windowFirst == before.windowFirst) {
        zormod_.position = before;
    }
    try {
        if (putStateRight_) {
            putStateRight_(failure);
        }
    } catch (const RuntimeFailure&) {
        // The disk that failed fails again. The user is told once, by the report of the first failure below.
    } catch (const FatalFailure& fatal) {
        endFatally(fatal);
        return;
    } catch (const ProgramEnd& end) {
        setPending(end);
        return;
    }
    if (!failure.isTold) {
        run([&] { zormod_.platform.dialogs.showMessage(Text(failureText(failure.kind)), Text(failureTitle)); });
    }
}

void EventGuard::endFatally(const FatalFailure& failure) {
    if (isEndPending()) {
        return; // thrown again behind a closed loop: the report has been shown
    }
    const Text text = failure.report.empty() ? Text(failureText(failure.kind)) : failure.report;
    const Text title = failure.title.empty() ? Text(failureTitle) : failure.title;
    run([&] { zormod_.platform.dialogs.showMessage(text, title); });
    setPending(failure);
}

void EventGuard::runLoop(QEventLoop& loop) {
    throwPending();
    loops_.append(&loop);
    loop.exec(QEventLoop::DialogExec);
    loops_.removeOne(&loop);
    throwPending();
}

void EventGuard::throwPending() const {
    if (const auto* end = std::get_if<ProgramEnd>(&pending_)) {
        throw *end;
    }
    if (const auto* failure = std::get_if<FatalFailure>(&pending_)) {
        throw *failure;
    }
}

void EventGuard::setPending(std::variant<std::monostate, ProgramEnd, FatalFailure> end) {
    if (isEndPending()) {
        return;
    }
    pending_ = std::move(end);
    for (QEventLoop* loop : loops_) {
        loop->exit();
    }
    endMainLoop_(exitStatus());
}
