#include "support/fake_printer.h"

#include "platform/failure.h"
#include "support/doubles.h"

bool FakePrinter::begin(const Text& name) {
    title = utf8(name);
    page = 1;
    return !givesUp;
}

void FakePrinter::setFont(const Text& name) { font = utf8(name); }

int FakePrinter::textWidth(const Text& text) {
    int columns = 0;
    for (const char16_t unit : text) {
        const bool isHalf = unit < 0x80 || (unit >= 0xFF61 && unit <= 0xFF9F);
        columns += isHalf ? 1 : 2;
    }
    return static_cast<int>(columns * points * 10);
}

void FakePrinter::print(const Text& text) {
    if (static_cast<int>(drawn.size()) == failsAtText) {
        throw RuntimeFailure{FailureKind::printing};
    }
    drawn.push_back({page, x, y, utf8(text), font, points});
    x += textWidth(text);
}

void FakePrinter::newPage() {
    ++page;
    x = 0;
    y = 0;
}
