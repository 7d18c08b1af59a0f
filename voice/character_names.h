#pragma once
// How one character is named, so that the ear can tell capital from small and full-width from half-width.

#include "platform/text.h"

/// The spoken name of a character. Kanji, hiragana, half-width digits and everything without a name are returned as
/// they are; no character gives the empty text.
Text charReading(TextView ch);
