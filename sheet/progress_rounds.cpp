#include "sheet/progress_rounds.h"

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/number_text.h"

ProgressRounds::ProgressRounds(ZORMOD& zormod, const Text& name, bool canStop, std::int32_t total)
    : zormod_(zormod), hasForm_(!name.empty()), canStop_(canStop && hasForm_), total_(total) {
    zormod_.results.answers[0] = 0.0;
    if (hasForm_) {
        zormod_.platform.dialogs.openProgress(name, {}, canStop);
    }
}

bool ProgressRounds::next() { return next(rounds_ + 1); }

bool ProgressRounds::next(std::int32_t done) {
    rounds_ = done;
    if (isShown()) {
        showPercent();
    }
    return turn();
}

bool ProgressRounds::turn() {
    if (isShown()) {
        zormod_.platform.eventLoop.yield();
        isStopped_ = canStop_ && isStopAsked(zormod_);
    }
    return !isStopped_;
}

bool ProgressRounds::isShown() const {
    // Without the form nothing keeps keys from the other windows, so no event may be handled then.
    return !isStopped_ && hasForm_ && zormod_.platform.dialogs.isProgressOpen();
}

void ProgressRounds::showPercent() {
    const std::int32_t percent = roundTo32(static_cast<double>(rounds_) / total_ * 100);
    if (percent % 10 == 0 && percent != shownPercent_) {
        zormod_.platform.dialogs.showProgress(percentText(percent));
        shownPercent_ = percent;
    }
}

bool isStopAsked(const ZORMOD& zormod) {
    const auto* flag = std::get_if<double>(&zormod.results.answers[0]);
    return flag != nullptr && *flag == 1.0;
}
