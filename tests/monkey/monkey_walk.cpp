#include "tests/monkey/monkey_walk.h"

#include "platform/failure.h"
#include "platform/qt/qt_text.h"
#include "tests/monkey/clip_rules.h"
#include "tests/monkey/folder_digest.h"
#include "tests/monkey/key_source.h"
#include "tests/monkey/memory_watch.h"
#include "tests/monkey/step_rules.h"
#include "tests/monkey/tables_at_rest.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace {

constexpr int stepsBetweenLooksAtAll = 250;
constexpr int stepsOnOneTable = 1500;
/// A table that has grown past so many bytes is left, because all of it is looked at after each key.
constexpr std::size_t longestTable = 4 << 20;
constexpr int keysInOneForm = 60; ///< after these the monkey wants to get out
constexpr int keysToGetOut = 200;
constexpr TextView makeFolderTitle = u"フォルダの作成";
constexpr long keysBetweenReports = 100000;
constexpr auto keyCount = "monkeyKeys";

/// The folder of a walk on table `number`: two tables, or only the one that isn't opened by itself.
FolderFiles folderFor(const CodePage& codePage, std::uint64_t number) {
    FolderFiles files;
    const RandomTable other = randomTable(codePage, number + 1);
    files["b.txt"] = other.records;
    files["Kb.txt"] = other.items;
    if (number % 8 != 0) {
        const RandomTable table = randomTable(codePage, number);
        files["t.txt"] = table.records;
        files["Kt.txt"] = table.items;
    }
    return files;
}

/// Everything on one folder, through as many runs of the program as its keys end.
class Walk {
public:
    Walk(KeySource& source, FolderFiles files, bool shows = false)
        : source_(source), files_(std::move(files)), shows_(shows) {}

    /// Gives the digest of the folder as the walk has left it.
    std::uint64_t run() {
        std::uint64_t digest = 0;
        while (!isOver_) {
            MonkeyDesk desk(files_);
            desk_ = &desk;
            TablesAtRest tablesAtRest(desk.world.folder.path(), {"t.txt", "b.txt"});
            tablesAtRest_ = &tablesAtRest;
            desk.inEveryModal([this](QWidget& form) { stepInForm(form); });
            desk.start();
            seen_ = look(desk);
            noteTablesAtRest();
            while (!isOver_ && desk.isRunning()) {
                step();
            }
            if (desk.endStatus.value_or(0) != 0) {
                tellAndEnd("fatal end");
            }
            complain(nothingIsLeftBehind(desk.world.folder.path()));
            files_ = desk.folderFiles();
            digest = folderDigest(desk.world.folder.path());
        }
        return digest;
    }

private:
    void complain(const Complaint& complaint) {
        if (complaint) {
            std::filesystem::remove_all(desk_->world.folder.path());
            tellAndEnd(*complaint);
        }
    }

    void step() {
        const auto key = source_.next(desk_->situation());
        if (!key) {
            isOver_ = true;
            complain(pairIsWhole(desk_->world.codePage, seen_));
            return;
        }
        desk_->forget();
        mayFail_ = false;
        perform(*key);
        Seen now = look(*desk_);
        complain(tableChangedAsItMay(*desk_, seen_, now, *key));
        const RestLeave leave = restLeaveOf(desk_->commands.ran);
        complain(tablesAtRest_->look(leave));
        if (desk_->isRunning()) {
            checkAtRest(now, *key);
        }
        if (now.taskWord == u"chfln") {
            takeWidthsOfTheFile(now);
        }
        const bool isOtherTable = now.table != seen_.table;
        seen_ = std::move(now);
        if (isOtherTable || leave.deletes || leave.designs) {
            noteTablesAtRest();
        }
        if (seen_.records.size() > longestTable) {
            complain(pairIsWhole(desk_->world.codePage, seen_));
            isOver_ = true;
        }
    }

    void noteTablesAtRest() {
        tablesAtRest_->note([this](const std::string& name) {
            const Text path = desk_->zormod.file.programFolder + Text(name.begin(), name.end());
            return !seen_.table.empty() && desk_->world.files.isSameFile(seen_.table, path);
        });
    }

    void checkAtRest(const Seen& now, const MonkeyKey& key) {
        complain(keyboardIsHeard());
        complain(readingsAreMarked(*desk_, key));
        complain(nothingIsStuck(*desk_, now));
        complain(positionFits(now));
        complain(windowShowsTheFile(*desk_, now));
        if (++steps_ % stepsBetweenLooksAtAll == 0) {
            complain(pairIsWhole(desk_->world.codePage, now));
            complain(nothingIsLeftBehind(desk_->world.folder.path()));
        }
    }

