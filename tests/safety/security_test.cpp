// What belongs to the user stays with the user: no shell ever sees a text of theirs, files are as private as they want
// them, and what they have copied elsewhere is written nowhere.

#include "platform/text.h"
#include "platform/posix/replacement_file.h"
#include "safety/folder_image.h"
#include "support/real_folder.h"
#include "support/source_rules.h"
#include "voice/speech_channel.h"

#include <gtest/gtest.h>

#include <array>
#include <sys/stat.h>

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

/// What could carry a text out of the program into a file or a log, past the file layer.
std::vector<std::string> logFindings(const SourceFile& file) {
    static const std::vector<std::string> ways = {"ofstream", "fopen(", "freopen(", "fprintf(", "fputs(", "perror(", "syslog(",
                                                  "std::cout", "std::cerr", "std::clog", "qDebug", "qInfo", "qWarning", "qCritical", "QFile",
                                                  "QSaveFile", "QTemporaryFile", "QSettings"};
    std::vector<std::string> findings;
    const std::string code = codeOf(file.text);
    for (const auto& way : ways) {
        if (stands(code, way)) {
            findings.push_back(file.path + ": " + way);
        }
    }
    // The programs that hold clipboard texts open no file for writing at all. The reading program's log takes texts of our
    // program only, and only where the user asks for it.
    const bool holdsTexts = file.path.starts_with("platform/keeper") || file.path.starts_with("platform/qt/keeper");
    for (const char* way : {"O_WRONLY", "O_CREAT", "openNative("}) {
        if (holdsTexts && code.find(way) != std::string::npos) {
            findings.push_back(file.path + ": " + way);
        }
    }
    return findings;
}

} // namespace

TEST(Security, NoTextGoesIntoALog) {
    for (const auto& file : productFiles(ROMIKA_SOURCE_DIR)) {
        if (file.path.starts_with("data/")) {
            continue; // builds the product's own files and never meets a text of the user
        }
        EXPECT_EQ(logFindings(file), std::vector<std::string>{});
    }
    for (const char* line : {"std::cerr << text;", "  syslog(1, text);", "std::ofstream out(path);", "qDebug() << text;"}) {
        EXPECT_EQ(logFindings({"sheet/cell.cpp", line}).size(), 1U) << line;
    }
    EXPECT_EQ(logFindings({"platform/keeper/keeper.cpp", "open(path, O_WRONLY);"}).size(), 1U);
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
        RunningCopy copy(world);
        world.clipboard.foreign(u"ひみつ4711");
        if (operation.opensTable) {
            copy.open(operation.dataFile());
        }
        copy.zormod.speech.speechMode = 2;
        keepUserClipboard(copy.zormod);
        ASSERT_EQ(copy.zormod.speech.userClipboard, u"ひみつ4711");
        operation.run(world, copy.zormod);
        for (const auto& [name, bytes] : imageOf(world.folder.path())) {
            EXPECT_EQ(bytes.find("4711"), std::string::npos) << operation.name << ": " << name;
            EXPECT_EQ(bytes.find(world.codePage.encode(u"ひみつ")), std::string::npos) << operation.name << ": " << name;
        }
    }
}
