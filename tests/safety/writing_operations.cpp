#include "safety/writing_operations.h"

#include "edit/table_memo.h"
#include "output/pdf_target.h"
#include "sheet/bulk_world.h"
#include "sheet/change_in_place.h"
#include "sheet/record_file.h"
#include "start/file_choice.h"
#include "start/model_files.h"
#include "start/sample_board.h"
#include "start/table_opening.h"
#include "structure/alignment_change.h"
#include "structure/block_operations.h"
#include "structure/clip_file.h"
#include "structure/clip_paste.h"
#include "structure/design_accept.h"
#include "structure/item_operations.h"
#include "structure/record_operations.h"
#include "structure/width_rewrite.h"
#include "voice/program_end.h"

#include <algorithm>
#include <filesystem>

namespace {

Text wide(const std::string& ascii) { return Text(ascii.begin(), ascii.end()); }

/// Types into item 1 of `record` and leaves the record.
void typeRow(ZORMOD& zormod, std::int32_t record) {
    zormod.position.curRecord = record;
    setSlotCell(zormod, currentSlot(zormod), u"変更", 1);
    commitRecord(zormod);
}

void leaveMemo(ZORMOD& zormod) {
    EditScreen edit(zormod);
    edit.typedMemo = u"新しいメモ";
    keepTypedMemo(edit);
}

void makeNewTable(TestWorld& world, ZORMOD& zormod) {
    zormod.taskWord.clear();
    TableDesign design(zormod);
    design.rows = {{u"ID", u"L", u"4"}, {u"品名", u"L", u"20"}};
    designRowsChanged(design);
    design.text3 = world.zormod.file.programFolder + u"n.txt";
    acceptDesign(design);
}

void changeDesign(TestWorld& world, ZORMOD& zormod, Answer rewrite) {
    zormod.taskWord = u"tdesign";
    TableDesign design(zormod);
    design.rows[1] = {u"氏名", u"L", u"6"};
    world.dialogs.answers = {rewrite};
    acceptDesign(design);
}

/// Gives the design of the open table to the table b.txt, too.
void designOtherTable(TestWorld& world, ZORMOD& zormod) {
    zormod.taskWord = u"tdesign";
    TableDesign design(zormod);
    design.rows[1] = {u"氏名", u"L", u"6"};
    design.text3 = world.zormod.file.programFolder + u"b.txt";
    acceptDesign(design);
}

/// Pastes the clip over the records from 6 on and stops it at its second one.
void stopPaste(TestWorld& world, ZORMOD& zormod) {
    zormod.position = {.curRecord = 6, .curItem = 1};
    struct StopAtTurn {
        FakeEventLoop& loop;
        ~StopAtTurn() { loop.atTurn.clear(); }
    };
    const StopAtTurn stop{world.eventLoop};
    stop.loop.atTurn[stop.loop.turns + 2] = [&zormod] { zormod.results.answers[0] = 1.0; };
    pasteOver(zormod);
}

void deleteOtherTable(TestWorld& world, ZORMOD& zormod) {
    zormod.taskWord = Text(deleteFileWord);
    FileChoice choice(zormod);
    const auto& names = choice.folders().files();
    const auto found = std::find(names.begin(), names.end(), u"kb.txt");
    if (found == names.end()) {
        world.dialogs.showMessage(u"the list is another one", {}); // which the user hears on the way to the table
    } else {
        choice.folders().selectFile(static_cast<int>(found - names.begin()));
        choice.carryOut();
    }
    choice.giveUp();
}

void endProgram(ZORMOD& zormod) {
    try {
        orderlyEnd(zormod);
    } catch (const ProgramEnd&) {
        // main carries it out.
    }
}

void makeOtherTable(TestWorld& world) {
    world.makeTable("b.txt", {{u"ID", u"L", 4}, {u"品名", u"L", 8}}, {{u"1", u"x"}});
}

void makeOtherTableWithLeftovers(TestWorld& world) {
    makeOtherTable(world);
    for (const char* name : {".change-b.txt", ".swap-b.txt", ".new-b.txt"}) {
        world.writeFile(name, "half of something");
    }
}

void makeModelSources(TestWorld& world) {
    world.makeTable("m1.___", {{u"ID", u"L", 4}, {u"費目", u"L", 8}}, {{u"1", u"x"}});
}

void putModelInPlace(TestWorld& world, ZORMOD& zormod) {
    if (const Text told = openModel(zormod, 1); !told.empty()) {
        world.dialogs.showMessage(told, {}); // as the start screen does
    }
}

void openNewTable(TestWorld& world, RunningCopy& copy) {
    if (world.bytesOf("kn.txt").empty()) {
        copy.open("t.txt");
    } else {
        copy.open("n.txt"); // a new table without records is opened with its item file alone
    }
}

void openTheModel(TestWorld& world, RunningCopy& copy) { putModelInPlace(world, copy.zormod); }

void select(ZORMOD& zormod, std::int32_t from, std::int32_t to) {
    zormod.selection = {.selectionKind = 2, .selRecordFrom = from, .selRecordTo = to, .selItemFrom = 0, .selItemTo = 1};
}

/// Changes record 2, which is the one that is edited meanwhile, and copies the records 1..3 over 6 and 7 and behind the
/// end, as a paste does.
void copyBehindTheEnd(ZORMOD& zormod) {
    changeInPlace(zormod, {.name = u"記録移動中", .spans = {{1, 3}, {6, 8}}}, [](RecordChanges& run) {
        Bytes record;
        run.write(2, "changed");
        for (std::int32_t i = 0; i < 3 && run.nextRound(); ++i) {
            run.read(1 + i, record);
            run.write(6 + i, record);
        }
    });
}

void addRecordOperations(std::vector<WritingOperation>& list) {
    list.push_back({.name = "Records are inserted",
                    .run = [](TestWorld&, ZORMOD& zormod) { insertRecords(zormod, 2); }});
    list.push_back({.name = "Records are deleted",
                    .prepare = [](TestWorld& world) { world.writeFile("ZORCLip", " 1 \r\n"); },
                    .run = [](TestWorld&, ZORMOD& zormod) { deleteRecords(zormod, 2, 3); },
                    .first = {"ZORCLip"}});
    list.push_back({.name = "Records are moved",
                    .run = [](TestWorld&, ZORMOD& zormod) { moveRecords(zormod, 2, 3, 6); }});
    list.push_back({.name = "The clip file is made",
                    .prepare = [](TestWorld& world) { world.writeFile("ZORCLip", " 1 \r\n"); },
                    .run = [](TestWorld&, ZORMOD& zormod) {
                        select(zormod, 2, 4);
                        makeClip(zormod);
                    }});
    list.push_back({.name = "Records are changed in place",
                    .run = [](TestWorld&, ZORMOD& zormod) { copyBehindTheEnd(zormod); }});
}

/// The block of the records 2..5, to be put where it overlaps itself.
void selectBlock(ZORMOD& zormod) {
    zormod.selection = {.selectionKind = 1, .selRecordFrom = 2, .selRecordTo = 5, .selItemFrom = 0, .selItemTo = 1};
    zormod.position.curRecord = 4;
    zormod.position.curItem = 1;
}

void addItemAndBlockOperations(std::vector<WritingOperation>& list) {
    list.push_back({.name = "Items are inserted", .run = [](TestWorld&, ZORMOD& zormod) { insertItems(zormod, 1, 1); }});
    list.push_back({.name = "Items are deleted", .run = [](TestWorld&, ZORMOD& zormod) { deleteItems(zormod, 0, 0); }});
    list.push_back({.name = "Items are moved", .run = [](TestWorld&, ZORMOD& zormod) { moveItems(zormod, 1, 1, 0); }});
    list.push_back({.name = "A block is copied", .run = [](TestWorld&, ZORMOD& zormod) {
                        selectBlock(zormod);
                        copyBlock(zormod);
                    }});
    list.push_back({.name = "A block is moved", .run = [](TestWorld&, ZORMOD& zormod) {
                        selectBlock(zormod);
                        moveBlock(zormod);
                    }});
    list.push_back({.name = "A range is cleared",
                    .prepare = [](TestWorld& world) { world.writeFile("ZORCLip", " 1 \r\n"); },
                    .run = [](TestWorld&, ZORMOD& zormod) { clearRange(zormod, 2, 5, 1, 1); },
                    .first = {"ZORCLip"}});
}

/// The operations that carry a file from the program's folder to the table's, with a disk's border between the two.
void addOperationsAcrossDisks(std::vector<WritingOperation>& list) {
    const std::string disk = "disk/";
    const std::vector<std::set<std::string>> pairs = {{"disk/t.txt", "disk/kt.txt"}};
    list.push_back({.name = "Rewrite to another disk, items kept",
                    .disk = disk,
                    .run = [](TestWorld&, ZORMOD& zormod) { dropEveryThird(zormod); },
                    .pairs = pairs});
    list.push_back({.name = "Rewrite to another disk, other items",
                    .disk = disk,
                    .run = [](TestWorld&, ZORMOD& zormod) { widenFirstItem(zormod); },
                    .pairs = pairs});
    list.push_back({.name = "Records on another disk are deleted",
                    .prepare = [](TestWorld& world) { world.writeFile("ZORCLip", " 1 \r\n"); },
                    .disk = disk,
                    .run = [](TestWorld&, ZORMOD& zormod) { deleteRecords(zormod, 2, 3); },
                    .pairs = pairs,
                    .first = {"ZORCLip"}});
}

void addWidthOperations(std::vector<WritingOperation>& list) {
    list.push_back({.name = "The widths are changed", .run = [](TestWorld&, ZORMOD& zormod) {
                        const auto before = zormod.items.itemWidth;
                        zormod.items.itemWidth[1] = 5;
                        computeItemStart(zormod.items);
                        rewriteWidths(zormod, before);
                    }});
    list.push_back({.name = "The alignment is changed", .run = [](TestWorld&, ZORMOD& zormod) {
                        EditScreen edit(zormod);
                        zormod.position.curItem = 1;
                        edit.txtLR = u"L";
                        changeAlignment(edit);
                    }});
}

/// Two cells of one item each, and what a paste of them over the records 2 and 3 has replaced.
void makeClipAndBackup(TestWorld& world) {
    world.writeFile("ZORCLip", " 2 \r\n 1 \r\n 2 \r\n 1 \r\n 1 \r\n\"clip1\"\r\n\"clip2\"\r\n");
    world.writeFile("ZORCLip.bak", " 2 \r\n\"2   replaced\"\r\n\"3   as well \"\r\n");
}

void addPasteOperations(std::vector<WritingOperation>& list) {
    list.push_back({.name = "The clip file is pasted over",
                    .prepare = makeClipAndBackup,
                    .run =
                        [](TestWorld&, ZORMOD& zormod) {
                            zormod.position = {.curRecord = 6, .curItem = 1};
                            pasteOver(zormod);
                        },
                    .first = {"ZORCLip.bak"}});
    list.push_back({.name = "A paste over is stopped",
                    .prepare = makeClipAndBackup,
                    .run = stopPaste,
                    .first = {"ZORCLip.bak"}});
    list.push_back({.name = "The clip file is inserted",
                    .prepare = makeClipAndBackup,
                    .run =
                        [](TestWorld&, ZORMOD& zormod) {
                            zormod.position = {.curRecord = 3, .curItem = 0};
                            pasteInsert(zormod);
                        },
                    .goneAlone = {"ZORCLip.bak"}}); // the old one means other records as soon as some are inserted
    list.push_back({.name = "A paste is taken back",
                    .prepare = makeClipAndBackup,
                    .run = [](TestWorld& world, ZORMOD& zormod) {
                        world.dialogs.answers = {Answer::ok};
                        undoPaste(zormod);
                    }});
}

std::vector<WritingOperation> makeList() {
    std::vector<WritingOperation> list;
    list.push_back({.name = "A changed row is left",
                    .run = [](TestWorld&, ZORMOD& zormod) { typeRow(zormod, 3); },
                    .writesRow = true});
    list.push_back({.name = "A new row behind the last is left",
                    .run = [](TestWorld&, ZORMOD& zormod) { typeRow(zormod, 8); },
                    .writesRow = true});
    list.push_back({.name = "The memo is changed", .run = [](TestWorld&, ZORMOD& zormod) { leaveMemo(zormod); }});
    list.push_back({.name = "Rewrite through the work file, items kept",
                    .run = [](TestWorld&, ZORMOD& zormod) { dropEveryThird(zormod); }});
    list.push_back({.name = "Rewrite through the work files, other items",
                    .run = [](TestWorld&, ZORMOD& zormod) { widenFirstItem(zormod); }});
    list.push_back({.name = "Rewrite beside the table, items kept",
                    .run = [](TestWorld&, ZORMOD& zormod) {
                        bulkRewrite(zormod, {.name = u"記録移動中", .road = BulkRoad::inPlace},
                                    [](BulkRun& run) { run.copy(1, 4); });
                    }});
    list.push_back({.name = "Rewrite beside the table, own items",
                    .run = [](TestWorld&, ZORMOD& zormod) { widenInPlace(zormod); }});
    addOperationsAcrossDisks(list);
    addRecordOperations(list);
    addItemAndBlockOperations(list);
    addWidthOperations(list);
    addPasteOperations(list);
    list.push_back({.name = "A new table is designed",
                    .run = makeNewTable,
                    .pairs = {{"t.txt", "kt.txt"}, {"n.txt", "kn.txt"}},
                    .formMayStay = true,
                    .next = openNewTable});
    list.push_back({.name = "The design is changed, records rewritten",
                    .run = [](TestWorld& world, ZORMOD& zormod) { changeDesign(world, zormod, Answer::yes); },
                    .formMayStay = true});
    list.push_back({.name = "The design is changed, records kept",
                    .run = [](TestWorld& world, ZORMOD& zormod) { changeDesign(world, zormod, Answer::no); },
                    .formMayStay = true});
    list.push_back({.name = "The design goes to another table",
                    .prepare = makeOtherTable,
                    .run = designOtherTable,
                    .formMayStay = true,
                    .next = [](TestWorld&, RunningCopy& copy) { copy.open("b.txt"); }});
    list.push_back({.name = "A model is put in place and opened",
                    .prepare = makeModelSources,
                    .run = putModelInPlace,
                    .opensTable = false,
                    .pairs = {{"t.txt", "kt.txt"}, {"家計簿.txt", "k家計簿.txt"}},
                    .next = openTheModel});
    list.push_back({.name = "A table is deleted",
                    .prepare = makeOtherTable,
                    .run = deleteOtherTable,
                    .pairs = {{"t.txt", "kt.txt"}, {"b.txt", "kb.txt"}},
                    .goneAlone = {"b.txt"}});
    list.push_back({.name = "A table with the rest of killed operations is deleted",
                    .prepare = makeOtherTableWithLeftovers,
                    .run = deleteOtherTable,
                    .pairs = {{"t.txt", "kt.txt"}, {"b.txt", "kb.txt"}},
                    .goneAlone = {"b.txt"}});
    list.push_back({.name = "The scoring board of the samples is made anew",
                    .prepare = [](TestWorld& world) {
                        world.writeFile("サンプル試験結果.0__", "as delivered");
                        world.writeFile("サンプル試験結果.000", "as changed by the user");
                    },
                    .run = [](TestWorld&, ZORMOD& zormod) { copy000(zormod); },
                    .failsInSilence = true});
    list.push_back({.name = "A printed page is kept as a file",
                    .prepare = [](TestWorld& world) { world.writeFile("p.pdf", "of yesterday"); },
                    .run = [](TestWorld& world, ZORMOD& zormod) {
                        keepPdf(zormod, world.zormod.file.programFolder + u"p.pdf", "of today");
                    }});
    list.push_back({.name = "The settings are kept at the end",
                    .prepare = [](TestWorld& world) { world.writeFile("zorTalk", " 1 \r\n"); },
                    .run = [](TestWorld&, ZORMOD& zormod) { endProgram(zormod); }});
    return list;
}

} // namespace

