#pragma once
// The system clipboard as text. Speech goes through it, and so does the user's own copy and paste.

#include "platform/text.h"

#include <optional>

/// What a reading of the clipboard gave.
struct ClipboardText {
    bool ok = false; ///< false: the clipboard could not be read in time; `text` is empty then
    Text text{};     ///< empty when the clipboard holds nothing or nothing that is text
};

/// The system clipboard. No call throws and none takes longer than 0.1 s because another program does not answer.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// Reads the clipboard. A clipboard without text reads as ok with an empty text.
    virtual ClipboardText read() = 0;
    /// Puts `text` on the clipboard; when it returns true, other programs can already fetch it. False: not written.
    virtual bool write(TextView text) = 0;
    /// Empties the clipboard. False: could not be done.
    virtual bool clear() = 0;
};
