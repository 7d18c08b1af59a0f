#pragma once
// The lines of the card view as the toolkit's table asks for them, read from the record window at every request.

#include "sheet/zormod.h"

#include <QAbstractTableModel>

/// One line an item: number, name, data.
class CardRows : public QAbstractTableModel {
    Q_OBJECT
public:
    CardRows(const ZORMOD& zormod, QObject* parent) : QAbstractTableModel(parent), zormod_(zormod) {}

    /// The current record's data have changed, or it is another record; a changed number of items rebuilds.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const ZORMOD& zormod_;
    int rows_ = 0;
};
