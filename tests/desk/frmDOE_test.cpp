#include "sheet/bulk_rewrite.h"
#include "sheet/record_file.h"
#include "support/qt/message_desk.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A desk with a table of ten records, and a rewrite of it in whose third round `script` works the progress form.
struct ProgressDesk : MessageDesk {
    ProgressDesk() {
        std::vector<std::vector<std::u16string_view>> records(10, {u"1", u"山田"});
        world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}}, records);
        world.zormod.files.tableLock.reset();
        before = world.bytesOf("t.txt");
        zormod.speech.speechMode = 1;
    }
    BulkEnd rewrite(std::function<void()> script) {
        inNextModal(std::move(script));
        world.eventLoop.atTurn[3] = [this] {
            for (int i = 0; i < 3; ++i) {
                settle();
            }
        };
        BulkEnd end = BulkEnd::refused;
        asking([&] {
            end = bulkRewrite(zormod, {.name = u"行挿入中"}, [](BulkRun& run) {
                run.copy(1, run.records());
                run.write({});
            });
        });
        return end;
    }
    bool isShown() const { return QApplication::activeModalWidget() != nullptr; }
    std::string label(const char* name) const {
        return static_cast<QLabel*>(control(QLatin1StringView(name)))->text().toStdString();
    }

    std::string before;
};

} // namespace

TEST(FrmDOE, ShowsTheOperationItsProgressAndTheStandingText) {
    ProgressDesk desk;
    EXPECT_EQ(desk.rewrite([&] {
        EXPECT_EQ(desk.title(), "作業中．．．");
        EXPECT_EQ(desk.label("Label1"), "行挿入中");
        EXPECT_EQ(desk.label("Label2"), " 30%完了");
        EXPECT_EQ(desk.label("Label3"), "指定の記録を削除中。中止したい場合は、ESC又は下のボタンをクリックして下さい。");
        EXPECT_EQ(static_cast<QPushButton*>(desk.control(u"Command1"))->text().toStdString(), "中止（ESC)");
        EXPECT_EQ(desk.focus(), "Command1");
        expectNamed(desk, {u"Command1"});
    }), BulkEnd::done);
    EXPECT_FALSE(desk.isShown());
    EXPECT_EQ(desk.world.bytesOf("t.txt").size(), 11 * 256U);
}

TEST(FrmDOE, EscTheButtonAndTheCloseBoxStopTheWork) {
    const auto byKey = [](const KeyStroke& stroke) {
        return [stroke](ProgressDesk& desk) { desk.keys.press(stroke); };
    };
    const std::vector<std::function<void(ProgressDesk&)>> ways = {
        byKey(plainKey(Key::escape)), byKey(plainKey(Key::enter)), byKey(plainKey(Key::space)),
        [](ProgressDesk& desk) { static_cast<QPushButton*>(desk.control(u"Command1"))->click(); },
        [](ProgressDesk&) { QApplication::activeModalWidget()->close(); }};
    for (const auto& way : ways) {
        ProgressDesk desk;
        EXPECT_EQ(desk.rewrite([&] {
            desk.spoken();
            way(desk);
            EXPECT_EQ(std::get<double>(desk.zormod.results.answers[0]), 1.0);
            EXPECT_FALSE(desk.isShown());
        }), BulkEnd::stopped);
        EXPECT_THAT(desk.spoken(), ElementsAre("作業中止"));
        EXPECT_EQ(desk.world.bytesOf("t.txt"), desk.before);
        EXPECT_EQ(std::get<double>(desk.zormod.results.answers[0]), 0.0);
    }
}

TEST(FrmDOE, TheFocusComesBackWithoutAWordOrAKeyUp) {
    ProgressDesk desk;
    desk.zormod.speech.speechMode = 2;
    desk.rewrite([] {});
    EXPECT_EQ(desk.focus(), "box");
    EXPECT_EQ(desk.focusRules, 0);
    EXPECT_EQ(desk.ups, 0);
    EXPECT_THAT(desk.spoken(), IsEmpty());
}

TEST(FrmDOE, DataReadingHearsTheLabelsAtOnceAndAtEachTick) {
    ProgressDesk desk;
    desk.rewrite([&] {
        EXPECT_THAT(desk.spoken(), ElementsAre("行挿入中"));
        auto* timer = QApplication::activeModalWidget()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_NE(timer, nullptr);
        EXPECT_TRUE(timer->isActive());
        EXPECT_EQ(timer->interval(), 4000);
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        EXPECT_THAT(desk.spoken(), ElementsAre("行挿入中。 30%完了"));
    });
}

TEST(FrmDOE, OtherReadingModesHearNothing) {
    for (const int mode : {0, 2}) {
        ProgressDesk silent;
        silent.zormod.speech.speechMode = static_cast<std::int16_t>(mode);
        silent.rewrite([&] {
            EXPECT_THAT(silent.spoken(), IsEmpty());
            auto* timer = QApplication::activeModalWidget()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
            EXPECT_FALSE(timer->isActive());
        });
    }
}

