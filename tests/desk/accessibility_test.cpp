// A walk through every form as an assistive program and the Tab key see it: each control has a name, a role and a
// voice.

#include "support/qt/edit_desk.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QMenuBar>

#include <gmock/gmock.h>

#include <set>

namespace {

struct WalkDesk : EditDesk {
    WalkDesk() {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
        zormod.speech.speechMode = 1;
    }
};

QAccessible::Role roleOf(QWidget* widget) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
    return face == nullptr ? QAccessible::NoRole : face->role();
}

std::string accessibleNameOf(QWidget* widget) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
    return face == nullptr ? std::string() : face->text(QAccessible::Name).toStdString();
}

/// Widgets of a form that Tab stops at.
std::set<std::string> tabStops(const QWidget& form) {
    std::set<std::string> names;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            names.insert(widget->objectName().toStdString());
        }
    }
    return names;
}

/// Every widget that can have the focus, by key or mouse, has a name and a role that is no mere container's.
void expectNamedControls(const QWidget& form) {
    int seen = 0;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) {
            continue;
        }
        ++seen;
        const std::string name = widget->objectName().toStdString() + " (" + widget->metaObject()->className() + ")";
        EXPECT_FALSE(accessibleNameOf(widget).empty()) << name;
        EXPECT_NE(roleOf(widget), QAccessible::NoRole) << name;
    }
    EXPECT_GT(seen, 0);
}

/// Tab comes to every stop once and back, and each stop says itself.
void expectTabReachesAll(EditDesk& desk, const QWidget& form) {
    const std::set<std::string> stops = tabStops(form);
    std::set<std::string> reached;
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const auto spoken = desk.spokenBy(plainKey(Key::tab));
        // Where there is but one stop Tab goes nowhere, and nothing has to be said.
        EXPECT_EQ(spoken.empty(), stops.size() == 1) << desk.focus();
        EXPECT_TRUE(reached.insert(desk.focus()).second) << desk.focus() << " twice";
        EXPECT_FALSE(desk.spokenBy(ctrlShiftKey(Key::s)).empty()) << desk.focus();
    }
    EXPECT_EQ(reached, stops);
}

void walk(EditDesk& desk) {
    QWidget* form = QApplication::activeWindow();
    expectNamedControls(*form);
    expectTabReachesAll(desk, *form);
    EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::a)).size(), 1U);
}

} // namespace

TEST(Accessibility, Form1NamesItsControlsAndTabReachesAll) {
    WalkDesk desk;
    walk(desk);
    EXPECT_THAT(tabStops(desk.form), testing::UnorderedElementsAre("txtinputbox", "txtREC", "txtItemnum", "txtWIDTH",
                                                                   "txtLR", "Text1", "RichTextBox1", "RichTextBox2"));
}

TEST(Accessibility, Form1sBoxesAreTextBoxesUnderTheirSpokenNames) {
    WalkDesk desk;
    for (const auto& [control, name] :
         {std::pair("txtinputbox", "データ入力"), std::pair("txtREC", "行番号"), std::pair("RichTextBox2", "表メモ")}) {
        EXPECT_EQ(roleOf(desk.part(control)), QAccessible::EditableText);
        EXPECT_EQ(accessibleNameOf(desk.part(control)), name);
    }
}

TEST(Accessibility, TheViewsAreNamedAndOutsideTheTabOrder) {
    for (const auto& [mode, name, caption] :
         {std::tuple(0, "frmSHEET", "ワークシート"), std::tuple(1, "frmKOJIND", "ロミカカード形式表示1記録"),
          std::tuple(2, "frmGrid", "表形式表示")}) {
        WalkDesk desk;
        desk.zormod.display.viewMode = static_cast<std::int16_t>(mode);
        desk.form.redrawView();
        desk.settle();
        EXPECT_EQ(accessibleNameOf(desk.part(name)), caption);
        EXPECT_TRUE(tabStops(*desk.part(name)).empty()) << name;
        walk(desk);
    }
}

TEST(Accessibility, TheMenuBarTellsItsMenus) {
    WalkDesk desk;
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(desk.form.menuBar());
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->role(), QAccessible::MenuBar);
    int menus = 0;
    for (QMenuBar* row : desk.form.findChildren<QMenuBar*>()) {
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(row);
        for (int i = 0; i < face->childCount(); ++i, ++menus) {
            EXPECT_FALSE(face->child(i)->text(QAccessible::Name).isEmpty());
        }
    }
    EXPECT_EQ(menus, 13);
}

