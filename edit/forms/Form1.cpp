#include "edit/forms/Form1.h"

#include "edit/cell_pick.h"
#include "edit/forms/form1_menus.h"
#include "edit/forms/menu_rows.h"
#include "edit/forms/menu_voice.h"
#include "edit/forms/panel.h"
#include "edit/forms/panel_binding.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "edit/window_rows.h"
#include "platform/commands.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

FormVoice form1Voice() {
    const auto text = [] {
        return Text(u"ロミカのベースWindowです。データ入力テキストボックスに　データを入力して、"
                    u"リターンキーをたたくと、ぎょう、項目番号で規定された セルに　テキストデータが うわがき　"
                    u"され、次の項目に、かきこみ項目が移動します。また  タブ キー で　記録番号や、"
                    u"項目番号テキストボックスなどに　フォーカスを移動すると　現在の記録番号や　項目番号が　"
                    u"読み上げられます。記録番号や項目番号を書きなおし、CRキーをたたくと。そのセルに、"
                    u"かきこみセルが、移動します。");
    };
    return {.description = text, .opening = text};
}

} // namespace

Form1::Form1(const FormContext& context, EditScreen& edit, InputBox& inputBox, const MenuTable& menus)
    : context_(context), edit_(edit), spoken_(new SpokenForm(*this, context, form1Voice())), actions_(viewActions()) {
    setObjectName(QStringLiteral("Form1"));
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    panel_ = new Panel(context, body);
    stack_ = new QStackedWidget(body);
    layout->addWidget(panel_);
    layout->addWidget(stack_, 1);
    setCentralWidget(body);
    binding_ = std::make_unique<PanelBinding>(*panel_, *spoken_, edit, inputBox);
    panel_->onLabel([this](PanelLabel label) { labelUsed(label); });

    views_ = makeViews(context, actions_, stack_);
    for (View* view : views_) {
        stack_->addWidget(view);
    }
    buildMenus(*menuBar(), menus, context);
    layout->insertWidget(0, new MenuRows(*menuBar(), *new MenuVoice(*menuBar(), context), body));
    for (const TextView entry : {u"mnuDTKN", u"mnuDTKEX", u"mnuDTKOFF", u"mnuJY"}) {
        mark(entry, false);
    }
    resize(QSize(1440, 900).boundedTo(screen()->availableSize()));
    binding_->moveFocus(PanelField::txtinputbox);
}

// The focus leaves the boxes as they are destroyed, and their rules must not run any more.
Form1::~Form1() {
    delete spoken_;
}

ViewActions Form1::viewActions() {
    return {.backToInput = [this] { giveInputBoxFocus(edit_); },
            .switchView = [this](int viewMode) { switchView(viewMode); },
            .pick = [this](std::int32_t record, std::int16_t item) { pickCell(edit_, record, item); },
            .rowsChanged = [this](std::int16_t rows) { useWindowRows(context_.zormod, rows); },
            .cancelRange = [this] { dropRange(context_.zormod); }};
}

View& Form1::viewInForce() {
    const int viewMode = std::clamp<int>(context_.zormod.display.viewMode, 0, 2);
    return *views_[static_cast<std::size_t>(viewMode)];
}

void Form1::switchView(int viewMode) {
    dropRange(context_.zormod);
    context_.zormod.display.viewMode = static_cast<std::int16_t>(viewMode);
    // What is typed follows into the other view.
    const Text typed = edit_.txtinputbox.text();
    if (typed.empty()) {
        viewInForce().showCellInEcho();
    } else {
        viewInForce().showEcho(typed);
    }
    redrawView();
    giveInputBoxFocus(edit_);
}

void Form1::labelUsed(PanelLabel label) {
    Commands& commands = context_.zormod.platform.commands;
    switch (label) {
    case PanelLabel::Label2:
        return binding_->giveFocus(PanelField::txtREC);
    case PanelLabel::lblJITEM:
        return binding_->giveFocus(PanelField::RichTextBox2);
    case PanelLabel::Label3:
        return commands.run(u"Label3");
    case PanelLabel::Label4:
        return commands.run(u"mnuIDAUTO");
    case PanelLabel::Label6:
        return commands.run(u"Label6");
    case PanelLabel::lblWIDTH:
        return commands.run(u"mnuFLN");
    }
}

void Form1::mark(TextView entry, bool checked) {
    if (QAction* action = menuEntry(*menuBar(), entry)) {
        action->setCheckable(true);
        action->setChecked(checked);
    }
}

void Form1::closeEvent(QCloseEvent* event) {
    // The window goes when the program has ended; until then it stays as it is.
    event->ignore();
    context_.guard.run([this] { context_.zormod.platform.commands.run(u"mnuEND"); });
}

void Form1::setTitle(const Text& title) {
    setWindowTitle(toQt(title));
}

void Form1::showField(PanelField field, const Text& text) {
    panel_->showText(field, text);
}

void Form1::colourLabel(PanelField field, LabelGround ground) {
    panel_->colourLabel(field, ground);
}

void Form1::focusField(PanelField field) {
    binding_->moveFocus(field);
}

void Form1::setInputBoxWidth(int bytes) {
    panel_->setInputBoxWidth(bytes);
}

void Form1::showCurrentCell() {
    ::showCurrentCell(edit_);
}

void Form1::redrawView() {
    View& view = viewInForce();
    stack_->setCurrentWidget(&view);
    view.redraw();
    if (viewComesForward(context_.zormod.taskWord) && stack_->isAncestorOf(QApplication::focusWidget())) {
        focusField(PanelField::txtinputbox);
    }
}

void Form1::redrawCurrentRow() {
    viewInForce().redrawCurrentRow();
}

void Form1::showEcho(const Text& text) {
    viewInForce().showEcho(text);
}

void Form1::showCellInEcho() {
    viewInForce().showCellInEcho();
}

void Form1::paintMask(MaskKind kind, const CellRange& range) {
    viewInForce().paintMask(kind, range);
}

void Form1::hideMask() {
    for (View* view : views_) {
        view->hideMask();
    }
}

void Form1::showReadingMode(int speechMode) {
    mark(u"mnuDTKOFF", speechMode == 0);
    mark(u"mnuDTKN", speechMode == 1);
    mark(u"mnuDTKEX", speechMode == 2);
    if (QAction* action = menuEntry(*menuBar(), u"mnuJY")) {
        action->setEnabled(speechMode != 0);
    }
    showSpeek(speechMode != 0);
}

void Form1::showSpeek(bool visible) {
    panel_->showSpeek(visible);
}

void Form1::showPinnedAutoRead(bool on) {
    mark(u"mnuJY", on);
}
