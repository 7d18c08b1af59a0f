#pragma once
// A desk with a table that is wider and longer than the window, for the tests of the views.

#include "edit/forms/sheet_pictures.h"
#include "edit/sheet_rows.h"
#include "support/qt/edit_desk.h"

#include <QImage>
#include <QTest>

/// A table of 40 records that is wider than the window.
struct ViewDesk : EditDesk {
    ViewDesk() {
        form.resize(900, 700);
        std::vector<std::vector<std::u16string_view>> records(40, {u"1", u"山田", u"42", u"東京", u"x"});
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}, {u"住所", u"L", 90}, {u"備考", u"L", 60}},
                  records);
        zormod.speech.speechMode = 1;
    }
    QWidget* sheet(const char* name) { return partOf("frmSHEET", name); }
    void press(const char* view, const char* button) {
        QTest::mouseClick(partOf(view, button), Qt::LeftButton);
        world.later();
        settle();
    }
    /// A point in the middle of a cell of the standard view.
    QPoint middleOf(int row, int item) {
        const int unit = cellWidth() / itemColumns(zormod, zormod.position.curItem);
        return QPoint((itemColumn(zormod, item) + 1) * unit, (row - 1) * rowHeight() + rowHeight() / 2);
    }
    int rowHeight() { return sheet("Picture2")->height() - 2 * EchoCell::frame; }
    int cellWidth() { return sheet("Picture2")->width() - 2 * EchoCell::frame; }
    void clickCell(int row, int item) {
        QTest::mouseClick(sheet("Picture1"), Qt::LeftButton, {}, middleOf(row, item));
        settle();
    }
    QImage image(const char* name) { return sheet(name)->grab().toImage(); }
    std::pair<int, int> place() const { return {zormod.position.curRecord, zormod.position.curItem}; }
};
