#pragma once
// What a text on the clipboard asks of the reading program. Called for every text that appears there; a text without
// the mark is somebody's own and is never looked at any further.

#include <string>

/// What is to be done about a clipboard text.
struct ClipboardRequest {
    enum class Kind {
        none,    ///< not ours: leave it alone
        silence, ///< a bare mark
        speed,   ///< a speed mark: `speed` is 0..9
        speech,  ///< `text` is to be spoken
    };
    Kind kind = Kind::none;
    int speed = 0;
    std::string text{}; ///< UTF-8, without the mark
};

/// Reads a clipboard text in UTF-8. Any bytes are allowed.
ClipboardRequest requestIn(std::string utf8);
