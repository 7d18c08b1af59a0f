#include "structure/record_operations.h"

#include "structure/record_world.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

Rows endedRows(const Rows& rows) {
    Rows result;
    for (const std::string& row : rows) {
        result.push_back(row.substr(0, 254) + "\r\n");
    }
    return result;
}

Rows randomRows(std::mt19937& random) {
    Rows rows(random() % 30);
    for (std::string& row : rows) {
        row = randomRow(random, 256);
    }
    return rows;
}

const std::string blank = ended("");

} // namespace

TEST(RecordOperations, InsertingEqualsPuttingBlankRowsIntoAList) {
    std::mt19937 random(1);
    QuickWorld world;
    for (int turn = 0; turn < 250; ++turn) {
        Rows rows = randomRows(random);
        world.rows(randomItems(random), rows, random() % 2 == 0 ? "tail" : "");
        const auto record = static_cast<std::int32_t>(1 + random() % (rows.size() + 1));
        const auto count = static_cast<std::int32_t>(1 + random() % 40);
        world.stand(record, 0);
        const std::string items = world.itemFile();
        EXPECT_EQ(insertRecords(world.zormod, count), BulkEnd::done);
        EXPECT_EQ(world.itemFile(), items);
        rows = endedRows(rows);
        rows.insert(rows.begin() + record - 1, static_cast<std::size_t>(count), blank);
        ASSERT_EQ(world.bytesOf("t.txt"), joinedRows(rows)) << turn;
        EXPECT_EQ(world.zormod.position.curRecord, record);
    }
}

TEST(RecordOperations, DeletingEqualsErasingFromAList) {
    std::mt19937 random(2);
    QuickWorld world;
    for (int turn = 0; turn < 250; ++turn) {
        Rows rows = randomRows(random);
        rows.push_back(randomRow(random, 256));
        world.rows(randomItems(random), rows, random() % 2 == 0 ? "tail" : "");
        auto from = static_cast<std::int32_t>(1 + random() % rows.size());
        auto to = static_cast<std::int32_t>(1 + random() % rows.size());
        world.stand(static_cast<std::int32_t>(1 + random() % rows.size()), 0);
        const std::int32_t here = world.zormod.position.curRecord;
        const std::string items = world.itemFile();
        EXPECT_EQ(deleteRecords(world.zormod, from, to), BulkEnd::done);
        EXPECT_EQ(world.itemFile(), items);
        if (from > to) {
            std::swap(from, to);
        }
        rows = endedRows(rows);
        rows.erase(rows.begin() + from - 1, rows.begin() + to);
        ASSERT_EQ(world.bytesOf("t.txt"), joinedRows(rows)) << turn;
        EXPECT_EQ(world.zormod.position.curRecord,
                  std::max(1, std::min(here, static_cast<std::int32_t>(rows.size()))));
    }
}

TEST(RecordOperations, MovingEqualsTakingOutAndPuttingInFrontOfThePointer) {
    std::mt19937 random(3);
    QuickWorld world;
    for (int turn = 0; turn < 400; ++turn) {
        Rows rows = randomRows(random);
        rows.push_back(randomRow(random, 256));
        world.rows(randomItems(random), rows);
        auto from = static_cast<std::int32_t>(1 + random() % rows.size());
        auto to = static_cast<std::int32_t>(1 + random() % rows.size());
        const auto pointer = static_cast<std::int32_t>(1 + random() % (rows.size() + 1));
        const std::string items = world.itemFile();
        EXPECT_EQ(moveRecords(world.zormod, from, to, pointer), BulkEnd::done);
        EXPECT_EQ(world.itemFile(), items);
        if (from > to) {
            std::swap(from, to);
        }
        if (pointer < from || pointer > to) {
            rows = endedRows(rows);
            // A list of one's own: the pointer's row, the block, each once.
            Rows expected;
            for (std::int32_t record = 1; record <= static_cast<std::int32_t>(rows.size()) + 1; ++record) {
                if (record == pointer) {
                    expected.insert(expected.end(), rows.begin() + from - 1, rows.begin() + to);
                }
                if (record <= static_cast<std::int32_t>(rows.size()) && (record < from || record > to)) {
                    expected.push_back(rows[static_cast<std::size_t>(record - 1)]);
                }
            }
            rows = expected;
        }
        ASSERT_EQ(world.bytesOf("t.txt"), joinedRows(rows)) << turn;
    }
}

