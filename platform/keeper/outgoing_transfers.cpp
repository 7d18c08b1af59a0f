#include "platform/keeper/outgoing_transfers.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t mostTransfers = 64;
constexpr std::size_t mostBytes = 256u << 20;
constexpr std::chrono::seconds patience{5};

} // namespace

bool OutgoingTransfers::start(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, SharedBytes bytes,
                              TimePoint now) {
    drop([&](const Transfer &t) { return t.requestor == requestor && t.property == property; }, true);
    std::size_t held = bytes->size();
    for (const Transfer &transfer : transfers_)
        held += transfer.bytes->size();
    if (transfers_.size() >= mostTransfers || held > mostBytes)
        return false;
    // Watching must come before the announcement: the requestor may answer it by return.
    watch(requestor, true);
    const auto size = static_cast<std::uint32_t>(bytes->size());
    x_.setProperty(requestor, property, x_.atoms().incr, {&size, 1});
    transfers_.push_back({requestor, property, type, std::move(bytes), 0, now + patience});
    return true;
}

void OutgoingTransfers::handle(const xcb_generic_event_t &event, TimePoint now) {
    if (kindOf(event) == XCB_DESTROY_NOTIFY) {
        const xcb_window_t gone = as<xcb_destroy_notify_event_t>(event).window;
        drop([&](const Transfer &t) { return t.requestor == gone; }, false);
        return;
    }
    const auto &change = as<xcb_property_notify_event_t>(event);
    if (kindOf(event) != XCB_PROPERTY_NOTIFY || change.state != XCB_PROPERTY_DELETE)
        return;
    drop([&](Transfer &t) { return t.requestor == change.window && t.property == change.atom && !sendPiece(t, now); },
         true);
}

/// Sends the next piece; false if that was the empty one which ends the transfer.
bool OutgoingTransfers::sendPiece(Transfer &transfer, TimePoint now) {
    const std::size_t length = std::min(transfer.bytes->size() - transfer.sent, x_.chunkBytes());
    xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, transfer.requestor, transfer.property, transfer.type, 8,
                        static_cast<std::uint32_t>(length), transfer.bytes->data() + transfer.sent);
    transfer.sent += length;
    transfer.deadline = now + patience;
    return length != 0;
}

void OutgoingTransfers::expire(TimePoint now) {
    drop([&](const Transfer &t) { return t.deadline <= now; }, true);
}

std::optional<TimePoint> OutgoingTransfers::nextDeadline() const {
    if (transfers_.empty())
        return std::nullopt;
    return std::ranges::min(transfers_, {}, &Transfer::deadline).deadline;
}

void OutgoingTransfers::watch(xcb_window_t requestor, bool on) {
    const std::uint32_t events = on ? XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY : 0;
    xcb_change_window_attributes(x_.raw(), requestor, XCB_CW_EVENT_MASK, &events);
}

template <class Predicate> void OutgoingTransfers::drop(Predicate isOver, bool requestorLives) {
    std::vector<xcb_window_t> requestors;
    std::erase_if(transfers_, [&](Transfer &transfer) {
        if (!isOver(transfer))
            return false;
        requestors.push_back(transfer.requestor);
        return true;
    });
    if (!requestorLives)
        return;
    for (const xcb_window_t requestor : requestors) {
        if (std::ranges::find(transfers_, requestor, &Transfer::requestor) == transfers_.end())
            watch(requestor, false);
    }
}
