// Stories of records that are deleted, copied and pasted, told by keys alone: what is heard, and the bytes that are left.

#include "sheet/failure_recovery.h"
#include "support/qt/edit_desk.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The edit screen on a table of four people.
struct RecordStory : EditDesk {
    RecordStory() {
        guard.setCleanup([this](const RuntimeFailure& failure) { putStateRight(zormod, failure); });
        openTable({{u"ID", u"L", 4}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
                  {{u"1", u"山田", u"31"}, {u"2", u"鈴木", u"45"}, {u"3", u"佐藤", u"7"}, {u"4", u"田中", u"60"}});
        zormod.speech.speechMode = 2;
        before = file();
    }
    std::string file() const { return world.bytesOf("t.txt"); }
    /// The records' IDs on the disk.
    std::string order() const {
        std::string ids;
        for (std::size_t at = 0; at < file().size(); at += 256) {
            ids += file()[at];
        }
        return ids;
    }
    /// Draws the range of records 2 and 3 from the first record on and fixes it.
    void drawTwoRecords() {
        key(plainKey(Key::down));
        key(altKey(Key::down));
        key(plainKey(Key::down));
        key(plainKey(Key::enter));
        ASSERT_EQ(zormod.selection.selectionKind, 2);
        spoken();
    }
    std::string before;
};

} // namespace

TEST(RecordStory, ARangeIsDrawnDeletedAndPastedBackWhereItWas) {
    RecordStory story;
    story.drawTwoRecords();
    story.inNextModal([&] {
        EXPECT_EQ(story.title(), "指定範囲の記録の排除");
        EXPECT_THAT(story.spoken().back(), testing::HasSubstr("記録2から記録3の範囲の記録を　削除し"));
        story.keys.press(plainKey(Key::y));
    });
    story.key(plainKey(Key::del));
    EXPECT_EQ(story.order(), "14");
    EXPECT_EQ(story.focus(), "txtinputbox");
    EXPECT_EQ(story.zormod.selection.selectionKind, 0);
    EXPECT_NE(story.form.windowTitle().indexOf(QStringLiteral("/記録数:2)")), -1);

    while (story.zormod.position.curRecord > 2) {
        story.key(plainKey(Key::up));
    }
    while (story.zormod.position.curItem > 0) {
        story.key(plainKey(Key::left));
    }
    story.spoken();
    story.key(ctrlKey(Key::y));
    EXPECT_EQ(story.file(), story.before);
    EXPECT_THAT(story.spoken(), testing::Contains(" 2業挿入されました。"));
    EXPECT_EQ(story.focus(), "txtinputbox");
}

TEST(RecordStory, ANoLeavesTheRecords) {
    RecordStory story;
    story.drawTwoRecords();
    story.inNextModal(plainKey(Key::n));
    story.key(plainKey(Key::del));
    EXPECT_EQ(story.file(), story.before);
    EXPECT_EQ(story.focus(), "txtinputbox");
    EXPECT_EQ(story.zormod.selection.selectionKind, 0);
}

TEST(RecordStory, CtrlKFindsTheFixedRange) {
    RecordStory story;
    story.drawTwoRecords();
    story.inNextModal(plainKey(Key::y));
    story.key(ctrlKey(Key::k));
    EXPECT_EQ(story.order(), "14");
}

TEST(RecordStory, InsPutsAsManyRecordsInFrontOfTheRange) {
    RecordStory story;
    story.drawTwoRecords();
    story.key(plainKey(Key::insert));
    EXPECT_EQ(story.order(), "1  234");
    EXPECT_THAT(story.spoken(), testing::Contains(" 2業挿入されました。"));
    EXPECT_EQ(story.zormod.position.curRecord, 2);
}

TEST(RecordStory, CtrlInsWhileDrawingCopiesAndCtrlOPastesOver) {
    RecordStory story;
    story.key(altKey(Key::down));
    story.key(ctrlKey(Key::insert));
    EXPECT_EQ(story.zormod.selection.selectionKind, 0);
    EXPECT_EQ(story.focus(), "txtinputbox");
    ASSERT_FALSE(story.world.clipboard.written.empty());
    EXPECT_THAT(utf8(story.world.clipboard.written.back()), testing::StartsWith("1   山田      ")) << "the copied cells stay there";
    EXPECT_EQ(story.world.bytesOf("ZORCLip").substr(0, 5), " 1 \r\n");
    story.key(plainKey(Key::down));
    story.key(ctrlKey(Key::o));
    EXPECT_EQ(story.order(), "1134");
    EXPECT_EQ(story.cell(1), "山田      ");
    story.inNextModal([&] {
        EXPECT_EQ(story.title(), ".張り付けの取り消し");
        story.keys.press(plainKey(Key::enter));
    });
    story.key(ctrlKey(Key::i));
    EXPECT_EQ(story.file(), story.before);
    EXPECT_EQ(story.cell(1), "鈴木      ");
}

TEST(RecordStory, CtrlShiftInsInsertsARecordBeforeTheCurrentOne) {
    RecordStory story;
    story.key(plainKey(Key::down));
    story.spoken();
    story.key(ctrlShiftKey(Key::insert));
    EXPECT_EQ(story.order(), "1 234");
    EXPECT_THAT(story.spoken(), testing::Contains(" 1業挿入されました。"));
    EXPECT_EQ(story.cell(1), "          ");
}
