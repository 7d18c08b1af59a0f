#pragma once
// A TestWorld with the edit screen's logic on top and a table to open, for the tests of the roads into a table.

#include "edit/status_update.h"
#include "sheet/record_file.h"
#include "start/table_opening.h"
#include "support/faulty_files.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

/// A second state of the same world whose files fail when a test wants them to.
struct FaultyState {
    explicit FaultyState(TestWorld& world)
        : files(world.files), zormod(Platform{world.clipboard, world.clock, world.beeper, files, world.codePage,
                                              world.dialogs, world.screen, world.commands, world.forms,
                                              world.eventLoop, world.printer}) {
        zormod.file.programFolder = world.zormod.file.programFolder;
    }
    FaultyFiles files;
    ZORMOD zormod;
};

struct StartWorld : TestWorld {
    StartWorld() { forms.loaded.insert(u"Form1"); }

    std::string native(const std::string& name) const { return folder.path() + "/" + name; }
    bool isThere(const std::string& name) const { return std::filesystem::exists(native(name)); }
    /// A table of the items ID (4) and `item` (8) with one record.
    void make(const std::string& name, std::u16string_view item = u"name") {
        makeTable(name, {{u"ID", u"L", 4}, {item, u"R", 8}}, {{u"1", u"x"}});
    }
    /// Path of a name in the folder without its drive.
    Text pathOf(std::u16string_view name) const { return (zormod.file.programFolder + Text(name)).substr(2); }
    /// The table is open, whole and is the one of that name.
    void expectOpen(const std::string& name, std::u16string_view item = u"name") {
        ASSERT_TRUE(hasTable(zormod));
        EXPECT_EQ(utf8(zormod.file.fileName), utf8(pathOf(Text(name.begin(), name.end()))));
        EXPECT_EQ(recordCount(zormod), 1);
        EXPECT_EQ(zormod.items.itemCount, 1);
        EXPECT_EQ(utf8(zormod.items.itemName[1]), utf8(item));
        EXPECT_EQ(zormod.items.itemStart[1], 5);
    }
    void expectNoTable() {
        EXPECT_FALSE(hasTable(zormod));
        EXPECT_EQ(zormod.file.fileName, u"");
        EXPECT_EQ(zormod.items.itemCount, 0);
    }
    void expectMessage(const std::string& text, const std::string& title) {
        ASSERT_FALSE(dialogs.messages.empty());
        EXPECT_EQ(utf8(dialogs.messages.back().text), text);
        EXPECT_EQ(utf8(dialogs.messages.back().title), title);
    }
};
