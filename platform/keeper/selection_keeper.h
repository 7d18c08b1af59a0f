#pragma once
// The text that we have put on the clipboard, and our answers to the programs that ask for it. Driven by the keeper's
// loop. The text lives in memory only, is given up with the ownership, and is never written anywhere.

#include "platform/keeper/outgoing_transfers.h"
#include "platform/keeper/x_connection.h"

#include <string>

/// The clipboard as its owner sees it.
class SelectionKeeper {
public:
    SelectionKeeper(XConnection &x, OutgoingTransfers &transfers) : x_(x), transfers_(transfers) {}

    /// Puts a UTF-8 text on the clipboard, in place of ours or of another program's; every call is a change of owner
    /// to those who watch the clipboard. False if the server did not make us the owner.
    bool take(std::string utf8);
    /// Leaves the clipboard without owner, whoever had it. False if the server did not do so.
    bool empty();
    /// Asks the server whether the clipboard is ours, and forgets the text if it is not.
    bool isOwner();
    /// The text in UTF-8; nullptr if the clipboard is not ours.
    SharedBytes text() const { return text_; }

    /// Answers a request for the clipboard.
    void answer(const xcb_selection_request_event_t &request, TimePoint now);
    /// Offers the text to the desktop's clipboard manager. False if there is none.
    bool offerToManager();

private:
    bool provide(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property, TimePoint now);
    bool provideMany(xcb_window_t requestor, xcb_atom_t property, TimePoint now);
    bool provideText(xcb_window_t requestor, xcb_atom_t type, xcb_atom_t property, SharedBytes bytes, TimePoint now);

    XConnection &x_;
    OutgoingTransfers &transfers_;
    SharedBytes text_;
    xcb_timestamp_t ownedSince_ = XCB_CURRENT_TIME;
};
