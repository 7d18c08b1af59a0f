#include "output/print_text.h"

#include "platform/code_page.h"
#include "platform/printer.h"

#include <algorithm>

namespace {

constexpr TextView fontName = u"ＭＳ ゴシック";
constexpr double fontPoints = 10.5;
/// Free on all four sides of the page, 2 cm in twips: no printer prints up to the edge.
constexpr int margin = 1134;

/// The first characters of `line` that fit into `columns`, at least one.
std::size_t fitting(const CodePage& codePage, TextView line, std::size_t columns) {
    std::size_t used = 0;
    std::size_t count = 0;
    while (count < line.size()) {
        used += static_cast<std::size_t>(codePage.bytesOf(line[count]));
        if (used > columns && count > 0) {
            break;
        }
        ++count;
    }
    return count;
}

} // namespace

std::vector<Text> wrappedLines(const CodePage& codePage, TextView text, std::size_t columns) {
    std::vector<Text> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(u'\r');
        TextView line = text.substr(0, end);
        do {
            const std::size_t count = fitting(codePage, line, columns);
            lines.emplace_back(line.substr(0, count));
            line.remove_prefix(count);
        } while (!line.empty());
        text.remove_prefix(end == TextView::npos ? text.size() : end + 1);
    }
    return lines;
}

bool printText(ZORMOD& zormod, TextView text, const Text& title) {
    Printer& printer = zormod.platform.printer;
    if (!printer.begin(title)) {
        return false;
    }
    printer.setFont(Text(fontName));
    printer.setFontSize(fontPoints);
    const int columns = (printer.pageWidth() - 2 * margin) / printer.textWidth(u"0");
    const int lineHeight = printer.textHeight(u"0");
    int y = margin;
    for (const Text& line : wrappedLines(zormod.platform.codePage, text, static_cast<std::size_t>(std::max(columns, 2)))) {
        if (y + lineHeight > printer.pageHeight() - margin && y > margin) {
            printer.newPage();
            y = margin;
        }
        if (!line.empty()) {
            printer.moveTo(margin, y);
            printer.print(line);
        }
        y += lineHeight;
    }
    printer.end();
    return true;
}
