#include "edit/forms/view_table.h"

#include "edit/font_sizes.h"
#include "edit/forms/sheet_font.h"

#include <QHeaderView>

QTableView* makeViewTable(QAbstractItemModel* model, QWidget* parent) {
    auto* table = new QTableView(parent);
    table->setObjectName(QStringLiteral("Grid1"));
    table->setModel(model);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // The marks follow the program, never the mouse: a click goes to the program, which then marks the cell.
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setContextMenuPolicy(Qt::NoContextMenu);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setFocusPolicy(Qt::NoFocus);
    fitLetters(*table, *parent);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setFocusPolicy(Qt::NoFocus);
    // The focus is in the input box; the mark must be as strong there as with the focus here.
    QPalette palette = table->palette();
    palette.setColor(QPalette::Inactive, QPalette::Highlight, palette.color(QPalette::Active, QPalette::Highlight));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
                     palette.color(QPalette::Active, QPalette::HighlightedText));
    table->setPalette(palette);
    return table;
}

void fitLetters(QTableView& table, const QWidget& view) {
    const SheetFont font = sheetFont(fontPixels(startSize(view)));
    table.setFont(font.font);
    table.horizontalHeader()->setFont(font.font);
    table.verticalHeader()->setFont(font.font);
    table.verticalHeader()->setDefaultSectionSize(font.rowHeight);
}

void markCell(QTableView& table, int row, int column) {
    const QModelIndex index = table.model()->index(row, column);
    table.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    table.scrollTo(index, QAbstractItemView::EnsureVisible);
}
