#include "support/source_rules.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

using Lines = std::vector<std::string>;

bool isWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

bool startsWithAny(const std::string& path, const Lines& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(), [&](const auto& prefix) { return path.starts_with(prefix); });
}

/// Part of the rooms that know the toolkit.
bool isForm(const std::string& path) { return path.find("/forms/") != std::string::npos; }

/// The files of one certain form: those carry the form's name, helpers of forms have names in small letters.
bool isOfOneForm(const std::string& path) {
    const auto stem = std::filesystem::path(path).stem().string();
    const bool hasCapital = std::any_of(stem.begin(), stem.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
    return isForm(path) && hasCapital && stem != "SpokenForm"; // the base of every form
}

bool isCore(const std::string& path) {
    return !isForm(path) && !path.starts_with("platform/qt/") && path.find('/') != std::string::npos;
}

Lines linesOf(std::string_view text) {
    Lines lines;
    std::istringstream stream{std::string(text)};
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// True if `word` stands in `line` with no letter glued to it.
bool hasWord(const std::string& line, const std::string& word) {
    for (auto at = line.find(word); at != std::string::npos; at = line.find(word, at + 1)) {
        const bool opens = at == 0 || !isWordCharacter(line[at - 1]) || !(isWordCharacter(word[0]) || word[0] == ':');
        const auto behind = at + word.size();
        const bool closes = behind >= line.size() || !isWordCharacter(line[behind]) || !isWordCharacter(word.back());
        if (opens && closes) {
            return true;
        }
    }
    return false;
}

/// Words that may stand in some files only.
struct WordRule {
    std::string what;     ///< told in the finding
    Lines words;          ///< any of them is an offence
    Lines where{""};      ///< beginnings of the paths the rule is for
    Lines exceptWhere{};  ///< beginnings of the paths in which the words are at home
};

const std::vector<WordRule>& wordRules() {
    static const std::vector<WordRule> rules{
        {"the clock is read outside its seam",
         {"QDateTime", "QTime", "QDate", "QElapsedTimer", "std::chrono", "chrono", "system_clock", "steady_clock",
          "clock_gettime", "gettimeofday", "localtime", "localtime_r", "strftime", "std::time", "::time(",
          "sleep_for", "sleep_until", "usleep", "nanosleep", "::sleep(", "QThread"},
         {""},
         {"platform/posix/", "platform/qt/", "platform/keeper/", "reader/"}},
        {"the clipboard is touched outside its seam",
         {"QClipboard", "QGuiApplication::clipboard", "QApplication::clipboard", "->copy()", "->cut()", "->paste()"},
         {""},
         {"platform/qt/"}},
        {"a message form of the toolkit speaks past the voice",
         {"QMessageBox", "QInputDialog", "QFileDialog", "QErrorMessage", "QProgressDialog"}},
        {"a file is touched outside its seam",
         {"fopen", "freopen", "ofstream", "ifstream", "fstream", "filesystem", "::open(", "::openat(", "::creat(",
          "::rename(", "::unlink(", "std::rename", "std::remove(", "QFile", "QSaveFile", "QDir", "QFileInfo",
          "QTemporaryFile"},
         {""},
         // main tells the real file layer where it stands; the reading program is one of the outer world
         {"platform/posix/", "platform/keeper/", "main.cpp", "reader/"}},
        {"a number becomes text outside platform/number_text",
         {"to_string", "to_wstring", "snprintf", "sprintf", "printf", "fprintf", "vsnprintf", "std::format",
          "format_to", "to_chars", "stringstream", "ostringstream", "cout", "cerr", "QString::number", "setNum",
          ".arg(", "QTextStream"},
         {""},
         {"platform/number_text", "platform/decimal_digits"}},
    };
    return rules;
}

void applyWordRules(const SourceFile& file, const Lines& code, std::vector<Finding>& findings) {
    for (const auto& rule : wordRules()) {
        if (!startsWithAny(file.path, rule.where) || startsWithAny(file.path, rule.exceptWhere)) {
            continue;
        }
        for (std::size_t i = 0; i < code.size(); ++i) {
            for (const auto& word : rule.words) {
                if (hasWord(code[i], word)) {
                    findings.push_back(file.path + ":" + std::to_string(i + 1) + ": " + rule.what + ": " + word);
                }
            }
        }
    }
}

/// A Qt header is named by its class, by a toolkit folder or by a toolkit header in small letters.
bool isToolkitHeader(const std::string& header) {
    static const std::regex pattern("(Qt?[A-Z][A-Za-z0-9]*(/.*)?|q[a-z_]+\\.h)");
    return std::regex_match(header, pattern);
}

/// A header that brings in a whole toolkit module: slow to compile, and it hides what is used.
bool isUmbrella(const std::string& header) {
    static const std::set<std::string> modules{"QtCore", "QtGui", "QtWidgets", "QtTest", "QtPrintSupport"};
    const auto slash = header.find('/');
    return modules.contains(header) || (slash != std::string::npos && modules.contains(header.substr(slash + 1)));
}

void applyIncludeRules(const SourceFile& file, std::vector<Finding>& findings) {
    const auto stem = std::filesystem::path(file.path).replace_extension().string();
    for (const auto& header : includesOf(file.text)) {
        const auto finding = [&](const std::string& what) { findings.push_back(file.path + ":1: " + what + ": " + header); };
        if (isUmbrella(header)) {
            finding("a whole toolkit module is included");
        }
        if (isCore(file.path) && isToolkitHeader(header)) {
            finding("core includes the toolkit");
        }
        if (isCore(file.path) && (isForm(header) || header.starts_with("platform/qt/"))) {
            finding("core includes what is above it");
        }
        if (isOfOneForm(file.path) && isOfOneForm(header) && !header.starts_with(stem)) {
            finding("a form includes another form");
        }
    }
}

/// A line at the left edge, or one that begins with static or thread_local, that makes a variable which can change.
bool makesMutableState(const std::string& line) {
    static const std::regex constant("\\b(const|constexpr|consteval|constinit const)\\b");
    static const std::regex atEdge("(inline +)?[A-Za-z_][A-Za-z0-9_:<>, ]*[ &*>]+[A-Za-z_][A-Za-z0-9_]*( *=[^=].*| *\\{.*\\})?;");
    static const std::regex lasting("\\s*(static|thread_local|extern)\\s[^(\"]*[;={].*");
    static const std::regex declaration("(using|typedef|class|struct|enum|union|namespace|friend|template|return|goto|public|"
                                        "private|protected|case|else|throw|delete|export|module|import)\\b.*");
    if (std::regex_search(line, constant)) {
        return false;
    }
    if (std::regex_match(line, lasting)) {
        return true;
    }
    return !line.empty() && line[0] != ' ' && !std::regex_match(line, declaration) && std::regex_match(line, atEdge);
}

void applyStateRule(const SourceFile& file, const Lines& code, std::vector<Finding>& findings) {
    for (std::size_t i = 0; i < code.size(); ++i) {
        if (makesMutableState(code[i])) {
            findings.push_back(file.path + ":" + std::to_string(i + 1) + ": state that is handed down by nobody: " + code[i]);
        }
    }
}

void applyShapeRules(const SourceFile& file, const Lines& lines, std::vector<Finding>& findings) {
    constexpr std::size_t mostLines = 700;
    if (lines.size() > mostLines) {
        findings.push_back(file.path + ":1: more than 700 lines");
    }
    if (file.path.ends_with(".h")) {
        if (lines.empty() || lines[0] != "#pragma once") {
            findings.push_back(file.path + ":1: a header opens with #pragma once");
        }
        if (lines.size() < 2 || !lines[1].starts_with("// ")) {
            findings.push_back(file.path + ":1: a header says under #pragma once what it is");
        }
    }
    // In pieces, so that looking for the marks in the whole repository doesn't find this list.
    static const Lines marks{std::string("TO") + "DO", std::string("FIX") + "ME", std::string("XX") + "X"};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (const auto& mark : marks) {
            if (hasWord(lines[i], mark)) {
                findings.push_back(file.path + ":" + std::to_string(i + 1) + ": unfinished: " + mark);
            }
        }
    }
}

/// Height of the room that a path lies in; rooms of the same height don't include each other's headers.
int heightOf(const std::string& path) {
    static const std::map<std::string, int> heights{{"platform", 0}, {"sheet", 1}, {"voice", 2}, {"app", 4}};
    const auto room = heights.find(path.substr(0, path.find('/')));
    return room == heights.end() ? 3 : room->second;
}

/// Small leaves that know nothing but platform and serve every room.
bool isLeaf(const std::string& header) {
    return header == "transform/width_conversion.h" || header == "edit/range_list.h";
}

void readTree(const std::string& root, const std::string& below, const std::set<std::string>& skipped,
              std::vector<SourceFile>& files) {
    namespace fs = std::filesystem;
    const fs::path start = below.empty() ? fs::path(root) : fs::path(root) / below;
    for (fs::recursive_directory_iterator entry(start), end; entry != end; ++entry) {
        const auto name = entry->path().filename().string();
        if (entry->is_directory()) {
            if (name.starts_with(".") || (entry.depth() == 0 && skipped.contains(name)) ||
                fs::exists(entry->path() / "CMakeCache.txt")) {
                entry.disable_recursion_pending();
            }
        } else if (name.ends_with(".h") || name.ends_with(".cpp")) {
            std::ifstream stream(entry->path());
            std::ostringstream text;
            text << stream.rdbuf();
            files.push_back({entry->path().lexically_relative(root).generic_string(), text.str()});
        }
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
}

/// The first circle of includes that can be reached from `path`, written as "a.h > b.h > a.h"; empty if there is none.
std::string circleFrom(const std::string& path, const std::map<std::string, Lines>& includes, Lines& road,
                       std::set<std::string>& done) {
    if (const auto before = std::find(road.begin(), road.end(), path); before != road.end()) {
        std::string circle;
        for (auto step = before; step != road.end(); ++step) {
            circle += *step + " > ";
        }
        return circle + path;
    }
    const auto found = includes.find(path);
    if (done.contains(path) || found == includes.end()) {
        return {};
    }
    road.push_back(path);
    for (const auto& next : found->second) {
        if (auto circle = circleFrom(next, includes, road, done); !circle.empty()) {
            return circle;
        }
    }
    road.pop_back();
    done.insert(path);
    return {};
}

/// Where the literal that opens at `open` with the quote `quote` ends: the position of the closing quote.
std::size_t endOfLiteral(std::string_view text, std::size_t open, char quote) {
    auto at = open + 1;
    while (at < text.size() && text[at] != quote && text[at] != '\n') {
        at += text[at] == '\\' ? 2 : 1;
    }
    return std::min(at, text.size());
}

/// True if the apostrophe at `at` parts the digits of a number.
bool partsDigits(std::string_view text, std::size_t at) {
    auto start = at;
    while (start > 0 && (isWordCharacter(text[start - 1]) || text[start - 1] == '\'')) {
        --start;
    }
    return start < at && std::isdigit(static_cast<unsigned char>(text[start])) != 0;
}

} // namespace

std::string codeOf(std::string_view text) {
    std::string code(text);
    const auto blank = [&](std::size_t from, std::size_t to) {
        for (auto i = from; i < std::min(to, code.size()); ++i) {
            code[i] = code[i] == '\n' ? '\n' : ' ';
        }
    };
    std::size_t at = 0;
    while (at < text.size()) {
        const auto rest = text.substr(at);
        if (rest.starts_with("//")) {
            const auto end = std::min(text.find('\n', at), text.size());
            blank(at, end);
            at = end;
        } else if (rest.starts_with("/*")) {
            const auto close = text.find("*/", at + 2);
            const auto end = close == std::string_view::npos ? text.size() : close + 2;
            blank(at, end);
            at = end;
        } else if (rest.starts_with("R\"")) {
            const auto bracket = text.find('(', at);
            const auto closing = ")" + std::string(text.substr(at + 2, bracket - at - 2)) + "\"";
            const auto end = std::min(text.find(closing, at), text.size());
            blank(at + 2, end);
            at = end + closing.size();
        } else if (text[at] == '"' || (text[at] == '\'' && !partsDigits(text, at))) {
            const auto end = endOfLiteral(text, at, text[at]);
            blank(at + 1, end);
            at = end + 1;
        } else {
            ++at;
        }
    }
    return code;
}

std::vector<std::string> includesOf(std::string_view text) {
    static const std::regex pattern("\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"].*");
    Lines headers;
    for (const auto& line : linesOf(text)) {
        std::smatch match;
        if (line.find("include") != std::string::npos && std::regex_match(line, match, pattern)) {
            headers.push_back(match[1]);
        }
    }
    return headers;
}

std::vector<Finding> findingsIn(const SourceFile& file) {
    std::vector<Finding> findings;
    const auto code = linesOf(codeOf(file.text));
    applyWordRules(file, code, findings);
    applyIncludeRules(file, findings);
    applyStateRule(file, code, findings);
    applyShapeRules(file, linesOf(file.text), findings);
    return findings;
}

std::vector<Finding> findingsAmong(const std::vector<SourceFile>& files) {
    std::vector<Finding> findings;
    std::map<std::string, Lines> includes;
    for (const auto& file : files) {
        includes[file.path] = includesOf(file.text);
    }
    for (const auto& [path, headers] : includes) {
        for (const auto& header : headers) {
            const bool isOurs = includes.contains(header);
            if (isOurs && isCore(path) && !isLeaf(header) && heightOf(header) > heightOf(path)) {
                findings.push_back(path + ":1: looks up to a higher room: " + header);
            }
            if (isLeaf(path) && isOurs && heightOf(header) > 0) {
                findings.push_back(path + ":1: a leaf knows nothing but platform: " + header);
            }
        }
    }
    Lines road;
    std::set<std::string> done;
    for (const auto& [path, headers] : includes) {
        if (const auto circle = circleFrom(path, includes, road, done); !circle.empty()) {
            findings.push_back(path + ":1: headers include each other: " + circle);
            break;
        }
    }
    return findings;
}

std::vector<Finding> findingsInTest(const SourceFile& file) {
    static const Lines words{"sleep_for", "sleep_until", "usleep", "nanosleep", "::sleep(", "qWait", "qSleep",
                             "QThread::msleep", "QThread::sleep"};
    std::vector<Finding> findings;
    if (file.path.starts_with("tests/desktop/")) {
        return findings;
    }
    const auto code = linesOf(codeOf(file.text));
    for (std::size_t i = 0; i < code.size(); ++i) {
        for (const auto& word : words) {
            if (hasWord(code[i], word)) {
                findings.push_back(file.path + ":" + std::to_string(i + 1) + ": a test waits for real time: " + word);
            }
        }
    }
    return findings;
}

std::vector<SourceFile> productFiles(const std::string& root) {
    std::vector<SourceFile> files;
    readTree(root, "", {"tests", "benchmarks", "build"}, files);
    return files;
}

std::vector<SourceFile> testFiles(const std::string& root) {
    std::vector<SourceFile> files;
    readTree(root, "tests", {}, files);
    return files;
}
