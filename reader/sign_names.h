#pragma once
// Names in katakana for Latin letters and for the signs that mean something in data. Called by reading_text. A sign
// that only parts words has no name here and becomes a pause.

#include "platform/text.h"

/// The name of a letter or sign in plain width; empty if it has none.
TextView signName(char16_t c);
