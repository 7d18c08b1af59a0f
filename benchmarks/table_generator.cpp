#include "table_generator.h"

#include "measure.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <fstream>

namespace {

constexpr int itemCount = 11;
constexpr int nameWidth = 20;

std::string itemFile() {
    std::string text = "100  ' 0,bench,, 11\r\n1000 'ID,R\r\n";
    for (int i = 1; i <= itemCount; ++i) {
        text += std::to_string(1000 + i) + " 'item" + std::to_string(i) + ",L\r\n";
    }
    text += "2000 ' 8\r\n";
    for (int i = 1; i <= itemCount; ++i) {
        text += std::to_string(2000 + i) + " ' " + std::to_string(nameWidth) + "\r\n";
    }
    return text;
}

std::string record(std::int64_t number) {
    std::string row(254, ' ');
    const std::string id = std::to_string(number);
    row.replace(8 - id.size(), id.size(), id);
    row.replace(8, 8, "\x8E\x52\x93\x63\x91\xBE\x98\x59"); // a family name and a given name
    for (int i = 1; i < itemCount; ++i) {
        const std::string cell = "cell " + std::to_string(number % 1000) + "/" + std::to_string(i);
        row.replace(8 + static_cast<std::size_t>(i) * nameWidth, cell.size(), cell);
    }
    return row + "\r\n";
}

} // namespace

void generateTable(const std::string& folder, const std::string& name, std::int64_t records) {
    std::ofstream keys(folder + "/K" + name, std::ios::binary);
    keys << itemFile();
    std::ofstream out(folder + "/" + name, std::ios::binary);
    for (std::int64_t number = 1; number <= records; ++number) {
        out << record(number);
    }
    out.close();
    keys.close();
    if (!out || !keys) {
        giveUp(name.c_str());
    }
}

void openGeneratedTable(ZORMOD& zormod, const std::string& folder, std::int64_t records) {
    generateTable(folder, "t.txt", records);
    const Text path = zormod.file.programFolder + u"t.txt";
    zormod.file.fileDrive = path.substr(0, 1);
    zormod.file.fileName = path.substr(2);
    if (!readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty()) {
        giveUp("readItemFile");
    }
    openDataFile(zormod);
    fillFirstWindow(zormod);
}
