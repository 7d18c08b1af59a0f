#include "structure/forms/design_grid.h"

#include <QFontInfo>
#include <QHeaderView>

QFont largeFont(const QWidget& widget) {
    QFont font = widget.font();
    font.setPixelSize(QFontInfo(font).pixelSize() * 3 / 2);
    return font;
}

DesignGrid::DesignGrid(const TableDesign& design, QWidget* parent)
    : QTableView(parent), design_(design), rows_(new DesignRows(design, this)) {
    setModel(rows_);
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setContextMenuPolicy(Qt::NoContextMenu);
    setWordWrap(false);
    setFont(largeFont(*parent));
    horizontalHeader()->setFont(font());
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    const int unit = fontMetrics().horizontalAdvance(u'0');
    int column = 0;
    for (const int characters : {12, 32, 12, 10}) {
        setColumnWidth(column++, characters * unit);
    }
    // Few rows, so that the form with its list of other tables finds room on a low screen.
    setMinimumSize(70 * unit, 5 * verticalHeader()->defaultSectionSize());
    QPalette marked = palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
        marked.setColor(QPalette::Inactive, role, marked.color(QPalette::Active, role));
    }
    setPalette(marked);
}

void DesignGrid::showDesign() {
    rows_->refresh();
    const QModelIndex inHand = rows_->index(design_.row, static_cast<int>(design_.column));
    setCurrentIndex(inHand);
    scrollTo(inHand, QAbstractItemView::EnsureVisible);
}
