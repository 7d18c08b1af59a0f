// Tables that are not open: every way in which one may change, with leave and without.

#include "support/test_world.h"
#include "tests/monkey/folder_digest.h"
#include "tests/monkey/tables_at_rest.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

constexpr RestLeave noLeave{};
constexpr RestLeave mayDelete{.deletes = true};
constexpr RestLeave mayDesign{.designs = true};

class TablesAtRestTest : public testing::Test {
protected:
    TablesAtRestTest() {
        for (const char* name : {"t.txt", "Kt.txt", "b.txt", "Kb.txt"}) {
            write(name, name);
        }
        noteWithOpen("t.txt");
    }
    void write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder_.path() + "/" + name, std::ios::binary) << bytes;
    }
    void remove(const std::string& name) { std::filesystem::remove(folder_.path() + "/" + name); }
    void noteWithOpen(const std::string& open) {
        tables_.note([&](const std::string& name) { return name == open; });
    }

    TemporaryFolder folder_;
    TablesAtRest tables_{folder_.path(), {"t.txt", "b.txt"}};
};

} // namespace

TEST_F(TablesAtRestTest, TheOpenTableMayChange) {
    write("t.txt", "another");
    write("Kt.txt", "another one");
    EXPECT_FALSE(tables_.look(noLeave));
    noteWithOpen("b.txt");
    write("t.txt", "a third one");
    EXPECT_TRUE(tables_.look(noLeave)) << "it isn't open any more";
}

TEST_F(TablesAtRestTest, OtherTablesStay) {
    EXPECT_FALSE(tables_.look(noLeave));
    write("b.txt", "longer than it was");
    EXPECT_TRUE(tables_.look(noLeave));
    EXPECT_TRUE(tables_.look(mayDelete));
    EXPECT_TRUE(tables_.look(mayDesign)) << "a design leaves the records";
}

TEST_F(TablesAtRestTest, AFileOfTheSameLengthIsNotTheSame) {
    std::filesystem::rename(folder_.path() + "/t.txt", folder_.path() + "/b.txt"); // "t.txt" for "b.txt"
    EXPECT_TRUE(tables_.look(noLeave));
}

TEST_F(TablesAtRestTest, ATableWrittenWithItsOwnBytesIsTheSame) {
    remove("b.txt");
    write("b.txt", "b.txt");
    EXPECT_FALSE(tables_.look(noLeave));
}

TEST_F(TablesAtRestTest, ATableGoesOnlyByADeletion) {
    remove("b.txt");
    remove("Kb.txt");
    EXPECT_TRUE(tables_.look(noLeave));
    EXPECT_TRUE(tables_.look(mayDesign));
    EXPECT_FALSE(tables_.look(mayDelete));
}

TEST_F(TablesAtRestTest, AnItemFileChangesOnlyByADesign) {
    write("Kb.txt", "other items");
    EXPECT_TRUE(tables_.look(noLeave));
    EXPECT_TRUE(tables_.look(mayDelete));
    EXPECT_FALSE(tables_.look(mayDesign));
}

TEST_F(TablesAtRestTest, ATableComesOnlyByADesign) {
    remove("b.txt");
    remove("Kb.txt");
    noteWithOpen("t.txt");
    EXPECT_FALSE(tables_.look(noLeave));
    write("b.txt", "");
    EXPECT_TRUE(tables_.look(noLeave));
    EXPECT_FALSE(tables_.look(mayDesign));
}

TEST_F(TablesAtRestTest, AnItemFileThatIsOpenAsATableMayChange) {
    noteWithOpen("Kb.txt");
    write("Kb.txt", "records");
    EXPECT_FALSE(tables_.look(noLeave));
    write("b.txt", "records, too");
    EXPECT_TRUE(tables_.look(noLeave));
}

TEST_F(TablesAtRestTest, TheDigestOfAFolderTellsNamesAndBytes) {
    const auto digest = folderDigest(folder_.path());
    EXPECT_EQ(folderDigest(folder_.path()), digest);
    write("b.txt", "b.txU");
    EXPECT_NE(folderDigest(folder_.path()), digest);
    write("b.txt", "b.txt");
    EXPECT_EQ(folderDigest(folder_.path()), digest);
    std::filesystem::rename(folder_.path() + "/b.txt", folder_.path() + "/c.txt");
    EXPECT_NE(folderDigest(folder_.path()), digest);
}

TEST(RestLeave, IsGivenByTheCommands) {
    EXPECT_FALSE(restLeaveOf({u"mnuREAD"}).deletes);
    EXPECT_FALSE(restLeaveOf({u"mnuREAD"}).designs);
    EXPECT_TRUE(restLeaveOf({u"mnuDEL"}).deletes);
    EXPECT_TRUE(restLeaveOf({u"mnuSINKI", u"mnuNEW"}).designs);
    EXPECT_TRUE(restLeaveOf({u"mnuKOUMOKU"}).designs);
}
