#include "structure/forms/cell_box.h"

#include "platform/qt/key_line_edit.h"
#include "platform/qt/qt_text.h"
#include "structure/design_typing.h"
#include "structure/forms/design_grid.h"
#include "voice/announcement.h"

#include <QHBoxLayout>
#include <QLabel>

CellBox::CellBox(const FormContext& context, SpokenForm& form, TableDesign& design, std::function<void()> changed,
                 QWidget* parent)
    : QWidget(parent), form_(form), design_(design), changed_(std::move(changed)), cell_(new QLabel(this)),
      itemin_(new KeyLineEdit(context, this)), overwriting_(new QLabel(QStringLiteral("上書"), this)) {
    itemin_->setFont(largeFont(*this));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(cell_);
    row->addWidget(itemin_);
    row->addWidget(overwriting_);
    form.add(*itemin_, u"itemin",
             {.label = cellLabel(design_) + Text(textBoxWord),
              .onFocus = [this] { sayCellPrompt(design_); },
              .onLeave =
                  [this] {
                      if (!design_.isClosed) {
                          takeTypedCell(design_);
                          changed_();
                      }
                  }});
    setRules();
}

void CellBox::setRules() {
    itemin_->onChange([this](const Text&, const Text& now) {
        design_.itemin = now;
        changed_();
    });
    itemin_->keys().onKeyDown([this](const KeyStroke& stroke) {
        const KeyOutcome outcome = itemInKeyDown(design_, stroke, itemin_->view());
        changed_();
        return outcome;
    });
    itemin_->keys().onKeyPress([this](char16_t unit) {
        overwriteNext(unit);
        return KeyOutcome::goesOn;
    });
}

void CellBox::overwriteNext(char16_t unit) {
    const bool types = unit >= u' ' && unit != 0x7F;
    if (design_.overwrites && types && !itemin_->hasSelectedText()) {
        itemin_->setSelection(itemin_->cursorPosition(), 1);
    }
}

/// A cell that has just been entered is wholly selected, so that typing takes its place and the arrows go on.
void CellBox::showCell() {
    if (itemin_->view().text != design_.itemin) {
        itemin_->setProgramText(design_.itemin);
    }
    overwriting_->setVisible(design_.overwrites);
    if (design_.row == shownRow_ && design_.column == shownColumn_) {
        return;
    }
    shownRow_ = design_.row;
    shownColumn_ = design_.column;
    const Text label = cellLabel(design_);
    cell_->setText(toQt(label));
    form_.voiceOf(*itemin_).label = label + Text(textBoxWord);
    itemin_->setAccessibleName(toQt(label));
    itemin_->selectAll();
}
