#include "voice/forms/spoken_list.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/qt_text.h"
#include "voice/speech_channel.h"

#include <QAbstractListModel>
#include <QItemSelectionModel>

#include <algorithm>

/// The lines as the toolkit asks for them.
class SpokenList::Lines : public QAbstractListModel {
public:
    Lines(const Rules& rules, QObject* parent) : QAbstractListModel(parent), rules_(rules), count_(rules.count()) {}

    void refill() {
        beginResetModel();
        count_ = rules_.count();
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& index, int role) const override {
        // Without a current line the toolkit's own copy key asks for the text of none.
        return role == Qt::DisplayRole && index.isValid() ? QVariant(toQt(rules_.line(index.row()))) : QVariant();
    }

private:
    const Rules& rules_;
    int count_;
};

namespace {

bool isMove(const KeyStroke& stroke) {
    switch (stroke.key) {
    case Key::up:
    case Key::down:
    case Key::pageUp:
    case Key::pageDown:
    case Key::home:
    case Key::end:
        return stroke == plainKey(stroke.key);
    default:
        return false;
    }
}

} // namespace

SpokenList::SpokenList(const FormContext& context, Rules rules, QWidget* parent)
    : QListView(parent), context_(context), rules_(std::move(rules)), lines_(new Lines(rules_, this)) {
    setModel(lines_);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setFocusPolicy(Qt::StrongFocus);
    KeyTap& keys = KeyTap::of(*this, context);
    keys.onKeyDown([this](const KeyStroke& stroke) { return keyDown(stroke); });
    keys.onKeyPress([this](char16_t unit) { return press(unit); });
    keys.onKeyUp([this](const KeyStroke& stroke) { keyUp(stroke); });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (!moving_ && row() >= 0) {
            context_.guard.run([this] {
                if (rules_.moved) {
                    rules_.moved(row());
                }
                sayThrottled(context_.zormod, spokenLine());
            });
        }
    });
    if (rules_.enter) {
        connect(this, &QListView::doubleClicked, this, context.guard.wrap(rules_.enter));
    }
    if (rules_.click) {
        connect(this, &QListView::clicked, this, context.guard.wrap(rules_.click));
    }
    refill(-1);
}

int SpokenList::row() const {
    return currentIndex().row();
}

void SpokenList::refill(int row) {
    moving_ = true;
    lines_->refill();
    // Also for no line: left to itself the toolkit makes the first one current when the focus comes.
    setCurrentIndex(row >= 0 ? lines_->index(row) : QModelIndex());
    moving_ = false;
}

Text SpokenList::spokenLine() const {
    if (row() < 0) {
        return lines_->rowCount() == 0 ? rules_.emptyText : Text();
    }
    return rules_.spoken ? rules_.spoken(row()) : rules_.line(row());
}

KeyOutcome SpokenList::keyDown(const KeyStroke& stroke) {
    if (!isMove(stroke)) {
        return KeyOutcome::goesOn;
    }
    const int last = lines_->rowCount() - 1;
    const int page = rowsOfAPage();
    switch (stroke.key) {
    case Key::up:
        goTo(std::max(row() - 1, 0));
        break;
    case Key::down:
        goTo(row() + 1);
        break;
    case Key::pageUp:
        goTo(std::max(row() - page, 0));
        break;
    case Key::pageDown:
        goTo(std::max(row(), 0) + page);
        break;
    case Key::home:
        goTo(0);
        break;
    default:
        goTo(last);
        break;
    }
    return KeyOutcome::taken;
}

// Every character is the list's own: the toolkit's search would move without a word.
KeyOutcome SpokenList::press(char16_t unit) {
    if (unit == u'\r') {
        if (rules_.enter) {
            rules_.enter();
        }
        return KeyOutcome::taken;
    }
    if (unit == u' ' && rules_.space) {
        rules_.space();
        return KeyOutcome::taken;
    }
    if (unit >= u' ' && rules_.typed) {
        if (const auto found = rules_.typed(unit)) {
            goTo(*found);
        }
    }
    return unit >= u' ' ? KeyOutcome::taken : KeyOutcome::goesOn;
}

void SpokenList::keyUp(const KeyStroke& stroke) {
    if (movedByKey_ || isMove(stroke) || stroke == plainKey(Key::shift)) {
        movedByKey_ = false;
        if (Text text = spokenLine(); !text.empty()) {
            sayThrottled(context_.zormod, std::move(text));
        }
    }
}

void SpokenList::goTo(int row) {
    const int line = std::min(row, lines_->rowCount() - 1);
    movedByKey_ = true;
    if (line < 0) {
        return;
    }
    moving_ = true;
    setCurrentIndex(lines_->index(line));
    moving_ = false;
    if (rules_.moved) {
        rules_.moved(line);
    }
}

int SpokenList::rowsOfAPage() const {
    const int height = std::max(sizeHintForRow(0), 1);
    return std::max(viewport()->height() / height - 1, 1);
}
