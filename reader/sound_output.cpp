#include "reader/sound_output.h"

#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/utf8.h"
#include "reader/wave_stream.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

std::vector<std::string> commandOf(const std::string& player, std::uint32_t rate) {
    const std::string rateText = toUtf8(plainNumber(rate));
    if (player == "paplay")
        return {player,
                "--raw",
                "--rate=" + rateText,
                "--format=s16le",
                "--channels=1",
                "--latency-msec=30",
                "--client-name=romika-reader"};
    if (player == "aplay")
        return {player, "-q", "-t", "raw", "-f", "S16_LE", "-c", "1", "-r", rateText, "-"};
    return {player, rateText};
}

} // namespace

std::vector<std::string> installedPlayers(const std::string& player) {
    std::vector<std::string> found;
    for (const std::string& each :
         player == "auto" ? std::vector<std::string>{"paplay", "aplay"} : std::vector<std::string>{player}) {
        if (!findProgram(each).empty())
            found.push_back(each);
    }
    return found;
}

PlayerOutput::PlayerOutput(const std::string& player) : players_(installedPlayers(player)) {}

void PlayerOutput::begin(std::uint32_t rate) {
    stop();
    if (!hasAnotherWay())
        next_ = 0; // a device may have been plugged in meanwhile
    if (next_ < players_.size())
        playing_ = ChildProcess::start(commandOf(players_[next_], rate), ChildProcess::Output::thrownAway);
    state_ = State::open;
    if (!playing_)
        fail();
}

std::size_t PlayerOutput::write(std::string_view samples) {
    if (state_ != State::open)
        return 0;
    const auto taken = uninterrupted([&] { return ::write(playing_->input(), samples.data(), samples.size()); });
    if (taken >= 0)
        return static_cast<std::size_t>(taken);
    if (errno != EAGAIN)
        fail();
    return 0;
}

void PlayerOutput::finish() {
    if (state_ != State::open)
        return;
    playing_->closeInput();
    state_ = State::ending;
}

void PlayerOutput::stop() {
    playing_.reset();
    state_ = State::closed;
}

void PlayerOutput::fail() {
    playing_.reset();
    state_ = State::failed;
    ++next_;
}

SoundOutput::State PlayerOutput::state() {
    if (playing_ && playing_->status()) {
        if (state_ == State::ending && *playing_->status() == 0) {
            playing_.reset();
            state_ = State::done;
        } else {
            fail();
        }
    }
    return state_;
}

void PlayerOutput::watch(std::vector<pollfd>& watched, bool wantsRoom) const {
    if (!playing_)
        return;
    watched.push_back({playing_->ending(), POLLIN, 0});
    if (wantsRoom && state_ == State::open)
        watched.push_back({playing_->input(), POLLOUT, 0});
}

void FileOutput::begin(std::uint32_t rate) {
    stop();
    file_ = openNative(path_, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    rate_ = rate;
    bytes_ = 0;
    state_ = State::open;
    const std::string head = waveHead(rate, 0);
    if (!file_.isOpen() || ::write(file_.number(), head.data(), head.size()) != static_cast<ssize_t>(head.size()))
        state_ = State::failed;
}

std::size_t FileOutput::write(std::string_view samples) {
    if (state_ != State::open)
        return 0;
    const auto taken = uninterrupted([&] { return ::write(file_.number(), samples.data(), samples.size()); });
    if (taken < 0) {
        state_ = State::failed;
        return 0;
    }
    bytes_ += static_cast<std::uint32_t>(taken);
    return static_cast<std::size_t>(taken);
}

void FileOutput::finish() {
    if (state_ != State::open)
        return;
    const std::string head = waveHead(rate_, bytes_);
    const auto written = ::pwrite(file_.number(), head.data(), head.size(), 0);
    // What is no file but a device has no head to go back to.
    state_ = written == static_cast<ssize_t>(head.size()) || errno == ESPIPE ? State::done : State::failed;
    file_ = Descriptor();
}

void FileOutput::stop() {
    file_ = Descriptor();
    state_ = State::closed;
}
