#pragma once
// One width for all characters of a text that is to be spoken: katakana and Japanese marks full width, Latin letters,
// digits and signs half width, so that what follows knows one form of each. Called by reading_text. Unlike the
// converters of the tables it joins a kana with the voicing mark behind it, because the two are one sound.

#include "platform/text.h"

/// The text in plain widths. Control characters and all kinds of blanks become one half-width blank each.
Text plainWidth(TextView text);
