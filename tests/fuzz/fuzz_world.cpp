#include "fuzz/fuzz_world.h"

#include "sheet/record_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

constexpr int manyMessages = 1 << 30;

TestWorld& theWorld() {
    static TestWorld made;
    return made;
}

void closeTable(ZORMOD& zormod) {
    closeAllFiles(zormod);
    zormod.files.tableLock.reset();
    zormod.file.fileName.clear();
    zormod.items = {};
    zormod.position = {};
    zormod.selection = {};
    zormod.input = {};
    zormod.taskWord.clear();
    zormod.window.unsureRecord = 0;
    zormod.results.answers[0] = 0.0;
}

} // namespace

void mustHold(bool promise) {
    if (!promise) {
        std::abort();
    }
}

void mayFail(std::initializer_list<FailureKind> kinds, const std::function<void()>& reader) {
    try {
        reader();
    } catch (const RuntimeFailure& failure) {
        // Told to the user by the guard around the handlers.
        mustHold(std::find(kinds.begin(), kinds.end(), failure.kind) != kinds.end());
    }
}

TestWorld& freshWorld() {
    TestWorld& world = theWorld();
    closeTable(world.zormod);
    for (const auto& entry : std::filesystem::directory_iterator(world.folder.path())) {
        std::filesystem::remove_all(entry.path());
    }
    world.zormod.speech.speechMode = 0;
    world.screen.onShowCurrentCell = {};
    world.dialogs.expectedMessages = manyMessages;
    world.dialogs.messages.clear();
    world.dialogs.questions.clear();
    world.dialogs.answers.clear();
    world.dialogs.closeProgress();
    world.dialogs.progressNames.clear();
    world.dialogs.progressCaptions.clear();
    world.dialogs.progressCanStop.clear();
    world.dialogs.progressTexts.clear();
    world.clipboard.contents.clear();
    world.clipboard.written.clear();
    world.commands.names.clear();
    world.forms.opened.clear();
    world.later();
    return world;
}

const CodePage& fuzzCodePage() { return theWorld().codePage; }
