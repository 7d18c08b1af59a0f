#pragma once
// Where the samples of a wave engine go. Two kinds: the desktop's sound through a player program, and a wave file.
// Driven by the engine, which offers samples as they arrive; an output takes what it has room for and never waits.

#include "reader/child_process.h"
#include "reader/time_point.h"

#include <cstdint>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <vector>

/// An output for 16-bit samples of one channel.
class SoundOutput {
public:
    enum class State {
        closed, ///< nothing begun, or cut off
        open,   ///< takes samples
        ending, ///< has all samples and brings them out
        done,   ///< brought everything out
        failed, ///< gave up; `begin` may be called for another try
    };

    virtual ~SoundOutput() = default;
    /// Begins a text with `rate` samples a second.
    virtual void begin(std::uint32_t rate) = 0;
    /// Takes samples; returns how many bytes of them.
    virtual std::size_t write(std::string_view samples) = 0;
    /// All samples have been given.
    virtual void finish() = 0;
    /// Cuts off at once.
    virtual void stop() = 0;
    /// True if another try after a failure would go another way.
    virtual bool hasAnotherWay() const = 0;
    virtual State state() = 0;
    /// Adds what is to be waited for; `wantsRoom` if a write did not take everything.
    virtual void watch(std::vector<pollfd>& watched, bool wantsRoom) const = 0;
};

/// The desktop's sound. Of the players that are installed it stays with the first that works.
class PlayerOutput : public SoundOutput {
public:
    /// `player`: "auto", "paplay", "aplay", or the path of a program that is given the rate as its only argument and
    /// the samples at its standard input.
    explicit PlayerOutput(const std::string& player);

    void begin(std::uint32_t rate) override;
    std::size_t write(std::string_view samples) override;
    void finish() override;
    void stop() override;
    bool hasAnotherWay() const override { return next_ < players_.size(); }
    State state() override;
    void watch(std::vector<pollfd>& watched, bool wantsRoom) const override;

private:
    void fail();

    std::vector<std::string> players_;
    std::size_t next_ = 0; ///< index of the player that the next text begins with
    std::optional<ChildProcess> playing_;
    State state_ = State::closed;
};

/// A wave file, written as fast as the engine speaks.
class FileOutput : public SoundOutput {
public:
    explicit FileOutput(std::string path) : path_(std::move(path)) {}

    void begin(std::uint32_t rate) override;
    std::size_t write(std::string_view samples) override;
    void finish() override;
    void stop() override;
    bool hasAnotherWay() const override { return false; }
    State state() override { return state_; }
    void watch(std::vector<pollfd>&, bool) const override {}
    /// Bytes of samples written.
    std::uint32_t bytes() const { return bytes_; }

private:
    std::string path_;
    Descriptor file_;
    std::uint32_t rate_ = 0;
    std::uint32_t bytes_ = 0;
    State state_ = State::closed;
};

/// The players that `player` (see PlayerOutput) stands for and that are installed, best first.
std::vector<std::string> installedPlayers(const std::string& player);
