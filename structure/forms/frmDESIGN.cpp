#include "structure/forms/frmDESIGN.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/qt_text.h"
#include "structure/design_checks.h"
#include "structure/design_reference.h"
#include "structure/design_typing.h"
#include "structure/forms/design_grid.h"
#include "structure/forms/reference_list.h"
#include "voice/announcement.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr TextView nameLabel = u"ﾌｧｲﾙ名（拡張子つけない)";
constexpr TextView memoLabel = u"表メモ";
constexpr TextView countLabel = u"項目数";

FormVoice designVoice() {
    return {.description = [] {
        return Text(nameLabel) + u"、" + Text(memoLabel) + u"、" + Text(countLabel);
    }};
}

} // namespace

frmDESIGN::frmDESIGN(const FormContext& context, QWidget* parent)
    : SpokenDialog(context, designVoice(), parent), design_(context.zormod) {
    setObjectName(u"frmDESIGN");
    setWindowTitle(QStringLiteral("項目区切りの設定"));
    auto* layout = new QVBoxLayout(this);
    text3 = addTextBox(*layout, u"text3", nameLabel, design_.text3);
    text2 = addTextBox(*layout, u"text2", memoLabel, design_.text2);
    text1 = addTextBox(*layout, u"text1", countLabel, design_.text1);
    addItemIn(*layout);
    addButtons(*layout);
    addReferences(*layout);
    setBoxRules();
    refresh();
    (design_.mode == DesignMode::change ? itemin : text3)->setFocus();
}

void frmDESIGN::reject() {
    context().guard.run([this] { follow(giveUpDesign(design_)); });
}

KeyLineEdit* frmDESIGN::addTextBox(QVBoxLayout& layout, const char16_t* name, TextView label, Text& text) {
    auto* box = new KeyLineEdit(context());
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(toQt(label)));
    row->addWidget(box);
    layout.addLayout(row);
    box->onChange([&text](const Text&, const Text& now) { text = now; });
    spoken().add(*box, name, {.label = Text(label) + Text(textBoxWord)});
    return box;
}

void frmDESIGN::addItemIn(QVBoxLayout& layout) {
    itemin = new KeyLineEdit(context());
    itemin->setFont(largeFont(*this));
    cell_ = new QLabel;
    overwriting_ = new QLabel(QStringLiteral("上書"));
    auto* row = new QHBoxLayout;
    row->addWidget(cell_);
    row->addWidget(itemin);
    row->addWidget(overwriting_);
    layout.addLayout(row);
    spoken().add(*itemin, u"itemin",
                 {.label = cellLabel(design_) + Text(textBoxWord),
                  .onFocus = [this] { sayCellPrompt(design_); },
                  .onLeave =
                      [this] {
                          if (!isClosing_) {
                              takeTypedCell(design_);
                              refresh();
                          }
                      }});
    itemin->onChange([this](const Text&, const Text& now) {
        design_.itemin = now;
        refresh();
    });
    itemin->keys().onKeyDown([this](const KeyStroke& stroke) { return itemInKey(stroke); });
    itemin->keys().onKeyPress([this](char16_t unit) {
        overwriteNext(unit);
        return KeyOutcome::goesOn;
    });
    grid_ = new DesignGrid(design_, this);
    grid_->setObjectName(u"Grid1");
    grid_->setAccessibleName(windowTitle());
    layout.addWidget(grid_, 1);
    connect(grid_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        context().guard.run([&] {
            const int column = std::max(index.column(), static_cast<int>(DesignColumn::name));
            pickDesignCell(design_, index.row(), static_cast<DesignColumn>(column));
            refresh();
            itemin->setFocus(Qt::ActiveWindowFocusReason);
        });
    });
}

void frmDESIGN::addButtons(QVBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->addWidget(makeButton(u"Command1", u"決定", [this] { follow(acceptDesign(design_)); }));
    row->addWidget(makeButton(u"Command2", u"中止(ESC)", [this] { follow(giveUpDesign(design_)); }));
    Command3 = makeButton(u"Command3", u"他ﾌｧｲﾙ参照.on/off", [this] { toggleReferences(); });
    row->addWidget(Command3);
    layout.addLayout(row);
}