TEST(Accessibility, TheKeyGuidesNameTheirControlsAndTabReachesAll) {
    for (const TextView command : {u"mnuALT", u"mnuCTRL", u"mnuFKEY", u"mnuSfunc"}) {
        WalkDesk desk;
        desk.guard.run([&] { desk.commands.run(command); });
        desk.settle();
        walk(desk);
        QApplication::activeWindow()->close();
    }
}

TEST(Accessibility, TheTextViewerNamesItsControlsAndTabReachesAll) {
    WalkDesk desk;
    desk.guard.run([&] { desk.routines.viewer.show(u"one\rtwo", u"題"); });
    desk.settle();
    walk(desk);
    QApplication::activeWindow()->close();
}

TEST(Accessibility, TheFormOfARangeNamesItsControlsAndTabReachesAll) {
    for (const KeyStroke& start : {shiftKey(Key::down), altKey(Key::down), altKey(Key::right)}) {
        WalkDesk desk;
        desk.key(start);
        walk(desk);
        EXPECT_EQ(accessibleNameOf(desk.control(u"Text1")), "はじめの記録");
        EXPECT_EQ(accessibleNameOf(desk.control(u"Text5")), "どこまで？(ｶ-ｿﾙ移動+CR)");
        EXPECT_EQ(roleOf(desk.control(u"Text5")), QAccessible::EditableText);
    }
}

TEST(Accessibility, TheFormOfATargetNamesItsControlsAndTabReachesAll) {
    WalkDesk desk;
    for (const KeyStroke& stroke : {shiftKey(Key::down), plainKey(Key::enter), plainKey(Key::down)}) {
        desk.key(stroke);
    }
    ASSERT_TRUE(desk.formTable.isLoaded(u"frmMSSG"));
    walk(desk);
    EXPECT_EQ(roleOf(desk.control(u"Text2")), QAccessible::EditableText);
}

TEST(Accessibility, TheMessageFormsNameTheirControlsAndTabReachesAll) {
    WalkDesk desk;
    const auto walkAndLeave = [&desk] {
        desk.settle();
        walk(desk);
        static_cast<QDialog*>(QApplication::activeWindow())->reject();
    };
    desk.inNextModal(walkAndLeave);
    desk.dialogs.showMessage(u"本文", u"注意");
    desk.inNextModal(walkAndLeave);
    desk.dialogs.askOkCancel(u"本文", u"確認");
    desk.inNextModal(walkAndLeave);
    desk.dialogs.askText(u"入力", u"題", u"x");
    desk.inNextModal(walkAndLeave);
    desk.dialogs.askYesNoCancel({}, u"本文");
}

TEST(Accessibility, TheDesignFormNamesItsControlsAndTabReachesAll) {
    WalkDesk desk;
    desk.inNextModal([&desk] {
        desk.settle();
        walk(desk);
        desk.key(plainKey(Key::escape));
    });
    desk.key(plainKey(Key::f5));
}

TEST(Accessibility, TheReferenceListOfTheDesignFormIsWalkedWithIt) {
    WalkDesk desk;
    desk.inNextModal([&desk] {
        desk.settle();
        for (int i = 0; i < 3; ++i) {
            desk.key(plainKey(Key::tab));
        }
        desk.key(plainKey(Key::enter));
        walk(desk);
        desk.key(plainKey(Key::escape));
        desk.key(plainKey(Key::escape));
    });
    desk.key(plainKey(Key::f5));
}

TEST(Accessibility, TheStartScreenNamesItsControlsAndTabReachesAll) {
    WalkDesk desk;
    desk.guard.run([&] { desk.formTable.open(u"FrmLunch"); });
    desk.settle();
    ASSERT_EQ(desk.title(), "ようこそロミカ");
    walk(desk);
    EXPECT_EQ(tabStops(*QApplication::activeWindow()).size(), 10U);
    EXPECT_EQ(accessibleNameOf(desk.control(u"Picture1")), "家計簿");
    desk.formTable.close(u"FrmLunch");
}

