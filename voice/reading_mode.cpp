#include "voice/reading_mode.h"

#include "platform/beeper.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/screen.h"
#include "transform/width_conversion.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

constexpr std::int16_t speechOff = 0;
constexpr std::int16_t dataOnly = 1;
constexpr std::int16_t withNumbers = 2;

/// Seconds in which the confirmation is heard before speech falls silent.
constexpr double lastWordSeconds = 1.8;
constexpr double shortestInhibit = 0.1;
constexpr double longestInhibit = 1;
/// A file longer than this is not ours.
constexpr std::size_t longestZorTalk = 1024;

void switchOn(ZORMOD& zormod, std::int16_t mode, TextView confirmation) {
    Screen& screen = zormod.platform.screen;
    screen.showSpeek(true);
    zormod.speech.speechMode = mode;
    screen.showReadingMode(mode);
    talkS(zormod, confirmation);
}

Text zorTalkPath(const ZORMOD& zormod) {
    return zormod.file.programFolder + u"zorTalk";
}

/// The mode that the first line of the file gives. Every other number but 0 means that speech is on, and so does an
/// empty file, which holds no line to read.
std::int16_t modeOf(BytesView contents, const CodePage& codePage) {
    if (contents.empty()) {
        return withNumbers;
    }
    const std::int16_t mode = roundTo16(Val(codePage.decode(contents.substr(0, contents.find_first_of("\r\n")))));
    return mode == speechOff || mode == dataOnly ? mode : withNumbers;
}

} // namespace

void mnuDTKN(ZORMOD& zormod) {
    switchOn(zormod, dataOnly, u"データのみ読み上げ");
}

void mnuDTKEX(ZORMOD& zormod) {
    switchOn(zormod, withNumbers, u"行、項目番号付き読み上げ");
}

void mnuDTKOFF(ZORMOD& zormod) {
    Screen& screen = zormod.platform.screen;
    screen.showSpeek(false);
    talkS(zormod, u"読み上げｵﾌ");
    screen.showReadingMode(speechOff);
    waitSeconds(zormod, lastWordSeconds);
    zormod.speech.speechMode = speechOff;
}

void mnuJY(ZORMOD& zormod) {
    const bool isOn = zormod.speech.pinnedAutoRead != 1;
    zormod.speech.pinnedAutoRead = isOn ? 1 : 0;
    zormod.platform.screen.showPinnedAutoRead(isOn);
    talkS(zormod, isOn ? u"常時表示項目自動読み上げオン" : u"常時表示項目自動読み上げオフ");
}

void mnuINH(ZORMOD& zormod) {
    const Text answer =
        zormod.platform.dialogs.askText(u"読み上げ禁止時間を秒単位で入力してください。読み上げソフトにエラーが出る場合"
                                        u"、読み上げ禁止時間を長く設定して試してください。",
                                        u"読み上げ禁止時間の設定", plainNumber(zormod.speech.inhibitSeconds));
    if (answer.empty()) {
        zormod.platform.beeper.beep();
        return;
    }
    zormod.speech.inhibitSeconds = std::clamp(typedNumber(answer), shortestInhibit, longestInhibit);
}

void readZorTalk(ZORMOD& zormod) {
    try {
        const Bytes contents = zormod.platform.files.readWhole(zorTalkPath(zormod), longestZorTalk);
        zormod.speech.speechMode = modeOf(contents, zormod.platform.codePage);
    } catch (const RuntimeFailure&) {
        // Neither a missing file nor a spoilt one may leave a blind user without a voice.
        zormod.speech.speechMode = withNumbers;
    }
}

void writeZorTalk(ZORMOD& zormod) {
    const Text line = printedNumber(zormod.speech.speechMode) + u"\r\n";
    zormod.platform.files.replaceWhole(zorTalkPath(zormod), zormod.platform.codePage.encode(line));
}
