#pragma once
// The keeper's loop: it serves the program over the socket and the other programs through the X server, both at once
// and without ever waiting for one of them. Made by main and run to its end; after the program has ended it stays as
// long as somebody could still want the text.

#include "platform/keeper/foreign_read.h"
#include "platform/keeper/outgoing_transfers.h"
#include "platform/keeper/program_link.h"
#include "platform/keeper/selection_keeper.h"
#include "platform/keeper/x_connection.h"

/// The keeper of the clipboard.
class Keeper {
public:
    /// Serves the program at the other end of `program`, a stream socket.
    Keeper(XConnection &x, int program);

    /// Returns when the X server is gone, or when the program has ended and the clipboard is not ours, is another
    /// program's now, or was saved by the desktop's clipboard manager. Texts on their way are delivered first.
    void run();

private:
    bool isOver();
    bool handleEvents();
    void handle(const xcb_generic_event_t &event);
    void carryOut(KeeperMessage &request);
    void startReading(const KeeperMessage &request);
    void reportReading();
    void waitForWork();
    int pollTimeout(TimePoint now) const;

    XConnection &x_;
    ProgramLink program_;
    OutgoingTransfers transfers_;
    SelectionKeeper selection_;
    ForeignRead reading_;
    std::uint64_t readingSequence_ = 0;
    bool programGone_ = false;
    bool saved_ = false;
};