TEST(FrmDOE, SaysItsCaptionItsButtonAndTheSheetOnRequest) {
    ProgressDesk desk;
    desk.rewrite([&] {
        const auto said = [&](const KeyStroke& stroke) {
            desk.spoken();
            desk.world.later();
            desk.keys.press(stroke);
            return desk.spoken();
        };
        EXPECT_THAT(said(ctrlShiftKey(Key::a)), ElementsAre("作業中．．．"));
        EXPECT_THAT(said(shiftKey(Key::pageDown)), ElementsAre("中止（ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(said(ctrlShiftKey(Key::s)), ElementsAre("中止（ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_EQ(said(altKey(Key::n)).size(), 1U);
        EXPECT_EQ(said(altKey(Key::m)).size(), 1U);
    });
}

TEST(FrmDOE, TheKeyThatStartedTheWorkDoesNotStopItWhileHeld) {
    ProgressDesk desk;
    BulkEnd end = BulkEnd::refused;
    desk.inNextModal([&] {
        desk.keys.repeat(plainKey(Key::enter));
        desk.keys.repeat(plainKey(Key::enter), RepeatStyle::pairs);
        desk.keys.up(plainKey(Key::enter));
    });
    desk.world.eventLoop.atTurn[2] = [&] {
        desk.settle();
        desk.settle();
    };
    desk.box->keys().onKeyDown([&](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::enter)) {
            end = bulkRewrite(desk.zormod, {.name = u"行挿入中"}, [](BulkRun& run) { run.copy(1, run.records()); });
        }
        return KeyOutcome::goesOn;
    });
    desk.keys.down(plainKey(Key::enter));
    desk.settle();
    EXPECT_EQ(end, BulkEnd::done);
}

TEST(FrmDOE, OtherWindowsCannotBeClosedMeanwhile) {
    ProgressDesk desk;
    desk.rewrite([&] {
        desk.form.close();
        EXPECT_TRUE(desk.form.isVisible());
        EXPECT_EQ(std::get<double>(desk.zormod.results.answers[0]), 0.0);
    });
    desk.form.close();
    EXPECT_FALSE(desk.form.isVisible());
}

TEST(FrmDOE, ARequestToEndTheProgramStopsTheWorkAndComesAgainBehindIt) {
    ProgressDesk desk;
    struct QuitWatch : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Quit && watched == qApp) {
                ++quits;
                event->ignore();
                return true;
            }
            return false;
        }
        int quits = 0;
    } watch;
    BulkEnd end = BulkEnd::done;
    end = desk.rewrite([&] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        EXPECT_EQ(std::get<double>(desk.zormod.results.answers[0]), 1.0);
        qApp->installEventFilter(&watch);
    });
    EXPECT_EQ(end, BulkEnd::stopped);
    desk.settle();
    EXPECT_EQ(watch.quits, 1);
    EXPECT_EQ(desk.world.bytesOf("t.txt"), desk.before);
}

TEST(FrmDOE, AFailureInTheLoopClosesIt) {
    ProgressDesk desk;
    desk.guard.setCleanup([&](const RuntimeFailure&) { desk.dialogs.closeProgress(); });
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "実行時エラー");
        desk.keys.press(plainKey(Key::enter));
    });
    EXPECT_FALSE(desk.guard.run([&] {
        bulkRewrite(desk.zormod, {.name = u"行挿入中"}, [](BulkRun& run) {
            run.copy(1, 3);
            throw RuntimeFailure{FailureKind::subscript};
        });
    }));
    EXPECT_FALSE(desk.isShown());
    EXPECT_EQ(desk.world.bytesOf("t.txt"), desk.before);
}

TEST(FrmDOE, TakesACaptionOfItsCallersOwn) {
    ProgressDesk desk;
    desk.inNextModal([&] { EXPECT_EQ(desk.title(), "データ印刷中\""); });
    desk.dialogs.openProgress(u"n", u"データ印刷中\"", true);
    desk.settle();
    desk.settle();
    desk.dialogs.closeProgress();
    desk.settle();
    EXPECT_EQ(desk.focus(), "box");
}

TEST(FrmDOE, WorkThatCannotBeStoppedHasNoButtonAndNoKeyEndsIt) {
    ProgressDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.label("Label1"), "張り付け撤去中");
        EXPECT_EQ(QApplication::activeModalWidget()->findChild<QPushButton*>(), nullptr);
        desk.keys.press(plainKey(Key::escape));
        desk.keys.press(plainKey(Key::enter));
        QApplication::activeModalWidget()->close();
        EXPECT_TRUE(desk.isShown());
    });
    desk.dialogs.openProgress(u"張り付け撤去中", {}, false);
    desk.settle();
    desk.settle();
    EXPECT_TRUE(desk.dialogs.isProgressOpen());
    EXPECT_FALSE(isStopAsked(desk.zormod));
    desk.dialogs.closeProgress();
    desk.settle();
    EXPECT_EQ(desk.focus(), "box");
}
