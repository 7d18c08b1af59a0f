#include "sheet/change_world.h"

#include <gtest/gtest.h>

#include <random>

namespace {

std::string spliced(std::string bytes, std::int32_t from, std::int32_t to, char version) {
    const std::string records = recordsOf(from, to, version);
    bytes.resize(std::max(bytes.size(), static_cast<std::size_t>(to) * recordLength), '\0');
    return bytes.replace(static_cast<std::size_t>(from - 1) * recordLength, records.size(), records);
}

} // namespace

TEST(ChangeInPlace, ChangesTheRecordsOfItsSpanAndNothingElse) {
    for (const std::int32_t records : {20, 700, 2000}) {
        ChangeWorld world(records, "tail");
        EXPECT_EQ(renew(world.zormod, {3, records - 1}), BulkEnd::done);
        EXPECT_EQ(world.now(), spliced(world.before, 3, records - 1, 'b'));
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(ChangeInPlace, ReadsTheNewestVersionOfEveryRecord) {
    ChangeWorld world(3000);
    std::vector<char> versions(3001, 'a');
    std::mt19937 random(5);
    changeInPlace(world.zormod, {.spans = {{1, 1200}, {1500, 3000}}}, [&](RecordChanges& run) {
        Bytes row;
        for (int step = 0; step < 3000; ++step) {
            auto record = static_cast<std::int32_t>(random() % 2700 + 1);
            record += record > 1200 ? 300 : 0;
            run.read(record, row);
            ASSERT_EQ(row, endedRecord(rowOf(record, versions[static_cast<std::size_t>(record)])));
            char& version = versions[static_cast<std::size_t>(record)];
            version = static_cast<char>('a' + random() % 20);
            run.write(record, rowOf(record, version));
        }
    });
    std::string expected;
    for (std::int32_t record = 1; record <= 3000; ++record) {
        expected += endedRecord(rowOf(record, versions[static_cast<std::size_t>(record)]));
    }
    EXPECT_EQ(world.now(), expected);
    EXPECT_EQ(world.entries(), tableAlone);
}

TEST(ChangeInPlace, TheTableIsUntouchedUntilTheLastRecordIsDone) {
    ChangeWorld world(2000);
    changeInPlace(world.zormod, {.spans = {{1, 2000}}}, [&](RecordChanges& run) {
        for (std::int32_t record = 1; record <= 2000; ++record) {
            run.write(record, rowOf(record, 'b'));
        }
        EXPECT_EQ(world.now(), world.before);
    });
    EXPECT_EQ(world.now(), recordsOf(1, 2000, 'b'));
}

TEST(ChangeInPlace, SpansMayMeetTouchOrBeEmpty) {
    for (const auto& spans : std::vector<std::vector<RecordSpan>>{
             {{1, 10}, {5, 20}}, {{11, 20}, {1, 10}}, {{1, 20}, {4, 6}}, {{1, 20}, {9, 8}}, {{1, 4}, {5, 9}, {10, 20}}}) {
        ChangeWorld world;
        changeInPlace(world.zormod, {.spans = spans}, [&](RecordChanges& run) {
            run.write(20, rowOf(20, 'b'));
            run.write(1, rowOf(1, 'b'));
        });
        EXPECT_EQ(world.now(), spliced(spliced(world.before, 1, 1, 'b'), 20, 20, 'b'));
    }
}

TEST(ChangeInPlace, ARecordOutsideTheSpansIsAFailureThatChangesNothing) {
    for (const std::int32_t record : {0, 2, 7, 21}) {
        ChangeWorld world;
        EXPECT_THROW(changeInPlace(world.zormod, {.spans = {{3, 6}, {8, 20}}},
                                   [&](RecordChanges& run) {
                                       run.write(3, rowOf(3, 'b'));
                                       run.write(record, rowOf(record, 'b'));
                                   }),
                     RuntimeFailure);
        EXPECT_EQ(world.now(), world.before);
        EXPECT_EQ(world.entries(), tableAlone);
    }
    ChangeWorld world;
    EXPECT_THROW(renew(world.zormod, {0, 3}), RuntimeFailure);
    EXPECT_THROW(changeInPlace(world.zormod, {.spans = {{1, 2}, {4, 5}, {7, 8}}}, [](RecordChanges&) {}),
                 RuntimeFailure);
}

TEST(ChangeInPlace, TheTableGrowsOverItsTail) {
    for (const std::int32_t to : {21, 24, 900}) {
        ChangeWorld world(20, std::string(44, 't'));
        changeInPlace(world.zormod, {.spans = {{19, to}}}, [&](RecordChanges& run) {
            Bytes row;
            run.read(21, row);
            EXPECT_EQ(row, std::string(44, 't') + std::string(212, '\0'));
            for (std::int32_t record = 19; record <= to; ++record) {
                run.write(record, rowOf(record, 'b'));
            }
        });
        EXPECT_EQ(world.now(), spliced(world.before, 19, to, 'b'));
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(ChangeInPlace, ASpanBehindTheEndDoesNotMakeTheTableGrow) {
    ChangeWorld world(20, "tail");
    changeInPlace(world.zormod, {.spans = {{15, 400}}}, [](RecordChanges& run) { run.write(16, rowOf(16, 'b')); });
    EXPECT_EQ(world.now(), spliced(world.before, 16, 16, 'b'));
}

TEST(ChangeInPlace, RecordsGetTheirEnding) {
    ChangeWorld world;
    changeInPlace(world.zormod, {.spans = {{1, 3}}}, [](RecordChanges& run) {
        run.write(2, "short");
        run.write(3, std::string(300, 'x'));
    });
    EXPECT_EQ(world.now().substr(256, 512), "short" + std::string(249, ' ') + "\r\n" + std::string(254, 'x') + "\r\n");
}

TEST(ChangeInPlace, WhatComesOutTheSameIsNotWritten) {
    ChangeWorld world;
    const int writes = world.faulty.writes();
    changeInPlace(world.copy, {.spans = {{1, 20}}}, [](RecordChanges& run) {
        run.write(5, rowOf(5, 'a'));
        run.write(6, rowOf(6, 'a'));
    });
    EXPECT_EQ(world.faulty.writes(), writes);
    EXPECT_EQ(world.now(), world.before);
}

TEST(ChangeInPlace, AScreenfulWaitsForTheDiskFourTimes) {
    ChangeWorld world(100000);
    // The journal's name, the journal, the table, the journal's name again: openBulk, finish, writeDurably, remove. The
    // other two writes only fill the journal.
    const int writes = world.faulty.writes();
    const int calls = world.faulty.calls();
    renew(world.copy, {50000, 50020});
    EXPECT_EQ(world.faulty.writes(), writes + 6);
    EXPECT_LT(world.faulty.calls(), calls + 100);
}

TEST(ChangeInPlace, PercentAndTurnsGoWithTheRecordsOfTheSpan) {
    ChangeWorld world(40);
    renew(world.zormod, {11, 30}, u"消去中");
    EXPECT_EQ(utf8(world.dialogs.progressNames), std::vector<std::string>{"消去中"});
    EXPECT_EQ(utf8(world.dialogs.progressTexts),
              (std::vector<std::string>{" 10%完了", " 20%完了", " 30%完了", " 40%完了", " 50%完了", " 60%完了",
                                        " 70%完了", " 80%完了", " 90%完了", " 100%完了"}));
    EXPECT_EQ(world.eventLoop.turns, 20);
    EXPECT_FALSE(world.dialogs.progressOpen);
}

TEST(ChangeInPlace, WithoutANameThereIsNeitherFormNorTurn) {
    ChangeWorld world;
    renew(world.zormod, {1, 20});
    EXPECT_TRUE(world.dialogs.progressNames.empty());
    EXPECT_EQ(world.eventLoop.turns, 0);
}

TEST(ChangeInPlace, AStopAtAnyRecordLeavesTheTableAsItWas) {
    for (int turn = 1; turn <= 20; ++turn) {
        ChangeWorld world;
        world.eventLoop.atTurn[turn] = [&] { world.zormod.results.answers[0] = 1.0; };
        EXPECT_EQ(renew(world.zormod, {1, 20}, u"消去中"), BulkEnd::stopped);
        EXPECT_EQ(world.now(), world.before);
        EXPECT_EQ(world.entries(), tableAlone);
        EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 0.0);
        EXPECT_FALSE(world.dialogs.progressOpen);
    }
}

TEST(ChangeInPlace, WhatCannotBeStoppedGoesOn) {
    ChangeWorld world;
    world.eventLoop.atTurn[5] = [&] { world.zormod.results.answers[0] = 1.0; };
    EXPECT_EQ(changeInPlace(world.zormod, {.name = u"張り付け撤去中", .spans = {{1, 20}}, .canStop = false},
                            [&](RecordChanges& run) {
                                for (std::int32_t record = 1; record <= run.records() && run.nextRound(); ++record) {
                                    run.write(record, rowOf(record, 'b'));
                                }
                            }),
              BulkEnd::done);
    EXPECT_EQ(world.now(), recordsOf(1, 20, 'b'));
}

TEST(ChangeInPlace, AfterwardsTheWindowIsFreshAndSelectionAndTaskAreGivenUp) {
    ChangeWorld world;
    world.zormod.taskWord = u"copy";
    world.zormod.selection.selectionKind = 1;
    world.zormod.position.curRecord = 4;
    renew(world.zormod, {1, 22});
    EXPECT_EQ(world.zormod.taskWord, Text());
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod)], endedRecord(rowOf(4, 'b')));
    EXPECT_EQ(world.screen.maskHides, 1);
    EXPECT_NE(utf8(world.screen.title).find("記録数:22"), std::string::npos);
}

TEST(ChangeInPlace, ATableThatGrewOrShrankMeanwhileIsNotTouched) {
    for (const std::int32_t records : {699, 701}) {
        ChangeWorld world(700);
        const std::string other = recordsOf(1, records, 'z');
        EXPECT_THROW(changeInPlace(world.zormod, {.name = u"記録移動中", .spans = {{1, 20}}},
                                   [&](RecordChanges& run) {
                                       run.write(1, "new");
                                       world.writeFile("t.txt", other); // the same file with other bytes
                                   }),
                     RuntimeFailure);
        EXPECT_EQ(world.now(), other);
        EXPECT_EQ(world.entries(), tableAlone);
    }
}

TEST(ChangeInPlace, ATableReplacedBehindOurBackIsNotTouched) {
    for (const std::int32_t to : {20, 600}) {
        ChangeWorld world(700);
        const std::string other = recordsOf(1, 700, 'z');
        world.writeFile("other", other);
        std::filesystem::rename(world.folder.path() + "/other", world.folder.path() + "/t.txt");
        EXPECT_THROW(renew(world.zormod, {1, to}), RuntimeFailure);
        EXPECT_EQ(world.now(), other);
    }
}