TEST(Accessibility, TheFormsOfFilesAndItemsNameTheirControlsAndTabReachesAll) {
    WalkDesk desk;
    for (const char16_t* command : {u"mnuREAD", u"mnuDEL", u"mnuItemList"}) {
        desk.inNextModal([&] {
            desk.settle();
            walk(desk);
            desk.keys.press(plainKey(Key::escape));
        });
        desk.guard.run([&] { desk.commands.run(command); });
    }
}

TEST(Accessibility, ListsTellTheirLines) {
    WalkDesk desk;
    desk.inNextModal([&] {
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(desk.control(u"List1"));
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->role(), QAccessible::List);
        ASSERT_EQ(list->childCount(), 2);
        EXPECT_EQ(list->child(1)->text(QAccessible::Name).toStdString(), "    1:氏名(10/L)");
        desk.keys.press(plainKey(Key::escape));
    });
    desk.guard.run([&] { desk.commands.run(u"mnuItemList"); });
}

TEST(Accessibility, TheProgressFormNamesItsButtonAndTabStaysOnIt) {
    WalkDesk desk;
    bool isWalked = false;
    desk.inNextModal([&] {
        walk(desk);
        isWalked = true;
    });
    desk.dialogs.openProgress(u"行挿入中", {}, true);
    for (int i = 0; i < 3; ++i) {
        desk.settle();
    }
    desk.dialogs.closeProgress();
    EXPECT_TRUE(isWalked);
}

TEST(Accessibility, TheFormsOfTheInputHelpersNameTheirControlsAndTabReachesAll) {
    WalkDesk desk;
    for (const TextView name : {u"FrmBROCK", u"Form5"}) {
        desk.inNextModal([&] {
            desk.settle();
            desk.key(plainKey(Key::down)); // a list stands at no line before
            walk(desk);
            desk.keys.press(plainKey(Key::escape));
        });
        desk.guard.run([&] { desk.formTable.open(name); });
    }
}

TEST(Accessibility, ThePinnedItemIsALabelUnderItsTitle) {
    WalkDesk desk;
    desk.zormod.input.pinnedItem = 1;
    desk.guard.run([&] {
        desk.formTable.open(u"frmSPITEM");
        desk.form.showCurrentCell();
    });
    desk.settle();
    auto* window = desk.form.findChild<QWidget*>(QStringLiteral("frmSPITEM"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(accessibleNameOf(window), "1項目:氏名");
    auto* label = window->findChild<QWidget*>(QStringLiteral("Label1"));
    EXPECT_EQ(roleOf(label), QAccessible::StaticText);
    EXPECT_EQ(accessibleNameOf(label), "山田");
    EXPECT_TRUE(tabStops(*window).empty());
}

/// Forms that cannot be opened by themselves: a pinned item, which is a label, and those that choose a range or its target.
bool isWalkedElsewhere(TextView form) {
    return form == u"frmSPITEM" || form == u"frmHANI" || form == u"frmMSSG";
}

// A form that is new in the table of forms is walked here by itself.
TEST(Accessibility, EveryFormOfTheTableTellsItselfItsControlsAndItsTabOrder) {
    const std::vector<Text> names = WalkDesk().formTable.names();
    ASSERT_GT(names.size(), 9U);
    for (const Text& name : names) {
        if (isWalkedElsewhere(name)) {
            continue;
        }
        SCOPED_TRACE(utf8(name));
        WalkDesk desk;
        bool walked = false;
        const auto walkForm = [&] {
            EXPECT_EQ(QApplication::activeWindow()->objectName().toStdString(), utf8(name));
            EXPECT_FALSE(desk.title().empty());
            desk.key(plainKey(Key::down)); // a list stands at no line before
            walk(desk);
            walked = true;
        };
        desk.inNextModal([&] {
            desk.settle();
            walkForm();
            desk.keys.press(plainKey(Key::escape));
        });
        desk.zormod.taskWord = u"tdesign"; // an empty design would tell what it still wants
        desk.guard.run([&] {
            if (name == u"frmHelp") {
                desk.routines.viewer.show(u"one\rtwo", u"題"); // it is never shown without a text
            } else {
                desk.formTable.open(name);
            }
        });
        if (!walked) {
            desk.settle();
            walkForm();
            desk.dropScripts();
            if (name != u"Form1") {
                desk.formTable.close(name);
            }
        }
        EXPECT_TRUE(walked);
    }
}
