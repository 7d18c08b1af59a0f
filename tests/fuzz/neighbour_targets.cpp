// What other programs hand over: names of files, the clipboard, sound; and the settings of the reading program. What the
// X server itself delivers (platform/keeper/foreign_read) wants a server: tests/desktop tries that.

#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_world.h"
#include "fuzz/target_groups.h"

#include "platform/keeper_protocol.h"
#include "platform/posix/native_names.h"
#include "platform/utf8.h"
#include "reader/marked_text.h"
#include "reader/options.h"
#include "reader/reading_text.h"
#include "reader/settings_file.h"
#include "reader/wave_stream.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>

namespace {

/// A file of that name is listed, unless it is hidden, and found again by its listed name and from the command line.
void findByName(const std::string& name) {
    TestWorld& here = freshWorld();
    std::filesystem::create_directory(here.folder.path() + "/names");
    const std::string native = here.folder.path() + "/names/" + name;
    here.writeFile("names/" + name, name);
    const Text folder = here.zormod.file.programFolder + u"names";
    const FolderContents contents = here.files.folderContents(folder);
    mustHold(contents.folders.empty() && contents.files.size() == (name.starts_with('.') ? 0U : 1U));
    const Text named = here.files.fromCommandLine(textFromNative(native));
    mustHold(here.files.readWhole(named, name.size()) == name);
    for (const Text& file : contents.files) {
        mustHold(here.files.isSameFile(folder + u"\\" + file, named));
    }
    here.files.remove(named);
    mustHold(std::filesystem::is_empty(here.folder.path() + "/names"));
}

/// Names as the system keeps them: any bytes but NUL, and in a folder no "/".
void readNativeNames(BytesView bytes) {
    Bytes native(bytes);
    std::erase(native, '\0');
    mustHold(nativeFromText(textFromNative(native)) == native);
    mayFail({FailureKind::file}, [&] {
        const std::string made = nativeFromText(unitsOf(bytes));
        mustHold(made.find('\0') == std::string::npos && nativeFromText(textFromNative(made)) == made);
    });
    constexpr std::size_t longestName = 255;
    std::erase(native, '/');
    native.resize(std::min(native.size(), longestName));
    if (!native.empty() && native != "." && native != "..") {
        findByName(native);
    }
}

/// The stream of a program that asks the keeper of the clipboard, or of a keeper that answers, in pieces of a length
/// that the first byte tells.
void readKeeperStream(BytesView bytes) {
    FuzzInput input(bytes);
    const std::size_t piece = input.byte() + 1;
    const BytesView stream = input.rest();
    KeeperMessageReader atOnce;
    KeeperMessageReader inPieces;
    atOnce.append(stream);
    for (std::size_t at = 0; at < stream.size(); at += piece) {
        inPieces.append(stream.substr(at, piece));
    }
    mustHold(atOnce.isBroken() == inPieces.isBroken());
    // Messages are the stream as it came, one behind the other, and nothing is made up behind its end.
    std::size_t read = 0;
    while (const auto message = atOnce.next()) {
        const std::string frame = framed(*message);
        mustHold(stream.substr(read, frame.size()) == frame && message->payload.size() <= maxKeeperPayload);
        read += frame.size();
        const auto same = inPieces.next();
        mustHold(same && framed(*same) == frame);
    }
    mustHold(!inPieces.next());
}

bool isKana(char16_t c) { return (c >= u'ァ' && c <= u'ヺ') || c == u'ー'; }
bool isPause(char16_t c) { return c == u'、' || c == u'。'; }
bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// What an engine that knows nothing but kana is given.
void mustBePronounceable(const Text& kana) {
    mustHold(std::all_of(kana.begin(), kana.end(),
                         [](char16_t c) { return isKana(c) || isPause(c) || isDigit(c) || c == u' '; }));
    mustHold(kana.empty() || !isPause(kana.front()));
    const auto twice =
        std::adjacent_find(kana.begin(), kana.end(), [](char16_t a, char16_t b) { return isPause(a) && isPause(b); });
    mustHold(twice == kana.end());
}

/// A text that is to be spoken, piece by piece, with whatever a dictionary makes of it.
void speak(std::string_view utf8) {
    constexpr std::size_t longestPiece = 480; // bytes of 120 characters
    Text pronounced;
    for (;;) {
        const std::size_t before = utf8.size();
        const Text piece = takePiece(utf8);
        mustHold(piece.size() <= longestPiece && (piece.empty() ? utf8.empty() : utf8.size() < before));
        const std::vector<SpokenWord> unknown{SpokenWord{piece, {}, {}}};
        const std::vector<SpokenWord> known{SpokenWord{u"12", {}, {}}, SpokenWord{piece, u"助詞", pronounced},
                                            SpokenWord{u"行", {}, piece}};
        mustBePronounceable(kanaOf(unknown));
        mustBePronounceable(kanaOf(known));
        if (piece.empty()) {
            return;
        }
        pronounced = piece;
    }
}

/// A text that another program has put on the clipboard: UTF-8 or Latin-1 by its own word, which may be wrong.
void readClipboardText(BytesView bytes) {
    const Text text = fromUtf8(bytes);
    mustHold(text.size() <= bytes.size() && fromUtf8(toUtf8(text)) == text);
    const bool isWellFormed = toUtf8(text) == bytes;
    mustHold(isWellFormed || text.find(u'\uFFFD') != Text::npos);
    mustHold(latin1FromUtf8(utf8FromLatin1(bytes)) == bytes);
    mustHold(latin1FromUtf8(bytes).size() <= bytes.size());

    using Kind = ClipboardRequest::Kind;
    const std::string mark = toUtf8(u"。｡.");
    const ClipboardRequest request = requestIn(Bytes(bytes));
    mustHold((request.kind != Kind::none) == bytes.ends_with(mark));
    mustHold((request.kind == Kind::silence) == (bytes == mark));
    mustHold(request.speed >= 0 && request.speed <= 9);
    mustHold(request.kind == Kind::speech ? request.text + mark == bytes : request.text.empty());
    speak(bytes);
}

/// A wave file from a synthesizer, in pieces of a length that the first byte tells.
void readWave(BytesView bytes) {
    FuzzInput input(bytes);
    const std::size_t piece = input.byte() + 1;
    const BytesView wave = input.rest();
    WaveReader atOnce;
    std::string samples;
    const bool isWave = atOnce.take(wave, samples);
    mustHold(wave.find(samples) != BytesView::npos && (samples.empty() || atOnce.rate() > 0));
    WaveReader inPieces;
    std::string same;
    bool isTaken = true;
    for (std::size_t at = 0; at < wave.size() && isTaken; at += piece) {
        isTaken = inPieces.take(wave.substr(at, piece), same);
    }
    // A head that is longer than any is refused as soon as that is known: in pieces that may be earlier.
    mustHold(!isTaken || (isWave && same == samples && inPieces.rate() == atOnce.rate()));
    // Any bytes are samples, and come back from a file that is written with them.
    WaveReader written;
    std::string back;
    const std::string file = waveHead(22050, static_cast<std::uint32_t>(wave.size())) + Bytes(wave);
    mustHold(written.take(file, back) && back == wave);
}

bool isAsRead(const Options& one, const Options& other) {
    return one.engine == other.engine && one.speed == other.speed && one.log == other.log &&
           one.player == other.player && one.voice == other.voice && one.dictionary == other.dictionary;
}

/// reader.conf: a line is taken or told to be wrong, and one that is wrong changes nothing.
void readReaderSettings(BytesView bytes) {
    TestWorld& here = freshWorld();
    here.writeFile("reader.conf", bytes);
    const std::string file = readSettingsFile(here.folder.path() + "/reader.conf");
    mustHold(file == bytes);
    Options options;
    const std::vector<std::string> problems = applySettings(file, options);
    static constexpr std::string_view engines[] = {"auto", "speechd", "openjtalk", "espeak", "log"};
    mustHold(std::find(std::begin(engines), std::end(engines), options.engine) != std::end(engines));
    mustHold(options.speed >= 0 && options.speed <= 9 && !options.player.empty());

    Options lineByLine;
    std::size_t wrong = 0;
    std::string_view left = file;
    while (!left.empty()) {
        const std::string_view line = left.substr(0, left.find('\n'));
        left.remove_prefix(std::min(line.size() + 1, left.size()));
        const Options before = lineByLine;
        const std::size_t found = applySettings(line, lineByLine).size();
        mustHold(found <= 1 && (found == 0 || isAsRead(lineByLine, before)));
        wrong += found;
    }
    mustHold(wrong == problems.size() && isAsRead(lineByLine, options));
}

} // namespace

void addNeighbourTargets(std::vector<FuzzTarget>& list) {
    list.push_back({"native_names", readNativeNames});
    list.push_back({"keeper_stream", readKeeperStream});
    list.push_back({"clipboard_text", readClipboardText});
    list.push_back({"wave", readWave});
    list.push_back({"reader_settings", readReaderSettings});
}
