// The menus by keyboard and ear.

#include "app/menus.h"
#include "edit/forms/form1_menus.h"
#include "edit/forms/menu_rows.h"
#include "edit/forms/menu_voice.h"
#include "platform/qt/qt_text.h"
#include "support/qt/edit_desk.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

struct MenuDesk : EditDesk {
    MenuDesk() {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}}, {{u"1", u"a"}});
        zormod.speech.speechMode = 1;
        form.showReadingMode(1);
    }
    /// All menus, row by row.
    QList<QAction*> menus() {
        QList<QAction*> all;
        for (const QMenuBar* row : rows()) {
            all += row->actions();
        }
        return all;
    }
    const std::vector<QMenuBar*>& rows() { return form.findChild<MenuRows*>()->rows(); }
    /// The menu that is open.
    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    void toggleAlt() {
        world.later();
        keys.press(plainKey(Key::alt));
        settle();
    }
    void altLetter(QChar letter) {
        world.later();
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(letter.unicode()), Qt::AltModifier);
        settle();
    }
    void popupKey(Qt::Key code) {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        world.later();
        QTest::keyClick(popup, code);
        settle();
    }
};

} // namespace

TEST(Form1Menus, StandInTheOrderOfTheTable) {
    MenuDesk desk;
    const MenuTable table = form1Menus();
    const auto actions = desk.menus();
    ASSERT_EQ(static_cast<std::size_t>(actions.size()), table.size());
    for (qsizetype i = 0; i < actions.size(); ++i) {
        const MenuGroup& group = table[static_cast<std::size_t>(i)];
        EXPECT_EQ(fromQt(actions[i]->text()), group.caption);
        ASSERT_EQ(actions[i]->menu() == nullptr, group.entries.empty());
        for (std::size_t j = 0; j < group.entries.size(); ++j) {
            const QAction* entry = actions[i]->menu()->actions().at(static_cast<qsizetype>(j));
            EXPECT_EQ(fromQt(entry->objectName()), group.entries[j].name);
            EXPECT_EQ(fromQt(entry->text()), group.entries[j].caption);
            EXPECT_EQ(fromQt(entry->shortcut().toString(QKeySequence::PortableText)), group.entries[j].key);
        }
    }
}

TEST(Form1Menus, EveryEntryIsReachedByItsLetterAndTheArrows) {
    MenuDesk desk;
    std::vector<std::string> ran;
    for (const MenuGroup& group : form1Menus()) {
        for (const MenuEntry& entry : group.entries) {
            desk.commands.bind(entry.name, [&ran, name = entry.name] { ran.push_back(utf8(name)); });
        }
    }
    for (const MenuGroup& group : form1Menus()) {
        const char16_t letter = group.caption[group.caption.find(u'&') + 1];
        for (std::size_t i = 0; i < group.entries.size(); ++i) {
            ran.clear();
            desk.altLetter(QChar(letter));
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << utf8(group.caption);
            for (std::size_t steps = 0; menu->activeAction() != menu->actions().at(static_cast<qsizetype>(i));
                 ++steps) {
                ASSERT_LE(steps, group.entries.size()) << utf8(group.entries[i].name);
                QTest::keyClick(menu, Qt::Key_Down);
            }
            QTest::keyClick(menu, Qt::Key_Return);
            desk.settle();
            EXPECT_THAT(ran, ElementsAre(utf8(group.entries[i].name)));
            EXPECT_EQ(desk.focus(), "txtinputbox");
        }
    }
}

TEST(Form1Menus, TheTelephoneRunsFromTheBar) {
    MenuDesk desk;
    int runs = 0;
    desk.commands.bind(u"mnuTEL", [&runs] { ++runs; });
    desk.altLetter(u'T');
    EXPECT_EQ(runs, 1);
}

TEST(Form1Menus, AnEntryThatDoesNotExistYetBeepsAndSaysSo) {
    MenuDesk desk;
    EXPECT_THAT(desk.spokenBy(plainKey(Key::f2)), ElementsAre("まだ使えません"));
    EXPECT_EQ(desk.world.beeper.count, 1);
}

TEST(Form1Menus, TheHighlightedEntrySaysItself) {
    MenuDesk desk;
    desk.spoken();
    desk.altLetter(u'R');
    desk.spoken();
    desk.popupKey(Qt::Key_Down);
    EXPECT_THAT(desk.spoken(), ElementsAre("行､項目番号付き､Ctrl+F11"));
    desk.popupKey(Qt::Key_Up);
    EXPECT_THAT(desk.spoken(), ElementsAre("データのみ､チェック､F11"));
    desk.popupKey(Qt::Key_Escape);
}

