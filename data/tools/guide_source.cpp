#include "data/tools/guide_source.h"

Bytes guideFileOf(const CodePage& codePage, BytesView utf8) {
    Bytes file;
    for (const SourceLine& line : sourceLines(codePage, utf8)) {
        if (codePage.byteLength(line.text) > guideColumns) {
            throw SourceError{line.number, u"a line is too long"};
        }
        if (line.text.ends_with(u' ') || line.text.ends_with(u'\u3000')) {
            throw SourceError{line.number, u"a blank at the end of a line"};
        }
        file += codePage.encode(line.text) + "\r\n";
    }
    return file;
}
