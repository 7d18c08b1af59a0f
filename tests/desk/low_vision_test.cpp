// The edit screen on a desktop with letters four times the normal size.

#include "edit/forms/panel.h"
#include "platform/qt/romika_application.h"
#include "support/qt/edit_desk.h"

#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace {

constexpr QSize smallScreen(1280, 1024);

/// Letters of `times` the normal size while it lives.
class TextSize {
public:
    explicit TextSize(int times) : before_(QApplication::font()) {
        QFont font = before_;
        font.setPixelSize(16 * times);
        QApplication::setFont(font);
    }
    ~TextSize() { QApplication::setFont(before_); }
    TextSize(const TextSize&) = delete;
    TextSize& operator=(const TextSize&) = delete;

private:
    QFont before_;
};

struct LargeDesk : TextSize, EditDesk {
    explicit LargeDesk(int times, QSize size = smallScreen) : TextSize(times) {
        form.resize(size);
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 40}, {u"住所", u"L", 120}}, {{u"1", u"山田", u"東京"}});
        zormod.speech.speechMode = 1;
        form.showReadingMode(1);
        settle();
    }
    Panel* panel() { return form.findChild<Panel*>(); }
    /// The part of the focused control that can be seen, in per cent.
    int seenOfFocus() {
        const QWidget* control = QApplication::focusWidget();
        const QRect seen = control->visibleRegion().boundingRect();
        return 100 * seen.width() * seen.height() / (control->width() * control->height());
    }
};

} // namespace

TEST(LowVision, TheLettersAreAsLargeAsTheDesktopsAndEvenAndNeverSmall) {
    EXPECT_EQ(letterPixels(12), 16);
    EXPECT_EQ(letterPixels(16), 16);
    EXPECT_EQ(letterPixels(17), 18);
    EXPECT_EQ(letterPixels(40), 40);
}

TEST(LowVision, TheFocusedControlIsWhollyInViewAtFourTimesTheSize) {
    LargeDesk desk(4);
    EXPECT_EQ(desk.form.size(), smallScreen);
    for (std::size_t i = 0; i <= Panel::boxOrder().size(); ++i) {
        EXPECT_EQ(desk.seenOfFocus(), 100) << desk.focus();
        desk.key(plainKey(Key::tab));
    }
}

TEST(LowVision, ThePanelScrollsWhereTheWindowIsTooLow) {
    LargeDesk desk(4, QSize(1280, 700));
    EXPECT_LT(desk.panel()->height(), desk.panel()->widget()->height());
    for (std::size_t i = 0; i <= Panel::boxOrder().size(); ++i) {
        EXPECT_EQ(desk.seenOfFocus(), 100) << desk.focus();
        desk.key(plainKey(Key::tab));
    }
    for (const PanelField field : Panel::boxOrder()) {
        desk.form.focusField(field);
        EXPECT_EQ(desk.seenOfFocus(), 100) << desk.focus();
    }
    EXPECT_GE(desk.form.height() - desk.panel()->height(), desk.form.height() / 3) << "nothing is left for the view";
}

TEST(LowVision, WideItemsStayInsideTheWindow) {
    LargeDesk desk(4);
    desk.key(plainKey(Key::right));
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.seenOfFocus(), 100);
}

TEST(LowVision, NoCaptionIsClipped) {
    for (const int times : {1, 2, 4}) {
        LargeDesk desk(times);
        int seen = 0;
        for (const QLabel* label : desk.form.findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty()) {
                ++seen;
                EXPECT_GE(label->width(), label->sizeHint().width()) << times << label->text().toStdString();
            }
        }
        for (const QPushButton* button : desk.form.findChildren<QPushButton*>()) {
            if (button->isVisible()) {
                ++seen;
                EXPECT_GE(button->width(), button->sizeHint().width()) << times << button->text().toStdString();
                EXPECT_LE(button->mapTo(&desk.form, button->rect().bottomRight()).x(), desk.form.width());
            }
        }
        EXPECT_GT(seen, 12);
    }
}

TEST(LowVision, TheSheetStartsWithLettersAsLargeAsTheDesktops) {
    LargeDesk normal(1);
    const int small = normal.partOf("frmSHEET", "Picture1")->font().pixelSize();
    LargeDesk large(3);
    EXPECT_GE(large.partOf("frmSHEET", "Picture1")->font().pixelSize(), 2 * small);
}

TEST(LowVision, EachViewFollowsLettersThatGrowWhileTheProgramRuns) {
    for (const auto& [mode, view, part] :
         {std::tuple(0, "frmSHEET", "Picture1"), std::tuple(1, "frmKOJIND", "Grid1"), std::tuple(2, "frmGrid", "Grid1")}) {
        LargeDesk desk(1);
        desk.zormod.display.viewMode = static_cast<std::int16_t>(mode);
        desk.form.redrawView();
        desk.settle();
        const int before = desk.partOf(view, part)->font().pixelSize();
        const TextSize larger(3);
        desk.settle();
        EXPECT_GE(desk.partOf(view, part)->font().pixelSize(), 2 * before) << view;
    }
}

TEST(LowVision, LettersThatGrowWhileTheProgramRunsAreFollowed) {
    LargeDesk desk(1);
    const int before = desk.part("txtREC")->width();
    {
        const TextSize larger(2);
        desk.settle();
        EXPECT_GT(desk.part("txtREC")->width(), before);
        EXPECT_EQ(desk.seenOfFocus(), 100);
    }
}
