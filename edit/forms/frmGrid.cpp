#include "edit/forms/frmGrid.h"

#include "edit/font_sizes.h"
#include "edit/forms/grid_rows.h"
#include "edit/forms/grid_target.h"
#include "edit/forms/sheet_font.h"
#include "edit/forms/view_table.h"
#include "edit/sheet_rows.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"
#include "sheet/record_file.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

FormVoice viewVoice() {
    return {.description = [] {
        return Text(u"記録を　一行ずつ　表示しています。何かキーをたたくと　データ入力ﾃｷｽﾄﾎﾞｯｸｽに　"
                    u"戻ります。");
    }};
}

} // namespace

frmGrid::frmGrid(const FormContext& context, const ViewActions& actions, QWidget* parent)
    : View(QStringLiteral("frmGrid"), u"表形式表示", viewVoice(), context, actions, parent),
      rows_(new GridRows(context.zormod, this)), target_(new GridTarget(context.zormod, this)) {
    addButton(QStringLiteral("Command1"), u"表示切り替え", [this] { actions_.switchView(0); });
    Label1 = addLabel(QStringLiteral("Label1"));
    Grid1 = makeViewTable(rows_, this);
    Grid1->setItemDelegate(target_);
    addFocusable(*Grid1, Grid1->objectName(), u"表形式表示");
    connect(Grid1, &QTableView::clicked, this, [this](const QModelIndex& index) {
        context_.guard.run([&] {
            actions_.pick(recordOfRow(context_.zormod, index.row() + 1), static_cast<std::int16_t>(index.column()));
        });
    });
    Grid1->verticalHeader()->show();
    body_->addWidget(Grid1, 1);
}

int frmGrid::rebuilds() const {
    return rows_->rebuilds();
}

void frmGrid::fitColumns() {
    const int unit = sheetFont(fontPixels(startSize(*this))).unit;
    constexpr int numberColumns = 8;
    constexpr int gap = 4; // bytes that a column is wider than its item
    // The numbers stand beside the columns that scroll, so that they are always seen.
    Grid1->verticalHeader()->setFixedWidth(numberColumns * unit);
    int column = 0;
    for (const std::int16_t width : rows_->shape().widths) {
        Grid1->setColumnWidth(column++, (width + gap) * unit);
    }
}

void frmGrid::redraw() {
    ZORMOD& zormod = context_.zormod;
    if (rows_->takeShape(gridShape(zormod, hasTable(zormod) ? recordCount(zormod) : 0))) {
        fitColumns();
    } else {
        rows_->refresh();
    }
    showCurrent();
}

void frmGrid::redrawCurrentRow() {
    rows_->refreshRow(currentRow(context_.zormod));
    showCurrent();
}

void frmGrid::showCurrent() {
    const ZORMOD& zormod = context_.zormod;
    const int row = currentRow(zormod);
    Label1->setText(toQt(viewCell(zormod, row, zormod.position.curItem)));
    if (row != 0) {
        markCell(*Grid1, row - 1, zormod.position.curItem);
    }
    markRange();
}

void frmGrid::paintMask(MaskKind kind, const CellRange& range) {
    if (kind == MaskKind::target) {
        target_->set(range);
        Grid1->viewport()->update();
        return;
    }
    range_ = range;
    showCurrent();
}

void frmGrid::hideMask() {
    if (range_) {
        range_.reset();
        target_->set({});
        Grid1->viewport()->update();
        showCurrent();
    }
}

/// Selects the part of the range that stands in the window; the current cell alone is not selected beside it.
void frmGrid::markRange() {
    if (!range_) {
        return;
    }
    const std::int32_t first = context_.zormod.position.windowFirst;
    const int firstRow = std::max(0, range_->firstRecord - first);
    const int lastRow = std::min(rows_->rowCount() - 1, range_->lastRecord - first);
    const int lastColumn = std::min<int>(rows_->columnCount() - 1, range_->lastItem);
    if (firstRow > lastRow) {
        Grid1->selectionModel()->clearSelection();
        return;
    }
    Grid1->selectionModel()->select(
        QItemSelection(rows_->index(firstRow, range_->firstItem), rows_->index(lastRow, lastColumn)),
        QItemSelectionModel::ClearAndSelect);
}

void frmGrid::followLetters() {
    fitLetters(*Grid1, *this);
    fitColumns();
    redraw();
}

void frmGrid::showEvent(QShowEvent* event) {
    View::showEvent(event);
    context_.guard.run([this] { redraw(); });
}
