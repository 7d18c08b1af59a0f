// What belongs to the user stays with the user: no shell ever sees a text of theirs, files are as private as they want
// them, and what they have copied elsewhere is written nowhere.

#include "platform/text.h"
#include "platform/posix/replacement_file.h"
#include "safety/folder_image.h"
#include "safety/system_calls.h"
#include "support/real_folder.h"
#include "support/source_rules.h"
#include "voice/speech_channel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

/// While it lives, new files get these permissions less.
class Umask {
public:
    explicit Umask(mode_t less) : before_(umask(less)) {}
    ~Umask() { umask(before_); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    mode_t before_;
};

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

/// True if `word` stands in the code, and not as the end of a longer one or as somebody's member.
bool stands(const std::string& code, const std::string& word) {
    for (auto at = code.find(word); at != std::string::npos; at = code.find(word, at + 1)) {
        const char before = at == 0 ? ' ' : code[at - 1];
        if (std::isalnum(static_cast<unsigned char>(before)) == 0 && before != '_' && before != '.' && before != '>') {
            return true;
        }
    }
    return false;
}

/// What starts another program, and who may do so: with a fixed program and words of its own, never through a shell.
std::vector<std::string> shellFindings(const SourceFile& file) {
    static const std::vector<std::string> shells = {"system(", "popen(", "execl(", "execlp(", "execle(", "execvp(", "execvpe(",
                                                    "posix_spawn", "wordexp(", "QProcess", "startDetached"};
    static const std::set<std::string> mayStart = {"platform/qt/keeper_process.cpp", "reader/child_process.cpp"};
    std::vector<std::string> findings;
    const std::string code = codeOf(file.text);
    for (const auto& word : shells) {
        if (stands(code, word)) {
            findings.push_back(file.path + ": " + word);
        }
    }
    for (const char* word : {"execv(", "execve(", "fexecve("}) {
        if (stands(code, word) && !mayStart.contains(file.path)) {
            findings.push_back(file.path + ": " + word);
        }
    }
    // Literals are blanked out in the code.
    for (const char* word : {"/bin/sh", "/bin/bash", "\"sh\"", "\"bash\""}) {
        if (file.text.find(word) != std::string::npos) {
            findings.push_back(file.path + ": " + word);
        }
    }
    return findings;
}

/// True if the code calls a function of the system by its full name, such as "::write(".
bool callsGlobally(const std::string& code, const std::string& function) {
    const std::string word = "::" + function;
    for (auto at = code.find(word); at != std::string::npos; at = code.find(word, at + 1)) {
        const char before = at == 0 ? ' ' : code[at - 1];
        if (std::isalnum(static_cast<unsigned char>(before)) == 0 && before != '_' && before != '>') {
            return true;
        }
    }
    return false;
}

/// The parts that talk to the system itself: the file layer, the clipboard's keeper and the talk with it, the reader.
bool isOuterRoom(const std::string& path) {
    return path.starts_with("platform/posix/") || path.starts_with("platform/keeper/") ||
           path.starts_with("platform/qt/keeper_") || path.starts_with("reader/");
}

/// Headers that declare how files are made and written, in a file that has no business with either.
void findHeaders(const SourceFile& file, std::vector<std::string>& findings) {
    static const std::set<std::string> doors = {"unistd.h",   "fcntl.h",        "sys/uio.h",
                                                "sys/mman.h", "sys/sendfile.h", "sys/socket.h"};
    for (const std::string& header : includesOf(file.text)) {
        if (doors.contains(header) && !isOuterRoom(file.path)) {
            findings.push_back(file.path + ": " + header);
        }
    }
}

/// Files opened so that they can be written: by the file layer, and by the reader for the options --log and --wav, whose
/// texts come from our program and go where the user wants them. What goes to /dev/null is nowhere.
void findOpenings(const SourceFile& file, std::vector<std::string>& findings) {
    static const std::set<std::string> mayOpen = {
        "platform/posix/hidden_files.cpp", "platform/posix/opened_file.cpp", "platform/posix/replacement_file.cpp",
        "platform/posix/table_locks.cpp",  "reader/event_log.cpp",           "reader/sound_output.cpp"};
    std::istringstream code(codeOf(file.text));
    std::istringstream text(file.text);
    std::string codeLine;
    for (std::string line; std::getline(text, line) && std::getline(code, codeLine);) {
        for (const char* flag : {"O_WRONLY", "O_RDWR", "O_CREAT"}) {
            if (codeLine.find(flag) != std::string::npos && line.find("\"/dev/null\"") == std::string::npos &&
                !mayOpen.contains(file.path)) {
                findings.push_back(file.path + ": " + flag);
            }
        }
    }
}

/// Writes to what is open: the file layer's one writer; sockets and pipes to our own helpers, to players and engines; the
/// two files of the reader.
void findWrites(const SourceFile& file, std::vector<std::string>& findings) {
    static const std::set<std::string> mayWrite = {
        "platform/posix/descriptor.cpp", "platform/keeper/program_link.cpp", "reader/background.cpp",
        "reader/child_process.cpp",      "reader/event_log.cpp",             "reader/sound_output.cpp"};
    const std::string code = codeOf(file.text);
    const std::vector<std::string> headers = includesOf(file.text);
    // Without the header a "write(" is a function of our own.
    const bool knowsTheSystem = std::find(headers.begin(), headers.end(), "unistd.h") != headers.end();
    for (const char* function : {"write(", "pwrite("}) {
        const bool isCalled = callsGlobally(code, function) || (knowsTheSystem && stands(code, function));
        if (isCalled && !mayWrite.contains(file.path)) {
            findings.push_back(file.path + ": " + function);
        }
    }
}

/// What could carry a text out of the program into a file or a log, past the file layer.
std::vector<std::string> logFindings(const SourceFile& file) {
    static const std::vector<std::string> ways = {
        "ofstream",  "fopen(",    "freopen(",  "fdopen(",   "tmpfile(",  "mkstemp(",  "creat(",      "openat(",
        "printf(",   "fprintf(",  "vprintf(",  "vfprintf(", "dprintf(",  "vdprintf(", "puts(",       "fputs(",
        "putchar(",  "putc(",     "fputc(",    "fwrite(",   "writev(",   "pwritev(",  "perror(",     "syslog(",
        "std::cout", "std::cerr", "std::clog", "qDebug",    "qInfo",     "qWarning",  "qCritical",   "QFile",
        "QSaveFile", "QTemporaryFile", "QSettings"};
    std::vector<std::string> findings;
    const std::string code = codeOf(file.text);
    for (const auto& way : ways) {
        if (stands(code, way)) {
            findings.push_back(file.path + ": " + way);
        }
    }
    findHeaders(file, findings);
    findOpenings(file, findings);
    findWrites(file, findings);
    // The programs that hold clipboard texts open no file at all.
    const bool holdsTexts = file.path.starts_with("platform/keeper") || file.path.starts_with("platform/qt/keeper");
    if (holdsTexts && code.find("openNative(") != std::string::npos) {
        findings.push_back(file.path + ": openNative(");
    }
    return findings;
}

/// A text that somebody has copied in another program. No name made of hexadecimal digits holds a part of it by chance.
const Text secret = u"ひみつXY47";

bool holdsSecret(const TestWorld& world, const std::string& bytes) {
    const std::string shiftJis = world.codePage.encode(u"ひみつ");
    const std::string units(reinterpret_cast<const char*>(secret.data()), 3 * sizeof(char16_t));
    const std::vector<std::string> forms = {"XY47", shiftJis, utf8(u"ひみつ"), units};
    return std::any_of(forms.begin(), forms.end(),
                       [&](const auto& form) { return bytes.find(form) != std::string::npos; });
}

/// Everything that was ever written, also to files that are gone, with what was written beside it in the same file, since
/// a text may come in pieces; and every name that was ever given.
std::vector<std::string> everWritten(const std::vector<DiskStep>& steps) {
    constexpr std::size_t beside = 64;
    std::map<int, std::string> files;
    std::vector<std::string> pieces;
    for (const DiskStep& step : steps) {
        pieces.push_back(step.path);
        pieces.push_back(step.target);
        if (step.kind == DiskStep::Kind::write) {
            std::string& file = files[step.file];
            const auto at = static_cast<std::size_t>(step.offset);
            file.resize(std::max(file.size(), at + step.bytes.size()), '\0');
            file.replace(at, step.bytes.size(), step.bytes);
            const std::size_t from = at - std::min(at, beside);
            pieces.push_back(file.substr(from, at - from + step.bytes.size() + beside));
        }
    }
    return pieces;
}

bool isAnySecret(const TestWorld& world, const std::vector<std::string>& pieces) {
    return std::any_of(pieces.begin(), pieces.end(), [&](const auto& piece) { return holdsSecret(world, piece); });
}

} // namespace

