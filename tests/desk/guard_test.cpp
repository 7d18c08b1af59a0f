#include "platform/qt/guard.h"

#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/romika_application.h"
#include "support/qt/desk.h"
#include "voice/speech_channel.h"

#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct GuardDesk : Desk {
    GuardDesk() {
        auto* layout = new QVBoxLayout(&form);
        box = new KeyLineEdit(context);
        box->setObjectName(u"box");
        layout->addWidget(box);
        open(form);
        zormod.speech.speechMode = 2;
    }
    void expectReport(const std::string& text) {
        inNextModal([this, text] {
            EXPECT_EQ(title(), "実行時エラー");
            EXPECT_THAT(spoken(), ElementsAre(text + "。。OKならCRを叩いてください。"));
            keys.press(plainKey(Key::enter));
        });
    }
    QWidget form;
    KeyLineEdit* box;
};

} // namespace

TEST(EventGuard, AFailureInAHandlerIsReportedOnceAndTheProgramGoesOn) {
    GuardDesk desk;
    desk.expectReport("0で割り算をしました");
    EXPECT_FALSE(desk.guard.run([] { throw RuntimeFailure{FailureKind::division}; }));
    EXPECT_FALSE(desk.guard.isEndPending());
    EXPECT_TRUE(desk.guard.run([] {}));
    EXPECT_EQ(desk.focus(), "box");
}

TEST(EventGuard, TheStateIsPutRightBeforeTheReport) {
    GuardDesk desk;
    std::vector<std::string> order;
    desk.guard.setCleanup([&](const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::file);
        EXPECT_TRUE(failure.rowWrite);
        order.push_back("cleanup");
    });
    desk.inNextModal([&] {
        order.push_back("report");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.guard.run([] { throw RuntimeFailure{FailureKind::file, true}; });
    EXPECT_THAT(order, ElementsAre("cleanup", "report"));
}

TEST(EventGuard, ACleanupThatFailsTooAddsNoSecondReport) {
    GuardDesk desk;
    desk.guard.setCleanup([](const RuntimeFailure&) { throw RuntimeFailure{FailureKind::file}; });
    desk.expectReport("添字が範囲を越えました");
    EXPECT_FALSE(desk.guard.run([] { throw RuntimeFailure{FailureKind::subscript}; }));
    EXPECT_TRUE(desk.guard.run([] {}));
}

TEST(EventGuard, AFailedRowWriteBringsThePositionBack) {
    GuardDesk desk;
    desk.zormod.position.curRecord = 5;
    desk.inNextModal(plainKey(Key::enter));
    desk.guard.run([&] {
        desk.zormod.position.curRecord = 6;
        throw RuntimeFailure{FailureKind::file, true};
    });
    EXPECT_EQ(desk.zormod.position.curRecord, 5);
}

TEST(EventGuard, TheOldPositionDoesNotReturnToAWindowFilledAnew) {
    GuardDesk desk;
    desk.zormod.position.curRecord = 5;
    desk.inNextModal(plainKey(Key::enter));
    desk.guard.run([&] {
        desk.zormod.position.windowFirst = 40;
        desk.zormod.position.curRecord = 45;
        throw RuntimeFailure{FailureKind::file, true};
    });
    EXPECT_EQ(desk.zormod.position.curRecord, 45);
    EXPECT_EQ(desk.zormod.position.windowFirst, 40);
}

TEST(EventGuard, OtherFailuresLeaveThePositionToTheCleanup) {
    GuardDesk desk;
    desk.zormod.position.curRecord = 5;
    desk.inNextModal(plainKey(Key::enter));
    desk.guard.run([&] {
        desk.zormod.position.curRecord = 6;
        throw RuntimeFailure{FailureKind::overflow};
    });
    EXPECT_EQ(desk.zormod.position.curRecord, 6);
}

TEST(EventGuard, SpeechHeldByTheHandlerIsOnAgainForTheReport) {
    GuardDesk desk;
    desk.expectReport("数値があふれました");
    desk.guard.run([&] {
        const SilentScope silent(desk.zormod);
        throw RuntimeFailure{FailureKind::overflow};
    });
    EXPECT_EQ(desk.zormod.speech.speechMode, 2);
}

TEST(EventGuard, AFatalFailureIsReportedAndEndsWithANonZeroStatus) {
    GuardDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "終わり");
        EXPECT_FALSE(desk.endStatus.has_value()) << "the report comes first";
        desk.keys.press(plainKey(Key::enter));
    });
    desk.guard.run([] { throw FatalFailure{FailureKind::division, u"続けられません", u"終わり"}; });
    EXPECT_EQ(desk.endStatus, 1);
    EXPECT_EQ(desk.guard.exitStatus(), 1);
}