TEST(Form1Menus, AnOpenedMenuSaysItselfAndItsFirstEntryTogether) {
    MenuDesk desk;
    desk.spoken();
    desk.altLetter(u'J');
    EXPECT_THAT(desk.spoken(), ElementsAre("項目移動(J)､サブメニュー。記録ジャンプ､Ctrl+J"));
    desk.popupKey(Qt::Key_Escape);
    EXPECT_THAT(desk.spoken(), ElementsAre("項目移動(J)､サブメニュー")) << "the bar has the keys now";
    EXPECT_NE(desk.focus(), "txtinputbox");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    desk.settle();
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(Form1Menus, AltGoesToTheBarSaysTheMenuAndEscapeComesBackWithoutAWord) {
    MenuDesk desk;
    desk.spoken();
    desk.toggleAlt();
    EXPECT_THAT(desk.spoken(), ElementsAre("ﾌｧｲﾙ(F)､サブメニュー"));
    desk.world.later();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    desk.settle();
    EXPECT_THAT(desk.spoken(), ElementsAre("項目移動(J)､サブメニュー"));
    desk.world.later();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    desk.settle();
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spoken(), testing::IsEmpty());
}

TEST(Form1Menus, ADisabledEntryIsToldAsSuch) {
    MenuDesk desk;
    desk.form.showReadingMode(0);
    EXPECT_EQ(utf8(MenuVoice::textOf(*menuEntry(*desk.form.menuBar(), u"mnuJY"))),
              "常時表示項目内容を付加して読む､使用不可");
}

TEST(Form1Menus, OnANarrowScreenEveryMenuIsSeenInARow) {
    MenuDesk desk;
    for (const int width : {1920, 1280, 1024, 640, 1920}) {
        desk.form.resize(width, 700);
        desk.settle();
        ASSERT_EQ(desk.form.width(), width);
        EXPECT_EQ(static_cast<std::size_t>(desk.menus().size()), form1Menus().size());
        for (const QMenuBar* row : desk.rows()) {
            EXPECT_EQ(row->isVisible(), !row->actions().isEmpty());
            for (QAction* menu : row->actions()) {
                EXPECT_TRUE(row->rect().contains(row->actionGeometry(menu))) << width << menu->text().toStdString();
                EXPECT_FALSE(row->actionGeometry(menu).isEmpty()) << width << menu->text().toStdString();
            }
        }
        EXPECT_EQ(desk.rows().size() > 1 && desk.rows()[1]->isVisible(), width < 1400);
    }
}

TEST(Form1Menus, RightAndLeftGoThroughTheRowsAsThroughOne) {
    MenuDesk desk;
    desk.form.resize(1024, 700);
    desk.settle();
    const auto menus = desk.menus();
    desk.altLetter(u'F');
    std::vector<QMenu*> reached;
    for (qsizetype i = 0; i < 2 * menus.size() && reached.size() < 20; ++i) {
        if (QMenu* menu = desk.openMenu()) {
            reached.push_back(menu);
            desk.popupKey(Qt::Key_Right);
        } else {
            break; // the telephone is no menu
        }
    }
    desk.spoken();
    ASSERT_GE(reached.size(), static_cast<std::size_t>(desk.rows()[0]->actions().size()) + 1);
    for (std::size_t i = 0; i < reached.size(); ++i) {
        EXPECT_EQ(reached[i], menus[static_cast<qsizetype>(i)]->menu());
    }
}

TEST(Form1Menus, FromTheSecondRowEscapeComesBackToTheInputBox) {
    for (const bool byAlt : {true, false}) {
        MenuDesk desk;
        desk.form.resize(1024, 700);
        desk.settle();
        if (byAlt) {
            desk.toggleAlt();
        } else {
            desk.altLetter(u'F');
        }
        desk.spoken();
        desk.world.later();
        QWidget* keys = byAlt ? QApplication::focusWidget() : desk.openMenu();
        QTest::keyClick(keys, Qt::Key_Left);
        desk.settle();
        ASSERT_NE(desk.openMenu(), nullptr);
        EXPECT_EQ(desk.openMenu()->menuAction(), desk.menus().last());
        EXPECT_THAT(desk.spoken(), ElementsAre(testing::StartsWith("ﾍﾙﾌﾟ(Z)､サブメニュー")));
        desk.popupKey(Qt::Key_Escape);
        EXPECT_EQ(desk.openMenu(), nullptr);
        EXPECT_NE(desk.focus(), "txtinputbox") << "the row has the keys now, as the first one has";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        desk.settle();
        EXPECT_EQ(desk.focus(), "txtinputbox");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::right)), ElementsAre(testing::StartsWith("a､")));
    }
}