TEST(Security, NoTextGoesIntoALog) {
    for (const auto& file : productFiles(ROMIKA_SOURCE_DIR)) {
        if (file.path.starts_with("data/")) {
            continue; // builds the product's own files and never meets a text of the user
        }
        EXPECT_EQ(logFindings(file), std::vector<std::string>{});
    }
    for (const char* line : {"std::cerr << text;", "  syslog(1, text);", "std::ofstream out(path);", "qDebug() << text;",
                             "printf(text);", "std::puts(text);", "std::fputs(text, file);", "dprintf(1, text);",
                             "fwrite(text, 1, length, file);", "#include <unistd.h>", "::write(1, text, length);",
                             "const int file = open(path, O_RDWR);"}) {
        EXPECT_EQ(logFindings({"sheet/cell.cpp", line}).size(), 1U) << line;
    }
    for (const char* line : {"journal_.write(record, row);", "void ChangeJournal::write(int record) {",
                             "bool write(Text text);", "std::snprintf(room, length, form);", "f(\"printf(\"); // puts(text)"}) {
        EXPECT_TRUE(logFindings({"sheet/cell.cpp", line}).empty()) << line;
    }
}

TEST(Security, TheOuterRoomsWriteWhereTheyHaveTo) {
    const std::string writing = "#include <unistd.h>\nvoid f() { write(1, text, length); }\n";
    EXPECT_EQ(logFindings({"reader/mecab.cpp", writing}).size(), 1U);
    EXPECT_EQ(logFindings({"platform/keeper/keeper.cpp", writing}).size(), 1U);
    EXPECT_TRUE(logFindings({"platform/keeper/program_link.cpp", writing}).empty());
    EXPECT_EQ(logFindings({"platform/keeper/keeper.cpp", "open(path, O_WRONLY);"}).size(), 1U);
    EXPECT_EQ(logFindings({"platform/keeper/keeper.cpp", "openNative(path, O_RDONLY);"}).size(), 1U);
    EXPECT_EQ(logFindings({"platform/qt/keeper_process.cpp", "open(\"/tmp/x\", O_RDWR);"}).size(), 1U);
    EXPECT_TRUE(logFindings({"platform/qt/keeper_process.cpp", "open(\"/dev/null\", O_RDWR);"}).empty());
    EXPECT_TRUE(logFindings({"platform/posix/opened_file.cpp", "open(path, O_CREAT);"}).empty());
}

