#include "platform/keeper/foreign_read.h"

#include "platform/utf8.h"

#include <algorithm>
#include <utility>

using std::chrono::steady_clock;

namespace {

constexpr std::chrono::seconds patienceWithSender{1};

} // namespace

ForeignRead::ForeignRead(XConnection &x, std::size_t mostBytes)
    : x_(x), mostBytes_(mostBytes), forms_{x.atoms().utf8String, x.atoms().plainUtf8, XCB_ATOM_STRING, x.atoms().text} {
    std::string name = "ROMIKA_READ_";
    for (std::size_t i = 0; i < properties_.size(); ++i)
        properties_[i] = x.atom(name + static_cast<char>('A' + i));
}

void ForeignRead::start(xcb_window_t owner, TimePoint deadline) {
    cancel();
    text_.reset();
    failed_ = false;
    form_ = 0;
    owner_ = owner;
    deadline_ = deadline;
    if (abandoned_ != XCB_ATOM_NONE && abandonedOwner_ == owner && steady_clock::now() < abandonedUntil_)
        state_ = State::waiting;
    else
        ask();
}

void ForeignRead::ask() {
    const auto time = x_.serverTime();
    if (!time)
        return fail();
    time_ = *time;
    current_ = (current_ + 1) % properties_.size();
    bytes_.clear();
    xcb_delete_property(x_.raw(), x_.window(), property());
    xcb_convert_selection(x_.raw(), x_.window(), x_.atoms().clipboard, forms_[form_], property(), time_);
    state_ = State::asked;
}

void ForeignRead::askNextForm() {
    if (++form_ < forms_.size())
        return ask();
    state_ = State::idle;
    text_.emplace();
}

void ForeignRead::cancel() {
    // Removing the property lets an owner that sends piece by piece go on to its end instead of waiting for us.
    if (state_ == State::receiving) {
        abandon(property());
        xcb_delete_property(x_.raw(), x_.window(), property());
    }
    state_ = State::idle;
    bytes_ = {};
}

void ForeignRead::abandon(xcb_atom_t property) {
    abandoned_ = property;
    abandonedOwner_ = owner_;
    abandonedUntil_ = steady_clock::now() + patienceWithSender;
}

/// Takes away a piece of a reading given up.
void ForeignRead::drain(xcb_atom_t property) {
    const auto piece = x_.property(x_.window(), property, 0, false);
    if (!piece || piece->type == XCB_ATOM_NONE)
        return;
    xcb_delete_property(x_.raw(), x_.window(), property);
    const bool isEnd = property == abandoned_ && piece->isWhole;
    if (piece->type == x_.atoms().incr || (property == abandoned_ && !isEnd))
        abandon(property);
    if (!isEnd)
        return;
    abandoned_ = XCB_ATOM_NONE;
    if (state_ == State::waiting)
        ask();
}

void ForeignRead::fail() {
    cancel();
    failed_ = true;
}

void ForeignRead::handle(const xcb_generic_event_t &event) {
    if (kindOf(event) == XCB_SELECTION_NOTIFY)
        return received(as<xcb_selection_notify_event_t>(event));
    const auto &change = as<xcb_property_notify_event_t>(event);
    if (kindOf(event) != XCB_PROPERTY_NOTIFY || change.window != x_.window() || change.state != XCB_PROPERTY_NEW_VALUE)
        return;
    if ((state_ == State::asked || state_ == State::receiving) && change.atom == property()) {
        if (state_ == State::receiving)
            receivePiece();
    } else if (std::ranges::find(properties_, change.atom) != properties_.end()) {
        drain(change.atom);
    }
}

void ForeignRead::received(const xcb_selection_notify_event_t &notice) {
    if (state_ != State::asked || notice.selection != x_.atoms().clipboard || notice.target != forms_[form_])
        return;
    if (notice.property == XCB_ATOM_NONE) {
        if (notice.time == time_)
            askNextForm();
        return;
    }
    if (notice.property != property())
        return;
    auto answer = x_.property(x_.window(), property(), mostBytes_, true);
    if (!answer)
        return fail();
    if (answer->type == x_.atoms().incr) {
        state_ = State::receiving;
        return;
    }
    if (!isText(answer->type) || answer->format != 8)
        return askNextForm();
    if (!answer->isWhole) {
        state_ = State::receiving;
        return fail();
    }
    bytes_ = std::move(answer->bytes);
    type_ = answer->type;
    finish();
}

void ForeignRead::receivePiece() {
    const auto piece = x_.property(x_.window(), property(), mostBytes_ - bytes_.size(), true);
    if (piece && piece->type != XCB_ATOM_NONE && piece->bytes.empty() && piece->isWhole)
        return finish();
    if (!piece || !piece->isWhole || !isText(piece->type) || piece->format != 8)
        return fail();
    bytes_ += piece->bytes;
    type_ = piece->type;
}

void ForeignRead::finish() {
    state_ = State::idle;
    text_ = type_ == XCB_ATOM_STRING ? utf8FromLatin1(bytes_) : std::move(bytes_);
    bytes_ = {};
    if (text_->size() > mostBytes_) {
        text_.reset();
        failed_ = true;
    }
}

bool ForeignRead::isText(xcb_atom_t type) const {
    return type == x_.atoms().utf8String || type == x_.atoms().plainUtf8 || type == XCB_ATOM_STRING;
}

std::optional<std::string> ForeignRead::takeText() {
    return std::exchange(text_, std::nullopt);
}

bool ForeignRead::takeFailure() {
    return std::exchange(failed_, false);
}