TEST(RecordOperations, AMoveWithThePointerBehindTheLastPutsTheRangeAtTheEnd) {
    RecordWorld world;
    world.numbered(5);
    EXPECT_EQ(moveRecords(world.zormod, 2, 3, 6), BulkEnd::done);
    EXPECT_EQ(world.order(), "1 4 5 2 3");
}

TEST(RecordOperations, AMoveIntoTheRangeItselfTouchesNothing) {
    RecordWorld world;
    world.rows({{u"ID", u"L", 4}}, {std::string(256, 'x'), std::string(256, 'y'), std::string(256, 'z')});
    for (const std::int32_t pointer : {1, 2}) {
        EXPECT_EQ(moveRecords(world.zormod, 2, 1, pointer), BulkEnd::done);
    }
    EXPECT_EQ(world.onDisk()[0], std::string(256, 'x')) << "not even its ending is put right";
    EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
}

TEST(RecordOperations, EachShowsItsNameAndTheMoveItsTaskWord) {
    RecordWorld world;
    world.numbered(4);
    std::string word;
    world.eventLoop.atTurn[1] = [&] { word = utf8(world.zormod.taskWord); };
    moveRecords(world.zormod, 1, 1, 4);
    EXPECT_EQ(word, "work");
    EXPECT_TRUE(world.zormod.taskWord.empty());
    insertRecords(world.zormod, 1);
    deleteRecords(world.zormod, 1, 1);
    EXPECT_THAT(utf8(world.dialogs.progressNames),
                ElementsAre("記録移動中", "行挿入中", "ｸﾘｯﾌﾟﾌｧｲﾙ作成中", "記録削除中"));
    EXPECT_FALSE(world.dialogs.progressOpen);
}

TEST(RecordOperations, BehindItsLoopAMoveHasItsOwnTaskWordAgain) {
    struct Watching : ScriptedDialogs {
        void closeProgress() override {
            words.push_back(utf8(zormod->taskWord));
            ScriptedDialogs::closeProgress();
        }
        ZORMOD* zormod = nullptr;
        std::vector<std::string> words;
    };
    Watching dialogs;
    TestWorld world({.dialogs = &dialogs});
    dialogs.zormod = &world.zormod;
    world.table({{u"ID", u"L", 4}}, {{u"1"}, {u"2"}, {u"3"}});
    EXPECT_EQ(moveRecords(world.zormod, 1, 1, 3), BulkEnd::done);
    EXPECT_THAT(dialogs.words, ElementsAre("moverecord"));
}

TEST(RecordOperations, AnInsertionSaysItsNumberWithTheLeadingBlank) {
    RecordWorld world;
    world.numbered(2);
    world.zormod.speech.speechMode = 1;
    insertRecords(world.zormod, 12);
    EXPECT_THAT(world.takeSpoken(), ElementsAre(" 12業挿入されました。"));
}

TEST(RecordOperations, AnInsertionEndsTheNumberingOfIds) {
    RecordWorld world;
    world.numbered(2);
    world.zormod.input.idAutoOn = 1;
    insertRecords(world.zormod, 1);
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
}

TEST(RecordOperations, InsertingIntoAnEmptyTableAndBehindTheLastRecordAppends) {
    RecordWorld world;
    world.rows({{u"ID", u"L", 4}}, {});
    EXPECT_EQ(insertRecords(world.zormod, 2), BulkEnd::done);
    world.stand(3, 0);
    EXPECT_EQ(insertRecords(world.zormod, 1), BulkEnd::done);
    EXPECT_THAT(world.onDisk(), ElementsAre(blank, blank, blank));
}

TEST(RecordOperations, MoreRecordsThanATableCanHoldAreRefusedBeforeAnythingIsWritten) {
    RecordWorld world;
    world.numbered(3);
    EXPECT_THROW(insertRecords(world.zormod, INT32_MAX - 2), RuntimeFailure);
    EXPECT_EQ(world.order(), "1 2 3");
    EXPECT_THAT(world.dialogs.progressNames, IsEmpty());
}

