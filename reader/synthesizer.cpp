#include "reader/synthesizer.h"

#include "platform/number_text.h"
#include "platform/utf8.h"
#include "reader/table_words.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

/// Words a minute for each speed.
constexpr std::array<int, 10> espeakSpeeds{90, 110, 130, 150, 175, 205, 240, 285, 340, 400};
/// Times the voice's own speed.
constexpr std::array<double, 10> openJtalkSpeeds{0.5, 0.6, 0.7, 0.85, 1.0, 1.2, 1.4, 1.7, 2.0, 2.4};

template <class Numbers> std::string textAt(const Numbers& numbers, int speed) {
    return toUtf8(plainNumber(numbers.at(static_cast<std::size_t>(speed))));
}

std::vector<fs::path> dataFolders() {
    std::vector<fs::path> folders;
    const char* home = std::getenv("HOME");
    const char* own = std::getenv("XDG_DATA_HOME");
    if (own != nullptr && *own == '/')
        folders.emplace_back(own);
    else if (home != nullptr)
        folders.push_back(fs::path(home) / ".local/share");
    folders.emplace_back("/usr/local/share");
    folders.emplace_back("/usr/share");
    return folders;
}

/// The first voice file by name below a folder; empty if there is none or the folder can't be read.
std::string voiceBelow(const fs::path& folder) {
    constexpr int deepest = 3;
    std::error_code problem;
    std::vector<std::string> found;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, problem);
    for (; !problem && entry != fs::recursive_directory_iterator(); entry.increment(problem)) {
        if (entry.depth() >= deepest)
            entry.disable_recursion_pending();
        if (entry->path().extension() == ".htsvoice")
            found.push_back(entry->path().string());
    }
    return found.empty() ? std::string() : *std::ranges::min_element(found);
}

} // namespace

bool EspeakSynthesizer::isInstalled() const {
    return !findProgram("espeak-ng").empty() && Mecab::isInstalled();
}

std::optional<SynthesisOrder> EspeakSynthesizer::orderFor(TextView piece, int speed) {
    const auto words = mecab_.wordsOf(withTableReadings(piece));
    if (!words)
        return std::nullopt;
    const std::string kana = toUtf8(kanaOf(*words));
    return SynthesisOrder{
        {"espeak-ng", "-v", "ja", "-s", textAt(espeakSpeeds, speed), "--stdin", "--stdout"}, kana + "\n", kana};
}

OpenJtalkSynthesizer::OpenJtalkSynthesizer(const std::string& voice, const std::string& dictionary)
    : voice_(voice.empty() ? findVoiceFile() : voice),
      dictionary_(dictionary.empty() ? findOpenJtalkDictionary() : dictionary),
      isInstalled_(!findProgram("open_jtalk").empty() && !voice_.empty() && !dictionary_.empty()) {}

std::optional<SynthesisOrder> OpenJtalkSynthesizer::orderFor(TextView piece, int speed) {
    const std::string text = toUtf8(piece);
    return SynthesisOrder{
        {"open_jtalk", "-x", dictionary_, "-m", voice_, "-r", textAt(openJtalkSpeeds, speed), "-ow", "/dev/stdout"},
        text + "\n",
        text};
}

std::string findVoiceFile() {
    for (const fs::path& data : dataFolders()) {
        for (const char* name : {"hts-voice", "htsvoice", "open-jtalk", "open_jtalk"}) {
            if (const std::string voice = voiceBelow(data / name); !voice.empty())
                return voice;
        }
    }
    return {};
}

std::string findOpenJtalkDictionary() {
    std::vector<fs::path> folders{"/var/lib/mecab/dic/open-jtalk/naist-jdic"};
    for (const fs::path& data : dataFolders()) {
        folders.push_back(data / "open-jtalk/dic");
        folders.push_back(data / "open_jtalk/dic");
    }
    std::error_code problem;
    const auto found =
        std::ranges::find_if(folders, [&](const fs::path& folder) { return fs::exists(folder / "sys.dic", problem); });
    return found == folders.end() ? std::string() : found->string();
}
