#pragma once
// The patterns by which lists of files are narrowed, such as "K*.TXT" and "k?*.txt".

#include "platform/text.h"

/// True if `name` fits `pattern` without regard to case: "*" stands for any characters, "?" for one. "*.*" fits every
/// name, also one without a point.
bool fitsPattern(TextView name, TextView pattern);
