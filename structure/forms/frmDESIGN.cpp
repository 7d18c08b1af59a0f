#include "structure/forms/frmDESIGN.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/qt_text.h"
#include "start/forms/file_boxes.h"
#include "structure/design_checks.h"
#include "structure/design_reference.h"
#include "structure/design_typing.h"
#include "structure/forms/cell_box.h"
#include "structure/forms/design_grid.h"
#include "voice/forms/spoken_list.h"
#include "voice/announcement.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
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
    addGrid(*layout);
    addButtons(*layout);
    addReferences(*layout);
    setBoxRules();
    refresh();
    resize(sizeHint().expandedTo(QSize(0, 600)).boundedTo(screen()->availableSize()));
    (design_.mode == DesignMode::change ? &cellBox_->itemin() : text3)->setFocus();
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

void frmDESIGN::addGrid(QVBoxLayout& layout) {
    cellBox_ = new CellBox(context(), spoken(), design_, [this] { refresh(); }, this);
    layout.addWidget(cellBox_);
    grid_ = new DesignGrid(design_, this);
    grid_->setObjectName(u"Grid1");
    grid_->setAccessibleName(windowTitle());
    layout.addWidget(grid_, 1);
    connect(grid_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        context().guard.run([&] {
            const int column = std::max(index.column(), static_cast<int>(DesignColumn::name));
            pickDesignCell(design_, index.row(), static_cast<DesignColumn>(column));
            refresh();
            cellBox_->itemin().setFocus(Qt::ActiveWindowFocusReason);
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
    const auto take = [this] {
        takeReference(design_);
        refresh();
    };
    references_ = new FileBoxes(context(), spoken(), design_.references,
                                {.fileEnter = take,
                                 .fileSpace = take,
                                 .fileClick = take,
                                 .sharesFirstLetter = [] { return true; },
                                 .fileReading = [this](const Text& name) { return referenceReading(design_, name); }},
                                this);
    layout.addWidget(references_);
}

void frmDESIGN::setBoxRules() {
    spoken().voiceOf(*text1).onLeave = [this] {
        if (!design_.isClosed) {
            leaveItemCountBox(design_);
            refresh();
        }
    };
    spoken().voiceOf(*text3).onLeave = [this] {
        if (!design_.isClosed) {
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
    entersTo(text1, &cellBox_->itemin());
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke != plainKey(Key::escape)) {
            return KeyOutcome::goesOn;
        }
        follow(giveUpDesign(design_));
        return KeyOutcome::taken;
    });
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
    cellBox_->showCell();
    grid_->showDesign();
    references_->setVisible(design_.referencesShown);
}

void frmDESIGN::follow(DesignOutcome outcome) {
    if (outcome == DesignOutcome::closed) {
        design_.isClosed = true;
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
        spoken().giveFocus(cellBox_->itemin());
    }
}

void frmDESIGN::toggleReferences() {
    if (design_.referencesShown) {
        follow(giveUpDesign(design_));
        return;
    }
    showReferences(design_);
    refresh();
    spoken().giveFocus(references_->files());
}