    void perform(const MonkeyKey& key) {
        if (shows_) {
            std::cout << desk_->title() << " [" << desk_->focus() << "] <- " << lineOf(key) << std::endl;
        }
        desk_->perform(key);
        if (shows_) {
            for (const Text& text : desk_->world.clipboard.written) {
                std::cout << "    " << utf8(text) << std::endl;
            }
            const Position& at = desk_->zormod.position;
            std::cout << "    " << at.curRecord << "/" << at.curItem << " " << utf8(desk_->zormod.taskWord)
                      << std::endl;
        }
    }

    void stepInForm(QWidget& form) {
        if (form.windowTitle() == toQt(failureTitle) && !mayFail_ && !pasteMayFail()) {
            const auto& written = desk_->world.clipboard.written;
            complain("run-time failure: " + (written.empty() ? std::string() : utf8(written.back())));
        }
        if (form.objectName() != QLatin1StringView("frmDOE")) { // one that can't be stopped has nothing to press
            complain(keyboardIsHeard());
        }
        complain(lengthFits(*desk_));
        const int keys = form.property(keyCount).toInt();
        form.setProperty(keyCount, keys + 1);
        const auto key = keys < keysInOneForm ? source_.next(desk_->situation()) : std::nullopt;
        // A folder that can't be made is told as a failure.
        mayFail_ = mayFail_ || form.windowTitle() == toQt(makeFolderTitle);
        if (key) {
            perform(*key);
            complain(readingsAreMarked(*desk_, *key));
            desk_->world.clipboard.written.clear();
        } else {
            getOut(form, keys);
        }
    }

    /// A clip whose making was stopped is told as a failure when it is pasted, and so is the undoing of a paste when
    /// the table has lost records or is another one.
    bool pasteMayFail() {
        static constexpr std::array<TextView, 3> pastes = {u"mnuPAST", u"mnuIPASTE", u"mnuDEPAST"};
        const auto& ran = desk_->commands.ran;
        if (std::find_first_of(ran.begin(), ran.end(), pastes.begin(), pastes.end()) == ran.end()) {
            return false;
        }
        const FolderFiles files = desk_->folderFiles();
        const auto clip = files.find("ZORCLip");
        const auto backup = files.find("ZORCLip.bak");
        return (clip != files.end() && !clipReadsBack(clip->second)) ||
               (backup != files.end() && !backupFits(backup->second, seen_.records.size() / recordLength));
    }

    void getOut(QWidget& form, int keys) {
        static constexpr std::array<Key, 5> waysOut = {Key::escape, Key::enter, Key::tab, Key::enter, Key::space};
        if (keys > keysInOneForm + keysToGetOut) {
            complain("a form that can't be left: " + form.objectName().toStdString() + " " +
                     form.windowTitle().toStdString());
        }
        form.setProperty(keyCount, std::max(keys, keysInOneForm) + 1);
        // By chance, because a question between the form and the way out of it may take several answers.
        perform({MonkeyKey::Kind::press, plainKey(wayOut_.oneOf(waysOut))});
    }

    KeySource& source_;
    FolderFiles files_;
    MonkeyDesk* desk_ = nullptr;
    TablesAtRest* tablesAtRest_ = nullptr;
    Seen seen_{};
    Dice wayOut_{1};
    bool shows_;
    bool mayFail_ = false; ///< what was done before this key may be told as a failure
    long steps_ = 0;
    bool isOver_ = false;
};

void tellFolder(std::uint64_t digest) {
    std::cout << "FOLDER " << digest << std::endl;
}

} // namespace

void walkAtRandom(std::uint64_t seed, long steps, const std::string& traceFile) {
    const CodePage codePage;
    Dice dice(seed);
    MemoryWatch memory;
    long pressed = 0;
    while (pressed < steps) {
        const std::uint64_t table = dice.number() >> 16;
        const int now = static_cast<int>(std::min<long>(steps - pressed, stepsOnOneTable));
        RandomSource source(dice.number(), table, now, traceFile);
        const std::uint64_t digest = Walk(source, folderFor(codePage, table)).run();
        if ((pressed + source.pressed()) / keysBetweenReports > pressed / keysBetweenReports) {
            std::cout << pressed + source.pressed() << " keys" << std::endl;
        }
        pressed += source.pressed();
        if (const auto wrong = memory.look()) {
            tellAndEnd(*wrong);
        }
        if (pressed >= steps) {
            tellFolder(digest);
        }
    }
}

void walkAgain(const Trace& trace, bool shows) {
    TraceSource source(trace.keys);
    tellFolder(Walk(source, folderFor(CodePage(), trace.table), shows).run());
}

void tellAndEnd(const std::string& what) {
    std::cout << "FOUND " << what << std::endl;
    _exit(foundSomething);
}