TEST(EventGuard, AFatalFailureWithoutWordsReportsItsKind) {
    GuardDesk desk;
    desk.expectReport("0で割り算をしました");
    desk.guard.run([] { throw FatalFailure{FailureKind::division}; });
    EXPECT_EQ(desk.endStatus, 1);
}

TEST(EventGuard, AnEndByDesignIsSilentAndLeavesWithZero) {
    GuardDesk desk;
    desk.guard.run([] { throw ProgramEnd{EndKind::atOnce}; });
    EXPECT_EQ(desk.endStatus, 0);
    EXPECT_THAT(desk.world.clipboard.written, IsEmpty());
}

TEST(EventGuard, NoHandlerRunsWhileAnEndIsPending) {
    GuardDesk desk;
    desk.guard.run([] { throw ProgramEnd{EndKind::orderly}; });
    bool ran = false;
    EXPECT_FALSE(desk.guard.run([&] { ran = true; }));
    desk.keys.press(plainKey(Key::x));
    EXPECT_FALSE(ran);
    EXPECT_EQ(desk.box->view().text, u"");
}

TEST(EventGuard, AnEndInsideNestedFormsClosesThemAndRunsNothingBehind) {
    GuardDesk desk;
    bool behind = false;
    int ends = 0;
    desk.inNextModal([&] {
        desk.inNextModal([&] {
            desk.guard.run([&] {
                ++ends;
                throw ProgramEnd{EndKind::orderly};
            });
        });
        desk.guard.run([&] {
            desk.zormod.platform.dialogs.askText(u"inner", u"t", u"");
            behind = true;
        });
    });
    EXPECT_FALSE(desk.guard.run([&] {
        desk.zormod.platform.dialogs.showMessage(u"outer", u"t");
        behind = true;
    }));
    EXPECT_FALSE(behind);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(desk.endStatus, 0);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(EventGuard, AFatalFailureInsideAFormIsReportedOnce) {
    GuardDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.expectReport("計算できない値です");
        desk.guard.run([] { throw FatalFailure{FailureKind::impossible}; });
    });
    desk.guard.run([&] { desk.zormod.platform.dialogs.askOkCancel(u"outer", u"t"); });
    EXPECT_EQ(desk.endStatus, 1);
}

TEST(EventGuard, AFailureInsideAFormLeavesTheOuterHandlerRunning) {
    GuardDesk desk;
    Text answer;
    desk.inNextModal([&] {
        desk.spoken();
        desk.expectReport("ファイル操作に失敗しました");
        desk.guard.run([] { throw RuntimeFailure{FailureKind::file}; });
        desk.settle();
        desk.keys.type(u"9");
        desk.keys.press(plainKey(Key::enter));
    });
    EXPECT_TRUE(desk.guard.run([&] { answer = desk.zormod.platform.dialogs.askText(u"p", u"t", u""); }));
    EXPECT_EQ(answer, u"9");
}

TEST(EventGuard, AnEndWhileTheReportIsShownIsStillAnEnd) {
    GuardDesk desk;
    desk.inNextModal([&] { desk.guard.run([] { throw ProgramEnd{EndKind::atOnce}; }); });
    desk.guard.run([] { throw RuntimeFailure{FailureKind::file}; });
    EXPECT_EQ(desk.endStatus, 0);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(EventGuard, AWrappedTimerHandlerIsGuarded) {
    GuardDesk desk;
    desk.expectReport("印刷に失敗しました");
    QTimer::singleShot(0, &desk.form, desk.guard.wrap([] { throw RuntimeFailure{FailureKind::printing}; }));
    desk.settle();
    EXPECT_EQ(desk.focus(), "box");
}

TEST(RomikaApplication, CatchesWhatAHandlerLetThrough) {
    GuardDesk desk;
    desk.expectReport("通信に失敗しました");
    QTimer::singleShot(0, &desk.form, [] { throw RuntimeFailure{FailureKind::communication}; });
    desk.settle();
    EXPECT_FALSE(desk.guard.isEndPending());
}
