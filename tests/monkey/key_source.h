#pragma once
// Where the keys of a walk come from: from a trace, or from the picker, and then they are written down before they are
// pressed.

#include "tests/monkey/key_picker.h"

#include <deque>
#include <fstream>
#include <optional>
#include <string>

/// Where the keys of a walk come from.
class KeySource {
public:
    virtual ~KeySource() = default;
    /// Nothing when they are used up.
    virtual std::optional<MonkeyKey> next(const Situation& situation) = 0;
};

/// The keys of a trace, which outlives it.
class TraceSource : public KeySource {
public:
    explicit TraceSource(const std::vector<MonkeyKey>& keys) : keys_(keys) {}
    std::optional<MonkeyKey> next(const Situation&) override {
        return at_ < keys_.size() ? std::optional(keys_[at_++]) : std::nullopt;
    }

private:
    const std::vector<MonkeyKey>& keys_;
    std::size_t at_ = 0;
};

/// Chooses keys and writes each one down before it is pressed.
class RandomSource : public KeySource {
public:
    RandomSource(std::uint64_t seed, std::uint64_t table, int steps, const std::string& traceFile)
        : picker_(seed), steps_(steps), trace_(traceFile, std::ios::binary | std::ios::trunc) {
        trace_ << textOf({table, {}}) << std::flush;
    }
    std::optional<MonkeyKey> next(const Situation& situation) override {
        if (pressed_ == steps_) {
            return std::nullopt;
        }
        ++pressed_;
        if (queue_.empty()) {
            choose(situation);
        }
        const MonkeyKey key = queue_.front();
        queue_.pop_front();
        trace_ << lineOf(key) << "\n" << std::flush;
        return key;
    }

    /// How many keys have been given out.
    int pressed() const { return pressed_; }

private:
    // What is typed is typed key by key, so that the table can be looked at in between.
    void choose(const Situation& situation) {
        const MonkeyKey key = picker_.next(situation);
        if (key.kind != MonkeyKey::Kind::type) {
            queue_.push_back(key);
            return;
        }
        for (const char16_t unit : key.text) {
            queue_.push_back({MonkeyKey::Kind::type, {}, Text(1, unit)});
        }
    }

    KeyPicker picker_;
    std::deque<MonkeyKey> queue_;
    int steps_;
    int pressed_ = 0;
    std::ofstream trace_;
};
