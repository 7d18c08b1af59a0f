#include "platform/keys_on_hold.h"

#include <algorithm>
#include <set>

void KeysOnHold::hold(Moment now) {
    isHolding_ = true;
    since_ = now;
    // What the toolkit never brought to a control, such as a key for a window that could not take it, is no news any more.
    std::erase_if(underway_, [&](const Timed& timed) { return now - timed.came > patience; });
    for (const Timed& timed : underway_) {
        taken_.push_back(timed.key);
    }
    waiting_.insert(waiting_.begin(), underway_.begin(), underway_.end());
    underway_.clear();
}

int KeysOnHold::end() {
    const auto presses =
        std::count_if(waiting_.begin(), waiting_.end(), [](const Timed& timed) { return timed.key.isPress; });
    isHolding_ = false;
    waiting_.clear();
    taken_.clear();
    return static_cast<int>(presses);
}

bool KeysOnHold::comes(const RawKey& key, Moment now) {
    if (isHolding_) {
        waiting_.push_back({key, now});
        return true;
    }
    goesOn(key, now);
    return false;
}

void KeysOnHold::goesOn(const RawKey& key, Moment now) {
    constexpr std::size_t most = 64; // more are never underway; but nothing may grow if the toolkit brings none of them
    if (underway_.size() == most) {
        underway_.pop_front();
    }
    underway_.push_back({key, now});
}

bool KeysOnHold::reaches(const RawKey& key) {
    if (std::find(taken_.begin(), taken_.end(), key) != taken_.end()) {
        return true;
    }
    // The toolkit keeps the order, so those before it reached nobody.
    const auto place =
        std::find_if(underway_.begin(), underway_.end(), [&](const Timed& timed) { return timed.key == key; });
    if (place != underway_.end()) {
        underway_.erase(underway_.begin(), place + 1);
    }
    return false;
}

std::optional<RawKey> KeysOnHold::next(Moment now, int& givenUp) {
    taken_.clear();
    while (!waiting_.empty()) {
        const Timed timed = waiting_.front();
        waiting_.pop_front();
        // Its press may have been handed on, so a release always is.
        if (!timed.key.isPress || now - timed.came <= patience) {
            return timed.key;
        }
        ++givenUp;
    }
    return std::nullopt;
}

std::optional<RawKey> KeysOnHold::nextOf(unsigned code) {
    std::set<unsigned> pressed;
    const auto place = std::find_if(waiting_.begin(), waiting_.end(), [&](const Timed& timed) {
        if (timed.key.isPress) {
            pressed.insert(timed.key.code);
        }
        return timed.key.code == code || !pressed.contains(timed.key.code);
    });
    if (place == waiting_.end()) {
        return std::nullopt;
    }
    const RawKey key = place->key;
    waiting_.erase(place);
    return key;
}

bool KeysOnHold::isReleaseWaiting(unsigned code) const {
    return std::any_of(waiting_.begin(), waiting_.end(),
                       [&](const Timed& timed) { return !timed.key.isPress && timed.key.code == code; });
}
