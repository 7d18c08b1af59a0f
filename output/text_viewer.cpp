#include "output/text_viewer.h"

#include "output/print_text.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/forms.h"
#include "platform/letter_case.h"
#include "platform/screen.h"
#include "voice/announcement.h"
#include "voice/caret_reading.h"

namespace {

/// One caption says a word otherwise than its file name; both have always been so.
constexpr HelpFile files[] = {
    {u"menuGENERAL", u"ロミカについて.txt", u"ロミカについて.txt"},
    {u"mnuGUIDE", u"音声案内について.txt", u"音声案内について.txt"},
    {u"mnuWRITE", u"ﾃｷｽﾄﾃﾞｰﾀの記入の仕方.txt", u"ﾃｷｽﾄﾃﾞｰﾀの記入のしかた.txt"},
    {u"mnuSETU", u"コードファイルを利用した置換機能について.txt", u"コードファイルを利用した置換機能について.txt"},
    {u"mnuOSETU", u"他ファイルを参照して記録を並べ替える機能について.txt", u"他ファイルを参照して記録を並べ替える機能について.txt"},
    {u"mnuCONTROLS", u"各種ｺﾝﾄﾛｰﾙについて.txt", u"各種ｺﾝﾄﾛｰﾙについて.txt"},
    {u"mnuREDME", u"readme.txt", u"ReadMe.txt"},
};

/// 0-based position of `word` at or behind `from`, case regarded before it is disregarded.
std::size_t positionOf(TextView text, TextView word, std::size_t from) {
    const std::size_t exact = text.find(word, from);
    return exact != TextView::npos ? exact : upperCase(text).find(upperCase(word), from);
}

} // namespace

std::span<const HelpFile> helpFiles() { return files; }

void TextViewer::showHelp(const HelpFile& help) {
    Text text = readFile(zormod_.file.programFolder + Text(help.file), Text(help.caption));
    show(std::move(text), Text(help.caption));
}

void TextViewer::show(Text text, Text caption) {
    text_ = std::move(text);
    caption_ = std::move(caption);
    if (shown_) {
        shown_();
    }
    zormod_.platform.forms.open(u"frmHelp");
}

Text TextViewer::readFile(const Text& path, const Text& caption) {
    Bytes bytes;
    bool isWhole = true;
    try {
        if (!zormod_.platform.files.exists(path)) {
            return {}; // to open it would make it
        }
        const auto file = zormod_.platform.files.openRandom(path);
        bytes.resize(viewerLimit);
        bytes.resize(file->readAt(0, bytes.data(), bytes.size()));
        isWhole = file->length() <= static_cast<std::int64_t>(viewerLimit);
    } catch (const RuntimeFailure& failure) {
        if (failure.kind != FailureKind::file) {
            throw;
        }
        return {}; // a guide that can't be read is an empty guide
    }
    if (!isWhole) {
        zormod_.platform.dialogs.showMessage(u"ファイルが大きいので、はじめの部分だけを表示します", caption);
    }
    return withLinesEndedByCr(zormod_.platform.codePage.decode(bytes));
}

std::optional<FoundWord> TextViewer::find(TextView word, const BoxView& box) {
    if (word.empty()) {
        return std::nullopt;
    }
    const int searchPosition = box.selectionLength > 0 ? box.selectionStart + box.selectionLength : box.caret;
    std::size_t position = positionOf(box.text, word, static_cast<std::size_t>(searchPosition));
    if (position == Text::npos) {
        zormod_.platform.dialogs.showMessage(
            u"今のキャレット位置以後のテキストに検索文字列が見つかりません。文頭から再検索します",
            u"最初から再検索");
        position = positionOf(box.text, word, 0);
    }
    if (position == Text::npos) {
        return std::nullopt;
    }
    const FoundWord found{static_cast<int>(position), static_cast<int>(word.size())};
    talkS(zormod_, getCLineString({box.text, found.start, found.start, 0}));
    return found;
}

void TextViewer::print(const BoxView& box) {
    const auto start = static_cast<std::size_t>(box.selectionStart);
    const auto length = static_cast<std::size_t>(box.selectionLength);
    const TextView text = length > 0 ? TextView(box.text).substr(start, length) : TextView(box.text);
    if (text.empty()) {
        zormod_.platform.dialogs.showMessage(u"印刷するテキストがありません", caption_);
        return;
    }
    printText(zormod_, text, caption_);
}

void TextViewer::cancelled() {
    if (zormod_.taskWord == u"SFCC") {
        zormod_.platform.screen.redrawView();
    }
}