TEST(Security, NoShellIsStarted) {
    const auto files = productFiles(ROMIKA_SOURCE_DIR);
    ASSERT_GT(files.size(), 100U);
    for (const auto& file : files) {
        EXPECT_EQ(shellFindings(file), std::vector<std::string>{});
    }
    for (const char* line : {"system(text);", "std::system(text);", "  popen(text, mode);", "execlp(name, name, nullptr);",
                             "QProcess process;", "const char* shell = \"/bin/sh\";", "execv(path, words);"}) {
        EXPECT_EQ(shellFindings({"sheet/cell.cpp", line}).size(), 1U) << line;
    }
    EXPECT_TRUE(shellFindings({"reader/child_process.cpp", "execv(path, words);"}).empty());
    EXPECT_TRUE(shellFindings({"sheet/cell.cpp", "fileSystem(x); // system(x)"}).empty());
}

TEST(Security, NewFilesAndFoldersKeepTheUsersMask) {
    for (const mode_t less : {mode_t{022}, mode_t{077}}) {
        const Umask mask(less);
        RealFolder world;
        const Text folder = world.files.currentFolder() + u"\\";
        world.files.replaceWhole(folder + u"a", "x");
        world.files.copy(folder + u"a", folder + u"b");
        world.files.openRandom(folder + u"c");
        world.files.openBulk(folder + u"d");
        world.files.makeFolder(folder + u"e");
        for (const char* name : {"a", "b", "c", "d"}) {
            EXPECT_EQ(modeOf(world.native(name)), 0666 & ~less) << name;
        }
        EXPECT_EQ(modeOf(world.native("e")), 0777 & ~less);
    }
}

TEST(Security, WhatTakesTheFilesPlaceIsNeverMoreOpenThanTheFile) {
    const Umask mask(0);
    RealFolder world;
    world.make("a", "private");
    chmod(world.native("a").c_str(), 0600);
    ReplacementFile replacement(world.native("a"));
    EXPECT_EQ(modeOf(replacement.temporaryPath()), mode_t{0600});
    replacement.putInPlace();
    EXPECT_EQ(modeOf(world.native("a")), mode_t{0600});
}

TEST(Security, WhatTheUserHasCopiedElsewhereIsWrittenNowhere) {
    for (const WritingOperation& operation : writingOperations()) {
        SafetyWorld world(operation);
        CallWatch watch(world.folder.path());
        RunningCopy copy(world);
        world.clipboard.foreign(secret);
        if (operation.opensTable) {
            copy.open(operation.dataFile());
        }
        copy.zormod.speech.speechMode = 2;
        keepUserClipboard(copy.zormod);
        ASSERT_EQ(copy.zormod.speech.userClipboard, secret);
        operation.run(world, copy.zormod);
        const std::vector<std::string> pieces = everWritten(watch.steps());
        EXPECT_FALSE(pieces.empty()) << operation.name;
        EXPECT_FALSE(isAnySecret(world, pieces)) << operation.name;
        for (const auto& [name, bytes] : imageOf(world.folder.path())) {
            EXPECT_FALSE(holdsSecret(world, bytes)) << operation.name << ": " << name;
        }
    }
}

TEST(Security, ATextInAFileThatIsGoneWouldBeNoticed) {
    TestWorld world;
    const Text path = world.zormod.file.programFolder + u"gone";
    const Bytes bytes = world.codePage.encode(u"ひみつ");
    CallWatch watch(world.folder.path());
    {
        const auto file = world.files.openRandom(path);
        file->writeDurably(0, bytes.substr(0, 3));
        EXPECT_FALSE(isAnySecret(world, everWritten(watch.steps())));
        file->writeDurably(3, bytes.substr(3));
    }
    world.files.remove(path);
    EXPECT_TRUE(imageOf(world.folder.path()).empty());
    EXPECT_TRUE(isAnySecret(world, everWritten(watch.steps())));
}
