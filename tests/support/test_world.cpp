#include "support/test_world.h"

#include "sheet/cell.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {

/// Files in memory, with all that the kernel does for files on a disk but the waiting, which is most of a run's time. In
/// the long run, or where there is no such place, the folder for temporary files, as TMPDIR names it.
std::filesystem::path placeForFolders() {
    const char* const memory = "/dev/shm";
    const bool isQuick = std::getenv("ROMIKA_LONG") == nullptr && std::getenv("TMPDIR") == nullptr;
    return isQuick && access(memory, W_OK) == 0 ? std::filesystem::path(memory) : std::filesystem::temp_directory_path();
}

} // namespace

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (placeForFolders() / "romika-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        std::abort();
    }
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

namespace {

const CodePage& sharedCodePage() {
    static const CodePage codePage;
    return codePage;
}

} // namespace

TestWorld::TestWorld(const RealParts& parts)
    : files(parts.walledIn ? DriveTable{{u'C', folder.path()}} : defaultDrives(), folder.path()), codePage(sharedCodePage()),
      zormod(Platform{clipboard, clock, beeper, files, codePage, parts.dialogs != nullptr ? *parts.dialogs : dialogs,
                      parts.screen != nullptr ? *parts.screen : screen,
                      parts.commands != nullptr ? *parts.commands : commands,
                      parts.forms != nullptr ? *parts.forms : forms, eventLoop,
                      parts.printer != nullptr ? *parts.printer : printer}) {
    zormod.file.programFolder = files.currentFolder();
    if (!zormod.file.programFolder.ends_with(u'\\')) {
        zormod.file.programFolder += u'\\';
    }
}

namespace {

Text asText(const std::string& ascii) { return Text(ascii.begin(), ascii.end()); }

} // namespace

void TestWorld::makeTable(const std::string& name, const std::vector<Item>& items,
                          const std::vector<std::vector<std::u16string_view>>& records) {
    ZORMOD maker(zormod.platform);
    maker.items.itemCount = static_cast<std::int16_t>(items.size() - 1);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto index = static_cast<std::int64_t>(i);
        maker.items.itemName[index] = Text(items[i].name);
        maker.items.itemAlign[index] = Text(items[i].align);
        maker.items.itemWidth[index] = static_cast<std::int16_t>(items[i].width);
    }
    computeItemStart(maker.items);
    const Text drivePath = zormod.file.programFolder + asText(name);
    maker.file.tableMemo = u"memo";
    writeItemFile(maker, drivePath.substr(2), drivePath.substr(0, 1));
    std::string bytes;
    for (const auto& record : records) {
        storeSlot(maker, 1, maker.window.blankLine);
        for (std::size_t i = 0; i < record.size(); ++i) {
            setScratchCell(maker, Text(record[i]), static_cast<std::int64_t>(i));
        }
        bytes += endedRecord(maker.window.recordWindow[1]);
    }
    writeFile(name, bytes);
}

void TestWorld::openTable(const std::string& name) {
    const Text drivePath = zormod.file.programFolder + asText(name);
    zormod.file.fileDrive = drivePath.substr(0, 1);
    zormod.file.fileName = drivePath.substr(2);
    ASSERT_EQ(readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive), Text());
    openDataFile(zormod);
    fillFirstWindow(zormod);
}

void TestWorld::table(const std::vector<Item>& items, const std::vector<std::vector<std::u16string_view>>& records) {
    makeTable("t.txt", items, records);
    openTable("t.txt");
}

std::string TestWorld::bytesOf(const std::string& name) const {
    std::ifstream in(folder.path() + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void TestWorld::writeFile(const std::string& name, std::string_view bytes) const {
    std::ofstream out(folder.path() + "/" + name, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::vector<std::string> TestWorld::takeSpoken() {
    std::vector<std::string> spoken;
    for (const Text& text : clipboard.written) {
        const Text& mark = zormod.speech.speechMark;
        if (text.size() >= mark.size() && text.compare(text.size() - mark.size(), mark.size(), mark) == 0) {
            spoken.push_back(utf8(TextView(text).substr(0, text.size() - mark.size())));
        }
    }
    clipboard.written.clear();
    return spoken;
}
