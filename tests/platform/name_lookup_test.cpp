#include "platform/posix/name_lookup.h"

#include "support/test_world.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

struct LookupFolder {
    void make(const std::string& name) const { std::ofstream(folder.path() + "/" + name) << name; }
    void makeFolder(const std::string& name) const { std::filesystem::create_directory(folder.path() + "/" + name); }
    /// What is found for the names, without the folder in front.
    std::string found(const std::vector<std::string>& names) const {
        return lookedUp(folder.path(), names).substr(folder.path().size() + 1);
    }
    TemporaryFolder folder;
};

} // namespace

TEST(NameLookup, TheOneEntryInOtherCaseIsMeant) {
    const LookupFolder world;
    world.make("kmeibo.TXT");
    EXPECT_EQ(world.found({"Kmeibo.txt"}), "kmeibo.TXT");
}

TEST(NameLookup, AnExactMatchWinsOverAnEarlierOne) {
    const LookupFolder world;
    world.make("KX");
    world.make("kx");
    EXPECT_EQ(world.found({"kx"}), "kx");
    EXPECT_EQ(world.found({"KX"}), "KX");
}

TEST(NameLookup, OfSeveralTheFirstInCodeOrderIsMeant) {
    const LookupFolder world;
    // Many names, because a folder may happen to give a few of them in code order by itself.
    for (char name = 'a'; name <= 'z'; ++name) {
        world.make(name + std::string("work.qqq"));
        world.make(name + std::string("Work.qqq"));
        world.make(name + std::string("wORK.QQQ"));
    }
    for (char name = 'a'; name <= 'z'; ++name) {
        EXPECT_EQ(world.found({name + std::string("WORK.QQQ")}), name + std::string("Work.qqq"));
    }
}

TEST(NameLookup, ANewNameStaysAsItIsWritten) {
    const LookupFolder world;
    world.make("other.txt");
    EXPECT_EQ(world.found({"New.Txt"}), "New.Txt");
    EXPECT_EQ(world.found({"Gone", "Deeper", "x"}), "Gone/Deeper/x");
    EXPECT_EQ(world.found({"OTHER.TXT", "x"}), "other.txt/x");
}

TEST(NameLookup, FoldersAreLookedUpOneByOne) {
    const LookupFolder world;
    world.makeFolder("Data");
    world.makeFolder("Data/sub");
    world.make("Data/sub/T.txt");
    EXPECT_EQ(world.found({"DATA", "Sub", "t.TXT"}), "Data/sub/T.txt");
    EXPECT_EQ(world.found({"data", "new.txt"}), "Data/new.txt");
    EXPECT_EQ(world.found({"Data", "SUB", "T.txt"}), "Data/sub/T.txt");
}

TEST(NameLookup, AnExactNameWinsInAFolderOfOtherCaseToo) {
    const LookupFolder world;
    world.makeFolder("Data");
    world.make("Data/KX");
    world.make("Data/kx");
    EXPECT_EQ(world.found({"data", "kx"}), "Data/kx");
    EXPECT_EQ(world.found({"data", "KX"}), "Data/KX");
}

TEST(NameLookup, AnExactFolderIsNotLeftForAnotherThatHoldsTheFile) {
    const LookupFolder world;
    world.makeFolder("data");
    world.makeFolder("DATA");
    world.make("DATA/x");
    EXPECT_EQ(world.found({"data", "x"}), "data/x");
}

TEST(NameLookup, NamesOutsideUtf8AreFoundByTheirLettersToo) {
    const LookupFolder world;
    world.make("Abc\xFF.txt");
    EXPECT_EQ(world.found({"aBC\xFF.TXT"}), "Abc\xFF.txt");
    EXPECT_EQ(world.found({"abc\xFE.txt"}), "abc\xFE.txt");
}

TEST(NameLookup, ALinkThatLeadsNowhereIsAnEntry) {
    const LookupFolder world;
    std::filesystem::create_symlink("nowhere", world.folder.path() + "/Link");
    EXPECT_TRUE(hasEntry(world.folder.path() + "/Link"));
    EXPECT_FALSE(hasEntry(world.folder.path() + "/link"));
    EXPECT_EQ(world.found({"LINK"}), "Link");
}

TEST(NameLookup, FoldsEveryAlphabetThatHasCase) {
    EXPECT_EQ(foldedName(u"KMeibo-09"), u"kmeibo-09");
    EXPECT_EQ(foldedName(u"\uFF21\uFF3A"), u"\uFF41\uFF5A");
    EXPECT_EQ(foldedName(u"\u0391\u03A3\u03C2\u03A9\u0386\u038F"), u"\u03B1\u03C3\u03C3\u03C9\u03AC\u03CE");
    EXPECT_EQ(foldedName(u"\u0410\u042F\u0401\u0404\u040F\u0460"), u"\u0430\u044F\u0451\u0454\u045F\u0461");
    EXPECT_EQ(foldedName(u"\u00C0\u00D6\u00D8\u00DE"), u"\u00E0\u00F6\u00F8\u00FE");
    EXPECT_EQ(foldedName(u"\u0100\u0139\u014A\u0178\u017D\u1E00"), u"\u0101\u013A\u014B\u00FF\u017E\u1E01");
    EXPECT_EQ(foldedName(u"\u212A\u212B\u2126\u2160\u216B"), u"\u006B\u00E5\u03C9\u2170\u217B");
}

TEST(NameLookup, LeavesWhatHasNoCase) {
    EXPECT_EQ(foldedName(u"\u00D7\u00F7\u00DF\u0138\u0130\u3042\u30A2\uFF71"),
              u"\u00D7\u00F7\u00DF\u0138\u0130\u3042\u30A2\uFF71");
}

TEST(NameLookup, FoldingOnceIsFoldingForGood) {
    for (unsigned value = 1; value < 0x10000; ++value) {
        const Text once = foldedName(Text(1, static_cast<char16_t>(value)));
        ASSERT_EQ(foldedName(once), once) << value;
    }
}