TEST(RecordOperations, DeletingAllRecordsLeavesAnEmptyFileAndTheUserOnRecordOne) {
    RecordWorld world;
    world.numbered(3);
    world.stand(3, 1);
    EXPECT_EQ(deleteRecords(world.zormod, 1, 3), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("t.txt"), "");
    EXPECT_EQ(recordCount(world.zormod), 0);
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
}

TEST(RecordOperations, DeletedRecordsStandWholeInTheClipFile) {
    RecordWorld world;
    world.numbered(3);
    deleteRecords(world.zormod, 3, 2);
    EXPECT_EQ(world.clip(), " 2 \r\n 2 \r\n 3 \r\n 3 \r\n 0 \r\n 1 \r\n 2 \r\n"
                            "\"2   \"\r\n\"n2      \"\r\n\"   \"\r\n\"3   \"\r\n\"n3      \"\r\n\"   \"\r\n");
    EXPECT_EQ(world.order(), "1");
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.selection.selRecordFrom, 0);
}

TEST(RecordOperations, ADeletionWhoseClipFileIsStoppedDeletesNothing) {
    RecordWorld world;
    world.numbered(5);
    world.zormod.taskWord = u"killrecord";
    world.stopAt(2);
    EXPECT_EQ(deleteRecords(world.zormod, 2, 4), BulkEnd::stopped);
    EXPECT_EQ(world.order(), "1 2 3 4 5");
    EXPECT_THAT(utf8(world.dialogs.progressNames), ElementsAre("ｸﾘｯﾌﾟﾌｧｲﾙ作成中"));
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 0);
    EXPECT_TRUE(world.zormod.taskWord.empty());
    EXPECT_FALSE(isStopAsked(world.zormod));
}

TEST(RecordOperations, AStopAtAnyRoundLeavesTheTableAsItWas) {
    const std::vector<std::function<BulkEnd(ZORMOD&)>> operations = {
        [](ZORMOD& zormod) { return insertRecords(zormod, 3); },
        [](ZORMOD& zormod) { return moveRecords(zormod, 1, 2, 5); },
        [](ZORMOD& zormod) { return deleteRecords(zormod, 2, 3); }};
    for (const auto& operation : operations) {
        for (int turn = 1;; ++turn) {
            RecordWorld world;
            world.rows({{u"ID", u"L", 4}}, Rows(6, std::string(256, 'x')));
            const std::string before = world.bytesOf("t.txt");
            world.stand(4, 0);
            world.zormod.speech.speechMode = 1;
            world.stopAt(turn);
            const BulkEnd end = operation(world.zormod);
            if (end == BulkEnd::done) {
                EXPECT_GT(turn, 4);
                break;
            }
            EXPECT_EQ(end, BulkEnd::stopped);
            EXPECT_EQ(world.bytesOf("t.txt"), before) << turn;
            for (const std::string& text : world.takeSpoken()) {
                EXPECT_EQ(text.find("挿入"), std::string::npos) << "nothing was inserted";
            }
            EXPECT_FALSE(isStopAsked(world.zormod));
            EXPECT_EQ(world.entries().count("WORK.QQQ"), 0U);
        }
    }
}

TEST(RecordOperations, AnotherCopyAtWorkIsToldAndNothingChanges) {
    RecordWorld world;
    world.numbered(3);
    PosixFiles other(defaultDrives(), world.folder.path());
    const auto claim = other.lockFolder(other.currentFolder());
    ASSERT_NE(claim, nullptr);
    world.dialogs.expectedMessages = 2;
    EXPECT_EQ(insertRecords(world.zormod, 1), BulkEnd::refused);
    EXPECT_EQ(deleteRecords(world.zormod, 1, 1), BulkEnd::stopped);
    EXPECT_EQ(world.order(), "1 2 3");
    EXPECT_EQ(world.clip(), "");
    EXPECT_THAT(world.messages(), testing::Each("確認/別のロミカが作業中です。しばらくしてからやり直してください"));
}
