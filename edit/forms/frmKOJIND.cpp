#include "edit/forms/frmKOJIND.h"

#include "edit/font_sizes.h"
#include "edit/forms/card_rows.h"
#include "edit/forms/sheet_font.h"
#include "edit/forms/view_table.h"
#include "edit/sheet_rows.h"
#include "edit/view_rules.h"
#include "platform/number_text.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

FormVoice viewVoice() {
    return {.description = [] {
        return Text(u"現在の記録の項目番号、項目名、データを　一行ずつ　表示しています。何かキーをたたくと　"
                    u"データ入力ﾃｷｽﾄﾎﾞｯｸｽに　戻ります。");
    }};
}

} // namespace

frmKOJIND::frmKOJIND(const FormContext& context, const ViewActions& actions, QWidget* parent)
    : View(QStringLiteral("frmKOJIND"), u"ロミカカード形式表示", viewVoice(), context, actions, parent),
      rows_(new CardRows(context.zormod, this)) {
    Label1 = addLabel(QStringLiteral("Label1"));
    addButton(QStringLiteral("Command1"), u"表示切替", [this] { actions_.switchView(2); });
    addButton(QStringLiteral("Command3"), u"データ入力", [this] { actions_.backToInput(); });
    Grid1 = makeViewTable(rows_, this);
    addFocusable(*Grid1, Grid1->objectName(), u"ロミカカード形式表示");
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->horizontalHeader()->setStretchLastSection(true);
    connect(Grid1, &QTableView::clicked, this, [this](const QModelIndex& index) {
        context_.guard.run(
            [&] { actions_.pick(context_.zormod.position.curRecord, static_cast<std::int16_t>(index.row())); });
    });
    body_->addWidget(Grid1, 1);
    fitColumns();
}

void frmKOJIND::fitColumns() {
    const int unit = sheetFont(fontPixels(startSize(*this))).unit;
    constexpr int margin = 10;
    Grid1->setColumnWidth(0, 3 * unit + margin);
    Grid1->setColumnWidth(1, 12 * unit + margin);
    Grid1->setColumnWidth(2, 40 * unit + margin);
}

void frmKOJIND::redraw() {
    const ZORMOD& zormod = context_.zormod;
    setHeading(u"ロミカカード形式表示" + plainNumber(zormod.position.curRecord) + u"記録");
    Label1->setText(toQt(u"ID:" + viewCell(zormod, currentRow(zormod), 0)));
    rows_->refresh();
    top_ = cardTop(top_, zormod.position.curItem, zormod.items.itemCount);
    Grid1->verticalScrollBar()->setValue(top_);
    markCell(*Grid1, zormod.position.curItem, 2);
}

void frmKOJIND::redrawCurrentRow() {
    redraw();
}

void frmKOJIND::followLetters() {
    fitLetters(*Grid1, *this);
    fitColumns();
    redraw();
}

void frmKOJIND::showEvent(QShowEvent* event) {
    View::showEvent(event);
    context_.guard.run([this] { redraw(); });
}