KeyButton* frmDESIGN::makeButton(const char16_t* name, TextView caption, std::function<void()> rule) {
    auto* button = new KeyButton(toQt(caption), context());
    spoken().add(*button, name);
    button->onClick(std::move(rule));
    return button;
}

void frmDESIGN::addReferences(QVBoxLayout& layout) {
    references_ = new ReferenceList(context(), spoken(), design_, [this] { refresh(); }, this);
    layout.addWidget(references_);
}

void frmDESIGN::setBoxRules() {
    spoken().voiceOf(*text1).onLeave = [this] {
        if (!isClosing_) {
            leaveItemCountBox(design_);
            refresh();
        }
    };
    spoken().voiceOf(*text3).onLeave = [this] {
        if (!isClosing_) {
            leaveFileNameBox(design_);
        }
    };
    const auto entersTo = [](KeyLineEdit* box, KeyLineEdit* next) {
        box->keys().onKeyDown([next](const KeyStroke& stroke) {
            if (stroke != plainKey(Key::enter)) {
                return KeyOutcome::goesOn;
            }
            next->setFocus(Qt::TabFocusReason);
            return KeyOutcome::taken;
        });
    };
    entersTo(text3, text2);
    entersTo(text2, text1);
    entersTo(text1, itemin);
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke != plainKey(Key::escape)) {
            return KeyOutcome::goesOn;
        }
        follow(giveUpDesign(design_));
        return KeyOutcome::taken;
    });
}

KeyOutcome frmDESIGN::itemInKey(const KeyStroke& stroke) {
    const KeyOutcome outcome = itemInKeyDown(design_, stroke, itemin->view());
    refresh();
    return outcome;
}

void frmDESIGN::overwriteNext(char16_t unit) {
    const bool types = unit >= u' ' && unit != 0x7F;
    if (design_.overwrites && types && !itemin->hasSelectedText()) {
        itemin->setSelection(itemin->cursorPosition(), 1);
    }
}

void frmDESIGN::refresh() {
    const auto show = [](KeyLineEdit* box, const Text& text) {
        if (box->view().text != text) {
            box->setProgramText(text);
        }
    };
    show(text1, design_.text1);
    show(text2, design_.text2);
    show(text3, design_.text3);
    show(itemin, design_.itemin);
    showCell();
    overwriting_->setVisible(design_.overwrites);
    grid_->showDesign();
    references_->setVisible(design_.referencesShown);
}

/// A cell that has just been entered is wholly selected, so that typing takes its place and the arrows go on.
void frmDESIGN::showCell() {
    if (design_.row == shownRow_ && design_.column == shownColumn_) {
        return;
    }
    shownRow_ = design_.row;
    shownColumn_ = design_.column;
    const Text label = cellLabel(design_);
    cell_->setText(toQt(label));
    spoken().voiceOf(*itemin).label = label + Text(textBoxWord);
    itemin->setAccessibleName(toQt(label));
    itemin->selectAll();
}

void frmDESIGN::follow(DesignOutcome outcome) {
    if (outcome == DesignOutcome::closed) {
        isClosing_ = true;
        QDialog::reject();
        return;
    }
    if (references_->isVisible() && !design_.referencesShown) {
        Command3->setFocus(Qt::ActiveWindowFocusReason);
    }
    refresh();
    if (outcome == DesignOutcome::toFileName) {
        spoken().giveFocus(*text3);
    } else if (outcome == DesignOutcome::toGrid) {
        spoken().giveFocus(*itemin);
    }
}

void frmDESIGN::toggleReferences() {
    if (design_.referencesShown) {
        follow(giveUpDesign(design_));
        return;
    }
    design_.referencesShown = true;
    refresh();
    references_->start();
}
