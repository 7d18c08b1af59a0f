#pragma once
// The key guides: for each of the four, its keys with their functions, by which a user learns the keyboard by ear. The
// guide's form shows and speaks them and nothing acts on them, so a key that gets another function must be changed
// here too. A few entries promise more than the program does, and users know them by ear.

#include "platform/text.h"

#include <span>

/// One key of a guide.
struct GuideKey {
    TextView prefix;   ///< said before the key, blanks included: the keys held with it; may be empty
    TextView key;      ///< caption of its button
    TextView function; ///< caption of its label
};

/// One guide.
struct KeyGuide {
    TextView form; ///< the name by which it is opened
    TextView title;
    std::span<const GuideKey> keys; ///< in the order of the Tab key
    TextView unloadCaption;         ///< caption of the button that closes and unloads it
};

/// The four guides.
std::span<const KeyGuide> keyGuides();

/// What the focus of a key's button says.
Text guideKeyReading(const GuideKey& key);

/// Caption of the button that closes a guide and leaves it as it stands.
inline constexpr TextView guideBackCaption = u"戻る(CR)";
/// What the focus of the two buttons that leave says.
inline constexpr TextView guideBackReading = u"戻る(CR)こまんどぼたん";
inline constexpr TextView guideUnloadReading = u"消去戻る(esc)こまんどぼたん";
