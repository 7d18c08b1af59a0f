#include "output/pdf_target.h"

#include "platform/dialogs.h"
#include "platform/letter_case.h"
#include "sheet/record_file.h"
#include "voice/announcement.h"

namespace {

constexpr TextView ending = u".pdf";
constexpr TextView title = u"PDFﾌｧｲﾙ名";

bool hasEnding(TextView path) {
    return path.size() >= ending.size() && lowerCase(path.substr(path.size() - ending.size())) == ending;
}

/// The open table's path with its ending replaced.
Text defaultPath(const ZORMOD& zormod) {
    const FileIdentity& file = zormod.file;
    if (file.fileName.empty()) {
        return file.programFolder + u"印刷" + Text(ending);
    }
    Text path = fullPath(file.fileDrive, file.fileName);
    const std::size_t point = path.rfind(u'.');
    if (point != Text::npos && point > path.rfind(u'\\')) {
        path.erase(point);
    }
    return path.append(ending);
}

Text completed(ZORMOD& zormod, const Text& answer) {
    Text path = zormod.platform.files.fromCommandLine(trimmed(answer));
    if (path.find(u':') == Text::npos) {
        path = zormod.file.programFolder + path.substr(path.find_first_not_of(u'\\'));
    }
    return hasEnding(path) ? path : path.append(ending);
}

} // namespace

Text askPdfPath(ZORMOD& zormod) {
    Dialogs& dialogs = zormod.platform.dialogs;
    Text proposed = defaultPath(zormod);
    for (;;) {
        const Text answer =
            dialogs.askText(u"プリンタがありません。PDFファイルに書き出します。ファイル名を入れてください", Text(title), proposed);
        if (trimmed(answer).find_first_not_of(u"\\/") == Text::npos) {
            return {};
        }
        proposed = completed(zormod, answer);
        if (!zormod.platform.files.exists(proposed) ||
            dialogs.askOkCancel(proposed + u"はすでにあります。上書きします", Text(title)) == Answer::ok) {
            return proposed;
        }
    }
}

void keepPdf(ZORMOD& zormod, const Text& path, BytesView bytes) {
    zormod.platform.files.replaceWhole(path, bytes);
    talkS(zormod, path + u"に書き出しました");
}
