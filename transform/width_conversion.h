#pragma once
// Width of characters: four converters and a remover of blanks. Prompts, number boxes and condition tables clean with
// them what was typed; the conversion form rewrites cells with them. They know nothing of speech or of forms.
//
// Each converter looks at one character at a time and appends its result, so a kana and a voicing mark behind it are
// never joined. A character without an entry is copied. Results may be longer than their sources.

#include "platform/text.h"

/// Full-width digits, letters and signs to half width.
Text toHalfWidth(TextView text);

/// Half-width digits, letters and signs to full width. Not the reverse of toHalfWidth: "-" becomes the long vowel mark,
/// a blank two half-width blanks, and brackets, comma and semicolon stay.
Text toFullWidth(TextView text);

/// Full-width katakana to half width, voiced ones to two characters. The half-voiced ones stay.
Text kanaToHalf(TextView text);

/// Half-width katakana to full width; voicing marks stay half width.
Text kanaToFull(TextView text);

/// The text without any half-width or full-width blank.
Text removeBlanks(TextView text);

/// The number that a user typed at a prompt or into a number box: digits and signs of either width, blanks around it.
/// Reads as Val does and throws as Val does.
double typedNumber(TextView text);
