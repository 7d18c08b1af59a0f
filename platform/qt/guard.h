#pragma once
// The one place that catches failures. Every handler that the toolkit calls (a key, a click, a timer) runs inside
// run(), so nothing is ever thrown through the toolkit's frames. A failure ends the event in which it rose: the state
// is put right, one report is shown, the program goes on. An end of the program is kept here as pending: it closes all
// event loops, the code that waited behind them gets it thrown again, and main leaves with exitStatus().

#include "platform/failure.h"
#include "sheet/zormod.h"

#include <QList>

#include <functional>
#include <variant>

class QEventLoop;

/// The guard round all handlers; one for the program. Handlers nest: what rises in a handler that runs inside a modal
/// form of another handler ends the inner one alone, unless it ends the program.
class EventGuard {
public:
    /// Puts the shared state right after a failure, before the report is shown.
    using Cleanup = std::function<void(const RuntimeFailure&)>;

    /// `endMainLoop` is called once with the exit status when an end of the program becomes pending.
    EventGuard(ZORMOD& zormod, std::function<void(int)> endMainLoop);
    EventGuard(const EventGuard&) = delete;
    EventGuard& operator=(const EventGuard&) = delete;

    /// Sets the routine that puts the state right; without one only the position is restored.
    void setCleanup(Cleanup putStateRight) { putStateRight_ = std::move(putStateRight); }

    /// Runs a handler. True if it came to its end; false if it failed, or if an end is pending: then it isn't run.
    /// Never throws.
    bool run(const std::function<void()>& handler);
    /// The same, but runs `work` also while an end is pending: events must still reach the toolkit then.
    bool catchFrom(const std::function<void()>& work);
    /// `handler` inside run(), for signals and timers.
    std::function<void()> wrap(std::function<void()> handler);

    /// Runs a nested event loop. A pending end closes it; then the end is thrown here again.
    void runLoop(QEventLoop& loop);
    /// Throws the pending end, if there is one, as the ProgramEnd or FatalFailure that it was. For code that has given
    /// the turn to the event loop.
    void throwPending() const;
    bool isEndPending() const { return !std::holds_alternative<std::monostate>(pending_); }
    /// 0 after an end by design, 1 after a fatal failure.
    int exitStatus() const { return std::holds_alternative<FatalFailure>(pending_) ? 1 : 0; }

private:
    void recover(const RuntimeFailure& failure, const Position& before);
    void endFatally(const FatalFailure& failure);
    void setPending(std::variant<std::monostate, ProgramEnd, FatalFailure> end);

    ZORMOD& zormod_;
    std::function<void(int)> endMainLoop_;
    Cleanup putStateRight_;
    QList<QEventLoop*> loops_;
    std::variant<std::monostate, ProgramEnd, FatalFailure> pending_;
};
