#include "reader/mecab.h"

#include "platform/utf8.h"
#include "reader/time_point.h"

#include <poll.h>
#include <unistd.h>

using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr const char* dictionaryFolder = "/var/lib/mecab/dic/ipadic-utf8";
constexpr milliseconds patience{400};
constexpr std::size_t mostAnswerBytes = 1u << 16;

/// Waits until the child has something to say; false at the deadline.
bool waitForOutput(const ChildProcess& child, TimePoint deadline) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now()).count();
    pollfd watched{child.output(), POLLIN, 0};
    return left > 0 && poll(&watched, 1, static_cast<int>(left)) > 0;
}

std::vector<SpokenWord> parsed(std::string_view lines) {
    std::vector<SpokenWord> words;
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        const std::string_view line = lines.substr(0, end);
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
        const std::size_t kind = line.find('\t');
        const std::size_t sound = line.find('\t', kind + 1);
        if (kind == std::string_view::npos || sound == std::string_view::npos)
            continue;
        words.push_back({fromUtf8(line.substr(0, kind)), fromUtf8(line.substr(kind + 1, sound - kind - 1)),
                         fromUtf8(line.substr(sound + 1))});
    }
    return words;
}

} // namespace

bool Mecab::isInstalled() {
    return !findProgram("mecab").empty() && access(dictionaryFolder, R_OK | X_OK) == 0;
}

void Mecab::prepare() {
    if (child_)
        return;
    // The word with the blanks in front of it, its kind, and its pronunciation rather than its spelling in kana.
    child_ = ChildProcess::start(
        {"mecab", "-d", dictionaryFolder, "-F", "%M\\t%f[0]\\t%f[8]\\n", "-U", "%M\\t\\t\\n", "-B", "", "-E", "\\t\\n"},
        ChildProcess::Output::taken);
}

std::optional<std::vector<SpokenWord>> Mecab::wordsOf(TextView piece) {
    const std::string line = toUtf8(piece) + "\n";
    for (int attempt = 0; attempt < 2; ++attempt) {
        prepare();
        if (const auto answer = answerTo(line))
            return parsed(*answer);
        child_.reset();
    }
    return std::nullopt;
}

std::optional<std::string> Mecab::answerTo(const std::string& line) {
    const std::string_view end = "\t\n"; // a line that no word can give
    if (!child_ || !child_->write(line))
        return std::nullopt;
    const TimePoint deadline = steady_clock::now() + patience;
    std::string answer;
    while (!(answer == end || answer.ends_with("\n\t\n"))) {
        if (!waitForOutput(*child_, deadline) || !child_->read(answer, mostAnswerBytes - answer.size()) ||
            answer.size() == mostAnswerBytes)
            return std::nullopt;
    }
    answer.resize(answer.size() - end.size());
    return answer;
}
