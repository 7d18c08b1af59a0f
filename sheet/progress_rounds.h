#pragma once
// The rounds of a long loop over records: the progress form with its percent, one turn of the event loop a round, and
// the stop. The bulk rewrite and the changes in place run on them.

#include "sheet/zormod.h"

/// The rounds of one operation.
class ProgressRounds {
public:
    /// Opens the progress form under `name`; an empty name means no form, no turn of the event loop and no stop. `total`
    /// rounds are 100 percent.
    ProgressRounds(ZORMOD& zormod, const Text& name, bool canStop, std::int32_t total);

    /// Begins the next round: percent, turn of the event loop, stop test. False if the user has stopped the operation.
    bool next();
    /// The same for an operation that counts by itself: `done` of the total is done.
    bool next(std::int32_t done);
    /// A round that counts for nothing in the percentage: turn and stop test alone.
    bool turn();
    bool isStopped() const { return isStopped_; }

private:
    bool isShown() const;
    void showPercent();

    ZORMOD& zormod_;
    const bool hasForm_;
    const bool canStop_;
    const std::int32_t total_;
    std::int32_t rounds_ = 0;
    std::int32_t shownPercent_ = -1;
    bool isStopped_ = false;
};

/// True once the stop button has set `answers(0)`.
bool isStopAsked(const ZORMOD& zormod);
