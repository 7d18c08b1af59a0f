#pragma once
// Upper and lower case for every comparison, conversion and prompt that folds letters. The folding is one unit to one
// unit between letters that the code page holds in both cases (ASCII, full-width Latin, Greek, Cyrillic), so a folded
// cell keeps its length in characters and in bytes. It never looks at the system's locale.

#include "platform/text.h"

/// The capital of a small letter; every other unit as it is.
char16_t upperCase(char16_t unit);
/// The small letter of a capital; every other unit as it is.
char16_t lowerCase(char16_t unit);

/// The text with each unit folded.
Text upperCase(TextView text);
Text lowerCase(TextView text);
