#pragma once
// A guide that comes with the program: the source is the text itself, in UTF-8, and the file the same in the code page.
// Called by the build alone. Guides are heard line by line, so a line stays as short as a breath.

#include "data/tools/source_lines.h"

/// Most half-width columns of a line of a guide.
inline constexpr std::size_t guideColumns = 40;

/// The guide as the program shows it. Throws SourceError for a line that is too long or ends in a blank.
Bytes guideFileOf(const CodePage& codePage, BytesView utf8);