RunningCopy::RunningCopy(TestWorld& world)
    : files(defaultDrives(), world.folder.path()),
      zormod(Platform{world.clipboard, world.clock, world.beeper, files, world.codePage, world.dialogs, world.screen,
                      world.commands, world.forms, world.eventLoop, world.printer}) {
    zormod.file.programFolder = world.zormod.file.programFolder;
}

bool RunningCopy::open(const std::string& name) {
    Text path = zormod.file.programFolder + wide(name);
    std::replace(path.begin(), path.end(), u'/', u'\\');
    return openInsteadOfOld(zormod, path.substr(2), path.substr(0, 1));
}

const std::vector<WritingOperation>& writingOperations() {
    static const std::vector<WritingOperation> list = makeList();
    return list;
}

SafetyWorld::SafetyWorld(const WritingOperation& operation) {
    forms.loaded.insert(u"Form1");
    makeTable("t.txt", {{u"ID", u"L", 4}, {u"氏名", u"R", 8}},
              {{u"1", u"山田"}, {u"2", u"佐藤"}, {u"3", u"a"}, {u"4", u""}, {u"5", u"鈴木一郎"}, {u"6", u"b"}, {u"7", u"c"}});
    if (!operation.disk.empty()) {
        namespace fs = std::filesystem;
        const std::string root = folder.path() + "/";
        fs::create_directory(root + operation.disk);
        fs::rename(root + "t.txt", root + operation.dataFile());
        fs::rename(root + "kt.txt", root + operation.itemFile());
        disk_.emplace(root + operation.disk.substr(0, operation.disk.size() - 1));
    }
    if (operation.prepare) {
        operation.prepare(*this);
    }
    zormod.files.tableLock.reset();
    closeAllFiles(zormod);
}
