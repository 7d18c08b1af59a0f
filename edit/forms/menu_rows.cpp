#include "edit/forms/menu_rows.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QStyle>
#include <QStyleOptionMenuItem>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// A row to which Alt alone doesn't go: a menu bar waits for that key as a filter of its window.
class FurtherRow : public QMenuBar {
public:
    using QMenuBar::QMenuBar;
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

/// The place that an entry takes in a row, with the gap behind it; the toolkit doesn't tell it of one that it folds.
int widthIn(const QMenuBar& bar, const QAction& action) {
    QStyleOptionMenuItem option;
    option.initFrom(&bar);
    option.text = action.text();
    const QSize text = bar.fontMetrics().size(Qt::TextShowMnemonic, action.text());
    const QStyle& style = *bar.style();
    return style.sizeFromContents(QStyle::CT_MenuBarItem, &option, text, &bar).width() +
           style.pixelMetric(QStyle::PM_MenuBarItemSpacing, &option, &bar);
}

int marginsOf(const QMenuBar& bar) {
    return 2 * (bar.style()->pixelMetric(QStyle::PM_MenuBarHMargin, nullptr, &bar) +
                bar.style()->pixelMetric(QStyle::PM_MenuBarPanelWidth, nullptr, &bar));
}

/// Very large letters must leave the window to the table: the rows take a fifth of it at most.
std::size_t mostRows(const QMenuBar& first) {
    return static_cast<std::size_t>(std::max(1, first.window()->height() / 5 / std::max(1, first.height())));
}

/// The entries row by row; each row has one at least, and what finds no place in the last one is folded there.
std::vector<QList<QAction*>> inRows(const QMenuBar& first, const QList<QAction*>& all) {
    const std::size_t most = mostRows(first);
    std::vector<QList<QAction*>> rows(1);
    const int place = first.width() - marginsOf(first);
    int used = 0;
    for (QAction* action : all) {
        const int width = widthIn(first, *action);
        if (used + width > place && !rows.back().isEmpty() && rows.size() < most) {
            rows.emplace_back();
            used = 0;
        }
        used += width;
        rows.back().append(action);
    }
    return rows;
}

} // namespace

MenuRows::MenuRows(QMenuBar& first, MenuVoice& voice, QWidget* parent)
    : QWidget(parent), voice_(voice), layout_(new QVBoxLayout(this)), rows_{&first},
      focusWatch_([this](QWidget* from, QWidget* to) { focusMoved(from, to); }) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    first.installEventFilter(this);
    hide();
}

bool MenuRows::eventFilter(QObject* watched, QEvent* event) {
    if (watched == rows_.front() && (event->type() == QEvent::Resize || event->type() == QEvent::FontChange)) {
        arrange();
    } else if (event->type() == QEvent::KeyPress && rows_.size() > 1) {
        return goesOver(static_cast<QMenuBar&>(*watched), static_cast<QKeyEvent&>(*event).key());
    }
    return QWidget::eventFilter(watched, event);
}

void MenuRows::focusMoved(QWidget* from, QWidget* to) {
    if (isRow(to) && !isRow(from)) {
        focus_ = from;
    }
}

bool MenuRows::isRow(const QWidget* widget) const {
    return std::find(rows_.begin(), rows_.end(), widget) != rows_.end();
}

void MenuRows::arrange() {
    QList<QAction*> all;
    for (const QMenuBar* row : rows_) {
        all += row->actions();
    }
    const auto wanted = inRows(*rows_.front(), all);
    for (std::size_t i = 0; i < std::max(wanted.size(), rows_.size()); ++i) {
        const QList<QAction*> entries = i < wanted.size() ? wanted[i] : QList<QAction*>();
        if (row(i).actions() != entries) {
            for (QAction* action : row(i).actions()) {
                row(i).removeAction(action);
            }
            row(i).addActions(entries);
        }
        row(i).setVisible(!entries.isEmpty());
    }
    setVisible(wanted.size() > 1);
}

QMenuBar& MenuRows::row(std::size_t number) {
    if (number == rows_.size()) {
        auto* bar = new FurtherRow(this);
        bar->setNativeMenuBar(false);
        // As in the first row, no number of menus makes the window wider.
        bar->setSizePolicy(QSizePolicy::Ignored, bar->sizePolicy().verticalPolicy());
        bar->installEventFilter(this);
        voice_.listenTo(*bar);
        layout_->addWidget(bar);
        rows_.push_back(bar);
    }
    return *rows_[number];
}

/// Goes from the end of a row to the next or the one before. The menu there opens, because the toolkit lets no program
/// go to a menu without opening it.
bool MenuRows::goesOver(QMenuBar& from, int key) {
    const bool forward = key == Qt::Key_Right && from.activeAction() == from.actions().last();
    const bool back = key == Qt::Key_Left && from.activeAction() == from.actions().first();
    if (!forward && !back) {
        return false;
    }
    std::vector<QMenuBar*> used;
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(used),
                 [](const QMenuBar* row) { return !row->actions().isEmpty(); });
    const auto here = static_cast<std::size_t>(std::find(used.begin(), used.end(), &from) - used.begin());
    QMenuBar& to = *used[(here + (forward ? 1 : used.size() - 1)) % used.size()];
    if (&to == &from) {
        return false;
    }
    // The keyboard is given back first, or the new row would give it back to the old one at the end.
    from.setActiveAction(nullptr);
    if (focus_ && isRow(QApplication::focusWidget())) {
        focus_->setFocus(Qt::MenuBarFocusReason);
    }
    to.setActiveAction(forward ? to.actions().first() : to.actions().last());
    return true;
}
