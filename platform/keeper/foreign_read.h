#pragma once
// One reading of a clipboard that another program owns, told event by event so that the caller goes on with its work
// meanwhile. Driven by the loops of the keeper and of the reading program. It asks for the forms of text in order of worth; an owner that has none of
// them gives an empty text. Late answers to an earlier reading are never taken for answers to the present one.

#include "platform/keeper/x_connection.h"
#include "platform/keeper_protocol.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>

using TimePoint = std::chrono::steady_clock::time_point;

/// Reads the text of a foreign owner; at most one reading at a time. A text of more than `mostBytes` bytes is a failure.
class ForeignRead {
public:
    explicit ForeignRead(XConnection &x, std::size_t mostBytes = maxKeeperPayload);

    /// Asks the owner; the caller gives the reading up when `deadline` has come. A reading that is under way is given
    /// up first. An owner that is still busy sending the pieces of a reading given up is asked when it has come to
    /// their end, since some owners mistake our taking of one answer for our taking of the other, and send a torn text.
    void start(xcb_window_t owner, TimePoint deadline);
    /// Gives up the reading that is under way, if any.
    void cancel();
    /// Goes on with the reading, and lets the owners of readings given up come to their end.
    void handle(const xcb_generic_event_t &event);

    bool isUnderWay() const { return state_ != State::idle; }
    TimePoint deadline() const { return deadline_; }
    /// The UTF-8 text, once it is complete; handed out once.
    std::optional<std::string> takeText();
    /// True once if the reading ended without a text.
    bool takeFailure();

private:
    enum class State { idle, waiting, asked, receiving };

    void ask();
    void askNextForm();
    void received(const xcb_selection_notify_event_t &notice);
    void receivePiece();
    void drain(xcb_atom_t property);
    void abandon(xcb_atom_t property);
    void finish();
    void fail();
    xcb_atom_t property() const { return properties_[current_]; }
    bool isText(xcb_atom_t type) const;

    XConnection &x_;
    std::size_t mostBytes_;
    std::array<xcb_atom_t, 4> forms_;
    std::array<xcb_atom_t, 32> properties_;
    std::size_t current_ = 0; ///< index of the property in use; each question takes the next one
    std::size_t form_ = 0;
    State state_ = State::idle;
    xcb_timestamp_t time_ = XCB_CURRENT_TIME;
    TimePoint deadline_{};
    xcb_window_t owner_ = XCB_WINDOW_NONE;
    xcb_atom_t abandoned_ = XCB_ATOM_NONE; ///< where the pieces of a reading given up still arrive
    xcb_window_t abandonedOwner_ = XCB_WINDOW_NONE;
    TimePoint abandonedUntil_{}; ///< when its owner is no longer believed to be sending
    std::string bytes_;
    xcb_atom_t type_ = XCB_ATOM_NONE; ///< type of the pieces received so far
    std::optional<std::string> text_;
    bool failed_ = false;
};
