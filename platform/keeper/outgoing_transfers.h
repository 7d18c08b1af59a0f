#pragma once
// Texts too long for one property, on their way to other programs piece by piece (the INCR protocol). Started by
// SelectionKeeper, driven by the keeper's loop. A program that dies or falls silent in the middle costs nothing: its
// transfer is dropped, and the number and size of transfers are bounded. Never waits.

#include "platform/keeper/x_connection.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using SharedBytes = std::shared_ptr<const std::string>;
using TimePoint = std::chrono::steady_clock::time_point;

/// All transfers under way.
class OutgoingTransfers {
public:
    explicit OutgoingTransfers(XConnection &x) : x_(x) {}

    /// Announces a transfer of `bytes` in the requestor's property; the caller then sends the notification.
    /// False if too much is under way already: the request is to be refused.
    bool start(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, SharedBytes bytes, TimePoint now);
    /// Sends the next piece when a requestor has taken one, forgets requestors that are gone.
    void handle(const xcb_generic_event_t &event, TimePoint now);
    /// Forgets the requestors that have taken nothing for too long.
    void expire(TimePoint now);
    /// When `expire` has something to do next; nothing if no transfer is under way.
    std::optional<TimePoint> nextDeadline() const;
    bool isEmpty() const { return transfers_.empty(); }

private:
    struct Transfer {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        SharedBytes bytes;
        std::size_t sent;
        TimePoint deadline;
    };

    bool sendPiece(Transfer &transfer, TimePoint now);
    void watch(xcb_window_t requestor, bool on);
    template <class Predicate> void drop(Predicate isOver, bool requestorLives);

    XConnection &x_;
    std::vector<Transfer> transfers_;
};
