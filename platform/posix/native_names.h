#pragma once
// File names as the system keeps them (any bytes but "/" and NUL, UTF-8 by custom) and as the program spells them.
// Called by the file layer and by whoever takes texts from the system, such as the command line. Looks at no file.
//
// No name is lost on the way: a byte that is not part of well-formed UTF-8 is carried as the lone surrogate
// U+DC00 + byte (U+DC80 to U+DCFF), which no name in UTF-8 can contain, and goes back to the same byte. A "\" inside a
// name, which would read as the end of a folder in a path of the program, is carried in the same way as U+DC5C.
// Names that the code page lacks stay exact, because nothing here passes through it.

#include "platform/text.h"

#include <string>
#include <string_view>

/// Stands for a "\" that is part of a name.
inline constexpr char16_t carriedBackslash = 0xDC5C;

/// Native bytes as a text. A "\" stays what it is; every input comes back through nativeFromText.
Text textFromNative(std::string_view native);

/// A text as native bytes. RuntimeFailure of kind file if no name can hold it: a NUL, or half a surrogate pair that
/// carries no byte.
std::string nativeFromText(TextView text);
