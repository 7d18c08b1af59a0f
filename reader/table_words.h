#pragma once
// Readings that a general dictionary gets wrong where tables and keys are talked about: a row is no going down, a table
// no front side. Called by the engines before the dictionary looks at a text, and by reading_text behind it.

#include "platform/text.h"

/// The piece with such compounds written in katakana.
Text withTableReadings(TextView piece);

/// How a word is said in tables, or behind a digit as what is counted; empty if `pronounced`, what the dictionary says,
/// is right.
TextView readingInTables(TextView written, TextView pronounced, bool isBehindDigit);

/// How a Latin word of the keyboard is said, in whatever case it is written; empty if it is to be spelled.
TextView latinWordName(TextView word);
