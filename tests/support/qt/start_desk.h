#pragma once
// The desk as a run without a file finds it: the start screen is up, and the edit screen waits behind it.

#include "start/forms/start_forms.h"
#include "support/qt/edit_desk.h"

#include <QApplication>
#include <QListView>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>

struct StartDesk : EditDesk {
    explicit StartDesk(std::int16_t speechMode = 2) { zormod.speech.speechMode = speechMode; }

    /// The start screen as main opens it; what it said meanwhile is kept. Its timer ticks only by tick().
    void openStartScreen() {
        EXPECT_TRUE(guard.run([&] { formTable.open(u"FrmLunch"); }));
        settle();
        timerRan = guidanceTimer().isActive();
        guidanceTimer().stop();
    }
    QTimer& guidanceTimer() { return *QApplication::activeWindow()->findChild<QTimer*>(QStringLiteral("Timer1")); }
    /// The timer's tick, without waiting for it.
    static void tick(QTimer& timer) { QMetaObject::invokeMethod(&timer, "timeout"); }

    std::string native(const std::string& name) const { return world.folder.path() + "/" + name; }
    bool isThere(const std::string& name) const { return std::filesystem::exists(native(name)); }
    /// A table of the items ID (4) and `item` (8) with one record.
    void make(const std::string& name, std::u16string_view item = u"name") {
        world.makeTable(name, {{u"ID", u"L", 4}, {item, u"R", 8}}, {{u"1", u"x"}});
    }
    /// Presses Tab until the control has the focus.
    void tabTo(const std::string& name) {
        for (int i = 0; i < 20 && focus() != name; ++i) {
            key(plainKey(Key::tab));
        }
        EXPECT_EQ(focus(), name);
    }
    /// What a list of the active form stands at.
    std::string lineOf(QAnyStringView list) {
        return static_cast<QListView*>(control(list))->currentIndex().data().toString().toStdString();
    }
    /// Enter in a message that came up while Enter was held: it is let go first.
    void enterAnew() {
        keys.up(plainKey(Key::enter));
        keys.press(plainKey(Key::enter));
    }
    bool timerRan = false; ///< the guidance's timer had been started

    /// Runs a command of the edit screen, in a form of which `script` is run.
    void runWith(TextView command, std::function<void()> script) {
        inNextModal(std::move(script));
        guard.run([&] { commands.run(command); });
        settle();
    }
};
