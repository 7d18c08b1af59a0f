#pragma once
// What the tables of the card and grid views have in common: they are looked at, not worked in.

#include <QTableView>

/// Makes a table that shows `model`, takes no keys of its own and marks the current cell strongly.
QTableView* makeViewTable(QAbstractItemModel* model, QWidget* parent);

/// Gives the table the letters that suit the size of `view`'s.
void fitLetters(QTableView& table, const QWidget& view);

/// Makes row and column `row`, `column` the marked one and brings it into view.
void markCell(QTableView& table, int row, int column);
