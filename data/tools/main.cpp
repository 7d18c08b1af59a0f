// Turns the readable sources of the shipped tables, boards and guides into the files that the program reads. Run by the
// build. usage: stock_files table SOURCE DATA_FILE ITEM_FILE | board SOURCE TABLE_SOURCE FILE | guide SOURCE FILE

#include "data/tools/board_source.h"
#include "data/tools/guide_source.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/posix/native_names.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/start_paths.h"
#include "platform/utf8.h"

#include <cstdio>

namespace {

constexpr std::size_t largestSource = 1u << 20;

void complain(const std::string& text) {
    std::fputs((text + "\n").c_str(), stderr);
}

/// True if the arguments, the first being the kind of file, made sense.
bool convert(const std::vector<Text>& arguments) {
    const CodePage codePage;
    PosixFiles files(defaultDrives(), startFolder());
    const auto path = [&](std::size_t i) { return files.fromCommandLine(arguments[i]); };
    const auto source = [&](std::size_t i) { return files.readWhole(path(i), largestSource); };
    if (arguments[0] == u"table" && arguments.size() == 4) {
        const TableSource table = readTableSource(codePage, source(1));
        files.replaceWhole(path(2), table.records);
        files.replaceWhole(path(3), itemFileOf(codePage, table));
    } else if (arguments[0] == u"board" && arguments.size() == 4) {
        files.replaceWhole(path(3), boardFileOf(codePage, readTableSource(codePage, source(2)), source(1)));
    } else if (arguments[0] == u"guide" && arguments.size() == 3) {
        files.replaceWhole(path(2), guideFileOf(codePage, source(1)));
    } else {
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<Text> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.push_back(textFromNative(argv[i]));
    }
    try {
        if (!arguments.empty() && convert(arguments)) {
            return 0;
        }
        complain("usage: stock_files table SOURCE DATA_FILE ITEM_FILE | board SOURCE TABLE_SOURCE FILE | "
                 "guide SOURCE FILE");
        return 2;
    } catch (const SourceError& error) {
        complain(argv[2] + (":" + toUtf8(plainNumber(error.line)) + ": ") + toUtf8(error.what));
    } catch (const RuntimeFailure&) {
        complain(std::string("stock_files: a file of ") + argv[2] + " can't be read or written");
    }
    return 1;
}
