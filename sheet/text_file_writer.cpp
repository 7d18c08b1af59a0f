#include "sheet/text_file_writer.h"

#include "platform/code_page.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"
#include "sheet/work_files.h"

#include <algorithm>
#include <span>
#include <utility>

namespace {

/// All files that are written in this way; they lie in the current folder.
constexpr TextView textFiles[] = {u"ZORCLip", u"ZORCLip.bak"};

constexpr BytesView lineEnd = "\r\n";

/// Lines are handed on in pieces of about this many bytes.
constexpr std::size_t pieceLength = 1 << 16;

Text unfinishedPath(Text path) {
    path.insert(std::max(lastPosition(path, u"\\"), lastPosition(path, u":")), u".new-");
    return path;
}

} // namespace

TextFileWriter::TextFileWriter(ZORMOD& zormod, int fileNo, const Text& path)
    : zormod_(zormod), fileNo_(fileNo), path_(path) {
    removeIfThere(zormod, newPath());
    auto file = zormod.platform.files.openBulk(newPath());
    file_ = file.get();
    zormod.files.byNumber[fileNo] = std::move(file);
}

TextFileWriter::~TextFileWriter() {
    if (file_ == nullptr) {
        return;
    }
    closeFile(zormod_, fileNo_);
    try {
        removeIfThere(zormod_, newPath());
    } catch (const RuntimeFailure&) {
        // The next writer replaces it; what failed before is what the user is told.
    }
}

void TextFileWriter::numberLine(std::int64_t number) {
    appendPrintedNumber(held_, number);
    held_ += lineEnd;
    writeOutIfMuch();
}

void TextFileWriter::quotedLine(BytesView bytes) {
    const std::size_t begin = held_.size();
    held_.resize(begin + bytes.size() + 2, '"');
    const std::span<char> text(held_.data() + begin + 1, bytes.size());
    std::copy(bytes.begin(), bytes.end(), text.begin());
    zormod_.platform.codePage.canonicalize(text);
    held_ += lineEnd;
    writeOutIfMuch();
}

void TextFileWriter::writeOutIfMuch() {
    if (held_.size() >= pieceLength) {
        writeOut();
    }
}

void TextFileWriter::writeOut() {
    file_->writeDurably(length_, held_);
    length_ += static_cast<std::int64_t>(held_.size());
    held_.clear();
}

void TextFileWriter::putInPlace() {
    writeOut();
    file_->handOver();
    closeFile(zormod_, fileNo_);
    zormod_.platform.files.moveIntoPlace(newPath(), path_);
    file_ = nullptr;
}

Text TextFileWriter::newPath() const {
    return unfinishedPath(path_);
}

void clearUnfinishedTextFiles(ZORMOD& zormod) {
    Files& files = zormod.platform.files;
    const auto claim = files.lockFolder(files.currentFolder());
    if (!claim) {
        return;
    }
    for (const TextView name : textFiles) {
        removeIfThere(zormod, unfinishedPath(Text(name)));
    }
}
