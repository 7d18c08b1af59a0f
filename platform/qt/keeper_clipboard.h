#pragma once
// The desktop's clipboard, by way of the keeper: a small process of its own that goes on handing the text to other
// programs while our thread waits and after the program has ended. Made by main and handed on as Clipboard; needs no
// toolkit and no event loop. It never lets another program's silence hold the program up.

#include "platform/clipboard.h"
#include "platform/qt/keeper_link.h"

#include <string>
#include <sys/types.h>

/// The real clipboard. A keeper that has died is started again at the next call.
class KeeperClipboard : public Clipboard {
public:
    /// Starts the keeper, the program at `keeperPath`, on the X server that DISPLAY names, and waits up to a second
    /// until it is ready. Without an X server or without the keeper every call fails at once.
    explicit KeeperClipboard(std::string keeperPath);

    /// At most 0.1 s, the keeper's time included.
    ClipboardText read() override;
    /// At most 0.25 s, which only an X server that is held up can use up. Lone surrogates become U+FFFD. False also
    /// for texts beyond 64 MiB in UTF-8.
    bool write(TextView text) override;
    /// At most 0.25 s, as `write`. Empties the clipboard also if its text is another program's.
    bool clear() override;

    /// The process id of the keeper, 0 if none is known to be ready; for diagnosis.
    pid_t keeperProcess() const { return link_.process(); }

private:
    bool carriedOut(KeeperMessageKind kind, std::string payload);

    KeeperLink link_;
};
