#pragma once
// The clipboard as the reading program sees it: told by the X server of every new text, it fetches the text, and gives
// up on an owner that does not answer. Also makes sure that one reader is enough for a desktop. Driven by the reader's
// loop; it never waits for another program.

#include "platform/keeper/foreign_read.h"
#include "platform/keeper/x_connection.h"

#include <memory>
#include <optional>
#include <string>

/// Watches the clipboard of the X server that DISPLAY names.
class ClipboardWatch {
public:
    /// Connects; nullptr if there is no X server that tells of clipboard changes.
    static std::unique_ptr<ClipboardWatch> open();

    /// Makes this process the one reader of the desktop; false if another one is running.
    bool becomeTheReader();

    int descriptor() const { return x_->descriptor(); }
    /// True once the X server is gone.
    bool isOver() const { return x_->isBroken(); }
    /// When the owner that is being asked will have been given enough time.
    std::optional<TimePoint> deadline() const;
    /// Handles what the server has told since, sends what is to be sent.
    void work(TimePoint now);
    /// The newest text in UTF-8, once; older ones that were not taken are gone. Nothing if nothing new has come.
    std::optional<std::string> takeText() { return reading_.takeText(); }

private:
    ClipboardWatch(std::unique_ptr<XConnection> x, std::uint8_t changeEvent);
    bool handleEvents(TimePoint now);
    void ownerChanged(xcb_window_t owner, TimePoint now);

    std::unique_ptr<XConnection> x_;
    std::uint8_t changeEvent_;
    ForeignRead reading_;
};
